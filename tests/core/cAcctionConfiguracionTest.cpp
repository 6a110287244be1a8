// The facade's per-machine settings: read under the application name and
// the section "Config", numbers and booleans given back as text, and the
// empty text when the store fails.

#include <gtest/gtest.h>

#include <string>

#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "platform/files/cConfigLocalIni.h"
#include "tests/support/ConfiguracionPrivada.h"
#include "tests/support/TestPlatform.h"

namespace celdora {
namespace {

using testing::ConfiguracionPrivada;
using testing::TestPlatform;

// Each case gets its own configuration folder and a fresh shared store.
class ConfiguracionLocal : public ::testing::Test {
protected:
    TestPlatform platform;
    ConfiguracionPrivada configuracion;
    cAcction facade;

    void SetUp() override {
        mdlMain::SoltarObjetosCompartidos();
        facade.ApplicationName = "Tiendaro";
    }

    void TearDown() override { mdlMain::SoltarObjetosCompartidos(); }

    // Written as the local settings dialog writes: through the shared store.
    void Guardar(const std::string& clave, const std::string& valor, const std::string& aplicacion = "Tiendaro",
                 const std::string& seccion = "Config") {
        mdlMain::ConfigLocal().GuardarValor(aplicacion, seccion, clave, valor);
    }
};

TEST_F(ConfiguracionLocal, StrReadsTheApplicationsConfigSectionWithTheReadersOwnDefault) {
    Guardar("FE_Timbre001", "timbrado.cMain");
    Guardar("FE_Timbrar", "0", "OtraAplicacion");
    Guardar("FE_Timbrar", "0", "Tiendaro", "Otra");

    EXPECT_EQ(facade.StrConfiguracionLocal("Fe_Timbre001"), "timbrado.cMain") << "written FE_, read Fe_";
    EXPECT_EQ(facade.StrConfiguracionLocal("FE_Timbrar", "1"), "1");
    EXPECT_EQ(facade.StrConfiguracionLocal("FE_Timbrar", "2"), "2") << "no default is written back";
    EXPECT_EQ(facade.StrConfiguracionLocal("FE_Timbrar"), "");
}

TEST_F(ConfiguracionLocal, DblGivesTheNumberInTheMachinesFormatAndEmptyForWhatIsNoNumber) {
    Guardar("Importe", "0012.50");
    Guardar("Texto", "doce");

    EXPECT_EQ(facade.DblConfiguracionLocal("Importe"), "12.5");
    EXPECT_EQ(facade.DblConfiguracionLocal("Texto", "3"), "");
    EXPECT_EQ(facade.DblConfiguracionLocal("Ausente"), "") << "not \"0\"";
    EXPECT_EQ(facade.DblConfiguracionLocal("Ausente", "3.0"), "3");
}

TEST_F(ConfiguracionLocal, BoolGivesTheTextOfTrueOrFalse) {
    Guardar("Uno", "1");
    Guardar("Cero", "0");
    Guardar("MenosUno", "-1");
    Guardar("Otra", "sí");

    EXPECT_EQ(facade.BoolConfiguracionLocal("Uno"), "True");
    EXPECT_EQ(facade.BoolConfiguracionLocal("Cero"), "False");
    EXPECT_EQ(facade.BoolConfiguracionLocal("MenosUno"), "True");
    EXPECT_EQ(facade.BoolConfiguracionLocal("Otra"), "");
    EXPECT_EQ(facade.BoolConfiguracionLocal("Ausente"), "");
    EXPECT_EQ(facade.BoolConfiguracionLocal("Ausente", "false"), "False");
}

TEST_F(ConfiguracionLocal, WithoutTheStoreAllThreeAnswerEmptyEvenWithADefaultAndSayNothing) {
    platform.Quitar(host::progid::cConfigLocal);

    EXPECT_EQ(facade.StrConfiguracionLocal("FE_Timbrar", "1"), "");
    EXPECT_EQ(facade.DblConfiguracionLocal("Importe", "2"), "");
    EXPECT_EQ(facade.BoolConfiguracionLocal("Uno", "1"), "");
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

TEST_F(ConfiguracionLocal, TheStoreIsCreatedOnceForTheProcessAndAgainOnlyAfterItIsDropped) {
    platform.Quitar(host::progid::cConfigLocal);
    facade.StrConfiguracionLocal("FE_Timbrar");  // a failed creation is not remembered

    int creados = 0;
    platform.plataforma.Fabrica().Registrar(host::progid::cConfigLocal, [&] {
        ++creados;
        return std::static_pointer_cast<Object>(std::make_shared<platform::cConfigLocalIni>());
    });
    facade.StrConfiguracionLocal("FE_Timbrar");
    facade.DblConfiguracionLocal("FE_Timbrar");
    cAcction otra;
    otra.StrConfiguracionLocal("FE_Timbrar");
    EXPECT_EQ(creados, 1);

    mdlMain::SoltarObjetosCompartidos();
    facade.StrConfiguracionLocal("FE_Timbrar");
    EXPECT_EQ(creados, 2);
}

}  // namespace
}  // namespace celdora

// The facade's per-machine settings: read under the application name and
// the section "Config", numbers and booleans given back as text, and the
// empty text when the store fails.

#include <gtest/gtest.h>

#include <array>

#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "platform/files/cConfigLocalIni.h"
#include "tests/support/ConfiguracionPrivada.h"
#include "tests/support/TestPlatform.h"

namespace celdora {
namespace {

using Lector = std::string (cAcction::*)(const std::string&, const std::string&);

// Each case gets its own configuration folder and a fresh shared store.
class ConfiguracionLocal : public ::testing::Test {
protected:
    testing::TestPlatform platform;
    testing::ConfiguracionPrivada configuracion;
    cAcction facade;

    void SetUp() override {
        mdlMain::SoltarObjetosCompartidos();
        facade.ApplicationName = "Tiendaro";
    }
    void TearDown() override { mdlMain::SoltarObjetosCompartidos(); }
};

// Written as the local settings dialog writes, through the shared store;
// each reader gives a key (read with its default) as this text.
TEST_F(ConfiguracionLocal, EachReaderGivesItsTextOfTheApplicationsConfigSection) {
    for (const auto& [aplicacion, seccion, clave, valor] : std::vector<std::array<std::string, 4>>{
             {"Tiendaro", "Config", "FE_Timbre001", "timbrado.cMain"}, {"OtraAplicacion", "Config", "FE_Timbrar", "0"},
             {"Tiendaro", "Otra", "FE_Timbrar", "0"}, {"Tiendaro", "Config", "Importe", "0012.50"},
             {"Tiendaro", "Config", "Texto", "doce"}, {"Tiendaro", "Config", "Uno", "1"},
             {"Tiendaro", "Config", "Cero", "0"}, {"Tiendaro", "Config", "MenosUno", "-1"},
             {"Tiendaro", "Config", "Otra", "sí"}})
        mdlMain::ConfigLocal().GuardarValor(aplicacion, seccion, clave, valor);
    const Lector str = &cAcction::StrConfiguracionLocal, dbl = &cAcction::DblConfiguracionLocal,
                 boo = &cAcction::BoolConfiguracionLocal;
    const struct {
        Lector lector;
        std::string clave, omision, texto;
    } casos[] = {
        {str, "Fe_Timbre001", "", "timbrado.cMain"},  // written FE_, read Fe_
        {str, "FE_Timbrar", "1", "1"}, {str, "FE_Timbrar", "2", "2"},  // no default is written back
        {str, "FE_Timbrar", "", ""},
        {dbl, "Importe", "", "12.5"}, {dbl, "Texto", "3", ""}, {dbl, "Ausente", "", ""}, {dbl, "Ausente", "3.0", "3"},
        {boo, "Uno", "", "True"}, {boo, "Cero", "", "False"}, {boo, "MenosUno", "", "True"}, {boo, "Otra", "", ""},
        {boo, "Ausente", "", ""}, {boo, "Ausente", "false", "False"},
    };
    for (const auto& caso : casos) EXPECT_EQ((facade.*caso.lector)(caso.clave, caso.omision), caso.texto) << caso.clave;
    // Without the store all three answer empty even with a default, and say nothing.
    mdlMain::SoltarObjetosCompartidos();
    platform.Quitar(host::progid::cConfigLocal);
    for (const Lector lector : {str, dbl, boo}) EXPECT_EQ((facade.*lector)("Uno", "1"), "");
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
    cAcction().StrConfiguracionLocal("FE_Timbrar");
    EXPECT_EQ(creados, 1);
    mdlMain::SoltarObjetosCompartidos();
    facade.StrConfiguracionLocal("FE_Timbrar");
    EXPECT_EQ(creados, 2);
}

}  // namespace
}  // namespace celdora

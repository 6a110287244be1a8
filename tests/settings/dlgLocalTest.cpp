// The machine's local settings and stamping account, on the real INI store
// in a folder of each test's own, with every write noted in order.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "platform/files/cConfigLocalIni.h"
#include "settings/dlgLocal.h"
#include "tests/support/AjustesGrabados.h"
#include "tests/support/ConfiguracionPrivada.h"
#include "tests/support/TestPlatform.h"

namespace celdora {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Textos = std::vector<std::string>;

const std::string kDigesto = "4f356e71899d4e6ac647d2ed22a81dd2";  // MD5 of "secreta"

class ConfiguracionLocal : public ::testing::Test {
protected:
    testing::TestPlatform platform;
    testing::ConfiguracionPrivada configuracion;
    testing::CarpetaTemporal repositorio;
    std::shared_ptr<platform::cConfigLocalIni> ini = std::make_shared<platform::cConfigLocalIni>();
    std::shared_ptr<testing::ConfigLocalGrabado> almacen = std::make_shared<testing::ConfigLocalGrabado>(ini);
    cAcction acc;

    void SetUp() override {
        platform.plataforma.Fabrica().Registrar(host::progid::cConfigLocal, [this] { return almacen; });
        mdlMain::SoltarObjetosCompartidos();
        acc.ApplicationName = "Tiendaro";
        acc.AppRepositoryPath = repositorio.ruta().string();
    }
    void TearDown() override { mdlMain::SoltarObjetosCompartidos(); }

    void PacInf(const std::string& texto) {
        fs::create_directories(repositorio.ruta() / "CFDI");
        std::ofstream(repositorio.ruta() / "CFDI" / "PAC.inf", std::ios::binary) << texto;
    }
    // A value already on this machine, as the store's writer spells it.
    void Guardado(const std::string& clave, const std::string& valor) {
        ini->GuardarValor("Tiendaro", "Config", clave, valor);
    }
    void Abrir(std::function<void(dlgLocal&)> guion) {
        platform.ui.AlMostrar("dlgLocal", [guion](forms::Dialogo& d) { guion(dynamic_cast<dlgLocal&>(d)); });
        dlgLocal dialogo;
        dialogo.oAcc = &acc;
        dialogo.ShowModal();
    }
    Textos Escrito(const Textos& claves) {
        Textos textos;
        for (const auto& clave : claves) textos.push_back("Tiendaro/Config/" + clave);
        return textos;
    }
};

struct CasoComponentes {
    std::optional<std::string> pacInf;
    std::string guardado;
    Textos entradas;
    std::string elegido;
};

class Componentes : public ConfiguracionLocal, public ::testing::WithParamInterface<CasoComponentes> {};

// A stored component that the file no longer lists leaves the last entry
// selected, and that one is stored.
TEST_P(Componentes, TheListComesFromPacInfAndTheStoredComponentIsSelected) {
    const auto& caso = GetParam();
    if (caso.pacInf) PacInf(*caso.pacInf);
    Guardado("FE_Timbre001", caso.guardado);
    Abrir([&](dlgLocal& d) {
        std::vector<std::string> entradas;
        for (const auto& item : d.cmbPAC.Items()) entradas.push_back(item.text);
        EXPECT_EQ(entradas, caso.entradas);
        d.btnOK.Pulsar();
    });
    EXPECT_THAT(almacen->escrituras, ::testing::Contains("Tiendaro/Config/FE_Timbre001=" + caso.elegido));
}

INSTANTIATE_TEST_SUITE_P(
    , Componentes,
    ::testing::Values(CasoComponentes{std::nullopt, "", {"psecfdi.edicom.cMain"}, "psecfdi.edicom.cMain"},
                      CasoComponentes{"", "x", {"psecfdi.edicom.cMain"}, "psecfdi.edicom.cMain"},
                      CasoComponentes{"pac.uno\r\n\r\n   \r\n pac.dos\r\n", "pac.dos", {"pac.uno", " pac.dos"},
                                      " pac.dos"},
                      CasoComponentes{"pac.uno\r\npac.dos\r\npac.tres", "pac.uno", {"pac.uno", "pac.dos", "pac.tres"},
                                      "pac.uno"},
                      CasoComponentes{"pac.uno\r\npac.dos", "pac.retirado", {"pac.uno", "pac.dos"}, "pac.dos"}));

TEST_F(ConfiguracionLocal, AFirstConfigurationWithEmptyPasswordsWritesNoPasswordKey) {
    Abrir([](dlgLocal& d) {
        EXPECT_EQ(d.chktimbrar.Value(), 1);
        EXPECT_FALSE(d.txtCopiaLocal.Enabled());
        EXPECT_TRUE(d.txtCopiaLocal.Locked());
        d.btnOK.Pulsar();
    });
    EXPECT_EQ(almacen->escrituras, Escrito({"FE_CopiaLocal=", "FE_Timbrar=1", "FE_Timbre001=psecfdi.edicom.cMain",
                                            "FE_Timbre002=", "FE_Timbre003="}));
}

// The account is read back under the reader's spelling, and the digest in
// the boxes, retyped by hand, counts as unchanged.
TEST_F(ConfiguracionLocal, TheAccountIsWrittenInOrderWithTheDigestOnlyWhenThePasswordChanged) {
    PacInf("pac.uno\r\npac.dos\r\n");
    platform.ui.Elegir("/respaldos");
    Abrir([](dlgLocal& d) {
        d.chkGuardarRespaldo.Pulsar();
        d.Ver<forms::CommandButton>("btnCopiaLocal").Pulsar();
        d.chktimbrar.Pulsar();
        d.cmbPAC.Text("pac.dos");
        d.txtUsuario.Escribir("demo");
        d.txtSucursal.Escribir("01");
        d.txtPWD.Escribir("secreta");
        d.txtPWDRep.Escribir("secreta");
        d.btnOK.Pulsar();
        EXPECT_FALSE(d.Cargado());
    });
    EXPECT_EQ(almacen->escrituras, Escrito({"FE_CopiaLocal=/respaldos", "FE_Timbrar=0", "FE_Timbre001=pac.dos",
                                            "FE_Timbre002=demo", "FE_Timbre003=01", "FE_Timbre004=" + kDigesto}));
    EXPECT_EQ(platform.ui.Selecciones().at(0).titulo, "Carpetas");

    almacen->escrituras.clear();
    Abrir([](dlgLocal& d) {
        EXPECT_EQ(d.txtCopiaLocal.Text(), "/respaldos");
        EXPECT_EQ(d.cmbPAC.Text(), "pac.dos");
        EXPECT_EQ(d.txtUsuario.Text(), "demo");
        EXPECT_EQ(d.txtPWD.Text(), kDigesto);
        d.txtPWD.Escribir(kDigesto);
        d.btnOK.Pulsar();
    });
    EXPECT_EQ(almacen->escrituras.size(), 5u);
}

TEST_F(ConfiguracionLocal, DifferingPasswordsAndCancellingWriteNothing) {
    Abrir([](dlgLocal& d) {
        d.txtPWD.Escribir("uno ");
        d.txtPWDRep.Escribir("dos");
        d.btnOK.Pulsar();
        EXPECT_TRUE(d.Visible());
        d.txtPWDRep.Escribir(" uno");
        d.btnCancel.Pulsar();
    });
    EXPECT_THAT(almacen->escrituras, IsEmpty());
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    platform.ui.ExpectCaja(0, "Las contraseñas no coinciden verifique por favor", host::Icono::Informacion,
                           "Configuración local");
}

// A click in the filled field asks nothing; a cancelled picker empties it.
TEST_F(ConfiguracionLocal, ACancelledPickerEmptiesTheFolderAndAClearedBoxStoresNoFolder) {
    Guardado("FE_CopiaLocal", "/respaldos");
    platform.ui.Elegir(std::nullopt);
    Abrir([](dlgLocal& d) {
        EXPECT_EQ(d.chkGuardarRespaldo.Value(), 1);
        d.txtCopiaLocal.Pulsar();
        EXPECT_EQ(d.txtCopiaLocal.Text(), "/respaldos");
        d.btnCopiaLocal.Pulsar();
        EXPECT_EQ(d.txtCopiaLocal.Text(), "");
        d.txtCopiaLocal.Text("/otra");
        d.chkGuardarRespaldo.Pulsar();
        EXPECT_EQ(d.txtCopiaLocal.Text(), "");
        d.btnOK.Pulsar();
    });
    EXPECT_EQ(almacen->escrituras.at(0), "Tiendaro/Config/FE_CopiaLocal=");
}

}  // namespace
}  // namespace celdora

// The machine's local settings and stamping account, on the real INI store
// in a folder of each test's own, with every write noted in order.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "settings/dlgLocal.h"
#include "tests/support/AjustesGrabados.h"
#include "tests/support/ConfiguracionPrivada.h"
#include "tests/support/TestPlatform.h"

namespace celdora {
namespace {

using Textos = std::vector<std::string>;

struct Caso {
    std::optional<std::string> pacInf;
    std::string guardado;  // FE_Timbre001
    Textos entradas;
    Textos escritas;
};

class ConfiguracionLocal : public ::testing::TestWithParam<Caso> {
protected:
    testing::TestPlatform platform;
    testing::ConfiguracionPrivada configuracion;
    testing::CarpetaTemporal repositorio;
    std::shared_ptr<testing::ConfigLocalGrabado> almacen = std::make_shared<testing::ConfigLocalGrabado>();
    cAcction acc;

    void SetUp() override {
        platform.plataforma.Fabrica().Registrar(host::progid::cConfigLocal, [this] { return almacen; });
        mdlMain::SoltarObjetosCompartidos();
        acc.ApplicationName = "Tiendaro";
        acc.AppRepositoryPath = repositorio.ruta().string();
    }
    void TearDown() override { mdlMain::SoltarObjetosCompartidos(); }

    void Abrir(std::function<void(dlgLocal&)> guion) {
        platform.ui.AlMostrar("dlgLocal", [guion](forms::Dialogo& d) { guion(dynamic_cast<dlgLocal&>(d)); });
        dlgLocal dialogo;
        dialogo.oAcc = &acc;
        dialogo.ShowModal();
    }
};

// Empty passwords on a first configuration write no password key; a stored
// component that the file no longer lists leaves the last entry, stored.
TEST_P(ConfiguracionLocal, TheComponentsComeFromPacInfAndTheKeysAreWrittenInOrder) {
    const Caso& caso = GetParam();
    if (caso.pacInf) {
        std::filesystem::create_directories(repositorio.ruta() / "CFDI");
        std::ofstream(repositorio.ruta() / "CFDI" / "PAC.inf", std::ios::binary) << *caso.pacInf;
    }
    almacen->cConfigLocalIni::GuardarValor("Tiendaro", "Config", "FE_Timbre001", caso.guardado);
    Abrir([&](dlgLocal& d) {
        Textos entradas;
        for (const auto& item : d.cmbPAC.Items()) entradas.push_back(item.text);
        EXPECT_EQ(entradas, caso.entradas);
        d.btnOK.Pulsar();
    });
    EXPECT_EQ(almacen->escrituras, caso.escritas);
}

Textos Escritas(const std::string& componente) {
    return {"FE_CopiaLocal=", "FE_Timbrar=1", "FE_Timbre001=" + componente, "FE_Timbre002=", "FE_Timbre003="};
}

INSTANTIATE_TEST_SUITE_P(, ConfiguracionLocal,
                         ::testing::Values(Caso{std::nullopt, "", {"psecfdi.edicom.cMain"},
                                                Escritas("psecfdi.edicom.cMain")},
                                           Caso{"uno\r\n\r\n  \r\n dos\r\ntres", "dos", {"uno", " dos", "tres"},
                                                Escritas(" dos")},
                                           Caso{"uno\r\ndos", "retirado", {"uno", "dos"}, Escritas("dos")}));

// The account comes back under the reader's spelling; the digest in the
// boxes, retyped by hand, counts as unchanged.
TEST_F(ConfiguracionLocal, ThePasswordIsWrittenAsItsDigestOnlyWhenItChanged) {
    platform.ui.Elegir("/respaldos");
    Abrir([](dlgLocal& d) {
        d.chkGuardarRespaldo.Pulsar();
        d.btnCopiaLocal.Pulsar();
        d.chktimbrar.Pulsar();
        d.txtUsuario.Escribir("demo");
        d.txtPWD.Escribir("secreta");
        d.txtPWDRep.Escribir("secreta");
        d.btnOK.Pulsar();
    });
    EXPECT_EQ(almacen->escrituras, (Textos{"FE_CopiaLocal=/respaldos", "FE_Timbrar=0",
                                           "FE_Timbre001=psecfdi.edicom.cMain", "FE_Timbre002=demo", "FE_Timbre003=",
                                           "FE_Timbre004=4f356e71899d4e6ac647d2ed22a81dd2"}));
    EXPECT_EQ(platform.ui.Selecciones().at(0).titulo, "Carpetas");
    Abrir([](dlgLocal& d) {
        EXPECT_EQ(d.Caption() + d.txtCopiaLocal.Text() + d.txtUsuario.Text() + d.txtPWD.Text(),
                  "Configuración local/respaldosdemo4f356e71899d4e6ac647d2ed22a81dd2");
        d.txtPWD.Escribir(d.txtPWDRep.Text());
        d.btnOK.Pulsar();
    });
    EXPECT_EQ(almacen->escrituras.size(), 11u);
    EXPECT_EQ(almacen->escrituras[7], "FE_Timbrar=0");
}

// Differing passwords keep the dialog open; a cancelled picker empties the
// field; a cancel writes nothing.
TEST_F(ConfiguracionLocal, DifferingPasswordsACancelledPickerAndCancelWriteNothing) {
    almacen->cConfigLocalIni::GuardarValor("Tiendaro", "Config", "FE_CopiaLocal", "/respaldos");
    platform.ui.Elegir(std::nullopt);
    Abrir([](dlgLocal& d) {
        d.txtCopiaLocal.Pulsar();
        d.btnCopiaLocal.Pulsar();
        EXPECT_EQ(d.txtCopiaLocal.Text(), "");
        d.txtPWD.Escribir("uno");
        d.btnOK.Pulsar();
        d.btnCancel.Pulsar();
    });
    EXPECT_TRUE(almacen->escrituras.empty());
    EXPECT_EQ(platform.ui.Selecciones().size(), 1u);
    platform.ui.ExpectCaja(0, "Las contraseñas no coinciden verifique por favor", host::Icono::Informacion,
                           "Configuración local");
}

}  // namespace
}  // namespace celdora

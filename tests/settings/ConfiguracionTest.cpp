// The settings dialogs: the print formats of both families on a company
// store, and the machine's local settings and stamping account on the real
// INI store in a folder of each test's own, every write noted in order; and
// the advanced options.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <tuple>

#include "core/Dialogos.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "printformats/dlgImpresion.h"
#include "settings/OpcionesAvanzadas.h"
#include "settings/dlgConfigAvz.h"
#include "settings/dlgLocal.h"
#include "tests/support/AjustesGrabados.h"
#include "tests/support/ConfiguracionPrivada.h"
#include "tests/support/TestPlatform.h"

namespace celdora {
namespace {

using Textos = std::vector<std::string>;

// Both stores note their writes: the company's in memory, the machine's in
// its real INI file.
class Ajustes : public ::testing::Test {
protected:
    testing::TestPlatform platform;
    testing::ConfiguracionPrivada configuracion;
    testing::CarpetaTemporal repositorio;
    std::shared_ptr<testing::GlobalVarGrabado> ajustes = std::make_shared<testing::GlobalVarGrabado>();
    std::shared_ptr<testing::ConfigLocalGrabado> almacen = std::make_shared<testing::ConfigLocalGrabado>();
    cAcction acc;

    void SetUp() override {
        platform.plataforma.Fabrica().Registrar(host::progid::cConfigLocal, [this] { return almacen; });
        mdlMain::SoltarObjetosCompartidos();
        acc.GlobalVar = ajustes;
        acc.ApplicationName = "Tiendaro";
        acc.AppRepositoryPath = repositorio.ruta().string();
    }

    bool Abrir(bool cbb, std::function<void(dlgImpresion&)> guion) {
        platform.ui.AlMostrar(cbb ? "dlgImpresionCBB" : "dlgImpresion",
                              [guion](forms::Dialogo& d) { guion(dynamic_cast<dlgImpresion&>(d)); });
        return cbb ? acc.ConfigurarRepresentacionImpresaCBB() : acc.ConfigurarRepresentacionImpresa();
    }
    void Abrir(std::function<void(dlgLocal&)> guion) {
        platform.ui.AlMostrar("dlgLocal", [guion](forms::Dialogo& d) { guion(dynamic_cast<dlgLocal&>(d)); });
        dialogos::Crear("dlgLocal", acc)->ShowModal();
    }
};
class Impresion : public Ajustes, public ::testing::WithParamInterface<int> {};

// Without keys: "PDF/MS Word", "pdf", the viewer ticked; "Tira" only for a
// company on CFD; a type changed and back empties the stored path; without
// the invoice format, and on cancel, nothing is written or reloaded.
TEST_P(Impresion, DefaultsTheStripChangesOfTypeAMissingInvoiceFormatAndCancelWriteNothing) {
    ajustes->Poner("NVCA300xa", std::to_string(GetParam()));
    ajustes->Poner("CFDImp002", "F.txf");
    for (bool cbb : {false, true}) {
        const bool tira = GetParam() == cCFD && !cbb;
        EXPECT_FALSE(Abrir(cbb, [cbb, tira](dlgImpresion& d) {
            EXPECT_EQ(d.cmbTipo.ListCount(), tira ? 3 : 2);
            EXPECT_EQ(d.cmbTipo.Text() + d.cmbFormato.Text() + d.cmbImpresion.Text(), "PDF/MS WordpdfVista previa");
            EXPECT_EQ(d.cmbMail == nullptr ? "" : d.cmbMail->Text(), cbb ? "" : "No enviar");
            EXPECT_EQ(d.Caption() + d.archivos.txtArchivo.Text(),
                      cbb ? "Representación impresa para CBB" : "Representación impresa de CFD/CFDIF.txf");
            d.cmbTipo.ListIndex(0);
            d.cmbTipo.ListIndex(d.cmbTipo.ListCount() - 1);
            EXPECT_EQ(d.archivos.txtArchivo.Text(), "");
            d.archivos.txtArchivoNC.Text("NC.txf");
            d.archivos.txtArchivo.Text("   ");
            d.btnAceptar.Pulsar();
            d.btnCancelar.Pulsar();
        }));
        platform.ui.ExpectCaja(cbb ? 1 : 0,
                               "Seleccione la ubicación del archivo que se usará como plantilla para generar la "
                               "vista de impresión de factura.",
                               host::Icono::Informacion, cbb ? "CBB" : "CFD");
    }
    EXPECT_TRUE(ajustes->escrituras.empty());
    EXPECT_EQ(ajustes->conexiones, 0);
}

INSTANTIATE_TEST_SUITE_P(, Impresion, ::testing::Values(cCFD, cCFDI, cCBB));

TEST_F(Impresion, AcceptingWritesTheKeysInTheirOrderAndReloadsTheSettings) {
    EXPECT_TRUE(Abrir(false, [](dlgImpresion& d) {
        d.cmbFormato.Text("doc");
        d.cmbMail->Text("Solicitar dirección");
        d.archivos.txtArchivo.Text("F.txf");
        d.archivos.txtCXC_NCargo.Text("NC.txf");
        d.btnAceptar.Pulsar();
    }));
    EXPECT_EQ(ajustes->escrituras, (Textos{"CFDImp001=3", "CFDImp002=F.txf", "NVCA303x=F.txf", "CFDImp003=4",
                                           "CFDImp004=1", "CFDImp005=2", "CFDImp006=", "CFDImp007=",
                                           "CFDImp008=NC.txf", "CFDImp009=0", "CFDImp010=", "CFDImp011="}));
    EXPECT_EQ(ajustes->conexiones, 1);
}

// PAC.inf (none: no file), the stored FE_Timbre001, the entries listed and the keys written.
struct Caso { std::optional<std::string> pacInf; std::string guardado; Textos entradas, escritas; };

class ConfiguracionLocal : public Ajustes, public ::testing::WithParamInterface<Caso> {};

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
        for (const auto& item : d.cuenta.cmbPAC.Items()) entradas.push_back(item.text);
        EXPECT_EQ(entradas, caso.entradas);
        d.btnOK.Pulsar();
    });
    EXPECT_EQ(almacen->escrituras, caso.escritas);
}

Textos Escritas(const std::string& componente) {
    return {"FE_CopiaLocal=", "FE_Timbrar=1", "FE_Timbre001=" + componente, "FE_Timbre002=", "FE_Timbre003="};
}

INSTANTIATE_TEST_SUITE_P(
    , ConfiguracionLocal,
    ::testing::Values(Caso{std::nullopt, "", {"psecfdi.edicom.cMain"}, Escritas("psecfdi.edicom.cMain")},
                      Caso{"uno\r\n\r\n  \r\n dos\r\ntres", "dos", {"uno", " dos", "tres"}, Escritas(" dos")},
                      Caso{"uno\r\ndos", "retirado", {"uno", "dos"}, Escritas("dos")}));

// Differing passwords keep the dialog open; a cancelled picker empties the
// field; a cancel writes nothing. The account comes back under the reader's
// spelling; the digest in the boxes, retyped by hand, counts as unchanged.
TEST_F(ConfiguracionLocal, ThePasswordIsWrittenAsItsDigestOnlyWhenItChangedAndCancelWritesNothing) {
    almacen->cConfigLocalIni::GuardarValor("Tiendaro", "Config", "FE_CopiaLocal", "/respaldos");
    platform.ui.Elegir(std::nullopt);
    Abrir([](dlgLocal& d) {
        d.btnCopiaLocal.Pulsar();
        EXPECT_EQ(d.txtCopiaLocal.Text(), "");
        d.cuenta.txtPWD.Escribir("uno");
        d.btnOK.Pulsar();
        d.btnCancel.Pulsar();
    });
    EXPECT_TRUE(almacen->escrituras.empty());
    platform.ui.ExpectCaja(0, "Las contraseñas no coinciden verifique por favor", host::Icono::Informacion,
                           "Configuración local");
    Abrir([](dlgLocal& d) {
        d.cuenta.chktimbrar.Pulsar();
        d.cuenta.txtUsuario.Escribir("demo");
        d.cuenta.txtSucursal.Escribir("7");
        d.cuenta.txtPWD.Escribir("secreta");
        d.cuenta.txtPWDRep.Escribir("secreta");
        d.btnOK.Pulsar();
    });
    EXPECT_EQ(almacen->escrituras, (Textos{"FE_CopiaLocal=/respaldos", "FE_Timbrar=0",
                                           "FE_Timbre001=psecfdi.edicom.cMain", "FE_Timbre002=demo", "FE_Timbre003=7",
                                           "FE_Timbre004=4f356e71899d4e6ac647d2ed22a81dd2"}));
    Abrir([](dlgLocal& d) {
        EXPECT_EQ(d.Caption() + d.txtCopiaLocal.Text() + d.cuenta.txtUsuario.Text() + d.cuenta.txtSucursal.Text() +
                      d.cuenta.txtPWD.Text(),
                  "Configuración local/respaldosdemo74f356e71899d4e6ac647d2ed22a81dd2");
        d.cuenta.txtPWD.Escribir(d.cuenta.txtPWDRep.Text());
        d.btnOK.Pulsar();
    });
    EXPECT_EQ(almacen->escrituras.size(), 11u);
}

// The advanced options keep what is accepted in the owner they share with the
// main configuration dialog; a typed "|" is refused, a pasted one kept.
TEST_F(Ajustes, TheAdvancedOptionsKeepWhatIsAcceptedInTheirSharedOwner) {
    platform.ui.AlMostrar("dlgConfigAvz", [](forms::Dialogo& d) {
        auto& a = dynamic_cast<dlgConfigAvz&>(d);
        EXPECT_FALSE(a.ctrlCadenaUnion.Enabled());
        a.chkConcatNotasPartida.Pulsar();
        a.ctrlCadenaUnion.Escribir("a|b");
        EXPECT_EQ(a.ctrlCadenaUnion.Text(), "ab");
        a.ctrlCadenaUnion.Text("x|y");
        a.chkSerieLote.Pulsar();
        a.btnOK.Pulsar();
    });
    dlgConfigAvz().ShowModal();
    const OpcionesAvanzadas& v = VariablesAvanzadas();
    EXPECT_EQ(std::tie(v.concatNotasPartida, v.cadenaUnion, v.addendaTiendaron, v.serieLote),
              std::make_tuple(1.0, std::string("x|y"), 0.0, 1.0));
    VariablesAvanzadas() = OpcionesAvanzadas{};
}

}  // namespace
}  // namespace celdora

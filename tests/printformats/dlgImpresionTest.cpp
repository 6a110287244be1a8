// The print format dialogs of both families, opened through their members
// on a company store that notes its writes.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "printformats/dlgImpresion.h"
#include "tests/support/AjustesGrabados.h"
#include "tests/support/TestPlatform.h"

namespace celdora {
namespace {

using ::testing::ElementsAre;
using Textos = std::vector<std::string>;

Textos Textos_(const forms::ListaBase& lista) {
    Textos textos;
    for (const auto& item : lista.Items()) textos.push_back(item.text);
    return textos;
}

Textos Rutas(dlgImpresion& d) {
    return {d.txtArchivo.Text(),    d.txtArchivoNC.Text(),     d.txtCXC_NCredito.Text(),
            d.txtCXC_NCargo.Text(), d.txtCXC_FacPagare.Text(), d.txtCXC_FacRecibo.Text()};
}

class Impresion : public ::testing::TestWithParam<int> {
protected:
    testing::TestPlatform platform;
    std::shared_ptr<testing::GlobalVarGrabado> ajustes = std::make_shared<testing::GlobalVarGrabado>();
    cAcction acc;

    void SetUp() override {
        mdlMain::SoltarObjetosCompartidos();
        acc.GlobalVar = ajustes;
        acc.AppRepositoryPath = "C:\\Nudovia\\";
    }
    bool Abrir(bool cbb, std::function<void(dlgImpresion&)> guion) {
        platform.ui.AlMostrar(cbb ? "dlgImpresionCBB" : "dlgImpresion",
                              [guion](forms::Dialogo& d) { guion(dynamic_cast<dlgImpresion&>(d)); });
        return cbb ? acc.ConfigurarRepresentacionImpresaCBB() : acc.ConfigurarRepresentacionImpresa();
    }
};

// Without keys: "PDF/MS Word", "pdf", the viewer ticked; a type changed and
// back empties the paths; the tick is lost on a change of tab; a cancel
// writes nothing and reloads nothing.
TEST_F(Impresion, DefaultsChangesOfTypeAndTabAndCancelWriteNothing) {
    ajustes->Poner("CFDImp002", "F.txf");
    for (bool cbb : {false, true}) {
        EXPECT_FALSE(Abrir(cbb, [cbb](dlgImpresion& d) {
            EXPECT_EQ(d.cmbTipo.Text() + d.cmbFormato.Text() + d.cmbImpresion.Text(), "PDF/MS WordpdfVista previa");
            EXPECT_EQ(d.cmbMail == nullptr ? "" : d.cmbMail->Text(), cbb ? "" : "No enviar");
            EXPECT_TRUE(d.chkUsarVisor.Value() == 1 && d.chkUsarVisor.Enabled());
            EXPECT_EQ(d.txtArchivo.Text(), cbb ? "" : "F.txf");
            d.chkUsarVisor.Pulsar();
            d.tabOpciones.ClickPagina(1);
            EXPECT_EQ(d.chkUsarVisor.Value(), 1);
            d.cmbTipo.ListIndex(0);
            d.cmbTipo.ListIndex(d.cmbTipo.ListCount() - 1);
            EXPECT_THAT(Rutas(d), ElementsAre("", "", "", "", "", ""));
            d.btnCancelar.Pulsar();
        }));
    }
    EXPECT_TRUE(ajustes->escrituras.empty());
    EXPECT_EQ(ajustes->conexiones, 0);
}

TEST_P(Impresion, TheStripIsOfferedOnlyToACompanyOnCFDAndAStoredStripMatchesNothingElse) {
    ajustes->Poner("NVCA300xa", std::to_string(GetParam()));
    ajustes->Poner("CFDImp001", "2");
    ajustes->Poner("CBBImp001", "2");
    for (bool cbb : {false, true}) {
        const bool tira = GetParam() == cCFD && !cbb;
        Abrir(cbb, [tira](dlgImpresion& d) {
            EXPECT_EQ(Textos_(d.cmbTipo), tira ? Textos({"Reporte de Nudovia", "Tira", "PDF/MS Word"})
                                               : Textos({"Reporte de Nudovia", "PDF/MS Word"}));
            EXPECT_EQ(d.cmbTipo.Text(), tira ? "Tira" : "Reporte de Nudovia");
            d.btnCancelar.Pulsar();
        });
    }
}

INSTANTIATE_TEST_SUITE_P(, Impresion, ::testing::Values(cCFD, cCFDI, cCBB));

TEST_F(Impresion, AcceptingWritesEachFamilysKeysInTheirOrderAndReloadsTheSettings) {
    EXPECT_TRUE(Abrir(false, [](dlgImpresion& d) {
        d.cmbFormato.Text("doc");
        d.cmbMail->Text("Solicitar dirección");
        d.txtArchivo.Text("F.txf");
        d.txtCXC_NCargo.Text("NC.txf");
        d.btnAceptar.Pulsar();
    }));
    EXPECT_TRUE(Abrir(true, [](dlgImpresion& d) {
        d.cmbTipo.Text("Reporte de Nudovia");
        d.cmbImpresion.Text("No imprimir");
        d.txtArchivo.Text("F.xpd");
        d.txtCXC_FacPagare.Text("P.xpd");
        d.btnAceptar.Pulsar();
    }));
    EXPECT_THAT(ajustes->escrituras,
                ElementsAre("CFDImp001=3", "CFDImp002=F.txf", "NVCA303x=F.txf", "CFDImp003=4", "CFDImp004=1",
                            "CFDImp005=2", "CFDImp006=", "CFDImp007=", "CFDImp008=NC.txf", "CFDImp009=0",
                            "CFDImp010=", "CFDImp011=", "CBBImp001=1", "CBBImp002=F.xpd", "CBBImp003=1",
                            "CBBImp004=3", "CBBImp006=", "CBBImp007=", "CBBImp008=", "CBBImp009=0",
                            "CBBImp010=P.xpd", "CBBImp011="));
    EXPECT_EQ(ajustes->conexiones, 2);
}

TEST_F(Impresion, WithoutTheInvoiceFormatNoKeyIsWrittenAndTheDialogStays) {
    for (bool cbb : {false, true}) {
        Abrir(cbb, [](dlgImpresion& d) {
            d.txtArchivoNC.Text("NC.txf");
            d.txtArchivo.Text("   ");
            d.btnAceptar.Pulsar();
            d.btnCancelar.Pulsar();
        });
        platform.ui.ExpectCaja(cbb ? 1 : 0,
                               "Seleccione la ubicación del archivo que se usará como plantilla para generar la "
                               "vista de impresión de factura.",
                               host::Icono::Informacion, cbb ? "CBB" : "CFD");
    }
    EXPECT_TRUE(ajustes->escrituras.empty());
}

// The picker filters by the type and opens in the repository folder; a
// cancel leaves the field, and a click on a filled field asks nothing.
TEST_F(Impresion, BrowsingAsksForTheFilesOfTheSelectedType) {
    platform.ui.Elegir("/f/cargo.xpd");
    platform.ui.Elegir(std::nullopt);
    ajustes->Poner("NVCA300xa", "1");
    Abrir(false, [](dlgImpresion& d) {
        d.cmbTipo.Text("Reporte de Nudovia");
        d.Ver<forms::CommandButton>("btnExaminar(3)").Pulsar();
        d.txtCXC_NCargo.Pulsar();
        d.cmbTipo.Text("Tira");
        d.txtArchivo.Text("a.js");
        d.btnExaminar0.Pulsar();
        EXPECT_EQ(Rutas(d)[0] + Rutas(d)[3], "a.js");
        d.btnCancelar.Pulsar();
    });
    const auto& s = platform.ui.Selecciones();
    ASSERT_EQ(s.size(), 2u);
    EXPECT_EQ(s[0].filtro + s[0].respuesta.value_or("") + s[0].carpeta,
              "Formato de reporte de Nudovia *.xpd|*.xpd/f/cargo.xpdC:\\Nudovia");
    EXPECT_EQ(s[1].filtro, "Script *.js|*.js");
}

TEST(RutaPredeterminada, TheWizardsDefaultsLieInTheKindsFolderBelowTheRepository) {
    testing::TestPlatform platform;
    mdlMain::SoltarObjetosCompartidos();
    EXPECT_EQ(impresion::RutaPredeterminada("/r", impresion::kRutas[0], cCFD, 1), "/r/Reports/Ventas/cfd/Factura cfd.xpd");
    EXPECT_EQ(impresion::RutaPredeterminada("/r/", impresion::kRutas[3], cCFDI_CBB, 3),
              "/r/Reports/Cuentas por cobrar/cfdi/Nota de cargo cfdi.txf");
    EXPECT_EQ(impresion::RutaPredeterminada("/r", impresion::kRutas[5], cCBB, 2), "");
    mdlMain::SoltarObjetosCompartidos();
}

}  // namespace
}  // namespace celdora

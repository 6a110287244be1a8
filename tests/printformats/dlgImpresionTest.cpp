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
    }
    bool Abrir(bool cbb, std::function<void(dlgImpresion&)> guion) {
        platform.ui.AlMostrar(cbb ? "dlgImpresionCBB" : "dlgImpresion",
                              [guion](forms::Dialogo& d) { guion(dynamic_cast<dlgImpresion&>(d)); });
        return cbb ? acc.ConfigurarRepresentacionImpresaCBB() : acc.ConfigurarRepresentacionImpresa();
    }
};

// Without keys: "PDF/MS Word", "pdf", the viewer ticked; a type changed and
// back empties the paths; the tick is lost on a change of tab; without the
// invoice format, and on cancel, nothing is written or reloaded.
TEST_F(Impresion, DefaultsChangesOfTypeAndTabAMissingInvoiceFormatAndCancelWriteNothing) {
    ajustes->Poner("CFDImp002", "F.txf");
    for (bool cbb : {false, true}) {
        EXPECT_FALSE(Abrir(cbb, [cbb](dlgImpresion& d) {
            EXPECT_EQ(d.cmbTipo.Text() + d.cmbFormato.Text() + d.cmbImpresion.Text(), "PDF/MS WordpdfVista previa");
            EXPECT_EQ(d.cmbMail == nullptr ? "" : d.cmbMail->Text(), cbb ? "" : "No enviar");
            EXPECT_TRUE(d.chkUsarVisor.Value() == 1 && d.chkUsarVisor.Enabled());
            EXPECT_EQ(d.txtArchivo.Text(), cbb ? "" : "F.txf");
            EXPECT_EQ(d.Caption(), cbb ? "Representación impresa para CBB" : "Representación impresa de CFD/CFDI");
            d.chkUsarVisor.Pulsar();
            d.tabOpciones.ClickPagina(1);
            EXPECT_EQ(d.chkUsarVisor.Value(), 1);
            d.cmbTipo.ListIndex(0);
            d.cmbTipo.ListIndex(d.cmbTipo.ListCount() - 1);
            EXPECT_THAT(Rutas(d), ElementsAre("", "", "", "", "", ""));
            d.txtArchivoNC.Text("NC.txf");
            d.txtArchivo.Text("   ");
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

TEST_P(Impresion, TheStripIsOfferedOnlyToACompanyOnCFDAndAStoredStripMatchesNothingElse) {
    ajustes->Poner("NVCA300xa", std::to_string(GetParam()));
    ajustes->Poner("CFDImp001", "2");
    ajustes->Poner("CBBImp001", "2");
    for (bool cbb : {false, true}) {
        const bool tira = GetParam() == cCFD && !cbb;
        Abrir(cbb, [tira](dlgImpresion& d) {
            EXPECT_EQ(d.cmbTipo.ListCount(), tira ? 3 : 2);
            EXPECT_EQ(d.cmbTipo.List(d.cmbTipo.ListCount() - 1), "PDF/MS Word");
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
    ajustes->Poner("CBBImp003", "5");
    ajustes->Poner("CBBImp004", "2");
    EXPECT_TRUE(Abrir(true, [](dlgImpresion& d) {
        d.txtArchivo.Text("F.txf");
        d.txtCXC_FacPagare.Text("P.txf");
        d.btnAceptar.Pulsar();
    }));
    EXPECT_THAT(ajustes->escrituras,
                ElementsAre("CFDImp001=3", "CFDImp002=F.txf", "NVCA303x=F.txf", "CFDImp003=4", "CFDImp004=1",
                            "CFDImp005=2", "CFDImp006=", "CFDImp007=", "CFDImp008=NC.txf", "CFDImp009=0",
                            "CFDImp010=", "CFDImp011=", "CBBImp001=3", "CBBImp002=F.txf", "CBBImp003=5",
                            "CBBImp004=2", "CBBImp006=", "CBBImp007=", "CBBImp008=", "CBBImp009=0",
                            "CBBImp010=P.txf", "CBBImp011="));
    EXPECT_EQ(ajustes->conexiones, 2);
}

TEST(RutaPredeterminada, TheWizardsDefaultsLieInTheKindsFolderBelowTheRepository) {
    testing::TestPlatform platform;
    mdlMain::SoltarObjetosCompartidos();
    EXPECT_EQ(impresion::RutaPredeterminada("/r", impresion::kRutas[0], cCFD, 1),
              "/r/Reports/Ventas/cfd/Factura cfd.xpd");
    EXPECT_EQ(impresion::RutaPredeterminada("/r/", impresion::kRutas[3], cCFDI_CBB, 3),
              "/r/Reports/Cuentas por cobrar/cfdi/Nota de cargo cfdi.txf");
    EXPECT_EQ(impresion::RutaPredeterminada("/r", impresion::kRutas[5], cCBB, 2), "");
    mdlMain::SoltarObjetosCompartidos();
}

}  // namespace
}  // namespace celdora

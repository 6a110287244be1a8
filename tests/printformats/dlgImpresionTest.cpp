// The print format dialogs of both families, opened through their members
// on a company store that notes its writes.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "printformats/dlgImpresion.h"
#include "tests/support/AjustesGrabados.h"
#include "tests/support/TestPlatform.h"

namespace celdora {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::GlobalVarGrabado;
using Textos = std::vector<std::string>;

std::vector<std::string> Entradas(const forms::ListaBase& lista) {
    std::vector<std::string> textos;
    for (const auto& item : lista.Items()) textos.push_back(item.text + " " + std::to_string(item.itemData));
    return textos;
}

Textos Rutas(dlgImpresion& d) {
    return {d.txtArchivo.Text(),    d.txtArchivoNC.Text(),     d.txtCXC_NCredito.Text(),
            d.txtCXC_NCargo.Text(), d.txtCXC_FacPagare.Text(), d.txtCXC_FacRecibo.Text()};
}

class Impresion : public ::testing::Test {
protected:
    testing::TestPlatform platform;
    std::shared_ptr<GlobalVarGrabado> ajustes = std::make_shared<GlobalVarGrabado>();
    cAcction acc;

    void SetUp() override {
        mdlMain::SoltarObjetosCompartidos();
        acc.GlobalVar = ajustes;
        acc.AppRepositoryPath = "C:\\Nudovia\\";
    }

    // Opens the family's dialog through its member with the script.
    bool Abrir(bool cbb, std::function<void(dlgImpresion&)> guion) {
        platform.ui.AlMostrar(cbb ? "dlgImpresionCBB" : "dlgImpresion",
                              [guion](forms::Dialogo& d) { guion(dynamic_cast<dlgImpresion&>(d)); });
        return cbb ? acc.ConfigurarRepresentacionImpresaCBB() : acc.ConfigurarRepresentacionImpresa();
    }
};

TEST_F(Impresion, WithoutKeysBothFamiliesOpenOnTheDefaultsAndCancellingWritesNothing) {
    for (bool cbb : {false, true}) {
        SCOPED_TRACE(cbb ? "CBB" : "CFD");
        EXPECT_FALSE(Abrir(cbb, [cbb](dlgImpresion& d) {
            EXPECT_EQ(d.cmbTipo.Text(), "PDF/MS Word");
            EXPECT_THAT(Entradas(d.cmbFormato), ElementsAre("pdf 3", "doc 4", "docx 5"));
            EXPECT_EQ(d.cmbFormato.Text(), "pdf");
            EXPECT_EQ(d.cmbImpresion.Text(), "Vista previa");
            EXPECT_EQ(d.cmbMail == nullptr, cbb);
            if (d.cmbMail != nullptr) {
                EXPECT_EQ(d.cmbMail->Text(), "No enviar");
            }
            EXPECT_EQ(d.chkUsarVisor.Value(), 1);
            EXPECT_TRUE(d.chkUsarVisor.Enabled());
            EXPECT_THAT(Rutas(d), ElementsAre("", "", "", "", "", ""));
            d.btnCancelar.Pulsar();
        }));
    }
    EXPECT_THAT(ajustes->escrituras, IsEmpty());
    EXPECT_EQ(ajustes->conexiones, 0) << "settings reloaded after a cancel";
}

struct CasoTipos {
    bool cbb;
    int tipoComprobante;  // NVCA300xa
    const char* tipoGuardado;
    Textos entradas;
    std::string seleccionado;
};

class TiposOfrecidos : public Impresion, public ::testing::WithParamInterface<CasoTipos> {};

TEST_P(TiposOfrecidos, TheStripIsOfferedOnlyToACompanyOnCFD) {
    const CasoTipos& caso = GetParam();
    ajustes->Poner("NVCA300xa", std::to_string(caso.tipoComprobante));
    ajustes->Poner(caso.cbb ? "CBBImp001" : "CFDImp001", caso.tipoGuardado);
    Abrir(caso.cbb, [&](dlgImpresion& d) {
        EXPECT_EQ(Entradas(d.cmbTipo), caso.entradas);
        EXPECT_EQ(d.cmbTipo.Text(), caso.seleccionado);
        d.btnCancelar.Pulsar();
    });
}

const Textos kConTira{"Reporte de Nudovia 1", "Tira 2", "PDF/MS Word 3"};
const Textos kSinTira{"Reporte de Nudovia 1", "PDF/MS Word 3"};

INSTANTIATE_TEST_SUITE_P(, TiposOfrecidos,
                         ::testing::Values(CasoTipos{false, 1, "2", kConTira, "Tira"},
                                           CasoTipos{false, 2, "2", kSinTira, "Reporte de Nudovia"},
                                           CasoTipos{false, 3, "3", kSinTira, "PDF/MS Word"},
                                           CasoTipos{false, 4, "1", kSinTira, "Reporte de Nudovia"},
                                           CasoTipos{true, 1, "2", kSinTira, "Reporte de Nudovia"}));

TEST_F(Impresion, AcceptingWritesTheCFDKeysInTheirOrderAndReloadsTheSettings) {
    ajustes->Poner("CFDImp009", "1");
    EXPECT_TRUE(Abrir(false, [](dlgImpresion& d) {
        d.cmbFormato.Text("doc");
        d.cmbImpresion.Text("No imprimir");
        d.cmbMail->Text("Solicitar dirección");
        d.txtArchivo.Text("F.txf");
        d.txtCXC_NCargo.Text("NC.txf");
        d.btnAceptar.Pulsar();
    }));
    EXPECT_THAT(ajustes->escrituras,
                ElementsAre("CFDImp001=3", "CFDImp002=F.txf", "NVCA303x=F.txf", "CFDImp003=4", "CFDImp004=3",
                            "CFDImp005=2", "CFDImp006=", "CFDImp007=", "CFDImp008=NC.txf", "CFDImp009=0",
                            "CFDImp010=", "CFDImp011="));
    EXPECT_EQ(ajustes->conexiones, 1);
}

TEST_F(Impresion, TheCBBFamilyWritesItsKeysWithoutMailOrSecondKey) {
    for (const char* clave : {"CBBImp001", "CBBImp003", "CBBImp004"}) ajustes->Poner(clave, "1");
    ajustes->Poner("CBBImp010", "P.xpd");
    EXPECT_TRUE(Abrir(true, [](dlgImpresion& d) {
        EXPECT_EQ(d.cmbFormato.Text(), "xpr");
        EXPECT_FALSE(d.chkUsarVisor.Enabled());
        d.txtArchivo.Text("F.xpd");
        d.btnAceptar.Pulsar();
    }));
    EXPECT_THAT(ajustes->escrituras,
                ElementsAre("CBBImp001=1", "CBBImp002=F.xpd", "CBBImp003=1", "CBBImp004=1", "CBBImp006=",
                            "CBBImp007=", "CBBImp008=", "CBBImp009=0", "CBBImp010=P.xpd", "CBBImp011="));
}

TEST_F(Impresion, WithoutTheInvoiceFormatNothingIsWrittenAndTheDialogStays) {
    for (bool cbb : {false, true}) {
        Abrir(cbb, [](dlgImpresion& d) {
            d.txtArchivoNC.Text("NC.txf");
            d.txtArchivo.Text("   ");
            d.btnAceptar.Pulsar();
            EXPECT_TRUE(d.Visible());
            d.btnCancelar.Pulsar();
        });
    }
    const std::string texto =
        "Seleccione la ubicación del archivo que se usará como plantilla para generar la vista de impresión de "
        "factura.";
    platform.ui.ExpectCaja(0, texto, host::Icono::Informacion, "CFD");
    platform.ui.ExpectCaja(1, texto, host::Icono::Informacion, "CBB");
    EXPECT_THAT(ajustes->escrituras, IsEmpty());
}

TEST_F(Impresion, ChangingTheTypeAndBackThrowsAllSixPathsAway) {
    for (const char* clave : {"CFDImp002", "CFDImp006", "CFDImp007", "CFDImp008", "CFDImp010", "CFDImp011"}) {
        ajustes->Poner(clave, std::string(clave) + ".txf");
    }
    Abrir(false, [](dlgImpresion& d) {
        EXPECT_EQ(Rutas(d)[5], "CFDImp011.txf");
        d.cmbTipo.Text("Reporte de Nudovia");
        d.cmbTipo.Text("PDF/MS Word");
        EXPECT_THAT(Rutas(d), ElementsAre("", "", "", "", "", ""));
        d.btnCancelar.Pulsar();
    });
}

TEST_F(Impresion, AnUnsavedViewerTickIsLostOnTheChangeOfTab) {
    ajustes->Poner("CFDImp009", "0");
    Abrir(false, [](dlgImpresion& d) {
        EXPECT_EQ(d.chkUsarVisor.Value(), 0);
        d.chkUsarVisor.Pulsar();
        d.tabOpciones.ClickPagina(1);
        EXPECT_EQ(d.chkUsarVisor.Value(), 0);
        d.btnCancelar.Pulsar();
    });
}

// The picker filters by the selected type and opens in the repository
// folder; a cancel leaves the field, and a click on a filled field asks
// nothing.
TEST_F(Impresion, BrowsingAsksForTheFilesOfTheSelectedType) {
    platform.ui.Elegir("/formatos/cargo.xpd");
    platform.ui.Elegir(std::nullopt);
    platform.ui.Elegir("/formatos/factura.txf");
    ajustes->Poner("NVCA300xa", "1");
    Abrir(false, [](dlgImpresion& d) {
        d.cmbTipo.Text("Reporte de Nudovia");
        d.Ver<forms::CommandButton>("btnExaminar(3)").Pulsar();
        EXPECT_EQ(d.txtCXC_NCargo.Text(), "/formatos/cargo.xpd");
        d.txtCXC_NCargo.Pulsar();
        d.cmbTipo.Text("Tira");
        d.txtArchivo.Text("anterior.js");
        d.btnExaminar0.Pulsar();
        EXPECT_EQ(d.txtArchivo.Text(), "anterior.js");
        d.cmbTipo.Text("PDF/MS Word");
        d.txtArchivo.Pulsar();
        EXPECT_EQ(d.txtArchivo.Text(), "/formatos/factura.txf");
        d.btnCancelar.Pulsar();
    });
    const auto& s = platform.ui.Selecciones();
    ASSERT_EQ(s.size(), 3u);
    EXPECT_EQ(s[0].filtro, "Formato de reporte de Nudovia *.xpd|*.xpd");
    EXPECT_EQ(s[0].carpeta, "C:\\Nudovia");
    EXPECT_EQ(s[1].filtro, "Script *.js|*.js");
    EXPECT_EQ(s[2].filtro, "Plantilla *.txf|*.txf");
}

TEST(RutaPredeterminada, TheWizardsDefaultsLieInTheKindsFolderBelowTheRepository) {
    testing::TestPlatform platform;
    mdlMain::SoltarObjetosCompartidos();
    EXPECT_EQ(impresion::RutaPredeterminada("/repo", impresion::kRutas[0], cCFD, 1),
              "/repo/Reports/Ventas/cfd/Factura cfd.xpd");
    EXPECT_EQ(impresion::RutaPredeterminada("/repo/", impresion::kRutas[3], cCFDI_CBB, 3),
              "/repo/Reports/Cuentas por cobrar/cfdi/Nota de cargo cfdi.txf");
    EXPECT_EQ(impresion::RutaPredeterminada("/repo", impresion::kRutas[5], cCBB, 2), "");
    mdlMain::SoltarObjetosCompartidos();
}

}  // namespace
}  // namespace celdora

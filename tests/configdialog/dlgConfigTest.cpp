// The main configuration dialog as a whole on the demo company: what its
// opening shows for each kind, the chain of checks of the OK button, the keys
// the save writes and their order, a save that fails half way, and a cancel
// that keeps what the pages' own buttons committed and nothing else.

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "configdialog/dlgConfig.h"
#include "core/mdlMain.h"
#include "settings/OpcionesAvanzadas.h"
#include "settings/dlgConfigAvz.h"
#include "tests/support/AjustesGrabados.h"
#include "tests/support/FachadaDemo.h"

namespace celdora {
namespace {

using testing::Textos;

class Configuracion : public testing::FachadaDemo {
protected:
    std::shared_ptr<testing::GlobalVarAnotado> ajustes;

    void SetUp() override {
        FachadaDemo::SetUp();
        VariablesAvanzadas() = OpcionesAvanzadas{};
        ajustes = std::make_shared<testing::GlobalVarAnotado>(acc.GlobalVar);
        acc.GlobalVar = ajustes;
    }
    void Tipo(int tipo) {
        db.Ejecutar("UPDATE gv_Configuracion SET Numero=" + std::to_string(tipo) + " WHERE Clave='NVCA300xa'");
        ajustes->Conectar(acc.ADOCnn);
    }
    // Opens the dialog as the facade does and runs the script while it shows.
    void Abrir(std::function<void(dlgConfig&)> guion) {
        platform.ui.AlMostrar("dlgConfig", [guion](forms::Dialogo& d) {
            auto& dialogo = dynamic_cast<dlgConfig&>(d);
            guion(dialogo);
            if (dialogo.Visible()) dialogo.btnCancel.Pulsar();
        });
        acc.Configuracion();
    }
};

// The certificate of the CFDI blocks, whose blocks pass the checks.
void CertificadoDeBlocks(dlgConfig& d) { d.general.lstCer.ListIndex(d.general.lstCer.Buscar("30001000000500003416")); }

const Textos kGuardadoCompleto = {
    "NVCA102b=1", "NVCA100=ESCUELA KEMPER URGATE SA DE CV", "NVCA101=EKU9003173C9", "NVCA300x=0",
    "NVCA303x=$AppReportsPath$\\Ventas\\facturaelectronica.xpd", "NVCA304x=", "NVCA305x=",
    "NVCA306x=Factura Electrónica $Referencia$", "NVCA307x=", "NVCA308x=", "NVCA309x=", "NVCA310x=0", "NVCA311x=",
    "NVCA313x=60", "NVCA314x=80", "NVCA315x=0", "NVCA327x=1", "NVCA328x=2", "NVCA400x=0", "NVCA401x= ",
    "NVCA402x=0", "NVCA403x=0", "NVCB01121=0"};

// By kind: the stylesheet's location, the panel of the first page, and the
// print format kept out of sight.
TEST_F(Configuracion, TheKindDecidesTheStylesheetAndThePanelOfTheFirstPage) {
    for (int tipo : {cCFD, cCFDI, cCBB, cCFDI_CBB, cPapel}) {
        Tipo(tipo);
        Abrir([tipo](dlgConfig& d) {
            SCOPED_TRACE(tipo);
            EXPECT_EQ(d.adicionales.txtXslt.Text(), tipo == cCFD
                                                        ? "$AppResource$\\CFD\\xslt\\cadenaoriginal_2_0.xslt"
                                                        : "$AppResource$\\CFDI\\xslt\\cadenaoriginal_3_0.xslt");
            EXPECT_EQ(d.general.picFoliosCFD.Visible(), tipo == cCFD);
            EXPECT_EQ(d.general.picBlockCFDI.Visible(), tipo != cCFD);
            d.TabControl.SelectedItem(dlgConfig::kAdicionales);
            EXPECT_FALSE(d.adicionales.txtFormatoImpresion.Visible() || d.adicionales.Labelnota.Visible() ||
                         d.adicionales.lblFormato.Visible());
            EXPECT_TRUE(d.adicionales.txtXslt.Locked());
            EXPECT_FALSE(d.marco.cargando);
        });
    }
    EXPECT_TRUE(ajustes->escrituras.empty());
}

// One case of the OK button's chain: the company before opening, what the
// user changes, and what they see.
struct Caso {
    std::string nombre;
    int tipo;
    std::function<void(testing::CompanyDatabase&)> empresa;
    std::function<void(dlgConfig&)> cambio;
    Textos registro;       // boxes and dialogs, in order
    int pagina = -1;       // the page selected afterwards, -1 when any
    std::string foco = "";  // the control with the focus afterwards
};

class Validacion : public Configuracion, public ::testing::WithParamInterface<Caso> {};

TEST_P(Validacion, TheFirstFailingCheckEndsTheChainAndNothingIsWritten) {
    const Caso& caso = GetParam();
    Tipo(caso.tipo);
    if (caso.empresa) caso.empresa(db);
    for (const std::string& linea : caso.registro) {
        if (linea.rfind("dialogo: ", 0) == 0) {
            platform.ui.AlMostrar(linea.substr(9), [](forms::Dialogo& d) { d.Hide(); });
        }
    }
    Abrir([&](dlgConfig& d) {
        caso.cambio(d);
        d.btnOK.Pulsar();
        EXPECT_TRUE(d.Visible());
        if (caso.pagina >= 0) {
            EXPECT_EQ(d.TabControl.SelectedItem(), caso.pagina);
        }
        if (!caso.foco.empty()) {
            EXPECT_EQ(d.Foco() ? d.Foco()->Nombre() : "", caso.foco);
        }
    });
    Textos registro = platform.ui.Registro();
    ASSERT_FALSE(registro.empty());
    registro.erase(registro.begin());  // the dialog itself
    EXPECT_EQ(registro, caso.registro);
    EXPECT_TRUE(ajustes->escrituras.empty());
}

void Nada(dlgConfig&) {}

INSTANTIATE_TEST_SUITE_P(
    , Validacion,
    ::testing::Values(
        Caso{"PapelSinCertificado", cPapel, [](auto& db) { db.Ejecutar("DELETE FROM ut_CFDInfo"); }, Nada,
             {"caja: Para continuar debe agregar un certificado de sellos digitales.", "dialogo: dlgcertificado"}},
        Caso{"CfdSinRangos", cCFD, nullptr,
             [](dlgConfig& d) { d.general.lstCer.ListIndex(d.general.lstCer.Buscar("30001000000500003456")); },
             {"caja: Por favor ingrese el rango de folios fiscales.", "dialogo: dlgRangoFolios"}},
        Caso{"CfdiSinBlocks", cCFDI, nullptr, Nada,
             {"caja: Por favor asigne un block de documentos para el certificado selecionado"}},
        Caso{"CfdiCbbSinBlocks", cCFDI_CBB, nullptr, Nada,
             {"caja: Por favor asigne un block de documentos para el certificado selecionado"}},
        Caso{"SinNombre", cCFDI, nullptr,
             [](dlgConfig& d) {
                 CertificadoDeBlocks(d);
                 d.emisor.txtNombreEmisor.Text("  ");
             },
             {"caja: Por favor ingrese el nombre del Emisor del comprobante fiscal digital"}, 1, "txtNombreEmisor"},
        Caso{"SinRfc", cCBB, nullptr, [](dlgConfig& d) { d.emisor.txtRFCEmisor.Text(""); },
             {"caja: Por favor ingrese el RFC del Emisor del comprobante fiscal digital"}, 1, "txtRFCEmisor"},
        Caso{"CiudadDesconocida", cCBB, nullptr, [](dlgConfig& d) { d.emisor.eDir.ciudad(1); },
             {"caja: Ciudad incorrecta."}, 1, "eDir"},
        Caso{"SinRegimen", cCBB, nullptr,
             [](dlgConfig& d) {
                 while (d.regimenes.lstRegimen.ListCount() > 0) {
                     d.regimenes.lstRegimen.ListIndex(0);
                     d.regimenes.cmdQuitarRegimen.Pulsar();
                 }
             },
             {"caja: Debe agregar el régimen fiscal en el que tributa el emisor."}, 1, "cmbRegimen"},
        Caso{"DomicilioDeCentroSinBarras", cCBB,
             [](auto& db) { db.Ejecutar("UPDATE Domicilio SET Direccion='Av. Vallarta 2440' WHERE Sys_PK=4"); }, Nada,
             {"caja: Dirección incorrecta. Debe separar nombre de calle, número exterior y número interior en "
              "domicilio del centro de consumo 'Sucursal Guadalajara'",
              "caja: Por favor revise el domicilio de expedición en cada centro de consumo."}},
        Caso{"ContrasenaSinConfirmar", cCBB, nullptr, [](dlgConfig& d) { d.correo.txtP1.Text("nueva"); },
             {"caja: Las contraseñas de servidor de correo no coiciden."}, 3, "txtP2"},
        Caso{"SieteDecimales", cCBB, nullptr, [](dlgConfig& d) { d.adicionales.eNumDecimales.Value(7); },
             {"caja: Valor inválido para decimales de precisión. El máximo es 6"}},
        Caso{"DecimalesNegativos", cCBB, nullptr, [](dlgConfig& d) { d.adicionales.eNumDecimales.Value(-1); },
             {"caja: Valor inválido para decimales de precisión."}}),
    [](const ::testing::TestParamInfo<Caso>& info) { return info.param.nombre; });

// A company on CBB asks for a certificate but for no block; six decimals
// pass. Every key goes in its order, and the settings are loaded again.
// A stored password is shown as stored and left alone; a missing decimals
// key shows two; a stored advanced option goes back as it was.
TEST_F(Configuracion, AGoodSaveWritesEveryKeyInOrderAndReloadsTheSettings) {
    Tipo(cCBB);
    db.Ejecutar("DELETE FROM gv_Configuracion WHERE Clave='NVCA328x'");
    db.Ejecutar("INSERT INTO gv_Configuracion (Clave, Numero, Texto) VALUES ('NVCA312x', NULL, 'cifrada'), "
                "('NVCA400x', 1, NULL)");
    ajustes->Conectar(acc.ADOCnn);
    const int conexiones = ajustes->conexiones;
    bool aceptado = false;
    Abrir([&](dlgConfig& d) {
        EXPECT_EQ(d.general.lvwBlockCFDI.Count(), 0);
        EXPECT_EQ(d.correo.txtP1.Text() + d.correo.txtP2.Text(), "cifradacifrada");
        EXPECT_EQ(d.adicionales.eNumDecimales.Value(), 2);
        d.adicionales.eNumDecimales.Value(6);
        d.adicionales.chkComplemento.Value(1);
        d.correo.txtMail.Text("  facturas@kemper.mx ");
        d.btnOK.Pulsar();
        aceptado = d.Aceptado;
        EXPECT_FALSE(d.Visible());
    });
    EXPECT_TRUE(aceptado);
    Textos esperadas = kGuardadoCompleto;
    esperadas[3] = "NVCA300x=-1";
    esperadas[5] = "NVCA304x=facturas@kemper.mx";
    esperadas[17] = "NVCA328x=6";
    esperadas[18] = "NVCA400x=1";
    EXPECT_EQ(ajustes->escrituras, esperadas);
    EXPECT_EQ(ajustes->conexiones, conexiones + 1);
    EXPECT_TRUE(SinCajas());
}

// With the fiscal address as the expedition address the centres' page is
// out of use and the save clears their addresses; a password typed twice is
// stored enciphered, after the user.
TEST_F(Configuracion, TheSwitchClearsTheCentresAndANewPasswordIsEnciphered) {
    db.Ejecutar("INSERT INTO gv_Configuracion (Clave, Numero, Texto) VALUES ('NVCB01121', 1, NULL), "
                "('NVCA307x', NULL, 'conta@kemper.mx'), ('NVCA308x', NULL, 'Adjunto su factura.'), "
                "('NVCA310x', NULL, '1'), ('NVCA311x', NULL, 'facturas')");
    ajustes->Conectar(acc.ADOCnn);
    Abrir([](dlgConfig& d) {
        EXPECT_FALSE(d.TabControl.PaginaHabilitada(dlgConfig::kExpedicion));
        CertificadoDeBlocks(d);
        d.correo.txtP1.Text("nueva");
        d.correo.txtP2.Text("nueva");
        d.btnOK.Pulsar();
    });
    ASSERT_GT(ajustes->escrituras.size(), 13u);
    std::string& clave = ajustes->escrituras[13];
    const std::string cifrada = clave.substr(clave.find('=') + 1);
    EXPECT_EQ(mdlMain::DescifrarTexto(cifrada), "nueva");
    EXPECT_NE(cifrada, "nueva");
    clave = "NVCA312x=(cifrada)";
    Textos esperadas = kGuardadoCompleto;
    esperadas.insert(esperadas.begin() + 13, "NVCA312x=(cifrada)");
    esperadas.back() = "NVCB01121=1";
    esperadas[8] = "NVCA307x=conta@kemper.mx";
    esperadas[9] = "NVCA308x=Adjunto su factura.";
    esperadas[11] = "NVCA310x=1";
    esperadas[12] = "NVCA311x=facturas";
    EXPECT_EQ(ajustes->escrituras, esperadas);
    EXPECT_EQ(db.Contar("CConsumo WHERE uf_DomicilioCFD IS NULL AND uf_ExpedicionCXC=0"), 3);
}

// A fiscal address row that can't be written ends the save before any key,
// with the object's reason, and the dialog stays open.
TEST_F(Configuracion, AFiscalAddressThatCantBeSavedWritesNoKey) {
    Abrir([](dlgConfig& d) {
        CertificadoDeBlocks(d);
        d.emisor.eDir.colony(std::string(101, 'x'));  // longer than its column
        d.btnOK.Pulsar();
        EXPECT_TRUE(d.Visible());
    });
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    EXPECT_EQ(platform.ui.Cajas()[0].texto.rfind("Error al guardar domicilio fiscal. ", 0), 0u);
    EXPECT_GT(platform.ui.Cajas()[0].texto.size(), std::string("Error al guardar domicilio fiscal. ").size());
    EXPECT_EQ(platform.ui.Cajas()[0].icono, host::Icono::Exclamacion);
    EXPECT_EQ(Texto("SELECT Colonia FROM Domicilio WHERE Sys_PK=1"), "Cuauhtémoc");
    EXPECT_TRUE(ajustes->escrituras.empty());
}

// The advanced options reach their keys only through this dialog's save.
TEST_F(Configuracion, AdvancedOptionsReachTheirKeysOnlyWhenTheDialogSaves) {
    for (bool guardar : {false, true}) {
        ajustes->escrituras.clear();
        platform.ui.AlMostrar("dlgConfigAvz", [](forms::Dialogo& d) {
            auto& avanzadas = dynamic_cast<dlgConfigAvz&>(d);
            avanzadas.chkSerieLote.Pulsar();
            avanzadas.btnOK.Pulsar();
        });
        Abrir([guardar](dlgConfig& d) {
            CertificadoDeBlocks(d);
            d.adicionales.btnCfg.Pulsar();
            (guardar ? d.btnOK : d.btnCancel).Pulsar();
        });
        if (guardar) {
            Textos esperadas = kGuardadoCompleto;
            esperadas[21] = "NVCA403x=1";
            EXPECT_EQ(ajustes->escrituras, esperadas);
        } else {
            EXPECT_TRUE(ajustes->escrituras.empty());
        }
    }
}

// A removed regime whose deletion fails: the address, its keys and every
// key up to the advanced options stay written, and the dialog stays open.
TEST_F(Configuracion, ASaveFailingAtTheDeletionOfRegimesKeepsWhatRanBefore) {
    const long domicilios = db.Contar("Domicilio");
    Abrir([&](dlgConfig& d) {
        CertificadoDeBlocks(d);
        d.emisor.eDir.codep("  64000 ");
        d.regimenes.lstRegimen.ListIndex(0);
        d.regimenes.cmdQuitarRegimen.Pulsar();
        db.Ejecutar("ALTER TABLE RegimenEmisor RENAME TO RegimenRetirado");
        d.btnOK.Pulsar();
        EXPECT_TRUE(d.Visible());
        EXPECT_FALSE(d.Aceptado);
    });
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    EXPECT_EQ(platform.ui.Cajas()[0].texto.rfind("Error al eliminar régimen fiscal. ", 0), 0u);
    EXPECT_EQ(platform.ui.Cajas()[0].icono, host::Icono::Exclamacion);
    EXPECT_EQ(ajustes->escrituras, Textos(kGuardadoCompleto.begin(), kGuardadoCompleto.end() - 1));
    EXPECT_EQ(Texto("SELECT CodPos FROM Domicilio WHERE Sys_PK=1"), "64000");
    EXPECT_EQ(db.Contar("Domicilio"), domicilios);
}

// Cancel drops what the save would have written, and keeps what the
// permissions button committed on its own. A double click on a certificate
// opens its editor.
TEST_F(Configuracion, CancelKeepsOnlyWhatThePagesOwnButtonsCommitted) {
    platform.ui.AlMostrar("dlgcertificado", [](forms::Dialogo& d) { d.Hide(); });
    Abrir([](dlgConfig& d) {
        d.general.lstCer.DblClick();
        d.emisor.txtNombreEmisor.Text("OTRA EMPRESA");
        d.regimenes.cmbRegimen.Text("Régimen de Incorporación Fiscal");
        d.regimenes.cmdAgregarRegimen.Pulsar();
        d.permisos.btnGuardarPermisos.Pulsar();
        d.btnCancel.Pulsar();
        EXPECT_FALSE(d.Aceptado);
    });
    EXPECT_EQ(platform.ui.Registro().at(1), "dialogo: dlgcertificado");
    ASSERT_EQ(ajustes->escrituras.size(), 13u);
    EXPECT_EQ(ajustes->escrituras.front(), "NVCA316x=1;3");
    EXPECT_EQ(ajustes->escrituras.back().rfind("NVCA326xb=", 0), 0u);
    EXPECT_EQ(db.Contar("RegimenEmisor"), 2);
    EXPECT_EQ(Texto("SELECT Texto FROM gv_Configuracion WHERE Clave='NVCA100'"), "ESCUELA KEMPER URGATE SA DE CV");
}

}  // namespace
}  // namespace celdora

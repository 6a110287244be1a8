// The setup wizard on the demo company: the pages each kind passes through
// and the keys its save writes, the steps that hold the user or lead on,
// what Salir puts back, and the null test of each dialect.

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/mdlMain.h"
#include "platform/common/ConexionMotor.h"
#include "platform/common/DataObjectsMotor.h"
#include "tests/support/AjustesGrabados.h"
#include "tests/support/ConfiguracionPrivada.h"
#include "tests/support/FachadaDemo.h"
#include "tests/support/MotorDeOtroDialecto.h"
#include "wizard/dlgAsistenteConfig.h"

namespace celdora {
namespace {

using testing::Textos;
using D = dlgAsistenteConfig;

class Asistente : public testing::FachadaDemo {
protected:
    testing::ConfiguracionPrivada configuracion;
    std::shared_ptr<testing::GlobalVarAnotado> ajustes;
    std::shared_ptr<testing::ConfigLocalGrabado> almacen = std::make_shared<testing::ConfigLocalGrabado>();

    void SetUp() override {
        FachadaDemo::SetUp();
        platform.plataforma.Fabrica().Registrar(host::progid::cConfigLocal, [this] { return almacen; });
        mdlMain::SoltarObjetosCompartidos();
        ajustes = std::make_shared<testing::GlobalVarAnotado>(acc.GlobalVar);
        acc.GlobalVar = ajustes;
        acc.ApplicationName = "Tiendaro";
        acc.AppRepositoryPath = "/srv/celdora\\";
    }
    void Tipo(int tipo) {
        db.Ejecutar("UPDATE gv_Configuracion SET Numero=" + std::to_string(tipo) + " WHERE Clave='NVCA300xa'");
        ajustes->Conectar(acc.ADOCnn);
    }
    void Abrir(std::function<void(D&)> guion) {
        platform.ui.AlMostrar("dlgAsistenteConfig", [guion](forms::Dialogo& d) {
            guion(dynamic_cast<D&>(d));
            if (d.Visible()) d.Hide();
        });
        acc.AsistenteConfiguracion();
    }
    // The writes of the company keys with one of these prefixes, in order,
    // then those of the machine's store; only their names when nombres.
    Textos Escritas(const Textos& prefijos, bool nombres = false) const {
        Textos escritas;
        for (const std::string& e : ajustes->escrituras) {
            for (const std::string& p : prefijos) {
                if (e.rfind(p, 0) == 0) escritas.push_back(nombres ? e.substr(0, e.find('=')) : e);
            }
        }
        for (const std::string& e : almacen->escrituras) escritas.push_back(e.substr(0, e.find('=')));
        return escritas;
    }
};

forms::OptionButton& Opcion(D& d, int tipo) {
    forms::OptionButton* opciones[] = {&d.optCFD, &d.optCFDI, &d.optCBB, &d.optCFDICBB, &d.optFpapel};
    return *opciones[tipo - 1];
}

// Goes forward, choosing the kind's option on page 3 and the certificate of
// the CFDI blocks on page 4, while a step is taken and page hasta is not
// reached; the pages it went through.
std::vector<int> Adelante(D& d, int tipo, int hasta = -1) {
    std::vector<int> paginas{d.TabControl.SelectedItem()};
    while (paginas.back() != hasta && paginas.size() < 10) {
        if (paginas.back() == D::kTipoComprobante && tipo > 0) Opcion(d, tipo).Pulsar();
        if (paginas.back() == D::kCertificados && tipo != cCFD) {
            d.general.lstCer.ListIndex(d.general.lstCer.Buscar("30001000000500003416"));
        }
        if (!d.btnSiguiente.Pulsar() || d.TabControl.SelectedItem() == paginas.back()) break;
        paginas.push_back(d.TabControl.SelectedItem());
    }
    return paginas;
}

struct Camino {
    const char* nombre;
    int tipo;
    std::vector<int> paginas;
    Textos llaves;        // the kind, print and stamping keys written
    std::string factura;  // the invoice's format as saved
    std::string titulo;   // of the page of Finalizar
};

class Caminos : public Asistente, public ::testing::WithParamInterface<Camino> {};

// Forward to the page of Finalizar, back to the first, forward again (the
// kind is written each time its page is left) and the save with the
// default formats.
TEST_P(Caminos, EachKindPassesThroughItsPagesForwardAndBackAndSavesItsFamilies) {
    const Camino& c = GetParam();
    const int guardado = c.tipo == cPapel ? cCFDI : c.tipo;  // the wizard opens on the stored kind
    Tipo(guardado);
    db.Ejecutar("UPDATE ut_CFD SET uf_XMLCFDI=NULL");
    Abrir([&](D& d) {
        EXPECT_TRUE(Opcion(d, guardado).Value());
        EXPECT_EQ(Adelante(d, c.tipo), c.paginas);
        EXPECT_TRUE(d.btnFinalizar.Enabled() && !d.btnSiguiente.Enabled());
        EXPECT_EQ(d.lblTitle.Caption(), c.titulo);
        // Only the kind of both families is warned that its formats are CFDI's.
        EXPECT_EQ(d.lblFormatoAviso.Caption().rfind("Los formatos seleccionados deberán ser para CFDI.", 0) == 0,
                  c.tipo == cCFDI_CBB);
        std::vector<int> atras{d.TabControl.SelectedItem()};
        while (atras.size() < 10 && d.btnAtras.Pulsar()) atras.push_back(d.TabControl.SelectedItem());
        EXPECT_EQ(std::vector<int>(atras.rbegin(), atras.rend()), c.paginas);
        EXPECT_EQ(d.lblTitle.Caption(), "Facturación electrónica");
        Adelante(d, c.tipo);
        d.cuenta.txtUsuario.Text("usuario");
        d.btnFinalizar.Pulsar();
        EXPECT_TRUE(d.Aceptado);
    });
    EXPECT_EQ(Escritas({"CFDImp", "CBBImp", "NVCA303x", "NVCA300xa"}, true), c.llaves);
    EXPECT_EQ(ajustes->LeerTexto(c.tipo == cCBB ? "CBBImp002" : "CFDImp002", ""), c.factura);
    platform.ui.ExpectCaja(platform.ui.Cajas().size() - 1,
                           "¡El asistente ha finalizado correctamente!\r\nEn el panel de control podrá configurar "
                           "opciones adicionales de facturación electrónica.",
                           host::Icono::Informacion, "Tiendaro");
}

const Textos kCFD = {"NVCA300xa", "NVCA300xa", "CFDImp001", "CFDImp002", "NVCA303x",  "CFDImp003", "CFDImp004",
                     "CFDImp005", "CFDImp006", "CFDImp007", "CFDImp008", "CFDImp009", "CFDImp010", "CFDImp011"};
const Textos kCFDI = [] {
    Textos llaves = kCFD;
    for (const char* clave : {"FE_Timbrar", "FE_Timbre001", "FE_Timbre002", "FE_Timbre003"}) llaves.push_back(clave);
    return llaves;
}();

const Textos kCBB = {"NVCA300xa", "NVCA300xa", "CBBImp001", "CBBImp002", "CBBImp003", "CBBImp004",
                     "CBBImp006",  "CBBImp007", "CBBImp008", "CBBImp009", "CBBImp010", "CBBImp011"};

INSTANTIATE_TEST_SUITE_P(
    , Caminos,
    ::testing::Values(
        Camino{"CFD", cCFD, {0, 1, 2, 3, 4, 6, 7}, kCFD, "/srv/celdora/Reports/Ventas/cfd/Factura cfd.txf",
               "Envío por correo electrónico (CFD/CFDI)"},
        Camino{"CFDI", cCFDI, {0, 1, 2, 3, 4, 6, 7, 8}, kCFDI, "/srv/celdora/Reports/Ventas/cfdi/Factura cfdi.txf",
               "Cuenta para Timbrar"},
        Camino{"CBB", cCBB, {0, 1, 2, 3, 5, 6}, kCBB, "/srv/celdora/Reports/Ventas/cbb/Factura cbb.txf",
               "Formatos de impresión del comprobante"},
        Camino{"CFDICBB", cCFDI_CBB, {0, 1, 2, 3, 4, 5, 6, 7, 8}, kCFDI,
               "/srv/celdora/Reports/Ventas/cfdi/Factura cfdi.txf", "Cuenta para Timbrar"},
        // Paper finishes on the page of the kinds: the kind is never 5.
        Camino{"Papel", cPapel, {0, 1, 2, 3}, {}, "", "Tipo de comprobante fiscal"}),
    [](const ::testing::TestParamInfo<Camino>& info) { return info.param.nombre; });

struct Paso {
    const char* nombre;
    int guardado;  // the stored kind
    std::function<void(D&)> guion;
    int pagina;                 // the page selected afterwards
    bool siguiente, finalizar;  // whether the two buttons are enabled
    std::string caja;
    Textos tipos;  // the writes of NVCA300xa
    host::Icono icono = host::Icono::Informacion;
    host::Respuesta respuesta = host::Respuesta::Si;  // to a question
    std::string titulo = "";
};

class Pasos : public Asistente, public ::testing::WithParamInterface<Paso> {};

TEST_P(Pasos, TheStepDecidesThePageTheButtonsAndTheKind) {
    const Paso& p = GetParam();
    Tipo(p.guardado);
    if (p.icono == host::Icono::Pregunta) platform.ui.Responder(p.respuesta);
    Abrir([&](D& d) {
        p.guion(d);
        EXPECT_EQ(d.TabControl.SelectedItem(), p.pagina);
        EXPECT_EQ(d.btnSiguiente.Enabled(), p.siguiente);
        EXPECT_EQ(d.btnFinalizar.Enabled(), p.finalizar);
    });
    if (p.caja.empty()) {
        EXPECT_TRUE(SinCajas());
    } else if (p.icono == host::Icono::Pregunta) {
        platform.ui.ExpectPregunta(0, p.caja);
    } else {
        UnaCaja(p.caja, p.icono, p.titulo);
    }
    EXPECT_EQ(Escritas({"NVCA300xa"}), p.tipos);
}

const char* const kSalir = "¿Está seguro que desea salir del asistente de configuración?";

void SalirDesdeLosRangos(D& d) {
    Adelante(d, cCBB, D::kFoliosCBB);
    d.btnSalir.Pulsar();
}

INSTANTIATE_TEST_SUITE_P(
    , Pasos,
    ::testing::Values(
        // Setting the stored paper kind raises its option's click.
        Paso{"PapelGuardado", cPapel, [](D&) {}, 0, false, true, "", {}},
        Paso{"SinOpcion", 7, [](D& d) { Adelante(d, 0, D::kCertificados); }, 4, true, false, "", {"NVCA300xa=0"}},
        Paso{"CfdConCfdiCertificado", cCFDI, [](D& d) { Adelante(d, cCFD); }, 3, true, false,
             "No se puede configurar el sistema para generación de CFD cuando ya se ha certificado un comprobante "
             "de tipo CFDI.",
             {},
             host::Icono::Critico},
        // Back from the kinds and on again checks the address again; its
        // failure lands on the issuer's page.
        Paso{"AtrasYAdelanteValidaOtraVez", cCFDI,
             [](D& d) {
                 Adelante(d, cCFDI, D::kCertificados);
                 d.btnAtras.Pulsar();
                 d.btnAtras.Pulsar();
                 d.emisor.eDir.ciudad(1);
                 d.btnSiguiente.Pulsar();
             },
             1, true, false, "Ciudad incorrecta.", {"NVCA300xa=2"}},
        Paso{"CambioDeTipoVaciaLosFormatos", cCFDI,
             [](D& d) {
                 Adelante(d, cCFDI, D::kFormatosImpresion);
                 d.cmbTipo.ListIndex(0);
                 d.btnSiguiente.Pulsar();
             },
             6, true, false, "Seleccione el formato de impresión para facturas en ventas.", {"NVCA300xa=2"}},
        // The account's checks hold Finalizar on the last page.
        Paso{"CuentaSinUsuario", cCFDI,
             [](D& d) {
                 Adelante(d, cCFDI);
                 d.btnFinalizar.Pulsar();
             },
             8, false, true, "Debe indicar en nombre del usuario de la cuenta para timbrar.", {"NVCA300xa=2"}},
        Paso{"CuentaConClavesDistintas", cCFDI,
             [](D& d) {
                 Adelante(d, cCFDI);
                 d.cuenta.txtUsuario.Text("usuario");
                 d.cuenta.txtPWD.Text("una");
                 d.cuenta.txtPWDRep.Text("otra ");
                 d.btnFinalizar.Pulsar();
             },
             8, false, true, "La contraseña de confirmación no coincide.", {"NVCA300xa=2"}, host::Icono::Informacion,
             host::Respuesta::Si, "Cuenta para timbrar"},
        // Salir writes back the kind found at the opening only when it
        // changed, and only on Yes.
        Paso{"SalirSinCambio", cCFDI, [](D& d) { d.btnSalir.Pulsar(); }, 0, true, false, kSalir, {},
             host::Icono::Pregunta},
        Paso{"SalirTrasElegirCBB", cCFDI, SalirDesdeLosRangos, 5, true, false, kSalir,
             {"NVCA300xa=3", "NVCA300xa=2"}, host::Icono::Pregunta},
        Paso{"SalirSinSalir", cCFDI, SalirDesdeLosRangos, 5, true, false, kSalir, {"NVCA300xa=3"},
             host::Icono::Pregunta, host::Respuesta::No}),
    [](const ::testing::TestParamInfo<Paso>& info) { return info.param.nombre; });

// A company on CBB: no mail key, the decimals as the constant 2, and
// nothing of the print family's but its own keys.
TEST_F(Asistente, TheSaveWritesTheCompanyKeysInTheirOrder) {
    db.Ejecutar("UPDATE gv_Configuracion SET Numero=6 WHERE Clave='NVCA328x'");
    Abrir([&](D& d) {
        Adelante(d, cCBB);
        d.general.ChkCFDauto.Value(0);
        d.btnFinalizar.Pulsar();
    });
    EXPECT_EQ(Escritas({"NVCA", "NVCB"}), (Textos{"NVCA300xa=3", "NVCA102b=1", "NVCA100=ESCUELA KEMPER URGATE SA DE CV",
                                  "NVCA101=EKU9003173C9", "NVCA327x=0", "NVCA328x=2", "NVCB01121=0"}));
}

// A regime removed whose deletion fails: the address, the mail keys (the
// stored password untouched) and the two before the regimes stay written;
// the expedition switch and the print keys are not, and the wizard stays open.
TEST_F(Asistente, ASaveStoppedAtTheRegimesKeepsWhatRanBeforeAndStaysOpen) {
    Tipo(cCFD);
    db.Ejecutar("UPDATE ut_CFD SET uf_XMLCFDI=NULL");
    Abrir([&](D& d) {
        Adelante(d, cCFD);
        d.regimenes.lstRegimen.ListIndex(0);
        d.regimenes.cmdQuitarRegimen.Pulsar();
        db.Ejecutar("ALTER TABLE RegimenEmisor RENAME TO RegimenRetirado");
        d.btnFinalizar.Pulsar();
        EXPECT_TRUE(d.Visible() && !d.Aceptado);
    });
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    EXPECT_EQ(platform.ui.Cajas()[0].texto.rfind("Error al eliminar régimen fiscal. ", 0), 0u);
    EXPECT_EQ(Escritas({"NVCA", "NVCB", "CFDImp"}, true),
              (Textos{"NVCA300xa", "NVCA102b", "NVCA100", "NVCA101", "NVCA304x", "NVCA305x", "NVCA306x", "NVCA307x",
                      "NVCA308x", "NVCA309x", "NVCA310x", "NVCA311x", "NVCA313x", "NVCA314x", "NVCA315x", "NVCA327x",
                      "NVCA328x"}));
}

// The picker takes the filter of the report and template types; the strip
// type leaves it as the last browse set it. It opens in the repository.
TEST_F(Asistente, TheFilePickerKeepsTheLastFilterForTheStripType) {
    for (int i = 0; i < 3; ++i) platform.ui.Elegir(std::nullopt);
    Abrir([&](D& d) {
        Adelante(d, cCFDI, D::kFormatosImpresion);
        for (double tipo : {3.0, 2.0, 1.0}) {
            for (int i = 0; i < d.cmbTipo.ListCount(); ++i) {
                if (d.cmbTipo.ItemData(i) == tipo) d.cmbTipo.ListIndex(i);
            }
            d.archivos.btnExaminar0.Pulsar();
        }
    });
    Textos filtros;
    for (const auto& s : platform.ui.Selecciones()) filtros.push_back(s.filtro + " en " + s.carpeta);
    EXPECT_EQ(filtros, (Textos{"Plantilla *.txf|*.txf en /srv/celdora", "Plantilla *.txf|*.txf en /srv/celdora",
                               "Formato de reporte de Nudovia *.xpd|*.xpd en /srv/celdora"}));
}

// With the company's table gone both forms fail, the second one written
// for the dialect whose isnull takes two arguments.
TEST_F(Asistente, TheCertifiedCfdiIsLookedForInTheSecondFormWhenTheFirstFails) {
    auto propio = std::make_unique<testing::MotorDeOtroDialecto>(db.cnn->motor(), testing::Dialecto::SqlServer);
    testing::MotorDeOtroDialecto& motor = *propio;
    acc.SetDataObjects(
        std::make_shared<platform::DataObjectsMotor>(std::make_shared<platform::ConexionMotor>(std::move(propio))),
        nullptr);
    Abrir([&](D& d) {
        EXPECT_TRUE(d.existeCFDICertificado());
        db.Ejecutar("ALTER TABLE ut_CFD RENAME TO ut_CFD_filas");
        motor.sentencias.clear();
        EXPECT_FALSE(d.existeCFDICertificado());
    });
    EXPECT_EQ(motor.sentencias,
              (Textos{"SELECT Count(Sys_PK) AS Total FROM ut_CFD WHERE uf_Tipo=3 AND (NOT isnull(uf_XMLCFDI))",
                      "SELECT Count(Sys_PK) AS Total FROM ut_CFD WHERE uf_Tipo=3 AND (NOT isnull(uf_XMLCFDI,'')='')"}));
}

}  // namespace
}  // namespace celdora

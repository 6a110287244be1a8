// The folio range editor on the demo company: ranges 1 and 2 are in use and
// hold blocks 1 (Factura A) and 2 (Nota de crédito B); range 3 is free and
// holds no block; blocks 6 (Factura E) and 7 (Nota de cargo G) are free.

#include <gtest/gtest.h>

#include "certificates/dlgRangoFolios.h"
#include "certificates/frmBlockXCer.h"
#include "tests/support/FachadaDemo.h"
#include "tests/support/MotorDeOtroDialecto.h"

namespace celdora {
namespace {

using host::Icono;
using host::Respuesta;
using testing::Textos;

const std::string kInsert =
    "INSERT INTO ut_CFDFolio (uf_Serie,uf_FolioInicial,uf_FolioFinal,uf_noAprobacion,uf_anoAprobacion,uf_CFDInfo) "
    "VALUES (?,?,?,?,?,?)";
const std::string kPregunta =
    "El block seleccionado pertenece a otro rango de folios fiscales. Si asigna el mismo block el rango anterior ya "
    "no se usara para genearación de folios ¿Esta seguro que desea continuar?";

class Rango : public testing::FachadaDemo {
protected:
    std::size_t desde = 0;

    Variant Abrir(std::int32_t clave, std::function<void(dlgRangoFolios&)> guion) {
        platform.ui.AlMostrar("dlgRangoFolios", [guion](forms::Dialogo& d) {
            auto& dialogo = dynamic_cast<dlgRangoFolios&>(d);
            guion(dialogo);
            if (dialogo.Visible()) dialogo.btnCancel.Pulsar();
        });
        desde = db.sentencias->size();
        return clave < 1 ? Variant::Long(acc.AgregarAprobacionFolios()) : Variant(acc.ModificarAprobacionFolios(clave));
    }
    Textos Escritas() const {
        Textos escritas;
        for (std::size_t i = desde; i < db.sentencias->size(); ++i) {
            const std::string& s = (*db.sentencias)[i];
            if (s.rfind("INSERT", 0) == 0 || s.rfind("UPDATE", 0) == 0) escritas.push_back(s);
        }
        return escritas;
    }
    static void Llenar(dlgRangoFolios& d, const std::string& serie, double inicial, double final, int anio,
                       int certificado, const std::string& block) {
        d.txtSerie.Text(serie);
        d.eNumFInicial.Value(inicial);
        d.eNumFFinal.Value(final);
        d.eNumNoAprobacion.Value(777);
        d.eNumAnioAprobacion.Value(anio);
        if (certificado >= 0) d.cmbCertificado.ListIndex(certificado);
        if (!block.empty()) d.cmbBlock.Text(block);
    }
};

struct Caso {
    std::string serie;
    double inicial, final;
    int anio, certificado;
    std::string block, mensaje, foco;
};

class ValidacionDeRango : public Rango, public ::testing::WithParamInterface<Caso> {};

TEST_P(ValidacionDeRango, StopsAtTheFirstFailureWithItsFocusAndWritesNothing) {
    const Caso& c = GetParam();
    std::string foco;
    EXPECT_EQ(Abrir(0,
                    [&](dlgRangoFolios& d) {
                        Llenar(d, c.serie, c.inicial, c.final, c.anio, c.certificado, c.block);
                        d.btnOK.Pulsar();
                        foco = d.Foco()->Nombre();
                    }),
              Variant::Long(0));
    UnaCaja(c.mensaje, Icono::Informacion);
    EXPECT_EQ(foco, c.foco);
    EXPECT_EQ(Escritas(), Textos{});
    EXPECT_EQ(dataObjects->llamadas, Textos{});
}

INSTANTIATE_TEST_SUITE_P(
    EnOrden, ValidacionDeRango,
    ::testing::Values(
        Caso{"ABCDEFGHIJK", 1, 1, 2010, 0, "Factura -E", "No de serie incorrecto. Máximo 10 caracteres.", "txtSerie"},
        Caso{"E", 0, 1, 2010, 0, "Factura -E", "Folio inicial incorrecto.", "eNumFInicial"},
        Caso{"E", 1, 0, 2010, 0, "Factura -E", "Folio final incorrecto.", "eNumFFinal"},
        Caso{"E", 1, 9, 0, 0, "Factura -E", "Año de aprobación incorrecto.", "eNumAnioAprobacion"},
        Caso{"E", 1, 9, 210, 0, "Factura -E", "Año de aprobación incorrecto. El formato debe ser de 4 digitos",
             "eNumAnioAprobacion"},
        Caso{"E", 1, 9, 2010, -1, "Factura -E", "Seleccione un certificado para sello digital", "cmbCertificado"},
        Caso{"E", 1, 9, 2010, 0, "", "Seleccione un block de documentos (Factura o Nota de Crédito)", "cmbBlock"},
        Caso{"A", 1, 9, 2010, 0, "Factura -E",
             "La serie del rango de folios fiscales debe de conicidir con la serie asignada al block de documentos "
             "del sistema.",
             "txtSerie"}));

// The series takes capitals and Ñ only, typed or pasted.
TEST_F(Rango, ANewRangeWithAFreeBlockIsInsertedAndTakesTheBlockInOneTransaction) {
    Textos blocks;
    std::string serie;
    const Variant clave = Abrir(0, [&](dlgRangoFolios& d) {
        for (const auto& item : d.cmbBlock.Items()) blocks.push_back(item.text);
        d.txtSerie.Escribir("a1ñ-b");
        serie = d.txtSerie.Text();
        d.txtSerie.Text("xy");
        serie += d.txtSerie.Text();
        // An empty series passes with any block, and a last folio below the first is stored.
        Llenar(d, "", 10, 5, 2026, 2, "Nota de cargo -G");
        d.btnOK.Pulsar();
    });
    EXPECT_EQ(blocks, (Textos{"Factura -E", "Nota de cargo -G"}));
    EXPECT_EQ(serie, "AÑBXY");
    EXPECT_EQ(clave, Variant::Long(4));
    EXPECT_EQ(Escritas(), (Textos{kInsert, "UPDATE BlockDocumentos SET Fiscal=1,uf_CFDFolio=4 WHERE Sys_PK=7"}));
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Confirmar"}));
    EXPECT_EQ(Texto("SELECT uf_FolioInicial || ',' || uf_FolioFinal || ',' || uf_CFDInfo || ',' || "
                    "ifnull(uf_CFDFolioAnterior, 'n') FROM ut_CFDFolio WHERE Sys_PK=4"),
              "10,5,3,n");
    EXPECT_TRUE(SinCajas());
}

// A block of another range, loaded with btnBlock, is taken only after a Yes;
// the new range then remembers the range it took it from.
TEST_F(Rango, TakingTheBlockOfAnotherRangeAsksAndOnYesNotesTheFormerRange) {
    platform.ui.Responder(Respuesta::No);
    platform.ui.Responder(Respuesta::Si);
    std::string foco;
    std::size_t tras_no = 0;
    const Variant clave = Abrir(0, [&](dlgRangoFolios& d) {
        d.btnBlock.Pulsar();
        Llenar(d, "A", 1, 100, 2026, 0, "");
        EXPECT_EQ(d.cmbBlock.Text(), "Factura -A");
        d.btnOK.Pulsar();
        foco = d.Foco()->Nombre();
        tras_no = Escritas().size();
        d.btnOK.Pulsar();
    });
    EXPECT_EQ(foco, "cmbBlock");
    EXPECT_EQ(tras_no, 0u);
    EXPECT_EQ(clave, Variant::Long(4));
    EXPECT_EQ(Escritas(), (Textos{kInsert, "UPDATE BlockDocumentos SET Fiscal=1,uf_CFDFolio=4 WHERE Sys_PK=1",
                                  "UPDATE ut_CFDFolio SET uf_CFDFolioAnterior=1 WHERE Sys_PK=4"}));
    ASSERT_EQ(platform.ui.Cajas().size(), 2u);
    platform.ui.ExpectPregunta(0, kPregunta);
    platform.ui.ExpectPregunta(1, kPregunta);
    EXPECT_EQ(Texto("SELECT Fiscal FROM BlockDocumentos WHERE Sys_PK=1"), "1");
}

TEST_F(Rango, AChangedRangeIsUpdatedAndMovesItsBlockWhileARangeInUseStaysLocked) {
    db.Ejecutar("UPDATE BlockDocumentos SET uf_CFDFolio=3, Fiscal=1 WHERE Sys_PK=6");
    EXPECT_EQ(Abrir(3,
                    [&](dlgRangoFolios& d) {
                        EXPECT_EQ(d.cmbBlock.Text(), "Factura -E");
                        d.eNumFFinal.Value(300);
                        d.cmbBlock.Text("Nota de cargo -G");
                        d.btnOK.Pulsar();
                    }),
              Variant(true));
    EXPECT_EQ(Escritas(), (Textos{"UPDATE ut_CFDFolio SET uf_Serie='',uf_FolioInicial=1,uf_FolioFinal=300,"
                                  "uf_noAprobacion=34567,uf_anoAprobacion=2012, uf_CFDinfo=1 WHERE Sys_PK=3",
                                  "UPDATE BlockDocumentos SET Fiscal=1,uf_CFDFolio=3 WHERE Sys_PK=7",
                                  "UPDATE BlockDocumentos SET uf_CFDFolio=NULL,Fiscal=0 WHERE Sys_PK=6"}));

    Textos vivos;
    EXPECT_EQ(Abrir(1,
                    [&](dlgRangoFolios& d) {
                        EXPECT_EQ(d.txtSerie.Text() + " " + d.cmbCertificado.Text() + " " + d.cmbBlock.Text(),
                                  "A 30001000000400002443 Factura -A");
                        for (const auto& control : d.Controles())
                            if (control->Enabled()) vivos.push_back(control->Nombre());
                    }),
              Variant(false));
    EXPECT_EQ(vivos, (Textos{"tab", "btnCancel"}));
    EXPECT_FALSE(acc.ModificarAprobacionFolios(0));
    platform.ui.ExpectCaja(0, "Clave incorrecta.", Icono::Exclamacion);
}

TEST_F(Rango, ACertificateAddedFromTheRangeEditorRefillsItsList) {
    platform.ui.AlMostrar("dlgcertificado", [](forms::Dialogo& d) { d.Ver<forms::CommandButton>("btnCancel").Pulsar(); });
    platform.ui.AlMostrar("dlgcertificado", [](forms::Dialogo& d) {
        d.Ver<forms::TextBox>("txtNumCertificado").Text("12345678901234567890");
        for (const char* campo : {"txtCertificado", "txtPrivateKey", "txtPWD", "txtPWD2"}) d.Ver<forms::TextBox>(campo).Text("x");
        d.Ver<forms::CommandButton>("btnOK").Pulsar();
    });
    dlgRangoFolios rango;
    rango.setObjects(acc);
    rango.ModificarCertificado();
    rango.cmbCertificado.ListIndex(0);
    rango.ModificarCertificado();
    platform.ui.Responder(Respuesta::No);
    rango.AgregarCertificado();
    EXPECT_EQ(rango.cmbCertificado.ListCount(), 4);
    EXPECT_EQ(rango.cmbCertificado.List(0), "12345678901234567890");
    platform.ui.ExpectCaja(0, "Seleccione un elemento.", Icono::Informacion);
}

// A refused insert returns with the transaction left open; a failure after
// it rolls back.
TEST_F(Rango, AFailedSaveShowsWhyAndKeepsTheDialogOpen) {
    for (const std::string tabla : {"ut_CFDFolio", "BlockDocumentos"}) {
        db.Ejecutar("CREATE TRIGGER rechazo BEFORE " + std::string(tabla == "ut_CFDFolio" ? "INSERT" : "UPDATE") +
                    " ON " + tabla + " BEGIN SELECT RAISE(ABORT, 'rechazado'); END");
        dataObjects->llamadas.clear();
        EXPECT_EQ(Abrir(0,
                        [&](dlgRangoFolios& d) {
                            Llenar(d, "E", 1, 9, 2010, 0, "Factura -E");
                            d.btnOK.Pulsar();
                        }),
                  Variant::Long(0));
        ASSERT_EQ(platform.ui.Cajas().size(), 1u);
        const auto& caja = platform.ui.Cajas()[0];
        EXPECT_EQ(caja.icono, Icono::Exclamacion);
        EXPECT_NE(caja.texto.find("rechazado"), std::string::npos) << caja.texto;
        if (tabla == "ut_CFDFolio") {
            EXPECT_EQ(caja.texto.rfind("Error al guardar rango de folios. ", 0), 0u);
            EXPECT_EQ(dataObjects->llamadas, Textos{"Iniciar"});
            dataObjects->RevertirTransaccion(0);
        } else {
            EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Revertir"}));
        }
        EXPECT_EQ(db.Contar("ut_CFDFolio"), 3);
        db.Ejecutar("DROP TRIGGER rechazo");
        platform.ui = {};
    }
}

// The block lists end by the dialect; an unknown dialect adds nothing.
TEST_F(Rango, TheBlockListsEndByDialect) {
    const std::string rangoMySql =
        " AND (ISNULL(BlockDocumentos.uf_CFDI_Info) OR BlockDocumentos.uf_CFDI_Info=0) AND "
        "(ISNULL(ut_FoliosCBB.uf_BlockDoc) OR ut_FoliosCBB.uf_BlockDoc=0)";
    const std::string certificadoMySql =
        "=2 OR ISNULL(BlockDocumentos.uf_CFDI_Info) OR BlockDocumentos.uf_CFDI_Info=0) AND "
        "(ISNULL(BlockDocumentos.uf_CFDFolio) OR BlockDocumentos.uf_CFDFolio=0) AND "
        "(ISNULL(ut_FoliosCBB.uf_BlockDoc) OR ut_FoliosCBB.uf_BlockDoc=0)";
    struct Final {
        testing::Dialecto dialecto;
        std::string rango, certificado;
    };
    for (const Final& f : std::vector<Final>{
             {testing::Dialecto::Access, rangoMySql, certificadoMySql},
             {testing::Dialecto::SqlServer,
              "17)  AND ISNULL(BlockDocumentos.uf_CFDI_Info,0)=0 AND ISNULL(ut_FoliosCBB.uf_BlockDoc,0)=0",
              "=2 OR ISNULL(BlockDocumentos.uf_CFDI_Info,0)=0) AND ISNULL(BlockDocumentos.uf_CFDFolio,0)=0 AND "
              "ISNULL(ut_FoliosCBB.uf_BlockDoc,0)=0"},
             {testing::Dialecto::Ninguno, "=17) ", "uf_CFDI_Info=2"}}) {
        auto propio = std::make_unique<testing::MotorDeOtroDialecto>(db.cnn->motor(), f.dialecto);
        auto* motor = propio.get();
        acc.SetDataObjects(std::make_shared<platform::DataObjectsMotor>(
                               std::make_shared<platform::ConexionMotor>(std::move(propio))),
                           nullptr);
        const auto termina = [&](const std::string& final) {
            const std::string& s = motor->sentencias.back();
            EXPECT_EQ(s.substr(s.size() - std::min(s.size(), final.size())), final);
        };
        dlgRangoFolios rango;
        rango.setObjects(acc);
        termina(f.rango);
        frmBlockXCer blocks;
        blocks.setObjects(acc);
        std::int32_t clave = 2;
        std::string numero;
        blocks.setCer(clave, numero);
        termina(f.certificado);
    }
}

}  // namespace
}  // namespace celdora

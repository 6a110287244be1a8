// The folio range editor on the demo company: ranges 1 and 2 are in use and
// hold blocks 1 (Factura A) and 2; range 3 is free and holds none; blocks 6
// (Factura E) and 7 (Nota de cargo G) are free.

#include <gtest/gtest.h>

#include "certificates/dlgRangoFolios.h"
#include "tests/certificates/Editores.h"

namespace celdora {
namespace {

using host::Icono;
using testing::Textos;

const std::string kInsert =
    "INSERT INTO ut_CFDFolio (uf_Serie,uf_FolioInicial,uf_FolioFinal,uf_noAprobacion,uf_anoAprobacion,uf_CFDInfo) "
    "VALUES (?,?,?,?,?,?)";

class Rango : public testing::Editores {
protected:
    Variant Abrir(std::int32_t clave, std::function<void(dlgRangoFolios&)> guion) {
        AlAbrir<dlgRangoFolios>("dlgRangoFolios", std::move(guion));
        return clave < 1 ? Variant::Long(acc.AgregarAprobacionFolios()) : Variant(acc.ModificarAprobacionFolios(clave));
    }
    static void Llenar(dlgRangoFolios& d, const std::string& serie, double inicial, double final, double anio,
                       int certificado, const std::string& block, double aprobacion = 777) {
        d.txtSerie.Text(serie);
        d.eNumFInicial.Value(inicial);
        d.eNumFFinal.Value(final);
        d.eNumNoAprobacion.Value(aprobacion);
        d.eNumAnioAprobacion.Value(anio);
        if (certificado >= 0) d.cmbCertificado.ListIndex(certificado);
        if (!block.empty()) d.cmbBlock.Text(block);
    }
};

struct Caso {
    std::string serie;
    double inicial, final, anio;
    int certificado;
    std::string block, mensaje, foco;
    double aprobacion = 777;
};
class ValidacionDeRango : public Rango, public ::testing::WithParamInterface<Caso> {};

TEST_P(ValidacionDeRango, StopsAtTheFirstFailureWithItsFocusAndWritesNothing) {
    const Caso& c = GetParam();
    std::string foco;
    EXPECT_EQ(Abrir(0, [&](dlgRangoFolios& d) {
        if (!c.block.empty()) d.btnBlock.Pulsar();
        Llenar(d, c.serie, c.inicial, c.final, c.anio, c.certificado, c.block, c.aprobacion);
        d.btnOK.Pulsar();
        foco = Foco(d);
    }), Variant::Long(0));
    UnaCaja(c.mensaje, Icono::Informacion);
    EXPECT_EQ(foco, c.foco);
    EXPECT_EQ(Escritas(), Textos{});
    EXPECT_EQ(dataObjects->llamadas, Textos{});
}

const std::string kE = "Factura -E";
INSTANTIATE_TEST_SUITE_P(EnOrden, ValidacionDeRango, ::testing::Values(
    Caso{"ABCDEFGHIJK", 1, 1, 2010, 0, kE, "No de serie incorrecto. Máximo 10 caracteres.", "txtSerie"},
    Caso{"E", 0, 1, 2010, 0, kE, "Folio inicial incorrecto.", "eNumFInicial"},
    Caso{"E", 1, 0, 2010, 0, kE, "Folio final incorrecto.", "eNumFFinal"},
    Caso{"E", 1, 9, 2010, 0, kE, "Número de aprobación incorrecto.", "eNumNoAprobacion", 0},
    Caso{"E", 1, 9, 0, 0, kE, "Año de aprobación incorrecto.", "eNumAnioAprobacion"},
    Caso{"E", 1, 9, 210, 0, kE, "Año de aprobación incorrecto. El formato debe ser de 4 digitos", "eNumAnioAprobacion"},
    Caso{"E", 1, 9, 2010, -1, kE, "Seleccione un certificado para sello digital", "cmbCertificado"},
    Caso{"E", 1, 9, 2010, 0, "", "Seleccione un block de documentos (Factura o Nota de Crédito)", "cmbBlock"},
    Caso{"B", 1, 9, 2010, 0, "Factura -A", "La serie del rango de folios fiscales debe de conicidir con la serie "
                                           "asignada al block de documentos del sistema.", "txtSerie"}));

// The list holds the free blocks; btnBlock adds those of other ranges. Taking
// range 1's block asks: No keeps the dialog open and writes nothing; Yes
// saves, and the new row notes range 1. A last folio below the first is kept.
TEST_F(Rango, TakingTheBlockOfAnotherRangeAsksAndOnYesNotesTheFormerRange) {
    platform.ui.Responder(host::Respuesta::No);
    platform.ui.Responder(host::Respuesta::Si);
    Textos vistos;
    EXPECT_EQ(Abrir(0, [&](dlgRangoFolios& d) {
        for (const auto& item : d.cmbBlock.Items()) vistos.push_back(item.text);
        d.txtSerie.Escribir("a1ñ-b");
        vistos.push_back(d.txtSerie.Text());
        d.btnBlock.Pulsar();
        Llenar(d, "A", 100, 50, 2026, 2, "Factura -A");
        d.btnOK.Pulsar();
        vistos.push_back(Foco(d) + " " + std::to_string(Escritas().size()));
        d.btnOK.Pulsar();
    }), Variant::Long(4));
    EXPECT_EQ(vistos, (Textos{kE, "Nota de cargo -G", "AÑB", "cmbBlock 0"}));
    EXPECT_EQ(Escritas(), (Textos{kInsert, "UPDATE BlockDocumentos SET Fiscal=1,uf_CFDFolio=4 WHERE Sys_PK=1",
                                  "UPDATE ut_CFDFolio SET uf_CFDFolioAnterior=1 WHERE Sys_PK=4"}));
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Confirmar"}));
    EXPECT_EQ(Texto("SELECT uf_FolioInicial || ',' || uf_FolioFinal || ',' || uf_CFDInfo FROM ut_CFDFolio "
                    "WHERE Sys_PK=4"), "100,50,3");
    const std::string pregunta =
        "El block seleccionado pertenece a otro rango de folios fiscales. Si asigna el mismo block el rango anterior "
        "ya no se usara para genearación de folios ¿Esta seguro que desea continuar?";
    platform.ui.ExpectPregunta(0, pregunta);
    platform.ui.ExpectPregunta(1, pregunta);
}

// An empty series passes with any block.
TEST_F(Rango, AChangedRangeIsUpdatedAndMovesItsBlockWhileARangeInUseStaysLocked) {
    db.Ejecutar("UPDATE BlockDocumentos SET uf_CFDFolio=3, Fiscal=1 WHERE Sys_PK=6");
    EXPECT_EQ(Abrir(3, [&](dlgRangoFolios& d) {
        EXPECT_EQ(d.cmbBlock.Text(), kE);
        d.eNumFFinal.Value(300);
        d.cmbBlock.Text("Nota de cargo -G");
        d.btnOK.Pulsar();
    }), Variant(true));
    EXPECT_EQ(Escritas(), (Textos{"UPDATE ut_CFDFolio SET uf_Serie='',uf_FolioInicial=1,uf_FolioFinal=300,"
                                  "uf_noAprobacion=34567,uf_anoAprobacion=2012, uf_CFDinfo=1 WHERE Sys_PK=3",
                                  "UPDATE BlockDocumentos SET Fiscal=1,uf_CFDFolio=3 WHERE Sys_PK=7",
                                  "UPDATE BlockDocumentos SET uf_CFDFolio=NULL,Fiscal=0 WHERE Sys_PK=6"}));
    Textos vivos;
    EXPECT_EQ(Abrir(1, [&](dlgRangoFolios& d) {
        vivos.push_back(d.txtSerie.Text() + " " + d.cmbCertificado.Text() + " " + d.cmbBlock.Text());
        for (const auto& control : d.Controles())
            if (control->Enabled()) vivos.push_back(control->Nombre());
    }), Variant(false));
    EXPECT_EQ(vivos, (Textos{"A 30001000000400002443 Factura -A", "tab", "btnCancel"}));
}

// A refused insert returns at once and leaves the transaction open.
TEST_F(Rango, ARefusedInsertSaysWhyAndLeavesTheTransactionOpen) {
    db.Ejecutar("CREATE TRIGGER rechazo BEFORE INSERT ON ut_CFDFolio BEGIN SELECT RAISE(ABORT, 'rechazado'); END");
    EXPECT_EQ(Abrir(0, [&](dlgRangoFolios& d) { Llenar(d, "E", 1, 9, 2010, 0, kE), d.btnOK.Pulsar(); }),
              Variant::Long(0));
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    EXPECT_EQ(platform.ui.Cajas()[0].texto.rfind("Error al guardar rango de folios. ", 0), 0u);
    EXPECT_NE(platform.ui.Cajas()[0].texto.find("rechazado"), std::string::npos);
    EXPECT_EQ(dataObjects->llamadas, Textos{"Iniciar"});
    dataObjects->RevertirTransaccion(0);
}

}  // namespace
}  // namespace celdora

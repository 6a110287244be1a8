// The CBB range editor on the demo company (schema/README.md): blocks 6
// (Factura E) and 7 (Nota de cargo G) are free; ranges 1 (block 5, no image)
// and 2 (block 9, no approval date either) are stored.

#include <gtest/gtest.h>

#include "tests/cbb/EditorCBB.h"
#include "tests/support/FachadaDemo.h"
#include "value/Format.h"

namespace celdora {
namespace {

using testing::Editor;
using testing::Textos;

const std::string kTraslape = "El rango de folios introducido ya ha sido utilizado con anterioridad";

class FoliosCBB : public testing::FachadaDemo {
protected:
    testing::TemporalPrivado temporal;
    Bytes Imagen(int pk) { return db.Valor("SELECT uf_CBB FROM ut_FoliosCBB WHERE Sys_PK=" + std::to_string(pk)).AsBytes(); }
};

struct Caso {
    int block;
    double inicial, final;
    std::string serie, mensaje, titulo, fila = "";  // the box of a refusal, or the row stored
};
class Validacion : public FoliosCBB, public ::testing::WithParamInterface<Caso> {};

// Stored beside the demo: range 3, folios 100 to 200 of block 6.
TEST_P(Validacion, ChecksRunInOrderAndARangeCollidesOnlyByItsEndsInItsOwnBlock) {
    db.Ejecutar("INSERT INTO ut_FoliosCBB (uf_FolioInicial,uf_FolioFinal,uf_BlockDoc,uf_NumAprobacion) VALUES (100,200,6,7)");
    testing::Capturar(platform.ui, GetParam().block, GetParam().inicial, GetParam().final, GetParam().serie);
    EXPECT_EQ(acc.AgregarFoliosCBB(), GetParam().mensaje.empty());
    if (!GetParam().mensaje.empty()) UnaCaja(GetParam().mensaje, host::Icono::Informacion, GetParam().titulo);
    EXPECT_EQ(db.Contar("ut_FoliosCBB WHERE Sys_PK=4") == 0 ? "" : Texto("SELECT uf_Serie || ' ' || uf_FolioInicial || "
              "'-' || uf_FolioFinal || ' ' || uf_BlockDoc || ' ' || uf_FechaAprobacion FROM ut_FoliosCBB WHERE Sys_PK=4"),
              GetParam().fila);
    EXPECT_TRUE(GetParam().fila.empty() || Imagen(4) == testing::LeerBytes(testing::kCbbJpeg));
}

INSTANTIATE_TEST_SUITE_P(
    Rangos, Validacion,
    ::testing::Values(Caso{6, 300, 0, "", "Debe indicar Folio Inicial", "Folios CBB"},
                      Caso{6, 5, 5, "", "El Folio Inicial no puede ser igual al Folio Final", "Folios CBB"},
                      Caso{6, 201, 300, "G", "La serie asignada debe coincidir con la serie del block.", ""},
                      Caso{6, 150, 300, "", kTraslape, "Folis CBB"}, Caso{6, 50, 150, "", kTraslape, "Folis CBB"},
                      Caso{6, 50, 300, "", "", "", " 50-300 6 2012-05-04 00:00:00"},
                      Caso{6, 201, 300, "e", "", "", "E 201-300 6 2012-05-04 00:00:00"},
                      Caso{7, 150, 300, "g", "", "", "G 150-300 7 2012-05-04 00:00:00"}));

TEST_F(FoliosCBB, AStoredRangeSavesOverItselfInOneTransactionWithItsImageOnlyOnceRemoved) {
    testing::Capturar(platform.ui, 6, 100, 200, "e");
    ASSERT_TRUE(acc.AgregarFoliosCBB());
    EXPECT_EQ(platform.ui.Selecciones().at(0).filtro,
              "Archivos de imágen CBB *.jpg|*.jpg|*.bmp|*.bmp|*.gif|*.gif|*.wmf|*.wmf|*.emf|*.emf");
    db.sentencias->clear();
    testing::Capturar(platform.ui, 6, 100, 200, "e", "");
    EXPECT_TRUE(acc.ModificarFoliosCBB(3));
    EXPECT_EQ(Textos(db.sentencias->end() - 7, db.sentencias->end()),
              (Textos{"SELECT Sys_PK FROM ut_FoliosCBB WHERE Sys_PK<>3 AND uf_BlockDoc=6 AND ((uf_FolioInicial<=100 "
                      "AND uf_FolioFinal>=100) OR (uf_FolioInicial<=200 AND uf_FolioFinal>=200))",
                      "UPDATE ut_FoliosCBB SET uf_FolioInicial=100 WHERE Sys_PK=3",
                      "UPDATE ut_FoliosCBB SET uf_FolioFinal=200 WHERE Sys_PK=3",
                      "UPDATE ut_FoliosCBB SET uf_BlockDoc=6 WHERE Sys_PK=3",
                      "UPDATE ut_FoliosCBB SET uf_NumAprobacion=55 WHERE Sys_PK=3",
                      "UPDATE ut_FoliosCBB SET uf_Serie='E' WHERE Sys_PK=3",
                      "UPDATE ut_FoliosCBB SET uf_FechaAprobacion='2012-05-04 00:00:00' WHERE Sys_PK=3"}));
    // A file chosen and removed again leaves its path, which the save writes.
    platform.ui.AlMostrar("dlgConfigFoliosCBB", [this](forms::Dialogo& d) {
        EXPECT_EQ(Editor(d).pctCBB.Picture()->Formato(), "jpeg");
        Editor(d).btnQuitarIMG.Pulsar();
        platform.ui.Elegir(testing::kCbbBmp);
        Editor(d).txtCBB.Pulsar();
        Editor(d).btnQuitarIMG.Pulsar();
        Editor(d).btnOK.Pulsar();
    });
    EXPECT_TRUE(acc.ModificarFoliosCBB(3));
    EXPECT_EQ(Imagen(3), testing::LeerBytes(testing::kCbbBmp));
    // A failure inside the save rolls back, is told and keeps the dialog up.
    dataObjects->fallarAlIniciar = true;
    testing::Capturar(platform.ui, 6, 100, 200, "", "");
    EXPECT_FALSE(acc.ModificarFoliosCBB(3));
    UnaCaja("Error: (-2147168242) No se pudo iniciar la transacción.");
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Confirmar", "Iniciar", "Confirmar", "Iniciar", "Revertir"}));
}

TEST_F(FoliosCBB, FreeBlocksAreListedAndRowsWithoutDateOrImageStopLoadingThere) {
    db.sentencias->clear();
    Textos vistos, blocks;
    for (int pk : {1, 2}) {
        platform.ui.AlMostrar("dlgConfigFoliosCBB", [&](forms::Dialogo& d) {
            auto& dlg = Editor(d);
            blocks.clear();
            for (const auto& item : dlg.cmbBlock.Items()) blocks.push_back(item.text + std::to_string(item.itemData));
            vistos.push_back(dlg.etxtSerie.Text() + CStr(dlg.eNumFFinal.Value()) + Format(dlg.eDtFechaAprobacion.Value(),
                             " yyyy-mm-dd ") + CStr(dlg.eNumNAprobacion.Value()) + std::to_string(dlg.cmbBlock.ListIndex()));
            dlg.btnCancel.Pulsar();
        });
        EXPECT_FALSE(acc.ModificarFoliosCBB(pk));
    }
    EXPECT_EQ(vistos, (Textos{"C500 2011-03-15 0-1", "H100 1899-12-30 0-1"}));
    EXPECT_EQ(blocks, (Textos{"Factura -C5", "Factura -E6", "Nota de cargo -G7", "Nota de cargo -H9"}));
    EXPECT_EQ(Textos(db.sentencias->begin(), db.sentencias->begin() + 2),
              (Textos{"ALTER TABLE ut_FoliosCBB ADD COLUMN uf_FechaAprobacion DATETIME;",
                      "ALTER TABLE ut_FoliosCBB ADD uf_FechaAprobacion DATETIME;"}));
    EXPECT_FALSE(acc.ModificarFoliosCBB(0));
    UnaCaja("Clave incorrecta.");
    dlgConfigFoliosCBB dlg;
    EXPECT_TRUE(dlg.etxtSerie.Escribir("añ-1 b") && dlg.etxtSerie.Text() == "AÑB" && dlg.etxtSerie.Tecla(8) == 0);
}

TEST_F(FoliosCBB, AFailedInsertionIsToldAndStillClosesTheDialogAccepted) {
    db.Ejecutar("CREATE TRIGGER sin_altas BEFORE INSERT ON ut_FoliosCBB BEGIN SELECT RAISE(ABORT, 'sin altas'); END");
    testing::Capturar(platform.ui, 7, 1, 10);
    EXPECT_TRUE(acc.AgregarFoliosCBB());
    UnaCaja("Error al guardar rango de folios CBB. sin altas");
    EXPECT_EQ(db.Contar("ut_FoliosCBB"), 2);
}

}  // namespace
}  // namespace celdora

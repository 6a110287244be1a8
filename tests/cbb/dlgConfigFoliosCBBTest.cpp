// The CBB range editor on the demo company (schema/README.md): blocks 6
// (Factura E) and 7 (Nota de cargo G) are free; ranges 1 (series C, 1 to 500,
// block 5, no image) and 2 (block 9, no approval date either) are stored.
// The image's way into its row and back is checked in tests/integration.

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
    std::string Fila(int pk) {
        return Texto("SELECT uf_Serie || ' ' || uf_FolioInicial || '-' || uf_FolioFinal || ' ' || uf_BlockDoc || "
                     "' ' || uf_NumAprobacion || ' ' || uf_FechaAprobacion FROM ut_FoliosCBB WHERE Sys_PK=" +
                     std::to_string(pk));
    }
};

// The box of a refusal (text and title), or the row stored.
struct Caso { int block; double inicial, final; std::string serie, mensaje, titulo, fila = ""; };
class Validacion : public FoliosCBB, public ::testing::WithParamInterface<Caso> {};

// Stored beside the demo: range 3, folios 100 to 200 of block 6.
TEST_P(Validacion, ChecksRunInOrderAndARangeCollidesOnlyByItsEndsInItsOwnBlock) {
    db.Ejecutar("INSERT INTO ut_FoliosCBB (uf_FolioInicial,uf_FolioFinal,uf_BlockDoc,uf_NumAprobacion) VALUES (100,200,6,7)");
    testing::Capturar(platform.ui, GetParam().block, GetParam().inicial, GetParam().final, GetParam().serie);
    EXPECT_EQ(acc.AgregarFoliosCBB(), GetParam().mensaje.empty());
    if (!GetParam().mensaje.empty()) UnaCaja(GetParam().mensaje, host::Icono::Informacion, GetParam().titulo);
    EXPECT_EQ(db.Contar("ut_FoliosCBB WHERE Sys_PK=4") == 0 ? "" : Fila(4), GetParam().fila);
}

INSTANTIATE_TEST_SUITE_P(
    Rangos, Validacion,
    ::testing::Values(Caso{6, 5, 5, "", "El Folio Inicial no puede ser igual al Folio Final", "Folios CBB"},
                      Caso{6, 150, 300, "", kTraslape, "Folis CBB"}, Caso{6, 50, 150, "", kTraslape, "Folis CBB"},
                      Caso{6, 50, 300, "", "", "", " 50-300 6 55 2012-05-04 00:00:00"},
                      Caso{6, 201, 300, "e", "", "", "E 201-300 6 55 2012-05-04 00:00:00"},
                      Caso{7, 150, 300, "g", "", "", "G 150-300 7 55 2012-05-04 00:00:00"}));

// Range 2 has no approval date: loading stops there. Range 3, saved inside
// its own folios, does not collide with itself. A failed insertion is told
// and still closes the dialog accepted.
TEST_F(FoliosCBB, StoredRangesLoadUpToAMissingDateAndSaveOverThemselvesInOneTransaction) {
    db.sentencias->clear();
    platform.ui.AlMostrar("dlgConfigFoliosCBB", [&](forms::Dialogo& d) {
        auto& dlg = Editor(d);
        EXPECT_EQ(dlg.etxtSerie.Text() + CStr(dlg.eNumFFinal.Value()) + Format(dlg.eDtFechaAprobacion.Value(),
                  " yyyy-mm-dd ") + CStr(dlg.eNumNAprobacion.Value()) + std::to_string(dlg.cmbBlock.ListIndex()),
                  "H100 1899-12-30 0-1");
        dlg.btnCancel.Pulsar();
    });
    EXPECT_FALSE(acc.ModificarFoliosCBB(2));
    EXPECT_EQ(Textos(db.sentencias->begin(), db.sentencias->begin() + 2),
              (Textos{"ALTER TABLE ut_FoliosCBB ADD COLUMN uf_FechaAprobacion DATETIME;",
                      "ALTER TABLE ut_FoliosCBB ADD uf_FechaAprobacion DATETIME;"}));
    testing::Capturar(platform.ui, 6, 100, 200, "e");
    ASSERT_TRUE(acc.AgregarFoliosCBB());
    // A file chosen and removed again leaves its path, which the save writes.
    platform.ui.AlMostrar("dlgConfigFoliosCBB", [this](forms::Dialogo& d) {
        Editor(d).eNumFFinal.Value(250);
        Editor(d).btnQuitarIMG.Pulsar();
        platform.ui.Elegir(testing::kCbbBmp);
        Editor(d).txtCBB.Pulsar();
        Editor(d).btnQuitarIMG.Pulsar();
        Editor(d).btnOK.Pulsar();
    });
    EXPECT_TRUE(acc.ModificarFoliosCBB(3));
    EXPECT_EQ(Fila(3), "E 100-250 6 55 2012-05-04 00:00:00");
    EXPECT_EQ(db.Valor("SELECT uf_CBB FROM ut_FoliosCBB WHERE Sys_PK=3").AsBytes(), testing::LeerBytes(testing::kCbbBmp));
    db.Ejecutar("CREATE TRIGGER sin_altas BEFORE INSERT ON ut_FoliosCBB BEGIN SELECT RAISE(ABORT, 'sin altas'); END");
    testing::Capturar(platform.ui, 7, 1, 10);
    EXPECT_TRUE(acc.AgregarFoliosCBB());
    platform.ui.ExpectCaja(0, "Error al guardar rango de folios CBB. sin altas", host::Icono::Exclamacion);
    // A failure inside the save rolls back, is told and keeps the dialog up.
    dataObjects->fallarAlIniciar = true;
    testing::Capturar(platform.ui, 6, 100, 200, "", "");
    EXPECT_FALSE(acc.ModificarFoliosCBB(3));
    platform.ui.ExpectCaja(1, "Error: (-2147168242) No se pudo iniciar la transacción.", host::Icono::Exclamacion);
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Confirmar", "Iniciar", "Revertir"}));
}

}  // namespace
}  // namespace celdora

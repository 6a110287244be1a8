// Dialogs of the facade's members drawn by the Qt renderer where the renderer
// does more than forward clicks and keys: the save form behind the file
// picker, and a picture read from the database. What the dialogs make of a
// person's input is tested on their models.

#include <gtest/gtest.h>

#include <QFileDialog>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "core/cAcction.h"
#include "tests/cbb/EditorCBB.h"
#include "tests/platform/qt/PruebaQt.h"
#include "tests/support/CarpetaTemporal.h"
#include "tests/support/CompanyFixture.h"
#include "value/Variant.h"

namespace celdora::testing {
namespace {

class DialogosReglasQt : public ::testing::Test {
protected:
    PlataformaQt qt;
    Vigilante vigilante;
    cAcction acc;
};

TEST_F(DialogosReglasQt, SaveAsGivesThePathChosenInThePicker) {
    CarpetaTemporal carpeta;
    const std::string destino = carpeta / "A-101.xml";
    ResponderSelector(QString::fromStdString(destino), [](QFileDialog*) {
        const auto formas = VentanasDe("frmSaveAs");
        ASSERT_EQ(formas.size(), 1u) << "the form is up behind the picker";
        EXPECT_EQ(formas[0]->windowTitle(), "Guardar como...");
    });
    EXPECT_EQ(acc.ShowSaveAs("Comprobante XML|*.xml|Todos los archivos|*.*", "A-101.xml"), Variant(destino));
}

// The CBB range editor opened on a range whose code image is stored: the
// picture box draws it.
TEST_F(DialogosReglasQt, TheCBBEditorDrawsTheStoredImageOfItsRange) {
    TemporalPrivado temporal;
    CompanyDatabase db(CompanyDatabase::Datos::Demo);
    db.cnn->motor().Ejecutar("UPDATE ut_FoliosCBB SET uf_CBB=? WHERE Sys_PK=1", {LeerBytes(kCbbJpeg)});
    acc.SetDataObjects(db.dataObjects, nullptr);
    AlAparecer([&] {
        QLabel* imagen = Widget<QLabel>(VentanaActiva(), "pctCBB");
        EXPECT_TRUE(imagen && Esperar([&] { return !imagen->pixmap().isNull(); }));
        QTest::mouseClick(Widget<QPushButton>(VentanaActiva(), "btnCancel"), Qt::LeftButton);
    });
    EXPECT_FALSE(acc.ModificarFoliosCBB(1));
}

}  // namespace
}  // namespace celdora::testing

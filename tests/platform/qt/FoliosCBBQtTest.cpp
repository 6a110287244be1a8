// The CBB range editor in Qt, opened on a range whose code image is stored:
// the picture box draws it.

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "core/cAcction.h"
#include "tests/cbb/EditorCBB.h"
#include "tests/platform/qt/PruebaQt.h"
#include "tests/support/CompanyFixture.h"

namespace celdora::testing {
namespace {

TEST(FoliosCBBQt, AStoredImageIsDrawnWhenTheRangeOpens) {
    PlataformaQt qt;
    Vigilante vigilante(20000);
    TemporalPrivado temporal;
    CompanyDatabase db(CompanyDatabase::Datos::Demo);
    db.cnn->motor().Ejecutar("UPDATE ut_FoliosCBB SET uf_CBB=? WHERE Sys_PK=1", {LeerBytes(kCbbJpeg)});
    cAcction acc;
    acc.SetDataObjects(db.dataObjects, nullptr);
    QSize dibujada;
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        ASSERT_NE(v, nullptr);
        EXPECT_EQ(v->windowTitle(), "Rango de Folios CBB");
        QLabel* imagen = Widget<QLabel>(v, "pctCBB");
        if (imagen && Esperar([&] { return !imagen->pixmap().isNull(); })) dibujada = imagen->pixmap().size();
        Captura(v, "dlgConfigFoliosCBB");
        QTest::mouseClick(Widget<QPushButton>(v, "btnCancel"), Qt::LeftButton);
    });
    EXPECT_FALSE(acc.ModificarFoliosCBB(1));
    EXPECT_EQ(dibujada, QSize(125, 125));
}

}  // namespace
}  // namespace celdora::testing

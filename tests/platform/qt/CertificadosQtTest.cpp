// The certificate, folio range and blocks editors drawn by the Qt renderer on
// the demo company: a person clicks, types or ticks on the real widgets.

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTest>
#include <QTreeWidget>

#include "core/Dialogos.h"
#include "core/cAcction.h"
#include "tests/platform/qt/PruebaQt.h"
#include "tests/support/CompanyFixture.h"
#include "value/Convert.h"

namespace celdora::testing {
namespace {

class CertificadosQt : public ::testing::Test {
protected:
    PlataformaQt qt;
    Vigilante vigilante{20000};
    CompanyDatabase db{CompanyDatabase::Datos::Demo};
    cAcction acc;

    void SetUp() override { acc.SetDataObjects(db.dataObjects, nullptr); }
};

// Each editor opened, clicked or typed on: a click on the empty
// certificate field opens the picker; the series takes capitals only; blocks
// ticked in the list of the editor opened by name, as `celdora dialog
// frmBlockXCer` does, go to certificate 1, which held none: block 7 is the
// second item.
TEST_F(CertificadosQt, TheEditorsTakeClicksAndKeysOnTheirWidgets) {
    const QString cer = QString::fromStdString(std::string(CELDORA_SAT_CSD_DIR) + "/csd-EKU9003173C9.cer");
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        ResponderSelector(cer);
        QTest::mouseClick(Widget<QLineEdit>(v, "txtCertificado"), Qt::LeftButton);
        EXPECT_EQ(Widget<QLineEdit>(v, "txtCertificado")->text(), cer);
        QTest::mouseClick(Widget<QWidget>(v, "btnCancel"), Qt::LeftButton);
    });
    EXPECT_EQ(acc.AgregarCertificado(), 0);
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        Teclear(Widget<QLineEdit>(v, "txtSerie"), "e1-b");
        EXPECT_EQ(Widget<QLineEdit>(v, "txtSerie")->text(), "EB");
        QTest::mouseClick(Widget<QWidget>(v, "btnCancel"), Qt::LeftButton);
    });
    EXPECT_EQ(acc.AgregarAprobacionFolios(), 0);
    auto dialogo = dialogos::Crear("frmBlockXCer", acc);
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        auto* lista = Widget<QTreeWidget>(v, "lvw");
        ASSERT_TRUE(Esperar([&] { return lista->topLevelItemCount() == 2; }));
        lista->topLevelItem(1)->setCheckState(0, Qt::Checked);
        QTest::mouseClick(Widget<QWidget>(v, "btnGuardar"), Qt::LeftButton);
    });
    dialogo->ShowModal();
    EXPECT_EQ(CStr(db.Valor("SELECT uf_CFDI_Info FROM BlockDocumentos WHERE Sys_PK=7")), "1");
}

}  // namespace
}  // namespace celdora::testing

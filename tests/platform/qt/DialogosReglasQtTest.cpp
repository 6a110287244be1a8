// The first dialogs of the system, and the CBB range editor, opened through the facade's members and
// drawn by the Qt renderer: a person types and clicks on the real widgets,
// and the member gives back what the dialog's model made of it.

#include <gtest/gtest.h>

#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "rules/cConceptoFacHordana.h"
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

    void TearDown() override { mdlMain::CerrarProgreso(false); }
};

TEST_F(DialogosReglasQt, SummaryBillingChosenOnTheWidgetsComesBackWithItsTexts) {
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        ASSERT_NE(v, nullptr);
        EXPECT_EQ(v->windowTitle(), "Opciones de generación del comprobante");
        auto* resumido = Widget<QRadioButton>(v, "optResumido");
        QTest::mouseClick(resumido, Qt::LeftButton, {}, QPoint(6, resumido->height() / 2));
        // The person types over the text the field holds.
        auto* concepto = Widget<QLineEdit>(v, "txtConcepto");
        concepto->selectAll();
        Teclear(concepto, QStringLiteral("  SERVICIO DE BANQUETE "));
        QTest::keyClick(concepto, Qt::Key_Return);
    });
    const auto conceptos = acc.FormaGenerarComprobanteHordana();
    ASSERT_NE(conceptos, nullptr);
    EXPECT_TRUE(conceptos->Resumido);
    EXPECT_EQ(conceptos->ConceptoResumido, "SERVICIO DE BANQUETE");
    EXPECT_EQ(conceptos->ConceptoResumidoCeroIVA, "OTROS CONCEPTOS SIN IVA");
}

TEST_F(DialogosReglasQt, TheProgressWindowShowsTheBarWithoutWaiting) {
    acc.ShowProgress("Timbrando la factura A-101", 30, "Timbrado", 0, 100);
    const auto ventanas = VentanasDe("frmPB");
    ASSERT_EQ(ventanas.size(), 1u);
    platform::VentanaQt* v = ventanas.front();
    EXPECT_EQ(v->windowTitle(), "Progreso");
    EXPECT_EQ(Widget<QLabel>(v, "lbltitle")->text(), "Timbrado");
    EXPECT_EQ(Widget<QLabel>(v, "lblinfo")->text(), "Este proceso puede tardar varios minutos. Por favor espere...");
    EXPECT_EQ(Widget<QProgressBar>(v, "pb")->value(), 30);
    acc.CloseProgress(true);
    EXPECT_TRUE(VentanasDe("frmPB").empty());
}

TEST_F(DialogosReglasQt, TheMailAddressAndThePaymentFormComeBackAsTypedOrChosen) {
    AlAparecer([] {
        platform::VentanaQt* v = VentanaActiva();
        EXPECT_EQ(v->windowTitle(), "Dirección de correo del destinatario.");
        auto* direccion = Widget<QLineEdit>(v, "Text");
        direccion->selectAll();
        Teclear(direccion, QStringLiteral("ventas@hordana.mx; pagos@hordana.mx"));
        QTest::mouseClick(Widget<QPushButton>(v, "btnOK"), Qt::LeftButton);
    });
    EXPECT_EQ(acc.getAddress("cliente@correo.mx"), "ventas@hordana.mx; pagos@hordana.mx");

    AlAparecer([] {
        platform::VentanaQt* v = VentanaActiva();
        EXPECT_EQ(v->windowTitle(), "Forma de pago");
        QTest::keyClick(Widget<QComboBox>(v, "cmbFP"), Qt::Key_Down);
        QTest::mouseClick(Widget<QPushButton>(v, "btnOK"), Qt::LeftButton);
    });
    EXPECT_EQ(acc.SolicitarFormaPago(), "CRÉDITO");
}

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

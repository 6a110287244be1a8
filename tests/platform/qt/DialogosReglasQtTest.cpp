// The first dialogs of the system, and the CBB range editor, opened through the facade's members and
// drawn by the Qt renderer: a person types and clicks on the real widgets,
// and the member gives back what the dialog's model made of it.

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <memory>
#include <string>

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

// A window drawing a dialog of this class, up and not done; null when none.
platform::VentanaQt* VentanaDeClase(const std::string& clase) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* ventana = dynamic_cast<platform::VentanaQt*>(widget);
        if (ventana != nullptr && !ventana->Terminada() && ventana->Modelo().Clase() == clase) return ventana;
    }
    return nullptr;
}

// Replaces a line's text as a person does: all selected, then typed over.
void Reescribir(QLineEdit* linea, const QString& texto) {
    linea->selectAll();
    QTest::keyClick(linea, Qt::Key_Delete);
    Teclear(linea, texto);
}

class DialogosReglasQt : public ::testing::Test {
protected:
    PlataformaQt qt;
    Vigilante vigilante;
    cAcction acc;

    void TearDown() override { mdlMain::CerrarProgreso(false); }
};

TEST_F(DialogosReglasQt, SummaryBillingChosenOnTheWidgetsComesBackWithItsTexts) {
    qt.ui.MousePointer(host::Puntero::Reloj);
    CajaVista aviso;
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        ASSERT_NE(v, nullptr);
        EXPECT_EQ(v->windowTitle(), "Opciones de generación del comprobante");
        EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "the dialog shows the normal pointer";
        auto* concepto = Widget<QLineEdit>(v, "txtConcepto");
        auto* otro = Widget<QLineEdit>(v, "txtOtro");
        EXPECT_FALSE(concepto->isEnabled()) << "the detailed form is on when the dialog opens";
        EXPECT_EQ(Rotulo(Widget<QLineEdit>(v, "txtUnidad1")), "Unidad:");

        auto* resumido = Widget<QRadioButton>(v, "optResumido");
        QTest::mouseClick(resumido, Qt::LeftButton, {}, QPoint(6, resumido->height() / 2));
        EXPECT_TRUE(concepto->isEnabled());
        EXPECT_FALSE(Widget<QRadioButton>(v, "optDetallado")->isChecked());
        Reescribir(concepto, QStringLiteral("  SERVICIO DE BANQUETE "));
        Reescribir(Widget<QLineEdit>(v, "txtUnidad1"), QStringLiteral("SERVICIO"));
        Reescribir(otro, QString());

        // The second text is demanded: a box, the focus on it, the dialog up.
        ResponderCaja(aviso, "Aceptar");
        QTest::mouseClick(Widget<QPushButton>(v, "btnAceptar"), Qt::LeftButton);
        EXPECT_TRUE(v->isVisible());
        ASSERT_NE(v->Modelo().Foco(), nullptr);
        EXPECT_EQ(v->Modelo().Foco()->Nombre(), "txtOtro");
        EXPECT_EQ(v->focusWidget(), otro);

        Teclear(otro, QStringLiteral("BEBIDAS SIN IVA"));
        Captura(v, "dlgFormaFacturacionHordana");
        QTest::keyClick(otro, Qt::Key_Return);
    });
    const auto conceptos = acc.FormaGenerarComprobanteHordana();
    EXPECT_EQ(aviso.texto, "Escriba la descripción del concepto sin impuestos a facturar.");
    ASSERT_NE(conceptos, nullptr);
    EXPECT_TRUE(conceptos->Resumido);
    EXPECT_EQ(conceptos->UnidadC1, "SERVICIO");
    EXPECT_EQ(conceptos->ConceptoResumido, "SERVICIO DE BANQUETE");
    EXPECT_EQ(conceptos->UnidadC2, "PZA");
    EXPECT_EQ(conceptos->ConceptoResumidoCeroIVA, "BEBIDAS SIN IVA");
    ASSERT_NE(QApplication::overrideCursor(), nullptr) << "the pointer is put back on unload";
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    qt.ui.MousePointer(host::Puntero::Normal);
}

TEST_F(DialogosReglasQt, TheProgressWindowShowsTheBarWithoutWaiting) {
    acc.ShowProgress("Timbrando la factura A-101", 30, "Timbrado", 0, 100);
    platform::VentanaQt* v = VentanaDeClase("frmPB");
    ASSERT_NE(v, nullptr);
    EXPECT_TRUE(v->isVisible());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "nothing waits";
    EXPECT_EQ(v->windowTitle(), "Progreso");
    EXPECT_EQ(Widget<QLabel>(v, "lbltitle")->text(), "Timbrado");
    EXPECT_EQ(Widget<QLabel>(v, "lblinfo")->text(), "Este proceso puede tardar varios minutos. Por favor espere...");
    EXPECT_EQ(Widget<QProgressBar>(v, "pb")->value(), 30);

    acc.ShowProgress("Enviando por correo", 60);
    EXPECT_EQ(Widget<QLabel>(v, "lblcmd")->text(), "Enviando por correo");
    EXPECT_EQ(Widget<QProgressBar>(v, "pb")->value(), 60);
    Captura(v, "frmPB");

    QPointer<platform::VentanaQt> ventana = v;
    acc.CloseProgress(true);
    EXPECT_TRUE(ventana.isNull() || ventana->isHidden());
    EXPECT_EQ(VentanaDeClase("frmPB"), nullptr);
}

TEST_F(DialogosReglasQt, TheMailAddressesAreGivenBackAsTyped) {
    AlAparecer([] {
        platform::VentanaQt* v = VentanaActiva();
        EXPECT_EQ(v->windowTitle(), "Dirección de correo del destinatario.");
        auto* direccion = Widget<QLineEdit>(v, "Text");
        EXPECT_EQ(direccion->text(), "cliente@correo.mx");
        Reescribir(direccion, QStringLiteral("ventas@hordana.mx; pagos@hordana.mx"));
        Captura(v, "dlgAddress");
        QTest::mouseClick(Widget<QPushButton>(v, "btnOK"), Qt::LeftButton);
    });
    EXPECT_EQ(acc.getAddress("cliente@correo.mx"), "ventas@hordana.mx; pagos@hordana.mx");
}

TEST_F(DialogosReglasQt, ThePaymentFormIsTheTextChosenInTheCombo) {
    AlAparecer([] {
        platform::VentanaQt* v = VentanaActiva();
        EXPECT_EQ(v->windowTitle(), "Forma de pago");
        auto* formas = Widget<QComboBox>(v, "cmbFP");
        EXPECT_EQ(formas->currentText(), "PAGO EN UNA SOLA EXHIBICIÓN");
        QTest::keyClick(formas, Qt::Key_Down);
        Captura(v, "dlgFormaPago");
        QTest::mouseClick(Widget<QPushButton>(v, "btnOK"), Qt::LeftButton);
    });
    EXPECT_EQ(acc.SolicitarFormaPago(), "CRÉDITO");

    AlAparecer([] { QTest::keyClick(Widget<QComboBox>(VentanaActiva(), "cmbFP"), Qt::Key_Escape); });
    EXPECT_EQ(acc.SolicitarFormaPago(), "");
}

TEST_F(DialogosReglasQt, SaveAsGivesThePathChosenInThePickerOrNothing) {
    CarpetaTemporal carpeta;
    const std::string destino = carpeta / "A-101.xml";
    QStringList filtros;
    bool formaArriba = false;
    ResponderSelector(QString::fromStdString(destino), [&](QFileDialog* selector) {
        platform::VentanaQt* forma = VentanaDeClase("frmSaveAs");
        formaArriba = forma != nullptr && forma->isVisible() && forma->windowTitle() == "Guardar como...";
        filtros = selector->nameFilters();
        Captura(selector, "frmSaveAs");
    });
    EXPECT_EQ(acc.ShowSaveAs("Comprobante XML|*.xml|Todos los archivos|*.*", "A-101.xml"), Variant(destino));
    EXPECT_TRUE(formaArriba);
    EXPECT_EQ(filtros, (QStringList{"Comprobante XML (*.xml)", "Todos los archivos (*.*)"}));
    EXPECT_EQ(VentanaDeClase("frmSaveAs"), nullptr) << "the form is unloaded";

    ResponderSelector(std::nullopt);
    EXPECT_EQ(acc.ShowSaveAs("Comprobante XML|*.xml"), Variant(std::string()));
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
        Captura(VentanaActiva(), "dlgConfigFoliosCBB");
        QTest::mouseClick(Widget<QPushButton>(VentanaActiva(), "btnCancel"), Qt::LeftButton);
    });
    EXPECT_FALSE(acc.ModificarFoliosCBB(1));
}

}  // namespace
}  // namespace celdora::testing

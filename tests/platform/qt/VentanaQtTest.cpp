#include "platform/qt/VentanaQt.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QImage>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <QTreeWidget>

#include "forms/Controles.h"
#include "platform/common/Catalogo.h"
#include "tests/platform/qt/PruebaQt.h"
#include "tests/support/CarpetaTemporal.h"
#include "tests/support/CompanyFixture.h"

namespace celdora::testing {
namespace {

using Eventos = std::vector<std::string>;

// A dialog with one control of each kind a renderer meets most, whose
// handlers write down what they were told.
class DlgPrueba : public forms::Dialogo {
public:
    DlgPrueba() : Dialogo("dlgPrueba", "Datos del cliente") {
        txtClave.PasswordChar("*");
        cmbForma.AddItem("PAGO EN UNA SOLA EXHIBICIÓN");
        cmbForma.AddItem("CRÉDITO");
        optFisica.Colocar("fraTipo");
        optMoral.Colocar("fraTipo");
        eNumTotal.Decimals(2);
        eNumTotal.Colocar("tabDatos", 0);
        eDtFecha.Value(DateSerial(2026, 11, 22));
        eDtFecha.Colocar("tabDatos", 1);
        lvwDocs.AgregarColumna("Serie", 6);
        lvwDocs.AgregarColumna("Folio");
        lvwDocs.Checkboxes(true);
        lvwDocs.SubItem(lvwDocs.Add("k1", "A"), 1, "101");
        lvwDocs.SubItem(lvwDocs.Add("k2", "B"), 1, "202");
        lvwDocs.Checked(1, true);
        grdTotales.Valor(grdTotales.Append(), "importe", Variant(1500.5));
        pb.Visible(false);
        eDtFecha.Enabled(false);
        btnAceptar.Default(true);
        btnCancelar.Cancel(true);
        Escuchar();
    }

    Eventos eventos;
    forms::TextBox& txtNombre = Agregar<forms::TextBox>("txtNombre", "Nombre:");
    forms::TextBox& txtClave = Agregar<forms::TextBox>("txtClave", "Contraseña:");
    forms::ComboBox& cmbForma = Agregar<forms::ComboBox>("cmbForma", forms::ComboBox::Estilo::SoloLista, "Forma de pago:");
    forms::CheckBox& chkActivo = Agregar<forms::CheckBox>("chkActivo", "Cliente activo");
    forms::Frame& fraTipo = Agregar<forms::Frame>("fraTipo", "Tipo de persona");
    forms::OptionButton& optFisica = Agregar<forms::OptionButton>("optFisica", "Física", true);
    forms::OptionButton& optMoral = Agregar<forms::OptionButton>("optMoral", "Moral");
    forms::TabControl& tabDatos = Agregar<forms::TabControl>("tabDatos", std::vector<std::string>{"Importe", "Fechas"});
    forms::NumberField& eNumTotal = Agregar<forms::NumberField>("eNumTotal", "Total:");
    forms::DateField& eDtFecha = Agregar<forms::DateField>("eDtFecha", "Fecha:");
    forms::ListView& lvwDocs = Agregar<forms::ListView>("lvwDocs");
    forms::Grid& grdTotales = Agregar<forms::Grid>(
        "grdTotales", std::vector<forms::ColumnaGrid>{{"concepto", "Concepto", false}, {"importe", "Importe", true}});
    forms::ProgressBar& pb = Agregar<forms::ProgressBar>("pb");
    forms::PictureBox& imgCBB = Agregar<forms::PictureBox>("imgCBB");
    forms::CommonDialog& cdlArchivo = Agregar<forms::CommonDialog>("cdlArchivo");
    forms::CommandButton& btnAceptar = Agregar<forms::CommandButton>("btnAceptar", "&Aceptar");
    forms::CommandButton& btnCancelar = Agregar<forms::CommandButton>("btnCancelar", "&Cancelar");

private:
    void Escuchar() {
        auto anotar = [this](const std::string& evento) { eventos.push_back(evento); };
        txtNombre.Change = [=, this] { anotar("txtNombre.Change " + txtNombre.Text()); };
        txtNombre.Click = [=] { anotar("txtNombre.Click"); };
        chkActivo.Click = [=, this] { anotar("chkActivo.Click " + std::to_string(chkActivo.Value())); };
        optMoral.Click = [=] { anotar("optMoral.Click"); };
        tabDatos.Click = [=, this] { anotar("tabDatos.Click " + std::to_string(tabDatos.SelectedItem())); };
        lvwDocs.ItemClick = [=](int i) { anotar("lvwDocs.ItemClick " + std::to_string(i)); };
        lvwDocs.ItemCheck = [=](int i) { anotar("lvwDocs.ItemCheck " + std::to_string(i)); };
        btnAceptar.Click = [=, this] {
            anotar("btnAceptar.Click");
            Aceptado = true;
            Hide();
        };
        btnCancelar.Click = [=, this] {
            anotar("btnCancelar.Click");
            Hide();
        };
    }
};

class VentanaQtTest : public ::testing::Test {
protected:
    PlataformaQt qt;
    Vigilante vigilante;
    DlgPrueba dlg;

    // Where a person clicks a check box or option button: on its mark.
    static void Marcar(QWidget* boton) { QTest::mouseClick(boton, Qt::LeftButton, {}, QPoint(6, boton->height() / 2)); }
};

TEST_F(VentanaQtTest, DrawsEachControlInItsContainerAndFollowsTheModelAndTheFocus) {
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        ASSERT_NE(v, nullptr);
        EXPECT_EQ(v->windowTitle(), "Datos del cliente");
        auto* nombre = Widget<QLineEdit>(v, "txtNombre");
        EXPECT_EQ(Rotulo(nombre), "Nombre:");
        // The first field takes the focus when the window comes up; the
        // person's focus goes to the model and the model's to the widgets.
        v->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(v));
        EXPECT_TRUE(nombre->hasFocus());
        Widget<QLineEdit>(v, "txtClave")->setFocus(Qt::TabFocusReason);
        EXPECT_EQ(dlg.Foco(), &dlg.txtClave);
        dlg.txtNombre.SetFocus();
        EXPECT_TRUE(nombre->hasFocus());
        // A list taking the focus makes its first row current; that is no
        // click of the person's.
        auto* vista = Widget<QTreeWidget>(v, "lvwDocs");
        vista->setFocus(Qt::TabFocusReason);
        EXPECT_EQ(dlg.Foco(), &dlg.lvwDocs);
        EXPECT_EQ(dlg.lvwDocs.SelectedItem(), -1);
        EXPECT_EQ(Widget<QLineEdit>(v, "txtClave")->echoMode(), QLineEdit::Password);
        auto* marco = Widget<QGroupBox>(v, "fraTipo");
        EXPECT_EQ(marco->title(), "Tipo de persona");
        auto* fisica = Widget<QRadioButton>(v, "optFisica");
        EXPECT_TRUE(marco->isAncestorOf(fisica));
        auto* pestanas = Widget<QTabWidget>(v, "tabDatos");
        EXPECT_EQ(pestanas->tabText(1), "Fechas");
        auto* total = Widget<QStackedWidget>(v, "eNumTotal");
        EXPECT_TRUE(pestanas->widget(0)->isAncestorOf(total));
        auto* fecha = Widget<QDateEdit>(v, "eDtFecha");
        EXPECT_TRUE(pestanas->widget(1)->isAncestorOf(fecha));
        EXPECT_EQ(fecha->date(), QDate(2026, 11, 22));
        EXPECT_FALSE(fecha->isEnabled());
        ASSERT_EQ(vista->topLevelItemCount(), 2);
        EXPECT_EQ(vista->headerItem()->text(1), "Folio");
        EXPECT_EQ(vista->topLevelItem(1)->checkState(0), Qt::Checked);
        auto* tabla = Widget<QTableWidget>(v, "grdTotales");
        ASSERT_EQ(tabla->rowCount(), 1);
        EXPECT_EQ(tabla->horizontalHeaderItem(1)->text(), "Importe");
        EXPECT_EQ(tabla->item(0, 1)->text(), "1500.5");
        EXPECT_TRUE(tabla->item(0, 1)->textAlignment() & Qt::AlignRight);
        EXPECT_EQ(v->findChild<QWidget*>("cdlArchivo"), nullptr) << "a common dialog has no widget";
        EXPECT_TRUE(Widget<QProgressBar>(v, "pb")->isHidden());
        EXPECT_TRUE(Widget<QPushButton>(v, "btnAceptar")->isDefault());
        Captura(v, "ventana_controles");

        // What the code changes in the model shows at once.
        dlg.txtNombre.Text("Luisa");
        EXPECT_EQ(nombre->text(), "Luisa");
        dlg.txtNombre.Locked(true);
        EXPECT_TRUE(nombre->isReadOnly());
        dlg.cmbForma.ListIndex(1);
        EXPECT_EQ(Widget<QComboBox>(v, "cmbForma")->currentText(), "CRÉDITO");
        dlg.chkActivo.Value(2);
        EXPECT_EQ(Widget<QCheckBox>(v, "chkActivo")->checkState(), Qt::PartiallyChecked);
        dlg.optMoral.Value(true);
        EXPECT_FALSE(fisica->isChecked());
        dlg.tabDatos.SelectedItem(1);
        EXPECT_EQ(pestanas->currentIndex(), 1);
        dlg.eNumTotal.Format("$ #,#.00");
        dlg.eNumTotal.Value(1234.5);
        dlg.eNumTotal.Locked(true);
        EXPECT_DOUBLE_EQ(total->findChild<QDoubleSpinBox*>()->value(), 1234.5);
        auto* mostrado = qobject_cast<QLineEdit*>(total->currentWidget());
        ASSERT_NE(mostrado, nullptr) << "a locked number field shows its text";
        EXPECT_EQ(mostrado->text(), "$ 1,234.50");
        dlg.pb.Value(40);
        EXPECT_EQ(Widget<QProgressBar>(v, "pb")->value(), 40);
        dlg.Caption("Cliente nuevo");
        EXPECT_EQ(v->windowTitle(), "Cliente nuevo");
        // A picture loaded by the user interface service shows in its box.
        CarpetaTemporal carpeta;
        QImage imagen(24, 16, QImage::Format_RGB32);
        imagen.fill(Qt::darkBlue);
        ASSERT_TRUE(imagen.save(QString::fromStdString(carpeta / "cbb.png"), "PNG"));
        dlg.imgCBB.Picture(qt.ui.LoadPicture(carpeta / "cbb.png"));
        EXPECT_EQ(Widget<QLabel>(v, "imgCBB")->pixmap().size(), QSize(24, 16));
        // A list is drawn again once the message loop turns.
        dlg.lvwDocs.SubItem(dlg.lvwDocs.Add("k3", "C"), 1, "303");
        dlg.lvwDocs.SelectedItem(2);
        ASSERT_TRUE(Esperar([&] { return vista->topLevelItemCount() == 3; })) << "the list was not drawn again";
        EXPECT_EQ(vista->topLevelItem(2)->text(1), "303");
        EXPECT_EQ(vista->currentItem(), vista->topLevelItem(2));
        Captura(v, "ventana_cambios_del_modelo");
        dlg.Hide();
    });
    dlg.ShowModal();
}

TEST_F(VentanaQtTest, ThePersonsActionsOnTheWidgetsRaiseTheModelsEvents) {
    // Digits are thrown away and small letters become capitals, as the key
    // filters of the system do.
    dlg.txtNombre.KeyPress = [](int& tecla) {
        if (tecla >= '0' && tecla <= '9') tecla = 0;
        if (tecla >= 'a' && tecla <= 'z') tecla -= 32;
        if (tecla == 241) tecla = 209;
    };
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        auto* nombre = Widget<QLineEdit>(v, "txtNombre");
        QTest::mouseClick(nombre, Qt::LeftButton);
        Teclear(nombre, QStringLiteral("pe1ña"));
        QTest::keyClick(nombre, Qt::Key_Backspace);
        Marcar(Widget<QCheckBox>(v, "chkActivo"));
        auto* moral = Widget<QRadioButton>(v, "optMoral");
        Marcar(moral);
        Marcar(moral);
        EXPECT_TRUE(moral->isChecked()) << "clicking the button that is on leaves it on";
        auto* pestanas = Widget<QTabWidget>(v, "tabDatos");
        pestanas->setCurrentIndex(1);
        auto* vista = Widget<QTreeWidget>(v, "lvwDocs");
        QTest::mouseClick(vista->viewport(), Qt::LeftButton, {}, vista->visualItemRect(vista->topLevelItem(1)).center());
        QTest::keyClick(vista, Qt::Key_Up);
        vista->topLevelItem(0)->setCheckState(0, Qt::Checked);
        pestanas->setCurrentIndex(0);
        dlg.tabDatos.PaginaHabilitada(1, false);
        EXPECT_FALSE(pestanas->isTabEnabled(1)) << "a page out of use can't be opened";
        auto* giro = Widget<QStackedWidget>(v, "eNumTotal")->findChild<QDoubleSpinBox*>();
        giro->selectAll();
        Teclear(giro, QStringLiteral("7.25"));
        EXPECT_DOUBLE_EQ(dlg.eNumTotal.Value(), 7.25);
        Captura(v, "ventana_acciones");
        QTest::keyClick(nombre, Qt::Key_Return);
    });
    dlg.ShowModal();
    EXPECT_EQ(dlg.eventos, (Eventos{"txtNombre.Click", "txtNombre.Change P", "txtNombre.Change PE",
                                    "txtNombre.Change PEÑ", "txtNombre.Change PEÑA", "txtNombre.Change PEÑ",
                                    "chkActivo.Click 1", "optMoral.Click", "tabDatos.Click 1", "lvwDocs.ItemClick 1",
                                    "lvwDocs.ItemClick 0", "lvwDocs.ItemCheck 0", "tabDatos.Click 0",
                                    "btnAceptar.Click"}));
}

// Enter pressing the default button ends the test above.
TEST_F(VentanaQtTest, EnterPressesNoDisabledDefaultButtonAndEscapePressesTheCancelOne) {
    dlg.btnAceptar.Enabled(false);
    AlAparecer([&] {
        QTest::keyClick(Widget<QLineEdit>(VentanaActiva(), "txtNombre"), Qt::Key_Return);
        QTest::keyClick(Widget<QLineEdit>(VentanaActiva(), "txtNombre"), Qt::Key_Escape);
    });
    dlg.ShowModal();
    EXPECT_EQ(dlg.eventos, (Eventos{"btnCancelar.Click"}));
}

// A dialog that keeps itself open the first time a person closes it, and
// whose buttons hide it and show it again, show another one over it, or fail.
class DlgVueltas : public forms::Dialogo {
public:
    DlgVueltas() : Dialogo("dlgVueltas", "Vueltas") {
        Agregar<forms::CommandButton>("btnOtra", "Otra vez").Click = [this] {
            Hide();
            if (++vueltas < 2) ShowModal();
        };
        Agregar<forms::CommandButton>("btnEncima", "Encima").Click = [this] { encima.ShowModal(); };
        Agregar<forms::CommandButton>("btnFalla", "Falla").Click = [] { throw Fault{5, "Invalid procedure call"}; };
    }
    int vueltas = 0;
    int preguntas = 0;
    DlgPrueba encima;

protected:
    bool Form_QueryUnload() override { return ++preguntas > 1; }
};

TEST(VentanaQtModal, HandlersShowDialogsOverTheirOwnShowTheirOwnAgainAndLetFaultsOut) {
    PlataformaQt qt;
    Vigilante vigilante;
    DlgVueltas dlg;
    AlAparecer([&] {
        platform::VentanaQt* primera = VentanaActiva();
        // A dialog shown from a handler waits over the first one.
        AlAparecer([&, primera] {
            platform::VentanaQt* segunda = VentanaActiva();
            EXPECT_TRUE(primera->isVisible());
            Teclear(Widget<QLineEdit>(segunda, "txtNombre"), QStringLiteral("Ana"));
            Captura(segunda, "ventana_encima");
            QTest::mouseClick(Widget<QPushButton>(segunda, "btnAceptar"), Qt::LeftButton);
        });
        QTest::mouseClick(Widget<QPushButton>(primera, "btnEncima"), Qt::LeftButton);
        EXPECT_EQ(VentanaActiva(), primera) << "the first window waits again";
        EXPECT_EQ(dlg.encima.txtNombre.Text(), "Ana");
        // A handler that hides its dialog and shows it again gets a new
        // window; a fault in a handler there ends every wait and comes out.
        AlAparecer([&, primera] {
            platform::VentanaQt* otra = VentanaActiva();
            EXPECT_TRUE(primera->isHidden() && primera->Terminada());
            Captura(otra, "ventana_otra_vez");
            QTest::mouseClick(Widget<QPushButton>(otra, "btnFalla"), Qt::LeftButton);
        });
        QTest::mouseClick(Widget<QPushButton>(primera, "btnOtra"), Qt::LeftButton);
    });
    try {
        dlg.ShowModal();
        ADD_FAILURE() << "the fault did not come out";
    } catch (const Fault& falla) {
        EXPECT_EQ(falla.number, 5);
    }
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST(VentanaQtSinEsperar, TheWindowFollowsItsModelUntilClosedOrDestroyed) {
    PlataformaQt qt;
    DlgVueltas frm;
    frm.Show();
    frm.Show();
    ASSERT_EQ(VentanasDe("dlgVueltas").size(), 1u) << "shown twice, one window";
    QPointer<platform::VentanaQt> ventana = VentanasDe("dlgVueltas").front();
    Captura(ventana, "ventana_sin_esperar");

    // A fault in a handler comes out of the next DoEvents, and only once.
    QTest::mouseClick(Widget<QPushButton>(ventana, "btnFalla"), Qt::LeftButton);
    try {
        qt.ui.DoEvents();
        ADD_FAILURE() << "the fault did not come out";
    } catch (const Fault& falla) {
        EXPECT_EQ(falla.number, 5);
    }
    EXPECT_NO_THROW(qt.ui.DoEvents());

    // Closing the window asks the model, which keeps it open the first time.
    ventana->close();
    EXPECT_TRUE(ventana->isVisible());
    ventana->close();
    EXPECT_EQ(frm.preguntas, 2);
    EXPECT_FALSE(frm.Cargado());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(ventana.isNull());

    auto otro = std::make_unique<DlgVueltas>();
    otro->Show();
    ASSERT_EQ(VentanasDe("dlgVueltas").size(), 1u);
    QPointer<platform::VentanaQt> suya = VentanasDe("dlgVueltas").front();
    otro.reset();
    EXPECT_TRUE(suya->Terminada() && suya->isHidden()) << "a destroyed model takes its window down";
}

// The controls the first dialog lacks: a memo, an editable combo, list boxes
// with and without check boxes, and the host's address control with the
// street and numbers apart and the demo company's places.
class DlgListas : public forms::Dialogo {
public:
    DlgListas() : Dialogo("dlgListas", "Listas") {
        cmbSerie.AddItem("A");
        cmbSerie.AddItem("FAC");
        lstRegimenes.AddItem("General de Ley Personas Morales");
        lstRegimenes.AddItem("Régimen Simplificado de Confianza");
        for (const char* mes : {"Enero", "Febrero", "Marzo"}) lstMeses.AddItem(mes);
        eDir.titulo("Domicilio del emisor");
        eDir.direccionSeparada(true);
        cmbSerie.Change = [this] { eventos.push_back("cmbSerie.Change " + cmbSerie.Text()); };
        cmbSerie.Click = [this] { eventos.push_back("cmbSerie.Click " + cmbSerie.Text()); };
        lstRegimenes.ItemCheck = [this](int i) { eventos.push_back("lstRegimenes.ItemCheck " + std::to_string(i)); };
        lstMeses.Click = [this] { eventos.push_back("lstMeses.Click " + std::to_string(lstMeses.ListIndex())); };
    }
    Eventos eventos;
    forms::Memo& txtNotas = Agregar<forms::Memo>("txtNotas", "Notas:");
    forms::ComboBox& cmbSerie = Agregar<forms::ComboBox>("cmbSerie", forms::ComboBox::Estilo::Editable, "Serie:");
    forms::ListBox& lstRegimenes = Agregar<forms::ListBox>("lstRegimenes", true, "Regímenes:");
    forms::ListBox& lstMeses = Agregar<forms::ListBox>("lstMeses", false, "Mes:");
    forms::AddressControl& eDir = Agregar<forms::AddressControl>("eDir");
};

TEST(VentanaQtListas, MemoEditableComboListBoxesAndAddressBothWays) {
    PlataformaQt qt;
    Vigilante vigilante;
    CompanyDatabase db(CompanyDatabase::Datos::Demo);
    DlgListas dlg;
    dlg.eDir.conectar(platform::CatalogoPaises(db.cnn).nvlands());
    dlg.eDir.canaddcountry = false;
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        auto* notas = Widget<QPlainTextEdit>(v, "txtNotas");
        Teclear(notas, QStringLiteral("Entrega en almacén"));
        EXPECT_EQ(dlg.txtNotas.Text(), "Entrega en almacén");
        dlg.txtNotas.Text("Primera línea\nSegunda");
        EXPECT_EQ(notas->toPlainText(), "Primera línea\nSegunda");

        auto* serie = Widget<QComboBox>(v, "cmbSerie");
        Teclear(serie, QStringLiteral("FA"));
        EXPECT_EQ(dlg.cmbSerie.ListIndex(), -1) << "no completion of the item behind the model's back";
        QTest::keyClick(serie, Qt::Key_Down);
        dlg.cmbSerie.Text("B-2026");
        EXPECT_EQ(serie->currentText(), "B-2026");

        auto* regimenes = Widget<QListWidget>(v, "lstRegimenes");
        regimenes->item(1)->setCheckState(Qt::Checked);
        dlg.lstRegimenes.Selected(0, true);
        EXPECT_EQ(regimenes->item(0)->checkState(), Qt::Checked);

        auto* meses = Widget<QListWidget>(v, "lstMeses");
        EXPECT_FALSE(meses->item(0)->data(Qt::CheckStateRole).isValid()) << "a plain list has no check boxes";
        QTest::mouseClick(meses->viewport(), Qt::LeftButton, {}, meses->visualItemRect(meses->item(2)).center());
        QTest::keyClick(meses, Qt::Key_Up);
        dlg.lstMeses.RemoveItem(0);
        EXPECT_EQ(meses->count(), 2);

        auto* caja = Widget<QGroupBox>(v, "eDir");
        EXPECT_EQ(caja->title(), "Domicilio del emisor");
        EXPECT_TRUE(Widget<QLineEdit>(caja, "direccion")->isHidden()) << "the street goes apart";
        Teclear(Widget<QLineEdit>(caja, "calle"), QStringLiteral("Av. Juárez"));
        EXPECT_TRUE(Widget<QPushButton>(caja, "agregarPais")->isHidden());
        ElegirEn(Widget<QComboBox>(caja, "pais"), QStringLiteral("México"));
        ElegirEn(Widget<QComboBox>(caja, "estado"), QStringLiteral("Nuevo León"));
        ElegirEn(Widget<QComboBox>(caja, "ciudad"), QStringLiteral("Monterrey"));
        EXPECT_EQ((std::vector{dlg.eDir.pais(), dlg.eDir.estado(), dlg.eDir.ciudad()}), (std::vector{1, 1, 2}));
        AlAparecer([&] {
            auto* pide = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(pide, nullptr);
            pide->setTextValue(QStringLiteral("San Pedro Garza García"));
            pide->accept();
        });
        QTest::mouseClick(Widget<QPushButton>(caja, "agregarCiudad"), Qt::LeftButton);
        dlg.eDir.direccionSeparada(false);
        EXPECT_EQ(Widget<QLineEdit>(caja, "direccion")->text(), "||Av. Juárez||");
        Captura(v, "ventana_listas");
        dlg.Hide();
    });
    dlg.ShowModal();
    EXPECT_EQ(dlg.eventos, (Eventos{"cmbSerie.Change F", "cmbSerie.Change FA", "cmbSerie.Click A",
                                    "cmbSerie.Change B-2026", "lstRegimenes.ItemCheck 1", "lstRegimenes.ItemCheck 0",
                                    "lstMeses.Click 2", "lstMeses.Click 1"}));
    EXPECT_EQ(dlg.eDir.ciudad(), 6);
    EXPECT_EQ(db.Contar("Ciudad WHERE Sys_PK = 6 AND Nombre = 'San Pedro Garza García' AND IEstado = 1"), 1);
}

}  // namespace
}  // namespace celdora::testing

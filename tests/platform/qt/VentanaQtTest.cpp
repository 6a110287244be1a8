#include "platform/qt/VentanaQt.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDoubleSpinBox>
#include <QGroupBox>
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
#include <string>
#include <vector>

#include "forms/Controles.h"
#include "forms/Dialogo.h"
#include "tests/platform/qt/PruebaQt.h"
#include "value/Fault.h"

namespace celdora::testing {
namespace {

using platform::Qs;

// A dialog with one control of each kind a renderer meets most, whose
// handlers write down what they were told.
class DlgPrueba : public forms::Dialogo {
public:
    DlgPrueba() : Dialogo("dlgPrueba", "Datos del cliente") {
        txtClave.PasswordChar("*");
        cmbForma.AddItem("PAGO EN UNA SOLA EXHIBICIÓN");
        cmbForma.AddItem("CRÉDITO");
        cmbForma.ListIndex(0);
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
        const int fila = grdTotales.Append();
        grdTotales.Valor(fila, "concepto", Variant(std::string("Ventas")));
        grdTotales.Valor(fila, "importe", Variant(1500.5));
        txtOculto.Visible(false);
        txtBloqueado.Enabled(false);
        btnAceptar.Default(true);
        btnCancelar.Cancel(true);
        Escuchar();
    }

    std::vector<std::string> eventos;
    forms::Label& lblAviso = Agregar<forms::Label>("lblAviso", "Escriba los datos del cliente.");
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
    forms::CommonDialog& cdlArchivo = Agregar<forms::CommonDialog>("cdlArchivo");
    forms::TextBox& txtOculto = Agregar<forms::TextBox>("txtOculto", "Oculto:");
    forms::TextBox& txtBloqueado = Agregar<forms::TextBox>("txtBloqueado", "Clave fiscal:", "XAXX010101000");
    forms::CommandButton& btnAceptar = Agregar<forms::CommandButton>("btnAceptar", "&Aceptar");
    forms::CommandButton& btnCancelar = Agregar<forms::CommandButton>("btnCancelar", "&Cancelar");

private:
    void Escuchar() {
        auto anotar = [this](const std::string& evento) { eventos.push_back(evento); };
        txtNombre.Change = [=, this] { anotar("txtNombre.Change " + txtNombre.Text()); };
        txtNombre.Click = [=] { anotar("txtNombre.Click"); };
        cmbForma.Click = [=, this] { anotar("cmbForma.Click " + cmbForma.Text()); };
        chkActivo.Click = [=, this] { anotar("chkActivo.Click " + std::to_string(chkActivo.Value())); };
        optFisica.Click = [=] { anotar("optFisica.Click"); };
        optMoral.Click = [=] { anotar("optMoral.Click"); };
        tabDatos.Click = [=, this] { anotar("tabDatos.Click " + std::to_string(tabDatos.SelectedItem())); };
        eNumTotal.Change = [=] { anotar("eNumTotal.Change"); };
        lvwDocs.ItemClick = [this](int i) { eventos.push_back("lvwDocs.ItemClick " + std::to_string(i)); };
        lvwDocs.ItemCheck = [this](int i) { eventos.push_back("lvwDocs.ItemCheck " + std::to_string(i)); };
        btnAceptar.Click = [this] {
            eventos.push_back("btnAceptar.Click");
            Aceptado = true;
            Hide();
        };
        btnCancelar.Click = [this] {
            eventos.push_back("btnCancelar.Click");
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

    static QPushButton* Boton(QWidget* ventana, const char* nombre) { return Widget<QPushButton>(ventana, nombre); }
    static void Pulsar(QWidget* ventana, const char* nombre) { QTest::mouseClick(Boton(ventana, nombre), Qt::LeftButton); }
};

TEST_F(VentanaQtTest, DrawsEachControlWithItsWidgetInItsContainer) {
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        ASSERT_NE(v, nullptr);
        EXPECT_EQ(v->windowTitle(), "Datos del cliente");

        auto* nombre = Widget<QLineEdit>(v, "txtNombre");
        EXPECT_EQ(Rotulo(nombre), "Nombre:");
        EXPECT_EQ(Widget<QLineEdit>(v, "txtClave")->echoMode(), QLineEdit::Password);
        auto* forma = Widget<QComboBox>(v, "cmbForma");
        EXPECT_FALSE(forma->isEditable());
        EXPECT_EQ(forma->count(), 2);
        EXPECT_EQ(forma->currentText(), "PAGO EN UNA SOLA EXHIBICIÓN");
        EXPECT_EQ(Rotulo(forma), "Forma de pago:");
        EXPECT_EQ(Widget<QCheckBox>(v, "chkActivo")->text(), "Cliente activo");

        auto* marco = Widget<QGroupBox>(v, "fraTipo");
        EXPECT_EQ(marco->title(), "Tipo de persona");
        auto* fisica = Widget<QRadioButton>(v, "optFisica");
        EXPECT_TRUE(marco->isAncestorOf(fisica));
        EXPECT_TRUE(marco->isAncestorOf(Widget<QRadioButton>(v, "optMoral")));
        EXPECT_TRUE(fisica->isChecked());
        EXPECT_FALSE(fisica->autoExclusive());

        auto* pestanas = Widget<QTabWidget>(v, "tabDatos");
        ASSERT_EQ(pestanas->count(), 2);
        EXPECT_EQ(pestanas->tabText(1), "Fechas");
        EXPECT_TRUE(pestanas->widget(0)->isAncestorOf(Widget<QStackedWidget>(v, "eNumTotal")));
        auto* fecha = Widget<QDateEdit>(v, "eDtFecha");
        EXPECT_TRUE(pestanas->widget(1)->isAncestorOf(fecha));
        EXPECT_EQ(fecha->date(), QDate(2026, 11, 22));

        auto* vista = Widget<QTreeWidget>(v, "lvwDocs");
        ASSERT_EQ(vista->topLevelItemCount(), 2);
        EXPECT_EQ(vista->headerItem()->text(1), "Folio");
        EXPECT_EQ(vista->topLevelItem(1)->text(1), "202");
        EXPECT_EQ(vista->topLevelItem(0)->checkState(0), Qt::Unchecked);
        EXPECT_EQ(vista->topLevelItem(1)->checkState(0), Qt::Checked);

        auto* tabla = Widget<QTableWidget>(v, "grdTotales");
        ASSERT_EQ(tabla->rowCount(), 1);
        EXPECT_EQ(tabla->horizontalHeaderItem(1)->text(), "Importe");
        EXPECT_EQ(tabla->item(0, 1)->text(), "1500.5");
        EXPECT_TRUE(tabla->item(0, 1)->textAlignment() & Qt::AlignRight);
        EXPECT_TRUE(tabla->item(0, 0)->textAlignment() & Qt::AlignLeft);
        EXPECT_EQ(tabla->editTriggers(), QAbstractItemView::NoEditTriggers);

        EXPECT_NE(Widget<QProgressBar>(v, "pb"), nullptr);
        EXPECT_EQ(v->findChild<QWidget*>("cdlArchivo"), nullptr) << "a common dialog has no widget";
        auto* oculto = Widget<QLineEdit>(v, "txtOculto");
        EXPECT_TRUE(oculto->isHidden());
        EXPECT_FALSE(nombre->isHidden());
        EXPECT_FALSE(Widget<QLineEdit>(v, "txtBloqueado")->isEnabled());
        EXPECT_TRUE(Boton(v, "btnAceptar")->isDefault());
        EXPECT_EQ(Boton(v, "btnCancelar")->text(), "&Cancelar");
        Captura(v, "ventana_controles");
        Pulsar(v, "btnCancelar");
    });
    dlg.ShowModal();
    EXPECT_FALSE(dlg.Visible());
    EXPECT_FALSE(dlg.Aceptado);
    EXPECT_EQ(dlg.eventos, (std::vector<std::string>{"btnCancelar.Click"}));
}

TEST_F(VentanaQtTest, ModelChangesFromCodeShowInTheWidgets) {
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        auto* nombre = Widget<QLineEdit>(v, "txtNombre");
        dlg.txtNombre.Text("Luisa");
        EXPECT_EQ(nombre->text(), "Luisa");
        nombre->setCursorPosition(2);
        dlg.txtNombre.Locked(true);
        EXPECT_TRUE(nombre->isReadOnly());
        EXPECT_EQ(nombre->cursorPosition(), 2) << "an unchanged text is not put back";

        dlg.cmbForma.ListIndex(1);
        EXPECT_EQ(Widget<QComboBox>(v, "cmbForma")->currentText(), "CRÉDITO");
        dlg.chkActivo.Value(2);
        EXPECT_EQ(Widget<QCheckBox>(v, "chkActivo")->checkState(), Qt::PartiallyChecked);
        dlg.optMoral.Value(true);
        EXPECT_TRUE(Widget<QRadioButton>(v, "optMoral")->isChecked());
        EXPECT_FALSE(Widget<QRadioButton>(v, "optFisica")->isChecked());
        dlg.tabDatos.SelectedItem(1);
        EXPECT_EQ(Widget<QTabWidget>(v, "tabDatos")->currentIndex(), 1);

        dlg.eNumTotal.Format("$ #,#.00");
        dlg.eNumTotal.Value(1234.5);
        auto* total = Widget<QStackedWidget>(v, "eNumTotal");
        EXPECT_DOUBLE_EQ(total->findChild<QDoubleSpinBox*>()->value(), 1234.5);
        dlg.eNumTotal.Locked(true);
        auto* mostrado = qobject_cast<QLineEdit*>(total->currentWidget());
        ASSERT_NE(mostrado, nullptr) << "a locked number field shows its text";
        EXPECT_EQ(mostrado->text(), "$ 1,234.50");
        EXPECT_TRUE(mostrado->isReadOnly());

        dlg.pb.Value(40);
        EXPECT_EQ(Widget<QProgressBar>(v, "pb")->value(), 40);
        dlg.Caption("Cliente nuevo");
        EXPECT_EQ(v->windowTitle(), "Cliente nuevo");
        dlg.txtOculto.Visible(true);
        EXPECT_FALSE(Widget<QLineEdit>(v, "txtOculto")->isHidden());
        dlg.chkActivo.Enabled(false);
        EXPECT_FALSE(Widget<QCheckBox>(v, "chkActivo")->isEnabled());

        // Lists and grids are drawn once the message loop turns.
        dlg.lvwDocs.SubItem(dlg.lvwDocs.Add("k3", "C"), 1, "303");
        dlg.lvwDocs.SelectedItem(2);
        dlg.grdTotales.Valor(dlg.grdTotales.Append(), "importe", Variant(std::string("12")));
        auto* vista = Widget<QTreeWidget>(v, "lvwDocs");
        auto* tabla = Widget<QTableWidget>(v, "grdTotales");
        ASSERT_TRUE(Esperar([&] { return vista->topLevelItemCount() == 3 && tabla->rowCount() == 2; }))
            << "the list and the grid were not drawn again";
        EXPECT_EQ(vista->topLevelItem(2)->text(1), "303");
        EXPECT_EQ(vista->currentItem(), vista->topLevelItem(2));
        EXPECT_EQ(tabla->item(1, 1)->text(), "12");
        EXPECT_EQ(tabla->item(1, 0)->text(), "");
        Captura(v, "ventana_cambios_del_modelo");
        dlg.Hide();
    });
    dlg.ShowModal();
    EXPECT_FALSE(dlg.Visible());
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
        EXPECT_EQ(nombre->text(), "PEÑA");
        QTest::keyClick(nombre, Qt::Key_Backspace);
        QTest::keyClick(Widget<QComboBox>(v, "cmbForma"), Qt::Key_Down);
        Marcar(Widget<QCheckBox>(v, "chkActivo"));
        auto* moral = Widget<QRadioButton>(v, "optMoral");
        Marcar(moral);
        EXPECT_FALSE(Widget<QRadioButton>(v, "optFisica")->isChecked());
        Marcar(moral);
        EXPECT_TRUE(moral->isChecked()) << "clicking the button that is on leaves it on";

        auto* pestanas = Widget<QTabWidget>(v, "tabDatos");
        pestanas->setCurrentIndex(1);
        auto* vista = Widget<QTreeWidget>(v, "lvwDocs");
        QTest::mouseClick(vista->viewport(), Qt::LeftButton, {}, vista->visualItemRect(vista->topLevelItem(1)).center());
        QTest::keyClick(vista, Qt::Key_Up);
        vista->topLevelItem(0)->setCheckState(0, Qt::Checked);
        EXPECT_TRUE(dlg.lvwDocs.Item(0).checked);

        pestanas->setCurrentIndex(0);
        auto* giro = Widget<QStackedWidget>(v, "eNumTotal")->findChild<QDoubleSpinBox*>();
        giro->selectAll();
        Teclear(giro, QStringLiteral("7.25"));
        EXPECT_DOUBLE_EQ(dlg.eNumTotal.Value(), 7.25);
        Captura(v, "ventana_acciones");
        Pulsar(v, "btnAceptar");
    });
    dlg.ShowModal();
    std::vector<std::string> vistos;
    for (const auto& evento : dlg.eventos) {
        if (evento != "eNumTotal.Change") vistos.push_back(evento);
    }
    EXPECT_EQ(vistos, (std::vector<std::string>{
                          "txtNombre.Click", "txtNombre.Change P", "txtNombre.Change PE", "txtNombre.Change PEÑ",
                          "txtNombre.Change PEÑA", "txtNombre.Change PEÑ", "cmbForma.Click CRÉDITO", "chkActivo.Click 1",
                          "optMoral.Click", "tabDatos.Click 1", "lvwDocs.ItemClick 1", "lvwDocs.ItemClick 0",
                          "lvwDocs.ItemCheck 0", "tabDatos.Click 0", "btnAceptar.Click"}));
    EXPECT_TRUE(dlg.Aceptado);
}

TEST_F(VentanaQtTest, EnterAndEscapePressTheDefaultAndCancelButtonsUnlessDisabled) {
    for (const auto tecla : {Qt::Key_Return, Qt::Key_Escape}) {
        AlAparecer([&] { QTest::keyClick(Widget<QLineEdit>(VentanaActiva(), "txtNombre"), tecla); });
        dlg.ShowModal();
    }
    EXPECT_EQ(dlg.eventos, (std::vector<std::string>{"btnAceptar.Click", "btnCancelar.Click"}));

    dlg.btnAceptar.Enabled(false);
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        QTest::keyClick(Widget<QLineEdit>(v, "txtNombre"), Qt::Key_Return);
        Pulsar(v, "btnAceptar");
        EXPECT_TRUE(v->isVisible());
        dlg.Hide();
    });
    dlg.ShowModal();
    EXPECT_EQ(dlg.eventos.size(), 2u) << "a disabled button is pressed neither by its key nor by a click";
}

TEST_F(VentanaQtTest, FocusFollowsThePersonAndTheModel) {
    // The first field takes the focus when the window comes up.
    dlg.txtNombre.GotFocus = [&] { dlg.eventos.push_back("txtNombre.GotFocus"); };
    dlg.txtNombre.LostFocus = [&] { dlg.eventos.push_back("txtNombre.LostFocus"); };
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        v->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(v));
        auto* nombre = Widget<QLineEdit>(v, "txtNombre");
        nombre->setFocus(Qt::TabFocusReason);
        EXPECT_EQ(dlg.Foco(), &dlg.txtNombre);
        Widget<QLineEdit>(v, "txtClave")->setFocus(Qt::TabFocusReason);
        EXPECT_EQ(dlg.Foco(), &dlg.txtClave);
        dlg.txtNombre.SetFocus();
        EXPECT_TRUE(nombre->hasFocus());
        // A list taking the focus makes its first row current; that is no
        // click of the person's.
        Widget<QTreeWidget>(v, "lvwDocs")->setFocus(Qt::TabFocusReason);
        EXPECT_EQ(dlg.Foco(), &dlg.lvwDocs);
        EXPECT_EQ(dlg.lvwDocs.SelectedItem(), -1);
        Captura(v, "ventana_foco");
        dlg.Hide();
    });
    dlg.ShowModal();
    EXPECT_EQ(dlg.eventos,
              (std::vector<std::string>{"txtNombre.GotFocus", "txtNombre.LostFocus", "txtNombre.GotFocus",
                                        "txtNombre.LostFocus"}));
}

// A dialog that keeps itself open the first time a person closes it.
class DlgTerco : public forms::Dialogo {
public:
    DlgTerco() : Dialogo("dlgTerco", "Terco") { Agregar<forms::Label>("lbl", "No se deja cerrar a la primera."); }
    int preguntas = 0;
    int descargas = 0;

protected:
    bool Form_QueryUnload() override { return ++preguntas > 1; }
    void Form_Unload() override { ++descargas; }
};

TEST(VentanaQtCerrar, ClosingTheWindowAsksTheModelWhichMayKeepItOpen) {
    PlataformaQt qt;
    Vigilante vigilante;
    DlgTerco dlg;
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        v->close();
        EXPECT_TRUE(v->isVisible());
        EXPECT_TRUE(dlg.Visible());
        Captura(v, "ventana_cerrar");
        v->close();
    });
    dlg.ShowModal();
    EXPECT_EQ(dlg.preguntas, 2);
    EXPECT_EQ(dlg.descargas, 1);
    EXPECT_FALSE(dlg.Cargado());
}

// A dialog whose button hides it and shows it again, or shows another one
// over it.
class DlgVueltas : public forms::Dialogo {
public:
    DlgVueltas() : Dialogo("dlgVueltas", "Vueltas") {
        btnOtra = &Agregar<forms::CommandButton>("btnOtra", "Otra vez");
        btnOtra->Click = [this] {
            Hide();
            if (++vueltas < 2) ShowModal();
        };
        btnEncima = &Agregar<forms::CommandButton>("btnEncima", "Encima");
        btnEncima->Click = [this] {
            if (encima != nullptr) encima->ShowModal();
        };
        btnFalla = &Agregar<forms::CommandButton>("btnFalla", "Falla");
        btnFalla->Click = [] { throw Fault{5, "Invalid procedure call or argument"}; };
    }
    int vueltas = 0;
    forms::Dialogo* encima = nullptr;
    forms::CommandButton* btnOtra;
    forms::CommandButton* btnEncima;
    forms::CommandButton* btnFalla;
};

TEST(VentanaQtModal, HandlersShowDialogsOverTheirOwnShowTheirOwnAgainAndLetFaultsOut) {
    PlataformaQt qt;
    Vigilante vigilante;
    DlgVueltas dlg;
    DlgPrueba encima;
    dlg.encima = &encima;
    AlAparecer([&] {
        platform::VentanaQt* primera = VentanaActiva();
        // A dialog shown from a handler waits over the first one.
        AlAparecer([&, primera] {
            platform::VentanaQt* segunda = VentanaActiva();
            EXPECT_EQ(&segunda->Modelo(), &encima);
            EXPECT_TRUE(primera->isVisible());
            Teclear(Widget<QLineEdit>(segunda, "txtNombre"), QStringLiteral("Ana"));
            Captura(segunda, "ventana_encima");
            QTest::mouseClick(Widget<QPushButton>(segunda, "btnAceptar"), Qt::LeftButton);
        });
        QTest::mouseClick(Widget<QPushButton>(primera, "btnEncima"), Qt::LeftButton);
        EXPECT_EQ(VentanaActiva(), primera) << "the first window waits again";
        EXPECT_EQ(encima.txtNombre.Text(), "Ana");
        // A handler that hides its dialog and shows it again gets a new
        // window; a fault in a handler there ends every wait and comes out.
        AlAparecer([&, primera] {
            platform::VentanaQt* otra = VentanaActiva();
            EXPECT_NE(otra, primera);
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
    EXPECT_TRUE(encima.Aceptado);
    EXPECT_EQ(dlg.vueltas, 1);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

// A form shown without waiting, as the progress form is.
class FrmAvance : public forms::Dialogo {
public:
    FrmAvance() : Dialogo("frmAvance", "Progreso") {
        lbl = &Agregar<forms::Label>("lbl", "Procesando...");
        pb = &Agregar<forms::ProgressBar>("pb");
        btnFalla = &Agregar<forms::CommandButton>("btnFalla", "Falla");
        btnFalla->Click = [] { throw Fault{380, "Invalid property value"}; };
    }
    forms::Label* lbl;
    forms::ProgressBar* pb;
    forms::CommandButton* btnFalla;
};

TEST(VentanaQtSinEsperar, TheWindowFollowsItsModelUntilUnloadedOrDestroyed) {
    PlataformaQt qt;
    FrmAvance frm;
    frm.Show();
    QPointer<platform::VentanaQt> ventana = VentanaDe(frm);
    ASSERT_FALSE(ventana.isNull());
    EXPECT_TRUE(ventana->isVisible());
    frm.Show();
    EXPECT_EQ(VentanaDe(frm), ventana.data()) << "shown twice, one window";

    frm.pb->Value(60);
    frm.lbl->Caption("Generando informe...");
    qt.ui.DoEvents();
    EXPECT_EQ(Widget<QProgressBar>(ventana, "pb")->value(), 60);
    EXPECT_EQ(Widget<QLabel>(ventana, "lbl")->text(), "Generando informe...");
    Captura(ventana, "ventana_sin_esperar");

    // A fault in a handler comes out of the next DoEvents, and only once.
    QTest::mouseClick(Widget<QPushButton>(ventana, "btnFalla"), Qt::LeftButton);
    try {
        qt.ui.DoEvents();
        ADD_FAILURE() << "the fault did not come out";
    } catch (const Fault& falla) {
        EXPECT_EQ(falla.number, 380);
    }
    EXPECT_NO_THROW(qt.ui.DoEvents());

    frm.Unload();
    EXPECT_TRUE(ventana->isHidden());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(ventana.isNull());

    auto otro = std::make_unique<FrmAvance>();
    otro->Show();
    QPointer<platform::VentanaQt> suya = VentanaDe(*otro);
    ASSERT_FALSE(suya.isNull());
    otro.reset();
    EXPECT_TRUE(suya->Terminada()) << "a destroyed model takes its window down";
    EXPECT_TRUE(suya->isHidden());
}

// The text and list controls the first dialog lacks.
class DlgListas : public forms::Dialogo {
public:
    DlgListas() : Dialogo("dlgListas", "Listas") {
        txtNotas = &Agregar<forms::Memo>("txtNotas", "Notas:");
        cmbSerie = &Agregar<forms::ComboBox>("cmbSerie", forms::ComboBox::Estilo::Editable, "Serie:");
        cmbSerie->AddItem("A");
        cmbSerie->AddItem("FAC");
        lstRegimenes = &Agregar<forms::ListBox>("lstRegimenes", true, "Regímenes:");
        lstRegimenes->AddItem("General de Ley Personas Morales");
        lstRegimenes->AddItem("Régimen Simplificado de Confianza");
        lstMeses = &Agregar<forms::ListBox>("lstMeses", false, "Mes:");
        for (const char* mes : {"Enero", "Febrero", "Marzo"}) lstMeses->AddItem(mes);
        txtNotas->Change = [this] { eventos.push_back("txtNotas.Change"); };
        cmbSerie->Change = [this] { eventos.push_back("cmbSerie.Change " + cmbSerie->Text()); };
        cmbSerie->Click = [this] { eventos.push_back("cmbSerie.Click " + cmbSerie->Text()); };
        lstRegimenes->ItemCheck = [this](int i) { eventos.push_back("lstRegimenes.ItemCheck " + std::to_string(i)); };
        lstMeses->Click = [this] { eventos.push_back("lstMeses.Click " + std::to_string(lstMeses->ListIndex())); };
    }
    std::vector<std::string> eventos;
    forms::Memo* txtNotas;
    forms::ComboBox* cmbSerie;
    forms::ListBox* lstRegimenes;
    forms::ListBox* lstMeses;
};

TEST(VentanaQtListas, MemoEditableComboAndListBoxesBothWays) {
    PlataformaQt qt;
    Vigilante vigilante;
    DlgListas dlg;
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        auto* notas = Widget<QPlainTextEdit>(v, "txtNotas");
        Teclear(notas, QStringLiteral("Entrega en almacén"));
        EXPECT_EQ(dlg.txtNotas->Text(), "Entrega en almacén");
        dlg.txtNotas->Text("Primera línea\nSegunda");
        EXPECT_EQ(notas->toPlainText(), "Primera línea\nSegunda");

        auto* serie = Widget<QComboBox>(v, "cmbSerie");
        EXPECT_TRUE(serie->isEditable());
        Teclear(serie, QStringLiteral("FA"));
        EXPECT_EQ(dlg.cmbSerie->Text(), "FA");
        EXPECT_EQ(dlg.cmbSerie->ListIndex(), -1) << "no completion of the item behind the model's back";
        QTest::keyClick(serie, Qt::Key_Down);
        EXPECT_EQ(dlg.cmbSerie->ListIndex(), 0);
        EXPECT_EQ(serie->currentText(), "A");
        dlg.cmbSerie->Text("B-2026");
        EXPECT_EQ(serie->currentText(), "B-2026");

        auto* regimenes = Widget<QListWidget>(v, "lstRegimenes");
        ASSERT_EQ(regimenes->count(), 2);
        EXPECT_EQ(regimenes->item(0)->checkState(), Qt::Unchecked);
        regimenes->item(1)->setCheckState(Qt::Checked);
        EXPECT_TRUE(dlg.lstRegimenes->Selected(1));
        dlg.lstRegimenes->Selected(0, true);
        EXPECT_EQ(regimenes->item(0)->checkState(), Qt::Checked);

        auto* meses = Widget<QListWidget>(v, "lstMeses");
        EXPECT_FALSE(meses->item(0)->data(Qt::CheckStateRole).isValid()) << "a plain list has no check boxes";
        QTest::mouseClick(meses->viewport(), Qt::LeftButton, {}, meses->visualItemRect(meses->item(2)).center());
        EXPECT_EQ(dlg.lstMeses->ListIndex(), 2);
        QTest::keyClick(meses, Qt::Key_Up);
        EXPECT_EQ(dlg.lstMeses->ListIndex(), 1);
        dlg.lstMeses->RemoveItem(0);
        EXPECT_EQ(meses->count(), 2);
        EXPECT_EQ(meses->currentRow(), 0);
        Captura(v, "ventana_listas");
        dlg.Hide();
    });
    dlg.ShowModal();
    const std::vector<std::string> esperados{
        "cmbSerie.Change F",        "cmbSerie.Change FA",        "cmbSerie.Click A",       "cmbSerie.Change B-2026",
        "lstRegimenes.ItemCheck 1", "lstRegimenes.ItemCheck 0", "lstMeses.Click 2",        "lstMeses.Click 1"};
    std::vector<std::string> vistos;
    for (const auto& evento : dlg.eventos) {
        if (evento != "txtNotas.Change") vistos.push_back(evento);
    }
    EXPECT_EQ(vistos, esperados);
}

// The host's address control, with the street and numbers apart.
class DlgDomicilio : public forms::Dialogo {
public:
    DlgDomicilio() : Dialogo("dlgDomicilio", "Domicilio fiscal") {
        eDir = &Agregar<forms::AddressControl>("eDir");
        eDir->titulo("Domicilio del emisor");
        eDir->direccionSeparada(true);
        eDir->conectar({{7, "Guadalajara", 1}, {9, "Monterrey", 1}, {12, "Houston", 2}});
        Agregar<forms::CommandButton>("btnAceptar", "&Aceptar").Click = [this] { Hide(); };
    }
    forms::AddressControl* eDir;
};

TEST(VentanaQtDireccion, TheFieldsOfTheAddressFillTheModel) {
    PlataformaQt qt;
    Vigilante vigilante;
    DlgDomicilio dlg;
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        auto* caja = Widget<QGroupBox>(v, "eDir");
        EXPECT_EQ(caja->title(), "Domicilio del emisor");
        EXPECT_TRUE(Widget<QLineEdit>(caja, "direccion")->isHidden()) << "the street goes apart";
        Teclear(Widget<QLineEdit>(caja, "calle"), QStringLiteral("Av. Juárez"));
        Teclear(Widget<QLineEdit>(caja, "exterior"), QStringLiteral("120"));
        Teclear(Widget<QLineEdit>(caja, "interior"), QStringLiteral("B"));
        Teclear(Widget<QLineEdit>(caja, "colonia"), QStringLiteral("Centro"));
        Teclear(Widget<QLineEdit>(caja, "codigoPostal"), QStringLiteral("44100"));
        Teclear(Widget<QLineEdit>(caja, "telefono"), QStringLiteral("3312345678"));
        auto* ciudad = Widget<QComboBox>(caja, "ciudad");
        EXPECT_EQ(ciudad->currentIndex(), -1);
        QTest::keyClick(ciudad, Qt::Key_Down);
        QTest::keyClick(ciudad, Qt::Key_Down);
        Captura(v, "ventana_direccion");

        dlg.eDir->direccionSeparada(false);
        EXPECT_FALSE(Widget<QLineEdit>(caja, "direccion")->isHidden());
        EXPECT_EQ(Widget<QLineEdit>(caja, "direccion")->text(), "||Av. Juárez|120|B");
        QTest::mouseClick(Widget<QPushButton>(v, "btnAceptar"), Qt::LeftButton);
    });
    dlg.ShowModal();
    EXPECT_EQ(dlg.eDir->address(), "||Av. Juárez|120|B");
    EXPECT_EQ(dlg.eDir->Calle(), "Av. Juárez");
    EXPECT_EQ(dlg.eDir->colony(), "Centro");
    EXPECT_EQ(dlg.eDir->codep(), "44100");
    EXPECT_EQ(dlg.eDir->phone(), "3312345678");
    EXPECT_EQ(dlg.eDir->ciudad(), 9);
    EXPECT_EQ(dlg.eDir->pais(), 1);
}

}  // namespace
}  // namespace celdora::testing

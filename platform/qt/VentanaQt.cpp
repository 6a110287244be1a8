#include "platform/qt/VentanaQt.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QTimer>
#include <QWindow>
#include <algorithm>

#include "platform/qt/TextoQt.h"
#include "value/Text.h"

namespace celdora::platform {

namespace {

std::exception_ptr& FallaPendiente() {
    static std::exception_ptr falla;
    return falla;
}

// The Qt key that types this character, for a key a handler replaced.
int TeclaDe(int codigo, const QString& texto) {
    switch (codigo) {
        case 8: return Qt::Key_Backspace;
        case 13: return Qt::Key_Return;
        case 27: return Qt::Key_Escape;
        default: return texto.isEmpty() ? 0 : static_cast<int>(texto.at(0).toUpper().unicode());
    }
}

}  // namespace

VentanaQt::VentanaQt(forms::Dialogo& dialogo, bool modal) : dialogo_(dialogo), modal_(modal) {
    setWindowTitle(Qs(dialogo_.Caption()));
    setMinimumWidth(360);
    Construir();
    dialogo_.Observar(this);
    observando_ = true;
}

VentanaQt::~VentanaQt() {
    terminada_ = true;
    if (observando_) dialogo_.Dejar(this);
    // The widgets go before the ties they signal to.
    for (auto& [entrada, control] : entradas_) entrada->removeEventFilter(this);
    qDeleteAll(findChildren<QWidget*>(Qt::FindDirectChildrenOnly));
}

void VentanaQt::MostrarModal(forms::Dialogo& dialogo) {
    VentanaQt ventana(dialogo, true);
    ventana.setWindowModality(Qt::ApplicationModal);
    ventana.Delante();
    ventana.show();
    ventana.Enfocar();
    // A handler that ran while the window came up may have hidden the dialog
    // already; then there is nothing to wait for.
    if (!ventana.terminada_ && dialogo.Visible()) {
        QEventLoop bucle;
        ventana.bucle_ = &bucle;
        bucle.exec();
        ventana.bucle_ = nullptr;
    }
    ventana.hide();
    if (ventana.falla_) std::rethrow_exception(ventana.falla_);
}

VentanaQt* VentanaQt::MostrarSinEsperar(forms::Dialogo& dialogo) {
    auto* ventana = new VentanaQt(dialogo, false);
    if (!dialogo.Visible()) {
        ventana->Terminar();
        return ventana;
    }
    ventana->Delante();
    ventana->show();
    ventana->Enfocar();
    return ventana;
}

void VentanaQt::RelanzarFallaPendiente() {
    std::exception_ptr falla = std::exchange(FallaPendiente(), nullptr);
    if (falla) std::rethrow_exception(falla);
}

QWidget* VentanaQt::WidgetDe(const forms::Control& control) const {
    EnlaceControl* enlace = Enlace(control);
    return enlace == nullptr ? nullptr : enlace->Widget();
}

// --- Building ---------------------------------------------------------------

void VentanaQt::Construir() {
    raiz_ = new QFormLayout(this);
    for (const auto& control : dialogo_.Controles()) enlaces_.push_back(CrearEnlace(*control, *this));
    for (auto& enlace : enlaces_) Colocar(*enlace);
    // The Tab key follows the order in which the controls were declared.
    QWidget* anterior = nullptr;
    for (auto& enlace : enlaces_) {
        for (QWidget* entrada : enlace->Entradas()) {
            entradas_[entrada] = &enlace->Control();
            entrada->installEventFilter(this);
            if (anterior != nullptr) QWidget::setTabOrder(anterior, entrada);
            anterior = entrada;
        }
        enlace->Refrescar();
    }
}

// A new window stands in front of the one the person was working in, without
// belonging to it: each window is destroyed by whoever showed it.
void VentanaQt::Delante() {
    QWidget* actual = QApplication::activeModalWidget();
    if (actual == nullptr) actual = QApplication::activeWindow();
    if (actual == nullptr || actual == this || actual->windowHandle() == nullptr) return;
    winId();
    windowHandle()->setTransientParent(actual->windowHandle());
}

// In its frame or on its page when it has one, otherwise on the dialog; a
// field with its label beside it, anything else across the row, and
// consecutive command buttons side by side on one row.
void VentanaQt::Colocar(EnlaceControl& enlace) {
    QWidget* widget = enlace.Widget();
    if (widget == nullptr) return;
    const forms::Control& control = enlace.Control();
    QFormLayout* destino = raiz_;
    if (forms::Control* contenedor = dialogo_.Buscar(control.Contenedor());
        contenedor != nullptr && contenedor != &control) {
        EnlaceControl* suyo = Enlace(*contenedor);
        if (suyo != nullptr && suyo->Interior(control.Pagina()) != nullptr) destino = suyo->Interior(control.Pagina());
    }
    if (enlace.Rotulo() != nullptr) {
        destino->addRow(enlace.Rotulo(), widget);
        return;
    }
    if (control.Tipo() != forms::TipoControl::CommandButton) {
        destino->addRow(widget);
        return;
    }
    auto& [fila, botones] = filasBotones_[destino];
    if (botones == nullptr || fila != destino->rowCount() - 1) {
        botones = new QHBoxLayout;
        botones->addStretch();
        destino->addRow(botones);
        fila = destino->rowCount() - 1;
    }
    botones->addWidget(widget);
}

EnlaceControl* VentanaQt::Enlace(const forms::Control& control) const {
    for (const auto& enlace : enlaces_) {
        if (&enlace->Control() == &control) return enlace.get();
    }
    return nullptr;
}

// --- The model changed ------------------------------------------------------

void VentanaQt::ControlCambiado(forms::Control& control) {
    if (terminada_) return;
    EnlaceControl* enlace = Enlace(control);
    if (enlace == nullptr) return;
    if (!enlace->Diferido()) {
        enlace->Refrescar();
        return;
    }
    if (std::find(pendientes_.begin(), pendientes_.end(), enlace) != pendientes_.end()) return;
    if (pendientes_.empty()) QTimer::singleShot(0, this, [this] { RefrescarPendientes(); });
    pendientes_.push_back(enlace);
}

void VentanaQt::RefrescarPendientes() {
    const auto pendientes = std::exchange(pendientes_, {});
    if (terminada_) return;
    for (EnlaceControl* enlace : pendientes) enlace->Refrescar();
}

void VentanaQt::DialogoCambiado() {
    if (terminada_) return;
    if (!dialogo_.Visible()) {
        Terminar();
        return;
    }
    setWindowTitle(Qs(dialogo_.Caption()));
    Enfocar();
}

void VentanaQt::Enfocar() {
    forms::Control* foco = dialogo_.Foco();
    EnlaceControl* enlace = foco == nullptr ? nullptr : Enlace(*foco);
    if (enlace == nullptr || enlace->Entradas().empty()) return;
    QWidget* widget = enlace->Entradas().front();
    if (!widget->hasFocus()) widget->setFocus(Qt::OtherFocusReason);
}

void VentanaQt::Terminar() {
    if (terminada_) return;
    terminada_ = true;
    if (observando_) {
        dialogo_.Dejar(this);
        observando_ = false;
    }
    hide();
    if (bucle_ != nullptr) bucle_->exit();
    if (!modal_) deleteLater();
}

// --- What a person does -----------------------------------------------------

void VentanaQt::Proteger(const std::function<void()>& accion) {
    if (terminada_) return;
    try {
        accion();
    } catch (...) {
        if (!modal_) {
            if (!FallaPendiente()) FallaPendiente() = std::current_exception();
            return;
        }
        if (!falla_) falla_ = std::current_exception();
        Terminar();
    }
}

// Closing the window asks the model, which may keep itself open; the window
// goes away when the model hides or unloads.
void VentanaQt::closeEvent(QCloseEvent* evento) {
    if (terminada_) {
        evento->accept();
        return;
    }
    evento->ignore();
    Proteger([this] { dialogo_.Cerrar(); });
}

// Enter presses the default button wherever the focus is, but on another
// button, which takes Enter itself.
void VentanaQt::keyPressEvent(QKeyEvent* evento) {
    const bool enter = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
    if (!enter || (evento->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) {
        QDialog::keyPressEvent(evento);
        return;
    }
    if (forms::CommandButton* boton = Boton(false)) Proteger([boton] { boton->Pulsar(); });
}

// Escape presses the cancel button, when the dialog has one.
void VentanaQt::reject() {
    if (forms::CommandButton* boton = Boton(true)) Proteger([boton] { boton->Pulsar(); });
}

forms::CommandButton* VentanaQt::Boton(bool cancelar) const {
    for (const auto& control : dialogo_.Controles()) {
        auto* boton = dynamic_cast<forms::CommandButton*>(control.get());
        if (boton != nullptr && (cancelar ? boton->Cancel() : boton->Default()) && boton->Accesible()) return boton;
    }
    return nullptr;
}

bool VentanaQt::eventFilter(QObject* objeto, QEvent* evento) {
    const auto entrada = entradas_.find(objeto);
    if (terminada_ || entrada == entradas_.end()) return QDialog::eventFilter(objeto, evento);
    forms::Control& control = *entrada->second;
    if (evento->type() == QEvent::FocusIn) {
        // The model's focus was given to the widget already, so a window that
        // comes back to the front and restores it tells the model nothing new.
        Proteger([&control] { control.SetFocus(); });
        return false;
    }
    if (evento->type() == QEvent::KeyPress && !sustituyendo_) {
        return Tecla(control, static_cast<QWidget*>(objeto), static_cast<QKeyEvent*>(evento));
    }
    return false;
}

// A typed character goes through the control's KeyPress first: a handler
// that sets it to 0 discards it, and one that changes it types the new
// character instead. True when the key was taken away from the widget.
bool VentanaQt::Tecla(forms::Control& control, QWidget* widget, QKeyEvent* evento) {
    if (!control.KeyPress || evento->text().size() != 1) return false;
    const int codigo = KeyCodeFromChar(Utf8(evento->text()));
    if (codigo == 0 || codigo == '\t') return false;
    // Enter and Escape press the default and cancel buttons instead of
    // reaching the field.
    if ((codigo == '\r' && Boton(false) != nullptr) || (codigo == 27 && Boton(true) != nullptr)) return false;
    int queda = codigo;
    Proteger([&] { queda = control.Tecla(codigo); });
    if (queda == codigo) return false;
    if (queda != 0) {
        const QString texto = Qs(CharFromKeyCode(queda));
        QKeyEvent sustituta(QEvent::KeyPress, TeclaDe(queda, texto), Qt::NoModifier, texto);
        sustituyendo_ = true;
        QCoreApplication::sendEvent(widget, &sustituta);
        sustituyendo_ = false;
    }
    return true;
}

}  // namespace celdora::platform

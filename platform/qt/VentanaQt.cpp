#include "platform/qt/VentanaQt.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>
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
    ventana.resize(ventana.TamanoInicial());
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
    ventana->resize(ventana->TamanoInicial());
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

// The controls above, the fields stretching with the window; the dialog's
// own buttons in a row at its foot.
void VentanaQt::Construir() {
    auto* raiz = new QVBoxLayout(this);
    cuerpo_ = NuevoFormulario();
    raiz->addLayout(cuerpo_, 1);
    pie_ = new QHBoxLayout;
    pie_->addStretch();
    raiz->addLayout(pie_);
    for (const auto& control : dialogo_.Controles()) enlaces_.push_back(CrearEnlace(*control, *this));
    Pie();
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

// The run of command buttons that ends the controls standing on the dialog
// itself. When one of them is pressed by Enter or Escape, the foot begins
// there: those before it act on what the window shows and stay above it.
void VentanaQt::Pie() {
    std::vector<const forms::Control*> tramo;
    const auto& controles = dialogo_.Controles();
    for (auto control = controles.rbegin(); control != controles.rend(); ++control) {
        if ((*control)->Tipo() == forms::TipoControl::CommonDialog || Destino(**control) != cuerpo_) continue;
        if ((*control)->Tipo() != forms::TipoControl::CommandButton) break;
        tramo.insert(tramo.begin(), control->get());
    }
    auto inicio = std::find_if(tramo.begin(), tramo.end(), [](const forms::Control* control) {
        const auto* boton = static_cast<const forms::CommandButton*>(control);
        return boton->Default() || boton->Cancel();
    });
    if (inicio == tramo.end()) inicio = tramo.begin();
    alPie_.insert(inicio, tramo.end());
}

// Large enough for every widget's own size hint, wrapped labels at the
// height their width needs, and the title with room beside it for the
// window's own buttons; no larger than the screen.
QSize VentanaQt::TamanoInicial() {
    // A widget that is not shown yet passes no change of its size hint up
    // to the layouts, and the model filled the widgets before the window
    // came up: every layout asks again.
    ensurePolished();
    for (QWidget* widget : findChildren<QWidget*>()) widget->updateGeometry();
    for (QLayout* disposicion : findChildren<QLayout*>()) disposicion->invalidate();
    layout()->activate();
    QSize tamano = sizeHint().expandedTo(minimumSizeHint());
    tamano.setWidth(std::max(tamano.width(), fontMetrics().horizontalAdvance(windowTitle()) +
                                                 4 * fontMetrics().height()));
    if (layout()->hasHeightForWidth()) {
        tamano.setHeight(std::max(tamano.height(), layout()->totalHeightForWidth(tamano.width())));
    }
    if (const QScreen* pantalla = screen()) tamano = tamano.boundedTo(pantalla->availableGeometry().size());
    return tamano.expandedTo(minimumSize());
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
// consecutive command buttons side by side on one row. A picture button
// declared right after a field stands beside it. Panels that share a place
// stand in one cell, as large as the largest of them, where only the one
// shown is drawn.
void VentanaQt::Colocar(EnlaceControl& enlace) {
    QWidget* widget = enlace.Widget();
    if (widget == nullptr) return;
    const forms::Control& control = enlace.Control();
    if (alPie_.count(&control) != 0) {
        pie_->addWidget(widget);
        return;
    }
    if (const auto hueco = huecos_.find(&control); hueco != huecos_.end()) {
        Juntar(hueco->second, widget);
        return;
    }
    QFormLayout* destino = Destino(control);
    if (const auto acompanantes = Acompanantes(control); !acompanantes.empty()) {
        QLayout* fila = enlace.Rotulo() != nullptr ? static_cast<QLayout*>(new QHBoxLayout) : new QGridLayout;
        fila->setContentsMargins(0, 0, 0, 0);
        Juntar(fila, widget);
        for (const forms::Control* otro : acompanantes) huecos_[otro] = fila;
        if (enlace.Rotulo() != nullptr) {
            destino->addRow(enlace.Rotulo(), fila);
        } else {
            destino->addRow(fila);
        }
        return;
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
        // A row of buttons stands at the right, under what it acts on; one
        // that the labels after it explain stands at their left.
        if (Explicados(control)) {
            botones->insertWidget(0, widget);
            return;
        }
    }
    // The stretch keeps its end of the row.
    const bool izquierda = botones->itemAt(0)->spacerItem() == nullptr;
    botones->insertWidget(izquierda ? botones->count() - 1 : botones->count(), widget);
}

// Into a field's row, the field taking the width; or into the one cell of
// panels that share a place, each keeping its room while hidden so that the
// cell fits any of them.
void VentanaQt::Juntar(QLayout* hueco, QWidget* widget) {
    if (auto* celda = qobject_cast<QGridLayout*>(hueco)) {
        QSizePolicy politica = widget->sizePolicy();
        politica.setRetainSizeWhenHidden(true);
        widget->setSizePolicy(politica);
        celda->addWidget(widget, 0, 0);
    } else {
        static_cast<QBoxLayout*>(hueco)->addWidget(widget, hueco->count() == 0 ? 1 : 0);
    }
}

bool VentanaQt::Explicados(const forms::Control& boton) const {
    const auto& controles = dialogo_.Controles();
    auto siguiente = std::find_if(controles.begin(), controles.end(), [&](const auto& c) { return c.get() == &boton; });
    while (siguiente != controles.end() && (*siguiente)->Tipo() == forms::TipoControl::CommandButton &&
           Destino(**siguiente) == Destino(boton)) {
        ++siguiente;
    }
    return siguiente != controles.end() && (*siguiente)->Tipo() == forms::TipoControl::Label &&
           Destino(**siguiente) == Destino(boton);
}

QFormLayout* VentanaQt::Destino(const forms::Control& control) const {
    forms::Control* contenedor = dialogo_.Buscar(control.Contenedor());
    if (contenedor == nullptr || contenedor == &control) return cuerpo_;
    EnlaceControl* suyo = Enlace(*contenedor);
    QFormLayout* interior = suyo == nullptr ? nullptr : suyo->Interior(control.Pagina());
    return interior != nullptr ? interior : cuerpo_;
}

std::vector<const forms::Control*> VentanaQt::Acompanantes(const forms::Control& control) const {
    std::vector<const forms::Control*> acompanantes;
    const auto& controles = dialogo_.Controles();
    for (std::size_t i = 0; i < controles.size(); ++i) {
        const forms::Control& otro = *controles[i];
        if (&otro != &control && EqualText(otro.Lugar(), control.Nombre())) acompanantes.push_back(&otro);
        const bool junto = i > 0 && controles[i - 1].get() == &control && Enlace(control)->Rotulo() != nullptr &&
                           BotonConImagen(otro) && Destino(otro) == Destino(control);
        if (junto) acompanantes.push_back(&otro);
    }
    return acompanantes;
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

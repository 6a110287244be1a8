#pragma once

// A dialog model drawn in one Qt window: a widget per control in the order
// the controls were declared, frames and pages holding the controls placed
// in them. The window watches the model and redraws what changes; what a
// person does in it goes to the model's handlers. The window has no logic of
// its own: it closes when the model is hidden or unloaded, and a person
// closing it asks the model (Cerrar), which may refuse.

#include <QDialog>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <vector>

#include "forms/Dialogo.h"
#include "platform/qt/EnlaceControl.h"

class QEventLoop;
class QFormLayout;
class QHBoxLayout;
class QLayout;

namespace celdora::platform {

class VentanaQt : public QDialog, public forms::Observador {
public:
    VentanaQt(forms::Dialogo& dialogo, bool modal);
    ~VentanaQt() override;

    // Draws the dialog in a new window and returns when the model is hidden
    // or unloaded. Each call has a window of its own, so a handler may hide
    // the dialog and show it (or another) modally again while the first
    // window is still waiting. A fault that a handler raised while the
    // window was up ends the wait and comes out here.
    static void MostrarModal(forms::Dialogo& dialogo);
    // Draws the dialog in a window that stays up, drawn by the message loop,
    // until the model is hidden or unloaded; the window then deletes itself.
    static VentanaQt* MostrarSinEsperar(forms::Dialogo& dialogo);
    // A fault that a handler of a window shown without waiting raised; it
    // comes out of the next turn of the message loop (DoEvents).
    static void RelanzarFallaPendiente();

    forms::Dialogo& Modelo() const { return dialogo_; }
    // Done: the model was hidden, unloaded or destroyed, or a handler failed.
    bool Terminada() const { return terminada_; }
    // The widget drawn for a control, null when none.
    QWidget* WidgetDe(const forms::Control& control) const;

    void ControlCambiado(forms::Control& control) override;
    void DialogoCambiado() override;

    // Runs a person's action on the model; a fault it raises is kept to come
    // out where the window was shown from.
    void Proteger(const std::function<void()>& accion);

protected:
    void closeEvent(QCloseEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void reject() override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void Construir();
    // Which command buttons stand in the row at the foot of the window.
    void Pie();
    // The size the window opens at: what its layout asks for, within the
    // screen.
    QSize TamanoInicial();
    void Delante();
    void Colocar(EnlaceControl& enlace);
    // The layout a control goes into: its frame's, its page's or the window's.
    QFormLayout* Destino(const forms::Control& control) const;
    // The controls that stand in this one's row rather than in one of their
    // own: the picture button declared right after a field, and the panels
    // put over this one.
    std::vector<const forms::Control*> Acompanantes(const forms::Control& control) const;
    // Whether the row of buttons that begins with this one is followed by a
    // label that explains it.
    bool Explicados(const forms::Control& boton) const;
    void Juntar(QLayout* hueco, QWidget* widget);
    EnlaceControl* Enlace(const forms::Control& control) const;
    // The command button that Enter (Default) or Escape (Cancel) presses.
    forms::CommandButton* Boton(bool cancelar) const;
    bool Tecla(forms::Control& control, QWidget* widget, QKeyEvent* evento);
    void RefrescarPendientes();
    void Enfocar();
    void Terminar();

    forms::Dialogo& dialogo_;
    std::vector<std::unique_ptr<EnlaceControl>> enlaces_;
    std::map<QObject*, forms::Control*> entradas_;
    // Lists and grids changed since the message loop last turned.
    std::vector<EnlaceControl*> pendientes_;
    QFormLayout* cuerpo_ = nullptr;
    // The dialog's own command buttons, in a row at the foot of the window.
    QHBoxLayout* pie_ = nullptr;
    std::set<const forms::Control*> alPie_;
    // The last row of command buttons in each layout, with the layout's row
    // it took: consecutive buttons share one row.
    std::map<QFormLayout*, std::pair<int, QHBoxLayout*>> filasBotones_;
    // The row that a control joins, made when the control it goes with was
    // placed.
    std::map<const forms::Control*, QLayout*> huecos_;
    bool modal_ = false;
    bool observando_ = false;
    bool terminada_ = false;
    bool sustituyendo_ = false;
    QEventLoop* bucle_ = nullptr;
    std::exception_ptr falla_;
};

}  // namespace celdora::platform

#pragma once

// The tie between one control model and the widgets drawn for it: which
// widget goes into the window, the label beside it, how the widget is redrawn
// from the model, and which of the person's actions go back to the model.
// One kind of tie per kind of control, chosen by CrearEnlace; no dialog has
// widget code of its own.

#include <QString>
#include <functional>
#include <memory>
#include <vector>

#include "forms/Controles.h"

class QFormLayout;
class QLabel;
class QWidget;

namespace celdora::platform {

class VentanaQt;

class EnlaceControl {
public:
    EnlaceControl(forms::Control& control, VentanaQt& ventana) : control_(control), ventana_(ventana) {}
    virtual ~EnlaceControl() = default;
    EnlaceControl(const EnlaceControl&) = delete;
    EnlaceControl& operator=(const EnlaceControl&) = delete;

    forms::Control& Control() const { return control_; }
    // The widget placed in the window; null for a control drawn by no widget.
    QWidget* Widget() const { return widget_; }
    // The label beside a field, showing the field's caption; null when none.
    QLabel* Rotulo() const { return rotulo_; }
    // The widgets that take the focus and the keys a person types.
    const std::vector<QWidget*>& Entradas() const { return entradas_; }
    // Where the controls placed in this one go (a frame, a page of a tab
    // control); null for a control that holds none.
    virtual QFormLayout* Interior(int /*pagina*/) { return nullptr; }
    // Whether the window may put off redrawing it until the message loop
    // turns: a list or grid that a handler fills row by row is drawn once.
    virtual bool Diferido() const { return false; }

    // Redraws the widgets from the model. What the widgets signal meanwhile
    // is not taken for the person's doing.
    void Refrescar();

protected:
    // The widget, with a label beside it when the control is a field.
    void Poner(QWidget* widget, bool conRotulo);
    void Entrada(QWidget* widget) { entradas_.push_back(widget); }
    // A person's action: runs it on the model unless the widgets are being
    // redrawn, catching what a handler raises, and redraws afterwards, so a
    // model that refused the action shows its own state again.
    void Accion(const std::function<void()>& accion);
    virtual void RefrescarPropio() = 0;

    forms::Control& control_;
    VentanaQt& ventana_;

private:
    QWidget* widget_ = nullptr;
    QLabel* rotulo_ = nullptr;
    std::vector<QWidget*> entradas_;
    bool refrescando_ = false;
};

// The tie for a control, by its kind.
std::unique_ptr<EnlaceControl> CrearEnlace(forms::Control& control, VentanaQt& ventana);

// Whether the control is a button drawn as a picture rather than a text: a
// browse button ("...") or a button without a caption.
bool BotonConImagen(const forms::Control& control);

// The layout of a window, a frame or a page: a field with its label beside
// it, anything else across the row; the fields take the width there is.
QFormLayout* NuevoFormulario(QWidget* dueno = nullptr);

// One maker per family of controls.
std::unique_ptr<EnlaceControl> EnlaceEtiqueta(forms::Label& control, VentanaQt& ventana);
std::unique_ptr<EnlaceControl> EnlaceTexto(forms::TextBox& control, VentanaQt& ventana);
std::unique_ptr<EnlaceControl> EnlaceMemo(forms::Memo& control, VentanaQt& ventana);
std::unique_ptr<EnlaceControl> EnlaceNumero(forms::NumberField& control, VentanaQt& ventana);
std::unique_ptr<EnlaceControl> EnlaceFecha(forms::DateField& control, VentanaQt& ventana);
std::unique_ptr<EnlaceControl> EnlaceCombo(forms::ComboBox& control, VentanaQt& ventana);
std::unique_ptr<EnlaceControl> EnlaceListaSimple(forms::ListBox& control, VentanaQt& ventana);
std::unique_ptr<EnlaceControl> EnlaceVista(forms::ListView& control, VentanaQt& ventana);
std::unique_ptr<EnlaceControl> EnlaceGrid(forms::Grid& control, VentanaQt& ventana);
std::unique_ptr<EnlaceControl> EnlaceCasilla(forms::CheckBox& control, VentanaQt& ventana);
std::unique_ptr<EnlaceControl> EnlaceOpcion(forms::OptionButton& control, VentanaQt& ventana);
std::unique_ptr<EnlaceControl> EnlaceBoton(forms::CommandButton& control, VentanaQt& ventana);
std::unique_ptr<EnlaceControl> EnlaceMarco(forms::Frame& control, VentanaQt& ventana);
std::unique_ptr<EnlaceControl> EnlacePestanas(forms::TabControl& control, VentanaQt& ventana);
std::unique_ptr<EnlaceControl> EnlaceImagen(forms::PictureBox& control, VentanaQt& ventana);
std::unique_ptr<EnlaceControl> EnlaceProgreso(forms::ProgressBar& control, VentanaQt& ventana);
std::unique_ptr<EnlaceControl> EnlaceDireccion(forms::AddressControl& control, VentanaQt& ventana);

}  // namespace celdora::platform

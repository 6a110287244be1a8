#pragma once

// The base of every dialog model: a caption, the controls in the order they
// were declared, the public flag Aceptado, focus, and the life of a form:
// load, show (modal or not), hide, unload. Showing goes through the
// platform's user interface service, which hands the model to a renderer
// (Qt, the console) or to a test's script.

#include <memory>
#include <string>
#include <vector>

#include "forms/Control.h"
#include "value/Fault.h"

namespace celdora::forms {

// A renderer's window on a dialog: told when a control or the dialog itself
// changes, so that it redraws from the model.
class Observador {
public:
    virtual ~Observador() = default;
    virtual void ControlCambiado(Control& control) = 0;
    // Caption, visibility, focus or load state.
    virtual void DialogoCambiado() = 0;
};

class Dialogo {
public:
    // clase: the dialog's class name ("dlgAddress"), by which tests script it.
    Dialogo(std::string clase, std::string caption);
    virtual ~Dialogo();
    Dialogo(const Dialogo&) = delete;
    Dialogo& operator=(const Dialogo&) = delete;

    const std::string& Clase() const { return clase_; }
    const std::string& Caption() const { return caption_; }
    void Caption(const std::string& value);

    // True when the user confirmed and the dialog's work ran.
    bool Aceptado = false;

    // The controls in declaration order.
    const std::vector<std::unique_ptr<Control>>& Controles() const { return controles_; }
    // A control by name, without regard to case; null when there is none.
    Control* Buscar(const std::string& nombre) const;
    // The same, as its kind; raises fault 424 when there is no such control
    // or it is of another kind.
    template <class T>
    T& Ver(const std::string& nombre) const {
        T* control = dynamic_cast<T*>(Buscar(nombre));
        if (control == nullptr) throw ObjectRequired();
        return *control;
    }

    // Loads the form once: Form_Load runs on the first call only.
    void Load();
    bool Cargado() const { return cargado_; }
    // Runs Form_Unload and hides the form; it can be loaded again.
    void Unload();
    // A person closing the window: Form_QueryUnload may refuse, otherwise the
    // form unloads.
    void Cerrar();

    // Loads if needed, shows, and returns when the dialog is hidden or
    // unloaded. A dialog may be shown modally again from its own handler
    // after hiding itself.
    void ShowModal();
    // Shows without waiting; the platform's message loop keeps it drawn.
    void Show();
    // Hides; a modal display ends.
    void Hide();
    bool Visible() const { return visible_; }
    bool Modal() const { return modal_ > 0; }

    // The control that has the focus, null when none.
    Control* Foco() const { return foco_; }

    // Renderers watch the dialog while they draw it.
    void Observar(Observador* observador);
    void Dejar(Observador* observador);

    // Called by controls: the focus moves, a property changed.
    void Enfocar(Control& control);
    void Notificar(Control& control);

protected:
    friend class Unidad;

    // Adds a control at the end of the declaration order.
    template <class T, class... A>
    T& Agregar(std::string nombre, A&&... argumentos) {
        auto control = std::make_unique<T>(*this, std::move(nombre), std::forward<A>(argumentos)...);
        T& referencia = *control;
        controles_.push_back(std::move(control));
        return referencia;
    }

    virtual void Form_Load() {}
    virtual void Form_Unload() {}
    // False keeps the form open when a person closes its window.
    virtual bool Form_QueryUnload() { return true; }

private:
    void NotificarDialogo();

    std::string clase_;
    std::string caption_;
    std::vector<std::unique_ptr<Control>> controles_;
    std::vector<Observador*> observadores_;
    Control* foco_ = nullptr;
    bool cargado_ = false;
    bool visible_ = false;
    int modal_ = 0;
};

}  // namespace celdora::forms

#include "forms/Dialogo.h"

#include <algorithm>

#include "host/Platform.h"
#include "value/Text.h"

namespace celdora::forms {

Dialogo::Dialogo(std::string clase, std::string caption) : clase_(std::move(clase)), caption_(std::move(caption)) {}

Dialogo::~Dialogo() {
    // A renderer still watching learns that the dialog is gone and lets go.
    cargado_ = false;
    visible_ = false;
    foco_ = nullptr;
    NotificarDialogo();
}

void Dialogo::Caption(const std::string& value) {
    if (caption_ == value) return;
    caption_ = value;
    NotificarDialogo();
}

Control* Dialogo::Buscar(const std::string& nombre) const {
    for (const auto& control : controles_) {
        if (EqualText(control->Nombre(), nombre)) return control.get();
    }
    return nullptr;
}

void Dialogo::Load() {
    if (cargado_) return;
    cargado_ = true;
    Form_Load();
    NotificarDialogo();
}

void Dialogo::Unload() {
    if (!cargado_) return;
    Form_Unload();
    cargado_ = false;
    visible_ = false;
    foco_ = nullptr;
    NotificarDialogo();
}

void Dialogo::Cerrar() {
    if (!Form_QueryUnload()) return;
    Unload();
}

void Dialogo::ShowModal() {
    Load();
    visible_ = true;
    ++modal_;
    NotificarDialogo();
    try {
        host::CurrentPlatform().Ui().ShowModal(*this);
    } catch (...) {
        --modal_;
        throw;
    }
    --modal_;
    // A service that came back with the dialog still up (its input ended)
    // has closed it as a person would.
    if (visible_) Cerrar();
    if (visible_) Hide();
}

void Dialogo::Show() {
    Load();
    visible_ = true;
    NotificarDialogo();
    host::CurrentPlatform().Ui().Show(*this);
}

void Dialogo::Hide() {
    if (!visible_) return;
    visible_ = false;
    NotificarDialogo();
}

void Dialogo::Observar(Observador* observador) { observadores_.push_back(observador); }

void Dialogo::Dejar(Observador* observador) {
    observadores_.erase(std::remove(observadores_.begin(), observadores_.end(), observador), observadores_.end());
}

void Dialogo::Enfocar(Control& control) {
    if (foco_ == &control) return;
    Control* anterior = foco_;
    foco_ = &control;
    if (anterior != nullptr && anterior->LostFocus) anterior->LostFocus();
    if (control.GotFocus) control.GotFocus();
    NotificarDialogo();
}

void Dialogo::Notificar(Control& control) {
    // A copy: an observer may stop watching while it is told.
    const auto observadores = observadores_;
    for (Observador* observador : observadores) observador->ControlCambiado(control);
}

void Dialogo::NotificarDialogo() {
    const auto observadores = observadores_;
    for (Observador* observador : observadores) observador->DialogoCambiado();
}

}  // namespace celdora::forms

#include "forms/Control.h"

#include "forms/Dialogo.h"

namespace celdora::forms {

Control::Control(Dialogo& dialogo, std::string nombre, TipoControl tipo)
    : dialogo_(dialogo), nombre_(std::move(nombre)), tipo_(tipo) {}

void Control::Enabled(bool value) { Fijar(enabled_, value); }

void Control::Visible(bool value) { Fijar(visible_, value); }

void Control::Tag(const std::string& value) { Fijar(tag_, value); }

void Control::Caption(const std::string& value) { Fijar(caption_, value); }

void Control::Colocar(const std::string& contenedor, int pagina) {
    contenedor_ = contenedor;
    pagina_ = pagina;
    Cambio();
}

void Control::Superponer(const Control& otro) {
    lugar_ = otro.Lugar().empty() ? otro.Nombre() : otro.Lugar();
    Colocar(otro.Contenedor(), otro.Pagina());
}

void Control::SetFocus() { dialogo_.Enfocar(*this); }

bool Control::TieneFoco() const { return dialogo_.Foco() == this; }

bool Control::Accesible() const {
    if (!enabled_ || !visible_) return false;
    if (contenedor_.empty()) return true;
    Control* contenedor = dialogo_.Buscar(contenedor_);
    return contenedor == nullptr || contenedor->Accesible();
}

int Control::Tecla(int keyAscii) {
    if (KeyPress) KeyPress(keyAscii);
    return keyAscii;
}

void Control::Cambio() { dialogo_.Notificar(*this); }

}  // namespace celdora::forms

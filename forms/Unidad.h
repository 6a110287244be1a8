#pragma once

// A page unit: controls with the routines and state that work on them, shown
// by several dialogs (the main configuration dialog's pages in the setup
// wizard, the issuer's address in the CBB issuer). The dialog that composes a
// unit constructs it among its own controls, and the unit adds its controls
// to that dialog at that point of the declaration order; the dialog then
// places them (page, panel) where its layout wants them.

#include <string>
#include <utility>

#include "forms/Dialogo.h"

namespace celdora::forms {

class Unidad {
public:
    Unidad(const Unidad&) = delete;
    Unidad& operator=(const Unidad&) = delete;

    Dialogo& Formulario() const { return dialogo_; }

protected:
    explicit Unidad(Dialogo& dialogo) : dialogo_(dialogo) {}
    ~Unidad() = default;

    template <class T, class... A>
    T& Agregar(std::string nombre, A&&... argumentos) {
        return dialogo_.Agregar<T>(std::move(nombre), std::forward<A>(argumentos)...);
    }

private:
    Dialogo& dialogo_;
};

}  // namespace celdora::forms

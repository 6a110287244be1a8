#pragma once

// The prompt for the payment form of a document that has none.

#include <string>

#include "forms/Controles.h"
#include "forms/Dialogo.h"

namespace celdora {

class dlgFormaPago : public forms::Dialogo {
public:
    dlgFormaPago();

    forms::Label& lblF = Agregar<forms::Label>(
        "lblF",
        "El documento actual no tiene forma de pago especificada, por favor seleccione una opción de la lista:");
    forms::ComboBox& cmbFP = Agregar<forms::ComboBox>("cmbFP", forms::ComboBox::Estilo::SoloLista);
    forms::CommandButton& btnOK = Agregar<forms::CommandButton>("btnOK", "&Aceptar");
    forms::CommandButton& btnCancelar = Agregar<forms::CommandButton>("btnCancelar", "&Cancelar");

    // The chosen text; empty when cancelled or closed.
    const std::string& FormaPago() const { return formaPago_; }

private:
    std::string formaPago_;
};

}  // namespace celdora

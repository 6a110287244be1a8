#pragma once

// The prompt for the mail addresses a message goes to.

#include <string>

#include "forms/Controles.h"
#include "forms/Dialogo.h"

namespace celdora {

class dlgAddress : public forms::Dialogo {
public:
    dlgAddress();

    forms::Label& lblIndique = Agregar<forms::Label>(
        "lblIndique", "Indique las direcciones de correo a las que desea enviar este mensaje.");
    forms::TextBox& Text = Agregar<forms::TextBox>("Text");
    forms::Label& lblVarias = Agregar<forms::Label>(
        "lblVarias", "Puede incluir más de una dirección de correo separadas por punto y coma (;).");
    forms::CommandButton& btnOK = Agregar<forms::CommandButton>("btnOK", "&Aceptar");
    forms::CommandButton& btnCancel = Agregar<forms::CommandButton>("btnCancel", "&Cancelar envío");

    // Puts the proposed addresses in the field.
    void load(const std::string& text);
    // The addresses as typed.
    std::string getAddress() const;

protected:
    void Form_Load() override;

private:
    void Aceptar();
    void CancelarEnvio();
};

}  // namespace celdora

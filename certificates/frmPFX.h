#pragma once

// A small password form for building a PFX file. It is part of the project
// as a definition only: nothing opens it, since the PFX is built with the
// password of the certificate editor, and it has no behaviour of its own.

#include "forms/Controles.h"
#include "forms/Dialogo.h"

namespace celdora {

class frmPFX : public forms::Dialogo {
public:
    frmPFX();

    forms::Label& lblIndique = Agregar<forms::Label>(
        "lblIndique",
        "Para generar el archivo pfx indique la contraseña de la llave privada. Esta contraseña debe ser la misma "
        "que asignó en el formulario anterior");
    forms::TextBox& txtPWD = Agregar<forms::TextBox>("txtPWD", "Contraseña:");
    forms::TextBox& txtPWD2 = Agregar<forms::TextBox>("txtPWD2", "Repetir contraseña");
    forms::CommandButton& btnOK = Agregar<forms::CommandButton>("btnOK", "&Aceptar");
    forms::CommandButton& btnCancel = Agregar<forms::CommandButton>("btnCancel", "&Cancelar");
};

}  // namespace celdora

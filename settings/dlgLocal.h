#pragma once

// What belongs to one machine and not to the company: the folder for local
// copies of comprobantes, whether a comprobante is stamped right after it is
// sealed, and the account at the stamping provider. All of it lives in the
// per-machine store under the host's application name and "Config".

#include <string>

#include "forms/Controles.h"
#include "forms/Dialogo.h"
#include "settings/CuentaTimbrado.h"

namespace celdora {

class cAcction;

class dlgLocal : public forms::Dialogo {
public:
    dlgLocal();

    // The facade, given by the opener and let go when the form unloads.
    cAcction* oAcc = nullptr;

    forms::Label& lblEquipo = Agregar<forms::Label>("lblEquipo", "Configuración aplicada solo a este equipo");
    forms::Frame& fraCopia = Agregar<forms::Frame>("fraCopia", "Configuración para CFDI y CFD 2.0");
    forms::CheckBox& chkGuardarRespaldo =
        Agregar<forms::CheckBox>("chkGuardarRespaldo", "Guardar una copia del comprobante");
    forms::TextBox& txtCopiaLocal = Agregar<forms::TextBox>("txtCopiaLocal", "Seleccione la ubicación:");
    forms::CommandButton& btnCopiaLocal = Agregar<forms::CommandButton>("btnCopiaLocal", "...");
    forms::Frame& fraTimbre = Agregar<forms::Frame>("fraTimbre", "Configuración únicamente para CFDI:");
    cuenta::CuentaTimbrado cuenta{*this, "txtUsuario", "Usuario para obtener el timbre fiscal digital:"};
    forms::CommandButton& btnOK = Agregar<forms::CommandButton>("btnOK", "&Aceptar");
    forms::CommandButton& btnCancel = Agregar<forms::CommandButton>("btnCancel", "&Cancelar");

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void cargarConfiguracion();
    void seleccionarCarpeta();
    // The folder the user chose in the shell's picker; "" when cancelled.
    std::string pedirCarpeta(const std::string& rutaInicial);
    bool validarDatos();
    bool guardarConfiguracion();
    void btnOK_Click();

    cAcction& Fachada() const;
};

}  // namespace celdora

#pragma once

// The account at the stamping provider, kept in the per-machine store: the
// list of connection components from CFDI\PAC.inf in the repository folder,
// and the reading and writing of the keys FE_Timbrar and FE_Timbre001 to
// FE_Timbre004. The local settings dialog and the wizard's account page
// both compose this unit: its controls, the password as read, and the
// routines that fill, read and write them.

#include <string>

#include "forms/Controles.h"
#include "forms/Unidad.h"

namespace celdora {

class cAcction;

namespace cuenta {

// The component offered when PAC.inf lists none.
inline constexpr const char* kComponentePorOmision = "psecfdi.edicom.cMain";

class CuentaTimbrado : public forms::Unidad {
public:
    // The user's field is "txtUsuario" in the local settings dialog and
    // "txtUsuarioTimbre" in the wizard; only the local settings dialog puts
    // a label above it (rotuloUsuario "" adds none).
    CuentaTimbrado(forms::Dialogo& dialogo, const std::string& nombreUsuario, const std::string& rotuloUsuario);

    forms::CheckBox& chktimbrar;
    forms::ComboBox& cmbPAC;
    forms::Label* lblUsuario;
    forms::TextBox& txtUsuario;
    forms::TextBox& txtSucursal;
    forms::TextBox& txtPWD;
    forms::TextBox& txtPWDRep;

    // The stored digest of the password as read, against which a save tells
    // whether it was retyped.
    std::string claveGuardada;

    // Places the controls in a container of the dialog (a frame, or a page
    // of a tab control).
    void Colocar(const std::string& contenedor, int pagina = 0);

    // Fills cmbPAC from PAC.inf (or with the single default entry) and
    // selects the first entry. Errors are passed over.
    void cargarComponentes(const std::string& repositorio);
    // Reads the account into the controls and keeps the password as read.
    // Errors are passed over.
    void leerCuenta(cAcction& acc);
    // Writes FE_Timbrar and FE_Timbre001 to FE_Timbre003, and FE_Timbre004
    // as the digest of the password only when the password's text differs
    // from the one read. A fault of the store ends the writing and reaches
    // the caller; the keys already written stay written.
    void guardarCuenta(cAcction& acc);
    // Whether the password and its repetition match, trimmed.
    bool clavesCoinciden() const;
};

}  // namespace cuenta
}  // namespace celdora

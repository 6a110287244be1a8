#pragma once

// The account at the stamping provider, kept in the per-machine store: the
// list of connection components from CFDI\PAC.inf in the repository folder,
// and the reading and writing of the keys FE_Timbrar and FE_Timbre001 to
// FE_Timbre004. The local settings dialog and the wizard's account page
// both show these controls and call these routines.

#include <string>

#include "forms/Controles.h"

namespace celdora {

class cAcction;

namespace cuenta {

// The component offered when PAC.inf lists none.
inline constexpr const char* kComponentePorOmision = "psecfdi.edicom.cMain";

struct ControlesCuenta {
    forms::CheckBox& chktimbrar;
    forms::ComboBox& cmbPAC;
    forms::TextBox& txtUsuario;
    forms::TextBox& txtSucursal;
    forms::TextBox& txtPWD;
    forms::TextBox& txtPWDRep;
};

// Fills cmbPAC from PAC.inf (or with the single default entry) and selects
// the first entry. Errors are passed over.
void CargarComponentes(forms::ComboBox& cmbPAC, const std::string& repositorio);

// Reads the account into the controls; the answer is the stored digest of
// the password as read, against which a save tells whether it was retyped.
// Errors are passed over.
std::string LeerCuenta(ControlesCuenta& c, cAcction& acc);

// Writes FE_Timbrar and FE_Timbre001 to FE_Timbre003, and FE_Timbre004 as
// the digest of the password only when the password's text differs from
// claveGuardada. A fault of the store ends the writing and reaches the
// caller; the keys already written stay written.
void GuardarCuenta(ControlesCuenta& c, cAcction& acc, const std::string& claveGuardada);

}  // namespace cuenta
}  // namespace celdora

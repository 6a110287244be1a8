#include "certificates/frmPFX.h"

namespace celdora {

frmPFX::frmPFX() : Dialogo("frmPFX", "Crear archivo pfx") {
    txtPWD.PasswordChar("*");
    txtPWD2.PasswordChar("*");
    btnOK.Default(true);
    btnCancel.Cancel(true);
}

}  // namespace celdora

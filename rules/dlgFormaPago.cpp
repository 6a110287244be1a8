#include "rules/dlgFormaPago.h"

namespace celdora {

dlgFormaPago::dlgFormaPago() : Dialogo("dlgFormaPago", "Forma de pago") {
    cmbFP.AddItem("PAGO EN UNA SOLA EXHIBICIÓN");
    cmbFP.AddItem("CRÉDITO");
    cmbFP.ListIndex(0);
    btnOK.Default(true);
    btnOK.Click = [this] {
        formaPago_ = cmbFP.Text();
        Hide();
    };
    btnCancelar.Cancel(true);
    btnCancelar.Click = [this] {
        formaPago_.clear();
        Hide();
    };
}

}  // namespace celdora

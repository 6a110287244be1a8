#include "configdialog/Marco.h"

#include "value/Fault.h"

namespace celdora::configuracion {

cAcction& Marco::Fachada() const {
    if (oAcc == nullptr) throw ObjectNotSet();
    return *oAcc;
}

void Marco::IrA(int pagina, forms::Control& control) const {
    if (paginas != nullptr) paginas->SelectedItem(pagina);
    control.SetFocus();
}

}  // namespace celdora::configuracion

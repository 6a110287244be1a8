#include "configdialog/Marco.h"

#include "core/cAcction.h"
#include "value/Fault.h"

namespace celdora::configuracion {

cAcction& Marco::Fachada() const {
    if (oAcc == nullptr) throw ObjectNotSet();
    return *oAcc;
}

host::GlobalVar& Marco::Ajustes() const { return Deref(Fachada().GlobalVar); }

void Marco::IrA(int pagina, forms::Control& control) const {
    if (paginas != nullptr) paginas->SelectedItem(pagina);
    control.SetFocus();
}

}  // namespace celdora::configuracion

#include "configdialog/Marco.h"

namespace celdora::configuracion {

void Marco::IrA(int pagina, forms::Control& control) const {
    if (paginas != nullptr) paginas->SelectedItem(pagina);
    control.SetFocus();
}

}  // namespace celdora::configuracion

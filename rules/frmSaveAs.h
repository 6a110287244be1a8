#pragma once

// The library's own save dialog for the host: a form that holds only the
// common file dialog.

#include <string>

#include "forms/Controles.h"
#include "forms/Dialogo.h"

namespace celdora {

class frmSaveAs : public forms::Dialogo {
public:
    frmSaveAs();

    forms::CommonDialog& CommonDialog1 = Agregar<forms::CommonDialog>("CommonDialog1");

    // The chosen path, or "" when the user cancelled; never a fault.
    std::string SaveAs(const std::string& filter, const std::string& fileName);
};

}  // namespace celdora

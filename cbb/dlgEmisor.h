#pragma once

// The issuer's name, RFC and fiscal address for a company on CBB, reached
// from the CBB range list. It keeps the same three settings and the same
// address object as the main configuration dialog's issuer page, which it
// composes, with fewer checks: only the RFC's length, and not the address.

#include "configdialog/Marco.h"
#include "configdialog/PaginaEmisor.h"
#include "forms/Controles.h"
#include "forms/Dialogo.h"

namespace celdora {

class cAcction;

class dlgEmisor : public forms::Dialogo {
public:
    dlgEmisor();

    // Keeps the facade; the form reads the settings when it loads.
    void SetDataObjects(cAcction& acc);

private:
    configuracion::Marco marco_;

public:
    forms::TabControl& TabControl = Agregar<forms::TabControl>("TabControl", std::vector<std::string>{"General"});
    configuracion::PaginaEmisor emisor{*this, marco_};
    forms::CommandButton& btnOK = Agregar<forms::CommandButton>("btnOK", "&Aceptar");
    forms::CommandButton& btnCancel = Agregar<forms::CommandButton>("btnCancel", "&Cancelar");

protected:
    void Form_Load() override;

private:
    void btnOK_Click();
    void btnCancel_Click();
    bool guardarEmisor();
};

}  // namespace celdora

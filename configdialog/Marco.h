#pragma once

// What the page units of a configuration dialog share with the dialog that
// shows them: the facade, the flag raised while the dialog loads (some
// handlers ignore the events their own loading raises), and the tab control
// through which a check that fails takes the user to its page.

#include "forms/Controles.h"
#include "host/Settings.h"

namespace celdora {

class cAcction;

namespace configuracion {

struct Marco {
    cAcction* oAcc = nullptr;
    bool cargando = false;
    forms::TabControl* paginas = nullptr;

    // The facade, when a routine runs; fault 91 while the dialog has none.
    cAcction& Fachada() const;
    // The company's key store, through the facade; fault 91 when either is
    // missing.
    host::GlobalVar& Ajustes() const;

    // Selects the page of that index and gives the control the focus.
    void IrA(int pagina, forms::Control& control) const;
};

}  // namespace configuracion
}  // namespace celdora

#pragma once

#include <memory>

#include "app/celdora/Opciones.h"
#include "host/UiServices.h"

namespace celdora::app {

// The user interface of a run. The commands that show dialogs (dialog,
// informe) use Qt when the tool was built with it, there is a display and
// the command line does not ask for the terminal (--console); everything
// else, and those commands without a display, use the terminal with the
// fixed answer of --si / --no.
std::unique_ptr<host::UiServices> CrearInterfaz(const Opciones& opciones);

}  // namespace celdora::app

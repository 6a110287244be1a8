#pragma once

#include <iosfwd>

#include "app/celdora/Opciones.h"

namespace celdora::app {

// "celdora dialog [NOMBRE]": without a name, lists the dialogs that can be
// opened; with one, opens that dialog modally through the platform's user
// interface (Qt or the terminal, as the tool chose) and says afterwards
// whether it was accepted. The facade the dialog gets is bound to --db when
// that database exists; a dialog that needs no database opens without one.
int MostrarDialogo(const Opciones& opciones, std::ostream& out);

// The control panel, as ConfiguracionPrincipal opens it, on the facade bound
// to the database of --db.
int AbrirPanel(const Opciones& opciones, std::ostream& out);

}  // namespace celdora::app

#pragma once

// The dialogs that can be opened by their class name, for the tool that
// shows any dialog of the library (in Qt or on a terminal) and for tests of
// the renderers.

#include <memory>
#include <string>
#include <vector>

#include "forms/Dialogo.h"

namespace celdora {

class cAcction;

namespace dialogos {

// The class names, in alphabetical order.
std::vector<std::string> Nombres();
// A new dialog of that class (compared without regard to case), handed the
// facade where it needs one; null when there is no dialog of that name.
std::unique_ptr<forms::Dialogo> Crear(const std::string& nombre, cAcction& accion);

}  // namespace dialogos
}  // namespace celdora

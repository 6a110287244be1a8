#pragma once

#include <string>

namespace celdora::informe {

// The folder that a report goes to, chosen in the shell's folder picker
// titled "Carpeta destino": its path, or "" when the user cancelled. When the
// shell object cannot be created the user is told so and the answer is "".
// Both report dialogs choose their folder here.
std::string SeleccionarCarpeta();

}  // namespace celdora::informe

#pragma once

// The message boxes of the system, shown through the platform's user
// interface service. The texts and titles are each caller's own.

#include <string>

#include "host/UiServices.h"
#include "value/Fault.h"

namespace celdora::core {

// A box with only OK; an empty title means the box has none of its own.
void Caja(const std::string& texto, host::Icono icono = host::Icono::Ninguno, const std::string& titulo = "");
// A Yes/No question with the question icon; true when the answer is Yes.
bool Pregunta(const std::string& texto, const std::string& titulo = "");
// The failure box of the members that report by message box:
// "Error " + number + " (" + description + ")" with the exclamation icon.
void CajaDeFalla(const Fault& fault);

}  // namespace celdora::core

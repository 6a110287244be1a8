#pragma once

// The orders a person types at a dialog on the terminal, one per line. Each
// acts through the model as a person would (typing goes through KeyPress,
// pressing runs Click) and refuses, with one line that begins "Error: ",
// what a person could not do: an unknown order or control, a control that
// is hidden, on another page or disabled, a read-only field; what it
// refuses for a word it does not understand says what it takes instead.
// Control names are found without regard to case; items are numbered from 1
// or named by their text. A text may be given in double quotes, so that its
// blanks at either end are kept and "" is the empty text.

#include <iosfwd>
#include <string>

#include "forms/Dialogo.h"

namespace celdora::platform::consola {

// What a line asks of the renderer besides acting on the model.
enum class Pedido { Nada, VerTodo };

Pedido EjecutarOrden(forms::Dialogo& dialogo, const std::string& linea, std::ostream& out);
// The orders, their aliases and what they do.
void Ayuda(std::ostream& out);
// A text without the double quotes around it, when it has them: "\"a b\""
// reads "a b", "\"\"" the empty text; any other text as it is.
std::string SinComillas(const std::string& texto);

}  // namespace celdora::platform::consola

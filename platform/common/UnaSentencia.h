#pragma once

// The adapters' defence against statements glued after a value: one text,
// one statement. The system glues values into its SQL without escaping, so a
// value holding "'; DELETE ..." would otherwise run a statement of its own.

#include <string>
#include <string_view>

#include "value/Fault.h"

namespace celdora::platform {

// Fault 3001 with the text that a second statement was refused.
Fault SegundaSentenciaRechazada();

// Raises SegundaSentenciaRechazada when the text holds a statement after a
// ";" that ends one. Semicolons inside string literals ('...' with '' for a
// quote), quoted names ("...", `...`, [...]) and comments (-- to the end of
// the line, /* ... */) do not count; blanks, further ";" and comments after
// the statement are allowed, and so are empty statements before it
// ("; SELECT 1").
//
// The text is read the way each family of engines reads it, and refused when
// any of them would see two statements: the common reading above; MySQL's,
// where a backslash escapes a quote inside a literal, "#" starts a comment,
// "--" does so only before a blank, and "/*!" holds code; and SQL Server's,
// where block comments nest. A value such as  x\''; DELETE ...  therefore
// cannot end its literal early on MySQL and hide from the common reading.
void ExigirUnaSentencia(const std::string& sql);

// The text of the one statement without the ";" that ends it and what
// follows (blanks, further ";" and comments). Raises
// SegundaSentenciaRechazada as ExigirUnaSentencia does.
std::string_view SentenciaUnica(std::string_view sql);

}  // namespace celdora::platform

#pragma once

// What SQLite lacks of the MySQL dialect that the system writes: the
// functions UUID(), NOW(), Year(), Month() and the one-argument null test
// ISNULL(x). ISNULL is a keyword of SQLite's grammar (the postfix "x ISNULL"),
// so a call isnull( is renamed to a function of ours before preparing.

#include <string>
#include <string_view>

struct sqlite3;

namespace celdora::platform::sqlite {

// The name under which the one-argument null test is registered.
inline constexpr const char* kFuncionIsNull = "celdora_isnull";

// Every call isnull( (any case, blanks allowed before the parenthesis)
// renamed to kFuncionIsNull, except inside string literals, quoted names and
// comments, and where isnull ends a longer name.
std::string RenombrarIsNull(std::string_view sql);

// The engine's message with the renamed function spelled as the statement
// had it, so that a fault speaks of isnull.
std::string MensajeConIsNull(std::string mensaje);

// Registers the functions on a connection; a failure raises a Fault.
void RegistrarFuncionesMySql(sqlite3* db);

}  // namespace celdora::platform::sqlite

#pragma once

// SQLite's failures as Faults: the extended result code and the engine's
// message, mapped here and nowhere else.

#include <string>

#include "value/Fault.h"

struct sqlite3;

namespace celdora::platform::sqlite {

// The last failure of a connection.
Fault FaultDe(sqlite3* db);
// A failure known only by its result code (no connection to ask).
Fault FaultDeCodigo(int codigo);

}  // namespace celdora::platform::sqlite

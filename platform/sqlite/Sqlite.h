#pragma once

// The embedded engine: opening a SQLite database as one of our connections,
// and running a script of several statements (schema files and fixtures).

#include <memory>
#include <string>

#include "platform/common/ConexionMotor.h"
#include "platform/common/Motor.h"

namespace celdora::platform {

// Opens (creating it if absent) the database at path, ":memory:" for a
// private database in memory. Foreign keys stay off and a locked database is
// waited for up to 5 seconds. A file that cannot be opened as a database
// raises a Fault with SQLite's code and message.
std::unique_ptr<Motor> AbrirMotorSqlite(const std::string& path);
std::shared_ptr<ConexionMotor> AbrirSqlite(const std::string& path);

// Runs every statement of a script in order, the one place where several
// statements run from one text. The first failure stops the script with a
// Fault that names the first line of the failing statement. A connection
// that is not over SQLite raises Fault 3001.
void EjecutarGuion(ConexionMotor& conexion, const std::string& script);

}  // namespace celdora::platform

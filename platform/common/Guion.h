#pragma once

// Running a script of several statements (a schema or the demo data) on any
// engine, one statement at a time, since the engines run one per call.

#include <string>

#include "platform/common/ConexionMotor.h"

namespace celdora::platform {

// Cuts the script the way the schema files are written: whole lines that
// begin with "--" (blanks before them allowed) are dropped, and a statement
// ends with a ";" at the end of a line; a ";" anywhere else belongs to the
// statement. Each piece that is not blank runs through the connection's
// engine, without its final ";". The first failure stops the script with the
// engine's Fault, its text followed by the first line of the statement that
// failed; the statements before it stay run.
void EjecutarGuionPorPartes(ConexionMotor& conexion, const std::string& guion);

}  // namespace celdora::platform

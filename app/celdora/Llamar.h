#pragma once

#include <iosfwd>

#include "app/celdora/Opciones.h"

namespace celdora::app {

// "celdora call MIEMBRO [ARGS...]": binds a cAcction to the database of
// --db the way a host does (SetDataObjects with a data object and a
// catalogue over the connection, then ApplicationName), calls the member by
// name through the dispatch table and prints its result, one line per item,
// followed by "LastErrorDescript: ..." when that is not empty. The message
// boxes the member shows appear as it shows them, through the platform's
// user interface.
//
// Arguments are texts that the table converts to each argument's kind; two
// words stand for objects: "@conexion" is the database connection and
// "@usuario" a user in the groups of --grupos. A fault that ends the call
// goes to the caller.
int Llamar(const Opciones& opciones, std::ostream& out);

}  // namespace celdora::app

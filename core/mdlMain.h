#pragma once

// The shared module: the routines through which the whole library reads the
// database. There is no query layer; each caller writes its own statement,
// opens it here and reads fields by name.

#include <cstdint>
#include <memory>
#include <string>

#include "host/Ado.h"
#include "value/Variant.h"

namespace celdora::mdlMain {

// Opens a statement on a client-side cursor. Gives none, and says nothing,
// when the recordset cannot be created or the statement cannot be opened.
// The caller closes what it gets.
std::shared_ptr<host::Recordset> AbrirConsulta(const std::shared_ptr<host::Connection>& connection,
                                               const std::string& sql);

// The value of one field of the first row, Empty when there is no row, the
// field is Null, or the statement fails. An empty campo reads the first field.
Variant LeerValorConsulta(const std::shared_ptr<host::Connection>& connection, const std::string& sql,
                          const std::string& campo);

// Whether a row with that key exists. A statement that cannot be opened
// answers true, so that the guards built on it refuse when they cannot tell.
bool ExisteRegistro(const std::shared_ptr<host::Connection>& connection, const std::string& tabla,
                    std::int32_t clave, const std::string& campo);

// A field of the current row as text ("" for Null) and as a number (0 for Null).
std::string TextoCampo(host::Recordset& recordset, const std::string& campo);
double NumeroCampo(host::Recordset& recordset, const std::string& campo);

}  // namespace celdora::mdlMain

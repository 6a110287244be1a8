#pragma once

// The DDL scripts and the demo company's data, carried inside the binaries
// so that the tool and the tests need no files beside them.

#include <string_view>

namespace celdora::schema {

std::string_view EsquemaSqlite();
std::string_view EsquemaMariadb();
std::string_view EsquemaSqlServer();
std::string_view EsquemaAccess();
std::string_view DatosDemo();

}  // namespace celdora::schema

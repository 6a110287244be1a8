#include "platform/mariadb/ErrorMariadb.h"

#include <errmsg.h>
#include <mysql.h>

namespace celdora::platform::mariadb {

namespace {

// A handle that reports no error (it should not happen after a failed call)
// still gives a fault that says something.
Fault Armar(unsigned int numero, const char* mensaje) {
    if (numero == 0) return Fault{CR_UNKNOWN_ERROR, "Unknown MariaDB error"};
    return Fault{static_cast<long>(numero), mensaje != nullptr ? mensaje : ""};
}

}  // namespace

Fault FaultDe(MYSQL* db) {
    if (db == nullptr) return Fault{CR_OUT_OF_MEMORY, "MariaDB client ran out of memory"};
    return Armar(mysql_errno(db), mysql_error(db));
}

Fault FaultDe(MYSQL_STMT* sentencia) {
    if (sentencia == nullptr) return Fault{CR_OUT_OF_MEMORY, "MariaDB client ran out of memory"};
    return Armar(mysql_stmt_errno(sentencia), mysql_stmt_error(sentencia));
}

}  // namespace celdora::platform::mariadb

#pragma once

// MariaDB's failures as Faults: the server's (or the client library's) error
// number and message, taken here and nowhere else.

#include "value/Fault.h"

struct st_mysql;
struct st_mysql_stmt;

namespace celdora::platform::mariadb {

// The last failure of a connection.
Fault FaultDe(st_mysql* db);
// The last failure of a prepared statement.
Fault FaultDe(st_mysql_stmt* sentencia);

}  // namespace celdora::platform::mariadb

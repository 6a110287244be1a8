#include "platform/sqlite/ErrorSqlite.h"

#include <sqlite3.h>

#include "platform/sqlite/DialectoMySql.h"

namespace celdora::platform::sqlite {

Fault FaultDe(sqlite3* db) {
    if (db == nullptr) return FaultDeCodigo(SQLITE_NOMEM);
    return Fault{sqlite3_extended_errcode(db), MensajeConIsNull(sqlite3_errmsg(db))};
}

Fault FaultDeCodigo(int codigo) { return Fault{codigo, sqlite3_errstr(codigo)}; }

}  // namespace celdora::platform::sqlite

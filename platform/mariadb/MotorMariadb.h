#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/common/Motor.h"

struct st_mysql;
struct st_mysql_stmt;

namespace celdora::platform {

// The engine over a MariaDB or MySQL connection, which already speaks the
// dialect the system writes. A statement with parameters is prepared and
// run with them bound; one without goes as plain text, in one round trip,
// and gives the same values. The connection never
// allows several statements in one text, so a second one after a ";" is
// refused by the server before anything runs.
//
// Values read: DATETIME, DATE and TIMESTAMP as Date (a zero date as Null),
// TIME as the time of day of day 0; TINYINT, SMALLINT and YEAR as Integer;
// INT and MEDIUMINT as Long, BIGINT as Long when it fits 32 bits, else as
// Double; FLOAT, DOUBLE and DECIMAL as Double; texts as String (utf8mb4);
// binary columns (BLOB, BINARY, VARBINARY) as Bytes; NULL as Null.
// Values written: booleans as -1 and 0, currency as a double, dates as
// DATETIME, Bytes as a blob.
class MotorMariadb : public Motor {
public:
    // Takes a connected handle.
    explicit MotorMariadb(st_mysql* db);
    ~MotorMariadb() override;
    MotorMariadb(const MotorMariadb&) = delete;
    MotorMariadb& operator=(const MotorMariadb&) = delete;

    bool Abierto() const override;
    void Cerrar() override;
    Resultado Ejecutar(const std::string& sql, Parametros parametros = {}) override;
    // A query runs on a read-only cursor that the server keeps: the rows
    // come to the client a batch at a time as they are read, so that the
    // client never holds the whole result, and the connection runs other
    // statements in between. The server makes the rows when the statement
    // runs, in its transaction: changes made meanwhile do not show in them.
    // Where the server opens no cursor (no rows or a single one, a statement
    // that is not a query) the rows are read at once.
    Resultado Recorrer(const std::string& sql) override;
    std::int64_t UltimaClave() override;
    std::vector<std::string> ClavePrimaria(const std::string& tabla) override;
    void IniciarTransaccion() override;
    void ConfirmarTransaccion() override;
    void RevertirTransaccion() override;
    bool EnTransaccion() const override;

private:
    st_mysql* Db() const;
    // Runs a statement in the text protocol; its rows are read all at once.
    Resultado ComoTexto(const std::string& sql);
    // What a statement without rows did: rows touched, and the new key.
    Resultado SinFilas(st_mysql_stmt* sentencia);
    void Directo(const char* sql);

    st_mysql* db_ = nullptr;
    std::int64_t ultimaClave_ = 0;
};

}  // namespace celdora::platform

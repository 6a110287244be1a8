#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/common/Motor.h"

struct sqlite3;

namespace celdora::platform {

// The engine over a SQLite database, speaking the MySQL dialect the system
// writes (see DialectoMySql.h). One statement per Ejecutar: a second one
// after a ";" is refused before anything runs.
//
// Values: a column declared with DATE or TIME in its type reads as Date
// (from 'YYYY-MM-DD HH:MM:SS' or 'YYYY-MM-DD' text, or a number taken as a
// serial date); integers read as Long when they fit 32 bits, as Integer for
// columns declared SMALLINT or TINYINT, else as Double; reals as Double, text
// as String, blobs as Bytes. Dates are written as 'YYYY-MM-DD HH:MM:SS' text,
// booleans as -1 and 0, currency as a real.
class MotorSqlite : public Motor {
public:
    // Takes an open handle; the functions of the dialect are registered on it.
    explicit MotorSqlite(sqlite3* db);
    ~MotorSqlite() override;
    MotorSqlite(const MotorSqlite&) = delete;
    MotorSqlite& operator=(const MotorSqlite&) = delete;

    bool Abierto() const override;
    void Cerrar() override;
    Resultado Ejecutar(const std::string& sql, Parametros parametros = {}) override;
    // The rows are stepped as they are read, from the tables as they stand
    // then: a change this connection makes meanwhile to a row not yet read
    // may show in it, and a row it changes may come again.
    Resultado Recorrer(const std::string& sql) override;
    std::int64_t UltimaClave() override;
    std::vector<std::string> ClavePrimaria(const std::string& tabla) override;
    void IniciarTransaccion() override;
    void ConfirmarTransaccion() override;
    void RevertirTransaccion() override;
    bool EnTransaccion() const override;

    // Every statement of a script, in order; see EjecutarGuion in Sqlite.h.
    void EjecutarGuion(const std::string& guion);

    // Whether this SQLite tells the table and column a result column comes
    // from; without it a recordset cannot Update.
    static bool ConOrigenDeColumnas();

private:
    sqlite3* Db() const;
    void Directo(const char* sql);

    sqlite3* db_ = nullptr;
};

}  // namespace celdora::platform

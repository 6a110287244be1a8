#pragma once

// The engine behind a database connection. Each adapter (SQLite, MariaDB,
// ODBC) implements this small interface once; the ADO-shaped objects the
// system sees (connection, recordset, data object, row writer, settings
// store) are written over it in platform/common and shared by all engines.

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "value/Variant.h"

namespace celdora::platform {

struct Columna {
    std::string nombre;       // the name the statement gives the column
    std::string tablaBase;    // the table it comes from, "" for an expression
    std::string columnaBase;  // its name in that table, "" for an expression
};

// The rows of a statement that the engine hands one at a time, as the
// caller asks for them, instead of all at once.
class Cursor {
public:
    virtual ~Cursor() = default;
    // The next row into fila, one value per column; false after the last,
    // and from then on. A failure raises the engine's Fault.
    virtual bool Siguiente(std::vector<Variant>& fila) = 0;
};

struct Resultado {
    bool tieneFilas = false;  // the statement yields rows (even none)
    std::vector<Columna> columnas;
    std::vector<std::vector<Variant>> filas;
    // From Recorrer: the rows not in filas, still to be read.
    std::unique_ptr<Cursor> pendientes;
    // Rows that a statement without rows touched. An UPDATE counts every row
    // it matched, also one that already held the values written: the row
    // writer, the settings store and Update rely on 0 meaning "no such row".
    std::int64_t afectadas = 0;
};

class Motor {
public:
    virtual ~Motor() = default;

    virtual bool Abierto() const = 0;
    virtual void Cerrar() = 0;

    // Runs exactly one statement; a text with a second statement after a ";"
    // is refused with a Fault. Parameters bind to "?" in order. Dates travel
    // as 'YYYY-MM-DD HH:MM:SS' and come back as Date; binary as Bytes; an
    // empty column as Null. A failure raises a Fault with the engine's number
    // and message.
    virtual Resultado Ejecutar(const std::string& sql, const std::vector<Variant>& parametros = {}) = 0;

    // Runs one statement that yields rows, and hands them as the caller
    // reads them, in pendientes, where the engine can; otherwise all at
    // once, as Ejecutar does. While rows are pending, the connection runs
    // other statements; whether a change they make to a row not yet read
    // shows in it depends on the engine (it does on SQLite, where rows are
    // read from the tables as they are asked for; it does not on MariaDB,
    // which holds the rows on the client).
    virtual Resultado Recorrer(const std::string& sql) { return Ejecutar(sql); }

    // The key given to the last row this connection inserted.
    virtual std::int64_t UltimaClave() = 0;
    // The primary key columns of a table, in order.
    virtual std::vector<std::string> ClavePrimaria(const std::string& tabla) = 0;

    virtual void IniciarTransaccion() = 0;
    virtual void ConfirmarTransaccion() = 0;
    virtual void RevertirTransaccion() = 0;
    virtual bool EnTransaccion() const = 0;
};

}  // namespace celdora::platform

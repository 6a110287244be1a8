#pragma once

// The engine behind a database connection. Each adapter (SQLite, MariaDB,
// ODBC) implements this small interface once; the ADO-shaped objects the
// system sees (connection, recordset, data object, row writer, settings
// store) are written over it in platform/common and shared by all engines.

#include <cstddef>
#include <cstdint>
#include <initializer_list>
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

// The values a statement binds to its "?" marks, in order, seen where they
// already are: a vector of values, a list written at the call, or values
// the caller points to (the row writer points to its fields' own values, so
// that a long text is not copied on its way to the engine). It is a view:
// it lives as an argument of the call, and the values outlive the call.
class Parametros {
public:
    Parametros() = default;
    Parametros(const std::vector<Variant>& valores) : valores_(valores.data()), cuantos_(valores.size()) {}
    Parametros(std::initializer_list<Variant> valores) : lista_(valores), cuantos_(valores.size()) {}
    Parametros(const std::vector<const Variant*>& referidos)
        : referidos_(referidos.data()), cuantos_(referidos.size()) {}

    std::size_t size() const { return cuantos_; }
    bool empty() const { return cuantos_ == 0; }
    const Variant& operator[](std::size_t i) const {
        if (referidos_ != nullptr) return *referidos_[i];
        return valores_ != nullptr ? valores_[i] : lista_.begin()[i];
    }

private:
    std::initializer_list<Variant> lista_;
    const Variant* valores_ = nullptr;
    const Variant* const* referidos_ = nullptr;
    std::size_t cuantos_ = 0;
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
    virtual Resultado Ejecutar(const std::string& sql, Parametros parametros = {}) = 0;

    // Runs one statement that yields rows, and hands them as the caller
    // reads them, in pendientes, where the engine can; otherwise all at
    // once, as Ejecutar does. While rows are pending, the connection runs
    // other statements; whether a change they make to a row not yet read
    // shows in it depends on the engine (it does on SQLite, where rows are
    // read from the tables as they are asked for; it does not on MariaDB,
    // whose server makes the rows when the statement runs).
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

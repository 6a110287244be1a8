#pragma once

// The host's data library: the data object with its transactions, and the
// table-row writer with its fields.

#include <memory>
#include <string>
#include <vector>

#include "host/Ado.h"
#include "value/Variant.h"

namespace celdora::host {

// DataObjects, handed in by the host application.
class DataObjects : public Object {
public:
    virtual std::shared_ptr<Connection> ADOCnn() const = 0;
    // The status of the three is ignored by the system. A begin while a
    // transaction is open is ignored.
    virtual Variant IniciarTransaccion() = 0;
    virtual Variant ConfirmarTransaccion(int flag) = 0;
    virtual Variant RevertirTransaccion(int flag) = 0;
};

// One column of the row that cRegistro writes.
class cCampo : public Object {
public:
    // "String", "Long", "Integer" or "Date".
    virtual void Tipo(const std::string& type) = 0;
    virtual std::string Tipo() const = 0;
    virtual void Nombre(const std::string& name) = 0;
    virtual std::string Nombre() const = 0;
    // The values are handed out by reference, valid while the field keeps
    // them, and taken by value, so that a caller may give a long text away
    // (std::move) instead of having it copied: the row writer binds a
    // field's text where the field holds it.
    virtual void ValorInicial(Variant value) = 0;
    virtual const Variant& ValorInicial() const = 0;
    virtual void Valor(Variant value) = 0;
    virtual const Variant& Valor() const = 0;
    virtual void Requerido(bool required) = 0;
    virtual bool Requerido() const = 0;
    virtual void Reservado(int reserved) = 0;
    virtual int Reservado() const = 0;
    // Maximum length of a string column, else 0.
    virtual void Tamano(int size) = 0;
    virtual int Tamano() const = 0;
    virtual void NombreColumna(const std::string& name) = 0;
    virtual std::string NombreColumna() const = 0;
};

// The collection of a row's fields, keyed by column name, 1-based as the
// platform's collections.
class ColeccionCampos {
public:
    virtual ~ColeccionCampos() = default;
    virtual void Add(std::shared_ptr<cCampo> campo, const std::string& key) = 0;
    virtual int Count() const = 0;
    virtual std::shared_ptr<cCampo> Item(int index) const = 0;
    virtual std::shared_ptr<cCampo> Item(const std::string& key) const = 0;
};

// The table-row writer: inserts a new row (or updates one) from its fields.
class cRegistro : public Object {
public:
    virtual void Conexion(std::shared_ptr<Connection> connection) = 0;
    virtual void Tabla(const std::string& table) = 0;
    virtual std::string Tabla() const = 0;
    // Prepares a new row: the collection starts with the key field "Sys_PK",
    // which holds the new key once the row is written.
    virtual void Nuevo() = 0;
    virtual ColeccionCampos& Campos() = 0;
    // Writes; true on success. A refusal of the database is kept in
    // UltimoError with the database's message.
    virtual bool Guardar() = 0;
    // Sys_PK of the row written.
    virtual std::int32_t Clave() const = 0;
    virtual std::string UltimoError() const = 0;
};

}  // namespace celdora::host

#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "host/HostObjects.h"

namespace celdora::platform {

class Motor;

// The key the engine gave the row it just inserted, as a Long; Overflow when
// it is not a key that fits one.
std::int32_t ClaveInsertada(Motor& motor);

// The city of an address: a row of the host's table Ciudad(Sys_PK, Nombre).
// Key 0 means no city.
class CiudadTabla : public host::Ciudad {
public:
    void Conexion(std::shared_ptr<host::Connection> conexion) { conexion_ = std::move(conexion); }

    std::int32_t Sys_PK() const override { return sysPk_; }
    const std::string& Nombre() const { return nombre_; }
    // Loads the city whose column campo holds valor. When there is none the
    // object holds no city (key 0) and the answer is false, so that an
    // address saved after choosing no city keeps no link. campo must be a
    // plain column name; a database failure raises its Fault.
    bool cargarPor(const std::string& campo, const Variant& valor) override;

    // What the address row read gave for its city.
    void Asignar(std::int32_t sysPk, std::string nombre);

private:
    std::shared_ptr<host::Connection> conexion_;
    std::int32_t sysPk_ = 0;
    std::string nombre_;
};

// objDomicilio over the host's table
//   Domicilio(Sys_PK, ICiudad, Direccion, CodPos, Colonia, Telefono, Notas)
// with colony, address, notes, codep and phone standing for Colonia,
// Direccion, Notas, CodPos and Telefono. All values travel as bound
// parameters, so texts need no quoting.
//
// cargar and guardar answer false on failure and keep the reason in
// ultimoError: the database's own message, or a text of ours for a row that
// does not exist. A failed cargar leaves the object as it was.
class DomicilioTabla : public host::objDomicilio {
public:
    void Conexion(std::shared_ptr<host::Connection> connection) override;
    bool cargar(std::int32_t sysPk) override;

    std::string colony() const override { return colonia_; }
    void colony(const std::string& value) override { colonia_ = value; }
    std::string address() const override { return direccion_; }
    void address(const std::string& value) override { direccion_ = value; }
    std::string notes() const override { return notas_; }
    void notes(const std::string& value) override { notas_ = value; }
    std::string codep() const override { return codigoPostal_; }
    void codep(const std::string& value) override { codigoPostal_ = value; }
    std::string phone() const override { return telefono_; }
    void phone(const std::string& value) override { telefono_ = value; }
    host::Ciudad& objCiudad() override { return ciudad_; }

    // A key below 1 inserts a new row, whose key the object then holds;
    // otherwise the row of that key is updated, and a row that no longer
    // exists is a failure.
    bool guardar() override;
    std::int32_t Sys_PK() const override { return sysPk_; }
    std::string ultimoError() const override { return ultimoError_; }

private:
    std::shared_ptr<host::Connection> conexion_;
    std::int32_t sysPk_ = 0;
    std::string colonia_;
    std::string direccion_;
    std::string notas_;
    std::string codigoPostal_;
    std::string telefono_;
    CiudadTabla ciudad_;
    std::string ultimoError_;
};

}  // namespace celdora::platform

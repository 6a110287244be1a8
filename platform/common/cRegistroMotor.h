#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "host/Dorvex.h"
#include "platform/common/ColeccionCamposLista.h"

namespace celdora::platform {

// The table-row writer over one of our connections. Nuevo starts the fields
// with the key "Sys_PK"; Guardar inserts a row from the other fields, or
// updates the row whose key the key field already holds (1 or more). Values
// go to the database as bound parameters, converted by the field's Tipo; the
// writer checks Requerido itself but leaves sizes and every other rule of
// the table to the database, whose refusal comes back in UltimoError.
class cRegistroMotor : public host::cRegistro {
public:
    static constexpr const char* kCampoClave = "Sys_PK";

    void Conexion(std::shared_ptr<host::Connection> connection) override;
    void Tabla(const std::string& table) override;
    std::string Tabla() const override;
    void Nuevo() override;
    host::ColeccionCampos& Campos() override;
    bool Guardar() override;
    std::int32_t Clave() const override;
    std::string UltimoError() const override;

private:
    void Escribir();

    std::shared_ptr<host::Connection> conexion_;
    std::string tabla_;
    ColeccionCamposLista campos_;
    std::int32_t clave_ = 0;
    std::string ultimoError_;
};

}  // namespace celdora::platform

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/HostObjects.h"

namespace celdora::platform {

// A country or a city as the address controls list them.
struct Lugar {
    std::int32_t Sys_PK = 0;
    std::string Nombre;
};

// The source of places that the address controls take from the catalogue:
// it holds the company's connection and reads the host's tables Pais and
// Ciudad, ordered by name. A database failure raises its Fault.
class FuenteLugares : public Object {
public:
    explicit FuenteLugares(std::shared_ptr<host::Connection> conexion) : conexion_(std::move(conexion)) {}

    const std::shared_ptr<host::Connection>& Conexion() const { return conexion_; }
    std::vector<Lugar> Paises();
    std::vector<Lugar> Ciudades();

private:
    std::vector<Lugar> Leer(const std::string& sql);

    std::shared_ptr<host::Connection> conexion_;
};

// eCat over one connection; nvlands always gives the same source.
class CatalogoPaises : public host::Catalogo {
public:
    explicit CatalogoPaises(std::shared_ptr<host::Connection> conexion)
        : lugares_(std::make_shared<FuenteLugares>(std::move(conexion))) {}

    std::shared_ptr<Object> nvlands() override { return lugares_; }

private:
    std::shared_ptr<FuenteLugares> lugares_;
};

}  // namespace celdora::platform

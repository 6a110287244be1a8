#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/HostObjects.h"

namespace celdora::platform {

// The source of places over the host's tables
//   Pais(Sys_PK, Nombre), Estado(Sys_PK, Nombre, IPais),
//   Ciudad(Sys_PK, Nombre, IPais, IEstado)
// on the company's connection. Values travel as bound parameters, so a name
// needs no quoting; a new row's key comes from the engine.
class FuenteLugares : public host::FuenteLugares {
public:
    explicit FuenteLugares(std::shared_ptr<host::Connection> conexion) : conexion_(std::move(conexion)) {}

    const std::shared_ptr<host::Connection>& Conexion() const { return conexion_; }

    std::vector<host::Lugar> Paises() override;
    std::vector<host::Lugar> Estados(std::int32_t pais) override;
    std::vector<host::Lugar> CiudadesDeEstado(std::int32_t estado) override;
    std::vector<host::Lugar> CiudadesDePais(std::int32_t pais) override;
    std::optional<host::UbicacionCiudad> UbicarCiudad(std::int32_t ciudad) override;
    std::int32_t AgregarPais(const std::string& nombre) override;
    std::int32_t AgregarEstado(std::int32_t pais, const std::string& nombre) override;
    std::int32_t AgregarCiudad(std::int32_t pais, std::int32_t estado, const std::string& nombre) override;

private:
    std::vector<host::Lugar> Leer(const std::string& sql, const std::vector<Variant>& parametros = {});
    std::int32_t Insertar(const std::string& sql, const std::vector<Variant>& parametros);

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

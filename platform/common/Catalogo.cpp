#include "platform/common/Catalogo.h"

#include "platform/common/ConexionMotor.h"
#include "platform/common/Domicilio.h"
#include "value/Convert.h"
#include "value/Fault.h"

namespace celdora::platform {

namespace {

std::int32_t Clave(const Variant& valor) { return valor.IsNull() ? 0 : CLng(valor); }

// A key below 1 links to nothing: the column is left Null.
Variant Enlace(std::int32_t clave) { return clave < 1 ? Variant::Null() : Variant::Long(clave); }

}  // namespace

std::vector<host::Lugar> FuenteLugares::Paises() { return Leer("SELECT Sys_PK, Nombre FROM Pais ORDER BY Nombre"); }

std::vector<host::Lugar> FuenteLugares::Estados(std::int32_t pais) {
    return Leer("SELECT Sys_PK, Nombre FROM Estado WHERE IPais = ? ORDER BY Nombre", {Variant::Long(pais)});
}

std::vector<host::Lugar> FuenteLugares::CiudadesDeEstado(std::int32_t estado) {
    return Leer("SELECT Sys_PK, Nombre FROM Ciudad WHERE IEstado = ? ORDER BY Nombre", {Variant::Long(estado)});
}

std::vector<host::Lugar> FuenteLugares::CiudadesDePais(std::int32_t pais) {
    return Leer("SELECT Sys_PK, Nombre FROM Ciudad WHERE IPais = ? ORDER BY Nombre", {Variant::Long(pais)});
}

std::optional<host::UbicacionCiudad> FuenteLugares::UbicarCiudad(std::int32_t ciudad) {
    if (!conexion_) throw ObjectNotSet();
    const Resultado resultado =
        MotorDe(conexion_).Ejecutar("SELECT IPais, IEstado FROM Ciudad WHERE Sys_PK = ?", {Variant::Long(ciudad)});
    if (resultado.filas.empty()) return std::nullopt;
    const std::vector<Variant>& fila = resultado.filas.front();
    return host::UbicacionCiudad{Clave(fila[0]), Clave(fila[1])};
}

std::int32_t FuenteLugares::AgregarPais(const std::string& nombre) {
    return Insertar("INSERT INTO Pais (Nombre) VALUES (?)", {nombre});
}

std::int32_t FuenteLugares::AgregarEstado(std::int32_t pais, const std::string& nombre) {
    return Insertar("INSERT INTO Estado (Nombre, IPais) VALUES (?, ?)", {nombre, Enlace(pais)});
}

std::int32_t FuenteLugares::AgregarCiudad(std::int32_t pais, std::int32_t estado, const std::string& nombre) {
    return Insertar("INSERT INTO Ciudad (Nombre, IPais, IEstado) VALUES (?, ?, ?)",
                    {nombre, Enlace(pais), Enlace(estado)});
}

std::vector<host::Lugar> FuenteLugares::Leer(const std::string& sql, const std::vector<Variant>& parametros) {
    if (!conexion_) throw ObjectNotSet();
    const Resultado resultado = MotorDe(conexion_).Ejecutar(sql, parametros);
    std::vector<host::Lugar> lugares;
    lugares.reserve(resultado.filas.size());
    for (const std::vector<Variant>& fila : resultado.filas) {
        lugares.push_back({Clave(fila[0]), fila[1].IsNull() ? std::string{} : CStr(fila[1])});
    }
    return lugares;
}

std::int32_t FuenteLugares::Insertar(const std::string& sql, const std::vector<Variant>& parametros) {
    if (!conexion_) throw ObjectNotSet();
    Motor& motor = MotorDe(conexion_);
    motor.Ejecutar(sql, parametros);
    return ClaveInsertada(motor);
}

}  // namespace celdora::platform

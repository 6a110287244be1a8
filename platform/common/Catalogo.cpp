#include "platform/common/Catalogo.h"

#include "platform/common/ConexionMotor.h"
#include "value/Convert.h"
#include "value/Fault.h"

namespace celdora::platform {

std::vector<Lugar> FuenteLugares::Paises() { return Leer("SELECT Sys_PK, Nombre FROM Pais ORDER BY Nombre"); }

std::vector<Lugar> FuenteLugares::Ciudades() { return Leer("SELECT Sys_PK, Nombre FROM Ciudad ORDER BY Nombre"); }

std::vector<Lugar> FuenteLugares::Leer(const std::string& sql) {
    if (!conexion_) throw ObjectNotSet();
    const Resultado resultado = MotorDe(conexion_).Ejecutar(sql);
    std::vector<Lugar> lugares;
    lugares.reserve(resultado.filas.size());
    for (const std::vector<Variant>& fila : resultado.filas) {
        Lugar lugar;
        lugar.Sys_PK = fila[0].IsNull() ? 0 : CLng(fila[0]);
        lugar.Nombre = fila[1].IsNull() ? std::string{} : CStr(fila[1]);
        lugares.push_back(std::move(lugar));
    }
    return lugares;
}

}  // namespace celdora::platform

#include "platform/common/Domicilio.h"

#include <limits>
#include <vector>

#include "platform/common/ConexionMotor.h"
#include "value/Convert.h"
#include "value/Fault.h"

namespace celdora::platform {

namespace {

Fault SinConexion() { return ObjectNotSet(); }

std::string Texto(const Variant& value) { return value.IsNull() || value.IsEmpty() ? std::string{} : CStr(value); }

std::int32_t Clave(const Variant& value) { return value.IsNull() || value.IsEmpty() ? 0 : CLng(value); }

// The column of a lookup is glued into the statement, so only a plain name
// is taken.
bool EsNombreDeColumna(const std::string& name) {
    if (name.empty() || (name.front() >= '0' && name.front() <= '9')) return false;
    for (const char c : name) {
        const bool valid = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
        if (!valid) return false;
    }
    return true;
}

std::string NoExiste(std::int32_t sysPk) { return "No existe el domicilio " + std::to_string(sysPk) + "."; }

}  // namespace

std::int32_t ClaveInsertada(Motor& motor) {
    const std::int64_t clave = motor.UltimaClave();
    if (clave < 1 || clave > std::numeric_limits<std::int32_t>::max()) throw Overflow();
    return static_cast<std::int32_t>(clave);
}

bool CiudadTabla::cargarPor(const std::string& campo, const Variant& valor) {
    if (!EsNombreDeColumna(campo)) throw InvalidProcedureCall();
    if (!conexion_) throw SinConexion();
    const Resultado resultado =
        MotorDe(conexion_).Ejecutar("SELECT Sys_PK, Nombre FROM Ciudad WHERE " + campo + " = ?", {valor});
    if (resultado.filas.empty()) {
        Asignar(0, {});
        return false;
    }
    const std::vector<Variant>& fila = resultado.filas.front();
    Asignar(Clave(fila[0]), Texto(fila[1]));
    return true;
}

void CiudadTabla::Asignar(std::int32_t sysPk, std::string nombre) {
    sysPk_ = sysPk;
    nombre_ = std::move(nombre);
}

void DomicilioTabla::Conexion(std::shared_ptr<host::Connection> connection) {
    conexion_ = std::move(connection);
    ciudad_.Conexion(conexion_);
}

bool DomicilioTabla::cargar(std::int32_t sysPk) {
    ultimoError_.clear();
    try {
        if (!conexion_) throw SinConexion();
        const Resultado resultado = MotorDe(conexion_).Ejecutar(
            "SELECT d.Sys_PK, d.ICiudad, d.Direccion, d.CodPos, d.Colonia, d.Telefono, d.Notas, c.Nombre "
            "FROM Domicilio d LEFT JOIN Ciudad c ON c.Sys_PK = d.ICiudad WHERE d.Sys_PK = ?",
            {Variant::Long(sysPk)});
        if (resultado.filas.empty()) {
            ultimoError_ = NoExiste(sysPk);
            return false;
        }
        const std::vector<Variant>& fila = resultado.filas.front();
        // Everything is converted before anything is kept, so that a value
        // that does not convert leaves the object as it was.
        const std::int32_t clave = Clave(fila[0]);
        const std::int32_t ciudad = Clave(fila[1]);
        std::string direccion = Texto(fila[2]);
        std::string codigoPostal = Texto(fila[3]);
        std::string colonia = Texto(fila[4]);
        std::string telefono = Texto(fila[5]);
        std::string notas = Texto(fila[6]);
        std::string nombreCiudad = Texto(fila[7]);
        sysPk_ = clave;
        ciudad_.Asignar(ciudad, std::move(nombreCiudad));
        direccion_ = std::move(direccion);
        codigoPostal_ = std::move(codigoPostal);
        colonia_ = std::move(colonia);
        telefono_ = std::move(telefono);
        notas_ = std::move(notas);
        return true;
    } catch (const Fault& fault) {
        ultimoError_ = fault.description;
        return false;
    }
}

bool DomicilioTabla::guardar() {
    ultimoError_.clear();
    try {
        if (!conexion_) throw SinConexion();
        Motor& motor = MotorDe(conexion_);
        std::vector<Variant> valores{Variant::Long(ciudad_.Sys_PK()), direccion_, codigoPostal_,
                                     colonia_, telefono_, notas_};
        if (sysPk_ < 1) {
            motor.Ejecutar(
                "INSERT INTO Domicilio (ICiudad, Direccion, CodPos, Colonia, Telefono, Notas) "
                "VALUES (?, ?, ?, ?, ?, ?)",
                valores);
            sysPk_ = ClaveInsertada(motor);
            return true;
        }
        valores.push_back(Variant::Long(sysPk_));
        const Resultado resultado = motor.Ejecutar(
            "UPDATE Domicilio SET ICiudad = ?, Direccion = ?, CodPos = ?, Colonia = ?, Telefono = ?, Notas = ? "
            "WHERE Sys_PK = ?",
            valores);
        // Some servers count only the rows whose values changed, so no count
        // does not yet mean no row.
        if (resultado.afectadas == 0 &&
            motor.Ejecutar("SELECT Sys_PK FROM Domicilio WHERE Sys_PK = ?", {Variant::Long(sysPk_)}).filas.empty()) {
            ultimoError_ = NoExiste(sysPk_);
            return false;
        }
        return true;
    } catch (const Fault& fault) {
        ultimoError_ = fault.description;
        return false;
    }
}

}  // namespace celdora::platform

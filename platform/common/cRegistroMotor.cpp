#include "platform/common/cRegistroMotor.h"

#include <deque>
#include <limits>
#include <utility>
#include <vector>

#include "platform/common/ConexionMotor.h"
#include "platform/common/cCampoSimple.h"
#include "value/Convert.h"
#include "value/Fault.h"
#include "value/Text.h"

namespace celdora::platform {

namespace {

// Refusals of the writer itself, before anything reaches the database.
struct Rechazo {
    std::string texto;
};

std::string NombreDeColumna(const host::cCampo& campo) {
    std::string columna = campo.NombreColumna();
    return columna.empty() ? campo.Nombre() : columna;
}

bool EsClave(const host::cCampo& campo) { return EqualText(NombreDeColumna(campo), cRegistroMotor::kCampoClave); }

// The value a field writes: Valor, or ValorInicial while Valor is Empty.
const Variant& ValorDe(const host::cCampo& campo) {
    const Variant& valor = campo.Valor();
    return valor.IsEmpty() ? campo.ValorInicial() : valor;
}

bool EnBlanco(const Variant& valor) {
    return valor.IsEmpty() || valor.IsNull() || (valor.Type() == VarType::String && Trim(valor.AsString()).empty());
}

// The value converted to the field's type with the platform's conversions;
// a value that does not convert raises their Fault. A text for a text field
// needs no conversion and is bound where the field holds it, without a copy:
// a stored report may be tens of megabytes. Converted values are kept in
// convertidos, whose elements stay where they are as it grows.
const Variant* Convertido(const host::cCampo& campo, const Variant& valor, std::deque<Variant>& convertidos) {
    if (valor.IsEmpty() || valor.IsNull()) return &convertidos.emplace_back(Variant::Null());
    const std::string tipo = campo.Tipo();
    if (EqualText(tipo, "String")) {
        if (valor.Type() == VarType::String) return &valor;
        return &convertidos.emplace_back(CStr(valor));
    }
    if (EqualText(tipo, "Long")) return &convertidos.emplace_back(Variant::Long(CLng(valor)));
    if (EqualText(tipo, "Integer")) return &convertidos.emplace_back(Variant::Integer(CInt(valor)));
    if (EqualText(tipo, "Date")) return &convertidos.emplace_back(CDate(valor));
    throw Rechazo{"El campo " + campo.Nombre() + " tiene un tipo desconocido: \"" + tipo + "\"."};
}

}  // namespace

void cRegistroMotor::Conexion(std::shared_ptr<host::Connection> connection) { conexion_ = std::move(connection); }
void cRegistroMotor::Tabla(const std::string& table) { tabla_ = table; }
std::string cRegistroMotor::Tabla() const { return tabla_; }

void cRegistroMotor::Nuevo() {
    campos_.Clear();
    clave_ = 0;
    ultimoError_.clear();
    auto clave = std::make_shared<cCampoSimple>();
    clave->Tipo("Long");
    clave->Nombre(kCampoClave);
    clave->NombreColumna(kCampoClave);
    clave->ValorInicial(Variant::Long(0));
    clave->Valor(Variant::Long(0));
    campos_.Add(clave, kCampoClave);
}

host::ColeccionCampos& cRegistroMotor::Campos() { return campos_; }
std::int32_t cRegistroMotor::Clave() const { return clave_; }
std::string cRegistroMotor::UltimoError() const { return ultimoError_; }

bool cRegistroMotor::Guardar() {
    ultimoError_.clear();
    try {
        Escribir();
        return true;
    } catch (const Rechazo& rechazo) {
        ultimoError_ = rechazo.texto;
    } catch (const Fault& fault) {
        ultimoError_ = fault.description;
    }
    return false;
}

void cRegistroMotor::Escribir() {
    if (tabla_.empty()) throw Rechazo{"No se indicó la tabla."};

    std::shared_ptr<host::cCampo> campoClave;
    std::vector<std::shared_ptr<host::cCampo>> columnas;
    for (int i = 1; i <= campos_.Count(); ++i) {
        auto campo = campos_.Item(i);
        if (EsClave(*campo)) campoClave = campo;
        else columnas.push_back(campo);
    }
    // Every required field is checked before the database is touched.
    for (const auto& campo : columnas)
        if (campo->Requerido() && EnBlanco(ValorDe(*campo)))
            throw Rechazo{"El campo " + campo->Nombre() + " es requerido."};

    // The parameters point to the fields' values, or to their conversions.
    std::deque<Variant> convertidos;
    std::vector<const Variant*> valores;
    for (const auto& campo : columnas) valores.push_back(Convertido(*campo, ValorDe(*campo), convertidos));

    std::int32_t existente = 0;
    if (campoClave) {
        const Variant& valor = ValorDe(*campoClave);
        if (!valor.IsEmpty() && !valor.IsNull()) existente = CLng(valor);
    }

    Motor& motor = MotorDe(conexion_);
    if (existente >= 1) {
        if (columnas.empty()) throw Rechazo{"No hay campos que guardar."};
        std::string sql = "UPDATE " + tabla_ + " SET ";
        for (std::size_t i = 0; i < columnas.size(); ++i) sql += (i ? "," : "") + NombreDeColumna(*columnas[i]) + "=?";
        sql += " WHERE " + NombreDeColumna(*campoClave) + "=?";
        valores.push_back(&convertidos.emplace_back(Variant::Long(existente)));
        if (motor.Ejecutar(sql, valores).afectadas == 0)
            throw Rechazo{"No existe el registro " + std::to_string(existente) + " en la tabla " + tabla_ + "."};
        clave_ = existente;
        return;
    }

    std::string sql = "INSERT INTO " + tabla_;
    if (columnas.empty()) {
        sql += " DEFAULT VALUES";
    } else {
        std::string nombres, marcas;
        for (std::size_t i = 0; i < columnas.size(); ++i) {
            nombres += (i ? "," : "") + NombreDeColumna(*columnas[i]);
            marcas += i ? ",?" : "?";
        }
        sql += " (" + nombres + ") VALUES (" + marcas + ")";
    }
    motor.Ejecutar(sql, valores);
    const std::int64_t nueva = motor.UltimaClave();
    if (nueva < std::numeric_limits<std::int32_t>::min() || nueva > std::numeric_limits<std::int32_t>::max())
        throw Rechazo{"La clave " + std::to_string(nueva) + " de la fila insertada en " + tabla_ +
                      " no cabe en un Long."};
    clave_ = static_cast<std::int32_t>(nueva);
    if (campoClave) campoClave->Valor(Variant::Long(clave_));
}

}  // namespace celdora::platform

#include "platform/common/GlobalVarTabla.h"

#include <utility>
#include <vector>

#include "platform/common/ConexionMotor.h"
#include "value/Convert.h"
#include "value/Fault.h"
#include "value/Text.h"

namespace celdora::platform {

namespace {

// Types that every dialect the system runs on reads the same way.
constexpr const char* kCrearTabla =
    "CREATE TABLE gv_Configuracion (Clave VARCHAR(60) NOT NULL PRIMARY KEY, Numero DOUBLE PRECISION NULL, "
    "Texto VARCHAR(4000) NULL)";

Variant Opcional(const std::optional<double>& numero) { return numero ? Variant(*numero) : Variant::Null(); }
Variant Opcional(const std::optional<std::string>& texto) { return texto ? Variant(*texto) : Variant::Null(); }

}  // namespace

void GlobalVarTabla::Conectar(std::shared_ptr<host::Connection> connection) {
    conexion_ = std::move(connection);
    ajustes_.clear();
    Motor& motor = MotorDe(conexion_);

    Resultado resultado;
    try {
        resultado = motor.Ejecutar("SELECT Clave, Numero, Texto FROM gv_Configuracion");
    } catch (const Fault&) {
        // No table yet: this store creates its own, and it starts empty.
        motor.Ejecutar(kCrearTabla);
        return;
    }

    std::map<std::string, Ajuste> leidos;
    for (const auto& fila : resultado.filas) {
        if (fila.size() < 3 || fila[0].IsNull()) continue;
        Ajuste ajuste;
        ajuste.clave = CStr(fila[0]);
        if (!fila[1].IsNull()) ajuste.numero = CDbl(fila[1]);
        if (!fila[2].IsNull()) ajuste.texto = CStr(fila[2]);
        leidos[LCase(ajuste.clave)] = std::move(ajuste);
    }
    ajustes_ = std::move(leidos);
}

double GlobalVarTabla::LeerNumero(const std::string& key, double defaultValue) {
    auto ajuste = ajustes_.find(LCase(key));
    return ajuste != ajustes_.end() && ajuste->second.numero ? *ajuste->second.numero : defaultValue;
}

std::string GlobalVarTabla::LeerTexto(const std::string& key, const std::string& defaultValue) {
    auto ajuste = ajustes_.find(LCase(key));
    return ajuste != ajustes_.end() && ajuste->second.texto ? *ajuste->second.texto : defaultValue;
}

bool GlobalVarTabla::GuardarNumero(const std::string& key, double value) { return Guardar(key, {key, value, {}}); }

bool GlobalVarTabla::GuardarTexto(const std::string& key, const std::string& value) {
    return Guardar(key, {key, {}, value});
}

// A key has one type, so writing one kind of value clears the other.
bool GlobalVarTabla::Guardar(const std::string& key, Ajuste ajuste) {
    if (!conexion_ || key.empty()) return false;
    const std::string indice = LCase(key);
    // The table compares keys exactly on some engines: a key already there
    // is written under the spelling the table has.
    if (auto existente = ajustes_.find(indice); existente != ajustes_.end()) ajuste.clave = existente->second.clave;
    try {
        Motor& motor = MotorDe(conexion_);
        const Resultado cambio = motor.Ejecutar("UPDATE gv_Configuracion SET Numero=?, Texto=? WHERE Clave=?",
                                                {Opcional(ajuste.numero), Opcional(ajuste.texto), ajuste.clave});
        if (cambio.afectadas == 0)
            motor.Ejecutar("INSERT INTO gv_Configuracion (Clave, Numero, Texto) VALUES (?, ?, ?)",
                           {ajuste.clave, Opcional(ajuste.numero), Opcional(ajuste.texto)});
    } catch (const Fault&) {
        return false;
    }
    ajustes_[indice] = std::move(ajuste);
    return true;
}

}  // namespace celdora::platform

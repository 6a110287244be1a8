#include "platform/common/ConexionMotor.h"

#include <utility>

#include "platform/common/FallasAdo.h"
#include "platform/common/RecordsetCliente.h"

namespace celdora::platform {

ConexionMotor::ConexionMotor() = default;
ConexionMotor::ConexionMotor(std::unique_ptr<Motor> motor) : motor_(std::move(motor)) {}

std::shared_ptr<host::Recordset> ConexionMotor::Execute(const std::string& statement) {
    Resultado resultado = motor().Ejecutar(statement);
    auto recordset = std::make_shared<RecordsetCliente>();
    // weak_from_this: a connection that no shared_ptr owns still runs
    // statements; its recordsets simply have no activeconnection.
    recordset->Cargar(weak_from_this().lock(), statement, std::move(resultado));
    return recordset;
}

int ConexionMotor::State() const { return motor_ && motor_->Abierto() ? host::adStateOpen : host::adStateClosed; }

void ConexionMotor::Close() {
    if (motor_) motor_->Cerrar();
}

Motor& ConexionMotor::motor() {
    if (!motor_ || !motor_->Abierto()) throw ObjetoCerrado();
    return *motor_;
}

Motor& MotorDe(const std::shared_ptr<host::Connection>& connection) {
    auto* conexion = dynamic_cast<ConexionMotor*>(connection.get());
    if (conexion == nullptr) throw ArgumentosIncorrectos();
    return conexion->motor();
}

}  // namespace celdora::platform

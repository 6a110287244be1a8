#include "platform/common/DataObjectsMotor.h"

#include <utility>

namespace celdora::platform {

DataObjectsMotor::DataObjectsMotor(std::shared_ptr<ConexionMotor> conexion) : conexion_(std::move(conexion)) {}

std::shared_ptr<host::Connection> DataObjectsMotor::ADOCnn() const { return conexion_; }

Variant DataObjectsMotor::IniciarTransaccion() {
    Motor& motor = MotorDe(conexion_);
    if (motor.EnTransaccion()) return false;
    motor.IniciarTransaccion();
    return true;
}

// The flag is always 0 where the system calls these; it carries nothing.
Variant DataObjectsMotor::ConfirmarTransaccion(int /*flag*/) {
    Motor& motor = MotorDe(conexion_);
    if (!motor.EnTransaccion()) return false;
    motor.ConfirmarTransaccion();
    return true;
}

Variant DataObjectsMotor::RevertirTransaccion(int /*flag*/) {
    Motor& motor = MotorDe(conexion_);
    if (!motor.EnTransaccion()) return false;
    motor.RevertirTransaccion();
    return true;
}

}  // namespace celdora::platform

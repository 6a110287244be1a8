#pragma once

#include <memory>

#include "host/Dorvex.h"
#include "platform/common/ConexionMotor.h"

namespace celdora::platform {

// The data object over one of our connections: its transactions are the
// engine's. Each call answers true when it did something; a begin while a
// transaction is open, and a commit or rollback without one, do nothing and
// answer false. A failure of the engine raises its Fault.
class DataObjectsMotor : public host::DataObjects {
public:
    explicit DataObjectsMotor(std::shared_ptr<ConexionMotor> conexion);

    std::shared_ptr<host::Connection> ADOCnn() const override;
    Variant IniciarTransaccion() override;
    Variant ConfirmarTransaccion(int flag) override;
    Variant RevertirTransaccion(int flag) override;

private:
    std::shared_ptr<ConexionMotor> conexion_;
};

}  // namespace celdora::platform

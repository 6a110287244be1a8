#pragma once

// Opening a database through ODBC as one of our connections.

#include <memory>
#include <string>

#include "platform/common/ConexionMotor.h"
#include "platform/common/Motor.h"

namespace celdora::platform {

// Connects with an ODBC connection string ("Driver={...};..." or
// "DSN=...;..."), without prompting. A string the driver manager or the
// driver refuses raises a Fault with the driver's number and message.
std::unique_ptr<Motor> AbrirMotorOdbc(const std::string& connectionString);
std::shared_ptr<ConexionMotor> AbrirOdbc(const std::string& connectionString);

}  // namespace celdora::platform

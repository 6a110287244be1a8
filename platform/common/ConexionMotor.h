#pragma once

#include <memory>
#include <string>

#include "host/Ado.h"
#include "platform/common/Motor.h"

namespace celdora::platform {

// An ADO connection over an engine. Every adapter hands its engine to one of
// these; the recordsets, row writer, data object and settings store reach the
// engine through it.
class ConexionMotor : public host::Connection, public std::enable_shared_from_this<ConexionMotor> {
public:
    // An unopened connection: State 0, every statement refused.
    ConexionMotor();
    explicit ConexionMotor(std::unique_ptr<Motor> motor);

    std::shared_ptr<host::Recordset> Execute(const std::string& statement) override;
    int State() const override;

    // Closes the engine; the connection stays, closed.
    void Close();

    // The engine; raises Fault 3704 ("Operation is not allowed when the
    // object is closed.") when there is none or it is closed.
    Motor& motor();

private:
    std::unique_ptr<Motor> motor_;
};

// The engine behind any connection of ours, or Fault 3001 for a connection
// that is not one of ours.
Motor& MotorDe(const std::shared_ptr<host::Connection>& connection);

}  // namespace celdora::platform

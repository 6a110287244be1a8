#pragma once

// Helpers of the data access tests: a database in memory with the test's own
// tables, a record of the statements an engine receives, and fault capture.

#include "tests/support/FallaDe.h"
#include <memory>
#include <string>
#include <vector>

#include "platform/common/ConexionMotor.h"
#include "platform/sqlite/MotorSqlite.h"
#include "platform/sqlite/Sqlite.h"
#include "tests/support/MotorRegistrado.h"
#include "value/Fault.h"

namespace celdora::platform::pruebas {

using testing::FallaDe;

using testing::MotorRegistrado;

// A private database in memory holding the tables of the script.
struct BaseEnMemoria {
    explicit BaseEnMemoria(const std::string& guion = "") {
        auto real = AbrirMotorSqlite(":memory:");
        sqlite_ = dynamic_cast<MotorSqlite*>(real.get());
        auto motor = std::make_unique<MotorRegistrado>(std::move(real));
        sentencias = motor->sentencias;
        cnn = std::make_shared<ConexionMotor>(std::move(motor));
        if (!guion.empty()) EjecutarGuion(guion);
    }

    // Scripts go straight to SQLite, so they are not among the statements.
    void EjecutarGuion(const std::string& guion) { sqlite_->EjecutarGuion(guion); }
    // The first column of the first row, Null when there is none.
    Variant Valor(const std::string& sql) {
        const Resultado resultado = cnn->motor().Ejecutar(sql);
        return resultado.filas.empty() ? Variant::Null() : resultado.filas[0][0];
    }

    std::shared_ptr<ConexionMotor> cnn;
    std::shared_ptr<std::vector<std::string>> sentencias;  // statements received, scripts aside

private:
    MotorSqlite* sqlite_ = nullptr;
};

}  // namespace celdora::platform::pruebas

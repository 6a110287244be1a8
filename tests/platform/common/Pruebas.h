#pragma once

// Helpers of the data access tests: a database in memory with the test's own
// tables, a record of the statements an engine receives, and fault capture.

#include <memory>
#include <string>
#include <vector>

#include "platform/common/ConexionMotor.h"
#include "platform/sqlite/MotorSqlite.h"
#include "platform/sqlite/Sqlite.h"
#include "value/Fault.h"

namespace celdora::platform::pruebas {

// The fault a call raises; number 0 when it raises none.
template <class Llamada>
Fault FallaDe(Llamada&& llamada) {
    try {
        llamada();
    } catch (const Fault& fault) {
        return fault;
    }
    return Fault{0, ""};
}

// An engine that passes everything to another and keeps every statement.
class MotorRegistrado : public Motor {
public:
    explicit MotorRegistrado(std::unique_ptr<Motor> real) : real_(std::move(real)) {}
    std::shared_ptr<std::vector<std::string>> sentencias = std::make_shared<std::vector<std::string>>();

    bool Abierto() const override { return real_->Abierto(); }
    void Cerrar() override { real_->Cerrar(); }
    Resultado Ejecutar(const std::string& sql, const std::vector<Variant>& parametros) override {
        sentencias->push_back(sql);
        return real_->Ejecutar(sql, parametros);
    }
    std::int64_t UltimaClave() override { return real_->UltimaClave(); }
    std::vector<std::string> ClavePrimaria(const std::string& tabla) override { return real_->ClavePrimaria(tabla); }
    void IniciarTransaccion() override { real_->IniciarTransaccion(); }
    void ConfirmarTransaccion() override { real_->ConfirmarTransaccion(); }
    void RevertirTransaccion() override { real_->RevertirTransaccion(); }
    bool EnTransaccion() const override { return real_->EnTransaccion(); }

private:
    std::unique_ptr<Motor> real_;
};

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

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/common/Motor.h"

namespace celdora::testing {

// An engine that passes everything to another and keeps every statement it
// receives, so that tests can say which statements ran and in what order.
class MotorRegistrado : public platform::Motor {
public:
    explicit MotorRegistrado(std::unique_ptr<platform::Motor> real) : real_(std::move(real)) {}
    std::shared_ptr<std::vector<std::string>> sentencias = std::make_shared<std::vector<std::string>>();

    bool Abierto() const override { return real_->Abierto(); }
    void Cerrar() override { real_->Cerrar(); }
    platform::Resultado Ejecutar(const std::string& sql, platform::Parametros parametros) override {
        sentencias->push_back(sql);
        return real_->Ejecutar(sql, parametros);
    }
    platform::Resultado Recorrer(const std::string& sql) override {
        sentencias->push_back(sql);
        return real_->Recorrer(sql);
    }
    std::int64_t UltimaClave() override { return real_->UltimaClave(); }
    std::vector<std::string> ClavePrimaria(const std::string& tabla) override { return real_->ClavePrimaria(tabla); }
    void IniciarTransaccion() override { real_->IniciarTransaccion(); }
    void ConfirmarTransaccion() override { real_->ConfirmarTransaccion(); }
    void RevertirTransaccion() override { real_->RevertirTransaccion(); }
    bool EnTransaccion() const override { return real_->EnTransaccion(); }

private:
    std::unique_ptr<platform::Motor> real_;
};

}  // namespace celdora::testing

#pragma once

#include <string>
#include <vector>

#include "platform/common/Motor.h"
#include "value/Fault.h"

namespace celdora::testing {

// A company's engine seen as a server of another dialect: of the three
// dialect probes it understands only its own (none for Ninguno), and every
// statement it is given is noted. All other statements go to the real engine.
enum class Dialecto { Ninguno, Access, MySql, SqlServer };

class MotorDeOtroDialecto : public platform::Motor {
public:
    MotorDeOtroDialecto(platform::Motor& real, Dialecto dialecto) : real_(real), dialecto_(dialecto) {}

    bool Abierto() const override { return real_.Abierto(); }
    void Cerrar() override {}
    platform::Resultado Ejecutar(const std::string& sql, platform::Parametros parametros) override {
        sentencias.push_back(sql);
        if (sql == "Select UUID() as GUID;") return Sonda(dialecto_ == Dialecto::MySql);
        if (sql == "SELECT NEWID() as sGUID;") return Sonda(dialecto_ == Dialecto::SqlServer);
        if (sql == "Select cbool(-1) as Valor;") return Sonda(dialecto_ == Dialecto::Access);
        return real_.Ejecutar(sql, parametros);
    }
    std::int64_t UltimaClave() override { return real_.UltimaClave(); }
    std::vector<std::string> ClavePrimaria(const std::string& tabla) override { return real_.ClavePrimaria(tabla); }
    void IniciarTransaccion() override { real_.IniciarTransaccion(); }
    void ConfirmarTransaccion() override { real_.ConfirmarTransaccion(); }
    void RevertirTransaccion() override { real_.RevertirTransaccion(); }
    bool EnTransaccion() const override { return real_.EnTransaccion(); }

    std::vector<std::string> sentencias;

private:
    platform::Resultado Sonda(bool entiende) {
        if (!entiende) throw Fault{1, "no such function"};
        return real_.Ejecutar("SELECT 1 AS Valor", {});
    }

    platform::Motor& real_;
    Dialecto dialecto_;
};

}  // namespace celdora::testing

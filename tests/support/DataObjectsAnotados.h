#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/Dorvex.h"
#include "value/Fault.h"

namespace celdora::testing {

// A data object that passes everything to the real one and notes each
// transaction call, so that tests can tell a commit from a rollback and see
// when none was issued.
class DataObjectsAnotados : public host::DataObjects {
public:
    explicit DataObjectsAnotados(std::shared_ptr<host::DataObjects> real) : real_(std::move(real)) {}
    std::shared_ptr<host::Connection> ADOCnn() const override { return real_->ADOCnn(); }
    Variant IniciarTransaccion() override {
        llamadas.emplace_back("Iniciar");
        if (fallarAlIniciar) throw Fault{-2147168242, "No se pudo iniciar la transacción."};
        return real_->IniciarTransaccion();
    }
    Variant ConfirmarTransaccion(int flag) override {
        llamadas.emplace_back("Confirmar");
        return real_->ConfirmarTransaccion(flag);
    }
    Variant RevertirTransaccion(int flag) override {
        llamadas.emplace_back("Revertir");
        return real_->RevertirTransaccion(flag);
    }
    std::vector<std::string> llamadas;
    // Makes the next begin fail, as a server that refuses it would.
    bool fallarAlIniciar = false;

private:
    std::shared_ptr<host::DataObjects> real_;
};

}  // namespace celdora::testing

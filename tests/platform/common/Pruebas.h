#pragma once

// Helpers of the data access tests: a database in memory with the test's own
// tables, a record of the statements an engine receives, fault capture, and
// the recordsets and row writers the system builds.

#include "tests/support/FallaDe.h"
#include <memory>
#include <string>
#include <vector>

#include "platform/common/ConexionMotor.h"
#include "platform/common/RecordsetCliente.h"
#include "platform/common/cCampoSimple.h"
#include "platform/common/cRegistroMotor.h"
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
        // The script goes straight to SQLite, so it is not among the statements.
        if (!guion.empty()) dynamic_cast<MotorSqlite&>(*real).EjecutarGuion(guion);
        auto motor = std::make_unique<MotorRegistrado>(std::move(real));
        sentencias = motor->sentencias;
        cnn = std::make_shared<ConexionMotor>(std::move(motor));
    }

    // The first column of the first row, Null when there is none.
    Variant Valor(const std::string& sql) {
        const Resultado resultado = cnn->motor().Ejecutar(sql);
        return resultado.filas.empty() ? Variant::Null() : resultado.filas[0][0];
    }

    std::shared_ptr<ConexionMotor> cnn;
    std::shared_ptr<std::vector<std::string>> sentencias;  // statements received, scripts aside
};

// A recordset opened as the system opens the ones it writes back through.
inline std::shared_ptr<RecordsetCliente> AbrirEditable(const std::string& sql, std::shared_ptr<ConexionMotor> cnn,
                                                       int bloqueo = host::adLockOptimistic) {
    auto rs = std::make_shared<RecordsetCliente>();
    rs->CursorLocation(host::adUseClient);
    rs->Open(sql, std::move(cnn), host::adOpenKeyset, bloqueo);
    return rs;
}

// Adds to a row writer a field named after its column.
inline void AgregarCampo(cRegistroMotor& registro, const std::string& nombre, const std::string& tipo,
                         const Variant& valor, bool requerido = false, const Variant& inicial = Variant()) {
    auto campo = std::make_shared<cCampoSimple>();
    campo->Tipo(tipo);
    campo->Nombre(nombre);
    campo->ValorInicial(inicial);
    campo->Valor(valor);
    campo->Requerido(requerido);
    campo->NombreColumna(nombre);
    registro.Campos().Add(campo, nombre);
}

}  // namespace celdora::platform::pruebas

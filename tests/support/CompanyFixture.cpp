#include "tests/support/CompanyFixture.h"

#include <string>

#include "platform/sqlite/MotorSqlite.h"
#include "platform/sqlite/Sqlite.h"
#include "tests/support/MotorRegistrado.h"
#include "schema/Schema.h"
#include "value/Convert.h"

namespace celdora::testing {

CompanyDatabase::CompanyDatabase(Datos datos) {
    auto sqlite = platform::AbrirMotorSqlite(":memory:");
    auto& real = dynamic_cast<platform::MotorSqlite&>(*sqlite);
    real.EjecutarGuion(std::string(schema::EsquemaSqlite()));
    if (datos == Datos::Demo) real.EjecutarGuion(std::string(schema::DatosDemo()));
    auto registrado = std::make_unique<MotorRegistrado>(std::move(sqlite));
    sentencias = registrado->sentencias;
    cnn = std::make_shared<platform::ConexionMotor>(std::move(registrado));
    dataObjects = std::make_shared<platform::DataObjectsMotor>(cnn);
}

void CompanyDatabase::Ejecutar(const std::string& sql) { cnn->motor().Ejecutar(sql); }

Variant CompanyDatabase::Valor(const std::string& sql) {
    auto resultado = cnn->motor().Ejecutar(sql);
    if (resultado.filas.empty() || resultado.filas.front().empty()) return Variant::Null();
    return resultado.filas.front().front();
}

long CompanyDatabase::Contar(const std::string& tablaYCondicion) {
    return CLng(Valor("SELECT COUNT(*) FROM " + tablaYCondicion));
}

}  // namespace celdora::testing

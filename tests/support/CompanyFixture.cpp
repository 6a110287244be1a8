#include "tests/support/CompanyFixture.h"

#include <string>

#include "platform/sqlite/Sqlite.h"
#include "schema/Schema.h"
#include "value/Convert.h"

namespace celdora::testing {

CompanyDatabase::CompanyDatabase(Datos datos) {
    cnn = platform::AbrirSqlite(":memory:");
    platform::EjecutarGuion(*cnn, std::string(schema::EsquemaSqlite()));
    if (datos == Datos::Demo) platform::EjecutarGuion(*cnn, std::string(schema::DatosDemo()));
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

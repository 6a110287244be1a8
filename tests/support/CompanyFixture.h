#pragma once

// A company database in memory, built from the SQLite schema (and the demo
// company's data when asked), with the data object a host would hand over.

#include <memory>
#include <string>
#include <vector>

#include "platform/common/ConexionMotor.h"
#include "platform/common/DataObjectsMotor.h"
#include "value/Variant.h"

namespace celdora::testing {

class CompanyDatabase {
public:
    enum class Datos { SoloEsquema, Demo };
    explicit CompanyDatabase(Datos datos = Datos::SoloEsquema);

    std::shared_ptr<platform::ConexionMotor> cnn;
    std::shared_ptr<platform::DataObjectsMotor> dataObjects;
    // Every statement the connection received since the schema was built,
    // the test's own included, in order.
    std::shared_ptr<std::vector<std::string>> sentencias;

    // Runs a statement of the test's own (setting up rows).
    void Ejecutar(const std::string& sql);
    // The first column of the first row, Null when there is no row.
    Variant Valor(const std::string& sql);
    long Contar(const std::string& tablaYCondicion);
};

}  // namespace celdora::testing

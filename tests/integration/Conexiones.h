#pragma once

// The kinds of connection the behaviour suite runs on, and a fresh demo
// company for each test on any of them. Every kind speaks the MySQL dialect
// (the SQLite adapter is made to), so the system's first dialect probe
// answers and it writes its LIMIT forms and one-argument isnull filters.

#include <memory>
#include <string>
#include <vector>

#include "platform/common/ConexionMotor.h"
#include "platform/common/Motor.h"
#include "value/Variant.h"

namespace celdora::integracion {

// One company made for one test: a new database holding the schema of its
// engine and the demo company, reached through the adapter of its kind, with
// every statement it receives from then on recorded in order.
class Empresa {
public:
    // The kinds of connection: "sqlite", "mariadb" and "mariadb-odbc".
    static const std::vector<std::string>& Tipos();

    // Why a kind cannot run here (which variable is unset and what sets it),
    // or "" when it can.
    static std::string PorQueNoDisponible(const std::string& tipo);

    // A fresh company on that kind. The servers' kinds drop and create the
    // suite's own database first. A refusal of the server raises its Fault.
    static std::unique_ptr<Empresa> Crear(const std::string& tipo);

    // Closes the connection, so that the next test may drop the database.
    ~Empresa();
    Empresa(const Empresa&) = delete;
    Empresa& operator=(const Empresa&) = delete;

    const std::string tipo;
    // The connection the system is given, over the recording engine.
    std::shared_ptr<platform::ConexionMotor> cnn;
    // Every statement cnn received since the demo company was loaded.
    std::shared_ptr<std::vector<std::string>> sentencias;

    // A statement of the test's own (setting up or reading rows), through
    // the same connection as the system's.
    void Ejecutar(const std::string& sql);
    // The first column of the first row, Null when there is no row.
    Variant Valor(const std::string& sql);
    long Contar(const std::string& tablaYCondicion);

private:
    Empresa(std::string tipo, std::unique_ptr<platform::Motor> motor);
};

// The database every server kind of this suite works in, dropped and created
// again for each test.
inline constexpr const char* kBaseDeLaSuite = "celdora_test_conducta";

// A kind as the name of a parameterized test: "mariadb-odbc" becomes
// "mariadb_odbc", since a test's name takes no hyphen.
struct NombreDelTipo {
    template <class Info>
    std::string operator()(const Info& info) const {
        std::string nombre;
        for (char c : info.param) nombre += c == '-' ? '_' : c;
        return nombre;
    }
};

// An ODBC connection string with another database in its Database= (or DB=)
// item, which is added when it has none.
std::string CadenaOdbcConBase(const std::string& cadena, const std::string& base);

}  // namespace celdora::integracion

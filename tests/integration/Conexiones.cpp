#include "tests/integration/Conexiones.h"

#include <cstdlib>
#include <regex>
#include <string_view>
#include <utility>

#include "platform/common/Guion.h"
#include "platform/mariadb/Mariadb.h"
#include "platform/odbc/Odbc.h"
#include "platform/sqlite/Sqlite.h"
#include "schema/Schema.h"
#include "tests/support/MotorRegistrado.h"
#include "value/Channels.h"
#include "value/Convert.h"

namespace celdora::integracion {

namespace {

constexpr const char* kVariableMariadb = "CELDORA_TEST_MARIADB";
constexpr const char* kVariableAdmin = "CELDORA_TEST_MARIADB_ADMIN";
constexpr const char* kVariableOdbc = "CELDORA_TEST_ODBC";

std::string Variable(const char* nombre) {
    const char* valor = std::getenv(nombre);
    return valor ? std::string(valor) : std::string();
}

// The address of the server for dropping and creating the suite's own
// database: the one tools/integration.sh gives for that, or the test URL
// without its database.
platform::DestinoMariadb DestinoAdministrativo() {
    const std::string admin = Variable(kVariableAdmin);
    auto destino = platform::LeerUrlMariadb(admin.empty() ? Variable(kVariableMariadb) : admin);
    destino.base.clear();
    return destino;
}

// The test URL's server with the suite's own database in place of its own.
platform::DestinoMariadb DestinoDeLaSuite() {
    auto destino = platform::LeerUrlMariadb(Variable(kVariableMariadb));
    destino.base = kBaseDeLaSuite;
    return destino;
}

// Drops and creates the suite's database, empty. Only the suite's own
// database is ever dropped, never the one the URL names.
void CrearBaseDeLaSuite() {
    // The server keeps table names in lower case (tools/integration.sh sets
    // it up so): the system spells some with other capitals (DCxC).
    platform::ConexionMotor admin(platform::AbrirMotorMariadb(DestinoAdministrativo()));
    admin.Execute(std::string("DROP DATABASE IF EXISTS ") + kBaseDeLaSuite);
    admin.Execute(std::string("CREATE DATABASE ") + kBaseDeLaSuite + " CHARACTER SET utf8mb4");
    admin.Close();
}

}  // namespace

const std::vector<std::string>& Empresa::Tipos() {
    static const std::vector<std::string> tipos{"sqlite", "mariadb", "mariadb-odbc"};
    return tipos;
}

std::string Empresa::PorQueNoDisponible(const std::string& tipo) {
    const std::string comoSeDa = "; tools/integration.sh starts a throwaway MariaDB server and sets it";
    if (tipo == "mariadb-odbc" && Variable(kVariableOdbc).empty())
        return std::string(kVariableOdbc) + " is not set" + comoSeDa;
    // The ODBC kind drops and creates its database through MariaDB's own
    // client, which ODBC cannot do for a database it is not connected to.
    if (tipo != "sqlite" && Variable(kVariableMariadb).empty())
        return std::string(kVariableMariadb) + " is not set" + comoSeDa;
    return "";
}

std::unique_ptr<Empresa> Empresa::Crear(const std::string& tipo) {
    std::unique_ptr<Empresa> empresa;
    std::string_view esquema;
    if (tipo == "sqlite") {
        empresa.reset(new Empresa(tipo, platform::AbrirMotorSqlite(":memory:")));
        esquema = schema::EsquemaSqlite();
    } else if (tipo == "mariadb") {
        CrearBaseDeLaSuite();
        empresa.reset(new Empresa(tipo, platform::AbrirMotorMariadb(DestinoDeLaSuite())));
        esquema = schema::EsquemaMariadb();
    } else if (tipo == "mariadb-odbc") {
        CrearBaseDeLaSuite();
        const std::string cadena = CadenaOdbcConBase(Variable(kVariableOdbc), kBaseDeLaSuite);
        empresa.reset(new Empresa(tipo, platform::AbrirMotorOdbc(cadena)));
        esquema = schema::EsquemaMariadb();
    } else {
        throw Fault{0, "unknown kind of connection: " + tipo};
    }
    // Every kind loads its company through the connection the test then uses.
    platform::EjecutarGuionPorPartes(*empresa->cnn, std::string(esquema));
    platform::EjecutarGuionPorPartes(*empresa->cnn, std::string(schema::DatosDemo()));
    empresa->sentencias->clear();
    return empresa;
}

Empresa::Empresa(std::string tipoDado, std::unique_ptr<platform::Motor> motor) : tipo(std::move(tipoDado)) {
    auto registrado = std::make_unique<testing::MotorRegistrado>(std::move(motor));
    sentencias = registrado->sentencias;
    cnn = std::make_shared<platform::ConexionMotor>(std::move(registrado));
}

Empresa::~Empresa() {
    ResumeNext([&] { cnn->Close(); });
}

void Empresa::Ejecutar(const std::string& sql) { cnn->motor().Ejecutar(sql); }

Variant Empresa::Valor(const std::string& sql) {
    auto resultado = cnn->motor().Ejecutar(sql);
    if (resultado.filas.empty() || resultado.filas.front().empty()) return Variant::Null();
    return resultado.filas.front().front();
}

long Empresa::Contar(const std::string& tablaYCondicion) {
    return CLng(Valor("SELECT COUNT(*) FROM " + tablaYCondicion));
}

std::string CadenaOdbcConBase(const std::string& cadena, const std::string& base) {
    static const std::regex item(R"((^|;)\s*(DATABASE|DB)\s*=[^;]*)", std::regex::icase);
    if (std::regex_search(cadena, item)) return std::regex_replace(cadena, item, "$1$2=" + base);
    return cadena + (cadena.empty() || cadena.back() == ';' ? "" : ";") + "Database=" + base;
}

}  // namespace celdora::integracion

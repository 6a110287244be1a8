// The ODBC engine over MariaDB's ODBC driver and the server that
// CELDORA_TEST_ODBC names (tools/integration.sh starts one): the shared
// behaviour, and what MySQL's dialect adds. Without the variable every test
// here skips and says why.

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <regex>

#include "platform/odbc/MotorOdbc.h"
#include "platform/odbc/Odbc.h"
#include "tests/platform/common/ComportamientoMotor.h"
#include "value/Convert.h"
#include "value/Text.h"

namespace celdora::platform::pruebas {
namespace {

constexpr const char* kSinServidor =
    "CELDORA_TEST_ODBC no está definida: estas pruebas necesitan un servidor (tools/integration.sh)";

std::string Cadena() {
    const char* cadena = std::getenv("CELDORA_TEST_ODBC");
    return cadena ? std::string(cadena) : std::string();
}

// Tests of several runs may share the server's database at once: each run
// names its tables with its own process number.
std::string Sufijo() { return "_" + std::to_string(::getpid()); }

ContextoMotor MariaDb() {
    ContextoMotor ctx;
    if (Cadena().empty()) ctx.porQueNo = kSinServidor;
    ctx.abrir = [] { return AbrirOdbc(Cadena()); };
    ctx.sufijo = Sufijo();
    ctx.claveAutomatica = "INT AUTO_INCREMENT PRIMARY KEY";
    ctx.binario = "LONGBLOB";
    ctx.textoLargo = "LONGTEXT";
    ctx.uuid = "[0-9a-f-]{36}";
    ctx.isnullDeDos = 1582;          // ER_WRONG_PARAMCOUNT_TO_NATIVE_FCT
    ctx.funcionDesconocida = 1305;   // ER_SP_DOES_NOT_EXIST
    ctx.textoFuncionDesconocida = "does not exist";
    ctx.columnaDesconocida = 1054;   // ER_BAD_FIELD_ERROR
    ctx.inicioDeFalla = "[";
    ctx.rechazaTextoLargo = true;
    ctx.textoMarcas = "Marcas de parámetro (?) en la sentencia: 1; valores dados: 2.";
    return ctx;
}

INSTANTIATE_TEST_SUITE_P(MariaDbOdbc, ComportamientoMotor, ::testing::Values(Manejador{"mariadb", &MariaDb}),
                         NombreDeManejador);

// The connection string without its OPTION item, whatever its spelling.
std::string SinOpcion(const std::string& cadena) {
    static const std::regex opcion(R"((^|;)\s*OPTIONS?\s*=[^;]*;?)", std::regex::icase);
    const std::string resto = std::regex_replace(cadena, opcion, "$1");
    return resto.empty() || resto.back() == ';' ? resto : resto + ";";
}

// What MySQL's dialect adds, on the shared suite's connection and folios table.
class MariaDbOdbcTest : public ComportamientoMotor {};

INSTANTIATE_TEST_SUITE_P(MariaDbOdbc, MariaDbOdbcTest, ::testing::Values(Manejador{"mariadb", &MariaDb}),
                         NombreDeManejador);

TEST_P(MariaDbOdbcTest, TheEngineIsMySqlsAndTheSessionIsStrict) {
    auto* motor = dynamic_cast<MotorOdbc*>(&cnn->motor());
    ASSERT_NE(motor, nullptr);
    EXPECT_EQ(motor->SistemaGestor(), MotorOdbc::Sistema::MySql) << motor->NombreDelGestor();
    EXPECT_NE(InStrText(1, CStr(Valor("SELECT @@SESSION.sql_mode")), "STRICT_ALL_TABLES"), 0u);
}

// The server runs with lower_case_table_names=1: the system spells some
// tables with other capitals than the schema.
TEST_P(MariaDbOdbcTest, TableNamesAreFoundInAnyCase) {
    const std::string mayusculas = UCase(folios);
    Ejecutar("INSERT INTO " + mayusculas + " (uf_Serie) VALUES ('A')");
    EXPECT_EQ(Valor("SELECT COUNT(*) FROM " + mayusculas), Variant::Long(1));
    EXPECT_EQ(cnn->motor().ClavePrimaria(mayusculas), std::vector<std::string>{"Sys_PK"});

    auto rs = AbrirEditable("SELECT Sys_PK, uf_Serie FROM " + mayusculas, cnn);
    rs->Fields("uf_Serie").Value("B");
    rs->Update();
    EXPECT_EQ(Columna("uf_Serie"), std::vector<Variant>{"B"});
}

// A connection string that does not ask for matched rows still gets them:
// the adapter adds the option, or its bit to the option the string has.
TEST_P(MariaDbOdbcTest, UpdatesCountMatchedRowsWhateverTheConnectionStringSays) {
    Series({"A"});
    const std::string sinOpcion = SinOpcion(Cadena());
    for (const std::string& cadena : {sinOpcion, sinOpcion + "OPTION=0", sinOpcion + "Option={16}"}) {
        auto otra = AbrirOdbc(cadena);
        EXPECT_EQ(otra->motor().Ejecutar("UPDATE " + folios + " SET uf_Serie='A'").afectadas, 1) << cadena;
        otra->Close();
    }
}

}  // namespace
}  // namespace celdora::platform::pruebas

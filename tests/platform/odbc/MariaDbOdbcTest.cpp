// The ODBC engine over MariaDB's ODBC driver and the server that
// CELDORA_TEST_ODBC names (tools/integration.sh starts one): the shared
// behaviour, and what MySQL's dialect adds. Without the variable every test
// here skips and says why.

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>

#include "platform/common/RecordsetCliente.h"
#include "platform/odbc/MotorOdbc.h"
#include "platform/odbc/Odbc.h"
#include "tests/platform/odbc/ComportamientoOdbc.h"
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

ContextoOdbc MariaDb() {
    ContextoOdbc ctx;
    ctx.cadena = Cadena();
    ctx.porQueNo = kSinServidor;
    ctx.sufijo = Sufijo();
    ctx.claveAutomatica = "INT AUTO_INCREMENT PRIMARY KEY";
    ctx.binario = "LONGBLOB";
    ctx.textoLargo = "LONGTEXT";
    ctx.columnaDesconocida = 1054;  // ER_BAD_FIELD_ERROR
    return ctx;
}

INSTANTIATE_TEST_SUITE_P(MariaDbOdbc, ComportamientoOdbc, ::testing::Values(ManejadorOdbc{"mariadb", &MariaDb}),
                         NombreDeManejador);

// The connection string without its OPTION item, whatever its spelling.
std::string SinOpcion(const std::string& cadena) {
    std::string resultado;
    for (const std::string& item : Split(cadena, ";")) {
        const std::string clave = Trim(item.substr(0, item.find('=')));
        if (item.empty() || EqualText(clave, "OPTION") || EqualText(clave, "OPTIONS")) continue;
        resultado += item + ";";
    }
    return resultado;
}

class MariaDbOdbcTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (Cadena().empty()) GTEST_SKIP() << kSinServidor;
        cnn = AbrirOdbc(Cadena());
        tabla = "odbc_Mayus" + Sufijo();
        Ejecutar("DROP TABLE IF EXISTS " + tabla);
        Ejecutar("CREATE TABLE " + tabla +
                 " (Sys_PK INT AUTO_INCREMENT PRIMARY KEY, uf_noCertificado VARCHAR(20)) CHARACTER SET utf8mb4");
    }
    void TearDown() override {
        if (!cnn) return;
        FallaDe([&] { Ejecutar("DROP TABLE IF EXISTS " + tabla); });
        cnn->Close();
    }

    Resultado Ejecutar(const std::string& sql, const std::vector<Variant>& parametros = {}) {
        return cnn->motor().Ejecutar(sql, parametros);
    }
    Variant Valor(const std::string& sql) { return Ejecutar(sql).filas.at(0).at(0); }

    std::shared_ptr<ConexionMotor> cnn;
    std::string tabla;
};

TEST_F(MariaDbOdbcTest, TheMySqlProbeAnswersAndTheOthersFail) {
    auto* motor = dynamic_cast<MotorOdbc*>(&cnn->motor());
    ASSERT_NE(motor, nullptr);
    EXPECT_EQ(motor->SistemaGestor(), MotorOdbc::Sistema::MySql) << motor->NombreDelGestor();

    auto guid = cnn->Execute("Select UUID() as GUID;");
    ASSERT_EQ(guid->State(), host::adStateOpen);
    const Variant valor = guid->Fields("GUID").Value();
    ASSERT_EQ(valor.Type(), VarType::String);
    EXPECT_EQ(valor.AsString().size(), 36u);
    EXPECT_EQ(FallaDe([&] { cnn->Execute("SELECT NEWID() as sGUID;"); }).number, 1305);  // no such function
    EXPECT_EQ(FallaDe([&] { cnn->Execute("Select cbool(-1) as Valor;"); }).number, 1305);
}

TEST_F(MariaDbOdbcTest, ATextLongerThanItsColumnIsRefusedNotCut) {
    EXPECT_NE(InStrText(1, CStr(Valor("SELECT @@SESSION.sql_mode")), "STRICT_ALL_TABLES"), 0u);

    const Fault falla = FallaDe([&] {
        Ejecutar("INSERT INTO " + tabla + " (uf_noCertificado) VALUES (?)", {std::string(21, '1')});
    });
    EXPECT_EQ(falla.number, 1406);  // ER_DATA_TOO_LONG
    EXPECT_NE(falla.description.find("Data too long"), std::string::npos) << falla.description;
    EXPECT_EQ(Valor("SELECT COUNT(*) FROM " + tabla), Variant::Long(0));
}

// The server runs with lower_case_table_names=1: the system spells some
// tables with other capitals than the schema.
TEST_F(MariaDbOdbcTest, TableNamesAreFoundInAnyCase) {
    const std::string mayusculas = UCase(tabla);
    Ejecutar("INSERT INTO " + mayusculas + " (uf_noCertificado) VALUES ('A')");
    EXPECT_EQ(Valor("SELECT COUNT(*) FROM " + mayusculas), Variant::Long(1));
    EXPECT_EQ(cnn->motor().ClavePrimaria(mayusculas), std::vector<std::string>{"Sys_PK"});

    auto rs = std::make_shared<RecordsetCliente>();
    rs->CursorLocation(host::adUseClient);
    rs->Open("SELECT Sys_PK, uf_noCertificado FROM " + mayusculas, cnn, host::adOpenKeyset, host::adLockOptimistic);
    rs->Fields("uf_noCertificado").Value("B");
    rs->Update();
    rs->Close();
    EXPECT_EQ(Valor("SELECT uf_noCertificado FROM " + tabla), Variant("B"));
}

// A connection string that does not ask for matched rows still gets them:
// the adapter adds the option, or its bit to the option the string has.
TEST_F(MariaDbOdbcTest, UpdatesCountMatchedRowsWhateverTheConnectionStringSays) {
    Ejecutar("INSERT INTO " + tabla + " (uf_noCertificado) VALUES ('A')");
    const std::string sinOpcion = SinOpcion(Cadena());
    for (const std::string& cadena : {sinOpcion, sinOpcion + "OPTION=0", sinOpcion + "Option={16}"}) {
        auto otra = AbrirOdbc(cadena);
        EXPECT_EQ(otra->motor().Ejecutar("UPDATE " + tabla + " SET uf_noCertificado='A'").afectadas, 1) << cadena;
        otra->Close();
    }
}

}  // namespace
}  // namespace celdora::platform::pruebas

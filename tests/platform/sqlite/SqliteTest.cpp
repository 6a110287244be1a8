// The embedded SQLite engine: the shared behaviour on a temporary file, and
// what is SQLite's own: values read by storage and declared type, its
// faults, scripts, and the MySQL dialect it is made to speak.

#include "platform/sqlite/Sqlite.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <regex>

#include "platform/sqlite/DialectoMySql.h"
#include "tests/platform/common/ComportamientoMotor.h"
#include "tests/support/CarpetaTemporal.h"
#include "value/Convert.h"
#include "value/Date.h"

namespace celdora::platform {
namespace {

using pruebas::ComportamientoMotor;
using pruebas::FallaDe;

pruebas::ContextoMotor Incrustado() {
    static int cuenta = 0;
    pruebas::ContextoMotor ctx;
    ctx.archivo = (std::filesystem::temp_directory_path() /
                   ("celdora-sqlite-" + std::to_string(::getpid()) + "-" + std::to_string(++cuenta) + ".db"))
                      .string();
    std::filesystem::remove(ctx.archivo);
    ctx.abrir = [ruta = ctx.archivo] { return AbrirSqlite(ruta); };
    ctx.uuid = "[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}";
    ctx.isnullDeDos = 1;
    ctx.sentenciaDoble = 1;
    ctx.textoSentenciaDoble = "second statement";
    ctx.marcasDeMas = 25;  // SQLITE_RANGE
    ctx.transaccionDoble = 1;
    return ctx;
}

INSTANTIATE_TEST_SUITE_P(Sqlite, ComportamientoMotor, ::testing::Values(pruebas::Manejador{"sqlite", &Incrustado}),
                         pruebas::NombreDeManejador);

class MotorSqliteTest : public ::testing::Test {
protected:
    std::unique_ptr<Motor> motor = AbrirMotorSqlite(":memory:");

    void SetUp() override {
        motor->Ejecutar(
            "CREATE TABLE t (Sys_PK INTEGER PRIMARY KEY, nombre VARCHAR(20) UNIQUE, fecha DATETIME, corto SMALLINT, "
            "grande INTEGER, real DOUBLE, datos BLOB)");
    }
    std::vector<Variant> Fila(const std::string& sql) { return motor->Ejecutar(sql).filas.at(0); }
};

TEST_F(MotorSqliteTest, ValuesReadByStorageAndDeclaredType) {
    motor->Ejecutar("INSERT INTO t VALUES (1, 'a', '2012-03-05 07:08:09', 7, 3000000000, 1.5, x'00FF')");
    motor->Ejecutar("INSERT INTO t (Sys_PK, fecha, corto) VALUES (2, '2012-03-05', 70000)");
    motor->Ejecutar("INSERT INTO t (Sys_PK, fecha) VALUES (3, 40973.25)");
    EXPECT_EQ(Fila("SELECT nombre, fecha, corto, grande, real, datos, Sys_PK FROM t WHERE Sys_PK=1"),
              (std::vector<Variant>{"a", MakeDate({2012, 3, 5, 7, 8, 9}), Variant::Integer(7), 3000000000.0, 1.5,
                                    Bytes{0x00, 0xFF}, Variant::Long(1)}));
    EXPECT_EQ(Fila("SELECT fecha, corto, nombre FROM t WHERE Sys_PK=2"),
              (std::vector<Variant>{DateSerial(2012, 3, 5), Variant::Long(70000), Variant::Null()}));
    EXPECT_EQ(Fila("SELECT fecha FROM t WHERE Sys_PK=3")[0], Variant(Date{40973.25}));
}

TEST_F(MotorSqliteTest, ParametersAreKeptAsTextDatesAndBlobsAndFaultsAreSqlites) {
    motor->Ejecutar("INSERT INTO t (Sys_PK, nombre, fecha, datos) VALUES (?, ?, ?, ?)",
                    {Variant::Long(5), "o'x", Variant(MakeDate({1899, 12, 29, 6, 0, 0})), Variant(Bytes{})});
    EXPECT_EQ(Fila("SELECT CAST(fecha AS TEXT), typeof(datos), length(datos) FROM t"),
              (std::vector<Variant>{"1899-12-29 06:00:00", "blob", Variant::Long(0)}));
    EXPECT_EQ(motor->UltimaClave(), 5);
    EXPECT_EQ(motor->ClavePrimaria("T"), std::vector<std::string>{"Sys_PK"});

    const Fault doble = FallaDe([&] { motor->Ejecutar("INSERT INTO t (nombre) VALUES ('o''x')"); });
    EXPECT_EQ(doble.number, 2067);  // SQLITE_CONSTRAINT_UNIQUE
    EXPECT_NE(doble.description.find("UNIQUE constraint failed: t.nombre"), std::string::npos) << doble.description;
    EXPECT_EQ(FallaDe([&] { motor->Ejecutar("  ; -- nada"); }).number, 1);
    motor->Cerrar();
    EXPECT_FALSE(motor->Abierto());
    EXPECT_EQ(FallaDe([&] { motor->Ejecutar("SELECT 1"); }).number, 3704);
}

TEST(AbrirSqlite, AFileThatCannotBeOpenedRaisesSqlitesCodeAndMessage) {
    testing::CarpetaTemporal carpeta;
    const Fault sinCarpeta = FallaDe([&] { AbrirSqlite(carpeta / "no/existe.db"); });
    EXPECT_EQ(sinCarpeta.number, 14);  // SQLITE_CANTOPEN
    EXPECT_NE(sinCarpeta.description.find("unable to open database file"), std::string::npos);
    std::ofstream(carpeta / "ajeno.db") << "esto no es una base de datos, aunque tenga bytes para parecerlo........";
    EXPECT_EQ(FallaDe([&] { AbrirSqlite(carpeta / "ajeno.db"); }).number, 26);  // SQLITE_NOTADB

    AbrirSqlite(carpeta / "empresa.db")->Execute("CREATE TABLE t (a)");
    auto cnn = AbrirSqlite(carpeta / "empresa.db");
    EXPECT_EQ(cnn->State(), 1);
    EXPECT_EQ(cnn->Execute("PRAGMA foreign_keys")->Fields(0).Value(), Variant::Long(0));
    EXPECT_EQ(cnn->Execute("SELECT Count(*) FROM t")->Fields(0).Value(), Variant::Long(0));
}

TEST(EjecutarGuion, RunsEveryStatementAndNamesTheOneThatFails) {
    auto cnn = AbrirSqlite(":memory:");
    EjecutarGuion(*cnn, R"(
        -- the tables
        CREATE TABLE a (x INTEGER);  /* first */
        INSERT INTO a VALUES (1);
        INSERT INTO a SELECT x + 1 FROM a WHERE NOT isnull(x);
    )");
    EXPECT_EQ(cnn->Execute("SELECT Sum(x) FROM a")->Fields(0).Value(), Variant::Long(3));

    const Fault falla = FallaDe([&] {
        EjecutarGuion(*cnn, "INSERT INTO a VALUES (10);\n  INSERT INTO nada\n VALUES (1);\nINSERT INTO a VALUES (20);");
    });
    EXPECT_EQ(falla.number, 1);
    EXPECT_NE(falla.description.find("no such table: nada"), std::string::npos) << falla.description;
    EXPECT_NE(falla.description.find("INSERT INTO nada)"), std::string::npos) << falla.description;
    EXPECT_EQ(cnn->Execute("SELECT Sum(x) FROM a")->Fields(0).Value(), Variant::Long(13));
    ConexionMotor cerrada;
    EXPECT_EQ(FallaDe([&] { EjecutarGuion(cerrada, "SELECT 1"); }).number, 3704);
}

TEST(DialectoMySql, IsnullIsRenamedOutsideLiteralsQuotedNamesAndComments) {
    auto cnn = AbrirSqlite(":memory:");
    EXPECT_EQ(cnn->Execute("SELECT 'isnull(x)' || \"isnull(\" FROM (SELECT 1 AS \"isnull(\")")->Fields(0).Value(),
              Variant("isnull(x)1"));
    EXPECT_EQ(cnn->Execute("SELECT Count(*) FROM (SELECT NULL AS x) WHERE x ISNULL")->Fields(0).Value(),
              Variant::Long(1));  // SQLite's own keyword stays
    const Fault dos = FallaDe([&] { cnn->Execute("SELECT isnull(1,0)"); });
    EXPECT_NE(dos.description.find("wrong number of arguments to function isnull"), std::string::npos)
        << dos.description;
    EXPECT_EQ(sqlite::RenombrarIsNull("SELECT notisnull(a), isnull_b(a), x.isnull2 -- isnull(\n, Isnull(a)"),
              "SELECT notisnull(a), isnull_b(a), x.isnull2 -- isnull(\n, celdora_isnull(a)");
    EXPECT_EQ(sqlite::RenombrarIsNull("SELECT 'it''s isnull(' , /* isnull( */ isnull(b)"),
              "SELECT 'it''s isnull(' , /* isnull( */ celdora_isnull(b)");
}

TEST(DialectoMySql, YearAndMonthOfTextJulianDaysAndNull) {
    auto cnn = AbrirSqlite(":memory:");
    const auto valor = [&](const std::string& sql) { return cnn->Execute("SELECT " + sql)->Fields(0).Value(); };
    EXPECT_EQ(valor("Year('2012-03-05 07:08:09')"), Variant::Long(2012));
    EXPECT_EQ(valor("Month('2012-03-05')"), Variant::Long(3));
    EXPECT_EQ(valor("Month(julianday('2011-12-31 23:00:00'))"), Variant::Long(12));
    EXPECT_EQ(valor("Year(2415018.5)"), Variant::Long(1899));
    for (const char* nulo : {"Year(NULL)", "Month('2012-13-01')", "Year('ayer')"})
        EXPECT_TRUE(valor(nulo).IsNull()) << nulo;
    EXPECT_TRUE(std::regex_match(CStr(valor("NOW()")), std::regex(R"(\d{4}-\d{2}-\d{2} \d{2}:\d{2}:\d{2})")));
}

}  // namespace
}  // namespace celdora::platform

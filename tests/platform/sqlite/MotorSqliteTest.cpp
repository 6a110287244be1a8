#include "platform/sqlite/MotorSqlite.h"

#include <gtest/gtest.h>

#include "platform/common/FechaTexto.h"
#include "platform/sqlite/Sqlite.h"
#include "tests/platform/common/Pruebas.h"
#include "value/Date.h"

namespace celdora::platform {
namespace {

using pruebas::FallaDe;

class MotorSqliteTest : public ::testing::Test {
protected:
    std::unique_ptr<Motor> motor = AbrirMotorSqlite(":memory:");

    void SetUp() override {
        motor->Ejecutar(
            "CREATE TABLE t (Sys_PK INTEGER PRIMARY KEY, nombre VARCHAR(20) UNIQUE, fecha DATETIME, corto SMALLINT, "
            "grande INTEGER, real DOUBLE, datos BLOB)");
    }

    std::vector<Variant> Fila(const std::string& sql) {
        const Resultado resultado = motor->Ejecutar(sql);
        return resultado.filas.empty() ? std::vector<Variant>{} : resultado.filas[0];
    }
};

TEST_F(MotorSqliteTest, AStackedStatementIsRefusedAndNothingRuns) {
    motor->Ejecutar("INSERT INTO t (nombre) VALUES ('a')");
    const Fault falla = FallaDe([&] { motor->Ejecutar("SELECT 1; DELETE FROM t"); });
    EXPECT_EQ(falla.number, 1);
    EXPECT_NE(falla.description.find("second statement"), std::string::npos) << falla.description;
    EXPECT_EQ(Fila("SELECT Count(*) FROM t")[0], Variant::Long(1));

    // Trailing semicolons and comments are not a second statement.
    EXPECT_EQ(Fila("Select 2 as n; -- fin\n ; /* nada */")[0], Variant::Long(2));
    EXPECT_EQ(FallaDe([&] { motor->Ejecutar("  ; -- nada"); }).number, 1);
}

TEST_F(MotorSqliteTest, ValuesReadByStorageAndDeclaredType) {
    motor->Ejecutar("INSERT INTO t VALUES (1, 'a', '2012-03-05 07:08:09', 7, 3000000000, 1.5, x'00FF')");
    motor->Ejecutar("INSERT INTO t (Sys_PK, fecha, corto) VALUES (2, '2012-03-05', 70000)");
    motor->Ejecutar("INSERT INTO t (Sys_PK, fecha) VALUES (3, 40973.25)");

    const auto uno = Fila("SELECT nombre, fecha, corto, grande, real, datos, Sys_PK FROM t WHERE Sys_PK=1");
    EXPECT_EQ(uno[0], Variant("a"));
    EXPECT_EQ(uno[1], Variant(MakeDate({2012, 3, 5, 7, 8, 9})));
    EXPECT_EQ(uno[2], Variant::Integer(7));
    EXPECT_EQ(uno[3], Variant(3000000000.0));
    EXPECT_EQ(uno[4], Variant(1.5));
    EXPECT_EQ(uno[5], Variant(Bytes{0x00, 0xFF}));
    EXPECT_EQ(uno[6], Variant::Long(1));

    const auto dos = Fila("SELECT fecha, corto, nombre FROM t WHERE Sys_PK=2");
    EXPECT_EQ(dos[0], Variant(DateSerial(2012, 3, 5)));
    EXPECT_EQ(dos[1], Variant::Long(70000));
    EXPECT_TRUE(dos[2].IsNull());
    EXPECT_EQ(Fila("SELECT fecha FROM t WHERE Sys_PK=3")[0], Variant(Date{40973.25}));
}

TEST_F(MotorSqliteTest, ParametersBindAsTheDatabaseKeepsThem) {
    motor->Ejecutar("INSERT INTO t (Sys_PK, nombre, fecha, grande, real, datos) VALUES (?, ?, ?, ?, ?, ?)",
                    {Variant::Long(5), "o'x", Variant(MakeDate({1899, 12, 29, 6, 0, 0})), true,
                     Variant(Currency{12345}), Variant(Bytes{})});
    const auto fila = Fila("SELECT nombre, CAST(fecha AS TEXT), grande, real, typeof(datos), length(datos) FROM t");
    EXPECT_EQ(fila[0], Variant("o'x"));
    EXPECT_EQ(fila[1], Variant("1899-12-29 06:00:00"));
    EXPECT_EQ(fila[2], Variant::Long(-1));
    EXPECT_EQ(fila[3], Variant(1.2345));
    EXPECT_EQ(fila[4], Variant("blob"));
    EXPECT_EQ(fila[5], Variant::Long(0));
    EXPECT_EQ(motor->UltimaClave(), 5);

    EXPECT_EQ(FallaDe([&] { motor->Ejecutar("SELECT ?", {}); }).number, 25);
    const Fault doble = FallaDe([&] { motor->Ejecutar("INSERT INTO t (nombre) VALUES ('o''x')"); });
    EXPECT_EQ(doble.number, 2067);  // SQLITE_CONSTRAINT_UNIQUE
    EXPECT_NE(doble.description.find("UNIQUE constraint failed: t.nombre"), std::string::npos) << doble.description;
}

TEST_F(MotorSqliteTest, ColumnsTellTheirTableAndTablesTheirKey) {
    ASSERT_TRUE(MotorSqlite::ConOrigenDeColumnas());
    const Resultado resultado = motor->Ejecutar("SELECT nombre AS n, 1 + 1 AS dos FROM t");
    EXPECT_TRUE(resultado.tieneFilas);
    EXPECT_EQ(resultado.columnas[0].nombre, "n");
    EXPECT_EQ(resultado.columnas[0].tablaBase, "t");
    EXPECT_EQ(resultado.columnas[0].columnaBase, "nombre");
    EXPECT_EQ(resultado.columnas[1].tablaBase, "");
    EXPECT_EQ(motor->ClavePrimaria("T"), std::vector<std::string>{"Sys_PK"});

    motor->Ejecutar("INSERT INTO t (Sys_PK) VALUES (1)");
    EXPECT_EQ(motor->Ejecutar("UPDATE t SET nombre=NULL WHERE Sys_PK=1").afectadas, 1);  // same value, still counted
    EXPECT_EQ(motor->Ejecutar("CREATE TABLE u (a)").afectadas, 0);
}

TEST_F(MotorSqliteTest, AClosedEngineRefusesStatements) {
    motor->Cerrar();
    EXPECT_FALSE(motor->Abierto());
    EXPECT_EQ(FallaDe([&] { motor->Ejecutar("SELECT 1"); }).number, 3704);
}

}  // namespace
}  // namespace celdora::platform

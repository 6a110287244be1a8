#include "platform/mariadb/MotorMariadb.h"

#include <gtest/gtest.h>

#include "platform/common/FechaTexto.h"
#include "tests/platform/mariadb/ServidorPrueba.h"
#include "value/Date.h"

namespace celdora::platform {
namespace {

using pruebas::FallaDe;

class MotorMariadbTest : public pruebas::ConServidor {};

TEST_F(MotorMariadbTest, TheDialectProbeAnswersOnTheFirstStatementAndTheOthersFailWithTheServersMessage) {
    auto uuid = cnn->Execute("Select UUID() as GUID;");
    ASSERT_EQ(uuid->State(), 1);
    const Variant guid = uuid->Fields("guid").Value();
    ASSERT_EQ(guid.Type(), VarType::String);
    EXPECT_EQ(guid.AsString().size(), 36u);
    EXPECT_EQ(guid.AsString()[8], '-');

    const Fault sqlServer = FallaDe([&] { cnn->Execute("SELECT NEWID() as sGUID;"); });
    EXPECT_EQ(sqlServer.number, 1305);  // ER_SP_DOES_NOT_EXIST
    EXPECT_NE(sqlServer.description.find("NEWID does not exist"), std::string::npos) << sqlServer.description;
    const Fault access = FallaDe([&] { cnn->Execute("Select cbool(-1) as Valor;"); });
    EXPECT_EQ(access.number, 1305);
    EXPECT_NE(access.description.find("cbool does not exist"), std::string::npos) << access.description;
}

TEST_F(MotorMariadbTest, OneArgumentIsnullWorksAndTwoArgumentsFail) {
    Tabla("cfd_isnull", "Sys_PK INT AUTO_INCREMENT PRIMARY KEY, uf_Tipo SMALLINT, uf_XMLCFDI LONGTEXT");
    Ejecutar("INSERT INTO cfd_isnull (uf_Tipo, uf_XMLCFDI) VALUES (3, '<cfdi/>'), (3, NULL), (1, '<cfd/>')");

    EXPECT_EQ(Valor("SELECT Count(Sys_PK) AS Total FROM cfd_isnull WHERE uf_Tipo=3 AND (NOT isnull(uf_XMLCFDI))"),
              Variant::Long(1));
    const Fault dosArgumentos = FallaDe([&] {
        Ejecutar("SELECT Count(Sys_PK) AS Total FROM cfd_isnull WHERE uf_Tipo=3 AND (NOT isnull(uf_XMLCFDI,'')='')");
    });
    EXPECT_EQ(dosArgumentos.number, 1582);  // ER_WRONG_PARAMCOUNT_TO_NATIVE_FCT
    EXPECT_NE(dosArgumentos.description.find("'isnull'"), std::string::npos) << dosArgumentos.description;
}

TEST_F(MotorMariadbTest, AStackedStatementIsRefusedAndNothingRuns) {
    Tabla("pila", "a INT");
    Ejecutar("INSERT INTO pila VALUES (1), (2)");

    EXPECT_NE(FallaDe([&] { Ejecutar("SELECT 1; DELETE FROM pila"); }).number, 0);
    // A value glued into the text that closes its literal and adds a statement.
    const std::string valor = "x'; DELETE FROM pila; -- ";
    EXPECT_NE(FallaDe([&] { cnn->Execute("SELECT a FROM pila WHERE a='" + valor + "'"); }).number, 0);
    EXPECT_EQ(Valor("SELECT Count(*) FROM pila"), Variant::Long(2));

    // One statement with its ";" and a literal holding one still runs.
    EXPECT_EQ(Valor("SELECT Count(*) FROM pila WHERE a<>'1;3';"), Variant::Long(1));
}

TEST_F(MotorMariadbTest, ValuesRoundTripWithTheirTypes) {
    Tabla("tipos",
          "Sys_PK INT AUTO_INCREMENT PRIMARY KEY, t_bool SMALLINT, t_tiny TINYINT, t_small SMALLINT, t_int INT, "
          "t_medium MEDIUMINT, t_big BIGINT, t_bigchico BIGINT, t_double DOUBLE, t_float FLOAT, t_dec DECIMAL(12,4), "
          "t_fecha DATETIME, t_dia DATE, t_texto VARCHAR(100), t_largo LONGTEXT, t_blob LONGBLOB, t_bin VARBINARY(10)");
    const Date fecha{DateSerial(2026, 10, 5).serial + TimeSerial(10, 15, 7).serial};
    const std::string acentos = "Nota de Crédito — Año Ñandú 😀";
    const std::string largo(100000, 'x');
    Bytes blob;
    for (int i = 0; i < 200000; ++i) blob.push_back(static_cast<std::uint8_t>(i * 7 % 256));
    Ejecutar("INSERT INTO tipos (t_bool, t_tiny, t_small, t_int, t_medium, t_big, t_bigchico, t_double, t_float, "
             "t_dec, t_fecha, t_dia, t_texto, t_largo, t_blob, t_bin) "
             "VALUES (?,?,?,?,?,5000000000,?,?,?,?,?,?,?,?,?,?)",
             {true, Variant::Integer(-7), Variant::Integer(-32768), Variant::Long(2147483647),
              Variant::Long(-8388608), Variant::Long(42), 0.1, 0.5, Currency{12345678}, fecha,
              Variant(DateSerial(2026, 2, 28)), acentos, largo, blob, Bytes{}});
    Ejecutar("INSERT INTO tipos (t_texto) VALUES (?)", {Variant::Null()});

    const Resultado r = Ejecutar("SELECT * FROM tipos ORDER BY Sys_PK");
    ASSERT_EQ(r.filas.size(), 2u);
    const auto& f = r.filas[0];
    EXPECT_EQ(f[1], Variant::Integer(-1));  // a true boolean is -1
    EXPECT_EQ(f[2], Variant::Integer(-7));
    EXPECT_EQ(f[3], Variant::Integer(-32768));
    EXPECT_EQ(f[4], Variant::Long(2147483647));
    EXPECT_EQ(f[5], Variant::Long(-8388608));
    EXPECT_EQ(f[6], Variant(5000000000.0));  // beyond 32 bits
    EXPECT_EQ(f[7], Variant::Long(42));
    EXPECT_EQ(f[8], Variant(0.1));
    EXPECT_EQ(f[9], Variant(0.5));
    EXPECT_EQ(f[10], Variant(1234.5678));
    ASSERT_EQ(f[11].Type(), VarType::Date);
    EXPECT_EQ(TextoDeFecha(f[11].AsDate()), "2026-10-05 10:15:07");
    ASSERT_EQ(f[12].Type(), VarType::Date);
    EXPECT_EQ(TextoDeFecha(f[12].AsDate()), "2026-02-28 00:00:00");
    EXPECT_EQ(f[13], Variant(acentos));
    EXPECT_EQ(f[14], Variant(largo));
    EXPECT_EQ(f[15], Variant(blob));
    EXPECT_EQ(f[16], Variant(Bytes{}));  // empty, not Null
    for (std::size_t i = 1; i < r.filas[1].size(); ++i) EXPECT_TRUE(r.filas[1][i].IsNull()) << i;

    // The server holds the text as utf8mb4, not as bytes read in another
    // character set: é is C3 A9 and the emoji one character of four bytes.
    EXPECT_EQ(Valor("SELECT HEX(SUBSTRING(t_texto, 11, 1)) FROM tipos WHERE Sys_PK=1"), Variant("C3A9"));
    EXPECT_EQ(Valor("SELECT CHAR_LENGTH(t_texto) FROM tipos WHERE Sys_PK=1"), Variant::Long(29));
    // A text glued into the statement arrives the same way.
    EXPECT_EQ(Valor("SELECT Count(*) FROM tipos WHERE t_texto='" + acentos + "'"), Variant::Long(1));

    // Dates written as text, the functions of the dialect, aggregates.
    const Resultado d = Ejecutar(
        "SELECT CAST('2026-11-18 10:30:00' AS DATETIME) AS f, Year('2026-11-18 10:30:00') AS y, "
        "Month('2026-11-18 10:30:00') AS m, TIME('06:00:00') AS h, Count(*) AS n, Sum(t_int) AS s FROM tipos");
    ASSERT_EQ(d.filas[0][0].Type(), VarType::Date);
    EXPECT_EQ(TextoDeFecha(d.filas[0][0].AsDate()), "2026-11-18 10:30:00");
    EXPECT_EQ(d.filas[0][1], Variant::Long(2026));
    EXPECT_EQ(d.filas[0][2], Variant::Long(11));
    EXPECT_EQ(d.filas[0][3], Variant(Date{0.25}));
    EXPECT_EQ(d.filas[0][4], Variant::Long(2));
    EXPECT_EQ(d.filas[0][5], Variant(2147483647.0));  // SUM of integers is a DECIMAL
}

TEST_F(MotorMariadbTest, ColumnsTellTheirBaseTableAndColumn) {
    Tabla("origen", "Sys_PK INT AUTO_INCREMENT PRIMARY KEY, uf_Serie VARCHAR(10)");
    const Resultado r = Ejecutar("SELECT x.uf_Serie AS Serie, Sys_PK + 1 AS Siguiente, x.Sys_PK FROM Origen x");
    ASSERT_EQ(r.columnas.size(), 3u);
    EXPECT_TRUE(r.tieneFilas);
    EXPECT_EQ(r.columnas[0].nombre, "Serie");
    EXPECT_EQ(r.columnas[0].tablaBase, "origen");
    EXPECT_EQ(r.columnas[0].columnaBase, "uf_Serie");
    EXPECT_EQ(r.columnas[1].nombre, "Siguiente");
    EXPECT_EQ(r.columnas[1].tablaBase, "");
    EXPECT_EQ(r.columnas[1].columnaBase, "");
    EXPECT_EQ(r.columnas[2].tablaBase, "origen");
    EXPECT_EQ(r.columnas[2].columnaBase, "Sys_PK");

    const Resultado sinFilas = Ejecutar("UPDATE origen SET uf_Serie='A'");
    EXPECT_FALSE(sinFilas.tieneFilas);
    EXPECT_TRUE(sinFilas.columnas.empty());
}

TEST_F(MotorMariadbTest, AfectadasCountsTheRowsMatchedAlsoWhenNothingChanged) {
    Tabla("cuenta", "Sys_PK INT AUTO_INCREMENT PRIMARY KEY, uf_Reportado SMALLINT");
    Ejecutar("INSERT INTO cuenta (uf_Reportado) VALUES (1), (1), (0)");
    EXPECT_EQ(Ejecutar("UPDATE cuenta SET uf_Reportado=1 WHERE Sys_PK=1").afectadas, 1);
    EXPECT_EQ(Ejecutar("UPDATE cuenta SET uf_Reportado=1").afectadas, 3);
    EXPECT_EQ(Ejecutar("UPDATE cuenta SET uf_Reportado=1 WHERE Sys_PK=99").afectadas, 0);
    EXPECT_EQ(Ejecutar("DELETE FROM cuenta WHERE Sys_PK>1").afectadas, 2);
    EXPECT_EQ(Ejecutar("CREATE INDEX ix_cuenta ON cuenta (uf_Reportado)").afectadas, 0);
}

TEST_F(MotorMariadbTest, AStatementTheServerCannotPrepareRunsAsTextWithTheSameResult) {
    Tabla("texto", "Sys_PK INT AUTO_INCREMENT PRIMARY KEY, t_small SMALLINT, t_int INT UNSIGNED, t_big BIGINT, "
                   "t_double DOUBLE, t_dec DECIMAL(10,2), t_fecha DATETIME, t_hora TIME, t_texto VARCHAR(40), "
                   "t_blob BLOB, t_bits BIT(12)");
    Ejecutar("INSERT INTO texto (t_small, t_int, t_big, t_double, t_dec, t_fecha, t_hora, t_texto, t_blob, t_bits) "
             "VALUES (-5, 4000000000, -9000000000, 0.1, 12.5, '2026-10-20 09:05:00', '36:00:00', 'Pedro Ñúñez', "
             "x'00FF27', b'101000000001')");
    Ejecutar("INSERT INTO texto (t_texto) VALUES (NULL)");

    const std::string consulta = "SELECT * FROM texto ORDER BY Sys_PK";
    const Resultado preparado = Ejecutar(consulta);
    const Resultado comoTexto = Ejecutar("EXECUTE IMMEDIATE '" + consulta + "'");
    ASSERT_EQ(comoTexto.columnas.size(), preparado.columnas.size());
    for (std::size_t i = 0; i < preparado.columnas.size(); ++i) {
        EXPECT_EQ(comoTexto.columnas[i].nombre, preparado.columnas[i].nombre);
        EXPECT_EQ(comoTexto.columnas[i].tablaBase, preparado.columnas[i].tablaBase);
        EXPECT_EQ(comoTexto.columnas[i].columnaBase, preparado.columnas[i].columnaBase);
    }
    EXPECT_EQ(comoTexto.filas, preparado.filas);
    ASSERT_EQ(preparado.filas.size(), 2u);
    const auto& f = preparado.filas[0];
    EXPECT_EQ(f[1], Variant::Integer(-5));
    EXPECT_EQ(f[2], Variant(4000000000.0));  // unsigned beyond 32 bits
    EXPECT_EQ(f[3], Variant(-9000000000.0));
    EXPECT_EQ(f[5], Variant(12.5));
    EXPECT_EQ(f[7], Variant(Date{1.5}));
    EXPECT_EQ(f[8], Variant("Pedro Ñúñez"));
    EXPECT_EQ(f[9], Variant(Bytes{0x00, 0xFF, 0x27}));
    EXPECT_EQ(f[10], Variant::Long(0xA01));

    const Resultado cambio = Ejecutar("EXECUTE IMMEDIATE 'UPDATE texto SET t_small=t_small'");
    EXPECT_FALSE(cambio.tieneFilas);
    EXPECT_EQ(cambio.afectadas, 2);
    // Such a statement cannot take parameters: the server's refusal stands.
    EXPECT_EQ(FallaDe([&] { Ejecutar("EXECUTE IMMEDIATE 'SELECT ?'", {Variant::Long(1)}); }).number, 1295);
}

TEST_F(MotorMariadbTest, ParametersMustMatchTheMarksAndFailuresCarryTheServersMessage) {
    Tabla("marcas", "a INT NOT NULL");
    const Fault pocos = FallaDe([&] { Ejecutar("INSERT INTO marcas VALUES (?)"); });
    EXPECT_EQ(pocos.number, 2034);  // CR_INVALID_PARAMETER_NO
    const Fault nulo = FallaDe([&] { Ejecutar("INSERT INTO marcas VALUES (?)", {Variant::Null()}); });
    EXPECT_EQ(nulo.number, 1048);  // ER_BAD_NULL_ERROR
    EXPECT_NE(nulo.description.find("Column 'a' cannot be null"), std::string::npos) << nulo.description;
    const Fault sinTabla = FallaDe([&] { Ejecutar("SELECT * FROM no_hay"); });
    EXPECT_EQ(sinTabla.number, 1146);  // ER_NO_SUCH_TABLE
    EXPECT_NE(sinTabla.description.find("no_hay' doesn't exist"), std::string::npos) << sinTabla.description;
    // The connection stays usable after each failure.
    EXPECT_EQ(Valor("SELECT Count(*) FROM marcas"), Variant::Long(0));
}

TEST_F(MotorMariadbTest, UltimaClaveAndClavePrimaria) {
    Tabla("claves", "Sys_PK INT AUTO_INCREMENT PRIMARY KEY, uf_Nombre VARCHAR(50)");
    Tabla("compuesta", "uf_Anio INT, uf_Mes INT, uf_Valor INT, PRIMARY KEY (uf_Mes, uf_Anio)");
    Tabla("sinclave", "a INT");

    Ejecutar("INSERT INTO claves (uf_Nombre) VALUES ('a'), ('b')");
    Ejecutar("INSERT INTO claves (uf_Nombre) VALUES (?)", {"c"});
    EXPECT_EQ(cnn->motor().UltimaClave(), 3);
    Ejecutar("UPDATE claves SET uf_Nombre='z'");
    Ejecutar("INSERT INTO compuesta VALUES (2026, 10, 1)");
    EXPECT_EQ(cnn->motor().UltimaClave(), 3);  // a statement that generated no key leaves it

    EXPECT_EQ(cnn->motor().ClavePrimaria("Claves"), std::vector<std::string>{"Sys_PK"});
    EXPECT_EQ(cnn->motor().ClavePrimaria("compuesta"), (std::vector<std::string>{"uf_Mes", "uf_Anio"}));
    EXPECT_TRUE(cnn->motor().ClavePrimaria("sinclave").empty());
    EXPECT_TRUE(cnn->motor().ClavePrimaria("no_hay").empty());
}

TEST_F(MotorMariadbTest, ARolledBackTransactionLeavesNothingAndACommittedOneIsSeenByOthers) {
    Tabla("movimientos", "Sys_PK INT AUTO_INCREMENT PRIMARY KEY, uf_Importe DOUBLE");
    Motor& motor = cnn->motor();
    EXPECT_FALSE(motor.EnTransaccion());

    motor.IniciarTransaccion();
    EXPECT_TRUE(motor.EnTransaccion());
    Ejecutar("INSERT INTO movimientos (uf_Importe) VALUES (10), (20)");
    EXPECT_EQ(Valor("SELECT Count(*) FROM movimientos"), Variant::Long(2));
    motor.RevertirTransaccion();
    EXPECT_FALSE(motor.EnTransaccion());
    EXPECT_EQ(Valor("SELECT Count(*) FROM movimientos"), Variant::Long(0));

    auto otra = AbrirMariadb(url);
    motor.IniciarTransaccion();
    Ejecutar("INSERT INTO movimientos (uf_Importe) VALUES (30)");
    EXPECT_EQ(otra->motor().Ejecutar("SELECT Count(*) FROM movimientos").filas[0][0], Variant::Long(0));
    motor.ConfirmarTransaccion();
    EXPECT_FALSE(motor.EnTransaccion());
    EXPECT_EQ(otra->motor().Ejecutar("SELECT Sum(uf_Importe) FROM movimientos").filas[0][0], Variant(30.0));
}

}  // namespace
}  // namespace celdora::platform

#include "tests/platform/odbc/ComportamientoOdbc.h"

#include <filesystem>

#include "platform/common/RecordsetCliente.h"
#include "platform/common/cCampoSimple.h"
#include "platform/common/cRegistroMotor.h"
#include "platform/odbc/Odbc.h"
#include "value/Date.h"
#include "value/Text.h"

namespace celdora::platform::pruebas {

std::string NombreDeManejador(const ::testing::TestParamInfo<ManejadorOdbc>& info) { return info.param.nombre; }

void ComportamientoOdbc::SetUp() {
    ctx = GetParam().crear();
    if (ctx.cadena.empty()) GTEST_SKIP() << ctx.porQueNo;
    cnn = AbrirOdbc(ctx.cadena);
    folios = "ut_FoliosCBB" + ctx.sufijo;
    Ejecutar("DROP TABLE IF EXISTS " + folios);
    Ejecutar("CREATE TABLE " + folios + " (Sys_PK " + ctx.claveAutomatica +
             ", uf_Serie VARCHAR(10), uf_FolioInicial INTEGER, uf_NumAprobacion SMALLINT, uf_FechaAprobacion DATETIME, "
             "uf_Importe DOUBLE PRECISION, uf_CBB " + ctx.binario + ", uf_Notas " + ctx.textoLargo + ")");
}

void ComportamientoOdbc::TearDown() {
    if (cnn) {
        // Closing rolls back what a failed test left open, so the drop runs.
        cnn->Close();
        FallaDe([&] { AbrirOdbc(ctx.cadena)->Execute("DROP TABLE IF EXISTS " + folios); });
    }
    if (!ctx.archivo.empty()) std::filesystem::remove(ctx.archivo);
}

void ComportamientoOdbc::Ejecutar(const std::string& sql, const std::vector<Variant>& parametros) {
    cnn->motor().Ejecutar(sql, parametros);
}

Variant ComportamientoOdbc::Valor(const std::string& sql) {
    const Resultado resultado = cnn->motor().Ejecutar(sql);
    return resultado.filas.empty() ? Variant::Null() : resultado.filas[0][0];
}

std::shared_ptr<ConexionMotor> ComportamientoOdbc::OtraConexion() { return AbrirOdbc(ctx.cadena); }

namespace {

Bytes BytesDe(std::size_t cuantos) {
    Bytes bytes(cuantos);
    for (std::size_t i = 0; i < cuantos; ++i) bytes[i] = static_cast<std::uint8_t>(i * 7 % 256);
    return bytes;
}

TEST_P(ComportamientoOdbc, ValuesGoAndComeBackWithTheirKind) {
    const Date fecha = MakeDate({2012, 3, 5, 7, 8, 9});
    Ejecutar("INSERT INTO " + folios +
                 " (uf_Serie, uf_FolioInicial, uf_NumAprobacion, uf_FechaAprobacion, uf_Importe, uf_CBB) "
                 "VALUES (?, ?, ?, ?, ?, ?)",
             {"Ñú O'x", Variant::Long(3000000), Variant::Integer(-7), fecha, Variant(Currency{12345}),
              Variant(Bytes{0x00, 0xFF, 0x00})});
    Ejecutar("INSERT INTO " + folios + " (uf_Serie, uf_FolioInicial, uf_NumAprobacion, uf_Importe, uf_CBB) "
                                       "VALUES (?, ?, ?, ?, ?)",
             {Variant::Null(), true, false, 0.1, Variant(Bytes{})});

    const Resultado r = cnn->motor().Ejecutar(
        "SELECT uf_Serie, uf_FolioInicial, uf_NumAprobacion, uf_FechaAprobacion, uf_Importe, uf_CBB, Sys_PK FROM " +
        folios + " ORDER BY Sys_PK");
    ASSERT_EQ(r.filas.size(), 2u);
    const auto& uno = r.filas[0];
    EXPECT_EQ(uno[0], Variant("Ñú O'x"));
    EXPECT_EQ(uno[1], Variant::Long(3000000));
    EXPECT_EQ(uno[2], Variant::Integer(-7));
    EXPECT_EQ(uno[3], Variant(fecha));
    EXPECT_EQ(uno[4], Variant(1.2345));
    EXPECT_EQ(uno[5], Variant(Bytes{0x00, 0xFF, 0x00}));
    EXPECT_EQ(uno[6], Variant::Long(1));
    const auto& dos = r.filas[1];
    EXPECT_TRUE(dos[0].IsNull());
    EXPECT_EQ(dos[1], Variant::Long(-1));  // a boolean is -1 and 0
    EXPECT_EQ(dos[2], Variant::Integer(0));
    EXPECT_TRUE(dos[3].IsNull());
    EXPECT_EQ(dos[4], Variant(0.1));
    EXPECT_EQ(dos[5], Variant(Bytes{}));  // empty, not Null

    // Dates glued into the text as the system writes them read as dates,
    // and a date parameter compares equal to that text.
    Ejecutar("UPDATE " + folios + " SET uf_FechaAprobacion='2011-03-15 00:00:00' WHERE Sys_PK=2");
    EXPECT_EQ(Valor("SELECT uf_FechaAprobacion FROM " + folios + " WHERE Sys_PK=2"), Variant(DateSerial(2011, 3, 15)));
    EXPECT_EQ(Valor("SELECT Sys_PK FROM " + folios + " WHERE uf_FechaAprobacion='2012-03-05 07:08:09'"),
              Variant::Long(1));
    EXPECT_EQ(Valor("SELECT COUNT(*) FROM " + folios), Variant::Long(2));
}

TEST_P(ComportamientoOdbc, LongTextsAndBinariesAreReadWhole) {
    std::string texto;
    for (int i = 0; i < 5000; ++i) texto += "ñandú|" + std::to_string(i);
    const Bytes imagen = BytesDe(300000);
    Ejecutar("INSERT INTO " + folios + " (uf_Notas, uf_CBB) VALUES (?, ?)", {texto, imagen});
    const Resultado r = cnn->motor().Ejecutar("SELECT uf_Notas, uf_CBB FROM " + folios);
    ASSERT_EQ(r.filas.size(), 1u);
    EXPECT_EQ(r.filas[0][0], Variant(texto));
    EXPECT_EQ(r.filas[0][1], Variant(imagen));
}

TEST_P(ComportamientoOdbc, ColumnsTellTheirTableAndTablesTheirKey) {
    const Resultado r =
        cnn->motor().Ejecutar("SELECT Sys_PK, uf_Serie AS serie, 1 + 1 AS dos FROM " + folios + " WHERE 1=0");
    EXPECT_TRUE(r.tieneFilas);
    EXPECT_TRUE(r.filas.empty());
    ASSERT_EQ(r.columnas.size(), 3u);
    EXPECT_EQ(r.columnas[0].nombre, "Sys_PK");
    EXPECT_TRUE(EqualText(r.columnas[0].tablaBase, folios)) << r.columnas[0].tablaBase;
    EXPECT_EQ(r.columnas[0].columnaBase, "Sys_PK");
    EXPECT_EQ(r.columnas[1].nombre, "serie");
    if (ctx.nombraLaColumnaDelAlias) {
        EXPECT_EQ(r.columnas[1].columnaBase, "uf_Serie");
    }
    EXPECT_EQ(r.columnas[2].tablaBase, "");
    EXPECT_EQ(r.columnas[2].columnaBase, "");

    EXPECT_EQ(cnn->motor().ClavePrimaria(folios), std::vector<std::string>{"Sys_PK"});
    EXPECT_TRUE(cnn->motor().ClavePrimaria("ut_NoExiste" + ctx.sufijo).empty());
}

TEST_P(ComportamientoOdbc, AKeysetRecordsetUpdatesATextAndABinaryByTheRowsKey) {
    Ejecutar("INSERT INTO " + folios + " (uf_Serie) VALUES ('A')");
    Ejecutar("INSERT INTO " + folios + " (uf_Serie) VALUES ('B')");
    auto rs = std::make_shared<RecordsetCliente>();
    rs->CursorLocation(host::adUseClient);
    rs->Open("SELECT Sys_PK, uf_Serie, uf_CBB FROM " + folios + " ORDER BY Sys_PK", cnn, host::adOpenKeyset,
             host::adLockOptimistic);
    rs->movenext();
    rs->Fields("uf_Serie").Value("Ñ'B");
    rs->Fields("uf_CBB").Value(Bytes{0x89, 0x50, 0x00, 0x47});
    rs->Update();
    rs->Close();

    EXPECT_EQ(Valor("SELECT uf_Serie FROM " + folios + " WHERE Sys_PK=2"), Variant("Ñ'B"));
    EXPECT_EQ(Valor("SELECT uf_CBB FROM " + folios + " WHERE Sys_PK=2"), Variant(Bytes{0x89, 0x50, 0x00, 0x47}));
    EXPECT_EQ(Valor("SELECT uf_Serie FROM " + folios + " WHERE Sys_PK=1"), Variant("A"));

    if (ctx.nombraLaColumnaDelAlias) {
        rs->Open("SELECT Sys_PK AS clave, uf_Serie AS serie FROM " + folios + " WHERE Sys_PK=1", cnn,
                 host::adOpenKeyset, host::adLockOptimistic);
        rs->Fields("serie").Value("C");
        rs->Update();
        rs->Close();
        EXPECT_EQ(Valor("SELECT uf_Serie FROM " + folios + " WHERE Sys_PK=1"), Variant("C"));
    }

    // A row gone since it was read is not found, and nothing is written.
    rs->Open("SELECT Sys_PK, uf_Serie FROM " + folios + " WHERE Sys_PK=1", cnn, host::adOpenKeyset,
             host::adLockOptimistic);
    Ejecutar("DELETE FROM " + folios + " WHERE Sys_PK=1");
    rs->Fields("uf_Serie").Value("D");
    EXPECT_EQ(FallaDe([&] { rs->Update(); }).number, -2147217864);
}

TEST_P(ComportamientoOdbc, AfectadasCountsTheRowsMatchedNotOnlyThoseChanged) {
    Ejecutar("INSERT INTO " + folios + " (uf_Serie) VALUES ('A')");
    Ejecutar("INSERT INTO " + folios + " (uf_Serie) VALUES ('A')");
    Motor& motor = cnn->motor();
    EXPECT_EQ(motor.Ejecutar("UPDATE " + folios + " SET uf_Serie='A' WHERE Sys_PK=1").afectadas, 1);
    EXPECT_EQ(motor.Ejecutar("UPDATE " + folios + " SET uf_Serie=? WHERE uf_Serie=?", {"A", "A"}).afectadas, 2);
    EXPECT_EQ(motor.Ejecutar("UPDATE " + folios + " SET uf_Serie='B' WHERE Sys_PK=99").afectadas, 0);
    EXPECT_EQ(motor.Ejecutar("DELETE FROM " + folios + " WHERE Sys_PK=99").afectadas, 0);

    const Resultado crear = motor.Ejecutar("CREATE TABLE ut_Otra" + ctx.sufijo + " (a INTEGER)");
    EXPECT_FALSE(crear.tieneFilas);
    EXPECT_EQ(crear.afectadas, 0);
    motor.Ejecutar("DROP TABLE ut_Otra" + ctx.sufijo);
    EXPECT_EQ(motor.Ejecutar("DELETE FROM " + folios).afectadas, 2);

    // Execute hands back a closed recordset for a statement without rows.
    EXPECT_EQ(cnn->Execute("DELETE FROM " + folios)->State(), host::adStateClosed);
    EXPECT_EQ(cnn->Execute("SELECT Sys_PK FROM " + folios)->State(), host::adStateOpen);
}

TEST_P(ComportamientoOdbc, RollbackLeavesNothingAndCommitKeepsWhatWasWritten) {
    Motor& motor = cnn->motor();
    motor.IniciarTransaccion();
    EXPECT_TRUE(motor.EnTransaccion());
    EXPECT_EQ(FallaDe([&] { motor.IniciarTransaccion(); }).number, 3219);
    Ejecutar("INSERT INTO " + folios + " (uf_Serie) VALUES ('A')");
    Ejecutar("UPDATE " + folios + " SET uf_Serie='B'");
    motor.RevertirTransaccion();
    EXPECT_FALSE(motor.EnTransaccion());
    EXPECT_EQ(Valor("SELECT COUNT(*) FROM " + folios), Variant::Long(0));
    EXPECT_EQ(FallaDe([&] { motor.ConfirmarTransaccion(); }).number, 3219);

    motor.IniciarTransaccion();
    Ejecutar("INSERT INTO " + folios + " (uf_Serie) VALUES ('C')");
    motor.ConfirmarTransaccion();
    // Autocommit is back: this insert is seen by another connection at once.
    Ejecutar("INSERT INTO " + folios + " (uf_Serie) VALUES ('D')");
    auto otra = OtraConexion();
    EXPECT_EQ(otra->motor().Ejecutar("SELECT COUNT(*) FROM " + folios).filas[0][0], Variant::Long(2));
    otra->Close();

    // Closing a connection in a transaction rolls back what it left pending.
    motor.IniciarTransaccion();
    Ejecutar("DELETE FROM " + folios);
    cnn->Close();
    EXPECT_EQ(cnn->State(), host::adStateClosed);
    EXPECT_EQ(FallaDe([&] { cnn->Execute("SELECT 1"); }).number, 3704);
    cnn = OtraConexion();
    EXPECT_EQ(Valor("SELECT COUNT(*) FROM " + folios), Variant::Long(2));
}

TEST_P(ComportamientoOdbc, ASecondStatementIsRefusedAndNothingRuns) {
    Ejecutar("INSERT INTO " + folios + " (uf_Serie) VALUES ('A;B')");
    // A value glued between quotes as the system glues them.
    const std::string valor = "x'; DELETE FROM " + folios + "; --";
    const Fault falla = FallaDe([&] { cnn->Execute("UPDATE " + folios + " SET uf_Serie='" + valor + "'"); });
    EXPECT_EQ(falla.number, 3001);
    EXPECT_NE(falla.description.find("segunda sentencia"), std::string::npos) << falla.description;
    EXPECT_EQ(FallaDe([&] { cnn->Execute("SELECT 1; DELETE FROM " + folios); }).number, 3001);
    EXPECT_EQ(Valor("SELECT uf_Serie FROM " + folios), Variant("A;B"));

    // A semicolon in a literal, and one ending the statement, are fine.
    EXPECT_EQ(Valor("SELECT COUNT(*) FROM " + folios + " WHERE uf_Serie='A;B'; -- fin"), Variant::Long(1));
}

TEST_P(ComportamientoOdbc, TheRowWriterInsertsAndGivesTheNewKey) {
    Ejecutar("INSERT INTO " + folios + " (uf_Serie) VALUES ('previo')");
    cRegistroMotor registro;
    registro.Conexion(cnn);
    registro.Tabla(folios);
    registro.Nuevo();
    auto agregar = [&](const std::string& nombre, const std::string& tipo, const Variant& valor) {
        auto campo = std::make_shared<cCampoSimple>();
        campo->Tipo(tipo);
        campo->Nombre(nombre);
        campo->NombreColumna(nombre);
        campo->Valor(valor);
        registro.Campos().Add(campo, nombre);
    };
    agregar("uf_Serie", "String", "O'K");
    agregar("uf_NumAprobacion", "Integer", "9876");
    agregar("uf_FechaAprobacion", "Date", Variant(DateSerial(2011, 3, 15)));
    ASSERT_TRUE(registro.Guardar()) << registro.UltimoError();
    EXPECT_EQ(registro.Clave(), 2);
    EXPECT_EQ(registro.Campos().Item("Sys_PK")->Valor(), Variant::Long(2));
    EXPECT_EQ(Valor("SELECT uf_NumAprobacion FROM " + folios + " WHERE Sys_PK=2"), Variant::Integer(9876));

    // Saving again updates that row, also when nothing changed.
    ASSERT_TRUE(registro.Guardar()) << registro.UltimoError();
    EXPECT_EQ(Valor("SELECT COUNT(*) FROM " + folios), Variant::Long(2));
    registro.Campos().Item("Sys_PK")->Valor(Variant::Long(77));
    EXPECT_FALSE(registro.Guardar());
    EXPECT_EQ(registro.UltimoError(), "No existe el registro 77 en la tabla " + folios + ".");
}

TEST_P(ComportamientoOdbc, FaultsCarryTheDriversNumberAndMessage) {
    const Fault falla = FallaDe([&] { Ejecutar("SELECT uf_Nada FROM " + folios); });
    EXPECT_EQ(falla.number, ctx.columnaDesconocida);
    EXPECT_EQ(falla.description.rfind("[", 0), 0u) << falla.description;  // "[SQLSTATE] message"
    EXPECT_NE(falla.description.find("uf_Nada"), std::string::npos) << falla.description;

    // A failed statement leaves the connection usable.
    EXPECT_EQ(Valor("SELECT COUNT(*) FROM " + folios), Variant::Long(0));
    const Fault cuenta = FallaDe([&] { Ejecutar("SELECT uf_Serie FROM " + folios + " WHERE Sys_PK=?", {1, 2}); });
    EXPECT_EQ(cuenta.number, 3001);
    EXPECT_EQ(cuenta.description, "Marcas de parámetro (?) en la sentencia: 1; valores dados: 2.");
}

}  // namespace
}  // namespace celdora::platform::pruebas

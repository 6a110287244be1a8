#include "tests/platform/common/ComportamientoMotor.h"

#include <filesystem>
#include <regex>

#include "platform/common/DataObjectsMotor.h"
#include "platform/common/GlobalVarTabla.h"
#include "value/Convert.h"
#include "value/Date.h"
#include "value/Text.h"

namespace celdora::platform::pruebas {

void ComportamientoMotor::SetUp() {
    ctx = GetParam().crear();
    if (!ctx.porQueNo.empty()) GTEST_SKIP() << ctx.porQueNo;
    cnn = ctx.abrir();
    folios = "ut_FoliosCBB" + ctx.sufijo;
    Ejecutar("DROP TABLE IF EXISTS " + folios);
    Ejecutar("CREATE TABLE " + folios + " (Sys_PK " + ctx.claveAutomatica +
             ", uf_Serie VARCHAR(10), uf_FolioInicial INTEGER, uf_NumAprobacion SMALLINT, uf_FechaAprobacion DATETIME, "
             "uf_Importe DOUBLE PRECISION, uf_CBB " + ctx.binario + ", uf_Notas " + ctx.textoLargo + ")");
}

void ComportamientoMotor::TearDown() {
    if (cnn) {
        // Closing rolls back what a failed test left open, so the drop runs.
        cnn->Close();
        FallaDe([&] { ctx.abrir()->Execute("DROP TABLE IF EXISTS " + folios); });
    }
    if (!ctx.archivo.empty()) std::filesystem::remove(ctx.archivo);
}

Resultado ComportamientoMotor::Ejecutar(const std::string& sql, const std::vector<Variant>& parametros) {
    return cnn->motor().Ejecutar(sql, parametros);
}

Variant ComportamientoMotor::Valor(const std::string& sql) {
    const Resultado resultado = Ejecutar(sql);
    return resultado.filas.empty() ? Variant::Null() : resultado.filas[0][0];
}

std::vector<Variant> ComportamientoMotor::Columna(const std::string& columna) {
    std::vector<Variant> valores;
    for (const auto& fila : Ejecutar("SELECT " + columna + " FROM " + folios + " ORDER BY Sys_PK").filas)
        valores.push_back(fila[0]);
    return valores;
}

void ComportamientoMotor::Series(const std::vector<std::string>& series) {
    for (const std::string& serie : series) Ejecutar("INSERT INTO " + folios + " (uf_Serie) VALUES (?)", {serie});
}

namespace {

TEST_P(ComportamientoMotor, ValuesGoAndComeBackWithTheirKind) {
    const Date fecha = MakeDate({2012, 3, 5, 7, 8, 9});
    Ejecutar("INSERT INTO " + folios +
                 " (uf_Serie, uf_FolioInicial, uf_NumAprobacion, uf_FechaAprobacion, uf_Importe, uf_CBB) "
                 "VALUES (?, ?, ?, ?, ?, ?)",
             {"Ñú O'x", Variant::Long(3000000), Variant::Integer(-7), fecha, Variant(Currency{12345}),
              Variant(Bytes{0x00, 0xFF, 0x00})});
    Ejecutar("INSERT INTO " + folios + " (uf_Serie, uf_FolioInicial, uf_NumAprobacion, uf_Importe, uf_CBB) "
                                       "VALUES (?, ?, ?, ?, ?)",
             {Variant::Null(), true, false, 0.1, Variant(Bytes{})});

    const Resultado r = Ejecutar(
        "SELECT uf_Serie, uf_FolioInicial, uf_NumAprobacion, uf_FechaAprobacion, uf_Importe, uf_CBB, Sys_PK FROM " +
        folios + " ORDER BY Sys_PK");
    ASSERT_EQ(r.filas.size(), 2u);
    EXPECT_EQ(r.filas[0], (std::vector<Variant>{"Ñú O'x", Variant::Long(3000000), Variant::Integer(-7), fecha,
                                                1.2345, Bytes{0x00, 0xFF, 0x00}, Variant::Long(1)}));
    // A boolean is -1 and 0; an empty binary is empty, not Null.
    EXPECT_EQ(r.filas[1], (std::vector<Variant>{Variant::Null(), Variant::Long(-1), Variant::Integer(0),
                                                Variant::Null(), 0.1, Bytes{}, Variant::Long(2)}));

    // Dates glued into the text as the system writes them read as dates,
    // and a date parameter compares equal to that text.
    Ejecutar("UPDATE " + folios + " SET uf_FechaAprobacion='2011-03-15 00:00:00' WHERE Sys_PK=2");
    EXPECT_EQ(Valor("SELECT uf_FechaAprobacion FROM " + folios + " WHERE Sys_PK=2"), Variant(DateSerial(2011, 3, 15)));
    EXPECT_EQ(Valor("SELECT Sys_PK FROM " + folios + " WHERE uf_FechaAprobacion='2012-03-05 07:08:09'"),
              Variant::Long(1));

    // A text longer than its column is refused where the server is strict,
    // and kept whole where the engine does not judge sizes.
    const Fault largo = FallaDe([&] { Ejecutar("INSERT INTO " + folios + " (uf_Serie) VALUES (?)", {"12345678901"}); });
    EXPECT_EQ(largo.number, ctx.rechazaTextoLargo ? 1406 : 0) << largo.description;  // ER_DATA_TOO_LONG
    if (ctx.rechazaTextoLargo) {
        EXPECT_NE(largo.description.find("Data too long"), std::string::npos);
    }
    EXPECT_EQ(Valor("SELECT COUNT(*) FROM " + folios), Variant::Long(ctx.rechazaTextoLargo ? 2 : 3));
}

TEST_P(ComportamientoMotor, LongTextsAndBinariesAreReadWhole) {
    std::string texto;
    for (int i = 0; i < 5000; ++i) texto += "ñandú|" + std::to_string(i);
    Bytes imagen(300000);
    for (std::size_t i = 0; i < imagen.size(); ++i) imagen[i] = static_cast<std::uint8_t>(i * 7 % 256);
    Ejecutar("INSERT INTO " + folios + " (uf_Notas, uf_CBB) VALUES (?, ?)", {texto, imagen});
    const Resultado r = Ejecutar("SELECT uf_Notas, uf_CBB FROM " + folios);
    ASSERT_EQ(r.filas.size(), 1u);
    EXPECT_EQ(r.filas[0][0], Variant(texto));
    EXPECT_EQ(r.filas[0][1], Variant(imagen));
}

TEST_P(ComportamientoMotor, ColumnsTellTheirTableAndTablesTheirKey) {
    const Resultado r = Ejecutar("SELECT Sys_PK, uf_Serie AS serie, 1 + 1 AS dos FROM " + folios + " WHERE 1=0");
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
    const Resultado cambio = Ejecutar("UPDATE " + folios + " SET uf_Serie='A'");
    EXPECT_FALSE(cambio.tieneFilas);
    EXPECT_TRUE(cambio.columnas.empty());
}

TEST_P(ComportamientoMotor, AKeysetRecordsetUpdatesATextAndABinaryByTheRowsKey) {
    Series({"A", "B"});
    auto rs = AbrirEditable("SELECT Sys_PK, uf_Serie, uf_CBB FROM " + folios + " ORDER BY Sys_PK", cnn);
    rs->movenext();
    const Bytes imagen{0x89, 0x50, 0x00, 0x27, 0xFF};
    rs->Fields("uf_Serie").Value("Ñ'B");
    rs->Fields("UF_CBB").Value(imagen);
    EXPECT_EQ(rs->Fields("uf_Serie").Value(), Variant("Ñ'B"));
    rs->Update();
    EXPECT_EQ(rs->Fields("uf_CBB").Value(), Variant(imagen));
    // Writing the values the row already holds finds the row all the same.
    rs->Fields("uf_Serie").Value("Ñ'B");
    rs->Update();
    rs->Close();
    EXPECT_EQ(Columna("uf_Serie"), (std::vector<Variant>{"A", "Ñ'B"}));
    EXPECT_EQ(Columna("uf_CBB"), (std::vector<Variant>{Variant::Null(), imagen}));

    if (ctx.nombraLaColumnaDelAlias) {
        auto alias =
            AbrirEditable("SELECT Sys_PK AS clave, uf_Serie AS serie FROM " + folios + " WHERE Sys_PK=1", cnn);
        alias->Fields("serie").Value("C");
        alias->Update();
        EXPECT_EQ(Columna("uf_Serie"), (std::vector<Variant>{"C", "Ñ'B"}));
    }

    // A row gone since it was read is not found, and nothing is written;
    // a closed recordset opens again.
    rs->Open("SELECT Sys_PK, uf_Serie FROM " + folios + " WHERE Sys_PK=1", cnn, host::adOpenKeyset,
             host::adLockOptimistic);
    Ejecutar("DELETE FROM " + folios + " WHERE Sys_PK=1");
    rs->Fields("uf_Serie").Value("D");
    EXPECT_EQ(FallaDe([&] { rs->Update(); }).number, -2147217864);
}

TEST_P(ComportamientoMotor, AfectadasCountsTheRowsMatchedNotOnlyThoseChanged) {
    Series({"A", "A"});
    EXPECT_EQ(Ejecutar("UPDATE " + folios + " SET uf_Serie='A' WHERE Sys_PK=1").afectadas, 1);
    EXPECT_EQ(Ejecutar("UPDATE " + folios + " SET uf_Serie=? WHERE uf_Serie=?", {"A", "A"}).afectadas, 2);
    EXPECT_EQ(Ejecutar("UPDATE " + folios + " SET uf_Serie='B' WHERE Sys_PK=99").afectadas, 0);
    EXPECT_EQ(Ejecutar("DELETE FROM " + folios + " WHERE Sys_PK=99").afectadas, 0);

    const Resultado crear = Ejecutar("CREATE TABLE ut_Otra" + ctx.sufijo + " (a INTEGER)");
    EXPECT_FALSE(crear.tieneFilas);
    EXPECT_EQ(crear.afectadas, 0);
    Ejecutar("DROP TABLE ut_Otra" + ctx.sufijo);
    EXPECT_EQ(Ejecutar("DELETE FROM " + folios).afectadas, 2);

    // Execute hands back a closed recordset for a statement without rows.
    EXPECT_EQ(cnn->Execute("DELETE FROM " + folios)->State(), host::adStateClosed);
    EXPECT_EQ(cnn->Execute("SELECT Sys_PK FROM " + folios)->State(), host::adStateOpen);
}

// The engine's transaction, and the host's data object over it, which
// answers whether it began or ended one rather than raising.
TEST_P(ComportamientoMotor, RollbackLeavesNothingAndCommitIsSeenByOthersOnlyThen) {
    Motor& motor = cnn->motor();
    DataObjectsMotor datos(cnn);
    EXPECT_EQ(datos.ADOCnn(), cnn);
    EXPECT_EQ(datos.ConfirmarTransaccion(0), Variant(false));
    EXPECT_EQ(datos.IniciarTransaccion(), Variant(true));
    EXPECT_TRUE(motor.EnTransaccion());
    EXPECT_EQ(datos.IniciarTransaccion(), Variant(false));
    EXPECT_EQ(FallaDe([&] { motor.IniciarTransaccion(); }).number, ctx.transaccionDoble);
    Ejecutar("INSERT INTO " + folios + " (uf_Serie) VALUES ('A')");
    Ejecutar("UPDATE " + folios + " SET uf_Serie='B'");
    EXPECT_EQ(datos.RevertirTransaccion(0), Variant(true));
    EXPECT_FALSE(motor.EnTransaccion());
    EXPECT_EQ(datos.RevertirTransaccion(0), Variant(false));
    EXPECT_EQ(Valor("SELECT COUNT(*) FROM " + folios), Variant::Long(0));
    EXPECT_EQ(FallaDe([&] { motor.ConfirmarTransaccion(); }).number, ctx.transaccionDoble);

    auto otra = ctx.abrir();
    auto cuentaDeOtra = [&] { return otra->motor().Ejecutar("SELECT COUNT(*) FROM " + folios).filas[0][0]; };
    motor.IniciarTransaccion();
    Ejecutar("INSERT INTO " + folios + " (uf_Serie) VALUES ('C')");
    EXPECT_EQ(cuentaDeOtra(), Variant::Long(0));
    EXPECT_EQ(datos.ConfirmarTransaccion(0), Variant(true));
    EXPECT_EQ(datos.RevertirTransaccion(0), Variant(false));
    // Autocommit is back: this insert is seen by the other connection at once.
    Ejecutar("INSERT INTO " + folios + " (uf_Serie) VALUES ('D')");
    EXPECT_EQ(cuentaDeOtra(), Variant::Long(2));
    otra->Close();

    // Closing a connection in a transaction rolls back what it left pending.
    motor.IniciarTransaccion();
    Ejecutar("DELETE FROM " + folios);
    cnn->Close();
    EXPECT_EQ(cnn->State(), host::adStateClosed);
    EXPECT_EQ(FallaDe([&] { cnn->Execute("SELECT 1"); }).number, 3704);
    EXPECT_EQ(FallaDe([&] { datos.IniciarTransaccion(); }).number, 3704);
    cnn = ctx.abrir();
    EXPECT_EQ(Valor("SELECT COUNT(*) FROM " + folios), Variant::Long(2));
}

TEST_P(ComportamientoMotor, ASecondStatementIsRefusedAndNothingRuns) {
    Ejecutar("INSERT INTO " + folios + " (uf_Serie) VALUES ('A;B')");
    // A value glued between quotes as the system glues them.
    const std::string valor = "x'; DELETE FROM " + folios + "; --";
    const Fault falla = FallaDe([&] { cnn->Execute("UPDATE " + folios + " SET uf_Serie='" + valor + "'"); });
    EXPECT_EQ(falla.number, ctx.sentenciaDoble);
    EXPECT_NE(falla.description.find(ctx.textoSentenciaDoble), std::string::npos) << falla.description;
    EXPECT_EQ(FallaDe([&] { cnn->Execute("SELECT 1; DELETE FROM " + folios); }).number, ctx.sentenciaDoble);
    EXPECT_EQ(Valor("SELECT uf_Serie FROM " + folios), Variant("A;B"));

    // A semicolon in a literal, and ones and comments ending the statement, are fine.
    EXPECT_EQ(Valor("SELECT COUNT(*) FROM " + folios + " WHERE uf_Serie='A;B';"), Variant::Long(1));
    if (ctx.comentarioTrasElFin) {
        EXPECT_EQ(Valor("SELECT COUNT(*) FROM " + folios + " WHERE uf_Serie='A;B'; -- fin\n ; /* nada */"),
                  Variant::Long(1));
    }
}

TEST_P(ComportamientoMotor, TheRowWriterInsertsGivesTheNewKeyAndUpdatesByIt) {
    Series({"previo"});
    cRegistroMotor registro;
    registro.Conexion(cnn);
    registro.Tabla(folios);
    registro.Nuevo();
    AgregarCampo(registro, "uf_Serie", "String", "O'K");
    AgregarCampo(registro, "uf_NumAprobacion", "Integer", "9876");
    AgregarCampo(registro, "uf_FechaAprobacion", "Date", Variant(DateSerial(2011, 3, 15)));
    ASSERT_TRUE(registro.Guardar()) << registro.UltimoError();
    EXPECT_EQ(registro.Clave(), 2);
    EXPECT_EQ(registro.Campos().Item("SYS_PK")->Valor(), Variant::Long(2));
    EXPECT_EQ(Columna("uf_NumAprobacion"), (std::vector<Variant>{Variant::Null(), Variant::Integer(9876)}));
    EXPECT_EQ(Columna("uf_Serie"), (std::vector<Variant>{"previo", "O'K"}));

    // Saving again updates that row, also when nothing changed.
    registro.Campos().Item("uf_Serie")->Valor("C");
    ASSERT_TRUE(registro.Guardar()) << registro.UltimoError();
    ASSERT_TRUE(registro.Guardar()) << registro.UltimoError();
    EXPECT_EQ(registro.Clave(), 2);
    EXPECT_EQ(Columna("uf_Serie"), (std::vector<Variant>{"previo", "C"}));
    registro.Campos().Item("Sys_PK")->Valor(Variant::Long(77));
    EXPECT_FALSE(registro.Guardar());
    EXPECT_EQ(registro.UltimoError(), "No existe el registro 77 en la tabla " + folios + ".");
}

TEST_P(ComportamientoMotor, FaultsCarryTheEnginesNumberAndMessage) {
    const Fault falla = FallaDe([&] { Ejecutar("SELECT uf_Nada FROM " + folios); });
    EXPECT_EQ(falla.number, ctx.columnaDesconocida);
    EXPECT_EQ(falla.description.rfind(ctx.inicioDeFalla, 0), 0u) << falla.description;
    EXPECT_NE(falla.description.find("uf_Nada"), std::string::npos) << falla.description;

    // A failed statement leaves the connection usable.
    EXPECT_EQ(Valor("SELECT COUNT(*) FROM " + folios), Variant::Long(0));
    const Fault cuenta = FallaDe([&] { Ejecutar("SELECT uf_Serie FROM " + folios + " WHERE Sys_PK=?", {1, 2}); });
    EXPECT_EQ(cuenta.number, ctx.marcasDeMas) << cuenta.description;
    if (!ctx.textoMarcas.empty()) {
        EXPECT_EQ(cuenta.description, ctx.textoMarcas);
    }
}

// The system tells the dialect by which probe answers, and writes isnull
// with one argument for MySQL's.
TEST_P(ComportamientoMotor, TheDialectProbesAndIsnull) {
    const auto uuid = [&] { return CStr(cnn->Execute("Select UUID() as GUID;")->Fields("guid").Value()); };
    if (!ctx.uuid.empty()) {
        const std::string guid = uuid();
        EXPECT_TRUE(std::regex_match(guid, std::regex(ctx.uuid))) << guid;
        EXPECT_NE(uuid(), guid);
    } else {
        const Fault falla = FallaDe(uuid);
        EXPECT_EQ(falla.number, ctx.funcionDesconocida);
        EXPECT_NE(falla.description.find(ctx.textoFuncionDesconocida), std::string::npos) << falla.description;
    }
    for (const std::string funcion : {"NEWID", "cbool"}) {
        const Fault falla = FallaDe([&] { cnn->Execute("Select " + funcion + "(-1) as Valor;"); });
        EXPECT_EQ(falla.number, ctx.funcionDesconocida) << funcion;
        EXPECT_NE(falla.description.find(funcion), std::string::npos) << falla.description;
        EXPECT_NE(falla.description.find(ctx.textoFuncionDesconocida), std::string::npos) << falla.description;
    }
    EXPECT_EQ(cnn->Execute("SELECT 2 AS n")->Fields("n").Value(), Variant::Long(2));
    if (ctx.uuid.empty()) return;

    Ejecutar("INSERT INTO " + folios + " (uf_Serie, uf_Notas) VALUES ('a', '<cfdi/>'), ('b', NULL)");
    EXPECT_EQ(Valor("SELECT Count(Sys_PK) FROM " + folios + " WHERE (NOT isnull(uf_Notas))"), Variant::Long(1));
    EXPECT_EQ(Valor("SELECT Count(*) FROM " + folios + " WHERE (ISNULL (uf_Notas) OR uf_Serie='z')"), Variant::Long(1));
    const Fault dos = FallaDe([&] { Ejecutar("SELECT Count(*) FROM " + folios + " WHERE isnull(uf_Notas,'')=''"); });
    EXPECT_EQ(dos.number, ctx.isnullDeDos);
    EXPECT_NE(dos.description.find("isnull"), std::string::npos) << dos.description;
}

// Settings live in a table of fixed name, so only an engine whose runs do
// not share a database keeps them here.
TEST_P(ComportamientoMotor, CompanySettingsGoAndComeBackWithApostrophes) {
    if (!ctx.sufijo.empty()) GTEST_SKIP() << "runs share this database, and gv_Configuracion has one name";
    Ejecutar("DROP TABLE IF EXISTS gv_Configuracion");
    GlobalVarTabla ajustes;
    ajustes.Conectar(cnn);  // creates its table
    EXPECT_TRUE(ajustes.GuardarTexto("NVCA102b", "Calle O'Donnell 12, Col. Centro"));
    EXPECT_TRUE(ajustes.GuardarTexto("Clave'Rara", "Año"));
    EXPECT_TRUE(ajustes.GuardarNumero("NVCA328x", 3));
    EXPECT_TRUE(ajustes.GuardarNumero("nvca328X", 2));  // the same key: an update that matches its row
    EXPECT_TRUE(ajustes.GuardarNumero("nvca328X", 2));  // and again with the value it holds

    GlobalVarTabla leidos;
    leidos.Conectar(ctx.abrir());
    EXPECT_EQ(leidos.LeerTexto("nvca102B", ""), "Calle O'Donnell 12, Col. Centro");
    EXPECT_EQ(leidos.LeerTexto("Clave'Rara", ""), "Año");
    EXPECT_EQ(leidos.LeerNumero("NVCA328x", 0), 2.0);
    EXPECT_EQ(Valor("SELECT Count(*) FROM gv_Configuracion"), Variant::Long(3));
}

}  // namespace
}  // namespace celdora::platform::pruebas

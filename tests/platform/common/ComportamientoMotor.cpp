#include "tests/platform/common/ComportamientoMotor.h"

#include <filesystem>
#include <regex>

#include "platform/common/DataObjectsMotor.h"
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
}

TEST_P(ComportamientoMotor, AKeysetRecordsetUpdatesATextAndABinaryByTheRowsKey) {
    Series({"A", "B"});
    EXPECT_EQ(cnn->motor().ClavePrimaria(folios), std::vector<std::string>{"Sys_PK"});
    auto rs = AbrirEditable("SELECT Sys_PK, uf_Serie, uf_CBB FROM " + folios + " ORDER BY Sys_PK", cnn);
    rs->movenext();
    const Bytes imagen{0x89, 0x50, 0x00, 0x27, 0xFF};
    rs->Fields("uf_Serie").Value("Ñ'B");
    rs->Fields("UF_CBB").Value(imagen);
    rs->Update();
    rs->Close();
    EXPECT_EQ(Columna("uf_Serie"), (std::vector<Variant>{"A", "Ñ'B"}));
    EXPECT_EQ(Columna("uf_CBB"), (std::vector<Variant>{Variant::Null(), imagen}));

    // A row gone since it was read is not found, and nothing is written;
    // a closed recordset opens again.
    rs->Open("SELECT Sys_PK, uf_Serie FROM " + folios + " WHERE Sys_PK=1", cnn, host::adOpenKeyset,
             host::adLockOptimistic);
    Ejecutar("DELETE FROM " + folios + " WHERE Sys_PK=1");
    rs->Fields("uf_Serie").Value("D");
    EXPECT_EQ(FallaDe([&] { rs->Update(); }).number, -2147217864);
}

// The engine's transaction, and the host's data object over it, which
// answers whether it began or ended one rather than raising.
TEST_P(ComportamientoMotor, RollbackLeavesNothingAndCommitIsSeenByOthersOnlyThen) {
    Motor& motor = cnn->motor();
    DataObjectsMotor datos(cnn);
    EXPECT_EQ(datos.IniciarTransaccion(), Variant(true));
    EXPECT_EQ(datos.IniciarTransaccion(), Variant(false));
    EXPECT_EQ(FallaDe([&] { motor.IniciarTransaccion(); }).number, ctx.transaccionDoble);
    Ejecutar("INSERT INTO " + folios + " (uf_Serie) VALUES ('A')");
    EXPECT_EQ(datos.RevertirTransaccion(0), Variant(true));
    EXPECT_EQ(Valor("SELECT COUNT(*) FROM " + folios), Variant::Long(0));
    EXPECT_EQ(FallaDe([&] { motor.ConfirmarTransaccion(); }).number, ctx.transaccionDoble);

    auto otra = ctx.abrir();
    auto cuentaDeOtra = [&] { return otra->motor().Ejecutar("SELECT COUNT(*) FROM " + folios).filas[0][0]; };
    motor.IniciarTransaccion();
    Ejecutar("INSERT INTO " + folios + " (uf_Serie) VALUES ('C')");
    EXPECT_EQ(cuentaDeOtra(), Variant::Long(0));
    EXPECT_EQ(datos.ConfirmarTransaccion(0), Variant(true));
    // Autocommit is back: this insert is seen by the other connection at once.
    Ejecutar("INSERT INTO " + folios + " (uf_Serie) VALUES ('D')");
    EXPECT_EQ(cuentaDeOtra(), Variant::Long(2));
    otra->Close();

    // Closing a connection in a transaction rolls back what it left pending.
    motor.IniciarTransaccion();
    Ejecutar("DELETE FROM " + folios);
    cnn->Close();
    EXPECT_EQ(FallaDe([&] { cnn->Execute("SELECT 1"); }).number, 3704);
    cnn = ctx.abrir();
    EXPECT_EQ(Valor("SELECT COUNT(*) FROM " + folios), Variant::Long(2));
}

TEST_P(ComportamientoMotor, ASecondStatementIsRefusedAndNothingRuns) {
    Ejecutar("INSERT INTO " + folios + " (uf_Serie) VALUES ('A;B')");
    // A value glued between quotes as the system glues them.
    const std::string valor = "x'; DELETE FROM " + folios + "; --";
    const Fault falla = FallaDe([&] { cnn->Execute("UPDATE " + folios + " SET uf_Serie='" + valor + "'"); });
    EXPECT_EQ(falla.number, ctx.sentenciaDoble);
    EXPECT_EQ(Valor("SELECT uf_Serie FROM " + folios), Variant("A;B"));

    // A semicolon in a literal, and one ending the statement, are fine.
    EXPECT_EQ(Valor("SELECT COUNT(*) FROM " + folios + " WHERE uf_Serie='A;B';"), Variant::Long(1));
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
    // A text of megabytes, as a stored report: it may travel in pieces.
    std::string notas(5 * 512 * 1024 + 7, ' ');
    for (std::size_t i = 0; i < notas.size(); ++i) notas[i] = static_cast<char>('a' + (i / 1000) % 26);
    AgregarCampo(registro, "uf_Notas", "String", notas);
    ASSERT_TRUE(registro.Guardar()) << registro.UltimoError();
    EXPECT_EQ(registro.Clave(), 2);
    EXPECT_EQ(Columna("uf_Serie"), (std::vector<Variant>{"previo", "O'K"}));

    // Saving again updates that row, also when nothing changed: every field
    // still holds what it held and writes it again.
    registro.Campos().Item("uf_Serie")->Valor("C");
    ASSERT_TRUE(registro.Guardar()) << registro.UltimoError();
    EXPECT_EQ(Columna("uf_Serie"), (std::vector<Variant>{"previo", "C"}));
    EXPECT_EQ(Columna("uf_NumAprobacion"), (std::vector<Variant>{Variant::Null(), Variant::Integer(9876)}));
    EXPECT_TRUE(Valor("SELECT uf_Notas FROM " + folios + " WHERE Sys_PK=2") == Variant(notas));
    registro.Campos().Item("Sys_PK")->Valor(Variant::Long(77));
    EXPECT_FALSE(registro.Guardar());
    EXPECT_EQ(registro.UltimoError(), "No existe el registro 77 en la tabla " + folios + ".");
}

// The monthly report's walk: rows read forward while the same connection
// updates each one in a transaction (a cursor on the server hands them in
// batches of a thousand). Every row comes once, with its value from before
// its update.
TEST_P(ComportamientoMotor, AForwardWalkReadsEveryRowOnceWhileTheConnectionWrites) {
    // Notes of growing and shrinking lengths, for the cells that take them.
    std::string insercion = "INSERT INTO " + folios + " (uf_FolioInicial, uf_Notas) VALUES (0,'')";
    std::size_t esperado = 0;
    for (int i = 1; i < 2500; ++i) {
        insercion += ",(" + std::to_string(i) + ",'" + std::string(i * 7 % 300, 'n') + "')";
        esperado += i + i * 7 % 300;
    }
    Ejecutar(insercion);
    Motor& motor = cnn->motor();
    motor.IniciarTransaccion();
    Resultado recorrido =
        motor.Recorrer("SELECT Sys_PK, uf_FolioInicial, uf_Notas FROM " + folios + " ORDER BY Sys_PK");
    std::size_t leidas = 0, suma = 0;
    auto visitar = [&](const std::vector<Variant>& fila) {
        ++leidas;
        suma += CLng(fila[1]) + CStr(fila[2]).size();
        motor.Ejecutar("UPDATE " + folios + " SET uf_FolioInicial=0, uf_Serie='r' WHERE Sys_PK=?", {fila[0]});
    };
    for (const auto& fila : recorrido.filas) visitar(fila);
    for (std::vector<Variant> fila; recorrido.pendientes && recorrido.pendientes->Siguiente(fila);) visitar(fila);
    motor.ConfirmarTransaccion();
    EXPECT_EQ(leidas, 2500u);
    EXPECT_EQ(suma, esperado);
    EXPECT_EQ(Valor("SELECT COUNT(*) FROM " + folios + " WHERE uf_Serie='r' AND uf_FolioInicial=0"),
              Variant::Long(2500));
}

TEST_P(ComportamientoMotor, FaultsCarryTheEnginesNumberAndMessage) {
    const Fault falla = FallaDe([&] { Ejecutar("SELECT uf_Nada FROM " + folios); });
    EXPECT_EQ(falla.number, ctx.columnaDesconocida);
    EXPECT_EQ(falla.description.rfind(ctx.inicioDeFalla, 0), 0u) << falla.description;
    EXPECT_NE(falla.description.find("uf_Nada"), std::string::npos) << falla.description;
    // A failed statement leaves the connection usable.
    const Fault cuenta = FallaDe([&] { Ejecutar("SELECT uf_Serie FROM " + folios + " WHERE Sys_PK=?", {1, 2}); });
    EXPECT_EQ(cuenta.number, ctx.marcasDeMas) << cuenta.description;
}

// The system tells the dialect by which probe answers (which isnull form
// each engine takes is in tests/integration).
TEST_P(ComportamientoMotor, TheDialectProbes) {
    const auto uuid = [&] { return CStr(cnn->Execute("Select UUID() as GUID;")->Fields("guid").Value()); };
    if (!ctx.uuid.empty()) {
        const std::string guid = uuid();
        EXPECT_TRUE(std::regex_match(guid, std::regex(ctx.uuid))) << guid;
    } else {
        EXPECT_EQ(FallaDe(uuid).number, ctx.funcionDesconocida);
    }
    for (const std::string funcion : {"NEWID", "cbool"}) {
        const Fault falla = FallaDe([&] { cnn->Execute("Select " + funcion + "(-1) as Valor;"); });
        EXPECT_EQ(falla.number, ctx.funcionDesconocida) << funcion;
        EXPECT_NE(falla.description.find(funcion), std::string::npos) << falla.description;
    }
}

}  // namespace
}  // namespace celdora::platform::pruebas

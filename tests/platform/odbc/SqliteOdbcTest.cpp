// The ODBC engine over SQLite's ODBC driver (libsqliteodbc, driver
// "SQLite3") on a temporary file: the shared behaviour, and what is SQLite's
// own through that driver. The driver is plain SQLite, without the functions
// the embedded adapter adds, so the system's dialect probes find no dialect.

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "platform/common/GlobalVarTabla.h"
#include "platform/odbc/ErrorOdbc.h"
#include "platform/odbc/MotorOdbc.h"
#include "platform/odbc/Odbc.h"
#include "platform/sqlite/Sqlite.h"
#include "tests/platform/odbc/ComportamientoOdbc.h"
#include "value/Date.h"

namespace celdora::platform::pruebas {
namespace {

std::string ArchivoTemporal() {
    static int cuenta = 0;
    const auto nombre = "celdora-odbc-" + std::to_string(::getpid()) + "-" + std::to_string(++cuenta) + ".db";
    const std::filesystem::path ruta = std::filesystem::temp_directory_path() / nombre;
    std::filesystem::remove(ruta);
    return ruta.string();
}

ContextoOdbc Sqlite() {
    ContextoOdbc ctx;
    ctx.archivo = ArchivoTemporal();
    ctx.cadena = "Driver={SQLite3};Database=" + ctx.archivo;
    ctx.claveAutomatica = "INTEGER PRIMARY KEY AUTOINCREMENT";
    ctx.binario = "BLOB";
    ctx.textoLargo = "TEXT";
    ctx.nombraLaColumnaDelAlias = false;
    ctx.columnaDesconocida = 1;  // SQLITE_ERROR
    return ctx;
}

INSTANTIATE_TEST_SUITE_P(SqliteOdbc, ComportamientoOdbc, ::testing::Values(ManejadorOdbc{"sqlite", &Sqlite}),
                         NombreDeManejador);

class SqliteOdbcTest : public ::testing::Test {
protected:
    void SetUp() override { cnn = AbrirOdbc(ctx.cadena); }
    void TearDown() override {
        cnn->Close();
        std::filesystem::remove(ctx.archivo);
    }

    ContextoOdbc ctx = Sqlite();
    std::shared_ptr<ConexionMotor> cnn;
};

TEST_F(SqliteOdbcTest, TheDialectProbesFailCleanlyAndTheConnectionGoesOn) {
    auto* motor = dynamic_cast<MotorOdbc*>(&cnn->motor());
    ASSERT_NE(motor, nullptr);
    EXPECT_EQ(motor->SistemaGestor(), MotorOdbc::Sistema::Sqlite);
    EXPECT_EQ(motor->NombreDelGestor(), "SQLite");

    for (const char* sonda : {"Select UUID() as GUID;", "SELECT NEWID() as sGUID;", "Select cbool(-1) as Valor;"}) {
        const Fault falla = FallaDe([&] { cnn->Execute(sonda); });
        EXPECT_EQ(falla.number, 1) << sonda;
        EXPECT_NE(falla.description.find("no such function"), std::string::npos) << falla.description;
    }
    EXPECT_EQ(cnn->Execute("SELECT 2 AS n")->Fields("n").Value(), Variant::Long(2));
}

TEST_F(SqliteOdbcTest, CompanySettingsGoAndComeBackWithApostrophes) {
    GlobalVarTabla ajustes;
    ajustes.Conectar(cnn);  // creates its table
    EXPECT_TRUE(ajustes.GuardarTexto("NVCA100", "Comercial O'Higgins, S.A. de C.V."));
    EXPECT_TRUE(ajustes.GuardarNumero("NVCA300xa", 3));
    EXPECT_TRUE(ajustes.GuardarNumero("nvca300XA", 2));  // the same key: an update that matches its row

    GlobalVarTabla otra;
    otra.Conectar(AbrirOdbc(ctx.cadena));
    EXPECT_EQ(otra.LeerTexto("nvca100", ""), "Comercial O'Higgins, S.A. de C.V.");
    EXPECT_EQ(otra.LeerNumero("NVCA300xa", 0), 2);
    EXPECT_EQ(cnn->motor().Ejecutar("SELECT COUNT(*) FROM gv_Configuracion").filas[0][0], Variant::Long(2));
}

// A company database may be opened by the embedded adapter one day and
// through ODBC the next: both keep dates the same way.
TEST_F(SqliteOdbcTest, DatesAreKeptAsTheEmbeddedEngineKeepsThem) {
    Motor& motor = cnn->motor();
    motor.Ejecutar("CREATE TABLE d (Sys_PK INTEGER PRIMARY KEY, f DATETIME)");
    motor.Ejecutar("INSERT INTO d VALUES (1, ?)", {Variant(MakeDate({2026, 10, 5, 10, 15, 0}))});
    cnn->Close();

    auto incrustada = AbrirSqlite(ctx.archivo);
    EXPECT_EQ(incrustada->motor().Ejecutar("SELECT CAST(f AS TEXT) FROM d").filas[0][0],
              Variant("2026-10-05 10:15:00"));
    incrustada->motor().Ejecutar("INSERT INTO d VALUES (2, ?)", {Variant(MakeDate({1999, 12, 31, 23, 59, 59}))});
    incrustada->Close();

    cnn = AbrirOdbc(ctx.cadena);
    EXPECT_EQ(cnn->motor().Ejecutar("SELECT f FROM d WHERE Sys_PK=2").filas[0][0],
              Variant(MakeDate({1999, 12, 31, 23, 59, 59})));
}

TEST(SqliteOdbc, AConnectionStringThatDoesNotOpenGivesTheDriverManagersFault) {
    const Fault sinOrigen = FallaDe([] { AbrirOdbc("DSN=CeldoraSinOrigen"); });
    EXPECT_EQ(sinOrigen.number, odbc::kFallaGenerica);  // the driver manager gives no native number
    EXPECT_NE(sinOrigen.description.find("[IM002]"), std::string::npos) << sinOrigen.description;
    const Fault sinControlador = FallaDe([] { AbrirOdbc("Driver={Celdora Sin Controlador};Database=x"); });
    EXPECT_EQ(sinControlador.number, odbc::kFallaGenerica);
    EXPECT_NE(sinControlador.description.find("Celdora Sin Controlador"), std::string::npos)
        << sinControlador.description;

    const Fault sinCarpeta = FallaDe([] { AbrirOdbc("Driver={SQLite3};Database=/nonexistent-folder/x.db"); });
    EXPECT_NE(sinCarpeta.number, 0);
    EXPECT_NE(sinCarpeta.description.find("["), std::string::npos) << sinCarpeta.description;
}

}  // namespace
}  // namespace celdora::platform::pruebas

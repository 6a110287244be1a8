// The ODBC engine over SQLite's ODBC driver (libsqliteodbc, driver
// "SQLite3") on a temporary file: the shared behaviour, and what is SQLite's
// own through that driver. The driver is plain SQLite, without the functions
// the embedded adapter adds, so the system's dialect probes find no dialect.

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "platform/odbc/ErrorOdbc.h"
#include "platform/odbc/MotorOdbc.h"
#include "platform/odbc/Odbc.h"
#include "platform/sqlite/Sqlite.h"
#include "tests/platform/common/ComportamientoMotor.h"
#include "value/Date.h"

namespace celdora::platform::pruebas {
namespace {

ContextoMotor Sqlite() {
    static int cuenta = 0;
    ContextoMotor ctx;
    ctx.archivo = (std::filesystem::temp_directory_path() /
                   ("celdora-odbc-" + std::to_string(::getpid()) + "-" + std::to_string(++cuenta) + ".db"))
                      .string();
    std::filesystem::remove(ctx.archivo);
    ctx.abrir = [cadena = "Driver={SQLite3};Database=" + ctx.archivo] { return AbrirOdbc(cadena); };
    ctx.nombraLaColumnaDelAlias = false;
    ctx.inicioDeFalla = "[";  // "[SQLSTATE] message"
    ctx.textoMarcas = "Marcas de parámetro (?) en la sentencia: 1; valores dados: 2.";
    return ctx;
}

INSTANTIATE_TEST_SUITE_P(SqliteOdbc, ComportamientoMotor, ::testing::Values(Manejador{"sqlite", &Sqlite}),
                         NombreDeManejador);

class SqliteOdbcTest : public ComportamientoMotor {};

INSTANTIATE_TEST_SUITE_P(SqliteOdbc, SqliteOdbcTest, ::testing::Values(Manejador{"sqlite", &Sqlite}),
                         NombreDeManejador);

// A company database may be opened by the embedded adapter one day and
// through ODBC the next: both keep dates the same way.
TEST_P(SqliteOdbcTest, TellsItsEngineAndKeepsDatesAsTheEmbeddedEngineDoes) {
    auto* motor = dynamic_cast<MotorOdbc*>(&cnn->motor());
    ASSERT_NE(motor, nullptr);
    EXPECT_EQ(motor->SistemaGestor(), MotorOdbc::Sistema::Sqlite);
    EXPECT_EQ(motor->NombreDelGestor(), "SQLite");
    Ejecutar("INSERT INTO " + folios + " (uf_FechaAprobacion) VALUES (?)",
             {Variant(MakeDate({2026, 10, 5, 10, 15, 0}))});
    cnn->Close();

    auto incrustada = AbrirSqlite(ctx.archivo);
    EXPECT_EQ(incrustada->motor().Ejecutar("SELECT CAST(uf_FechaAprobacion AS TEXT) FROM " + folios).filas[0][0],
              Variant("2026-10-05 10:15:00"));
    const Date otra = MakeDate({1999, 12, 31, 23, 59, 59});
    incrustada->motor().Ejecutar("INSERT INTO " + folios + " (uf_FechaAprobacion) VALUES (?)", {Variant(otra)});
    incrustada->Close();
    cnn = ctx.abrir();
    EXPECT_EQ(Columna("uf_FechaAprobacion").at(1), Variant(otra));
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

#include "platform/sqlite/Sqlite.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/platform/common/Pruebas.h"

namespace celdora::platform {
namespace {

using pruebas::FallaDe;

TEST(AbrirSqlite, AFileThatCannotBeOpenedRaisesSqlitesCodeAndMessage) {
    const auto carpeta = std::filesystem::temp_directory_path() / "celdora_abrir_sqlite";
    std::filesystem::create_directories(carpeta);

    const Fault sinCarpeta = FallaDe([&] { AbrirSqlite((carpeta / "no" / "existe.db").string()); });
    EXPECT_EQ(sinCarpeta.number, 14);  // SQLITE_CANTOPEN
    EXPECT_NE(sinCarpeta.description.find("unable to open database file"), std::string::npos);

    const auto ajeno = carpeta / "no_es_base.db";
    std::ofstream(ajeno) << "esto no es una base de datos, aunque tenga suficientes bytes para parecerlo...........";
    EXPECT_EQ(FallaDe([&] { AbrirSqlite(ajeno.string()); }).number, 26);  // SQLITE_NOTADB

    const auto ruta = (carpeta / "empresa.db").string();
    std::filesystem::remove(ruta);
    AbrirSqlite(ruta)->Execute("CREATE TABLE t (a)");
    auto cnn = AbrirSqlite(ruta);
    EXPECT_EQ(cnn->State(), 1);
    EXPECT_EQ(cnn->Execute("PRAGMA foreign_keys")->Fields(0).Value(), Variant::Long(0));
    EXPECT_EQ(cnn->Execute("SELECT Count(*) FROM t")->Fields(0).Value(), Variant::Long(0));
    cnn->Close();
    EXPECT_EQ(cnn->State(), 0);
    std::filesystem::remove_all(carpeta);
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

}  // namespace
}  // namespace celdora::platform

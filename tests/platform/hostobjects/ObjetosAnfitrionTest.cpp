// The host objects of platform/common: an address over SQLite, images, the
// folder picker, the clock and the user. The catalogue's places are held on
// every engine in tests/integration.

#include <gtest/gtest.h>

#include <fstream>
#include <iomanip>
#include <sstream>

#include "platform/common/Domicilio.h"
#include "platform/common/Picture.h"
#include "platform/common/Shell.h"
#include "platform/common/SystemClock.h"
#include "platform/sqlite/Sqlite.h"
#include "tests/support/CarpetaTemporal.h"
#include "tests/support/TestPlatform.h"


namespace celdora::platform {
namespace {

class DomicilioTablaTest : public ::testing::Test {
protected:
    void SetUp() override {
        EjecutarGuion(*cnn,
                      "CREATE TABLE Ciudad (Sys_PK INTEGER PRIMARY KEY, Nombre VARCHAR(50));"
                      "CREATE TABLE Domicilio (Sys_PK INTEGER PRIMARY KEY, ICiudad INTEGER, Direccion VARCHAR(255),"
                      " CodPos VARCHAR(10), Colonia VARCHAR(50), Telefono VARCHAR(30), Notas TEXT);"
                      "INSERT INTO Ciudad VALUES (1, '(Desconocido)'), (2, 'Monterrey'), (3, 'León');");
        domicilio.Conexion(cnn);
    }

    Resultado Ejecutar(const std::string& sql) { return cnn->motor().Ejecutar(sql); }

    std::shared_ptr<ConexionMotor> cnn = AbrirSqlite(":memory:");
    DomicilioTabla domicilio;
};

TEST_F(DomicilioTablaTest, NewAddressIsInsertedThenReadAndUpdatedInPlace) {
    domicilio.colony("Centro");
    domicilio.address("||O'Higgins|12|B");  // an apostrophe: the values travel as parameters
    ASSERT_TRUE(domicilio.objCiudad().cargarPor("Sys_PK", Variant::Long(2)));
    domicilio.notes("entre \"1a\" y 2a\nportón azul");
    domicilio.codep("64000");
    domicilio.phone("81 8340 0000");
    ASSERT_TRUE(domicilio.guardar()) << domicilio.ultimoError();
    const std::int32_t clave = domicilio.Sys_PK();

    DomicilioTabla leido;
    leido.Conexion(cnn);
    ASSERT_TRUE(leido.cargar(clave)) << leido.ultimoError();
    EXPECT_EQ((std::vector<std::string>{leido.colony(), leido.address(), leido.notes(), leido.codep(), leido.phone(),
                                        dynamic_cast<CiudadTabla&>(leido.objCiudad()).Nombre()}),
              (std::vector<std::string>{"Centro", "||O'Higgins|12|B", "entre \"1a\" y 2a\nportón azul", "64000",
                                        "81 8340 0000", "Monterrey"}));
    EXPECT_EQ(leido.objCiudad().Sys_PK(), 2);

    // A city that is not there leaves no link; saving twice (nothing changed
    // the second time) is no failure and writes the same row.
    leido.codep("37000");
    EXPECT_FALSE(leido.objCiudad().cargarPor("Sys_PK", Variant::Long(-1)));
    ASSERT_TRUE(leido.guardar()) << leido.ultimoError();
    ASSERT_TRUE(leido.guardar()) << leido.ultimoError();
    const Resultado filas = Ejecutar("SELECT Sys_PK, ICiudad, CodPos FROM Domicilio");
    ASSERT_EQ(filas.filas.size(), 1u);
    EXPECT_EQ(filas.filas[0], (std::vector<Variant>{Variant::Long(clave), Variant::Long(0), Variant("37000")}));
}

TEST_F(DomicilioTablaTest, FailuresAnswerFalseWithTheReason) {
    domicilio.colony("Centro");
    ASSERT_TRUE(domicilio.guardar());
    const std::int32_t clave = domicilio.Sys_PK();

    // A missing row: false, a reason, and the object as it was.
    EXPECT_FALSE(domicilio.cargar(clave + 100));
    EXPECT_NE(domicilio.ultimoError(), "");
    EXPECT_EQ(domicilio.Sys_PK(), clave);
}

// The first bytes of a file of each kind, padded with zeros.
Bytes Con(std::initializer_list<int> inicio, std::size_t largo = 64) {
    Bytes bytes(largo, 0);
    std::copy(inicio.begin(), inicio.end(), bytes.begin());
    return bytes;
}
const Bytes kBmp = Con({'B', 'M', 0x46, 0, 0, 0, 0, 0, 0, 0, 0x36, 0, 0, 0, 40, 0, 0, 0});

TEST(FormatoImagen, ToldByTheFirstBytesOnlyWhateverTheFilesName) {
    Bytes emf = Con({1, 0, 0, 0, 0x6C});
    std::copy_n(" EMF", 4, emf.begin() + 40);
    const std::string texto = "BMW 320i, factura 12 del mes de enero";  // a text that begins with BM
    const std::pair<Bytes, const char*> casos[] = {
        {Con({0xFF, 0xD8, 0xFF, 0xE0}), "jpeg"}, {Con({0x89, 'P', 'N', 'G', 0x0D, 0x0A, 0x1A, 0x0A}), "png"},
        {Con({'G', 'I', 'F', '8', '7', 'a'}), "gif"}, {kBmp, "bmp"}, {Con({0xD7, 0xCD, 0xC6, 0x9A}), "wmf"},
        {emf, "emf"}, {Bytes(texto.begin(), texto.end()), ""}, {Con({0xFF, 0xD8}, 2), ""},  // cut short
        {Con({1, 0, 0, 0, 0x6C}), ""}};  // a record 1 without the EMF signature
    for (std::size_t i = 0; i < std::size(casos); ++i) EXPECT_EQ(FormatoImagen(casos[i].first), casos[i].second) << i;

    testing::CarpetaTemporal carpeta;
    auto archivo = [&](const std::string& nombre, const Bytes& bytes) {
        std::ofstream(carpeta / nombre, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        return carpeta / nombre;
    };
    // The CBB image always comes back from the database as tmpimage.jpg.
    const auto bmp = CargarImagen(archivo("tmpimage.jpg", kBmp));
    ASSERT_NE(bmp, nullptr);
    EXPECT_EQ(bmp->Formato(), "bmp");
}

TEST(ShellCarpetas, GivesTheChosenFolderOrNothingWhenCancelled) {
    testing::TestPlatform plataforma;
    plataforma.ui.Elegir("/srv/informes");
    plataforma.ui.Elegir(std::nullopt);
    ShellCarpetas shell;
    const auto carpeta = shell.BrowseForFolder(0, "Carpeta destino", 1, "");
    ASSERT_NE(carpeta, nullptr);
    EXPECT_EQ(carpeta->SelfPath(), "/srv/informes");
    EXPECT_EQ(shell.BrowseForFolder(0, "Carpetas", 0, "/srv"), nullptr);

    const auto& selecciones = plataforma.ui.Selecciones();
    EXPECT_EQ(selecciones[0].titulo, "Carpeta destino");
    EXPECT_EQ(selecciones[1].nombre, "/srv") << "the root goes to the picker";
}

TEST(SystemClock, LocalTimeBecomesDaysSince1899WithTheTimeAsFraction) {
    const auto serial = [](const char* texto) {
        std::tm local{};
        std::istringstream(texto) >> std::get_time(&local, "%Y-%m-%d %H:%M:%S");
        return FechaDeHoraLocal(local).serial;
    };
    EXPECT_DOUBLE_EQ(serial("2026-11-22 10:30:15"), 46348 + (10 * 3600 + 30 * 60 + 15) / 86400.0);
}

}  // namespace
}  // namespace celdora::platform

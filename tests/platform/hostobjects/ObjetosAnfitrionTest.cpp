// The host objects of platform/common: an address and the catalogue of
// places over SQLite, images, the folder picker, the clock and the user.

#include <gtest/gtest.h>

#include <fstream>
#include <iomanip>
#include <sstream>

#include "platform/common/Catalogo.h"
#include "platform/common/Domicilio.h"
#include "platform/common/Picture.h"
#include "platform/common/Shell.h"
#include "platform/common/SystemClock.h"
#include "platform/common/Usuario.h"
#include "platform/sqlite/Sqlite.h"
#include "tests/support/CarpetaTemporal.h"
#include "tests/support/FallaDe.h"
#include "tests/support/TestPlatform.h"


namespace celdora::platform {
namespace {

class DomicilioTablaTest : public ::testing::Test {
protected:
    void SetUp() override {
        EjecutarGuion(*cnn,
                      "CREATE TABLE Pais (Sys_PK INTEGER PRIMARY KEY, Nombre VARCHAR(50));"
                      "CREATE TABLE Ciudad (Sys_PK INTEGER PRIMARY KEY, Nombre VARCHAR(50));"
                      "CREATE TABLE Domicilio (Sys_PK INTEGER PRIMARY KEY, ICiudad INTEGER, Direccion VARCHAR(255),"
                      " CodPos VARCHAR(10), Colonia VARCHAR(50), Telefono VARCHAR(30), Notas TEXT);"
                      "INSERT INTO Pais VALUES (1, 'México'), (2, 'Argentina');"
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
    ASSERT_GT(clave, 0);

    DomicilioTabla leido;
    leido.Conexion(cnn);
    ASSERT_TRUE(leido.cargar(clave)) << leido.ultimoError();
    EXPECT_EQ(leido.Sys_PK(), clave);
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
    EXPECT_EQ(domicilio.colony(), "Centro");

    // The row went away meanwhile: updating nothing is no success.
    Ejecutar("DELETE FROM Domicilio");
    EXPECT_FALSE(domicilio.guardar());
    EXPECT_NE(domicilio.ultimoError(), "");

    // The database's own message.
    Ejecutar("DROP TABLE Domicilio");
    DomicilioTabla nuevo;
    nuevo.Conexion(cnn);
    EXPECT_FALSE(nuevo.guardar());
    EXPECT_NE(nuevo.ultimoError().find("Domicilio"), std::string::npos) << nuevo.ultimoError();

    DomicilioTabla sinConexion;
    EXPECT_FALSE(sinConexion.cargar(1));
    EXPECT_NE(sinConexion.ultimoError(), "");

    // The column of a city lookup is glued into the statement: only a name goes.
    const auto inyectada = [&] { domicilio.objCiudad().cargarPor("1=1 OR Sys_PK", Variant::Long(1)); };
    EXPECT_EQ(testing::FallaDe(inyectada).number, 5);
}

TEST_F(DomicilioTablaTest, CatalogueListsCountriesAndCitiesByName) {
    CatalogoPaises catalogo(cnn);
    const auto lugares = std::dynamic_pointer_cast<FuenteLugares>(catalogo.nvlands());
    ASSERT_NE(lugares, nullptr);
    EXPECT_EQ(lugares->Conexion(), cnn);

    const std::vector<Lugar> paises = lugares->Paises();
    ASSERT_EQ(paises.size(), 2u);
    EXPECT_EQ(paises[0].Nombre, "Argentina");
    EXPECT_EQ(paises[0].Sys_PK, 2);
    const std::vector<Lugar> ciudades = lugares->Ciudades();
    ASSERT_EQ(ciudades.size(), 3u);
    EXPECT_EQ(ciudades[1].Nombre, "León");
    EXPECT_EQ(ciudades[2].Sys_PK, 2);
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
        {Con({'G', 'I', 'F', '8', '7', 'a'}), "gif"}, {Con({'G', 'I', 'F', '8', '9', 'a'}), "gif"},
        {kBmp, "bmp"}, {Con({0xD7, 0xCD, 0xC6, 0x9A}), "wmf"}, {Con({1, 0, 9, 0, 0, 3}), "wmf"},
        {Con({2, 0, 9, 0, 0, 1}), "wmf"}, {emf, "emf"}, {Bytes(texto.begin(), texto.end()), ""},
        {Con({'G', 'I', 'F', '8', '8', 'a'}), ""}, {Con({0xFF, 0xD8}, 2), ""},  // cut short
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
    EXPECT_EQ(bmp->Datos(), kBmp);
    EXPECT_EQ(CargarImagen(archivo("texto.jpg", Con({'h', 'o', 'l', 'a'}))), nullptr);
    EXPECT_EQ(CargarImagen(archivo("vacio.jpg", {})), nullptr);
    EXPECT_EQ(CargarImagen(carpeta / "no-existe.jpg"), nullptr);
    EXPECT_EQ(CargarImagen(carpeta.ruta().string()), nullptr) << "a folder";
}

TEST(ShellCarpetas, GivesTheChosenFolderOrNothingWhenCancelled) {
    testing::TestPlatform plataforma;
    plataforma.ui.Elegir("/srv/informes");
    plataforma.ui.Elegir(std::nullopt);
    ShellCarpetas shell;
    const auto carpeta = shell.BrowseForFolder(0, "Carpeta destino", 1, "");
    ASSERT_NE(carpeta, nullptr);
    EXPECT_EQ(carpeta->SelfPath(), "/srv/informes");
    EXPECT_EQ(carpeta->ItemsItemPath(), "/srv/informes");
    EXPECT_EQ(shell.BrowseForFolder(0, "Carpetas", 0, "/srv"), nullptr);

    const auto& selecciones = plataforma.ui.Selecciones();
    ASSERT_EQ(selecciones.size(), 2u);
    EXPECT_EQ(selecciones[0].titulo, "Carpeta destino");
    EXPECT_EQ(selecciones[1].titulo, "Carpetas");
    EXPECT_EQ(selecciones[1].nombre, "/srv") << "the root goes to the picker";
}

TEST(SystemClock, LocalTimeBecomesDaysSince1899WithTheTimeAsFraction) {
    const auto serial = [](const char* texto) {
        std::tm local{};
        std::istringstream(texto) >> std::get_time(&local, "%Y-%m-%d %H:%M:%S");
        return FechaDeHoraLocal(local).serial;
    };
    EXPECT_DOUBLE_EQ(serial("2026-11-22 10:30:15"), 46348 + (10 * 3600 + 30 * 60 + 15) / 86400.0);
    EXPECT_DOUBLE_EQ(serial("2012-02-29 00:00:00"), 40968);
    // A leap second stays within its minute.
    EXPECT_DOUBLE_EQ(serial("2016-12-31 23:59:60"), serial("2016-12-31 23:59:59"));
}

TEST(UsuarioConGrupos, HoldsNoGroupUntilCargarRunsAndThenTheGivenOnesInOrder) {
    UsuarioConGrupos usuario({3, 7});
    host::GruposUsuario& grupos = usuario.Grupos();
    EXPECT_EQ(grupos.Elementos().Count(), 0);
    EXPECT_EQ(usuario.VecesCargado(), 0);
    grupos.Cargar("", "");
    EXPECT_EQ(usuario.VecesCargado(), 1);
    ASSERT_EQ(grupos.Elementos().Count(), 2);
    EXPECT_EQ(grupos.Elementos().Item(1)->Sys_PK(), 3.0);
    EXPECT_EQ(grupos.Elementos().Item(2)->Sys_PK(), 7.0);
    // Loading again gives the same groups, not twice as many.
    grupos.Cargar("", "");
    EXPECT_EQ(usuario.VecesCargado(), 2);
    EXPECT_EQ(grupos.Elementos().Count(), 2);
    for (const int fuera : {0, 3}) EXPECT_EQ(testing::FallaDe([&] { grupos.Elementos().Item(fuera); }).number, 9);

    UsuarioConGrupos sinGrupos({});
    sinGrupos.Grupos().Cargar("", "");
    EXPECT_EQ(sinGrupos.Grupos().Elementos().Count(), 0);
    EXPECT_EQ(sinGrupos.VecesCargado(), 1);
}

}  // namespace
}  // namespace celdora::platform

#include "platform/files/cUtileriasArchivos.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <optional>

#include "tests/support/CarpetaTemporal.h"

namespace celdora::platform {
namespace {

using testing::CarpetaTemporal;

TEST(cUtileriasArchivos, PathsAreTakenApartAtEitherSeparatorAndJoinedWithThePlatforms) {
    cUtileriasArchivos u;
    EXPECT_EQ(u.CarpetaDeRuta("C:\\Datos\\CFDI\\PAC.inf"), "C:\\Datos\\CFDI");
    EXPECT_EQ(u.CarpetaDeRuta("/home/ana//A-12.xml"), "/home/ana");
    EXPECT_EQ(u.CarpetaDeRuta("C:\\Datos/mixta\\A-12.xml"), "C:\\Datos/mixta");
    EXPECT_EQ(u.CarpetaDeRuta("A-12.xml"), "");
    EXPECT_EQ(u.CarpetaDeRuta("/A-12.xml"), "/");
    EXPECT_EQ(u.CarpetaDeRuta("C:\\A-12.xml"), "C:\\");

    EXPECT_EQ(u.NombreArchivo("C:\\Datos\\CFDI\\PAC.inf"), "PAC.inf");
    EXPECT_EQ(u.NombreArchivo("/home/ana/"), "");
    EXPECT_EQ(u.NombreSinExtension("C:\\Datos\\factura.v3.xml"), "factura.v3");
    EXPECT_EQ(u.NombreSinExtension("/home/ana.b/sin extension"), "sin extension");
    EXPECT_EQ(u.NombreSinExtension("/home/ana/.perfil"), ".perfil");

    const std::string sep(1, cUtileriasArchivos::Separador());
    EXPECT_EQ(u.AgregarDiagonal("/srv/copias"), "/srv/copias" + sep);
    EXPECT_EQ(u.AgregarDiagonal("/srv/copias/"), "/srv/copias/");
    EXPECT_EQ(u.AgregarDiagonal("C:\\Copias\\"), "C:\\Copias\\");
    EXPECT_EQ(u.AgregarDiagonal(""), sep);
}

TEST(cUtileriasArchivos, TextFilesKeepTheirBytesExactly) {
    CarpetaTemporal carpeta;
    cUtileriasArchivos u;
    const std::string ruta = u.AgregarDiagonal(carpeta.ruta().string()) + "informe.txt";
    const std::string texto = "|AAA010101AAA|Señor|1\r\n|línea 2|\n\xEF\xBB\xBF|sin fin";

    EXPECT_FALSE(u.ExisteArchivo(ruta));
    EXPECT_EQ(u.LeerArchivoTexto(ruta), "");
    ASSERT_TRUE(u.GuardarArchivoTexto(ruta, texto));
    EXPECT_TRUE(u.ExisteArchivo(ruta));
    EXPECT_EQ(u.LeerArchivoTexto(ruta), texto);

    // A second write replaces the whole file, also with less text or none.
    ASSERT_TRUE(u.GuardarArchivoTexto(ruta, "corto"));
    EXPECT_EQ(u.LeerArchivoTexto(ruta), "corto");
    ASSERT_TRUE(u.GuardarArchivoTexto(ruta, ""));
    EXPECT_TRUE(u.ExisteArchivo(ruta));
    EXPECT_EQ(std::filesystem::file_size(ruta), 0u);
}

TEST(cUtileriasArchivos, FoldersAndMissingFoldersAreNotFiles) {
    CarpetaTemporal carpeta;
    cUtileriasArchivos u;
    const std::string dir = carpeta.ruta().string();

    EXPECT_FALSE(u.ExisteArchivo(dir));
    EXPECT_FALSE(u.ExisteArchivo(""));
    EXPECT_EQ(u.LeerArchivoTexto(dir), "");
    // A missing folder fails for every user, root included.
    EXPECT_FALSE(u.GuardarArchivoTexto(carpeta / "no-existe/informe.txt", "x"));
    EXPECT_FALSE(std::filesystem::exists(carpeta / "no-existe"));
    EXPECT_FALSE(u.GuardarArchivoTexto(dir, "x"));
    EXPECT_TRUE(std::filesystem::is_directory(dir));
}

#ifndef _WIN32
TEST(cUtileriasArchivos, RutaTemporalComesWithoutTrailingSeparator) {
    std::optional<std::string> former;
    if (const char* value = std::getenv("TMPDIR")) former = value;
    cUtileriasArchivos u;

    ::setenv("TMPDIR", "/var/tmp/celdora//", 1);
    EXPECT_EQ(u.RutaTemporal(), "/var/tmp/celdora");
    ::setenv("TMPDIR", "", 1);
    EXPECT_EQ(u.RutaTemporal(), "/tmp");
    ::unsetenv("TMPDIR");
    EXPECT_EQ(u.RutaTemporal(), "/tmp");

    former ? ::setenv("TMPDIR", former->c_str(), 1) : ::unsetenv("TMPDIR");
}
#endif

}  // namespace
}  // namespace celdora::platform

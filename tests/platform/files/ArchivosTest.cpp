#include "platform/files/cConfigLocalIni.h"
#include "platform/files/cUtileriasArchivos.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <optional>
#include <tuple>

#include "tests/support/CarpetaTemporal.h"
#include "tests/support/FallaDe.h"


namespace celdora::platform {
namespace {

using testing::FallaDe;

std::string Leer(const std::filesystem::path& ruta) {
    std::ifstream in(ruta, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

class ConfigLocalIniTest : public ::testing::Test {
protected:
    testing::CarpetaTemporal carpeta;
    std::string dir = carpeta / "config";  // created by the first write
    cConfigLocalIni config{dir};
};

TEST_F(ConfigLocalIniTest, KeyIsFoundInAnyCaseAndAnAbsentOneGivesTheReadersDefaultWithoutWriting) {
    EXPECT_EQ(config.ObtenerValor("Celdora", "Config", "FE_Timbrar", "1"), "1");
    EXPECT_FALSE(std::filesystem::exists(dir)) << "a read creates nothing";
    config.GuardarValor("Celdora", "Config", "FE_Timbre001", "psecfdi.edicom.cMain");
    EXPECT_EQ(config.ObtenerValor("Celdora", "Config", "Fe_Timbre001", ""), "psecfdi.edicom.cMain");
    EXPECT_EQ(config.ObtenerValor("Celdora", "Config", "FE_Timbrar", "0"), "0");

    // A later process reads the file afresh, under any spelling; the
    // defaults read were not written.
    cConfigLocalIni otra(dir);
    EXPECT_EQ(otra.ObtenerValor("CELDORA", "config", "fe_timbre001", ""), "psecfdi.edicom.cMain");
    otra.GuardarValor("celdora", "CONFIG", "Fe_Timbre001", "otro.cMain");
    EXPECT_EQ(config.ObtenerValor("Celdora", "Config", "FE_Timbre001", ""), "otro.cMain");
    EXPECT_EQ(Leer(config.RutaArchivo("Celdora")), "[Config]\nFe_Timbre001=otro.cMain\n");
}

TEST_F(ConfigLocalIniTest, ValuesKeysSectionsAndApplicationsSurviveExactlyAndApart) {
    const std::vector<std::string> valores = {
        "  blancos delante", "detrás ", "\t tabulador", "a=b=c", "línea 1\nlínea 2\r\n", "\"comillas\"", "\"",
        "C:\\Temp\\new\\n", "", "; no es comentario", "[no es sección]"};
    for (std::size_t i = 0; i < valores.size(); ++i)
        config.GuardarValor("Celdora", "Config", "Clave" + std::to_string(i), valores[i]);
    // Names made of the file's own marks; the same key in other sections and
    // applications.
    const std::tuple<std::string, std::string, std::string> nombres[] = {
        {"Celdora", "Sec]ción", "cla=ve"}, {"Celdora", "[x]", ";clave"}, {"Celdora", " blanco ", "#clave"},
        {"Celdora", "", "[clave"},         {"Celdora", "Otra", "Clave0"}, {"Tiendaro", "Config", "Clave0"},
        {"Tienda/Ro", "Config", "Clave0"}};
    for (const auto& [aplicacion, seccion, clave] : nombres)
        config.GuardarValor(aplicacion, seccion, clave, aplicacion + seccion + clave);

    cConfigLocalIni otra(dir);
    for (std::size_t i = 0; i < valores.size(); ++i)
        EXPECT_EQ(otra.ObtenerValor("Celdora", "Config", "Clave" + std::to_string(i), "?"), valores[i]) << i;
    for (const auto& [aplicacion, seccion, clave] : nombres)
        EXPECT_EQ(otra.ObtenerValor(aplicacion, seccion, clave, "?"), aplicacion + seccion + clave);
    EXPECT_EQ(std::filesystem::path(config.RutaArchivo("Tienda/Ro")).parent_path(), std::filesystem::path(dir));
}

TEST_F(ConfigLocalIniTest, FileEditedByHandIsReadAndItsOtherLinesKept) {
    std::filesystem::create_directories(dir);
    std::ofstream(config.RutaArchivo("Celdora"), std::ios::binary)
        << "\xEF\xBB\xBF; ajustes de esta máquina\r\n[Config]\r\n  FE_Timbrar = 0  \r\nfe_timbre002=primero\r\n"
           "FE_TIMBRE002=segundo\r\n\r\n[Otra]\r\nx=1\r\n";
    EXPECT_EQ(config.ObtenerValor("Celdora", "Config", "FE_Timbrar", ""), "0");
    EXPECT_EQ(config.ObtenerValor("Celdora", "Config", "Fe_Timbre002", ""), "primero");

    config.GuardarValor("Celdora", "Config", "FE_Timbre002", "usuario");
    config.GuardarValor("Celdora", "Config", "FE_Timbre003", "sucursal");
    EXPECT_EQ(Leer(config.RutaArchivo("Celdora")),
              "; ajustes de esta máquina\n[Config]\n  FE_Timbrar = 0  \nFE_Timbre002=usuario\nFE_Timbre003=sucursal\n\n"
              "[Otra]\nx=1\n");
}

TEST_F(ConfigLocalIniTest, StoreThatCantBeUsedRaisesTheFileFaults) {
    std::ofstream(carpeta / "ocupado") << "";
    cConfigLocalIni bloqueada(carpeta / "ocupado");  // a file where the folder should be
    EXPECT_EQ(FallaDe([&] { bloqueada.GuardarValor("Celdora", "Config", "FE_Timbrar", "1"); }).number, 76);

    std::filesystem::create_directories(config.RutaArchivo("Celdora"));  // a folder where the file should be
    EXPECT_EQ(FallaDe([&] { config.ObtenerValor("Celdora", "Config", "FE_Timbrar", "1"); }).number, 75);
    EXPECT_EQ(FallaDe([&] { config.GuardarValor("Celdora", "Config", "FE_Timbrar", "1"); }).number, 75);
}

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

TEST(cUtileriasArchivos, TextFilesKeepTheirBytesExactlyAndFoldersAreNotFiles) {
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

    // Folders and missing folders are not files.
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
// The configuration folder and the temporary folder come from the environment.
TEST(CarpetasDelEntorno, ConfigurationInOrderOfPreferenceAndTemporaryWithoutTrailingSeparator) {
    std::vector<std::pair<const char*, std::optional<std::string>>> antes;
    for (const char* name : {"CELDORA_CONFIG_DIR", "XDG_CONFIG_HOME", "HOME", "TMPDIR"}) {
        const char* value = std::getenv(name);
        antes.emplace_back(name, value ? std::optional<std::string>(value) : std::nullopt);
    }
    ::setenv("CELDORA_CONFIG_DIR", "/srv/celdora", 1);
    ::setenv("XDG_CONFIG_HOME", "/home/ana/.cfg", 1);
    ::setenv("HOME", "/home/ana", 1);
    EXPECT_EQ(cConfigLocalIni().Carpeta(), "/srv/celdora");
    ::unsetenv("CELDORA_CONFIG_DIR");
    EXPECT_EQ(cConfigLocalIni().Carpeta(), "/home/ana/.cfg/celdora");
    ::setenv("XDG_CONFIG_HOME", "", 1);
    EXPECT_EQ(cConfigLocalIni().Carpeta(), "/home/ana/.config/celdora");

    cUtileriasArchivos u;
    ::setenv("TMPDIR", "/var/tmp/celdora//", 1);
    EXPECT_EQ(u.RutaTemporal(), "/var/tmp/celdora");
    ::setenv("TMPDIR", "", 1);
    EXPECT_EQ(u.RutaTemporal(), "/tmp");
    ::unsetenv("TMPDIR");
    EXPECT_EQ(u.RutaTemporal(), "/tmp");

    for (const auto& [name, value] : antes) value ? ::setenv(name, value->c_str(), 1) : ::unsetenv(name);
}
#endif

}  // namespace
}  // namespace celdora::platform

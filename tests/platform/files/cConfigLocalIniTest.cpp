#include "platform/files/cConfigLocalIni.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <optional>

#include "tests/support/CarpetaTemporal.h"
#include "tests/value/FaultOf.h"

namespace celdora::platform {
namespace {

using celdora::test::FaultOf;

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

TEST_F(ConfigLocalIniTest, KeyWrittenInOneCaseIsReadAndReplacedInAnother) {
    config.GuardarValor("Celdora", "Config", "FE_Timbre001", "psecfdi.edicom.cMain");
    EXPECT_EQ(config.ObtenerValor("Celdora", "Config", "Fe_Timbre001", ""), "psecfdi.edicom.cMain");

    // A later process reads the file afresh, under any spelling.
    cConfigLocalIni otra(dir);
    EXPECT_EQ(otra.ObtenerValor("CELDORA", "config", "fe_timbre001", ""), "psecfdi.edicom.cMain");
    otra.GuardarValor("celdora", "CONFIG", "Fe_Timbre001", "otro.cMain");
    EXPECT_EQ(config.ObtenerValor("Celdora", "Config", "FE_Timbre001", ""), "otro.cMain");
    EXPECT_EQ(Leer(config.RutaArchivo("Celdora")), "[Config]\nFe_Timbre001=otro.cMain\n");
}

TEST_F(ConfigLocalIniTest, AbsentKeyGivesTheReadersDefaultAndNothingIsWrittenBack) {
    EXPECT_EQ(config.ObtenerValor("Celdora", "Config", "FE_Timbrar", "1"), "1");
    EXPECT_FALSE(std::filesystem::exists(dir)) << "a read creates nothing";

    config.GuardarValor("Celdora", "Config", "FE_CopiaLocal", "/srv/copias");
    EXPECT_EQ(config.ObtenerValor("Celdora", "Config", "FE_Timbrar", "0"), "0");
    EXPECT_EQ(config.ObtenerValor("Celdora", "Config", "FE_Timbrar", "1"), "1");
    EXPECT_EQ(Leer(config.RutaArchivo("Celdora")).find("FE_Timbrar"), std::string::npos);
}

TEST_F(ConfigLocalIniTest, ValuesKeysAndSectionsSurviveExactly) {
    const std::vector<std::string> valores = {
        "  blancos delante", "detrás ", "\t tabulador", "a=b=c", "línea 1\nlínea 2\r\n", "\"comillas\"", "\"",
        "C:\\Temp\\new\\n", "", "; no es comentario", "[no es sección]"};
    for (std::size_t i = 0; i < valores.size(); ++i)
        config.GuardarValor("Celdora", "Config", "Clave" + std::to_string(i), valores[i]);
    // Names made of the file's own marks.
    const std::vector<std::pair<std::string, std::string>> nombres = {
        {"Sec]ción", "cla=ve"}, {"[x]", ";clave"}, {" blanco ", "#clave"}, {"", "[clave"}};
    for (const auto& [seccion, clave] : nombres) config.GuardarValor("Celdora", seccion, clave, seccion + clave);

    cConfigLocalIni otra(dir);
    for (std::size_t i = 0; i < valores.size(); ++i)
        EXPECT_EQ(otra.ObtenerValor("Celdora", "Config", "Clave" + std::to_string(i), "?"), valores[i]) << i;
    for (const auto& [seccion, clave] : nombres)
        EXPECT_EQ(otra.ObtenerValor("Celdora", seccion, clave, "?"), seccion + clave);
}

TEST_F(ConfigLocalIniTest, SectionsAndApplicationsAreKeptApart) {
    config.GuardarValor("Celdora", "Config", "FE_CopiaLocal", "config");
    config.GuardarValor("Celdora", "Otra", "FE_CopiaLocal", "otra");
    config.GuardarValor("Tiendaro", "Config", "FE_CopiaLocal", "tiendaro");
    config.GuardarValor("Tienda/Ro", "Config", "FE_CopiaLocal", "con diagonal");

    EXPECT_EQ(config.ObtenerValor("Celdora", "Config", "FE_CopiaLocal", ""), "config");
    EXPECT_EQ(config.ObtenerValor("Celdora", "Otra", "FE_CopiaLocal", ""), "otra");
    EXPECT_EQ(config.ObtenerValor("Tiendaro", "Config", "FE_CopiaLocal", ""), "tiendaro");
    EXPECT_EQ(config.ObtenerValor("Tienda/Ro", "Config", "FE_CopiaLocal", ""), "con diagonal");
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
    EXPECT_EQ(FaultOf([&] { bloqueada.GuardarValor("Celdora", "Config", "FE_Timbrar", "1"); }), 76);

    std::filesystem::create_directories(config.RutaArchivo("Celdora"));  // a folder where the file should be
    EXPECT_EQ(FaultOf([&] { config.ObtenerValor("Celdora", "Config", "FE_Timbrar", "1"); }), 75);
    EXPECT_EQ(FaultOf([&] { config.GuardarValor("Celdora", "Config", "FE_Timbrar", "1"); }), 75);
}

#ifndef _WIN32
TEST(ConfigLocalIniCarpeta, ComesFromTheEnvironmentInOrder) {
    std::vector<std::pair<const char*, std::optional<std::string>>> antes;
    for (const char* name : {"CELDORA_CONFIG_DIR", "XDG_CONFIG_HOME", "HOME"}) {
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

    for (const auto& [name, value] : antes) value ? ::setenv(name, value->c_str(), 1) : ::unsetenv(name);
}
#endif

}  // namespace
}  // namespace celdora::platform

// Two clerks generate the same month at the same moment, each with the
// command-line tool in a process of its own, on every kind of connection.
// Whichever way the two interleave (one waits for the other's locks, one
// fails on the unique period of ut_CFDInforme, or one starts after the
// other committed and answers No to the overwrite question), one report of
// the month is stored and every log line of the month is in it once.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

#include "platform/sqlite/Sqlite.h"
#include "tests/integration/Conexiones.h"
#include "tests/support/CarpetaTemporal.h"
#include "value/Convert.h"
#include "value/Text.h"

namespace celdora {
namespace {

using integracion::Empresa;
using Textos = std::vector<std::string>;

// The URL the tool is given for the company the test reaches through cnn.
std::string UrlDe(const std::string& tipo, const std::string& archivoSqlite) {
    if (tipo == "sqlite") return "sqlite:" + archivoSqlite;
    if (tipo == "mariadb")
        return std::regex_replace(std::getenv("CELDORA_TEST_MARIADB"), std::regex("/[^/]*$"),
                                  std::string("/") + integracion::kBaseDeLaSuite);
    return "odbc:" + integracion::CadenaOdbcConBase(std::getenv("CELDORA_TEST_ODBC"), integracion::kBaseDeLaSuite);
}

// Starts the tool with the arguments, its output into a file; gives its pid.
pid_t Lanzar(const Textos& argumentos, const std::string& salida) {
    const pid_t hijo = fork();
    if (hijo == 0) {
        const int entrada = open("/dev/null", O_RDONLY);
        const int archivo = open(salida.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        dup2(entrada, 0);
        dup2(archivo, 1);
        dup2(archivo, 2);
        std::vector<char*> argv;
        for (const std::string& a : argumentos) argv.push_back(const_cast<char*>(a.c_str()));
        argv.push_back(nullptr);
        execv(argv[0], argv.data());
        _exit(127);
    }
    return hijo;
}

int Esperar(pid_t hijo) {
    int estado = 0;
    waitpid(hijo, &estado, 0);
    return WIFEXITED(estado) ? WEXITSTATUS(estado) : -1;
}

std::string Leer(const std::string& ruta) {
    std::ifstream in(ruta, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

class DosGeneraciones : public ::testing::TestWithParam<std::string> {};

TEST_P(DosGeneraciones, OneReportOfTheMonthIsStoredWithEveryLineOnce) {
    const std::string motivo = Empresa::PorQueNoDisponible(GetParam());
    if (!motivo.empty()) GTEST_SKIP() << motivo;
    testing::CarpetaTemporal carpeta;
    const std::string archivo = carpeta / "empresa.db";
    std::unique_ptr<Empresa> empresa;
    std::shared_ptr<platform::ConexionMotor> cnn;
    if (GetParam() == "sqlite") {
        ASSERT_EQ(Esperar(Lanzar({CELDORA_CLI, "--db", "sqlite:" + archivo, "demo"}, carpeta / "demo.txt")), 0)
            << Leer(carpeta / "demo.txt");
        cnn = platform::AbrirSqlite(archivo);
    } else {
        empresa = Empresa::Crear(GetParam());
        cnn = empresa->cnn;
    }
    const std::string url = UrlDe(GetParam(), archivo);

    std::vector<pid_t> clerks;
    for (const char* nombre : {"a", "b"}) {
        std::filesystem::create_directories(carpeta.ruta() / nombre);
        clerks.push_back(Lanzar({CELDORA_CLI, "--db", url, "informe", "generar", "--mes", "11", "--anio", "2026",
                                 "--carpeta", carpeta / nombre},
                                carpeta / (std::string(nombre) + ".txt")));
    }
    Textos salidas;
    std::vector<int> codigos;
    for (std::size_t i = 0; i < clerks.size(); ++i) {
        codigos.push_back(Esperar(clerks[i]));
        salidas.push_back(Leer(carpeta / (i == 0 ? "a.txt" : "b.txt")));
    }
    std::sort(codigos.begin(), codigos.end());
    EXPECT_EQ(codigos, (std::vector<int>{0, 1})) << salidas[0] << "\n----\n" << salidas[1];

    auto valor = [&](const std::string& sql) {
        const auto resultado = cnn->motor().Ejecutar(sql);
        return resultado.filas.empty() ? Variant::Null() : resultado.filas.front().front();
    };
    EXPECT_EQ(CLng(valor("SELECT COUNT(*) FROM ut_CFDInforme WHERE uf_Mes=11 AND uf_Anio=2026")), 1);
    Textos lineas = Split(CStr(valor("SELECT uf_Contenido FROM ut_CFDInforme WHERE uf_Mes=11 AND uf_Anio=2026")),
                          "\r\n");
    std::sort(lineas.begin(), lineas.end());
    EXPECT_EQ(lineas, (Textos{"|CIN960904FQ2|A|4|201012345|09/11/2026 17:45:00|986.00|136.00|0|I||||",
                              "|CIN960904FQ2|A|4|201012345|09/11/2026 17:45:00|986.00|136.00|1|I||||",
                              "|CIN960904FQ2|B|1|201123456|18/11/2026 10:30:00|580.00|80.00|1|E||||",
                              "|LOPJ7009128T5|A|3|201012345|03/11/2026 11:20:00|3480.00|480.00|1|I||||"}));
    // The rows of the month in the report are marked, and only they.
    EXPECT_EQ(CLng(valor("SELECT COUNT(*) FROM ut_CFDBitacora WHERE uf_Reportado<>0 AND Sys_PK IN (5,6,8)")), 3);
    EXPECT_EQ(CLng(valor("SELECT COUNT(*) FROM ut_CFDBitacora WHERE uf_Reportado<>0 AND Sys_PK IN (3,4,7)")), 0);
    if (empresa == nullptr) cnn->Close();
}

INSTANTIATE_TEST_SUITE_P(Motores, DosGeneraciones, ::testing::ValuesIn(Empresa::Tipos()),
                         [](const ::testing::TestParamInfo<std::string>& info) {
                             std::string nombre = info.param;
                             std::replace(nombre.begin(), nombre.end(), '-', '_');
                             return nombre;
                         });

}  // namespace
}  // namespace celdora

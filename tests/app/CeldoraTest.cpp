// The built tool, run on a demo company in a folder of its own, and the host
// example, run as they would be from a terminal or a script.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "core/mdlMain.h"
#include "tests/support/TestPlatform.h"

namespace celdora {
namespace {

namespace fs = std::filesystem;

struct Salida {
    int codigo = -1;
    std::string texto;  // standard output and error together, in order
};

// Runs a program through the shell with its input piped in: a printf
// format, so "\\n" ends a line (none: the input is empty).
Salida Correr(const std::string& linea, const std::string& entrada = "") {
    const std::string orden = "printf '" + entrada + "' | " + linea + " 2>&1";
    Salida salida;
    FILE* tubo = popen(orden.c_str(), "r");
    if (tubo == nullptr) return salida;
    char bloque[4096];
    std::size_t leidos = 0;
    while ((leidos = std::fread(bloque, 1, sizeof bloque, tubo)) > 0) salida.texto.append(bloque, leidos);
    const int estado = pclose(tubo);
    salida.codigo = WIFEXITED(estado) ? WEXITSTATUS(estado) : -1;
    return salida;
}

bool Contiene(const std::string& texto, const std::string& parte) { return texto.find(parte) != std::string::npos; }

class Celdora : public ::testing::Test {
protected:
    fs::path carpeta;
    std::string db;

    void SetUp() override {
        static int contador = 0;
        carpeta = fs::temp_directory_path() /
                  ("celdora_app_" + std::to_string(::getpid()) + "_" + std::to_string(++contador));
        fs::remove_all(carpeta);
        fs::create_directories(carpeta);
        // Per-machine settings go to the test's folder, not the user's.
        ::setenv("CELDORA_CONFIG_DIR", (carpeta / "config").c_str(), 1);
        db = (carpeta / "demo.db").string();
        const Salida demo = Correr(std::string("'") + CELDORA_BIN + "' demo '" + db + "'");
        ASSERT_EQ(demo.codigo, 0) << demo.texto;
    }

    void TearDown() override {
        std::error_code ec;
        fs::remove_all(carpeta, ec);
    }

    // celdora with global options, --db on the demo, then the command.
    Salida Celdora_(const std::string& opciones, const std::string& orden, const std::string& entrada = "") {
        return Correr(std::string("'") + CELDORA_BIN + "' --db 'sqlite:" + db + "' " + opciones + " " + orden,
                      entrada);
    }
    Salida Llamar(const std::string& orden, const std::string& entrada = "") {
        return Celdora_("", "call " + orden, entrada);
    }
};

TEST_F(Celdora, AnswersQuestionsAboutDocuments) {
    EXPECT_EQ(Llamar("TipoComprobanteAGenerar").texto, "2\n");
    EXPECT_EQ(Llamar("ExisteCFD 1").texto, "Verdadero (-1)\n");
    EXPECT_EQ(Llamar("existecfd 14").texto, "Falso (0)\n");
    EXPECT_EQ(Llamar("isSet").texto, "Verdadero (-1)\n");
    EXPECT_EQ(Llamar("RegimenesFicalesCol").texto,
              "2\tPersonas Morales con Fines no Lucrativos\t\n"
              "1\tRégimen General de Ley Personas Morales\tTítulo II de la Ley del ISR\n");
    EXPECT_EQ(Celdora_("--app Tienda", "call ApplicationName").texto, "Tienda\n");
}

TEST_F(Celdora, PrintsLastErrorDescriptAfterTheAnswer) {
    const Salida salida = Llamar("PosibleCancelar 1");
    EXPECT_EQ(salida.codigo, 0);
    EXPECT_EQ(salida.texto,
              "Falso (0)\n"
              "LastErrorDescript: No se pude cancelar porque el comprobante digital ya ha sido incluido en el reporte "
              "mensual.\n");

    EXPECT_EQ(Llamar("CambiarEstadoEnBitacora 3 5").texto,
              "Falso (0)\nLastErrorDescript: Etatus adminisitrativo incorrecto. Debe ser procesado o cancelado.\n");
}

TEST_F(Celdora, QuestionsTakeTheFixedAnswerOrTheTerminalsOne) {
    const Salida no = Celdora_("--no", "call CancelarCFD 5");
    EXPECT_EQ(no.texto,
              "[Pregunta] ¿Está seguro que desea eliminar el elemento seleccionado?\n"
              "(s/n) No (respuesta fija)\n"
              "Falso (0)\n");
    EXPECT_EQ(Llamar("ExisteCFD 3").texto, "Verdadero (-1)\n");

    // Without a fixed answer the question is asked; the end of the input
    // answers No.
    EXPECT_TRUE(Contiene(Llamar("CancelarCFD 5").texto, "Sin entrada: No\nFalso (0)\n"));

    const Salida si = Celdora_("--si", "call CancelarCFD 5");
    EXPECT_EQ(si.codigo, 0);
    EXPECT_TRUE(Contiene(si.texto, "(s/n) Sí (respuesta fija)\nVerdadero (-1)\n")) << si.texto;
    EXPECT_EQ(Llamar("ExisteCFD 3").texto, "Falso (0)\n");

    // An answer typed at the terminal.
    EXPECT_TRUE(Contiene(Llamar("CancelarCFD 8", "tal vez\\ns\\n").texto, "(s/n) (s/n) Verdadero (-1)\n"));
    EXPECT_EQ(Llamar("ExisteCFD_CXC 1").texto, "Falso (0)\n");
}

TEST_F(Celdora, ChangesTheStateFieldOfALogLine) {
    EXPECT_EQ(Llamar("CambiarEstadoEnBitacora 3 99").texto, "Verdadero (-1)\n");
    EXPECT_EQ(Llamar("ValorCampo 'SELECT uf_Datos FROM ut_CFDBitacora WHERE Sys_PK=5' uf_Datos").texto,
              "|LOPJ7009128T5|A|3|201012345|03/11/2026 11:20:00|3480.00|480.00|0|I||||\n");
}

TEST_F(Celdora, ShowsTheBoxesAMemberShows) {
    EXPECT_EQ(Llamar("FolioAprobadoCBB 11").texto,
              "[Exclamación] El Folio del documento no se encuentra dentro de un rango de folios válido para CBB\n"
              "Falso (0)\n");
    EXPECT_EQ(Llamar("FolioAprobadoCBB 9").texto, "Verdadero (-1)\n");
}

TEST_F(Celdora, PassesAUserInTheGroupsGiven) {
    EXPECT_EQ(Celdora_("--grupos 3,7", "call PermitirAcceso NVCA316x @usuario").texto, "Verdadero (-1)\n");
    EXPECT_EQ(Celdora_("--grupos 12", "call PermitirAcceso NVCA316x @usuario").texto,
              "Tiendaro\n[Crítico] Permiso denegado.\nFalso (0)\n");
    EXPECT_EQ(Celdora_("--grupos 12", "call PermitirAcceso NVCA316x @usuario 0").texto, "Falso (0)\n");
    EXPECT_EQ(Llamar("databasetype @conexion").codigo, 0);
}

TEST_F(Celdora, DecryptsWhatTheCipherEnciphered) {
    std::string cifrado;
    {
        testing::TestPlatform plataforma;
        cifrado = mdlMain::CifrarTexto("contraseña del correo");
    }
    ASSERT_FALSE(cifrado.empty());
    EXPECT_EQ(Llamar("DecryptString '" + cifrado + "'").texto, "contraseña del correo\n");
}

TEST_F(Celdora, ListsTheMembersOfEachClass) {
    const Salida acc = Celdora_("", "members");
    EXPECT_EQ(acc.codigo, 0);
    EXPECT_EQ(acc.texto.rfind("cAcction: ", 0), 0u);
    EXPECT_TRUE(Contiene(acc.texto, " miembros en 77 ranuras\n"));
    EXPECT_TRUE(Contiene(acc.texto, "\n  1  propiedad                 ADOCnn : obj Connection\n")) << acc.texto;
    EXPECT_TRUE(Contiene(acc.texto,
                         " 20  método                    CancelarCFD(pkCFD i32, boAsk bool = True, WithTrans bool = "
                         "True) : bool\n"));
    EXPECT_TRUE(Contiene(acc.texto, " 44  propiedad de solo lectura TipoComprobanteAGenerar : enumTipoCFD\n"));

    const Salida regimen = Celdora_("", "members cregimenfical");
    EXPECT_TRUE(Contiene(regimen.texto, "cRegimenFical: 4 miembros en 4 ranuras\n"));
    EXPECT_TRUE(Contiene(regimen.texto, "  4  método                    setInfo(lsyspk i32, sregimen str, snotas str)\n"));
    EXPECT_FALSE(Contiene(regimen.texto, "Ranuras guardadas"));
    EXPECT_TRUE(Contiene(Celdora_("", "members cFolioOrigen").texto,
                         "  4  propiedad                 MontoFolioFiscalOrig : cur\n"));
    EXPECT_EQ(Celdora_("", "members cNada").codigo, 2);
}

TEST_F(Celdora, ExitCodesTellUsageFromFaults) {
    const Salida falta = Llamar("ExisteCFD");
    EXPECT_EQ(falta.codigo, 1);
    EXPECT_EQ(falta.texto, "Error 449 (Argument not optional)\n");
    EXPECT_EQ(Llamar("ExisteCFD abc").texto, "Error 13 (Type mismatch)\n");
    EXPECT_EQ(Llamar("ExisteCFD 1 2").codigo, 1);

    EXPECT_EQ(Llamar("ExisteCDF 1").codigo, 2);
    EXPECT_EQ(Celdora_("--si --no", "call isSet").codigo, 2);
    EXPECT_EQ(Celdora_("--grupos 3,x", "call isSet").codigo, 2);
    EXPECT_EQ(Celdora_("", "llamar isSet").codigo, 2);

    const Salida esquema = Correr(std::string("'") + CELDORA_BIN + "' --db postgres://celdora@localhost/empresa call isSet");
    EXPECT_EQ(esquema.codigo, 2);
    EXPECT_TRUE(Contiene(esquema.texto, "esquema de conexión no soportado: postgres")) << esquema.texto;

    // A server that does not answer is the server library's fault, not a usage error.
    const Salida servidor =
        Correr(std::string("'") + CELDORA_BIN + "' --db mariadb://celdora@127.0.0.1:1/empresa call isSet");
    EXPECT_EQ(servidor.codigo, 1);
    EXPECT_TRUE(Contiene(servidor.texto, "Error 2002")) << servidor.texto;

    // A database that does not exist is not created empty.
    const fs::path otra = carpeta / "no-existe.db";
    const Salida falta_db = Correr(std::string("'") + CELDORA_BIN + "' --db 'sqlite:" + otra.string() + "' call isSet");
    EXPECT_EQ(falta_db.codigo, 1);
    EXPECT_TRUE(Contiene(falta_db.texto, "no existe la base de datos")) << falta_db.texto;
    EXPECT_FALSE(fs::exists(otra));
}

// --- The monthly report ------------------------------------------------------

TEST_F(Celdora, GeneratesAMonthlyReportIntoTheGivenFolderFollowingTheProgress) {
    const fs::path salida = carpeta / "informes";
    fs::create_directories(salida);

    const Salida generar =
        Celdora_("", "informe generar --mes 11 --anio 2026 --carpeta '" + salida.string() + "'");

    EXPECT_EQ(generar.codigo, 0) << generar.texto;
    const fs::path archivo = salida / "1EKU9003173C9112026.txt";
    EXPECT_EQ(generar.texto,
              "[Informe mensual al SAT]\n"
              "  Noviembre 2026: Aceptar\n"
              "Carpeta destino: " + salida.string() + "\n"
              "[Progreso] Generando informe mensual.\n"
              "  Obteniendo información...\n"
              "  Leyendo bitácora de registro de CFDs 000005\n"
              "  Leyendo bitácora de registro de CFDs 000008\n"
              "  Guardando registro...\n"
              "[Información] El archivo ha sido generado correctamente correspondiente al mes de Noviembre y al año "
              "2026\n"
              "Informe generado: " + archivo.string() + "\n");
    std::ifstream in(archivo, std::ios::binary);
    const std::string texto{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    EXPECT_EQ(texto,
              "|LOPJ7009128T5|A|3|201012345|03/11/2026 11:20:00|3480.00|480.00|1|I||||\r\n"
              "|CIN960904FQ2|A|4|201012345|09/11/2026 17:45:00|986.00|136.00|1|I||||\r\n"
              "|CIN960904FQ2|A|4|201012345|09/11/2026 17:45:00|986.00|136.00|0|I||||\r\n"
              "|CIN960904FQ2|B|1|201123456|18/11/2026 10:30:00|580.00|80.00|1|E||||");

    // The browser opens with November selected; a script exports it and closes.
    const fs::path exportado = carpeta / "exportado";
    fs::create_directories(exportado);
    const Salida ver = Celdora_("", "informe ver --anio 2026 --mes 11 --console",
                                "pulsar btnExportar\\n" + exportado.string() + "\\ncerrar\\n");
    EXPECT_EQ(ver.codigo, 0) << ver.texto;
    EXPECT_TRUE(Contiene(ver.texto, "Contenido del informe 1EKU9003173C9112026")) << ver.texto;
    EXPECT_TRUE(Contiene(ver.texto, "Monto total: $ 6,032.")) << ver.texto;
    EXPECT_TRUE(Contiene(ver.texto, "[Información] Archivo guardado correctamente.")) << ver.texto;
    std::ifstream copia(exportado / "1EKU9003173C9112026.txt", std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(copia), {}), texto);
}

TEST_F(Celdora, AStoredMonthIsOverwrittenOnlyWhenTheQuestionIsAnsweredYes) {
    const std::string opciones = "informe generar --mes 10 --anio 2026 --carpeta '" + carpeta.string() + "'";

    const Salida no = Celdora_("", opciones);  // no input: the question is answered No
    EXPECT_EQ(no.codigo, 1) << no.texto;
    EXPECT_TRUE(Contiene(no.texto, "  Cancelar\nNo se generó el informe.\n")) << no.texto;
    EXPECT_FALSE(fs::exists(carpeta / "1EKU9003173C9102026.txt"));

    const Salida si = Celdora_("", opciones + " --si");
    EXPECT_EQ(si.codigo, 0) << si.texto;
    EXPECT_TRUE(Contiene(si.texto, "  Eliminando registro anterior...\n")) << si.texto;
    EXPECT_TRUE(fs::exists(carpeta / "1EKU9003173C9102026.txt"));
}

TEST_F(Celdora, AReportThatCannotBeWrittenIsCancelledWhenTheDialogComesBack) {
    const Salida generar = Celdora_("", "informe generar --mes 12 --anio 2026 --carpeta '" + db + "'");
    EXPECT_EQ(generar.codigo, 1) << generar.texto;
    EXPECT_TRUE(Contiene(generar.texto, "[Exclamación] Error al guardar archivo " + db +
                                            "/1EKU9003173C9122026.txt\n[Informe mensual al SAT]\n  Cancelar\n"))
        << generar.texto;
    EXPECT_EQ(Llamar("ValorCampo \"SELECT COUNT(*) AS n FROM ut_CFDInforme WHERE uf_Mes=12\" n").texto, "0\n");
}

TEST_F(Celdora, TheReportCommandRefusesIncompleteOrWrongOptions) {
    for (const std::string orden :
         {"informe", "informe imprimir", "informe generar --mes 11 --anio 2026",
          "informe generar --mes 0 --anio 2026 --carpeta x", "informe generar --mes 1 --anio 1984 --carpeta x",
          "informe ver --carpeta x", "informe ver --si"}) {
        const Salida salida = Celdora_("", orden);
        EXPECT_EQ(salida.codigo, 2) << orden << "\n" << salida.texto;
    }
}

TEST(EjemploHost, BindsTheFacadeAndAsksTheDemoCompany) {
    const Salida salida = Correr(std::string("'") + EJEMPLO_BIN + "'");
    EXPECT_EQ(salida.codigo, 0) << salida.texto;
    EXPECT_EQ(salida.texto,
              "isSet: -1\n"
              "TipoComprobanteAGenerar: 2\n"
              "ExisteCFD(1): -1\n"
              "PermitirAcceso(NVCA316x, grupos 3 y 7): -1\n"
              "Tiendaro\n"
              "[Crítico] Permiso denegado.\n"
              "PermitirAcceso(NVCA316x, grupo 12): 0\n"
              "PosibleCancelar(1): 0\n"
              "  LastErrorDescript: No se pude cancelar porque el comprobante digital ya ha sido incluido en el "
              "reporte mensual.\n");
}

}  // namespace
}  // namespace celdora

// The built tool, run on a demo company in a folder of its own, and the host
// example, run as they would be from a terminal or a script.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/support/ConfiguracionPrivada.h"
#include "value/Text.h"

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
    // Per-machine settings go to a folder of the test's own, not the user's.
    testing::ConfiguracionPrivada configuracion;
    testing::CarpetaTemporal temporal;
    fs::path carpeta = temporal.ruta();
    std::string db = temporal / "demo.db";

    void SetUp() override {
        const Salida demo = Correr(std::string("'") + CELDORA_BIN + "' demo '" + db + "'");
        ASSERT_EQ(demo.codigo, 0) << demo.texto;
    }

    // celdora with global options, --db on the demo, then the command.
    Salida Celdora_(const std::string& orden, const std::string& entrada = "") {
        return Correr(std::string("'") + CELDORA_BIN + "' --db 'sqlite:" + db + "' " + orden, entrada);
    }
};

// Each step runs celdora on the demo (unless it names another database with
// --db) with its options and input, in order, as the company changes, and
// gives its exit code and an output that is, holds or starts with the text:
// the answer, the boxes and questions shown and LastErrorDescript after the
// answer; the member lists; usage errors (2) and faults (1). A server that
// does not answer is the server library's fault, not a usage error; a
// database that does not exist is not created empty.
TEST_F(Celdora, AnswersCallsAndListsMembersTellingUsageFromFaultsByTheExitCode) {
    enum Como { Igual, Contiene, Empieza };
    const std::string kSi = "Verdadero (-1)\n", kNo = "Falso (0)\n";
    const fs::path otra = carpeta / "no-existe.db";
    const struct {
        std::string orden, entrada;
        int codigo;
        std::string salida;
        Como como = Igual;
    } pasos[] = {
        {"call TipoComprobanteAGenerar", "", 0, "2\n"},
        {"call isSet", "", 0, kSi},
        {"--app Tienda call ApplicationName", "", 0, "Tienda\n"},
        {"call PosibleCancelar 1", "", 0,
         kNo + "LastErrorDescript: No se pude cancelar porque el comprobante digital ya ha sido incluido en el "
               "reporte mensual.\n"},
        // Questions take the fixed answer given as an option.
        {"--no call CancelarCFD 5", "", 0,
         "┌─ [Pregunta]\n│ ¿Está seguro que desea eliminar el elemento seleccionado?\n└─ No (respuesta fija)\n" + kNo},
        {"--si call CancelarCFD 5", "", 0, "└─ Sí (respuesta fija)\n" + kSi, Contiene},
        // A user in the groups given.
        {"--grupos 3,7 call PermitirAcceso NVCA316x @usuario", "", 0, kSi},
        {"--grupos 12 call PermitirAcceso NVCA316x @usuario", "", 0,
         "┌─ [Crítico] Tiendaro\n│ Permiso denegado.\n└─ Aceptar\n" + kNo},
        {"call databasetype @conexion", "", 0, "", Contiene},
        {"members", "", 0, " miembros en 77 ranuras\n  1  propiedad                 ADOCnn : obj Connection\n", Contiene},
        {"members", "", 0,
         " 20  método                    CancelarCFD(pkCFD i32, boAsk bool = True, WithTrans bool = True) : bool\n",
         Contiene},
        {"members cregimenfical", "", 0,
         "cRegimenFical: 4 miembros en 4 ranuras\n  1  propiedad                 Sys_PK : i32\n  2  propiedad"
         "                 Regimen : str\n  3  propiedad                 Notas : str\n  4  método                   "
         " setInfo(lsyspk i32, sregimen str, snotas str)\n"},
        // The panel on the terminal: the company's kind, and the message on closing.
        {"panel --console", "pulsar btnCerrar\\n", 0,
         "> pulsar btnCerrar\n┌─ [Información]\n│ Por favor reinicie la conexión después de realizar algún cambio.\n",
         Contiene},
        {"panel --console", "pulsar btnCerrar\\n", 0, "lblTipoC (etiqueta): CFDI\n", Contiene},
        {"call ExisteCFD", "", 1, "Error 449 (Argument not optional)\n"},
        {"call ExisteCFD abc", "", 1, "Error 13 (Type mismatch)\n"},
        {"--db postgres://celdora@localhost/empresa call isSet", "", 2, "esquema de conexión no soportado: postgres",
         Contiene},
        {"--db mariadb://celdora@127.0.0.1:1/empresa call isSet", "", 1, "Error 2002", Contiene},
        {"--db 'sqlite:" + otra.string() + "' call isSet", "", 1, "no existe la base de datos", Contiene},
    };
    for (const auto& paso : pasos) {
        const Salida salida = paso.orden.rfind("--db ", 0) == 0
                                  ? Correr(std::string("'") + CELDORA_BIN + "' " + paso.orden)
                                  : Celdora_(paso.orden, paso.entrada);
        EXPECT_EQ(salida.codigo, paso.codigo) << paso.orden << "\n" << salida.texto;
        const std::size_t donde = salida.texto.find(paso.salida);
        EXPECT_TRUE(paso.como == Igual     ? salida.texto == paso.salida
                    : paso.como == Empieza ? donde == 0
                                           : donde != std::string::npos)
            << paso.orden << "\n" << salida.texto;
    }
    EXPECT_FALSE(fs::exists(otra));
    for (const std::string orden :
         {"call ExisteCDF 1", "--si --no call isSet", "--grupos 3,x call isSet", "llamar isSet", "members cNada",
          "informe", "informe imprimir", "panel otro", "informe generar --mes 11 --anio 2026",
          "informe generar --mes 0 --anio 2026 --carpeta x", "informe ver --carpeta x"})
        EXPECT_EQ(Celdora_(orden).codigo, 2) << orden;
}

// --- The monthly report ------------------------------------------------------

TEST_F(Celdora, GeneratesAMonthlyReportIntoTheGivenFolderFollowingTheProgress) {
    const fs::path salida = carpeta / "informes";
    fs::create_directories(salida);

    const Salida generar =
        Celdora_("informe generar --mes 11 --anio 2026 --carpeta '" + salida.string() + "'");

    EXPECT_EQ(generar.codigo, 0) << generar.texto;
    const fs::path archivo = salida / "1EKU9003173C9112026.txt";
    EXPECT_EQ(generar.texto,
              "[Informe mensual al SAT]\n"
              "  Noviembre 2026: Aceptar\n"
              "Carpeta destino: " + salida.string() + "\n"
              "== Progreso ==\n"
              "  lbltitle (etiqueta): Generando informe mensual.\n"
              "  lblcmd (etiqueta): Ejecutando comando...\n"
              "  lblinfo (etiqueta): Este proceso puede tardar varios minutos. Por favor espere...\n"
              "  pb (barra): [          ] 0% (0 en 0..100)\n"
              "lblcmd: Guardando registro... | pb: [==========] 100% (100 en 0..100)\n"
              "Se cerró «Progreso».\n"
              "┌─ [Información]\n"
              "│ El archivo ha sido generado correctamente correspondiente al mes de Noviembre y al año 2026\n"
              "└─ Aceptar\n"
              "Informe generado: " + archivo.string() + "\n");
    // The rows themselves are the report's tests' to check.
    std::ifstream in(archivo, std::ios::binary);
    const std::string texto{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    EXPECT_EQ(texto.substr(0, 15), "|LOPJ7009128T5|");

    // The browser opens with November selected; a script exports it and closes.
    const fs::path exportado = carpeta / "exportado";
    fs::create_directories(exportado);
    const Salida ver = Celdora_("informe ver --anio 2026 --mes 11 --console",
                                "pulsar btnExportar\\n" + exportado.string() + "\\ncerrar\\n");
    EXPECT_EQ(ver.codigo, 0) << ver.texto;
    EXPECT_TRUE(Contiene(ver.texto, "┌─ [Información]\n│ Archivo guardado correctamente.\n")) << ver.texto;
    std::ifstream copia(exportado / "1EKU9003173C9112026.txt", std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(copia), {}), texto);
}

// A stored month is overwritten only on Yes; a No ends the command with a
// failure.
TEST_F(Celdora, AStoredMonthIsOverwrittenOnlyOnYes) {
    const std::string opciones = "informe generar --mes 10 --anio 2026 --carpeta '" + carpeta.string() + "'";
    const Salida no = Celdora_(opciones);  // no input: the question is answered No
    EXPECT_EQ(no.codigo, 1) << no.texto;
    EXPECT_TRUE(Contiene(no.texto, "  Cancelar\nNo se generó el informe.\n")) << no.texto;
    EXPECT_FALSE(fs::exists(carpeta / "1EKU9003173C9102026.txt"));
    const Salida si = Celdora_(opciones + " --si");
    EXPECT_EQ(si.codigo, 0) << si.texto;
    EXPECT_TRUE(Contiene(si.texto, "└─ Sí (respuesta fija)\n")) << si.texto;
    EXPECT_TRUE(fs::exists(carpeta / "1EKU9003173C9102026.txt"));
}

// --- A whole wizard run on the terminal ------------------------------------

// The setup wizard for CFDI, driven page by page from the script of orders
// beside this file, finishes and leaves the kind, the issuer's new name, the
// certificate with the PFX it built, and the certificate's block.
TEST_F(Celdora, TheTerminalCarriesAWholeWizardRunForCFDIFromAScriptOfOrders) {
    std::ifstream plantilla(std::string(CELDORA_GUIONES_DIR) + "/asistente-cfdi.txt");
    std::string guion{std::istreambuf_iterator<char>(plantilla), {}};
    guion = Replace(Replace(guion, "{DATOS}", CELDORA_SAT_CSD_DIR), "{CARPETA}", carpeta.string());
    std::ofstream(carpeta / "guion.txt") << guion;

    const Salida asistente = Celdora_("dialog dlgAsistenteConfig --console < '" + carpeta.string() + "/guion.txt'");

    EXPECT_EQ(asistente.codigo, 0) << asistente.texto;
    EXPECT_TRUE(Contiene(asistente.texto, "dlgAsistenteConfig cerrado; Aceptado: Verdadero (-1)\n")) << asistente.texto;
    const std::string datos = CELDORA_SAT_CSD_DIR, pfx = carpeta / "CACX7605101P8.pfx";
    EXPECT_TRUE(fs::exists(pfx));
    const std::string cer = "FROM ut_CFDInfo WHERE uf_noCertificado='30001000000500003316'";
    const std::pair<std::string, std::string> consultas[] = {
        {"SELECT Numero AS v FROM gv_Configuracion WHERE Clave='NVCA300xa'", "2"},
        {"SELECT Texto AS v FROM gv_Configuracion WHERE Clave='NVCA100'", "Escuela Kemper Urgate, S.A. de C.V."},
        {"SELECT uf_Certificado || '|' || uf_LlavePrivada || '|' || uf_PFX AS v " + cer,
         datos + "/csd-CACX7605101P8.cer|" + datos + "/csd-CACX7605101P8.key|" + pfx},
        {"SELECT COUNT(*) AS v FROM BlockDocumentos WHERE uf_CFDI_Info=(SELECT Sys_PK " + cer + ")", "1"},
    };
    for (const auto& [consulta, valor] : consultas) {
        EXPECT_EQ(Celdora_("call ValorCampo \"" + consulta + "\" v").texto, valor + "\n") << consulta;
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
              "┌─ [Crítico] Tiendaro\n"
              "│ Permiso denegado.\n"
              "└─ Aceptar\n"
              "PermitirAcceso(NVCA316x, grupo 12): 0\n"
              "PosibleCancelar(1): 0\n"
              "  LastErrorDescript: No se pude cancelar porque el comprobante digital ya ha sido incluido en el "
              "reporte mensual.\n");
}

}  // namespace
}  // namespace celdora

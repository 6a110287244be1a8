#include "platform/console/ConsolaUi.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace celdora::platform {
namespace {

using host::Botones;
using host::Icono;
using host::Respuesta;

struct Terminal {
    explicit Terminal(const std::string& teclado, ConsolaUi::RespuestaFija fija = ConsolaUi::RespuestaFija::Ninguna)
        : in(teclado), ui(in, out, fija) {}
    std::string Resto() { return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()}; }

    std::istringstream in;
    std::ostringstream out;
    ConsolaUi ui;
};

TEST(ConsolaUiMsgBox, ShowsTitleIconAndTextAndDoesNotWaitOnOk) {
    Terminal t("s\n");
    EXPECT_EQ(t.ui.MsgBox("Permiso denegado.", Botones::Aceptar, Icono::Critico, "Tiendaro"), Respuesta::Aceptar);
    EXPECT_EQ(t.ui.MsgBox("Falta valor del campo RFC del emisor.", Botones::Aceptar, Icono::Exclamacion, ""),
              Respuesta::Aceptar);
    EXPECT_EQ(t.ui.MsgBox("Sin icono", Botones::Aceptar, Icono::Ninguno, ""), Respuesta::Aceptar);
    EXPECT_EQ(t.out.str(),
              "Tiendaro\n[Crítico] Permiso denegado.\n"
              "[Exclamación] Falta valor del campo RFC del emisor.\n"
              "Sin icono\n");
    EXPECT_EQ(t.Resto(), "s\n") << "an OK box reads nothing";
}

TEST(ConsolaUiMsgBox, ReadsTheAnswerAndAsksAgainUntilItIsOne) {
    Terminal t("n\n  SÍ \r\nquizá\nS\ncancelar\nA\n");
    EXPECT_EQ(t.ui.MsgBox("¿Desea continuar?", Botones::SiNo, Icono::Pregunta, ""), Respuesta::No);
    EXPECT_EQ(t.ui.MsgBox("¿Desea continuar?", Botones::SiNo, Icono::Pregunta, ""), Respuesta::Si);
    EXPECT_EQ(t.ui.MsgBox("¿Sobreescribir?", Botones::SiNo, Icono::Pregunta, ""), Respuesta::Si);
    EXPECT_EQ(t.ui.MsgBox("¿Guardar?", Botones::SiNoCancelar, Icono::Pregunta, ""), Respuesta::Cancelar);
    EXPECT_EQ(t.ui.MsgBox("¿Seguir?", Botones::AceptarCancelar, Icono::Informacion, ""), Respuesta::Aceptar);

    const std::string out = t.out.str();
    EXPECT_NE(out.find("[Pregunta] ¿Sobreescribir?\n(s/n) (s/n) "), std::string::npos) << out;
    EXPECT_NE(out.find("(s/n/c) "), std::string::npos);
    EXPECT_NE(out.find("(a/c) "), std::string::npos);
}

TEST(ConsolaUiMsgBox, EndOfInputAnswersNoOrCancelAndSaysSo) {
    Terminal t("");
    EXPECT_EQ(t.ui.MsgBox("¿Desea eliminar?", Botones::SiNo, Icono::Pregunta, ""), Respuesta::No);
    EXPECT_EQ(t.ui.MsgBox("¿Guardar?", Botones::SiNoCancelar, Icono::Pregunta, ""), Respuesta::Cancelar);
    EXPECT_EQ(t.ui.MsgBox("¿Seguir?", Botones::AceptarCancelar, Icono::Pregunta, ""), Respuesta::Cancelar);
    const std::string out = t.out.str();
    EXPECT_NE(out.find("Sin entrada: No\n"), std::string::npos) << out;
    EXPECT_NE(out.find("Sin entrada: Cancelar\n"), std::string::npos) << out;
}

TEST(ConsolaUiMsgBox, FixedAnswerReadsNothingAndPrintsWhatWasTaken) {
    Terminal si("n\n", ConsolaUi::RespuestaFija::Si);
    EXPECT_EQ(si.ui.MsgBox("¿Desea eliminar?", Botones::SiNo, Icono::Pregunta, ""), Respuesta::Si);
    EXPECT_EQ(si.ui.MsgBox("¿Seguir?", Botones::AceptarCancelar, Icono::Pregunta, ""), Respuesta::Aceptar);
    EXPECT_NE(si.out.str().find("(s/n) Sí (respuesta fija)\n"), std::string::npos) << si.out.str();
    EXPECT_EQ(si.Resto(), "n\n");

    Terminal no("s\n", ConsolaUi::RespuestaFija::No);
    EXPECT_EQ(no.ui.MsgBox("¿Desea eliminar?", Botones::SiNo, Icono::Pregunta, ""), Respuesta::No);
    EXPECT_EQ(no.ui.MsgBox("¿Guardar?", Botones::SiNoCancelar, Icono::Pregunta, ""), Respuesta::No);
    EXPECT_EQ(no.ui.MsgBox("¿Seguir?", Botones::AceptarCancelar, Icono::Pregunta, ""), Respuesta::Cancelar);
    EXPECT_NE(no.out.str().find("(s/n) No (respuesta fija)\n"), std::string::npos);
    EXPECT_EQ(no.Resto(), "s\n");
}

TEST(ConsolaUiPickers, AskForAPathAndTakeAnEmptyLineAsCancel) {
    Terminal t("/srv/informes\n   \n/home/ana/CBB.bmp\n");
    EXPECT_EQ(t.ui.BrowseForFolder("Carpeta destino", "/srv"), "/srv/informes");
    EXPECT_EQ(t.ui.ShowSave({"Texto|*.txt", "1AAA010101AAA012012.txt", ""}), std::nullopt);
    EXPECT_EQ(t.ui.ShowOpen({"Archivos de imágen CBB *.jpg|*.jpg", "", ""}), "/home/ana/CBB.bmp");
    EXPECT_EQ(t.ui.ShowOpen({}), std::nullopt) << "end of input";

    const std::string out = t.out.str();
    EXPECT_EQ(out.find("Carpeta destino\nDesde: /srv\n"), 0u) << out;
    EXPECT_NE(out.find("Guardar como...\n"), std::string::npos);
    EXPECT_NE(out.find("1AAA010101AAA012012.txt"), std::string::npos);
    EXPECT_NE(out.find("Archivos de imágen CBB *.jpg|*.jpg"), std::string::npos);
}

TEST(ConsolaUiServicios, KeepsTheClipboardAndLoadsPicturesByContents) {
    Terminal t("");
    t.ui.ClipboardClear();
    t.ui.ClipboardSetText("|AAA010101AAA|ñ|");
    EXPECT_EQ(t.ui.Portapapeles(), "|AAA010101AAA|ñ|");
    EXPECT_NE(t.out.str().find("16 caracteres"), std::string::npos) << t.out.str();
    t.ui.ClipboardClear();
    EXPECT_EQ(t.ui.Portapapeles(), "");

    const auto ruta = std::filesystem::temp_directory_path() / "celdora-consola-imagen.jpg";
    std::ofstream(ruta, std::ios::binary) << "GIF89a\x01\x02";
    const auto picture = t.ui.LoadPicture(ruta.string());
    std::filesystem::remove(ruta);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->Formato(), "gif");
}

}  // namespace
}  // namespace celdora::platform

#include "platform/console/ConsolaUi.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <vector>

#include "tests/support/CarpetaTemporal.h"

namespace celdora::platform {
namespace {

using B = host::Botones;
using I = host::Icono;
using R = host::Respuesta;
using F = ConsolaUi::RespuestaFija;

struct Terminal {
    explicit Terminal(const std::string& teclado, F fija = F::Ninguna) : in(teclado), ui(in, out, fija) {}
    std::string Resto() { return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()}; }

    std::istringstream in;
    std::ostringstream out;
    ConsolaUi ui;
};

// A box "Listo" with these buttons, icon and title, answered from this
// keyboard: the answer, and everything the terminal printed. Every keyboard
// but an empty one ends with a line "x" that the box must leave unread.
struct Caja {
    F fija;
    B botones;
    I icono;
    std::string titulo, teclado;
    R respuesta;
    std::string salida;
};

TEST(ConsolaUiMsgBox, PrintsTitleIconAndTextAndReadsTheAnswer) {
    const std::vector<Caja> casos{
        {F::Ninguna, B::Aceptar, I::Critico, "Tiendaro", "s\nx\n", R::Aceptar, "Tiendaro\n[Crítico] Listo\n"},
        {F::Ninguna, B::Aceptar, I::Exclamacion, "", "x\n", R::Aceptar, "[Exclamación] Listo\n"},
        {F::Ninguna, B::Aceptar, I::Ninguno, "", "x\n", R::Aceptar, "Listo\n"},
        {F::Ninguna, B::SiNo, I::Pregunta, "", "n\nx\n", R::No, "[Pregunta] Listo\n(s/n) "},
        {F::Ninguna, B::SiNo, I::Pregunta, "", "  SÍ \r\nx\n", R::Si, "[Pregunta] Listo\n(s/n) "},
        // Anything else is asked again.
        {F::Ninguna, B::SiNo, I::Pregunta, "", "quizá\nS\nx\n", R::Si, "[Pregunta] Listo\n(s/n) (s/n) "},
        {F::Ninguna, B::SiNoCancelar, I::Pregunta, "", "cancelar\nx\n", R::Cancelar, "[Pregunta] Listo\n(s/n/c) "},
        {F::Ninguna, B::AceptarCancelar, I::Informacion, "", "A\nx\n", R::Aceptar, "[Información] Listo\n(a/c) "},
        // The end of the input answers No or Cancel, and says so.
        {F::Ninguna, B::SiNo, I::Pregunta, "", "", R::No, "[Pregunta] Listo\n(s/n) \nSin entrada: No\n"},
        {F::Ninguna, B::SiNoCancelar, I::Pregunta, "", "", R::Cancelar,
         "[Pregunta] Listo\n(s/n/c) \nSin entrada: Cancelar\n"},
        {F::Ninguna, B::AceptarCancelar, I::Pregunta, "", "", R::Cancelar,
         "[Pregunta] Listo\n(a/c) \nSin entrada: Cancelar\n"},
        // A fixed answer reads nothing and prints what was taken.
        {F::Si, B::SiNo, I::Pregunta, "", "n\nx\n", R::Si, "[Pregunta] Listo\n(s/n) Sí (respuesta fija)\n"},
        {F::Si, B::AceptarCancelar, I::Pregunta, "", "x\n", R::Aceptar,
         "[Pregunta] Listo\n(a/c) Aceptar (respuesta fija)\n"},
        {F::No, B::SiNo, I::Pregunta, "", "s\nx\n", R::No, "[Pregunta] Listo\n(s/n) No (respuesta fija)\n"},
        {F::No, B::SiNoCancelar, I::Pregunta, "", "x\n", R::No, "[Pregunta] Listo\n(s/n/c) No (respuesta fija)\n"},
        {F::No, B::AceptarCancelar, I::Pregunta, "", "x\n", R::Cancelar,
         "[Pregunta] Listo\n(a/c) Cancelar (respuesta fija)\n"},
    };
    for (const Caja& caja : casos) {
        SCOPED_TRACE(caja.salida);
        Terminal t(caja.teclado, caja.fija);
        EXPECT_EQ(t.ui.MsgBox("Listo", caja.botones, caja.icono, caja.titulo), caja.respuesta);
        EXPECT_EQ(t.out.str(), caja.salida);
        const bool lee = caja.fija == F::Ninguna && caja.botones != B::Aceptar;
        EXPECT_EQ(t.Resto(), lee && !caja.teclado.empty() ? "x\n" : caja.teclado);
    }
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

    const testing::CarpetaTemporal carpeta;
    std::ofstream(carpeta / "imagen.jpg", std::ios::binary) << "GIF89a\x01\x02";
    const auto picture = t.ui.LoadPicture(carpeta / "imagen.jpg");
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->Formato(), "gif");
}

}  // namespace
}  // namespace celdora::platform

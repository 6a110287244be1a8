#include "platform/console/ConsolaUi.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <vector>

#include "tests/support/CarpetaTemporal.h"
#include "value/Text.h"

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
// keyboard: the answer, and what the terminal printed after the head and
// the text. Every keyboard but an empty one ends with a line "x" that the
// box must leave unread.
struct Caja {
    F fija;
    B botones;
    I icono;
    std::string titulo, teclado;
    R respuesta;
    std::string cabeza, pie;
};

TEST(ConsolaUiMsgBox, PrintsIconTitleAndTextInAFrameAndReadsTheAnswer) {
    const std::vector<Caja> casos{
        {F::Ninguna, B::Aceptar, I::Critico, "Tiendaro", "s\nx\n", R::Aceptar, "[Crítico] Tiendaro", "└─ Aceptar\n"},
        {F::Ninguna, B::Aceptar, I::Exclamacion, "", "x\n", R::Aceptar, "[Advertencia]", "└─ Aceptar\n"},
        {F::Ninguna, B::Aceptar, I::Ninguno, "", "x\n", R::Aceptar, "[Mensaje]", "└─ Aceptar\n"},
        {F::Ninguna, B::SiNo, I::Pregunta, "", "  SÍ \r\nx\n", R::Si, "[Pregunta]", "│ (s/n)   SÍ \n└─ Sí\n"},
        // An answer the box does not take says which ones it does.
        {F::Ninguna, B::SiNo, I::Pregunta, "", "quizá\nN\nx\n", R::No, "[Pregunta]",
         "│ (s/n) quizá\n│ No entiendo «quizá»: responda s (sí) o n (no).\n│ (s/n) N\n└─ No\n"},
        {F::Ninguna, B::AceptarCancelar, I::Informacion, "", "s\nA\nx\n", R::Aceptar, "[Información]",
         "│ (a/c) s\n│ No entiendo «s»: responda a (aceptar) o c (cancelar).\n│ (a/c) A\n└─ Aceptar\n"},
        // The end of the input answers No or Cancel, and says so.
        {F::Ninguna, B::SiNoCancelar, I::Pregunta, "", "", R::Cancelar, "[Pregunta]",
         "│ (s/n/c) \n└─ Cancelar (sin entrada)\n"},
        // A fixed answer reads nothing and prints what was taken.
        {F::Si, B::SiNo, I::Pregunta, "", "n\nx\n", R::Si, "[Pregunta]", "└─ Sí (respuesta fija)\n"},
        {F::No, B::SiNoCancelar, I::Pregunta, "", "s\nx\n", R::No, "[Pregunta]", "└─ No (respuesta fija)\n"},
        {F::No, B::AceptarCancelar, I::Pregunta, "", "x\n", R::Cancelar, "[Pregunta]",
         "└─ Cancelar (respuesta fija)\n"},
    };
    for (const Caja& caja : casos) {
        SCOPED_TRACE(caja.pie);
        Terminal t(caja.teclado, caja.fija);
        EXPECT_EQ(t.ui.MsgBox("Listo\r\nya", caja.botones, caja.icono, caja.titulo), caja.respuesta);
        EXPECT_EQ(t.out.str(), "┌─ " + caja.cabeza + "\n│ Listo\n│ ya\n" + caja.pie);
        const bool lee = caja.fija == F::Ninguna && caja.botones != B::Aceptar;
        EXPECT_EQ(t.Resto(), lee && !caja.teclado.empty() ? "x\n" : caja.teclado);
    }
}

// Each picker takes what its desktop counterpart takes and says what it
// expects of any other path; an empty line or the end of the input cancels.
TEST(ConsolaUiPickers, TakeAnExistingPathOfTheirKindInQuotesOrNotAndCancelOnAnEmptyLine) {
    const testing::CarpetaTemporal carpeta;
    const std::string d = carpeta.ruta().string(), archivo = carpeta / "CBB.bmp";
    std::ofstream(archivo) << "x";
    enum Cual { Abrir, Guardar, Carpeta };
    // What is typed, the path taken, and a part of what the terminal printed.
    const struct {
        Cual cual;
        std::string teclado;
        std::optional<std::string> ruta;
        std::string queja;
    } casos[] = {
        {Abrir, "/no/hay.bmp\n\"" + archivo + "\"\n", archivo, "│ no existe el archivo «/no/hay.bmp»; escriba"},
        {Abrir, "   \n", std::nullopt, "└─ Cancelado\n"},
        {Guardar, "/no/hay/x.txt\n", std::nullopt, "│ no existe la carpeta «/no/hay»; escriba"},
        {Carpeta, archivo + "\n" + d + "\n", d, "│ no existe la carpeta «" + archivo + "»; escriba la ruta de una"},
        {Carpeta, "", std::nullopt,
         "┌─ [Elegir carpeta] Carpeta destino\n│ Desde: /srv\n│ Ruta de la carpeta (línea vacía para cancelar): \n"
         "└─ Cancelado (sin entrada)\n"},
    };
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.teclado);
        Terminal t(caso.teclado);
        const auto ruta = caso.cual == Abrir     ? t.ui.ShowOpen({"Imágenes|*.bmp", "", "Imagen CBB"})
                          : caso.cual == Guardar ? t.ui.ShowSave({"Texto|*.txt", "1AAA.txt", ""})
                                                 : t.ui.BrowseForFolder("Carpeta destino", "/srv");
        EXPECT_EQ(ruta, caso.ruta);
        EXPECT_NE(t.out.str().find(caso.queja), std::string::npos) << t.out.str();
    }
}

TEST(ConsolaUiServicios, KeepsTheClipboard) {
    Terminal t("");
    t.ui.ClipboardClear();
    t.ui.ClipboardSetText("|AAA010101AAA|ñ|");
    EXPECT_EQ(t.ui.Portapapeles(), "|AAA010101AAA|ñ|");
    EXPECT_NE(t.out.str().find("16 caracteres"), std::string::npos) << t.out.str();
}

}  // namespace
}  // namespace celdora::platform

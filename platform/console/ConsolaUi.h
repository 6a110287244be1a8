#pragma once

#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/UiServices.h"
#include "platform/console/RenderizadorConsola.h"

namespace celdora::platform {

// The user interface services on a terminal, for a person at the keyboard or
// a script that pipes its answers in.
//
// A message box is printed as a block that no typed line can be taken for:
//
//   ┌─ [Pregunta] Tiendaro
//   │ ¿Está seguro que desea eliminar el elemento seleccionado?
//   │ (s/n) s
//   └─ Sí
//
// The head gives the icon as a word ("[Información]", "[Advertencia]",
// "[Crítico]", "[Pregunta]", "[Mensaje]" for none) and the title; each line
// of the text follows; the foot gives the answer taken. A box with only
// "Aceptar" does not wait. A question asks for its answer on one line:
// "(s/n)" for Yes/No, "(s/n/c)" for Yes/No/Cancel, "(a/c)" for OK/Cancel;
// "s", "si", "sí", "y", "yes", "n", "no", "a", "aceptar", "c", "cancelar"
// are understood in any case; anything else is answered with the words the
// box takes, and asked again. At the end of the input the answer is No for
// a Yes/No box and Cancel for the others. With a fixed answer (--si / --no
// of the scripts) no line is read: Yes (or OK) or No (or Cancel, for
// OK/Cancel) is taken at once; a Yes/No/Cancel box answered "No" stays No.
//
// File and folder pickers are printed the same way and ask for a path on
// one line, in double quotes or not; an empty line or the end of the input
// means the user cancelled. As the desktop's pickers do, opening takes an
// existing file, saving a file in an existing folder, and the folder picker
// an existing folder; any other path is refused with what is expected. The
// clipboard is kept in memory; a terminal has no mouse pointer to change, so
// MousePointer only remembers it; DoEvents prints what changed on the
// dialogs shown without waiting and flushes the output.
//
// Every prompt has its line ended before anything else is printed: when the
// terminal does not show what is typed (a piped script, or the output going
// to a file) the line read is written after the prompt, and the end of the
// input ends the line.
//
// Dialogs are drawn and driven by RenderizadorConsola, which reads its
// orders from the same input as the boxes.
class ConsolaUi : public host::UiServices {
public:
    enum class RespuestaFija { Ninguna, Si, No };

    // eco: whether the line read is written after its prompt.
    explicit ConsolaUi(std::istream& in, std::ostream& out, RespuestaFija respuesta = RespuestaFija::Ninguna,
                       bool eco = true);
    // On the process's standard input and output; the lines read are written
    // unless both are a terminal, which shows them as they are typed.
    explicit ConsolaUi(RespuestaFija respuesta = RespuestaFija::Ninguna);

    host::Respuesta MsgBox(const std::string& text, host::Botones buttons, host::Icono icon,
                           const std::string& title) override;
    std::optional<std::string> ShowOpen(const host::FileDialogRequest& request) override;
    std::optional<std::string> ShowSave(const host::FileDialogRequest& request) override;
    std::optional<std::string> BrowseForFolder(const std::string& title, const std::string& root) override;
    void ClipboardClear() override;
    void ClipboardSetText(const std::string& text) override;
    void MousePointer(host::Puntero pointer) override;
    host::Puntero MousePointerActual() const override { return puntero_; }
    void DoEvents() override;
    std::shared_ptr<host::Picture> LoadPicture(const std::string& path) override;
    void ShowModal(forms::Dialogo& dialogo) override;
    void Show(forms::Dialogo& dialogo) override;

    const std::string& Portapapeles() const { return portapapeles_; }

private:
    std::optional<std::string> LeerLinea();
    // Asks for a path until one that valida (its complaint, empty when
    // none) accepts; nothing on an empty line or at the end of the input.
    std::optional<std::string> PedirRuta(const std::string& cabecera, const std::vector<std::string>& detalles,
                                         const std::function<std::string(const std::string&)>& valida);

    std::istream& in_;
    std::ostream& out_;
    RespuestaFija respuesta_;
    bool eco_;
    std::string portapapeles_;
    host::Puntero puntero_ = host::Puntero::Normal;
    RenderizadorConsola renderizador_;
};

}  // namespace celdora::platform

#pragma once

#include <iosfwd>
#include <memory>
#include <optional>
#include <string>

#include "host/UiServices.h"
#include "platform/console/RenderizadorConsola.h"

namespace celdora::platform {

// The user interface services on a terminal, for a person at the keyboard or
// a script that pipes its answers in.
//
// A message box prints its title on a line of its own (when it has one), then
// the icon as a word in brackets ("[Crítico]", "[Pregunta]",
// "[Exclamación]", "[Información]") followed by the text. A box with only
// "Aceptar" does not wait. A question asks for its answer on one line:
// "(s/n)" for Yes/No, "(s/n/c)" for Yes/No/Cancel, "(a/c)" for OK/Cancel;
// "s", "si", "sí", "y", "yes", "n", "no", "a", "aceptar", "c", "cancelar"
// are understood in any case, and anything else is asked again. At the end
// of the input the answer is No for a Yes/No box and Cancel for the others,
// and the box says so. With a fixed answer (--si / --no of the scripts) no
// line is read: Yes (or OK) or No (or Cancel, for OK/Cancel) is taken at
// once and printed; a Yes/No/Cancel box answered "No" stays No.
//
// File and folder pickers ask for a path on one line; an empty line or the
// end of the input means the user cancelled. The clipboard is kept in
// memory; a terminal has no mouse pointer to change, so MousePointer only
// remembers it; DoEvents prints what changed on the dialogs shown without
// waiting and flushes the output.
//
// Dialogs are drawn and driven by RenderizadorConsola, which reads its
// orders from the same input as the boxes.
class ConsolaUi : public host::UiServices {
public:
    enum class RespuestaFija { Ninguna, Si, No };

    explicit ConsolaUi(std::istream& in, std::ostream& out, RespuestaFija respuesta = RespuestaFija::Ninguna);
    // On the process's standard input and output.
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
    std::optional<std::string> PedirRuta(const std::string& title, const std::string& detalles);

    std::istream& in_;
    std::ostream& out_;
    RespuestaFija respuesta_;
    std::string portapapeles_;
    host::Puntero puntero_ = host::Puntero::Normal;
    RenderizadorConsola renderizador_;
};

}  // namespace celdora::platform

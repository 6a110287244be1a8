#pragma once

// What the system asks of the user interface: showing dialog models, message
// boxes, file and folder pickers, clipboard, screen pointer, one turn of the
// message loop, pictures. Qt, the console and the tests' scripted service
// each implement it.

#include <memory>
#include <optional>
#include <string>

#include "value/Variant.h"

namespace celdora::forms {
class Dialogo;
}

namespace celdora::host {

// The platform's message box values, so that tests and logs read as the
// system states them.
enum class Icono { Ninguno = 0, Critico = 16, Pregunta = 32, Exclamacion = 48, Informacion = 64 };
enum class Botones { Aceptar = 0, AceptarCancelar = 1, SiNoCancelar = 3, SiNo = 4 };
enum class Respuesta { Aceptar = 1, Cancelar = 2, Si = 6, No = 7 };
enum class Puntero { Normal = 0, Reloj = 11 };

// A picture loaded from a file, its format told by its contents.
class Picture : public Object {
public:
    // "jpeg", "bmp", "gif", "wmf", "emf", "png" or "" when not a picture.
    virtual std::string Formato() const = 0;
    virtual const Bytes& Datos() const = 0;
};

struct FileDialogRequest {
    std::string filter;    // "Description|*.ext|Description|*.ext"
    std::string fileName;  // initial file name
    std::string title;
    std::string initDir{};  // the folder it opens in; empty leaves it to the platform
};

class UiServices {
public:
    virtual ~UiServices() = default;

    // A message box; title empty means the box has no title of its own.
    virtual Respuesta MsgBox(const std::string& text, Botones buttons, Icono icon, const std::string& title) = 0;

    // File dialogs: the chosen path, or nothing when the user cancelled.
    virtual std::optional<std::string> ShowOpen(const FileDialogRequest& request) = 0;
    virtual std::optional<std::string> ShowSave(const FileDialogRequest& request) = 0;
    // The folder picker: the chosen folder, or nothing when cancelled.
    virtual std::optional<std::string> BrowseForFolder(const std::string& title, const std::string& root) = 0;

    virtual void ClipboardClear() = 0;
    virtual void ClipboardSetText(const std::string& text) = 0;
    virtual void MousePointer(Puntero pointer) = 0;
    virtual Puntero MousePointerActual() const = 0;
    virtual void DoEvents() = 0;
    // A picture from a file, or null when the file holds none.
    virtual std::shared_ptr<Picture> LoadPicture(const std::string& path) = 0;

    // Shows a dialog model and returns when the dialog is hidden or
    // unloaded. The model is already loaded and visible when this is called.
    virtual void ShowModal(forms::Dialogo& dialogo) = 0;
    // Shows a dialog model without waiting; it is drawn until it is unloaded
    // and kept up to date by the message loop (DoEvents).
    virtual void Show(forms::Dialogo& dialogo) = 0;
};

}  // namespace celdora::host

#pragma once

// The user interface services on a desktop, with Qt Widgets: dialog models
// drawn by VentanaQt, message boxes, file and folder pickers, clipboard,
// wait cursor, one turn of the message loop, pictures. No Qt header here.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/UiServices.h"
#include "platform/qt/AplicacionQt.h"

namespace celdora::platform {

// Message boxes carry the platform's icon (critical, warning, information,
// question) and buttons with their Spanish texts ("Aceptar", "Cancelar",
// "Sí", "No"); a box without a title of its own shows the application's
// name. Pickers take the system's filters ("Desc|*.ext|...").
class QtUi : public host::UiServices {
public:
    // Creates the QApplication when the process has none yet; there must be a
    // screen (HayPantalla).
    QtUi();
    ~QtUi() override;
    QtUi(const QtUi&) = delete;
    QtUi& operator=(const QtUi&) = delete;

    host::Respuesta MsgBox(const std::string& text, host::Botones buttons, host::Icono icon,
                           const std::string& title) override;
    std::optional<std::string> ShowOpen(const host::FileDialogRequest& request) override;
    std::optional<std::string> ShowSave(const host::FileDialogRequest& request) override;
    std::optional<std::string> BrowseForFolder(const std::string& title, const std::string& root) override;
    void ClipboardClear() override;
    void ClipboardSetText(const std::string& text) override;
    void MousePointer(host::Puntero pointer) override;
    host::Puntero MousePointerActual() const override { return puntero_; }
    // Lets Qt draw and deliver what is waiting, then raises a fault that a
    // handler of a window shown without waiting left behind.
    void DoEvents() override;
    std::shared_ptr<host::Picture> LoadPicture(const std::string& path) override;
    void ShowModal(forms::Dialogo& dialogo) override;
    // A dialog already up in a window of its own is only brought to the front.
    void Show(forms::Dialogo& dialogo) override;

private:
    struct Ventanas;

    AplicacionQt aplicacion_;
    std::unique_ptr<Ventanas> ventanas_;
    host::Puntero puntero_ = host::Puntero::Normal;
};

}  // namespace celdora::platform

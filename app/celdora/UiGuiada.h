#pragma once

// A user interface that acts for the user where the tool knows the answers
// up front, and passes everything else to the terminal's interface beneath
// it: a dialog class can be given an action that replaces the person at the
// keyboard, and every folder picker can be answered with one folder.

#include <functional>
#include <iosfwd>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "forms/Dialogo.h"
#include "host/UiServices.h"

namespace celdora::app {

class UiGuiada : public host::UiServices {
public:
    UiGuiada(host::UiServices& base, std::ostream& out);

    // What is done in place of the user each time a dialog of that class is
    // shown modally. A dialog the action leaves up is closed afterwards.
    void AlMostrar(const std::string& clase, std::function<void(forms::Dialogo&)> accion);
    // The folder that every folder picker answers, told on the terminal.
    void Carpeta(std::string carpeta) { carpeta_ = std::move(carpeta); }

    host::Respuesta MsgBox(const std::string& text, host::Botones buttons, host::Icono icon,
                           const std::string& title) override;
    std::optional<std::string> ShowOpen(const host::FileDialogRequest& request) override;
    std::optional<std::string> ShowSave(const host::FileDialogRequest& request) override;
    std::optional<std::string> BrowseForFolder(const std::string& title, const std::string& root) override;
    void ClipboardClear() override;
    void ClipboardSetText(const std::string& text) override;
    void MousePointer(host::Puntero pointer) override;
    host::Puntero MousePointerActual() const override;
    void DoEvents() override;
    std::shared_ptr<host::Picture> LoadPicture(const std::string& path) override;
    void ShowModal(forms::Dialogo& dialogo) override;
    void Show(forms::Dialogo& dialogo) override;

private:
    host::UiServices& base_;
    std::ostream& out_;
    std::map<std::string, std::function<void(forms::Dialogo&)>> acciones_;
    std::optional<std::string> carpeta_;
};

}  // namespace celdora::app

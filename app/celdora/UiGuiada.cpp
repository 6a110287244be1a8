#include "app/celdora/UiGuiada.h"

#include <ostream>

#include "value/Text.h"

namespace celdora::app {

UiGuiada::UiGuiada(host::UiServices& base, std::ostream& out) : base_(base), out_(out) {}

void UiGuiada::AlMostrar(const std::string& clase, std::function<void(forms::Dialogo&)> accion) {
    acciones_[LCase(clase)] = std::move(accion);
}

host::Respuesta UiGuiada::MsgBox(const std::string& text, host::Botones buttons, host::Icono icon,
                                 const std::string& title) {
    return base_.MsgBox(text, buttons, icon, title);
}

std::optional<std::string> UiGuiada::ShowOpen(const host::FileDialogRequest& request) {
    return base_.ShowOpen(request);
}

std::optional<std::string> UiGuiada::ShowSave(const host::FileDialogRequest& request) {
    return base_.ShowSave(request);
}

std::optional<std::string> UiGuiada::BrowseForFolder(const std::string& title, const std::string& root) {
    if (!carpeta_) return base_.BrowseForFolder(title, root);
    out_ << title << ": " << *carpeta_ << "\n";
    return carpeta_;
}

void UiGuiada::ClipboardClear() { base_.ClipboardClear(); }
void UiGuiada::ClipboardSetText(const std::string& text) { base_.ClipboardSetText(text); }
void UiGuiada::MousePointer(host::Puntero pointer) { base_.MousePointer(pointer); }
host::Puntero UiGuiada::MousePointerActual() const { return base_.MousePointerActual(); }
void UiGuiada::DoEvents() { base_.DoEvents(); }

std::shared_ptr<host::Picture> UiGuiada::LoadPicture(const std::string& path) { return base_.LoadPicture(path); }

void UiGuiada::ShowModal(forms::Dialogo& dialogo) {
    const auto accion = acciones_.find(LCase(dialogo.Clase()));
    if (accion == acciones_.end()) {
        base_.ShowModal(dialogo);
        return;
    }
    out_ << "[" << dialogo.Caption() << "]\n";
    // A copy: the action may show this same dialog again, which runs it anew.
    const auto hacer = accion->second;
    hacer(dialogo);
    if (dialogo.Visible()) dialogo.Cerrar();
}

void UiGuiada::Show(forms::Dialogo& dialogo) { base_.Show(dialogo); }

}  // namespace celdora::app

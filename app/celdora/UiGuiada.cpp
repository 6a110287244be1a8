#include "app/celdora/UiGuiada.h"

#include <ostream>

#include "forms/Control.h"
#include "value/Text.h"

namespace celdora::app {

// Follows the progress window on the terminal: its title, then each new
// command text. A run of texts that differ only in their closing number (a
// step per row read) is shown by its first text, every thousandth, and its
// last, so that a long month does not flood the terminal.
class UiGuiada::Progreso : public forms::Observador {
public:
    explicit Progreso(std::ostream& out) : out_(out) {}
    ~Progreso() override { Dejar(); }
    Progreso(const Progreso&) = delete;
    Progreso& operator=(const Progreso&) = delete;

    void Seguir(forms::Dialogo& forma) {
        Dejar();
        forma_ = &forma;
        const forms::Control* titulo = forma.Buscar("lbltitle");
        out_ << "[" << forma.Caption() << "] " << (titulo ? titulo->Caption() : "") << "\n";
        forma.Observar(this);
    }

    void ControlCambiado(forms::Control& control) override {
        if (EqualText(control.Nombre(), "lblcmd")) Texto(control.Caption());
    }
    void DialogoCambiado() override {
        // Unloaded or gone: what is pending is shown and the window let go.
        if (forma_ != nullptr && !forma_->Cargado()) Dejar();
    }

private:
    static std::string Raiz(const std::string& texto) {
        std::size_t fin = texto.size();
        while (fin > 0 && texto[fin - 1] >= '0' && texto[fin - 1] <= '9') --fin;
        return fin == texto.size() ? texto + "\n" : texto.substr(0, fin);  // no number: a root of its own
    }

    void Texto(const std::string& texto) {
        if (texto == ultimo_) return;
        const std::string raiz = Raiz(texto);
        if (raiz == raiz_) {
            ++serie_;
            pendiente_ = serie_ % 1000 == 0 ? "" : texto;
            if (pendiente_.empty()) out_ << "  " << texto << "\n";
        } else {
            Vaciar();
            out_ << "  " << texto << "\n";
            raiz_ = raiz;
            serie_ = 1;
        }
        ultimo_ = texto;
    }

    void Vaciar() {
        if (!pendiente_.empty()) out_ << "  " << pendiente_ << "\n";
        pendiente_.clear();
    }

    void Dejar() {
        Vaciar();
        if (forma_ != nullptr) forma_->Dejar(this);
        forma_ = nullptr;
        raiz_.clear();
        ultimo_.clear();
        out_.flush();
    }

    std::ostream& out_;
    forms::Dialogo* forma_ = nullptr;
    std::string raiz_;
    std::string ultimo_;
    std::string pendiente_;
    long serie_ = 0;
};

UiGuiada::UiGuiada(host::UiServices& base, std::ostream& out)
    : base_(base), out_(out), progreso_(std::make_unique<Progreso>(out)) {}

UiGuiada::~UiGuiada() = default;

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

void UiGuiada::Show(forms::Dialogo& dialogo) {
    if (seguirProgreso_ && EqualText(dialogo.Clase(), "frmPB")) {
        progreso_->Seguir(dialogo);
        return;
    }
    base_.Show(dialogo);
}

}  // namespace celdora::app

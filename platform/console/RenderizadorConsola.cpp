#include "platform/console/RenderizadorConsola.h"

#include <algorithm>
#include <optional>
#include <ostream>

#include "forms/Controles.h"
#include "platform/console/DibujoConsola.h"
#include "platform/console/OrdenesConsola.h"

namespace celdora::platform {

using forms::Control;
using forms::Dialogo;

namespace {

template <class T>
bool Contiene(const std::vector<T*>& lista, const T* elemento) {
    return std::find(lista.begin(), lista.end(), elemento) != lista.end();
}

}  // namespace

// One modal showing: draws the dialog, reads orders until it goes away, and
// after each order prints what the order changed.
class RenderizadorConsola::Sesion : public forms::Observador {
public:
    Sesion(RenderizadorConsola& renderizador, Dialogo& dialogo) : r_(renderizador), dialogo_(dialogo) {
        dialogo_.Observar(this);
    }
    ~Sesion() override { dialogo_.Dejar(this); }
    Sesion(const Sesion&) = delete;
    Sesion& operator=(const Sesion&) = delete;

    void Correr() {
        Dibujar();
        r_.out_ << "Escriba ayuda para ver las órdenes.\n";
        while (dialogo_.Visible()) {
            r_.out_ << "> " << std::flush;
            r_.cerrado_ = nullptr;
            const std::optional<std::string> linea = r_.leer_();
            if (!linea) {
                FinDeEntrada();
                break;
            }
            const int modalesAntes = r_.modales_;
            cambios_.clear();
            const consola::Pedido pedido = consola::EjecutarOrden(dialogo_, *linea, r_.out_);
            if (!dialogo_.Visible()) break;
            if (pedido == consola::Pedido::VerTodo || r_.modales_ != modalesAntes || HayQueDibujarTodo()) {
                Dibujar();
            } else {
                MostrarCambios();
            }
        }
        // A dialog shown again from its own handler was closed by that
        // inner showing, which said so already.
        if (r_.cerrado_ != &dialogo_) r_.out_ << "Se cerró «" << dialogo_.Caption() << "».\n";
        r_.cerrado_ = &dialogo_;
    }

    void ControlCambiado(Control& control) override {
        if (!Contiene<Control>(cambios_, &control)) cambios_.push_back(&control);
    }
    void DialogoCambiado() override {}

private:
    void Dibujar() {
        consola::DibujarDialogo(dialogo_, r_.out_);
        caption_ = dialogo_.Caption();
        RecordarMostrados();
    }

    // A new caption, or a frame or page that changed, moves more than one
    // control: the whole dialog is clearer than the pieces.
    bool HayQueDibujarTodo() const {
        if (dialogo_.Caption() != caption_) return true;
        return std::any_of(cambios_.begin(), cambios_.end(), [](const Control* control) {
            return control->Tipo() == forms::TipoControl::TabControl || consola::EsContenedor(*control);
        });
    }

    // The changed controls in declaration order; one that a person saw and
    // no longer sees says so.
    void MostrarCambios() {
        for (const auto& control : dialogo_.Controles()) {
            if (!Contiene<Control>(cambios_, control.get())) continue;
            if (consola::Mostrado(*control)) {
                consola::DibujarControl(*control, r_.out_);
            } else if (Contiene<const Control>(mostrados_, control.get())) {
                r_.out_ << "  " << control->Nombre() << ": ya no se ve\n";
            }
        }
        RecordarMostrados();
    }

    void RecordarMostrados() {
        mostrados_.clear();
        for (const auto& control : dialogo_.Controles()) {
            if (consola::Mostrado(*control)) mostrados_.push_back(control.get());
        }
    }

    // Nobody is left to type: the window is closed as with its X; if the
    // dialog refuses, it is hidden, since no one could close it later.
    void FinDeEntrada() {
        r_.out_ << "Fin de la entrada: se cierra la ventana.\n";
        dialogo_.Cerrar();
        if (!dialogo_.Visible()) return;
        r_.out_ << "«" << dialogo_.Caption() << "» no se dejó cerrar; se oculta.\n";
        dialogo_.Hide();
    }

    RenderizadorConsola& r_;
    Dialogo& dialogo_;
    std::vector<Control*> cambios_;
    std::vector<const Control*> mostrados_;
    std::string caption_;
};

// Watches a dialog shown without waiting: the controls that change wait for
// the next turn of the message loop and are printed on one line. While the
// dialog has a progress bar, a line is printed only when the bar reaches a
// tenth it had not reached before, and the last changes when it closes, so
// that a long job prints a dozen lines however often it reports.
class RenderizadorConsola::Vigia : public forms::Observador {
public:
    Vigia(std::ostream& out, Dialogo& dialogo) : out_(out), dialogo_(&dialogo) {
        dialogo.Observar(this);
        decimo_ = Decimo();
    }
    ~Vigia() override {
        if (dialogo_ != nullptr) dialogo_->Dejar(this);
    }
    Vigia(const Vigia&) = delete;
    Vigia& operator=(const Vigia&) = delete;

    bool Activo() const { return dialogo_ != nullptr; }
    bool De(const Dialogo& dialogo) const { return dialogo_ == &dialogo; }

    void ControlCambiado(Control& control) override {
        // While the dialog is hidden or runs modally nobody sees it here.
        if (!dialogo_->Visible() || dialogo_->Modal() || !consola::Mostrado(control)) return;
        if (!Contiene<const Control>(pendientes_, &control)) pendientes_.push_back(&control);
    }

    void DialogoCambiado() override {
        if (dialogo_->Cargado()) return;
        Vaciar(true);
        out_ << "Se cerró «" << dialogo_->Caption() << "».\n";
        dialogo_->Dejar(this);
        dialogo_ = nullptr;
    }

    void Vaciar(bool alCerrar = false) {
        if (pendientes_.empty()) return;
        const std::optional<int> decimo = Decimo();
        if (!alCerrar && decimo && decimo_ && *decimo <= *decimo_) return;
        if (decimo) decimo_ = std::max(decimo_.value_or(0), *decimo);
        std::string linea;
        for (const Control* control : pendientes_) {
            if (!linea.empty()) linea += " | ";
            linea += control->Nombre() + ": " + consola::Valor(*control);
        }
        out_ << linea << '\n';
        pendientes_.clear();
    }

private:
    // The tenth the dialog's first bar in sight has reached; none without one.
    std::optional<int> Decimo() const {
        for (const auto& control : dialogo_->Controles()) {
            const auto* barra = dynamic_cast<const forms::ProgressBar*>(control.get());
            if (barra != nullptr && consola::Mostrado(*barra)) return consola::Porcentaje(*barra) / 10;
        }
        return std::nullopt;
    }

    std::ostream& out_;
    Dialogo* dialogo_;
    std::vector<const Control*> pendientes_;
    // The highest tenth printed so far.
    std::optional<int> decimo_;
};

RenderizadorConsola::RenderizadorConsola(Lector leer, std::ostream& out) : leer_(std::move(leer)), out_(out) {}

RenderizadorConsola::~RenderizadorConsola() = default;

void RenderizadorConsola::Modal(Dialogo& dialogo) {
    Vaciar();
    ++modales_;
    Sesion sesion(*this, dialogo);
    sesion.Correr();
}

void RenderizadorConsola::Ventana(Dialogo& dialogo) {
    Vaciar();
    consola::DibujarDialogo(dialogo, out_);
    const bool vigilado = std::any_of(vigias_.begin(), vigias_.end(),
                                      [&](const auto& vigia) { return vigia->Activo() && vigia->De(dialogo); });
    if (!vigilado) vigias_.push_back(std::make_unique<Vigia>(out_, dialogo));
}

void RenderizadorConsola::Vaciar() {
    for (const auto& vigia : vigias_) vigia->Vaciar();
    std::erase_if(vigias_, [](const auto& vigia) { return !vigia->Activo(); });
}

}  // namespace celdora::platform

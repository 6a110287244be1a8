#pragma once

// Draws any dialog model on a terminal and lets a person, or a script that
// pipes its lines in, act on it.
//
// A dialog shown modally is printed whole (its caption, then every control a
// person sees, in declaration order and under its frame or tab page), and
// then one order is read per line until the dialog is hidden or unloaded.
// After each order the controls that changed are printed again; the whole
// dialog is printed again when a frame or a page changed, when the caption
// changed, or when another dialog was shown meanwhile. Message boxes that a
// handler raises read their answers from the same input, so a script gives
// them in sequence. The end of the input closes the dialog as the window's X
// would. The orders and their aliases are in OrdenesConsola (printed by
// "ayuda"). A fault that a handler leaves unhandled ends the showing and
// travels on to the caller, as it would end the program on the platform.
//
// A dialog shown without waiting (a progress window) is printed once; then
// the controls that change are printed on one line when the message loop
// turns ("lblcmd: Leyendo | pb: [=====     ] 50% (50 en 0..100)"), until the
// dialog is unloaded. Where it has a progress bar, only when the bar reaches
// a tenth it had not reached, and once more at the close: at most a dozen
// lines for a job of any length.

#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/Dialogo.h"

namespace celdora::platform {

class RenderizadorConsola {
public:
    // leer: the next line of input, nothing at its end; the same reader the
    // message boxes use.
    using Lector = std::function<std::optional<std::string>()>;

    RenderizadorConsola(Lector leer, std::ostream& out);
    ~RenderizadorConsola();
    RenderizadorConsola(const RenderizadorConsola&) = delete;
    RenderizadorConsola& operator=(const RenderizadorConsola&) = delete;

    // Runs a modal dialog until it is hidden or unloaded.
    void Modal(forms::Dialogo& dialogo);
    // Prints a dialog shown without waiting and watches it until it unloads.
    void Ventana(forms::Dialogo& dialogo);
    // Prints what changed on the dialogs shown without waiting, as far as
    // their bars allow.
    void Vaciar();

private:
    class Sesion;
    class Vigia;

    Lector leer_;
    std::ostream& out_;
    // Modal showings so far: a session that sees it grow during an order
    // knows that another dialog covered its own.
    int modales_ = 0;
    // The dialog whose closing was the last thing printed, if any.
    const forms::Dialogo* cerrado_ = nullptr;
    std::vector<std::unique_ptr<Vigia>> vigias_;
};

}  // namespace celdora::platform

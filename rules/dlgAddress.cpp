#include "rules/dlgAddress.h"

#include "core/Mensajes.h"
#include "value/Text.h"

namespace celdora {

dlgAddress::dlgAddress() : Dialogo("dlgAddress", "Dirección de correo del destinatario.") {
    btnOK.Default(true);
    btnOK.Click = [this] { Aceptar(); };
    btnCancel.Cancel(true);
    btnCancel.Click = [this] { CancelarEnvio(); };
}

void dlgAddress::Form_Load() { Text.Text(""); }

void dlgAddress::load(const std::string& text) { Text.Text(text); }

std::string dlgAddress::getAddress() const { return Text.Text(); }

void dlgAddress::Aceptar() {
    if (Trim(Text.Text()).empty()) {
        core::Caja("Por favor ingrese una dirección de correo.", host::Icono::Informacion);
        return;
    }
    // One "@" anywhere passes, however many addresses the text holds.
    if (Text.Text().find('@') == std::string::npos) {
        core::Caja("Dirección de correo invalida.", host::Icono::Informacion);
        return;
    }
    Aceptado = true;
    Hide();
}

void dlgAddress::CancelarEnvio() {
    if (!core::Pregunta("¿Está seguro que desea cancelar el envío?")) return;
    Aceptado = false;
    Hide();
}

}  // namespace celdora

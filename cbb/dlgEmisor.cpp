#include "cbb/dlgEmisor.h"

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "value/Channels.h"
#include "value/Text.h"

namespace celdora {

using host::Icono;

dlgEmisor::dlgEmisor() : Dialogo("dlgEmisor", "Datos del Emisor") {
    marco_.paginas = &TabControl;
    emisor.Colocar("TabControl", 0);
    btnOK.Default(true);
    btnCancel.Cancel(true);
    btnOK.Click = [this] { btnOK_Click(); };
    btnCancel.Click = [this] { btnCancel_Click(); };
}

void dlgEmisor::SetDataObjects(cAcction& acc) { marco_.oAcc = &acc; }

void dlgEmisor::Form_Load() {
    ResumeNext([&] {
        const cAcction& acc = marco_.Fachada();
        emisor.eDir.conectar(acc.eCat ? acc.eCat->nvlands() : nullptr);
    });
    ResumeNext([&] { emisor.cargarEmisor(configuracion::PaginaEmisor::Encabezado::SinNotasNiTitulo); });
}

// Only the RFC's length is tested, not its characters; blanks at its ends
// do not count.
void dlgEmisor::btnOK_Click() {
    const std::string nombre = Trim(emisor.txtNombreEmisor.Text());
    const std::string rfc = Trim(emisor.txtRFCEmisor.Text());
    if (nombre.empty()) {
        core::Caja("Falta el nombre del emisor", Icono::Informacion);
        return;
    }
    if (rfc.empty()) {
        core::Caja("Falta el RFC del emisor", Icono::Informacion);
        return;
    }
    if (Len(rfc) < 12 || Len(rfc) > 13) {
        core::Caja("RFC incorrecto. Mínimo 12 caracteres y máximo 13.", Icono::Informacion);
        return;
    }
    if (!guardarEmisor()) return;
    Aceptado = true;
    Hide();
}

// The postal code is stored as it was typed, and the first fault ends the
// save with a box of this dialog's own.
bool dlgEmisor::guardarEmisor() {
    bool result = false;
    auto fault = Trap([&] {
        result = emisor.guardarDomicilioFiscal(configuracion::CodigoPostal::TalCual,
                                               configuracion::Errores::AlLlamador);
    });
    if (fault) {
        core::Caja(ErrorTextIn(*fault, "save of Formulario dlgEmisor"), Icono::Exclamacion);
        result = false;
    }
    return result;
}

void dlgEmisor::btnCancel_Click() {
    Aceptado = false;
    Hide();
}

}  // namespace celdora

#include "cbb/dlgRangoFoliosCBB.h"

#include "cbb/dlgEmisor.h"
#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "value/Channels.h"

namespace celdora {

dlgRangoFoliosCBB::dlgRangoFoliosCBB() : Dialogo("dlgRangoFoliosCBB", "Comprobantes con CBB") {
    btnCancel.Cancel(true);
    btnEmisor.Click = [this] { btnEmisor_Click(); };
    btnImpresion.Click = [this] { btnImpresion_Click(); };
    btnCancel.Click = [this] { btnCancel_Click(); };
}

void dlgRangoFoliosCBB::SetDataObjects(cAcction& acc) { oAcc = &acc; }

cAcction& dlgRangoFoliosCBB::Fachada() const {
    if (oAcc == nullptr) throw ObjectNotSet();
    return *oAcc;
}

// The issuer's data are offered only to a company on CBB.
void dlgRangoFoliosCBB::Form_Load() {
    ResumeNext([&] {
        if (Fachada().TipoComprobanteAGenerar() != cCBB) btnEmisor.Visible(false);
    });
    ResumeNext([&] { lista.cargarLista(); });
}

// What the issuer's dialog answers is not looked at.
void dlgRangoFoliosCBB::btnEmisor_Click() {
    ResumeNext([&] {
        dlgEmisor dialogo;
        dialogo.SetDataObjects(Fachada());
        dialogo.ShowModal();
        dialogo.Unload();
    });
}

void dlgRangoFoliosCBB::btnImpresion_Click() {
    ResumeNext([&] { Fachada().ConfigurarRepresentacionImpresaCBB(); });
}

// The reminder comes whether anything changed or not.
void dlgRangoFoliosCBB::btnCancel_Click() {
    core::Caja("Favor de reiniciar la conexión del sistema después de realizar algún cambio.",
               host::Icono::Informacion);
    Hide();
}

void cAcction::RangoFoliosCBB() {
    ResumeNext([&] {
        dlgRangoFoliosCBB dialogo;
        dialogo.SetDataObjects(*this);
        dialogo.ShowModal();
        dialogo.Unload();
    });
}

}  // namespace celdora

#include "settings/dlgMainConfig.h"

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "settings/dlgLocal.h"
#include "value/Channels.h"
#include "value/Fault.h"

namespace celdora {

dlgMainConfig::dlgMainConfig() : Dialogo("dlgMainConfig", "Configuración de Facturación  Electrónica") {
    // The three members open their dialogs with no trap of their own here.
    btnConfig1.Click = [this] { Fachada().Configuracion(); };
    btnImpresiones.Click = [this] { Fachada().ConfigurarRepresentacionImpresa(); };
    btnLocal.Click = [this] { btnLocal_Click(); };
    btnAsistenteConfig.Click = [this] { Fachada().AsistenteConfiguracion(); };
    btnConfig1.Dibujo(forms::CommandButton::Imagen::Configuracion);
    btnImpresiones.Dibujo(forms::CommandButton::Imagen::Documento);
    btnLocal.Dibujo(forms::CommandButton::Imagen::Equipo);
    btnAsistenteConfig.Dibujo(forms::CommandButton::Imagen::Asistente);
    btnCerrar.Cancel(true);
    btnCerrar.Click = [this] { btnCerrar_Click(); };
}

cAcction& dlgMainConfig::Fachada() const {
    if (oAcc == nullptr) throw ObjectNotSet();
    return *oAcc;
}

// The label is set here only: a kind changed through a button shows when the
// panel opens again. Another value leaves the label as it was.
void dlgMainConfig::Form_Load() {
    ResumeNext([&] {
        switch (Fachada().TipoComprobanteAGenerar()) {
            case cCFD: lblTipoC.Caption("CFD"); break;
            case cCFDI: lblTipoC.Caption("CFDI"); break;
            case cCBB: lblTipoC.Caption("CBB"); break;
            case cCFDI_CBB: lblTipoC.Caption("CFDI/CBB"); break;
            case cPapel: lblTipoC.Caption("Papel simple"); break;
            default: break;
        }
    });
}

void dlgMainConfig::Form_Unload() { oAcc = nullptr; }

void dlgMainConfig::btnLocal_Click() {
    ResumeNext([&] {
        dlgLocal local;
        local.oAcc = &Fachada();
        local.ShowModal();
    });
}

// Whether or not anything changed.
void dlgMainConfig::btnCerrar_Click() {
    core::Caja("Por favor reinicie la conexión después de realizar algún cambio.", host::Icono::Informacion);
    Unload();
}

void cAcction::ConfiguracionPrincipal() {
    dlgMainConfig panel;
    panel.oAcc = this;
    panel.ShowModal();
}

}  // namespace celdora

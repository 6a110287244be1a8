#include "rules/dlgFormaFacturacionHordana.h"

#include "core/Mensajes.h"
#include "host/Platform.h"
#include "value/Text.h"

namespace celdora {

dlgFormaFacturacionHordana::dlgFormaFacturacionHordana()
    : Dialogo("dlgFormaFacturacionHordana", "Opciones de generación del comprobante") {
    // The detailed form is the one on when the dialog opens, so the summary's
    // texts start disabled.
    HabilitarConceptos();
    optDetallado.Click = [this] { HabilitarConceptos(); };
    optResumido.Click = [this] { HabilitarConceptos(); };
    btnAceptar.Default(true);
    btnAceptar.Click = [this] { Aceptar(); };
}

void dlgFormaFacturacionHordana::Form_Load() {
    auto& ui = host::CurrentPlatform().Ui();
    punteroAnterior_ = ui.MousePointerActual();
    ui.MousePointer(host::Puntero::Normal);
}

void dlgFormaFacturacionHordana::Form_Unload() { host::CurrentPlatform().Ui().MousePointer(punteroAnterior_); }

void dlgFormaFacturacionHordana::HabilitarConceptos() {
    txtConcepto.Enabled(optResumido.Value());
    txtOtro.Enabled(optResumido.Value());
}

void dlgFormaFacturacionHordana::Aceptar() {
    // Both texts are demanded whichever form is chosen.
    if (Trim(txtConcepto.Text()).empty()) {
        core::Caja("Escriba la descripción del concepto a facturar.", host::Icono::Informacion);
        txtConcepto.SetFocus();
        return;
    }
    if (Trim(txtOtro.Text()).empty()) {
        core::Caja("Escriba la descripción del concepto sin impuestos a facturar.", host::Icono::Informacion);
        txtOtro.SetFocus();
        return;
    }
    Aceptado = true;
    Hide();
}

}  // namespace celdora

#include "printformats/dlgImpresion.h"

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "value/Channels.h"
#include "value/Text.h"

namespace celdora {

dlgImpresion::dlgImpresion(const impresion::VarianteImpresion& variante)
    : Dialogo(variante.clase, variante.caption),
      variante_(variante),
      controles_{cmbTipo,
                 cmbFormato,
                 chkUsarVisor,
                 archivos.Rutas(),
                 cmbImpresion,
                 nullptr} {
    if (variante.correo) {
        cmbMail = &Agregar<forms::ComboBox>("cmbMail", forms::ComboBox::Estilo::SoloLista, "Envío por e-Mail:");
        controles_.cmbMail = cmbMail;
    }
    for (forms::Control* control :
         std::initializer_list<forms::Control*>{&lblTipo, &cmbTipo, &lblFormato, &cmbFormato, &chkUsarVisor,
                                                &lblArchivos}) {
        control->Colocar(tabOpciones.Nombre(), 0);
    }
    archivos.Colocar(tabOpciones.Nombre(), 0);
    lblAcciones.Colocar(tabOpciones.Nombre(), 1);
    cmbImpresion.Colocar(tabOpciones.Nombre(), 1);
    if (cmbMail != nullptr) cmbMail->Colocar(tabOpciones.Nombre(), 1);
    btnAceptar.Default(true);
    btnCancelar.Cancel(true);

    cmbTipo.Click = [this] { impresion::CambioDeTipo(controles_); };
    cmbFormato.Click = [this] { cambioDeFormato(); };
    tabOpciones.Click = [this] { cambioDeFormato(); };
    impresion::ConectarExaminar(
        controles_, archivos.Botones(),
        [this](forms::TextBox& campo) { examinar(campo); });
    btnAceptar.Click = [this] { btnAceptar_Click(); };
    btnCancelar.Click = [this] { btnCancelar_Click(); };
}

void dlgImpresion::Form_Load() {
    std::int32_t tipoComprobante = 0;
    if (oAcc != nullptr) ResumeNext([&] { tipoComprobante = oAcc->TipoComprobanteAGenerar(); });
    impresion::LlenarListas(controles_, variante_, tipoComprobante);
    ResumeNext([&] { impresion::CargarValores(controles_, Deref(GlobalVar), variante_); });
}

void dlgImpresion::Form_Unload() { oAcc = nullptr; }

void dlgImpresion::cambioDeFormato() {
    ResumeNext([&] { impresion::CambioDeFormato(controles_, Deref(GlobalVar), variante_.prefijo); });
}

void dlgImpresion::examinar(forms::TextBox& campo) {
    impresion::Examinar(dlgArchivo, campo, rutaInicial, [this]() -> std::optional<std::string> {
        return impresion::FiltroDeTipo(impresion::DatoSeleccionado(cmbTipo), variante_);
    });
}

void dlgImpresion::btnAceptar_Click() {
    if (Trim(archivos.txtArchivo.Text()).empty()) {
        core::Caja(
            "Seleccione la ubicación del archivo que se usará como plantilla para generar la vista de impresión de "
            "factura.",
            host::Icono::Informacion, variante_.tituloRuta);
        return;
    }
    ResumeNext([&] { impresion::GuardarValores(controles_, Deref(GlobalVar), variante_); });
    Aceptado = true;
    Hide();
}

void dlgImpresion::btnCancelar_Click() {
    Aceptado = false;
    Hide();
}

}  // namespace celdora

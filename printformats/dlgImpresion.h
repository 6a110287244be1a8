#pragma once

// The print format dialog: for each of six document kinds the file that
// produces its printed form, the output format, and what happens after a
// comprobante is generated. Everything it keeps is a company setting. The
// same model serves comprobantes with CBB (dlgImpresionCBB), given the CBB
// family of keys as its variant.

#include <memory>
#include <string>
#include <vector>

#include "forms/Controles.h"
#include "forms/Dialogo.h"
#include "host/Settings.h"
#include "printformats/ArchivosFormato.h"
#include "printformats/FormatoImpresion.h"

namespace celdora {

class cAcction;

class dlgImpresion : public forms::Dialogo {
public:
    explicit dlgImpresion(const impresion::VarianteImpresion& variante = impresion::kImpresionCFD);

    // State given by the opener. oAcc tells the comprobante kind, and only
    // the CFD family asks for it.
    std::shared_ptr<host::GlobalVar> GlobalVar;
    std::string rutaInicial;
    cAcction* oAcc = nullptr;

    forms::TabControl& tabOpciones =
        Agregar<forms::TabControl>("tabOpciones", std::vector<std::string>{"General", "Acciones"});
    forms::Label& lblTipo = Agregar<forms::Label>(
        "lblTipo", "Seleccione el tipo de archivo que se creará para impresión del comprobante.");
    forms::ComboBox& cmbTipo = Agregar<forms::ComboBox>("cmbTipo", forms::ComboBox::Estilo::SoloLista, "Tipo:");
    forms::Label& lblFormato =
        Agregar<forms::Label>("lblFormato", "Seleccione el formato de salida del documento para impresión:");
    forms::ComboBox& cmbFormato =
        Agregar<forms::ComboBox>("cmbFormato", forms::ComboBox::Estilo::SoloLista, "Formato:");
    forms::CheckBox& chkUsarVisor =
        Agregar<forms::CheckBox>("chkUsarVisor", "Usar aplicación predeterminada para abrir el formato");
    forms::Label& lblArchivos =
        Agregar<forms::Label>("lblArchivos", "Seleccione el formato para la versión impresa del comprobante:");
    impresion::ArchivosFormato archivos{*this};
    forms::Label& lblAcciones =
        Agregar<forms::Label>("lblAcciones", "Seleccione el proceso a realizar después de generar el comprobante:");
    forms::ComboBox& cmbImpresion =
        Agregar<forms::ComboBox>("cmbImpresion", forms::ComboBox::Estilo::SoloLista, "Imprimir:");
    // Only the CFD family mails its comprobantes.
    forms::ComboBox* cmbMail = nullptr;
    forms::CommandButton& btnAceptar = Agregar<forms::CommandButton>("btnAceptar", "&Aceptar");
    forms::CommandButton& btnCancelar = Agregar<forms::CommandButton>("btnCancelar", "&Cancelar");
    forms::CommonDialog& dlgArchivo = Agregar<forms::CommonDialog>("dlgArchivo");

    const impresion::VarianteImpresion& Variante() const { return variante_; }

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void cambioDeFormato();
    // Asks for a file of the selected type and puts it in the field, which
    // keeps its text when the user cancels.
    void examinar(forms::TextBox& campo);
    void btnAceptar_Click();
    void btnCancelar_Click();

    const impresion::VarianteImpresion& variante_;
    impresion::ControlesImpresion controles_;
};

}  // namespace celdora

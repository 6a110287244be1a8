#pragma once

// The page of a few options of the XML: the <Complemento> element, the
// decimals of precision, the print format file (kept hidden on purpose,
// though loaded and saved), display-only locations and tax names, and the
// door to the advanced options. Only the main configuration dialog shows it.

#include <cstdint>
#include <string>

#include "configdialog/Marco.h"
#include "forms/Controles.h"
#include "forms/Unidad.h"

namespace celdora::configuracion {

class PaginaAdicionales : public forms::Unidad {
public:
    PaginaAdicionales(forms::Dialogo& dialogo, Marco& marco);

    forms::Frame& fraElementos = Agregar<forms::Frame>("fraElementos", "Elementos adicionales para generación de XML");
    forms::CheckBox& chkComplemento = Agregar<forms::CheckBox>("chkComplemento", "Incluir elemento <Complemento>");
    forms::TextBox& txtUbicacionComplemento = Agregar<forms::TextBox>(
        "txtUbicacionComplemento", "Ubicación de script:", "$AppResource$\\CFD\\Complemento\\complemento.js");
    forms::TextBox& txtUbicacionAddendas = Agregar<forms::TextBox>("txtUbicacionAddendas", "Ubicación de Addendas:");
    forms::TextBox& txtUbicacionCConcepto = Agregar<forms::TextBox>(
        "txtUbicacionCConcepto", "Ubicación de complementos para cada concepto de facturación:");
    forms::Frame& fraCadena = Agregar<forms::Frame>("fraCadena", "Generación de cadena original");
    forms::TextBox& txtXslt =
        Agregar<forms::TextBox>("txtXslt", "Ubicación de archivo para generación de cadena original (*.xslt)");
    forms::Label& lblFormato = Agregar<forms::Label>("Label(1)", "Formato de impresión");
    forms::TextBox& txtFormatoImpresion =
        Agregar<forms::TextBox>("txtFormatoImpresion", "Formato para impresión de factura electrónica");
    forms::Label& Labelnota = Agregar<forms::Label>(
        "Labelnota",
        "NOTA: Formato de impresion debe permanecer oculto. La ubicacion del xslt depente del tipo de cfd que este "
        "configurado y cambia siempre al cargar el formulario. El texto actual es únicamente informativo.");
    forms::Label& lblDecimales =
        Agregar<forms::Label>("lblDecimales", "Decimales de precisión para la formación del XML");
    forms::NumberField& eNumDecimales = Agregar<forms::NumberField>("eNumDecimales", "Redondear a:");
    forms::Frame& fraImpuestos = Agregar<forms::Frame>("fraImpuestos", "Configuración de impuestos");
    forms::Label& lblImpuestos =
        Agregar<forms::Label>("lblImpuestos", "Se usará la siguiente configuración para tipos de impuestos.");
    forms::TextBox& txtImpuesto0 = Agregar<forms::TextBox>("txtImpuesto(0)", "Impuesto 1:", "IVA");
    forms::TextBox& txtImpuesto1 = Agregar<forms::TextBox>("txtImpuesto(1)", "Impuesto 2:", "-------------");
    forms::TextBox& txtImpuesto2 = Agregar<forms::TextBox>("txtImpuesto(2)", "Impuesto 3:", "IEPS");
    forms::TextBox& txtImpuesto3 = Agregar<forms::TextBox>("txtImpuesto(3)", "Impuesto 4:", "-------------");
    forms::CommandButton& btnCfg = Agregar<forms::CommandButton>("btnCfg", "Configuración Avanzada");
    forms::CommonDialog& dlgFormato = Agregar<forms::CommonDialog>("dlgFormato");

    // Places the page's frames and loose controls on a page of the dialog.
    void Colocar(const std::string& contenedor, int pagina);

    // What the form does when it loads: the display-only fields can't be
    // edited, the decimals field has no side button, and the location of
    // the original string's stylesheet follows the kind. That location is
    // never saved: it is made anew at each opening.
    void prepararCampos(std::int32_t tipoComprobante);
    // The print format, the <Complemento> element and the decimals from
    // their keys.
    void cargarAdicionales();
    // The print format field is kept out of sight with its label and note.
    void ocultarFormato();
    // The file picker behind the print format field.
    void seleccionarFormato();

private:
    void btnCfg_Click();

    Marco& marco_;
    // Off while code sets the print format field, so that its change
    // handling does not open the picker.
    bool vigilarFormato_ = true;
};

}  // namespace celdora::configuracion

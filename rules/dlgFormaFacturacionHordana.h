#pragma once

// The choice between a detailed comprobante and a summary one, with the
// units and texts of the summary's concepts.

#include "forms/Controles.h"
#include "forms/Dialogo.h"
#include "host/UiServices.h"

namespace celdora {

class dlgFormaFacturacionHordana : public forms::Dialogo {
public:
    dlgFormaFacturacionHordana();

    forms::Label& lblForma = Agregar<forms::Label>("lblForma", "Seleccione la forma de generación del comprobante:");
    forms::OptionButton& optDetallado =
        Agregar<forms::OptionButton>("optDetallado", "Comprobante detallado", true);
    forms::Label& lblDetallado =
        Agregar<forms::Label>("lblDetallado", "El comprobante se generará incluyendo la lista de productos.");
    forms::OptionButton& optResumido = Agregar<forms::OptionButton>("optResumido", "Comprobante resumido");
    forms::Label& lblResumido =
        Agregar<forms::Label>("lblResumido", "El comprobante se generará por el siguiente concepto:");
    forms::TextBox& txtUnidad1 = Agregar<forms::TextBox>("txtUnidad1", "Unidad:", "CONSUMO");
    forms::TextBox& txtConcepto = Agregar<forms::TextBox>("txtConcepto", "Descripción", "CONSUMO DE ALIMENTOS");
    forms::Label& lblOtro = Agregar<forms::Label>(
        "lblOtro",
        "Si existen productos con importe de impuestos cero se generará un concepto adicional con la siguiente "
        "descripción:");
    forms::TextBox& txtUnidad2 = Agregar<forms::TextBox>("txtUnidad2", "Unidad:", "PZA");
    forms::TextBox& txtOtro = Agregar<forms::TextBox>("txtOtro", "Descripción", "OTROS CONCEPTOS SIN IVA");
    forms::CommandButton& btnAceptar = Agregar<forms::CommandButton>("btnAceptar", "&Aceptar");

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void HabilitarConceptos();
    void Aceptar();

    host::Puntero punteroAnterior_ = host::Puntero::Normal;
};

}  // namespace celdora

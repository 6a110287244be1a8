#pragma once

// The advanced options of the XML: it edits the four values it shares with
// the main configuration dialog and touches no key itself.

#include "forms/Controles.h"
#include "forms/Dialogo.h"

namespace celdora {

class cAcction;

class dlgConfigAvz : public forms::Dialogo {
public:
    dlgConfigAvz();

    cAcction* oAcc = nullptr;

    forms::CheckBox& chkConcatNotasPartida = Agregar<forms::CheckBox>(
        "chkConcatNotasPartida", "Concatenar notas de la partida en descripción del concepto del XML.");
    forms::TextBox& ctrlCadenaUnion = Agregar<forms::TextBox>("ctrlCadenaUnion", "Cadena de unión:");
    forms::CheckBox& chkAddendaTiendaroC = Agregar<forms::CheckBox>(
        "chkAddendaTiendaroC", "Incluir Addenda de Tiendaron si el cliente no tiene asignada una.");
    forms::CheckBox& chkSerieLote = Agregar<forms::CheckBox>(
        "chkSerieLote", "Incluir información de series y lotes en el nodo <Parte> del concepto.");
    forms::CommandButton& btnOK = Agregar<forms::CommandButton>("btnOK", "&Aceptar");
    forms::CommandButton& btnCancel = Agregar<forms::CommandButton>("btnCancel", "&Cancelar");

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void btnOK_Click();
};

}  // namespace celdora

#pragma once

// The list of CBB folio ranges, the gate to their editor, to the CBB print
// formats and, for a company on CBB, to the issuer's data.

#include "cbb/ListaFoliosCBB.h"
#include "forms/Controles.h"
#include "forms/Dialogo.h"

namespace celdora {

class cAcction;

class dlgRangoFoliosCBB : public forms::Dialogo {
public:
    dlgRangoFoliosCBB();

    // Keeps the facade; the form fills the list when it loads.
    void SetDataObjects(cAcction& acc);

    cAcction* oAcc = nullptr;

    forms::Label& Label1 = Agregar<forms::Label>(
        "Label1", "Rango de folios fiscales para comprobantes con Código de Barras Bidimensional");
    cbb::ListaFoliosCBB lista{*this, oAcc, "btnAddCer", "btnEditCer", "btnDelCer"};
    forms::ListView& lvwFoliosCBB = lista.lvwFoliosCBB;
    forms::CommandButton& btnAddCer = lista.btnAgregar;
    forms::CommandButton& btnEditCer = lista.btnEditar;
    forms::CommandButton& btnDelCer = lista.btnEliminar;
    forms::CommandButton& btnEmisor = Agregar<forms::CommandButton>("btnEmisor", "Datos del Emisor");
    forms::CommandButton& btnImpresion = Agregar<forms::CommandButton>("btnImpresion", "Representación impresa");
    forms::CommandButton& btnCancel = Agregar<forms::CommandButton>("btnCancel", "&Cerrar");

protected:
    void Form_Load() override;

private:
    void btnEmisor_Click();
    void btnImpresion_Click();
    void btnCancel_Click();
    cAcction& Fachada() const;
};

}  // namespace celdora

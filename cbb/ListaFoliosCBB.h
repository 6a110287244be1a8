#pragma once

// The list of CBB folio ranges with the buttons that add, edit and delete
// one through the facade's range commands. The range list dialog and the
// setup wizard's page of CBB ranges compose it, each with its own names for
// the three buttons.

#include <string>

#include "forms/Controles.h"
#include "forms/Unidad.h"

namespace celdora {

class cAcction;

namespace cbb {

class ListaFoliosCBB : public forms::Unidad {
public:
    // oAcc: the composing dialog's own reference to the facade, read when a
    // routine runs. agregar, editar, eliminar: the names of the buttons.
    ListaFoliosCBB(forms::Dialogo& dialogo, cAcction* const& oAcc, const std::string& agregar,
                   const std::string& editar, const std::string& eliminar);

    // An item's text is the approval number, its key "pk" and the range's
    // Sys_PK, its tag the Sys_PK.
    forms::ListView& lvwFoliosCBB = Agregar<forms::ListView>("lvwFoliosCBB");
    forms::CommandButton& btnAgregar;
    forms::CommandButton& btnEditar;
    forms::CommandButton& btnEliminar;

    // Places the list and the three buttons on that page.
    void Colocar(const std::string& contenedor, int pagina);

    // The ranges whose block still exists, as the database gives them. No
    // recordset leaves the list as it was; an error is told.
    void cargarLista();

private:
    void btnAgregar_Click();
    void btnEditar_Click();
    void btnEliminar_Click();
    cAcction& Fachada() const;

    cAcction* const& oAcc_;
};

}  // namespace cbb
}  // namespace celdora

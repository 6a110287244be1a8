#pragma once

// The seal certificates with, for the selected one, its approved folio ranges
// (a company on CFD) or the document blocks given to it (every other kind).
// The page edits nothing itself: each button calls a command of the facade,
// which opens its editor and commits at once, and then the page reloads its
// lists. The configuration dialog and the setup wizard both show it; they
// differ only in what decides which panel shows and what the check asks for.

#include <string>

#include "configdialog/Marco.h"
#include "forms/Controles.h"
#include "forms/Unidad.h"

namespace celdora::configuracion {

class PaginaGeneral : public forms::Unidad {
public:
    PaginaGeneral(forms::Dialogo& dialogo, Marco& marco);

    // Places the controls that stand on the page itself; those of the two
    // panels stay inside them.
    void Colocar(const std::string& contenedor, int pagina);

    // Fills lstCer and selects the first certificate, which loads its lists.
    void cargarCertificados();
    // The ranges or the blocks of the selected certificate, by the kind of
    // comprobante that the company issues.
    void cargarFoliosYBlocks();
    // The blocks panel takes the place of the folios panel.
    void superponerPaneles();
    // Shows the folios panel and hides the blocks panel, or the opposite.
    void mostrarPanel(bool folios);
    // A certificate first (its editor opens when there is none), then a range
    // when pideFolios (its editor opens too), then a block when pideBlocks.
    // One box, and false, at the first failure.
    bool validarCertificados(bool pideFolios, bool pideBlocks);

    // The buttons' handlers, wired here; the double click of lstCer edits as
    // btnEditCer does.
    void btnAddCer_Click();
    void btnEditCer_Click();
    void btnDelCer_Click();
    void btnAddF_Click();
    void btnEditF_Click();
    void btnDelF_Click();
    void btnEditarBlockCFDI_Click();

    forms::Label& Label1 = Agregar<forms::Label>("Label1", "Configuración de certificado para sello digital");
    forms::ListBox& lstCer = Agregar<forms::ListBox>("lstCer");
    forms::CommandButton& btnAddCer = Agregar<forms::CommandButton>("btnAddCer", "Agregar");
    forms::CommandButton& btnEditCer = Agregar<forms::CommandButton>("btnEditCer", "Editar");
    forms::CommandButton& btnDelCer = Agregar<forms::CommandButton>("btnDelCer", "Eliminar");
    forms::CheckBox& ChkCFDauto = Agregar<forms::CheckBox>(
        "ChkCFDauto", "Generar CFD/CFDI automáticamente después de guardar documento de venta");

    forms::Frame& picFoliosCFD = Agregar<forms::Frame>("picFoliosCFD");
    forms::Label& lblfolios = Agregar<forms::Label>("lblfolios", "Configuración de rangos de folios fiscales");
    forms::ListView& lvwFolio = Agregar<forms::ListView>("lvwFolio");
    forms::CommandButton& btnAddF = Agregar<forms::CommandButton>("btnAddF", "Agregar");
    forms::CommandButton& btnEditF = Agregar<forms::CommandButton>("btnEditF", "Editar");
    forms::CommandButton& btnDelF = Agregar<forms::CommandButton>("btnDelF", "Eliminar");

    forms::Frame& picBlockCFDI = Agregar<forms::Frame>("picBlockCFDI");
    forms::Label& lblBlocksCFDI = Agregar<forms::Label>("lblBlocksCFDI", "Blocks del certificado seleccionado:");
    forms::ListView& lvwBlockCFDI = Agregar<forms::ListView>("lvwBlockCFDI");
    forms::CommandButton& btnEditarBlockCFDI =
        Agregar<forms::CommandButton>("btnEditarBlockCFDI", "Editar lista de blocks");
    forms::Label& lblAyudaBlocks = Agregar<forms::Label>(
        "lblAyudaBlocks",
        "Utilice el botón \"Editar lista de blocks\" para seleccionar un block por cada tipo de documento con el "
        "cual desea generar un comprobante fiscal digital por internet (CFDI). Recuerde que no podrá seleccionar "
        "un block si éste se ha configurado previamente para CFD o para comprobantes con CBB.");

private:
    cAcction& Fachada() const;
    // A box saying that the list has nothing selected.
    static void sinSeleccion();

    Marco& marco;
};

}  // namespace celdora::configuracion

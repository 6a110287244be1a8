#pragma once

// The fiscal regimes of the issuer (table RegimenEmisor). Additions and
// removals stay in the lists until the dialog saves; then the removals run
// before the insertions. The configuration dialog and the setup wizard both
// show it, with their own captions.

#include <string>

#include "configdialog/Marco.h"
#include "forms/Controles.h"
#include "forms/Unidad.h"

namespace celdora::configuracion {

// The captions of the two labels, which differ between the dialogs.
struct RotulosRegimenes {
    const char* LabelReg;
    const char* LabelReg1;
};
inline constexpr RotulosRegimenes kRotulosConfiguracion{
    "Régimen fiscal del emisor:", "Agregue los regímenes fiscales en los que tribute:"};
inline constexpr RotulosRegimenes kRotulosAsistente{"Capture el o los regímenes fiscales en los que tribute:",
                                                    "Seleccione o escriba el nombre del régimen:"};

class PaginaRegimenes : public forms::Unidad {
public:
    PaginaRegimenes(forms::Dialogo& dialogo, Marco& marco, const RotulosRegimenes& rotulos = kRotulosConfiguracion);

    void Colocar(const std::string& contenedor, int pagina);

    // Fills both lists from the stored regimes. Its own trap: a box and false.
    bool cargarRegimenes();
    // The typed regime goes to lstRegimen as a new entry.
    void agregarRegimen();
    // Takes the selected entry out, noting its key for the save.
    void cmdQuitarRegimen_Click();
    // The save's two steps, in this order; each with its own trap.
    bool eliminarRegimenes();
    bool guardarRegimenes();
    // At least one regime: a box, page 1 and the focus on cmbRegimen.
    bool validarLista();

    forms::Label& LabelReg = Agregar<forms::Label>("LabelReg", kRotulosConfiguracion.LabelReg);
    forms::ComboBox& cmbRegimen = Agregar<forms::ComboBox>("cmbRegimen", forms::ComboBox::Estilo::Editable);
    forms::CommandButton& cmdAgregarRegimen = Agregar<forms::CommandButton>("cmdAgregarRegimen", "Agregar");
    forms::Label& LabelReg1 = Agregar<forms::Label>("LabelReg1", kRotulosConfiguracion.LabelReg1);
    // Item data: the row's Sys_PK, 0 for an entry not yet saved.
    forms::ListBox& lstRegimen = Agregar<forms::ListBox>("lstRegimen");
    forms::CommandButton& cmdQuitarRegimen = Agregar<forms::CommandButton>("cmdQuitarRegimen", "Quitar");

    // Sys_PKs of the stored regimes taken out of lstRegimen, in the order of
    // removal, joined by ";"; a new entry taken out brings a 0.
    std::string regimenesQuitados;

private:
    cAcction& Fachada() const;

    Marco& marco;
};

}  // namespace celdora::configuracion

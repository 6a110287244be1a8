#pragma once

// The browser of stored monthly reports: the reports of a year in a list,
// the content of the selected one in a grid with its totals, and what can be
// done with it: regenerate, delete, export to a text file, copy to the
// clipboard. Regenerating and deleting can be denied by the caller through
// the tags of their buttons; the buttons stay enabled and a press is then
// refused with a message.

#include <cstdint>
#include <string>

#include "forms/Controles.h"
#include "forms/Dialogo.h"

namespace celdora {

class cAcction;

class dlgExportarInforme : public forms::Dialogo {
public:
    dlgExportarInforme();

    // The facade the dialog works through; fills the years and selects the
    // present one, which loads its reports.
    void setObjects(cAcction& acc);

    forms::TabControl& tab;
    forms::Label& lblinforme;
    forms::ComboBox& cmbAnio;
    forms::ListView& lvw;
    forms::Label& lblcontenido;
    forms::Grid& dxGrid;
    forms::NumberField& eNumTotal;
    forms::NumberField& eNumIVA;
    forms::CommandButton& btnRegenerar;
    forms::CommandButton& btnEliminar;
    forms::CommandButton& btnExportar;
    forms::CommandButton& btnCopiar;
    forms::CommandButton& btnCerrar;

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void CargarAnios();
    void CargarInformes();
    static std::string NombreMes(int numero);
    void MostrarContenido(const std::string& clave);
    std::string ObtenerContenido(const std::string& clave);
    std::string SeleccionarCarpeta();

    void lvw_ItemClick(int indice);
    void btnRegenerar_Click();
    void btnEliminar_Click();
    void btnExportar_Click();
    void btnCopiar_Click();
    void btnCerrar_Click();

    // Whether a button's tag allows its action; a refusal is told with the
    // critical box of denied access.
    bool Permitido(const forms::CommandButton& boton);
    // The month of the selected report, from its list item.
    std::int16_t MesSeleccionado() const;

    cAcction& Fachada() const;

    cAcction* acc_ = nullptr;
};

}  // namespace celdora

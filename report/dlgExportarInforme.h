#pragma once

// The browser of stored monthly reports: the reports of a year in a list,
// the content of the selected one in a grid with its totals, and what can be
// done with it: regenerate, delete, export to a text file, copy to the
// clipboard. Regenerating and deleting can be denied by the caller through
// the tags of their buttons; the buttons stay enabled and a press is then
// refused with a message.

#include <cstdint>
#include <string>
#include <vector>

#include "forms/Controles.h"
#include "forms/Dialogo.h"
#include "report/LectorInforme.h"

namespace celdora {

class cAcction;

class dlgExportarInforme : public forms::Dialogo {
public:
    dlgExportarInforme();

    // The facade the dialog works through; fills the years and selects the
    // present one, which loads its reports.
    void setObjects(cAcction& acc);

    forms::TabControl& tab = Agregar<forms::TabControl>("tab", std::vector<std::string>{"General"});
    forms::Label& lblinforme =
        Agregar<forms::Label>("lblinforme", "Informes de comprobantes fiscales digitales emitidos.");
    forms::ComboBox& cmbAnio =
        Agregar<forms::ComboBox>("cmbAnio", forms::ComboBox::Estilo::SoloLista, "Mostrar informes del año:");
    forms::ListView& lvw = Agregar<forms::ListView>("lvw");
    forms::Label& lblcontenido = Agregar<forms::Label>("lblcontenido", "Contenido del informe");
    forms::Grid& dxGrid = Agregar<forms::Grid>("dxGrid", informe::ColumnasContenido());
    forms::NumberField& eNumTotal = Agregar<forms::NumberField>("eNumTotal", "Monto total:");
    forms::NumberField& eNumIVA = Agregar<forms::NumberField>("eNumIVA", "Total de IVA trasladado:");
    forms::CommandButton& btnRegenerar = Agregar<forms::CommandButton>("btnRegenerar", "Regenerar informe");
    forms::CommandButton& btnEliminar = Agregar<forms::CommandButton>("btnEliminar", "Eliminar informe");
    forms::CommandButton& btnExportar = Agregar<forms::CommandButton>("btnExportar", "Exportar a txt...");
    forms::CommandButton& btnCopiar = Agregar<forms::CommandButton>("btnCopiar", "Copiar al portapapeles");
    forms::CommandButton& btnCerrar = Agregar<forms::CommandButton>("btnCerrar", "&Cerrar");

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

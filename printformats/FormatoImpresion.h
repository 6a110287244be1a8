#pragma once

// The print format settings that the company keeps for its comprobantes: the
// keys CFDImp001 to CFDImp011 (and their CBB family, CBBImp) with the lists,
// paths and actions behind them. The print format dialogs and the wizard's
// print page show the same controls; the routines that fill them, read the
// keys into them and write them back live here once, and the differences
// between the two families are the data of a VarianteImpresion.

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "forms/Controles.h"
#include "host/Settings.h"

namespace celdora::impresion {

// What sets one family of print keys apart from the other.
struct VarianteImpresion {
    std::string clase;         // the dialog's class name
    std::string caption;       // the dialog's caption
    std::string prefijo;       // "CFDImp" or "CBBImp"
    bool tira = false;         // the strip is offered to a company on CFD
    bool correo = false;       // the mail action and its key 005
    bool segundaClave = false;  // the invoice format is also written to NVCA303x
    std::string tituloRuta;    // title of the box that asks for the invoice format
};

extern const VarianteImpresion kImpresionCFD;
extern const VarianteImpresion kImpresionCBB;

// The six path fields of a form, in the order the form reads them, with the
// number of their key and what the wizard offers when a key has no value.
struct RutaFormato {
    int clave;             // 2 for CFDImp002 ...
    bool cuentasPorCobrar;  // the receivables folder, else the sales one
    const char* base;      // the start of the default file name
};
inline constexpr std::array<RutaFormato, 6> kRutas{{
    {2, false, "Factura "},
    {6, false, "Nota de credito "},
    {7, true, "Nota de credito cxc "},
    {8, true, "Nota de cargo "},
    {10, true, "Factura parcialidad "},
    {11, true, "Factura anticipo "},
}};

// The repository folder without one closing backslash: where the file
// picker opens.
std::string RutaInicial(const std::string& repositorio);

// The name of a key of the family: Clave("CFDImp", 2) is "CFDImp002".
std::string Clave(const std::string& prefijo, int numero);

// The default path of one of the six format files for a comprobante kind
// and a type of file: below the repository folder, "Reports\Ventas\" or
// "Reports\Cuentas por cobrar\", the kind's word and a separator, then the
// name nombreFormato gives. Empty when nombreFormato gives no name (the
// strip has no default).
std::string RutaPredeterminada(const std::string& rutaInicial, const RutaFormato& ruta, std::int32_t tipoComprobante,
                               double tipoFormato);

// The controls of a print form, wherever they stand. cmbMail is null in the
// CBB family.
struct ControlesImpresion {
    forms::ComboBox& cmbTipo;
    forms::ComboBox& cmbFormato;
    forms::CheckBox& chkUsarVisor;
    std::array<forms::TextBox*, 6> rutas;  // in the order of kRutas
    forms::ComboBox& cmbImpresion;
    forms::ComboBox* cmbMail;
};

// Fills the type list for the comprobante kind (the strip only for CFD
// when the family offers it) and the action lists, selecting the first
// type, the first printing entry and "No enviar".
void LlenarListas(ControlesImpresion& c, const VarianteImpresion& variante, std::int32_t tipoComprobante);

// The change of type: the formats of the new type with the first selected,
// and the six paths emptied.
void CambioDeTipo(ControlesImpresion& c);

// The change of format (and of tab): the viewer option is offered only for
// "pdf", with the stored value.
void CambioDeFormato(ControlesImpresion& c, host::GlobalVar& globalVar, const std::string& prefijo);

// Reads every key of the family first and then selects and fills, since
// selecting a type empties the paths. omision gives each path key's default
// from the type read; without it the paths default to empty, as in the
// dialogs (the wizard gives its default names).
using OmisionDeRuta = std::function<std::string(const RutaFormato& ruta, double tipoFormato)>;
void CargarValores(ControlesImpresion& c, host::GlobalVar& globalVar, const VarianteImpresion& variante,
                   const OmisionDeRuta& omision = {});

// The filter of the file picker for a type of file.
std::string FiltroDeTipo(std::int32_t tipo, const VarianteImpresion& variante);

// Asks for a file and puts it in the field, which keeps its text when the
// user cancels. filtro gives the picker's filter; nullopt keeps the one it
// had last.
using FiltroDelSelector = std::function<std::optional<std::string>()>;
void Examinar(forms::CommonDialog& dlgArchivo, forms::TextBox& campo, const std::string& rutaInicial,
              const FiltroDelSelector& filtro);

// Each browse button, and a click on its field while the field is empty,
// run examinar on the field of its row.
void ConectarExaminar(ControlesImpresion& c, const std::array<forms::CommandButton*, 6>& botones,
                      const std::function<void(forms::TextBox&)>& examinar);

// Writes the family's keys in their order from the controls.
void GuardarValores(ControlesImpresion& c, host::GlobalVar& gv, const VarianteImpresion& variante);

// The item data of a list's selected entry; a fault when none is selected.
std::int32_t DatoSeleccionado(const forms::ListaBase& lista);

}  // namespace celdora::impresion

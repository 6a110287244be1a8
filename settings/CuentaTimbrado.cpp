#include "settings/CuentaTimbrado.h"

#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "value/Channels.h"
#include "value/Convert.h"
#include "value/Text.h"

namespace celdora::cuenta {

namespace {

void Guardar(cAcction& acc, const std::string& clave, const std::string& valor) {
    mdlMain::ConfigLocal().GuardarValor(acc.ApplicationName, "Config", clave, valor);
}

}  // namespace

// One component on each line of the file, lines ending in CR LF; a blank
// line is no entry, and an entry is taken as it stands.
void CargarComponentes(forms::ComboBox& cmbPAC, const std::string& repositorio) {
    std::string texto;
    ResumeNext([&] {
        auto& utilerias = mdlMain::Utilerias();
        texto = utilerias.LeerArchivoTexto(utilerias.AgregarDiagonal(utilerias.AgregarDiagonal(repositorio) + "CFDI") +
                                           "PAC.inf");
    });
    if (!texto.empty()) {
        for (const std::string& linea : SplitText(texto, "\r\n")) {
            if (!Trim(linea).empty()) ResumeNext([&] { cmbPAC.AddItem(linea); });
        }
    }
    if (cmbPAC.ListCount() == 0) ResumeNext([&] { cmbPAC.AddItem(kComponentePorOmision); });
    ResumeNext([&] { cmbPAC.ListIndex(0); });
}

// A stored component that the list no longer has leaves the last entry
// selected, since the walk selects each entry on its way.
std::string LeerCuenta(ControlesCuenta& c, cAcction& acc) {
    ResumeNext([&] { c.chktimbrar.Value(CInt(Variant(acc.StrConfiguracionLocal("FE_Timbrar", "1")))); });
    const std::string componente = Trim(acc.StrConfiguracionLocal("Fe_Timbre001", ""));
    for (int i = 0; i < c.cmbPAC.ListCount(); ++i) {
        c.cmbPAC.ListIndex(i);
        if (Trim(c.cmbPAC.Text()) == componente) break;
    }
    ResumeNext([&] { c.txtUsuario.Text(acc.StrConfiguracionLocal("Fe_Timbre002", "")); });
    ResumeNext([&] { c.txtSucursal.Text(acc.StrConfiguracionLocal("Fe_Timbre003", "")); });
    const std::string clave = acc.StrConfiguracionLocal("Fe_Timbre004", "");
    ResumeNext([&] { c.txtPWD.Text(clave); });
    ResumeNext([&] { c.txtPWDRep.Text(clave); });
    return clave;
}

// The password box holds the stored digest until the user types another
// password; digesting it again would lose the account, so only a changed
// text is written.
void GuardarCuenta(ControlesCuenta& c, cAcction& acc, const std::string& claveGuardada) {
    Guardar(acc, "FE_Timbrar", std::to_string(c.chktimbrar.Value()));
    Guardar(acc, "FE_Timbre001", c.cmbPAC.Text());
    Guardar(acc, "FE_Timbre002", c.txtUsuario.Text());
    Guardar(acc, "FE_Timbre003", c.txtSucursal.Text());
    if (Trim(c.txtPWD.Text()) != claveGuardada) Guardar(acc, "FE_Timbre004", mdlMain::ObtenerMD5(c.txtPWD.Text()));
}

}  // namespace celdora::cuenta

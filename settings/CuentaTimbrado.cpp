#include "settings/CuentaTimbrado.h"

#include <initializer_list>

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

CuentaTimbrado::CuentaTimbrado(forms::Dialogo& dialogo, const std::string& nombreUsuario,
                               const std::string& rotuloUsuario)
    : Unidad(dialogo),
      chktimbrar(Agregar<forms::CheckBox>(
          "chktimbrar", "Crear timbre fiscal digital inmediatamente después de haber sido sellado por el emisor")),
      cmbPAC(Agregar<forms::ComboBox>("cmbPAC", forms::ComboBox::Estilo::SoloLista,
                                      "Componente de conexión con PAC (Proveedor Autorizado de Certificación)")),
      lblUsuario(rotuloUsuario.empty() ? nullptr : &Agregar<forms::Label>("lblUsuario", rotuloUsuario)),
      txtUsuario(Agregar<forms::TextBox>(nombreUsuario, "Usuario:")),
      txtSucursal(Agregar<forms::TextBox>("txtSucursal", "ID Sucursal:")),
      txtPWD(Agregar<forms::TextBox>("txtPWD", "Contraseña:")),
      txtPWDRep(Agregar<forms::TextBox>("txtPWDRep", "Repetir contraseña:")) {
    txtPWD.PasswordChar("*");
    txtPWDRep.PasswordChar("*");
}

void CuentaTimbrado::Colocar(const std::string& contenedor, int pagina) {
    for (forms::Control* c : std::initializer_list<forms::Control*>{&chktimbrar, &cmbPAC, lblUsuario, &txtUsuario,
                                                                    &txtSucursal, &txtPWD, &txtPWDRep}) {
        if (c != nullptr) c->Colocar(contenedor, pagina);
    }
}

// One component on each line of the file, lines ending in CR LF; a blank
// line is no entry, and an entry is taken as it stands.
void CuentaTimbrado::cargarComponentes(const std::string& repositorio) {
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
void CuentaTimbrado::leerCuenta(cAcction& acc) {
    ResumeNext([&] { chktimbrar.Value(CInt(Variant(acc.StrConfiguracionLocal("FE_Timbrar", "1")))); });
    const std::string componente = Trim(acc.StrConfiguracionLocal("Fe_Timbre001", ""));
    for (int i = 0; i < cmbPAC.ListCount(); ++i) {
        cmbPAC.ListIndex(i);
        if (Trim(cmbPAC.Text()) == componente) break;
    }
    ResumeNext([&] { txtUsuario.Text(acc.StrConfiguracionLocal("Fe_Timbre002", "")); });
    ResumeNext([&] { txtSucursal.Text(acc.StrConfiguracionLocal("Fe_Timbre003", "")); });
    claveGuardada = acc.StrConfiguracionLocal("Fe_Timbre004", "");
    ResumeNext([&] { txtPWD.Text(claveGuardada); });
    ResumeNext([&] { txtPWDRep.Text(claveGuardada); });
}

// The password box holds the stored digest until the user types another
// password; digesting it again would lose the account, so only a changed
// text is written.
void CuentaTimbrado::guardarCuenta(cAcction& acc) {
    Guardar(acc, "FE_Timbrar", std::to_string(chktimbrar.Value()));
    Guardar(acc, "FE_Timbre001", cmbPAC.Text());
    Guardar(acc, "FE_Timbre002", txtUsuario.Text());
    Guardar(acc, "FE_Timbre003", txtSucursal.Text());
    if (Trim(txtPWD.Text()) != claveGuardada) Guardar(acc, "FE_Timbre004", mdlMain::ObtenerMD5(txtPWD.Text()));
}

bool CuentaTimbrado::clavesCoinciden() const { return Trim(txtPWD.Text()) == Trim(txtPWDRep.Text()); }

}  // namespace celdora::cuenta

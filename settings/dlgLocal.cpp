#include "settings/dlgLocal.h"

#include <memory>

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "host/HostObjects.h"
#include "host/Platform.h"
#include "value/Channels.h"
#include "value/Text.h"

namespace celdora {

namespace {

// The dialogs are models with no window of their own to parent the picker.
constexpr long kSinVentana = 0;

}  // namespace

dlgLocal::dlgLocal() : Dialogo("dlgLocal", "Configuración local") {
    chkGuardarRespaldo.Colocar(fraCopia.Nombre());
    txtCopiaLocal.Colocar(fraCopia.Nombre());
    btnCopiaLocal.Colocar(fraCopia.Nombre());
    cuenta.Colocar(fraTimbre.Nombre());
    btnOK.Default(true);
    btnCancel.Cancel(true);

    chkGuardarRespaldo.Click = [this] {
        const bool marcado = chkGuardarRespaldo.Value() == 1;
        txtCopiaLocal.Enabled(marcado);
        if (!marcado) txtCopiaLocal.Text("");
    };
    btnCopiaLocal.Click = [this] { seleccionarCarpeta(); };
    txtCopiaLocal.Click = [this] {
        if (Trim(txtCopiaLocal.Text()).empty()) seleccionarCarpeta();
    };
    btnOK.Click = [this] { btnOK_Click(); };
    btnCancel.Click = [this] { Unload(); };
}

cAcction& dlgLocal::Fachada() const {
    if (oAcc == nullptr) throw ObjectNotSet();
    return *oAcc;
}

void dlgLocal::Form_Load() {
    ResumeNext([&] { txtCopiaLocal.Locked(true); });
    ResumeNext([&] { cuenta.cargarComponentes(Fachada().AppRepositoryPath); });
    ResumeNext([&] { cargarConfiguracion(); });
}

void dlgLocal::Form_Unload() { oAcc = nullptr; }

void dlgLocal::cargarConfiguracion() {
    std::string copia;
    ResumeNext([&] { copia = Fachada().StrConfiguracionLocal("FE_CopiaLocal", ""); });
    if (!Trim(copia).empty()) {
        ResumeNext([&] { txtCopiaLocal.Enabled(true); });
        ResumeNext([&] { txtCopiaLocal.Text(copia); });
        ResumeNext([&] { chkGuardarRespaldo.Value(1); });
    } else {
        ResumeNext([&] { txtCopiaLocal.Enabled(false); });
        ResumeNext([&] { txtCopiaLocal.Text(""); });
        ResumeNext([&] { chkGuardarRespaldo.Value(0); });
    }
    ResumeNext([&] { cuenta.leerCuenta(Fachada()); });
}

// A cancelled picker empties the field.
void dlgLocal::seleccionarCarpeta() { txtCopiaLocal.Text(pedirCarpeta("")); }

std::string dlgLocal::pedirCarpeta(const std::string& rutaInicial) {
    auto shell = host::Crear<host::Shell>(host::progid::ShellApplication);
    if (!shell) return "";
    auto carpeta = shell->BrowseForFolder(kSinVentana, "Carpetas", 0, Trim(rutaInicial).empty() ? "" : rutaInicial);
    if (!carpeta) return "";
    return carpeta->ItemsItemPath();
}

void dlgLocal::btnOK_Click() {
    if (!validarDatos()) return;
    if (!guardarConfiguracion()) return;
    Aceptado = true;
    Unload();
}

bool dlgLocal::validarDatos() {
    if (!cuenta.clavesCoinciden()) {
        core::Caja("Las contraseñas no coinciden verifique por favor", host::Icono::Informacion,
                   "Configuración local");
        return false;
    }
    return true;
}

bool dlgLocal::guardarConfiguracion() {
    auto fault = Trap([&] {
        cAcction& acc = Fachada();
        mdlMain::ConfigLocal().GuardarValor(acc.ApplicationName, "Config", "FE_CopiaLocal",
                                            chkGuardarRespaldo.Value() == 1 ? Trim(txtCopiaLocal.Text()) : "");
        cuenta.guardarCuenta(acc);
    });
    if (fault) {
        core::CajaDeFalla(*fault);
        return false;
    }
    return true;
}

}  // namespace celdora

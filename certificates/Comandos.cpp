// The facade's commands that open the certificate and folio range editors.
// They hold nothing but the key test: the dialogs write for themselves, and
// the caller learns the new key or whether the user confirmed. Errors are
// passed over, and a dialog that failed to open leaves the starting value.

#include "certificates/dlgRangoFolios.h"
#include "certificates/dlgcertificado.h"
#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "value/Channels.h"

namespace celdora {

namespace {

// Opens a new row's editor; its key when the user accepted, else 0.
template <class Editor>
std::int32_t Agregar(cAcction& acction) {
    std::int32_t result = 0;
    EndOnError([&] {
        Editor dialogo;
        dialogo.setObjects(acction);
        dialogo.ShowModal();
        if (dialogo.Aceptado) result = dialogo.Sys_PK();
        dialogo.Unload();
    });
    return result;
}

template <class Editor>
bool Modificar(cAcction& acction, std::int32_t clave) {
    bool result = false;
    EndOnError([&] {
        if (clave < 1) {
            core::Caja("Clave incorrecta.", host::Icono::Exclamacion);
            return;
        }
        Editor dialogo;
        dialogo.setObjects(acction);
        dialogo.load(clave);
        dialogo.ShowModal();
        result = dialogo.Aceptado;
        dialogo.Unload();
    });
    return result;
}

}  // namespace

std::int32_t cAcction::AgregarCertificado() { return Agregar<dlgcertificado>(*this); }

bool cAcction::ModificarCertificado(std::int32_t Sys_PK) { return Modificar<dlgcertificado>(*this, Sys_PK); }

std::int32_t cAcction::AgregarAprobacionFolios() { return Agregar<dlgRangoFolios>(*this); }

bool cAcction::ModificarAprobacionFolios(std::int32_t Sys_PK) { return Modificar<dlgRangoFolios>(*this, Sys_PK); }

}  // namespace celdora

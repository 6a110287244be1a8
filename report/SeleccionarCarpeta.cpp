#include "report/SeleccionarCarpeta.h"

#include <memory>

#include "core/Mensajes.h"
#include "host/HostObjects.h"
#include "host/Platform.h"

namespace celdora::informe {

namespace {

// BrowseForFolder's options: only folders of the file system.
constexpr int kSoloCarpetas = 1;
// The dialogs are models with no window of their own to parent the picker.
constexpr long kSinVentana = 0;

}  // namespace

std::string SeleccionarCarpeta() {
    auto shell = host::Crear<host::Shell>(host::progid::ShellShell);
    if (!shell) {
        core::Caja("Error al crear objeto Shell32.Shell", host::Icono::Exclamacion);
        return {};
    }
    auto carpeta = shell->BrowseForFolder(kSinVentana, "Carpeta destino", kSoloCarpetas, "");
    if (!carpeta) return {};
    return carpeta->SelfPath();
}

}  // namespace celdora::informe

#include "app/celdora/Interfaz.h"

#include <algorithm>

#include "platform/console/ConsolaUi.h"
#if defined(CELDORA_CON_QT)
#include "platform/qt/QtUi.h"
#endif

namespace celdora::app {

namespace {

// A call shows its dialogs on the terminal unless --qt asks for windows.
bool MuestraDialogos(const Opciones& opciones) {
    return opciones.orden == "dialog" || opciones.orden == "informe" || opciones.orden == "panel" || opciones.qt;
}

bool PideTerminal(const Opciones& opciones) {
    return std::any_of(opciones.argumentos.begin(), opciones.argumentos.end(),
                       [](const std::string& arg) { return arg == "--console" || arg == "--consola"; });
}

}  // namespace

std::unique_ptr<host::UiServices> CrearInterfaz(const Opciones& opciones) {
#if defined(CELDORA_CON_QT)
    if (MuestraDialogos(opciones) && !PideTerminal(opciones) && platform::HayPantalla()) {
        return std::make_unique<platform::QtUi>();
    }
#else
    (void)MuestraDialogos;
    (void)PideTerminal;
#endif
    return std::make_unique<platform::ConsolaUi>(opciones.respuesta);
}

}  // namespace celdora::app

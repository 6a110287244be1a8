// celdora: the library's own tool. It creates a demo company database on the
// embedded default and will grow to call the library's members by name and
// open its dialogs.

#include <iostream>
#include <string>
#include <vector>

#include "app/celdora/Demo.h"
#include "platform/common/SystemClock.h"
#include "platform/console/ConsolaUi.h"
#include "platform/desktop/PlataformaEscritorio.h"

namespace {

const char* const kUso =
    "Uso:\n"
    "  celdora demo [RUTA] [--reemplazar]\n"
    "      Crea la base de datos de una empresa de demostración en SQLite\n"
    "      (por omisión celdora-demo.db) y muestra un resumen de ella.\n"
    "  celdora --help\n";

int Demo(const std::vector<std::string>& args) {
    celdora::app::OpcionesDemo opciones;
    bool rutaDada = false;
    for (const auto& arg : args) {
        if (arg == "--reemplazar") {
            opciones.reemplazar = true;
        } else if (!arg.empty() && arg[0] == '-') {
            std::cerr << "Opción desconocida: " << arg << "\n" << kUso;
            return 2;
        } else if (!rutaDada) {
            opciones.ruta = arg;
            rutaDada = true;
        } else {
            std::cerr << "Sobra el argumento: " << arg << "\n" << kUso;
            return 2;
        }
    }
    return celdora::app::CrearDemo(opciones, std::cout, std::cerr);
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    if (args.empty() || args[0] == "--help" || args[0] == "-h") {
        std::cout << kUso;
        return args.empty() ? 2 : 0;
    }

    celdora::platform::ConsolaUi ui;
    celdora::platform::SystemClock reloj;
    celdora::platform::PlataformaEscritorio plataforma(ui, reloj);
    celdora::platform::PlataformaInstalada instalada(plataforma);

    const std::string orden = args[0];
    args.erase(args.begin());
    if (orden == "demo") return Demo(args);
    std::cerr << "Orden desconocida: " << orden << "\n" << kUso;
    return 2;
}

#include "app/celdora/Dialogo.h"

#include <filesystem>
#include <ostream>

#include "app/celdora/Conexion.h"
#include "app/celdora/Enlace.h"
#include "core/Dialogos.h"

namespace celdora::app {

namespace {

// The facade for the dialog: bound when --db was given or the default
// database is there, unbound otherwise.
Fachada FachadaParaDialogo(const Opciones& opciones) {
    const auto ruta = RutaSqlite(opciones.db);
    if (opciones.dbDada || !ruta || std::filesystem::exists(*ruta)) return EnlazarFachada(opciones);
    Fachada fachada;
    fachada.accion = std::make_shared<cAcction>();
    fachada.accion->ApplicationName = opciones.app;
    fachada.accion->AppRepositoryPath = opciones.repo;
    fachada.accion->AppReportsPath = opciones.informes;
    return fachada;
}

}  // namespace

int MostrarDialogo(const Opciones& opciones, std::ostream& out) {
    std::string nombre;
    for (const auto& arg : opciones.argumentos) {
        if (arg == "--console" || arg == "--consola") continue;
        if (!arg.empty() && arg[0] == '-') throw ErrorDeUso{"opción desconocida: " + arg};
        if (!nombre.empty()) throw ErrorDeUso{"sobra el argumento: " + arg};
        nombre = arg;
    }
    if (nombre.empty()) {
        for (const auto& clase : dialogos::Nombres()) out << clase << "\n";
        return 0;
    }
    const Fachada fachada = FachadaParaDialogo(opciones);
    auto dialogo = dialogos::Crear(nombre, *fachada.accion);
    if (!dialogo) throw ErrorDeUso{"no hay un diálogo " + nombre + " (véalos con: celdora dialog)"};
    dialogo->ShowModal();
    out << dialogo->Clase() << " cerrado; Aceptado: " << (dialogo->Aceptado ? "Verdadero (-1)" : "Falso (0)") << "\n";
    dialogo->Unload();
    return 0;
}

int AbrirPanel(const Opciones& opciones, std::ostream& out) {
    for (const auto& arg : opciones.argumentos) {
        if (arg != "--console" && arg != "--consola") throw ErrorDeUso{"sobra el argumento: " + arg};
    }
    const Fachada fachada = EnlazarFachada(opciones);
    fachada.accion->ConfiguracionPrincipal();
    out << "Panel de control cerrado.\n";
    return 0;
}

}  // namespace celdora::app

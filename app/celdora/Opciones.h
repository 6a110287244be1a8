#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/console/ConsolaUi.h"

namespace celdora::app {

// A command line the tool cannot run as written: exit code 2.
struct ErrorDeUso {
    std::string mensaje;
};

// A run that could not start or finish for a reason other than a fault of
// the library (a database file that does not exist, say): exit code 1.
struct ErrorDeHerramienta {
    std::string mensaje;
};

// The global options, given before the command, and the command with its
// own arguments.
struct Opciones {
    std::string db = "sqlite:celdora-demo.db";
    bool dbDada = false;
    platform::ConsolaUi::RespuestaFija respuesta = platform::ConsolaUi::RespuestaFija::Ninguna;
    std::vector<std::int32_t> grupos;  // the groups of the user "@usuario"
    std::string app = "Celdora";       // ApplicationName
    std::string repo;                  // AppRepositoryPath
    std::string informes;              // AppReportsPath
    bool ayuda = false;
    bool qt = false;                   // --qt: dialogs of a call in Qt
    std::string orden;
    std::vector<std::string> argumentos;
};

// Reads --db URL, --si, --no, --grupos LISTA, --app NOMBRE, --repo DIR,
// --informes DIR, --qt and --help (each
// with a value also as --opcion=valor) up to the first word that is not an
// option, which is the command; everything after it belongs to the command.
// Raises ErrorDeUso for an unknown option or a value that does not fit.
Opciones LeerOpciones(const std::vector<std::string>& args);

}  // namespace celdora::app

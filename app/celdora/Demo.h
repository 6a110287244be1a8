#pragma once

#include <iosfwd>
#include <string>

namespace celdora::app {

struct OpcionesDemo {
    std::string ruta = "celdora-demo.db";
    bool reemplazar = false;  // an existing file is replaced only when asked
};

// Creates the demo company's database on SQLite and prints a summary of it.
// Gives the process exit code.
int CrearDemo(const OpcionesDemo& opciones, std::ostream& out, std::ostream& err);

}  // namespace celdora::app

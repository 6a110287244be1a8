#include "app/celdora/Opciones.h"

#include <charconv>
#include <optional>

#include "value/Text.h"

namespace celdora::app {

namespace {

std::int32_t Grupo(const std::string& texto) {
    const std::string limpio = Trim(texto);
    std::int32_t valor = 0;
    const char* fin = limpio.data() + limpio.size();
    auto [resto, error] = std::from_chars(limpio.data(), fin, valor);
    if (limpio.empty() || error != std::errc() || resto != fin) {
        throw ErrorDeUso{"--grupos espera claves de grupo separadas por comas (por ejemplo 3,7): \"" + texto +
                         "\" no es una clave"};
    }
    return valor;
}

}  // namespace

Opciones LeerOpciones(const std::vector<std::string>& args) {
    Opciones opciones;
    bool si = false;
    bool no = false;
    std::size_t i = 0;
    for (; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (arg.rfind("--", 0) != 0 && arg != "-h") break;

        std::string nombre = arg;
        std::optional<std::string> valor;
        if (const auto igual = arg.find('='); igual != std::string::npos) {
            nombre = arg.substr(0, igual);
            valor = arg.substr(igual + 1);
        }
        const bool llevaValor = nombre == "--db" || nombre == "--grupos" || nombre == "--app" ||
                                 nombre == "--repo" || nombre == "--informes";
        if (llevaValor && !valor) {
            if (i + 1 == args.size()) throw ErrorDeUso{"falta el valor de " + nombre};
            valor = args[++i];
        } else if (!llevaValor && valor) {
            throw ErrorDeUso{nombre + " no lleva valor"};
        }

        if (nombre == "--db") {
            opciones.db = *valor;
            opciones.dbDada = true;
        } else if (nombre == "--si") {
            si = true;
        } else if (nombre == "--no") {
            no = true;
        } else if (nombre == "--grupos") {
            opciones.grupos.clear();
            for (const std::string& pieza : Split(*valor, ",")) opciones.grupos.push_back(Grupo(pieza));
        } else if (nombre == "--app") {
            opciones.app = *valor;
        } else if (nombre == "--repo") {
            opciones.repo = *valor;
        } else if (nombre == "--informes") {
            opciones.informes = *valor;
        } else if (nombre == "--qt") {
            opciones.qt = true;
        } else if (nombre == "--help" || nombre == "-h") {
            opciones.ayuda = true;
        } else {
            throw ErrorDeUso{"opción desconocida: " + arg};
        }
    }
    if (si && no) throw ErrorDeUso{"--si y --no se excluyen"};
    if (si) opciones.respuesta = platform::ConsolaUi::RespuestaFija::Si;
    if (no) opciones.respuesta = platform::ConsolaUi::RespuestaFija::No;

    if (i < args.size()) {
        opciones.orden = args[i];
        opciones.argumentos.assign(args.begin() + static_cast<std::ptrdiff_t>(i) + 1, args.end());
    }
    return opciones;
}

}  // namespace celdora::app

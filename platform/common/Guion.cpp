#include "platform/common/Guion.h"

#include <string_view>

#include "value/Fault.h"

namespace celdora::platform {

namespace {

bool Blanco(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v'; }

std::string_view SinBlancos(std::string_view texto) {
    while (!texto.empty() && Blanco(texto.front())) texto.remove_prefix(1);
    while (!texto.empty() && Blanco(texto.back())) texto.remove_suffix(1);
    return texto;
}

}  // namespace

void EjecutarGuionPorPartes(ConexionMotor& conexion, const std::string& guion) {
    std::string sentencia;
    std::string primeraLinea;

    auto ejecutar = [&] {
        const std::string_view texto = SinBlancos(sentencia);
        if (!texto.empty()) {
            try {
                conexion.motor().Ejecutar(std::string(texto));
            } catch (Fault& fault) {
                fault.description += " (in the statement that begins: " + primeraLinea + ")";
                throw;
            }
        }
        sentencia.clear();
        primeraLinea.clear();
    };

    std::string_view resto(guion);
    while (!resto.empty()) {
        const auto salto = resto.find('\n');
        const std::string_view linea = resto.substr(0, salto);
        resto = salto == std::string_view::npos ? std::string_view{} : resto.substr(salto + 1);

        const std::string_view limpia = SinBlancos(linea);
        if (limpia.starts_with("--")) continue;
        if (primeraLinea.empty()) primeraLinea = std::string(limpia);

        if (limpia.ends_with(';')) {
            // The line up to its last ";" closes the statement.
            const std::string_view sinPuntoYComa = linea.substr(0, linea.rfind(';'));
            sentencia.append(sinPuntoYComa);
            ejecutar();
        } else {
            sentencia.append(linea);
            sentencia += '\n';
        }
    }
    ejecutar();
}

}  // namespace celdora::platform

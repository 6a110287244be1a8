#include <charconv>
#include <optional>
#include <string_view>

#include "platform/common/FallasAdo.h"
#include "platform/mariadb/Mariadb.h"

namespace celdora::platform {

namespace {

[[noreturn]] void Malformada(const std::string& motivo) {
    throw Fault{ArgumentosIncorrectos().number, "Invalid MariaDB address: " + motivo};
}

int ValorHex(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// %XX escapes decoded; "+" stays a plus (this is no form encoding).
std::string Decodificar(std::string_view texto, const char* parte) {
    std::string salida;
    salida.reserve(texto.size());
    for (std::size_t i = 0; i < texto.size(); ++i) {
        if (texto[i] != '%') {
            salida += texto[i];
            continue;
        }
        const int alto = i + 2 < texto.size() ? ValorHex(texto[i + 1]) : -1;
        const int bajo = i + 2 < texto.size() ? ValorHex(texto[i + 2]) : -1;
        if (alto < 0 || bajo < 0)
            Malformada(std::string("the ") + parte + " has a \"%\" that is not followed by two hexadecimal digits.");
        salida += static_cast<char>(alto * 16 + bajo);
        i += 2;
    }
    return salida;
}

bool EmpiezaSinMayusculas(std::string_view texto, std::string_view prefijo) {
    if (texto.size() < prefijo.size()) return false;
    for (std::size_t i = 0; i < prefijo.size(); ++i) {
        char c = texto[i];
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
        if (c != prefijo[i]) return false;
    }
    return true;
}

}  // namespace

DestinoMariadb LeerUrlMariadb(const std::string& url) {
    std::string_view resto(url);
    if (EmpiezaSinMayusculas(resto, "mariadb://")) resto.remove_prefix(10);
    else if (EmpiezaSinMayusculas(resto, "mysql://")) resto.remove_prefix(8);
    else Malformada("it must begin with mariadb:// or mysql://.");

    DestinoMariadb destino;

    std::string_view consulta;
    if (const auto q = resto.find('?'); q != std::string_view::npos) {
        consulta = resto.substr(q + 1);
        resto = resto.substr(0, q);
    }
    std::string_view autoridad = resto;
    if (const auto barra = resto.find('/'); barra != std::string_view::npos) {
        autoridad = resto.substr(0, barra);
        destino.base = Decodificar(resto.substr(barra + 1), "database");
        if (destino.base.find('/') != std::string::npos) Malformada("the database name holds a \"/\".");
    }

    // The last "@" ends the user part, so that an unencoded "@" in a
    // password still reads as the user meant.
    if (const auto arroba = autoridad.rfind('@'); arroba != std::string_view::npos) {
        const std::string_view usuario = autoridad.substr(0, arroba);
        autoridad = autoridad.substr(arroba + 1);
        const auto dosPuntos = usuario.find(':');
        destino.usuario = Decodificar(usuario.substr(0, dosPuntos), "user");
        if (dosPuntos != std::string_view::npos) destino.clave = Decodificar(usuario.substr(dosPuntos + 1), "password");
    }

    std::optional<std::string_view> puerto;
    if (!autoridad.empty() && autoridad.front() == '[') {
        const auto cierre = autoridad.find(']');
        if (cierre == std::string_view::npos) Malformada("an IPv6 host lacks its closing \"]\".");
        destino.servidor = std::string(autoridad.substr(1, cierre - 1));
        const std::string_view tras = autoridad.substr(cierre + 1);
        if (!tras.empty() && tras.front() != ':') Malformada("text after the IPv6 host that is not a port.");
        if (!tras.empty()) puerto = tras.substr(1);
    } else {
        const auto dosPuntos = autoridad.find(':');
        if (dosPuntos != std::string_view::npos) {
            puerto = autoridad.substr(dosPuntos + 1);
            autoridad = autoridad.substr(0, dosPuntos);
        }
        destino.servidor = std::string(autoridad);
    }
    if (destino.servidor.empty()) Malformada("the host is empty.");
    if (puerto) {
        unsigned int numero = 0;
        const char* fin = puerto->data() + puerto->size();
        const auto leido = std::from_chars(puerto->data(), fin, numero);
        if (puerto->empty() || leido.ec != std::errc{} || leido.ptr != fin || numero == 0 || numero > 65535)
            Malformada("the port must be a number from 1 to 65535.");
        destino.puerto = numero;
    }

    while (!consulta.empty()) {
        const auto amp = consulta.find('&');
        const std::string_view par = consulta.substr(0, amp);
        consulta = amp == std::string_view::npos ? std::string_view{} : consulta.substr(amp + 1);
        if (par.empty()) continue;
        const auto igual = par.find('=');
        const std::string_view nombre = par.substr(0, igual);
        if (nombre != "socket" || igual == std::string_view::npos)
            Malformada("the only option it takes is socket=path, not \"" + std::string(nombre) + "\".");
        destino.socket = Decodificar(par.substr(igual + 1), "socket");
    }
    return destino;
}

}  // namespace celdora::platform

#include "platform/files/cConfigLocalIni.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <random>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/files/RutaNativa.h"
#include "value/Fault.h"
#include "value/Text.h"

namespace celdora::platform {

namespace fs = std::filesystem;
using detail::RutaNativa;
using detail::TextoDeRuta;

namespace {

Fault ErrorDeAcceso() { return Fault{75, "Path/File access error"}; }
Fault RutaNoEncontrada() { return Fault{76, "Path not found"}; }

// One line of the file as read, kept so that a rewrite leaves the lines it
// does not change as they were.
struct Linea {
    enum class Tipo { Seccion, Entrada, Otra };
    Tipo tipo = Tipo::Otra;
    std::string nombre;  // section name or key, decoded
    std::string valor;   // value of an entry, decoded
    std::string texto;   // the line as read; empty for a line to be written anew
};

using Documento = std::vector<Linea>;

bool EsBlanco(char c) { return c == ' ' || c == '\t'; }

std::string_view SinBlancos(std::string_view text) {
    while (!text.empty() && EsBlanco(text.front())) text.remove_prefix(1);
    while (!text.empty() && EsBlanco(text.back())) text.remove_suffix(1);
    return text;
}

std::string Codificar(std::string_view text, std::string_view escapados) {
    std::string out;
    out.reserve(text.size() + 2);
    for (const char c : text) {
        if (c == '\\') {
            out += "\\\\";
        } else if (c == '\n') {
            out += "\\n";
        } else if (c == '\r') {
            out += "\\r";
        } else {
            if (escapados.find(c) != std::string_view::npos) out += '\\';
            out += c;
        }
    }
    const bool entreComillas =
        !text.empty() && (EsBlanco(text.front()) || EsBlanco(text.back()) || text.front() == '"');
    return entreComillas ? '"' + out + '"' : out;
}

std::string Decodificar(std::string_view raw) {
    std::string_view text = SinBlancos(raw);
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"') text = text.substr(1, text.size() - 2);
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            out += text[i];
            continue;
        }
        const char next = text[++i];
        out += next == 'n' ? '\n' : next == 'r' ? '\r' : next;
    }
    return out;
}

// Position of the first c that no backslash escapes, from start.
std::size_t BuscarSinEscape(std::string_view text, char c, std::size_t start = 0) {
    for (std::size_t i = start; i < text.size(); ++i) {
        if (text[i] == '\\') {
            ++i;
        } else if (text[i] == c) {
            return i;
        }
    }
    return std::string_view::npos;
}

Linea LeerLinea(std::string_view line) {
    Linea result;
    result.texto = std::string(line);
    const std::string_view text = SinBlancos(line);
    if (text.empty() || text.front() == ';' || text.front() == '#') return result;
    if (text.front() == '[') {
        const std::size_t close = BuscarSinEscape(text, ']', 1);
        if (close != std::string_view::npos) {
            result.tipo = Linea::Tipo::Seccion;
            result.nombre = Decodificar(text.substr(1, close - 1));
        }
        return result;
    }
    const std::size_t equals = BuscarSinEscape(text, '=');
    if (equals == std::string_view::npos) return result;
    result.tipo = Linea::Tipo::Entrada;
    result.nombre = Decodificar(text.substr(0, equals));
    result.valor = Decodificar(text.substr(equals + 1));
    return result;
}

Documento Analizar(std::string_view contenido) {
    if (contenido.substr(0, 3) == "\xEF\xBB\xBF") contenido.remove_prefix(3);
    Documento documento;
    while (!contenido.empty()) {
        const std::size_t end = contenido.find('\n');
        std::string_view line = contenido.substr(0, end);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        documento.push_back(LeerLinea(line));
        contenido = end == std::string_view::npos ? std::string_view{} : contenido.substr(end + 1);
    }
    return documento;
}

std::string Escribir(const Documento& documento) {
    std::string out;
    for (const Linea& linea : documento) {
        if (!linea.texto.empty() || linea.tipo == Linea::Tipo::Otra) {
            out += linea.texto;
        } else if (linea.tipo == Linea::Tipo::Seccion) {
            out += '[' + Codificar(linea.nombre, "]") + ']';
        } else {
            out += Codificar(linea.nombre, "=;#[") + '=' + Codificar(linea.valor, "");
        }
        out += '\n';
    }
    return out;
}

// Walks the entries of every section named seccion (lines before the first
// header belong to the section without a name), in file order.
template <class Visit>
void RecorrerSeccion(Documento& documento, const std::string& seccion, Visit&& visit) {
    bool dentro = seccion.empty();
    for (std::size_t i = 0; i < documento.size(); ++i) {
        Linea& linea = documento[i];
        if (linea.tipo == Linea::Tipo::Seccion) {
            dentro = EqualText(linea.nombre, seccion);
        } else if (dentro && linea.tipo == Linea::Tipo::Entrada) {
            visit(i, linea);
        }
    }
}

// The file's text; nothing when it does not exist. An existing file that
// can't be read is a fault: writing over it would lose its other keys.
std::optional<std::string> LeerArchivo(const fs::path& ruta) {
    std::error_code error;
    const fs::file_status status = fs::status(ruta, error);
    if (status.type() == fs::file_type::not_found) return std::nullopt;
    if (error || !fs::is_regular_file(status)) throw ErrorDeAcceso();
    std::ifstream in(ruta, std::ios::binary);
    if (!in) throw ErrorDeAcceso();
    std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    if (in.bad()) throw ErrorDeAcceso();
    return text;
}

void ReemplazarArchivo(const fs::path& ruta, const std::string& contenido) {
    std::error_code error;
    fs::create_directories(ruta.parent_path(), error);
    if (error) throw RutaNoEncontrada();

    // A name of its own for the temporary file, so that two processes that
    // write at the same time never share one.
    std::random_device random;
    fs::path temporal = ruta;
    temporal += ".tmp" + std::to_string(random());
    {
        std::ofstream out(temporal, std::ios::binary | std::ios::trunc);
        if (!out) throw ErrorDeAcceso();
        // The stamping account lives here: the file is for its owner only.
        fs::permissions(temporal, fs::perms::owner_read | fs::perms::owner_write, error);
        out.write(contenido.data(), static_cast<std::streamsize>(contenido.size()));
        out.close();
        if (out.fail()) {
            fs::remove(temporal, error);
            throw ErrorDeAcceso();
        }
    }
    fs::rename(temporal, ruta, error);
    if (error) {
        fs::remove(temporal, error);
        throw ErrorDeAcceso();
    }
}

std::string NombreDeArchivo(const std::string& aplicacion) {
    static constexpr char hex[] = "0123456789ABCDEF";
    const std::string lower = LCase(aplicacion);
    if (lower.empty()) return "%";
    std::string name;
    for (std::size_t i = 0; i < lower.size(); ++i) {
        const auto byte = static_cast<unsigned char>(lower[i]);
        const bool alnum = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9');
        // A leading dot would hide the file, and Windows drops a trailing dot
        // or blank: those are encoded as well.
        const bool borde = (i == 0 && byte == '.') || (i + 1 == lower.size() && (byte == '.' || byte == ' '));
        const bool seguro = alnum || byte >= 0x80 || byte == '-' || byte == '_' || byte == '.' || byte == ' ';
        if (seguro && !borde) {
            name += static_cast<char>(byte);
        } else {
            name += '%';
            name += hex[byte >> 4];
            name += hex[byte & 0x0F];
        }
    }
    return name;
}

std::string Entorno(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string{} : std::string(value);
}

}  // namespace

cConfigLocalIni::cConfigLocalIni() : carpeta_(CarpetaPredeterminada()) {}

cConfigLocalIni::cConfigLocalIni(std::string carpeta) : carpeta_(std::move(carpeta)) {}

std::string cConfigLocalIni::CarpetaPredeterminada() {
    if (std::string folder = Entorno("CELDORA_CONFIG_DIR"); !folder.empty()) return folder;
#ifdef _WIN32
    if (std::string appdata = Entorno("APPDATA"); !appdata.empty()) return TextoDeRuta(RutaNativa(appdata) / "celdora");
#endif
    if (std::string xdg = Entorno("XDG_CONFIG_HOME"); !xdg.empty()) return TextoDeRuta(RutaNativa(xdg) / "celdora");
    if (std::string home = Entorno("HOME"); !home.empty())
        return TextoDeRuta(RutaNativa(home) / ".config" / "celdora");
    std::error_code error;
    return TextoDeRuta(fs::current_path(error) / ".celdora");
}

std::string cConfigLocalIni::RutaArchivo(const std::string& aplicacion) const {
    return TextoDeRuta(RutaNativa(carpeta_) / RutaNativa(NombreDeArchivo(aplicacion) + ".ini"));
}

std::string cConfigLocalIni::ObtenerValor(const std::string& aplicacion, const std::string& seccion,
                                          const std::string& clave, const std::string& porDefecto) {
    const std::optional<std::string> contenido = LeerArchivo(RutaNativa(RutaArchivo(aplicacion)));
    if (!contenido) return porDefecto;
    Documento documento = Analizar(*contenido);
    std::optional<std::string> found;
    RecorrerSeccion(documento, seccion, [&](std::size_t, const Linea& linea) {
        if (!found && EqualText(linea.nombre, clave)) found = linea.valor;
    });
    return found.value_or(porDefecto);
}

void cConfigLocalIni::GuardarValor(const std::string& aplicacion, const std::string& seccion, const std::string& clave,
                                   const std::string& valor) {
    const fs::path ruta = RutaNativa(RutaArchivo(aplicacion));
    const std::optional<std::string> contenido = LeerArchivo(ruta);
    Documento documento = contenido ? Analizar(*contenido) : Documento{};

    // The first line of the key takes the new value; any later line of the
    // same key (a file edited by hand) goes, so that one value remains.
    std::optional<std::size_t> primera;
    std::vector<std::size_t> repetidas;
    RecorrerSeccion(documento, seccion, [&](std::size_t index, Linea& linea) {
        if (!EqualText(linea.nombre, clave)) return;
        if (primera) {
            repetidas.push_back(index);
        } else {
            primera = index;
            linea.nombre = clave;
            linea.valor = valor;
            linea.texto.clear();
        }
    });
    for (auto it = repetidas.rbegin(); it != repetidas.rend(); ++it)
        documento.erase(documento.begin() + static_cast<std::ptrdiff_t>(*it));

    if (!primera) {
        Linea entrada{Linea::Tipo::Entrada, clave, valor, {}};
        // A new key goes after the last entry (or the header) of the first
        // section of that name; a new section goes at the end.
        std::optional<std::size_t> despues;
        bool dentro = false;
        for (std::size_t i = 0; i < documento.size(); ++i) {
            const Linea& linea = documento[i];
            if (linea.tipo == Linea::Tipo::Seccion) {
                if (despues) break;
                dentro = EqualText(linea.nombre, seccion);
                if (dentro) despues = i;
            } else if (dentro && linea.tipo == Linea::Tipo::Entrada) {
                despues = i;
            }
        }
        if (despues) {
            documento.insert(documento.begin() + static_cast<std::ptrdiff_t>(*despues + 1), std::move(entrada));
        } else {
            if (!documento.empty()) documento.push_back(Linea{});
            documento.push_back(Linea{Linea::Tipo::Seccion, seccion, {}, {}});
            documento.push_back(std::move(entrada));
        }
    }
    ReemplazarArchivo(ruta, Escribir(documento));
}

}  // namespace celdora::platform

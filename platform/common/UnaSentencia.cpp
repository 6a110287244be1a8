#include "platform/common/UnaSentencia.h"

#include <algorithm>
#include <array>
#include <optional>

namespace celdora::platform {

namespace {

// How one family of engines reads quotes and comments.
struct Lectura {
    bool barraEscapa = false;         // '\' escapes the next character in '...' and "..."
    bool almohadillaComenta = false;  // '#' comments to the end of the line
    bool guionesPidenBlanco = false;  // "--" comments only when a blank or the end follows
    bool comentarioConCodigo = false; // "/*!" and "/*M!" hold code, not a comment
    bool comentariosAnidados = false; // "/*" inside a block comment opens another
    bool corcheteDoble = false;       // "]]" inside [...] stands for "]"
};

constexpr Lectura kComun{};
constexpr Lectura kMySql{true, true, true, true, false, false};
constexpr Lectura kSqlServer{false, false, false, false, true, true};

bool Blanco(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v'; }

// The position after the quoted piece that opens at sql[i].
std::size_t FinDeCita(std::string_view sql, std::size_t i, char cierre, bool barraEscapa, bool dobleEscapa) {
    std::size_t j = i + 1;
    while (j < sql.size()) {
        const char c = sql[j];
        if (barraEscapa && c == '\\') {
            j += 2;
        } else if (c == cierre) {
            if (dobleEscapa && j + 1 < sql.size() && sql[j + 1] == cierre) {
                j += 2;
            } else {
                return j + 1;
            }
        } else {
            ++j;
        }
    }
    return sql.size();
}

// The position after the block comment that opens at sql[i].
std::size_t FinDeComentario(std::string_view sql, std::size_t i, bool anidados) {
    int nivel = 0;
    std::size_t j = i;
    while (j + 1 < sql.size()) {
        if (sql[j] == '/' && sql[j + 1] == '*' && (anidados || nivel == 0)) {
            ++nivel;
            j += 2;
        } else if (sql[j] == '*' && sql[j + 1] == '/') {
            j += 2;
            if (--nivel == 0) return j;
        } else {
            ++j;
        }
    }
    return sql.size();
}

std::size_t FinDeLinea(std::string_view sql, std::size_t i) {
    const std::size_t salto = sql.find('\n', i);
    return salto == std::string_view::npos ? sql.size() : salto;
}

// Where the one statement ends under a reading (the position of its ";", or
// the end of the text), or nothing when a second statement follows.
std::optional<std::size_t> FinDeLaSentencia(std::string_view sql, const Lectura& lectura) {
    const std::size_t n = sql.size();
    bool hayContenido = false;
    std::optional<std::size_t> puntoYComa;
    std::size_t i = 0;
    while (i < n) {
        const char c = sql[i];
        const char siguiente = i + 1 < n ? sql[i + 1] : '\0';
        if (Blanco(c)) {
            ++i;
            continue;
        }
        if (c == '-' && siguiente == '-' &&
            (!lectura.guionesPidenBlanco || i + 2 >= n || Blanco(sql[i + 2]) ||
             static_cast<unsigned char>(sql[i + 2]) < 0x20)) {
            i = FinDeLinea(sql, i);
            continue;
        }
        if (c == '#' && lectura.almohadillaComenta) {
            i = FinDeLinea(sql, i);
            continue;
        }
        if (c == '/' && siguiente == '*') {
            const bool conCodigo =
                lectura.comentarioConCodigo && i + 2 < n &&
                (sql[i + 2] == '!' || (sql[i + 2] == 'M' && i + 3 < n && sql[i + 3] == '!'));
            if (!conCodigo) {
                i = FinDeComentario(sql, i, lectura.comentariosAnidados);
                continue;
            }
        }
        if (c == ';') {
            if (hayContenido && !puntoYComa) puntoYComa = i;
            ++i;
            continue;
        }
        // Anything else belongs to a statement: after the ending ";" it is a
        // second one.
        if (puntoYComa) return std::nullopt;
        hayContenido = true;
        switch (c) {
            case '\'':
            case '"':
                i = FinDeCita(sql, i, c, lectura.barraEscapa, true);
                break;
            case '`':
                i = FinDeCita(sql, i, '`', false, true);
                break;
            case '[':
                i = FinDeCita(sql, i, ']', false, lectura.corcheteDoble);
                break;
            default:
                ++i;
        }
    }
    return puntoYComa.value_or(n);
}

std::size_t FinExigido(std::string_view sql) {
    std::size_t fin = 0;
    for (const Lectura& lectura : std::array{kComun, kMySql, kSqlServer}) {
        const std::optional<std::size_t> esta = FinDeLaSentencia(sql, lectura);
        if (!esta) throw SegundaSentenciaRechazada();
        // Where the readings differ on the end (a literal that one of them
        // leaves open), the least is cut.
        fin = std::max(fin, *esta);
    }
    return fin;
}

}  // namespace

Fault SegundaSentenciaRechazada() {
    return {3001,
            "Se rechazó una segunda sentencia después de \";\": cada ejecución admite una sola sentencia. No se "
            "ejecutó nada."};
}

void ExigirUnaSentencia(const std::string& sql) { FinExigido(sql); }

std::string_view SentenciaUnica(std::string_view sql) { return sql.substr(0, FinExigido(sql)); }

}  // namespace celdora::platform

#include "platform/sqlite/DialectoMySql.h"

#include <sqlite3.h>

#include <cmath>
#include <cstdio>
#include <ctime>

#include "platform/common/FechaTexto.h"
#include "platform/sqlite/ErrorSqlite.h"

namespace celdora::platform::sqlite {

namespace {

bool LetraDeNombre(unsigned char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '$' ||
           c >= 0x80;
}

bool Blanco(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v'; }

bool EsIsNull(std::string_view sql, std::size_t i) {
    static constexpr std::string_view kPalabra = "isnull";
    if (i + kPalabra.size() > sql.size()) return false;
    for (std::size_t k = 0; k < kPalabra.size(); ++k) {
        char c = sql[i + k];
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
        if (c != kPalabra[k]) return false;
    }
    if (i > 0 && LetraDeNombre(static_cast<unsigned char>(sql[i - 1]))) return false;
    std::size_t j = i + kPalabra.size();
    while (j < sql.size() && Blanco(sql[j])) ++j;
    return j < sql.size() && sql[j] == '(';
}

// Copies a quoted piece (literal or name) from sql[i], which holds the
// opening quote, through its closing one; a doubled closing quote stays
// inside. Returns the position after it.
std::size_t CopiarCitado(std::string_view sql, std::size_t i, char cierre, std::string& salida) {
    std::size_t j = i + 1;
    while (j < sql.size()) {
        if (sql[j] == cierre) {
            if (j + 1 < sql.size() && sql[j + 1] == cierre && cierre != ']') {
                j += 2;
                continue;
            }
            ++j;
            break;
        }
        ++j;
    }
    salida.append(sql.substr(i, j - i));
    return j;
}

// --- the functions -----------------------------------------------------------

void NullTest(sqlite3_context* contexto, int, sqlite3_value** argumentos) {
    sqlite3_result_int(contexto, sqlite3_value_type(argumentos[0]) == SQLITE_NULL ? 1 : 0);
}

void Uuid(sqlite3_context* contexto, int, sqlite3_value**) {
    unsigned char b[16];
    sqlite3_randomness(sizeof b, b);
    b[6] = static_cast<unsigned char>((b[6] & 0x0F) | 0x40);  // version 4: random
    b[8] = static_cast<unsigned char>((b[8] & 0x3F) | 0x80);  // RFC 4122 variant
    char texto[37];
    std::snprintf(texto, sizeof texto, "%02x%02x%02x%02x-%02x%02x-%02x%02x-%02x%02x-%02x%02x%02x%02x%02x%02x", b[0],
                  b[1], b[2], b[3], b[4], b[5], b[6], b[7], b[8], b[9], b[10], b[11], b[12], b[13], b[14], b[15]);
    sqlite3_result_text(contexto, texto, -1, SQLITE_TRANSIENT);
}

void Ahora(sqlite3_context* contexto, int, sqlite3_value**) {
    const std::time_t ahora = std::time(nullptr);
    std::tm local{};
    localtime_r(&ahora, &local);
    char texto[32];
    std::strftime(texto, sizeof texto, "%Y-%m-%d %H:%M:%S", &local);
    sqlite3_result_text(contexto, texto, -1, SQLITE_TRANSIENT);
}

// The calendar day of a value: text that starts 'YYYY-MM-DD', or a Julian
// day number as SQLite's own date functions take numbers. Nothing for
// anything else.
std::optional<DiaCivil> DiaDe(sqlite3_value* valor) {
    switch (sqlite3_value_type(valor)) {
        case SQLITE_TEXT: {
            const auto* texto = reinterpret_cast<const char*>(sqlite3_value_text(valor));
            const std::string_view vista(texto, static_cast<std::size_t>(sqlite3_value_bytes(valor)));
            if (const auto fecha = FechaDeTexto(vista.substr(0, 10)))
                return DiaDeNumero(static_cast<long long>(std::trunc(fecha->serial)));
            if (sqlite3_value_numeric_type(valor) == SQLITE_TEXT) return std::nullopt;
            [[fallthrough]];
        }
        case SQLITE_INTEGER:
        case SQLITE_FLOAT: {
            // Julian day 2415018.5 is 1899-12-30 at midnight, day 0.
            const double numero = std::floor(sqlite3_value_double(valor) - 2415018.5);
            if (!std::isfinite(numero) || numero < -657434 || numero > 2958465) return std::nullopt;
            return DiaDeNumero(static_cast<long long>(numero));
        }
        default:
            return std::nullopt;
    }
}

void Anio(sqlite3_context* contexto, int, sqlite3_value** argumentos) {
    if (const auto dia = DiaDe(argumentos[0])) sqlite3_result_int(contexto, dia->anio);
    else sqlite3_result_null(contexto);
}

void Mes(sqlite3_context* contexto, int, sqlite3_value** argumentos) {
    if (const auto dia = DiaDe(argumentos[0])) sqlite3_result_int(contexto, dia->mes);
    else sqlite3_result_null(contexto);
}

}  // namespace

std::string RenombrarIsNull(std::string_view sql) {
    // Most statements call no isnull at all: they go through as they are,
    // without the walk (a month's report issues one UPDATE a row).
    bool alguna = false;
    for (std::size_t i = 0; i < sql.size() && !alguna; ++i) alguna = (sql[i] == 'i' || sql[i] == 'I') && EsIsNull(sql, i);
    if (!alguna) return std::string(sql);
    std::string salida;
    salida.reserve(sql.size() + 16);
    std::size_t i = 0;
    while (i < sql.size()) {
        const char c = sql[i];
        if (c == '\'' || c == '"' || c == '`') {
            i = CopiarCitado(sql, i, c, salida);
        } else if (c == '[') {
            i = CopiarCitado(sql, i, ']', salida);
        } else if (c == '-' && i + 1 < sql.size() && sql[i + 1] == '-') {
            const std::size_t fin = sql.find('\n', i);
            const std::size_t hasta = fin == std::string_view::npos ? sql.size() : fin;
            salida.append(sql.substr(i, hasta - i));
            i = hasta;
        } else if (c == '/' && i + 1 < sql.size() && sql[i + 1] == '*') {
            const std::size_t fin = sql.find("*/", i + 2);
            const std::size_t hasta = fin == std::string_view::npos ? sql.size() : fin + 2;
            salida.append(sql.substr(i, hasta - i));
            i = hasta;
        } else if ((c == 'i' || c == 'I') && EsIsNull(sql, i)) {
            salida += kFuncionIsNull;
            i += 6;
        } else {
            salida += c;
            ++i;
        }
    }
    return salida;
}

std::string MensajeConIsNull(std::string mensaje) {
    const std::string_view nombre = kFuncionIsNull;
    for (std::size_t pos = mensaje.find(nombre); pos != std::string::npos; pos = mensaje.find(nombre, pos + 6))
        mensaje.replace(pos, nombre.size(), "isnull");
    return mensaje;
}

void RegistrarFuncionesMySql(sqlite3* db) {
    struct Funcion {
        const char* nombre;
        int argumentos;
        bool determinista;
        void (*cuerpo)(sqlite3_context*, int, sqlite3_value**);
    };
    static constexpr Funcion kFunciones[] = {
        {kFuncionIsNull, 1, true, NullTest}, {"UUID", 0, false, Uuid}, {"NOW", 0, false, Ahora},
        {"Year", 1, true, Anio},             {"Month", 1, true, Mes},
    };
    for (const Funcion& funcion : kFunciones) {
        const int banderas = SQLITE_UTF8 | (funcion.determinista ? SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS : 0);
        if (sqlite3_create_function_v2(db, funcion.nombre, funcion.argumentos, banderas, nullptr, funcion.cuerpo,
                                       nullptr, nullptr, nullptr) != SQLITE_OK)
            throw FaultDe(db);
    }
}

}  // namespace celdora::platform::sqlite

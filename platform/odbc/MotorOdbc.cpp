#include "platform/odbc/MotorOdbc.h"

#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <string_view>
#include <utility>

#include "platform/common/FallasAdo.h"
#include "platform/common/FechaTexto.h"
#include "platform/common/UnaSentencia.h"
#include "platform/odbc/ErrorOdbc.h"
#include "platform/odbc/Odbc.h"
#include "value/Date.h"
#include "value/Text.h"

namespace celdora::platform {

namespace {

// --- handles -----------------------------------------------------------------

class Sentencia {
public:
    explicit Sentencia(SQLHDBC conexion) {
        if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, conexion, &h_)))
            throw odbc::FaultDe(SQL_HANDLE_DBC, conexion, "SQLAllocHandle");
    }
    ~Sentencia() { SQLFreeHandle(SQL_HANDLE_STMT, h_); }
    Sentencia(const Sentencia&) = delete;
    Sentencia& operator=(const Sentencia&) = delete;

    SQLHSTMT get() const { return h_; }
    // Raises the statement's diagnostics when rc is a failure.
    void Exigir(SQLRETURN rc, const char* llamada) const {
        if (!SQL_SUCCEEDED(rc)) throw odbc::FaultDe(SQL_HANDLE_STMT, h_, llamada);
    }

private:
    SQLHSTMT h_ = SQL_NULL_HSTMT;
};

auto Texto(std::string_view texto) { return reinterpret_cast<SQLCHAR*>(const_cast<char*>(texto.data())); }

SQLINTEGER Largo(std::string_view texto) {
    if (texto.size() > static_cast<std::size_t>(std::numeric_limits<SQLINTEGER>::max())) throw ArgumentosIncorrectos();
    return static_cast<SQLINTEGER>(texto.size());
}

// --- the database system -----------------------------------------------------

MotorOdbc::Sistema SistemaDe(const std::string& gestor) {
    const std::string nombre = LCase(gestor);
    auto tiene = [&](const char* parte) { return nombre.find(parte) != std::string::npos; };
    if (tiene("mysql") || tiene("mariadb")) return MotorOdbc::Sistema::MySql;
    if (tiene("sqlite")) return MotorOdbc::Sistema::Sqlite;
    if (tiene("sql server")) return MotorOdbc::Sistema::SqlServer;
    if (tiene("access")) return MotorOdbc::Sistema::Access;
    return MotorOdbc::Sistema::Otro;
}

// MySQL reports by default the rows an UPDATE changed, not those it matched;
// bit 2 of the driver's OPTION keyword makes it count matched rows, which the
// engine interface promises. The string keeps every other attribute; an
// OPTION it already has gets the bit added.
std::string ConFilasEncontradas(const std::string& cadena) {
    constexpr long kFilasEncontradas = 2;
    std::size_t inicio = 0;
    while (inicio < cadena.size()) {
        // One attribute runs to the next ";" outside braces.
        std::size_t fin = inicio;
        bool enLlaves = false;
        while (fin < cadena.size() && (enLlaves || cadena[fin] != ';')) {
            if (cadena[fin] == '{') enLlaves = true;
            else if (cadena[fin] == '}') enLlaves = false;
            ++fin;
        }
        const std::string_view atributo(cadena.data() + inicio, fin - inicio);
        const std::size_t igual = atributo.find('=');
        if (igual != std::string_view::npos) {
            const std::string clave = Trim(atributo.substr(0, igual));
            if (EqualText(clave, "OPTION") || EqualText(clave, "OPTIONS")) {
                std::string valor = Trim(atributo.substr(igual + 1));
                if (valor.size() >= 2 && valor.front() == '{' && valor.back() == '}')
                    valor = valor.substr(1, valor.size() - 2);
                const long opciones = std::strtol(valor.c_str(), nullptr, 10);
                if ((opciones & kFilasEncontradas) != 0) return cadena;
                return cadena.substr(0, inicio) + clave + "=" + std::to_string(opciones | kFilasEncontradas) +
                       cadena.substr(fin);
            }
        }
        inicio = fin + 1;
    }
    std::string con = cadena;
    if (!con.empty() && con.back() != ';') con += ";";
    return con + "OPTION=" + std::to_string(kFilasEncontradas);
}

// --- parameters --------------------------------------------------------------

// One bound value; its storage must stay put from SQLBindParameter to
// SQLExecute, so the parameters live in a vector sized once. A text or a
// byte array is bound where the caller's value holds it, without a copy (a
// stored report may be tens of megabytes); only a date written as text has
// its text here.
struct Parametro {
    SQLSMALLINT tipoC = SQL_C_CHAR;
    SQLSMALLINT tipoSql = SQL_VARCHAR;
    SQLULEN tamano = 1;
    SQLSMALLINT decimales = 0;
    SQLLEN indicador = 0;
    SQLSMALLINT corto = 0;
    SQLINTEGER entero = 0;
    double real = 0;
    SQL_TIMESTAMP_STRUCT fecha{};
    std::string textoPropio;
    const void* ajenos = nullptr;  // the caller's text or bytes
    std::size_t largo = 0;

    void Referir(const void* datos, std::size_t cuantos) {
        ajenos = datos;
        largo = cuantos;
    }
    SQLPOINTER Datos() {
        switch (tipoC) {
            case SQL_C_SSHORT:
                return &corto;
            case SQL_C_SLONG:
                return &entero;
            case SQL_C_DOUBLE:
                return &real;
            case SQL_C_TYPE_TIMESTAMP:
                return &fecha;
            case SQL_C_BINARY:
                // An empty array still needs a buffer for its zero bytes.
                return largo == 0 ? static_cast<SQLPOINTER>(&corto) : const_cast<void*>(ajenos);
            default:
                if (indicador == SQL_NULL_DATA) return nullptr;
                return ajenos != nullptr ? const_cast<void*>(ajenos) : textoPropio.data();
        }
    }
    SQLLEN LargoDeBuffer() const {
        if (tipoC == SQL_C_CHAR) return static_cast<SQLLEN>(ajenos != nullptr ? largo : textoPropio.size());
        if (tipoC == SQL_C_BINARY) return static_cast<SQLLEN>(largo);
        return 0;
    }
};

// Past these sizes a text or binary value travels as a long type, which every
// driver takes for its unbounded columns.
constexpr std::size_t kLargoCorto = 4000;

Parametro PrepararParametro(const Variant& valor, MotorOdbc::Sistema sistema, SQLHSTMT sentencia,
                            SQLUSMALLINT numero) {
    Parametro p;
    switch (valor.Type()) {
        case VarType::Empty:
        case VarType::Null: {
            p.indicador = SQL_NULL_DATA;
            // A NULL must carry a type the column accepts (SQL Server refuses
            // text for a binary column even when it is NULL); the driver is
            // asked, and text is the fallback for drivers that cannot tell.
            SQLSMALLINT tipo = 0, decimales = 0, nulos = 0;
            SQLULEN tamano = 0;
            if (SQL_SUCCEEDED(SQLDescribeParam(sentencia, numero, &tipo, &tamano, &decimales, &nulos)) &&
                tipo != SQL_UNKNOWN_TYPE) {
                p.tipoSql = tipo;
                p.tamano = std::max<SQLULEN>(tamano, 1);
                p.decimales = decimales;
            }
            break;
        }
        case VarType::Boolean:
            p.tipoC = SQL_C_SSHORT;
            p.tipoSql = SQL_SMALLINT;
            p.corto = valor.AsBoolean() ? -1 : 0;
            break;
        case VarType::Integer:
            p.tipoC = SQL_C_SSHORT;
            p.tipoSql = SQL_SMALLINT;
            p.corto = valor.AsInteger();
            break;
        case VarType::Long:
            p.tipoC = SQL_C_SLONG;
            p.tipoSql = SQL_INTEGER;
            p.entero = valor.AsLong();
            break;
        case VarType::Double:
        case VarType::Currency:
            p.tipoC = SQL_C_DOUBLE;
            p.tipoSql = SQL_DOUBLE;
            p.real = valor.Type() == VarType::Double ? valor.AsDouble()
                                                    : static_cast<double>(valor.AsCurrency().scaled) / 10000.0;
            p.tamano = 15;
            break;
        case VarType::Date: {
            if (sistema == MotorOdbc::Sistema::Sqlite) {
                // SQLite keeps dates as text; its driver would write a
                // timestamp with milliseconds, which the system's glued
                // comparisons and the embedded engine do not expect.
                p.textoPropio = TextoDeFecha(valor.AsDate());
                p.tamano = p.textoPropio.size();
                p.indicador = static_cast<SQLLEN>(p.textoPropio.size());
                break;
            }
            const DateParts partes = SplitDate(valor.AsDate());
            p.tipoC = SQL_C_TYPE_TIMESTAMP;
            p.tipoSql = SQL_TYPE_TIMESTAMP;
            p.fecha.year = static_cast<SQLSMALLINT>(partes.year);
            p.fecha.month = static_cast<SQLUSMALLINT>(partes.month);
            p.fecha.day = static_cast<SQLUSMALLINT>(partes.day);
            p.fecha.hour = static_cast<SQLUSMALLINT>(partes.hour);
            p.fecha.minute = static_cast<SQLUSMALLINT>(partes.minute);
            p.fecha.second = static_cast<SQLUSMALLINT>(partes.second);
            p.tamano = 19;  // 'YYYY-MM-DD HH:MM:SS': to the second, as every engine keeps dates
            break;
        }
        case VarType::String: {
            const std::string& texto = valor.AsString();
            p.Referir(texto.data(), texto.size());
            const bool largo = texto.size() > kLargoCorto;
            // SQL Server keeps the library's texts in NVARCHAR columns: a
            // Unicode type makes the driver send every character, not only
            // those of the server's code page.
            if (sistema == MotorOdbc::Sistema::SqlServer) p.tipoSql = largo ? SQL_WLONGVARCHAR : SQL_WVARCHAR;
            else p.tipoSql = largo ? SQL_LONGVARCHAR : SQL_VARCHAR;
            p.tamano = std::max<SQLULEN>(texto.size(), 1);
            p.indicador = static_cast<SQLLEN>(texto.size());
            break;
        }
        case VarType::Bytes: {
            const Bytes& bytes = valor.AsBytes();
            p.Referir(bytes.data(), bytes.size());
            p.tipoC = SQL_C_BINARY;
            p.tipoSql = bytes.size() > kLargoCorto ? SQL_LONGVARBINARY : SQL_VARBINARY;
            p.tamano = std::max<SQLULEN>(bytes.size(), 1);
            p.indicador = static_cast<SQLLEN>(bytes.size());
            break;
        }
        case VarType::Object:
            throw TypeMismatch();
    }
    return p;
}

void Enlazar(const Sentencia& sentencia, std::vector<Parametro>& parametros) {
    for (std::size_t i = 0; i < parametros.size(); ++i) {
        Parametro& p = parametros[i];
        sentencia.Exigir(SQLBindParameter(sentencia.get(), static_cast<SQLUSMALLINT>(i + 1), SQL_PARAM_INPUT, p.tipoC,
                                          p.tipoSql, p.tamano, p.decimales, p.Datos(), p.LargoDeBuffer(),
                                          &p.indicador),
                         "SQLBindParameter");
    }
}

// --- columns -----------------------------------------------------------------

// A text attribute of a result column, "" when the driver has none.
std::string AtributoDeColumna(SQLHSTMT sentencia, SQLUSMALLINT columna, SQLUSMALLINT atributo) {
    std::vector<char> buffer(256);
    for (;;) {
        SQLSMALLINT largo = 0;
        const SQLRETURN rc = SQLColAttribute(sentencia, columna, atributo, buffer.data(),
                                             static_cast<SQLSMALLINT>(buffer.size()), &largo, nullptr);
        if (!SQL_SUCCEEDED(rc)) return "";
        if (static_cast<std::size_t>(largo) < buffer.size()) return std::string(buffer.data());
        buffer.assign(static_cast<std::size_t>(largo) + 1, '\0');
    }
}

// How a column's values are read, from the type the driver describes.
enum class Lectura { Fecha, Hora, Corto, Entero, Real, Binario, Texto };

Lectura LecturaDe(SQLSMALLINT tipo) {
    switch (tipo) {
        case SQL_TYPE_TIMESTAMP:
        case SQL_TYPE_DATE:
        case SQL_TIMESTAMP:
        case SQL_DATE:
            return Lectura::Fecha;
        case SQL_TYPE_TIME:
        case SQL_TIME:
            return Lectura::Hora;
        case SQL_SMALLINT:
        case SQL_TINYINT:
        case SQL_BIT:
            return Lectura::Corto;
        case SQL_INTEGER:
        case SQL_BIGINT:
            return Lectura::Entero;
        case SQL_REAL:
        case SQL_FLOAT:
        case SQL_DOUBLE:
        case SQL_NUMERIC:
        case SQL_DECIMAL:
            return Lectura::Real;
        case SQL_BINARY:
        case SQL_VARBINARY:
        case SQL_LONGVARBINARY:
            return Lectura::Binario;
        default:
            return Lectura::Texto;
    }
}

struct ColumnaLeida {
    Columna columna;
    Lectura lectura = Lectura::Texto;
};

ColumnaLeida DescribirColumna(const Sentencia& sentencia, SQLUSMALLINT numero) {
    std::vector<SQLCHAR> nombre(256);
    SQLSMALLINT largoNombre = 0, tipo = 0, decimales = 0, nulos = 0;
    SQLULEN tamano = 0;
    for (;;) {
        sentencia.Exigir(SQLDescribeCol(sentencia.get(), numero, nombre.data(), static_cast<SQLSMALLINT>(nombre.size()),
                                        &largoNombre, &tipo, &tamano, &decimales, &nulos),
                         "SQLDescribeCol");
        if (static_cast<std::size_t>(largoNombre) < nombre.size()) break;
        nombre.assign(static_cast<std::size_t>(largoNombre) + 1, 0);
    }
    ColumnaLeida leida;
    leida.columna.nombre = reinterpret_cast<const char*>(nombre.data());
    leida.lectura = LecturaDe(tipo);
    leida.columna.tablaBase = AtributoDeColumna(sentencia.get(), numero, SQL_DESC_BASE_TABLE_NAME);
    if (leida.columna.tablaBase.empty())
        leida.columna.tablaBase = AtributoDeColumna(sentencia.get(), numero, SQL_DESC_TABLE_NAME);
    // An expression has no table, whatever the driver says of its column.
    if (!leida.columna.tablaBase.empty())
        leida.columna.columnaBase = AtributoDeColumna(sentencia.get(), numero, SQL_DESC_BASE_COLUMN_NAME);
    if (leida.columna.columnaBase.empty()) leida.columna.tablaBase.clear();
    return leida;
}

// --- values ------------------------------------------------------------------

Variant DeEntero(long long numero, bool corto) {
    using Corto = std::numeric_limits<std::int16_t>;
    if (corto && numero >= Corto::min() && numero <= Corto::max())
        return Variant::Integer(static_cast<std::int16_t>(numero));
    if (numero >= std::numeric_limits<std::int32_t>::min() && numero <= std::numeric_limits<std::int32_t>::max())
        return Variant::Long(static_cast<std::int32_t>(numero));
    return Variant(static_cast<double>(numero));
}

// A timestamp as a Date, exact to the fraction the driver gives. MySQL's
// zero date ('0000-00-00') stands for no date and reads as Null.
Variant DeFecha(const SQL_TIMESTAMP_STRUCT& t) {
    if (t.year == 0 && t.month == 0 && t.day == 0) return Variant::Null();
    const long long dia = NumeroDeDia({t.year, t.month, t.day});
    const double segundos = t.hour * 3600.0 + t.minute * 60.0 + t.second + t.fraction / 1e9;
    const double fraccion = segundos / 86400.0;
    return Date{dia >= 0 ? static_cast<double>(dia) + fraccion : static_cast<double>(dia) - fraccion};
}

// Reads a value in pieces until the driver has none left: long texts and
// binaries do not fit one call.
template <class Trozo>
bool LeerPorPartes(const Sentencia& sentencia, SQLUSMALLINT columna, SQLSMALLINT tipoC, Trozo&& trozo) {
    std::vector<char> buffer(8192);
    bool alguno = false;
    for (;;) {
        SQLLEN indicador = 0;
        const SQLRETURN rc = SQLGetData(sentencia.get(), columna, tipoC, buffer.data(),
                                        static_cast<SQLLEN>(buffer.size()), &indicador);
        if (rc == SQL_NO_DATA) return alguno;
        sentencia.Exigir(rc, "SQLGetData");
        if (indicador == SQL_NULL_DATA) return false;
        alguno = true;
        trozo(buffer, indicador);
        if (rc == SQL_SUCCESS) return true;
    }
}

Variant LeerValor(const Sentencia& sentencia, SQLUSMALLINT columna, Lectura lectura) {
    SQLLEN indicador = 0;
    auto fijo = [&](SQLSMALLINT tipoC, void* destino, SQLLEN largo) {
        sentencia.Exigir(SQLGetData(sentencia.get(), columna, tipoC, destino, largo, &indicador), "SQLGetData");
        return indicador != SQL_NULL_DATA;
    };
    switch (lectura) {
        case Lectura::Fecha: {
            SQL_TIMESTAMP_STRUCT t{};
            return fijo(SQL_C_TYPE_TIMESTAMP, &t, sizeof t) ? DeFecha(t) : Variant::Null();
        }
        case Lectura::Hora: {
            SQL_TIME_STRUCT t{};
            if (!fijo(SQL_C_TYPE_TIME, &t, sizeof t)) return Variant::Null();
            return Date{(t.hour * 3600.0 + t.minute * 60.0 + t.second) / 86400.0};
        }
        case Lectura::Corto:
        case Lectura::Entero: {
            SQLBIGINT numero = 0;
            if (!fijo(SQL_C_SBIGINT, &numero, sizeof numero)) return Variant::Null();
            return DeEntero(numero, lectura == Lectura::Corto);
        }
        case Lectura::Real: {
            double numero = 0;
            return fijo(SQL_C_DOUBLE, &numero, sizeof numero) ? Variant(numero) : Variant::Null();
        }
        case Lectura::Binario: {
            Bytes bytes;
            auto trozo = [&](const std::vector<char>& b, SQLLEN ind) {
                // A piece that did not fit filled the whole buffer.
                const bool lleno = ind == SQL_NO_TOTAL || static_cast<std::size_t>(ind) > b.size();
                const std::size_t n = lleno ? b.size() : static_cast<std::size_t>(ind);
                bytes.insert(bytes.end(), b.begin(), b.begin() + static_cast<std::ptrdiff_t>(n));
            };
            const bool hay = LeerPorPartes(sentencia, columna, SQL_C_BINARY, trozo);
            return hay ? Variant(std::move(bytes)) : Variant::Null();
        }
        case Lectura::Texto: {
            std::string texto;
            auto trozo = [&](const std::vector<char>& b, SQLLEN ind) {
                // Each piece of text ends with the driver's terminating zero.
                // One that did not fit runs up to that zero: a driver may stop
                // short of the buffer's end so as not to split a character.
                const std::size_t cabe = b.size() - 1;
                const bool lleno = ind == SQL_NO_TOTAL || static_cast<std::size_t>(ind) > cabe;
                texto.append(b.data(), lleno ? ::strnlen(b.data(), cabe) : static_cast<std::size_t>(ind));
            };
            const bool hay = LeerPorPartes(sentencia, columna, SQL_C_CHAR, trozo);
            return hay ? Variant(std::move(texto)) : Variant::Null();
        }
    }
    return Variant::Null();
}

// Every row of the statement's result set.
Resultado LeerFilas(const Sentencia& sentencia, SQLSMALLINT numeroDeColumnas) {
    Resultado resultado;
    resultado.tieneFilas = true;
    std::vector<Lectura> lecturas;
    for (SQLUSMALLINT i = 1; i <= static_cast<SQLUSMALLINT>(numeroDeColumnas); ++i) {
        ColumnaLeida leida = DescribirColumna(sentencia, i);
        resultado.columnas.push_back(std::move(leida.columna));
        lecturas.push_back(leida.lectura);
    }
    for (;;) {
        const SQLRETURN rc = SQLFetch(sentencia.get());
        if (rc == SQL_NO_DATA) break;
        sentencia.Exigir(rc, "SQLFetch");
        std::vector<Variant> fila;
        fila.reserve(lecturas.size());
        for (std::size_t i = 0; i < lecturas.size(); ++i)
            fila.push_back(LeerValor(sentencia, static_cast<SQLUSMALLINT>(i + 1), lecturas[i]));
        resultado.filas.push_back(std::move(fila));
    }
    return resultado;
}

std::int64_t ComoEntero(const Variant& valor) {
    switch (valor.Type()) {
        case VarType::Integer:
            return valor.AsInteger();
        case VarType::Long:
            return valor.AsLong();
        case VarType::Double:
            return std::llround(valor.AsDouble());
        case VarType::String: {
            const std::string& texto = valor.AsString();
            char* fin = nullptr;
            const long long numero = std::strtoll(texto.c_str(), &fin, 10);
            if (fin == texto.c_str() || *fin != '\0') throw TypeMismatch();
            return numero;
        }
        case VarType::Null:
        case VarType::Empty:
            return 0;
        default:
            throw TypeMismatch();
    }
}

// The key columns of a table as the driver names them, in order.
std::vector<std::string> ClaveDe(SQLHDBC conexion, const std::string& tabla) {
    Sentencia sentencia(conexion);
    SQLRETURN rc = SQLPrimaryKeys(sentencia.get(), nullptr, 0, nullptr, 0, Texto(tabla),
                                  static_cast<SQLSMALLINT>(Largo(tabla)));
    // Result columns of SQLPrimaryKeys: 4 COLUMN_NAME, 5 KEY_SEQ; of
    // SQLSpecialColumns: 2 COLUMN_NAME, in the order of the key.
    constexpr std::size_t columnaNombre = 3;
    constexpr std::size_t columnaOrden = 4;
    if (!SQL_SUCCEEDED(rc)) {
        const std::string estado = odbc::EstadoDe(SQL_HANDLE_STMT, sentencia.get());
        if (estado != "IM001" && estado != "HYC00") sentencia.Exigir(rc, "SQLPrimaryKeys");
        // A driver without SQLPrimaryKeys (Access's) still names the columns
        // that identify a row best, which is the primary key where there is one.
        Sentencia especiales(conexion);
        especiales.Exigir(SQLSpecialColumns(especiales.get(), SQL_BEST_ROWID, nullptr, 0, nullptr, 0, Texto(tabla),
                                            static_cast<SQLSMALLINT>(Largo(tabla)), SQL_SCOPE_CURROW, SQL_NULLABLE),
                          "SQLSpecialColumns");
        SQLSMALLINT columnas = 0;
        especiales.Exigir(SQLNumResultCols(especiales.get(), &columnas), "SQLNumResultCols");
        const Resultado filas = LeerFilas(especiales, columnas);
        std::vector<std::string> clave;
        for (const auto& fila : filas.filas)
            if (fila.size() > 1 && fila[1].Type() == VarType::String) clave.push_back(fila[1].AsString());
        return clave;
    }
    SQLSMALLINT columnas = 0;
    sentencia.Exigir(SQLNumResultCols(sentencia.get(), &columnas), "SQLNumResultCols");
    Resultado filas = LeerFilas(sentencia, columnas);
    std::vector<std::pair<std::int64_t, std::string>> partes;
    for (const auto& fila : filas.filas)
        if (fila.size() > columnaOrden && fila[columnaNombre].Type() == VarType::String)
            partes.emplace_back(ComoEntero(fila[columnaOrden]), fila[columnaNombre].AsString());
    std::sort(partes.begin(), partes.end());
    std::vector<std::string> clave;
    for (auto& [orden, nombre] : partes) clave.push_back(std::move(nombre));
    return clave;
}

}  // namespace

// --- the engine --------------------------------------------------------------

MotorOdbc::MotorOdbc(const std::string& cadenaDeConexion) {
    try {
        Conectar(cadenaDeConexion);
        if (sistema_ == Sistema::MySql) {
            const std::string conFilas = ConFilasEncontradas(cadenaDeConexion);
            if (conFilas != cadenaDeConexion) {
                Desconectar();
                Conectar(conFilas);
            }
            // Strict mode for this session whatever the server's setting: a
            // text longer than its column, or a number out of its range, is
            // refused with the server's message instead of being cut with a
            // warning, for every table, transactional or not.
            Ejecutar("SET SESSION sql_mode=CONCAT_WS(',', NULLIF(@@SESSION.sql_mode, ''), 'STRICT_ALL_TABLES')");
        }
    } catch (...) {
        Desconectar();
        throw;
    }
}

MotorOdbc::~MotorOdbc() { Cerrar(); }

void MotorOdbc::Conectar(const std::string& cadena) {
    SQLHENV entorno = SQL_NULL_HENV;
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &entorno)))
        throw Fault{odbc::kFallaGenerica,
                    "No se pudo crear el entorno ODBC: falta memoria o el gestor de controladores."};
    entorno_ = entorno;
    if (!SQL_SUCCEEDED(SQLSetEnvAttr(entorno, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0)))
        throw odbc::FaultDe(SQL_HANDLE_ENV, entorno, "SQLSetEnvAttr");
    SQLHDBC conexion = SQL_NULL_HDBC;
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_DBC, entorno, &conexion)))
        throw odbc::FaultDe(SQL_HANDLE_ENV, entorno, "SQLAllocHandle");
    SQLCHAR completa[1024];
    SQLSMALLINT largo = 0;
    const SQLRETURN rc = SQLDriverConnect(conexion, nullptr, Texto(cadena.c_str()), SQL_NTS, completa, sizeof completa,
                                          &largo, SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(rc)) {
        Fault fault = odbc::FaultDe(SQL_HANDLE_DBC, conexion, "SQLDriverConnect");
        SQLFreeHandle(SQL_HANDLE_DBC, conexion);
        throw fault;
    }
    conexion_ = conexion;

    SQLCHAR nombre[256] = {};
    SQLSMALLINT largoNombre = 0;
    if (!SQL_SUCCEEDED(SQLGetInfo(conexion, SQL_DBMS_NAME, nombre, sizeof nombre, &largoNombre)))
        throw odbc::FaultDe(SQL_HANDLE_DBC, conexion, "SQLGetInfo");
    gestor_ = reinterpret_cast<const char*>(nombre);
    sistema_ = SistemaDe(gestor_);
}

void MotorOdbc::Desconectar() {
    if (conexion_ != nullptr) {
        // A connection in a transaction cannot be closed: what it did not
        // commit is rolled back.
        if (enTransaccion_) SQLEndTran(SQL_HANDLE_DBC, conexion_, SQL_ROLLBACK);
        SQLDisconnect(conexion_);
        SQLFreeHandle(SQL_HANDLE_DBC, conexion_);
    }
    if (entorno_ != nullptr) SQLFreeHandle(SQL_HANDLE_ENV, entorno_);
    conexion_ = nullptr;
    entorno_ = nullptr;
    enTransaccion_ = false;
}

bool MotorOdbc::Abierto() const { return conexion_ != nullptr; }
void MotorOdbc::Cerrar() { Desconectar(); }

void* MotorOdbc::Conexion() const {
    if (conexion_ == nullptr) throw ObjetoCerrado();
    return conexion_;
}

Resultado MotorOdbc::Ejecutar(const std::string& sql, Parametros parametros) {
    SQLHDBC conexion = Conexion();
    // The one defence against statements glued after a value; the driver
    // sees the statement without its ending ";", which not every engine
    // takes.
    const std::string_view texto = SentenciaUnica(sql);
    Sentencia sentencia(conexion);

    SQLRETURN rc;
    if (parametros.empty()) {
        rc = SQLExecDirect(sentencia.get(), Texto(texto), Largo(texto));
    } else {
        sentencia.Exigir(SQLPrepare(sentencia.get(), Texto(texto), Largo(texto)), "SQLPrepare");
        SQLSMALLINT esperados = 0;
        if (SQL_SUCCEEDED(SQLNumParams(sentencia.get(), &esperados)) &&
            static_cast<std::size_t>(esperados) != parametros.size())
            throw Fault{3001, "Marcas de parámetro (?) en la sentencia: " + std::to_string(esperados) +
                                  "; valores dados: " + std::to_string(parametros.size()) + "."};
        std::vector<Parametro> enlazados;
        enlazados.reserve(parametros.size());
        for (std::size_t i = 0; i < parametros.size(); ++i)
            enlazados.push_back(
                PrepararParametro(parametros[i], sistema_, sentencia.get(), static_cast<SQLUSMALLINT>(i + 1)));
        Enlazar(sentencia, enlazados);
        rc = SQLExecute(sentencia.get());
    }
    // SQL_NO_DATA: a searched UPDATE or DELETE that touched no row.
    if (rc != SQL_NO_DATA) sentencia.Exigir(rc, "SQLExecute");

    SQLSMALLINT columnas = 0;
    if (rc != SQL_NO_DATA) sentencia.Exigir(SQLNumResultCols(sentencia.get(), &columnas), "SQLNumResultCols");
    if (columnas > 0) return LeerFilas(sentencia, columnas);

    Resultado resultado;
    SQLLEN filas = 0;
    if (rc != SQL_NO_DATA && SQL_SUCCEEDED(SQLRowCount(sentencia.get(), &filas)) && filas > 0)
        resultado.afectadas = filas;
    return resultado;
}

std::int64_t MotorOdbc::UltimaClave() {
    const char* sql = nullptr;
    switch (sistema_) {
        case Sistema::MySql:
            sql = "SELECT LAST_INSERT_ID()";
            break;
        case Sistema::Sqlite:
            sql = "SELECT last_insert_rowid()";
            break;
        case Sistema::SqlServer:
        case Sistema::Access:
            sql = "SELECT @@IDENTITY";
            break;
        case Sistema::Otro:
            throw Fault{3251, "No se sabe pedir la clave de la última fila insertada a " + gestor_ + "."};
    }
    const Resultado resultado = Ejecutar(sql);
    if (resultado.filas.empty() || resultado.filas[0].empty()) return 0;
    return ComoEntero(resultado.filas[0][0]);
}

std::vector<std::string> MotorOdbc::ClavePrimaria(const std::string& tabla) {
    SQLHDBC conexion = Conexion();
    std::vector<std::string> clave = ClaveDe(conexion, tabla);
    // MySQL with lower_case_table_names=1 keeps every table name in lower
    // case, and its catalogue compares the name it is given exactly.
    if (clave.empty() && LCase(tabla) != tabla) clave = ClaveDe(conexion, LCase(tabla));
    return clave;
}

void MotorOdbc::IniciarTransaccion() {
    SQLHDBC conexion = Conexion();
    if (enTransaccion_) throw NoPermitidoEnContexto();
    if (!SQL_SUCCEEDED(SQLSetConnectAttr(conexion, SQL_ATTR_AUTOCOMMIT,
                                         reinterpret_cast<SQLPOINTER>(static_cast<SQLULEN>(SQL_AUTOCOMMIT_OFF)),
                                         SQL_IS_UINTEGER)))
        throw odbc::FaultDe(SQL_HANDLE_DBC, conexion, "SQLSetConnectAttr");
    enTransaccion_ = true;
}

void MotorOdbc::Terminar(short como) {
    SQLHDBC conexion = Conexion();
    if (!enTransaccion_) throw NoPermitidoEnContexto();
    // A commit that fails leaves the transaction open, to be rolled back.
    if (!SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, conexion, como)))
        throw odbc::FaultDe(SQL_HANDLE_DBC, conexion, "SQLEndTran");
    enTransaccion_ = false;
    if (!SQL_SUCCEEDED(SQLSetConnectAttr(conexion, SQL_ATTR_AUTOCOMMIT,
                                         reinterpret_cast<SQLPOINTER>(static_cast<SQLULEN>(SQL_AUTOCOMMIT_ON)),
                                         SQL_IS_UINTEGER)))
        throw odbc::FaultDe(SQL_HANDLE_DBC, conexion, "SQLSetConnectAttr");
}

void MotorOdbc::ConfirmarTransaccion() { Terminar(SQL_COMMIT); }
void MotorOdbc::RevertirTransaccion() { Terminar(SQL_ROLLBACK); }
bool MotorOdbc::EnTransaccion() const { return conexion_ != nullptr && enTransaccion_; }

std::unique_ptr<Motor> AbrirMotorOdbc(const std::string& connectionString) {
    return std::make_unique<MotorOdbc>(connectionString);
}

std::shared_ptr<ConexionMotor> AbrirOdbc(const std::string& connectionString) {
    return std::make_shared<ConexionMotor>(AbrirMotorOdbc(connectionString));
}

}  // namespace celdora::platform

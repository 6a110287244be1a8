#include "platform/mariadb/MotorMariadb.h"

#include <errmsg.h>
#include <mysql.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <limits>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "platform/common/FallasAdo.h"
#include "platform/common/FechaTexto.h"
#include "platform/common/UnaSentencia.h"
#include "platform/mariadb/ErrorMariadb.h"
#include "platform/mariadb/Mariadb.h"

namespace celdora::platform {

namespace {

struct CerrarSentencia {
    void operator()(MYSQL_STMT* sentencia) const { mysql_stmt_close(sentencia); }
};
using Sentencia = std::unique_ptr<MYSQL_STMT, CerrarSentencia>;

struct LiberarResultado {
    void operator()(MYSQL_RES* resultado) const { mysql_free_result(resultado); }
};
using Metadatos = std::unique_ptr<MYSQL_RES, LiberarResultado>;

struct CerrarConexion {
    void operator()(MYSQL* db) const { mysql_close(db); }
};

// The collation number the server gives binary data, as opposed to text.
constexpr unsigned int kJuegoBinario = 63;
constexpr double kSegundosPorDia = 86400.0;

// How a column's values become Variants.
enum class Clase { Nulo, Corto, Entero, Real, Decimal, Fecha, Hora, Bits, Texto, Binario };

Clase ClaseDe(const MYSQL_FIELD& campo) {
    switch (campo.type) {
        case MYSQL_TYPE_NULL:
            return Clase::Nulo;
        case MYSQL_TYPE_TINY:
        case MYSQL_TYPE_SHORT:
        case MYSQL_TYPE_YEAR:
            return Clase::Corto;
        case MYSQL_TYPE_LONG:
        case MYSQL_TYPE_INT24:
        case MYSQL_TYPE_LONGLONG:
            return Clase::Entero;
        case MYSQL_TYPE_FLOAT:
        case MYSQL_TYPE_DOUBLE:
            return Clase::Real;
        case MYSQL_TYPE_DECIMAL:
        case MYSQL_TYPE_NEWDECIMAL:
            return Clase::Decimal;
        case MYSQL_TYPE_DATE:
        case MYSQL_TYPE_NEWDATE:
        case MYSQL_TYPE_DATETIME:
        case MYSQL_TYPE_DATETIME2:
        case MYSQL_TYPE_TIMESTAMP:
        case MYSQL_TYPE_TIMESTAMP2:
            return Clase::Fecha;
        case MYSQL_TYPE_TIME:
        case MYSQL_TYPE_TIME2:
            return Clase::Hora;
        case MYSQL_TYPE_BIT:
            return Clase::Bits;
        default:
            return campo.charsetnr == kJuegoBinario ? Clase::Binario : Clase::Texto;
    }
}

bool SinSigno(const MYSQL_FIELD& campo) { return (campo.flags & UNSIGNED_FLAG) != 0; }

Columna ColumnaDe(const MYSQL_FIELD& campo) {
    Columna columna;
    if (campo.name != nullptr) columna.nombre.assign(campo.name, campo.name_length);
    if (campo.org_table != nullptr) columna.tablaBase.assign(campo.org_table, campo.org_table_length);
    if (campo.org_name != nullptr) columna.columnaBase.assign(campo.org_name, campo.org_name_length);
    // A column of a derived table or a view's expression has a name but no
    // table: either both are known or neither.
    if (columna.tablaBase.empty() || columna.columnaBase.empty()) {
        columna.tablaBase.clear();
        columna.columnaBase.clear();
    }
    return columna;
}

// Integers: 16-bit for the short types when they fit, 32-bit when they fit,
// a double beyond that.
Variant DeEntero(std::int64_t numero, Clase clase) {
    if (clase == Clase::Corto && numero >= std::numeric_limits<std::int16_t>::min() &&
        numero <= std::numeric_limits<std::int16_t>::max())
        return Variant::Integer(static_cast<std::int16_t>(numero));
    if (numero >= std::numeric_limits<std::int32_t>::min() && numero <= std::numeric_limits<std::int32_t>::max())
        return Variant::Long(static_cast<std::int32_t>(numero));
    return Variant(static_cast<double>(numero));
}

Variant DeEnteroSinSigno(std::uint64_t numero, Clase clase) {
    if (numero > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()))
        return Variant(static_cast<double>(numero));
    return DeEntero(static_cast<std::int64_t>(numero), clase);
}

// A BIT column arrives as its bytes, the most significant first.
Variant DeBits(const unsigned char* datos, std::size_t cuantos) {
    std::uint64_t numero = 0;
    for (std::size_t i = 0; i < cuantos; ++i) numero = (numero << 8) | datos[i];
    return DeEnteroSinSigno(numero, Clase::Entero);
}

Variant DeHora(bool negativa, unsigned long horas, unsigned int minutos, double segundos) {
    const double total = static_cast<double>(horas) * 3600.0 + minutos * 60.0 + segundos;
    return Date{(negativa ? -total : total) / kSegundosPorDia};
}

// A date or date-time; the zero date some servers keep for "no date" is Null,
// and a date the value model cannot hold stays as the server's text.
Variant DeFecha(std::string_view texto) {
    if (texto.starts_with("0000-00-00")) return Variant::Null();
    if (const auto fecha = FechaDeTexto(texto)) return *fecha;
    return Variant(std::string(texto));
}

Variant DeTiempo(const MYSQL_TIME& t) {
    if (t.time_type == MYSQL_TIMESTAMP_TIME)
        return DeHora(t.neg != 0, t.hour, t.minute, t.second + static_cast<double>(t.second_part) / 1e6);
    char texto[64];
    std::snprintf(texto, sizeof texto, "%04u-%02u-%02u %02u:%02u:%02u.%06lu", t.year, t.month, t.day, t.hour,
                  t.minute, t.second, t.second_part);
    return DeFecha(texto);
}

std::optional<double> Doble(std::string_view texto) {
    double numero = 0;
    const auto leido = std::from_chars(texto.data(), texto.data() + texto.size(), numero);
    if (leido.ec != std::errc{} || leido.ptr != texto.data() + texto.size()) return std::nullopt;
    return numero;
}

// "[-]H:MM:SS[.ffffff]", hours beyond 24 allowed, as the server writes TIME.
std::optional<Variant> HoraDeTexto(std::string_view texto) {
    const bool negativa = texto.starts_with('-');
    if (negativa) texto.remove_prefix(1);
    const auto p1 = texto.find(':');
    const auto p2 = p1 == std::string_view::npos ? p1 : texto.find(':', p1 + 1);
    if (p2 == std::string_view::npos) return std::nullopt;
    auto entero = [](std::string_view parte, auto& numero) {
        const char* fin = parte.data() + parte.size();
        const auto leido = std::from_chars(parte.data(), fin, numero);
        return !parte.empty() && leido.ec == std::errc{} && leido.ptr == fin;
    };
    unsigned long horas = 0;
    unsigned int minutos = 0;
    if (!entero(texto.substr(0, p1), horas) || !entero(texto.substr(p1 + 1, p2 - p1 - 1), minutos))
        return std::nullopt;
    const auto segundos = Doble(texto.substr(p2 + 1));
    if (!segundos) return std::nullopt;
    return DeHora(negativa, horas, minutos, *segundos);
}

// A value of the text protocol, read by the column's type.
Variant DeTexto(const MYSQL_FIELD& campo, Clase clase, const char* datos, unsigned long largo) {
    if (datos == nullptr) return Variant::Null();
    const std::string_view texto(datos, largo);
    switch (clase) {
        case Clase::Nulo:
            return Variant::Null();
        case Clase::Corto:
        case Clase::Entero:
            if (SinSigno(campo)) {
                std::uint64_t numero = 0;
                const auto leido = std::from_chars(texto.data(), texto.data() + texto.size(), numero);
                if (leido.ec == std::errc{} && leido.ptr == texto.data() + texto.size())
                    return DeEnteroSinSigno(numero, clase);
            } else {
                std::int64_t numero = 0;
                const auto leido = std::from_chars(texto.data(), texto.data() + texto.size(), numero);
                if (leido.ec == std::errc{} && leido.ptr == texto.data() + texto.size()) return DeEntero(numero, clase);
            }
            break;
        case Clase::Real:
        case Clase::Decimal:
            if (const auto numero = Doble(texto)) return Variant(*numero);
            break;
        case Clase::Fecha:
            return DeFecha(texto);
        case Clase::Hora:
            if (auto hora = HoraDeTexto(texto)) return std::move(*hora);
            break;
        case Clase::Bits:
            return DeBits(reinterpret_cast<const unsigned char*>(datos), largo);
        case Clase::Binario: {
            const auto* bytes = reinterpret_cast<const std::uint8_t*>(datos);
            return Variant(Bytes(bytes, bytes + largo));
        }
        case Clase::Texto:
            break;
    }
    return Variant(std::string(texto));
}

// Texts and byte arrays from this size on are sent in pieces of kPieza.
constexpr unsigned long kLargoEnPiezas = 1UL << 20;
constexpr unsigned long kPieza = 1UL << 20;

// The storage of one bound parameter, which must outlive the execution.
struct Parametro {
    std::int64_t entero = 0;
    double real = 0;
    MYSQL_TIME tiempo{};
    unsigned long largo = 0;
};

void Enlazar(MYSQL_STMT* sentencia, Parametros parametros, std::vector<MYSQL_BIND>& enlaces,
             std::vector<Parametro>& datos) {
    const unsigned long esperados = mysql_stmt_param_count(sentencia);
    if (esperados != parametros.size())
        throw Fault{CR_INVALID_PARAMETER_NO, "The statement takes " + std::to_string(esperados) + " parameters and " +
                                                 std::to_string(parametros.size()) + " were given."};
    if (parametros.empty()) return;
    enlaces.assign(parametros.size(), MYSQL_BIND{});
    datos.assign(parametros.size(), Parametro{});
    // Connector/C reads an empty blob or text through a non-null pointer.
    static const char kVacio = 0;
    for (std::size_t i = 0; i < parametros.size(); ++i) {
        const Variant& valor = parametros[i];
        MYSQL_BIND& enlace = enlaces[i];
        Parametro& dato = datos[i];
        switch (valor.Type()) {
            case VarType::Empty:
            case VarType::Null:
                enlace.buffer_type = MYSQL_TYPE_NULL;
                break;
            case VarType::Boolean:
                dato.entero = valor.AsBoolean() ? -1 : 0;
                enlace.buffer_type = MYSQL_TYPE_LONGLONG;
                enlace.buffer = &dato.entero;
                break;
            case VarType::Integer:
                dato.entero = valor.AsInteger();
                enlace.buffer_type = MYSQL_TYPE_LONGLONG;
                enlace.buffer = &dato.entero;
                break;
            case VarType::Long:
                dato.entero = valor.AsLong();
                enlace.buffer_type = MYSQL_TYPE_LONGLONG;
                enlace.buffer = &dato.entero;
                break;
            case VarType::Double:
                dato.real = valor.AsDouble();
                enlace.buffer_type = MYSQL_TYPE_DOUBLE;
                enlace.buffer = &dato.real;
                break;
            case VarType::Currency:
                dato.real = static_cast<double>(valor.AsCurrency().scaled) / 10000.0;
                enlace.buffer_type = MYSQL_TYPE_DOUBLE;
                enlace.buffer = &dato.real;
                break;
            case VarType::Date: {
                const DateParts partes = SplitDate(valor.AsDate());
                dato.tiempo.year = static_cast<unsigned int>(partes.year);
                dato.tiempo.month = static_cast<unsigned int>(partes.month);
                dato.tiempo.day = static_cast<unsigned int>(partes.day);
                dato.tiempo.hour = static_cast<unsigned int>(partes.hour);
                dato.tiempo.minute = static_cast<unsigned int>(partes.minute);
                dato.tiempo.second = static_cast<unsigned int>(partes.second);
                dato.tiempo.time_type = MYSQL_TIMESTAMP_DATETIME;
                enlace.buffer_type = MYSQL_TYPE_DATETIME;
                enlace.buffer = &dato.tiempo;
                enlace.buffer_length = sizeof dato.tiempo;
                break;
            }
            case VarType::String: {
                const std::string& texto = valor.AsString();
                dato.largo = texto.size();
                enlace.buffer_type = MYSQL_TYPE_STRING;
                enlace.buffer = const_cast<char*>(texto.empty() ? &kVacio : texto.data());
                enlace.buffer_length = dato.largo;
                enlace.length = &dato.largo;
                break;
            }
            case VarType::Bytes: {
                const Bytes& bytes = valor.AsBytes();
                dato.largo = bytes.size();
                enlace.buffer_type = MYSQL_TYPE_BLOB;
                enlace.buffer = bytes.empty() ? const_cast<char*>(&kVacio)
                                              : static_cast<void*>(const_cast<std::uint8_t*>(bytes.data()));
                enlace.buffer_length = dato.largo;
                enlace.length = &dato.largo;
                break;
            }
            case VarType::Object:
                throw TypeMismatch();
        }
    }
    if (mysql_stmt_bind_param(sentencia, enlaces.data()) != 0) throw mariadb::FaultDe(sentencia);
    // A long text or byte array goes to the server in pieces before the
    // execution: bound as a whole, the client library would copy it into
    // the execution's request, a second copy of a value of megabytes.
    for (std::size_t i = 0; i < enlaces.size(); ++i) {
        if (enlaces[i].length == nullptr || datos[i].largo < kLargoEnPiezas) continue;
        const char* desde = static_cast<const char*>(enlaces[i].buffer);
        for (unsigned long enviado = 0; enviado < datos[i].largo; enviado += kPieza) {
            const unsigned long pieza = std::min(kPieza, datos[i].largo - enviado);
            if (mysql_stmt_send_long_data(sentencia, static_cast<unsigned int>(i), desde + enviado, pieza) != 0)
                throw mariadb::FaultDe(sentencia);
        }
    }
}

// The storage one result column is fetched into.
struct Celda {
    Clase clase = Clase::Texto;
    std::int64_t entero = 0;
    double real = 0;
    MYSQL_TIME tiempo{};
    std::vector<char> bytes;  // texts, binary, decimals and bits
    unsigned long largo = 0;
    my_bool nulo = 0;
    my_bool error = 0;
};

void PrepararCelda(const MYSQL_FIELD& campo, Celda& celda, MYSQL_BIND& enlace) {
    celda.clase = ClaseDe(campo);
    enlace = MYSQL_BIND{};
    enlace.is_null = &celda.nulo;
    enlace.error = &celda.error;
    enlace.length = &celda.largo;
    switch (celda.clase) {
        case Clase::Corto:
        case Clase::Entero:
            enlace.buffer_type = MYSQL_TYPE_LONGLONG;
            enlace.buffer = &celda.entero;
            enlace.is_unsigned = SinSigno(campo) ? 1 : 0;
            return;
        case Clase::Real:
            enlace.buffer_type = MYSQL_TYPE_DOUBLE;
            enlace.buffer = &celda.real;
            return;
        case Clase::Fecha:
            enlace.buffer_type = MYSQL_TYPE_DATETIME;
            enlace.buffer = &celda.tiempo;
            enlace.buffer_length = sizeof celda.tiempo;
            return;
        case Clase::Hora:
            enlace.buffer_type = MYSQL_TYPE_TIME;
            enlace.buffer = &celda.tiempo;
            enlace.buffer_length = sizeof celda.tiempo;
            return;
        default:
            // max_length is the longest value of a stored result (0 for rows
            // read from a cursor); a longer value makes the buffer grow.
            celda.bytes.resize(std::max<unsigned long>(campo.max_length, 1));
            enlace.buffer_type = MYSQL_TYPE_BLOB;
            enlace.buffer = celda.bytes.data();
            enlace.buffer_length = celda.bytes.size();
            return;
    }
}

// The rows of a prepared statement, each column fetched into its cell and
// made a value. The statement's result is stored on the client or read
// from a cursor on the server; the cells serve both. A statement given to
// it is closed (and its cursor with it) once the rows end.
class FilasPreparadas : public Cursor {
public:
    // Binds the columns of the statement just executed, whose descriptions
    // go into columnas.
    FilasPreparadas(MYSQL_STMT* sentencia, std::vector<Columna>& columnas, Sentencia propia = nullptr)
        : sentencia_(sentencia), propia_(std::move(propia)) {
        metadatos_.reset(mysql_stmt_result_metadata(sentencia_));
        if (!metadatos_) throw mariadb::FaultDe(sentencia_);
        const unsigned int cuantas = mysql_num_fields(metadatos_.get());
        campos_ = mysql_fetch_fields(metadatos_.get());
        celdas_.resize(cuantas);
        enlaces_.resize(cuantas);
        for (unsigned int i = 0; i < cuantas; ++i) {
            columnas.push_back(ColumnaDe(campos_[i]));
            PrepararCelda(campos_[i], celdas_[i], enlaces_[i]);
        }
        Enlazar();
    }

    bool Siguiente(std::vector<Variant>& fila) override {
        if (terminadas_) return false;
        if (reenlazar_) Enlazar();
        const int rc = mysql_stmt_fetch(sentencia_);
        if (rc == 1) throw mariadb::FaultDe(sentencia_);
        if (rc == MYSQL_NO_DATA) {
            terminadas_ = true;
            propia_.reset();
            return false;
        }
        fila.clear();
        fila.reserve(celdas_.size());
        for (unsigned int i = 0; i < celdas_.size(); ++i) fila.push_back(Leer(i));
        return true;
    }

private:
    void Enlazar() {
        if (mysql_stmt_bind_result(sentencia_, enlaces_.data()) != 0) throw mariadb::FaultDe(sentencia_);
        reenlazar_ = false;
    }

    Variant Leer(unsigned int indice) {
        const MYSQL_FIELD& campo = campos_[indice];
        Celda& celda = celdas_[indice];
        if (celda.nulo) return Variant::Null();
        switch (celda.clase) {
            case Clase::Corto:
            case Clase::Entero:
                return SinSigno(campo) ? DeEnteroSinSigno(static_cast<std::uint64_t>(celda.entero), celda.clase)
                                       : DeEntero(celda.entero, celda.clase);
            case Clase::Real:
                return Variant(celda.real);
            case Clase::Fecha:
            case Clase::Hora:
                return DeTiempo(celda.tiempo);
            default:
                break;
        }
        if (celda.largo > celda.bytes.size()) {
            // Cut short: the cell grows to the value, which is fetched again,
            // and the next rows are fetched into the larger cell.
            celda.bytes.resize(celda.largo);
            MYSQL_BIND& enlace = enlaces_[indice];
            enlace.buffer = celda.bytes.data();
            enlace.buffer_length = celda.bytes.size();
            MYSQL_BIND columna = enlace;
            if (mysql_stmt_fetch_column(sentencia_, &columna, indice, 0) != 0) throw mariadb::FaultDe(sentencia_);
            reenlazar_ = true;
        }
        return DeTexto(campo, celda.clase, celda.bytes.data(), celda.largo);
    }

    MYSQL_STMT* sentencia_;
    Sentencia propia_;
    Metadatos metadatos_;
    const MYSQL_FIELD* campos_ = nullptr;
    std::vector<Celda> celdas_;
    std::vector<MYSQL_BIND> enlaces_;
    bool reenlazar_ = false;
    bool terminadas_ = false;
};

// The rows of a result stored on the client, made values one at a time.
class FilasGuardadas : public Cursor {
public:
    explicit FilasGuardadas(Metadatos filas)
        : filas_(std::move(filas)), campos_(mysql_fetch_fields(filas_.get())) {
        for (unsigned int i = 0; i < mysql_num_fields(filas_.get()); ++i) clases_.push_back(ClaseDe(campos_[i]));
    }

    bool Siguiente(std::vector<Variant>& fila) override {
        if (!filas_) return false;
        const MYSQL_ROW datos = mysql_fetch_row(filas_.get());
        if (datos == nullptr) {
            filas_.reset();
            return false;
        }
        const unsigned long* largos = mysql_fetch_lengths(filas_.get());
        fila.clear();
        fila.reserve(clases_.size());
        for (std::size_t i = 0; i < clases_.size(); ++i)
            fila.push_back(DeTexto(campos_[i], clases_[i], datos[i], largos[i]));
        return true;
    }

private:
    Metadatos filas_;
    const MYSQL_FIELD* campos_;
    std::vector<Clase> clases_;
};

// Rows touched, with the "no count" of the client library read as none.
std::int64_t Cuenta(my_ulonglong filas) {
    return filas == static_cast<my_ulonglong>(-1) ? 0 : static_cast<std::int64_t>(filas);
}

Sentencia Preparar(MYSQL* db, const std::string& sql) {
    Sentencia sentencia(mysql_stmt_init(db));
    if (!sentencia) throw mariadb::FaultDe(db);
    if (mysql_stmt_prepare(sentencia.get(), sql.data(), sql.size()) != 0) throw mariadb::FaultDe(sentencia.get());
    return sentencia;
}

// Rows a cursor hands to the client at a time.
constexpr unsigned long kFilasPorLote = 1000;

}  // namespace

MotorMariadb::MotorMariadb(MYSQL* db) : db_(db) {}

MotorMariadb::~MotorMariadb() { Cerrar(); }

bool MotorMariadb::Abierto() const { return db_ != nullptr; }

void MotorMariadb::Cerrar() {
    if (db_ != nullptr) mysql_close(db_);
    db_ = nullptr;
}

MYSQL* MotorMariadb::Db() const {
    if (db_ == nullptr) throw ObjetoCerrado();
    return db_;
}

Resultado MotorMariadb::Ejecutar(const std::string& sql, Parametros parametros) {
    MYSQL* db = Db();
    // The server refuses a second statement on its own (no multi-statements
    // on this connection); the shared check refuses it with the same fault
    // on every engine, before anything reaches the server.
    ExigirUnaSentencia(sql);
    // A statement without parameters goes as text: one round trip instead of
    // a prepare and an execute, and the same values come back.
    if (parametros.empty()) return ComoTexto(sql);
    Sentencia sentencia = Preparar(db, sql);

    std::vector<MYSQL_BIND> enlacesParametros;
    std::vector<Parametro> datosParametros;
    Enlazar(sentencia.get(), parametros, enlacesParametros, datosParametros);

    // With it, the stored result knows the longest value of each column and
    // every text or blob is fetched in one go.
    const my_bool calcularLargos = 1;
    mysql_stmt_attr_set(sentencia.get(), STMT_ATTR_UPDATE_MAX_LENGTH, &calcularLargos);

    if (mysql_stmt_execute(sentencia.get()) != 0) throw mariadb::FaultDe(sentencia.get());

    if (mysql_stmt_field_count(sentencia.get()) == 0) return SinFilas(sentencia.get());

    if (mysql_stmt_store_result(sentencia.get()) != 0) throw mariadb::FaultDe(sentencia.get());
    Resultado resultado;
    resultado.tieneFilas = true;
    FilasPreparadas filas(sentencia.get(), resultado.columnas);
    std::vector<Variant> fila;
    while (filas.Siguiente(fila)) resultado.filas.push_back(std::move(fila));
    // A procedure's call ends with a status result of its own; reading past
    // it keeps the connection ready for the next statement.
    while (mysql_stmt_more_results(sentencia.get())) {
        const int rc = mysql_stmt_next_result(sentencia.get());
        if (rc > 0) throw mariadb::FaultDe(sentencia.get());
        if (rc < 0) break;
        mysql_stmt_free_result(sentencia.get());
    }
    return resultado;
}

Resultado MotorMariadb::SinFilas(MYSQL_STMT* sentencia) {
    Resultado resultado;
    resultado.afectadas = Cuenta(mysql_stmt_affected_rows(sentencia));
    if (const auto clave = mysql_stmt_insert_id(sentencia); clave != 0) ultimaClave_ = static_cast<std::int64_t>(clave);
    return resultado;
}

Resultado MotorMariadb::ComoTexto(const std::string& sql) {
    MYSQL* db = Db();
    if (mysql_real_query(db, sql.data(), sql.size()) != 0) throw mariadb::FaultDe(db);

    Resultado resultado;
    Metadatos filas(mysql_store_result(db));
    if (!filas) {
        if (mysql_field_count(db) != 0) throw mariadb::FaultDe(db);
        resultado.afectadas = Cuenta(mysql_affected_rows(db));
        if (const auto clave = mysql_insert_id(db); clave != 0) ultimaClave_ = static_cast<std::int64_t>(clave);
    } else {
        resultado.tieneFilas = true;
        const unsigned int columnas = mysql_num_fields(filas.get());
        const MYSQL_FIELD* campos = mysql_fetch_fields(filas.get());
        for (unsigned int i = 0; i < columnas; ++i) resultado.columnas.push_back(ColumnaDe(campos[i]));
        FilasGuardadas guardadas(std::move(filas));
        std::vector<Variant> valores;
        while (guardadas.Siguiente(valores)) resultado.filas.push_back(std::move(valores));
    }
    while (mysql_more_results(db)) {
        const int rc = mysql_next_result(db);
        if (rc > 0) throw mariadb::FaultDe(db);
        if (rc < 0) break;
        Metadatos resto(mysql_store_result(db));
    }
    return resultado;
}

Resultado MotorMariadb::Recorrer(const std::string& sql) {
    MYSQL* db = Db();
    ExigirUnaSentencia(sql);
    Sentencia sentencia = Preparar(db, sql);
    const unsigned long soloLectura = CURSOR_TYPE_READ_ONLY;
    const unsigned long lote = kFilasPorLote;
    const my_bool calcularLargos = 1;
    if (mysql_stmt_attr_set(sentencia.get(), STMT_ATTR_CURSOR_TYPE, &soloLectura) != 0 ||
        mysql_stmt_attr_set(sentencia.get(), STMT_ATTR_PREFETCH_ROWS, &lote) != 0 ||
        mysql_stmt_attr_set(sentencia.get(), STMT_ATTR_UPDATE_MAX_LENGTH, &calcularLargos) != 0)
        throw mariadb::FaultDe(sentencia.get());
    if (mysql_stmt_execute(sentencia.get()) != 0) throw mariadb::FaultDe(sentencia.get());
    if (mysql_stmt_field_count(sentencia.get()) == 0) return SinFilas(sentencia.get());

    unsigned int estado = 0;
    const bool conCursor = mariadb_get_infov(db, MARIADB_CONNECTION_SERVER_STATUS, &estado) == 0 &&
                           (estado & SERVER_STATUS_CURSOR_EXISTS) != 0;
    Resultado resultado;
    resultado.tieneFilas = true;
    MYSQL_STMT* crudo = sentencia.get();
    auto filas = std::make_unique<FilasPreparadas>(crudo, resultado.columnas, std::move(sentencia));
    if (conCursor) {
        resultado.pendientes = std::move(filas);
    } else {
        // Without a cursor the client library has stored the rows already,
        // and the connection is free only once they are read.
        std::vector<Variant> fila;
        while (filas->Siguiente(fila)) resultado.filas.push_back(std::move(fila));
    }
    return resultado;
}

std::int64_t MotorMariadb::UltimaClave() {
    Db();
    return ultimaClave_;
}

std::vector<std::string> MotorMariadb::ClavePrimaria(const std::string& tabla) {
    // "base.tabla" names a table of another database.
    Variant base = Variant::Null();
    std::string nombre = tabla;
    if (const auto punto = tabla.find('.'); punto != std::string::npos) {
        base = Variant(tabla.substr(0, punto));
        nombre = tabla.substr(punto + 1);
    }
    const Resultado resultado = Ejecutar(
        "SELECT COLUMN_NAME FROM information_schema.KEY_COLUMN_USAGE WHERE TABLE_SCHEMA=COALESCE(?, DATABASE()) "
        "AND TABLE_NAME=? AND CONSTRAINT_NAME='PRIMARY' ORDER BY ORDINAL_POSITION",
        {base, nombre});
    std::vector<std::string> clave;
    for (const auto& fila : resultado.filas) clave.push_back(fila[0].AsString());
    return clave;
}

void MotorMariadb::Directo(const char* sql) {
    MYSQL* db = Db();
    if (mysql_real_query(db, sql, std::char_traits<char>::length(sql)) != 0) throw mariadb::FaultDe(db);
    Metadatos sobrante(mysql_store_result(db));
}

void MotorMariadb::IniciarTransaccion() { Directo("START TRANSACTION"); }
void MotorMariadb::ConfirmarTransaccion() { Directo("COMMIT"); }
void MotorMariadb::RevertirTransaccion() { Directo("ROLLBACK"); }

bool MotorMariadb::EnTransaccion() const {
    if (db_ == nullptr) return false;
    unsigned int estado = 0;
    if (mariadb_get_infov(db_, MARIADB_CONNECTION_SERVER_STATUS, &estado) != 0) return false;
    return (estado & SERVER_STATUS_IN_TRANS) != 0;
}

std::unique_ptr<Motor> AbrirMotorMariadb(const DestinoMariadb& destino) {
    std::unique_ptr<MYSQL, CerrarConexion> db(mysql_init(nullptr));
    if (!db) throw mariadb::FaultDe(static_cast<MYSQL*>(nullptr));

    auto opcion = [&](mysql_option cual, const void* valor) {
        if (mysql_optionsv(db.get(), cual, valor) != 0) throw mariadb::FaultDe(db.get());
    };
    opcion(MYSQL_SET_CHARSET_NAME, "utf8mb4");
    const unsigned int segundos = 10;
    opcion(MYSQL_OPT_CONNECT_TIMEOUT, &segundos);
    // The server may never read files of this machine on a statement's word.
    const unsigned int sinArchivosLocales = 0;
    opcion(MYSQL_OPT_LOCAL_INFILE, &sinArchivosLocales);

    auto texto = [](const std::string& valor) { return valor.empty() ? nullptr : valor.c_str(); };
    // CLIENT_FOUND_ROWS: an UPDATE counts the rows it matched, also those
    // that already held the values written. No CLIENT_MULTI_STATEMENTS:
    // the server refuses a second statement after a ";".
    if (mysql_real_connect(db.get(), destino.servidor.c_str(), texto(destino.usuario), texto(destino.clave),
                           texto(destino.base), destino.puerto, texto(destino.socket), CLIENT_FOUND_ROWS) == nullptr)
        throw mariadb::FaultDe(db.get());
    if (mysql_autocommit(db.get(), 1) != 0) throw mariadb::FaultDe(db.get());

    auto motor = std::make_unique<MotorMariadb>(db.release());
    // Strict mode for this session whatever the server's own setting: a text
    // longer than its column, or a number out of its range, is refused with
    // the server's message instead of being cut or clipped with a warning.
    // STRICT_ALL_TABLES does so for every table, transactional or not.
    motor->Ejecutar("SET SESSION sql_mode=CONCAT_WS(',', NULLIF(@@SESSION.sql_mode, ''), 'STRICT_ALL_TABLES')");
    return motor;
}

std::shared_ptr<ConexionMotor> AbrirMariadb(const std::string& url) {
    return std::make_shared<ConexionMotor>(AbrirMotorMariadb(LeerUrlMariadb(url)));
}

}  // namespace celdora::platform

#include "platform/sqlite/MotorSqlite.h"

#include <sqlite3.h>

#include <limits>
#include <memory>
#include <string_view>
#include <utility>

#include "platform/common/FallasAdo.h"
#include "platform/common/FechaTexto.h"
#include "platform/sqlite/DialectoMySql.h"
#include "platform/sqlite/ErrorSqlite.h"
#include "platform/sqlite/Sqlite.h"

namespace celdora::platform {

namespace {

struct Finalizar {
    void operator()(sqlite3_stmt* sentencia) const { sqlite3_finalize(sentencia); }
};
using Sentencia = std::unique_ptr<sqlite3_stmt, Finalizar>;

// How a column's declared type changes the reading of its values.
enum class Clase { Comun, Fecha, Corto };

Clase ClaseDeclarada(const char* declarado) {
    if (declarado == nullptr) return Clase::Comun;
    std::string tipo(declarado);
    for (char& c : tipo)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    if (tipo.find("DATE") != std::string::npos || tipo.find("TIME") != std::string::npos) return Clase::Fecha;
    if (tipo.find("SMALLINT") != std::string::npos || tipo.find("TINYINT") != std::string::npos) return Clase::Corto;
    return Clase::Comun;
}

bool Blanco(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v'; }

// The first position from p that is not a blank, a ";" or a comment.
const char* SaltarRelleno(const char* p, const char* fin) {
    while (p < fin) {
        if (Blanco(*p) || *p == ';') {
            ++p;
        } else if (*p == '-' && p + 1 < fin && p[1] == '-') {
            while (p < fin && *p != '\n') ++p;
        } else if (*p == '/' && p + 1 < fin && p[1] == '*') {
            const std::string_view resto(p + 2, static_cast<std::size_t>(fin - p - 2));
            const std::size_t cierre = resto.find("*/");
            p = cierre == std::string_view::npos ? fin : p + 2 + cierre + 2;
        } else {
            break;
        }
    }
    return p;
}

std::string PrimeraLinea(const char* p, const char* fin) {
    p = SaltarRelleno(p, fin);
    const char* q = p;
    while (q < fin && *q != '\n' && *q != '\r') ++q;
    while (q > p && Blanco(q[-1])) --q;
    return std::string(p, q);
}

// Texts and bytes are bound without a copy: the parameters outlive the
// statement, which is stepped and finalized before Ejecutar returns.
void Enlazar(sqlite3* db, sqlite3_stmt* sentencia, Parametros parametros) {
    const int esperados = sqlite3_bind_parameter_count(sentencia);
    if (esperados != static_cast<int>(parametros.size()))
        throw Fault{SQLITE_RANGE, "The statement takes " + std::to_string(esperados) + " parameters and " +
                                      std::to_string(parametros.size()) + " were given."};
    for (int i = 1; i <= esperados; ++i) {
        const Variant& valor = parametros[static_cast<std::size_t>(i - 1)];
        int rc = SQLITE_OK;
        switch (valor.Type()) {
            case VarType::Empty:
            case VarType::Null:
                rc = sqlite3_bind_null(sentencia, i);
                break;
            case VarType::Boolean:
                rc = sqlite3_bind_int(sentencia, i, valor.AsBoolean() ? -1 : 0);
                break;
            case VarType::Integer:
                rc = sqlite3_bind_int(sentencia, i, valor.AsInteger());
                break;
            case VarType::Long:
                rc = sqlite3_bind_int(sentencia, i, valor.AsLong());
                break;
            case VarType::Double:
                rc = sqlite3_bind_double(sentencia, i, valor.AsDouble());
                break;
            case VarType::Currency:
                rc = sqlite3_bind_double(sentencia, i, static_cast<double>(valor.AsCurrency().scaled) / 10000.0);
                break;
            case VarType::Date: {
                const std::string texto = TextoDeFecha(valor.AsDate());
                rc = sqlite3_bind_text(sentencia, i, texto.data(), static_cast<int>(texto.size()), SQLITE_TRANSIENT);
                break;
            }
            case VarType::String: {
                const std::string& texto = valor.AsString();
                rc = sqlite3_bind_text64(sentencia, i, texto.data(), texto.size(), SQLITE_STATIC, SQLITE_UTF8);
                break;
            }
            case VarType::Bytes: {
                const Bytes& bytes = valor.AsBytes();
                // A null pointer would bind NULL: an empty array is an empty blob.
                rc = bytes.empty() ? sqlite3_bind_zeroblob(sentencia, i, 0)
                                   : sqlite3_bind_blob64(sentencia, i, bytes.data(), bytes.size(), SQLITE_STATIC);
                break;
            }
            case VarType::Object:
                throw TypeMismatch();
        }
        if (rc != SQLITE_OK) throw sqlite::FaultDe(db);
    }
}

Variant Leer(sqlite3_stmt* sentencia, int i, Clase clase) {
    switch (sqlite3_column_type(sentencia, i)) {
        case SQLITE_INTEGER: {
            const sqlite3_int64 numero = sqlite3_column_int64(sentencia, i);
            if (clase == Clase::Fecha) return Date{static_cast<double>(numero)};
            if (clase == Clase::Corto && numero >= std::numeric_limits<std::int16_t>::min() &&
                numero <= std::numeric_limits<std::int16_t>::max())
                return Variant::Integer(static_cast<std::int16_t>(numero));
            if (numero >= std::numeric_limits<std::int32_t>::min() &&
                numero <= std::numeric_limits<std::int32_t>::max())
                return Variant::Long(static_cast<std::int32_t>(numero));
            return Variant(static_cast<double>(numero));
        }
        case SQLITE_FLOAT: {
            const double numero = sqlite3_column_double(sentencia, i);
            if (clase == Clase::Fecha) return Date{numero};
            return Variant(numero);
        }
        case SQLITE_TEXT: {
            const auto* datos = reinterpret_cast<const char*>(sqlite3_column_text(sentencia, i));
            std::string texto(datos, static_cast<std::size_t>(sqlite3_column_bytes(sentencia, i)));
            if (clase == Clase::Fecha)
                if (const auto fecha = FechaDeTexto(texto)) return *fecha;
            return Variant(std::move(texto));
        }
        case SQLITE_BLOB: {
            const auto* datos = static_cast<const std::uint8_t*>(sqlite3_column_blob(sentencia, i));
            const auto cuantos = static_cast<std::size_t>(sqlite3_column_bytes(sentencia, i));
            return Variant(datos == nullptr ? Bytes{} : Bytes(datos, datos + cuantos));
        }
        default:
            return Variant::Null();
    }
}

}  // namespace

MotorSqlite::MotorSqlite(sqlite3* db) : db_(db) {
    try {
        sqlite::RegistrarFuncionesMySql(db_);
    } catch (...) {
        Cerrar();
        throw;
    }
}

MotorSqlite::~MotorSqlite() { Cerrar(); }

bool MotorSqlite::Abierto() const { return db_ != nullptr; }

void MotorSqlite::Cerrar() {
    if (db_ != nullptr) sqlite3_close_v2(db_);
    db_ = nullptr;
}

sqlite3* MotorSqlite::Db() const {
    if (db_ == nullptr) throw ObjetoCerrado();
    return db_;
}

bool MotorSqlite::ConOrigenDeColumnas() {
#ifdef CELDORA_SQLITE_ORIGEN_COLUMNAS
    return true;
#else
    return false;
#endif
}

namespace {

// A statement prepared from the text, with the columns it yields and how
// their values are read.
struct Preparada {
    Sentencia sentencia;
    Resultado resultado;  // tieneFilas and columnas
    std::vector<Clase> clases;
};

Preparada Preparar(sqlite3* db, const std::string& sql) {
    const std::string texto = sqlite::RenombrarIsNull(sql);
    const char* fin = texto.data() + texto.size();

    sqlite3_stmt* crudo = nullptr;
    const char* cola = texto.data();
    // Empty statements (a lone ";") before the first one are passed over.
    while (crudo == nullptr) {
        const char* desde = SaltarRelleno(cola, fin);
        if (desde == fin) break;
        if (sqlite3_prepare_v2(db, desde, static_cast<int>(fin - desde), &crudo, &cola) != SQLITE_OK)
            throw sqlite::FaultDe(db);
        if (crudo == nullptr && cola == desde) break;
    }
    Preparada preparada{Sentencia(crudo), {}, {}};
    if (!preparada.sentencia) throw Fault{SQLITE_ERROR, "There is no statement to run: the text is empty."};
    // The one defence against statements glued after a value: whatever
    // follows the first statement must be blanks, ";" or comments.
    if (SaltarRelleno(cola, fin) != fin)
        throw Fault{SQLITE_ERROR,
                    "A second statement after \";\" was refused: only one statement runs at a time. Nothing ran."};

    sqlite3_stmt* sentencia = preparada.sentencia.get();
    const int columnas = sqlite3_column_count(sentencia);
    preparada.resultado.tieneFilas = columnas > 0;
    for (int i = 0; i < columnas; ++i) {
        Columna columna;
        if (const char* nombre = sqlite3_column_name(sentencia, i)) columna.nombre = nombre;
#ifdef CELDORA_SQLITE_ORIGEN_COLUMNAS
        if (const char* tabla = sqlite3_column_table_name(sentencia, i)) columna.tablaBase = tabla;
        if (const char* origen = sqlite3_column_origin_name(sentencia, i)) columna.columnaBase = origen;
#endif
        preparada.resultado.columnas.push_back(std::move(columna));
        preparada.clases.push_back(ClaseDeclarada(sqlite3_column_decltype(sentencia, i)));
    }
    return preparada;
}

// Steps a statement once; false when it is done. The row's values go into
// fila when there is one.
bool Paso(sqlite3* db, sqlite3_stmt* sentencia, const std::vector<Clase>& clases, std::vector<Variant>& fila) {
    const int rc = sqlite3_step(sentencia);
    if (rc == SQLITE_DONE) return false;
    if (rc != SQLITE_ROW) throw sqlite::FaultDe(db);
    fila.resize(clases.size());
    for (std::size_t i = 0; i < clases.size(); ++i) fila[i] = Leer(sentencia, static_cast<int>(i), clases[i]);
    return true;
}

// The rows of a statement stepped as they are asked for. The statement is
// finalized once it is done, so that a finished reading holds nothing that
// would keep a transaction from ending.
class CursorSqlite : public Cursor {
public:
    CursorSqlite(sqlite3* db, Preparada preparada)
        : db_(db), sentencia_(std::move(preparada.sentencia)), clases_(std::move(preparada.clases)) {}

    bool Siguiente(std::vector<Variant>& fila) override {
        if (!sentencia_) return false;
        if (Paso(db_, sentencia_.get(), clases_, fila)) return true;
        sentencia_.reset();
        return false;
    }

private:
    sqlite3* db_;
    Sentencia sentencia_;
    std::vector<Clase> clases_;
};

// Runs a prepared statement to its end with its parameters.
Resultado Correr(sqlite3* db, Preparada preparada, Parametros parametros) {
    Enlazar(db, preparada.sentencia.get(), parametros);

    Resultado resultado = std::move(preparada.resultado);
    const sqlite3_int64 antes = sqlite3_total_changes64(db);
    std::vector<Variant> fila;
    while (Paso(db, preparada.sentencia.get(), preparada.clases, fila)) resultado.filas.push_back(std::move(fila));
    // sqlite3_changes keeps the count of the last INSERT, UPDATE or DELETE,
    // so a statement that changed nothing (DDL, a PRAGMA) must not take it.
    if (!resultado.tieneFilas && sqlite3_total_changes64(db) != antes) resultado.afectadas = sqlite3_changes64(db);
    return resultado;
}

}  // namespace

Resultado MotorSqlite::Ejecutar(const std::string& sql, Parametros parametros) {
    sqlite3* db = Db();
    return Correr(db, Preparar(db, sql), parametros);
}

// A statement without rows runs at once, as Ejecutar runs it.
Resultado MotorSqlite::Recorrer(const std::string& sql) {
    sqlite3* db = Db();
    Preparada preparada = Preparar(db, sql);
    if (!preparada.resultado.tieneFilas) return Correr(db, std::move(preparada), {});
    Resultado resultado = std::move(preparada.resultado);
    resultado.pendientes = std::make_unique<CursorSqlite>(db, std::move(preparada));
    return resultado;
}

std::int64_t MotorSqlite::UltimaClave() { return sqlite3_last_insert_rowid(Db()); }

std::vector<std::string> MotorSqlite::ClavePrimaria(const std::string& tabla) {
    const Resultado resultado = Ejecutar("SELECT name FROM pragma_table_info(?) WHERE pk > 0 ORDER BY pk", {tabla});
    std::vector<std::string> clave;
    for (const auto& fila : resultado.filas) clave.push_back(fila[0].AsString());
    return clave;
}

void MotorSqlite::Directo(const char* sql) {
    sqlite3* db = Db();
    if (sqlite3_exec(db, sql, nullptr, nullptr, nullptr) != SQLITE_OK) throw sqlite::FaultDe(db);
}

void MotorSqlite::IniciarTransaccion() { Directo("BEGIN"); }
void MotorSqlite::ConfirmarTransaccion() { Directo("COMMIT"); }
void MotorSqlite::RevertirTransaccion() { Directo("ROLLBACK"); }
bool MotorSqlite::EnTransaccion() const { return db_ != nullptr && sqlite3_get_autocommit(db_) == 0; }

void MotorSqlite::EjecutarGuion(const std::string& guion) {
    sqlite3* db = Db();
    const std::string texto = sqlite::RenombrarIsNull(guion);
    const char* fin = texto.data() + texto.size();
    const char* p = SaltarRelleno(texto.data(), fin);
    while (p < fin) {
        auto falla = [&] {
            Fault fault = sqlite::FaultDe(db);
            fault.description += " (in the statement that begins: " + PrimeraLinea(p, fin) + ")";
            return fault;
        };
        sqlite3_stmt* crudo = nullptr;
        const char* cola = nullptr;
        if (sqlite3_prepare_v2(db, p, static_cast<int>(fin - p), &crudo, &cola) != SQLITE_OK) throw falla();
        Sentencia sentencia(crudo);
        if (sentencia) {
            int rc;
            while ((rc = sqlite3_step(sentencia.get())) == SQLITE_ROW) {
            }
            if (rc != SQLITE_DONE) throw falla();
        } else if (cola == p) {
            break;
        }
        p = SaltarRelleno(cola, fin);
    }
}

std::unique_ptr<Motor> AbrirMotorSqlite(const std::string& path) {
    sqlite3* db = nullptr;
    const int rc = sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    if (rc != SQLITE_OK) {
        Fault fault = db != nullptr ? sqlite::FaultDe(db) : sqlite::FaultDeCodigo(rc);
        fault.description += " (" + path + ")";
        sqlite3_close_v2(db);
        throw fault;
    }
    sqlite3_extended_result_codes(db, 1);
    sqlite3_busy_timeout(db, 5000);
    auto motor = std::make_unique<MotorSqlite>(db);
    try {
        motor->Ejecutar("PRAGMA foreign_keys=OFF");
        // Reading the schema now makes a file that is not a database fail
        // here, rather than at the first statement the system issues.
        motor->Ejecutar("SELECT count(*) FROM sqlite_master");
    } catch (Fault& fault) {
        fault.description += " (" + path + ")";
        throw;
    }
    return motor;
}

std::shared_ptr<ConexionMotor> AbrirSqlite(const std::string& path) {
    return std::make_shared<ConexionMotor>(AbrirMotorSqlite(path));
}

void EjecutarGuion(ConexionMotor& conexion, const std::string& script) {
    auto* motor = dynamic_cast<MotorSqlite*>(&conexion.motor());
    if (motor == nullptr) throw ArgumentosIncorrectos();
    motor->EjecutarGuion(script);
}

}  // namespace celdora::platform

#include "platform/common/RecordsetCliente.h"

#include <cctype>
#include <utility>

#include "platform/common/ConexionMotor.h"
#include "platform/common/FallasAdo.h"
#include "value/Text.h"

namespace celdora::platform {

namespace {

// The client cursor's own refusals carry the provider's generic failure code.
constexpr long kFallaProveedor = -2147467259;
constexpr long kFilaNoEncontrada = -2147217864;

Fault SinInformacionDeTabla(const std::string& detalle) {
    return {kFallaProveedor, "Insufficient base table information for updating or refreshing: " + detalle};
}

Fault SinInformacionDeClave(const std::string& detalle) {
    return {kFallaProveedor, "Insufficient key column information for updating or refreshing: " + detalle};
}

// The words of a statement outside quotes, brackets and parentheses, each
// with where it begins, in capitals.
std::vector<std::pair<std::string, std::size_t>> PalabrasDeNivelSuperior(const std::string& sql) {
    std::vector<std::pair<std::string, std::size_t>> palabras;
    int profundidad = 0;
    char comilla = 0;
    for (std::size_t i = 0; i < sql.size(); ++i) {
        const char c = sql[i];
        if (comilla) {
            if (c == comilla) comilla = 0;
        } else if (c == '\'' || c == '"' || c == '`') {
            comilla = c;
        } else if (c == '[') {
            comilla = ']';
        } else if (c == '(') {
            ++profundidad;
        } else if (c == ')') {
            --profundidad;
        } else if (profundidad == 0 && (std::isalpha(static_cast<unsigned char>(c)) || c == '_') &&
                   (i == 0 || !(std::isalnum(static_cast<unsigned char>(sql[i - 1])) || sql[i - 1] == '_'))) {
            std::size_t fin = i;
            while (fin < sql.size() && (std::isalnum(static_cast<unsigned char>(sql[fin])) || sql[fin] == '_')) ++fin;
            palabras.emplace_back(UCase(sql.substr(i, fin - i)), i);
            i = fin - 1;
        }
    }
    return palabras;
}

// The statement that reads the given columns of the rows another SELECT
// reads: the same FROM and everything after it. Empty when the rows could
// not be matched one to one (DISTINCT, grouping, a union).
std::string MismasFilas(const std::string& sql, const std::vector<std::string>& columnas) {
    const auto palabras = PalabrasDeNivelSuperior(sql);
    if (palabras.size() < 2 || palabras[0].first != "SELECT" || palabras[1].first == "DISTINCT") return {};
    std::size_t desde = std::string::npos;
    for (const auto& [palabra, posicion] : palabras) {
        if (palabra == "GROUP" || palabra == "UNION" || palabra == "HAVING") return {};
        if (palabra == "FROM" && desde == std::string::npos) desde = posicion;
    }
    if (desde == std::string::npos) return {};
    std::string lista;
    for (const std::string& columna : columnas) lista += (lista.empty() ? "" : ",") + columna;
    return "SELECT " + lista + " " + sql.substr(desde);
}

}  // namespace

class RecordsetCliente::Campo : public host::Field {
public:
    Campo(RecordsetCliente& recordset, std::size_t columna) : recordset_(recordset), columna_(columna) {}

    std::string Name() const override { return recordset_.columnas_[columna_].nombre; }
    Variant Value() const override { return recordset_.Leer(columna_); }
    void Value(const Variant& value) override { recordset_.Asignar(columna_, value); }

private:
    RecordsetCliente& recordset_;
    std::size_t columna_;
};

RecordsetCliente::RecordsetCliente() = default;
RecordsetCliente::~RecordsetCliente() = default;

void RecordsetCliente::activeconnection(std::shared_ptr<host::Connection> connection) {
    connection_ = std::move(connection);
}
std::shared_ptr<host::Connection> RecordsetCliente::activeconnection() const { return connection_; }
void RecordsetCliente::Source(const std::string& statement) { source_ = statement; }
std::string RecordsetCliente::Source() const { return source_; }
void RecordsetCliente::CursorLocation(int location) { cursorLocation_ = location; }
int RecordsetCliente::CursorLocation() const { return cursorLocation_; }

void RecordsetCliente::Open() {
    if (abierto_) throw ObjetoAbierto();
    if (!connection_) throw ConexionNoUtilizable();
    Motor& motor = MotorDe(connection_);
    Tomar(Adelante() ? motor.Recorrer(source_) : motor.Ejecutar(source_));
    if (abierto_ && Actualizable()) LeerClavesOcultas();
}

// A recordset that can write back must find each row by its table's key. When
// the statement reads one table's columns without its key, the key of every
// row is read by a second statement over the same rows and kept out of the
// fields. If that cannot be done the rows stay without a key, and Update
// refuses as it would have.
void RecordsetCliente::LeerClavesOcultas() {
    std::string tabla;
    for (const Columna& c : columnas_) {
        if (c.tablaBase.empty()) continue;
        if (tabla.empty()) tabla = c.tablaBase;
        else if (!EqualText(tabla, c.tablaBase)) return;
    }
    if (tabla.empty()) return;
    Motor& motor = MotorDe(connection_);
    std::vector<std::string> clave;
    try {
        clave = motor.ClavePrimaria(tabla);
    } catch (const Fault&) {
        return;
    }
    bool falta = false;
    for (const std::string& k : clave) {
        bool esta = false;
        for (const Columna& c : columnas_) esta = esta || EqualText(c.columnaBase, k);
        falta = falta || !esta;
    }
    if (clave.empty() || !falta) return;
    const std::string sql = MismasFilas(source_, clave);
    if (sql.empty()) return;
    Resultado claves;
    try {
        claves = motor.Ejecutar(sql);
    } catch (const Fault&) {
        return;
    }
    if (claves.filas.size() != filas_.size()) return;
    tablaOculta_ = tabla;
    columnasOcultas_ = clave;
    clavesOcultas_ = std::move(claves.filas);
}

void RecordsetCliente::Open(const std::string& source, std::shared_ptr<host::Connection> connection, int cursorType,
                            int lockType) {
    if (abierto_) throw ObjetoAbierto();
    source_ = source;
    if (connection) connection_ = std::move(connection);
    cursorType_ = cursorType;
    lockType_ = lockType;
    Open();
}

void RecordsetCliente::Cargar(std::shared_ptr<host::Connection> connection, std::string source,
                              Resultado resultado) {
    connection_ = std::move(connection);
    source_ = std::move(source);
    cursorType_ = host::adOpenForwardOnly;
    lockType_ = host::adLockReadOnly;
    abierto_ = false;
    Tomar(std::move(resultado));
}

bool RecordsetCliente::Adelante() const {
    return cursorLocation_ != host::adUseClient && cursorType_ == host::adOpenForwardOnly &&
           lockType_ == host::adLockReadOnly;
}

void RecordsetCliente::Tomar(Resultado resultado) {
    asignados_.clear();
    pendientes_.reset();
    tablaOculta_.clear();
    columnasOcultas_.clear();
    clavesOcultas_.clear();
    posicion_ = 0;
    if (!resultado.tieneFilas) {
        abierto_ = false;
        columnas_.clear();
        filas_.clear();
        campos_.clear();
        return;
    }
    columnas_ = std::move(resultado.columnas);
    filas_ = std::move(resultado.filas);
    // The first row is read at once, so that Bof and Eof can answer.
    if (resultado.pendientes && filas_.empty()) {
        pendientes_ = std::move(resultado.pendientes);
        filas_.emplace_back();
        if (!pendientes_->Siguiente(filas_[0])) {
            filas_.clear();
            pendientes_.reset();
        }
    }
    campos_.clear();
    for (std::size_t i = 0; i < columnas_.size(); ++i) campos_.push_back(std::make_unique<Campo>(*this, i));
    abierto_ = true;
}

int RecordsetCliente::State() const { return abierto_ ? host::adStateOpen : host::adStateClosed; }

void RecordsetCliente::ExigirAbierto() const {
    if (!abierto_) throw ObjetoCerrado();
}

bool RecordsetCliente::Eof() const {
    ExigirAbierto();
    return posicion_ >= filas_.size();
}

// Only movenext moves the cursor, so it stands before the first row only
// when there is none.
bool RecordsetCliente::Bof() const {
    ExigirAbierto();
    return filas_.empty();
}

int RecordsetCliente::FieldCount() const {
    ExigirAbierto();
    return static_cast<int>(campos_.size());
}

host::Field& RecordsetCliente::Fields(const std::string& name) {
    ExigirAbierto();
    for (auto& campo : campos_)
        if (EqualText(campo->Name(), name)) return *campo;
    throw ElementoNoEncontrado();
}

host::Field& RecordsetCliente::Fields(int index) {
    ExigirAbierto();
    if (index < 0 || static_cast<std::size_t>(index) >= campos_.size()) throw ElementoNoEncontrado();
    return *campos_[static_cast<std::size_t>(index)];
}

Variant RecordsetCliente::Leer(std::size_t columna) const {
    ExigirAbierto();
    if (Eof() || Bof()) throw SinRegistroActual();
    if (auto asignado = asignados_.find(columna); asignado != asignados_.end()) return asignado->second;
    return filas_[posicion_][columna];
}

bool RecordsetCliente::Actualizable() const {
    return lockType_ == 2 || lockType_ == host::adLockOptimistic || lockType_ == 4;
}

void RecordsetCliente::Asignar(std::size_t columna, const Variant& valor) {
    ExigirAbierto();
    if (!Actualizable()) throw NoActualizable();
    if (Eof() || Bof()) throw SinRegistroActual();
    asignados_[columna] = valor;
}

void RecordsetCliente::movenext() {
    ExigirAbierto();
    if (Eof()) throw SinRegistroActual();
    if (!asignados_.empty()) Update();
    if (pendientes_) {
        // The row read next takes the place of the current one; past the
        // last, the position stands after it, as over rows in memory.
        if (!pendientes_->Siguiente(filas_[0])) {
            pendientes_.reset();
            ++posicion_;
        }
        return;
    }
    ++posicion_;
}

void RecordsetCliente::Update() {
    ExigirAbierto();
    if (!Actualizable()) throw NoActualizable();
    if (Eof() || Bof()) throw SinRegistroActual();
    if (asignados_.empty()) return;

    std::string tabla;
    for (const auto& [columna, valor] : asignados_) {
        const Columna& c = columnas_[columna];
        if (c.tablaBase.empty() || c.columnaBase.empty())
            throw SinInformacionDeTabla("the column " + c.nombre + " does not come from a table.");
        if (tabla.empty()) tabla = c.tablaBase;
        else if (!EqualText(tabla, c.tablaBase))
            throw SinInformacionDeTabla("the assigned columns come from " + tabla + " and " + c.tablaBase + ".");
    }

    Motor& motor = MotorDe(connection_);
    const std::vector<std::string> clave = motor.ClavePrimaria(tabla);
    if (clave.empty()) throw SinInformacionDeClave("the table " + tabla + " has no primary key.");

    std::string sql = "UPDATE " + tabla + " SET ";
    std::vector<Variant> parametros;
    for (const auto& [columna, valor] : asignados_) {
        if (!parametros.empty()) sql += ",";
        sql += columnas_[columna].columnaBase + "=?";
        parametros.push_back(valor);
    }
    sql += " WHERE ";
    for (std::size_t k = 0; k < clave.size(); ++k) {
        std::size_t encontrada = columnas_.size();
        for (std::size_t i = 0; i < columnas_.size(); ++i) {
            if (EqualText(columnas_[i].tablaBase, tabla) && EqualText(columnas_[i].columnaBase, clave[k])) {
                encontrada = i;
                break;
            }
        }
        if (k > 0) sql += " AND ";
        sql += clave[k] + "=?";
        if (encontrada == columnas_.size()) {
            if (!EqualText(tablaOculta_, tabla) || k >= columnasOcultas_.size() ||
                !EqualText(columnasOcultas_[k], clave[k]))
                throw SinInformacionDeClave("the key column " + clave[k] + " of " + tabla +
                                            " is not among the selected columns.");
            parametros.push_back(clavesOcultas_[posicion_][k]);
            continue;
        }
        // The row is found by the key it was read with, even if the key
        // itself was assigned.
        parametros.push_back(filas_[posicion_][encontrada]);
    }

    const Resultado resultado = motor.Ejecutar(sql, parametros);
    if (resultado.afectadas == 0)
        throw Fault{kFilaNoEncontrada,
                    "Row cannot be located for updating. Some values may have been changed since it was last read."};
    for (auto& [columna, valor] : asignados_) filas_[posicion_][columna] = std::move(valor);
    asignados_.clear();
}

void RecordsetCliente::Close() {
    ExigirAbierto();
    abierto_ = false;
    asignados_.clear();
    filas_.clear();
    pendientes_.reset();
    clavesOcultas_.clear();
    posicion_ = 0;
}

}  // namespace celdora::platform

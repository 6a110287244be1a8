#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/common/Motor.h"

namespace celdora::platform {

// The engine over any database an ODBC driver reaches (unixODBC here):
// MariaDB/MySQL, SQL Server through FreeTDS, Access through its driver on
// Windows, SQLite through its driver. The connection string goes to the
// driver as it is given, except that on MySQL the option that makes an
// UPDATE count the rows it matched (not only those it changed) is added, and
// the session runs in strict mode (STRICT_ALL_TABLES), so that a text longer
// than its column is refused rather than cut.
//
// One statement per Ejecutar: a second one after a ";" is refused before the
// driver sees anything. Parameters bind to "?" in order: Null as NULL,
// Boolean as -1/0, Integer and Long as integers, Double and Currency as
// doubles, Date as a timestamp to the second, String as UTF-8 text, Bytes as
// binary. Columns read by the type the driver describes: timestamps and dates
// as Date, SMALLINT/TINYINT/BIT as Integer, INTEGER and BIGINT as Long when
// they fit (else Double), real and decimal types as Double, binary types as
// Bytes, everything else as String.
class MotorOdbc : public Motor {
public:
    // The database system behind the driver, known from SQL_DBMS_NAME once
    // connected; it decides how the last key is asked for.
    enum class Sistema { MySql, Sqlite, SqlServer, Access, Otro };

    // Connects; a connection string the driver manager or the driver refuses
    // raises a Fault with the driver's number and message.
    explicit MotorOdbc(const std::string& cadenaDeConexion);
    ~MotorOdbc() override;
    MotorOdbc(const MotorOdbc&) = delete;
    MotorOdbc& operator=(const MotorOdbc&) = delete;

    bool Abierto() const override;
    void Cerrar() override;
    Resultado Ejecutar(const std::string& sql, Parametros parametros = {}) override;
    // The key of the last insert, asked of the database in its own words:
    // LAST_INSERT_ID() on MySQL, last_insert_rowid() on SQLite, @@IDENTITY on
    // SQL Server and Access. Another system raises Fault 3251.
    std::int64_t UltimaClave() override;
    // By SQLPrimaryKeys; a driver without it (Access's) is asked for the
    // best row identifier instead.
    std::vector<std::string> ClavePrimaria(const std::string& tabla) override;
    // Autocommit off until the commit or rollback, which turn it on again.
    // A begin inside a transaction, and a commit or rollback outside one,
    // raise Fault 3219.
    void IniciarTransaccion() override;
    void ConfirmarTransaccion() override;
    void RevertirTransaccion() override;
    bool EnTransaccion() const override;

    Sistema SistemaGestor() const { return sistema_; }
    // SQL_DBMS_NAME as the driver answers it.
    const std::string& NombreDelGestor() const { return gestor_; }

private:
    void Conectar(const std::string& cadena);
    void Desconectar();
    void* Conexion() const;
    void Terminar(short como);

    // ODBC's handles are opaque pointers; void* keeps the driver manager's
    // headers out of this one.
    void* entorno_ = nullptr;   // SQLHENV
    void* conexion_ = nullptr;  // SQLHDBC
    Sistema sistema_ = Sistema::Otro;
    std::string gestor_;
    bool enTransaccion_ = false;
};

}  // namespace celdora::platform

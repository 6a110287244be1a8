#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/Ado.h"
#include "platform/common/Motor.h"

namespace celdora::platform {

// "ADODB.Recordset" over any engine. With a client-side cursor Open runs the
// statement once and keeps every row in memory. With a server-side cursor
// that is forward-only and read-only (ADO's starting values), the rows are
// read from the engine as movenext reaches them and only the current one is
// held; Bof and Eof answer as they would over the rows in memory. Such a
// cursor suits a routine that walks its rows once and whose own writes take
// each row out of its statement: a change made meanwhile through the
// connection to a row not yet read may show in it (see Motor::Recorrer).
// Opened with a lock type that
// allows changes (optimistic, pessimistic or batch), the fields of the current
// row can be assigned and Update writes them back to their base table by the
// row's primary key, read along with the rows when they do not select it.
class RecordsetCliente : public host::Recordset {
public:
    RecordsetCliente();
    ~RecordsetCliente() override;
    RecordsetCliente(const RecordsetCliente&) = delete;
    RecordsetCliente& operator=(const RecordsetCliente&) = delete;

    void activeconnection(std::shared_ptr<host::Connection> connection) override;
    std::shared_ptr<host::Connection> activeconnection() const override;
    void Source(const std::string& statement) override;
    std::string Source() const override;
    void CursorLocation(int location) override;
    int CursorLocation() const override;

    void Open() override;
    // A null connection leaves activeconnection as it was.
    void Open(const std::string& source, std::shared_ptr<host::Connection> connection, int cursorType,
              int lockType) override;

    int State() const override;
    bool Eof() const override;
    bool Bof() const override;

    int FieldCount() const override;
    host::Field& Fields(const std::string& name) override;
    host::Field& Fields(int index) override;

    // Moving off a row with assigned fields writes them first, as ADO's
    // immediate update mode does.
    void movenext() override;
    void Update() override;
    void Close() override;

    int CursorType() const { return cursorType_; }
    int LockType() const { return lockType_; }

    // Takes the result of a statement already run on the connection (what
    // Connection::Execute hands back): open with its rows, or closed when the
    // statement yields none. The lock type stays read-only.
    void Cargar(std::shared_ptr<host::Connection> connection, std::string source, Resultado resultado);

private:
    class Campo;
    friend class Campo;

    void ExigirAbierto() const;
    bool Actualizable() const;
    bool Adelante() const;
    Variant Leer(std::size_t columna) const;
    void Asignar(std::size_t columna, const Variant& valor);
    void Tomar(Resultado resultado);
    void LeerClavesOcultas();

    std::shared_ptr<host::Connection> connection_;
    std::string source_;
    int cursorLocation_ = 2;  // server side until told otherwise, as ADO starts
    int cursorType_ = host::adOpenForwardOnly;
    int lockType_ = host::adLockReadOnly;
    bool abierto_ = false;

    std::vector<Columna> columnas_;
    std::vector<std::vector<Variant>> filas_;
    std::size_t posicion_ = 0;
    // Reading forward from the engine: the rows not yet read, and the
    // current one in filas_[0] (none after the last).
    std::unique_ptr<Cursor> pendientes_;
    std::map<std::size_t, Variant> asignados_;  // fields assigned on the current row, by column
    std::vector<std::unique_ptr<Campo>> campos_;
    // The key of each row when the statement does not select it: its table,
    // its columns, and one value list per row, never among the fields.
    std::string tablaOculta_;
    std::vector<std::string> columnasOcultas_;
    std::vector<std::vector<Variant>> clavesOcultas_;
};

}  // namespace celdora::platform

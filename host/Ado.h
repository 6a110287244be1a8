#pragma once

// The database objects the system is written against, by the names and with
// the operations it uses of them: connection, recordset with its fields, and
// the binary stream.

#include <memory>
#include <string>

#include "value/Variant.h"

namespace celdora::host {

class Recordset;

// "ADODB.Connection"
class Connection : public Object {
public:
    // Runs one statement. Gives a recordset, open (State 1) for a statement
    // that yields rows and closed for one that does not; a failure raises a
    // Fault with the driver's number and message.
    virtual std::shared_ptr<Recordset> Execute(const std::string& statement) = 0;
    // 1 open, 0 closed.
    virtual int State() const = 0;
};

class Field {
public:
    virtual ~Field() = default;
    virtual std::string Name() const = 0;
    // Null for an empty column.
    virtual Variant Value() const = 0;
    // Assigns the value of the current row; written back by Update.
    virtual void Value(const Variant& value) = 0;
};

// ADO's cursor locations, cursor types and lock types as the system passes them.
constexpr int adUseServer = 2;
constexpr int adUseClient = 3;
constexpr int adOpenForwardOnly = 0;
constexpr int adOpenKeyset = 1;
constexpr int adLockReadOnly = 1;
constexpr int adLockOptimistic = 3;
constexpr int adStateClosed = 0;
constexpr int adStateOpen = 1;

// "ADODB.Recordset". Opened with a client-side cursor it reads all its rows at
// once. Fields are found by name without regard to case, or by index from 0.
class Recordset : public Object {
public:
    virtual void activeconnection(std::shared_ptr<Connection> connection) = 0;
    virtual std::shared_ptr<Connection> activeconnection() const = 0;
    virtual void Source(const std::string& statement) = 0;
    virtual std::string Source() const = 0;
    virtual void CursorLocation(int location) = 0;
    virtual int CursorLocation() const = 0;

    // Opens Source on activeconnection.
    virtual void Open() = 0;
    // Opens a statement on a connection with a cursor and lock type; with
    // adOpenKeyset and adLockOptimistic on one table's rows, assigned fields
    // go back to that table by the row's key on Update.
    virtual void Open(const std::string& source, std::shared_ptr<Connection> connection, int cursorType,
                      int lockType) = 0;

    virtual int State() const = 0;
    // EOF is a macro of the C library, so the two ends are spelled Eof and Bof.
    virtual bool Eof() const = 0;
    virtual bool Bof() const = 0;

    virtual int FieldCount() const = 0;
    // A name that no field has raises Fault 3265; reading past the ends
    // raises Fault 3021, as ADO does.
    virtual Field& Fields(const std::string& name) = 0;
    virtual Field& Fields(int index) = 0;

    virtual void movenext() = 0;
    virtual void Update() = 0;
    virtual void Close() = 0;
};

// ADO's stream types and save options as the system passes them.
constexpr int adTypeBinary = 1;
constexpr int adTypeText = 2;
constexpr int adSaveCreateNotExist = 1;
constexpr int adSaveCreateOverWrite = 2;

// "ADODB.Stream": binary to and from files and fields.
class Stream : public Object {
public:
    virtual void Type(int type) = 0;
    virtual int Type() const = 0;
    virtual void Open() = 0;
    virtual int State() const = 0;
    virtual void Write(const Variant& bytes) = 0;
    // The bytes from the current position to the end.
    virtual Variant read() = 0;
    virtual void SaveToFile(const std::string& path, int option) = 0;
    virtual void LoadFromFile(const std::string& path) = 0;
    virtual void Close() = 0;
};

}  // namespace celdora::host

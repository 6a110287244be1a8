#pragma once

// One behaviour suite for the database engines, run on every one the tests
// can reach: embedded SQLite and SQLite's ODBC driver on temporary files
// (unit), a MariaDB server through its own client and through ODBC
// (integration). A small context names what sets each engine apart.

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "platform/common/ConexionMotor.h"
#include "tests/platform/common/Pruebas.h"
#include "value/Variant.h"

namespace celdora::platform::pruebas {

struct ContextoMotor {
    std::string porQueNo;  // why the engine cannot run here; "" when it can
    std::function<std::shared_ptr<ConexionMotor>()> abrir;  // a new connection to the test database
    std::string archivo;   // the database file to remove afterwards, if any
    std::string sufijo;    // added to every table name, so that runs do not meet
    std::string claveAutomatica = "INTEGER PRIMARY KEY AUTOINCREMENT";
    std::string binario = "BLOB";     // a binary type without a limit that matters
    std::string textoLargo = "TEXT";  // a text type without a limit that matters
    // SQLite's driver gives the alias of "column AS alias" as the base column,
    // so Update cannot use it.
    bool nombraLaColumnaDelAlias = true;
    // MySQL's dialect: the probe "Select UUID()" answers with this pattern
    // and isnull takes one argument only.
    std::string uuid;
    long isnullDeDos = 0;                  // the fault of isnull with two arguments
    long funcionDesconocida = 1;           // the fault of NEWID() and cbool()
    std::string textoFuncionDesconocida = "no such function";
    long columnaDesconocida = 1;           // the fault of an unknown column
    std::string inicioDeFalla;             // how every fault's text begins ("[" with a SQLSTATE)
    long sentenciaDoble = 3001;            // the fault of a stacked statement and its text
    std::string textoSentenciaDoble = "segunda sentencia";
    // A comment after the ending semicolon is taken; MariaDB's own client
    // refuses it.
    bool comentarioTrasElFin = true;
    bool rechazaTextoLargo = false;        // a text over its VARCHAR is refused (1406), not kept
    long transaccionDoble = 3219;          // the fault of a second begin, or a commit without a begin
    long marcasDeMas = 3001;               // the fault of more values than "?" marks, and its text if fixed
    std::string textoMarcas;
};

struct Manejador {
    const char* nombre;
    ContextoMotor (*crear)();
};

// The engine's name stands for the parameter in test names and messages.
inline void PrintTo(const Manejador& manejador, std::ostream* os) { *os << manejador.nombre; }
inline std::string NombreDeManejador(const ::testing::TestParamInfo<Manejador>& info) { return info.param.nombre; }

class ComportamientoMotor : public ::testing::TestWithParam<Manejador> {
protected:
    void SetUp() override;
    void TearDown() override;

    Resultado Ejecutar(const std::string& sql, const std::vector<Variant>& parametros = {});
    // The first column of the first row, Null when there is none.
    Variant Valor(const std::string& sql);
    // One column of every row of the folios table, in the order of its key.
    std::vector<Variant> Columna(const std::string& columna);
    // Inserts one row for each series.
    void Series(const std::vector<std::string>& series);

    ContextoMotor ctx;
    std::shared_ptr<ConexionMotor> cnn;
    // ut_FoliosCBB with the run's suffix: Sys_PK, uf_Serie VARCHAR(10),
    // uf_FolioInicial INTEGER, uf_NumAprobacion SMALLINT, uf_FechaAprobacion
    // DATETIME, uf_Importe DOUBLE PRECISION, uf_CBB binary, uf_Notas long text.
    std::string folios;
};

}  // namespace celdora::platform::pruebas

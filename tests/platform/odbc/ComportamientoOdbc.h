#pragma once

// One behaviour suite for the ODBC engine, run on every driver the tests can
// reach: SQLite's driver on a temporary file (unit) and MariaDB's driver on a
// server (integration). A small context names what sets each one apart.

#include "tests/support/FallaDe.h"
#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "platform/common/ConexionMotor.h"
#include "value/Variant.h"

namespace celdora::platform::pruebas {

struct ContextoOdbc {
    std::string cadena;           // the connection string; "" when it cannot run here
    std::string porQueNo;         // why not, when cadena is ""
    std::string archivo;          // the database file to remove afterwards, if any
    std::string sufijo;           // added to every table name, so that runs do not meet
    std::string claveAutomatica;  // the definition of a key the database numbers
    std::string binario;          // a binary type without a limit that matters
    std::string textoLargo;       // a text type without a limit that matters
    // The driver names the table column behind "column AS alias". SQLite's
    // driver gives the alias as the base column, so Update cannot use it.
    bool nombraLaColumnaDelAlias = true;
    long columnaDesconocida = 0;  // the driver's native number for an unknown column
};

struct ManejadorOdbc {
    const char* nombre;
    ContextoOdbc (*crear)();
};

// The driver's name stands for the parameter in test names and messages.
inline void PrintTo(const ManejadorOdbc& manejador, std::ostream* os) { *os << manejador.nombre; }
std::string NombreDeManejador(const ::testing::TestParamInfo<ManejadorOdbc>& info);

using testing::FallaDe;

class ComportamientoOdbc : public ::testing::TestWithParam<ManejadorOdbc> {
protected:
    void SetUp() override;
    void TearDown() override;

    void Ejecutar(const std::string& sql, const std::vector<Variant>& parametros = {});
    // The first column of the first row, Null when there is none.
    Variant Valor(const std::string& sql);
    // A second connection to the same database.
    std::shared_ptr<ConexionMotor> OtraConexion();

    ContextoOdbc ctx;
    std::shared_ptr<ConexionMotor> cnn;
    // ut_FoliosCBB with the run's suffix: Sys_PK, uf_Serie VARCHAR(10),
    // uf_FolioInicial INTEGER, uf_NumAprobacion SMALLINT, uf_FechaAprobacion
    // DATETIME, uf_Importe DOUBLE PRECISION, uf_CBB binary, uf_Notas long text.
    std::string folios;
};

}  // namespace celdora::platform::pruebas

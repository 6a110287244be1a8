#pragma once

// The monthly report as it is read back from ut_CFDInforme into the
// browser's content grid and totals. It relies on what FormatoInforme.h
// writes: thirteen separators in every line, CR LF between lines and none
// after the last, amounts that read as numbers, the empty text for an empty
// month.

#include <optional>
#include <string>
#include <vector>

#include "forms/Controles.h"

namespace celdora::informe {

// The content grid's thirteen columns, as the browser declares them: the
// running number, then the twelve fields. The grid names the tax column
// IVATrasladado while the reader fills IVAtrasladado; the grid finds its
// columns without regard to case. total and IVATrasladado are numbers.
std::vector<forms::ColumnaGrid> ColumnasContenido();

struct LecturaInforme {
    // The sums of fields 6 and 7 over every line, both lines of a cancelled
    // comprobante included; 0 when reading stopped at a bad line.
    double total = 0;
    double iva = 0;
    // The line that stopped the reading: one of fewer than fourteen pieces.
    // The lines before it stay in the grid.
    std::optional<std::string> lineaIncorrecta;
};

// Empties the grid and reads a stored report text into it, one row a line,
// numbered from 1. An amount that does not read as a number leaves its cell
// empty and its sum unchanged; any other failure inside a line is passed
// over and the reading goes on.
LecturaInforme LeerInforme(const std::string& contenido, forms::Grid& grid);

}  // namespace celdora::informe

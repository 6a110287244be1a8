#pragma once

// The four options of how the XML of a comprobante is built, shared between
// the advanced options dialog and the main configuration dialog. The main
// dialog reads them from their keys (NVCA400x to NVCA403x) when it opens and
// writes them back when it saves; the advanced options dialog only changes
// them here, so a change reaches the keys only through the main dialog.

#include <string>

namespace celdora {

struct OpcionesAvanzadas {
    double concatNotasPartida = 0;  // NVCA400x, 0 or 1
    std::string cadenaUnion = " ";  // NVCA401x
    double addendaTiendaron = 0;    // NVCA402x, 0 or 1
    double serieLote = 0;           // NVCA403x, 0 or 1
};

// The one set of values for the process, which both dialogs reach.
OpcionesAvanzadas& VariablesAvanzadas();

}  // namespace celdora

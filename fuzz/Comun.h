#pragma once

// What both fuzz targets share: the browser's content grid in a dialog of
// its own, and a stop that libFuzzer reports as a crash with the input.

#include <cstdio>
#include <cstdlib>

#include "forms/Controles.h"
#include "forms/Dialogo.h"
#include "report/LectorInforme.h"

namespace celdora::fuzz {

class Contenido : public forms::Dialogo {
public:
    Contenido() : Dialogo("fuzz", "fuzz") {}
    forms::Grid& grid = Agregar<forms::Grid>("dxGrid", informe::ColumnasContenido());
};

// A broken promise of the format: abort, so the input is kept.
inline void Exigir(bool condicion, const char* promesa) {
    if (condicion) return;
    std::fprintf(stderr, "promesa rota: %s\n", promesa);
    std::abort();
}

}  // namespace celdora::fuzz

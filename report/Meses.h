#pragma once

#include <array>

namespace celdora::informe {

// The months as the report dialogs name them, January first.
inline constexpr std::array<const char*, 12> kMeses = {"Enero",      "Febrero", "Marzo",     "Abril",
                                                       "Mayo",       "Junio",   "Julio",     "Agosto",
                                                       "Septiembre", "Octubre", "Noviembre", "Diciembre"};

}  // namespace celdora::informe

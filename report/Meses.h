#pragma once

#include <array>

namespace celdora::informe {

// The months as the report dialogs name them, January first.
inline constexpr std::array<const char*, 12> kMeses = {"Enero",      "Febrero", "Marzo",     "Abril",
                                                       "Mayo",       "Junio",   "Julio",     "Agosto",
                                                       "Septiembre", "Octubre", "Noviembre", "Diciembre"};

// The years both report dialogs offer, as text in ascending order.
inline constexpr int kPrimerAnio = 1985;
inline constexpr int kUltimoAnio = 2050;

}  // namespace celdora::informe

#pragma once

// Dates as the engines keep them: 'YYYY-MM-DD HH:MM:SS' text. Every adapter
// writes a Date that way and reads it back from that text (or from the short
// 'YYYY-MM-DD'), so these conversions are exact to the second and do not go
// through the regional settings.

#include <optional>
#include <string>
#include <string_view>

#include "value/Date.h"

namespace celdora::platform {

struct DiaCivil {
    int anio = 1899;
    int mes = 12;
    int dia = 30;
};

// Day number (days since 1899-12-30) of a calendar day and back.
long long NumeroDeDia(const DiaCivil& dia);
DiaCivil DiaDeNumero(long long numero);

// 'YYYY-MM-DD HH:MM:SS' of a date, the time rounded to the nearest second.
std::string TextoDeFecha(Date fecha);

// The date of 'YYYY-MM-DD', 'YYYY-MM-DD HH:MM', 'YYYY-MM-DD HH:MM:SS' (a 'T'
// may stand for the blank, and fractions of a second are read); nothing when
// the text is not one of those or names a day that does not exist.
std::optional<Date> FechaDeTexto(std::string_view texto);

}  // namespace celdora::platform

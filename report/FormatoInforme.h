#pragma once

// The monthly report as it is written: the report line made from a log line,
// the report text made from the month's log rows, and the report's name.
// The reader in LectorInforme.h is held against what is written here.

#include <cstdint>
#include <string>

namespace celdora::informe {

// The separator of lines in the report text: carriage return and line feed.
inline constexpr const char* kSaltoDeLinea = "\r\n";

// Normalises a log line into a report line: the twelve fields, each trimmed
// and followed by "|", behind a leading "|". The approval field (4) takes the
// year and number of the folio range, joined; the amounts (6 and 7) take the
// form "#.00". A short line gives empty fields, and what follows the twelfth
// field is dropped. For a cancelled comprobante (field 8 is "0")
// lineaAdicional receives the same line with "1" in field 8, the line that
// shows it in force; otherwise lineaAdicional is left as it was, so the
// caller empties it before each call.
std::string FormatearLinea(const std::string& linea, std::int32_t noAprobacion, std::int32_t anoAprobacion,
                           std::string& lineaAdicional);

// Adds one log row to the report text: a line break when the text already
// has lines, then the in-force line of a cancelled comprobante and a line
// break, then the row's report line. Gives the report line, which goes back
// to the row; an empty result (the line trimmed to nothing) means the row
// cannot be reported, and the text is then not to be used.
std::string AgregarAlInforme(std::string& informe, const std::string& datos, std::int32_t noAprobacion,
                             std::int32_t anoAprobacion);

// The report's name, which is also its file name without ".txt": "1", the
// issuer's tax identifier, the month as two digits and the year.
std::string NombreInforme(const std::string& rfc, int mes, int anio);

}  // namespace celdora::informe

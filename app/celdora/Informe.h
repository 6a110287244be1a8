#pragma once

#include <iosfwd>

#include "app/celdora/Opciones.h"

namespace celdora::app {

// "celdora informe generar --mes M --anio A --carpeta DIR [--si|--no]":
// generates the monthly report of that month on the database of --db, as
// GenerarInformeMensual does with the month and year locked; the tool
// accepts the dialog for the user (and cancels it if it comes back after a
// failure), answers the folder picker with DIR, and follows the progress
// window on the terminal. Questions (overwriting a stored report) are asked
// on the terminal unless --si or --no answers them. Exit code 0 when the
// report was generated, 1 when not.
//
// "celdora informe ver [--anio A] [--mes M] [--console]": opens the report
// browser, VerInformesMensuales, in the interface the tool chose (Qt when
// there is a display, the terminal otherwise or with --console), with the
// year A (by default the present one) and the report of month M (by default
// the first) selected; from there the person, or a script on the terminal's
// input, works in it.
int Informe(const Opciones& opciones, std::ostream& out);

}  // namespace celdora::app

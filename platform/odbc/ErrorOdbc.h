#pragma once

// ODBC's failures as Faults, mapped here and nowhere else: the native error
// number of the first diagnostic record and every record's text as
// "[SQLSTATE] message".

#include <string>

#include "value/Fault.h"

namespace celdora::platform::odbc {

// The number a Fault takes when the driver gives no native number of its own
// (the driver manager's own diagnostics, for example): the provider's
// generic failure, as a data-access layer over ODBC reports it.
inline constexpr long kFallaGenerica = -2147467259;

// The diagnostics of a handle. tipo is the handle's type (SQL_HANDLE_ENV,
// SQL_HANDLE_DBC, SQL_HANDLE_STMT), manejador the handle itself; queHacia
// names the call that failed, for the rare failure that leaves no record.
Fault FaultDe(short tipo, void* manejador, const char* queHacia);

// The SQLSTATE of the first diagnostic record of a handle, "" when none.
std::string EstadoDe(short tipo, void* manejador);

}  // namespace celdora::platform::odbc

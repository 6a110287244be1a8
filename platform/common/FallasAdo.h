#pragma once

// The faults that the ADO-shaped objects raise, with ADO's numbers and texts.

#include "value/Fault.h"

namespace celdora::platform {

// 3001: an argument of the wrong kind or out of range.
Fault ArgumentosIncorrectos();
// 3002: a file that cannot be opened for reading.
Fault ArchivoNoAbierto();
// 3004: a file that cannot be written.
Fault EscrituraFallida();
// 3021: no current record.
Fault SinRegistroActual();
// 3219: an operation that the object's present kind does not allow.
Fault NoPermitidoEnContexto();
// 3251: the lock type does not allow changes.
Fault NoActualizable();
// 3265: no field by that name or ordinal.
Fault ElementoNoEncontrado();
// 3704: the object is closed.
Fault ObjetoCerrado();
// 3705: the object is already open.
Fault ObjetoAbierto();
// 3709: no usable connection.
Fault ConexionNoUtilizable();

}  // namespace celdora::platform

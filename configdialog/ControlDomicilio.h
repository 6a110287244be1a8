#pragma once

// What the address pages share: the copy of an address row object's fields
// into an address control and back, always in the one order the system uses
// (colony, address, city, notes, postal code, phone), and the two ways a
// routine of theirs meets a run-time error.

#include <functional>
#include <memory>

#include "forms/Controles.h"
#include "host/HostObjects.h"

namespace celdora::configuracion {

// Each statement passes over its own fault and the next one runs (the
// dialogs' silent channel), or the first fault ends the routine and reaches
// the caller's trap.
enum class Errores { SeIgnoran, AlLlamador };

// Runs one statement of a routine under that rule.
void Paso(Errores errores, const std::function<void()>& sentencia);

// The postal code as the control gives it, or without surrounding blanks.
enum class CodigoPostal { SinBlancos, TalCual };

// A new address object of the host's, created through the platform; null
// when that component is not installed.
std::shared_ptr<host::objDomicilio> NuevoDomicilio();

// The row's fields into the control; the city is the key of its city object.
void MostrarDomicilio(host::objDomicilio& origen, forms::AddressControl& destino);

// The control's fields into the row object, each one a statement of its own;
// the city object loads the row whose "Sys_PK" is the control's city.
void LlenarDomicilio(const forms::AddressControl& origen, const std::shared_ptr<host::objDomicilio>& destino,
                     CodigoPostal codigoPostal, Errores errores);

}  // namespace celdora::configuracion

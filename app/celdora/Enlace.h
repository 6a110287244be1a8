#pragma once

#include <memory>

#include "app/celdora/Opciones.h"
#include "core/cAcction.h"
#include "platform/common/ConexionMotor.h"

namespace celdora::app {

// A facade bound to the database of --db the way a host binds it:
// SetDataObjects with a data object and a catalogue over the connection,
// then ApplicationName from --app.
struct Fachada {
    std::shared_ptr<platform::ConexionMotor> conexion;
    std::shared_ptr<cAcction> accion;
};

Fachada EnlazarFachada(const Opciones& opciones);

}  // namespace celdora::app

#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "value/Object.h"

namespace celdora::platform {

// Creators of automation objects by name. A name with no creator is a
// component that is not installed: Crear gives null and the system shows its
// own message for the missing component.
class FabricaObjetos {
public:
    using Creador = std::function<std::shared_ptr<Object>()>;

    void Registrar(const std::string& progId, Creador creador);
    void Quitar(const std::string& progId);
    std::shared_ptr<Object> Crear(const std::string& progId) const;

private:
    std::map<std::string, Creador> creadores_;  // keyed by the name in lower case
};

// A factory with every component of ours under the name the system uses.
FabricaObjetos FabricaCompleta();

}  // namespace celdora::platform

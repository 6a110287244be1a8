#include "settings/OpcionesAvanzadas.h"

namespace celdora {

OpcionesAvanzadas& VariablesAvanzadas() {
    static OpcionesAvanzadas variables;
    return variables;
}

}  // namespace celdora

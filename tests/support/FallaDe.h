#pragma once

#include <utility>

#include "value/Fault.h"

namespace celdora::testing {

// The fault a call raises; number 0 when it raises none.
template <class Llamada>
Fault FallaDe(Llamada&& llamada) {
    try {
        std::forward<Llamada>(llamada)();
    } catch (const Fault& fault) {
        return fault;
    }
    return Fault{0, ""};
}

}  // namespace celdora::testing

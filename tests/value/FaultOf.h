#pragma once

#include "value/Fault.h"

namespace celdora::test {

// The number of the fault that the call raises, 0 when it raises none.
template <class Call>
long FaultOf(Call&& call) {
    try {
        call();
    } catch (const Fault& fault) {
        return fault.number;
    }
    return 0;
}

}  // namespace celdora::test

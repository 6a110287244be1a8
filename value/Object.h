#pragma once

#include <memory>

#include "value/Fault.h"

namespace celdora {

// Base of every automation object that a Variant can hold: the outside
// objects of host/, dialogs and the facade itself.
class Object {
public:
    virtual ~Object() = default;
};

// Uses an object variable: one that holds nothing raises the platform's
// fault 91, as a late-bound call on Nothing would.
template <class T>
T& Deref(const std::shared_ptr<T>& object) {
    if (!object) throw ObjectNotSet();
    return *object;
}

}  // namespace celdora

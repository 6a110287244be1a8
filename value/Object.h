#pragma once

namespace celdora {

// Base of every automation object that a Variant can hold: the outside
// objects of host/, dialogs and the facade itself.
class Object {
public:
    virtual ~Object() = default;
};

}  // namespace celdora

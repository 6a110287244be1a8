#pragma once

#include <optional>
#include <utility>

#include "value/Fault.h"

namespace celdora {

// The silent channel: runs one statement and passes over a fault, so that the
// next statement runs and the result keeps the value it had.
template <class Statement>
void ResumeNext(Statement&& statement) noexcept {
    try {
        std::forward<Statement>(statement)();
    } catch (const Fault&) {
    }
}

// The trap of the two reporting channels: runs the whole body and hands back
// the fault that ended it, if any. The caller turns it into LastErrorDescript
// or a message box.
template <class Body>
[[nodiscard]] std::optional<Fault> Trap(Body&& body) {
    try {
        std::forward<Body>(body)();
    } catch (const Fault& fault) {
        return fault;
    }
    return std::nullopt;
}

// A trap whose fault ends the body and is dropped: the routine answers with
// whatever its result held when the fault came, and says nothing.
template <class Body>
void EndOnError(Body&& body) noexcept {
    try {
        std::forward<Body>(body)();
    } catch (const Fault&) {
    }
}

}  // namespace celdora

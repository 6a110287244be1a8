#pragma once

#include "host/Platform.h"

namespace celdora::testing {

// A clock that always says the same moment, so no test depends on today.
class FixedClock : public host::Clock {
public:
    explicit FixedClock(celdora::Date now) : now_(now) {}
    celdora::Date Now() override { return now_; }
    void Set(celdora::Date now) { now_ = now; }

private:
    celdora::Date now_;
};

}  // namespace celdora::testing

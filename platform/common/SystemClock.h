#pragma once

#include <ctime>

#include "host/Platform.h"

namespace celdora::platform {

// The machine's clock: the local date and time, to the second.
class SystemClock : public host::Clock {
public:
    celdora::Date Now() override;
};

// The date of a broken-down local time, as the platform keeps dates.
celdora::Date FechaDeHoraLocal(const std::tm& local);

}  // namespace celdora::platform

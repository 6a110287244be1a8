#include "platform/common/SystemClock.h"

#include <chrono>

#include "value/Fault.h"

namespace celdora::platform {

celdora::Date FechaDeHoraLocal(const std::tm& local) {
    celdora::DateParts parts;
    parts.year = local.tm_year + 1900;
    parts.month = local.tm_mon + 1;
    parts.day = local.tm_mday;
    parts.hour = local.tm_hour;
    parts.minute = local.tm_min;
    // A leap second (tm_sec 60) counts as the last second of its minute.
    parts.second = local.tm_sec > 59 ? 59 : local.tm_sec;
    return celdora::MakeDate(parts);
}

celdora::Date SystemClock::Now() {
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    // The system runs on one thread, so the shared buffer of localtime is safe.
    const std::tm* local = std::localtime(&now);
    if (local == nullptr) throw InvalidProcedureCall();
    return FechaDeHoraLocal(*local);
}

}  // namespace celdora::platform

#include "platform/common/SystemClock.h"

#include <gtest/gtest.h>

namespace celdora::platform {
namespace {

std::tm HoraLocal(int year, int month, int day, int hour, int minute, int second) {
    std::tm local{};
    local.tm_year = year - 1900;
    local.tm_mon = month - 1;
    local.tm_mday = day;
    local.tm_hour = hour;
    local.tm_min = minute;
    local.tm_sec = second;
    return local;
}

TEST(SystemClock, LocalTimeBecomesDaysSince1899WithTheTimeAsFraction) {
    EXPECT_DOUBLE_EQ(FechaDeHoraLocal(HoraLocal(2026, 11, 22, 10, 30, 15)).serial,
                     46348 + (10 * 3600 + 30 * 60 + 15) / 86400.0);
    EXPECT_DOUBLE_EQ(FechaDeHoraLocal(HoraLocal(2012, 2, 29, 0, 0, 0)).serial, 40968);
    // A leap second stays within its minute.
    EXPECT_DOUBLE_EQ(FechaDeHoraLocal(HoraLocal(2016, 12, 31, 23, 59, 60)).serial,
                     FechaDeHoraLocal(HoraLocal(2016, 12, 31, 23, 59, 59)).serial);
}

}  // namespace
}  // namespace celdora::platform

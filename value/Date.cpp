#include "value/Date.h"

#include <chrono>
#include <cmath>

#include "value/Fault.h"

namespace celdora {

namespace {

constexpr long long kSecondsPerDay = 86400;
// Days from 1899-12-30 (serial 0) to 1970-01-01 (the clock's epoch).
constexpr long long kEpochOffset = 25569;
// The platform's range: 100-01-01 to 9999-12-31, by whole days.
constexpr long long kFirstDay = -657434;
constexpr long long kLastDay = 2958465;

long long FloorDiv(long long a, long long b) { return a / b - ((a % b != 0) && ((a < 0) != (b < 0)) ? 1 : 0); }
long long FloorMod(long long a, long long b) { return a - FloorDiv(a, b) * b; }

// The day number (serial of midnight) of the given day of a month; day may
// run past either end of the month and is counted on from its first day.
long long DayNumber(long long year, long long month, long long day) {
    namespace chrono = std::chrono;
    const chrono::sys_days first = chrono::year(static_cast<int>(year)) / chrono::month(static_cast<unsigned>(month)) / 1;
    return first.time_since_epoch().count() + kEpochOffset + (day - 1);
}

// Serial of a whole day number and the seconds into it. Seconds outside one
// day move the day; the serial keeps the platform's sign convention.
double SerialOf(long long dayNumber, long long seconds) {
    dayNumber += FloorDiv(seconds, kSecondsPerDay);
    seconds = FloorMod(seconds, kSecondsPerDay);
    const double fraction = static_cast<double>(seconds) / static_cast<double>(kSecondsPerDay);
    const double whole = static_cast<double>(dayNumber);
    return dayNumber >= 0 ? whole + fraction : whole - fraction;
}

bool InRange(long long dayNumber) { return dayNumber >= kFirstDay && dayNumber <= kLastDay; }

// Day number of a date given by year, month and day as DateSerial reads them:
// years 0..29 are 2000..2029 and 30..99 are 1900..1999, months past 12 or
// below 1 roll the year, and the day counts on from the first of the month.
long long DateSerialDay(long long year, long long month, long long day) {
    if (year >= 0 && year < 30) year += 2000;
    else if (year >= 30 && year < 100) year += 1900;
    const long long monthIndex = month - 1;
    year += FloorDiv(monthIndex, 12);
    if (year < 100 || year > 9999) throw InvalidProcedureCall();
    const long long dayNumber = DayNumber(year, FloorMod(monthIndex, 12) + 1, day);
    if (!InRange(dayNumber)) throw InvalidProcedureCall();
    return dayNumber;
}

}  // namespace

Date DateSerial(int year, int month, int day) { return Date{SerialOf(DateSerialDay(year, month, day), 0)}; }

Date TimeSerial(int hour, int minute, int second) {
    const long long seconds = hour * 3600LL + minute * 60LL + second;
    const long long dayNumber = FloorDiv(seconds, kSecondsPerDay);
    if (!InRange(dayNumber)) throw Overflow();
    return Date{SerialOf(0, seconds)};
}

Date MakeDate(const DateParts& parts) {
    const long long dayNumber = DateSerialDay(parts.year, parts.month, parts.day);
    const long long seconds = parts.hour * 3600LL + parts.minute * 60LL + parts.second;
    if (!InRange(dayNumber + FloorDiv(seconds, kSecondsPerDay))) throw Overflow();
    return Date{SerialOf(dayNumber, seconds)};
}

DateParts SplitDate(Date date) {
    const double serial = date.serial;
    if (!std::isfinite(serial) || serial <= static_cast<double>(kFirstDay - 1) ||
        serial >= static_cast<double>(kLastDay + 1))
        throw Overflow();
    const double whole = std::trunc(serial);
    long long dayNumber = static_cast<long long>(whole);
    long long seconds = std::llround(std::fabs(serial - whole) * static_cast<double>(kSecondsPerDay));
    if (seconds >= kSecondsPerDay) {
        // Rounded up to the next midnight, which is the next calendar day
        // whatever the sign of the serial.
        dayNumber += 1;
        seconds -= kSecondsPerDay;
    }
    if (!InRange(dayNumber)) throw Overflow();

    using namespace std::chrono;
    const year_month_day ymd{sys_days{days{dayNumber - kEpochOffset}}};
    DateParts parts;
    parts.year = static_cast<int>(ymd.year());
    parts.month = static_cast<int>(static_cast<unsigned>(ymd.month()));
    parts.day = static_cast<int>(static_cast<unsigned>(ymd.day()));
    parts.hour = static_cast<int>(seconds / 3600);
    parts.minute = static_cast<int>(seconds / 60 % 60);
    parts.second = static_cast<int>(seconds % 60);
    return parts;
}

int Year(Date date) { return SplitDate(date).year; }
int Month(Date date) { return SplitDate(date).month; }
int Day(Date date) { return SplitDate(date).day; }
int Hour(Date date) { return SplitDate(date).hour; }
int Minute(Date date) { return SplitDate(date).minute; }
int Second(Date date) { return SplitDate(date).second; }

}  // namespace celdora

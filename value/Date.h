#pragma once

#include <compare>

namespace celdora {

// A point in time as the automation platform keeps it: days since
// 1899-12-30, the fraction being the time of day. Before that day the whole
// part counts backwards while the fraction still counts forwards, so
// -1.25 is 1899-12-29 06:00.
struct Date {
    double serial = 0.0;
    auto operator<=>(const Date&) const = default;
};

struct DateParts {
    int year = 1899;
    int month = 12;
    int day = 30;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

// Builders; a part out of its range raises Overflow or InvalidProcedureCall
// where the platform would.
Date DateSerial(int year, int month, int day);
Date TimeSerial(int hour, int minute, int second);
Date MakeDate(const DateParts& parts);
// The parts of a date, the time rounded to the nearest second.
DateParts SplitDate(Date date);

int Year(Date date);
int Month(Date date);
int Day(Date date);
int Hour(Date date);
int Minute(Date date);
int Second(Date date);

}  // namespace celdora

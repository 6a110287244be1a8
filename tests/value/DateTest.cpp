#include <gtest/gtest.h>

#include <array>

#include "Casos.h"
#include "value/Date.h"

namespace celdora {
namespace {

using namespace test;
using Partes = std::array<int, 6>;

Partes Separar(Date date) {
    const DateParts p = SplitDate(date);
    return {p.year, p.month, p.day, p.hour, p.minute, p.second};
}

TEST(DateTest, SerialsAroundTheEpochWithTheTimeRoundedToTheSecond) {
    // Before the epoch the whole part goes back and the fraction forward.
    Casos<Date, Partes>(Separar, {{Date{0.0}, {1899, 12, 30, 0, 0, 0}}, {Date{1.0}, {1899, 12, 31, 0, 0, 0}},
                                  {Date{2.5}, {1900, 1, 1, 12, 0, 0}}, {Date{61.0}, {1900, 3, 1, 0, 0, 0}},
                                  {Date{40973.0}, {2012, 3, 5, 0, 0, 0}}, {Date{-1.25}, {1899, 12, 29, 6, 0, 0}},
                                  {Date{-0.75}, {1899, 12, 30, 18, 0, 0}},
                                  {Date{40973.0 + 0.4 / 86400}, {2012, 3, 5, 0, 0, 0}},
                                  {Date{40973.0 + 59.6 / 86400}, {2012, 3, 5, 0, 1, 0}},
                                  {Date{40973.0 + (86400 - 0.3) / 86400}, {2012, 3, 6, 0, 0, 0}},
                                  {Date{-1.0 - (86400 - 0.3) / 86400}, {1899, 12, 30, 0, 0, 0}},
                                  {DateSerial(100, 1, 1), {100, 1, 1, 0, 0, 0}},
                                  {DateSerial(9999, 12, 31), {9999, 12, 31, 0, 0, 0}},
                                  {TimeSerial(-1, 0, 0), {1899, 12, 29, 23, 0, 0}},
                                  {MakeDate({2012, 3, 5, 25, 0, 0}), {2012, 3, 6, 1, 0, 0}}});
    EXPECT_DOUBLE_EQ(MakeDate({1899, 12, 29, 6, 0, 0}).serial, -1.25);
}

TEST(DateTest, SerialsRollPartsOverWithinYears100To9999) {
    Casos<Date, Date>([](Date d) { return d; },
                      {{DateSerial(2012, 13, 1), DateSerial(2013, 1, 1)}, {DateSerial(99, 1, 1), DateSerial(1999, 1, 1)},
                       {DateSerial(2012, 0, 1), DateSerial(2011, 12, 1)},
                       {DateSerial(2012, -1, 1), DateSerial(2011, 11, 1)},
                       {DateSerial(2012, 3, 0), DateSerial(2012, 2, 29)},
                       {DateSerial(2012, 2, 30), DateSerial(2012, 3, 1)},
                       {DateSerial(2012, 1, -1), DateSerial(2011, 12, 30)},
                       {DateSerial(12, 3, 5), DateSerial(2012, 3, 5)},
                       {DateSerial(85, 3, 5), DateSerial(1985, 3, 5)},
                       {TimeSerial(12 - 6, -15, 0), TimeSerial(5, 45, 0)}});
    Casos<Date, double>([](Date d) { return d.serial; },
                        {{TimeSerial(6, 0, 0), 0.25}, {TimeSerial(0, 90, 0), 1.5 / 24}, {TimeSerial(36, 0, 0), 1.5}});
    Fallas({{[] { DateSerial(10000, 1, 1); }, 5}, {[] { DateSerial(9999, 13, 1); }, 5},
            {[] { DateSerial(100, 1, 0); }, 5}, {[] { DateSerial(-1, 1, 1); }, 5},
            {[] { SplitDate(Date{2958466.0}); }, 6}, {[] { Year(Date{-657435.0}); }, 6}});
}

}  // namespace
}  // namespace celdora

#include <gtest/gtest.h>

#include "FaultOf.h"
#include "value/Date.h"

namespace celdora {
namespace {

using test::FaultOf;

void ExpectParts(Date date, DateParts expected) {
    const DateParts parts = SplitDate(date);
    EXPECT_EQ(parts.year, expected.year);
    EXPECT_EQ(parts.month, expected.month);
    EXPECT_EQ(parts.day, expected.day);
    EXPECT_EQ(parts.hour, expected.hour);
    EXPECT_EQ(parts.minute, expected.minute);
    EXPECT_EQ(parts.second, expected.second);
}

TEST(DateTest, SerialsAroundTheEpoch) {
    ExpectParts(Date{0.0}, {1899, 12, 30, 0, 0, 0});
    ExpectParts(Date{1.0}, {1899, 12, 31, 0, 0, 0});
    ExpectParts(Date{2.5}, {1900, 1, 1, 12, 0, 0});
    ExpectParts(Date{61.0}, {1900, 3, 1, 0, 0, 0});
    ExpectParts(Date{40973.0}, {2012, 3, 5, 0, 0, 0});
    // Before the epoch the whole part goes back and the fraction forward.
    ExpectParts(Date{-1.25}, {1899, 12, 29, 6, 0, 0});
    ExpectParts(Date{-0.75}, {1899, 12, 30, 18, 0, 0});
    EXPECT_DOUBLE_EQ(MakeDate({1899, 12, 29, 6, 0, 0}).serial, -1.25);
    EXPECT_DOUBLE_EQ(MakeDate({1899, 12, 28, 18, 0, 0}).serial, -2.75);
}

TEST(DateTest, TimeRoundsToTheSecond) {
    ExpectParts(Date{40973.0 + 0.4 / 86400}, {2012, 3, 5, 0, 0, 0});
    ExpectParts(Date{40973.0 + 59.6 / 86400}, {2012, 3, 5, 0, 1, 0});
    ExpectParts(Date{40973.0 + (86400 - 0.3) / 86400}, {2012, 3, 6, 0, 0, 0});
    ExpectParts(Date{-1.0 - (86400 - 0.3) / 86400}, {1899, 12, 30, 0, 0, 0});
    EXPECT_EQ(Hour(MakeDate({2012, 3, 5, 23, 59, 59})), 23);
    EXPECT_EQ(Minute(MakeDate({2012, 3, 5, 23, 59, 59})), 59);
    EXPECT_EQ(Second(MakeDate({2012, 3, 5, 23, 59, 59})), 59);
}

TEST(DateTest, DateSerialRollsPartsOver) {
    EXPECT_EQ(DateSerial(2012, 13, 1), DateSerial(2013, 1, 1));
    EXPECT_EQ(DateSerial(2012, 0, 1), DateSerial(2011, 12, 1));
    EXPECT_EQ(DateSerial(2012, -1, 1), DateSerial(2011, 11, 1));
    EXPECT_EQ(DateSerial(2012, 3, 0), DateSerial(2012, 2, 29));
    EXPECT_EQ(DateSerial(2011, 3, 0), DateSerial(2011, 2, 28));
    EXPECT_EQ(DateSerial(2012, 2, 30), DateSerial(2012, 3, 1));
    EXPECT_EQ(DateSerial(2012, 1, -1), DateSerial(2011, 12, 30));
    EXPECT_EQ(DateSerial(12, 3, 5), DateSerial(2012, 3, 5));
    EXPECT_EQ(DateSerial(85, 3, 5), DateSerial(1985, 3, 5));
    EXPECT_EQ(Year(DateSerial(2012, 25, 1)), 2014);
}

TEST(DateTest, RangeIsYears100To9999) {
    ExpectParts(DateSerial(100, 1, 1), {100, 1, 1, 0, 0, 0});
    ExpectParts(DateSerial(9999, 12, 31), {9999, 12, 31, 0, 0, 0});
    EXPECT_EQ(FaultOf([] { DateSerial(10000, 1, 1); }), 5);
    EXPECT_EQ(FaultOf([] { DateSerial(9999, 13, 1); }), 5);
    EXPECT_EQ(FaultOf([] { DateSerial(100, 1, 0); }), 5);
    EXPECT_EQ(FaultOf([] { DateSerial(-1, 1, 1); }), 5);
    EXPECT_EQ(FaultOf([] { SplitDate(Date{2958466.0}); }), 6);
    EXPECT_EQ(FaultOf([] { Year(Date{-657435.0}); }), 6);
}

TEST(DateTest, TimeSerialCarriesIntoDays) {
    EXPECT_DOUBLE_EQ(TimeSerial(6, 0, 0).serial, 0.25);
    EXPECT_DOUBLE_EQ(TimeSerial(0, 90, 0).serial, 1.5 / 24);
    EXPECT_DOUBLE_EQ(TimeSerial(36, 0, 0).serial, 1.5);
    EXPECT_EQ(TimeSerial(12 - 6, -15, 0), TimeSerial(5, 45, 0));
    ExpectParts(TimeSerial(-1, 0, 0), {1899, 12, 29, 23, 0, 0});
    ExpectParts(MakeDate({2012, 3, 5, 25, 0, 0}), {2012, 3, 6, 1, 0, 0});
}

}  // namespace
}  // namespace celdora

#include <gtest/gtest.h>

#include <limits>

#include "FaultOf.h"
#include "value/Convert.h"
#include "value/Regional.h"

namespace celdora {
namespace {

using test::FaultOf;

const Regional kMexican{};
const Regional kCommaDecimal{',', '.', DateOrder::DayFirst};
const Regional kMonthFirst{'.', ',', DateOrder::MonthFirst};

TEST(CLngTest, RoundsHalfToEven) {
    EXPECT_EQ(CLng(2.5), 2);
    EXPECT_EQ(CLng(3.5), 4);
    EXPECT_EQ(CLng(-2.5), -2);
    EXPECT_EQ(CLng(-3.5), -4);
    EXPECT_EQ(CLng(2.4999999), 2);
    EXPECT_EQ(CLng(2.5000001), 3);
    EXPECT_EQ(CInt(0.5), 0);
    EXPECT_EQ(CInt(1.5), 2);
    EXPECT_EQ(CLng(Currency{25000}), 2);
    EXPECT_EQ(CLng(Currency{35000}), 4);
    EXPECT_EQ(CLng(Currency{-25001}), -3);
}

TEST(CLngTest, OverflowsOnlyPastTheRangeAfterRounding) {
    EXPECT_EQ(CLng(2147483646.5), 2147483646);
    EXPECT_EQ(CLng(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(FaultOf([] { CLng(2147483647.5); }), 6);
    EXPECT_EQ(FaultOf([] { CLng(-2147483649.0); }), 6);
    EXPECT_EQ(FaultOf([] { CLng(std::numeric_limits<double>::quiet_NaN()); }), 6);
    EXPECT_EQ(CInt(32766.5), 32766);
    EXPECT_EQ(CInt(-32768.5), -32768);
    EXPECT_EQ(FaultOf([] { CInt(32767.5); }), 6);
    EXPECT_EQ(FaultOf([] { CInt(Variant::Long(40000)); }), 6);
    EXPECT_EQ(FaultOf([] { CInt("40000"); }), 6);
}

TEST(CLngTest, OtherKinds) {
    EXPECT_EQ(CLng(Variant()), 0);
    EXPECT_EQ(CLng(true), -1);
    EXPECT_EQ(CInt(false), 0);
    EXPECT_EQ(CLng(Date{40000.5}), 40000);
    EXPECT_EQ(CLng(Date{40001.5}), 40002);
    EXPECT_EQ(FaultOf([] { CLng(Variant::Null()); }), 94);
    EXPECT_EQ(FaultOf([] { CInt(Variant::Null()); }), 94);
    EXPECT_EQ(FaultOf([] { CLng(Bytes{1, 2}); }), 13);
}

TEST(CLngTest, ReadsNumberTexts) {
    EXPECT_EQ(CLng("  42 "), 42);
    EXPECT_EQ(CLng("-7"), -7);
    EXPECT_EQ(CLng("+7"), 7);
    EXPECT_EQ(CLng("2.5"), 2);
    EXPECT_EQ(CLng("1,234"), 1234);
    EXPECT_EQ(CLng("1.5E3"), 1500);
    EXPECT_EQ(CLng("&H1F"), 31);
    EXPECT_EQ(FaultOf([] { CLng("12abc"); }), 13);
    EXPECT_EQ(FaultOf([] { CLng(""); }), 13);
    EXPECT_EQ(FaultOf([] { CLng("   "); }), 13);
    EXPECT_EQ(FaultOf([] { CLng("-"); }), 13);
    EXPECT_EQ(FaultOf([] { CLng("1e"); }), 13);
}

TEST(CDblTest, ReadsTextsUnderTheRegionalSeparators) {
    EXPECT_DOUBLE_EQ(CDbl("1,234.5"), 1234.5);
    EXPECT_DOUBLE_EQ(CDbl(".00"), 0.0);
    EXPECT_DOUBLE_EQ(CDbl("-.5"), -0.5);
    EXPECT_DOUBLE_EQ(CDbl("1.5D2"), 150.0);
    EXPECT_DOUBLE_EQ(CDbl("$ 1,160.00"), 1160.0);
    {
        ScopedRegional comma(kCommaDecimal);
        EXPECT_DOUBLE_EQ(CDbl("1.234,5"), 1234.5);
        EXPECT_DOUBLE_EQ(CDbl("0,25"), 0.25);
        // The point is a group separator there: the platform reads 15.
        EXPECT_DOUBLE_EQ(CDbl("1.5"), 15.0);
        EXPECT_DOUBLE_EQ(CDbl(",5"), 0.5);
    }
    EXPECT_DOUBLE_EQ(CDbl("0.25"), 0.25);
    EXPECT_EQ(FaultOf([] { CDbl("1.2.3"); }), 13);
    EXPECT_EQ(FaultOf([] { CDbl("12abc"); }), 13);
    EXPECT_EQ(FaultOf([] { CDbl("1e999"); }), 6);
    EXPECT_EQ(FaultOf([] { CDbl(Variant::Null()); }), 94);
    EXPECT_DOUBLE_EQ(CDbl(Variant()), 0.0);
    EXPECT_DOUBLE_EQ(CDbl(true), -1.0);
    EXPECT_DOUBLE_EQ(CDbl(Currency{12345}), 1.2345);
    EXPECT_TRUE(IsNumericText(" 3.5 "));
    EXPECT_FALSE(IsNumericText(""));
    EXPECT_FALSE(IsNumericText("3.5x"));
}

TEST(CBoolTest, NumbersAndWords) {
    EXPECT_TRUE(CBool(0.0001));
    EXPECT_TRUE(CBool(-1));
    EXPECT_FALSE(CBool(0));
    EXPECT_FALSE(CBool(Variant()));
    EXPECT_TRUE(CBool("TRUE"));
    EXPECT_TRUE(CBool(" true "));
    EXPECT_FALSE(CBool("False"));
    EXPECT_TRUE(CBool("2"));
    EXPECT_FALSE(CBool("0.0"));
    EXPECT_EQ(FaultOf([] { CBool("yes"); }), 13);
    EXPECT_EQ(FaultOf([] { CBool(""); }), 13);
    EXPECT_EQ(FaultOf([] { CBool(Variant::Null()); }), 94);
    EXPECT_EQ(AutomationBool(true), -1);
}

TEST(CStrTest, Numbers) {
    EXPECT_EQ(CStr(0.1 + 0.2), "0.3");
    EXPECT_EQ(CStr(1e20), "1E+20");
    EXPECT_EQ(CStr(-0.5), "-0.5");
    EXPECT_EQ(CStr(0.5), "0.5");
    EXPECT_EQ(CStr(1160.0), "1160");
    EXPECT_EQ(CStr(1.0 / 3.0), "0.333333333333333");
    EXPECT_EQ(CStr(123456789012345.0), "123456789012345");
    EXPECT_EQ(CStr(1234567890123456.0), "1.23456789012346E+15");
    EXPECT_EQ(CStr(0.0001), "0.0001");
    EXPECT_EQ(CStr(1.0 / 30000.0), "3.33333333333333E-05");
    EXPECT_EQ(CStr(-0.0), "0");
    EXPECT_EQ(CStr(Variant::Integer(-12)), "-12");
    EXPECT_EQ(CStr(Variant::Long(2147483647)), "2147483647");
    EXPECT_EQ(CStr(Currency{-2500}), "-0.25");
    EXPECT_EQ(CStr(Currency{123450000}), "12345");
    ScopedRegional comma(kCommaDecimal);
    EXPECT_EQ(CStr(1234.5), "1234,5");
    EXPECT_EQ(CStr(Currency{15000}), "1,5");
}

TEST(CStrTest, OtherKinds) {
    EXPECT_EQ(CStr(true), "True");
    EXPECT_EQ(CStr(false), "False");
    EXPECT_EQ(CStr(Variant()), "");
    EXPECT_EQ(CStr("as is"), "as is");
    EXPECT_EQ(FaultOf([] { CStr(Variant::Null()); }), 94);
    EXPECT_EQ(FaultOf([] { CStr(Bytes{65}); }), 13);
}

TEST(CStrTest, DatesInTheRegionalOrder) {
    const Date withTime = MakeDate({2012, 3, 5, 7, 8, 9});
    const Date midnight = DateSerial(2012, 3, 5);
    EXPECT_EQ(CStr(withTime), "05/03/2012 07:08:09");
    EXPECT_EQ(CStr(midnight), "05/03/2012");
    EXPECT_EQ(CStr(TimeSerial(13, 30, 0)), "13:30:00");
    EXPECT_EQ(CStr(Date{0.0}), "00:00:00");
    EXPECT_EQ(CStr(Date{-1.25}), "29/12/1899 06:00:00");
    ScopedRegional monthFirst(kMonthFirst);
    EXPECT_EQ(CStr(withTime), "03/05/2012 07:08:09");
    EXPECT_EQ(CStr(midnight), "03/05/2012");
}

TEST(CDateTest, TextsUnderEachOrder) {
    const Date marchFifth = DateSerial(2012, 3, 5);
    const Date mayThird = DateSerial(2012, 5, 3);
    const Date mayThirteenth = DateSerial(2012, 5, 13);
    {
        ScopedRegional dayFirst(kMexican);
        EXPECT_EQ(CDate("5/3/2012"), marchFifth);
        EXPECT_EQ(CDate("13/5/2012"), mayThirteenth);
        EXPECT_EQ(CDate("5/13/2012"), mayThirteenth);  // the other order, as the platform does
    }
    {
        ScopedRegional monthFirst(kMonthFirst);
        EXPECT_EQ(CDate("5/3/2012"), mayThird);
        EXPECT_EQ(CDate("13/5/2012"), mayThirteenth);
    }
    EXPECT_EQ(CurrentRegional().dateOrder, DateOrder::DayFirst);
}

TEST(CDateTest, TextForms) {
    EXPECT_EQ(CDate("2012-03-05"), DateSerial(2012, 3, 5));
    EXPECT_EQ(CDate("2012-03-05 17:08:09"), MakeDate({2012, 3, 5, 17, 8, 9}));
    EXPECT_EQ(CDate(" 5/3/2012 7:8:9 "), MakeDate({2012, 3, 5, 7, 8, 9}));
    EXPECT_EQ(CDate("5.3.12"), DateSerial(2012, 3, 5));
    EXPECT_EQ(CDate("5/3/99"), DateSerial(1999, 3, 5));
    EXPECT_EQ(CDate("7:08"), TimeSerial(7, 8, 0));
    EXPECT_EQ(CDate("7:08:09 PM"), TimeSerial(19, 8, 9));
    EXPECT_EQ(CDate("12:00 a.m."), TimeSerial(0, 0, 0));
    for (const char* bad : {"", "31/2/2012", "29/2/2011", "5/3", "2012-13-01", "5/3/2012 24:00", "5/3/2012x",
                            "5/3-2012", "abc", "7:60"})
        EXPECT_EQ(FaultOf([&] { CDate(bad); }), 13) << bad;
    EXPECT_EQ(CDate("29/2/2012"), DateSerial(2012, 2, 29));
}

TEST(CDateTest, NumbersAreSerials) {
    EXPECT_EQ(CDate(40000.25), Date{40000.25});
    EXPECT_EQ(CDate(true), Date{-1.0});
    EXPECT_EQ(CDate(Variant()), Date{0.0});
    EXPECT_EQ(FaultOf([] { CDate(3e6); }), 6);
    EXPECT_EQ(FaultOf([] { CDate(Variant::Null()); }), 94);
}

TEST(ValTest, LeadingNumber) {
    EXPECT_DOUBLE_EQ(Val("12abc"), 12.0);
    EXPECT_DOUBLE_EQ(Val(""), 0.0);
    EXPECT_DOUBLE_EQ(Val("abc"), 0.0);
    EXPECT_DOUBLE_EQ(Val("-3.5x"), -3.5);
    EXPECT_DOUBLE_EQ(Val("  1 2 3"), 123.0);
    EXPECT_DOUBLE_EQ(Val("\t4\n5"), 45.0);
    EXPECT_DOUBLE_EQ(Val("1,234"), 1.0);
    EXPECT_DOUBLE_EQ(Val("1.2.3"), 1.2);
    EXPECT_DOUBLE_EQ(Val(".5"), 0.5);
    EXPECT_DOUBLE_EQ(Val("1e3x"), 1000.0);
    EXPECT_DOUBLE_EQ(Val("2D2"), 200.0);
    EXPECT_DOUBLE_EQ(Val("7e"), 7.0);
    EXPECT_DOUBLE_EQ(Val("&H1F"), 31.0);
    EXPECT_DOUBLE_EQ(Val("&o17"), 15.0);
    EXPECT_DOUBLE_EQ(Val("&HFFFF"), -1.0);
    EXPECT_DOUBLE_EQ(Val("&H10000"), 65536.0);
    ScopedRegional comma(kCommaDecimal);
    EXPECT_DOUBLE_EQ(Val("2.5"), 2.5);
    EXPECT_DOUBLE_EQ(Val("2,5"), 2.0);
}

}  // namespace
}  // namespace celdora

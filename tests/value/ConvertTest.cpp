#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "Casos.h"
#include "value/Convert.h"

namespace celdora {
namespace {

using namespace test;

TEST(CLngTest, RoundsHalfToEvenAndOverflowsOnlyPastTheRangeAfterRounding) {
    Casos<Variant, std::int32_t>(CLng, {{2.5, 2}, {3.5, 4}, {-2.5, -2}, {-3.5, -4}, {2.4999999, 2}, {2.5000001, 3},
                                        {Currency{25000}, 2}, {Currency{35000}, 4}, {Currency{-25001}, -3},
                                        {2147483646.5, 2147483646}, {-2147483648.5, INT32_MIN}, {Variant(), 0},
                                        {true, -1}, {Date{40000.5}, 40000}, {Date{40001.5}, 40002}, {"  42 ", 42},
                                        {"-7", -7}, {"+7", 7}, {"2.5", 2}, {"1,234", 1234}, {"1.5E3", 1500},
                                        {"&H1F", 31}, {"&Hff", 255}});
    Casos<Variant, std::int16_t>(CInt, {{0.5, 0}, {1.5, 2}, {32766.5, 32766}, {-32768.5, -32768}, {false, 0}});
    Fallas<Variant>(CLng, {{2147483647.5, 6}, {-2147483649.0, 6}, {std::numeric_limits<double>::quiet_NaN(), 6},
                           {Variant::Null(), 94}, {Bytes{1, 2}, 13}, {"12abc", 13}, {"", 13}, {"   ", 13}, {"-", 13},
                           {"1e", 13}});
    Fallas<Variant>(CInt, {{32767.5, 6}, {Variant::Long(40000), 6}, {"40000", 6}, {Variant::Null(), 94}});
}

TEST(CDblTest, ReadsTextsUnderTheRegionalSeparators) {
    Casos<Variant, double>(CDbl, {{"0.25", 0.25}, {"1,234.5", 1234.5}, {".00", 0.0}, {"-.5", -0.5}, {"1.5D2", 150.0},
                                  {"$ 1,160.00", 1160.0}, {Variant(), 0.0}, {true, -1.0}, {Currency{12345}, 1.2345}});
    Fallas<Variant>(CDbl, {{"1.2.3", 13}, {"12abc", 13}, {"1e999", 6}, {Variant::Null(), 94}});
    Casos<std::string, bool>(IsNumericText, {{" 3.5 ", true}, {"", false}, {"3.5x", false}});
    ScopedRegional comma(kCommaDecimal);
    // The point is a group separator there: the platform reads 15.
    Casos<Variant, double>(CDbl, {{"1.234,5", 1234.5}, {"0,25", 0.25}, {"1.5", 15.0}, {",5", 0.5}});
}

TEST(CBoolTest, NumbersAndWords) {
    Casos<Variant, bool>(CBool, {{0.0001, true}, {-1, true}, {0, false}, {Variant(), false}, {"TRUE", true},
                                 {" true ", true}, {"False", false}, {"2", true}, {"0.0", false}});
    Fallas<Variant>(CBool, {{"yes", 13}, {"", 13}, {Variant::Null(), 94}});
}

TEST(CStrTest, NumbersAndOtherKinds) {
    Casos<Variant, std::string>(
        CStr, {{0.1 + 0.2, "0.3"}, {1e20, "1E+20"}, {-0.5, "-0.5"}, {0.5, "0.5"}, {1160.0, "1160"},
               {1.0 / 3.0, "0.333333333333333"}, {123456789012345.0, "123456789012345"},
               {1234567890123456.0, "1.23456789012346E+15"}, {0.0001, "0.0001"},
               {1.0 / 30000.0, "3.33333333333333E-05"}, {-0.0, "0"}, {Variant::Integer(-12), "-12"},
               {Variant::Long(2147483647), "2147483647"},
               {Currency{-2500}, "-0.25"}, {Currency{123450000}, "12345"}, {true, "True"}, {false, "False"},
               {Variant(), ""}, {"as is", "as is"}});
    Fallas<Variant>(CStr, {{Variant::Null(), 94}, {Bytes{65}, 13}});
    ScopedRegional comma(kCommaDecimal);
    Casos<Variant, std::string>(CStr, {{1234.5, "1234,5"}, {Currency{15000}, "1,5"}});
}

TEST(CStrTest, DatesInTheRegionalOrder) {
    const Date withTime = MakeDate({2012, 3, 5, 7, 8, 9});
    const Date midnight = DateSerial(2012, 3, 5);
    Casos<Variant, std::string>(CStr, {{withTime, "05/03/2012 07:08:09"}, {midnight, "05/03/2012"},
                                       {TimeSerial(13, 30, 0), "13:30:00"}, {Date{0.0}, "00:00:00"},
                                       {Date{-1.25}, "29/12/1899 06:00:00"}});
    ScopedRegional monthFirst(kMonthFirst);
    Casos<Variant, std::string>(CStr, {{withTime, "03/05/2012 07:08:09"}, {midnight, "03/05/2012"}});
}

TEST(CDateTest, TextsUnderEachOrder) {
    // "5/13/2012" can only be month first, and is read so, as the platform does.
    Casos<Variant, Date>(CDate, {{"5/3/2012", DateSerial(2012, 3, 5)}, {"13/5/2012", DateSerial(2012, 5, 13)},
                                 {"5/13/2012", DateSerial(2012, 5, 13)}});
    {
        ScopedRegional monthFirst(kMonthFirst);
        Casos<Variant, Date>(CDate, {{"5/3/2012", DateSerial(2012, 5, 3)}, {"13/5/2012", DateSerial(2012, 5, 13)}});
    }
    EXPECT_EQ(CurrentRegional().dateOrder, DateOrder::DayFirst);
}

TEST(CDateTest, TextFormsAndSerials) {
    Casos<Variant, Date>(CDate, {{"2012-03-05", DateSerial(2012, 3, 5)},
                                 {"2012-03-05 17:08:09", MakeDate({2012, 3, 5, 17, 8, 9})},
                                 {" 5/3/2012 7:8:9 ", MakeDate({2012, 3, 5, 7, 8, 9})},
                                 {"5.3.12", DateSerial(2012, 3, 5)}, {"5/3/99", DateSerial(1999, 3, 5)}, {"5/3/30", DateSerial(1930, 3, 5)},
                                 {"7:08", TimeSerial(7, 8, 0)}, {"7:08:09 PM", TimeSerial(19, 8, 9)},
                                 {"12:00 a.m.", TimeSerial(0, 0, 0)}, {"29/2/2012", DateSerial(2012, 2, 29)},
                                 {40000.25, Date{40000.25}}, {true, Date{-1.0}}, {Variant(), Date{0.0}}});
    Fallas<Variant>(CDate, {{"", 13}, {"31/2/2012", 13}, {"29/2/2011", 13}, {"5/3", 13}, {"2012-13-01", 13},
                            {"5/3/2012 24:00", 13}, {"5/3/2012x", 13}, {"5/3-2012", 13}, {"abc", 13}, {"7:60", 13},
                            {3e6, 6}, {Variant::Null(), 94}});
}

TEST(ValTest, LeadingNumber) {
    Casos<std::string, double>(Val, {{"12abc", 12.0}, {"", 0.0}, {"abc", 0.0}, {"-3.5x", -3.5}, {"  1 2 3", 123.0},
                                     {"\t4\n5", 45.0}, {"1,234", 1.0}, {"1.2.3", 1.2}, {".5", 0.5}, {"1e3x", 1000.0},
                                     {"2D2", 200.0}, {"7e", 7.0}, {"&H1F", 31.0}, {"&o17", 15.0}, {"&HFFFF", -1.0},
                                     {"&H10000", 65536.0}});
    ScopedRegional comma(kCommaDecimal);
    Casos<std::string, double>(Val, {{"2.5", 2.5}, {"2,5", 2.0}});
}

}  // namespace
}  // namespace celdora

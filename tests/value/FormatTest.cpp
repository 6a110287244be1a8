#include <gtest/gtest.h>

#include "FaultOf.h"
#include "value/Format.h"
#include "value/Regional.h"

namespace celdora {
namespace {

using test::FaultOf;

const Regional kCommaDecimal{',', '.', DateOrder::DayFirst};
const Regional kMonthFirst{'.', ',', DateOrder::MonthFirst};

TEST(FormatNumberTest, AmountFormatOfTheMonthlyReport) {
    EXPECT_EQ(Format(0.0, "#.00"), ".00");
    EXPECT_EQ(Format(0.5, "#.00"), ".50");
    EXPECT_EQ(Format(-0.5, "#.00"), "-.50");
    EXPECT_EQ(Format(1160.0, "#.00"), "1160.00");
    EXPECT_EQ(Format(1234567.891, "#.00"), "1234567.89");
    // Half away from zero on the 15-digit decimal form, not on the binary value.
    EXPECT_EQ(Format(1.005, "#.00"), "1.01");
    EXPECT_EQ(Format(-1.005, "#.00"), "-1.01");
    EXPECT_EQ(Format(2.675, "#.00"), "2.68");
    EXPECT_EQ(Format(0.125, "#.00"), ".13");
    EXPECT_EQ(Format(0.994, "#.00"), ".99");
    EXPECT_EQ(Format(0.995, "#.00"), "1.00");
    EXPECT_EQ(Format(99.999, "#.00"), "100.00");
    EXPECT_EQ(Format(Variant::Long(7), "#.00"), "7.00");
    EXPECT_EQ(Format(Currency{11600050}, "#.00"), "1160.01");
}

TEST(FormatNumberTest, TextsAreReadAsNumbers) {
    EXPECT_EQ(Format("1160", "#.00"), "1160.00");
    EXPECT_EQ(Format(" 1.005 ", "#.00"), "1.01");
    EXPECT_EQ(Format(".00", "#.00"), ".00");
    EXPECT_EQ(Format("", "#.00"), "");
    EXPECT_EQ(Format("N/A", "#.00"), "N/A");
    EXPECT_EQ(Format(Variant::Null(), "#.00"), "");
    EXPECT_EQ(Format(Variant(), "#.00"), "");
    ScopedRegional comma(kCommaDecimal);
    EXPECT_EQ(Format("1160,5", "#.00"), "1160,50");
    EXPECT_EQ(Format(0.5, "#.00"), ",50");
}

TEST(FormatNumberTest, ZeroPlaceholdersPad) {
    EXPECT_EQ(Format(3, "00"), "03");
    EXPECT_EQ(Format(12, "00"), "12");
    EXPECT_EQ(Format(123, "00"), "123");
    EXPECT_EQ(Format(42, "000000"), "000042");
    EXPECT_EQ(Format(1234567, "000000"), "1234567");
    EXPECT_EQ(Format(2.5, "00"), "03");
    EXPECT_EQ(Format(0.5, "0.00"), "0.50");
    EXPECT_EQ(Format(0.0, "0"), "0");
    EXPECT_EQ(Format(0.0, "#"), "");
    EXPECT_EQ(Format(5.0, "#"), "5");
    EXPECT_EQ(Format(-3, "00"), "-03");
}

TEST(FormatNumberTest, Grouping) {
    EXPECT_EQ(Format(1234.5, "$ #,#.##"), "$ 1,234.5");
    EXPECT_EQ(Format(0.0, "$ #,#.##"), "$ .");
    EXPECT_EQ(Format(1234567.125, "$ #,#.##"), "$ 1,234,567.13");
    EXPECT_EQ(Format(12.0, "$ #,#.##"), "$ 12.");
    EXPECT_EQ(Format(-1234.5, "$ #,#.##"), "-$ 1,234.5");
    EXPECT_EQ(Format(1234.5, "#,##0.00"), "1,234.50");
    EXPECT_EQ(Format(0.0, "#,##0.00"), "0.00");
    EXPECT_EQ(Format(999.0, "#,##0"), "999");
    EXPECT_EQ(Format(1000.0, "#,##0"), "1,000");
    ScopedRegional comma(kCommaDecimal);
    EXPECT_EQ(Format(1234.5, "$ #,#.##"), "$ 1.234,5");
}

TEST(FormatNumberTest, SectionsScalingAndExponents) {
    EXPECT_EQ(Format(-5, "#,##0;(#,##0)"), "(5)");
    EXPECT_EQ(Format(0, "#,##0;(#,##0);cero"), "cero");
    EXPECT_EQ(Format(5, "#,##0;(#,##0);cero"), "5");
    EXPECT_EQ(Format(0.256, "0.0%"), "25.6%");
    EXPECT_EQ(Format(1234567.0, "#,##0,"), "1,235");
    EXPECT_EQ(Format(1234.5, "0.00E+00"), "1.23E+03");
    EXPECT_EQ(Format(0.00012, "0.0E-0"), "1.2E-4");
    EXPECT_EQ(Format(9.999, "0.00E+00"), "1.00E+01");
    EXPECT_EQ(Format(5551234, "###-####"), "555-1234");
    EXPECT_EQ(Format(7, "\"No. \"0"), "No. 7");
    EXPECT_EQ(Format(5.25, ".00"), "5.25");
    EXPECT_EQ(Format(1234567, "(###) ###-####"), "() 123-4567");
    EXPECT_EQ(Format(1234.5, "Standard"), "1,234.50");
}

TEST(FormatDateTest, FormatsTheSystemNames) {
    const Date date = MakeDate({2012, 3, 5, 17, 8, 9});
    EXPECT_EQ(Format(date, "dd/mm/yyyy"), "05/03/2012");
    EXPECT_EQ(Format(date, "yyyy-mm-dd"), "2012-03-05");
    EXPECT_EQ(Format(date, "yyyy-MM-dd HH:mm:ss"), "2012-03-05 17:08:09");
    EXPECT_EQ(Format(date, "d/m/yy h:n:s"), "5/3/12 17:8:9");
    EXPECT_EQ(Format(date, "hh:mm AM/PM"), "05:08 PM");
    EXPECT_EQ(Format(date, "dddd d \\de mmmm"), "lunes 5 de marzo");
    EXPECT_EQ(Format(DateSerial(2012, 12, 31), "y q w ww"), "366 4 2 53");
    EXPECT_EQ(Format(Date{0.0}, "yyyy-MM-dd HH:mm:ss"), "1899-12-30 00:00:00");
}

TEST(FormatDateTest, TextsAndNumbersAsDates) {
    EXPECT_EQ(Format("5/3/2012", "yyyy-mm-dd"), "2012-03-05");
    EXPECT_EQ(Format("2012-03-05 17:08:09", "dd/mm/yyyy"), "05/03/2012");
    EXPECT_EQ(Format("no date", "dd/mm/yyyy"), "no date");
    EXPECT_EQ(Format(40973, "dd/mm/yyyy"), "05/03/2012");
    {
        ScopedRegional monthFirst(kMonthFirst);
        EXPECT_EQ(Format("5/3/2012", "yyyy-mm-dd"), "2012-05-03");
        EXPECT_EQ(Format(DateSerial(2012, 3, 5), "Short Date"), "03/05/2012");
    }
    EXPECT_EQ(Format(DateSerial(2012, 3, 5), "Short Date"), "05/03/2012");
}

TEST(FormatNumberTest, ManyPatternsInTurnEachKeepTheirOwnReading) {
    // More patterns than are kept at once, each asked again after the others.
    for (int vuelta = 0; vuelta < 2; ++vuelta) {
        for (std::size_t ceros = 1; ceros <= 100; ++ceros) {
            EXPECT_EQ(Format(7, std::string(ceros, '0')), std::string(ceros - 1, '0') + "7");
            EXPECT_EQ(Format(1234.5, "#,##0.00;(#)"), "1,234.50");
            EXPECT_EQ(Format(-1234.5, "#,##0.00;(#)"), "(1235)");
        }
    }
    ScopedRegional comma(Regional{',', '.', DateOrder::DayFirst});
    EXPECT_EQ(Format(1234.5, "#,##0.00;(#)"), "1.234,50");
}

TEST(FormatTest, TextFormatsAndOtherKinds) {
    EXPECT_EQ(Format("abc", ">"), "ABC");
    EXPECT_EQ(Format("ñu", ">@@@@"), "  ÑU");
    EXPECT_EQ(Format("abc", "!@@"), "abc");
    EXPECT_EQ(Format(true, "Yes/No"), "Yes");
    EXPECT_EQ(Format(0.5, ""), "0.5");
    EXPECT_EQ(Format(true, ""), "True");
    EXPECT_EQ(FaultOf([] { Format(Bytes{1}, "#"); }), 13);
}

}  // namespace
}  // namespace celdora

#include <gtest/gtest.h>

#include <string>

#include "Casos.h"
#include "value/Format.h"

namespace celdora {
namespace {

using namespace test;

struct Formato {
    Variant valor;
    std::string patron;
    std::string esperado;
};

void Formatos(std::initializer_list<Formato> casos) {
    for (const auto& caso : casos) EXPECT_EQ(Format(caso.valor, caso.patron), caso.esperado) << caso.patron;
}

TEST(FormatNumberTest, AmountFormatOfTheMonthlyReport) {
    // Half away from zero on the 15-digit decimal form, not on the binary value.
    Formatos({{0.0, "#.00", ".00"}, {0.5, "#.00", ".50"}, {-0.5, "#.00", "-.50"}, {1160.0, "#.00", "1160.00"},
              {1234567.891, "#.00", "1234567.89"}, {1.005, "#.00", "1.01"}, {-1.005, "#.00", "-1.01"},
              {2.675, "#.00", "2.68"}, {0.125, "#.00", ".13"}, {0.994, "#.00", ".99"}, {0.995, "#.00", "1.00"},
              {99.999, "#.00", "100.00"}, {Variant::Long(7), "#.00", "7.00"}, {Currency{11600050}, "#.00", "1160.01"},
              {"1160", "#.00", "1160.00"}, {" 1.005 ", "#.00", "1.01"}, {".00", "#.00", ".00"}, {"", "#.00", ""},
              {"N/A", "#.00", "N/A"}, {Variant::Null(), "#.00", ""}, {Variant(), "#.00", ""}});
    ScopedRegional comma(kCommaDecimal);
    Formatos({{"1160,5", "#.00", "1160,50"}, {0.5, "#.00", ",50"}, {1234.5, "$ #,#.##", "$ 1.234,5"}});
}

TEST(FormatNumberTest, PlaceholdersGroupingSectionsScalingAndExponents) {
    Formatos({{3, "00", "03"}, {12, "00", "12"}, {123, "00", "123"}, {42, "000000", "000042"},
              {1234567, "000000", "1234567"}, {2.5, "00", "03"}, {0.5, "0.00", "0.50"}, {0.0, "0", "0"},
              {0.0, "#", ""}, {5.0, "#", "5"}, {-3, "00", "-03"}, {1234.5, "$ #,#.##", "$ 1,234.5"},
              {0.0, "$ #,#.##", "$ ."}, {1234567.125, "$ #,#.##", "$ 1,234,567.13"}, {12.0, "$ #,#.##", "$ 12."},
              {-1234.5, "$ #,#.##", "-$ 1,234.5"}, {1234.5, "#,##0.00", "1,234.50"}, {0.0, "#,##0.00", "0.00"},
              {999.0, "#,##0", "999"}, {1000.0, "#,##0", "1,000"}, {-5, "#,##0;(#,##0)", "(5)"},
              {0, "#,##0;(#,##0);cero", "cero"}, {5, "#,##0;(#,##0);cero", "5"}, {0.256, "0.0%", "25.6%"},
              {1234567.0, "#,##0,", "1,235"}, {1234.5, "0.00E+00", "1.23E+03"}, {0.00012, "0.0E-0", "1.2E-4"},
              {9.999, "0.00E+00", "1.00E+01"}, {5551234, "###-####", "555-1234"}, {7, "\"No. \"0", "No. 7"},
              {5.25, ".00", "5.25"}, {1234567, "(###) ###-####", "() 123-4567"}, {1234.5, "Standard", "1,234.50"}});
}

TEST(FormatDateTest, FormatsTheSystemNamesOfDatesTextsAndNumbers) {
    const Date date = MakeDate({2012, 3, 5, 17, 8, 9});
    Formatos({{date, "dd/mm/yyyy", "05/03/2012"}, {date, "yyyy-mm-dd", "2012-03-05"},
              {date, "yyyy-MM-dd HH:mm:ss", "2012-03-05 17:08:09"}, {date, "d/m/yy h:n:s", "5/3/12 17:8:9"},
              {date, "hh:mm AM/PM", "05:08 PM"}, {date, "dddd d \\de mmmm", "lunes 5 de marzo"},
              {DateSerial(2012, 12, 31), "y q w ww", "366 4 2 53"},
              {Date{0.0}, "yyyy-MM-dd HH:mm:ss", "1899-12-30 00:00:00"}, {"5/3/2012", "yyyy-mm-dd", "2012-03-05"},
              {"2012-03-05 17:08:09", "dd/mm/yyyy", "05/03/2012"}, {"no date", "dd/mm/yyyy", "no date"},
              {40973, "dd/mm/yyyy", "05/03/2012"}});
    {
        ScopedRegional monthFirst(kMonthFirst);
        Formatos({{"5/3/2012", "yyyy-mm-dd", "2012-05-03"}, {DateSerial(2012, 3, 5), "Short Date", "03/05/2012"}});
    }
    EXPECT_EQ(Format(DateSerial(2012, 3, 5), "Short Date"), "05/03/2012");
}

TEST(FormatNumberTest, ManyPatternsInTurnEachKeepTheirOwnReading) {
    // More patterns than are kept at once, each asked again after the others.
    for (int vuelta = 0; vuelta < 2; ++vuelta) {
        for (std::size_t ceros = 1; ceros <= 100; ++ceros) {
            EXPECT_EQ(Format(7, std::string(ceros, '0')), std::string(ceros - 1, '0') + "7");
            Formatos({{1234.5, "#,##0.00;(#)", "1,234.50"}, {-1234.5, "#,##0.00;(#)", "(1235)"}});
        }
    }
    ScopedRegional comma(kCommaDecimal);
    EXPECT_EQ(Format(1234.5, "#,##0.00;(#)"), "1.234,50");
}

TEST(FormatTest, TextFormatsAndOtherKinds) {
    Formatos({{"abc", ">", "ABC"}, {"ñu", ">@@@@", "  ÑU"}, {"abc", "!@@", "abc"}, {true, "Yes/No", "Yes"},
              {0.5, "", "0.5"}, {true, "", "True"}});
    EXPECT_EQ(FaultOf([] { Format(Bytes{1}, "#"); }), 13);
}

}  // namespace
}  // namespace celdora

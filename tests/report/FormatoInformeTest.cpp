// The monthly report's format: the report line made from a log line, the
// report text and the report's name.

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "report/FormatoInforme.h"
#include "value/Format.h"
#include "value/Regional.h"
#include "value/Text.h"
#include "value/Variant.h"

namespace celdora {
namespace {

using informe::AgregarAlInforme;
using informe::FormatearLinea;

const std::string kDelQueLlama = "del que llama";
const std::string kCancelada = "|CIN960904FQ2|A|4|x|09/11/2026 17:45:00|986|136| 0 |I||||";

// A log line, and what normalising it under a folio range gives: the report
// line and the in-force line of a cancelled comprobante; anything else leaves
// the caller's text as it was.
struct Normalizacion {
    std::string datos;
    std::string linea;
    std::string adicional = kDelQueLlama;
    std::int32_t no = 12345;
    std::int32_t ano = 2010;
};

TEST(FormatearLinea, GivesTwelveTrimmedFieldsWithTheRangeAndAmountsAndTheInForceLineOfACancelledOne) {
    const Normalizacion casos[] = {
        {"", "||||201012345|||||||||"},
        // The approval is the range's year and number without padding.
        {"|R|A|1|999999|f|1|1|1|I||||", "|R|A|1|201012345|f|1.00|1.00|1|I||||"},
        {"|R|A|1||f|1|1|1|I||||", "|R|A|1|20117|f|1.00|1.00|1|I||||", kDelQueLlama, 7, 2011},
        // Amounts: two decimals and no leading zero; an empty one stays empty
        // and one that is no number stays as it stands.
        {"|R|A|1||f| 12.3 |-0.5|1|I||||", "|R|A|1|201012345|f|12.30|-.50|1|I||||"},
        {"|R|A|1||f||n/a|1|I||||", "|R|A|1|201012345|f||n/a|1|I||||"},
        // Fields are trimmed and dates left as they are.
        {"|  R  | A |1 || 2026-11-03T11:20 |1|1|1| I | p | d | a |",
         "|R|A|1|201012345|2026-11-03T11:20|1.00|1.00|1|I|p|d|a|"},
        // A short line gives empty fields, an overlong one loses its tail.
        {"|R|A", "|R|A||201012345|||||||||"},
        {"sin barras", "||||201012345|||||||||"},
        {"|R|A|1||f|1|1|1|I|p|d|a|extra|mas|", "|R|A|1|201012345|f|1.00|1.00|1|I|p|d|a|"},
        {kCancelada, "|CIN960904FQ2|A|4|201012345|09/11/2026 17:45:00|986.00|136.00|0|I||||",
         "|CIN960904FQ2|A|4|201012345|09/11/2026 17:45:00|986.00|136.00|1|I||||"},
        // Only a state of exactly "0" is cancelled.
        {"|R|A|1||f|1|1|00|I||||", "|R|A|1|20101|f|1.00|1.00|00|I||||", kDelQueLlama, 1},
    };
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.datos);
        std::string adicional = kDelQueLlama;
        const std::string linea = FormatearLinea(caso.datos, caso.no, caso.ano, adicional);
        EXPECT_EQ(linea, caso.linea);
        EXPECT_EQ(adicional, caso.adicional);
    }
}

// The amounts as the host writes them take a shorter road than the
// formatter; whatever the text and the machine's separator, the field must
// read as the formatter writes it.
TEST(FormatearLinea, AmountsReadAsTheFormatterWritesThemUnderEitherSeparator) {
    const char* importes[] = {"0",   "00",   "7",    "007.5", "12.3",  "12,3", "12.34", "12.345", "100",
                              "12.", ".5",   "1,5",  "-3",    "1e3",   " 5",   "1.2.3", "0.05",   "123456789012345",
                              "1234567890123.45", "12345678901234.56", "9999999999999999", "1,234.5"};
    for (const char separador : {'.', ','}) {
        ScopedRegional regional(Regional{separador, separador == '.' ? ',' : '.', DateOrder::DayFirst});
        for (const char* importe : importes) {
            SCOPED_TRACE(std::string(importe) + " con " + separador);
            std::string adicional;
            const std::string linea =
                FormatearLinea("|R|A|1||f|" + std::string(importe) + "|1|1|I||||", 12345, 2010, adicional);
            EXPECT_EQ(SplitText(linea, "|")[6], Trim(Format(Variant(std::string(importe)), "#.00")));
        }
    }
}

TEST(AgregarAlInforme, LinesAreJoinedByCrLfWithTheInForceLineFirstAndNoBreakAtTheEnd) {
    std::string informe;
    EXPECT_EQ(AgregarAlInforme(informe, "|R1|A|1||f|10|1|1|I||||", 12345, 2010),
              "|R1|A|1|201012345|f|10.00|1.00|1|I||||");
    // The row gets back the line with "0"; the report holds both.
    EXPECT_EQ(AgregarAlInforme(informe, "|R2|A|2||f|5|0|0|I||||", 12345, 2010), "|R2|A|2|201012345|f|5.00|.00|0|I||||");
    EXPECT_EQ(informe,
              "|R1|A|1|201012345|f|10.00|1.00|1|I||||\r\n"
              "|R2|A|2|201012345|f|5.00|.00|1|I||||\r\n"
              "|R2|A|2|201012345|f|5.00|.00|0|I||||");
}

TEST(NombreInforme, IsOneThenTheIdentifierThenTheMonthInTwoDigitsThenTheYear) {
    EXPECT_EQ(informe::NombreInforme("EKU9003173C9", 11, 2026), "1EKU9003173C9112026");
    // A person's identifier has 13 characters: the name has 20.
    EXPECT_EQ(informe::NombreInforme("GAMA810512QW3", 12, 2026), "1GAMA810512QW3122026");
}

}  // namespace
}  // namespace celdora

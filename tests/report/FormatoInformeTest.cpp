// The monthly report's format: the report line made from a log line, the
// report text, the report's name, and the reading of a stored report back
// into the browser's grid and totals, held against each other.

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "forms/Dialogo.h"
#include "report/FormatoInforme.h"
#include "report/LectorInforme.h"
#include "value/Convert.h"
#include "value/Regional.h"
#include "value/Text.h"

namespace celdora {
namespace {

using informe::AgregarAlInforme;
using informe::FormatearLinea;
using informe::LeerInforme;
using Valores = std::vector<Variant>;

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
        // Amounts: two decimals, no leading zero, half away from zero; an
        // empty one stays empty and one that is no number stays as it stands.
        {"|R|A|1||f|0|1160|1|I||||", "|R|A|1|201012345|f|.00|1160.00|1|I||||"},
        {"|R|A|1||f|0.5|.50|1|I||||", "|R|A|1|201012345|f|.50|.50|1|I||||"},
        {"|R|A|1||f|1.005|2.125|1|I||||", "|R|A|1|201012345|f|1.01|2.13|1|I||||"},
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
        {"|R|A|1||f|1|1||I||||", "|R|A|1|20101|f|1.00|1.00||I||||", kDelQueLlama, 1},
        {"|R|A|1||f|1|1|O|I||||", "|R|A|1|20101|f|1.00|1.00|O|I||||", kDelQueLlama, 1},
        {"|R|A|1||f|1|1|0.0|I||||", "|R|A|1|20101|f|1.00|1.00|0.0|I||||", kDelQueLlama, 1},
    };
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.datos);
        std::string adicional = kDelQueLlama;
        const std::string linea = FormatearLinea(caso.datos, caso.no, caso.ano, adicional);
        EXPECT_EQ(linea, caso.linea);
        EXPECT_EQ(adicional, caso.adicional);
        // Normalising a normalised line changes nothing.
        adicional = kDelQueLlama;
        EXPECT_EQ(FormatearLinea(linea, caso.no, caso.ano, adicional), linea);
        EXPECT_EQ(adicional, caso.adicional);
    }
    ScopedRegional coma(Regional{',', '.', DateOrder::DayFirst});
    std::string adicional;
    EXPECT_EQ(FormatearLinea("|R|A|1||f|1160|0,5|1|I||||", 12345, 2010, adicional),
              "|R|A|1|201012345|f|1160,00|,50|1|I||||");
}

TEST(AgregarAlInforme, LinesAreJoinedByCrLfWithTheInForceLineFirstAndNoBreakAtTheEnd) {
    std::string informe;
    EXPECT_EQ(AgregarAlInforme(informe, "|R1|A|1||f|10|1|1|I||||", 12345, 2010),
              "|R1|A|1|201012345|f|10.00|1.00|1|I||||");
    EXPECT_EQ(informe, "|R1|A|1|201012345|f|10.00|1.00|1|I||||");
    // The row gets back the line with "0"; the report holds both.
    EXPECT_EQ(AgregarAlInforme(informe, "|R2|A|2||f|5|0|0|I||||", 12345, 2010), "|R2|A|2|201012345|f|5.00|.00|0|I||||");
    EXPECT_EQ(informe,
              "|R1|A|1|201012345|f|10.00|1.00|1|I||||\r\n"
              "|R2|A|2|201012345|f|5.00|.00|1|I||||\r\n"
              "|R2|A|2|201012345|f|5.00|.00|0|I||||");
}

TEST(NombreInforme, IsOneThenTheIdentifierThenTheMonthInTwoDigitsThenTheYear) {
    EXPECT_EQ(informe::NombreInforme("AAA010101AAA", 3, 2010), "1AAA010101AAA032010");
    EXPECT_EQ(informe::NombreInforme("EKU9003173C9", 11, 2026), "1EKU9003173C9112026");
    // A person's identifier has 13 characters: the name has 20.
    EXPECT_EQ(informe::NombreInforme("GAMA810512QW3", 12, 2026), "1GAMA810512QW3122026");
}

// --- Reading a stored report ---------------------------------------------------

// The browser's grid, alone in a dialog of its own.
class Lectura : public ::testing::Test, public forms::Dialogo {
protected:
    Lectura() : Dialogo("prueba", "prueba") {}
    forms::Grid& grid = Agregar<forms::Grid>("dxGrid", informe::ColumnasContenido());

    // Reads the text and checks the rows, the totals and the line that stopped the reading.
    void Leer(const std::string& contenido, int filas, double total, double iva,
              std::optional<std::string> incorrecta = std::nullopt) {
        SCOPED_TRACE(contenido);
        const auto lectura = LeerInforme(contenido, grid);
        EXPECT_EQ(grid.RowCount(), filas);
        EXPECT_EQ(lectura.total, total);
        EXPECT_EQ(lectura.iva, iva);
        EXPECT_EQ(lectura.lineaIncorrecta, incorrecta);
    }
    // The row's values in the order of the columns.
    Valores Fila(int fila) {
        Valores valores;
        for (const auto& columna : informe::ColumnasContenido()) valores.push_back(grid.Valor(fila, columna.nombre));
        return valores;
    }
};

TEST_F(Lectura, EachLineIsARowNumberedFromOneAndABadLineStopsTheReadingWithZeroTotals) {
    grid.Append();
    Leer("", 0, 0, 0);
    Leer("|XAXX010101000|A|1|201012345|05/10/2026 10:15:00|1160.00|160.00|1|I|p|d|a|", 1, 1160.0, 160.0);
    // The grid's column is IVATrasladado; the reader fills IVAtrasladado.
    EXPECT_EQ(Fila(0), (Valores{Variant::Long(1), "XAXX010101000", "A", "1", "201012345", "05/10/2026 10:15:00", 1160.0,
                                160.0, "1", "I", "p", "d", "a"}));
    const std::string buena = "|R|A|1|201012345|f|10.00|1.00|1|I||||";
    const std::string corta = "|R|A|2|201012345|f|10.00|1.00|1|I|||";  // thirteen pieces
    Leer(buena + "\r\n" + corta + "\r\n" + buena, 1, 0, 0, corta);
    // A line break at the end is an empty line, which fails the check.
    Leer(buena + "\r\n", 1, 0, 0, "");
    // A bare line feed is no line break: the text is one line of a piece too many.
    Leer(buena + "\n|R|A|2|201012345|f|1|1|1|I||||", 1, 10.0, 1.0);
    // So is a field with a bar inside: it shifts the fields and passes unnoticed.
    Leer("|R|A|1|201012345|f|10.00|1.00|1|I|p|d|a|b|", 1, 10.0, 1.0);
    EXPECT_EQ(CStr(grid.Valor(0, "Aduana")), "a");
}

TEST_F(Lectura, AmountsReadUnderTheMachinesSeparatorAndOneThatIsNoNumberLeavesItsCellEmpty) {
    Leer("|R|A|1|2|f|x|1.50|1|I||||\r\n|R|A|2|2|f|2.25||1|I||||", 2, 2.25, 1.5);
    EXPECT_TRUE(grid.Valor(0, "total").IsEmpty());
    EXPECT_TRUE(grid.Valor(1, "IVAtrasladado").IsEmpty());
    ScopedRegional coma(Regional{',', '.', DateOrder::DayFirst});
    Leer("|R|A|1|2|f|1160,50|,50|1|I||||", 1, 1160.5, 0.5);
}

// --- Writer against reader --------------------------------------------------------

// Log lines as the host might write them: fields with blanks around, amounts
// in thousandths, now and then cancelled, short, or overlong; and the rows
// and totals the report must show for them.
class Generador {
public:
    explicit Generador(std::uint32_t semilla) : azar_(semilla) {}

    // Adds a line to the report and what it must show to the expected rows and totals.
    void Agregar(std::string& informe, std::int32_t no, std::vector<Valores>& filas, double& total, double& iva) {
        std::vector<std::string> piezas(12);
        for (auto& pieza : piezas) pieza = Texto();
        const std::int64_t milesimas[2] = {Entero(0, 9999999), Entero(0, 999999)};
        for (std::size_t k = 0; k < 2; ++k) piezas[5 + k] = Relleno() + Milesimas(milesimas[k]) + Relleno();
        const bool cancelada = Entero(0, 3) == 0;
        piezas[7] = cancelada ? Relleno() + "0" + Relleno() : "1";
        // Now and then a line that stops early: its last fields are empty.
        const std::size_t presentes = Entero(0, 9) == 0 ? static_cast<std::size_t>(Entero(8, 11)) : 12;
        std::string datos = "|";
        for (std::size_t i = 0; i < presentes; ++i) datos += piezas[i] + "|";
        if (presentes == 12 && Entero(0, 9) == 0) datos += "sobra|";
        ASSERT_FALSE(AgregarAlInforme(informe, datos, no, 2011).empty());
        Valores fila{Variant::Long(0)};
        for (std::size_t i = 0; i < 12; ++i) fila.emplace_back(i < presentes ? Trim(piezas[i]) : "");
        fila[4] = "2011" + std::to_string(no);
        const std::int64_t centavos[2] = {(milesimas[0] + 5) / 10, (milesimas[1] + 5) / 10};
        for (std::size_t k = 0; k < 2; ++k) fila[6 + k] = CDbl(Variant(Centavos(centavos[k])));
        // A cancelled comprobante is shown twice, in force first, and both lines count in the totals.
        for (int vez = cancelada ? 0 : 1; vez <= 1; ++vez) {
            fila[0] = Variant::Long(static_cast<std::int32_t>(filas.size()) + 1);
            fila[8] = cancelada && vez == 1 ? "0" : "1";
            filas.push_back(fila);
            total += static_cast<double>(centavos[0]) / 100.0;
            iva += static_cast<double>(centavos[1]) / 100.0;
        }
    }

private:
    std::int64_t Entero(std::int64_t desde, std::int64_t hasta) {
        return std::uniform_int_distribution<std::int64_t>(desde, hasta)(azar_);
    }
    std::string Relleno() { return std::string(static_cast<std::size_t>(Entero(0, 2)), ' '); }
    std::string Texto() {
        static const std::string letras = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789/:-. ";
        std::string texto = Relleno();
        for (auto n = Entero(0, 14); n > 0; --n) texto += letras[static_cast<std::size_t>(Entero(0, 39))];
        return texto + Relleno();
    }
    static std::string Milesimas(std::int64_t m) {
        return std::to_string(m / 1000) + "." + std::to_string(m % 1000 + 1000).substr(1);
    }
    // "#.00": no leading zero for values below one.
    static std::string Centavos(std::int64_t c) {
        return (c / 100 == 0 ? "" : std::to_string(c / 100)) + "." + std::to_string(c % 100 + 100).substr(1);
    }

    std::mt19937 azar_;
};

TEST_F(Lectura, EveryFieldTheWriterWritesIsReadBackWithTheTotalsOfEveryLine) {
    for (std::uint32_t semilla = 1; semilla <= 20; ++semilla) {
        SCOPED_TRACE("semilla " + std::to_string(semilla));
        Generador generador(semilla);
        std::string informe;
        std::vector<Valores> filas;
        double total = 0;
        double iva = 0;
        for (int linea = 1; linea <= static_cast<int>(semilla % 7) * 9 + 1; ++linea) {
            generador.Agregar(informe, linea, filas, total, iva);
        }
        const auto lectura = LeerInforme(informe, grid);
        ASSERT_FALSE(lectura.lineaIncorrecta) << *lectura.lineaIncorrecta;
        ASSERT_EQ(grid.RowCount(), static_cast<int>(filas.size()));
        for (int fila = 0; fila < grid.RowCount(); ++fila) EXPECT_EQ(Fila(fila), filas[static_cast<std::size_t>(fila)]);
        EXPECT_NEAR(lectura.total, total, 1e-6);
        EXPECT_NEAR(lectura.iva, iva, 1e-6);
    }
}

}  // namespace
}  // namespace celdora

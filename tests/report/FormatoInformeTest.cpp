// The monthly report's format: the report line made from a log line, the
// report text, the report's name, and the reading of a stored report back
// into the browser's grid and totals, held against each other.

#include <gtest/gtest.h>

#include <cstdint>
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
using informe::NombreInforme;

// The browser's grid, alone in a dialog of its own.
class DialogoDeContenido : public forms::Dialogo {
public:
    DialogoDeContenido() : Dialogo("prueba", "prueba") {}
    forms::Grid& grid = Agregar<forms::Grid>("dxGrid", informe::ColumnasContenido());
};

std::string Formatear(const std::string& linea, std::int32_t no = 12345, std::int32_t ano = 2010) {
    std::string adicional;
    return FormatearLinea(linea, no, ano, adicional);
}

// A line of twelve fields from its fields.
std::string Linea(const std::vector<std::string>& campos) {
    std::string linea = "|";
    for (const auto& campo : campos) linea += campo + "|";
    return linea;
}

const std::string kCancelada = "|CIN960904FQ2|A|4|x|09/11/2026 17:45:00|986|136| 0 |I||||";

// --- Normalising a log line ----------------------------------------------------

TEST(FormatearLinea, AnEmptyLogLineGivesTwelveFieldsWithOnlyTheApproval) {
    EXPECT_EQ(Formatear(""), "||||201012345|||||||||");
    EXPECT_EQ(Split(Formatear(""), "|").size(), 14u);
}

TEST(FormatearLinea, ApprovalIsReplacedByTheRangesYearAndNumberWithoutPadding) {
    EXPECT_EQ(Formatear("|R|A|1|999999|f|1|1|1|I||||", 12345, 2010), "|R|A|1|201012345|f|1.00|1.00|1|I||||");
    EXPECT_EQ(Formatear("|R|A|1||f|1|1|1|I||||", 7, 2011), "|R|A|1|20117|f|1.00|1.00|1|I||||");
}

TEST(FormatearLinea, AmountsTakeTwoDecimalsWithoutLeadingZeroAndRoundHalfAwayFromZero) {
    auto importes = [](const std::string& total, const std::string& iva) {
        const auto piezas = Split(Formatear(Linea({"R", "A", "1", "", "f", total, iva, "1", "I", "", "", ""})), "|");
        return piezas[6] + " " + piezas[7];
    };
    EXPECT_EQ(importes("0", "1160"), ".00 1160.00");
    EXPECT_EQ(importes("0.5", ".50"), ".50 .50");
    EXPECT_EQ(importes("1.005", "2.125"), "1.01 2.13");
    EXPECT_EQ(importes(" 12.3 ", "-0.5"), "12.30 -.50");
    // An empty piece stays empty, one that is no number stays as it stands.
    EXPECT_EQ(importes("", "n/a"), " n/a");
}

TEST(FormatearLinea, AmountsTakeTheMachinesDecimalSeparator) {
    ScopedRegional coma(Regional{',', '.', DateOrder::DayFirst});
    EXPECT_EQ(Split(Formatear("|R|A|1||f|1160|0,5|1|I||||"), "|")[6], "1160,00");
    EXPECT_EQ(Split(Formatear("|R|A|1||f|1160|0,5|1|I||||"), "|")[7], ",50");
}

TEST(FormatearLinea, FieldsAreTrimmedAndDatesLeftAsTheyAre) {
    EXPECT_EQ(Formatear("|  R  | A |1 || 2026-11-03T11:20 |1|1|1| I | p | d | a |"),
              "|R|A|1|201012345|2026-11-03T11:20|1.00|1.00|1|I|p|d|a|");
}

TEST(FormatearLinea, AShortLineGivesEmptyFieldsAndAnOverlongLineLosesItsTail) {
    EXPECT_EQ(Formatear("|R|A"), "|R|A||201012345|||||||||");
    EXPECT_EQ(Formatear("sin barras"), "||||201012345|||||||||");
    EXPECT_EQ(Formatear("|R|A|1||f|1|1|1|I|p|d|a|extra|mas|"), "|R|A|1|201012345|f|1.00|1.00|1|I|p|d|a|");
}

TEST(FormatearLinea, ACancelledComprobanteAlsoGivesItsInForceLine) {
    std::string adicional;
    const std::string linea = FormatearLinea(kCancelada, 12345, 2010, adicional);
    EXPECT_EQ(linea, "|CIN960904FQ2|A|4|201012345|09/11/2026 17:45:00|986.00|136.00|0|I||||");
    EXPECT_EQ(adicional, "|CIN960904FQ2|A|4|201012345|09/11/2026 17:45:00|986.00|136.00|1|I||||");
}

TEST(FormatearLinea, OnlyAStateOfExactlyZeroCountsAsCancelledAndOtherwiseTheCallersTextStays) {
    for (const std::string estado : {"00", "1", "", "O", "0.0"}) {
        std::string adicional = "del que llama";
        FormatearLinea(Linea({"R", "A", "1", "", "f", "1", "1", estado, "I", "", "", ""}), 1, 2010, adicional);
        EXPECT_EQ(adicional, "del que llama") << estado;
    }
}

TEST(FormatearLinea, NormalisingANormalisedLineChangesNothing) {
    for (const std::string& datos : {kCancelada, std::string("|R|A|1||f|0.5|0|1|I|p|d|a|"), std::string("")}) {
        std::string primera;
        std::string segunda;
        const std::string una = FormatearLinea(datos, 23456, 2011, primera);
        const std::string dos = FormatearLinea(una, 23456, 2011, segunda);
        EXPECT_EQ(dos, una);
        EXPECT_EQ(segunda, primera);
    }
}

// --- The report text and its name -------------------------------------------------

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
    EXPECT_EQ(NombreInforme("AAA010101AAA", 3, 2010), "1AAA010101AAA032010");
    EXPECT_EQ(NombreInforme("EKU9003173C9", 11, 2026), "1EKU9003173C9112026");
    // A person's identifier has 13 characters: the name has 20.
    EXPECT_EQ(NombreInforme("GAMA810512QW3", 12, 2026), "1GAMA810512QW3122026");
    EXPECT_EQ(Len(NombreInforme("GAMA810512QW3", 12, 2026)), 20u);
}

// --- Reading a stored report ---------------------------------------------------

class Lectura : public ::testing::Test {
protected:
    DialogoDeContenido dialogo;
    forms::Grid& grid = dialogo.grid;

    std::string Celda(int fila, const std::string& columna) { return CStr(grid.Valor(fila, columna)); }
};

TEST_F(Lectura, AnEmptyReportShowsAnEmptyGridAndZeroTotals) {
    grid.Append();
    const auto lectura = LeerInforme("", grid);
    EXPECT_EQ(grid.RowCount(), 0);
    EXPECT_EQ(lectura.total, 0);
    EXPECT_EQ(lectura.iva, 0);
    EXPECT_FALSE(lectura.lineaIncorrecta);
}

TEST_F(Lectura, ALineWithoutBreakIsOneRowNumberedFromOne) {
    const auto lectura = LeerInforme("|XAXX010101000|A|1|201012345|05/10/2026 10:15:00|1160.00|160.00|1|I|p|d|a|", grid);
    ASSERT_EQ(grid.RowCount(), 1);
    EXPECT_EQ(grid.Valor(0, "id"), Variant::Long(1));
    EXPECT_EQ(Celda(0, "rfcReceptor"), "XAXX010101000");
    EXPECT_EQ(Celda(0, "serie"), "A");
    EXPECT_EQ(Celda(0, "folio"), "1");
    EXPECT_EQ(Celda(0, "noAprobacion"), "201012345");
    EXPECT_EQ(Celda(0, "fechahora"), "05/10/2026 10:15:00");
    EXPECT_EQ(grid.Valor(0, "total"), Variant(1160.0));
    // The grid's column is IVATrasladado; the reader fills IVAtrasladado.
    EXPECT_EQ(grid.Valor(0, "IVATrasladado"), Variant(160.0));
    EXPECT_EQ(Celda(0, "estadoComprobante"), "1");
    EXPECT_EQ(Celda(0, "efectoComprobante"), "I");
    EXPECT_EQ(Celda(0, "noPedimento"), "p");
    EXPECT_EQ(Celda(0, "fechaPedimento"), "d");
    EXPECT_EQ(Celda(0, "Aduana"), "a");
    EXPECT_EQ(lectura.total, 1160.0);
    EXPECT_EQ(lectura.iva, 160.0);
}

TEST_F(Lectura, ABadLineStopsTheReadingWithTheRowsBeforeItAndZeroTotals) {
    const std::string buena = "|R|A|1|201012345|f|10.00|1.00|1|I||||";
    const std::string corta = "|R|A|2|201012345|f|10.00|1.00|1|I|||";  // thirteen pieces
    const auto lectura = LeerInforme(buena + "\r\n" + corta + "\r\n" + buena, grid);
    EXPECT_EQ(grid.RowCount(), 1);
    ASSERT_TRUE(lectura.lineaIncorrecta);
    EXPECT_EQ(*lectura.lineaIncorrecta, corta);
    EXPECT_EQ(lectura.total, 0);
    EXPECT_EQ(lectura.iva, 0);
}

TEST_F(Lectura, ALineBreakAtTheEndIsAnEmptyLineAndFailsTheCheck) {
    const auto lectura = LeerInforme("|R|A|1|201012345|f|10.00|1.00|1|I||||\r\n", grid);
    EXPECT_EQ(grid.RowCount(), 1);
    ASSERT_TRUE(lectura.lineaIncorrecta);
    EXPECT_EQ(*lectura.lineaIncorrecta, "");
    // A bare line feed is no line break: the text is one line of a piece too many.
    const auto soloLf = LeerInforme("|R|A|1|201012345|f|10.00|1.00|1|I||||\n|R|A|2|201012345|f|1|1|1|I||||", grid);
    EXPECT_FALSE(soloLf.lineaIncorrecta);
    EXPECT_EQ(grid.RowCount(), 1);
}

TEST_F(Lectura, AFieldWithABarInsideShiftsTheFieldsAndPassesUnnoticed) {
    const auto lectura = LeerInforme("|R|A|1|201012345|f|10.00|1.00|1|I|p|d|a|b|", grid);
    EXPECT_FALSE(lectura.lineaIncorrecta);
    ASSERT_EQ(grid.RowCount(), 1);
    EXPECT_EQ(Celda(0, "Aduana"), "a");
}

TEST_F(Lectura, AnAmountThatIsNoNumberLeavesItsCellEmptyAndItsSumUnchanged) {
    const auto lectura = LeerInforme("|R|A|1|2|f|x|1.50|1|I||||\r\n|R|A|2|2|f|2.25||1|I||||", grid);
    ASSERT_EQ(grid.RowCount(), 2);
    EXPECT_TRUE(grid.Valor(0, "total").IsEmpty());
    EXPECT_TRUE(grid.Valor(1, "IVAtrasladado").IsEmpty());
    EXPECT_EQ(lectura.total, 2.25);
    EXPECT_EQ(lectura.iva, 1.5);
}

TEST_F(Lectura, AmountsAreReadWithTheMachinesDecimalSeparator) {
    ScopedRegional coma(Regional{',', '.', DateOrder::DayFirst});
    const auto lectura = LeerInforme("|R|A|1|2|f|1160,50|,50|1|I||||", grid);
    EXPECT_EQ(lectura.total, 1160.5);
    EXPECT_EQ(lectura.iva, 0.5);
}

// --- Writer against reader --------------------------------------------------------

// A log line as the host might write it: fields with blanks around, amounts
// in thousandths, now and then cancelled, short, or overlong.
struct LineaDePrueba {
    std::string datos;
    std::vector<std::string> campos;  // the twelve fields as the report must show them
    std::int64_t centavosTotal = 0;
    std::int64_t centavosIva = 0;
    bool cancelada = false;
};

class Generador {
public:
    explicit Generador(std::uint32_t semilla) : azar_(semilla) {}

    LineaDePrueba Linea(std::int32_t no, std::int32_t ano) {
        LineaDePrueba l;
        std::vector<std::string> piezas(12);
        for (std::size_t i = 0; i < 12; ++i) piezas[i] = Texto();
        const std::int64_t milesimas[2] = {Entero(0, 9999999), Entero(0, 999999)};
        for (int k = 0; k < 2; ++k) {
            piezas[5 + static_cast<std::size_t>(k)] = Relleno() + Milesimas(milesimas[k]) + Relleno();
        }
        l.centavosTotal = (milesimas[0] + 5) / 10;
        l.centavosIva = (milesimas[1] + 5) / 10;
        l.cancelada = Entero(0, 3) == 0;
        piezas[7] = l.cancelada ? Relleno() + "0" + Relleno() : "1";
        // Now and then a line that stops early: its last fields are empty.
        std::size_t presentes = Entero(0, 9) == 0 ? static_cast<std::size_t>(Entero(8, 11)) : 12;
        l.datos = "|";
        for (std::size_t i = 0; i < presentes; ++i) l.datos += piezas[i] + "|";
        if (presentes == 12 && Entero(0, 9) == 0) l.datos += "sobra|";
        for (std::size_t i = 0; i < 12; ++i) {
            std::string campo = i < presentes ? Trim(piezas[i]) : "";
            if (i == 3) campo = std::to_string(ano) + std::to_string(no);
            if (i == 5) campo = Centavos(l.centavosTotal);
            if (i == 6) campo = Centavos(l.centavosIva);
            l.campos.push_back(campo);
        }
        return l;
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
        std::string texto = std::to_string(m / 1000) + "." + std::to_string(m % 1000 + 1000).substr(1);
        return texto;
    }
    // "#.00": no leading zero for values below one.
    static std::string Centavos(std::int64_t c) {
        std::string entero = c / 100 == 0 ? "" : std::to_string(c / 100);
        return entero + "." + std::to_string(c % 100 + 100).substr(1);
    }

    std::mt19937 azar_;
};

TEST(EscritorContraLector, EveryFieldTheWriterWritesIsReadBackWithTheTotalsOfEveryLine) {
    DialogoDeContenido dialogo;
    for (std::uint32_t semilla = 1; semilla <= 20; ++semilla) {
        Generador generador(semilla);
        std::string informe;
        std::vector<std::vector<std::string>> esperadas;
        std::int64_t centavosTotal = 0;
        std::int64_t centavosIva = 0;
        const int filas = static_cast<int>(semilla % 7) * 9 + 1;
        for (int fila = 0; fila < filas; ++fila) {
            const LineaDePrueba linea = generador.Linea(fila + 1, 2011);
            ASSERT_FALSE(AgregarAlInforme(informe, linea.datos, fila + 1, 2011).empty());
            // A cancelled comprobante is shown twice, in force first, and
            // both lines count in the totals.
            for (int vez = linea.cancelada ? 0 : 1; vez <= 1; ++vez) {
                auto campos = linea.campos;
                campos[7] = linea.cancelada && vez == 1 ? "0" : "1";
                esperadas.push_back(campos);
                centavosTotal += linea.centavosTotal;
                centavosIva += linea.centavosIva;
            }
        }
        const auto lectura = LeerInforme(informe, dialogo.grid);
        ASSERT_FALSE(lectura.lineaIncorrecta) << "semilla " << semilla << ": " << *lectura.lineaIncorrecta;
        ASSERT_EQ(dialogo.grid.RowCount(), static_cast<int>(esperadas.size())) << "semilla " << semilla;
        const auto columnas = informe::ColumnasContenido();
        for (int fila = 0; fila < dialogo.grid.RowCount(); ++fila) {
            EXPECT_EQ(dialogo.grid.Valor(fila, "id"), Variant::Long(fila + 1));
            for (std::size_t campo = 0; campo < 12; ++campo) {
                const std::string& columna = columnas[campo + 1].nombre;
                const auto& esperado = esperadas[static_cast<std::size_t>(fila)][campo];
                if (columnas[campo + 1].numerica) {
                    EXPECT_EQ(dialogo.grid.Valor(fila, columna), Variant(CDbl(Variant(esperado))))
                        << "semilla " << semilla << ", fila " << fila << ", " << columna;
                } else {
                    EXPECT_EQ(CStr(dialogo.grid.Valor(fila, columna)), esperado)
                        << "semilla " << semilla << ", fila " << fila << ", " << columna;
                }
            }
        }
        EXPECT_NEAR(lectura.total, static_cast<double>(centavosTotal) / 100.0, 1e-6) << "semilla " << semilla;
        EXPECT_NEAR(lectura.iva, static_cast<double>(centavosIva) / 100.0, 1e-6) << "semilla " << semilla;
    }
}

}  // namespace
}  // namespace celdora

// Tax and receivables adjustments on the demo company. The default names of
// the tax types (asignarTiposImpuesto) are asserted, statements and rows, by
// the behaviour suite.

#include <array>
#include <vector>

#include "rules/cRegimenFical.h"
#include "tests/support/FachadaDemo.h"
#include "value/Regional.h"

namespace celdora {
namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::StartsWith;
using Ajustes = testing::FachadaDemo;

const std::string kTasasDiferentes =
    "No es posible continuar debido a que la venta contiene productos con tasas diferentes mayor que cero de IVA "
    "trasladado.";

// The rates of sales 1, 2, 5, 6 and 8 of the demo company are asserted on
// each engine by the behaviour suite; here are the boundaries of the rule.
TEST_F(Ajustes, PorcentajeIVAGivesTheOneRateOfASaleOrMinusOneWithTheReason) {
    // The lines of a new sale as (quantity, price, VAT), in order.
    const struct {
        std::vector<std::array<double, 3>> lineas;
        double porcentaje;
        std::string texto;
    } casos[] = {
        {{{1, 100, 16}, {1, 50, 0}, {2, 100, 32}}, 16, ""},  // 16 % first, then 0 %
        // Rounded to two decimals, half to even: 16.005 % is 16; 16.015 % is 16.02.
        {{{1, 100, 16.005}, {1, 100, 16}}, 16, ""},
        {{{1, 100, 16.005}, {1, 100, 16.015}}, -1, kTasasDiferentes},
        {{{1, 0, 0}}, -1, ""},  // no priced lines
        // The server's division by zero gives no rate, and reading it faults.
        {{{1, 100, 16}, {0, 100, 0}}, -1,
         "Error 94 (Invalid use of Null) in procedure PorcentajeIVATrasladadoEnVenta of Módulo de clase cAcction"},
    };
    int venta = 20;
    for (const auto& caso : casos) {
        SCOPED_TRACE(venta);
        db.Ejecutar("INSERT INTO Venta (Sys_PK, IFolio, Documento, StatusAdministrativo) VALUES (" +
                    std::to_string(venta) + ", 0, 4, 3)");
        for (const auto& [cantidad, precio, iva] : caso.lineas)
            db.Ejecutar("INSERT INTO DVenta (FK_Venta_Detalle, Cantidad, Precio, Impuesto1) VALUES (" +
                        std::to_string(venta) + ", " + CStr(cantidad) + ", " + CStr(precio) + ", " + CStr(iva) + ")");
        acc.LastErrorDescript = "texto anterior";
        EXPECT_EQ(acc.PorcentajeIVATrasladadoEnVentaFinanciada(venta++), caso.porcentaje);
        EXPECT_EQ(acc.LastErrorDescript, caso.texto);
    }
    // A query that does not open: -1 in silence.
    db.cnn->Close();
    EXPECT_EQ(acc.PorcentajeIVATrasladadoEnVentaFinanciada(1), -1.0);
    EXPECT_EQ(acc.LastErrorDescript, "");
}

// A value glued into the statement breaks it: a quote in the unit, a
// fraction written with the machine's decimal comma.
TEST_F(Ajustes, TheReceivablesUnitAndRateAreWrittenOrTheStatementBreaks) {
    acc.LastErrorDescript = "texto anterior";
    EXPECT_TRUE(acc.EstablecerUnidadDCXC(3, "SERVICIO"));
    EXPECT_TRUE(acc.EstablecerPorcentajeIVAVenta_enDCXC(1, 16.5));
    EXPECT_EQ(acc.LastErrorDescript, "");

    EXPECT_FALSE(acc.EstablecerUnidadDCXC(4, "PZA'S"));
    EXPECT_THAT(acc.LastErrorDescript,
                AllOf(StartsWith("Error 1 ("), EndsWith(") in procedure EstablecerUnidad of Módulo de clase cAcction")));
    ScopedRegional coma({',', '.', DateOrder::DayFirst});
    EXPECT_FALSE(acc.EstablecerPorcentajeIVAVenta_enDCXC(2, 16.5));
    EXPECT_THAT(acc.LastErrorDescript,
                EndsWith(") in procedure EstablecerPorcentajeIVAVenta_enDCXC of Módulo de clase cAcction"));
    EXPECT_EQ(Texto("SELECT group_concat(Sys_PK || ':' || ifnull(XMLUnidad, '') || ':' || "
                    "ifnull(XMLPorcentajeIVAVenta, ''), ' ') FROM DCXC WHERE XMLUnidad IS NOT NULL OR "
                    "XMLPorcentajeIVAVenta IS NOT NULL"),
              "1::16.5 3:SERVICIO:");
}

TEST_F(Ajustes, RegimenesFicalesColListsTheRegimesByNameOrShowsAFailureWithAnEmptyCollection) {
    auto regimenes = acc.RegimenesFicalesCol();
    ASSERT_EQ(regimenes->Count(), 2);
    auto texto = [&](int i) {
        auto r = std::dynamic_pointer_cast<cRegimenFical>(regimenes->Item(i).AsObject());
        return r ? std::to_string(r->Sys_PK) + "|" + r->Regimen + "|" + r->Notas : "(none)";
    };
    EXPECT_EQ(texto(1), "2|Personas Morales con Fines no Lucrativos|");  // Null notes
    EXPECT_EQ(texto(2), "1|Régimen General de Ley Personas Morales|Título II de la Ley del ISR");
    EXPECT_TRUE(SinCajas());

    // GIVEN a regime, listed last, whose key does not fit a 32-bit integer,
    // THEN the regimes read before it are not handed out.
    db.Ejecutar("INSERT INTO RegimenEmisor (Sys_PK, Regimen, Notas) VALUES (3000000000, 'Sueldos y Salarios', NULL)");
    EXPECT_EQ(acc.RegimenesFicalesCol()->Count(), 0);
    UnaCaja("Error al cargar régimen fiscal. 6 (Overflow)");
    // A query that does not open: no second box.
    db.cnn->Close();
    EXPECT_EQ(acc.RegimenesFicalesCol()->Count(), 0);
    EXPECT_EQ(platform.ui.Cajas().size(), 1u);
}

}  // namespace
}  // namespace celdora

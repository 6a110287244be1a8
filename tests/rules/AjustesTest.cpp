// Tax and receivables adjustments on the demo company. The default names of
// the tax types (asignarTiposImpuesto) are asserted, statements and rows, by
// the behaviour suite.

#include <array>
#include <vector>

#include "tests/support/FachadaDemo.h"

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
}

// A value glued into the statement breaks it: a quote in the unit.
TEST_F(Ajustes, TheReceivablesUnitAndRateAreWrittenOrTheStatementBreaks) {
    acc.LastErrorDescript = "texto anterior";
    EXPECT_TRUE(acc.EstablecerUnidadDCXC(3, "SERVICIO"));
    EXPECT_TRUE(acc.EstablecerPorcentajeIVAVenta_enDCXC(1, 16.5));
    EXPECT_EQ(acc.LastErrorDescript, "");

    EXPECT_FALSE(acc.EstablecerUnidadDCXC(4, "PZA'S"));
    EXPECT_THAT(acc.LastErrorDescript,
                AllOf(StartsWith("Error 1 ("), EndsWith(") in procedure EstablecerUnidad of Módulo de clase cAcction")));
    EXPECT_EQ(Texto("SELECT group_concat(Sys_PK || ':' || ifnull(XMLUnidad, '') || ':' || "
                    "ifnull(XMLPorcentajeIVAVenta, ''), ' ') FROM DCXC WHERE XMLUnidad IS NOT NULL OR "
                    "XMLPorcentajeIVAVenta IS NOT NULL"),
              "1::16.5 3:SERVICIO:");
}

// The regimes listed by name, Null notes as empty, are asserted on every
// engine by the behaviour suite.
TEST_F(Ajustes, RegimenesFicalesColShowsAFailureWithAnEmptyCollection) {
    // GIVEN a regime, listed last, whose key does not fit a 32-bit integer,
    // THEN the regimes read before it are not handed out.
    db.Ejecutar("INSERT INTO RegimenEmisor (Sys_PK, Regimen, Notas) VALUES (3000000000, 'Sueldos y Salarios', NULL)");
    EXPECT_EQ(acc.RegimenesFicalesCol()->Count(), 0);
    UnaCaja("Error al cargar régimen fiscal. 6 (Overflow)");
}

}  // namespace
}  // namespace celdora

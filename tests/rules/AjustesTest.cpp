// Tax and receivables adjustments on the demo company. Sale 1 has lines at
// 16 % only, sale 2 at 0 % and then 16 %, sale 5 at 16 % and 11 %, sale 8 at
// 0 % only; sale 6 has no lines.

#include <gtest/gtest.h>

#include <array>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "core/cAcction.h"
#include "rules/cRegimenFical.h"
#include "tests/support/CompanyFixture.h"
#include "tests/support/TestPlatform.h"
#include "value/Convert.h"
#include "value/Regional.h"

namespace celdora {
namespace {

using host::Icono;
using testing::CompanyDatabase;
using testing::TestPlatform;

const std::string kTasasDiferentes =
    "No es posible continuar debido a que la venta contiene productos con tasas diferentes mayor que cero de IVA "
    "trasladado.";

class Ajustes : public ::testing::Test {
protected:
    TestPlatform platform;
    CompanyDatabase db{CompanyDatabase::Datos::Demo};
    cAcction acc;

    void SetUp() override { acc.SetDataObjects(db.dataObjects, nullptr); }

    // A new sale 20 whose lines are given as (quantity, price, VAT), in order.
    void VentaConLineas(std::initializer_list<std::array<double, 3>> lineas) {
        db.Ejecutar("INSERT INTO Venta (Sys_PK, IFolio, Documento, StatusAdministrativo) VALUES (20, 0, 4, 3)");
        for (const auto& [cantidad, precio, iva] : lineas) {
            db.Ejecutar("INSERT INTO DVenta (FK_Venta_Detalle, Cantidad, Precio, Impuesto1) VALUES (20, " +
                        CStr(cantidad) + ", " + CStr(precio) + ", " + CStr(iva) + ")");
        }
    }

    std::shared_ptr<cRegimenFical> Regimen(const Coleccion& coleccion, int indice) {
        return std::dynamic_pointer_cast<cRegimenFical>(coleccion.Item(indice).AsObject());
    }
};

// --- asignarTiposImpuesto ----------------------------------------------------

TEST_F(Ajustes, AsignarTiposImpuestoFillsOnlyEmptyNamesAndAlwaysAnswersFalse) {
    // GIVEN row 1 with an empty and a Null name, row 2 with both names set
    db.Ejecutar("INSERT INTO CfgImpuesto (Sys_PK, uf_TipoI1, uf_TipoI3) VALUES (2, 'VAT', 'Otro')");
    db.sentencias->clear();

    EXPECT_FALSE(acc.asignarTiposImpuesto());

    // Both forms are issued in order; the two-argument pair fails here in silence.
    EXPECT_EQ(*db.sentencias,
              (std::vector<std::string>{
                  "UPDATE CfgImpuesto SET uf_TipoI1='IVA' WHERE isnull(uf_TipoI1) OR uf_TipoI1=''",
                  "UPDATE CfgImpuesto SET uf_TipoI3='IEPS' WHERE isnull(uf_TipoI3) OR uf_TipoI3=''",
                  "UPDATE CfgImpuesto SET uf_TipoI1='IVA' WHERE isnull(uf_TipoI1,'')=''",
                  "UPDATE CfgImpuesto SET uf_TipoI3='IEPS' WHERE isnull(uf_TipoI3,'')=''"}));

    EXPECT_EQ(db.Valor("SELECT uf_TipoI1 || '/' || uf_TipoI3 FROM CfgImpuesto WHERE Sys_PK=1"),
              Variant("IVA/IEPS"));
    EXPECT_EQ(db.Valor("SELECT uf_TipoI1 || '/' || uf_TipoI3 FROM CfgImpuesto WHERE Sys_PK=2"),
              Variant("VAT/Otro"));
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

// --- PorcentajeIVATrasladadoEnVentaFinanciada ---------------------------------

TEST_F(Ajustes, PorcentajeIVAGivesTheOneRateOfASale) {
    EXPECT_EQ(acc.PorcentajeIVATrasladadoEnVentaFinanciada(1), 16.0);
    // Lines without tax give 0, not -1.
    EXPECT_EQ(acc.PorcentajeIVATrasladadoEnVentaFinanciada(8), 0.0);
    EXPECT_EQ(acc.LastErrorDescript, "");
}

TEST_F(Ajustes, PorcentajeIVALetsLinesAtZeroMixWithOnePositiveRateInEitherOrder) {
    EXPECT_EQ(acc.PorcentajeIVATrasladadoEnVentaFinanciada(2), 16.0);  // 0 % first, then 16 %

    VentaConLineas({{{1, 100, 16}}, {{1, 50, 0}}, {{2, 100, 32}}});  // 16 % first, then 0 %
    EXPECT_EQ(acc.PorcentajeIVATrasladadoEnVentaFinanciada(20), 16.0);
    EXPECT_EQ(acc.LastErrorDescript, "");
}

TEST_F(Ajustes, PorcentajeIVARefusesTwoDifferentPositiveRates) {
    acc.LastErrorDescript = "texto anterior";
    EXPECT_EQ(acc.PorcentajeIVATrasladadoEnVentaFinanciada(5), -1.0);
    EXPECT_EQ(acc.LastErrorDescript, kTasasDiferentes);
}

TEST_F(Ajustes, PorcentajeIVAComparesRatesRoundedToTwoDecimals) {
    VentaConLineas({{{1, 1000, 160.01}}, {{1, 1000, 160.04}}});  // 16.001 % and 16.004 %
    EXPECT_EQ(acc.PorcentajeIVATrasladadoEnVentaFinanciada(20), 16.0);
    EXPECT_EQ(acc.LastErrorDescript, "");
}

TEST_F(Ajustes, PorcentajeIVARoundsHalfToEven) {
    // 16.005 % rounds to 16 (half to even), so it matches a line at 16 %;
    // rounding half away from zero would give 16.01 and refuse the sale.
    VentaConLineas({{{1, 100, 16.005}}, {{1, 100, 16}}});
    EXPECT_EQ(acc.PorcentajeIVATrasladadoEnVentaFinanciada(20), 16.0);
    EXPECT_EQ(acc.LastErrorDescript, "");

    db.Ejecutar("UPDATE DVenta SET Impuesto1=16.015 WHERE FK_Venta_Detalle=20 AND Impuesto1=16");
    EXPECT_EQ(acc.PorcentajeIVATrasladadoEnVentaFinanciada(20), -1.0);
    EXPECT_EQ(acc.LastErrorDescript, kTasasDiferentes);
}

TEST_F(Ajustes, PorcentajeIVAOfASaleWithoutPricedLinesIsMinusOneWithoutText) {
    EXPECT_EQ(acc.PorcentajeIVATrasladadoEnVentaFinanciada(6), -1.0);
    VentaConLineas({{{1, 0, 0}}});
    EXPECT_EQ(acc.PorcentajeIVATrasladadoEnVentaFinanciada(20), -1.0);
    EXPECT_EQ(acc.LastErrorDescript, "");
}

TEST_F(Ajustes, PorcentajeIVAReportsALineOfQuantityZero) {
    // The server's division by zero gives no rate, and reading it faults.
    VentaConLineas({{{1, 100, 16}}, {{0, 100, 0}}});
    EXPECT_EQ(acc.PorcentajeIVATrasladadoEnVentaFinanciada(20), -1.0);
    EXPECT_EQ(acc.LastErrorDescript,
              "Error 94 (Invalid use of Null) in procedure PorcentajeIVATrasladadoEnVenta of Módulo de clase cAcction");
}

TEST_F(Ajustes, PorcentajeIVAIsMinusOneAndSilentWhenTheQueryDoesNotOpen) {
    acc.LastErrorDescript = "texto anterior";
    db.cnn->Close();
    EXPECT_EQ(acc.PorcentajeIVATrasladadoEnVentaFinanciada(1), -1.0);
    EXPECT_EQ(acc.LastErrorDescript, "");
}

// --- EstablecerUnidadDCXC and EstablecerPorcentajeIVAVenta_enDCXC -------------

TEST_F(Ajustes, EstablecerUnidadDCXCWritesTheUnitAndReportsAQuoteThatBreaksIt) {
    acc.LastErrorDescript = "texto anterior";
    EXPECT_TRUE(acc.EstablecerUnidadDCXC(3, "SERVICIO"));
    EXPECT_EQ(acc.LastErrorDescript, "");
    EXPECT_EQ(db.Valor("SELECT XMLUnidad FROM DCXC WHERE Sys_PK=3"), Variant("SERVICIO"));
    EXPECT_EQ(db.Contar("DCXC WHERE XMLUnidad IS NOT NULL"), 1);

    EXPECT_FALSE(acc.EstablecerUnidadDCXC(4, "PZA'S"));
    const std::string sufijo = ") in procedure EstablecerUnidad of Módulo de clase cAcction";
    ASSERT_GE(acc.LastErrorDescript.size(), sufijo.size());
    EXPECT_EQ(acc.LastErrorDescript.rfind("Error 1 (", 0), 0u) << acc.LastErrorDescript;
    EXPECT_EQ(acc.LastErrorDescript.substr(acc.LastErrorDescript.size() - sufijo.size()), sufijo);
    EXPECT_TRUE(db.Valor("SELECT XMLUnidad FROM DCXC WHERE Sys_PK=4").IsNull());
}

TEST_F(Ajustes, EstablecerPorcentajeIVAVentaWritesTheRate) {
    acc.LastErrorDescript = "texto anterior";
    EXPECT_TRUE(acc.EstablecerPorcentajeIVAVenta_enDCXC(1, 16.5));
    EXPECT_EQ(acc.LastErrorDescript, "");
    EXPECT_EQ(db.Valor("SELECT XMLPorcentajeIVAVenta FROM DCXC WHERE Sys_PK=1"), Variant(16.5));
}

TEST_F(Ajustes, EstablecerPorcentajeIVAVentaBreaksUnderADecimalComma) {
    // GIVEN a machine whose decimal separator is the comma
    ScopedRegional coma({',', '.', DateOrder::DayFirst});
    // WHEN a fractional rate is glued into the statement THEN it no longer parses
    EXPECT_FALSE(acc.EstablecerPorcentajeIVAVenta_enDCXC(1, 16.5));
    const std::string sufijo = ") in procedure EstablecerPorcentajeIVAVenta_enDCXC of Módulo de clase cAcction";
    ASSERT_GE(acc.LastErrorDescript.size(), sufijo.size());
    EXPECT_EQ(acc.LastErrorDescript.substr(acc.LastErrorDescript.size() - sufijo.size()), sufijo);
    EXPECT_TRUE(db.Valor("SELECT XMLPorcentajeIVAVenta FROM DCXC WHERE Sys_PK=1").IsNull());
    // A whole rate has no separator and still goes through.
    EXPECT_TRUE(acc.EstablecerPorcentajeIVAVenta_enDCXC(1, 16));
    EXPECT_EQ(db.Valor("SELECT XMLPorcentajeIVAVenta FROM DCXC WHERE Sys_PK=1"), Variant(16.0));
}

// --- RegimenesFicalesCol -----------------------------------------------------

TEST_F(Ajustes, RegimenesFicalesColListsTheRegimesByNameWithNullNotesAsEmpty) {
    auto regimenes = acc.RegimenesFicalesCol();
    ASSERT_EQ(regimenes->Count(), 2);

    auto primero = Regimen(*regimenes, 1);
    ASSERT_TRUE(primero);
    EXPECT_EQ(primero->Sys_PK, 2);
    EXPECT_EQ(primero->Regimen, "Personas Morales con Fines no Lucrativos");
    EXPECT_EQ(primero->Notas, "");

    auto segundo = Regimen(*regimenes, 2);
    ASSERT_TRUE(segundo);
    EXPECT_EQ(segundo->Sys_PK, 1);
    EXPECT_EQ(segundo->Regimen, "Régimen General de Ley Personas Morales");
    EXPECT_EQ(segundo->Notas, "Título II de la Ley del ISR");
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

TEST_F(Ajustes, RegimenesFicalesColShowsAFailureAndGivesAnEmptyCollection) {
    // GIVEN a regime, listed last, whose key does not fit a 32-bit integer
    db.Ejecutar("INSERT INTO RegimenEmisor (Sys_PK, Regimen, Notas) VALUES (3000000000, 'Sueldos y Salarios', NULL)");

    auto regimenes = acc.RegimenesFicalesCol();

    // THEN the regimes read before it are not handed out
    EXPECT_EQ(regimenes->Count(), 0);
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    EXPECT_EQ(platform.ui.Cajas()[0].texto, "Error al cargar régimen fiscal. 6 (Overflow)");
    EXPECT_EQ(platform.ui.Cajas()[0].icono, Icono::Exclamacion);
}

TEST_F(Ajustes, RegimenesFicalesColIsEmptyAndSilentWhenTheQueryDoesNotOpen) {
    db.cnn->Close();
    EXPECT_EQ(acc.RegimenesFicalesCol()->Count(), 0);
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

}  // namespace
}  // namespace celdora

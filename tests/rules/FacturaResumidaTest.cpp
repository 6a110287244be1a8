// The billing form of a sale and its summary lines, on the demo company
// (sale 1, no summary lines at first).

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/cAcction.h"
#include "rules/cConceptoFacHordana.h"
#include "tests/support/CompanyFixture.h"
#include "tests/support/TestPlatform.h"
#include "value/Convert.h"
#include "value/Regional.h"

namespace celdora {
namespace {

using host::Icono;
using testing::CompanyDatabase;
using testing::TestPlatform;

class FacturaResumida : public ::testing::Test {
protected:
    TestPlatform platform;
    CompanyDatabase db{CompanyDatabase::Datos::Demo};
    cAcction acc;
    std::shared_ptr<cConceptoFacHordana> conceptos = std::make_shared<cConceptoFacHordana>();

    void SetUp() override {
        acc.SetDataObjects(db.dataObjects, nullptr);
        conceptos->Resumido = true;
        conceptos->UnidadC1 = "CONSUMO";
        conceptos->ConceptoResumido = "CONSUMO DE ALIMENTOS";
        conceptos->CantidadA = 1;
        conceptos->PrecioA = 862.5;
        conceptos->DescuentosA = 12.25;
        conceptos->ImpuestosA = 136;
        conceptos->UnidadC2 = "PZA";
        conceptos->ConceptoResumidoCeroIVA = "OTROS CONCEPTOS SIN IVA";
        conceptos->CantidadB = 2;
        conceptos->PrecioB = 75;
        conceptos->DescuentosB = 0;
        conceptos->ImpuestosB = 0;
    }

    long Lineas(int venta) { return db.Contar("ut_HdFacturaResumen WHERE FKVenta=" + std::to_string(venta)); }
    Variant TipoFormato(int venta) {
        return db.Valor("SELECT uf_hdTipoFormato FROM Venta WHERE Sys_PK=" + std::to_string(venta));
    }
    // A summary line left over from an earlier call.
    void LineaAnterior(int venta) {
        db.Ejecutar("INSERT INTO ut_HdFacturaResumen (Unidad, Descripcion, Cantidad, Precio, Descuentos, Impuestos, "
                    "FKVenta) VALUES ('X', 'ANTERIOR', 1, 1, 0, 0, " +
                    std::to_string(venta) + ")");
    }
};

TEST_F(FacturaResumida, OneConceptStoresTheFirstLineAndTheForm) {
    EXPECT_TRUE(acc.EstablecerHordanaTipoFormato(1, 1, conceptos));

    EXPECT_EQ(Lineas(1), 1);
    EXPECT_EQ(db.Valor("SELECT Unidad || '|' || Descripcion || '|' || Cantidad || '|' || Precio || '|' || "
                       "Descuentos || '|' || Impuestos FROM ut_HdFacturaResumen WHERE FKVenta=1"),
              Variant("CONSUMO|CONSUMO DE ALIMENTOS|1.0|862.5|12.25|136.0"));
    EXPECT_EQ(CLng(TipoFormato(1)), 1);
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

TEST_F(FacturaResumida, TwoConceptsStoreBothLinesAndASecondCallReplacesThem) {
    EXPECT_TRUE(acc.EstablecerHordanaTipoFormato(1, 2, conceptos));
    db.sentencias->clear();
    EXPECT_TRUE(acc.EstablecerHordanaTipoFormato(1, 2, conceptos));

    const std::string insertar =
        "INSERT INTO ut_HdFacturaResumen (Unidad,Descripcion,Cantidad,Precio,Descuentos,Impuestos,FKVenta) VALUES(";
    EXPECT_EQ(*db.sentencias,
              (std::vector<std::string>{"DELETE FROM ut_HdFacturaResumen WHERE FKVenta=1",
                                        insertar + "'CONSUMO','CONSUMO DE ALIMENTOS',1,862.5,12.25,136,1)",
                                        insertar + "'PZA','OTROS CONCEPTOS SIN IVA',2,75,0,0,1)",
                                        "UPDATE Venta SET uf_hdTipoFormato=2 WHERE Sys_PK=1"}));

    EXPECT_EQ(Lineas(1), 2);
    EXPECT_EQ(db.Contar("ut_HdFacturaResumen WHERE FKVenta=1 AND Unidad='PZA' AND Descripcion='OTROS CONCEPTOS "
                        "SIN IVA' AND Cantidad=2 AND Precio=75 AND Impuestos=0"),
              1);
    EXPECT_EQ(CLng(TipoFormato(1)), 2);
}

TEST_F(FacturaResumida, DetailedRemovesEarlierLinesOfThatSaleOnlyAndNeedsNoConcepts) {
    LineaAnterior(1);
    LineaAnterior(2);

    EXPECT_TRUE(acc.EstablecerHordanaTipoFormato(1, 0));

    EXPECT_EQ(Lineas(1), 0);
    EXPECT_EQ(Lineas(2), 1);
    EXPECT_EQ(CLng(TipoFormato(1)), 0);
}

TEST_F(FacturaResumida, AFormOtherThanOneOrTwoStoresNoLine) {
    EXPECT_TRUE(acc.EstablecerHordanaTipoFormato(1, 3, conceptos));
    EXPECT_EQ(Lineas(1), 0);
    EXPECT_EQ(CLng(TipoFormato(1)), 3);
}

TEST_F(FacturaResumida, MissingConceptsFailAfterTheDeleteAndShowTheProcedure) {
    // GIVEN a sale with an earlier summary line
    LineaAnterior(1);

    // WHEN a summary form is stored without concepts
    EXPECT_FALSE(acc.EstablecerHordanaTipoFormato(1, 1, nullptr));

    // THEN the delete has run, the form is unchanged and the box names the procedure
    EXPECT_EQ(Lineas(1), 0);
    EXPECT_EQ(CLng(TipoFormato(1)), 0);
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    EXPECT_EQ(platform.ui.Cajas()[0].texto,
              "Error 91 (Object variable or With block variable not set) in procedure EstablecerHordanaTipoFormato "
              "of Módulo de clase cAcction");
    EXPECT_EQ(platform.ui.Cajas()[0].icono, Icono::Exclamacion);
}

TEST_F(FacturaResumida, ADecimalCommaBreaksTheInsertOfAFractionalAmount) {
    // GIVEN a machine whose decimal separator is the comma, and an earlier line
    ScopedRegional coma({',', '.', DateOrder::DayFirst});
    LineaAnterior(1);

    EXPECT_FALSE(acc.EstablecerHordanaTipoFormato(1, 1, conceptos));

    EXPECT_EQ(Lineas(1), 0);
    EXPECT_EQ(CLng(TipoFormato(1)), 0);
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    const std::string texto = platform.ui.Cajas()[0].texto;
    const std::string sufijo = ") in procedure EstablecerHordanaTipoFormato of Módulo de clase cAcction";
    EXPECT_EQ(texto.rfind("Error 1 (", 0), 0u) << texto;
    ASSERT_GE(texto.size(), sufijo.size());
    EXPECT_EQ(texto.substr(texto.size() - sufijo.size()), sufijo);

    // Whole amounts carry no separator and still go in.
    conceptos->PrecioA = 862;
    conceptos->DescuentosA = 12;
    EXPECT_TRUE(acc.EstablecerHordanaTipoFormato(1, 1, conceptos));
    EXPECT_EQ(Lineas(1), 1);
}

}  // namespace
}  // namespace celdora

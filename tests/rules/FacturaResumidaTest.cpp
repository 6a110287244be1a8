// The billing form of a sale and its summary lines, on the demo company
// (sale 1, no summary lines at first).

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/cAcction.h"
#include "forms/Controles.h"
#include "forms/Dialogo.h"
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


// The dialog that chooses the form: both texts are demanded whichever option
// is on, the summary's texts come back trimmed, and closing gives nothing.
class FormaDeFacturacion : public ::testing::Test {
protected:
    TestPlatform platform;
    cAcction acc;

    static forms::TextBox& Campo(forms::Dialogo& d, const char* nombre) { return d.Ver<forms::TextBox>(nombre); }
    static void Aceptar(forms::Dialogo& d) { d.Ver<forms::CommandButton>("btnAceptar").Pulsar(); }
};

TEST_F(FormaDeFacturacion, OpensOnTheDetailedFormWithTheSummaryTextsDisabledAndTheirDefaults) {
    platform.ui.AlMostrar("dlgFormaFacturacionHordana", [](forms::Dialogo& d) {
        EXPECT_EQ(d.Caption(), "Opciones de generación del comprobante");
        EXPECT_TRUE(d.Ver<forms::OptionButton>("optDetallado").Value());
        EXPECT_FALSE(Campo(d, "txtConcepto").Enabled());
        EXPECT_FALSE(Campo(d, "txtOtro").Enabled());
        EXPECT_EQ(Campo(d, "txtUnidad1").Text(), "CONSUMO");
        EXPECT_EQ(Campo(d, "txtConcepto").Text(), "CONSUMO DE ALIMENTOS");
        EXPECT_EQ(Campo(d, "txtUnidad2").Text(), "PZA");
        EXPECT_EQ(Campo(d, "txtOtro").Text(), "OTROS CONCEPTOS SIN IVA");
        d.Ver<forms::OptionButton>("optResumido").Pulsar();
        EXPECT_TRUE(Campo(d, "txtConcepto").Enabled());
        EXPECT_TRUE(Campo(d, "txtOtro").Enabled());
        d.Ver<forms::OptionButton>("optDetallado").Pulsar();
        EXPECT_FALSE(Campo(d, "txtOtro").Enabled());
        Aceptar(d);
    });
    const auto resultado = acc.FormaGenerarComprobanteHordana();
    ASSERT_NE(resultado, nullptr);
    EXPECT_FALSE(resultado->Resumido);
    EXPECT_EQ(resultado->ConceptoResumido, "");
}

TEST_F(FormaDeFacturacion, BothTextsAreDemandedAlsoWithTheDetailedForm) {
    platform.ui.AlMostrar("dlgFormaFacturacionHordana", [](forms::Dialogo& d) {
        Campo(d, "txtConcepto").Text("   ");
        Aceptar(d);
        EXPECT_TRUE(d.Visible());
        EXPECT_EQ(d.Foco(), &Campo(d, "txtConcepto"));
        Campo(d, "txtConcepto").Text("CONSUMO");
        Campo(d, "txtOtro").Text("");
        Aceptar(d);
        EXPECT_TRUE(d.Visible());
        EXPECT_EQ(d.Foco(), &Campo(d, "txtOtro"));
        Campo(d, "txtOtro").Text("SIN IVA");
        Aceptar(d);
    });
    const auto resultado = acc.FormaGenerarComprobanteHordana();
    EXPECT_FALSE(resultado->Resumido);
    ASSERT_EQ(platform.ui.Cajas().size(), 2u);
    platform.ui.ExpectCaja(0, "Escriba la descripción del concepto a facturar.", Icono::Informacion);
    platform.ui.ExpectCaja(1, "Escriba la descripción del concepto sin impuestos a facturar.", Icono::Informacion);
}

TEST_F(FormaDeFacturacion, TheSummaryFormReturnsTheFourTextsTrimmed) {
    platform.ui.AlMostrar("dlgFormaFacturacionHordana", [](forms::Dialogo& d) {
        d.Ver<forms::OptionButton>("optResumido").Pulsar();
        Campo(d, "txtUnidad1").Escribir(" SERV ");
        Campo(d, "txtConcepto").Escribir("  CONSUMO EN RESTAURANTE ");
        Campo(d, "txtUnidad2").Escribir("PZA ");
        Campo(d, "txtOtro").Escribir(" BEBIDAS");
        Aceptar(d);
    });
    const auto resultado = acc.FormaGenerarComprobanteHordana();
    EXPECT_TRUE(resultado->Resumido);
    EXPECT_EQ(resultado->UnidadC1, "SERV");
    EXPECT_EQ(resultado->ConceptoResumido, "CONSUMO EN RESTAURANTE");
    EXPECT_EQ(resultado->UnidadC2, "PZA");
    EXPECT_EQ(resultado->ConceptoResumidoCeroIVA, "BEBIDAS");
    // The amounts are the host's.
    EXPECT_EQ(resultado->PrecioA, 0);
}

TEST_F(FormaDeFacturacion, ClosingTheWindowGivesAnObjectWithNothingChosenAndRestoresThePointer) {
    platform.ui.MousePointer(host::Puntero::Reloj);
    platform.ui.AlMostrar("dlgFormaFacturacionHordana", [&](forms::Dialogo& d) {
        EXPECT_EQ(platform.ui.MousePointerActual(), host::Puntero::Normal);
        d.Ver<forms::OptionButton>("optResumido").Pulsar();
        d.Cerrar();
    });
    const auto resultado = acc.FormaGenerarComprobanteHordana();
    EXPECT_FALSE(resultado->Resumido);
    EXPECT_EQ(resultado->UnidadC1, "");
    EXPECT_EQ(platform.ui.MousePointerActual(), host::Puntero::Reloj);
}

}  // namespace
}  // namespace celdora

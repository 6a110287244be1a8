// The billing form of a sale and its summary lines, on the demo company
// (sale 1, no summary lines at first), and the dialog that chooses the form.

#include "forms/Controles.h"
#include "forms/Dialogo.h"
#include "rules/cConceptoFacHordana.h"
#include "tests/support/FachadaDemo.h"

namespace celdora {
namespace {

using host::Icono;

class FacturaResumida : public testing::FachadaDemo {
protected:
    std::shared_ptr<cConceptoFacHordana> conceptos = std::make_shared<cConceptoFacHordana>();

    void SetUp() override {
        FachadaDemo::SetUp();
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
        // A summary line of sales 1 and 2 left over from an earlier call.
        for (const char* venta : {"1", "2"})
            db.Ejecutar("INSERT INTO ut_HdFacturaResumen (Unidad, Descripcion, Cantidad, Precio, Descuentos, "
                        "Impuestos, FKVenta) VALUES ('X', 'ANTERIOR', 1, 1, 0, 0, " + std::string(venta) + ")");
    }

    // The summary lines of a sale, one text each, and its form.
    std::string Lineas(int venta) {
        return CStr(db.Valor("SELECT ifnull(group_concat(Unidad || '|' || Descripcion || '|' || Cantidad || '|' || "
                             "Precio || '|' || Descuentos || '|' || Impuestos, '~'), '') FROM ut_HdFacturaResumen "
                             "WHERE FKVenta=" + std::to_string(venta))) +
               " form " + CStr(db.Valor("SELECT uf_hdTipoFormato FROM Venta WHERE Sys_PK=" + std::to_string(venta)));
    }
};

TEST_F(FacturaResumida, EachFormReplacesTheEarlierLinesOfThatSaleOnly) {
    EXPECT_TRUE(acc.EstablecerHordanaTipoFormato(1, 1, conceptos));
    EXPECT_EQ(Lineas(1), "CONSUMO|CONSUMO DE ALIMENTOS|1.0|862.5|12.25|136.0 form 1");

    db.sentencias->clear();
    EXPECT_TRUE(acc.EstablecerHordanaTipoFormato(1, 2, conceptos));
    const std::string insertar =
        "INSERT INTO ut_HdFacturaResumen (Unidad,Descripcion,Cantidad,Precio,Descuentos,Impuestos,FKVenta) VALUES(";
    EXPECT_EQ(*db.sentencias, (testing::Textos{"DELETE FROM ut_HdFacturaResumen WHERE FKVenta=1",
                                               insertar + "'CONSUMO','CONSUMO DE ALIMENTOS',1,862.5,12.25,136,1)",
                                               insertar + "'PZA','OTROS CONCEPTOS SIN IVA',2,75,0,0,1)",
                                               "UPDATE Venta SET uf_hdTipoFormato=2 WHERE Sys_PK=1"}));

    // A form other than one or two stores no line and needs no concepts.
    EXPECT_TRUE(acc.EstablecerHordanaTipoFormato(1, 3));
    EXPECT_EQ(Lineas(1), " form 3");
    EXPECT_TRUE(SinCajas());
}

// Missing concepts: the failure comes after the delete, which stays done.
TEST_F(FacturaResumida, AFailureAfterTheDeleteShowsTheProcedure) {
    EXPECT_FALSE(acc.EstablecerHordanaTipoFormato(1, 1, nullptr));
    EXPECT_EQ(Lineas(1), " form 0");
    UnaCaja("Error 91 (Object variable or With block variable not set) in procedure EstablecerHordanaTipoFormato of "
            "Módulo de clase cAcction");
}

// The dialog that chooses the form: both texts are demanded whichever option
// is on, the detailed form gives no texts, and the pointer is the normal one
// while the dialog is up; the summary gives its texts trimmed.
class FormaDeFacturacion : public testing::FachadaDemo {
protected:
    static forms::TextBox& Campo(forms::Dialogo& d, const char* nombre) { return d.Ver<forms::TextBox>(nombre); }
    static void Pulsar(forms::Dialogo& d, const char* nombre) { d.Ver<forms::OptionButton>(nombre).Pulsar(); }
    static void Aceptar(forms::Dialogo& d) { d.Ver<forms::CommandButton>("btnAceptar").Pulsar(); }
};

TEST_F(FormaDeFacturacion, DemandsBothTextsOnTheDetailedFormAndGivesNoTexts) {
    platform.ui.MousePointer(host::Puntero::Reloj);
    platform.ui.AlMostrar("dlgFormaFacturacionHordana", [&](forms::Dialogo& d) {
        EXPECT_EQ(platform.ui.MousePointerActual(), host::Puntero::Normal);
        Pulsar(d, "optResumido");
        Pulsar(d, "optDetallado");
        for (const char* campo : {"txtConcepto", "txtOtro"}) {
            Campo(d, campo).Text(campo[3] == 'C' ? "   " : "");
            Aceptar(d);
            EXPECT_EQ(d.Foco(), &Campo(d, campo));
            Campo(d, campo).Text("CONSUMO");
        }
        Aceptar(d);
    });
    const auto c = acc.FormaGenerarComprobanteHordana();
    EXPECT_EQ(platform.ui.MousePointerActual(), host::Puntero::Reloj);
    EXPECT_FALSE(c->Resumido);
    EXPECT_EQ(c->UnidadC1 + c->ConceptoResumido + c->UnidadC2 + c->ConceptoResumidoCeroIVA, "");
    ASSERT_EQ(platform.ui.Cajas().size(), 2u);
    platform.ui.ExpectCaja(0, "Escriba la descripción del concepto a facturar.", Icono::Informacion);
    platform.ui.ExpectCaja(1, "Escriba la descripción del concepto sin impuestos a facturar.", Icono::Informacion);
}

TEST_F(FormaDeFacturacion, TheSummaryGivesItsTextsTrimmed) {
    platform.ui.AlMostrar("dlgFormaFacturacionHordana", [](forms::Dialogo& d) {
        Pulsar(d, "optResumido");
        Campo(d, "txtConcepto").Text("  SERVICIO DE BANQUETE ");
        EXPECT_TRUE(d.Ver<forms::CommandButton>("btnAceptar").Default()) << "Enter accepts";
        Aceptar(d);
    });
    const auto c = acc.FormaGenerarComprobanteHordana();
    ASSERT_NE(c, nullptr);
    EXPECT_TRUE(c->Resumido);
    EXPECT_EQ(c->ConceptoResumido + "|" + c->ConceptoResumidoCeroIVA, "SERVICIO DE BANQUETE|OTROS CONCEPTOS SIN IVA");
}

}  // namespace
}  // namespace celdora

// Summary billing: the lines that stand for a sale billed in summary form and
// the billing form kept on the sale.

#include <string>

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "rules/cConceptoFacHordana.h"
#include "rules/dlgFormaFacturacionHordana.h"
#include "value/Text.h"
#include "value/Channels.h"
#include "value/Convert.h"

namespace celdora {

namespace {

// A number glued into a statement in the default text form of a double, with
// the machine's decimal separator and no conversion for the server.
std::string Numero(double value) { return CStr(Variant(value)); }

std::string InsertarConcepto(const std::string& unidad, const std::string& descripcion, double cantidad,
                             double precio, double descuentos, double impuestos, const std::string& clave) {
    return "INSERT INTO ut_HdFacturaResumen (Unidad,Descripcion,Cantidad,Precio,Descuentos,Impuestos,FKVenta) "
           "VALUES('" +
           unidad + "','" + descripcion + "'," + Numero(cantidad) + "," + Numero(precio) + "," +
           Numero(descuentos) + "," + Numero(impuestos) + "," + clave + ")";
}

}  // namespace

std::shared_ptr<cConceptoFacHordana> cAcction::FormaGenerarComprobanteHordana() {
    auto conceptos = std::make_shared<cConceptoFacHordana>();
    conceptos->Resumido = false;
    dlgFormaFacturacionHordana dialogo;
    dialogo.ShowModal();
    if (dialogo.Aceptado && dialogo.optResumido.Value()) {
        conceptos->Resumido = true;
        conceptos->UnidadC1 = Trim(dialogo.txtUnidad1.Text());
        conceptos->ConceptoResumido = Trim(dialogo.txtConcepto.Text());
        conceptos->UnidadC2 = Trim(dialogo.txtUnidad2.Text());
        conceptos->ConceptoResumidoCeroIVA = Trim(dialogo.txtOtro.Text());
    }
    dialogo.Unload();
    return conceptos;
}

bool cAcction::EstablecerHordanaTipoFormato(std::int32_t pkventa, std::int16_t tf,
                                           const std::shared_ptr<cConceptoFacHordana>& DConceptos) {
    bool result = false;
    const std::string clave = std::to_string(pkventa);
    auto fault = Trap([&] {
        // The sale's earlier lines go first, so that a second call replaces them.
        Deref(ADOCnn).Execute("DELETE FROM ut_HdFacturaResumen WHERE FKVenta=" + clave);
        if (tf == 1 || tf == 2) {
            const cConceptoFacHordana& conceptos = Deref(DConceptos);
            Deref(ADOCnn).Execute(InsertarConcepto(conceptos.UnidadC1, conceptos.ConceptoResumido,
                                                   conceptos.CantidadA, conceptos.PrecioA, conceptos.DescuentosA,
                                                   conceptos.ImpuestosA, clave));
        }
        if (tf == 2) {
            const cConceptoFacHordana& conceptos = Deref(DConceptos);
            Deref(ADOCnn).Execute(InsertarConcepto(conceptos.UnidadC2, conceptos.ConceptoResumidoCeroIVA,
                                                   conceptos.CantidadB, conceptos.PrecioB, conceptos.DescuentosB,
                                                   conceptos.ImpuestosB, clave));
        }
        Deref(ADOCnn).Execute("UPDATE Venta SET uf_hdTipoFormato=" + std::to_string(tf) + " WHERE Sys_PK=" + clave);
        result = true;
    });
    if (fault) {
        // No transaction: the statements already run stay done.
        core::Caja(ErrorTextIn(*fault, "EstablecerHordanaTipoFormato of Módulo de clase cAcction"),
                   host::Icono::Exclamacion);
        result = false;
    }
    return result;
}

}  // namespace celdora

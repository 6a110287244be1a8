// Small adjustments around comprobantes of sales on credit and receivables:
// default names of the tax types, the one VAT rate of a sale, two columns of
// a receivable, and the issuer's fiscal regimes as objects.

#include <memory>
#include <string>

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "rules/cRegimenFical.h"
#include "value/Channels.h"
#include "value/Convert.h"

namespace celdora {

bool cAcction::asignarTiposImpuesto() {
    // Both forms of the null test are issued: on each server one pair works
    // and the other fails in silence. The answer is never set.
    const bool result = false;
    ResumeNext([&] {
        Deref(Deref(DataObjects).ADOCnn())
            .Execute("UPDATE CfgImpuesto SET uf_TipoI1='IVA' WHERE isnull(uf_TipoI1) OR uf_TipoI1=''");
    });
    ResumeNext([&] {
        Deref(Deref(DataObjects).ADOCnn())
            .Execute("UPDATE CfgImpuesto SET uf_TipoI3='IEPS' WHERE isnull(uf_TipoI3) OR uf_TipoI3=''");
    });
    ResumeNext([&] {
        Deref(Deref(DataObjects).ADOCnn())
            .Execute("UPDATE CfgImpuesto SET uf_TipoI1='IVA' WHERE isnull(uf_TipoI1,'')=''");
    });
    ResumeNext([&] {
        Deref(Deref(DataObjects).ADOCnn())
            .Execute("UPDATE CfgImpuesto SET uf_TipoI3='IEPS' WHERE isnull(uf_TipoI3,'')=''");
    });
    return result;
}

double cAcction::PorcentajeIVATrasladadoEnVentaFinanciada(std::int32_t pkventa) {
    LastErrorDescript.clear();
    double tasa = -1;
    double result = -1;
    auto fault = Trap([&] {
        auto recordset = mdlMain::AbrirConsulta(
            ADOCnn,
            "SELECT DISTINCT (DVenta.Impuesto1*100/(DVenta.Cantidad*DVenta.Precio))AS Tasa FROM DVenta WHERE "
            "DVenta.Precio>0 AND DVenta.FK_Venta_Detalle=" +
                std::to_string(pkventa));
        if (!recordset) return;
        while (!recordset->Eof()) {
            // A line of quantity 0 gives a Null rate on servers that do not
            // fault on a division by zero; reading it as a number faults.
            const double r = Round(CDbl(recordset->Fields("Tasa").Value()), 2);
            if (tasa == -1) {
                tasa = r;
            } else if (tasa > 0 && r > 0 && r != tasa) {
                LastErrorDescript =
                    "No es posible continuar debido a que la venta contiene productos con tasas diferentes mayor "
                    "que cero de IVA trasladado.";
                result = -1;
                recordset->Close();
                return;
            } else if (r > 0 && r != tasa) {
                // Only from a working rate of 0: lines at 0% mix with one
                // positive rate, which wins whatever the order.
                tasa = r;
            }
            recordset->movenext();
        }
        recordset->Close();
        result = tasa;
    });
    if (fault) {
        LastErrorDescript = ErrorTextIn(*fault, "PorcentajeIVATrasladadoEnVenta of Módulo de clase cAcction");
        result = -1;
    }
    return result;
}

bool cAcction::EstablecerUnidadDCXC(std::int32_t pkcxc, const std::string& sunidad) {
    LastErrorDescript.clear();
    bool result = false;
    auto fault = Trap([&] {
        Deref(ADOCnn).Execute("UPDATE DCXC SET XMLUnidad='" + sunidad + "' WHERE Sys_PK=" + std::to_string(pkcxc));
        result = true;
    });
    if (fault) {
        LastErrorDescript = ErrorTextIn(*fault, "EstablecerUnidad of Módulo de clase cAcction");
        result = false;
    }
    return result;
}

bool cAcction::EstablecerPorcentajeIVAVenta_enDCXC(std::int32_t pkcxc, double porcentajeIVA) {
    LastErrorDescript.clear();
    bool result = false;
    auto fault = Trap([&] {
        // The rate in the default text form of a double, with the machine's
        // decimal separator: a comma breaks the statement.
        Deref(ADOCnn).Execute("UPDATE DCXC SET XMLPorcentajeIVAVenta=" + CStr(Variant(porcentajeIVA)) +
                              " WHERE Sys_PK=" + std::to_string(pkcxc));
        result = true;
    });
    if (fault) {
        LastErrorDescript = ErrorTextIn(*fault, "EstablecerPorcentajeIVAVenta_enDCXC of Módulo de clase cAcction");
        result = false;
    }
    return result;
}

std::shared_ptr<Coleccion> cAcction::RegimenesFicalesCol() {
    auto result = std::make_shared<Coleccion>();
    auto fault = Trap([&] {
        auto recordset =
            mdlMain::AbrirConsulta(ADOCnn, "SELECT Sys_PK,Regimen,Notas FROM RegimenEmisor ORDER BY Regimen");
        if (!recordset) return;
        while (!recordset->Eof()) {
            auto regimen = std::make_shared<cRegimenFical>();
            regimen->setInfo(EnteroCampo(*recordset, "Sys_PK"), mdlMain::TextoCampo(*recordset, "Regimen"),
                             mdlMain::TextoCampo(*recordset, "Notas"));
            result->Add(std::shared_ptr<Object>(regimen));
            recordset->movenext();
        }
        recordset->Close();
    });
    if (fault) {
        core::Caja("Error al cargar régimen fiscal. " + NumberAndDescription(*fault), host::Icono::Exclamacion);
        return std::make_shared<Coleccion>();
    }
    return result;
}

}  // namespace celdora

// The host's questions about one sale or receivable: does a comprobante
// exist for it, is the block of its folio tied to a folio range or to a
// certificate, does its folio lie inside a CBB range. All read ADOCnn and
// write nothing.

#include <memory>
#include <string>

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "value/Channels.h"
#include "value/Convert.h"

namespace celdora {

namespace {

// The answer of LeerValorConsulta as a number; no row, a Null and a failed
// statement all come back Empty, which counts as 0.
double ValorNumerico(cAcction& facade, const std::string& sql, const std::string& campo) {
    return CDbl(mdlMain::LeerValorConsulta(facade.ADOCnn, sql, campo));
}

// Whether a comprobante row exists; a failure is shown in the failure box
// and answers false. LeerValorConsulta passes over the failures of the
// database itself, so those answer false in silence.
bool ExisteComprobante(cAcction& facade, const std::string& sql) {
    bool result = false;
    auto fault = Trap([&] { result = ValorNumerico(facade, sql, "") > 0; });
    if (fault) {
        core::CajaDeFalla(*fault);
        return false;
    }
    return result;
}

// Whether the link column of the document's block points at a row. Silent.
bool BlockVinculado(cAcction& facade, const std::string& sql, const std::string& campo) {
    bool result = false;
    ResumeNext([&] { result = ValorNumerico(facade, sql, campo) >= 1; });
    return result;
}

// Whether the document's folio lies inside the CBB range of its block, both
// bounds included. Only the first range row is looked at. A statement that
// does not open answers false without a word; no range, or a folio outside
// it, answer false with an exclamation box. fueraDeRango is the text of the
// latter, which differs between sales and receivables.
bool FolioDentroDeRangoCBB(cAcction& facade, const std::string& sql, const std::string& fueraDeRango) {
    bool result = false;
    std::shared_ptr<host::Recordset> recordset;
    ResumeNext([&] { recordset = mdlMain::AbrirConsulta(facade.ADOCnn, sql); });
    if (!recordset) return result;
    ResumeNext([&] {
        if (recordset->Eof() && recordset->Bof()) {
            core::Caja("No existe ningun rango de folios para CBB relacionado al block de este documento",
                       host::Icono::Exclamacion);
            result = false;
        } else {
            const double folio = mdlMain::NumeroCampo(*recordset, "Folio");
            if (folio >= mdlMain::NumeroCampo(*recordset, "FolioInicial") &&
                folio <= mdlMain::NumeroCampo(*recordset, "FolioFinal")) {
                result = true;
            } else {
                core::Caja(fueraDeRango, host::Icono::Exclamacion);
                result = false;
            }
        }
    });
    ResumeNext([&] { recordset->Close(); });
    return result;
}

}  // namespace

bool cAcction::ExisteCFD(std::int32_t pkventa) {
    return ExisteComprobante(*this, "SELECT Sys_PK FROM ut_CFD WHERE uf_IVenta=" + std::to_string(pkventa));
}

bool cAcction::ExisteCFD_CXC(std::int32_t pkcxc) {
    return ExisteComprobante(*this, "SELECT Sys_PK FROM ut_CFD WHERE uf_IDCXC=" + std::to_string(pkcxc));
}

bool cAcction::DocumentoAprobadoParaCFD(std::int32_t pkventa) {
    return BlockVinculado(*this,
                          "SELECT BlockDocumentos.uf_CFDFolio FROM BlockDocumentos INNER JOIN (FoliosDocumentos "
                          "INNER JOIN Venta ON FoliosDocumentos.Sys_PK=Venta.IFolio) ON "
                          "BlockDocumentos.Sys_PK=FoliosDocumentos.Block WHERE Venta.Sys_PK=" +
                              std::to_string(pkventa),
                          "uf_CFDFolio");
}

bool cAcction::DocumentoAprobadoParaCFD_CXC(std::int32_t pkcxc) {
    return BlockVinculado(*this,
                          "SELECT BlockDocumentos.uf_CFDFolio FROM BlockDocumentos INNER JOIN (FoliosDocumentos "
                          "INNER JOIN DCXC ON FoliosDocumentos.Sys_PK=DCXC.IFolio) ON "
                          "BlockDocumentos.Sys_PK=FoliosDocumentos.Block WHERE DCXC.Sys_PK=" +
                              std::to_string(pkcxc),
                          "uf_CFDFolio");
}

bool cAcction::DocumentoAprobadoParaCFDI(std::int32_t pkventa) {
    return BlockVinculado(*this,
                          "SELECT BlockDocumentos.uf_CFDI_Info FROM BlockDocumentos INNER JOIN (FoliosDocumentos "
                          "INNER JOIN Venta ON FoliosDocumentos.Sys_PK=Venta.IFolio) ON "
                          "BlockDocumentos.Sys_PK=FoliosDocumentos.Block WHERE Venta.Sys_PK=" +
                              std::to_string(pkventa),
                          "uf_CFDI_Info");
}

bool cAcction::DocumentoAprobadoParaCFDI_CXC(std::int32_t pkcxc) {
    return BlockVinculado(*this,
                          "SELECT BlockDocumentos.uf_CFDI_Info FROM BlockDocumentos INNER JOIN (FoliosDocumentos "
                          "INNER JOIN DCXC ON FoliosDocumentos.Sys_PK=DCXC.IFolio) ON "
                          "BlockDocumentos.Sys_PK=FoliosDocumentos.Block WHERE DCXC.Sys_PK=" +
                              std::to_string(pkcxc),
                          "uf_CFDI_Info");
}

bool cAcction::FolioAprobadoCBB(std::int32_t pkventa) {
    return FolioDentroDeRangoCBB(
        *this,
        "SELECT ut_FoliosCBB.uf_FolioInicial AS FolioInicial, ut_FoliosCBB.uf_FolioFinal AS FolioFinal, "
        "Venta.IFolio, FoliosDocumentos.Folio FROM Venta INNER JOIN (FoliosDocumentos INNER JOIN (BlockDocumentos "
        "INNER JOIN ut_FoliosCBB ON BlockDocumentos.Sys_PK=ut_FoliosCBB.uf_BlockDoc) ON "
        "FoliosDocumentos.Block=BlockDocumentos.Sys_PK) ON Venta.IFolio=FoliosDocumentos.Sys_PK WHERE Venta.Sys_PK=" +
            std::to_string(pkventa),
        "El Folio del documento no se encuentra dentro de un rango de folios válido para CBB");
}

bool cAcction::FolioAprobadoCBB_CXC(std::int32_t pkcxc) {
    return FolioDentroDeRangoCBB(
        *this,
        "SELECT ut_FoliosCBB.uf_FolioInicial AS FolioInicial, ut_FoliosCBB.uf_FolioFinal AS FolioFinal, "
        "DCxC.IFolio, FoliosDocumentos.Folio FROM DCxC INNER JOIN (FoliosDocumentos INNER JOIN (BlockDocumentos "
        "INNER JOIN ut_FoliosCBB ON BlockDocumentos.Sys_PK=ut_FoliosCBB.uf_BlockDoc) ON "
        "FoliosDocumentos.Block=BlockDocumentos.Sys_PK) ON DCxC.IFolio=FoliosDocumentos.Sys_PK WHERE DCxC.Sys_PK=" +
            std::to_string(pkcxc),
        "El Folio del documento no se encuentra dentro de un rango de folios valido para CBB");
}

}  // namespace celdora

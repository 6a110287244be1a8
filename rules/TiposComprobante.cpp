// Which kind of comprobante a document must produce: the company's one
// setting, the kind that a document's block decides when the company issues
// CFDI and CBB side by side, the host's document number of a sale or a
// receivable, and the words of kinds and format types in format file names.

#include <memory>
#include <string>

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "value/Channels.h"
#include "value/Convert.h"

namespace celdora {

namespace {

// The block of one document: tied to a certificate it produces CFDI (2),
// else tied to a CBB range it produces CBB (3), else 0. A block tied to both
// counts as CFDI. Only the first row is looked at. Errors are passed over
// statement by statement, leaving 0.
std::int16_t TipoSegunBlock(cAcction& facade, const std::string& sql) {
    std::int16_t result = 0;
    std::shared_ptr<host::Recordset> recordset;
    ResumeNext([&] { recordset = mdlMain::AbrirConsulta(Deref(facade.DataObjects).ADOCnn(), sql); });
    if (!recordset) return result;
    ResumeNext([&] {
        if (!(recordset->Eof() && recordset->Bof())) {
            if (facade.EnteroCampo(*recordset, "uf_CFDI_Info") >= 1) {
                result = cCFDI;
            } else if (facade.EnteroCampo(*recordset, "uf_BlockDoc") >= 1) {
                result = cCBB;
            } else {
                result = 0;
            }
        }
    });
    ResumeNext([&] { recordset->Close(); });
    return result;
}

// The host's document number (field Documento) of the first row; 0 without
// a row or when the statement does not open. A failure is shown in the
// failure box and answers 0.
std::int16_t NumeroDeDocumento(cAcction& facade, const std::string& sql) {
    std::int16_t result = 0;
    auto fault = Trap([&] {
        auto recordset = mdlMain::AbrirConsulta(facade.ADOCnn, sql);
        if (!recordset) return;
        if (!(recordset->Eof() && recordset->Bof())) result = CInt(recordset->Fields("Documento").Value());
        recordset->Close();
    });
    if (fault) {
        core::CajaDeFalla(*fault);
        return 0;
    }
    return result;
}

}  // namespace

// A settings object that fails leaves cCFD; a company that never chose reads
// the default cCFDI. The two answers differ on purpose.
enumTipoCFD cAcction::TipoComprobanteAGenerar() {
    enumTipoCFD result = cCFD;
    ResumeNext([&] { Settings(); });
    ResumeNext(
        [&] { result = static_cast<enumTipoCFD>(CInt(Variant(Deref(GlobalVar).LeerNumero("NVCA300xa", 2)))); });
    return result;
}

std::int16_t cAcction::TipoComprobanteAGenerarInt() { return TipoComprobanteAGenerar(); }

std::int16_t cAcction::NumeroDecimalesXML() {
    std::int16_t result = 2;
    ResumeNext([&] { result = CInt(Variant(Settings().LeerNumero("NVCA328x", 2))); });
    return result;
}

std::int16_t cAcction::BlockVentaCFDI_CBB(std::int32_t pkventa) {
    return TipoSegunBlock(*this,
                          "SELECT BlockDocumentos.uf_CFDI_Info,ut_FoliosCBB.uf_BlockDoc FROM (BlockDocumentos INNER "
                          "JOIN (FoliosDocumentos INNER JOIN Venta ON FoliosDocumentos.Sys_PK=Venta.IFolio) ON "
                          "BlockDocumentos.Sys_PK=FoliosDocumentos.Block) LEFT JOIN  ut_FoliosCBB ON "
                          "BlockDocumentos.Sys_PK=ut_FoliosCBB.uf_BlockDoc WHERE Venta.Sys_PK=" +
                              std::to_string(pkventa));
}

std::int16_t cAcction::BlockCXC_CFDI_CBB(std::int32_t pkcxc) {
    return TipoSegunBlock(*this,
                          "SELECT BlockDocumentos.uf_CFDI_Info,ut_FoliosCBB.uf_BlockDoc FROM (BlockDocumentos INNER "
                          "JOIN (FoliosDocumentos INNER JOIN DCXC ON FoliosDocumentos.Sys_PK=DCXC.IFolio) ON "
                          "BlockDocumentos.Sys_PK=FoliosDocumentos.Block) LEFT JOIN  ut_FoliosCBB ON "
                          "BlockDocumentos.Sys_PK=ut_FoliosCBB.uf_BlockDoc WHERE DCXC.Sys_PK=" +
                              std::to_string(pkcxc));
}

std::int16_t cAcction::TipoDocumento(std::int32_t pkventa) {
    return NumeroDeDocumento(*this, "SELECT Documento FROM Venta WHERE Sys_PK=" + std::to_string(pkventa));
}

std::int16_t cAcction::TipoDocumento_CXC(std::int32_t pkcxc) {
    return NumeroDeDocumento(*this, "SELECT Documento FROM DCXC WHERE Sys_PK=" + std::to_string(pkcxc));
}

namespace mdlMain {

std::string nombreTipoComprobante(std::int32_t tipo) {
    switch (tipo) {
        case cCFD: return "cfd";
        case cCFDI:
        case cCFDI_CBB: return "cfdi";
        case cCBB: return "cbb";
        default: return "";
    }
}

// Type 1 is a report layout, 2 a strip script, 3 a template.
std::string extensionFormato(double tipoFormato) {
    if (tipoFormato == 1) return ".xpd";
    if (tipoFormato == 2) return ".js";
    if (tipoFormato == 3) return ".txf";
    return "";
}

// The strip (type 2) gets no proposed file name.
std::string nombreFormato(const std::string& base, std::int32_t tipo, double tipoFormato) {
    if (tipoFormato == 2) return "";
    return base + nombreTipoComprobante(tipo) + extensionFormato(tipoFormato);
}

}  // namespace mdlMain

}  // namespace celdora

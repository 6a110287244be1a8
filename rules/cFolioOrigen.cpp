#include "rules/cFolioOrigen.h"

#include <string>

#include "core/mdlMain.h"
#include "host/Platform.h"
#include "value/Channels.h"
#include "value/Convert.h"
#include "value/Text.h"

namespace celdora {

Variant cFolioOrigen::cargarInformacion_CFD(std::int32_t pkVentaOrigen,
                                            const std::shared_ptr<host::Connection>& oADOCnn) {
    return Variant(CargarFolioOrigen(pkVentaOrigen, oADOCnn, false));
}

Variant cFolioOrigen::cargarInformacion_CFDI(std::int32_t pkVentaOrigen,
                                             const std::shared_ptr<host::Connection>& oADOCnn) {
    return Variant(CargarFolioOrigen(pkVentaOrigen, oADOCnn, true));
}

bool cFolioOrigen::CargarFolioOrigen(std::int32_t pk, const std::shared_ptr<host::Connection>& connection,
                                     bool esCFDI) {
    bool result = false;
    lastError.clear();
    auto fault = Trap([&] {
        auto recordset = host::Crear<host::Recordset>(host::progid::Recordset);
        if (!recordset) throw CantCreateObject();
        recordset->activeconnection(connection);
        recordset->CursorLocation(host::adUseClient);
        // The CFD folio is the host's folio of the sale with the series of its
        // range; the CFDI folio is the UUID with the series of the block.
        recordset->Source(
            "SELECT Venta.Referencia,FoliosDocumentos.Folio AS FolioCFD,ut_CFD.uf_FolioSAT AS "
            "FolioCFDI,ut_CFDFolio.uf_Serie AS SerieCFD,BlockDocumentos.Serie AS SerieCFDI,ut_CFD.uf_FechaHora AS "
            "FechaHora,(Venta.Subtotal-Venta.Descuento1-Venta.Descuento2+Venta.Impuesto1+Venta.Impuesto2+Venta."
            "Impuesto3+Venta.Impuesto4) AS Total FROM ((ut_CFD INNER JOIN (Venta INNER JOIN (FoliosDocumentos INNER "
            "JOIN BlockDocumentos ON FoliosDocumentos.Block=BlockDocumentos.Sys_PK) ON "
            "Venta.IFolio=FoliosDocumentos.Sys_PK) ON ut_CFD.uf_IVenta=Venta.Sys_PK) LEFT JOIN ut_CFDFolio ON "
            "ut_CFD.uf_CFDFolio=ut_CFDFolio.Sys_PK) WHERE Venta.Sys_PK=" +
            std::to_string(pk));
        recordset->Open();
        if (recordset->State() != host::adStateOpen) {
            lastError = "Error al consultar base de datos.";
            return;
        }
        if (recordset->Eof() && recordset->Bof()) {
            lastError = "No se encontró el registro CFD/CFDI relacionado a la venta origen.";
            recordset->Close();
            return;
        }
        // Date and amount stay set even when a later step fails.
        FechaFolioFiscalOrig = CDate(recordset->Fields("FechaHora").Value());
        MontoFolioFiscalOrig = CCur(recordset->Fields("Total").Value());
        FolioFiscalOrig = mdlMain::TextoCampo(*recordset, esCFDI ? "FolioCFDI" : "FolioCFD");
        SerieFolioFiscalOrig = mdlMain::TextoCampo(*recordset, esCFDI ? "SerieCFDI" : "SerieCFD");
        recordset->Close();
        if (Trim(FolioFiscalOrig).empty()) {
            lastError = "No se pudo obtener el folio fiscal de la venta origen.";
            return;
        }
        result = true;
    });
    if (fault) {
        lastError = ErrorTextIn(*fault, "cargarInformacion of Módulo de clase cFolioOrigen");
        result = false;
    }
    return result;
}

}  // namespace celdora

#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "host/Ado.h"
#include "value/Variant.h"

namespace celdora {

// Looks up the fiscal folio, series, date and amount of an origin sale on the
// host's own connection; it does not use the facade.
class cFolioOrigen : public Object {
public:
    std::string FolioFiscalOrig;
    std::string SerieFolioFiscalOrig;
    Date FechaFolioFiscalOrig;
    Currency MontoFolioFiscalOrig;
    std::string lastError;

    Variant cargarInformacion_CFD(std::int32_t pkVentaOrigen, const std::shared_ptr<host::Connection>& oADOCnn);
    Variant cargarInformacion_CFDI(std::int32_t pkVentaOrigen, const std::shared_ptr<host::Connection>& oADOCnn);

private:
    bool CargarFolioOrigen(std::int32_t pk, const std::shared_ptr<host::Connection>& connection, bool esCFDI);
};

}  // namespace celdora

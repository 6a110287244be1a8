// The guards and deletes of certificates, folio ranges and CBB ranges. A
// guard refuses whenever it cannot tell, since ExisteRegistro answers true
// for a query that does not open.

#include <string>

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "value/Channels.h"
#include "value/Convert.h"

namespace celdora {

namespace {

constexpr const char* kPreguntaEliminar = "¿Está seguro que desea eliminar el elemento indicado?";

// The statement that looks for one comprobante sealed with a certificate, in
// the dialect of the connection: through the certificate's folio range when
// it has one, directly through the comprobante's certificate otherwise. An
// unknown dialect gets no statement.
std::string ConsultaComprobanteDeCertificado(std::int16_t dialecto, bool conRango, const std::string& clave) {
    const std::string desde =
        conRango ? " ut_CFD.Sys_PK FROM ut_CFD INNER JOIN (ut_CFDFolio INNER JOIN ut_CFDInfo ON "
                   "ut_CFDFolio.uf_CFDInfo=ut_CFDInfo.Sys_PK) ON ut_CFD.uf_CFDFolio=ut_CFDFolio.Sys_PK WHERE "
                   "ut_CFDInfo.Sys_PK=" +
                       clave
                 : " ut_CFD.Sys_PK FROM ut_CFD INNER JOIN ut_CFDInfo ON ut_CFD.uf_CFDI_Info=ut_CFDInfo.Sys_PK WHERE "
                   "ut_CFDInfo.Sys_PK=" +
                       clave;
    switch (dialecto) {
        case 1:
        case 3: return "SELECT TOP 1" + desde;
        case 2: return "SELECT" + desde + " LIMIT 1";
        default: return "";
    }
}

}  // namespace

bool cAcction::PosibleModificarAprobacionFolios(std::int32_t pkCFDFolio) {
    bool result = false;
    ResumeNext([&] { result = !mdlMain::ExisteRegistro(ADOCnn, "ut_CFD", pkCFDFolio, "uf_CFDFolio"); });
    return result;
}

bool cAcction::PosibleModificarCertificado(std::int32_t pkCFDInfo) {
    bool result = false;
    const std::string clave = std::to_string(pkCFDInfo);
    std::int32_t rango = 0;
    ResumeNext([&] {
        rango = CLng(ValorCampo("SELECT ut_CFDInfo.Sys_PK FROM ut_CFDFolio INNER JOIN ut_CFDInfo ON "
                                "ut_CFDFolio.uf_CFDInfo=ut_CFDInfo.Sys_PK WHERE ut_CFDInfo.Sys_PK=" +
                                    clave,
                                "Sys_PK"));
    });
    std::string consulta;
    ResumeNext([&] { consulta = ConsultaComprobanteDeCertificado(databasetype(ADOCnn), rango >= 1, clave); });
    std::shared_ptr<host::Recordset> recordset;
    ResumeNext([&] { recordset = mdlMain::AbrirConsulta(ADOCnn, consulta); });
    if (recordset) {
        ResumeNext([&] { result = recordset->Eof() && recordset->Bof(); });
        ResumeNext([&] { recordset->Close(); });
    }
    return result;
}

bool cAcction::EliminarAprobacionFolios(std::int32_t Sys_PK, bool boAsk) {
    bool result = false;
    const std::string clave = std::to_string(Sys_PK);
    auto fault = Trap([&] {
        if (mdlMain::ExisteRegistro(ADOCnn, "ut_CFD", Sys_PK, "uf_CFDFolio")) {
            core::Caja("No se puede eliminar el elemento porque ya existen Facturas electrónicas generadas con el "
                       "rango de folios seleccionado.",
                       host::Icono::Exclamacion);
            return;
        }
        if (boAsk && !core::Pregunta(kPreguntaEliminar)) return;
        Deref(DataObjects).IniciarTransaccion();
        // The blocks tied to the range are freed and stop being fiscal.
        if (mdlMain::ExisteRegistro(ADOCnn, "BlockDocumentos", Sys_PK, "uf_CFDFolio")) {
            Deref(Deref(DataObjects).ADOCnn())
                .Execute("UPDATE BlockDocumentos SET uf_CFDFolio=NULL,Fiscal=0 WHERE uf_CFDFolio=" + clave);
        }
        Deref(Deref(DataObjects).ADOCnn()).Execute("DELETE FROM ut_CFDFolio WHERE Sys_PK=" + clave);
        Deref(DataObjects).ConfirmarTransaccion(0);
        result = true;
    });
    if (fault) {
        // The rollback runs wherever the failure came from, also before the
        // transaction was begun.
        ResumeNext([&] { Deref(DataObjects).RevertirTransaccion(0); });
        core::CajaDeFalla(*fault);
        result = false;
    }
    return result;
}

bool cAcction::EliminarCertificado(std::int32_t Sys_PK, bool boAsk) {
    bool result = false;
    auto fault = Trap([&] {
        if (!PosibleModificarCertificado(Sys_PK)) {
            core::Caja("No se puede eliminar el elemento porque ya existen Facturas electrónicas generadas con este "
                       "registro.",
                       host::Icono::Exclamacion);
            return;
        }
        if (mdlMain::ExisteRegistro(ADOCnn, "ut_CFDFolio", Sys_PK, "uf_CFDInfo")) {
            core::Caja("No se puede eliminar el elemento. Primero elimine el número de aprobación del rango de "
                       "folios.",
                       host::Icono::Exclamacion);
            return;
        }
        if (boAsk && !core::Pregunta(kPreguntaEliminar)) return;
        // No transaction, and blocks tied to the certificate stay as they are.
        Deref(ADOCnn).Execute("DELETE FROM ut_CFDInfo WHERE Sys_PK=" + std::to_string(Sys_PK));
        result = true;
    });
    if (fault) {
        core::CajaDeFalla(*fault);
        result = false;
    }
    return result;
}

bool cAcction::EliminarFoliosCBB(std::int32_t pk) {
    bool result = false;
    auto fault = Trap([&] {
        // Always asked, and no guard against comprobantes of the range's block.
        if (!core::Pregunta(kPreguntaEliminar)) return;
        Deref(Deref(DataObjects).ADOCnn()).Execute("DELETE FROM ut_FoliosCBB WHERE Sys_PK=" + std::to_string(pk));
        result = true;
    });
    if (fault) {
        core::CajaDeFalla(*fault);
        result = false;
    }
    return result;
}

}  // namespace celdora

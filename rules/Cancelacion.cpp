// Cancellation of comprobantes and the state kept in their log lines: whether
// a comprobante may be removed, its removal, the rewrite of the state field
// of a sale's or a receivable's log line, the mark of comprobantes cancelled
// at the tax authority and the keeping of the authority's acknowledgement.

#include <functional>
#include <string>
#include <vector>

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "host/Platform.h"
#include "value/Channels.h"
#include "value/Convert.h"
#include "value/Text.h"

namespace celdora {

namespace {

// The state field of the log line (field 8): "0" cancelled, "1" in force.
constexpr std::size_t kCampoEstado = 8;
constexpr std::size_t kCamposDeLinea = 12;

// The log line rebuilt from its pieces: one bar, then the twelve fields each
// trimmed and followed by a bar, the state field replaced. The piece before
// the first bar is dropped, whatever follows the twelfth field is lost, and a
// line with fewer pieces raises the platform's subscript fault.
std::string LineaConEstado(const std::string& datos, std::int16_t status) {
    const std::vector<std::string> piezas = Split(datos, "|");
    std::string linea = "|";
    for (std::size_t i = 1; i <= kCamposDeLinea; ++i) {
        std::string campo;
        if (i == kCampoEstado) {
            campo = status == 99 ? "0" : "1";
        } else {
            if (i >= piezas.size()) throw SubscriptOutOfRange();
            campo = piezas[i];
        }
        linea += Trim(campo) + "|";
    }
    return linea;
}

// The common body of CambiarEstadoEnBitacora and its sibling for receivables.
// Reports through LastErrorDescript in its plain form, and leaves an older
// text standing when it succeeds.
bool CambiarEstado(cAcction& acc, std::int16_t status, const std::function<bool()>& existeComprobante,
                   const std::string& consulta) {
    bool result = false;
    auto fault = Trap([&] {
        if (status != 99 && status != 3) {
            acc.LastErrorDescript = "Etatus adminisitrativo incorrecto. Debe ser procesado o cancelado.";
            return;
        }
        // A document without a comprobante has nothing to change.
        if (!existeComprobante()) {
            result = true;
            return;
        }
        auto recordset = mdlMain::AbrirConsulta(acc.ADOCnn, consulta);
        if (!recordset) return;
        if (recordset->Eof() && recordset->Bof()) {
            recordset->Close();
            result = true;
            return;
        }
        const std::string datos = mdlMain::TextoCampo(*recordset, "uf_Datos");
        if (datos.empty()) {
            acc.LastErrorDescript = "Error al obtener información CFDBitacora.";
            recordset->Close();
            return;
        }
        const std::string linea = LineaConEstado(datos, status);
        Deref(acc.ADOCnn).Execute("UPDATE ut_CFDBitacora SET uf_Datos='" + linea +
                                  "' WHERE Sys_PK=" + CStr(recordset->Fields("Sys_PK").Value()));
        recordset->Close();
        result = true;
    });
    if (fault) {
        acc.LastErrorDescript = ErrorText(*fault);
        result = false;
    }
    return result;
}

}  // namespace

bool cAcction::PosibleCancelar(std::int32_t pkCFD) {
    LastErrorDescript.clear();
    bool result = false;
    auto fault = Trap([&] {
        auto recordset = mdlMain::AbrirConsulta(
            ADOCnn,
            "SELECT Venta.StatusAdministrativo,Ut_CFDBitacora.uf_Reportado FROM Venta RIGHT JOIN (ut_CFD INNER "
            "JOIN ut_CFDBitacora ON ut_CFD.Sys_PK=ut_CFDBitacora.uf_CFD) ON Venta.Sys_PK=ut_CFD.uf_IVenta WHERE "
            "ut_CFD.Sys_PK=" +
                std::to_string(pkCFD));
        if (!recordset) return;
        // With no log line there is no row, and reading the field faults.
        if (mdlMain::NumeroCampo(*recordset, "uf_Reportado") != 0) {
            LastErrorDescript =
                "No se pude cancelar porque el comprobante digital ya ha sido incluido en el reporte mensual.";
            recordset->Close();
            return;
        }
        // A receivable's comprobante has no sale: its status is Null and passes.
        const Variant status = recordset->Fields("StatusAdministrativo").Value();
        if (!status.IsNull() && CDbl(status) == 99) {
            LastErrorDescript = "No se pude cancelar el comprobante digital porque la venta ha sido cancelada.";
            recordset->Close();
            return;
        }
        recordset->Close();
        result = true;
    });
    if (fault) {
        LastErrorDescript = ErrorTextIn(*fault, "PosibleCancelar");
        result = false;
    }
    return result;
}

bool cAcction::CancelarCFD(std::int32_t pkCFD, bool /*boAsk*/, bool WithTrans) {
    LastErrorDescript.clear();
    bool result = false;
    auto fault = Trap([&] {
        if (pkCFD < 1) {
            LastErrorDescript = "Clave incorrecta.";
            return;
        }
        if (!PosibleCancelar(pkCFD)) return;
        // The question is always asked: boAsk is part of the interface only.
        if (!core::Pregunta("¿Está seguro que desea eliminar el elemento seleccionado?")) return;
        if (WithTrans) Deref(DataObjects).IniciarTransaccion();
        const std::string clave = std::to_string(pkCFD);
        Deref(Deref(DataObjects).ADOCnn()).Execute("DELETE FROM ut_CFDBitacora WHERE uf_CFD=" + clave);
        Deref(Deref(DataObjects).ADOCnn()).Execute("DELETE FROM ut_CFD WHERE Sys_PK=" + clave);
        if (WithTrans) Deref(DataObjects).ConfirmarTransaccion(0);
        result = true;
    });
    if (fault) {
        // Without a transaction of its own the writes already done stay in
        // the caller's, for the caller to decide.
        if (WithTrans) ResumeNext([&] { Deref(DataObjects).RevertirTransaccion(0); });
        LastErrorDescript = ErrorTextIn(*fault, "CancelarCFD");
        result = false;
    }
    return result;
}

bool cAcction::CambiarEstadoEnBitacora(std::int32_t pkventa, std::int16_t StatusAdministrativo) {
    return CambiarEstado(
        *this, StatusAdministrativo, [&] { return ExisteCFD(pkventa); },
        "SELECT ut_CFDBitacora.Sys_PK, ut_CFDBitacora.uf_Datos FROM ut_CFDBitacora INNER JOIN ( ut_CFD INNER JOIN "
        "Venta ON ut_CFD.uf_IVenta=Venta.Sys_PK) ON ut_CFDBitacora.uf_CFD=ut_CFD.Sys_PK  WHERE Venta.Sys_PK=" +
            std::to_string(pkventa));
}

bool cAcction::CambiarEstadoEnBitacoraCXC(std::int32_t pkcxc, std::int16_t StatusAdministrativo) {
    return CambiarEstado(
        *this, StatusAdministrativo, [&] { return ExisteCFD_CXC(pkcxc); },
        "SELECT ut_CFDBitacora.Sys_PK, ut_CFDBitacora.uf_Datos FROM ut_CFDBitacora INNER JOIN ( ut_CFD INNER JOIN "
        "DCxC ON ut_CFD.uf_IDCXC=DCXC.Sys_PK) ON ut_CFDBitacora.uf_CFD=ut_CFD.Sys_PK  WHERE DCXC.Sys_PK=" +
            std::to_string(pkcxc));
}

bool cAcction::MarcarCFDIsCancelado(const std::string& uuids) {
    bool result = false;
    auto fault = Trap([&] {
        if (Trim(uuids).empty()) {
            core::Caja("El compobante no fue marcado como cancelado. No se ha indicado el UUID del comprobante.",
                       host::Icono::Exclamacion);
            return;
        }
        // The pieces go into the statement as they stand, blanks included. No
        // transaction: on a failure the pieces before it stay marked.
        for (const std::string& uuid : Split(uuids, ",")) {
            Deref(Deref(DataObjects).ADOCnn())
                .Execute("UPDATE ut_CFD SET uf_CanceladoSAT=1 WHERE uf_FolioSAT='" + uuid + "'");
        }
        result = true;
    });
    if (fault) {
        core::CajaDeFalla(*fault);
        result = false;
    }
    return result;
}

bool cAcction::guardar_ack_cancelacion(const std::string& ack, std::int32_t cfdipk) {
    bool result = false;
    std::shared_ptr<host::Recordset> recordset;
    ResumeNext([&] { recordset = host::Crear<host::Recordset>(host::progid::Recordset); });
    ResumeNext([&] { Deref(recordset).CursorLocation(host::adUseClient); });
    ResumeNext([&] {
        Deref(recordset).Open("SELECT Sys_PK,uf_ackCancelacion_SAT FROM ut_CFD WHERE  Sys_PK=" +
                                  std::to_string(cfdipk),
                              ADOCnn, host::adOpenKeyset, host::adLockOptimistic);
    });
    bool abierto = false;
    ResumeNext([&] { abierto = Deref(recordset).State() == host::adStateOpen; });
    if (abierto) {
        // With no such row the assignment and Update fail in silence, and the
        // answer is still true.
        ResumeNext([&] { recordset->Fields("uf_ackCancelacion_SAT").Value(Variant(ack)); });
        ResumeNext([&] { recordset->Update(); });
        ResumeNext([&] { recordset->Close(); });
        result = true;
    }
    return result;
}

}  // namespace celdora

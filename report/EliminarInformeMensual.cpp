// Undoing a monthly report: its stored row goes, and every log row of the
// month becomes unreported again, those the report never held included. The
// log lines keep their normalised text. Reports through LastErrorDescript.

#include <string>

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "value/Channels.h"
#include "value/Convert.h"

namespace celdora {

bool cAcction::EliminarInformeMensual(std::int16_t& mes, std::int16_t& anio, bool& WithTrans, bool& boAsk) {
    LastErrorDescript.clear();
    if (mes < 0 || anio < 0) {
        LastErrorDescript = "Parámetros incorrectos.";
        return false;
    }
    bool result = false;
    auto fault = Trap([&] {
        // A No leaves LastErrorDescript empty: the caller tells it from a failure so.
        if (boAsk && !core::Pregunta("¿Está seguro que desea eliminar el informe mensual seleccionado.?")) return;
        if (WithTrans) Deref(DataObjects).IniciarTransaccion();
        const std::string periodo = "uf_Anio=" + std::to_string(anio) + " AND uf_Mes=" + std::to_string(mes);
        Deref(ADOCnn).Execute("DELETE FROM ut_CFDInforme WHERE " + periodo);
        auto recordset = mdlMain::AbrirConsulta(
            ADOCnn,
            "SELECT ut_CFDBitacora.Sys_PK FROM ut_CFD INNER JOIN ut_CFDBitacora ON "
            "ut_CFD.Sys_PK=ut_CFDBitacora.uf_CFD WHERE Year(ut_CFD.Uf_FechaHora)=" +
                std::to_string(anio) + " AND Month(ut_CFD.Uf_FechaHora)=" + std::to_string(mes));
        if (!recordset) {
            // The transaction is neither committed nor rolled back here: a
            // second begin is issued instead, and the delete stays pending in
            // the open transaction for whoever ends it.
            if (WithTrans) Deref(DataObjects).IniciarTransaccion();
            LastErrorDescript = "Imposible continuar. Error de acceso a base de datos.";
            return;
        }
        for (; !recordset->Eof(); recordset->movenext()) {
            Deref(ADOCnn).Execute("UPDATE ut_CFDBitacora SET uf_Reportado=0 WHERE Sys_PK=" +
                                  CStr(recordset->Fields("Sys_PK").Value()));
        }
        recordset->Close();
        if (WithTrans) Deref(DataObjects).ConfirmarTransaccion(0);
        result = true;
    });
    if (fault) {
        if (WithTrans) ResumeNext([&] { Deref(DataObjects).RevertirTransaccion(0); });
        LastErrorDescript = ErrorText(*fault);
        result = false;
    }
    return result;
}

}  // namespace celdora

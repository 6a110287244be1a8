// The facade's members for reading the database: one field of a query, the
// dialect probe, macros and the joining of a date and a time.

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "host/UiServices.h"
#include "value/Channels.h"
#include "value/Convert.h"
#include "value/Text.h"

namespace celdora {

Variant cAcction::ValorCampo(const std::string& sql, const std::string& campo) {
    Variant result;
    auto fault = Trap([&] {
        result = mdlMain::LeerValorConsulta(Deref(DataObjects).ADOCnn(), sql, campo);
    });
    if (fault) core::Caja(ErrorTextIn(*fault, "getFieldValue of Módulo de clase cAcction"));
    return result;
}

std::string cAcction::ReplaceMacros(const std::string& str, const std::string& sMacro, const std::string& sValue) {
    return Replace(str, sMacro, sValue);
}

Date cAcction::ObtenerFechaHora(Date fecha, Date hora) {
    Date result;
    ResumeNext([&] {
        const std::string texto = std::to_string(Day(fecha)) + "/" + std::to_string(Month(fecha)) + "/" +
                                  std::to_string(Year(fecha)) + " " + std::to_string(Hour(hora)) + ":" +
                                  std::to_string(Minute(hora)) + ":" + std::to_string(Second(hora));
        result = CDate(texto);
    });
    return result;
}

bool cAcction::ProbarConsulta(const std::string& statement, const std::shared_ptr<host::Connection>& connection) {
    bool result = false;
    ResumeNext([&] { result = Deref(connection).Execute(statement) != nullptr; });
    return result;
}

std::int16_t cAcction::databasetype(const std::shared_ptr<host::Connection>& oConnection) {
    std::int16_t result = 0;
    ResumeNext([&] {
        if (ProbarConsulta("Select UUID() as GUID;", oConnection)) {
            result = 2;
        } else if (ProbarConsulta("SELECT NEWID() as sGUID;", oConnection)) {
            result = 3;
        } else if (ProbarConsulta("Select cbool(-1) as Valor;", oConnection)) {
            result = 1;
        }
    });
    return result;
}

std::int32_t cAcction::EnteroCampo(host::Recordset& recordset, const std::string& campo) {
    Variant value = recordset.Fields(campo).Value();
    return value.IsNull() ? 0 : CLng(value);
}

}  // namespace celdora

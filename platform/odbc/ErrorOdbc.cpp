#include "platform/odbc/ErrorOdbc.h"

#include <sql.h>
#include <sqlext.h>

#include <vector>

namespace celdora::platform::odbc {

Fault FaultDe(short tipo, void* manejador, const char* queHacia) {
    Fault fault{0, ""};
    for (SQLSMALLINT registro = 1;; ++registro) {
        SQLCHAR estado[SQL_SQLSTATE_SIZE + 1] = {};
        SQLINTEGER nativo = 0;
        std::vector<SQLCHAR> mensaje(SQL_MAX_MESSAGE_LENGTH);
        SQLSMALLINT largo = 0;
        auto leer = [&] {
            return SQLGetDiagRec(tipo, manejador, registro, estado, &nativo, mensaje.data(),
                                 static_cast<SQLSMALLINT>(mensaje.size()), &largo);
        };
        SQLRETURN rc = leer();
        if (!SQL_SUCCEEDED(rc)) break;
        // A longer message than the buffer is asked for again, whole.
        if (static_cast<std::size_t>(largo) >= mensaje.size()) {
            mensaje.assign(static_cast<std::size_t>(largo) + 1, 0);
            rc = leer();
        }
        if (registro == 1) fault.number = nativo;
        if (!fault.description.empty()) fault.description += " ";
        fault.description += "[" + std::string(reinterpret_cast<const char*>(estado)) + "] " +
                             std::string(reinterpret_cast<const char*>(mensaje.data()));
    }
    if (fault.description.empty())
        fault.description = std::string("La llamada ODBC ") + queHacia + " falló sin dejar diagnóstico.";
    if (fault.number == 0) fault.number = kFallaGenerica;
    return fault;
}

std::string EstadoDe(short tipo, void* manejador) {
    SQLCHAR estado[SQL_SQLSTATE_SIZE + 1] = {};
    SQLINTEGER nativo = 0;
    SQLSMALLINT largo = 0;
    if (!SQL_SUCCEEDED(SQLGetDiagRec(tipo, manejador, 1, estado, &nativo, nullptr, 0, &largo))) return "";
    return reinterpret_cast<const char*>(estado);
}

}  // namespace celdora::platform::odbc

// The facade's per-machine settings and its one member for protected
// strings. The settings live in the shared cConfigLocal under the host's
// application name and the section "Config"; every answer is a text, also
// for numbers and booleans, and the host compares the texts.

#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "value/Channels.h"
#include "value/Convert.h"

namespace celdora {

std::string cAcction::StrConfiguracionLocal(const std::string& clave, const std::string& defaultValue) {
    std::string result;
    ResumeNext([&] { result = mdlMain::ConfigLocal().ObtenerValor(ApplicationName, "Config", clave, defaultValue); });
    return result;
}

// The stored text read as a number and written back in the machine's number
// format; a text that is no number leaves "".
std::string cAcction::DblConfiguracionLocal(const std::string& clave, const std::string& defaultValue) {
    std::string result;
    ResumeNext([&] { result = CStr(Variant(CDbl(Variant(StrConfiguracionLocal(clave, defaultValue))))); });
    return result;
}

// The stored text read as a boolean ("True"/"False", or a number that is
// true unless 0) and written back as "True" or "False"; anything else
// leaves "".
std::string cAcction::BoolConfiguracionLocal(const std::string& clave, const std::string& defaultValue) {
    std::string result;
    ResumeNext([&] { result = CStr(Variant(CBool(Variant(StrConfiguracionLocal(clave, defaultValue))))); });
    return result;
}

// No trap of its own: the cipher routine already answers "" when it fails.
std::string cAcction::DecryptString(const std::string& str) { return mdlMain::DescifrarTexto(str); }

}  // namespace celdora

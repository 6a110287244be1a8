#include "core/Mensajes.h"

#include "host/Platform.h"

namespace celdora::core {

void Caja(const std::string& texto, host::Icono icono, const std::string& titulo) {
    host::CurrentPlatform().Ui().MsgBox(texto, host::Botones::Aceptar, icono, titulo);
}

bool Pregunta(const std::string& texto, const std::string& titulo) {
    return host::CurrentPlatform().Ui().MsgBox(texto, host::Botones::SiNo, host::Icono::Pregunta, titulo) ==
           host::Respuesta::Si;
}

void CajaDeFalla(const Fault& fault) { Caja(ErrorText(fault), host::Icono::Exclamacion); }

}  // namespace celdora::core

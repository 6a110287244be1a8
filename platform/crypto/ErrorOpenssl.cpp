#include "platform/crypto/ErrorOpenssl.h"

#include <openssl/err.h>

namespace celdora::platform::detail {

std::string TomarErrorOpenssl() {
    const unsigned long codigo = ERR_peek_error();
    std::string texto;
    if (codigo != 0) {
        char buffer[256];
        ERR_error_string_n(codigo, buffer, sizeof buffer);
        texto = buffer;
    }
    ERR_clear_error();
    return texto;
}

Fault FallaOpenssl(const std::string& operacion) {
    std::string descripcion = operacion;
    const std::string detalle = TomarErrorOpenssl();
    if (!detalle.empty()) descripcion += " (" + detalle + ")";
    return Fault{kNumeroFallaCifrado, descripcion};
}

}  // namespace celdora::platform::detail

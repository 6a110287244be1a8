#include "platform/crypto/ProcesoSello.h"

#include <openssl/evp.h>

#include <array>

#include "platform/crypto/ErrorOpenssl.h"

namespace celdora::platform {

std::string ProcesoSello::getMD5(const std::string& text) {
    std::array<unsigned char, EVP_MAX_MD_SIZE> resumen{};
    std::size_t largo = 0;
    if (EVP_Q_digest(nullptr, "MD5", nullptr, text.data(), text.size(), resumen.data(), &largo) != 1)
        throw detail::FallaOpenssl("No se pudo calcular el resumen MD5");

    static constexpr char kHex[] = "0123456789abcdef";
    std::string hex;
    hex.reserve(2 * largo);
    for (std::size_t i = 0; i < largo; ++i) {
        hex += kHex[resumen[i] >> 4];
        hex += kHex[resumen[i] & 0x0F];
    }
    return hex;
}

}  // namespace celdora::platform

#pragma once

// The sealing component "Sellora.cProccess", as far as the system uses it:
// the MD5 digest of a text, for the stamping account's password.

#include <string>

#include "host/Components.h"

namespace celdora::platform {

class ProcesoSello : public host::cProccess {
public:
    ProcesoSello() = default;

    // The MD5 digest of the text's bytes (UTF-8 as given) in 32 lowercase hex
    // digits. Raises a Fault only if OpenSSL cannot compute it (for example
    // when MD5 is not available in the loaded provider).
    std::string getMD5(const std::string& text) override;
};

}  // namespace celdora::platform

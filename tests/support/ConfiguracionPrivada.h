#pragma once

#include <cstdlib>
#include <optional>
#include <string>

#include "tests/support/CarpetaTemporal.h"

namespace celdora::testing {

// Points the per-machine settings at a folder of the test's own for as long
// as it lives, and puts the former CELDORA_CONFIG_DIR back afterwards, so no
// test reads or writes the user's real settings.
class ConfiguracionPrivada {
public:
    ConfiguracionPrivada() {
        if (const char* valor = std::getenv("CELDORA_CONFIG_DIR")) anterior_ = valor;
        ::setenv("CELDORA_CONFIG_DIR", carpeta_.ruta().c_str(), 1);
    }
    ~ConfiguracionPrivada() {
        if (anterior_) {
            ::setenv("CELDORA_CONFIG_DIR", anterior_->c_str(), 1);
        } else {
            ::unsetenv("CELDORA_CONFIG_DIR");
        }
    }
    ConfiguracionPrivada(const ConfiguracionPrivada&) = delete;
    ConfiguracionPrivada& operator=(const ConfiguracionPrivada&) = delete;

    const CarpetaTemporal& carpeta() const { return carpeta_; }

private:
    CarpetaTemporal carpeta_;
    std::optional<std::string> anterior_;
};

}  // namespace celdora::testing

#pragma once

#include <cstdlib>
#include <optional>
#include <string>

#include "tests/support/CarpetaTemporal.h"

namespace celdora::testing {

// Points the system's temporary folder (TMPDIR) at a folder of the test's
// own for as long as it lives, so that files the system leaves there stay
// inside the test; the former value comes back afterwards.
class TemporalPrivado {
public:
    TemporalPrivado() {
        if (const char* valor = std::getenv("TMPDIR")) anterior_ = valor;
        ::setenv("TMPDIR", carpeta.ruta().c_str(), 1);
    }
    ~TemporalPrivado() {
        if (anterior_) ::setenv("TMPDIR", anterior_->c_str(), 1);
        else ::unsetenv("TMPDIR");
    }
    TemporalPrivado(const TemporalPrivado&) = delete;
    TemporalPrivado& operator=(const TemporalPrivado&) = delete;

    CarpetaTemporal carpeta;

private:
    std::optional<std::string> anterior_;
};

}  // namespace celdora::testing

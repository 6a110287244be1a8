#pragma once

// The platform that tests install: every real component of ours, the
// scripted user interface and a fixed clock. A test may take a component out
// to see what the system does when it is not installed.

#include "platform/desktop/PlataformaEscritorio.h"
#include "tests/support/FixedClock.h"
#include "tests/support/ScriptedUi.h"

namespace celdora::testing {

// 2026-11-22 10:30:00, a day inside the validity of the test certificates.
celdora::Date FechaDePrueba();

class TestPlatform {
public:
    TestPlatform();

    ScriptedUi ui;
    FixedClock reloj{FechaDePrueba()};
    platform::PlataformaEscritorio plataforma{ui, reloj};

    void Quitar(const std::string& progId) { plataforma.Fabrica().Quitar(progId); }

private:
    platform::PlataformaInstalada instalada_{plataforma};
};

}  // namespace celdora::testing

#pragma once

#include <memory>

#include "host/Platform.h"
#include "platform/desktop/FabricaObjetos.h"

namespace celdora::platform {

// The platform of a process that runs the system for real: every component
// of ours, a user interface service and a clock handed in by the host.
class PlataformaEscritorio : public host::Platform {
public:
    PlataformaEscritorio(host::UiServices& ui, host::Clock& reloj, FabricaObjetos fabrica = FabricaCompleta());

    std::shared_ptr<Object> CrearObjeto(const std::string& progId) override;
    host::UiServices& Ui() override { return ui_; }
    host::Clock& Reloj() override { return reloj_; }
    FabricaObjetos& Fabrica() { return fabrica_; }

private:
    host::UiServices& ui_;
    host::Clock& reloj_;
    FabricaObjetos fabrica_;
};

// Installs a platform for the life of a scope and restores the former one.
class PlataformaInstalada {
public:
    explicit PlataformaInstalada(host::Platform& platform) : former_(host::InstalledPlatform()) {
        host::InstallPlatform(&platform);
    }
    ~PlataformaInstalada() { host::InstallPlatform(former_); }
    PlataformaInstalada(const PlataformaInstalada&) = delete;
    PlataformaInstalada& operator=(const PlataformaInstalada&) = delete;

private:
    host::Platform* former_;
};

}  // namespace celdora::platform

#include "platform/desktop/PlataformaEscritorio.h"

#include <utility>

namespace celdora::platform {

PlataformaEscritorio::PlataformaEscritorio(host::UiServices& ui, host::Clock& reloj, FabricaObjetos fabrica)
    : ui_(ui), reloj_(reloj), fabrica_(std::move(fabrica)) {}

std::shared_ptr<Object> PlataformaEscritorio::CrearObjeto(const std::string& progId) {
    return fabrica_.Crear(progId);
}

}  // namespace celdora::platform

#include "platform/common/Usuario.h"

#include "value/Fault.h"

namespace celdora::platform {

std::shared_ptr<host::Grupo> ListaGrupos::Item(int index) const {
    if (index < 1 || index > Count()) throw SubscriptOutOfRange();
    return grupos_[static_cast<std::size_t>(index - 1)];
}

void ListaGrupos::Reemplazar(const std::vector<std::int32_t>& claves) {
    grupos_.clear();
    for (const std::int32_t clave : claves) grupos_.push_back(std::make_shared<GrupoClave>(clave));
}

void GruposDeLista::Cargar(const std::string& /*a*/, const std::string& /*b*/) {
    ++vecesCargado_;
    elementos_.Reemplazar(claves_);
}

}  // namespace celdora::platform

#include "platform/common/ColeccionCamposLista.h"

#include "value/Fault.h"
#include "value/Text.h"

namespace celdora::platform {

void ColeccionCamposLista::Add(std::shared_ptr<host::cCampo> campo, const std::string& key) {
    if (!campo) throw ObjectRequired();
    if (!key.empty()) {
        for (const auto& [clave, existente] : campos_)
            if (EqualText(clave, key))
                throw Fault{457, "This key is already associated with an element of this collection"};
    }
    campos_.emplace_back(key, std::move(campo));
}

int ColeccionCamposLista::Count() const { return static_cast<int>(campos_.size()); }

std::shared_ptr<host::cCampo> ColeccionCamposLista::Item(int index) const {
    if (index < 1 || index > Count()) throw InvalidProcedureCall();
    return campos_[static_cast<std::size_t>(index - 1)].second;
}

std::shared_ptr<host::cCampo> ColeccionCamposLista::Item(const std::string& key) const {
    if (!key.empty()) {
        for (const auto& [clave, campo] : campos_)
            if (EqualText(clave, key)) return campo;
    }
    throw InvalidProcedureCall();
}

void ColeccionCamposLista::Clear() { campos_.clear(); }

}  // namespace celdora::platform

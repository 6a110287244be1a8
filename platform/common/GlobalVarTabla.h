#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "host/Settings.h"
#include "value/Variant.h"

namespace celdora::platform {

// The company settings in a table of their own in the company database,
// gv_Configuracion (Clave, Numero, Texto), created on the first Conectar to a
// database that lacks it. Conectar loads every setting; reads answer from
// memory (keys compared without regard to case) or with the reader's own
// default, which is never written; writes go to the table at once.
class GlobalVarTabla : public host::GlobalVar {
public:
    static constexpr const char* kTabla = "gv_Configuracion";

    double LeerNumero(const std::string& key, double defaultValue) override;
    std::string LeerTexto(const std::string& key, const std::string& defaultValue) override;
    // Lets go of the former connection and its settings, then loads from the
    // new one. A connection that cannot be read raises its Fault and leaves
    // the settings empty.
    void Conectar(std::shared_ptr<host::Connection> connection) override;
    // True when the setting is in the table.
    bool GuardarNumero(const std::string& key, double value) override;
    bool GuardarTexto(const std::string& key, const std::string& value) override;

private:
    struct Ajuste {
        std::string clave;  // as the table spells it
        std::optional<double> numero;
        std::optional<std::string> texto;
    };

    bool Guardar(const std::string& key, Ajuste ajuste);

    std::shared_ptr<host::Connection> conexion_;
    std::map<std::string, Ajuste> ajustes_;  // by the key in lower case
};

}  // namespace celdora::platform

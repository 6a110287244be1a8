#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/Dorvex.h"

namespace celdora::platform {

// The fields of a row in the order they were added, 1-based, with optional
// keys compared without regard to case, as the platform's collections.
class ColeccionCamposLista : public host::ColeccionCampos {
public:
    // A key already present raises Fault 457; an empty key adds without one.
    void Add(std::shared_ptr<host::cCampo> campo, const std::string& key) override;
    int Count() const override;
    // An index outside 1..Count or a key that is not there raises Fault 5.
    std::shared_ptr<host::cCampo> Item(int index) const override;
    std::shared_ptr<host::cCampo> Item(const std::string& key) const override;

    void Clear();

private:
    std::vector<std::pair<std::string, std::shared_ptr<host::cCampo>>> campos_;  // key, field
};

}  // namespace celdora::platform

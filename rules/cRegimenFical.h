#pragma once

#include <cstdint>
#include <string>

#include "value/Object.h"

namespace celdora {

// One fiscal regime of the issuer, as RegimenesFicalesCol hands it out.
class cRegimenFical : public Object {
public:
    std::int32_t Sys_PK = 0;
    std::string Regimen;
    std::string Notas;

    void setInfo(std::int32_t lsyspk, const std::string& sregimen, const std::string& snotas) {
        Sys_PK = lsyspk;
        Regimen = sregimen;
        Notas = snotas;
    }
};

}  // namespace celdora

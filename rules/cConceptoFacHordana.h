#pragma once

#include <string>

#include "value/Object.h"

namespace celdora {

// The billing form of a sale: detailed, or summary with one or two concepts.
// The library fills Resumido and the texts; the amounts are the host's.
class cConceptoFacHordana : public Object {
public:
    bool Resumido = false;
    std::string UnidadC1;
    std::string ConceptoResumido;
    double CantidadA = 0;
    double PrecioA = 0;
    double DescuentosA = 0;
    double ImpuestosA = 0;
    std::string UnidadC2;
    std::string ConceptoResumidoCeroIVA;
    double CantidadB = 0;
    double PrecioB = 0;
    double DescuentosB = 0;
    double ImpuestosB = 0;
};

}  // namespace celdora

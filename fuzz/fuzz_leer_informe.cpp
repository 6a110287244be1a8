// libFuzzer target: any stored report text through the reader. It must
// neither crash nor read out of bounds, and what it shows must fit the text:
// a complete reading shows one row per line, a stopped one shows the rows
// before the line it names, with totals of zero.

#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/Comun.h"
#include "report/FormatoInforme.h"
#include "value/Text.h"

using namespace celdora;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tamano) {
    const std::string texto(reinterpret_cast<const char*>(datos), tamano);
    static fuzz::Contenido contenido;
    const auto lectura = informe::LeerInforme(texto, contenido.grid);

    const std::vector<std::string> lineas = texto.empty() ? std::vector<std::string>{}
                                                          : Split(texto, informe::kSaltoDeLinea);
    if (!lectura.lineaIncorrecta) {
        fuzz::Exigir(contenido.grid.RowCount() == static_cast<int>(lineas.size()), "una fila por línea");
    } else {
        const auto filas = static_cast<std::size_t>(contenido.grid.RowCount());
        fuzz::Exigir(filas < lineas.size() && lineas[filas] == *lectura.lineaIncorrecta,
                     "se detiene en la línea que nombra");
        fuzz::Exigir(lectura.total == 0 && lectura.iva == 0, "totales en cero al detenerse");
    }
    return 0;
}

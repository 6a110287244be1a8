// libFuzzer target: any log line, with any approval, through the writer.
// Whatever the host put in uf_Datos, the report line has thirteen
// separators, the reader takes it as one row (unless a field holds a line
// break), and normalising it again changes nothing; a cancelled
// comprobante's in-force line differs from its report line in field 8 only.

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "fuzz/Comun.h"
#include "report/FormatoInforme.h"
#include "value/Text.h"

using namespace celdora;

namespace {

// The line with the amounts of fields 6 and 7 that read "-.00" as ".00".
std::string SinCeroNegativo(const std::string& linea) {
    if (linea.empty()) return linea;
    std::vector<std::string> piezas = Split(linea, "|");
    std::string resultado;
    for (std::size_t i = 0; i < piezas.size(); ++i) {
        if ((i == 6 || i == 7) && piezas[i] == "-.00") piezas[i] = ".00";
        resultado += (i == 0 ? "" : "|") + piezas[i];
    }
    return resultado;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tamano) {
    std::int32_t no = 0;
    std::int32_t ano = 0;
    if (tamano >= 8) {
        std::memcpy(&no, datos, 4);
        std::memcpy(&ano, datos + 4, 4);
        datos += 8;
        tamano -= 8;
    }
    const std::string linea(reinterpret_cast<const char*>(datos), tamano);

    std::string adicional;
    const std::string reporte = informe::FormatearLinea(linea, no, ano, adicional);
    fuzz::Exigir(std::count(reporte.begin(), reporte.end(), '|') == 13, "trece separadores");
    fuzz::Exigir(reporte.front() == '|' && reporte.back() == '|', "la línea empieza y termina con el separador");

    if (!adicional.empty()) {
        const std::vector<std::string> a = Split(reporte, "|");
        const std::vector<std::string> b = Split(adicional, "|");
        fuzz::Exigir(a.size() == 14 && b.size() == 14, "catorce piezas en las dos líneas");
        for (std::size_t i = 0; i < a.size(); ++i) {
            fuzz::Exigir(i == 8 ? (a[i] == "0" && b[i] == "1") : a[i] == b[i], "difieren solo en el campo 8");
        }
    }

    // Normalising again changes nothing, but for one thing: a negative amount
    // that rounds to zero keeps its sign the first time ("-.00") and loses it
    // the second, since "-.00" reads as zero.
    std::string otraAdicional;
    const std::string otra = informe::FormatearLinea(reporte, no, ano, otraAdicional);
    fuzz::Exigir(otra == SinCeroNegativo(reporte) && otraAdicional == SinCeroNegativo(adicional),
                 "normalizar dos veces no cambia nada");

    // A field that holds a line break, like one that holds "|", passes the
    // writer as it stands and breaks the line for the reader; nothing
    // detects it. Every other line reads back as one row, or two.
    if (reporte.find(informe::kSaltoDeLinea) != std::string::npos) return 0;
    static fuzz::Contenido contenido;
    std::string texto;
    informe::AgregarAlInforme(texto, linea, no, ano);
    const auto lectura = informe::LeerInforme(texto, contenido.grid);
    fuzz::Exigir(!lectura.lineaIncorrecta, "el lector acepta lo que el escritor escribe");
    fuzz::Exigir(contenido.grid.RowCount() == (adicional.empty() ? 1 : 2), "una fila por línea");
    return 0;
}

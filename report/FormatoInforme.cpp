#include "report/FormatoInforme.h"

#include <vector>

#include "value/Channels.h"
#include "value/Format.h"
#include "value/Text.h"
#include "value/Variant.h"

namespace celdora::informe {

namespace {

constexpr std::size_t kCampos = 12;
constexpr std::size_t kCampoAprobacion = 4;
constexpr std::size_t kCampoTotal = 6;
constexpr std::size_t kCampoIva = 7;
constexpr std::size_t kCampoEstado = 8;

// The text of one field before trimming. A field the line does not reach
// stays empty, and so does one whose treatment fails.
std::string TextoDeCampo(const std::vector<std::string>& piezas, std::size_t campo, std::int32_t noAprobacion,
                         std::int32_t anoAprobacion) {
    std::string texto;
    ResumeNext([&] {
        if (campo == kCampoAprobacion) {
            texto = std::to_string(anoAprobacion) + std::to_string(noAprobacion);
        } else if (campo < piezas.size()) {
            const bool importe = campo == kCampoTotal || campo == kCampoIva;
            texto = importe ? Format(Variant(piezas[campo]), "#.00") : piezas[campo];
        }
    });
    return texto;
}

}  // namespace

std::string FormatearLinea(const std::string& linea, std::int32_t noAprobacion, std::int32_t anoAprobacion,
                           std::string& lineaAdicional) {
    std::vector<std::string> piezas;
    ResumeNext([&] { piezas = SplitText(linea, "|"); });
    std::string reporte = "|";
    std::string alterna = "|";
    bool cancelado = false;
    for (std::size_t campo = 1; campo <= kCampos; ++campo) {
        const std::string texto = Trim(TextoDeCampo(piezas, campo, noAprobacion, anoAprobacion));
        reporte += texto + "|";
        // The in-force line differs from the report line in the state alone.
        if (campo == kCampoEstado && texto == "0") {
            alterna += "1|";
            cancelado = true;
        } else {
            alterna += texto + "|";
        }
    }
    if (cancelado) lineaAdicional = alterna;
    return reporte;
}

std::string AgregarAlInforme(std::string& informe, const std::string& datos, std::int32_t noAprobacion,
                             std::int32_t anoAprobacion) {
    if (!informe.empty()) informe += kSaltoDeLinea;
    std::string lineaAdicional;
    std::string linea = FormatearLinea(datos, noAprobacion, anoAprobacion, lineaAdicional);
    if (Trim(linea).empty()) return {};
    if (!lineaAdicional.empty()) {
        informe += lineaAdicional;
        informe += kSaltoDeLinea;
    }
    informe += linea;
    return linea;
}

std::string NombreInforme(const std::string& rfc, int mes, int anio) {
    return "1" + rfc + Format(Variant::Long(mes), "00") + std::to_string(anio);
}

}  // namespace celdora::informe

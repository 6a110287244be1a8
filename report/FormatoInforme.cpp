#include "report/FormatoInforme.h"

#include <optional>
#include <string_view>
#include <vector>

#include "value/Channels.h"
#include "value/Format.h"
#include "value/Regional.h"
#include "value/Variant.h"

namespace celdora::informe {

namespace {

constexpr std::size_t kCampos = 12;
constexpr std::size_t kCampoAprobacion = 4;
constexpr std::size_t kCampoTotal = 6;
constexpr std::size_t kCampoIva = 7;
constexpr std::size_t kCampoEstado = 8;
// The digits a double holds exactly; a longer amount takes the formatter.
constexpr std::size_t kDigitosExactos = 15;

// The pieces of a line between its separators; views into the line.
std::vector<std::string_view> Piezas(std::string_view linea) {
    std::vector<std::string_view> piezas;
    if (linea.empty()) return piezas;
    for (std::size_t inicio = 0;;) {
        const std::size_t barra = linea.find('|', inicio);
        if (barra == std::string_view::npos) {
            piezas.push_back(linea.substr(inicio));
            return piezas;
        }
        piezas.push_back(linea.substr(inicio, barra - inicio));
        inicio = barra + 1;
    }
}

// Blanks off both ends, as Trim takes them.
std::string_view Recortada(std::string_view texto) {
    const std::size_t primero = texto.find_first_not_of(' ');
    if (primero == std::string_view::npos) return {};
    return texto.substr(primero, texto.find_last_not_of(' ') - primero + 1);
}

bool SoloDigitos(std::string_view texto) {
    for (char c : texto)
        if (c < '0' || c > '9') return false;
    return true;
}

// "#.00" of an amount written as the host writes it, plain digits with at
// most two decimals after the machine's separator: the digits as they stand
// without leading zeros, and the decimals filled to two. No rounding can
// arise, so this is what the formatter gives; any other text is left to it.
std::optional<std::string> ImporteLlano(std::string_view pieza) {
    const char separador = CurrentRegional().decimalSeparator;
    const std::size_t punto = pieza.find(separador);
    const std::string_view entero = pieza.substr(0, punto);
    const std::string_view decimales =
        punto == std::string_view::npos ? std::string_view() : pieza.substr(punto + 1);
    if (entero.empty() || !SoloDigitos(entero) || !SoloDigitos(decimales) || decimales.size() > 2 ||
        (punto != std::string_view::npos && decimales.empty()) || entero.size() + decimales.size() > kDigitosExactos)
        return std::nullopt;
    const std::size_t significativo = entero.find_first_not_of('0');
    std::string texto(significativo == std::string_view::npos ? std::string_view() : entero.substr(significativo));
    texto += separador;
    texto += decimales;
    texto.append(2 - decimales.size(), '0');
    return texto;
}

// Appends one field's text, trimmed. A field the line does not reach stays
// empty, and so does one whose treatment fails.
void AgregarCampo(std::string& destino, const std::vector<std::string_view>& piezas, std::size_t campo,
                  std::int32_t noAprobacion, std::int32_t anoAprobacion) {
    if (campo == kCampoAprobacion) {
        destino += std::to_string(anoAprobacion);
        destino += std::to_string(noAprobacion);
        return;
    }
    if (campo >= piezas.size()) return;
    if (campo != kCampoTotal && campo != kCampoIva) {
        destino += Recortada(piezas[campo]);
        return;
    }
    if (const std::optional<std::string> importe = ImporteLlano(piezas[campo])) {
        destino += *importe;
        return;
    }
    std::string texto;
    ResumeNext([&] { texto = Format(Variant(std::string(piezas[campo])), "#.00"); });
    destino += Recortada(texto);
}

}  // namespace

std::string FormatearLinea(const std::string& linea, std::int32_t noAprobacion, std::int32_t anoAprobacion,
                           std::string& lineaAdicional) {
    const std::vector<std::string_view> piezas = Piezas(linea);
    std::string reporte = "|";
    reporte.reserve(linea.size() + 32);
    std::size_t inicioEstado = 0;
    for (std::size_t campo = 1; campo <= kCampos; ++campo) {
        if (campo == kCampoEstado) inicioEstado = reporte.size();
        AgregarCampo(reporte, piezas, campo, noAprobacion, anoAprobacion);
        reporte += '|';
    }
    // The in-force line differs from the report line in the state alone.
    if (std::string_view(reporte).substr(inicioEstado, 2) == "0|") {
        lineaAdicional = reporte;
        lineaAdicional[inicioEstado] = '1';
    }
    return reporte;
}

std::string AgregarAlInforme(std::string& informe, const std::string& datos, std::int32_t noAprobacion,
                             std::int32_t anoAprobacion) {
    if (!informe.empty()) informe += kSaltoDeLinea;
    std::string lineaAdicional;
    std::string linea = FormatearLinea(datos, noAprobacion, anoAprobacion, lineaAdicional);
    if (Recortada(linea).empty()) return {};
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

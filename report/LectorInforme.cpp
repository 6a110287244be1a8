#include "report/LectorInforme.h"

#include <array>
#include <cstdint>

#include "report/FormatoInforme.h"
#include "value/Channels.h"
#include "value/Convert.h"
#include "value/Text.h"

namespace celdora::informe {

namespace {

// Fields 1 to 12 of a line, by the column each goes to.
constexpr std::array<const char*, 13> kColumnaDeCampo = {
    "",           "rfcReceptor",       "serie",             "folio",       "noAprobacion",
    "fechahora",  "total",             "IVAtrasladado",     "estadoComprobante",
    "efectoComprobante", "noPedimento", "fechaPedimento", "Aduana"};

// A line holds "|", twelve fields and a "|" after each: fourteen pieces.
constexpr std::size_t kPiezasDeLinea = 14;

void AgregarFila(forms::Grid& grid, std::int32_t numero, const std::vector<std::string>& piezas) {
    int fila = -1;
    ResumeNext([&] { fila = grid.Append(); });
    ResumeNext([&] { grid.Valor(fila, "id", Variant::Long(numero)); });
    for (std::size_t campo = 1; campo < kColumnaDeCampo.size(); ++campo) {
        // The numeric columns of the grid convert the amounts themselves.
        ResumeNext([&] { grid.Valor(fila, kColumnaDeCampo[campo], Variant(piezas[campo])); });
    }
}

}  // namespace

std::vector<forms::ColumnaGrid> ColumnasContenido() {
    return {{"id", "id", false},
            {"rfcReceptor", "RFC Receptor", false},
            {"serie", "Serie", false},
            {"folio", "Folio", false},
            {"noAprobacion", "No. Aprobación", false},
            {"fechahora", "Fecha expedición", false},
            {"total", "Total", true},
            {"IVATrasladado", "IVA trasladado", true},
            {"estadoComprobante", "Estado", false},
            {"efectoComprobante", "Efecto", false},
            {"noPedimento", "No. Pedimento", false},
            {"fechaPedimento", "Fecha pedimento", false},
            {"Aduana", "Aduana", false}};
}

LecturaInforme LeerInforme(const std::string& contenido, forms::Grid& grid) {
    LecturaInforme lectura;
    ResumeNext([&] { grid.Clear(); });
    if (contenido.empty()) return lectura;

    std::vector<std::string> lineas;
    ResumeNext([&] { lineas = Split(contenido, kSaltoDeLinea); });
    std::int32_t numero = 1;
    double total = 0;
    double iva = 0;
    for (const std::string& linea : lineas) {
        std::vector<std::string> piezas;
        ResumeNext([&] { piezas = SplitText(linea, "|"); });
        if (piezas.size() < kPiezasDeLinea) {
            lectura.lineaIncorrecta = linea;
            return lectura;
        }
        AgregarFila(grid, numero, piezas);
        ResumeNext([&] { total += CDbl(Variant(piezas[6])); });
        ResumeNext([&] { iva += CDbl(Variant(piezas[7])); });
        ++numero;
    }
    lectura.total = total;
    lectura.iva = iva;
    return lectura;
}

}  // namespace celdora::informe

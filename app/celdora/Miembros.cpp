#include "app/celdora/Miembros.h"

#include <iomanip>
#include <ostream>

#include "app/celdora/Opciones.h"
#include "core/Dispatch.h"
#include "value/Convert.h"
#include "value/Text.h"

namespace celdora::app {

namespace {

using dispatch::Argumento;
using dispatch::Miembro;
using dispatch::Tipo;

std::string TextoTipo(Tipo tipo, const std::string& interfaz) {
    std::string texto = dispatch::NombreTipo(tipo);
    if (tipo == Tipo::Obj && !interfaz.empty()) texto += " " + interfaz;
    return texto;
}

// A default as it would be written in a call.
std::string TextoOmision(const Variant& valor) {
    switch (valor.Type()) {
        case VarType::String: return "\"" + valor.AsString() + "\"";
        case VarType::Object: return valor.AsObject() ? "(objeto)" : "Nothing";
        case VarType::Empty: return "Empty";
        case VarType::Null: return "Null";
        default: return CStr(valor);
    }
}

std::string TextoArgumento(const Argumento& arg) {
    std::string texto = arg.porReferencia ? "ByRef " : "";
    texto += arg.nombre + " " + TextoTipo(arg.tipo, arg.interfaz);
    if (arg.opcional) texto += " = " + TextoOmision(arg.omision);
    return texto;
}

std::string Firma(const Miembro& m) {
    std::string texto = m.nombre;
    if (m.clase == dispatch::Clase::Metodo) {
        texto += "(";
        for (std::size_t i = 0; i < m.argumentos.size(); ++i) {
            if (i > 0) texto += ", ";
            texto += TextoArgumento(m.argumentos[i]);
        }
        texto += ")";
    }
    if (m.resultado != Tipo::Ninguno) texto += " : " + TextoTipo(m.resultado, m.interfazResultado);
    return texto;
}

// Pads to a width in characters, not bytes ("método").
std::string Columna(const std::string& texto, std::size_t ancho) {
    const std::size_t largo = Len(texto);
    return largo >= ancho ? texto : texto + std::string(ancho - largo, ' ');
}

}  // namespace

int ListarMiembros(const std::vector<std::string>& args, std::ostream& out) {
    if (args.size() > 1) throw ErrorDeUso{"members acepta una sola clase"};
    std::string clase = args.empty() ? "cAcction" : args[0];
    const std::vector<Miembro>& miembros = dispatch::MiembrosDe(clase);
    if (miembros.empty()) {
        std::string clases;
        for (const std::string& nombre : dispatch::Clases()) clases += (clases.empty() ? "" : ", ") + nombre;
        throw ErrorDeUso{"clase desconocida: " + clase + " (hay " + clases + ")"};
    }
    const std::vector<std::string>& orden = dispatch::OrdenDeRanuras(clase);
    for (const std::string& nombre : dispatch::Clases()) {
        if (EqualText(nombre, clase)) clase = nombre;
    }

    out << clase << ": " << miembros.size() << " miembros en " << orden.size() << " ranuras\n";
    for (const Miembro& m : miembros) {
        out << std::setw(3) << m.ranura << "  " << Columna(dispatch::NombreClase(m.clase), 26) << Firma(m) << "\n";
    }

    std::string pendientes;
    std::size_t siguiente = 0;
    for (std::size_t i = 0; i < orden.size(); ++i) {
        if (siguiente < miembros.size() && miembros[siguiente].ranura == static_cast<int>(i) + 1) {
            ++siguiente;
            continue;
        }
        pendientes += (pendientes.empty() ? "" : ", ") + std::to_string(i + 1) + " " + orden[i];
    }
    if (!pendientes.empty()) out << "Ranuras guardadas para miembros que aún no están: " << pendientes << "\n";
    return 0;
}

}  // namespace celdora::app

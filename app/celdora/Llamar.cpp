#include "app/celdora/Llamar.h"

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "app/celdora/Enlace.h"
#include "core/Dispatch.h"
#include "core/cAcction.h"
#include "platform/common/Usuario.h"

namespace celdora::app {

namespace {

Variant Argumento(const std::string& texto, const std::shared_ptr<platform::ConexionMotor>& conexion,
                  const Opciones& opciones) {
    if (texto == "@conexion") return Variant(std::static_pointer_cast<Object>(conexion));
    if (texto == "@usuario") {
        return Variant(std::static_pointer_cast<Object>(std::make_shared<platform::UsuarioConGrupos>(opciones.grupos)));
    }
    return Variant(texto);
}

}  // namespace

int Llamar(const Opciones& opciones, std::ostream& out) {
    if (opciones.argumentos.empty()) throw ErrorDeUso{"falta el miembro: celdora call MIEMBRO [ARGS...]"};
    const std::string& miembro = opciones.argumentos.front();
    if (!dispatch::Buscar("cAcction", miembro)) {
        throw ErrorDeUso{"cAcction no tiene el miembro " + miembro + " (véalos con: celdora members)"};
    }

    const Fachada fachada = EnlazarFachada(opciones);
    const auto& conexion = fachada.conexion;
    const auto& accion = fachada.accion;

    std::vector<Variant> argumentos;
    for (std::size_t i = 1; i < opciones.argumentos.size(); ++i) {
        argumentos.push_back(Argumento(opciones.argumentos[i], conexion, opciones));
    }
    const Variant resultado = dispatch::Invocar(*accion, miembro, argumentos);

    for (const std::string& linea : dispatch::Presentar(resultado)) out << linea << "\n";
    if (!accion->LastErrorDescript.empty()) out << "LastErrorDescript: " << accion->LastErrorDescript << "\n";
    return 0;
}

}  // namespace celdora::app

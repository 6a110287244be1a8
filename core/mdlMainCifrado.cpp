// Protected strings and digests. The cipher is an outside object created for
// each call with the system's one key; the digest comes from the sealing
// component. Each statement passes over a failure, so a component that fails
// leaves the empty string as the answer.

#include "core/Mensajes.h"
#include "core/mdlMain.h"
#include "host/Components.h"
#include "host/Platform.h"
#include "value/Channels.h"

namespace celdora::mdlMain {

namespace {

// The key of every protected string the system stores.
constexpr const char* kClaveCifrado = "c7a20eQp41vRZ318";
// The cipher's algorithm option the system always chooses.
constexpr int kAlgoritmo = 4;

}  // namespace

std::string CifrarTexto(const std::string& texto) {
    std::string result;
    std::shared_ptr<host::cCifrado> cifrado;
    ResumeNext([&] { cifrado = host::Crear<host::cCifrado>(host::progid::cCifrado); });
    ResumeNext([&] { Deref(cifrado).Parametros().Algoritmo(kAlgoritmo); });
    ResumeNext([&] { Deref(cifrado).TextoClaro(texto); });
    ResumeNext([&] { Deref(cifrado).Clave(kClaveCifrado, 0); });
    ResumeNext([&] { result = Deref(cifrado).Cifrar(0); });
    return result;
}

std::string DescifrarTexto(const std::string& texto) {
    std::string result;
    std::shared_ptr<host::cCifrado> cifrado;
    ResumeNext([&] { cifrado = host::Crear<host::cCifrado>(host::progid::cCifrado); });
    ResumeNext([&] { Deref(cifrado).Parametros().Algoritmo(kAlgoritmo); });
    ResumeNext([&] { Deref(cifrado).Clave(kClaveCifrado, 0); });
    ResumeNext([&] { Deref(cifrado).TextoCifrado(texto); });
    ResumeNext([&] { result = Deref(cifrado).TextoClaro(); });
    return result;
}

std::string ObtenerMD5(const std::string& texto) {
    std::string result;
    std::shared_ptr<host::cProccess> proceso;
    ResumeNext([&] { proceso = host::Crear<host::cProccess>(host::progid::Sellora); });
    if (!proceso) {
        ResumeNext([&] {
            core::Caja("No se pudo guardar la contraseña. Error al crear objeto Sellora.cProccess. Asegurese de que "
                       "el componente está instalado",
                       host::Icono::Exclamacion, "Facturación Electrónica");
        });
        return result;
    }
    ResumeNext([&] { result = proceso->getMD5(texto); });
    proceso.reset();
    return result;
}

}  // namespace celdora::mdlMain

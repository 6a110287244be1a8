#include "platform/desktop/FabricaObjetos.h"

#include "host/Platform.h"
#include "platform/common/ConexionMotor.h"
#include "platform/common/Domicilio.h"
#include "platform/common/GlobalVarTabla.h"
#include "platform/common/RecordsetCliente.h"
#include "platform/common/Shell.h"
#include "platform/common/StreamMemoria.h"
#include "platform/common/cCampoSimple.h"
#include "platform/common/cRegistroMotor.h"
#include "platform/crypto/CifradoAes.h"
#include "platform/crypto/HerramientaPfx.h"
#include "platform/crypto/ProcesoSello.h"
#include "platform/files/cConfigLocalIni.h"
#include "platform/files/cUtileriasArchivos.h"
#include "value/Text.h"

namespace celdora::platform {

void FabricaObjetos::Registrar(const std::string& progId, Creador creador) {
    creadores_[LCase(progId)] = std::move(creador);
}

void FabricaObjetos::Quitar(const std::string& progId) { creadores_.erase(LCase(progId)); }

std::shared_ptr<Object> FabricaObjetos::Crear(const std::string& progId) const {
    auto found = creadores_.find(LCase(progId));
    return found == creadores_.end() ? nullptr : found->second();
}

namespace {
template <class T>
FabricaObjetos::Creador Nuevo() {
    return [] { return std::static_pointer_cast<Object>(std::make_shared<T>()); };
}
}  // namespace

FabricaObjetos FabricaCompleta() {
    namespace id = host::progid;
    FabricaObjetos fabrica;
    // An unopened connection of the embedded engine: what the facade hands
    // the settings store when it lets go of the host's connection.
    fabrica.Registrar(id::Connection, Nuevo<ConexionMotor>());
    fabrica.Registrar(id::Recordset, Nuevo<RecordsetCliente>());
    fabrica.Registrar(id::Stream, Nuevo<StreamMemoria>());
    fabrica.Registrar(id::ShellShell, Nuevo<ShellCarpetas>());
    fabrica.Registrar(id::ShellApplication, Nuevo<ShellCarpetas>());
    fabrica.Registrar(id::Sellora, Nuevo<ProcesoSello>());
    fabrica.Registrar(id::Trasvel, Nuevo<HerramientaPfx>());
    fabrica.Registrar(id::cCifrado, Nuevo<CifradoAes>());
    fabrica.Registrar(id::GlobalVar, Nuevo<GlobalVarTabla>());
    fabrica.Registrar(id::cRegistro, Nuevo<cRegistroMotor>());
    fabrica.Registrar(id::cCampo, Nuevo<cCampoSimple>());
    fabrica.Registrar(id::cConfigLocal, Nuevo<cConfigLocalIni>());
    fabrica.Registrar(id::cUtilerias, Nuevo<cUtileriasArchivos>());
    fabrica.Registrar(id::objDomicilio, Nuevo<DomicilioTabla>());
    return fabrica;
}

}  // namespace celdora::platform

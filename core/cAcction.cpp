// The facade's binding to the host's objects and its lifetime.

#include "core/cAcction.h"

#include "host/Platform.h"
#include "value/Channels.h"

namespace celdora {

cAcction::cAcction() = default;

cAcction::~cAcction() {
    ResumeNext([&] {
        auto unopened = host::Crear<host::Connection>(host::progid::Connection);
        Settings().Conectar(unopened);
    });
    GlobalVar.reset();
}

host::GlobalVar& cAcction::Settings() {
    if (!GlobalVar) GlobalVar = host::Crear<host::GlobalVar>(host::progid::GlobalVar);
    if (!GlobalVar) throw CantCreateObject();
    return *GlobalVar;
}

void cAcction::SetDataObjects(std::shared_ptr<host::DataObjects> objDorvex,
                              std::shared_ptr<host::Catalogo> objCatNV) {
    DataObjects.reset();
    DataObjects = std::move(objDorvex);
    eCat.reset();
    eCat = std::move(objCatNV);
    ADOCnn.reset();
    ADOCnn = Deref(DataObjects).ADOCnn();
    LoadGlobalVar();
}

void cAcction::setObjects(std::shared_ptr<host::Connection> cnn, std::shared_ptr<host::Catalogo> objCatNV) {
    ADOCnn = std::move(cnn);
    eCat = std::move(objCatNV);
    Settings().Conectar(ADOCnn);
}

void cAcction::LoadGlobalVar() {
    ResumeNext([&] { Settings().Conectar(ADOCnn); });
}

bool cAcction::isSet() {
    if (!DataObjects) return false;
    auto connection = DataObjects->ADOCnn();
    if (!connection || connection->State() != host::adStateOpen) return false;
    if (!ADOCnn || ADOCnn->State() != host::adStateOpen) return false;
    return eCat != nullptr;
}

std::shared_ptr<Object> cAcction::CrearObjetoNothing() { return nullptr; }

}  // namespace celdora

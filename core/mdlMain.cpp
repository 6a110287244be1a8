#include "core/mdlMain.h"

#include "host/Platform.h"
#include "value/Channels.h"
#include "value/Convert.h"

namespace celdora::mdlMain {

std::shared_ptr<host::Recordset> AbrirConsulta(const std::shared_ptr<host::Connection>& connection,
                                               const std::string& sql, int cursorLocation) {
    std::shared_ptr<host::Recordset> result;
    EndOnError([&] {
        auto recordset = host::Crear<host::Recordset>(host::progid::Recordset);
        if (!recordset) return;
        recordset->activeconnection(connection);
        recordset->Source(sql);
        recordset->CursorLocation(cursorLocation);
        recordset->Open();
        if (recordset->State() == host::adStateOpen) result = recordset;
    });
    return result;
}

std::shared_ptr<host::cCampo> NuevoCampo(const std::string& nombre, const std::string& tipo, const Variant& valor,
                                         int tamano, bool requerido, const std::optional<Variant>& valorInicial,
                                         std::optional<int> reservado) {
    auto campo = host::Crear<host::cCampo>(host::progid::cCampo);
    Deref(campo).Nombre(nombre);
    campo->NombreColumna(nombre);
    campo->Tipo(tipo);
    campo->Tamano(tamano);
    campo->Requerido(requerido);
    campo->Valor(valor);
    if (valorInicial) campo->ValorInicial(*valorInicial);
    if (reservado) campo->Reservado(*reservado);
    return campo;
}

Variant LeerValorConsulta(const std::shared_ptr<host::Connection>& connection, const std::string& sql,
                          const std::string& campo) {
    Variant result;
    std::shared_ptr<host::Recordset> recordset;
    ResumeNext([&] { recordset = AbrirConsulta(connection, sql); });
    if (!recordset) return result;
    ResumeNext([&] {
        if (!(recordset->Eof() && recordset->Bof())) {
            Variant value = campo != "" ? recordset->Fields(campo).Value() : recordset->Fields(0).Value();
            if (!value.IsNull()) result = value;
        }
    });
    ResumeNext([&] { recordset->Close(); });
    return result;
}

bool ExisteRegistro(const std::shared_ptr<host::Connection>& connection, const std::string& tabla,
                    std::int32_t clave, const std::string& campo) {
    bool result = true;
    std::shared_ptr<host::Recordset> recordset;
    ResumeNext([&] {
        recordset = AbrirConsulta(connection, "SELECT " + campo + " FROM " + tabla + " WHERE " + campo + "=" +
                                                  std::to_string(clave));
    });
    if (recordset) {
        ResumeNext([&] { result = !(recordset->Eof() && recordset->Bof()); });
        ResumeNext([&] { recordset->Close(); });
    }
    return result;
}

std::string TextoCampo(host::Recordset& recordset, const std::string& campo) {
    Variant value = recordset.Fields(campo).Value();
    return value.IsNull() ? std::string() : CStr(value);
}

double NumeroCampo(host::Recordset& recordset, const std::string& campo) {
    Variant value = recordset.Fields(campo).Value();
    return value.IsNull() ? 0.0 : CDbl(value);
}

namespace {

// The holders of the process's shared objects. An object that could not be
// created is not remembered, so a later use tries again.
std::shared_ptr<host::cConfigLocal>& ConfigLocalCompartido() {
    static std::shared_ptr<host::cConfigLocal> objeto;
    return objeto;
}

std::shared_ptr<host::cUtilerias>& UtileriasCompartido() {
    static std::shared_ptr<host::cUtilerias> objeto;
    return objeto;
}

template <class T>
T& Compartido(std::shared_ptr<T>& objeto, const char* progId) {
    if (!objeto) objeto = host::Crear<T>(progId);
    if (!objeto) throw CantCreateObject();
    return *objeto;
}

}  // namespace

host::cConfigLocal& ConfigLocal() { return Compartido(ConfigLocalCompartido(), host::progid::cConfigLocal); }

host::cUtilerias& Utilerias() { return Compartido(UtileriasCompartido(), host::progid::cUtilerias); }

void SoltarObjetosCompartidos() {
    ConfigLocalCompartido().reset();
    UtileriasCompartido().reset();
}

}  // namespace celdora::mdlMain

// Whether a user may take an action. The permission is a company setting
// named by the action whose value lists the groups that may take it: "*"
// (also the answer of a key never saved) allows everyone, otherwise the
// value holds UserGroup keys separated by semicolons.

#include <memory>
#include <string>
#include <vector>

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "host/HostObjects.h"
#include "value/Channels.h"
#include "value/Convert.h"
#include "value/Text.h"

namespace celdora {

namespace {

constexpr const char* kPermisoDenegado = "Permiso denegado.";

// Whether one of the user's groups has its key in the list. Each piece
// counts by the number it starts with, so an empty piece is 0 and matches no
// group. Groups are loaded only when none are loaded yet. Each step passes
// over its failure, so a user that cannot be asked matches nothing.
bool GrupoEnLista(const std::shared_ptr<host::Usuario>& oUser, const std::vector<std::string>& piezas) {
    ResumeNext([&] {
        host::GruposUsuario& grupos = Deref(oUser).Grupos();
        if (grupos.Elementos().Count() < 1) grupos.Cargar("", "");
    });
    int cuantos = 0;
    ResumeNext([&] { cuantos = Deref(oUser).Grupos().Elementos().Count(); });
    for (int i = 1; i <= cuantos; ++i) {
        bool encontrado = false;
        ResumeNext([&] {
            const double clave = Deref(Deref(oUser).Grupos().Elementos().Item(i)).Sys_PK();
            for (const std::string& pieza : piezas) {
                if (Val(pieza) == clave) {
                    encontrado = true;
                    return;
                }
            }
        });
        if (encontrado) return true;
    }
    return false;
}

}  // namespace

bool cAcction::PermitirAcceso(const std::string& sKey, const std::shared_ptr<host::Usuario>& oUser, bool Alerta) {
    ResumeNext([&] { Settings(); });
    std::string permiso;
    ResumeNext([&] { permiso = Trim(Deref(GlobalVar).LeerTexto(sKey, "*")); });
    if (permiso == "*") return true;

    const std::vector<std::string> piezas = Split(permiso, ";");
    if (piezas.empty()) {
        if (Alerta) ResumeNext([&] { core::Caja(kPermisoDenegado, host::Icono::Critico); });
        return false;
    }

    if (GrupoEnLista(oUser, piezas)) return true;
    if (Alerta) ResumeNext([&] { core::Caja(kPermisoDenegado, host::Icono::Critico, "Tiendaro"); });
    return false;
}

}  // namespace celdora

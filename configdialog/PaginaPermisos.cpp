#include "configdialog/PaginaPermisos.h"

#include <initializer_list>

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "value/Channels.h"
#include "value/Convert.h"
#include "value/Text.h"

namespace celdora::configuracion {

using host::Icono;

PaginaPermisos::PaginaPermisos(forms::Dialogo& dialogo, Marco& marco) : Unidad(dialogo), marco(marco) {
    cmbGrupo.Click = [this] { cmbGrupo_Click(); };
    for (const Permiso& permiso : kPermisos) {
        chkPermiso[static_cast<std::size_t>(permiso.indice)]->Click = [this, i = permiso.indice] {
            chkPermiso_Click(i);
        };
    }
    btnGuardarPermisos.Click = [this] { btnGuardarPermisos_Click(); };
}

std::array<forms::CheckBox*, 13> PaginaPermisos::agregarCasillas() {
    std::array<forms::CheckBox*, 13> casillas{};
    for (const Permiso& permiso : kPermisos) {
        casillas[static_cast<std::size_t>(permiso.indice)] = &Agregar<forms::CheckBox>(
            "chkPermiso(" + std::to_string(permiso.indice) + ")", permiso.caption);
    }
    return casillas;
}

cAcction& PaginaPermisos::Fachada() const {
    if (marco.oAcc == nullptr) throw ObjectNotSet();
    return *marco.oAcc;
}

void PaginaPermisos::Colocar(const std::string& contenedor, int pagina) {
    for (forms::Control* control :
         std::initializer_list<forms::Control*>{&Labelgrupo, &cmbGrupo, &Label2_1, &Label2_2}) {
        control->Colocar(contenedor, pagina);
    }
    for (forms::CheckBox* casilla : chkPermiso) casilla->Colocar(contenedor, pagina);
    btnGuardarPermisos.Colocar(contenedor, pagina);
}

void PaginaPermisos::vaciarTodosLosGrupos() { todosLosGrupos.clear(); }

void PaginaPermisos::cargarGrupos() {
    ResumeNext([&] { cmbGrupo.Clear(); });
    std::shared_ptr<host::Recordset> rs;
    ResumeNext([&] {
        rs = mdlMain::AbrirConsulta(Fachada().ADOCnn, "SELECT Sys_PK,GroupID FROM UserGroup ORDER BY GroupID");
    });
    if (!rs) return;
    todosLosGrupos.clear();
    ResumeNext([&] {
        for (; !rs->Eof(); rs->movenext()) {
            cmbGrupo.AddItem(mdlMain::TextoCampo(*rs, "GroupID"));
            cmbGrupo.ItemData(cmbGrupo.ListCount() - 1, CLng(rs->Fields("Sys_PK").Value()));
            if (!todosLosGrupos.empty()) todosLosGrupos += ";";
            todosLosGrupos += mdlMain::TextoCampo(*rs, "Sys_PK");
        }
    });
    limpiarPermisos();
    // Selecting raises the combo's click, which loads the group's boxes.
    if (cmbGrupo.ListCount() > 0) ResumeNext([&] { cmbGrupo.ListIndex(0); });
    ResumeNext([&] { rs->Close(); });
}

void PaginaPermisos::cmbGrupo_Click() {
    if (cmbGrupo.ListIndex() < 0) return;
    ResumeNext([&] { btnGuardarPermisos.Caption("Guardar cambios en grupo " + cmbGrupo.Text()); });
    ResumeNext([&] { cargarPermisos(cmbGrupo.ItemData(cmbGrupo.ListIndex())); });
}

// The tags are read again at every change of group, so marks not saved for
// the group left are lost.
void PaginaPermisos::cargarPermisos(std::int32_t grupo) {
    for (const Permiso& permiso : kPermisos) cargarPermiso(permiso.indice, permiso.clave, grupo);
}

// The value goes first: setting it runs the box's click, which changes the
// tag, and the stored text must win.
void PaginaPermisos::cargarPermiso(int indice, const std::string& clave, std::int32_t grupo) {
    forms::CheckBox& casilla = *chkPermiso[static_cast<std::size_t>(indice)];
    std::string lista;
    ResumeNext([&] { lista = Deref(Fachada().GlobalVar).LeerTexto(clave, todosLosGrupos); });
    ResumeNext([&] { casilla.Value(grupoPermitido(grupo, lista) ? 1 : 0); });
    ResumeNext([&] { casilla.Tag(lista); });
}

bool PaginaPermisos::grupoPermitido(std::int32_t grupo, const std::string& lista) {
    if (lista == "*") return true;
    for (const std::string& pieza : Split(lista, ";")) {
        if (Val(pieza) == grupo) return true;
    }
    return false;
}

void PaginaPermisos::limpiarPermisos() {
    for (forms::CheckBox* casilla : chkPermiso) ResumeNext([&] { casilla->Value(0); });
}

// A "*" reads as the number 0: unchecking leaves it in place, so the
// permission can't be taken from one group while the key says every group;
// checking makes "*;" and the group, which no longer means every group.
void PaginaPermisos::chkPermiso_Click(int indice) {
    if (cmbGrupo.ListIndex() < 0) return;
    forms::CheckBox& casilla = *chkPermiso[static_cast<std::size_t>(indice)];
    const std::int32_t grupo = cmbGrupo.ItemData(cmbGrupo.ListIndex());
    const std::string tag = casilla.Tag();
    if (casilla.Value() == 1) {
        // Whether the group is in the list already is not tested.
        ResumeNext([&] { casilla.Tag(tag.empty() ? std::to_string(grupo) : tag + ";" + std::to_string(grupo)); });
        return;
    }
    if (tag.empty()) return;
    std::string resto;
    for (const std::string& pieza : Split(tag, ";")) {
        if (Val(pieza) == grupo) continue;
        if (!resto.empty()) resto += ";";
        resto += pieza;
    }
    ResumeNext([&] { casilla.Tag(resto); });
}

// The keys are written at once and stay, whatever the dialog does after.
void PaginaPermisos::btnGuardarPermisos_Click() {
    for (const Permiso& permiso : kPermisos) {
        // A write that raises a fault has failed as well.
        bool guardado = false;
        ResumeNext([&] { guardado = guardarPermiso(permiso.indice); });
        if (!guardado) {
            core::Caja(std::string("Error al guardar permiso ") + permiso.clave, Icono::Exclamacion);
            return;
        }
    }
    core::Caja("Permisos guardados correctamente.", Icono::Informacion);
}

bool PaginaPermisos::guardarPermiso(int indice) {
    const Permiso& permiso = kPermisos[static_cast<std::size_t>(indice)];
    return Deref(Fachada().GlobalVar)
        .GuardarTexto(permiso.clave, chkPermiso[static_cast<std::size_t>(indice)]->Tag());
}

}  // namespace celdora::configuracion

#include "configdialog/PaginaRegimenes.h"

#include <initializer_list>

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "rules/cRegimenFical.h"
#include "value/Channels.h"
#include "value/Convert.h"
#include "value/Text.h"

namespace celdora::configuracion {

using host::Icono;

namespace {

constexpr int kEnter = 13;

}  // namespace

PaginaRegimenes::PaginaRegimenes(forms::Dialogo& dialogo, Marco& marco, const RotulosRegimenes& rotulos)
    : Unidad(dialogo), marco(marco) {
    LabelReg.Caption(rotulos.LabelReg);
    LabelReg1.Caption(rotulos.LabelReg1);
    cmdAgregarRegimen.Click = [this] { agregarRegimen(); };
    cmbRegimen.KeyPress = [this](int& keyAscii) {
        if (keyAscii == kEnter) agregarRegimen();
    };
    cmdQuitarRegimen.Click = [this] { cmdQuitarRegimen_Click(); };
}

cAcction& PaginaRegimenes::Fachada() const {
    if (marco.oAcc == nullptr) throw ObjectNotSet();
    return *marco.oAcc;
}

void PaginaRegimenes::Colocar(const std::string& contenedor, int pagina) {
    for (forms::Control* control : std::initializer_list<forms::Control*>{
             &LabelReg, &cmbRegimen, &cmdAgregarRegimen, &LabelReg1, &lstRegimen, &cmdQuitarRegimen}) {
        control->Colocar(contenedor, pagina);
    }
}

// lstRegimen is not emptied: it is loaded once, when the dialog opens.
bool PaginaRegimenes::cargarRegimenes() {
    auto fault = Trap([&] {
        cmbRegimen.Clear();
        auto regimenes = Fachada().RegimenesFicalesCol();
        if (!regimenes) return;
        for (const Variant& elemento : *regimenes) {
            auto regimen = std::dynamic_pointer_cast<cRegimenFical>(elemento.AsObject());
            if (!regimen) throw ObjectRequired();
            cmbRegimen.AddItem(regimen->Regimen);
            lstRegimen.AddItem(regimen->Regimen);
            lstRegimen.ItemData(lstRegimen.ListCount() - 1, regimen->Sys_PK);
        }
    });
    if (fault) {
        core::Caja("Error al cargar régimen fiscal. " + DescriptionAndNumber(*fault), Icono::Exclamacion);
        return false;
    }
    return true;
}

// The same regime may be added twice: there is no test for duplicates.
void PaginaRegimenes::agregarRegimen() {
    const std::string regimen = Trim(cmbRegimen.Text());
    if (regimen.empty()) {
        core::Caja("Escriba el nombre del régimen fiscal.", Icono::Informacion);
        ResumeNext([&] { cmbRegimen.SetFocus(); });
        return;
    }
    ResumeNext([&] {
        lstRegimen.AddItem(regimen);
        lstRegimen.ItemData(lstRegimen.ListCount() - 1, 0);
    });
    ResumeNext([&] { cmbRegimen.Text(""); });
}

void PaginaRegimenes::cmdQuitarRegimen_Click() {
    const int indice = lstRegimen.ListIndex();
    if (indice < 0) {
        core::Caja("Seleccione un elemento de la lista.", Icono::Informacion);
        ResumeNext([&] { lstRegimen.SetFocus(); });
        return;
    }
    ResumeNext([&] {
        if (!regimenesQuitados.empty()) regimenesQuitados += ";";
        regimenesQuitados += std::to_string(lstRegimen.ItemData(indice));
    });
    ResumeNext([&] { lstRegimen.RemoveItem(indice); });
}

// A failure leaves the pieces not reached undone.
bool PaginaRegimenes::eliminarRegimenes() {
    auto fault = Trap([&] {
        for (const std::string& pieza : Split(regimenesQuitados, ";")) {
            if (Val(pieza) > 0) Deref(Fachada().ADOCnn).Execute("DELETE FROM RegimenEmisor WHERE Sys_PK=" + pieza);
        }
    });
    if (fault) {
        core::Caja("Error al eliminar régimen fiscal. " + DescriptionAndNumber(*fault), Icono::Exclamacion);
        return false;
    }
    return true;
}

// The name goes into the statement as it stands: an apostrophe in it makes
// the statement fail. The inserted entries keep item data 0; the dialog
// closes right after a good save, so they are not inserted twice.
bool PaginaRegimenes::guardarRegimenes() {
    bool result = false;
    auto fault = Trap([&] {
        if (lstRegimen.ListCount() == 0) {
            core::Caja("Debe agregar el régimen fiscal del emisor.", Icono::Informacion);
            return;
        }
        for (int i = 0; i < lstRegimen.ListCount(); ++i) {
            if (lstRegimen.ItemData(i) == 0) {
                Deref(Fachada().ADOCnn).Execute("INSERT INTO RegimenEmisor(Regimen) VALUES('" + lstRegimen.List(i) +
                                                "')");
            }
        }
        result = true;
    });
    if (fault) {
        core::Caja("Error al guardar régimen fiscal. " + DescriptionAndNumber(*fault), Icono::Exclamacion);
        return false;
    }
    return result;
}

bool PaginaRegimenes::validarLista() {
    if (lstRegimen.ListCount() > 0) return true;
    core::Caja("Debe agregar el régimen fiscal en el que tributa el emisor.", Icono::Informacion);
    marco.IrA(1, cmbRegimen);
    return false;
}

}  // namespace celdora::configuracion

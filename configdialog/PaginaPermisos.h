#pragma once

// Which user groups hold each of the thirteen permissions of the fiscal
// side. A permission is one key of the company store whose text is "*"
// (every group) or the groups' Sys_PKs joined by ";". While the page is
// shown each check box keeps its key's text in its tag and shows whether the
// selected group is in it. The page saves by its own button, apart from the
// dialog's OK and Cancel.

#include <array>
#include <cstdint>
#include <string>

#include "configdialog/Marco.h"
#include "forms/Controles.h"
#include "forms/Unidad.h"

namespace celdora::configuracion {

struct Permiso {
    int indice;
    const char* caption;
    const char* clave;
};

inline constexpr std::array<Permiso, 13> kPermisos{{
    {0, "Permitir acceso", "NVCA316x"},
    {1, "Permitir abrir documento", "NVCA317x"},
    {2, "Permitir vista previa", "NVCA318x"},
    {3, "Permitir exportar", "NVCA319x"},
    {4, "Permitir enviar por eMail", "NVCA320x"},
    {5, "Permitir generar informe mensual", "NVCA321x"},
    {6, "Permitir ver informes generados", "NVCA322x"},
    {7, "Permitir eliminar informe", "NVCA323x"},
    {8, "Permitir regenerar informe", "NVCA324x"},
    {9, "Permitir eliminar CFD/CFDI", "NVCA325x"},
    {10, "Permitir generar factura electrónica", "NVCA326x"},
    {11, "Permitir regenerar representación impresa", "NVCA326xa"},
    {12, "Permitir marcar CFDI cancelado por el SAT", "NVCA326xb"},
}};

class PaginaPermisos : public forms::Unidad {
public:
    PaginaPermisos(forms::Dialogo& dialogo, Marco& marco);

    void Colocar(const std::string& contenedor, int pagina);

    // The dialog's setObjects forgets the groups read before.
    void vaciarTodosLosGrupos();
    // Fills cmbGrupo and todosLosGrupos, clears the boxes and selects the
    // first group, which loads its permissions.
    void cargarGrupos();
    void cmbGrupo_Click();
    // Each box from its key, for one group; a key never written reads as
    // every group there is.
    void cargarPermisos(std::int32_t grupo);
    void cargarPermiso(int indice, const std::string& clave, std::int32_t grupo);
    static bool grupoPermitido(std::int32_t grupo, const std::string& lista);
    void limpiarPermisos();
    // Adds the selected group to the box's tag or takes it out.
    void chkPermiso_Click(int indice);
    // Writes the thirteen tags in order; a failed write stops the chain.
    void btnGuardarPermisos_Click();
    bool guardarPermiso(int indice);

    forms::Label& Labelgrupo = Agregar<forms::Label>("Labelgrupo", "Seleccione un grupo y marque los permisos:");
    // Item data: UserGroup.Sys_PK.
    forms::ComboBox& cmbGrupo = Agregar<forms::ComboBox>("cmbGrupo", forms::ComboBox::Estilo::SoloLista);
    forms::Label& Label2_1 = Agregar<forms::Label>("Label2(1)", "Permisos en el módulo de ventas");
    forms::Label& Label2_2 =
        Agregar<forms::Label>("Label2(2)", "Permisos asignados al módulo de Facturación Electrónica");
    const std::array<forms::CheckBox*, 13> chkPermiso = agregarCasillas();
    forms::CommandButton& btnGuardarPermisos =
        Agregar<forms::CommandButton>("btnGuardarPermisos", "Guardar cambios");

    // Every UserGroup.Sys_PK, joined by ";".
    std::string todosLosGrupos;

private:
    std::array<forms::CheckBox*, 13> agregarCasillas();
    cAcction& Fachada() const;

    Marco& marco;
};

}  // namespace celdora::configuracion

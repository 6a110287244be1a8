#include "cbb/ListaFoliosCBB.h"

#include <cstdint>

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "value/Channels.h"
#include "value/Convert.h"

namespace celdora::cbb {

using host::Icono;

ListaFoliosCBB::ListaFoliosCBB(forms::Dialogo& dialogo, cAcction* const& oAcc, const std::string& agregar,
                               const std::string& editar, const std::string& eliminar)
    : Unidad(dialogo),
      btnAgregar(Agregar<forms::CommandButton>(agregar, "Agregar")),
      btnEditar(Agregar<forms::CommandButton>(editar, "Editar")),
      btnEliminar(Agregar<forms::CommandButton>(eliminar, "Eliminar")),
      oAcc_(oAcc) {
    lvwFoliosCBB.AgregarColumna("No. Aprobación");
    lvwFoliosCBB.AgregarColumna("Folio Inicial");
    lvwFoliosCBB.AgregarColumna("Folio Final");
    lvwFoliosCBB.AgregarColumna("Block Documento");
    btnAgregar.Click = [this] { btnAgregar_Click(); };
    btnEditar.Click = [this] { btnEditar_Click(); };
    btnEliminar.Click = [this] { btnEliminar_Click(); };
}

void ListaFoliosCBB::Colocar(const std::string& contenedor, int pagina) {
    lvwFoliosCBB.Colocar(contenedor, pagina);
    btnAgregar.Colocar(contenedor, pagina);
    btnEditar.Colocar(contenedor, pagina);
    btnEliminar.Colocar(contenedor, pagina);
}

cAcction& ListaFoliosCBB::Fachada() const {
    if (oAcc_ == nullptr) throw ObjectNotSet();
    return *oAcc_;
}

// The inner join leaves out a range whose block was deleted. The prefixes
// of the block column are this list's own, unlike those of the range
// editor's block list.
void ListaFoliosCBB::cargarLista() {
    auto fault = Trap([&] {
        auto recordset = mdlMain::AbrirConsulta(
            Fachada().ADOCnn,
            "SELECT ut_FoliosCBB.Sys_PK, ut_FoliosCBB.uf_FolioInicial AS FolioInicial, ut_FoliosCBB.uf_FolioFinal AS "
            "FolioFinal, BlockDocumentos.Documento AS Doc, BlockDocumentos.Serie,ut_FoliosCBB.uf_NumAprobacion FROM "
            "ut_FoliosCBB INNER JOIN BlockDocumentos ON ut_FoliosCBB.uf_BlockDoc=BlockDocumentos.Sys_PK");
        if (!recordset) return;
        lvwFoliosCBB.Clear();
        for (; !recordset->Eof(); recordset->movenext()) {
            const std::string clave = mdlMain::TextoCampo(*recordset, "Sys_PK");
            const int item = lvwFoliosCBB.Add("pk" + clave, mdlMain::TextoCampo(*recordset, "uf_NumAprobacion"));
            lvwFoliosCBB.SubItem(item, 1, mdlMain::TextoCampo(*recordset, "FolioInicial"));
            lvwFoliosCBB.SubItem(item, 2, mdlMain::TextoCampo(*recordset, "FolioFinal"));
            const std::string serie = mdlMain::TextoCampo(*recordset, "Serie");
            switch (CLng(recordset->Fields("Doc").Value())) {
                case 4: lvwFoliosCBB.SubItem(item, 3, "Factura - " + serie); break;
                case 5: lvwFoliosCBB.SubItem(item, 3, "Nota de Crédito - " + serie); break;
                case 17: lvwFoliosCBB.SubItem(item, 3, "Nota de Cargo - " + serie); break;
                default: break;
            }
            lvwFoliosCBB.ItemTag(item, clave);
        }
        recordset->Close();
    });
    if (fault) core::Caja(ErrorTextColon(*fault), Icono::Exclamacion);
}

void ListaFoliosCBB::btnAgregar_Click() {
    ResumeNext([&] {
        if (Fachada().AgregarFoliosCBB()) cargarLista();
    });
}

void ListaFoliosCBB::btnEditar_Click() {
    if (lvwFoliosCBB.SelectedItem() < 0) {
        core::Caja("Seleccione un elemento de la lista.", Icono::Informacion);
        return;
    }
    ResumeNext([&] {
        const std::int32_t clave = CLng(Variant(lvwFoliosCBB.Item(lvwFoliosCBB.SelectedItem()).tag));
        if (Fachada().ModificarFoliosCBB(clave)) cargarLista();
    });
}

void ListaFoliosCBB::btnEliminar_Click() {
    if (lvwFoliosCBB.SelectedItem() < 0) {
        core::Caja("Seleccione un elemento de la lista.", Icono::Informacion);
        return;
    }
    ResumeNext([&] {
        const std::int32_t clave = CLng(Variant(lvwFoliosCBB.Item(lvwFoliosCBB.SelectedItem()).tag));
        if (Fachada().EliminarFoliosCBB(clave)) cargarLista();
    });
}

}  // namespace celdora::cbb

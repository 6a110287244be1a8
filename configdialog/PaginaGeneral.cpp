#include "configdialog/PaginaGeneral.h"

#include <initializer_list>

#include "certificates/frmBlockXCer.h"
#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "value/Channels.h"
#include "value/Convert.h"

namespace celdora::configuracion {

using host::Icono;

PaginaGeneral::PaginaGeneral(forms::Dialogo& dialogo, Marco& marco) : Unidad(dialogo), marco(marco) {
    for (forms::Control* control : std::initializer_list<forms::Control*>{&lblfolios, &lvwFolio, &btnAddF,
                                                                          &btnEditF, &btnDelF}) {
        control->Colocar(picFoliosCFD.Nombre());
    }
    for (forms::Control* control : std::initializer_list<forms::Control*>{&lblBlocksCFDI, &lvwBlockCFDI,
                                                                          &btnEditarBlockCFDI, &lblAyudaBlocks}) {
        control->Colocar(picBlockCFDI.Nombre());
    }
    for (const char* columna : {"Número de aprobación", "Serie", "Folio inicial", "Folio final", "Año de aprobación",
                                "No. Aprobación del rango anterior"}) {
        lvwFolio.AgregarColumna(columna);
    }
    lvwBlockCFDI.AgregarColumna("Documento");
    lvwBlockCFDI.AgregarColumna("Serie");

    lstCer.Click = [this] { cargarFoliosYBlocks(); };
    btnAddCer.Click = [this] { btnAddCer_Click(); };
    btnEditCer.Click = [this] { btnEditCer_Click(); };
    btnDelCer.Click = [this] { btnDelCer_Click(); };
    btnAddF.Click = [this] { btnAddF_Click(); };
    btnEditF.Click = [this] { btnEditF_Click(); };
    lstCer.DblClick = [this] { btnEditCer_Click(); };
    lvwFolio.DblClick = [this](int) { btnEditF_Click(); };
    btnDelF.Click = [this] { btnDelF_Click(); };
    btnEditarBlockCFDI.Click = [this] { btnEditarBlockCFDI_Click(); };
}

cAcction& PaginaGeneral::Fachada() const {
    if (marco.oAcc == nullptr) throw ObjectNotSet();
    return *marco.oAcc;
}

void PaginaGeneral::Colocar(const std::string& contenedor, int pagina) {
    for (forms::Control* control : std::initializer_list<forms::Control*>{
             &Label1, &lstCer, &btnAddCer, &btnEditCer, &btnDelCer, &ChkCFDauto, &picFoliosCFD, &picBlockCFDI}) {
        control->Colocar(contenedor, pagina);
    }
}

void PaginaGeneral::cargarCertificados() {
    ResumeNext([&] { lstCer.Clear(); });
    std::shared_ptr<host::Recordset> rs;
    ResumeNext([&] {
        rs = mdlMain::AbrirConsulta(Fachada().ADOCnn, "SELECT * FROM ut_CFDInfo ORDER BY uf_noCertificado");
    });
    if (rs) {
        ResumeNext([&] {
            for (; !rs->Eof(); rs->movenext()) {
                lstCer.AddItem(mdlMain::TextoCampo(*rs, "uf_noCertificado"));
                lstCer.ItemData(lstCer.ListCount() - 1, CLng(rs->Fields("Sys_PK").Value()));
            }
        });
        ResumeNext([&] { rs->Close(); });
    }
    // Selecting raises the list's click, which loads the certificate's lists.
    if (lstCer.ListCount() > 0) ResumeNext([&] { lstCer.ListIndex(0); });
}

void PaginaGeneral::cargarFoliosYBlocks() {
    ResumeNext([&] { lblfolios.Caption("Rango de folios fiscales"); });
    if (lstCer.ListCount() == 0) return;
    if (lstCer.ListIndex() < 0) ResumeNext([&] { lstCer.ListIndex(0); });

    std::string clave;
    std::string certificado;
    ResumeNext([&] {
        clave = std::to_string(lstCer.ItemData(lstCer.ListIndex()));
        certificado = lstCer.List(lstCer.ListIndex());
    });
    ResumeNext([&] { lblfolios.Caption("Rango de folios fiscales del certificado: " + certificado); });
    ResumeNext([&] { lblBlocksCFDI.Caption("Blocks asignados al certificado: " + certificado); });
    ResumeNext([&] { lvwFolio.Clear(); });
    ResumeNext([&] { lvwBlockCFDI.Clear(); });

    std::shared_ptr<host::Recordset> rs;
    enumTipoCFD tipo = cCFD;
    ResumeNext([&] { tipo = Fachada().TipoComprobanteAGenerar(); });
    if (tipo == cCFD) {
        ResumeNext([&] {
            rs = mdlMain::AbrirConsulta(Fachada().ADOCnn, "SELECT * FROM ut_CFDFolio WHERE uf_CFDInfo=" + clave +
                                                                " ORDER BY uf_anoAprobacion, uf_noAprobacion");
        });
        if (rs) {
            ResumeNext([&] {
                for (; !rs->Eof(); rs->movenext()) {
                    const std::string pk = mdlMain::TextoCampo(*rs, "Sys_PK");
                    const int item = lvwFolio.Add("pk" + pk, mdlMain::TextoCampo(*rs, "uf_noAprobacion"));
                    lvwFolio.ItemTag(item, pk);
                    lvwFolio.SubItem(item, 1, mdlMain::TextoCampo(*rs, "uf_Serie"));
                    lvwFolio.SubItem(item, 2, mdlMain::TextoCampo(*rs, "uf_FolioInicial"));
                    lvwFolio.SubItem(item, 3, mdlMain::TextoCampo(*rs, "uf_FolioFinal"));
                    lvwFolio.SubItem(item, 4, mdlMain::TextoCampo(*rs, "uf_anoAprobacion"));
                    // The range that this one continues, by its approval number.
                    if (mdlMain::NumeroCampo(*rs, "uf_CFDFolioAnterior") > 0) {
                        lvwFolio.SubItem(item, 5,
                                         CStr(mdlMain::LeerValorConsulta(
                                             Fachada().ADOCnn,
                                             "SELECT uf_noAprobacion FROM ut_CFDFolio WHERE Sys_PK=" +
                                                 mdlMain::TextoCampo(*rs, "uf_CFDFolioAnterior"),
                                             "uf_noAprobacion")));
                    }
                }
            });
            ResumeNext([&] { lvwFolio.SelectedItem(0); });
        }
    } else {
        ResumeNext([&] {
            rs = mdlMain::AbrirConsulta(
                Fachada().ADOCnn,
                "SELECT BlockDocumentos.Sys_PK,BlockDocumentos.Serie,cDocumentos.Const AS Descripcion FROM "
                "BlockDocumentos INNER JOIN cDocumentos ON BlockDocumentos.Documento=cDocumentos.ID WHERE "
                "(BlockDocumentos.Documento=4 OR BlockDocumentos.Documento=5 OR BlockDocumentos.Documento=17) AND "
                "BlockDocumentos.uf_CFDI_Info=" +
                    clave);
        });
        if (rs) {
            ResumeNext([&] {
                for (; !rs->Eof(); rs->movenext()) {
                    const std::string pk = mdlMain::TextoCampo(*rs, "Sys_PK");
                    const int item = lvwBlockCFDI.Add("pk" + pk, mdlMain::TextoCampo(*rs, "Descripcion"));
                    lvwBlockCFDI.ItemTag(item, pk);
                    lvwBlockCFDI.SubItem(item, 1, mdlMain::TextoCampo(*rs, "Serie"));
                }
            });
            ResumeNext([&] { lvwBlockCFDI.SelectedItem(0); });
        }
    }
    if (!rs) return;
    ResumeNext([&] { rs->Close(); });
}

void PaginaGeneral::superponerPaneles() {
    ResumeNext([&] { picBlockCFDI.Superponer(picFoliosCFD); });
}

void PaginaGeneral::mostrarPanel(bool folios) {
    ResumeNext([&] { picFoliosCFD.Visible(folios); });
    ResumeNext([&] { picBlockCFDI.Visible(!folios); });
}

bool PaginaGeneral::validarCertificados(bool pideFolios, bool pideBlocks) {
    if (lstCer.ListCount() == 0) {
        core::Caja("Para continuar debe agregar un certificado de sellos digitales.", Icono::Informacion);
        btnAddCer_Click();
        return false;
    }
    if (pideFolios && lvwFolio.Count() == 0) {
        core::Caja("Por favor ingrese el rango de folios fiscales.", Icono::Informacion);
        btnAddF_Click();
        return false;
    }
    if (pideBlocks && lvwBlockCFDI.Count() == 0) {
        core::Caja("Por favor asigne un block de documentos para el certificado selecionado", Icono::Informacion);
        return false;
    }
    return true;
}

void PaginaGeneral::sinSeleccion() { core::Caja("Seleccione un elemento de la lista.", Icono::Informacion); }

void PaginaGeneral::btnAddCer_Click() {
    ResumeNext([&] {
        if (Fachada().AgregarCertificado() > 0) cargarCertificados();
    });
}

void PaginaGeneral::btnEditCer_Click() {
    if (lstCer.ListIndex() < 0) return sinSeleccion();
    ResumeNext([&] {
        if (Fachada().ModificarCertificado(lstCer.ItemData(lstCer.ListIndex()))) cargarCertificados();
    });
}

void PaginaGeneral::btnDelCer_Click() {
    if (lstCer.ListIndex() < 0) return sinSeleccion();
    ResumeNext([&] {
        if (Fachada().EliminarCertificado(lstCer.ItemData(lstCer.ListIndex()), true)) cargarCertificados();
    });
}

// The range editor asks for its certificate itself.
void PaginaGeneral::btnAddF_Click() {
    ResumeNext([&] {
        if (Fachada().AgregarAprobacionFolios() > 0) cargarFoliosYBlocks();
    });
}

void PaginaGeneral::btnEditF_Click() {
    if (lvwFolio.SelectedItem() < 0) return sinSeleccion();
    ResumeNext([&] {
        if (Fachada().ModificarAprobacionFolios(CLng(Variant(lvwFolio.Item(lvwFolio.SelectedItem()).tag)))) {
            cargarFoliosYBlocks();
        }
    });
}

void PaginaGeneral::btnDelF_Click() {
    if (lvwFolio.SelectedItem() < 0) return sinSeleccion();
    ResumeNext([&] {
        if (Fachada().EliminarAprobacionFolios(CLng(Variant(lvwFolio.Item(lvwFolio.SelectedItem()).tag)), true)) {
            cargarFoliosYBlocks();
        }
    });
}

// The lists are reloaded whether the blocks were saved or not.
void PaginaGeneral::btnEditarBlockCFDI_Click() {
    if (lstCer.ListIndex() < 0) {
        core::Caja("Seleccione un certificado", Icono::Informacion, "Configuración");
        return;
    }
    ResumeNext([&] {
        frmBlockXCer forma;
        forma.setObjects(Fachada());
        std::int32_t clave = lstCer.ItemData(lstCer.ListIndex());
        std::string certificado = lstCer.List(lstCer.ListIndex());
        forma.setCer(clave, certificado);
        forma.ShowModal();
        forma.Unload();
    });
    cargarFoliosYBlocks();
}

}  // namespace celdora::configuracion

#include "certificates/frmBlockXCer.h"

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "host/Dorvex.h"
#include "host/Platform.h"
#include "value/Channels.h"
#include "value/Convert.h"

namespace celdora {

frmBlockXCer::frmBlockXCer() : Dialogo("frmBlockXCer", "Asignación de Blocks de documentos") {
    lvw.Checkboxes(true);
    lvw.AgregarColumna("Blocks");
    btnGuardar.Default(true);
    btnCerrar.Cancel(true);
    // Saving closes the form without a closing message.
    btnGuardar.Click = [this] {
        if (GuardarBlocks()) Unload();
    };
    btnCerrar.Click = [this] { Unload(); };
}

void frmBlockXCer::setObjects(cAcction& acction) { acc_ = &acction; }

void frmBlockXCer::Form_Unload() { acc_ = nullptr; }

cAcction& frmBlockXCer::Fachada() const {
    if (acc_ == nullptr) throw ObjectNotSet();
    return *acc_;
}

// A block given to another certificate, to a folio range or to a CBB range
// doesn't appear.
void frmBlockXCer::setCer(std::int32_t& clave, std::string& noCertificado) {
    auto fault = Trap([&] {
        clave_ = clave;
        lblCertificado.Caption(noCertificado);
        auto recordset = host::Crear<host::Recordset>(host::progid::Recordset);
        Deref(recordset).activeconnection(Fachada().ADOCnn);
        recordset->CursorLocation(host::adUseClient);
        std::string fuente =
            "SELECT BlockDocumentos.Sys_PK,BlockDocumentos.Serie,cDocumentos.Const AS "
            "Descripcion,BlockDocumentos.uf_CFDI_Info FROM ut_FoliosCBB RIGHT JOIN (BlockDocumentos INNER JOIN "
            "cDocumentos ON BlockDocumentos.Documento=cDocumentos.ID) ON "
            "ut_FoliosCBB.uf_BlockDoc=BlockDocumentos.Sys_PK WHERE (BlockDocumentos.Documento=4 OR "
            "BlockDocumentos.Documento=5 OR BlockDocumentos.Documento=17) ";
        fuente += " AND (BlockDocumentos.uf_CFDI_Info=" + std::to_string(clave_);
        switch (Fachada().databasetype(Fachada().ADOCnn)) {
            case 1:
            case 2:
                fuente +=
                    " OR ISNULL(BlockDocumentos.uf_CFDI_Info) OR BlockDocumentos.uf_CFDI_Info=0) AND "
                    "(ISNULL(BlockDocumentos.uf_CFDFolio) OR BlockDocumentos.uf_CFDFolio=0) AND "
                    "(ISNULL(ut_FoliosCBB.uf_BlockDoc) OR ut_FoliosCBB.uf_BlockDoc=0)";
                break;
            case 3:
                fuente +=
                    " OR ISNULL(BlockDocumentos.uf_CFDI_Info,0)=0) AND ISNULL(BlockDocumentos.uf_CFDFolio,0)=0 AND "
                    "ISNULL(ut_FoliosCBB.uf_BlockDoc,0)=0";
                break;
            default: break;
        }
        recordset->Source(fuente);
        recordset->Open();
        if (recordset->State() != host::adStateOpen) return;
        for (; !recordset->Eof(); recordset->movenext()) {
            const std::string pk = mdlMain::TextoCampo(*recordset, "Sys_PK");
            const int item = lvw.Add("pk" + pk, mdlMain::TextoCampo(*recordset, "Descripcion") + " Serie: " +
                                                    mdlMain::TextoCampo(*recordset, "Serie"));
            lvw.ItemTag(item, pk);
            const Variant certificado = recordset->Fields("uf_CFDI_Info").Value();
            lvw.Checked(item, !certificado.IsNull() && CDbl(certificado) > 0);
        }
        recordset->Close();
    });
    if (fault) core::CajaDeFalla(*fault);
}

bool frmBlockXCer::GuardarBlocks() {
    auto fault = Trap([&] {
        const auto cnn = Deref(Fachada().DataObjects).ADOCnn();
        for (int i = 0; i < lvw.Count(); ++i) {
            const std::string valor = lvw.Item(i).checked ? std::to_string(clave_) : "NULL";
            Deref(cnn).Execute("UPDATE BlockDocumentos SET uf_CFDI_Info=" + valor + " WHERE Sys_PK=" +
                               lvw.Item(i).tag);
        }
    });
    if (fault) {
        core::CajaDeFalla(*fault);
        return false;
    }
    return true;
}

}  // namespace celdora

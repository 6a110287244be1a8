#include "certificates/dlgRangoFolios.h"

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "host/Dorvex.h"
#include "host/Platform.h"
#include "value/Channels.h"
#include "value/Convert.h"
#include "value/Text.h"

namespace celdora {

namespace {

using host::Icono;

std::int32_t Entero(const forms::NumberField& campo) { return CLng(Variant(campo.Value())); }

std::string Numero(const forms::NumberField& campo) { return std::to_string(Entero(campo)); }

std::string TextoDeBlock(std::int32_t documento) {
    switch (documento) {
        case 4: return "Factura -";
        case 5: return "Nota de crédito -";
        case 17: return "Nota de cargo -";
        default: return "";
    }
}

// Selects the first item whose item data is `dato`, if any.
void SeleccionarPorDato(forms::ComboBox& lista, std::int32_t dato) {
    for (int i = 0; i < lista.ListCount(); ++i) {
        if (lista.ItemData(i) == dato) {
            lista.ListIndex(i);
            return;
        }
    }
}

}  // namespace

dlgRangoFolios::dlgRangoFolios() : Dialogo("dlgRangoFolios", "Rango de folios") {
    for (forms::Control* control : std::vector<forms::Control*>{&txtSerie, &eNumFInicial, &eNumFFinal,
                                                                &eNumNoAprobacion, &eNumAnioAprobacion,
                                                                &cmbCertificado, &cmbBlock, &btnBlock}) {
        control->Colocar(tab.Nombre(), 0);
    }
    btnOK.Default(true);
    btnCancel.Cancel(true);

    // Only capital letters and Ñ make a series: small letters become
    // capitals, and digits and punctuation are thrown away.
    txtSerie.KeyPress = [](int& keyAscii) {
        if (keyAscii == 8) return;
        if (keyAscii == 241) keyAscii = 209;
        if (keyAscii >= 97 && keyAscii <= 122) keyAscii -= 32;
        if (!((keyAscii >= 65 && keyAscii <= 90) || keyAscii == 209)) keyAscii = 0;
    };
    // Pasted text passes no key filter: it is put in capitals here.
    txtSerie.Change = [this] {
        const std::string mayusculas = UCase(txtSerie.Text());
        if (txtSerie.Text() != mayusculas) txtSerie.Text(mayusculas);
    };
    btnBlock.Click = [this] { btnBlock_Click(); };
    btnOK.Click = [this] { btnOK_Click(); };
    btnCancel.Click = [this] { btnCancel_Click(); };
}

void dlgRangoFolios::Form_Load() {
    for (forms::NumberField* campo :
         std::vector<forms::NumberField*>{&eNumFInicial, &eNumFFinal, &eNumNoAprobacion, &eNumAnioAprobacion}) {
        campo->ButtonVisible(false);
    }
}

void dlgRangoFolios::Form_Unload() { acc_ = nullptr; }

cAcction& dlgRangoFolios::Fachada() const {
    if (acc_ == nullptr) throw ObjectNotSet();
    return *acc_;
}

void dlgRangoFolios::setObjects(cAcction& acction) {
    acc_ = &acction;
    blockOriginal_ = 0;
    CargarCertificados();
    CargarBlocks(clave_, false);
}

void dlgRangoFolios::CargarCertificados() {
    auto recordset = mdlMain::AbrirConsulta(
        Fachada().ADOCnn,
        "SELECT Sys_PK, uf_noCertificado AS NumCertificado FROM ut_CFDInfo ORDER BY uf_noCertificado");
    if (!recordset) return;
    cmbCertificado.Clear();
    for (; !recordset->Eof(); recordset->movenext()) {
        cmbCertificado.AddItem(mdlMain::TextoCampo(*recordset, "NumCertificado"));
        cmbCertificado.ItemData(cmbCertificado.ListCount() - 1, CLng(recordset->Fields("Sys_PK").Value()));
    }
    recordset->Close();
}

void dlgRangoFolios::AgregarCertificado() {
    if (Fachada().AgregarCertificado() > 0) CargarCertificados();
}

void dlgRangoFolios::ModificarCertificado() {
    if (cmbCertificado.ListIndex() < 0) {
        core::Caja("Seleccione un elemento.", Icono::Informacion);
        return;
    }
    if (Fachada().ModificarCertificado(cmbCertificado.ItemData(cmbCertificado.ListIndex()))) CargarCertificados();
}

// A block of a certificate for stamping or of a CBB range never appears,
// not even with `todos`.
void dlgRangoFolios::CargarBlocks(std::int32_t rango, bool todos) {
    cmbBlock.Clear();
    std::string condicion;
    switch (Fachada().databasetype(Fachada().ADOCnn)) {
        case 1:
        case 2:
            condicion =
                " AND (ISNULL(BlockDocumentos.uf_CFDI_Info) OR BlockDocumentos.uf_CFDI_Info=0) AND "
                "(ISNULL(ut_FoliosCBB.uf_BlockDoc) OR ut_FoliosCBB.uf_BlockDoc=0)";
            break;
        case 3:
            condicion = " AND ISNULL(BlockDocumentos.uf_CFDI_Info,0)=0 AND ISNULL(ut_FoliosCBB.uf_BlockDoc,0)=0";
            break;
        default: break;
    }
    auto recordset = mdlMain::AbrirConsulta(
        Fachada().ADOCnn,
        "SELECT BlockDocumentos.Sys_PK,BlockDocumentos.Documento,BlockDocumentos.Serie AS "
        "Serie,BlockDocumentos.uf_CFDFolio FROM ut_FoliosCBB RIGHT JOIN BlockDocumentos ON "
        "ut_FoliosCBB.uf_BlockDoc=BlockDocumentos.Sys_PK WHERE (BlockDocumentos.Documento=4 OR "
        "BlockDocumentos.Documento=5 OR BlockDocumentos.Documento=17) " +
            condicion);
    if (!recordset) return;
    for (; !recordset->Eof(); recordset->movenext()) {
        const auto folio = static_cast<std::int32_t>(mdlMain::NumeroCampo(*recordset, "uf_cfdfolio"));
        if (folio <= 0 || folio == rango || todos) {
            const auto documento = static_cast<std::int32_t>(mdlMain::NumeroCampo(*recordset, "Documento"));
            cmbBlock.AddItem(TextoDeBlock(documento) + mdlMain::TextoCampo(*recordset, "Serie"));
            cmbBlock.ItemData(cmbBlock.ListCount() - 1, CLng(recordset->Fields("Sys_PK").Value()));
        }
    }
    recordset->Close();
}

void dlgRangoFolios::btnBlock_Click() {
    CargarBlocks(clave_, true);
    if (cmbBlock.ListCount() > 0) {
        cmbBlock.ListIndex(0);
    } else {
        core::Caja("Ningún block existente.", Icono::Informacion);
    }
}

void dlgRangoFolios::load(std::int32_t& clave) {
    if (clave < 1) {
        core::Caja("Clave incorrecta.", Icono::Exclamacion);
        return;
    }
    auto recordset = mdlMain::AbrirConsulta(
        Fachada().ADOCnn,
        "SELECT ut_CFDfolio.*,BlockDocumentos.Sys_PK AS PKBLock FROM ut_CFDfolio LEFT JOIN BlockDocumentos ON "
        "ut_CFDfolio.Sys_PK=BlockDocumentos.uf_CFDFolio WHERE ut_CFDFolio.Sys_PK=" +
            std::to_string(clave));
    if (!recordset) return;
    if (recordset->Eof()) {
        recordset->Close();
        return;
    }
    txtSerie.Text(mdlMain::TextoCampo(*recordset, "uf_Serie"));
    eNumFInicial.Value(mdlMain::NumeroCampo(*recordset, "uf_FolioInicial"));
    eNumFFinal.Value(mdlMain::NumeroCampo(*recordset, "uf_FolioFinal"));
    eNumNoAprobacion.Value(mdlMain::NumeroCampo(*recordset, "uf_noAprobacion"));
    eNumAnioAprobacion.Value(mdlMain::NumeroCampo(*recordset, "uf_anoAprobacion"));
    SeleccionarPorDato(cmbCertificado, static_cast<std::int32_t>(mdlMain::NumeroCampo(*recordset, "uf_CFDInfo")));
    blockOriginal_ = static_cast<std::int32_t>(mdlMain::NumeroCampo(*recordset, "PKBLock"));
    clave_ = clave;
    CargarBlocks(clave_, false);
    SeleccionarPorDato(cmbBlock, blockOriginal_);

    // A range in use is shown but can't be changed: only Cancel stays live.
    const bool editable = Fachada().PosibleModificarAprobacionFolios(clave_);
    for (forms::Control* control :
         std::vector<forms::Control*>{&txtSerie, &eNumFFinal, &eNumFInicial, &eNumNoAprobacion, &eNumAnioAprobacion,
                                      &cmbCertificado, &cmbBlock, &btnBlock, &btnOK}) {
        control->Enabled(editable);
    }
    recordset->Close();
}

// The last folio may be below the first, and ranges may overlap: neither is
// checked. An empty series passes the check against any block.
bool dlgRangoFolios::Validar() {
    const auto falla = [](const std::string& mensaje, forms::Control& foco) {
        core::Caja(mensaje, Icono::Informacion);
        foco.SetFocus();
        return false;
    };
    const std::string serie = Trim(txtSerie.Text());
    if (Len(serie) > 10) return falla("No de serie incorrecto. Máximo 10 caracteres.", txtSerie);
    if (eNumFInicial.Value() < 1) return falla("Folio inicial incorrecto.", eNumFInicial);
    if (eNumFFinal.Value() < 1) return falla("Folio final incorrecto.", eNumFFinal);
    if (eNumNoAprobacion.Value() < 1) return falla("Número de aprobación incorrecto.", eNumNoAprobacion);
    if (eNumAnioAprobacion.Value() < 1) return falla("Año de aprobación incorrecto.", eNumAnioAprobacion);
    if (Len(Numero(eNumAnioAprobacion)) != 4)
        return falla("Año de aprobación incorrecto. El formato debe ser de 4 digitos", eNumAnioAprobacion);
    if (cmbCertificado.ListIndex() < 0)
        return falla("Seleccione un certificado para sello digital", cmbCertificado);
    if (cmbBlock.ListIndex() < 0)
        return falla("Seleccione un block de documentos (Factura o Nota de Crédito)", cmbBlock);
    // The block's series is the piece after the text's first dash.
    const auto piezas = Split(cmbBlock.Text(), "-");
    const std::string serieDelBlock = piezas.size() > 1 ? piezas[1] : "";
    if (!serie.empty() && serie != serieDelBlock) {
        return falla(
            "La serie del rango de folios fiscales debe de conicidir con la serie asignada al block de documentos "
            "del sistema.",
            txtSerie);
    }
    return PreguntarPorBlock();
}

// A block that belongs to another range may be taken over, once the user
// agrees; the range it leaves is remembered for the save.
bool dlgRangoFolios::PreguntarPorBlock() {
    const std::int32_t block = cmbBlock.ItemData(cmbBlock.ListIndex());
    const std::int32_t rango = CLng(mdlMain::LeerValorConsulta(
        Fachada().ADOCnn, "SELECT uf_CFDFolio FROM BlockDocumentos WHERE Sys_PK=" + std::to_string(block), ""));
    if (rango <= 0) return true;
    if (clave_ > 0 && clave_ == rango) return true;
    if (!core::Pregunta("El block seleccionado pertenece a otro rango de folios fiscales. Si asigna el mismo block "
                        "el rango anterior ya no se usara para genearación de folios ¿Esta seguro que desea "
                        "continuar?")) {
        cmbBlock.SetFocus();
        return false;
    }
    rangoAnterior_ = rango;
    return true;
}

void dlgRangoFolios::btnOK_Click() {
    if (!Validar()) return;
    if (!Guardar()) return;
    Aceptado = true;
    Hide();
}

void dlgRangoFolios::btnCancel_Click() {
    Aceptado = false;
    Hide();
}

// One transaction: the range, then the move of the block. A refused insert
// returns at once and leaves the transaction open, as it always has.
bool dlgRangoFolios::Guardar() {
    bool result = false;
    auto fault = Trap([&] {
        auto& datos = Deref(Fachada().DataObjects);
        const auto cnn = datos.ADOCnn();
        const std::int32_t blockNuevo = cmbBlock.ItemData(cmbBlock.ListIndex());
        const std::int32_t certificado = cmbCertificado.ItemData(cmbCertificado.ListIndex());
        datos.IniciarTransaccion();
        if (clave_ < 1) {
            auto registro = host::Crear<host::cRegistro>(host::progid::cRegistro);
            Deref(registro).Conexion(cnn);
            registro->Tabla("ut_CFDFolio");
            registro->Nuevo();
            auto& campos = registro->Campos();
            campos.Add(mdlMain::NuevoCampo("uf_Serie", "String", Trim(txtSerie.Text()), 10, false), "uf_Serie");
            const auto largo = [&](const char* nombre, std::int32_t valor) {
                campos.Add(mdlMain::NuevoCampo(nombre, "Long", Variant::Long(valor), 0, false), nombre);
            };
            largo("uf_FolioInicial", Entero(eNumFInicial));
            largo("uf_FolioFinal", Entero(eNumFFinal));
            largo("uf_noAprobacion", Entero(eNumNoAprobacion));
            largo("uf_anoAprobacion", Entero(eNumAnioAprobacion));
            largo("uf_CFDInfo", certificado);
            if (!registro->Guardar()) {
                core::Caja("Error al guardar rango de folios. " + registro->UltimoError(), Icono::Exclamacion);
                return;
            }
            clave_ = registro->Clave();
        } else {
            Deref(cnn).Execute("UPDATE ut_CFDFolio SET uf_Serie='" + Trim(txtSerie.Text()) +
                               "',uf_FolioInicial=" + Numero(eNumFInicial) + ",uf_FolioFinal=" + Numero(eNumFFinal) +
                               ",uf_noAprobacion=" + Numero(eNumNoAprobacion) +
                               ",uf_anoAprobacion=" + Numero(eNumAnioAprobacion) +
                               ", uf_CFDinfo=" + std::to_string(certificado) + " WHERE Sys_PK=" +
                               std::to_string(clave_));
        }
        const std::string clave = std::to_string(clave_);
        if (blockOriginal_ != blockNuevo) {
            Deref(cnn).Execute("UPDATE BlockDocumentos SET Fiscal=1,uf_CFDFolio=" + clave +
                               " WHERE Sys_PK=" + std::to_string(blockNuevo));
            if (blockOriginal_ != 0) {
                Deref(cnn).Execute("UPDATE BlockDocumentos SET uf_CFDFolio=NULL,Fiscal=0 WHERE Sys_PK=" +
                                   std::to_string(blockOriginal_));
            }
            if (rangoAnterior_ > 0) {
                Deref(cnn).Execute("UPDATE ut_CFDFolio SET uf_CFDFolioAnterior=" + std::to_string(rangoAnterior_) +
                                   " WHERE Sys_PK=" + clave);
            }
        }
        datos.ConfirmarTransaccion(0);
        result = true;
    });
    if (fault) {
        ResumeNext([&] { Deref(Fachada().DataObjects).RevertirTransaccion(0); });
        core::Caja(NumberAndDescription(*fault), Icono::Exclamacion);
        result = false;
    }
    return result;
}

}  // namespace celdora

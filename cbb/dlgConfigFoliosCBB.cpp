#include "cbb/dlgConfigFoliosCBB.h"

#include <memory>
#include <vector>

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "host/Dorvex.h"
#include "host/Platform.h"
#include "value/Channels.h"
#include "value/Convert.h"
#include "value/Format.h"
#include "value/Text.h"

namespace celdora {

namespace {

using host::Icono;

const char* const kTitulo = "Folios CBB";
const char* const kLetrasDeSerie = "ABCDEFGHIJKLMNÑOPQRSTUVWXYZ";

// A number field's value as the bare decimal text the statements carry.
std::string Numero(const forms::NumberField& campo) { return CStr(Variant(campo.Value())); }

template <class T>
std::shared_ptr<T> CrearConUtilerias(const char* progId) {
    return std::dynamic_pointer_cast<T>(mdlMain::Utilerias().CrearObjeto(progId, ""));
}

}  // namespace

dlgConfigFoliosCBB::dlgConfigFoliosCBB() : Dialogo("dlgConfigFoliosCBB", "Rango de Folios CBB") {
    eNumFInicial.Decimals(0);
    eNumFFinal.Decimals(0);
    btnOK.Default(true);
    btnCancel.Cancel(true);
    etxtSerie.KeyPress = [this](int& keyAscii) { etxtSerie_KeyPress(keyAscii); };
    txtCBB.Click = [this] { txtCBB_Click(); };
    btnQuitarIMG.Click = [this] { btnQuitarIMG_Click(); };
    btnOK.Click = [this] { btnOK_Click(); };
    btnCancel.Click = [this] { btnCancel_Click(); };
}

void dlgConfigFoliosCBB::SetDataObjects(cAcction& acc) {
    oAcc_ = &acc;
    cnn_ = acc.ADOCnn;
    actualizarEsquema();
}

void dlgConfigFoliosCBB::Form_Unload() {
    oAcc_ = nullptr;
    cnn_.reset();
}

cAcction& dlgConfigFoliosCBB::Fachada() const {
    if (oAcc_ == nullptr) throw ObjectNotSet();
    return *oAcc_;
}

// The approval date came after the first rows; one of the two forms is the
// one the connected server takes, and once the column exists both fail.
void dlgConfigFoliosCBB::actualizarEsquema() {
    ResumeNext([&] { Deref(cnn_).Execute("ALTER TABLE ut_FoliosCBB ADD COLUMN uf_FechaAprobacion DATETIME;"); });
    ResumeNext([&] { Deref(cnn_).Execute("ALTER TABLE ut_FoliosCBB ADD uf_FechaAprobacion DATETIME;"); });
}

void dlgConfigFoliosCBB::Form_Load() {
    ResumeNext([&] { eNumFInicial.ButtonVisible(false); });
    ResumeNext([&] { eNumFFinal.ButtonVisible(false); });
    ResumeNext([&] { eNumNAprobacion.ButtonVisible(false); });
    ResumeNext([&] { cargarBlocks(); });
}

// Blocks of invoices, credit notes and debit notes tied neither to a CFD
// folio range nor to a CFDI certificate.
void dlgConfigFoliosCBB::cargarBlocks() {
    auto fault = Trap([&] {
        cmbBlock.Clear();
        std::string filtro;
        switch (Fachada().databasetype(Deref(Fachada().DataObjects).ADOCnn())) {
            case 1:
            case 2:
                filtro =
                    " AND (ISNULL(uf_CFDFolio) OR uf_CFDFolio=0) AND (ISNULL(uf_CFDI_INFO) OR uf_CFDI_INFO=0)";
                break;
            case 3:
                filtro = " AND ISNULL(uf_CFDFolio,0)=0 AND ISNULL(uf_CFDI_INFO,0)=0";
                break;
            default:
                break;
        }
        auto recordset = mdlMain::AbrirConsulta(
            cnn_, "SELECT Sys_PK, Serie, Documento FROM BlockDocumentos WHERE (Documento=4 OR Documento=5 OR "
                  "Documento=17) " +
                      filtro);
        if (!recordset) return;
        for (; !recordset->Eof(); recordset->movenext()) {
            std::string prefijo;
            switch (CLng(recordset->Fields("Documento").Value())) {
                case 4: prefijo = "Factura -"; break;
                case 5: prefijo = "Nota de crédito -"; break;
                case 17: prefijo = "Nota de cargo -"; break;
                default: break;
            }
            cmbBlock.AddItem(prefijo + mdlMain::TextoCampo(*recordset, "Serie"));
            cmbBlock.ItemData(cmbBlock.ListCount() - 1, CLng(recordset->Fields("Sys_PK").Value()));
        }
        recordset->Close();
    });
    if (fault) core::Caja(ErrorTextColon(*fault), Icono::Exclamacion);
}

// Only letters reach the serie; the backspace goes too, so a user erases
// with the Delete key or by selecting.
void dlgConfigFoliosCBB::etxtSerie_KeyPress(int& keyAscii) {
    const std::string letra = UCase(CharFromKeyCode(keyAscii));
    keyAscii = KeyCodeFromChar(letra);
    if (letra.empty() || InStrText(1, kLetrasDeSerie, letra) == 0) keyAscii = 0;
}

void dlgConfigFoliosCBB::txtCBB_Click() {
    if (!txtCBB.Enabled()) return;
    seleccionarImagen();
    if (!txtCBB.Text().empty()) {
        pctCBB.Picture(host::CurrentPlatform().Ui().LoadPicture(txtCBB.Text()));
        txtCBB.Enabled(false);
        btnQuitarIMG.Enabled(true);
    }
}

// The path can't be typed: the field is unlocked only while the picker
// answers.
void dlgConfigFoliosCBB::seleccionarImagen() {
    ResumeNext([&] { txtCBB.Locked(false); });
    ResumeNext([&] {
        dlgArchivo.Filter = "Archivos de imágen CBB *.jpg|*.jpg|*.bmp|*.bmp|*.gif|*.gif|*.wmf|*.wmf|*.emf|*.emf";
    });
    ResumeNext([&] { dlgArchivo.FileName = ""; });
    ResumeNext([&] { dlgArchivo.ShowOpen(); });
    ResumeNext([&] {
        if (!dlgArchivo.FileName.empty()) txtCBB.Text(dlgArchivo.FileName);
    });
    ResumeNext([&] { txtCBB.Locked(true); });
}

// The stored image stays in the row until another one is saved over it; the
// path keeps its text, and the next save writes whatever file it names.
void dlgConfigFoliosCBB::btnQuitarIMG_Click() {
    ResumeNext([&] { txtCBB.Enabled(true); });
    ResumeNext([&] { pctCBB.Picture(nullptr); });
    ResumeNext([&] { btnQuitarIMG.Enabled(false); });
    ResumeNext([&] { imagenCambiada_ = true; });
}

void dlgConfigFoliosCBB::btnOK_Click() {
    if (!validarDatos()) return;
    if (!guardarDatos()) return;
    Aceptado = true;
    Hide();
}

void dlgConfigFoliosCBB::btnCancel_Click() {
    Aceptado = false;
    Hide();
}

// The second message repeats the first on purpose, and the overlap's title
// keeps its spelling.
bool dlgConfigFoliosCBB::validarDatos() {
    const auto falla = [](const std::string& mensaje, const std::string& titulo) {
        core::Caja(mensaje, Icono::Informacion, titulo);
        return false;
    };
    if (eNumFInicial.Value() == 0) return falla("Debe indicar Folio Inicial", kTitulo);
    if (eNumFFinal.Value() == 0) return falla("Debe indicar Folio Inicial", kTitulo);
    if (txtCBB.Enabled() && Trim(txtCBB.Text()).empty()) return falla("Debe inidcar la ruta del CBB", kTitulo);
    const std::int32_t inicial = CLng(Variant(eNumFInicial.Value()));
    const std::int32_t final = CLng(Variant(eNumFFinal.Value()));
    if (inicial > final) return falla("El Folio Inicial no puede ser mayor al Folio Final", kTitulo);
    if (inicial == final) return falla("El Folio Inicial no puede ser igual al Folio Final", kTitulo);
    if (eNumNAprobacion.Value() <= 0) return falla("Debe indicar el número de aprobación", kTitulo);
    if (cmbBlock.ListIndex() < 0) {
        cmbBlock.SetFocus();
        return falla("Seleccione un block de documentos ", "");
    }
    const std::string serie = Trim(etxtSerie.Text());
    const std::vector<std::string> piezas = Split(cmbBlock.Text(), "-");
    const std::string serieDelBlock = piezas.size() > 1 ? piezas[1] : "";
    if (!serie.empty() && UCase(serie) != UCase(Trim(serieDelBlock))) {
        return falla("La serie asignada debe coincidir con la serie del block.", "");
    }
    if (rangoDuplicado()) {
        return falla("El rango de folios introducido ya ha sido utilizado con anterioridad", "Folis CBB");
    }
    return true;
}

// Only rows of the same block count, and a stored range collides only when
// it holds the new initial or the new final folio: a new range that encloses
// a stored one passes. A query that fails lets the range pass.
bool dlgConfigFoliosCBB::rangoDuplicado() {
    bool result = false;
    auto fault = Trap([&] {
        const std::string sql =
            "SELECT Sys_PK FROM ut_FoliosCBB WHERE Sys_PK<>" + std::to_string(pkRango_) +
            " AND uf_BlockDoc=" + std::to_string(cmbBlock.ItemData(cmbBlock.ListIndex())) +
            " AND ((uf_FolioInicial<=" + Numero(eNumFInicial) + " AND uf_FolioFinal>=" + Numero(eNumFInicial) +
            ") OR (uf_FolioInicial<=" + Numero(eNumFFinal) + " AND uf_FolioFinal>=" + Numero(eNumFFinal) + "))";
        auto recordset = mdlMain::AbrirConsulta(cnn_, sql);
        if (recordset) {
            result = !(recordset->Eof() && recordset->Bof());
            recordset->Close();
        }
    });
    if (fault) {
        core::Caja(ErrorTextColon(*fault), Icono::Exclamacion);
        result = false;
    }
    return result;
}

// A new row is inserted with no transaction and the dialog counts as
// accepted even when the insertion failed (the user was told). An existing
// row is updated field by field in one transaction, the image inside it only
// when it was changed.
bool dlgConfigFoliosCBB::guardarDatos() {
    bool result = false;
    auto fault = Trap([&] {
        if (pkRango_ < 1) {
            insertarRango();
            result = true;
            return;
        }
        host::DataObjects& datos = Deref(Fachada().DataObjects);
        host::Connection& cnn = Deref(Fachada().ADOCnn);
        const std::string clave = std::to_string(pkRango_);
        datos.IniciarTransaccion();
        cnn.Execute("UPDATE ut_FoliosCBB SET uf_FolioInicial=" + Numero(eNumFInicial) + " WHERE Sys_PK=" + clave);
        cnn.Execute("UPDATE ut_FoliosCBB SET uf_FolioFinal=" + Numero(eNumFFinal) + " WHERE Sys_PK=" + clave);
        cnn.Execute("UPDATE ut_FoliosCBB SET uf_BlockDoc=" +
                    std::to_string(cmbBlock.ItemData(cmbBlock.ListIndex())) + " WHERE Sys_PK=" + clave);
        cnn.Execute("UPDATE ut_FoliosCBB SET uf_NumAprobacion=" + Numero(eNumNAprobacion) + " WHERE Sys_PK=" +
                    clave);
        // The serie goes in as typed: an apostrophe makes the statement fail.
        cnn.Execute("UPDATE ut_FoliosCBB SET uf_Serie='" + UCase(Trim(etxtSerie.Text())) + "' WHERE Sys_PK=" +
                    clave);
        cnn.Execute("UPDATE ut_FoliosCBB SET uf_FechaAprobacion='" +
                    Format(eDtFechaAprobacion.Value(), "yyyy-MM-dd HH:mm:ss") + "' WHERE Sys_PK=" + clave);
        if (!txtCBB.Text().empty() && imagenCambiada_) guardarImagen(pkRango_);
        datos.ConfirmarTransaccion(0);
        result = true;
    });
    if (fault) {
        ResumeNext([&] { Deref(Fachada().DataObjects).RevertirTransaccion(0); });
        core::Caja(ErrorTextColon(*fault), Icono::Exclamacion);
        result = false;
    }
    return result;
}

// The row writer gives the new key in the first of its fields; the image is
// written under it whatever imagenCambiada says.
bool dlgConfigFoliosCBB::insertarRango() {
    auto registro = host::Crear<host::cRegistro>(host::progid::cRegistro);
    Deref(registro).Conexion(Deref(Fachada().DataObjects).ADOCnn());
    registro->Tabla("ut_FoliosCBB");
    registro->Nuevo();
    // Each field starts from an empty text, the date from today; none is reserved.
    const Variant vacio("");
    host::ColeccionCampos& campos = registro->Campos();
    campos.Add(mdlMain::NuevoCampo("uf_Serie", "String", UCase(Trim(etxtSerie.Text())), 10, false, vacio, 0),
               "uf_Serie");
    campos.Add(mdlMain::NuevoCampo("uf_FolioInicial", "Long", eNumFInicial.Value(), 0, true, vacio, 0),
               "uf_FolioInicial");
    campos.Add(mdlMain::NuevoCampo("uf_FolioFinal", "Long", eNumFFinal.Value(), 0, true, vacio, 0), "uf_FolioFinal");
    campos.Add(mdlMain::NuevoCampo("uf_BlockDoc", "Integer", Variant::Long(cmbBlock.ItemData(cmbBlock.ListIndex())),
                                   0, true, vacio, 0),
               "uf_BlockDoc");
    campos.Add(mdlMain::NuevoCampo("uf_NumAprobacion", "Integer", eNumNAprobacion.Value(), 0, true, vacio, 0),
               "uf_NumAprobacion");
    campos.Add(mdlMain::NuevoCampo("uf_FechaAprobacion", "Date", eDtFechaAprobacion.Value(), 0, true,
                                   Variant(host::CurrentPlatform().Reloj().Now()), 0),
               "uf_FechaAprobacion");
    if (!registro->Guardar()) {
        core::Caja("Error al guardar rango de folios CBB. " + registro->UltimoError(), Icono::Exclamacion);
        return false;
    }
    guardarImagen(CLng(Deref(registro->Campos().Item(1)).Valor()));
    return true;
}

// The file's bytes go into the row as they lie on disk, whatever their
// format. A failure is told and the caller goes on.
void dlgConfigFoliosCBB::guardarImagen(std::int32_t pk) {
    auto fault = Trap([&] {
        auto recordset = CrearConUtilerias<host::Recordset>(host::progid::Recordset);
        auto stream = CrearConUtilerias<host::Stream>(host::progid::Stream);
        Deref(recordset).CursorLocation(host::adUseClient);
        recordset->Open("SELECT Sys_PK, uf_CBB FROM ut_FoliosCBB WHERE Sys_PK=" + std::to_string(pk), cnn_,
                        host::adOpenKeyset, host::adLockOptimistic);
        if (!(recordset->Eof() && recordset->Bof())) {
            Deref(stream).Type(host::adTypeBinary);
            stream->Open();
            if (stream->State() == host::adStateOpen) {
                stream->LoadFromFile(txtCBB.Text());
                recordset->Fields("uf_cbb").Value(stream->read());
                recordset->Update();
            }
        }
        recordset->Close();
    });
    if (fault) core::Caja(ErrorTextColonTight(*fault), Icono::Exclamacion);
}

// The image comes back through a file of a fixed name, whatever its format:
// the picture is told by its contents. A row without approval date (older
// than that column) stops at that field, and one without image at the
// stream, leaving the fields after them empty.
void dlgConfigFoliosCBB::load(std::int32_t pk) {
    Load();
    txtCBB.Locked(true);
    txtCBB.Enabled(false);
    pkRango_ = pk;
    if (pk < 1) {
        core::Caja("Clave incorrecta", Icono::Exclamacion);
        return;
    }
    auto recordset = mdlMain::AbrirConsulta(cnn_, "SELECT * FROM ut_FoliosCBB WHERE Sys_PK=" + std::to_string(pk));
    if (!recordset || (recordset->Eof() && recordset->Bof())) return;
    const Variant serie = recordset->Fields("uf_serie").Value();
    etxtSerie.Text(serie.IsNull() ? "" : CStr(serie));
    eNumFInicial.Value(CDbl(recordset->Fields("uf_FolioInicial").Value()));
    eNumFFinal.Value(CDbl(recordset->Fields("uf_FolioFinal").Value()));
    eDtFechaAprobacion.Value(CDate(recordset->Fields("uf_FechaAprobacion").Value()));

    host::cUtilerias& utilerias = mdlMain::Utilerias();
    const std::string temporal = utilerias.AgregarDiagonal(utilerias.RutaTemporal()) + "tmpimage.jpg";
    auto stream = CrearConUtilerias<host::Stream>(host::progid::Stream);
    Deref(stream).Type(host::adTypeBinary);
    stream->Open();
    if (stream->State() != host::adStateOpen) return;
    stream->Write(recordset->Fields("uf_CBB").Value());
    stream->SaveToFile(temporal, host::adSaveCreateOverWrite);
    stream->Close();

    eNumNAprobacion.Value(CDbl(recordset->Fields("uf_NumAprobacion").Value()));
    pctCBB.Picture(host::CurrentPlatform().Ui().LoadPicture(temporal));
    for (int i = 0; i < cmbBlock.ListCount(); ++i) {
        if (cmbBlock.ItemData(i) == CLng(recordset->Fields("uf_BlockDoc").Value())) cmbBlock.ListIndex(i);
    }
}

bool cAcction::AgregarFoliosCBB() {
    bool result = false;
    ResumeNext([&] {
        dlgConfigFoliosCBB dialogo;
        dialogo.SetDataObjects(*this);
        dialogo.Load();
        dialogo.btnQuitarIMG.Enabled(false);
        dialogo.ShowModal();
        result = dialogo.Aceptado;
        dialogo.Unload();
    });
    return result;
}

bool cAcction::ModificarFoliosCBB(std::int32_t pk) {
    bool result = false;
    ResumeNext([&] {
        if (pk < 1) {
            core::Caja("Clave incorrecta.", Icono::Exclamacion);
            return;
        }
        dlgConfigFoliosCBB dialogo;
        dialogo.SetDataObjects(*this);
        ResumeNext([&] { dialogo.load(pk); });
        dialogo.ShowModal();
        result = dialogo.Aceptado;
        dialogo.Unload();
    });
    return result;
}

}  // namespace celdora

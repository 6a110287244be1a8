#include "report/dlgExportarInforme.h"

#include <functional>
#include <memory>

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "host/Platform.h"
#include "report/Meses.h"
#include "report/SeleccionarCarpeta.h"
#include "value/Channels.h"
#include "value/Convert.h"
#include "value/Format.h"
#include "value/Text.h"

namespace celdora {

namespace {

using host::Icono;

constexpr const char* kFormatoImporte = "$ #,#.##";
// The list item's column that holds the report's month number.
constexpr int kColumnaMes = 3;

void Ui(const std::function<void(host::UiServices&)>& accion) {
    ResumeNext([&] { accion(host::CurrentPlatform().Ui()); });
}

}  // namespace

dlgExportarInforme::dlgExportarInforme() : Dialogo("dlgExportarInforme", "Informes mensuales generados") {
    for (forms::Control* control : std::initializer_list<forms::Control*>{
             &lblinforme, &cmbAnio, &lvw, &lblcontenido, &dxGrid, &eNumTotal, &eNumIVA}) {
        control->Colocar(tab.Nombre(), 0);
    }
    for (const char* columna : {"Nombre", "Mes", "Fecha de registro.", "contenido", "MesNumero"}) {
        lvw.AgregarColumna(columna);
    }
    for (forms::NumberField* campo : {&eNumTotal, &eNumIVA}) {
        campo->Locked(true);
        campo->Decimals(2);
        campo->Format(kFormatoImporte);
    }
    btnCerrar.Cancel(true);
    cmbAnio.Click = [this] { CargarInformes(); };
    lvw.ItemClick = [this](int indice) { lvw_ItemClick(indice); };
    btnRegenerar.Click = [this] { btnRegenerar_Click(); };
    btnEliminar.Click = [this] { btnEliminar_Click(); };
    btnExportar.Click = [this] { btnExportar_Click(); };
    btnCopiar.Click = [this] { btnCopiar_Click(); };
    btnCerrar.Click = [this] { btnCerrar_Click(); };
}

void dlgExportarInforme::Form_Load() {
    ResumeNext([&] { eNumIVA.ButtonVisible(false); });
    ResumeNext([&] { eNumTotal.ButtonVisible(false); });
}

void dlgExportarInforme::Form_Unload() { acc_ = nullptr; }

void dlgExportarInforme::setObjects(cAcction& acc) {
    acc_ = &acc;
    CargarAnios();
}

cAcction& dlgExportarInforme::Fachada() const {
    if (acc_ == nullptr) throw ObjectNotSet();
    return *acc_;
}

void dlgExportarInforme::CargarAnios() {
    for (int anio = informe::kPrimerAnio; anio <= informe::kUltimoAnio; ++anio) {
        ResumeNext([&] { cmbAnio.AddItem(std::to_string(anio)); });
    }
    // Selecting the year loads its reports, through the list's Click.
    ResumeNext([&] { cmbAnio.Text(std::to_string(Year(host::CurrentPlatform().Reloj().Now()))); });
}

std::string dlgExportarInforme::NombreMes(int numero) {
    if (numero < 1 || numero > static_cast<int>(informe::kMeses.size())) return {};
    return informe::kMeses[static_cast<std::size_t>(numero - 1)];
}

// A recordset that cannot be opened leaves the list empty, and says nothing.
void dlgExportarInforme::CargarInformes() {
    ResumeNext([&] { lvw.Clear(); });
    ResumeNext([&] { dxGrid.Clear(); });
    std::shared_ptr<host::Recordset> recordset;
    ResumeNext([&] {
        recordset = mdlMain::AbrirConsulta(Fachada().ADOCnn,
                                           "SELECT Sys_PK,uf_Nombre,uf_Mes,uf_Fecha FROM ut_CFDInforme WHERE uf_Anio=" +
                                               cmbAnio.Text() + " ORDER BY uf_Mes");
    });
    if (recordset) {
        EndOnError([&] {
            for (; !recordset->Eof(); recordset->movenext()) {
                int item = -1;
                ResumeNext([&] { item = lvw.Add("", mdlMain::TextoCampo(*recordset, "uf_Nombre")); });
                ResumeNext([&] { lvw.SubItem(item, 1, NombreMes(CLng(recordset->Fields("uf_Mes").Value()))); });
                ResumeNext([&] { lvw.SubItem(item, 2, Format(recordset->Fields("uf_Fecha").Value(), "dd/mm/yyyy")); });
                ResumeNext([&] { lvw.SubItem(item, kColumnaMes, mdlMain::TextoCampo(*recordset, "uf_Mes")); });
                ResumeNext([&] { lvw.SubItem(item, 4, ""); });
                ResumeNext([&] { lvw.ItemTag(item, mdlMain::TextoCampo(*recordset, "Sys_PK")); });
            }
        });
        ResumeNext([&] { recordset->Close(); });
    }
    if (lvw.Count() > 0) {
        ResumeNext([&] { lvw.SelectedItem(0); });
        lvw_ItemClick(0);
    }
}

void dlgExportarInforme::lvw_ItemClick(int indice) {
    std::string clave;
    ResumeNext([&] {
        lblcontenido.Caption("Contenido del informe " + lvw.Item(indice).text);
        clave = lvw.Item(indice).tag;
    });
    MostrarContenido(clave);
}

std::string dlgExportarInforme::ObtenerContenido(const std::string& clave) {
    return CStr(Fachada().ValorCampo("SELECT uf_Contenido FROM ut_CFDInforme WHERE Sys_PK=" + clave, "uf_Contenido"));
}

// The totals show only once every line has been read: a bad line leaves
// them at zero, with the lines before it in the grid.
void dlgExportarInforme::MostrarContenido(const std::string& clave) {
    Ui([](host::UiServices& ui) { ui.MousePointer(host::Puntero::Reloj); });
    ResumeNext([&] { eNumTotal.Value(0); });
    ResumeNext([&] { eNumIVA.Value(0); });
    std::string contenido;
    ResumeNext([&] { contenido = ObtenerContenido(clave); });
    const informe::LecturaInforme lectura = informe::LeerInforme(contenido, dxGrid);
    if (lectura.lineaIncorrecta) {
        ResumeNext([&] { core::Caja("Contenido incorrecto: " + *lectura.lineaIncorrecta, Icono::Exclamacion); });
    } else {
        ResumeNext([&] { eNumTotal.Value(lectura.total); });
        ResumeNext([&] { eNumIVA.Value(lectura.iva); });
    }
    Ui([](host::UiServices& ui) { ui.MousePointer(host::Puntero::Normal); });
}

std::string dlgExportarInforme::SeleccionarCarpeta() { return informe::SeleccionarCarpeta(); }

bool dlgExportarInforme::Permitido(const forms::CommandButton& boton) {
    if (Val(boton.Tag()) == 1) return true;
    ResumeNext([&] { core::Caja("Acceso denegado.", Icono::Critico, "Tiendaro"); });
    return false;
}

std::int16_t dlgExportarInforme::MesSeleccionado() const {
    std::int16_t mes = 0;
    ResumeNext([&] { mes = CInt(Variant(lvw.SubItem(lvw.SelectedItem(), kColumnaMes))); });
    return mes;
}

// The generation dialog takes this one's place while it runs, with the month
// and year locked.
void dlgExportarInforme::btnRegenerar_Click() {
    if (!Permitido(btnRegenerar)) return;
    if (lvw.SelectedItem() < 0) {
        ResumeNext([&] { core::Caja("Seleccione informe.", Icono::Informacion); });
        return;
    }
    std::int16_t mes = MesSeleccionado();
    std::int16_t anio = 0;
    ResumeNext([&] { anio = CInt(Variant(cmbAnio.Text())); });
    ResumeNext([&] { Hide(); });
    bool bloquear = true;
    bool generado = false;
    ResumeNext([&] { generado = Fachada().GenerarInformeMensual(mes, anio, bloquear); });
    if (generado) CargarInformes();
    ResumeNext([&] { ShowModal(); });
}

void dlgExportarInforme::btnEliminar_Click() {
    if (!Permitido(btnEliminar)) return;
    if (lvw.SelectedItem() < 0) {
        ResumeNext([&] { core::Caja("Selecione un elemento.", Icono::Informacion); });
        return;
    }
    std::int16_t mes = MesSeleccionado();
    std::int16_t anio = 0;
    ResumeNext([&] { anio = CInt(Variant(cmbAnio.Text())); });
    bool conTransaccion = true;
    bool preguntar = true;
    bool eliminado = false;
    ResumeNext([&] { eliminado = Fachada().EliminarInformeMensual(mes, anio, conTransaccion, preguntar); });
    if (eliminado) {
        CargarInformes();
        ResumeNext([&] { core::Caja("Informe eliminado correctamente.", Icono::Informacion); });
        return;
    }
    // An empty LastErrorDescript means the user answered No.
    ResumeNext([&] {
        if (!Fachada().LastErrorDescript.empty()) {
            core::Caja("Error al eliminar. " + Fachada().LastErrorDescript, Icono::Exclamacion);
        }
    });
}

// An existing file is replaced without a question.
void dlgExportarInforme::btnExportar_Click() {
    const int seleccionado = lvw.SelectedItem();
    if (seleccionado < 0) {
        ResumeNext([&] { core::Caja("Selecione un elemento.", Icono::Informacion); });
        return;
    }
    std::string carpeta;
    ResumeNext([&] { carpeta = SeleccionarCarpeta(); });
    if (carpeta.empty()) return;
    const forms::ItemVista& item = lvw.Item(seleccionado);
    std::string ruta;
    ResumeNext([&] { ruta = mdlMain::Utilerias().AgregarDiagonal(carpeta) + Trim(item.text) + ".txt"; });
    std::string contenido;
    ResumeNext([&] { contenido = ObtenerContenido(item.tag); });
    bool guardado = false;
    ResumeNext([&] { guardado = mdlMain::Utilerias().GuardarArchivoTexto(ruta, contenido); });
    ResumeNext([&] {
        if (guardado) {
            core::Caja("Archivo guardado correctamente.", Icono::Informacion);
        } else {
            core::Caja("Error al guardar archivo " + ruta, Icono::Exclamacion);
        }
    });
}

// An empty report is said to have no content, and still empties the clipboard.
void dlgExportarInforme::btnCopiar_Click() {
    const int seleccionado = lvw.SelectedItem();
    if (seleccionado < 0) {
        ResumeNext([&] { core::Caja("Seleccione un informe.", Icono::Informacion); });
        return;
    }
    std::string contenido;
    ResumeNext([&] { contenido = ObtenerContenido(lvw.Item(seleccionado).tag); });
    if (contenido.empty()) ResumeNext([&] { core::Caja("Sin contenido.", Icono::Informacion); });
    Ui([](host::UiServices& ui) { ui.ClipboardClear(); });
    Ui([&](host::UiServices& ui) { ui.ClipboardSetText(contenido); });
}

void dlgExportarInforme::btnCerrar_Click() { Unload(); }

void cAcction::VerInformesMensuales(bool& permitirRegenerar, bool& PermitirEliminar) {
    EndOnError([&] {
        dlgExportarInforme dialogo;
        dialogo.Load();
        dialogo.setObjects(*this);
        dialogo.btnRegenerar.Tag(permitirRegenerar ? "1" : "0");
        dialogo.btnEliminar.Tag(PermitirEliminar ? "1" : "0");
        dialogo.ShowModal();
        dialogo.Unload();
    });
}

}  // namespace celdora

#include "report/dlgInforme.h"

#include <memory>
#include <utility>

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "host/Dorvex.h"
#include "host/Platform.h"
#include "report/FormatoInforme.h"
#include "report/Meses.h"
#include "report/SeleccionarCarpeta.h"
#include "value/Channels.h"
#include "value/Convert.h"
#include "value/Format.h"
#include "value/Text.h"

namespace celdora {

namespace {

using host::Icono;

}  // namespace

dlgInforme::dlgInforme() : Dialogo("dlgInforme", "Informe mensual al SAT") {
    cmbmes.Colocar(tab.Nombre(), 0);
    cmbAnio.Colocar(tab.Nombre(), 0);
    btnOK.Default(true);
    btnCancelar.Cancel(true);
    btnOK.Click = [this] { btnOK_Click(); };
    btnCancelar.Click = [this] { btnCancelar_Click(); };
}

void dlgInforme::setObjects(cAcction& acc) { acc_ = &acc; }

void dlgInforme::Form_Unload() { acc_ = nullptr; }

cAcction& dlgInforme::Fachada() const {
    if (acc_ == nullptr) throw ObjectNotSet();
    return *acc_;
}

void dlgInforme::load(std::int16_t mes, std::int16_t anio) {
    ResumeNext([&] {
        const Date hoy = host::CurrentPlatform().Reloj().Now();
        if (mes < 0) mes = static_cast<std::int16_t>(Month(hoy));
        if (anio < 0) anio = static_cast<std::int16_t>(Year(hoy));
    });
    ResumeNext([&] { cmbmes.Clear(); });
    for (const char* nombre : informe::kMeses) ResumeNext([&] { cmbmes.AddItem(nombre); });
    ResumeNext([&] { cmbmes.ListIndex(mes - 1); });
    ResumeNext([&] { cmbAnio.Clear(); });
    for (int anioDeLista = informe::kPrimerAnio; anioDeLista <= informe::kUltimoAnio; ++anioDeLista) {
        ResumeNext([&] { cmbAnio.AddItem(std::to_string(anioDeLista)); });
    }
    ResumeNext([&] { cmbAnio.ListIndex(cmbAnio.Buscar(std::to_string(anio))); });
}

// A failed generation shows the dialog again so that the user may correct
// the choice; one that failed before hiding it simply leaves it up.
void dlgInforme::btnOK_Click() {
    if (Save()) {
        Aceptado = true;
        Hide();
        return;
    }
    if (!Visible()) ShowModal();
}

void dlgInforme::btnCancelar_Click() {
    Aceptado = false;
    Hide();
}

std::string dlgInforme::SeleccionarCarpeta() { return informe::SeleccionarCarpeta(); }

bool dlgInforme::PosibleGenerarEsteInforme(std::int16_t mes, std::int16_t anio, bool& existe) {
    existe = false;
    bool result = false;
    auto fault = Trap([&] {
        auto recordset = mdlMain::AbrirConsulta(Fachada().ADOCnn,
                                                "SELECT Sys_PK,uf_fecha,uf_Contenido FROM ut_CFDInforme WHERE uf_Mes=" +
                                                    std::to_string(mes) + " AND uf_Anio=" + std::to_string(anio));
        if (!recordset) return;
        if (recordset->Eof() && recordset->Bof()) {
            recordset->Close();
            result = true;
            return;
        }
        std::string pregunta = "Ya existe un informe del mes y año indicado generado el " +
                               Format(recordset->Fields("uf_fecha").Value(), "yyyy-mm-dd");
        if (!mdlMain::TextoCampo(*recordset, "uf_Contenido").empty()) {
            pregunta += ". ¿Desea volver a generarlo y sobreescribir el actual?";
        } else {
            pregunta +=
                ". El informe está vacío, ha sido guardado sin ningún contenido. ¿Desea volver a generarlo y "
                "sobreescribir el actual?";
        }
        recordset->Close();
        if (!core::Pregunta(pregunta)) return;
        existe = true;
        result = true;
    });
    if (fault) {
        core::Caja(ErrorText(*fault) + " PosibleGenerarEsteInforme", Icono::Exclamacion);
        result = false;
    }
    return result;
}

std::optional<std::string> dlgInforme::NombreDelInforme(std::int16_t mes, std::int16_t anio) {
    const std::string rfc = Trim(Deref(Fachada().GlobalVar).LeerTexto("NVCA101", ""));
    if (rfc.empty()) {
        core::Caja("Falta valor del campo RFC del emisor.", Icono::Exclamacion);
        return std::nullopt;
    }
    if (Len(rfc) < 12 || Len(rfc) > 13) {
        core::Caja("Longitud incorrecta del campo RFC del emisor. Revise la configuración de la aplicación.",
                   Icono::Exclamacion);
        return std::nullopt;
    }
    return informe::NombreInforme(rfc, mes, anio);
}

// The generation: the choices are checked, then everything happens in one
// transaction, and a failure on the way rolls back, closes the progress
// window and says why; the dialog, hidden by then, comes back.
bool dlgInforme::Save() {
    bool result = false;
    bool enTransaccion = false;
    auto fault = Trap([&] {
        const std::int16_t anio = CInt(Variant(cmbAnio.Text()));
        const std::int16_t mes = static_cast<std::int16_t>(cmbmes.ListIndex() + 1);
        bool existe = false;
        if (!PosibleGenerarEsteInforme(mes, anio, existe)) return;
        const std::string carpeta = SeleccionarCarpeta();
        if (carpeta.empty()) return;
        const std::optional<std::string> nombre = NombreDelInforme(mes, anio);
        if (!nombre) return;
        const std::string ruta = mdlMain::Utilerias().AgregarDiagonal(carpeta) + *nombre + ".txt";

        Deref(Fachada().DataObjects).IniciarTransaccion();
        enTransaccion = true;
        Hide();
        result = GenerarEnTransaccion(mes, anio, existe, *nombre, ruta);
    });
    if (fault) {
        if (enTransaccion) ResumeNext([&] { Deref(Fachada().DataObjects).RevertirTransaccion(0); });
        ResumeNext([&] { mdlMain::CerrarProgreso(false); });
        ResumeNext([&] { core::Caja(NumberAndDescriptionTight(*fault) + " Save()", Icono::Exclamacion); });
        result = false;
    }
    return result;
}

// Inside the transaction Save began: the former report goes, the month's
// unreported rows become the report, and the report is stored and written.
// The commit comes after the user has read the closing message.
bool dlgInforme::GenerarEnTransaccion(std::int16_t mes, std::int16_t anio, bool existe, const std::string& nombre,
                                      const std::string& ruta) {
    mdlMain::MostrarProgreso("Generando informe mensual.");
    if (existe) {
        mdlMain::AvanzarProgreso("Eliminando registro anterior...");
        std::int16_t mesAnterior = mes;
        std::int16_t anioAnterior = anio;
        bool conTransaccion = false;
        bool preguntar = false;
        if (!Fachada().EliminarInformeMensual(mesAnterior, anioAnterior, conTransaccion, preguntar)) {
            Abandonar("Error " + Fachada().LastErrorDescript);
            return false;
        }
    }
    auto recordset = mdlMain::AbrirConsulta(
        Fachada().ADOCnn,
        "SELECT ut_CFDBitacora.Sys_PK,ut_CFDBitacora.uf_Datos,ut_CFDFolio.uf_noAprobacion,"
        "ut_CFDFolio.uf_anoAprobacion FROM ut_CFDBitacora INNER JOIN (ut_CFD INNER JOIN ut_CFDFOlio ON "
        "ut_CFD.uf_CFDFolio=ut_CFDFOlio.Sys_PK) ON ut_CFDBitacora.uf_CFD=ut_CFD.Sys_PK WHERE ( NOT "
        "(ut_CFDBitacora.uf_Reportado<>0)) AND Year(ut_CFD.uf_FechaHora)=" +
            std::to_string(anio) + " AND Month(ut_CFD.uf_FechaHora)=" + std::to_string(mes),
        // The rows are walked once, and each one's UPDATE takes it out of
        // the query: they are read as the walk goes, not all held at once.
        host::adUseServer);
    if (!recordset) {
        Abandonar("Error al obtener información.");
        return false;
    }
    const bool vacio = recordset->Eof() && recordset->Bof();
    std::string contenido;
    if (!vacio && !RecorrerBitacora(*recordset, contenido)) return false;

    mdlMain::AvanzarProgreso("Guardando registro...");
    const Date ahora = host::CurrentPlatform().Reloj().Now();
    // The text moves into the row's field, which binds it as it stands, and
    // the file is written from there: one copy of a report that may be tens
    // of megabytes.
    auto campoContenido = mdlMain::NuevoCampo("uf_Contenido", "String", Variant(), 32000, false);
    campoContenido->Valor(Variant(std::move(contenido)));
    // The row and then the file, both tried: a file written beside a row that
    // could not be stored stays behind when the database rolls back.
    const bool guardado = GuardarInforme(campoContenido, nombre, mes, anio, ahora);
    const bool escrito = mdlMain::Utilerias().GuardarArchivoTexto(ruta, campoContenido->Valor().AsString());
    if (!guardado || !escrito) {
        Abandonar("Error al guardar archivo " + ruta);
        return false;
    }
    mdlMain::CerrarProgreso(true);
    if (vacio) {
        core::Caja("Archivo generado correctamente. No se encontró ningún comprobante emitido en el mes de " +
                       cmbmes.Text() + " y el año " + cmbAnio.Text(),
                   Icono::Informacion);
    } else {
        core::Caja("El archivo ha sido generado correctamente correspondiente al mes de " + cmbmes.Text() +
                       " y al año " + cmbAnio.Text(),
                   Icono::Informacion);
    }
    Deref(Fachada().DataObjects).ConfirmarTransaccion(0);
    recordset->Close();
    return true;
}

namespace {

// A key in the form "000000": a key of the tables is never negative, and its
// digits are simply filled to six; anything else goes to the formatter.
std::string ClaveConCeros(const Variant& clave) {
    if (clave.Type() != VarType::Long || clave.AsLong() < 0) return Format(clave, "000000");
    std::string digitos = std::to_string(clave.AsLong());
    if (digitos.size() < 6) digitos.insert(0, 6 - digitos.size(), '0');
    return digitos;
}

}  // namespace

bool dlgInforme::RecorrerBitacora(host::Recordset& recordset, std::string& contenido) {
    mdlMain::AvanzarProgreso("Obteniendo información...");
    host::Connection& conexion = Deref(Fachada().ADOCnn);
    std::string sentencia;
    for (; !recordset.Eof(); recordset.movenext()) {
        const Variant sysPk = recordset.Fields("Sys_PK").Value();
        const std::string clave = CStr(sysPk);
        mdlMain::AvanzarProgreso("Leyendo bitácora de registro de CFDs " + ClaveConCeros(sysPk));
        const std::string linea = informe::AgregarAlInforme(contenido, mdlMain::TextoCampo(recordset, "uf_Datos"),
                                                            CLng(recordset.Fields("uf_noAprobacion").Value()),
                                                            CLng(recordset.Fields("uf_anoAprobacion").Value()));
        if (linea.empty()) {
            Abandonar("Error al generar reporte. No se pudo actualizar el número de aprobación del registro " + clave +
                      " de la tabla ut_cfdbitacora.");
            return false;
        }
        // The line goes in as it stands: an apostrophe in a field makes the
        // statement fail, and the generation with it.
        sentencia.assign("UPDATE ut_CFDBitacora SET uf_Reportado=1,uf_Datos='");
        sentencia += linea;
        sentencia += "' WHERE Sys_PK=";
        sentencia += clave;
        conexion.Execute(sentencia);
    }
    return true;
}

void dlgInforme::Abandonar(const std::string& mensaje) {
    ResumeNext([&] { Deref(Fachada().DataObjects).RevertirTransaccion(0); });
    ResumeNext([&] { mdlMain::CerrarProgreso(false); });
    core::Caja(mensaje, Icono::Exclamacion);
}

bool dlgInforme::GuardarInforme(const std::shared_ptr<host::cCampo>& contenido, const std::string& nombre,
                                std::int16_t mes, std::int16_t anio, Date fecha) {
    auto registro = host::Crear<host::cRegistro>(host::progid::cRegistro);
    Deref(registro).Conexion(Fachada().ADOCnn);
    registro->Tabla("ut_CFDInforme");
    registro->Nuevo();
    registro->Campos().Add(mdlMain::NuevoCampo("uf_Nombre", "String", nombre, 50, true), "uf_Nombre");
    registro->Campos().Add(contenido, "uf_Contenido");
    registro->Campos().Add(mdlMain::NuevoCampo("uf_Mes", "Long", Variant::Long(mes), 0, true), "uf_Mes");
    registro->Campos().Add(mdlMain::NuevoCampo("uf_Anio", "Long", Variant::Long(anio), 0, true), "uf_Anio");
    registro->Campos().Add(mdlMain::NuevoCampo("uf_Fecha", "Date", fecha, 0, true), "uf_Fecha");
    if (!registro->Guardar()) {
        core::Caja("Error al guardar Informe. " + registro->UltimoError(), Icono::Exclamacion);
        return false;
    }
    return true;
}

bool cAcction::GenerarInformeMensual(std::int16_t& mes, std::int16_t& anio, bool& boBloquear) {
    bool result = false;
    EndOnError([&] {
        dlgInforme dialogo;
        dialogo.Load();
        dialogo.setObjects(*this);
        dialogo.load(mes, anio);
        if (boBloquear) {
            dialogo.cmbmes.Enabled(false);
            dialogo.cmbAnio.Enabled(false);
        }
        dialogo.ShowModal();
        result = dialogo.Aceptado;
        dialogo.Unload();
    });
    return result;
}

}  // namespace celdora

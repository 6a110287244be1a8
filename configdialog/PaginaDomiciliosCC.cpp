#include "configdialog/PaginaDomiciliosCC.h"

#include <cstdint>

#include "configdialog/ControlDomicilio.h"
#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "value/Channels.h"
#include "value/Convert.h"
#include "value/Text.h"

namespace celdora::configuracion {

using host::Icono;

PaginaDomiciliosCC::PaginaDomiciliosCC(forms::Dialogo& dialogo, Marco& marco, forms::TabControl& pestanasExpedicion,
                                       int paginaExpedicion)
    : Unidad(dialogo), marco_(marco), pestanasExpedicion_(pestanasExpedicion), paginaExpedicion_(paginaExpedicion) {
    chkUsarDomFisComoDomExp.Click = [this] { aplicarDomicilioExpedicion(); };
    cmbCC.Click = [this] { cargarDomicilioCC(); };
    btnSaveDomCC.Click = [this] { btnSaveDomCC_Click(); };
    chkDomicilioExpCXC.Click = [this] { chkDomicilioExpCXC_Click(); };
}

void PaginaDomiciliosCC::Colocar(const std::string& contenedor, int pagina) {
    lblDomicilioCC.Colocar(contenedor, pagina);
    cmbCC.Colocar(contenedor, pagina);
    eDirCC.Colocar(contenedor, pagina);
    btnSaveDomCC.Colocar(contenedor, pagina);
    chkDomicilioExpCXC.Colocar(contenedor, pagina);
}

std::string PaginaDomiciliosCC::CentroSeleccionado() const { return cmbCC.Text(); }

void PaginaDomiciliosCC::crearDomicilioCC() {
    ResumeNext([&] { objDomicilioCC = NuevoDomicilio(); });
    ResumeNext([&] { Deref(objDomicilioCC).Conexion(marco_.Fachada().ADOCnn); });
}

void PaginaDomiciliosCC::aplicarDomicilioExpedicion() {
    pestanasExpedicion_.PaginaHabilitada(paginaExpedicion_, chkUsarDomFisComoDomExp.Value() != 1);
}

void PaginaDomiciliosCC::cargarCentrosConsumo() {
    ResumeNext([&] { cmbCC.Clear(); });
    ResumeNext([&] { eDirCC.limpiar(); });
    ResumeNext([&] { eDirCC.direccionSeparada(true); });
    ResumeNext([&] { eDirCC.notes(""); });
    ResumeNext([&] {
        auto recordset =
            mdlMain::AbrirConsulta(marco_.Fachada().ADOCnn, "SELECT Sys_PK, Descripcion FROM CConsumo ORDER BY Descripcion");
        if (!recordset) return;
        for (; !recordset->Eof(); recordset->movenext()) {
            cmbCC.AddItem(mdlMain::TextoCampo(*recordset, "Descripcion"));
            cmbCC.ItemData(cmbCC.ListCount() - 1, CLng(recordset->Fields("Sys_PK").Value()));
        }
        recordset->Close();
    });
    // Selecting the first centre shows it, through the list's click.
    if (cmbCC.ListCount() > 0) {
        ResumeNext([&] { cmbCC.ListIndex(0); });
    } else {
        ResumeNext([&] { eDirCC.Enabled(false); });
    }
}

// A centre without an address keeps on the control, and in objDomicilioCC,
// what the centre shown before had: a save from there writes over that row
// and points this centre at it as well.
void PaginaDomiciliosCC::cargarDomicilioCC() {
    ResumeNext([&] { chkDomicilioExpCXC.Value(0); });
    if (cmbCC.ListIndex() < 0) return;
    const std::int32_t centro = cmbCC.ItemData(cmbCC.ListIndex());
    if (centro < 1) {
        core::Caja("Clave incorrecta en centro de consumo.", Icono::Exclamacion);
        return;
    }
    const std::string clave = std::to_string(centro);
    std::int32_t domicilio = 0;
    ResumeNext([&] {
        domicilio = CLng(mdlMain::LeerValorConsulta(
            marco_.Fachada().ADOCnn, "SELECT uf_DomicilioCFD FROM CCOnsumo WHERE Sys_PK=" + clave, "uf_DomicilioCFD"));
    });
    if (domicilio < 1) {
        ResumeNext([&] { eDirCC.titulo("Ingrese un domicilio para " + CentroSeleccionado()); });
        return;
    }
    bool cargado = false;
    ResumeNext([&] { cargado = Deref(objDomicilioCC).cargar(domicilio); });
    if (!cargado) {
        ResumeNext([&] {
            core::Caja("Error al cargar domicilio. " + Deref(objDomicilioCC).ultimoError(), Icono::Exclamacion);
        });
        return;
    }
    ResumeNext([&] { MostrarDomicilio(Deref(objDomicilioCC), eDirCC); });
    ResumeNext([&] { eDirCC.direccionSeparada(true); });
    ResumeNext([&] { eDirCC.titulo("Domicilio " + CentroSeleccionado()); });
    ResumeNext([&] {
        const Variant expedicion = mdlMain::LeerValorConsulta(
            marco_.Fachada().ADOCnn, "SELECT uf_ExpedicionCXC FROM CCOnsumo WHERE Sys_PK=" + clave, "uf_ExpedicionCXC");
        chkDomicilioExpCXC.Value(CDbl(expedicion) == 1 ? 1 : 0);
    });
}

// Saved at once; cancelling the dialog does not undo it. Neither the city
// nor the street name is looked at, and an empty postal code passes.
void PaginaDomiciliosCC::btnSaveDomCC_Click() {
    if (cmbCC.ListIndex() < 0) {
        core::Caja("Seleccione un centro de consumo.", Icono::Informacion);
        return;
    }
    const std::int32_t centro = cmbCC.ItemData(cmbCC.ListIndex());
    if (centro < 1) {
        core::Caja("Error al obtener clave de centro de consumo.", Icono::Exclamacion);
        return;
    }
    if (eDirCC.pais() < 1) {
        core::Caja("Falta país.", Icono::Informacion);
        return;
    }
    std::string pais;
    ResumeNext([&] {
        pais = CStr(mdlMain::LeerValorConsulta(
            marco_.Fachada().ADOCnn, "SELECT Nombre FROM Pais WHERE Sys_PK=" + std::to_string(eDirCC.pais()), "Nombre"));
    });
    if (LCase(pais) == "(desconocido)") {
        core::Caja("País incorrecto.", Icono::Informacion);
        return;
    }
    if (Left(eDirCC.address(), 2) != "||") {
        eDirCC.direccionSeparada(true);
        core::Caja("Dirección incorrecta debe separar nombre de calle, número exterior y número interior.",
                   Icono::Informacion);
        eDirCC.SetFocus();
        return;
    }
    const std::string codigoPostal = Trim(eDirCC.codep());
    if (!codigoPostal.empty() && Len(codigoPostal) != 5) {
        core::Caja("Código postal incorrecto. Debe contener 5 dígitos", Icono::Informacion);
        eDirCC.SetFocus();
        return;
    }
    if (!objDomicilioCC) crearDomicilioCC();
    LlenarDomicilio(eDirCC, objDomicilioCC, CodigoPostal::SinBlancos, Errores::SeIgnoran);
    bool guardado = false;
    ResumeNext([&] { guardado = Deref(objDomicilioCC).guardar(); });
    if (guardado) {
        ResumeNext([&] {
            Deref(marco_.Fachada().ADOCnn)
                .Execute("UPDATE CConsumo SET uf_DomicilioCFD=" + std::to_string(Deref(objDomicilioCC).Sys_PK()) +
                         " WHERE Sys_PK=" + std::to_string(centro));
        });
        core::Caja("Domicilio guardado correctamente.", Icono::Informacion);
    } else {
        ResumeNext([&] {
            core::Caja("Error al guardar domicilio de expedición del centro de consumo. " +
                           Deref(objDomicilioCC).ultimoError(),
                       Icono::Exclamacion);
        });
    }
}

// At most one centre gives the expedition address of receivables: all are
// cleared, then the selected one is marked. A refused click is undone with
// cargando raised, so that the undo asks nothing.
void PaginaDomiciliosCC::chkDomicilioExpCXC_Click() {
    if (marco_.cargando || cmbCC.ListIndex() < 0) return;
    const std::int32_t centro = cmbCC.ItemData(cmbCC.ListIndex());
    if (centro < 1) {
        core::Caja("Clave incorrecta en centro de consumo.", Icono::Exclamacion);
        return;
    }
    const bool marcado = chkDomicilioExpCXC.Value() == 1;
    if (marcado && !core::Pregunta("¿Está seguro que desea usar el domicilio del centro de consumo '" +
                                   CentroSeleccionado() + "' como domicilio de expedición en cuentas por cobrar?")) {
        marco_.cargando = true;
        chkDomicilioExpCXC.Value(0);
        marco_.cargando = false;
        return;
    }
    if (!marcado && !core::Pregunta("Se quitará este domicilio como domicilio de expedición para documentos en "
                                    "cuentas por cobrar. ¿Está seguro que desea continuar?")) {
        marco_.cargando = true;
        chkDomicilioExpCXC.Value(1);
        marco_.cargando = false;
        return;
    }
    ResumeNext([&] { Deref(marco_.Fachada().ADOCnn).Execute("UPDATE CConsumo SET uf_ExpedicionCXC=0"); });
    if (marcado) {
        ResumeNext([&] {
            Deref(marco_.Fachada().ADOCnn)
                .Execute("UPDATE CConsumo SET uf_ExpedicionCXC=1 WHERE Sys_PK=" + std::to_string(centro));
        });
    }
}

// A centre without an address has no city, and so fails the first rule.
// The name is compared here without the parentheses that the host's unknown
// city carries, so this rule and the fiscal address's match different rows.
bool PaginaDomiciliosCC::validarDomiciliosCC() {
    bool result = false;
    auto fault = Trap([&] {
        auto recordset = mdlMain::AbrirConsulta(
            marco_.Fachada().ADOCnn,
            "SELECT CConsumo.Descripcion AS CC, Domicilio.ICiudad, Domicilio.Direccion, Domicilio.CodPos,"
            "Ciudad.Nombre AS NombreCiudad FROM (CConsumo LEFT JOIN Domicilio ON "
            "CConsumo.uf_DomicilioCFD=Domicilio.Sys_PK) LEFT JOIN Ciudad ON Domicilio.ICiudad=Ciudad.Sys_PK ORDER BY "
            "CConsumo.Descripcion");
        if (!recordset) return;
        const auto rechazar = [&](const std::string& mensaje) {
            core::Caja(mensaje, Icono::Informacion);
            recordset->Close();
        };
        for (; !recordset->Eof(); recordset->movenext()) {
            const std::string centro = mdlMain::TextoCampo(*recordset, "CC");
            if (mdlMain::NumeroCampo(*recordset, "ICiudad") < 1) {
                return rechazar("No ha seleccionado una ciudad para el domicilio de expedición del centro de consumo '" +
                                centro + "'");
            }
            if (LCase(mdlMain::TextoCampo(*recordset, "NombreCiudad")) == "desconocido") {
                return rechazar("Ciudad incorrecta. Por favor seleccione una ciudad diferente a 'desconocido'.");
            }
            if (Left(mdlMain::TextoCampo(*recordset, "Direccion"), 2) != "||") {
                return rechazar(
                    "Dirección incorrecta. Debe separar nombre de calle, número exterior y número interior en "
                    "domicilio del centro de consumo '" +
                    centro + "'");
            }
        }
        recordset->Close();
        result = true;
    });
    if (fault) {
        core::Caja("Error al validar domicilio de expedición por centro de consumo. " + DescriptionAndNumber(*fault),
                   Icono::Exclamacion);
        result = false;
    }
    return result;
}

bool PaginaDomiciliosCC::suprimirDomiciliosCC() {
    auto fault = Trap([&] {
        if (chkUsarDomFisComoDomExp.Value() == 1) {
            Deref(marco_.Fachada().ADOCnn).Execute("UPDATE CConsumo SET uf_DomicilioCFD=NULL,uf_ExpedicionCXC=0");
        }
    });
    if (fault) {
        core::Caja("Error al suprimir domicilio de expedición para utilizar domicilio fiscal como domicilio de "
                   "expedición. " +
                       DescriptionAndNumber(*fault),
                   Icono::Exclamacion);
        return false;
    }
    return true;
}

bool PaginaDomiciliosCC::validarExpedicion() {
    if (chkUsarDomFisComoDomExp.Value() != 0 || validarDomiciliosCC()) return true;
    core::Caja("Por favor revise el domicilio de expedición en cada centro de consumo.", host::Icono::Informacion);
    return false;
}

}  // namespace celdora::configuracion

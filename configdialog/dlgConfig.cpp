#include "configdialog/dlgConfig.h"

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "host/Platform.h"
#include "settings/OpcionesAvanzadas.h"
#include "value/Channels.h"
#include "value/Convert.h"

namespace celdora {

namespace {

void Puntero(host::Puntero puntero) { host::CurrentPlatform().Ui().MousePointer(puntero); }

}  // namespace

dlgConfig::dlgConfig() : Dialogo("dlgConfig", "Configuración de comprobantes fiscales digitales.") {
    general.Colocar(TabControl.Nombre(), kGeneral);
    emisor.Colocar(TabControl.Nombre(), kEmisor);
    regimenes.Colocar(TabControl.Nombre(), kEmisor);
    expedicion.Colocar(TabControl.Nombre(), kExpedicion);
    // The switch between the fiscal and the expedition addresses stands with
    // the issuer, on the page that it can take out of use.
    expedicion.chkUsarDomFisComoDomExp.Colocar(TabControl.Nombre(), kEmisor);
    correo.Colocar(TabControl.Nombre(), kCorreo);
    adicionales.Colocar(TabControl.Nombre(), kAdicionales);
    permisos.Colocar(TabControl.Nombre(), kPermisos);
    marco.paginas = &TabControl;

    TabControl.Click = [this] { mostrarFoliosOBlocks(); };
    btnOK.Default(true);
    btnOK.Click = [this] { btnOK_Click(); };
    btnCancel.Cancel(true);
    btnCancel.Click = [this] { btnCancel_Click(); };
}

void dlgConfig::Form_Load() {
    ResumeNext([&] { adicionales.prepararCampos(marco.Fachada().TipoComprobanteAGenerar()); });
    ResumeNext([&] {
        correo.NumTimeout.ButtonVisible(false);
        correo.NumPort.ButtonVisible(false);
    });
}

void dlgConfig::Form_Unload() { marco.oAcc = nullptr; }

void dlgConfig::setObjects(cAcction* oAcc) {
    marco.oAcc = oAcc;
    Load();
    ResumeNext([&] { expedicion.eDirCC.conectar(Deref(oAcc->eCat).nvlands()); });
    ResumeNext([&] { emisor.eDir.conectar(Deref(oAcc->eCat).nvlands()); });
    permisos.vaciarTodosLosGrupos();
}

void dlgConfig::init() {
    ResumeNext([] { Puntero(host::Puntero::Reloj); });
    marco.cargando = true;
    correo.passCorreo.clear();
    ResumeNext([&] { expedicion.crearDomicilioCC(); });
    ResumeNext([&] { general.cargarCertificados(); });
    ResumeNext([&] { general.cargarFoliosYBlocks(); });
    ResumeNext([&] { adicionales.cargarAdicionales(); });
    ResumeNext([&] { emisor.cargarEmisor(); });
    ResumeNext([&] { expedicion.cargarCentrosConsumo(); });
    ResumeNext([&] { correo.cargarCorreo(); });
    ResumeNext([&] { permisos.cargarGrupos(); });
    ResumeNext([&] { cargarConfigAvanzada(); });
    ResumeNext([&] { regimenes.cargarRegimenes(); });
    ResumeNext([&] { general.ChkCFDauto.Value(static_cast<int>(marco.Ajustes().LeerNumero("NVCA327x", 1))); });
    ResumeNext([&] {
        expedicion.chkUsarDomFisComoDomExp.Value(static_cast<int>(marco.Ajustes().LeerNumero("NVCB01121", 0)));
    });
    ResumeNext([&] { expedicion.aplicarDomicilioExpedicion(); });
    ResumeNext([&] { general.superponerPaneles(); });
    ResumeNext([&] { mostrarFoliosOBlocks(); });
    marco.cargando = false;
    ResumeNext([] { Puntero(host::Puntero::Normal); });
}

void dlgConfig::mostrarFoliosOBlocks() {
    ResumeNext([&] { adicionales.ocultarFormato(); });
    ResumeNext([&] { general.mostrarPanel(marco.Fachada().TipoComprobanteAGenerar() == cCFD); });
}

// The four options of the XML live in the values shared with the advanced
// options dialog, which changes only them: they reach their keys here, at
// the save, or not at all.
void dlgConfig::cargarConfigAvanzada() {
    OpcionesAvanzadas& v = VariablesAvanzadas();
    ResumeNext([&] { v.concatNotasPartida = marco.Ajustes().LeerNumero("NVCA400x", 0); });
    ResumeNext([&] { v.cadenaUnion = marco.Ajustes().LeerTexto("NVCA401x", " "); });
    ResumeNext([&] { v.addendaTiendaron = marco.Ajustes().LeerNumero("NVCA402x", 0); });
    ResumeNext([&] { v.serieLote = marco.Ajustes().LeerNumero("NVCA403x", 0); });
}

void dlgConfig::guardarConfigAvanzada() {
    const OpcionesAvanzadas& v = VariablesAvanzadas();
    ResumeNext([&] { marco.Ajustes().GuardarNumero("NVCA400x", v.concatNotasPartida); });
    ResumeNext([&] { marco.Ajustes().GuardarTexto("NVCA401x", v.cadenaUnion); });
    ResumeNext([&] { marco.Ajustes().GuardarNumero("NVCA402x", v.addendaTiendaron); });
    ResumeNext([&] { marco.Ajustes().GuardarNumero("NVCA403x", v.serieLote); });
}

bool dlgConfig::validarDatos() {
    const enumTipoCFD tipo = marco.Fachada().TipoComprobanteAGenerar();
    // A certificate for every kind; folios only for CFD, blocks only for CFDI.
    if (!general.validarCertificados(tipo == cCFD, tipo == cCFDI || tipo == cCFDI_CBB)) return false;
    if (!emisor.validarNombreYRFC()) return false;
    if (!emisor.validarDomicilioFiscal()) return false;
    if (!regimenes.validarLista()) return false;
    if (!expedicion.validarExpedicion()) return false;
    if (!correo.validarPassCorreo(kCorreo)) return false;
    if (adicionales.eNumDecimales.Value() > 6) {
        core::Caja("Valor inválido para decimales de precisión. El máximo es 6", host::Icono::Informacion);
        return false;
    }
    if (adicionales.eNumDecimales.Value() < 0) {
        core::Caja("Valor inválido para decimales de precisión.", host::Icono::Informacion);
        return false;
    }
    return true;
}

bool dlgConfig::guardarDatos() {
    std::string formato;
    int complemento = 0;
    ResumeNext([&] { formato = adicionales.txtFormatoImpresion.Text(); });
    ResumeNext([&] { complemento = adicionales.chkComplemento.Value(); });
    // The fiscal address row first: its key, the name and the RFC follow it,
    // and nothing else is written when it can't be saved.
    if (!emisor.guardarDomicilioFiscal()) return false;
    ResumeNext([&] { marco.Ajustes().GuardarNumero("NVCA300x", complemento == 1 ? -1 : 0); });
    ResumeNext([&] { marco.Ajustes().GuardarTexto("NVCA303x", formato); });
    correo.guardarCorreo();
    ResumeNext([&] { marco.Ajustes().GuardarNumero("NVCA327x", general.ChkCFDauto.Value()); });
    ResumeNext([&] { marco.Ajustes().GuardarNumero("NVCA328x", adicionales.eNumDecimales.Value()); });
    guardarConfigAvanzada();
    if (!regimenes.eliminarRegimenes()) return false;
    if (!regimenes.guardarRegimenes()) return false;
    ResumeNext(
        [&] { marco.Ajustes().GuardarNumero("NVCB01121", expedicion.chkUsarDomFisComoDomExp.Value()); });
    if (!expedicion.suprimirDomiciliosCC()) return false;
    return true;
}

void dlgConfig::btnOK_Click() {
    if (!validarDatos()) return;
    if (!guardarDatos()) return;
    ResumeNext([&] { marco.Fachada().LoadGlobalVar(); });
    Aceptado = true;
    Hide();
}

void dlgConfig::btnCancel_Click() {
    Aceptado = false;
    Hide();
}

// The facade's member: the dialog runs modally on the company and is gone
// when it closes.
void cAcction::Configuracion() {
    dlgConfig dialogo;
    dialogo.setObjects(this);
    dialogo.init();
    dialogo.ShowModal();
    dialogo.Unload();
}

}  // namespace celdora

#include "wizard/dlgAsistenteConfig.h"

#include <initializer_list>

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "host/Platform.h"
#include "value/Channels.h"
#include "value/Convert.h"
#include "value/Text.h"

namespace celdora {

using host::Icono;

namespace {

// What lblTitle shows while each page is selected.
constexpr std::array<const char*, 9> kTitulos{"Facturación electrónica",
                                              "Información del emisor",
                                              "Domicilio del emisor",
                                              "Tipo de comprobante fiscal",
                                              "Certificado y folios",
                                              "Rango de folios para CBB",
                                              "Formatos de impresión del comprobante",
                                              "Envío por correo electrónico (CFD/CFDI)",
                                              "Cuenta para Timbrar"};

void Puntero(host::Puntero puntero) { host::CurrentPlatform().Ui().MousePointer(puntero); }

}  // namespace

dlgAsistenteConfig::dlgAsistenteConfig()
    : Dialogo("dlgAsistenteConfig", "Asistente de configuración de facturación electrónica") {
    const std::string& paginas = TabControl.Nombre();
    for (forms::Control* c :
         std::initializer_list<forms::Control*>{&lblBienvenida, &lblInicio, &lblObligatorios, &lblEmpezar}) {
        c->Colocar(paginas, kInicio);
    }
    lblEmisor.Colocar(paginas, kEmisor);
    emisor.Colocar(paginas, kEmisor);
    regimenes.Colocar(paginas, kEmisor);
    // The fiscal address stands on the first page of the inner tabs, the
    // centres' addresses on the second.
    for (forms::Control* c : std::initializer_list<forms::Control*>{&lblDomicilios, &expedicion.chkUsarDomFisComoDomExp,
                                                                    &TabControlDomExp}) {
        c->Colocar(paginas, kDomicilios);
    }
    emisor.eDir.Colocar(TabControlDomExp.Nombre(), 0);
    expedicion.Colocar(TabControlDomExp.Nombre(), 1);
    for (forms::Control* c :
         std::initializer_list<forms::Control*>{&lblTipoComprobante, &optCFD, &lblCFD, &lblCFDFecha, &optCFDI, &lblCFDI,
                                                &optCBB, &lblCBB, &optCFDICBB, &lblCFDICBB, &optFpapel, &lblFpapel}) {
        c->Colocar(paginas, kTipoComprobante);
    }
    lblCertificados.Colocar(paginas, kCertificados);
    general.Colocar(paginas, kCertificados);
    lblFoliosCBB.Colocar(paginas, kFoliosCBB);
    foliosCBB.Colocar(paginas, kFoliosCBB);
    for (forms::Control* c : std::initializer_list<forms::Control*>{
             &lblFormatoAviso, &cmbTipo, &cmbFormato, &chkUsarVisor, &cmbImpresion, &cmbMail}) {
        c->Colocar(paginas, kFormatosImpresion);
    }
    archivos.Colocar(paginas, kFormatosImpresion);
    lblEnvioEmail.Colocar(paginas, kEnvioEmail);
    lblMail.Colocar(paginas, kEnvioEmail);
    correo.Colocar(paginas, kEnvioEmail);
    lblCuenta.Colocar(paginas, kCuentaPTimbrar);
    cuenta.Colocar(paginas, kCuentaPTimbrar);
    marco.paginas = &TabControl;
    btnAtras.Enabled(false);
    btnFinalizar.Enabled(false);

    optCFD.Click = [this] { habilitarFinalizar(false); };
    optCFDI.Click = [this] { habilitarFinalizar(false); };
    optCBB.Click = [this] { habilitarFinalizar(false); };
    optCFDICBB.Click = [this] { habilitarFinalizar(false); };
    optFpapel.Click = [this] { habilitarFinalizar(optFpapel.Value()); };
    TabControl.Click = [this] { TabControl_Click(); };
    cmbTipo.Click = [this] {
        auto controles = Impresion(Variante());
        impresion::CambioDeTipo(controles);
    };
    cmbFormato.Click = [this] { cmbFormato_Click(); };
    auto controles = Impresion(impresion::kImpresionCFD);
    impresion::ConectarExaminar(
        controles, archivos.Botones(),
        [this](forms::TextBox& campo) { examinar(campo); });
    btnSiguiente.Click = [this] { btnSiguiente_Click(); };
    btnAtras.Click = [this] { btnAtras_Click(); };
    btnFinalizar.Click = [this] { btnFinalizar_Click(); };
    btnSalir.Click = [this] { btnSalir_Click(); };
}

void dlgAsistenteConfig::Form_Unload() { marco.oAcc = nullptr; }

host::GlobalVar& dlgAsistenteConfig::Ajustes() const { return Deref(ajustes_); }

void dlgAsistenteConfig::setObjects(cAcction* oAcc) {
    marco.oAcc = oAcc;
    Load();
    ResumeNext([&] { expedicion.eDirCC.conectar(Deref(oAcc->eCat).nvlands()); });
    ResumeNext([&] { emisor.eDir.conectar(Deref(oAcc->eCat).nvlands()); });
    ResumeNext([&] { tipoInicial = oAcc->TipoComprobanteAGenerar(); });
    ResumeNext([&] { cnn_ = oAcc->ADOCnn; });
    ResumeNext([&] { ajustes_ = oAcc->GlobalVar; });
}

void dlgAsistenteConfig::init() {
    ResumeNext([] { Puntero(host::Puntero::Reloj); });
    marco.cargando = true;
    correo.passCorreo.clear();
    ResumeNext([&] { expedicion.crearDomicilioCC(); });
    ResumeNext([&] { general.cargarCertificados(); });
    ResumeNext([&] { general.cargarFoliosYBlocks(); });
    ResumeNext([&] { emisor.cargarEmisor(); });
    ResumeNext([&] { expedicion.cargarCentrosConsumo(); });
    ResumeNext([&] { correo.cargarCorreo(); });
    ResumeNext([&] { regimenes.cargarRegimenes(); });
    ResumeNext([&] { foliosCBB.cargarLista(); });
    ResumeNext([&] { cargarCuentaTimbrado(); });
    ResumeNext([&] { general.ChkCFDauto.Value(static_cast<int>(Ajustes().LeerNumero("NVCA327x", 1))); });
    ResumeNext(
        [&] { expedicion.chkUsarDomFisComoDomExp.Value(static_cast<int>(Ajustes().LeerNumero("NVCB01121", 0))); });
    ResumeNext([&] { expedicion.aplicarDomicilioExpedicion(); });
    ResumeNext([&] { general.superponerPaneles(); });
    ResumeNext([&] { mostrarTipoActual(); });
    ResumeNext([&] { mostrarPanelCertificado(); });
    marco.cargando = false;
    ResumeNext([] { Puntero(host::Puntero::Normal); });
}

// Setting an option raises its click, which sets the buttons.
void dlgAsistenteConfig::mostrarTipoActual() {
    switch (marco.Fachada().TipoComprobanteAGenerar()) {
        case cCFD: optCFD.Value(true); break;
        case cCFDI: optCFDI.Value(true); break;
        case cCBB: optCBB.Value(true); break;
        case cCFDI_CBB: optCFDICBB.Value(true); break;
        case cPapel: optFpapel.Value(true); break;
        default: break;
    }
}

void dlgAsistenteConfig::mostrarPanelCertificado() { general.mostrarPanel(optCFD.Value()); }

void dlgAsistenteConfig::habilitarFinalizar(bool valor) {
    btnSiguiente.Enabled(!valor);
    btnFinalizar.Enabled(valor);
}

// A record set comes back only when the first form of the null test is
// understood; the second is that of the dialect whose isnull takes two
// arguments.
bool dlgAsistenteConfig::existeCFDICertificado() {
    bool result = false;
    ResumeNext([&] {
        auto rs = mdlMain::AbrirConsulta(cnn_,
                                         "SELECT Count(Sys_PK) AS Total FROM ut_CFD WHERE uf_Tipo=3 AND "
                                         "(NOT isnull(uf_XMLCFDI))");
        if (!rs) {
            rs = mdlMain::AbrirConsulta(cnn_,
                                        "SELECT Count(Sys_PK) AS Total FROM ut_CFD WHERE uf_Tipo=3 AND "
                                        "(NOT isnull(uf_XMLCFDI,'')='')");
        }
        if (!rs) return;
        result = rs->State() == 1 && mdlMain::NumeroCampo(*rs, "Total") > 0;
        rs->Close();
    });
    return result;
}

bool dlgAsistenteConfig::validarEmisor() { return emisor.validarNombreYRFC() && regimenes.validarLista(); }

bool dlgAsistenteConfig::validarDomicilios() {
    return emisor.validarDomicilioFiscal() && expedicion.validarExpedicion();
}

bool dlgAsistenteConfig::validarCertificados() {
    return general.validarCertificados(optCFD.Value(), optCFDI.Value() || optCFDICBB.Value());
}

bool dlgAsistenteConfig::validarFoliosCBB() {
    if (foliosCBB.lvwFoliosCBB.Count() > 0) return true;
    core::Caja("Agregue los rangos de folios fiscales para generación del comprobante.", Icono::Informacion);
    return false;
}

bool dlgAsistenteConfig::validarFormatos() {
    const std::array<std::pair<forms::TextBox*, const char*>, 6> campos{{
        {&archivos.txtArchivo, "Seleccione el formato de impresión para facturas en ventas."},
        {&archivos.txtArchivoNC, "Seleccione el formato de impresión para notas de crédito en ventas"},
        {&archivos.txtCXC_NCargo,
         "Seleccione el formato de impresión para notas de cargo "
         "en cuentas por cobrar."},
        {&archivos.txtCXC_NCredito,
         "Seleccione el formato de impresión para notas de "
         "crédito en cuentas por cobrar."},
        {&archivos.txtCXC_FacPagare,
         "Seleccione el formato de impresión para facturas de "
         "parcialidades en cuentas por cobrar."},
        {&archivos.txtCXC_FacRecibo,
         "Seleccione el formato de impresión para facturas de "
         "anticipos de financiamiento en cuentas por cobrar."},
    }};
    for (const auto& [campo, mensaje] : campos) {
        if (!Trim(campo->Text()).empty()) continue;
        core::Caja(mensaje, Icono::Informacion);
        ResumeNext([&] { campo->SetFocus(); });
        return false;
    }
    return true;
}

bool dlgAsistenteConfig::validarPassCorreo() { return correo.validarPassCorreo(-1); }

bool dlgAsistenteConfig::validarCuentaTimbrado() {
    if (Trim(cuenta.txtUsuario.Text()).empty() && cuenta.chktimbrar.Value() == 1) {
        core::Caja("Debe indicar en nombre del usuario de la cuenta para timbrar.", Icono::Informacion);
        return false;
    }
    if (!cuenta.clavesCoinciden()) {
        core::Caja("La contraseña de confirmación no coincide.", Icono::Informacion, "Cuenta para timbrar");
        return false;
    }
    return true;
}

const impresion::VarianteImpresion& dlgAsistenteConfig::Variante() const {
    return optCFD.Value() || optCFDI.Value() || optCFDICBB.Value() ? impresion::kImpresionCFD
                                                                   : impresion::kImpresionCBB;
}

impresion::ControlesImpresion dlgAsistenteConfig::Impresion(const impresion::VarianteImpresion& variante) {
    return {cmbTipo,
            cmbFormato,
            chkUsarVisor,
            archivos.Rutas(),
            cmbImpresion,
            variante.correo ? &cmbMail : nullptr};
}

// The lists are filled again each time the page of the kinds is left, so
// they are emptied first. The kind was written just before, so the facade
// already gives the new one.
void dlgAsistenteConfig::cargarPaginaFormatos() {
    const impresion::VarianteImpresion& variante = Variante();
    auto controles = Impresion(variante);
    ResumeNext([&] { cmbTipo.Clear(); });
    ResumeNext([&] { cmbImpresion.Clear(); });
    if (controles.cmbMail != nullptr) ResumeNext([&] { cmbMail.Clear(); });
    std::int32_t tipoComprobante = 0;
    ResumeNext([&] { tipoComprobante = marco.Fachada().TipoComprobanteAGenerar(); });
    impresion::LlenarListas(controles, variante, tipoComprobante);
    ResumeNext([&] {
        impresion::CargarValores(
            controles, Ajustes(), variante, [&](const impresion::RutaFormato& ruta, double tipoFormato) {
                return impresion::RutaPredeterminada(rutaInicial, ruta, tipoComprobante, tipoFormato);
            });
    });
}

void dlgAsistenteConfig::cmbFormato_Click() {
    auto controles = Impresion(Variante());
    ResumeNext([&] { impresion::CambioDeFormato(controles, Ajustes(), Variante().prefijo); });
}

// Only the report layouts and the templates have a filter of their own;
// the strip leaves the picker with the last one it had.
void dlgAsistenteConfig::examinar(forms::TextBox& campo) {
    impresion::Examinar(dlgArchivo, campo, rutaInicial, [this]() -> std::optional<std::string> {
        const std::int32_t tipo = impresion::DatoSeleccionado(cmbTipo);
        if (tipo == 1 || tipo == 3) return impresion::FiltroDeTipo(tipo, Variante());
        return std::nullopt;
    });
}

void dlgAsistenteConfig::cargarCuentaTimbrado() {
    ResumeNext([&] { cuenta.cargarComponentes(marco.Fachada().AppRepositoryPath); });
    ResumeNext([&] { cuenta.leerCuenta(marco.Fachada()); });
}

void dlgAsistenteConfig::btnSiguiente_Click() {
    int tipo = 0;
    int salto = 0;
    const int pagina = TabControl.SelectedItem();
    switch (pagina) {
        case kEmisor:
            if (!validarEmisor()) return;
            break;
        case kDomicilios:
            if (!validarDomicilios()) return;
            if (optFpapel.Value()) habilitarFinalizar(true);
            break;
        case kTipoComprobante:
            if (optCFD.Value()) {
                if (existeCFDICertificado()) {
                    core::Caja(
                        "No se puede configurar el sistema para generación de CFD "
                        "cuando ya se ha certificado un "
                        "comprobante de tipo CFDI.",
                        Icono::Critico);
                    return;
                }
                tipo = cCFD;
                lblCertificados.Caption(
                    "Ingrese la información del certificado para "
                    "sello digital. También deberá capturar por lo "
                    "menos un rango de folios fiscales.");
            } else if (optCFDI.Value() || optCFDICBB.Value()) {
                tipo = optCFDI.Value() ? cCFDI : cCFDI_CBB;
                lblCertificados.Caption(
                    "Ingrese la información del certificado para sello digital. También "
                    "deberá seleccionar por lo "
                    "menos un block de documentos que podrán generar CFDI.");
            } else if (optCBB.Value()) {
                tipo = cCBB;
                salto = 1;
            } else if (optFpapel.Value()) {
                tipo = cPapel;
                habilitarFinalizar(true);
            }
            ResumeNext([&] { Ajustes().GuardarNumero("NVCA300xa", tipo); });
            ResumeNext([&] { general.cargarFoliosYBlocks(); });
            ResumeNext([&] { cargarPaginaFormatos(); });
            break;
        case kCertificados:
            if (!validarCertificados()) return;
            if (optCFD.Value() || optCFDI.Value()) salto = 1;
            break;
        case kFoliosCBB:
            if (!validarFoliosCBB()) return;
            break;
        case kFormatosImpresion:
        case kEnvioEmail:
        case kCuentaPTimbrar:
            if (!validarPaginaFinal(pagina)) return;
            break;
        default: break;
    }
    btnAtras.Enabled(true);
    ResumeNext([&] { TabControl.SelectedItem(pagina + 1 + salto); });
    if (TabControl.SelectedItem() == static_cast<int>(TabControl.Paginas().size()) - 1) habilitarFinalizar(true);
}

void dlgAsistenteConfig::TabControl_Click() {
    const int pagina = TabControl.SelectedItem();
    if (optCBB.Value() && pagina == kFormatosImpresion) habilitarFinalizar(true);
    if (optCFD.Value() && pagina == kEnvioEmail) habilitarFinalizar(true);
    lblTitle.Caption(kTitulos.at(static_cast<std::size_t>(pagina)));
    if (pagina == kFormatosImpresion && optCFDICBB.Value()) {
        lblFormatoAviso.Caption(
            "Los formatos seleccionados deberán ser para CFDI. Para configurar los "
            "formatos para CBB por favor "
            "ejecute la herramienta de configuración de facturación electrónica "
            "desde el panel de control.");
    }
    mostrarPanelCertificado();
    cmbFormato_Click();
}

void dlgAsistenteConfig::btnAtras_Click() {
    int salto = 0;
    const int pagina = TabControl.SelectedItem();
    if ((optCFD.Value() || optCFDI.Value()) && pagina == kFormatosImpresion) salto = 1;
    if (optCBB.Value() && pagina == kFoliosCBB) salto = 1;
    ResumeNext([&] { TabControl.SelectedItem(pagina - 1 - salto); });
    if (TabControl.SelectedItem() == kInicio) btnAtras.Enabled(false);
    habilitarFinalizar(false);
}

// The checks of the pages on which a kind may finish: the formats, the
// mail and the stamping account. Other pages pass.
bool dlgAsistenteConfig::validarPaginaFinal(int pagina) {
    switch (pagina) {
        case kFormatosImpresion: return validarFormatos();
        case kEnvioEmail: return validarPassCorreo();
        case kCuentaPTimbrar: return validarCuentaTimbrado();
        default: return true;
    }
}

void dlgAsistenteConfig::btnFinalizar_Click() {
    if (!validarPaginaFinal(TabControl.SelectedItem())) return;
    if (!guardarAsistente()) return;
    ResumeNext([&] { marco.Fachada().LoadGlobalVar(); });
    std::string aplicacion;
    ResumeNext([&] { aplicacion = marco.Fachada().ApplicationName; });
    core::Caja(
        "¡El asistente ha finalizado correctamente!\r\nEn el panel de "
        "control podrá configurar opciones "
        "adicionales de facturación electrónica.",
        Icono::Informacion, aplicacion);
    Aceptado = true;
    Hide();
}

void dlgAsistenteConfig::btnSalir_Click() {
    if (!core::Pregunta("¿Está seguro que desea salir del asistente de configuración?")) return;
    ResumeNext([&] {
        if (marco.Fachada().TipoComprobanteAGenerar() != tipoInicial) Ajustes().GuardarNumero("NVCA300xa", tipoInicial);
    });
    Aceptado = false;
    Hide();
}

bool dlgAsistenteConfig::guardarAsistente() {
    const bool conCorreo = optCFD.Value() || optCFDI.Value() || optCFDICBB.Value();
    const bool conTimbre = optCFDI.Value() || optCFDICBB.Value();
    // The fiscal address row first; its key, the name and the RFC follow it.
    if (!emisor.guardarDomicilioFiscal()) return false;
    if (conCorreo) correo.guardarCorreo();
    ResumeNext([&] { Ajustes().GuardarNumero("NVCA327x", general.ChkCFDauto.Value()); });
    ResumeNext([&] { Ajustes().GuardarNumero("NVCA328x", 2); });
    if (!regimenes.eliminarRegimenes()) return false;
    if (!regimenes.guardarRegimenes()) return false;
    ResumeNext([&] { Ajustes().GuardarNumero("NVCB01121", expedicion.chkUsarDomFisComoDomExp.Value()); });
    if (!expedicion.suprimirDomiciliosCC()) return false;
    if (conCorreo) {
        auto controles = Impresion(impresion::kImpresionCFD);
        ResumeNext([&] { impresion::GuardarValores(controles, Ajustes(), impresion::kImpresionCFD); });
    }
    if (optCBB.Value()) {
        auto controles = Impresion(impresion::kImpresionCBB);
        ResumeNext([&] { impresion::GuardarValores(controles, Ajustes(), impresion::kImpresionCBB); });
    }
    if (conTimbre) ResumeNext([&] { cuenta.guardarCuenta(marco.Fachada()); });
    return true;
}

// The facade's member: the wizard runs modally on the company and is gone
// when it closes.
void cAcction::AsistenteConfiguracion() {
    dlgAsistenteConfig dialogo;
    dialogo.setObjects(this);
    ResumeNext([&] { dialogo.rutaInicial = impresion::RutaInicial(AppRepositoryPath); });
    dialogo.init();
    dialogo.ShowModal();
    dialogo.Unload();
}

}  // namespace celdora

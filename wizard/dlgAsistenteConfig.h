#pragma once

// The setup wizard: the company's settings page by page, and the only place
// where the kind of comprobante is chosen. The pages are the units that the
// main configuration dialog, the CBB range list, the print format dialogs
// and the local settings show; the wizard adds the steps between them (which
// pages each kind passes through, what each step checks) and its own save.
// The kind is written as soon as the page of the kinds is left forward, and
// Salir puts back the kind the wizard found; everything else but what the
// pages' own buttons commit waits for Finalizar.

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "cbb/ListaFoliosCBB.h"
#include "configdialog/Marco.h"
#include "configdialog/PaginaCorreo.h"
#include "configdialog/PaginaDomiciliosCC.h"
#include "configdialog/PaginaEmisor.h"
#include "configdialog/PaginaGeneral.h"
#include "configdialog/PaginaRegimenes.h"
#include "forms/Controles.h"
#include "forms/Dialogo.h"
#include "host/Settings.h"
#include "printformats/ArchivosFormato.h"
#include "printformats/FormatoImpresion.h"
#include "settings/CuentaTimbrado.h"

namespace celdora {

class cAcction;

class dlgAsistenteConfig : public forms::Dialogo {
public:
    enum Pagina {
        kInicio = 0,
        kEmisor = 1,
        kDomicilios = 2,
        kTipoComprobante = 3,
        kCertificados = 4,
        kFoliosCBB = 5,
        kFormatosImpresion = 6,
        kEnvioEmail = 7,
        kCuentaPTimbrar = 8
    };

    dlgAsistenteConfig();

    configuracion::Marco marco;
    // The kind when the wizard opened; Salir writes it back.
    std::int16_t tipoInicial = 0;
    // The repository folder without its closing backslash.
    std::string rutaInicial;

    forms::Label& lblTitle = Agregar<forms::Label>("lblTitle", "Facturación electrónica");
    forms::TabControl& TabControl = Agregar<forms::TabControl>(
        "TabControl", std::vector<std::string>{"Inicio", "Emisor", "Domicilios", "TipoComprobante", "Certificados",
                                               "FoliosCBB", "FormatosImpresion", "EnvioEmail", "CuentaPTimbrar"});

    forms::Label& lblBienvenida =
        Agregar<forms::Label>("lblBienvenida", "Bienvenido al asistente de configuración de Facturación Electrónica");
    forms::Label& lblInicio = Agregar<forms::Label>("lblInicio",
                                                    "Este asistente le ayudará a configurar todos los elementos "
                                                    "del sistema necesarios para la generación de "
                                                    "comprobantes fiscales digitales.");
    forms::Label& lblObligatorios =
        Agregar<forms::Label>("lblObligatorios",
                              "Tenga en cuenta que algunos elementos son obligatorios como son: el "
                              "certificado de sello digital si desea "
                              "generar comprobantes de tipo CFD o CFDI. Tambien es necesario por lo "
                              "mentos un rango de folios si desea "
                              "facturar con CFD o CBB.");
    forms::Label& lblEmpezar = Agregar<forms::Label>("lblEmpezar", "Haga clic en el botón siguiente para empezar...");

    forms::Label& lblEmisor = Agregar<forms::Label>("lblEmisor",
                                                    "Capture los datos generales de su empresa. El campo RFC no "
                                                    "debe contener caracteres adicionales como "
                                                    "guiones o espacios.");
    configuracion::PaginaEmisor emisor{*this, marco};
    configuracion::PaginaRegimenes regimenes{*this, marco, configuracion::kRotulosAsistente};

    forms::Label& lblDomicilios = Agregar<forms::Label>("lblDomicilios",
                                                        "Capture los datos del domicilio fiscal del su empresa "
                                                        "y el domicilio de expedición de los comprobantes que "
                                                        "se generarán. Maque la casilla de verificación si el "
                                                        "domicilio fiscal y de expedición es el mismo.");
    forms::TabControl& TabControlDomExp = Agregar<forms::TabControl>(
        "TabControlDomExp", std::vector<std::string>{"Domicilio fiscal", "Domicilio de expedición"});
    configuracion::PaginaDomiciliosCC expedicion{*this, marco, TabControlDomExp, 1};

    forms::Label& lblTipoComprobante =
        Agregar<forms::Label>("lblTipoComprobante", "Seleccione el tipo de comprobante a generar.");
    forms::OptionButton& optCFD = Agregar<forms::OptionButton>("optCFD", "CFD");
    forms::Label& lblCFD =
        Agregar<forms::Label>("lblCFD",
                              "Seleccione esta opción si desea generar comprobantes de tipo CFD 2.2. "
                              "Es necesario contar con el "
                              "certificado de sello digital, la llave privada y contraseña "
                              "correspondiente, así como el rango de folios "
                              "fiscales. Estos elementos debe solicitarlos previamente con el SAT.");
    forms::Label& lblCFDFecha = Agregar<forms::Label>("lblCFDFecha",
                                                      "Recuerde que solo puede optar por esta opción si solicitó su "
                                                      "certificado y rango de folios antes del 01 de "
                                                      "Enero de 2011.");
    forms::OptionButton& optCFDI = Agregar<forms::OptionButton>("optCFDI", "CFDI");
    forms::Label& lblCFDI = Agregar<forms::Label>("lblCFDI",
                                                  "Seleccione esta opción si desea generar comprobantes de tipo "
                                                  "CFDI 3.2. Es necesario contar con el "
                                                  "certificado de sello digital, la llave privada y contraseña "
                                                  "correspondiente. Estos elementos debe "
                                                  "solicitarlos previamente con el SAT.");
    forms::OptionButton& optCBB = Agregar<forms::OptionButton>("optCBB", "CBB");
    forms::Label& lblCBB = Agregar<forms::Label>("lblCBB",
                                                 "Seleccione esta opción si desea generar comprobantes fiscales "
                                                 "con Código de Barras Bidimensional. Es "
                                                 "necesario contar con un rango de folios fiscales y la imágen "
                                                 "(CBB) correspondiente. Estos elementos debe "
                                                 "solicitarlos previamente con el SAT.");
    forms::OptionButton& optCFDICBB = Agregar<forms::OptionButton>("optCFDICBB", "CFDI/CBB");
    forms::Label& lblCFDICBB = Agregar<forms::Label>("lblCFDICBB",
                                                     "Elija esta opción si desea generar comprobantes fiscales "
                                                     "CFDI 3.2 y comprobantes con CBB. Debe contar con "
                                                     "los requisitos para ambas opciones.");
    forms::OptionButton& optFpapel = Agregar<forms::OptionButton>("optFpapel", "Formato preimpreso");
    forms::Label& lblFpapel = Agregar<forms::Label>("lblFpapel",
                                                    "Seleccione esta opción si desea expedir comprobantes "
                                                    "fiscales en formatos preimpresos.");

    forms::Label& lblCertificados = Agregar<forms::Label>("lblCertificados");
    configuracion::PaginaGeneral general{*this, marco};

    forms::Label& lblFoliosCBB = Agregar<forms::Label>("lblFoliosCBB",
                                                       "Agregue los rangos de folios fiscales para comprobantes "
                                                       "con Código de Barras Bidimensional");
    cbb::ListaFoliosCBB foliosCBB{*this, marco.oAcc, "btnAddFolioCBB", "btnEditFolioCBB", "btnDelFolioCBB"};

    forms::Label& lblFormatoAviso = Agregar<forms::Label>("lblFormatoAviso");
    forms::ComboBox& cmbTipo = Agregar<forms::ComboBox>("cmbTipo", forms::ComboBox::Estilo::SoloLista, "Tipo:");
    forms::ComboBox& cmbFormato =
        Agregar<forms::ComboBox>("cmbFormato", forms::ComboBox::Estilo::SoloLista, "Formato:");
    forms::CheckBox& chkUsarVisor =
        Agregar<forms::CheckBox>("chkUsarVisor", "Usar aplicación predeterminada para abrir el formato");
    impresion::ArchivosFormato archivos{*this};
    forms::ComboBox& cmbImpresion =
        Agregar<forms::ComboBox>("cmbImpresion", forms::ComboBox::Estilo::SoloLista, "Opciones después de generar:");
    forms::ComboBox& cmbMail =
        Agregar<forms::ComboBox>("cmbMail", forms::ComboBox::Estilo::SoloLista, "Opciones de envío de correo:");
    forms::CommonDialog& dlgArchivo = Agregar<forms::CommonDialog>("dlgArchivo");

    forms::Label& lblEnvioEmail = Agregar<forms::Label>(
        "lblEnvioEmail", "Capture la información del remitente para envío de correo electrónico.");
    forms::Label& lblMail =
        Agregar<forms::Label>("lblMail", "La configuración de envío por correo electrónico es opcional.");
    configuracion::PaginaCorreo correo{*this, marco};

    forms::Label& lblCuenta = Agregar<forms::Label>("lblCuenta",
                                                    "Capture la información de la cuenta para timbrar. Esta "
                                                    "configuración se guarda únicamente en el equipo "
                                                    "actual. Por lo tanto, para que una terminal pueda crear el "
                                                    "timbre fiscal digital deber configurar esta "
                                                    "información desde Panel de control/Facturación "
                                                    "electrónica/Configuraciones locales.");
    cuenta::CuentaTimbrado cuenta{*this, "txtUsuarioTimbre", ""};

    forms::CommandButton& btnAtras = Agregar<forms::CommandButton>("btnAtras", "< Atrás");
    forms::CommandButton& btnSiguiente = Agregar<forms::CommandButton>("btnSiguiente", "Siguiente >");
    forms::CommandButton& btnFinalizar = Agregar<forms::CommandButton>("btnFinalizar", "Finalizar");
    forms::CommandButton& btnSalir = Agregar<forms::CommandButton>("btnSalir", "Salir");

    // Keeps the facade, the kind it gives now and its key store.
    void setObjects(cAcction* oAcc);
    // Loads every page, then shows the stored kind.
    void init();

    void mostrarTipoActual();
    void mostrarPanelCertificado();
    // Siguiente when valor is false, Finalizar when it is true.
    void habilitarFinalizar(bool valor);
    // Whether a CFDI of the company has been certified, in either dialect's
    // form of the null test.
    bool existeCFDICertificado();

    bool validarEmisor();
    bool validarDomicilios();
    bool validarCertificados();
    bool validarFoliosCBB();
    bool validarFormatos();
    bool validarPassCorreo();
    bool validarCuentaTimbrado();
    bool validarPaginaFinal(int pagina);

    // The print page for the kind just chosen, with the wizard's default
    // file names.
    void cargarPaginaFormatos();
    void cargarCuentaTimbrado();
    // What the pages hold, step by step without a transaction; true only
    // when every step ran.
    bool guardarAsistente();

protected:
    void Form_Unload() override;

private:
    void btnSiguiente_Click();
    void btnAtras_Click();
    void btnFinalizar_Click();
    void btnSalir_Click();
    void TabControl_Click();
    void cmbFormato_Click();
    void examinar(forms::TextBox& campo);
    // The family of print keys that the chosen option stands for.
    const impresion::VarianteImpresion& Variante() const;
    // The print page's controls; the CBB family has no mail list.
    impresion::ControlesImpresion Impresion(const impresion::VarianteImpresion& variante);
    host::GlobalVar& Ajustes() const;

    std::shared_ptr<host::Connection> cnn_;
    std::shared_ptr<host::GlobalVar> ajustes_;
};

}  // namespace celdora

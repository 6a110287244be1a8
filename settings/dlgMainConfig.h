#pragma once

// The entry screen of the fiscal configuration: the kind of comprobante the
// company is set up for, and the four ways into the settings. It keeps
// nothing and writes nothing; the kind is read once, when it loads.

#include "forms/Controles.h"
#include "forms/Dialogo.h"

namespace celdora {

class cAcction;

class dlgMainConfig : public forms::Dialogo {
public:
    dlgMainConfig();

    // The facade, given by the opener and let go when the form unloads.
    cAcction* oAcc = nullptr;

    forms::Label& lblTitulo = Agregar<forms::Label>("lblTitulo", "Facturación Electrónica");
    forms::Label& lblTipoActual =
        Agregar<forms::Label>("lblTipoActual", "Tipo de comprobante configurado actualmente:");
    forms::Label& lblTipoC = Agregar<forms::Label>("lblTipoC");
    forms::Label& lblCambiarTipo = Agregar<forms::Label>("lblCambiarTipo",
                                                         "Para cambiar esta configuración abra el módulo "
                                                         "\"opciones\" del panel de control.");
    forms::CommandButton& btnConfig1 = Agregar<forms::CommandButton>("btnConfig1", "General");
    forms::Label& lblConfig1 =
        Agregar<forms::Label>("lblConfig1",
                              "Seleccione esta opción para agregar números de certificados y rango de "
                              "folios fiscales para la generación "
                              "del CFD o seleccionar el block de documentos del sistema para la "
                              "generación de CFDI.");
    forms::Label& lblConfig2 =
        Agregar<forms::Label>("lblConfig2",
                              "También pude indicar los datos fiscales de su empresa y configuraciones "
                              "adicionales como el envío por "
                              "correo electrónico y los permisos de acceso a este módulo.");
    forms::CommandButton& btnImpresiones = Agregar<forms::CommandButton>("btnImpresiones", "Representación impresa");
    forms::Label& lblImpresiones =
        Agregar<forms::Label>("lblImpresiones",
                              "Seleccione esta opción para configurar el formato para la vista de "
                              "impresión del comprobante. Puede elejir "
                              "entre varias formas de generación del documento como tamaño carta en "
                              "pdf, doc, docx, xpr o en forma de "
                              "tira (para CFD) para hacer el envío a impresoras de tickets.");
    forms::CommandButton& btnLocal = Agregar<forms::CommandButton>("btnLocal", "Configuraciones locales");
    forms::Label& lblLocal = Agregar<forms::Label>("lblLocal",
                                                   "Seleccione esta opción para ingresar la cuenta para timbrar "
                                                   " CFDI, asignar una ubicación para guardar copia "
                                                   "de los archivos XML, etc. Estos valores se registran "
                                                   "únicamente en el equipo actual.");
    forms::CommandButton& btnAsistenteConfig =
        Agregar<forms::CommandButton>("btnAsistenteConfig", "Asistente de configuración");
    forms::Label& lblAsistente =
        Agregar<forms::Label>("lblAsistente",
                              "El asistente le guiará para realizar las configuraciones básicas de "
                              "facturación electrónica. Es necesario "
                              "que cuente con los elementos obligatorios, por ejemplo el certificado "
                              "de sello digital y su correspondiente "
                              "clave privada para genear CFD o CFDI.");
    forms::CommandButton& btnCerrar = Agregar<forms::CommandButton>("btnCerrar", "");

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void btnLocal_Click();
    void btnCerrar_Click();
    cAcction& Fachada() const;
};

}  // namespace celdora

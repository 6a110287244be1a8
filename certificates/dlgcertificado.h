#pragma once

// The editor of one seal certificate (a row of ut_CFDInfo): its 20-digit
// number, the paths of its certificate, private key and PFX files, and the
// key's password, which alone is stored enciphered. The files themselves
// never reach the database. The dialog can also build the PFX file that
// cancellations need from the files and password on its form.

#include <cstdint>
#include <string>
#include <vector>

#include "forms/Controles.h"
#include "forms/Dialogo.h"

namespace celdora {

class cAcction;

class dlgcertificado : public forms::Dialogo {
public:
    dlgcertificado();

    // Keeps the facade and sets the certificate path's caption by the
    // company's comprobante kind.
    void setObjects(cAcction& acction);
    // Loads the row with this key; a key below 1 is refused with a box.
    void load(std::int32_t& clave);
    // The row's key; after a new row is saved, the new key.
    std::int32_t Sys_PK() const { return clave_; }

    // Builds the PFX file from the form (button cmdGenerarPFX and the
    // question of btnOK).
    void GenerarPFX();

    forms::TabControl& tab = Agregar<forms::TabControl>("tab", std::vector<std::string>{"General"});
    forms::TextBox& txtNumCertificado = Agregar<forms::TextBox>("txtNumCertificado", "Número de certificado:");
    forms::TextBox& txtCertificado = Agregar<forms::TextBox>("txtCertificado");
    forms::CommandButton& cmdBuscarCertificado = Agregar<forms::CommandButton>("cmdBuscarCertificado", "...");
    forms::TextBox& txtPrivateKey = Agregar<forms::TextBox>(
        "txtPrivateKey", "Ubicación de la llave privada para sello digital (*.key)");
    forms::CommandButton& cmdBuscarLlave = Agregar<forms::CommandButton>("cmdBuscarLlave", "...");
    forms::TextBox& txtPWD = Agregar<forms::TextBox>("txtPWD", "Contraseña:");
    forms::TextBox& txtPWD2 = Agregar<forms::TextBox>("txtPWD2", "Confirmar contraseña:");
    forms::TextBox& txtPFX =
        Agregar<forms::TextBox>("txtPFX", "Archivo pfx que se usará para cancelaciones de CFDI");
    forms::CommandButton& cmdBuscarPFX = Agregar<forms::CommandButton>("cmdBuscarPFX", "...");
    forms::CheckBox& chkPFX = Agregar<forms::CheckBox>("chkPFX", "Guardar en la misma ubicación del certificado");
    forms::CommandButton& cmdGenerarPFX = Agregar<forms::CommandButton>("cmdGenerarPFX", "Generar pfx");
    forms::Label& lblGenerarPFX = Agregar<forms::Label>(
        "lblGenerarPFX",
        "Utilice el botón \"Generar pfx\" para generar el archivo pfx con el certificado, llave privada y "
        "contraseña indicados en esta ventana.");
    forms::CommandButton& btnOK = Agregar<forms::CommandButton>("btnOK", "&Aceptar");
    forms::CommandButton& btnCancel = Agregar<forms::CommandButton>("btnCancel", "&Cancelar");
    forms::CommonDialog& cdlg = Agregar<forms::CommonDialog>("cdlg");

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void btnOK_Click();
    void btnCancel_Click();
    // The open dialog for one path field; a cancelled one leaves it as it was.
    void Examinar(forms::TextBox& campo, const std::string& filtro);

    bool Validar();
    bool Guardar();
    bool GuardarNuevo();
    bool GuardarCambios();
    // The PFX's path: beside the certificate, or from the save dialog; ""
    // when the user cancelled.
    std::string DestinoPFX();
    std::string ClaveEnClaro();
    bool EsCFD();

    cAcction& Fachada() const;

    cAcction* acc_ = nullptr;
    std::int32_t clave_ = 0;
    std::string claveMostrada_;
    std::string claveOriginal_;
};

}  // namespace celdora

#include "certificates/dlgcertificado.h"

#include <functional>

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

constexpr const char* kTitulo = "Facturación Electrónica";

}  // namespace

dlgcertificado::dlgcertificado() : Dialogo("dlgcertificado", "Certificado de sello digital") {
    for (forms::Control* control :
         std::vector<forms::Control*>{&txtNumCertificado, &txtCertificado, &cmdBuscarCertificado, &txtPrivateKey,
                                      &cmdBuscarLlave, &txtPWD, &txtPWD2, &txtPFX, &cmdBuscarPFX, &chkPFX,
                                      &cmdGenerarPFX, &lblGenerarPFX}) {
        control->Colocar(tab.Nombre(), 0);
    }
    txtNumCertificado.MaxLength(20);
    txtPWD.PasswordChar("*");
    txtPWD2.PasswordChar("*");
    btnOK.Default(true);
    btnCancel.Cancel(true);

    // Only digits can be typed into the number; every other key, backspace
    // too, is thrown away.
    txtNumCertificado.KeyPress = [](int& keyAscii) {
        if (keyAscii < '0' || keyAscii > '9') keyAscii = 0;
    };

    const auto examinar = [this](forms::TextBox& campo, std::string filtro) {
        return [this, &campo, filtro] { Examinar(campo, filtro); };
    };
    const std::string filtroCertificado = "Certificado *.cer|*.cer";
    const std::string filtroLlave = "Llave del sello digital *.key|*.key";
    const std::string filtroPFX = "Archivo pfx *.pfx|*.pfx";
    // A click on an empty path field browses as its button does.
    const auto siVacio = [](forms::TextBox& campo, std::function<void()> accion) {
        return [&campo, accion] {
            if (campo.Text().empty()) accion();
        };
    };
    cmdBuscarCertificado.Click = examinar(txtCertificado, filtroCertificado);
    txtCertificado.Click = siVacio(txtCertificado, cmdBuscarCertificado.Click);
    cmdBuscarLlave.Click = examinar(txtPrivateKey, filtroLlave);
    txtPrivateKey.Click = siVacio(txtPrivateKey, cmdBuscarLlave.Click);
    cmdBuscarPFX.Click = examinar(txtPFX, filtroPFX);
    txtPFX.Click = siVacio(txtPFX, cmdBuscarPFX.Click);

    cmdGenerarPFX.Click = [this] { GenerarPFX(); };
    btnOK.Click = [this] { btnOK_Click(); };
    btnCancel.Click = [this] { btnCancel_Click(); };
}

cAcction& dlgcertificado::Fachada() const {
    if (acc_ == nullptr) throw ObjectNotSet();
    return *acc_;
}

bool dlgcertificado::EsCFD() { return Fachada().TipoComprobanteAGenerar() == cCFD; }

void dlgcertificado::setObjects(cAcction& acction) {
    acc_ = &acction;
    txtCertificado.Caption(EsCFD() ? "Ubicación del certificado de sello digital (opcional):"
                                   : "Ubicación del certificado de sello digital");
}

// For sealed comprobantes (CFD) no PFX is needed: the form is cut short so
// that its PFX part is out of view.
void dlgcertificado::Form_Load() {
    if (acc_ == nullptr || !EsCFD()) return;
    for (forms::Control* control :
         std::vector<forms::Control*>{&txtPFX, &cmdBuscarPFX, &chkPFX, &cmdGenerarPFX, &lblGenerarPFX}) {
        control->Visible(false);
    }
}

void dlgcertificado::Form_Unload() { acc_ = nullptr; }

void dlgcertificado::load(std::int32_t& clave) {
    if (clave < 1) {
        core::Caja("Clave incorrecta.", Icono::Exclamacion);
        return;
    }
    clave_ = clave;
    auto recordset =
        mdlMain::AbrirConsulta(Fachada().ADOCnn, "SELECT * FROM ut_CFDInfo WHERE Sys_PK=" + std::to_string(clave));
    if (!recordset) return;
    if (!recordset->Eof()) {
        txtNumCertificado.Text(mdlMain::TextoCampo(*recordset, "uf_noCertificado"));
        txtCertificado.Text(mdlMain::TextoCampo(*recordset, "uf_Certificado"));
        txtPrivateKey.Text(mdlMain::TextoCampo(*recordset, "uf_LlavePrivada"));
        // The stored cipher text stands in both password fields; it is never
        // deciphered for display.
        claveOriginal_ = mdlMain::TextoCampo(*recordset, "uf_Clave");
        txtPWD.Text(claveOriginal_);
        txtPWD2.Text(claveOriginal_);
        claveMostrada_ = txtPWD.Text();
        txtPFX.Text(mdlMain::TextoCampo(*recordset, "uf_PFX"));
    }
    // A certificate in use keeps its number; paths and password stay editable.
    txtNumCertificado.Enabled(Fachada().PosibleModificarCertificado(clave));
    recordset->Close();
}

void dlgcertificado::Examinar(forms::TextBox& campo, const std::string& filtro) {
    cdlg.CancelError = true;
    cdlg.Filter = filtro;
    cdlg.FileName = "";
    const auto cancelado = Trap([&] { cdlg.ShowOpen(); });
    if (!cancelado) campo.Text(cdlg.FileName);
}

bool dlgcertificado::Validar() {
    const auto falla = [](const std::string& mensaje, forms::Control& foco) {
        core::Caja(mensaje, Icono::Informacion);
        foco.SetFocus();
        return false;
    };
    if (Trim(txtNumCertificado.Text()).empty())
        return falla("Indique el número de certificado de sello digital.", txtNumCertificado);
    if (Len(txtNumCertificado.Text()) != 20)
        return falla("Número de certificado incorrecto (longitud requerida 20 caracteres).", txtNumCertificado);
    if (!EsCFD() && txtCertificado.Text().empty())
        return falla("Indique el certificado para sello digital", txtCertificado);
    if (txtPrivateKey.Text().empty()) return falla("Indique la llave privada para sello digital", txtPrivateKey);
    if (txtPWD.Text().empty()) return falla("Indique la contraseña correspondiente a la llave privada.", txtPWD);
    if (txtPWD2.Text().empty()) return falla("Escriba nuevamente la contraseña.", txtPWD2);
    if (txtPWD.Text() != txtPWD2.Text()) return falla("La contraseña no coincide.", txtPWD2);
    return true;
}

void dlgcertificado::btnOK_Click() {
    if (!Validar()) return;
    if (!EsCFD() && txtPFX.Text().empty()) {
        const auto respuesta = host::CurrentPlatform().Ui().MsgBox(
            "Aún no ha indicado el archivo PFX para cancelaciones. ¿Desea usar los archivos indicados en este "
            "formulario para crear el archivo PFX?",
            host::Botones::SiNo, Icono::Ninguno, kTitulo);
        if (respuesta == host::Respuesta::Si) {
            GenerarPFX();
            if (txtPFX.Text().empty()) return;
        }
    }
    if (!Guardar()) return;
    Aceptado = true;
    Hide();
}

void dlgcertificado::btnCancel_Click() {
    Aceptado = false;
    Hide();
}

bool dlgcertificado::Guardar() {
    bool result = false;
    auto fault = Trap([&] { result = clave_ < 1 ? GuardarNuevo() : GuardarCambios(); });
    if (fault) {
        core::Caja(NumberAndDescription(*fault), Icono::Exclamacion);
        result = false;
    }
    return result;
}

// A new row goes in through the row writer, and its key is then read back
// by the certificate's number: the number is not checked for being unique,
// so of two rows that share it the database's first answers.
bool dlgcertificado::GuardarNuevo() {
    auto registro = host::Crear<host::cRegistro>(host::progid::cRegistro);
    Deref(registro).Conexion(Fachada().ADOCnn);
    registro->Tabla("ut_CFDInfo");
    registro->Nuevo();
    auto& campos = registro->Campos();
    campos.Add(mdlMain::NuevoCampo("uf_noCertificado", "String", Trim(txtNumCertificado.Text()), 20, true),
               "uf_noCertificado");
    campos.Add(mdlMain::NuevoCampo("uf_Certificado", "String", Trim(txtCertificado.Text()), 4096, false),
               "uf_Certificado");
    campos.Add(mdlMain::NuevoCampo("uf_LlavePrivada", "String", Trim(txtPrivateKey.Text()), 4096, false),
               "uf_LlavePrivada");
    campos.Add(mdlMain::NuevoCampo("uf_PFX", "String", Trim(txtPFX.Text()), 4096, false), "uf_PFX");
    campos.Add(mdlMain::NuevoCampo("uf_Clave", "String", mdlMain::CifrarTexto(txtPWD.Text()), 4096, false),
               "uf_Clave");
    if (!registro->Guardar()) {
        core::Caja("Error al guardar certificado. " + registro->UltimoError(), Icono::Exclamacion);
        return false;
    }
    ResumeNext([&] {
        clave_ = CLng(mdlMain::LeerValorConsulta(
            Fachada().ADOCnn,
            "SELECT Sys_PK FROM ut_CFDInfo WHERE uf_noCertificado='" + Trim(txtNumCertificado.Text()) + "'",
            "Sys_PK"));
    });
    return true;
}

// A changed row is written through a keyset recordset. The password is
// enciphered again only when the text shown at loading was changed, so an
// untouched one stays as stored, byte for byte.
bool dlgcertificado::GuardarCambios() {
    auto recordset = host::Crear<host::Recordset>(host::progid::Recordset);
    Deref(recordset).CursorLocation(host::adUseClient);
    recordset->Open("Select uf_noCertificado,uf_Certificado,uf_LLavePrivada,uf_PFX, uf_clave FROM ut_CFDInfo "
                    "WHERE Sys_PK=" +
                        std::to_string(clave_),
                    Fachada().ADOCnn, host::adOpenKeyset, host::adLockOptimistic);
    recordset->Fields("uf_noCertificado").Value(Variant(Trim(txtNumCertificado.Text())));
    recordset->Fields("uf_Certificado").Value(Variant(txtCertificado.Text()));
    recordset->Fields("uf_LLavePrivada").Value(Variant(txtPrivateKey.Text()));
    if (txtPWD.Text() != claveMostrada_) {
        recordset->Fields("uf_clave").Value(Variant(mdlMain::CifrarTexto(txtPWD.Text())));
    }
    recordset->Fields("uf_PFX").Value(Variant(Trim(txtPFX.Text())));
    recordset->Update();
    recordset->Close();
    return true;
}

}  // namespace celdora

#pragma once

// How comprobantes leave by mail: the sender, the server and its account,
// kept in the keys NVCA304x to NVCA315x. Other components send the mail and
// read the same keys. The main configuration dialog and the setup wizard show
// this page; the password is kept enciphered and is only enciphered again
// when the user typed a new one.

#include <string>

#include "configdialog/Marco.h"
#include "forms/Controles.h"
#include "forms/Unidad.h"

namespace celdora::configuracion {

class PaginaCorreo : public forms::Unidad {
public:
    PaginaCorreo(forms::Dialogo& dialogo, Marco& marco);

    forms::Frame& fraRemitente = Agregar<forms::Frame>("fraRemitente", "Información del remitente");
    forms::TextBox& txtDisplayName = Agregar<forms::TextBox>("txtDisplayName", "Nombre para mostrar:");
    forms::TextBox& txtMail = Agregar<forms::TextBox>("txtMail", "eMail:");
    forms::TextBox& txtAsunto = Agregar<forms::TextBox>("txtAsunto", "Asunto:", "Factura electrónica $Referencia$");
    forms::TextBox& txtCC = Agregar<forms::TextBox>("txtCC", "CC:");
    forms::Memo& MemCuerpo = Agregar<forms::Memo>("MemCuerpo", "Mesaje predeterminado:");
    forms::Frame& fraServidor = Agregar<forms::Frame>("fraServidor", "Configuración del servidor de correo");
    forms::TextBox& txtServidor = Agregar<forms::TextBox>("txtServidor", "Servidor SMTP");
    forms::CheckBox& chkssl =
        Agregar<forms::CheckBox>("chkssl", "Este servidor precisa una conexión cifrada (SSL)");
    forms::TextBox& txtUsuario = Agregar<forms::TextBox>("txtUsuario", "Usuario:");
    forms::TextBox& txtP1 = Agregar<forms::TextBox>("txtP1", "Contraseña:");
    forms::TextBox& txtP2 = Agregar<forms::TextBox>("txtP2", "Confirmar contraseña:");
    forms::NumberField& NumTimeout =
        Agregar<forms::NumberField>("NumTimeout", "Tiempo de espera del servidor (segundos)");
    forms::NumberField& NumPort = Agregar<forms::NumberField>("NumPort", "Puerto:");
    forms::CheckBox& chkgetaddress =
        Agregar<forms::CheckBox>("chkgetaddress", "Solicitar siempre dirección de correo del destinatario.");

    // The value of txtP1 as loaded: the stored, enciphered text.
    std::string passCorreo;

    // Places the two frames on a page of the dialog; the fields stand in them.
    void Colocar(const std::string& contenedor, int pagina);

    // Each field from its key, with the key's default, in the order the
    // keys were first written. Numbers and check boxes are kept as texts.
    void cargarCorreo();
    // Both password fields must hold the same text. paginaDelCorreo is the
    // page the dialog shows on a mismatch; -1 keeps the page.
    bool validarPassCorreo(int paginaDelCorreo);
    // NVCA304x to NVCA315x; the password only when it was changed.
    void guardarCorreo();

private:
    Marco& marco_;
};

}  // namespace celdora::configuracion

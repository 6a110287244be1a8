#include "configdialog/PaginaCorreo.h"

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "value/Channels.h"
#include "value/Convert.h"
#include "value/Text.h"

namespace celdora::configuracion {

PaginaCorreo::PaginaCorreo(forms::Dialogo& dialogo, Marco& marco) : Unidad(dialogo), marco_(marco) {
    for (forms::Control* c : std::initializer_list<forms::Control*>{&txtDisplayName, &txtMail, &txtAsunto, &txtCC,
                                                                     &MemCuerpo}) {
        c->Colocar(fraRemitente.Nombre());
    }
    for (forms::Control* c : std::initializer_list<forms::Control*>{&txtServidor, &chkssl, &txtUsuario, &txtP1,
                                                                     &txtP2, &NumTimeout, &NumPort, &chkgetaddress}) {
        c->Colocar(fraServidor.Nombre());
    }
    txtP1.PasswordChar("*");
    txtP2.PasswordChar("*");
}

void PaginaCorreo::Colocar(const std::string& contenedor, int pagina) {
    fraRemitente.Colocar(contenedor, pagina);
    fraServidor.Colocar(contenedor, pagina);
}

void PaginaCorreo::cargarCorreo() {
    ResumeNext([&] { txtMail.Text(marco_.Ajustes().LeerTexto("NVCA304x", "")); });
    ResumeNext([&] { txtDisplayName.Text(marco_.Ajustes().LeerTexto("NVCA305x", "")); });
    ResumeNext([&] { txtAsunto.Text(marco_.Ajustes().LeerTexto("NVCA306x", "Factura Electrónica $Referencia$")); });
    ResumeNext([&] { txtCC.Text(marco_.Ajustes().LeerTexto("NVCA307x", "")); });
    ResumeNext([&] { MemCuerpo.Text(marco_.Ajustes().LeerTexto("NVCA308x", "")); });
    ResumeNext([&] { txtServidor.Text(marco_.Ajustes().LeerTexto("NVCA309x", "")); });
    ResumeNext([&] { chkssl.Value(static_cast<int>(Val(marco_.Ajustes().LeerTexto("NVCA310x", "0")))); });
    ResumeNext([&] { txtUsuario.Text(marco_.Ajustes().LeerTexto("NVCA311x", "")); });
    // The stored password stays enciphered behind the mask.
    ResumeNext([&] { txtP1.Text(marco_.Ajustes().LeerTexto("NVCA312x", "")); });
    ResumeNext([&] { passCorreo = txtP1.Text(); });
    ResumeNext([&] { txtP2.Text(txtP1.Text()); });
    ResumeNext([&] { NumTimeout.Value(Val(marco_.Ajustes().LeerTexto("NVCA313x", "60"))); });
    ResumeNext([&] { NumPort.Value(Val(marco_.Ajustes().LeerTexto("NVCA314x", "80"))); });
    ResumeNext([&] { chkgetaddress.Value(static_cast<int>(Val(marco_.Ajustes().LeerTexto("NVCA315x", "0")))); });
}

bool PaginaCorreo::validarPassCorreo(int paginaDelCorreo) {
    if (txtP1.Text() == txtP2.Text()) return true;
    core::Caja("Las contraseñas de servidor de correo no coiciden.", host::Icono::Informacion);
    if (paginaDelCorreo >= 0) {
        marco_.IrA(paginaDelCorreo, txtP2);
    } else {
        txtP2.SetFocus();
    }
    return false;
}

void PaginaCorreo::guardarCorreo() {
    ResumeNext([&] { marco_.Ajustes().GuardarTexto("NVCA304x", Trim(txtMail.Text())); });
    ResumeNext([&] { marco_.Ajustes().GuardarTexto("NVCA305x", Trim(txtDisplayName.Text())); });
    ResumeNext([&] { marco_.Ajustes().GuardarTexto("NVCA306x", Trim(txtAsunto.Text())); });
    ResumeNext([&] { marco_.Ajustes().GuardarTexto("NVCA307x", Trim(txtCC.Text())); });
    ResumeNext([&] { marco_.Ajustes().GuardarTexto("NVCA308x", Trim(MemCuerpo.Text())); });
    ResumeNext([&] { marco_.Ajustes().GuardarTexto("NVCA309x", Trim(txtServidor.Text())); });
    ResumeNext([&] { marco_.Ajustes().GuardarTexto("NVCA310x", CStr(Variant(chkssl.Value()))); });
    ResumeNext([&] { marco_.Ajustes().GuardarTexto("NVCA311x", Trim(txtUsuario.Text())); });
    // A new password is typed in plain text; the stored one is left alone.
    ResumeNext([&] {
        if (txtP1.Text() != passCorreo) marco_.Ajustes().GuardarTexto("NVCA312x", mdlMain::CifrarTexto(txtP1.Text()));
    });
    ResumeNext([&] { marco_.Ajustes().GuardarTexto("NVCA313x", CStr(Variant(NumTimeout.Value()))); });
    ResumeNext([&] { marco_.Ajustes().GuardarTexto("NVCA314x", CStr(Variant(NumPort.Value()))); });
    ResumeNext([&] { marco_.Ajustes().GuardarTexto("NVCA315x", CStr(Variant(chkgetaddress.Value()))); });
}

}  // namespace celdora::configuracion

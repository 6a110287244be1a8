#include "configdialog/PaginaEmisor.h"

#include <cstdint>
#include <vector>

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "value/Channels.h"
#include "value/Convert.h"
#include "value/Text.h"

namespace celdora::configuracion {

using host::Icono;

PaginaEmisor::PaginaEmisor(forms::Dialogo& dialogo, Marco& marco) : Unidad(dialogo), marco_(marco) {}

void PaginaEmisor::Colocar(const std::string& contenedor, int pagina) {
    txtNombreEmisor.Colocar(contenedor, pagina);
    txtRFCEmisor.Colocar(contenedor, pagina);
    eDir.Colocar(contenedor, pagina);
}

void PaginaEmisor::cargarEmisor(Encabezado encabezado) {
    ResumeNext([&] {
        if (!objDomicilio) objDomicilio = NuevoDomicilio();
        Deref(objDomicilio).Conexion(marco_.Fachada().ADOCnn);
    });
    ResumeNext([&] { eDir.direccionSeparada(true); });
    if (encabezado == Encabezado::ConNotasYTitulo) {
        ResumeNext([&] { eDir.notes(""); });
        ResumeNext([&] { eDir.titulo("Domicilio Fiscal"); });
    }
    ResumeNext([&] { txtNombreEmisor.Text(Deref(marco_.Fachada().GlobalVar).LeerTexto("NVCA100", "")); });
    ResumeNext([&] { txtRFCEmisor.Text(Deref(marco_.Fachada().GlobalVar).LeerTexto("NVCA101", "")); });
    // No address has been kept while the key is below 1.
    std::int32_t clave = 0;
    ResumeNext([&] { clave = CLng(Variant(Deref(marco_.Fachada().GlobalVar).LeerTexto("NVCA102b", "0"))); });
    if (clave < 1) return;
    bool cargado = false;
    ResumeNext([&] { cargado = Deref(objDomicilio).cargar(clave); });
    if (!cargado) {
        core::Caja("Error al cargar domicilio fiscal de emisor.", Icono::Exclamacion);
        return;
    }
    ResumeNext([&] { MostrarDomicilio(Deref(objDomicilio), eDir); });
}

bool PaginaEmisor::Falla(const std::string& mensaje, forms::Control& control) {
    core::Caja(mensaje, Icono::Informacion);
    marco_.IrA(1, control);
    return false;
}

bool PaginaEmisor::validarNombreYRFC() {
    if (Trim(txtNombreEmisor.Text()).empty()) {
        return Falla("Por favor ingrese el nombre del Emisor del comprobante fiscal digital", txtNombreEmisor);
    }
    if (Trim(txtRFCEmisor.Text()).empty()) {
        return Falla("Por favor ingrese el RFC del Emisor del comprobante fiscal digital", txtRFCEmisor);
    }
    return true;
}

// A missing city is told and the checks go on, so by itself it refuses
// nothing. The unknown city is the host's "(desconocido)". Only the length
// of the postal code counts: letters pass.
bool PaginaEmisor::validarDomicilioFiscal() {
    if (eDir.ciudad() < 0) Falla("Por favor seleccione una ciudad.", eDir);
    std::string ciudad;
    ResumeNext([&] {
        ciudad = CStr(mdlMain::LeerValorConsulta(
            marco_.Fachada().ADOCnn, "SELECT Nombre FROM Ciudad WHERE Sys_PK=" + std::to_string(eDir.ciudad()),
            "Nombre"));
    });
    if (LCase(ciudad) == "(desconocido)") return Falla("Ciudad incorrecta.", eDir);
    const std::string direccion = eDir.address();
    if (direccion.empty()) return Falla("El campo dirección debe contener por lo menos el nombre de calle.", eDir);
    if (Left(direccion, 2) != "||") {
        eDir.direccionSeparada(true);
        return Falla("Dirección incorrecta debe separar nombre de calle, número exterior y número interior. por "
                     "favor indique por lo menos el nombre de la calle.",
                     eDir);
    }
    if (Split(direccion, "|")[2].empty()) {
        return Falla("Dirección incorrecta. por favor indique por lo menos el nombre de la calle.", eDir);
    }
    const std::string codigoPostal = Trim(eDir.codep());
    if (codigoPostal.empty() || Len(codigoPostal) != 5) {
        return Falla("Código postal incorrecto. Debe contener 5 dígitos", eDir);
    }
    return true;
}

bool PaginaEmisor::guardarDomicilioFiscal(CodigoPostal codigoPostal, Errores errores) {
    Paso(errores, [&] {
        if (!objDomicilio) objDomicilio = NuevoDomicilio();
    });
    LlenarDomicilio(eDir, objDomicilio, codigoPostal, errores);
    bool guardado = false;
    Paso(errores, [&] { guardado = Deref(objDomicilio).guardar(); });
    if (!guardado) {
        Paso(errores, [&] {
            core::Caja("Error al guardar domicilio fiscal. " + Deref(objDomicilio).ultimoError(), Icono::Exclamacion);
        });
        return false;
    }
    Paso(errores, [&] {
        Deref(marco_.Fachada().GlobalVar).GuardarTexto("NVCA102b", std::to_string(Deref(objDomicilio).Sys_PK()));
    });
    Paso(errores, [&] { Deref(marco_.Fachada().GlobalVar).GuardarTexto("NVCA100", Trim(txtNombreEmisor.Text())); });
    Paso(errores, [&] { Deref(marco_.Fachada().GlobalVar).GuardarTexto("NVCA101", Trim(txtRFCEmisor.Text())); });
    return true;
}

}  // namespace celdora::configuracion

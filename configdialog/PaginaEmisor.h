#pragma once

// The issuer: fiscal name, RFC and fiscal address. The name and the RFC live
// in the company settings (NVCA100, NVCA101); the address is a row of the
// host's table Domicilio, written only through the host's address object,
// and the settings keep its key (NVCA102b). The main configuration dialog,
// the setup wizard and the CBB issuer compose this unit.

#include <memory>
#include <string>

#include "configdialog/ControlDomicilio.h"
#include "configdialog/Marco.h"
#include "forms/Controles.h"
#include "forms/Unidad.h"
#include "host/HostObjects.h"

namespace celdora::configuracion {

class PaginaEmisor : public forms::Unidad {
public:
    // The CBB issuer leaves the address control's remarks and heading alone.
    enum class Encabezado { ConNotasYTitulo, SinNotasNiTitulo };

    PaginaEmisor(forms::Dialogo& dialogo, Marco& marco);

    forms::TextBox& txtNombreEmisor = Agregar<forms::TextBox>("txtNombreEmisor", "Nombre fiscal:");
    forms::TextBox& txtRFCEmisor = Agregar<forms::TextBox>("txtRFCEmisor", "RFC:");
    forms::AddressControl& eDir = Agregar<forms::AddressControl>("eDir");

    // The fiscal address row, created through the platform on first use.
    std::shared_ptr<host::objDomicilio> objDomicilio;

    // Places the three controls on that page of that container.
    void Colocar(const std::string& contenedor, int pagina);

    // Name, RFC and the stored address into the controls; errors ignored.
    void cargarEmisor(Encabezado encabezado = Encabezado::ConNotasYTitulo);
    // Neither the name nor the RFC may be empty; a failure takes the user to
    // page 1 and the field.
    bool validarNombreYRFC();
    // The fiscal address: a known city, a street name in the separated
    // form, a postal code of five characters. A failure takes the user to
    // page 1 and the address control.
    bool validarDomicilioFiscal();
    // The address saved through its object; then its key, the trimmed name
    // and the trimmed RFC go to the settings, in that order. A failed save
    // is told and writes no key.
    bool guardarDomicilioFiscal(CodigoPostal codigoPostal = CodigoPostal::SinBlancos,
                                Errores errores = Errores::SeIgnoran);

private:
    bool Falla(const std::string& mensaje, forms::Control& control);

    Marco& marco_;
};

}  // namespace celdora::configuracion

#include "configdialog/ControlDomicilio.h"

#include "host/Platform.h"
#include "value/Channels.h"
#include "value/Text.h"

namespace celdora::configuracion {

void Paso(Errores errores, const std::function<void()>& sentencia) {
    if (errores == Errores::SeIgnoran) {
        ResumeNext(sentencia);
    } else {
        sentencia();
    }
}

std::shared_ptr<host::objDomicilio> NuevoDomicilio() {
    return host::Crear<host::objDomicilio>(host::progid::objDomicilio);
}

void MostrarDomicilio(host::objDomicilio& origen, forms::AddressControl& destino) {
    destino.colony(origen.colony());
    destino.address(origen.address());
    destino.ciudad(origen.objCiudad().Sys_PK());
    destino.notes(origen.notes());
    destino.codep(origen.codep());
    destino.phone(origen.phone());
}

void LlenarDomicilio(const forms::AddressControl& origen, const std::shared_ptr<host::objDomicilio>& destino,
                     CodigoPostal codigoPostal, Errores errores) {
    Paso(errores, [&] { Deref(destino).colony(origen.colony()); });
    Paso(errores, [&] { Deref(destino).address(origen.address()); });
    Paso(errores, [&] { Deref(destino).objCiudad().cargarPor("Sys_PK", Variant::Long(origen.ciudad())); });
    Paso(errores, [&] { Deref(destino).notes(origen.notes()); });
    Paso(errores, [&] {
        Deref(destino).codep(codigoPostal == CodigoPostal::SinBlancos ? Trim(origen.codep()) : origen.codep());
    });
    Paso(errores, [&] { Deref(destino).phone(origen.phone()); });
}

}  // namespace celdora::configuracion

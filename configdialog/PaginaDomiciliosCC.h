#pragma once

// Expedition addresses by consumption centre: each centre of the host's
// table CConsumo points at a row of Domicilio of its own, and one centre may
// give the expedition address of documents in receivables. The check box
// chkUsarDomFisComoDomExp switches all this off: the fiscal address is then
// the expedition address everywhere, and the page of the centres is out of
// use. The centre's address and its receivables flag are saved at once by
// their own controls. The main configuration dialog and the setup wizard
// compose this unit.

#include <memory>
#include <string>

#include "configdialog/Marco.h"
#include "forms/Controles.h"
#include "forms/Unidad.h"
#include "host/HostObjects.h"

namespace celdora::configuracion {

class PaginaDomiciliosCC : public forms::Unidad {
public:
    // pestanasExpedicion and paginaExpedicion: the page of the centres,
    // which is out of use while chkUsarDomFisComoDomExp is checked.
    PaginaDomiciliosCC(forms::Dialogo& dialogo, Marco& marco, forms::TabControl& pestanasExpedicion,
                       int paginaExpedicion);

    // It stands apart from the centres (on the issuer's page of the main
    // dialog), so the dialog places it itself.
    forms::CheckBox& chkUsarDomFisComoDomExp =
        Agregar<forms::CheckBox>("chkUsarDomFisComoDomExp", "El domicilio fiscal es el domicilio de expedición");
    forms::Label& lblDomicilioCC = Agregar<forms::Label>(
        "lblDomicilioCC",
        "Esta configuración aplica para cada Centro de Consumo. El domicilio de expedición que se integrará en la "
        "Factura Electrónica dependerá del centro de consumo del cual se ha realizado la salida de inventario.");
    forms::ComboBox& cmbCC =
        Agregar<forms::ComboBox>("cmbCC", forms::ComboBox::Estilo::SoloLista, "Seleccione un Centro de Consumo:");
    forms::AddressControl& eDirCC = Agregar<forms::AddressControl>("eDirCC");
    forms::CommandButton& btnSaveDomCC =
        Agregar<forms::CommandButton>("btnSaveDomCC", "Guardar cambios en domicilio");
    forms::CheckBox& chkDomicilioExpCXC = Agregar<forms::CheckBox>(
        "chkDomicilioExpCXC",
        "Establecer este domicilio como domicilio de expedición de documentos en cuentas por cobrar");

    // The address of the centre shown.
    std::shared_ptr<host::objDomicilio> objDomicilioCC;

    // Places every control but chkUsarDomFisComoDomExp on that page.
    void Colocar(const std::string& contenedor, int pagina);

    // A new address object on the facade's connection.
    void crearDomicilioCC();
    // The centres by name into cmbCC; the first one is selected and shown.
    void cargarCentrosConsumo();
    // The selected centre's address and receivables flag (cmbCC's click).
    void cargarDomicilioCC();
    // Each centre needs a city other than "desconocido" and a street in the
    // separated form. Its own errors are told and give false.
    bool validarDomiciliosCC();
    // While chkUsarDomFisComoDomExp is unchecked, validarDomiciliosCC; its
    // failure is followed by a box that sends the user to the centres.
    bool validarExpedicion();
    // With chkUsarDomFisComoDomExp checked, every centre loses its address
    // and flag (the rows of Domicilio stay). Its own errors are told and
    // give false.
    bool suprimirDomiciliosCC();
    // The page of the centres can be opened only while
    // chkUsarDomFisComoDomExp is unchecked; also run at each of its clicks.
    void aplicarDomicilioExpedicion();

private:
    void btnSaveDomCC_Click();
    void chkDomicilioExpCXC_Click();
    std::string CentroSeleccionado() const;

    Marco& marco_;
    forms::TabControl& pestanasExpedicion_;
    int paginaExpedicion_;
};

}  // namespace celdora::configuracion

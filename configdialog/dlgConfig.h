#pragma once

// The main configuration dialog: in six pages, everything the fiscal side
// keeps for a company. Each page is a unit of its own, shared with the
// dialogs that repeat it (the setup wizard, the CBB issuer); this model adds
// the frame: the order in which the pages load, the chain of checks of the
// OK button, and the order of the save. The save runs without a
// transaction: each step commits as it runs and a failure leaves the earlier
// steps in place. Certificates, folio ranges, blocks, the addresses of the
// consumption centres and the permissions are saved at once by their own
// buttons, and Cancel does not undo them.

#include <vector>

#include "configdialog/Marco.h"
#include "configdialog/PaginaAdicionales.h"
#include "configdialog/PaginaCorreo.h"
#include "configdialog/PaginaDomiciliosCC.h"
#include "configdialog/PaginaEmisor.h"
#include "configdialog/PaginaGeneral.h"
#include "configdialog/PaginaPermisos.h"
#include "configdialog/PaginaRegimenes.h"
#include "forms/Controles.h"
#include "forms/Dialogo.h"

namespace celdora {

class cAcction;

class dlgConfig : public forms::Dialogo {
public:
    // The pages by the index the logic selects them with.
    enum Pagina { kGeneral = 0, kEmisor = 1, kExpedicion = 2, kCorreo = 3, kAdicionales = 4, kPermisos = 5 };

    dlgConfig();

    configuracion::Marco marco;

    forms::TabControl& TabControl = Agregar<forms::TabControl>(
        "TabControl", std::vector<std::string>{"General", "Emisor", "Domicilio de expedición", "Envío por e-Mail",
                                               "Adicionales", "Permisos"});
    configuracion::PaginaGeneral general{*this, marco};
    configuracion::PaginaEmisor emisor{*this, marco};
    configuracion::PaginaRegimenes regimenes{*this, marco};
    configuracion::PaginaDomiciliosCC expedicion{*this, marco, TabControl, kExpedicion};
    configuracion::PaginaCorreo correo{*this, marco};
    configuracion::PaginaAdicionales adicionales{*this, marco};
    configuracion::PaginaPermisos permisos{*this, marco};
    forms::CommandButton& btnOK = Agregar<forms::CommandButton>("btnOK", "&Aceptar");
    forms::CommandButton& btnCancel = Agregar<forms::CommandButton>("btnCancel", "&Cancelar");

    // Keeps the facade and hands the address controls the catalogue's places.
    void setObjects(cAcction* oAcc);
    // Loads every page.
    void init();

    // The checks of the OK button, in order; the first that fails ends them.
    bool validarDatos();
    // Writes what the pages hold; true only when every step ran.
    bool guardarDatos();
    // The print format stays hidden, and the kind decides which of the
    // folio and block panels shows. Also runs at every change of page.
    void mostrarFoliosOBlocks();

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void btnOK_Click();
    void btnCancel_Click();
    void cargarConfigAvanzada();
    void guardarConfigAvanzada();
};

}  // namespace celdora

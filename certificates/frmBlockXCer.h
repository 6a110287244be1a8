#pragma once

// The document blocks given to one certificate for stamped comprobantes
// (BlockDocumentos.uf_CFDI_Info). The list shows the invoice, credit and
// charge note blocks that are free and those already given to this
// certificate; a checked item is given to it, an unchecked one is freed.

#include <cstdint>
#include <string>

#include "forms/Controles.h"
#include "forms/Dialogo.h"

namespace celdora {

class cAcction;

class frmBlockXCer : public forms::Dialogo {
public:
    frmBlockXCer();

    void setObjects(cAcction& acction);
    // Keeps the certificate's key, shows its number and fills the list.
    void setCer(std::int32_t& clave, std::string& noCertificado);
    // Writes every item in list order, each in its own statement and without
    // a transaction; false after a failure, with what ran before it in force.
    bool GuardarBlocks();

    forms::Label& lblSeleccione = Agregar<forms::Label>(
        "lblSeleccione",
        "Seleccione los documentos que desee asignar al certificado de sello digital para CFDI con número:");
    forms::Label& lblCertificado = Agregar<forms::Label>("lblCertificado", "NO DE CERTIFICADO");
    forms::ListView& lvw = Agregar<forms::ListView>("lvw");
    forms::CommandButton& btnGuardar = Agregar<forms::CommandButton>("btnGuardar", "&Guardar");
    forms::CommandButton& btnCerrar = Agregar<forms::CommandButton>("btnCerrar", "&Cerrar");

protected:
    void Form_Unload() override;

private:
    cAcction& Fachada() const;

    cAcction* acc_ = nullptr;
    std::int32_t clave_ = 0;
};

}  // namespace celdora

#pragma once

// The editor of one approved folio range (a row of ut_CFDFolio): series,
// first and last folio, number and year of approval, the certificate that
// seals it and the document block that uses it. Saving links the block to
// the range; a block taken from another range leaves the new range a note of
// the former one (uf_CFDFolioAnterior).

#include <cstdint>
#include <string>
#include <vector>

#include "forms/Controles.h"
#include "forms/Dialogo.h"

namespace celdora {

class cAcction;

class dlgRangoFolios : public forms::Dialogo {
public:
    dlgRangoFolios();

    // Keeps the facade and fills both lists (the blocks with their filter).
    void setObjects(cAcction& acction);
    // Loads the range with this key; a key below 1 is refused with a box.
    void load(std::int32_t& clave);
    // The row's key; after a new range is saved, the new key.
    std::int32_t Sys_PK() const { return clave_; }

    // Fills cmbBlock with the blocks of invoices, credit and charge notes
    // that no certificate for stamping and no CBB range holds: those without
    // a range, those of `rango`, and with `todos` those of any range.
    void CargarBlocks(std::int32_t rango, bool todos);

    // A certificate added, or the chosen one changed, from here through the
    // facade's commands; the list of certificates is then filled again. No
    // control of the dialog starts them.
    void AgregarCertificado();
    void ModificarCertificado();

    forms::TabControl& tab = Agregar<forms::TabControl>("tab", std::vector<std::string>{"General"});
    forms::TextBox& txtSerie = Agregar<forms::TextBox>("txtSerie", "Serie:");
    forms::NumberField& eNumFInicial = Agregar<forms::NumberField>("eNumFInicial", "Folio inicial:");
    forms::NumberField& eNumFFinal = Agregar<forms::NumberField>("eNumFFinal", "Folio final:");
    forms::NumberField& eNumNoAprobacion = Agregar<forms::NumberField>("eNumNoAprobacion", "Número de aprobación:");
    forms::NumberField& eNumAnioAprobacion = Agregar<forms::NumberField>("eNumAnioAprobacion", "Año de aprobación:");
    forms::ComboBox& cmbCertificado = Agregar<forms::ComboBox>(
        "cmbCertificado", forms::ComboBox::Estilo::SoloLista, "Certificado de sello digital:");
    forms::ComboBox& cmbBlock =
        Agregar<forms::ComboBox>("cmbBlock", forms::ComboBox::Estilo::SoloLista, "Block de documentos:");
    forms::CommandButton& btnBlock = Agregar<forms::CommandButton>("btnBlock", "Cargar todos los blocks");
    forms::CommandButton& btnOK = Agregar<forms::CommandButton>("btnOK", "&Aceptar");
    forms::CommandButton& btnCancel = Agregar<forms::CommandButton>("btnCancel", "&Cancelar");

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void btnOK_Click();
    void btnCancel_Click();
    void btnBlock_Click();
    void CargarCertificados();

    bool Validar();
    bool PreguntarPorBlock();
    bool Guardar();

    cAcction& Fachada() const;

    cAcction* acc_ = nullptr;
    std::int32_t clave_ = 0;
    std::int32_t blockOriginal_ = 0;
    std::int32_t rangoAnterior_ = 0;
};

}  // namespace celdora

#pragma once

// The editor of one CBB range: folios approved for paper comprobantes that
// carry a two-dimensional code, with the approval's number and date, the
// document block they belong to, an optional serie and the code's image,
// stored in the row as the file's own bytes. It reads and writes the
// database itself, over the facade's connection.

#include <cstdint>
#include <memory>
#include <string>

#include "forms/Controles.h"
#include "forms/Dialogo.h"
#include "host/Ado.h"

namespace celdora {

class cAcction;

class dlgConfigFoliosCBB : public forms::Dialogo {
public:
    dlgConfigFoliosCBB();

    // Always the first call: keeps the facade and brings the table up to
    // date with the approval date column.
    void SetDataObjects(cAcction& acc);
    // Fills the dialog from a stored row. Nothing is trapped here: a fault
    // ends the filling at the field that raised it.
    void load(std::int32_t pk);

    forms::NumberField& eNumNAprobacion = Agregar<forms::NumberField>("eNumNAprobacion", "Número de Aprobación:");
    forms::DateField& eDtFechaAprobacion = Agregar<forms::DateField>("eDtFechaAprobacion", "Fecha de aprobación:");
    forms::NumberField& eNumFInicial = Agregar<forms::NumberField>("eNumFInicial", "Folio inicial:");
    forms::NumberField& eNumFFinal = Agregar<forms::NumberField>("eNumFFinal", "Folio final:");
    forms::TextBox& etxtSerie = Agregar<forms::TextBox>("etxtSerie", "Serie (Opcional):");
    forms::ComboBox& cmbBlock =
        Agregar<forms::ComboBox>("cmbBlock", forms::ComboBox::Estilo::SoloLista, "Block de Documentos");
    // A click on the path chooses the image file.
    forms::TextBox& txtCBB = Agregar<forms::TextBox>("txtCBB", "Ubicación del CBB");
    forms::PictureBox& pctCBB = Agregar<forms::PictureBox>("pctCBB");
    forms::CommandButton& btnQuitarIMG = Agregar<forms::CommandButton>("btnQuitarIMG", "Quitar Imagen");
    forms::CommandButton& btnOK = Agregar<forms::CommandButton>("btnOK", "&Aceptar");
    forms::CommandButton& btnCancel = Agregar<forms::CommandButton>("btnCancel", "&Cancelar");
    forms::CommonDialog& dlgArchivo = Agregar<forms::CommonDialog>("dlgArchivo");

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void actualizarEsquema();
    void cargarBlocks();
    void etxtSerie_KeyPress(int& keyAscii);
    void txtCBB_Click();
    void seleccionarImagen();
    void btnQuitarIMG_Click();
    void btnOK_Click();
    void btnCancel_Click();

    bool validarDatos();
    bool rangoDuplicado();
    bool guardarDatos();
    bool insertarRango();
    void guardarImagen(std::int32_t pk);

    cAcction& Fachada() const;

    cAcction* oAcc_ = nullptr;
    std::shared_ptr<host::Connection> cnn_;
    std::int32_t pkRango_ = 0;
    bool imagenCambiada_ = false;
};

}  // namespace celdora

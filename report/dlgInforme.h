#pragma once

// The monthly report's generation dialog. The user chooses a month and a
// year; on acceptance the month's unreported log lines are normalised into
// the report, marked as reported, stored in ut_CFDInforme and written to a
// file in a folder the user chooses, all in one transaction.

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/Controles.h"
#include "forms/Dialogo.h"
#include "host/Ado.h"
#include "host/Dorvex.h"
#include "value/Date.h"

namespace celdora {

class cAcction;

class dlgInforme : public forms::Dialogo {
public:
    dlgInforme();

    // The facade whose connection, settings and members the dialog uses.
    void setObjects(cAcction& acc);
    // Fills the month and year lists and selects mes and anio; a value below
    // zero stands for today's month or year. A year outside the list leaves
    // no year selected.
    void load(std::int16_t mes, std::int16_t anio);

    forms::TabControl& tab =
        Agregar<forms::TabControl>("tab", std::vector<std::string>{"Comprobantes fiscales emitidos"});
    forms::ComboBox& cmbmes =
        Agregar<forms::ComboBox>("cmbmes", forms::ComboBox::Estilo::SoloLista, "Seleccione el mes a reportar.");
    forms::ComboBox& cmbAnio = Agregar<forms::ComboBox>("cmbAnio", forms::ComboBox::Estilo::SoloLista);
    forms::CommandButton& btnOK = Agregar<forms::CommandButton>("btnOK", "&Aceptar");
    forms::CommandButton& btnCancelar = Agregar<forms::CommandButton>("btnCancelar", "&Cancelar");

protected:
    void Form_Unload() override;

private:
    void btnOK_Click();
    void btnCancelar_Click();

    bool Save();
    bool PosibleGenerarEsteInforme(std::int16_t mes, std::int16_t anio, bool& existe);
    std::string SeleccionarCarpeta();
    // The report's name, once the issuer's tax identifier has passed its
    // checks; nothing when it has not, and the user has been told why.
    std::optional<std::string> NombreDelInforme(std::int16_t mes, std::int16_t anio);
    bool GenerarEnTransaccion(std::int16_t mes, std::int16_t anio, bool existe, const std::string& nombre,
                              const std::string& ruta);
    // Walks the month's log rows into the report text, writing each row's
    // report line back as reported; false when a row stopped the generation.
    bool RecorrerBitacora(host::Recordset& recordset, std::string& contenido);
    // Stores the report's row; contenido is the field that holds its text.
    bool GuardarInforme(const std::shared_ptr<host::cCampo>& contenido, const std::string& nombre, std::int16_t mes,
                        std::int16_t anio, Date fecha);
    // Rolls the generation back, closes the progress window and tells why.
    void Abandonar(const std::string& mensaje);

    cAcction& Fachada() const;

    cAcction* acc_ = nullptr;
};

}  // namespace celdora

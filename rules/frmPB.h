#pragma once

// The progress window: a title, the command being run, a line asking to wait,
// and a bar. It shows without blocking; the shared module holds the one
// instance (MostrarProgreso and companions, ShowProgress of the facade).

#include <cstdint>
#include <string>

#include "forms/Controles.h"
#include "forms/Dialogo.h"

namespace celdora {

class frmPB : public forms::Dialogo {
public:
    frmPB();

    forms::Label& lbltitle = Agregar<forms::Label>("lbltitle", "Procesando...");
    forms::Label& lblcmd = Agregar<forms::Label>("lblcmd", "Ejecutando comando...");
    forms::Label& lblinfo =
        Agregar<forms::Label>("lblinfo", "Este proceso puede tardar varios minutos. Por favor espere...");
    forms::ProgressBar& pb = Agregar<forms::ProgressBar>("pb");

    // The bar runs in circles from 0 to the limit, a step per SetProgress.
    void Auto(std::int32_t limit);
    // The command text, and the bar: the value when it is 1 or more, or a
    // step in automatic mode; one turn of the message loop.
    void SetProgress(const std::string& text, std::int32_t value);
    // Fills the bar when complete.
    void FinishAuto(bool complete);

    bool Automatico() const { return automatico_; }
    std::int32_t Limite() const { return limite_; }

private:
    bool automatico_ = false;
    std::int32_t limite_ = 0;
};

}  // namespace celdora

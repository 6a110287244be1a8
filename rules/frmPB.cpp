#include "rules/frmPB.h"

#include "host/Platform.h"

namespace celdora {

frmPB::frmPB() : Dialogo("frmPB", "Progreso") {}

void frmPB::Auto(std::int32_t limit) {
    automatico_ = true;
    limite_ = limit;
    pb.Limites(0, limit);
}

void frmPB::SetProgress(const std::string& text, std::int32_t value) {
    lblcmd.Caption(text);
    if (!automatico_ && value >= 1) {
        pb.Value(value);
    } else if (automatico_) {
        if (pb.Value() + 1 > limite_) pb.Value(0);
        pb.Value(pb.Value() + 1);
    }
    host::CurrentPlatform().Ui().DoEvents();
}

void frmPB::FinishAuto(bool complete) {
    if (!complete) return;
    pb.Value(pb.Max());
    host::CurrentPlatform().Ui().DoEvents();
}

}  // namespace celdora

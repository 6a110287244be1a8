// Progress and prompts: the progress window of the host and of the report
// generator, and the two small prompts the host asks through the facade.

#include <memory>

#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "host/Platform.h"
#include "rules/dlgAddress.h"
#include "rules/dlgFormaPago.h"
#include "rules/frmPB.h"
#include "value/Channels.h"

namespace celdora {

std::unique_ptr<frmPB>& mdlMain::frmProgress() {
    static std::unique_ptr<frmPB> forma;
    return forma;
}

namespace {

// Unloads the window and lets go of it.
void SoltarProgreso() {
    auto& forma = mdlMain::frmProgress();
    if (!forma) return;
    forma->Unload();
    forma.reset();
}

}  // namespace

void cAcction::ShowProgress(const std::string& scmd, std::int32_t value, const std::string& Title, std::int32_t min,
                            std::int32_t max) {
    auto& forma = mdlMain::frmProgress();
    // A second call finds the window open and changes only text and value.
    if (!forma) {
        forma = std::make_unique<frmPB>();
        ResumeNext([&] { forma->lbltitle.Caption(Title); });
        ResumeNext([&] { forma->lblcmd.Caption(scmd); });
        ResumeNext([&] { forma->pb.Limites(min, max); });
        ResumeNext([&] { forma->Show(); });
    }
    ResumeNext([&] { forma->SetProgress(scmd, value); });
    ResumeNext([] { host::CurrentPlatform().Ui().DoEvents(); });
}

void cAcction::CloseProgress(bool complete) { mdlMain::CerrarProgreso(complete); }

void mdlMain::MostrarProgreso(const std::string& title) {
    // Always a new window; one still open from before is closed first, so no
    // window is left without an owner.
    ResumeNext([] { SoltarProgreso(); });
    auto& forma = frmProgress();
    forma = std::make_unique<frmPB>();
    ResumeNext([&] { forma->lbltitle.Caption(title); });
    ResumeNext([&] { forma->Auto(100); });
    ResumeNext([&] { forma->Show(); });
}

void mdlMain::AvanzarProgreso(const std::string& text) {
    ResumeNext([&] {
        if (frmProgress()) frmProgress()->SetProgress(text, 0);
    });
}

void mdlMain::CerrarProgreso(bool complete) {
    // Closing with no window open does nothing.
    ResumeNext([&] {
        if (frmProgress()) frmProgress()->FinishAuto(complete);
    });
    ResumeNext([] { SoltarProgreso(); });
}

std::string cAcction::getAddress(const std::string& sdefault) {
    std::string result;
    dlgAddress dialogo;
    // Loading empties the field before the default arrives.
    dialogo.Load();
    dialogo.load(sdefault);
    dialogo.ShowModal();
    if (dialogo.Aceptado) result = dialogo.getAddress();
    dialogo.Unload();
    host::CurrentPlatform().Ui().DoEvents();
    return result;
}

std::string cAcction::SolicitarFormaPago() {
    dlgFormaPago dialogo;
    dialogo.ShowModal();
    std::string result = dialogo.FormaPago();
    dialogo.Unload();
    return result;
}

}  // namespace celdora

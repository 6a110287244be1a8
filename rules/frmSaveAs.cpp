#include "rules/frmSaveAs.h"

#include "value/Channels.h"

namespace celdora {

frmSaveAs::frmSaveAs() : Dialogo("frmSaveAs", "Guardar como...") {}

std::string frmSaveAs::SaveAs(const std::string& filter, const std::string& fileName) {
    std::string result;
    // A cancelled picker raises a fault, which leaves the result empty.
    ResumeNext([&] {
        CommonDialog1.CancelError = true;
        CommonDialog1.FileName = fileName;
        CommonDialog1.Filter = filter;
        CommonDialog1.ShowSave();
        result = CommonDialog1.FileName;
    });
    Hide();
    return result;
}

}  // namespace celdora

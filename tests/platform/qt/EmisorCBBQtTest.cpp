// The CBB range list and the CBB issuer drawn by the Qt renderer on the demo
// company, each pictured as `celdora dialog NAME` opens it.

#include <gtest/gtest.h>

#include "core/Dialogos.h"
#include "core/cAcction.h"
#include "tests/platform/qt/PruebaQt.h"
#include "tests/support/CompanyFixture.h"

namespace celdora::testing {
namespace {

TEST(EmisorCBBQt, TheRangeListAndTheIssuerOnTheStoredAddressArePictured) {
    PlataformaQt qt;
    Vigilante vigilante(20000);
    CompanyDatabase db(CompanyDatabase::Datos::Demo);
    cAcction acc;
    acc.SetDataObjects(db.dataObjects, nullptr);
    for (const std::string clase : {"dlgRangoFoliosCBB", "dlgEmisor"}) {
        auto dialogo = dialogos::Crear(clase, acc);
        AlAparecer([&] {
            Captura(VentanaActiva(), clase);
            dialogo->Hide();
        });
        dialogo->ShowModal();
    }
}

}  // namespace
}  // namespace celdora::testing

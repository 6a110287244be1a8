// The advanced options change only the values they share with the main
// configuration dialog; a typed "|" is refused, a pasted one kept.

#include <gtest/gtest.h>

#include <tuple>

#include "settings/OpcionesAvanzadas.h"
#include "settings/dlgConfigAvz.h"
#include "tests/support/TestPlatform.h"

namespace celdora {
namespace {

TEST(dlgConfigAvz, AcceptingKeepsTheValuesInTheirSharedOwnerAndCancelLeavesThem) {
    testing::TestPlatform platform;
    VariablesAvanzadas() = OpcionesAvanzadas{};
    platform.ui.AlMostrar("dlgConfigAvz", [](forms::Dialogo& d) {
        auto& a = dynamic_cast<dlgConfigAvz&>(d);
        EXPECT_FALSE(a.ctrlCadenaUnion.Enabled());
        a.chkConcatNotasPartida.Pulsar();
        a.ctrlCadenaUnion.Escribir("a|b");
        a.chkSerieLote.Pulsar();
        a.btnOK.Pulsar();
    });
    platform.ui.AlMostrar("dlgConfigAvz", [](forms::Dialogo& d) {
        auto& a = dynamic_cast<dlgConfigAvz&>(d);
        a.ctrlCadenaUnion.Text("x|y");
        a.btnCancel.Pulsar();
    });
    platform.ui.AlMostrar("dlgConfigAvz", [](forms::Dialogo& d) {
        auto& a = dynamic_cast<dlgConfigAvz&>(d);
        EXPECT_EQ(a.ctrlCadenaUnion.Text(), "ab");
        a.ctrlCadenaUnion.Text("x|y");
        a.btnOK.Pulsar();
    });
    for (int i = 0; i < 3; ++i) dlgConfigAvz().ShowModal();
    const OpcionesAvanzadas& v = VariablesAvanzadas();
    EXPECT_EQ(std::tie(v.concatNotasPartida, v.cadenaUnion, v.addendaTiendaron, v.serieLote),
              std::make_tuple(1.0, std::string("x|y"), 0.0, 1.0));
    VariablesAvanzadas() = OpcionesAvanzadas{};
}

}  // namespace
}  // namespace celdora

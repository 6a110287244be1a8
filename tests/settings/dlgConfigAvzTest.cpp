// The advanced options change only the values they share with the main
// configuration dialog; a typed "|" is refused, a pasted one kept.

#include <gtest/gtest.h>

#include <tuple>

#include "settings/OpcionesAvanzadas.h"
#include "settings/dlgConfigAvz.h"
#include "tests/support/TestPlatform.h"

namespace celdora {
namespace {

TEST(dlgConfigAvz, AcceptingKeepsTheValuesInTheirSharedOwner) {
    testing::TestPlatform platform;
    VariablesAvanzadas() = OpcionesAvanzadas{};
    auto guion = [&](std::function<void(dlgConfigAvz&)> acciones) {
        platform.ui.AlMostrar("dlgConfigAvz", [=](forms::Dialogo& d) { acciones(dynamic_cast<dlgConfigAvz&>(d)); });
        dlgConfigAvz().ShowModal();
    };
    guion([](dlgConfigAvz& a) {
        EXPECT_FALSE(a.ctrlCadenaUnion.Enabled());
        EXPECT_EQ(a.Caption(), "Configuración avanzada");
        a.chkConcatNotasPartida.Pulsar();
        a.ctrlCadenaUnion.Escribir("a|b");
        a.chkSerieLote.Pulsar();
        a.btnOK.Pulsar();
    });
    guion([](dlgConfigAvz& a) {
        EXPECT_EQ(a.ctrlCadenaUnion.Text(), "ab");
        a.ctrlCadenaUnion.Text("x|y");
        a.btnOK.Pulsar();
    });
    const OpcionesAvanzadas& v = VariablesAvanzadas();
    EXPECT_EQ(std::tie(v.concatNotasPartida, v.cadenaUnion, v.addendaTiendaron, v.serieLote),
              std::make_tuple(1.0, std::string("x|y"), 0.0, 1.0));
    VariablesAvanzadas() = OpcionesAvanzadas{};
}

}  // namespace
}  // namespace celdora

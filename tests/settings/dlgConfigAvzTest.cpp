// The advanced options work on the values they share with the main
// configuration dialog and write no key.

#include <gtest/gtest.h>

#include "core/cAcction.h"
#include "settings/OpcionesAvanzadas.h"
#include "settings/dlgConfigAvz.h"
#include "tests/support/AjustesGrabados.h"
#include "tests/support/TestPlatform.h"

namespace celdora {
namespace {

class OpcionesAvanzadasTest : public ::testing::Test {
protected:
    testing::TestPlatform platform;
    std::shared_ptr<testing::GlobalVarGrabado> ajustes = std::make_shared<testing::GlobalVarGrabado>();
    cAcction acc;

    void SetUp() override {
        acc.GlobalVar = ajustes;
        VariablesAvanzadas() = OpcionesAvanzadas{};
    }
    void TearDown() override { VariablesAvanzadas() = OpcionesAvanzadas{}; }

    void Abrir(std::function<void(dlgConfigAvz&)> guion) {
        platform.ui.AlMostrar("dlgConfigAvz",
                              [guion](forms::Dialogo& d) { guion(dynamic_cast<dlgConfigAvz&>(d)); });
        dlgConfigAvz dialogo;
        dialogo.oAcc = &acc;
        dialogo.ShowModal();
    }
};

TEST_F(OpcionesAvanzadasTest, AcceptingKeepsTheValuesInTheirSharedOwnerAndWritesNoKey) {
    Abrir([](dlgConfigAvz& d) {
        EXPECT_EQ(d.ctrlCadenaUnion.Text(), " ");
        EXPECT_FALSE(d.ctrlCadenaUnion.Enabled());
        d.chkConcatNotasPartida.Pulsar();
        EXPECT_TRUE(d.ctrlCadenaUnion.Enabled());
        d.ctrlCadenaUnion.Escribir("a|b");
        EXPECT_EQ(d.ctrlCadenaUnion.Text(), "ab") << "a typed bar is thrown away";
        d.chkSerieLote.Pulsar();
        d.btnOK.Pulsar();
    });
    const OpcionesAvanzadas& v = VariablesAvanzadas();
    EXPECT_EQ(v.concatNotasPartida, 1);
    EXPECT_EQ(v.cadenaUnion, "ab");
    EXPECT_EQ(v.addendaTiendaron, 0);
    EXPECT_EQ(v.serieLote, 1);
    EXPECT_TRUE(ajustes->escrituras.empty());

    // A pasted bar stays, a cleared box keeps its text, and a cancel leaves
    // the shared values as they were.
    Abrir([](dlgConfigAvz& d) {
        EXPECT_EQ(d.chkConcatNotasPartida.Value(), 1);
        d.ctrlCadenaUnion.Text("x|y");
        d.chkConcatNotasPartida.Pulsar();
        EXPECT_EQ(d.ctrlCadenaUnion.Text(), "x|y");
        d.btnCancel.Pulsar();
    });
    EXPECT_EQ(VariablesAvanzadas().cadenaUnion, "ab");
    Abrir([](dlgConfigAvz& d) {
        d.ctrlCadenaUnion.Text("x|y");
        d.btnOK.Pulsar();
    });
    EXPECT_EQ(VariablesAvanzadas().cadenaUnion, "x|y");
}

}  // namespace
}  // namespace celdora

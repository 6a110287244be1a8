// The progress window: one at a time, a second ShowProgress changing only
// text and value, the automatic bar running in circles, and closing with or
// without filling the bar.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "rules/frmPB.h"
#include "tests/support/TestPlatform.h"

namespace celdora {
namespace {

using testing::TestPlatform;

class Progreso : public ::testing::Test {
protected:
    TestPlatform platform;
    cAcction acc;

    void TearDown() override { mdlMain::CerrarProgreso(false); }

    static frmPB& Forma() {
        auto& forma = mdlMain::frmProgress();
        if (!forma) throw std::runtime_error("no progress window");
        return *forma;
    }
};

TEST_F(Progreso, TheFirstShowProgressOpensTheWindowWithoutWaiting) {
    acc.ShowProgress("Leyendo ventas", 5, "Exportando", 0, 20);
    frmPB& forma = Forma();
    EXPECT_EQ(forma.Caption(), "Progreso");
    EXPECT_TRUE(forma.Visible());
    EXPECT_FALSE(forma.Modal());
    EXPECT_EQ(forma.lbltitle.Caption(), "Exportando");
    EXPECT_EQ(forma.lblcmd.Caption(), "Leyendo ventas");
    EXPECT_EQ(forma.lblinfo.Caption(), "Este proceso puede tardar varios minutos. Por favor espere...");
    EXPECT_EQ(forma.pb.Max(), 20);
    EXPECT_EQ(forma.pb.Value(), 5);
    EXPECT_EQ(platform.ui.Registro(), (std::vector<std::string>{"ventana: frmPB"}));
    // SetProgress and ShowProgress each give the message loop a turn.
    EXPECT_EQ(platform.ui.VueltasDelBucle(), 2);
}

TEST_F(Progreso, ASecondShowProgressChangesOnlyTheTextAndTheValue) {
    acc.ShowProgress("uno", 5, "Primero", 0, 20);
    acc.ShowProgress("dos", 7, "Segundo", 0, 500);
    frmPB& forma = Forma();
    EXPECT_EQ(forma.lbltitle.Caption(), "Primero");
    EXPECT_EQ(forma.pb.Max(), 20);
    EXPECT_EQ(forma.lblcmd.Caption(), "dos");
    EXPECT_EQ(forma.pb.Value(), 7);
    // A value below 1 outside automatic mode leaves the bar where it was.
    acc.ShowProgress("tres", 0);
    EXPECT_EQ(forma.pb.Value(), 7);
    EXPECT_EQ(forma.lblcmd.Caption(), "tres");
    // A value past the bounds is passed over.
    acc.ShowProgress("cuatro", 99);
    EXPECT_EQ(forma.pb.Value(), 7);
    EXPECT_EQ(platform.ui.Registro().size(), 1u);
}

TEST_F(Progreso, TheAutomaticBarGoesUpToItsLimitAndThenStartsAgainAtOne) {
    mdlMain::MostrarProgreso("Generando informe mensual.");
    frmPB& forma = Forma();
    EXPECT_TRUE(forma.Automatico());
    EXPECT_EQ(forma.lbltitle.Caption(), "Generando informe mensual.");
    for (int i = 0; i < 100; ++i) mdlMain::AvanzarProgreso("paso");
    EXPECT_EQ(forma.pb.Value(), 100);
    mdlMain::AvanzarProgreso("Guardando registro...");
    EXPECT_EQ(forma.pb.Value(), 1);
    EXPECT_EQ(forma.lblcmd.Caption(), "Guardando registro...");
}

TEST_F(Progreso, ClosingFillsTheBarOnlyWhenComplete) {
    acc.ShowProgress("uno", 30);
    frmPB* forma = &Forma();
    int valorAlCerrar = -1;
    struct Testigo : forms::Observador {
        frmPB* forma;
        int* valor;
        void ControlCambiado(forms::Control&) override {}
        void DialogoCambiado() override {
            if (!forma->Cargado() && *valor < 0) *valor = forma->pb.Value();
        }
    } testigo;
    testigo.forma = forma;
    testigo.valor = &valorAlCerrar;
    forma->Observar(&testigo);
    acc.CloseProgress(false);
    EXPECT_EQ(valorAlCerrar, 30);
    EXPECT_EQ(mdlMain::frmProgress(), nullptr);

    acc.ShowProgress("dos", 30);
    forma = &Forma();
    testigo.forma = forma;
    valorAlCerrar = -1;
    forma->Observar(&testigo);
    acc.CloseProgress();
    EXPECT_EQ(valorAlCerrar, 100);
    // Closing with no window open does nothing.
    acc.CloseProgress();
    mdlMain::CerrarProgreso(true);
    EXPECT_EQ(mdlMain::frmProgress(), nullptr);
}

TEST_F(Progreso, MostrarProgresoAlwaysStartsANewWindow) {
    acc.ShowProgress("del anfitrión", 50);
    mdlMain::MostrarProgreso("Informe");
    EXPECT_EQ(Forma().pb.Value(), 0);
    EXPECT_EQ(Forma().lbltitle.Caption(), "Informe");
    EXPECT_EQ(platform.ui.Registro(), (std::vector<std::string>{"ventana: frmPB", "ventana: frmPB"}));
}

}  // namespace
}  // namespace celdora

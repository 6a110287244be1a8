// The life of a dialog model: load once, modal showing through the user
// interface service until the dialog hides, showing again from its own
// handler, closing as a person would, focus, and what renderers are told.

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "forms/Controles.h"
#include "forms/Dialogo.h"
#include "tests/support/TestPlatform.h"

namespace celdora::forms {
namespace {

using testing::TestPlatform;

class Ciclo : public Dialogo {
public:
    Ciclo() : Dialogo("dlgCiclo", "Ciclo") {
        btnOK.Click = [this] {
            eventos.push_back("btnOK");
            if (otraVez) {
                // Hides itself and shows again, as a dialog does after a
                // failure that came once it was hidden.
                otraVez = false;
                Hide();
                ShowModal();
                return;
            }
            Aceptado = true;
            Hide();
        };
        txtA.GotFocus = [this] { eventos.push_back("txtA.GotFocus"); };
        txtA.LostFocus = [this] { eventos.push_back("txtA.LostFocus"); };
        txtB.GotFocus = [this] { eventos.push_back("txtB.GotFocus"); };
    }

    std::vector<std::string> eventos;
    bool otraVez = false;
    bool permitirCierre = true;

    TextBox& txtA = Agregar<TextBox>("txtA");
    TextBox& txtB = Agregar<TextBox>("txtB");
    CommandButton& btnOK = Agregar<CommandButton>("btnOK", "&Aceptar");

protected:
    void Form_Load() override { eventos.push_back("Load"); }
    void Form_Unload() override { eventos.push_back("Unload"); }
    bool Form_QueryUnload() override {
        eventos.push_back("QueryUnload");
        return permitirCierre;
    }
};

// Counts what a renderer would be told.
class Testigo : public Observador {
public:
    std::vector<std::string> avisos;
    void ControlCambiado(Control& control) override { avisos.push_back(control.Nombre()); }
    void DialogoCambiado() override { avisos.push_back("dialogo"); }
};

class CicloDeDialogo : public ::testing::Test {
protected:
    TestPlatform platform;
    Ciclo d;
};

TEST_F(CicloDeDialogo, ModalShowingRunsTheScriptAndEndsWhenTheDialogHides) {
    platform.ui.AlMostrar("DLGCICLO", [](Dialogo& dialogo) {
        EXPECT_TRUE(dialogo.Visible());
        EXPECT_TRUE(dialogo.Modal());
        dialogo.Ver<TextBox>("txtA").Escribir("hola");
        dialogo.Ver<CommandButton>("btnOK").Pulsar();
    });
    d.Load();
    d.ShowModal();
    EXPECT_EQ((std::vector<bool>{d.Aceptado, d.Visible(), d.Modal(), d.Cargado()}),
              (std::vector<bool>{true, false, false, true}));
    EXPECT_EQ(d.txtA.Text(), "hola");
    d.Unload();
    EXPECT_EQ(d.eventos, (std::vector<std::string>{"Load", "btnOK", "Unload"}));
    EXPECT_EQ(platform.ui.Registro(), (std::vector<std::string>{"dialogo: dlgCiclo"}));
}

TEST_F(CicloDeDialogo, AHandlerMayHideItsDialogAndShowItModallyAgain) {
    d.otraVez = true;
    for (int vez = 0; vez < 2; ++vez) {
        platform.ui.AlMostrar("dlgCiclo", [](Dialogo& dialogo) { dialogo.Ver<CommandButton>("btnOK").Pulsar(); });
    }
    d.ShowModal();
    EXPECT_TRUE(d.Aceptado);
    EXPECT_EQ(platform.ui.Registro(), (std::vector<std::string>{"dialogo: dlgCiclo", "dialogo: dlgCiclo"}));
    EXPECT_EQ(platform.ui.RespuestasPendientes(), 0u);
}

TEST_F(CicloDeDialogo, ClosingTheWindowAsksTheDialogAndUnloadsItUnlessRefused) {
    d.permitirCierre = false;
    d.Load();
    d.Show();
    d.Cerrar();
    EXPECT_TRUE(d.Cargado());
    d.permitirCierre = true;
    d.Cerrar();
    EXPECT_EQ((std::vector<bool>{d.Cargado(), d.Visible(), d.Aceptado}), (std::vector<bool>{false, false, false}));
    EXPECT_EQ(d.eventos, (std::vector<std::string>{"Load", "QueryUnload", "QueryUnload", "Unload"}));
    EXPECT_EQ(platform.ui.Registro(), (std::vector<std::string>{"ventana: dlgCiclo"}));
}

TEST_F(CicloDeDialogo, FocusMovesWithItsEventsAndIsKeptPerDialog) {
    Ciclo otro;
    d.txtA.SetFocus();
    d.txtB.SetFocus();
    otro.txtA.SetFocus();
    EXPECT_EQ(d.Foco(), &d.txtB);
    EXPECT_TRUE(d.txtB.TieneFoco());
    EXPECT_EQ(otro.Foco(), &otro.txtA);
    EXPECT_EQ(d.eventos, (std::vector<std::string>{"txtA.GotFocus", "txtA.LostFocus", "txtB.GotFocus"}));
}

TEST_F(CicloDeDialogo, ControlsAreFoundByNameWithoutRegardToCaseAndInDeclarationOrder) {
    ASSERT_EQ(d.Controles().size(), 3u);
    EXPECT_EQ(d.Controles()[2]->Nombre(), "btnOK");
    EXPECT_EQ(d.Buscar("BTNOK"), &d.btnOK);
    EXPECT_EQ(d.Buscar("nada"), nullptr);
    EXPECT_THROW((void)d.Ver<CheckBox>("btnOK"), Fault);
}

TEST_F(CicloDeDialogo, RenderersAreToldOfEveryChangeAndOfTheDialogGoing) {
    Testigo testigo;
    {
        Ciclo e;
        e.Observar(&testigo);
        e.txtA.Text("x");
        e.btnOK.Enabled(false);
        e.Caption("Otro");
    }
    EXPECT_EQ(testigo.avisos, (std::vector<std::string>{"txtA", "btnOK", "dialogo", "dialogo"}));
}

TEST_F(CicloDeDialogo, TheScriptedServiceFailsADialogNobodyExpectedOrOneLeftOpen) {
    EXPECT_NONFATAL_FAILURE(d.ShowModal(), "A dialog nobody expected: dlgCiclo");
    EXPECT_FALSE(d.Cargado());
    Ciclo e;
    platform.ui.AlMostrar("dlgCiclo", [](Dialogo&) {});
    EXPECT_NONFATAL_FAILURE(e.ShowModal(), "The script left dlgCiclo open");
}

}  // namespace
}  // namespace celdora::forms

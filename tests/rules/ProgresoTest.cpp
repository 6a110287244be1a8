// The progress window: one at a time, a second ShowProgress changing only
// text and value, the automatic bar running in circles, and closing. And the prompts the host asks through the facade,
// mail addresses and the payment form. The window's caption and notice are
// asserted by the Qt suite.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "forms/Controles.h"
#include "rules/frmPB.h"
#include "tests/support/TestPlatform.h"

namespace celdora {
namespace {

using host::Icono;
using Registro = std::vector<std::string>;

class Progreso : public ::testing::Test {
protected:
    testing::TestPlatform platform;
    cAcction acc;

    void TearDown() override { mdlMain::CerrarProgreso(false); }

    static frmPB& Forma() {
        if (!mdlMain::frmProgress()) throw std::runtime_error("no progress window");
        return *mdlMain::frmProgress();
    }
    static void Pulsar(forms::Dialogo& d, const char* boton) { d.Ver<forms::CommandButton>(boton).Pulsar(); }
    static forms::TextBox& Direccion(forms::Dialogo& d) { return d.Ver<forms::TextBox>("Text"); }
    // Title, command and bar (value/maximum) of the open window.
    static std::string Estado() {
        const frmPB& f = Forma();
        return f.lbltitle.Caption() + "|" + f.lblcmd.Caption() + "|" + std::to_string(f.pb.Value()) + "/" +
               std::to_string(f.pb.Max());
    }
};

TEST_F(Progreso, TheFirstShowProgressOpensTheWindowWithoutWaitingAndASecondChangesOnlyTextAndValue) {
    acc.ShowProgress("Leyendo ventas", 5, "Exportando", 0, 20);
    EXPECT_EQ(Estado(), "Exportando|Leyendo ventas|5/20");
    // SetProgress and ShowProgress each give the message loop a turn.
    EXPECT_EQ(platform.ui.VueltasDelBucle(), 2);

    acc.ShowProgress("dos", 7, "Segundo", 0, 500);
    EXPECT_EQ(Estado(), "Exportando|dos|7/20");
    EXPECT_EQ(platform.ui.Registro(), Registro{"ventana: frmPB"});
    // Closing without filling the bar gives the message loop no turn.
    acc.CloseProgress(false);
    EXPECT_EQ(mdlMain::frmProgress(), nullptr);
    EXPECT_EQ(platform.ui.VueltasDelBucle(), 4);
}

// MostrarProgreso always starts a new window, whose bar runs in circles.
TEST_F(Progreso, TheAutomaticBarOfANewWindowGoesUpToItsLimitAndThenStartsAgainAtOne) {
    acc.ShowProgress("del anfitrión", 50);
    mdlMain::MostrarProgreso("Generando informe mensual.");
    EXPECT_EQ(Estado(), "Generando informe mensual.|Ejecutando comando...|0/100");
    for (int i = 0; i < 100; ++i) mdlMain::AvanzarProgreso("paso");
    EXPECT_EQ(Forma().pb.Value(), 100);
    mdlMain::AvanzarProgreso("Guardando registro...");
    EXPECT_EQ(Estado(), "Generando informe mensual.|Guardando registro...|1/100");
    // Filling the bar on close takes one turn of the message loop; a second close finds no window.
    const int vueltas = platform.ui.VueltasDelBucle();
    mdlMain::CerrarProgreso(true);
    acc.CloseProgress(true);
    EXPECT_EQ(mdlMain::frmProgress(), nullptr);
    EXPECT_EQ(platform.ui.VueltasDelBucle(), vueltas + 1);
}

using Solicitudes = Progreso;

// One "@" anywhere passes, however many addresses the text holds; a No to
// the cancel question leaves the dialog up, a Yes gives the empty string.
TEST_F(Solicitudes, GetAddressRefusesATextWithoutAtSignAsksBeforeCancellingAndGivesTheTextAsTyped) {
    platform.ui.AlMostrar("dlgAddress", [&](forms::Dialogo& d) {
        EXPECT_EQ(Direccion(d).Text(), "cliente@correo.mx");
        for (const char* texto : {"   ", "ventas.correo.mx"}) {
            Direccion(d).Escribir(texto);
            Pulsar(d, "btnOK");
        }
        platform.ui.Responder(host::Respuesta::No);
        Pulsar(d, "btnCancel");
        Direccion(d).Escribir(" a@b.mx; c.d.mx ");
        Pulsar(d, "btnOK");
    });
    EXPECT_EQ(acc.getAddress("cliente@correo.mx"), " a@b.mx; c.d.mx ");
    platform.ui.Responder(host::Respuesta::Si);
    platform.ui.AlMostrar("dlgAddress", [](forms::Dialogo& d) { Pulsar(d, "btnCancel"); });
    EXPECT_EQ(acc.getAddress("a@b.mx"), "");
    ASSERT_EQ(platform.ui.Cajas().size(), 4u);
    platform.ui.ExpectCaja(0, "Por favor ingrese una dirección de correo.", Icono::Informacion);
    platform.ui.ExpectCaja(1, "Dirección de correo invalida.", Icono::Informacion);
    for (std::size_t i : {2u, 3u}) platform.ui.ExpectPregunta(i, "¿Está seguro que desea cancelar el envío?");
}

TEST_F(Solicitudes, ThePaymentFormIsTheChosenItemOrEmptyWhenCancelled) {
    platform.ui.AlMostrar("dlgFormaPago", [](forms::Dialogo& d) {
        d.Ver<forms::ComboBox>("cmbFP").ListIndex(1);
        Pulsar(d, "btnOK");
    });
    EXPECT_EQ(acc.SolicitarFormaPago(), "CRÉDITO");
    platform.ui.AlMostrar("dlgFormaPago", [](forms::Dialogo& d) { Pulsar(d, "btnCancelar"); });
    EXPECT_EQ(acc.SolicitarFormaPago(), "");
}

}  // namespace
}  // namespace celdora

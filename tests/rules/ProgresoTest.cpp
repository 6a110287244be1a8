// The progress window: one at a time, a second ShowProgress changing only
// text and value, the automatic bar running in circles, and closing with or
// without filling the bar. And the prompts the host asks through the facade,
// mail addresses and the payment form, each giving "" when cancelled.

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
    // The bar's value at the moment the window unloads on CloseProgress.
    int ValorAlCerrar(bool completo) {
        struct Testigo : forms::Observador {
            frmPB* forma = &Forma();
            int valor = -1;
            void ControlCambiado(forms::Control&) override {}
            void DialogoCambiado() override {
                if (!forma->Cargado() && valor < 0) valor = forma->pb.Value();
            }
        } testigo;
        testigo.forma->Observar(&testigo);
        acc.CloseProgress(completo);
        EXPECT_EQ(mdlMain::frmProgress(), nullptr);
        return testigo.valor;
    }
};

TEST_F(Progreso, TheFirstShowProgressOpensTheWindowWithoutWaitingAndASecondChangesOnlyTextAndValue) {
    acc.ShowProgress("Leyendo ventas", 5, "Exportando", 0, 20);
    frmPB& forma = Forma();
    EXPECT_EQ(forma.Caption(), "Progreso");
    EXPECT_TRUE(forma.Visible());
    EXPECT_FALSE(forma.Modal());
    EXPECT_EQ(forma.lblinfo.Caption(), "Este proceso puede tardar varios minutos. Por favor espere...");
    EXPECT_EQ(Estado(), "Exportando|Leyendo ventas|5/20");
    // SetProgress and ShowProgress each give the message loop a turn.
    EXPECT_EQ(platform.ui.VueltasDelBucle(), 2);

    acc.ShowProgress("dos", 7, "Segundo", 0, 500);
    EXPECT_EQ(Estado(), "Exportando|dos|7/20");
    // A value below 1 outside automatic mode leaves the bar where it was.
    acc.ShowProgress("tres", 0);
    EXPECT_EQ(Estado(), "Exportando|tres|7/20");
    EXPECT_EQ(platform.ui.Registro(), Registro{"ventana: frmPB"});
}

// MostrarProgreso always starts a new window, whose bar runs in circles.
TEST_F(Progreso, TheAutomaticBarOfANewWindowGoesUpToItsLimitAndThenStartsAgainAtOne) {
    acc.ShowProgress("del anfitrión", 50);
    mdlMain::MostrarProgreso("Generando informe mensual.");
    EXPECT_EQ(Estado(), "Generando informe mensual.|Ejecutando comando...|0/100");
    EXPECT_EQ(platform.ui.Registro(), (Registro{"ventana: frmPB", "ventana: frmPB"}));
    for (int i = 0; i < 100; ++i) mdlMain::AvanzarProgreso("paso");
    EXPECT_EQ(Forma().pb.Value(), 100);
    mdlMain::AvanzarProgreso("Guardando registro...");
    EXPECT_EQ(Estado(), "Generando informe mensual.|Guardando registro...|1/100");
}

TEST_F(Progreso, ClosingFillsTheBarOnlyWhenComplete) {
    acc.ShowProgress("uno", 30);
    EXPECT_EQ(ValorAlCerrar(false), 30);
    acc.ShowProgress("dos", 30);
    EXPECT_EQ(ValorAlCerrar(true), 100);
    // Closing with no window open does nothing.
    acc.CloseProgress();
    mdlMain::CerrarProgreso(true);
    EXPECT_EQ(mdlMain::frmProgress(), nullptr);
}

using Solicitudes = Progreso;

// One "@" anywhere passes, however many addresses the text holds.
TEST_F(Solicitudes, GetAddressShowsTheDefaultRefusesATextWithoutAtSignAndGivesItBackAsTyped) {
    platform.ui.AlMostrar("dlgAddress", [](forms::Dialogo& d) {
        EXPECT_EQ(d.Caption(), "Dirección de correo del destinatario.");
        EXPECT_EQ(Direccion(d).Text(), "cliente@correo.mx");
        for (const char* texto : {"   ", "ventas.correo.mx", " a@b.mx; c.d.mx "}) {
            Direccion(d).Escribir(texto);
            Pulsar(d, "btnOK");
        }
    });
    EXPECT_EQ(acc.getAddress("cliente@correo.mx"), " a@b.mx; c.d.mx ");
    ASSERT_EQ(platform.ui.Cajas().size(), 2u);
    platform.ui.ExpectCaja(0, "Por favor ingrese una dirección de correo.", Icono::Informacion);
    platform.ui.ExpectCaja(1, "Dirección de correo invalida.", Icono::Informacion);
    EXPECT_EQ(platform.ui.VueltasDelBucle(), 1);
}

TEST_F(Solicitudes, CancellingTheSendingAsksFirstAndThenGivesTheEmptyStringAsClosingDoes) {
    platform.ui.Responder(host::Respuesta::No);
    platform.ui.Responder(host::Respuesta::Si);
    platform.ui.AlMostrar("dlgAddress", [](forms::Dialogo& d) {
        Pulsar(d, "btnCancel");
        EXPECT_TRUE(d.Visible()) << "a No leaves the dialog up";
        Pulsar(d, "btnCancel");
    });
    EXPECT_EQ(acc.getAddress("a@b.mx"), "");
    ASSERT_EQ(platform.ui.Cajas().size(), 2u);
    for (std::size_t i : {0u, 1u}) platform.ui.ExpectPregunta(i, "¿Está seguro que desea cancelar el envío?");
    platform.ui.AlMostrar("dlgAddress", [](forms::Dialogo& d) { d.Cerrar(); });
    EXPECT_EQ(acc.getAddress("a@b.mx"), "");
}

TEST_F(Solicitudes, ThePaymentFormIsTheChosenItemOrEmptyWhenCancelledOrClosed) {
    platform.ui.AlMostrar("dlgFormaPago", [](forms::Dialogo& d) {
        auto& cmbFP = d.Ver<forms::ComboBox>("cmbFP");
        EXPECT_EQ(cmbFP.ListIndex(), 0);
        ASSERT_EQ(cmbFP.ListCount(), 2);
        EXPECT_EQ(cmbFP.List(0), "PAGO EN UNA SOLA EXHIBICIÓN");
        cmbFP.ListIndex(1);
        Pulsar(d, "btnOK");
    });
    EXPECT_EQ(acc.SolicitarFormaPago(), "CRÉDITO");
    platform.ui.AlMostrar("dlgFormaPago", [](forms::Dialogo& d) { Pulsar(d, "btnCancelar"); });
    EXPECT_EQ(acc.SolicitarFormaPago(), "");
    platform.ui.AlMostrar("dlgFormaPago", [](forms::Dialogo& d) { d.Cerrar(); });
    EXPECT_EQ(acc.SolicitarFormaPago(), "");
}

}  // namespace
}  // namespace celdora

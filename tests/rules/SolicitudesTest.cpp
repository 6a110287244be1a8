// The prompts the host asks through the facade: mail addresses, the payment
// form, and the save dialog. Each cancel path gives the empty string.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/cAcction.h"
#include "forms/Controles.h"
#include "forms/Dialogo.h"
#include "tests/support/TestPlatform.h"
#include "value/Convert.h"

namespace celdora {
namespace {

using host::Icono;
using host::Respuesta;
using testing::TestPlatform;

class Solicitudes : public ::testing::Test {
protected:
    TestPlatform platform;
    cAcction acc;

    static void Pulsar(forms::Dialogo& d, const char* boton) { d.Ver<forms::CommandButton>(boton).Pulsar(); }
    static forms::TextBox& Direccion(forms::Dialogo& d) { return d.Ver<forms::TextBox>("Text"); }
};

TEST_F(Solicitudes, GetAddressShowsTheDefaultAndGivesBackTheTextAsTyped) {
    platform.ui.AlMostrar("dlgAddress", [](forms::Dialogo& d) {
        EXPECT_EQ(d.Caption(), "Dirección de correo del destinatario.");
        EXPECT_EQ(Direccion(d).Text(), "cliente@correo.mx");
        Direccion(d).Escribir(" a@b.mx; c@d.mx ");
        Pulsar(d, "btnOK");
    });
    EXPECT_EQ(acc.getAddress("cliente@correo.mx"), " a@b.mx; c@d.mx ");
    EXPECT_TRUE(platform.ui.Cajas().empty());
    EXPECT_EQ(platform.ui.VueltasDelBucle(), 1);
}

TEST_F(Solicitudes, OneAtSignAnywherePassesAndItsAbsenceOrAnEmptyTextIsRefused) {
    platform.ui.AlMostrar("dlgAddress", [](forms::Dialogo& d) {
        Direccion(d).Text("   ");
        Pulsar(d, "btnOK");
        EXPECT_TRUE(d.Visible());
        Direccion(d).Text("ventas.correo.mx");
        Pulsar(d, "btnOK");
        EXPECT_TRUE(d.Visible());
        Direccion(d).Text("uno; dos@; tres");
        Pulsar(d, "btnOK");
    });
    EXPECT_EQ(acc.getAddress(""), "uno; dos@; tres");
    ASSERT_EQ(platform.ui.Cajas().size(), 2u);
    platform.ui.ExpectCaja(0, "Por favor ingrese una dirección de correo.", Icono::Informacion);
    platform.ui.ExpectCaja(1, "Dirección de correo invalida.", Icono::Informacion);
}

TEST_F(Solicitudes, CancellingTheSendingAsksFirstAndThenGivesTheEmptyString) {
    platform.ui.Responder(Respuesta::No);
    platform.ui.Responder(Respuesta::Si);
    platform.ui.AlMostrar("dlgAddress", [](forms::Dialogo& d) {
        Pulsar(d, "btnCancel");
        EXPECT_TRUE(d.Visible());
        Pulsar(d, "btnCancel");
    });
    EXPECT_EQ(acc.getAddress("a@b.mx"), "");
    ASSERT_EQ(platform.ui.Cajas().size(), 2u);
    platform.ui.ExpectPregunta(0, "¿Está seguro que desea cancelar el envío?");
    platform.ui.ExpectPregunta(1, "¿Está seguro que desea cancelar el envío?");
    // Closing the window gives the empty string too.
    platform.ui.AlMostrar("dlgAddress", [](forms::Dialogo& d) { d.Cerrar(); });
    EXPECT_EQ(acc.getAddress("a@b.mx"), "");
}

TEST_F(Solicitudes, ThePaymentFormIsTheChosenItemOrEmptyWhenCancelled) {
    platform.ui.AlMostrar("dlgFormaPago", [](forms::Dialogo& d) {
        auto& cmbFP = d.Ver<forms::ComboBox>("cmbFP");
        EXPECT_EQ(cmbFP.ListIndex(), 0);
        ASSERT_EQ(cmbFP.ListCount(), 2);
        EXPECT_EQ(cmbFP.List(0), "PAGO EN UNA SOLA EXHIBICIÓN");
        cmbFP.ListIndex(1);
        Pulsar(d, "btnOK");
    });
    EXPECT_EQ(acc.SolicitarFormaPago(), "CRÉDITO");
    platform.ui.AlMostrar("dlgFormaPago", [](forms::Dialogo& d) { Pulsar(d, "btnOK"); });
    EXPECT_EQ(acc.SolicitarFormaPago(), "PAGO EN UNA SOLA EXHIBICIÓN");
    platform.ui.AlMostrar("dlgFormaPago", [](forms::Dialogo& d) { Pulsar(d, "btnCancelar"); });
    EXPECT_EQ(acc.SolicitarFormaPago(), "");
    platform.ui.AlMostrar("dlgFormaPago", [](forms::Dialogo& d) { d.Cerrar(); });
    EXPECT_EQ(acc.SolicitarFormaPago(), "");
}

TEST_F(Solicitudes, ShowSaveAsGivesThePathOrTheEmptyStringWithoutAFault) {
    platform.ui.Elegir("/tmp/factura.xml");
    EXPECT_EQ(CStr(acc.ShowSaveAs("XML|*.xml", "A-15.xml")), "/tmp/factura.xml");
    ASSERT_EQ(platform.ui.Selecciones().size(), 1u);
    EXPECT_EQ(platform.ui.Selecciones()[0].tipo, "guardar");
    EXPECT_EQ(platform.ui.Selecciones()[0].filtro, "XML|*.xml");
    EXPECT_EQ(platform.ui.Selecciones()[0].nombre, "A-15.xml");
    platform.ui.Elegir(std::nullopt);
    const Variant cancelado = acc.ShowSaveAs("XML|*.xml");
    EXPECT_EQ(cancelado.Type(), VarType::String);
    EXPECT_EQ(CStr(cancelado), "");
    EXPECT_EQ(platform.ui.Registro(), (std::vector<std::string>{"ventana: frmSaveAs", "ventana: frmSaveAs"}));
}

}  // namespace
}  // namespace celdora

// The control panel on the demo company: the kind it shows, read once when
// it loads, the dialog behind each button, and the closing message shown
// whatever happened.

#include <gtest/gtest.h>

#include <string>

#include "settings/dlgMainConfig.h"
#include "tests/support/FachadaDemo.h"
#include "wizard/dlgAsistenteConfig.h"

namespace celdora {
namespace {

class Panel : public testing::FachadaDemo {
protected:
    // Opens the panel as the facade does, runs the script, closes it; the
    // label as the panel opened.
    std::string Abrir(const std::function<void(dlgMainConfig&)>& guion = {}) {
        std::string etiqueta;
        platform.ui.AlMostrar("dlgMainConfig", [&](forms::Dialogo& d) {
            auto& panel = dynamic_cast<dlgMainConfig&>(d);
            etiqueta = panel.lblTipoC.Caption();
            if (guion) guion(panel);
            panel.btnCerrar.Pulsar();
        });
        acc.ConfiguracionPrincipal();
        platform.ui.ExpectCaja(platform.ui.Cajas().size() - 1,
                               "Por favor reinicie la conexión después de realizar algún cambio.",
                               host::Icono::Informacion);
        return etiqueta;
    }
};

// The label by the stored kind (another value leaves it as designed); each
// button opens its dialog and comes back to the panel; a kind changed in the
// wizard shows only when the panel opens again.
TEST_F(Panel, TheLabelTheButtonsAndTheClosingMessage) {
    for (const auto& [boton, dialogo] : {std::pair{"btnConfig1", "dlgConfig"}, {"btnImpresiones", "dlgImpresion"},
                                         {"btnLocal", "dlgLocal"}, {"btnAsistenteConfig", "dlgAsistenteConfig"}}) {
        platform.ui.AlMostrar(dialogo, [](forms::Dialogo& d) { d.Hide(); });
        Abrir([&](dlgMainConfig& p) { dynamic_cast<forms::CommandButton&>(*p.Buscar(boton)).Pulsar(); });
        const auto& registro = platform.ui.Registro();
        EXPECT_EQ(registro[registro.size() - 2], std::string("dialogo: ") + dialogo);
    }
    platform.ui.AlMostrar("dlgAsistenteConfig", [](forms::Dialogo& d) {
        auto& asistente = dynamic_cast<dlgAsistenteConfig&>(d);
        for (int i = 0; i < 3; ++i) asistente.btnSiguiente.Pulsar();
        asistente.optCBB.Pulsar();
        asistente.btnSiguiente.Pulsar();
        asistente.Hide();
    });
    EXPECT_EQ(Abrir([](dlgMainConfig& p) {
                  p.btnAsistenteConfig.Pulsar();
                  EXPECT_EQ(p.lblTipoC.Caption(), "CFDI");
              }),
              "CFDI");
    EXPECT_EQ(Abrir(), "CBB");
    for (const auto& [tipo, texto] : {std::pair{cCFD, "CFD"}, {cCFDI, "CFDI"}, {cCBB, "CBB"},
                                      {cCFDI_CBB, "CFDI/CBB"}, {cPapel, "Papel simple"}, {enumTipoCFD{9}, ""}}) {
        db.Ejecutar("UPDATE gv_Configuracion SET Numero=" + std::to_string(tipo) + " WHERE Clave='NVCA300xa'");
        acc.GlobalVar->Conectar(acc.ADOCnn);
        EXPECT_EQ(Abrir(), texto);
    }
    EXPECT_EQ(platform.ui.Cajas().size(), 12u);  // each closing told
}

}  // namespace
}  // namespace celdora

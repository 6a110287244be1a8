// The print format dialog drawn by the Qt renderer: a browse button of a
// control array is clicked by its indexed name on the real widget.

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>
#include <fstream>

#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "tests/platform/qt/PruebaQt.h"
#include "tests/support/AjustesGrabados.h"
#include "tests/support/CarpetaTemporal.h"
#include "tests/support/ConfiguracionPrivada.h"

namespace celdora::testing {
namespace {

// The print format's file comes from the picker, filtered by the type and
// opened in the repository folder.
TEST(ConfiguracionQt, AnIndexedBrowseButtonAsksForAPath) {
    PlataformaQt qt;
    Vigilante vigilante;
    ConfiguracionPrivada configuracion;
    CarpetaTemporal carpeta;
    mdlMain::SoltarObjetosCompartidos();
    cAcction acc;
    auto ajustes = std::make_shared<GlobalVarGrabado>();
    acc.GlobalVar = ajustes;
    const std::string factura = carpeta / "factura.txf";
    std::ofstream(factura) << "plantilla";
    acc.AppRepositoryPath = carpeta.ruta().string() + "\\";
    AlAparecer([&] {
        ResponderSelector(QString::fromStdString(factura), [&](QFileDialog* selector) {
            EXPECT_EQ(selector->nameFilters(), QStringList{"Plantilla *.txf (*.txf)"});
            EXPECT_EQ(selector->directory().absolutePath().toStdString(), carpeta.ruta().string());
        });
        QTest::mouseClick(Widget<QPushButton>(VentanaActiva(), "btnExaminar(0)"), Qt::LeftButton);
        QTest::mouseClick(Widget<QPushButton>(VentanaActiva(), "btnAceptar"), Qt::LeftButton);
    });
    EXPECT_TRUE(acc.ConfigurarRepresentacionImpresa());
    EXPECT_EQ(ajustes->escrituras.at(1) + ajustes->escrituras.at(9), "CFDImp002=" + factura + "CFDImp009=1");
    mdlMain::SoltarObjetosCompartidos();
}

}  // namespace
}  // namespace celdora::testing

// The print format, local settings and advanced options dialogs drawn by the
// Qt renderer: path fields and browse buttons (those of a control array by
// their indexed names) are clicked on the real widgets.

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <fstream>

#include "core/Dialogos.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "settings/dlgLocal.h"
#include "tests/platform/qt/PruebaQt.h"
#include "tests/support/AjustesGrabados.h"
#include "tests/support/CarpetaTemporal.h"
#include "tests/support/ConfiguracionPrivada.h"

namespace celdora::testing {
namespace {

// Clicks the widget of that name in the dialog waiting now.
template <class T>
void Clic(const char* nombre) {
    T* widget = Widget<T>(VentanaActiva(), nombre);
    if (widget != nullptr) QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(6, widget->height() / 2));
}

// Each dialog opens in Qt and leaves its picture; the print format's files
// come from an indexed browse button (the picker filtered by the type and
// opened in the repository folder) and a click on a field, the copy folder
// from a click on its field.
TEST(ConfiguracionQt, TheSettingsDialogsOpenAndTheirFieldsAndIndexedButtonsAskForPaths) {
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
        Clic<QPushButton>("btnExaminar(0)");
        ResponderSelector(QString::fromStdString(factura));
        Clic<QLineEdit>("txtCXC_FacRecibo");
        Captura(VentanaActiva(), "dlgImpresion");
        Clic<QPushButton>("btnAceptar");
    });
    EXPECT_TRUE(acc.ConfigurarRepresentacionImpresa());
    ASSERT_EQ(ajustes->escrituras.size(), 12u);
    EXPECT_EQ(ajustes->escrituras[1] + ajustes->escrituras[9] + ajustes->escrituras[11],
              "CFDImp002=" + factura + "CFDImp009=1CFDImp011=" + factura);

    AlAparecer([&] {
        Clic<QCheckBox>("chkGuardarRespaldo");
        ResponderSelector(QString::fromStdString(carpeta.ruta().string()));
        Clic<QLineEdit>("txtCopiaLocal");
        Captura(VentanaActiva(), "dlgLocal");
        Clic<QPushButton>("btnOK");
    });
    dlgLocal local;
    local.oAcc = &acc;
    local.ShowModal();
    EXPECT_EQ(acc.StrConfiguracionLocal("FE_CopiaLocal"), carpeta.ruta().string());

    for (const char* clase : {"dlgImpresionCBB", "dlgConfigAvz"}) {
        AlAparecer([clase] {
            Captura(VentanaActiva(), clase);
            QTest::keyClick(VentanaActiva(), Qt::Key_Escape);
        });
        dialogos::Crear(clase, acc)->ShowModal();
    }
    mdlMain::SoltarObjetosCompartidos();
}

}  // namespace
}  // namespace celdora::testing

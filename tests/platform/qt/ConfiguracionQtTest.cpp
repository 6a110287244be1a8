// The print format, local settings and advanced options dialogs drawn by the
// Qt renderer: path fields and browse buttons (those of a control array by
// their indexed names) are clicked on the real widgets.

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <fstream>

#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "settings/dlgConfigAvz.h"
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

class ConfiguracionQt : public ::testing::Test {
protected:
    PlataformaQt qt;
    Vigilante vigilante;
    ConfiguracionPrivada configuracion;
    CarpetaTemporal carpeta;
    std::shared_ptr<GlobalVarGrabado> ajustes = std::make_shared<GlobalVarGrabado>();
    cAcction acc;

    void SetUp() override {
        mdlMain::SoltarObjetosCompartidos();
        acc.GlobalVar = ajustes;
    }
    void TearDown() override { mdlMain::SoltarObjetosCompartidos(); }
};

TEST_F(ConfiguracionQt, ThePrintFormatsTakeTheirFilesFromAnIndexedButtonAndAFieldClick) {
    const std::string factura = carpeta / "factura.txf";
    const std::string recibo = carpeta / "recibo.txf";
    std::ofstream(factura) << "plantilla";
    std::ofstream(recibo) << "plantilla";
    AlAparecer([&] {
        ResponderSelector(QString::fromStdString(factura));
        Clic<QPushButton>("btnExaminar(0)");
        ResponderSelector(QString::fromStdString(recibo));
        Clic<QLineEdit>("txtCXC_FacRecibo");
        Captura(VentanaActiva(), "dlgImpresion");
        Clic<QPushButton>("btnAceptar");
    });
    EXPECT_TRUE(acc.ConfigurarRepresentacionImpresa());
    AlAparecer([] {
        EXPECT_EQ(VentanaActiva()->windowTitle(), "Representación impresa para CBB");
        Captura(VentanaActiva(), "dlgImpresionCBB");
        Clic<QPushButton>("btnCancelar");
    });
    EXPECT_FALSE(acc.ConfigurarRepresentacionImpresaCBB());
    ASSERT_EQ(ajustes->escrituras.size(), 12u);
    EXPECT_EQ(ajustes->escrituras[1] + ajustes->escrituras[11], "CFDImp002=" + factura + "CFDImp011=" + recibo);
}

TEST_F(ConfiguracionQt, TheLocalCopyFolderIsChosenByAClickOnItsFieldAndTheAdvancedOptionsOpen) {
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

    AlAparecer([] {
        EXPECT_EQ(VentanaActiva()->windowTitle(), "Configuración avanzada");
        Captura(VentanaActiva(), "dlgConfigAvz");
        Clic<QPushButton>("btnCancel");
    });
    dlgConfigAvz().ShowModal();
}

}  // namespace
}  // namespace celdora::testing

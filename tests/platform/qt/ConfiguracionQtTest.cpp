// The print format, local settings and advanced options dialogs drawn by the
// Qt renderer: the fields and browse buttons are clicked on the real widgets
// (the buttons of a control array by their indexed names), and what the
// dialogs stored is read back.

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <fstream>
#include <memory>
#include <string>

#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "settings/OpcionesAvanzadas.h"
#include "settings/dlgConfigAvz.h"
#include "settings/dlgLocal.h"
#include "tests/platform/qt/PruebaQt.h"
#include "tests/support/AjustesGrabados.h"
#include "tests/support/CarpetaTemporal.h"
#include "tests/support/ConfiguracionPrivada.h"

namespace celdora::testing {
namespace {

class ConfiguracionQt : public ::testing::Test {
protected:
    PlataformaQt qt;
    Vigilante vigilante;
    std::shared_ptr<GlobalVarGrabado> ajustes = std::make_shared<GlobalVarGrabado>();
    cAcction acc;

    void SetUp() override {
        mdlMain::SoltarObjetosCompartidos();
        acc.GlobalVar = ajustes;
        acc.ApplicationName = "Tiendaro";
    }
    void TearDown() override { mdlMain::SoltarObjetosCompartidos(); }
};

TEST_F(ConfiguracionQt, ThePrintFormatFieldsAndIndexedBrowseButtonsAskForTheirFiles) {
    CarpetaTemporal carpeta;
    const std::string factura = carpeta / "factura.txf";
    const std::string recibo = carpeta / "recibo.txf";
    std::ofstream(factura) << "plantilla";
    std::ofstream(recibo) << "plantilla";
    QStringList filtros;
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        ASSERT_NE(v, nullptr);
        EXPECT_EQ(v->windowTitle(), "Representación impresa de CFD/CFDI");
        EXPECT_EQ(Widget<QComboBox>(v, "cmbTipo")->currentText(), "PDF/MS Word");
        ResponderSelector(QString::fromStdString(factura),
                          [&](QFileDialog* selector) { filtros = selector->nameFilters(); });
        QTest::mouseClick(Widget<QPushButton>(v, "btnExaminar(0)"), Qt::LeftButton);
        EXPECT_EQ(Widget<QLineEdit>(v, "txtArchivo")->text().toStdString(), factura);
        ResponderSelector(QString::fromStdString(recibo));
        QTest::mouseClick(Widget<QLineEdit>(v, "txtCXC_FacRecibo"), Qt::LeftButton);
        EXPECT_EQ(Widget<QLineEdit>(v, "txtCXC_FacRecibo")->text().toStdString(), recibo);
        Captura(v, "dlgImpresion");
        QTest::mouseClick(Widget<QPushButton>(v, "btnAceptar"), Qt::LeftButton);
    });
    EXPECT_TRUE(acc.ConfigurarRepresentacionImpresa());
    EXPECT_EQ(filtros, QStringList{"Plantilla *.txf (*.txf)"});
    ASSERT_EQ(ajustes->escrituras.size(), 12u);
    EXPECT_EQ(ajustes->escrituras[1], "CFDImp002=" + factura);
    EXPECT_EQ(ajustes->escrituras[11], "CFDImp011=" + recibo);
}

TEST_F(ConfiguracionQt, TheCBBPrintFormatHasNoMailAndCancelsWithoutWriting) {
    AlAparecer([] {
        platform::VentanaQt* v = VentanaActiva();
        ASSERT_NE(v, nullptr);
        EXPECT_EQ(v->windowTitle(), "Representación impresa para CBB");
        EXPECT_EQ(v->findChild<QComboBox*>(QStringLiteral("cmbMail")), nullptr);
        Captura(v, "dlgImpresionCBB");
        QTest::mouseClick(Widget<QPushButton>(v, "btnCancelar"), Qt::LeftButton);
    });
    EXPECT_FALSE(acc.ConfigurarRepresentacionImpresaCBB());
    EXPECT_TRUE(ajustes->escrituras.empty());
}

TEST_F(ConfiguracionQt, TheLocalCopyFolderIsChosenByAClickOnItsField) {
    ConfiguracionPrivada configuracion;
    CarpetaTemporal respaldos;
    const std::string carpeta = respaldos.ruta().string();
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        ASSERT_NE(v, nullptr);
        EXPECT_EQ(v->windowTitle(), "Configuración local");
        auto* respaldo = Widget<QCheckBox>(v, "chkGuardarRespaldo");
        QTest::mouseClick(respaldo, Qt::LeftButton, {}, QPoint(6, respaldo->height() / 2));
        ResponderSelector(QString::fromStdString(carpeta));
        QTest::mouseClick(Widget<QLineEdit>(v, "txtCopiaLocal"), Qt::LeftButton);
        EXPECT_EQ(Widget<QLineEdit>(v, "txtCopiaLocal")->text().toStdString(), carpeta);
        EXPECT_EQ(Widget<QLineEdit>(v, "txtPWD")->echoMode(), QLineEdit::Password);
        Captura(v, "dlgLocal");
        QTest::mouseClick(Widget<QPushButton>(v, "btnOK"), Qt::LeftButton);
    });
    dlgLocal dialogo;
    dialogo.oAcc = &acc;
    dialogo.ShowModal();
    EXPECT_EQ(acc.StrConfiguracionLocal("FE_CopiaLocal"), carpeta);
    EXPECT_EQ(acc.StrConfiguracionLocal("Fe_Timbre001"), "psecfdi.edicom.cMain");
}

TEST_F(ConfiguracionQt, TheAdvancedOptionsKeepATypedJoiningTextWithoutBars) {
    VariablesAvanzadas() = OpcionesAvanzadas{};
    AlAparecer([] {
        platform::VentanaQt* v = VentanaActiva();
        ASSERT_NE(v, nullptr);
        EXPECT_EQ(v->windowTitle(), "Configuración avanzada");
        auto* concatenar = Widget<QCheckBox>(v, "chkConcatNotasPartida");
        QTest::mouseClick(concatenar, Qt::LeftButton, {}, QPoint(6, concatenar->height() / 2));
        auto* cadena = Widget<QLineEdit>(v, "ctrlCadenaUnion");
        cadena->selectAll();
        Teclear(cadena, QStringLiteral("a|b"));
        Captura(v, "dlgConfigAvz");
        QTest::mouseClick(Widget<QPushButton>(v, "btnOK"), Qt::LeftButton);
    });
    dlgConfigAvz dialogo;
    dialogo.ShowModal();
    EXPECT_EQ(VariablesAvanzadas().cadenaUnion, "ab");
    EXPECT_EQ(VariablesAvanzadas().concatNotasPartida, 1);
    VariablesAvanzadas() = OpcionesAvanzadas{};
}

}  // namespace
}  // namespace celdora::testing

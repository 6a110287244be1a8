// The certificate, folio range and blocks editors drawn by the Qt renderer on
// the demo company: a person clicks the path fields, types, picks and saves,
// and the rows, the blocks and a real PFX file show what the editors made of it.

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTest>
#include <QTreeWidget>
#include <filesystem>

#include "core/Dialogos.h"
#include "core/cAcction.h"
#include "tests/platform/qt/PruebaQt.h"
#include "tests/support/CarpetaTemporal.h"
#include "tests/support/CompanyFixture.h"
#include "value/Convert.h"

namespace celdora::testing {
namespace {

namespace fs = std::filesystem;

class CertificadosQt : public ::testing::Test {
protected:
    PlataformaQt qt;
    Vigilante vigilante{20000};
    CompanyDatabase db{CompanyDatabase::Datos::Demo};
    CarpetaTemporal carpeta;
    cAcction acc;

    void SetUp() override { acc.SetDataObjects(db.dataObjects, nullptr); }
    static void Clic(QWidget* v, const char* nombre) { QTest::mouseClick(Widget<QWidget>(v, nombre), Qt::LeftButton); }
    static void Numero(QWidget* v, const char* nombre, const QString& texto) {
        auto* giro = Widget<QStackedWidget>(v, nombre)->findChild<QDoubleSpinBox*>();
        giro->selectAll();
        Teclear(giro, texto);
    }
};

// The paths come from the pickers, by a click on the empty field and on a
// browse button; the PFX is built beside the certificate.
TEST_F(CertificadosQt, ACertificateIsPickedTypedGivenItsPFXAndSaved) {
    const std::string cer = carpeta / "sello.cer";
    fs::copy_file(fs::path(CELDORA_SAT_CSD_DIR) / "csd-EKU9003173C9.cer", cer);
    CajaVista creado;
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        Teclear(Widget<QLineEdit>(v, "txtNumCertificado"), "3000x1000000 500003416");
        ResponderSelector(QString::fromStdString(cer));
        Clic(v, "txtCertificado");
        ResponderSelector(QString::fromStdString(fs::path(CELDORA_SAT_CSD_DIR) / "csd-EKU9003173C9.key"));
        Clic(v, "cmdBuscarLlave");
        Teclear(Widget<QLineEdit>(v, "txtPWD"), "12345678a");
        Teclear(Widget<QLineEdit>(v, "txtPWD2"), "12345678a");
        auto* casilla = Widget<QCheckBox>(v, "chkPFX");
        QTest::mouseClick(casilla, Qt::LeftButton, {}, QPoint(6, casilla->height() / 2));
        ResponderCaja(creado, "Aceptar");
        Clic(v, "cmdGenerarPFX");
        Captura(v, "dlgcertificado");
        Clic(v, "btnOK");
    });
    // The key is read back by the number, which demo certificate 2 has too.
    EXPECT_EQ(acc.AgregarCertificado(), 2);
    EXPECT_EQ(creado.texto.toStdString(), "Archivo creado correctamente en " + (carpeta / "sello.pfx"));
    EXPECT_EQ(CStr(db.Valor("SELECT uf_noCertificado || ' ' || uf_Certificado || ' ' || uf_PFX FROM ut_CFDInfo "
                            "WHERE Sys_PK=4")), "30001000000500003416 " + cer + " " + (carpeta / "sello.pfx"));
}

TEST_F(CertificadosQt, ARangeIsTypedAndTakesAFreeBlock) {
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        Teclear(Widget<QLineEdit>(v, "txtSerie"), "e1");
        EXPECT_EQ(Widget<QLineEdit>(v, "txtSerie")->text(), "E");
        Numero(v, "eNumFInicial", "1");
        Numero(v, "eNumFFinal", "500");
        Numero(v, "eNumNoAprobacion", "4242");
        Numero(v, "eNumAnioAprobacion", "2026");
        for (const char* lista : {"cmbCertificado", "cmbBlock"}) {
            auto* combo = Widget<QComboBox>(v, lista);
            combo->setFocus();
            QTest::keyClick(combo, Qt::Key_Down);
        }
        Captura(v, "dlgRangoFolios");
        Clic(v, "btnOK");
    });
    EXPECT_EQ(acc.AgregarAprobacionFolios(), 4);
    EXPECT_EQ(CStr(db.Valor("SELECT uf_Serie || uf_FolioFinal || ' ' || uf_anoAprobacion || ' ' || Block.uf_CFDFolio "
                            "FROM ut_CFDFolio, BlockDocumentos AS Block WHERE ut_CFDFolio.Sys_PK=4 AND Block.Sys_PK=6")),
              "E500 2026 4");
}

// Opened by name, as `celdora dialog frmBlockXCer` does: the blocks of
// certificate 1, which holds none.
TEST_F(CertificadosQt, BlocksTickedInTheListGoToTheCertificate) {
    auto dialogo = dialogos::Crear("frmBlockXCer", acc);
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        auto* lista = Widget<QTreeWidget>(v, "lvw");
        ASSERT_TRUE(Esperar([&] { return lista->topLevelItemCount() == 2; }));
        lista->topLevelItem(1)->setCheckState(0, Qt::Checked);
        Captura(v, "frmBlockXCer");
        Clic(v, "btnGuardar");
    });
    dialogo->ShowModal();
    EXPECT_FALSE(dialogo->Cargado());
    EXPECT_EQ(CStr(db.Valor("SELECT group_concat(Sys_PK || ':' || ifnull(uf_CFDI_Info, 'N')) FROM BlockDocumentos "
                            "WHERE Sys_PK IN (6, 7)")),
              "6:N,7:1");
}

}  // namespace
}  // namespace celdora::testing

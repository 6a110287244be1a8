// The main configuration dialog drawn by the Qt renderer on the demo
// company: a person walks its six pages by their tabs, types the issuer's
// name and moves the fiscal address to another city on the address
// control's own widgets, and the OK button saves; a picture of every page is
// left behind.

#include <gtest/gtest.h>

#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include "core/cAcction.h"
#include "platform/common/Catalogo.h"
#include "tests/platform/qt/PruebaQt.h"
#include "tests/support/CompanyFixture.h"
#include "value/Convert.h"

namespace celdora::testing {
namespace {

TEST(DialogoConfigQt, APersonWalksTheSixPagesAndSaves) {
    PlataformaQt qt;
    Vigilante vigilante{20000};
    CompanyDatabase db{CompanyDatabase::Datos::Demo};
    db.Ejecutar("UPDATE gv_Configuracion SET Numero=3 WHERE Clave='NVCA300xa'");
    cAcction acc;
    acc.SetDataObjects(db.dataObjects, std::make_shared<platform::CatalogoPaises>(db.cnn));
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        auto* pestanas = Widget<QTabWidget>(v, "TabControl");
        ASSERT_EQ(pestanas->count(), 6);
        const char* nombres[] = {"General", "Emisor", "Expedicion", "Correo", "Adicionales", "Permisos"};
        for (int i = 0; i < 6; ++i) {
            QTabBar* barra = pestanas->tabBar();
            QTest::mouseClick(barra, Qt::LeftButton, {}, barra->tabRect(i).center());
            ASSERT_TRUE(Esperar([&] { return pestanas->currentIndex() == i; })) << "página " << i;
            if (i == 1) {
                auto* nombre = Widget<QLineEdit>(v, "txtNombreEmisor");
                nombre->clear();
                Teclear(nombre, "ESCUELA KEMPER URGATE, S.A. DE C.V.");
                auto* domicilio = Widget<QGroupBox>(v, "eDir");
                EXPECT_EQ(domicilio->title(), "Domicilio Fiscal");
                ElegirEn(Widget<QComboBox>(domicilio, "estado"), QStringLiteral("Nuevo León"));
                ElegirEn(Widget<QComboBox>(domicilio, "ciudad"), QStringLiteral("Monterrey"));
            }
            Captura(v, std::string("dlgConfig-") + std::to_string(i) + "-" + nombres[i]);
        }
        QTest::mouseClick(Widget<QPushButton>(v, "btnOK"), Qt::LeftButton);
    });
    acc.Configuracion();
    EXPECT_EQ(CStr(db.Valor("SELECT Texto FROM gv_Configuracion WHERE Clave='NVCA100'")),
              "ESCUELA KEMPER URGATE, S.A. DE C.V.");
    EXPECT_EQ(CStr(db.Valor("SELECT ICiudad FROM Domicilio WHERE Sys_PK=1")), "2");
}

}  // namespace
}  // namespace celdora::testing

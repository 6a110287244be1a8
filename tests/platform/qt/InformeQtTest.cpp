// The monthly report on the desktop: a month generated through the Qt
// windows (the dialog, the folder picker, the closing box) and then read
// back in the browser, whose grid and totals must show what the file holds.

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTreeWidget>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "tests/platform/qt/PruebaQt.h"
#include "tests/support/CarpetaTemporal.h"
#include "tests/support/CompanyFixture.h"
#include "value/Convert.h"
#include "value/Text.h"

namespace celdora::testing {
namespace {

namespace fs = std::filesystem;

TEST(InformeQt, AMonthGeneratedInTheWindowsReadsBackInTheBrowserWithItsTotals) {
    PlataformaQt qt;
    Vigilante vigilante(20000);
    CompanyDatabase db(CompanyDatabase::Datos::Demo);
    CarpetaTemporal carpeta;
    cAcction acc;
    acc.SetDataObjects(db.dataObjects, nullptr);
    acc.ApplicationName = "Tiendaro";

    // The report goes to a folder inside the test's own, so that even a
    // picker answering its parent folder writes nothing outside it.
    const fs::path destino = carpeta.ruta() / "informes";
    fs::create_directories(destino);
    CajaVista cierre;
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        ASSERT_NE(v, nullptr);
        EXPECT_EQ(v->windowTitle(), "Informe mensual al SAT");
        // The folder picker comes up from the button, and then the closing box.
        ResponderSelector(QString::fromStdString(destino.string()), [&](QFileDialog*) {
            ResponderCaja(cierre, "Aceptar");
        });
        QTest::mouseClick(Widget<QPushButton>(v, "btnOK"), Qt::LeftButton);
    });
    std::int16_t mes = 11;
    std::int16_t anio = 2026;
    bool bloquear = false;
    ASSERT_TRUE(acc.GenerarInformeMensual(mes, anio, bloquear));
    EXPECT_EQ(cierre.texto.toStdString(),
              "El archivo ha sido generado correctamente correspondiente al mes de Noviembre y al año 2026");

    std::ifstream informe(destino / "1EKU9003173C9112026.txt", std::ios::binary);
    ASSERT_TRUE(informe.is_open()) << "the report was not written";
    const auto lineas = Split(std::string(std::istreambuf_iterator<char>(informe), {}), "\r\n");
    ASSERT_GE(lineas.size(), 2u);
    double total = 0;
    double iva = 0;
    for (const auto& linea : lineas) {
        const auto piezas = Split(linea, "|");
        total += CDbl(Variant(piezas.at(6)));
        iva += CDbl(Variant(piezas.at(7)));
    }

    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        ASSERT_NE(v, nullptr);
        EXPECT_EQ(v->windowTitle(), "Informes mensuales generados");
        auto* vista = Widget<QTreeWidget>(v, "lvw");
        // September's and October's stored reports come first, by month.
        ASSERT_EQ(vista->topLevelItemCount(), 3);
        QTreeWidgetItem* noviembre = vista->topLevelItem(2);
        EXPECT_EQ(noviembre->text(0).toStdString(), "1EKU9003173C9112026");
        QTest::mouseClick(vista->viewport(), Qt::LeftButton, {}, vista->visualItemRect(noviembre).center());
        auto* rejilla = Widget<QTableWidget>(v, "dxGrid");
        CuandoSe([rejilla] { return rejilla->rowCount() > 0; },
                 [&, v, rejilla] {
                     EXPECT_EQ(rejilla->rowCount(), static_cast<int>(lineas.size()));
                     auto& modelo = v->Modelo();
                     EXPECT_NEAR(modelo.Ver<forms::NumberField>("eNumTotal").Value(), total, 0.001);
                     EXPECT_NEAR(modelo.Ver<forms::NumberField>("eNumIVA").Value(), iva, 0.001);
                     EXPECT_EQ(modelo.Ver<forms::Label>("lblcontenido").Caption(),
                               "Contenido del informe 1EKU9003173C9112026");
                     QTest::mouseClick(Widget<QPushButton>(v, "btnCerrar"), Qt::LeftButton);
                 },
                 "the grid to show the report's lines");
    });
    bool regenerar = true;
    bool eliminar = true;
    acc.VerInformesMensuales(regenerar, eliminar);
    mdlMain::CerrarProgreso(false);
}

}  // namespace
}  // namespace celdora::testing

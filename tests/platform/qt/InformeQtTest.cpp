// The monthly report on the desktop: a month generated through the Qt
// windows (the dialog, the folder picker, the closing box) and then read
// back in the browser, whose grid and totals must show what the file holds.

#include <gtest/gtest.h>

#include <QFileDialog>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTreeWidget>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>

#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "forms/Controles.h"
#include "tests/platform/qt/PruebaQt.h"
#include "tests/support/CarpetaTemporal.h"
#include "tests/support/CompanyFixture.h"
#include "value/Convert.h"
#include "value/Text.h"

namespace celdora::testing {
namespace {

namespace fs = std::filesystem;

std::string Leer(const fs::path& ruta) {
    std::ifstream in(ruta, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void Pulsar(QWidget* ventana, const char* boton) {
    auto* widget = Widget<QPushButton>(ventana, boton);
    if (widget != nullptr) QTest::mouseClick(widget, Qt::LeftButton);
}

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
        Pulsar(v, "btnOK");
    });
    std::int16_t mes = 11;
    std::int16_t anio = 2026;
    bool bloquear = false;
    ASSERT_TRUE(acc.GenerarInformeMensual(mes, anio, bloquear));
    EXPECT_EQ(cierre.texto.toStdString(),
              "El archivo ha sido generado correctamente correspondiente al mes de Noviembre y al año 2026");

    const fs::path informe = destino / "1EKU9003173C9112026.txt";
    ASSERT_TRUE(fs::exists(informe)) << informe << " was not written";
    const std::string contenido = Leer(informe);
    const auto lineas = Split(contenido, "\r\n");
    ASSERT_GE(lineas.size(), 2u);
    double total = 0;
    double iva = 0;
    for (const auto& linea : lineas) {
        const auto piezas = Split(linea, "|");
        total += CDbl(Variant(piezas.at(6)));
        iva += CDbl(Variant(piezas.at(7)));
    }

    int filas = -1;
    double montoMostrado = -1;
    double ivaMostrado = -1;
    std::string etiqueta;
    AlAparecer([&] {
        platform::VentanaQt* v = VentanaActiva();
        ASSERT_NE(v, nullptr);
        EXPECT_EQ(v->windowTitle(), "Informes mensuales generados");
        auto* vista = Widget<QTreeWidget>(v, "lvw");
        ASSERT_NE(vista, nullptr);
        // September's and October's stored reports come first, by month.
        ASSERT_EQ(vista->topLevelItemCount(), 3);
        QTreeWidgetItem* noviembre = vista->topLevelItem(2);
        EXPECT_EQ(noviembre->text(0).toStdString(), "1EKU9003173C9112026");
        QTest::mouseClick(vista->viewport(), Qt::LeftButton, {}, vista->visualItemRect(noviembre).center());
        auto* rejilla = Widget<QTableWidget>(v, "dxGrid");
        CuandoSe([rejilla] { return rejilla->rowCount() > 0; },
                 [&, v, rejilla] {
                     filas = rejilla->rowCount();
                     auto& modelo = v->Modelo();
                     montoMostrado = modelo.Ver<forms::NumberField>("eNumTotal").Value();
                     ivaMostrado = modelo.Ver<forms::NumberField>("eNumIVA").Value();
                     etiqueta = modelo.Ver<forms::Label>("lblcontenido").Caption();
                     Captura(v, "dlgExportarInforme");
                     Pulsar(v, "btnCerrar");
                 },
                 "the grid to show the report's lines");
    });
    bool regenerar = true;
    bool eliminar = true;
    acc.VerInformesMensuales(regenerar, eliminar);

    EXPECT_EQ(etiqueta, "Contenido del informe 1EKU9003173C9112026");
    EXPECT_EQ(filas, static_cast<int>(lineas.size()));
    EXPECT_NEAR(montoMostrado, total, 0.001);
    EXPECT_NEAR(ivaMostrado, iva, 0.001);
    mdlMain::CerrarProgreso(false);
}

}  // namespace
}  // namespace celdora::testing

// The browser of stored reports on the demo company: 2026 holds September's
// empty report (key 1) and October's of two lines (key 2).

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "report/dlgExportarInforme.h"
#include "tests/report/ReporteFixture.h"

namespace celdora {
namespace {

namespace fs = std::filesystem;
using host::Puntero;
using host::Respuesta;
using testing::kInformesDemo;
using testing::kOctubre;
using testing::kReportadosDemo;
using testing::Textos;

class Navegador : public testing::InformeFixture {
protected:
    // Shows the browser; the script acts on it and, if it did not, closes it.
    void Ver(std::function<void(dlgExportarInforme&)> guion, bool regenerar = true, bool eliminar = true) {
        ui.AlMostrar("dlgExportarInforme", [guion](forms::Dialogo& d) {
            auto& dialogo = dynamic_cast<dlgExportarInforme&>(d);
            guion(dialogo);
            if (dialogo.Visible()) dialogo.btnCerrar.Pulsar();
        });
        acc.VerInformesMensuales(regenerar, eliminar);
    }
    // The report's lines in the grid and the totals shown.
    static std::vector<double> Mostrado(const dlgExportarInforme& d) {
        return {static_cast<double>(d.dxGrid.RowCount()), d.eNumTotal.Value(), d.eNumIVA.Value()};
    }
    static void Seleccionar(dlgExportarInforme& d, int indice) { ASSERT_TRUE(d.lvw.ClickItem(indice)); }
};

TEST_F(Navegador, OpensOnThePresentYearWithTheFirstReportShown) {
    Ver([](dlgExportarInforme& d) {
        Textos columnas;
        for (const auto& c : d.lvw.Columnas()) columnas.push_back(c.text);
        EXPECT_EQ(columnas, (Textos{"Nombre", "Mes", "Fecha de registro.", "contenido", "MesNumero"}));
        ASSERT_EQ(d.lvw.Count(), 2);
        // October's text, its four sub-items and its tag.
        EXPECT_EQ((Textos{d.lvw.Item(1).text, d.lvw.SubItem(1, 1), d.lvw.SubItem(1, 2), d.lvw.SubItem(1, 3),
                          d.lvw.SubItem(1, 4), d.lvw.Item(1).tag}),
                  (Textos{"1EKU9003173C9102026", "Octubre", "02/11/2026", "10", "", "2"}));
        EXPECT_EQ(d.lvw.SelectedItem(), 0);
        EXPECT_EQ(Mostrado(d), (std::vector<double>{0, 0, 0}));
    });
    EXPECT_EQ(Sentencias().front(),
              "SELECT Sys_PK,uf_Nombre,uf_Mes,uf_Fecha FROM ut_CFDInforme WHERE uf_Anio=2026 ORDER BY uf_Mes");
}

TEST_F(Navegador, ClickingAReportShowsItsLinesAndTotalsWithTheHourglass) {
    Ver([&](dlgExportarInforme& d) {
        Seleccionar(d, 1);
        EXPECT_EQ(d.lblcontenido.Caption(), "Contenido del informe 1EKU9003173C9102026");
        EXPECT_EQ(Mostrado(d), (std::vector<double>{2, 3581.0, 376.0}));
        EXPECT_EQ(d.dxGrid.Valor(1, "id"), Variant::Long(2));
        EXPECT_EQ(CStr(d.dxGrid.Valor(1, "Aduana")), "240 Nuevo Laredo");
        EXPECT_EQ(Sentencias().back(), "SELECT uf_Contenido FROM ut_CFDInforme WHERE Sys_PK=2");
    });
    EXPECT_EQ(ui.Punteros(), (std::vector<Puntero>{Puntero::Reloj, Puntero::Normal, Puntero::Reloj, Puntero::Normal}));
}

TEST_F(Navegador, ABadLineIsShownAndLeavesTheTotalsAtZero) {
    db.Ejecutar("UPDATE ut_CFDInforme SET uf_Contenido=uf_Contenido || char(13,10) || '|corta|' WHERE Sys_PK=2");
    Ver([](dlgExportarInforme& d) {
        Seleccionar(d, 1);
        EXPECT_EQ(Mostrado(d), (std::vector<double>{2, 0, 0}));
    });
    EXPECT_EQ(Estado(), (Textos{"! Contenido incorrecto: |corta|", "llamadas:", kReportadosDemo, kInformesDemo}));
}

TEST_F(Navegador, DeniedButtonsStayEnabledAndRefuseAndEachButtonHasItsOwnWordsForAMissingSelection) {
    Ver(
        [](dlgExportarInforme& d) {
            EXPECT_TRUE(d.btnRegenerar.Pulsar());
            EXPECT_TRUE(d.btnEliminar.Pulsar());
        },
        false, false);
    Ver([](dlgExportarInforme& d) {
        d.cmbAnio.Text("2025");
        for (auto* boton : {&d.btnRegenerar, &d.btnEliminar, &d.btnExportar, &d.btnCopiar}) boton->Pulsar();
    });
    EXPECT_EQ(Estado(), (Textos{"x[Tiendaro] Acceso denegado.", "x[Tiendaro] Acceso denegado.", "i Seleccione informe.",
                                "i Selecione un elemento.", "i Selecione un elemento.", "i Seleccione un informe.",
                                "llamadas:", kReportadosDemo, kInformesDemo}));
}

TEST_F(Navegador, DeletingAsksAndReloadsTheListOrSaysWhyItFailed) {
    const auto eliminar = [](int quedan) {
        return [quedan](dlgExportarInforme& d) {
            Seleccionar(d, 1);
            d.btnEliminar.Pulsar();
            EXPECT_EQ(d.lvw.Count(), quedan);
        };
    };
    ui.Responder(Respuesta::No);
    Ver(eliminar(2));
    SoloLectura("ut_CFDBitacora");
    ui.Responder(Respuesta::Si);
    Ver(eliminar(2));
    const std::string pregunta = "?sn " + testing::kPreguntaEliminar;
    EXPECT_EQ(Estado(), (Textos{pregunta, pregunta,
                                "! Error al eliminar. Error 1 (cannot modify ut_CFDBitacora because it is a view)",
                                "llamadas: Iniciar Revertir", kReportadosDemo, kInformesDemo}));
    db.Ejecutar("DROP VIEW ut_CFDBitacora");
    db.Ejecutar("ALTER TABLE ut_CFDBitacora_filas RENAME TO ut_CFDBitacora");
    ui.Responder(Respuesta::Si);
    Ver(eliminar(1));
    EXPECT_EQ(Estado()[4], "i Informe eliminado correctamente.");
    EXPECT_EQ(Informes(), "1 9/2026 1EKU9003173C9092026");
}

TEST_F(Navegador, ExportingWritesAndCopyingPutsOnTheClipboardTheStoredTextOrSaysWhyNot) {
    const fs::path destino = carpeta.ruta() / "1EKU9003173C9102026.txt";
    std::ofstream(destino) << "anterior";
    const fs::path archivo = carpeta.ruta() / "no-es-carpeta";
    std::ofstream(archivo) << "x";
    for (const auto& ruta : {carpeta.ruta().string(), carpeta.ruta().string(), archivo.string()}) ui.Elegir(ruta);
    Ver([](dlgExportarInforme& d) {
        Seleccionar(d, 1);
        d.btnExportar.Pulsar();
        d.btnCopiar.Pulsar();
        Seleccionar(d, 0);
        d.btnExportar.Pulsar();
        d.btnCopiar.Pulsar();
        d.btnExportar.Pulsar();
    });
    EXPECT_EQ(testing::LeerArchivo(destino), kOctubre);
    EXPECT_EQ(testing::LeerArchivo(carpeta.ruta() / "1EKU9003173C9092026.txt"), "");
    EXPECT_EQ(ui.Portapapeles(), (Textos{"", kOctubre, "", ""}));
    EXPECT_EQ(Estado(), (Textos{"i Archivo guardado correctamente.", "i Archivo guardado correctamente.",
                                "i Sin contenido.",
                                "! Error al guardar archivo " + archivo.string() + "/1EKU9003173C9092026.txt",
                                "llamadas:", kReportadosDemo, kInformesDemo}));
}

}  // namespace
}  // namespace celdora

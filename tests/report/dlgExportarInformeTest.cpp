// The browser of stored reports on the demo company: 2026 holds September's
// empty report (key 1) and October's of two lines (key 2).

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "core/Dispatch.h"
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
        AlVer(std::move(guion));
        acc.VerInformesMensuales(regenerar, eliminar);
    }
    void AlVer(std::function<void(dlgExportarInforme&)> guion) {
        ui.AlMostrar("dlgExportarInforme", [guion](forms::Dialogo& d) {
            auto& dialogo = dynamic_cast<dlgExportarInforme&>(d);
            guion(dialogo);
            if (dialogo.Visible()) dialogo.btnCerrar.Pulsar();
        });
    }
    // A report of the list: its text, its four sub-items and its tag.
    static Textos Item(const dlgExportarInforme& d, int indice) {
        Textos textos{d.lvw.Item(indice).text};
        for (int columna = 1; columna <= 4; ++columna) textos.push_back(d.lvw.SubItem(indice, columna));
        textos.push_back(d.lvw.Item(indice).tag);
        return textos;
    }
    // The report's lines in the grid and the totals shown.
    static std::vector<double> Mostrado(const dlgExportarInforme& d) {
        return {static_cast<double>(d.dxGrid.RowCount()), d.eNumTotal.Value(), d.eNumIVA.Value()};
    }
    static void Seleccionar(dlgExportarInforme& d, int indice) { ASSERT_TRUE(d.lvw.ClickItem(indice)); }
};

TEST_F(Navegador, OpensOnThePresentYearWithTheFirstReportShown) {
    Ver([](dlgExportarInforme& d) {
        EXPECT_EQ(d.tab.Paginas(), (Textos{"General"}));
        ASSERT_EQ(d.cmbAnio.ListCount(), 66);
        EXPECT_EQ((Textos{d.Caption(), d.lblinforme.Caption(), d.cmbAnio.Caption(), d.cmbAnio.List(0), d.cmbAnio.Text(),
                          d.lblcontenido.Caption(), d.eNumTotal.Caption(), d.eNumIVA.Caption(), d.btnRegenerar.Tag(),
                          d.btnEliminar.Tag(), d.btnExportar.Caption(), d.btnCopiar.Caption(), d.btnCerrar.Caption(),
                          d.dxGrid.Columnas()[7].nombre}),
                  (Textos{"Informes mensuales generados", "Informes de comprobantes fiscales digitales emitidos.",
                          "Mostrar informes del año:", "1985", "2026", "Contenido del informe 1EKU9003173C9092026",
                          "Monto total:", "Total de IVA trasladado:", "1", "1", "Exportar a txt...",
                          "Copiar al portapapeles", "&Cerrar", "IVATrasladado"}));
        Textos columnas;
        for (const auto& c : d.lvw.Columnas()) columnas.push_back(c.text);
        EXPECT_EQ(columnas, (Textos{"Nombre", "Mes", "Fecha de registro.", "contenido", "MesNumero"}));
        ASSERT_EQ(d.lvw.Count(), 2);
        EXPECT_EQ(Item(d, 0), (Textos{"1EKU9003173C9092026", "Septiembre", "01/10/2026", "9", "", "1"}));
        EXPECT_EQ(Item(d, 1), (Textos{"1EKU9003173C9102026", "Octubre", "02/11/2026", "10", "", "2"}));
        EXPECT_EQ(d.lvw.SelectedItem(), 0);
        EXPECT_EQ(Mostrado(d), (std::vector<double>{0, 0, 0}));
        EXPECT_EQ(d.dxGrid.Columnas().size(), 13u);
        for (auto* campo : {&d.eNumTotal, &d.eNumIVA}) {
            EXPECT_FALSE(campo->ButtonVisible());
            EXPECT_TRUE(campo->Locked());
            EXPECT_EQ(campo->Format(), "$ #,#.##");
        }
    });
    EXPECT_EQ(Sentencias().front(),
              "SELECT Sys_PK,uf_Nombre,uf_Mes,uf_Fecha FROM ut_CFDInforme WHERE uf_Anio=2026 ORDER BY uf_Mes");
}

TEST_F(Navegador, ClickingAReportShowsItsLinesAndTotalsWithTheHourglassAndAnEmptyYearKeepsTheTotals) {
    Ver([&](dlgExportarInforme& d) {
        Seleccionar(d, 1);
        EXPECT_EQ(d.lblcontenido.Caption(), "Contenido del informe 1EKU9003173C9102026");
        EXPECT_EQ(Mostrado(d), (std::vector<double>{2, 3581.0, 376.0}));
        EXPECT_EQ(d.dxGrid.Valor(1, "id"), Variant::Long(2));
        EXPECT_EQ(CStr(d.dxGrid.Valor(1, "Aduana")), "240 Nuevo Laredo");
        EXPECT_EQ(Sentencias().back(), "SELECT uf_Contenido FROM ut_CFDInforme WHERE Sys_PK=2");
        d.cmbAnio.Text("2025");
        EXPECT_EQ(d.lvw.Count(), 0);
        EXPECT_EQ(Mostrado(d), (std::vector<double>{0, 3581.0, 376.0}));
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
    EXPECT_EQ(ui.MousePointerActual(), Puntero::Normal);
}

TEST_F(Navegador, DeniedButtonsStayEnabledAndRefuseAndEachButtonHasItsOwnWordsForAMissingSelection) {
    Ver(
        [](dlgExportarInforme& d) {
            EXPECT_EQ(d.btnRegenerar.Tag(), "0");
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

TEST_F(Navegador, DeletingAsksThenReloadsTheList) {
    ui.Responder(Respuesta::Si);
    Ver([](dlgExportarInforme& d) {
        Seleccionar(d, 1);
        d.btnEliminar.Pulsar();
        ASSERT_EQ(d.lvw.Count(), 1);
        EXPECT_EQ(d.lvw.Item(0).text, "1EKU9003173C9092026");
    });
    EXPECT_EQ(Estado(), (Textos{"?sn " + testing::kPreguntaEliminar, "i Informe eliminado correctamente.",
                                "llamadas: Iniciar Confirmar", "00000000", "1 9/2026 1EKU9003173C9092026"}));
}

TEST_F(Navegador, DeletingAnsweredNoSaysNothingAndAFailureSaysWhy) {
    const auto eliminar = [](dlgExportarInforme& d) {
        Seleccionar(d, 1);
        d.btnEliminar.Pulsar();
        EXPECT_EQ(d.lvw.Count(), 2);
    };
    ui.Responder(Respuesta::No);
    Ver(eliminar);
    SoloLectura("ut_CFDBitacora");
    ui.Responder(Respuesta::Si);
    Ver(eliminar);
    const std::string pregunta = "?sn " + testing::kPreguntaEliminar;
    EXPECT_EQ(Estado(), (Textos{pregunta, pregunta,
                                "! Error al eliminar. Error 1 (cannot modify ut_CFDBitacora because it is a view)",
                                "llamadas: Iniciar Revertir", kReportadosDemo, kInformesDemo}));
}

TEST_F(Navegador, ExportingWritesTheStoredTextUnderTheReportsNameOrSaysWhereItCouldNot) {
    const fs::path destino = carpeta.ruta() / "1EKU9003173C9102026.txt";
    std::ofstream(destino) << "anterior";
    const fs::path archivo = carpeta.ruta() / "no-es-carpeta";
    std::ofstream(archivo) << "x";
    for (const auto& ruta : {std::optional(carpeta.ruta().string()), std::optional(carpeta.ruta().string()),
                             std::optional<std::string>(), std::optional(archivo.string())}) {
        ui.Elegir(ruta);
    }
    Ver([](dlgExportarInforme& d) {
        Seleccionar(d, 1);
        d.btnExportar.Pulsar();
        Seleccionar(d, 0);
        d.btnExportar.Pulsar();
        d.btnExportar.Pulsar();  // cancelled: nothing
        d.btnExportar.Pulsar();
    });
    EXPECT_EQ(testing::LeerArchivo(destino), kOctubre);
    EXPECT_EQ(testing::LeerArchivo(carpeta.ruta() / "1EKU9003173C9092026.txt"), "");
    EXPECT_EQ(Estado(), (Textos{"i Archivo guardado correctamente.", "i Archivo guardado correctamente.",
                                "! Error al guardar archivo " + archivo.string() + "/1EKU9003173C9092026.txt",
                                "llamadas:", kReportadosDemo, kInformesDemo}));
    EXPECT_EQ(ui.Selecciones()[0].titulo, "Carpeta destino");
}

TEST_F(Navegador, CopyingPutsTheTextOnTheClipboardAndAnEmptyReportEmptiesIt) {
    Ver([](dlgExportarInforme& d) {
        Seleccionar(d, 1);
        d.btnCopiar.Pulsar();
        Seleccionar(d, 0);
        d.btnCopiar.Pulsar();
    });
    EXPECT_EQ(ui.Portapapeles(), (Textos{"", kOctubre, "", ""}));
    EXPECT_EQ(Estado(), (Textos{"i Sin contenido.", "llamadas:", kReportadosDemo, kInformesDemo}));
}

TEST_F(Navegador, RegeneratingHandsOverToTheLockedGenerationAndComesBackReloaded) {
    ui.AlMostrar("dlgExportarInforme", [](forms::Dialogo& d) {
        auto& navegador = dynamic_cast<dlgExportarInforme&>(d);
        Seleccionar(navegador, 1);
        navegador.btnRegenerar.Pulsar();
        // Back from the second showing, which closed the browser.
        EXPECT_FALSE(navegador.Visible());
    });
    ui.AlMostrar("dlgInforme", [](forms::Dialogo& d) {
        EXPECT_EQ(d.Ver<forms::ComboBox>("cmbmes").Text(), "Octubre");
        EXPECT_EQ(d.Ver<forms::ComboBox>("cmbAnio").Text(), "2026");
        EXPECT_FALSE(d.Ver<forms::ComboBox>("cmbmes").Enabled());
        EXPECT_FALSE(d.Ver<forms::ComboBox>("cmbAnio").Enabled());
        d.Ver<forms::CommandButton>("btnOK").Pulsar();
    });
    ui.Responder(Respuesta::Si);
    ui.Elegir(carpeta.ruta().string());
    AlVer([](dlgExportarInforme& d) {
        ASSERT_EQ(d.lvw.Count(), 2);
        EXPECT_EQ(Item(d, 1), (Textos{"1EKU9003173C9102026", "Octubre", "22/11/2026", "10", "", "3"}));
    });

    bool regenerar = true;
    bool eliminar = true;
    acc.VerInformesMensuales(regenerar, eliminar);

    EXPECT_EQ(ui.Registro(),
              (Textos{"dialogo: dlgExportarInforme", "dialogo: dlgInforme", "caja: " + testing::kSobreescribirOctubre,
                      "ventana: frmPB",
                      "caja: El archivo ha sido generado correctamente correspondiente al mes de Octubre y al año 2026",
                      "dialogo: dlgExportarInforme"}));
    EXPECT_EQ(Contenido(10), kOctubre);
}

TEST_F(Navegador, ByNameWithoutArgumentsBothActionsAreAllowed) {
    AlVer([](dlgExportarInforme& d) {
        EXPECT_EQ(d.btnRegenerar.Tag(), "1");
        EXPECT_EQ(d.btnEliminar.Tag(), "1");
    });
    std::vector<Variant> ninguno;
    EXPECT_TRUE(dispatch::Invocar(acc, "VerInformesMensuales", ninguno).IsEmpty());
    EXPECT_FALSE(mdlMain::frmProgress());
}

}  // namespace
}  // namespace celdora

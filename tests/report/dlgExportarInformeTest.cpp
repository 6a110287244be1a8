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
using host::Icono;
using host::Puntero;
using host::Respuesta;
using testing::Textos;

class Navegador : public testing::InformeFixture {
protected:
    // Shows the browser; the script acts on it and closes it.
    void Ver(std::function<void(dlgExportarInforme&)> guion, bool regenerar = true, bool eliminar = true) {
        ui.AlMostrar("dlgExportarInforme", [guion](forms::Dialogo& d) {
            auto& dialogo = dynamic_cast<dlgExportarInforme&>(d);
            guion(dialogo);
            if (dialogo.Visible()) dialogo.btnCerrar.Pulsar();
        });
        acc.VerInformesMensuales(regenerar, eliminar);
    }
    static Textos Item(const dlgExportarInforme& d, int indice) {
        const auto& item = d.lvw.Item(indice);
        Textos textos{item.text};
        for (int columna = 1; columna <= 4; ++columna) textos.push_back(d.lvw.SubItem(indice, columna));
        textos.push_back(item.tag);
        return textos;
    }
    static void Seleccionar(dlgExportarInforme& d, int indice) { ASSERT_TRUE(d.lvw.ClickItem(indice)); }
};

TEST_F(Navegador, OpensOnThePresentYearWithTheFirstReportShown) {
    Ver([](dlgExportarInforme& d) {
        EXPECT_EQ(d.Caption(), "Informes mensuales generados");
        EXPECT_EQ(d.tab.Paginas(), (Textos{"General"}));
        EXPECT_EQ(d.lblinforme.Caption(), "Informes de comprobantes fiscales digitales emitidos.");
        EXPECT_EQ(d.cmbAnio.Caption(), "Mostrar informes del año:");
        ASSERT_EQ(d.cmbAnio.ListCount(), 66);
        EXPECT_EQ(d.cmbAnio.List(0), "1985");
        EXPECT_EQ(d.cmbAnio.Text(), "2026");
        Textos columnas;
        for (const auto& c : d.lvw.Columnas()) columnas.push_back(c.text);
        EXPECT_EQ(columnas, (Textos{"Nombre", "Mes", "Fecha de registro.", "contenido", "MesNumero"}));
        ASSERT_EQ(d.lvw.Count(), 2);
        EXPECT_EQ(Item(d, 0), (Textos{"1EKU9003173C9092026", "Septiembre", "01/10/2026", "9", "", "1"}));
        EXPECT_EQ(Item(d, 1), (Textos{"1EKU9003173C9102026", "Octubre", "02/11/2026", "10", "", "2"}));
        EXPECT_EQ(d.lvw.SelectedItem(), 0);
        EXPECT_EQ(d.lblcontenido.Caption(), "Contenido del informe 1EKU9003173C9092026");
        EXPECT_EQ(d.dxGrid.RowCount(), 0);
        EXPECT_EQ(d.dxGrid.Columnas().size(), 13u);
        EXPECT_EQ(d.dxGrid.Columnas()[7].nombre, "IVATrasladado");
        for (auto* campo : {&d.eNumTotal, &d.eNumIVA}) {
            EXPECT_FALSE(campo->ButtonVisible());
            EXPECT_TRUE(campo->Locked());
            EXPECT_EQ(campo->Format(), "$ #,#.##");
            EXPECT_EQ(campo->Value(), 0);
        }
        EXPECT_EQ(d.eNumTotal.Caption(), "Monto total:");
        EXPECT_EQ(d.eNumIVA.Caption(), "Total de IVA trasladado:");
        EXPECT_EQ(d.btnRegenerar.Tag(), "1");
        EXPECT_EQ(d.btnEliminar.Tag(), "1");
        EXPECT_EQ(d.btnExportar.Caption(), "Exportar a txt...");
        EXPECT_EQ(d.btnCopiar.Caption(), "Copiar al portapapeles");
        EXPECT_EQ(d.btnCerrar.Caption(), "&Cerrar");
    });
    EXPECT_EQ(Sentencias().front(),
              "SELECT Sys_PK,uf_Nombre,uf_Mes,uf_Fecha FROM ut_CFDInforme WHERE uf_Anio=2026 ORDER BY uf_Mes");
}

TEST_F(Navegador, ClickingAReportShowsItsLinesAndTotalsWithTheHourglassMeanwhile) {
    db.Ejecutar("UPDATE ut_CFDBitacora SET uf_Datos=uf_Datos WHERE 0");
    Ver([&](dlgExportarInforme& d) {
        Seleccionar(d, 1);
        EXPECT_EQ(d.lblcontenido.Caption(), "Contenido del informe 1EKU9003173C9102026");
        ASSERT_EQ(d.dxGrid.RowCount(), 2);
        EXPECT_EQ(d.dxGrid.Valor(1, "id"), Variant::Long(2));
        EXPECT_EQ(CStr(d.dxGrid.Valor(1, "Aduana")), "240 Nuevo Laredo");
        EXPECT_EQ(d.eNumTotal.Value(), 3581.0);
        EXPECT_EQ(d.eNumIVA.Value(), 376.0);
    });
    EXPECT_EQ(ui.Punteros(), (std::vector<Puntero>{Puntero::Reloj, Puntero::Normal, Puntero::Reloj, Puntero::Normal}));
    EXPECT_EQ(Sentencias().back(), "SELECT uf_Contenido FROM ut_CFDInforme WHERE Sys_PK=2");
}

TEST_F(Navegador, ACancelledComprobanteCountsTwiceInTheTotals) {
    Aceptar();
    ui.Elegir(carpeta.ruta().string());
    ASSERT_TRUE(Generar(11, 2026));
    Ver([](dlgExportarInforme& d) {
        ASSERT_EQ(d.lvw.Count(), 3);
        Seleccionar(d, 2);
        EXPECT_EQ(d.dxGrid.RowCount(), 4);
        EXPECT_EQ(d.eNumTotal.Value(), 3480.0 + 986.0 + 986.0 + 580.0);
        EXPECT_EQ(d.eNumIVA.Value(), 480.0 + 136.0 + 136.0 + 80.0);
    });
}

TEST_F(Navegador, AYearWithoutReportsEmptiesListAndGridButKeepsTheTotals) {
    Ver([](dlgExportarInforme& d) {
        Seleccionar(d, 1);
        d.cmbAnio.Text("2025");
        EXPECT_EQ(d.lvw.Count(), 0);
        EXPECT_EQ(d.dxGrid.RowCount(), 0);
        EXPECT_EQ(d.eNumTotal.Value(), 3581.0);
    });
}

TEST_F(Navegador, ABadLineIsShownAndLeavesTheTotalsAtZero) {
    db.Ejecutar("UPDATE ut_CFDInforme SET uf_Contenido=uf_Contenido || char(13,10) || '|corta|' WHERE Sys_PK=2");
    Ver([](dlgExportarInforme& d) {
        Seleccionar(d, 1);
        EXPECT_EQ(d.dxGrid.RowCount(), 2);
        EXPECT_EQ(d.eNumTotal.Value(), 0);
        EXPECT_EQ(d.eNumIVA.Value(), 0);
    });
    ui.ExpectCaja(0, "Contenido incorrecto: |corta|", Icono::Exclamacion);
    EXPECT_EQ(ui.MousePointerActual(), Puntero::Normal);
}

TEST_F(Navegador, DeniedButtonsStayEnabledAndRefuseWhenPressed) {
    Ver(
        [](dlgExportarInforme& d) {
            EXPECT_EQ(d.btnRegenerar.Tag(), "0");
            EXPECT_TRUE(d.btnRegenerar.Pulsar());
            EXPECT_TRUE(d.btnEliminar.Pulsar());
        },
        false, false);
    ui.ExpectCaja(0, "Acceso denegado.", Icono::Critico, "Tiendaro");
    ui.ExpectCaja(1, "Acceso denegado.", Icono::Critico, "Tiendaro");
    EXPECT_EQ(Informes(), "1 9/2026 1EKU9003173C9092026; 2 10/2026 1EKU9003173C9102026");
}

TEST_F(Navegador, EachButtonHasItsOwnWordsForAMissingSelection) {
    Ver([](dlgExportarInforme& d) {
        d.cmbAnio.Text("2025");
        d.btnRegenerar.Pulsar();
        d.btnEliminar.Pulsar();
        d.btnExportar.Pulsar();
        d.btnCopiar.Pulsar();
    });
    ui.ExpectCaja(0, "Seleccione informe.", Icono::Informacion);
    ui.ExpectCaja(1, "Selecione un elemento.", Icono::Informacion);
    ui.ExpectCaja(2, "Selecione un elemento.", Icono::Informacion);
    ui.ExpectCaja(3, "Seleccione un informe.", Icono::Informacion);
}

TEST_F(Navegador, DeletingAsksThenReloadsTheList) {
    ui.Responder(Respuesta::Si);
    Ver([](dlgExportarInforme& d) {
        Seleccionar(d, 1);
        d.btnEliminar.Pulsar();
        ASSERT_EQ(d.lvw.Count(), 1);
        EXPECT_EQ(d.lvw.Item(0).text, "1EKU9003173C9092026");
    });
    ui.ExpectPregunta(0, "¿Está seguro que desea eliminar el informe mensual seleccionado.?");
    ui.ExpectCaja(1, "Informe eliminado correctamente.", Icono::Informacion);
    EXPECT_EQ(Reportados(), "00000000");
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Confirmar"}));
}

TEST_F(Navegador, DeletingAnsweredNoSaysNothingAndAFailureSaysWhy) {
    ui.Responder(Respuesta::No);
    Ver([](dlgExportarInforme& d) {
        Seleccionar(d, 1);
        d.btnEliminar.Pulsar();
        EXPECT_EQ(d.lvw.Count(), 2);
    });
    EXPECT_EQ(ui.Cajas().size(), 1u);

    db.Ejecutar("ALTER TABLE ut_CFDBitacora RENAME TO ut_CFDBitacora_filas");
    db.Ejecutar("CREATE VIEW ut_CFDBitacora AS SELECT * FROM ut_CFDBitacora_filas");
    ui.Responder(Respuesta::Si);
    Ver([](dlgExportarInforme& d) {
        Seleccionar(d, 1);
        d.btnEliminar.Pulsar();
    });
    ui.ExpectCaja(2, "Error al eliminar. Error 1 (cannot modify ut_CFDBitacora because it is a view)",
               Icono::Exclamacion);
    EXPECT_EQ(Informes(), "1 9/2026 1EKU9003173C9092026; 2 10/2026 1EKU9003173C9102026");
}

TEST_F(Navegador, ExportingWritesTheStoredTextUnderTheReportsName) {
    const fs::path destino = carpeta.ruta() / "1EKU9003173C9102026.txt";
    std::ofstream(destino) << "anterior";
    ui.Elegir(carpeta.ruta().string());
    ui.Elegir(carpeta.ruta().string());
    ui.Elegir(std::nullopt);
    Ver([](dlgExportarInforme& d) {
        Seleccionar(d, 1);
        d.btnExportar.Pulsar();
        Seleccionar(d, 0);
        d.btnExportar.Pulsar();
        d.btnExportar.Pulsar();  // cancelled: nothing
    });
    EXPECT_EQ(testing::LeerArchivo(destino), testing::kOctubre);
    EXPECT_EQ(testing::LeerArchivo(carpeta.ruta() / "1EKU9003173C9092026.txt"), "");
    ASSERT_EQ(ui.Cajas().size(), 2u);
    ui.ExpectCaja(0, "Archivo guardado correctamente.", Icono::Informacion);
    ui.ExpectCaja(1, "Archivo guardado correctamente.", Icono::Informacion);
    EXPECT_EQ(ui.Selecciones()[0].titulo, "Carpeta destino");
}

TEST_F(Navegador, AnExportThatCannotBeWrittenSaysWhere) {
    const fs::path archivo = carpeta.ruta() / "no-es-carpeta";
    std::ofstream(archivo) << "x";
    ui.Elegir(archivo.string());
    Ver([](dlgExportarInforme& d) { d.btnExportar.Pulsar(); });
    ui.ExpectCaja(0, "Error al guardar archivo " + archivo.string() + "/1EKU9003173C9092026.txt", Icono::Exclamacion);
}

TEST_F(Navegador, CopyingPutsTheTextOnTheClipboardAndAnEmptyReportEmptiesIt) {
    Ver([](dlgExportarInforme& d) {
        Seleccionar(d, 1);
        d.btnCopiar.Pulsar();
        Seleccionar(d, 0);
        d.btnCopiar.Pulsar();
    });
    EXPECT_EQ(ui.Portapapeles(), (Textos{"", testing::kOctubre, "", ""}));
    ASSERT_EQ(ui.Cajas().size(), 1u);
    ui.ExpectCaja(0, "Sin contenido.", Icono::Informacion);
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
    ui.AlMostrar("dlgExportarInforme", [](forms::Dialogo& d) {
        auto& navegador = dynamic_cast<dlgExportarInforme&>(d);
        ASSERT_EQ(navegador.lvw.Count(), 2);
        EXPECT_EQ(Item(navegador, 1), (Textos{"1EKU9003173C9102026", "Octubre", "22/11/2026", "10", "", "3"}));
        navegador.btnCerrar.Pulsar();
    });

    bool regenerar = true;
    bool eliminar = true;
    acc.VerInformesMensuales(regenerar, eliminar);

    EXPECT_EQ(ui.Registro(),
              (Textos{"dialogo: dlgExportarInforme", "dialogo: dlgInforme",
                      "caja: Ya existe un informe del mes y año indicado generado el 2026-11-02. ¿Desea volver a "
                      "generarlo y sobreescribir el actual?",
                      "ventana: frmPB",
                      "caja: El archivo ha sido generado correctamente correspondiente al mes de Octubre y al año 2026",
                      "dialogo: dlgExportarInforme"}));
    EXPECT_EQ(Contenido(10, 2026), testing::kOctubre);
}

TEST_F(Navegador, ByNameWithoutArgumentsBothActionsAreAllowed) {
    ui.AlMostrar("dlgExportarInforme", [](forms::Dialogo& d) {
        auto& navegador = dynamic_cast<dlgExportarInforme&>(d);
        EXPECT_EQ(navegador.btnRegenerar.Tag(), "1");
        EXPECT_EQ(navegador.btnEliminar.Tag(), "1");
        navegador.btnCerrar.Pulsar();
    });
    std::vector<Variant> ninguno;
    EXPECT_TRUE(dispatch::Invocar(acc, "VerInformesMensuales", ninguno).IsEmpty());
    EXPECT_FALSE(mdlMain::frmProgress());
}

}  // namespace
}  // namespace celdora

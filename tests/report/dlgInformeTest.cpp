// The monthly report's generation on the demo company (schema/README.md):
// October 2026 holds a stored report of log rows 1 and 2; November's rows 5,
// 6 (cancelled sale) and 8 are unreported, row 7 is a CFDI without folio
// range; the issuer's identifier is EKU9003173C9.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "report/dlgInforme.h"
#include "tests/report/ReporteFixture.h"

namespace celdora {
namespace {

namespace fs = std::filesystem;
using forms::ComboBox;
using forms::CommandButton;
using host::Respuesta;
using testing::kInformesDemo;
using testing::kOctubre;
using testing::kReportadosDemo;
using testing::Textos;

const std::string kLinea5 = "|LOPJ7009128T5|A|3|201012345|03/11/2026 11:20:00|3480.00|480.00|1|I||||";
const std::string kLinea6 = "|CIN960904FQ2|A|4|201012345|09/11/2026 17:45:00|986.00|136.00|0|I||||";
const std::string kLinea8 = "|CIN960904FQ2|B|1|201123456|18/11/2026 10:30:00|580.00|80.00|1|E||||";
const std::string kNoviembre = kLinea5 + "\r\n" +
                               "|CIN960904FQ2|A|4|201012345|09/11/2026 17:45:00|986.00|136.00|1|I||||\r\n" +
                               kLinea6 + "\r\n" + kLinea8;
const std::string kSobreescribir = "?sn " + testing::kSobreescribirOctubre;
const std::string kBuscarInforme = "SELECT Sys_PK,uf_fecha,uf_Contenido FROM ut_CFDInforme WHERE uf_Mes=";

class Generacion : public testing::InformeFixture {
protected:
    fs::path Archivo(const std::string& nombre) const { return carpeta.ruta() / (nombre + ".txt"); }
    void Rfc(const std::string& rfc) { ASSERT_TRUE(acc.GlobalVar->GuardarTexto("NVCA101", rfc)); }
    // A generation that fails once the transaction began: the dialog comes
    // back and the user gives up. The boxes are October's overwrite question,
    // then these; the database is left as it was.
    void Fracasa(std::int16_t mes, const std::string& ruta, const Textos& cajas) {
        Aceptar(ruta);
        if (mes == 10) ui.Responder(Respuesta::Si);
        Cancelar();
        EXPECT_FALSE(Generar(mes));
        Textos estado = mes == 10 ? Textos{kSobreescribir} : Textos{};
        estado.insert(estado.end(), cajas.begin(), cajas.end());
        estado.insert(estado.end(), {"llamadas: Iniciar Revertir", kReportadosDemo, kInformesDemo});
        EXPECT_EQ(Estado(), estado);
        EXPECT_EQ(Contenido(10), kOctubre);
        EXPECT_FALSE(mdlMain::frmProgress());
    }
};

TEST_F(Generacion, AMonthIsNormalisedStoredMarkedAndWrittenInOneTransaction) {
    const std::string generado =
        "El archivo ha sido generado correctamente correspondiente al mes de Noviembre y al año 2026";
    Aceptar();
    bool abierta = false;
    ui.alMostrarCaja = [&] { abierta = db.cnn->motor().EnTransaccion(); };

    EXPECT_TRUE(Generar(11));

    EXPECT_EQ(Sentencias(),
              (Textos{kBuscarInforme + "11 AND uf_Anio=2026",
                      "SELECT ut_CFDBitacora.Sys_PK,ut_CFDBitacora.uf_Datos,ut_CFDFolio.uf_noAprobacion,ut_CFDFolio."
                      "uf_anoAprobacion FROM ut_CFDBitacora INNER JOIN (ut_CFD INNER JOIN ut_CFDFOlio ON "
                      "ut_CFD.uf_CFDFolio=ut_CFDFOlio.Sys_PK) ON ut_CFDBitacora.uf_CFD=ut_CFD.Sys_PK WHERE ( NOT "
                      "(ut_CFDBitacora.uf_Reportado<>0)) AND Year(ut_CFD.uf_FechaHora)=2026 AND "
                      "Month(ut_CFD.uf_FechaHora)=11",
                      "UPDATE ut_CFDBitacora SET uf_Reportado=1,uf_Datos='" + kLinea5 + "' WHERE Sys_PK=5",
                      "UPDATE ut_CFDBitacora SET uf_Reportado=1,uf_Datos='" + kLinea6 + "' WHERE Sys_PK=6",
                      "UPDATE ut_CFDBitacora SET uf_Reportado=1,uf_Datos='" + kLinea8 + "' WHERE Sys_PK=8",
                      "INSERT INTO ut_CFDInforme (uf_Nombre,uf_Contenido,uf_Mes,uf_Anio,uf_Fecha) VALUES "
                      "(?,?,?,?,?)"}));
    EXPECT_EQ(testing::LeerArchivo(Archivo("1EKU9003173C9112026")), kNoviembre);
    EXPECT_EQ(Contenido(11), kNoviembre);
    EXPECT_EQ(Texto("SELECT '' || uf_Fecha FROM ut_CFDInforme WHERE uf_Mes=11"), "2026-11-22 10:30:00");
    // Row 7 has no folio range and stays out; the cancelled row keeps its "0".
    EXPECT_EQ((Textos{Linea(5), Linea(6), Linea(8)}), (Textos{kLinea5, kLinea6, kLinea8}));
    EXPECT_EQ(Estado(), (Textos{"i " + generado, "llamadas: Iniciar Confirmar", "11001101",
                                kInformesDemo + "; 3 11/2026 1EKU9003173C9112026"}));
    ASSERT_EQ(ui.Selecciones().size(), 1u);
    EXPECT_EQ(ui.Selecciones()[0].tipo + ": " + ui.Selecciones()[0].titulo, "carpeta: Carpeta destino");
    EXPECT_EQ(ui.progreso, (Textos{"título: Generando informe mensual.", "Obteniendo información...",
                                   "Leyendo bitácora de registro de CFDs 000005",
                                   "Leyendo bitácora de registro de CFDs 000006",
                                   "Leyendo bitácora de registro de CFDs 000008", "Guardando registro..."}));
    // The window is closed before the closing message is shown, which is
    // shown while the transaction is still open.
    EXPECT_EQ(ui.Registro(), (Textos{"dialogo: dlgInforme", "ventana: frmPB", "caja: " + generado}));
    EXPECT_FALSE(mdlMain::frmProgress());
    EXPECT_TRUE(abierta);
    EXPECT_FALSE(db.cnn->motor().EnTransaccion());
}

TEST_F(Generacion, AMonthWithoutComprobantesOrWithoutStoredReportGivesAnEmptyReport) {
    Aceptar();
    EXPECT_TRUE(Generar(12));
    ASSERT_TRUE(fs::exists(Archivo("1EKU9003173C9122026")));
    EXPECT_EQ(fs::file_size(Archivo("1EKU9003173C9122026")), 0u);
    EXPECT_EQ(Contenido(12), "");
    EXPECT_EQ(ui.progreso, (Textos{"título: Generando informe mensual.", "Guardando registro..."}));
    EXPECT_EQ(Estado(), (Textos{"i Archivo generado correctamente. No se encontró ningún comprobante emitido en el "
                                "mes de Diciembre y el año 2026",
                                "llamadas: Iniciar Confirmar", kReportadosDemo,
                                kInformesDemo + "; 3 12/2026 1EKU9003173C9122026"}));

    // October is reported, but its stored report is gone.
    db.Ejecutar("DELETE FROM ut_CFDInforme WHERE Sys_PK=2");
    Aceptar();
    EXPECT_TRUE(Generar(10));
    EXPECT_EQ(Contenido(10), "");
    EXPECT_EQ(testing::LeerArchivo(Archivo("1EKU9003173C9102026")), "");
    EXPECT_EQ(Reportados(), kReportadosDemo);
}

TEST_F(Generacion, RegeneratingReplacesTheStoredReportInsideTheSameTransaction) {
    Aceptar();
    ui.Responder(Respuesta::Si);

    EXPECT_TRUE(Generar(10));

    // The former row is gone and a new one holds the same lines again: rows
    // 3 and 4 of October, unreported by the deletion, have no folio range.
    EXPECT_EQ(Estado(), (Textos{kSobreescribir, "i El archivo ha sido generado correctamente correspondiente al mes "
                                                "de Octubre y al año 2026",
                                "llamadas: Iniciar Confirmar", kReportadosDemo,
                                "1 9/2026 1EKU9003173C9092026; 3 10/2026 1EKU9003173C9102026"}));
    EXPECT_EQ(Contenido(10), kOctubre);
    EXPECT_EQ(testing::LeerArchivo(Archivo("1EKU9003173C9102026")), kOctubre);
    ASSERT_GE(Sentencias().size(), 3u);
    EXPECT_EQ(Sentencias()[1], "DELETE FROM ut_CFDInforme WHERE uf_Anio=2026 AND uf_Mes=10");
    EXPECT_EQ(ui.progreso[1], "Eliminando registro anterior...");

    // An empty stored report is named so in the question.
    Aceptar();
    ui.Responder(Respuesta::Si);
    EXPECT_TRUE(Generar(9));
    EXPECT_EQ(Estado()[2], "?sn Ya existe un informe del mes y año indicado generado el 2026-10-01. El informe está "
                           "vacío, ha sido guardado sin ningún contenido. ¿Desea volver a generarlo y sobreescribir "
                           "el actual?");
}

TEST_F(Generacion, NoToTheQuestionOrNoFolderChangesNothingAndLeavesTheDialogUp) {
    ui.AlMostrar("dlgInforme", [](forms::Dialogo& d) {
        d.Ver<CommandButton>("btnOK").Pulsar();
        // Locked month and year: nothing left to do but cancel.
        EXPECT_TRUE(d.Visible());
        EXPECT_FALSE(d.Ver<ComboBox>("cmbmes").Accesible());
        d.Ver<CommandButton>("btnCancelar").Pulsar();
    });
    ui.Responder(Respuesta::No);
    EXPECT_FALSE(Generar(10));
    EXPECT_TRUE(ui.Selecciones().empty());
    EXPECT_EQ(ui.Registro(), (Textos{"dialogo: dlgInforme", "caja: " + testing::kSobreescribirOctubre}));

    // After a yes the folder is cancelled: silence, and nothing deleted.
    AceptarYCancelar();
    ui.Responder(Respuesta::Si);
    ui.Elegir(std::nullopt);
    EXPECT_FALSE(Generar(10));
    EXPECT_EQ(Sentencias(), (Textos{kBuscarInforme + "10 AND uf_Anio=2026", kBuscarInforme + "10 AND uf_Anio=2026"}));
    EXPECT_EQ(Estado(), (Textos{kSobreescribir, kSobreescribir, "llamadas:", kReportadosDemo, kInformesDemo}));
    EXPECT_EQ(Contenido(10), kOctubre);
}

TEST_F(Generacion, TheIssuersIdentifierMustHaveTwelveOrThirteenCharactersBeforeAnyTransaction) {
    const std::string longitud =
        "! Longitud incorrecta del campo RFC del emisor. Revise la configuración de la aplicación.";
    for (const std::string rfc : {"EKU9003173C", "EKU9003173C9AB", ""}) {
        Rfc(rfc);
        db.sentencias->clear();
        AceptarYCancelar();
        ui.Elegir(carpeta.ruta().string());
        EXPECT_FALSE(Generar(11)) << rfc;
        EXPECT_EQ(Sentencias(), (Textos{kBuscarInforme + "11 AND uf_Anio=2026"}));
    }
    EXPECT_EQ(Estado(), (Textos{longitud, longitud, "! Falta valor del campo RFC del emisor.", "llamadas:",
                                kReportadosDemo, kInformesDemo}));
    EXPECT_TRUE(fs::is_empty(carpeta.ruta()));

    // Thirteen characters with blanks around name the file.
    Rfc("  GAMA810512QW3 ");
    Aceptar();
    EXPECT_TRUE(Generar(11));
    EXPECT_TRUE(fs::exists(Archivo("1GAMA810512QW3112026")));
    EXPECT_EQ(Texto("SELECT uf_Nombre FROM ut_CFDInforme WHERE uf_Mes=11"), "1GAMA810512QW3112026");
}

TEST_F(Generacion, AFileThatCannotBeWrittenRollsBackAndLeavesTheFormerReport) {
    // A folder that is really a file: no one, root included, can write in it.
    const fs::path archivo = carpeta.ruta() / "no-es-carpeta";
    std::ofstream(archivo) << "x";
    const std::string datosAntes = Datos();
    const std::string error = "Error al guardar archivo " + archivo.string() + "/1EKU9003173C9102026.txt";
    Fracasa(10, archivo.string(), {"! " + error});
    EXPECT_EQ(Datos(), datosAntes);
    EXPECT_EQ(ui.Registro(), (Textos{"dialogo: dlgInforme", "caja: " + testing::kSobreescribirOctubre,
                                     "ventana: frmPB", "caja: " + error, "dialogo: dlgInforme"}));
}

TEST_F(Generacion, AReportTheDatabaseRefusesIsToldTwiceAndItsFileStaysBehind) {
    SoloLectura("ut_CFDInforme");
    Fracasa(11, carpeta.ruta().string(),
            {"! Error al guardar Informe. cannot modify ut_CFDInforme because it is a view",
             "! Error al guardar archivo " + Archivo("1EKU9003173C9112026").string()});
    // The file is written after the row all the same; only the database rolls back.
    EXPECT_TRUE(fs::exists(Archivo("1EKU9003173C9112026")));
    EXPECT_EQ(Linea(6), kLinea6);
}

TEST_F(Generacion, AnApostropheInAFieldFailsTheUpdateAndRollsBack) {
    db.Ejecutar("UPDATE ut_CFDBitacora SET uf_Datos='|O''BRIEN|A|3||03/11/2026|3480|480|1|I||||' WHERE Sys_PK=8");
    // number + "(" + description + ") Save()", with no blank before the parenthesis.
    Fracasa(11, carpeta.ruta().string(), {"! 1(near \"BRIEN\": syntax error) Save()"});
    EXPECT_FALSE(fs::exists(Archivo("1EKU9003173C9112026")));
}

TEST_F(Generacion, AQueryThatCannotBeOpenedRollsBack) {
    db.Ejecutar("ALTER TABLE ut_CFDFolio RENAME TO ut_CFDFolio_filas");
    Fracasa(11, carpeta.ruta().string(), {"! Error al obtener información."});
}

TEST_F(Generacion, AFailedDeletionOfTheFormerReportRollsBackWithItsText) {
    // The deletion's own query reads ut_CFD, which is gone.
    db.Ejecutar("ALTER TABLE ut_CFD RENAME TO ut_CFD_filas");
    Fracasa(10, carpeta.ruta().string(), {"! Error Imposible continuar. Error de acceso a base de datos."});
}

TEST_F(Generacion, CancellingGeneratesNothing) {
    Cancelar();
    EXPECT_FALSE(Generar(11));
    EXPECT_TRUE(Sentencias().empty());
    EXPECT_TRUE(ui.Cajas().empty());
}

// --- Filling the dialog ----------------------------------------------------------

TEST_F(Generacion, TheDialogOffersTheMonthsAndYearsWithTheChosenOnesSelected) {
    ui.AlMostrar("dlgInforme", [](forms::Dialogo& d) {
        const auto& mes = d.Ver<ComboBox>("cmbmes");
        const auto& anio = d.Ver<ComboBox>("cmbAnio");
        Textos nombres;
        for (const auto& control : d.Controles()) nombres.push_back(control->Nombre());
        EXPECT_EQ(nombres, (Textos{"tab", "cmbmes", "cmbAnio", "btnOK", "btnCancelar"}));
        EXPECT_EQ(d.Ver<forms::TabControl>("tab").Paginas(), (Textos{"Comprobantes fiscales emitidos"}));
        EXPECT_EQ(mes.Style(), ComboBox::Estilo::SoloLista);
        ASSERT_EQ((std::vector<int>{mes.ListCount(), anio.ListCount()}), (std::vector<int>{12, 66}));
        EXPECT_EQ((Textos{d.Caption(), mes.Caption(), mes.List(0), mes.List(8), mes.Text(), anio.List(0),
                          anio.List(65), anio.Text(), d.Ver<CommandButton>("btnOK").Caption(),
                          d.Ver<CommandButton>("btnCancelar").Caption()}),
                  (Textos{"Informe mensual al SAT", "Seleccione el mes a reportar.", "Enero", "Septiembre", "Marzo",
                          "1985", "2050", "2010", "&Aceptar", "&Cancelar"}));
        EXPECT_TRUE(mes.Enabled());
        EXPECT_TRUE(anio.Enabled());
        d.Ver<CommandButton>("btnCancelar").Pulsar();
    });
    Generar(3, 2010, false);
}

TEST_F(Generacion, WithoutMonthAndYearTodaysAreChosenAndAYearOutsideTheListFailsTheConversion) {
    ui.AlMostrar("dlgInforme", [](forms::Dialogo& d) {
        EXPECT_EQ(d.Ver<ComboBox>("cmbmes").Text(), "Noviembre");
        EXPECT_EQ(d.Ver<ComboBox>("cmbAnio").Text(), "2026");
        EXPECT_FALSE(d.Ver<ComboBox>("cmbmes").Enabled());
        d.Ver<CommandButton>("btnCancelar").Pulsar();
    });
    Generar(-1, -1, true);

    // No year selected: accepting shows the conversion fault and the dialog stays.
    ui.AlMostrar("dlgInforme", [](forms::Dialogo& d) {
        EXPECT_EQ(d.Ver<ComboBox>("cmbAnio").ListIndex(), -1);
        EXPECT_EQ(d.Ver<ComboBox>("cmbmes").Text(), "Enero");
        d.Ver<CommandButton>("btnOK").Pulsar();
        EXPECT_TRUE(d.Visible());
        d.Ver<CommandButton>("btnCancelar").Pulsar();
    });
    EXPECT_FALSE(Generar(1, 1984, false));
    EXPECT_EQ(Estado(), (Textos{"! 13(Type mismatch) Save()", "llamadas:", kReportadosDemo, kInformesDemo}));
}

}  // namespace
}  // namespace celdora

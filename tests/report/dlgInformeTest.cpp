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
using host::Icono;
using host::Respuesta;
using testing::Textos;

const std::string kConsultaNoviembre =
    "SELECT ut_CFDBitacora.Sys_PK,ut_CFDBitacora.uf_Datos,ut_CFDFolio.uf_noAprobacion,ut_CFDFolio.uf_anoAprobacion "
    "FROM ut_CFDBitacora INNER JOIN (ut_CFD INNER JOIN ut_CFDFOlio ON ut_CFD.uf_CFDFolio=ut_CFDFOlio.Sys_PK) ON "
    "ut_CFDBitacora.uf_CFD=ut_CFD.Sys_PK WHERE ( NOT (ut_CFDBitacora.uf_Reportado<>0)) AND "
    "Year(ut_CFD.uf_FechaHora)=2026 AND Month(ut_CFD.uf_FechaHora)=11";
const std::string kLinea5 = "|LOPJ7009128T5|A|3|201012345|03/11/2026 11:20:00|3480.00|480.00|1|I||||";
const std::string kLinea6Vigente = "|CIN960904FQ2|A|4|201012345|09/11/2026 17:45:00|986.00|136.00|1|I||||";
const std::string kLinea6 = "|CIN960904FQ2|A|4|201012345|09/11/2026 17:45:00|986.00|136.00|0|I||||";
const std::string kLinea8 = "|CIN960904FQ2|B|1|201123456|18/11/2026 10:30:00|580.00|80.00|1|E||||";
const std::string kNoviembre = kLinea5 + "\r\n" + kLinea6Vigente + "\r\n" + kLinea6 + "\r\n" + kLinea8;
const std::string kSobreescribirOctubre =
    "Ya existe un informe del mes y año indicado generado el 2026-11-02. ¿Desea volver a generarlo y sobreescribir "
    "el actual?";
const std::string kLongitudRfc =
    "Longitud incorrecta del campo RFC del emisor. Revise la configuración de la aplicación.";
const std::string kReportadosDemo = "11000000";

class Generacion : public testing::InformeFixture {
protected:
    fs::path Archivo(const std::string& nombre) const { return carpeta.ruta() / (nombre + ".txt"); }
    void Rfc(const std::string& rfc) { ASSERT_TRUE(acc.GlobalVar->GuardarTexto("NVCA101", rfc)); }
};

TEST_F(Generacion, AMonthIsNormalisedStoredMarkedAndWrittenInOneTransaction) {
    Aceptar();
    ui.Elegir(carpeta.ruta().string());

    EXPECT_TRUE(Generar(11, 2026));
    const Textos sentencias = Sentencias();

    EXPECT_EQ(sentencias,
              (Textos{"SELECT Sys_PK,uf_fecha,uf_Contenido FROM ut_CFDInforme WHERE uf_Mes=11 AND uf_Anio=2026",
                      kConsultaNoviembre,
                      "UPDATE ut_CFDBitacora SET uf_Reportado=1,uf_Datos='" + kLinea5 + "' WHERE Sys_PK=5",
                      "UPDATE ut_CFDBitacora SET uf_Reportado=1,uf_Datos='" + kLinea6 + "' WHERE Sys_PK=6",
                      "UPDATE ut_CFDBitacora SET uf_Reportado=1,uf_Datos='" + kLinea8 + "' WHERE Sys_PK=8",
                      "INSERT INTO ut_CFDInforme (uf_Nombre,uf_Contenido,uf_Mes,uf_Anio,uf_Fecha) VALUES "
                      "(?,?,?,?,?)"}));
    EXPECT_EQ(testing::LeerArchivo(Archivo("1EKU9003173C9112026")), kNoviembre);
    EXPECT_EQ(Contenido(11, 2026), kNoviembre);
    EXPECT_EQ(Texto("SELECT uf_Nombre || ' ' || uf_Fecha FROM ut_CFDInforme WHERE uf_Mes=11"),
              "1EKU9003173C9112026 2026-11-22 10:30:00");
    // Row 7 has no folio range and stays out; the cancelled row keeps its "0".
    EXPECT_EQ(Reportados(), "11001101");
    EXPECT_EQ(Linea(5), kLinea5);
    EXPECT_EQ(Linea(6), kLinea6);
    EXPECT_EQ(Linea(8), kLinea8);

    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Confirmar"}));

    ASSERT_EQ(ui.Selecciones().size(), 1u);
    EXPECT_EQ(ui.Selecciones()[0].tipo, "carpeta");
    EXPECT_EQ(ui.Selecciones()[0].titulo, "Carpeta destino");
    ASSERT_EQ(ui.Cajas().size(), 1u);
    ui.ExpectCaja(0, "El archivo ha sido generado correctamente correspondiente al mes de Noviembre y al año 2026",
               Icono::Informacion);
    EXPECT_EQ(ui.progreso, (Textos{"título: Generando informe mensual.", "Obteniendo información...",
                                   "Leyendo bitácora de registro de CFDs 000005",
                                   "Leyendo bitácora de registro de CFDs 000006",
                                   "Leyendo bitácora de registro de CFDs 000008", "Guardando registro..."}));
    // The window is closed before the closing message is shown.
    EXPECT_EQ(ui.Registro(), (Textos{"dialogo: dlgInforme", "ventana: frmPB",
                                     "caja: El archivo ha sido generado correctamente correspondiente al mes de "
                                     "Noviembre y al año 2026"}));
    EXPECT_FALSE(mdlMain::frmProgress());
}

TEST_F(Generacion, TheTransactionIsStillOpenWhileTheClosingMessageIsUp) {
    Aceptar();
    ui.Elegir(carpeta.ruta().string());
    bool abierta = false;
    ui.alMostrarCaja = [&] { abierta = db.cnn->motor().EnTransaccion(); };

    EXPECT_TRUE(Generar(11, 2026));

    EXPECT_TRUE(abierta);
    EXPECT_FALSE(db.cnn->motor().EnTransaccion());
}

TEST_F(Generacion, AMonthWithoutComprobantesGivesAnEmptyFileAndAnEmptyStoredReport) {
    Aceptar();
    ui.Elegir(carpeta.ruta().string());

    EXPECT_TRUE(Generar(12, 2026));

    ASSERT_TRUE(fs::exists(Archivo("1EKU9003173C9122026")));
    EXPECT_EQ(fs::file_size(Archivo("1EKU9003173C9122026")), 0u);
    EXPECT_EQ(Contenido(12, 2026), "");
    ui.ExpectCaja(0,
               "Archivo generado correctamente. No se encontró ningún comprobante emitido en el mes de Diciembre y "
               "el año 2026",
               Icono::Informacion);
    EXPECT_EQ(ui.progreso, (Textos{"título: Generando informe mensual.", "Guardando registro..."}));
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Confirmar"}));
}

TEST_F(Generacion, AMonthAlreadyReportedWithoutStoredReportGivesAnEmptyReport) {
    db.Ejecutar("DELETE FROM ut_CFDInforme WHERE Sys_PK=2");
    Aceptar();
    ui.Elegir(carpeta.ruta().string());

    EXPECT_TRUE(Generar(10, 2026));

    EXPECT_EQ(Contenido(10, 2026), "");
    EXPECT_EQ(testing::LeerArchivo(Archivo("1EKU9003173C9102026")), "");
    EXPECT_EQ(Reportados(), kReportadosDemo);
}

TEST_F(Generacion, RegeneratingReplacesTheStoredReportInsideTheSameTransaction) {
    Aceptar();
    ui.Responder(Respuesta::Si);
    ui.Elegir(carpeta.ruta().string());

    EXPECT_TRUE(Generar(10, 2026));

    ui.ExpectPregunta(0, kSobreescribirOctubre);
    // The former row is gone and a new one holds the same lines again: rows
    // 3 and 4 of October, unreported by the deletion, have no folio range.
    EXPECT_EQ(Informes(), "1 9/2026 1EKU9003173C9092026; 3 10/2026 1EKU9003173C9102026");
    EXPECT_EQ(Contenido(10, 2026), testing::kOctubre);
    EXPECT_EQ(testing::LeerArchivo(Archivo("1EKU9003173C9102026")), testing::kOctubre);
    EXPECT_EQ(Reportados(), kReportadosDemo);
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Confirmar"}));
    ASSERT_GE(Sentencias().size(), 3u);
    EXPECT_EQ(Sentencias()[1], "DELETE FROM ut_CFDInforme WHERE uf_Anio=2026 AND uf_Mes=10");
    EXPECT_EQ(ui.progreso[1], "Eliminando registro anterior...");
}

TEST_F(Generacion, AnEmptyStoredReportIsNamedSoInTheQuestion) {
    Aceptar();
    ui.Responder(Respuesta::Si);
    ui.Elegir(carpeta.ruta().string());
    EXPECT_TRUE(Generar(9, 2026));
    ui.ExpectPregunta(0,
                   "Ya existe un informe del mes y año indicado generado el 2026-10-01. El informe está vacío, ha sido "
                   "guardado sin ningún contenido. ¿Desea volver a generarlo y sobreescribir el actual?");
}

TEST_F(Generacion, AnsweringNoToTheOverwriteQuestionChangesNothingAndLeavesTheDialogUp) {
    ui.AlMostrar("dlgInforme", [](forms::Dialogo& d) {
        d.Ver<forms::CommandButton>("btnOK").Pulsar();
        // Locked month and year: nothing left to do but cancel.
        EXPECT_TRUE(d.Visible());
        EXPECT_FALSE(d.Ver<forms::ComboBox>("cmbmes").Accesible());
        d.Ver<forms::CommandButton>("btnCancelar").Pulsar();
    });
    ui.Responder(Respuesta::No);

    EXPECT_FALSE(Generar(10, 2026));

    EXPECT_EQ(Sentencias(),
              (Textos{"SELECT Sys_PK,uf_fecha,uf_Contenido FROM ut_CFDInforme WHERE uf_Mes=10 AND uf_Anio=2026"}));
    EXPECT_TRUE(dataObjects->llamadas.empty());
    EXPECT_TRUE(ui.Selecciones().empty());
    EXPECT_EQ(Contenido(10, 2026), testing::kOctubre);
    EXPECT_EQ(ui.Registro(), (Textos{"dialogo: dlgInforme", "caja: " + kSobreescribirOctubre}));
}

TEST_F(Generacion, CancellingTheFolderStopsSilentlyAfterTheQuestionWithNothingDeleted) {
    ui.AlMostrar("dlgInforme", [](forms::Dialogo& d) {
        d.Ver<forms::CommandButton>("btnOK").Pulsar();
        EXPECT_TRUE(d.Visible());
        d.Ver<forms::CommandButton>("btnCancelar").Pulsar();
    });
    ui.Responder(Respuesta::Si);
    ui.Elegir(std::nullopt);

    EXPECT_FALSE(Generar(10, 2026));

    EXPECT_EQ(ui.Cajas().size(), 1u);
    EXPECT_EQ(Sentencias().size(), 1u);
    EXPECT_TRUE(dataObjects->llamadas.empty());
    EXPECT_EQ(Informes(), "1 9/2026 1EKU9003173C9092026; 2 10/2026 1EKU9003173C9102026");
}

TEST_F(Generacion, TheIssuersIdentifierMustHaveTwelveOrThirteenCharactersBeforeAnyTransaction) {
    for (const std::string rfc : {"EKU9003173C", "EKU9003173C9AB", ""}) {
        Rfc(rfc);
        db.sentencias->clear();
        ui.AlMostrar("dlgInforme", [](forms::Dialogo& d) {
            d.Ver<forms::CommandButton>("btnOK").Pulsar();
            EXPECT_TRUE(d.Visible());
            d.Ver<forms::CommandButton>("btnCancelar").Pulsar();
        });
        ui.Elegir(carpeta.ruta().string());

        EXPECT_FALSE(Generar(11, 2026)) << rfc;

        ASSERT_FALSE(ui.Cajas().empty());
        EXPECT_EQ(ui.Cajas().back().texto, rfc.empty() ? "Falta valor del campo RFC del emisor." : kLongitudRfc);
        EXPECT_EQ(ui.Cajas().back().icono, Icono::Exclamacion);
        EXPECT_TRUE(dataObjects->llamadas.empty()) << rfc;
        EXPECT_EQ(Sentencias(),
                  (Textos{"SELECT Sys_PK,uf_fecha,uf_Contenido FROM ut_CFDInforme WHERE uf_Mes=11 AND uf_Anio=2026"}));
    }
    EXPECT_EQ(Reportados(), kReportadosDemo);
    EXPECT_TRUE(fs::is_empty(carpeta.ruta()));
}

TEST_F(Generacion, AThirteenCharacterIdentifierWithBlanksAroundNamesTheFile) {
    Rfc("  GAMA810512QW3 ");
    Aceptar();
    ui.Elegir(carpeta.ruta().string());
    EXPECT_TRUE(Generar(11, 2026));
    EXPECT_TRUE(fs::exists(Archivo("1GAMA810512QW3112026")));
    EXPECT_EQ(Texto("SELECT uf_Nombre FROM ut_CFDInforme WHERE uf_Mes=11"), "1GAMA810512QW3112026");
}

TEST_F(Generacion, AFileThatCannotBeWrittenRollsBackAndLeavesTheFormerReport) {
    // A folder that is really a file: no one, root included, can write in it.
    const fs::path archivo = carpeta.ruta() / "no-es-carpeta";
    std::ofstream(archivo) << "x";
    const std::string datosAntes = Texto("SELECT group_concat(uf_Datos, '~') FROM ut_CFDBitacora");
    Aceptar();
    ui.Responder(Respuesta::Si);
    ui.Elegir(archivo.string());
    // The dialog comes back after the failure; the user gives up.
    Cancelar();

    EXPECT_FALSE(Generar(10, 2026));

    const std::string ruta = archivo.string() + "/1EKU9003173C9102026.txt";
    ui.ExpectCaja(1, "Error al guardar archivo " + ruta, Icono::Exclamacion);
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Revertir"}));
    EXPECT_EQ(Informes(), "1 9/2026 1EKU9003173C9092026; 2 10/2026 1EKU9003173C9102026");
    EXPECT_EQ(Contenido(10, 2026), testing::kOctubre);
    EXPECT_EQ(Reportados(), kReportadosDemo);
    EXPECT_EQ(Texto("SELECT group_concat(uf_Datos, '~') FROM ut_CFDBitacora"), datosAntes);
    EXPECT_EQ(ui.Registro(), (Textos{"dialogo: dlgInforme", "caja: " + kSobreescribirOctubre, "ventana: frmPB",
                                     "caja: Error al guardar archivo " + ruta, "dialogo: dlgInforme"}));
    EXPECT_FALSE(mdlMain::frmProgress());
}

TEST_F(Generacion, AReportTheDatabaseRefusesIsToldTwiceAndItsFileStaysBehind) {
    // The stored reports become a view: they read, but the new row is refused.
    db.Ejecutar("ALTER TABLE ut_CFDInforme RENAME TO ut_CFDInforme_filas");
    db.Ejecutar("CREATE VIEW ut_CFDInforme AS SELECT * FROM ut_CFDInforme_filas");
    Aceptar();
    ui.Elegir(carpeta.ruta().string());
    Cancelar();

    EXPECT_FALSE(Generar(11, 2026));

    ui.ExpectCaja(0, "Error al guardar Informe. cannot modify ut_CFDInforme because it is a view", Icono::Exclamacion);
    ui.ExpectCaja(1, "Error al guardar archivo " + Archivo("1EKU9003173C9112026").string(), Icono::Exclamacion);
    // The file is written after the row all the same; only the database rolls back.
    EXPECT_TRUE(fs::exists(Archivo("1EKU9003173C9112026")));
    EXPECT_EQ(Reportados(), kReportadosDemo);
    EXPECT_EQ(Linea(6), "|CIN960904FQ2|A|4|201012345|09/11/2026 17:45:00|986.00|136.00|0|I||||");
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Revertir"}));
}

TEST_F(Generacion, AnApostropheInAFieldFailsTheUpdateAndRollsBack) {
    db.Ejecutar("UPDATE ut_CFDBitacora SET uf_Datos='|O''BRIEN|A|3||03/11/2026|3480|480|1|I||||' WHERE Sys_PK=8");
    Aceptar();
    ui.Elegir(carpeta.ruta().string());
    Cancelar();

    EXPECT_FALSE(Generar(11, 2026));

    ASSERT_EQ(ui.Cajas().size(), 1u);
    const std::string& texto = ui.Cajas()[0].texto;
    EXPECT_EQ(ui.Cajas()[0].icono, Icono::Exclamacion);
    // number + "(" + description + ") Save()", with no blank before the parenthesis.
    EXPECT_NE(texto.find("(near \"BRIEN\": syntax error) Save()"), std::string::npos) << texto;
    EXPECT_EQ(texto.find(' '), texto.find("(near ") + 5) << texto;
    EXPECT_EQ(Reportados(), kReportadosDemo);
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Revertir"}));
    EXPECT_FALSE(fs::exists(Archivo("1EKU9003173C9112026")));
    EXPECT_FALSE(mdlMain::frmProgress());
}

TEST_F(Generacion, AQueryThatCannotBeOpenedRollsBack) {
    db.Ejecutar("ALTER TABLE ut_CFDFolio RENAME TO ut_CFDFolio_filas");
    Aceptar();
    ui.Elegir(carpeta.ruta().string());
    Cancelar();

    EXPECT_FALSE(Generar(11, 2026));

    ui.ExpectCaja(0, "Error al obtener información.", Icono::Exclamacion);
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Revertir"}));
}

TEST_F(Generacion, AFailedDeletionOfTheFormerReportRollsBackWithItsText) {
    // The deletion's own query reads ut_CFD, which is gone.
    db.Ejecutar("ALTER TABLE ut_CFD RENAME TO ut_CFD_filas");
    Aceptar();
    ui.Responder(Respuesta::Si);
    ui.Elegir(carpeta.ruta().string());
    Cancelar();

    EXPECT_FALSE(Generar(10, 2026));

    ui.ExpectCaja(1, "Error Imposible continuar. Error de acceso a base de datos.", Icono::Exclamacion);
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Revertir"}));
    EXPECT_EQ(Contenido(10, 2026), testing::kOctubre);
}

TEST_F(Generacion, CancellingGeneratesNothing) {
    Cancelar();
    EXPECT_FALSE(Generar(11, 2026));
    EXPECT_TRUE(Sentencias().empty());
    EXPECT_TRUE(ui.Cajas().empty());
}

// --- Filling the dialog ----------------------------------------------------------

TEST_F(Generacion, TheDialogOffersTheMonthsAndYearsWithTheChosenOnesSelected) {
    ui.AlMostrar("dlgInforme", [](forms::Dialogo& d) {
        EXPECT_EQ(d.Caption(), "Informe mensual al SAT");
        const auto& tab = d.Ver<forms::TabControl>("tab");
        EXPECT_EQ(tab.Paginas(), (Textos{"Comprobantes fiscales emitidos"}));
        Textos nombres;
        for (const auto& control : d.Controles()) nombres.push_back(control->Nombre());
        EXPECT_EQ(nombres, (Textos{"tab", "cmbmes", "cmbAnio", "btnOK", "btnCancelar"}));
        const auto& mes = d.Ver<forms::ComboBox>("cmbmes");
        EXPECT_EQ(mes.Caption(), "Seleccione el mes a reportar.");
        EXPECT_EQ(mes.Style(), forms::ComboBox::Estilo::SoloLista);
        ASSERT_EQ(mes.ListCount(), 12);
        EXPECT_EQ(mes.List(0), "Enero");
        EXPECT_EQ(mes.List(8), "Septiembre");
        EXPECT_EQ(mes.Text(), "Marzo");
        const auto& anio = d.Ver<forms::ComboBox>("cmbAnio");
        ASSERT_EQ(anio.ListCount(), 66);
        EXPECT_EQ(anio.List(0), "1985");
        EXPECT_EQ(anio.List(65), "2050");
        EXPECT_EQ(anio.Text(), "2010");
        EXPECT_TRUE(mes.Enabled());
        EXPECT_TRUE(anio.Enabled());
        EXPECT_EQ(d.Ver<forms::CommandButton>("btnOK").Caption(), "&Aceptar");
        EXPECT_EQ(d.Ver<forms::CommandButton>("btnCancelar").Caption(), "&Cancelar");
        d.Ver<forms::CommandButton>("btnCancelar").Pulsar();
    });
    Generar(3, 2010, false);
}

TEST_F(Generacion, WithoutMonthAndYearTodaysAreChosenAndAYearOutsideTheListSelectsNone) {
    ui.AlMostrar("dlgInforme", [](forms::Dialogo& d) {
        EXPECT_EQ(d.Ver<forms::ComboBox>("cmbmes").Text(), "Noviembre");
        EXPECT_EQ(d.Ver<forms::ComboBox>("cmbAnio").Text(), "2026");
        EXPECT_FALSE(d.Ver<forms::ComboBox>("cmbmes").Enabled());
        d.Ver<forms::CommandButton>("btnCancelar").Pulsar();
    });
    Generar(-1, -1, true);

    ui.AlMostrar("dlgInforme", [](forms::Dialogo& d) {
        EXPECT_EQ(d.Ver<forms::ComboBox>("cmbAnio").ListIndex(), -1);
        EXPECT_EQ(d.Ver<forms::ComboBox>("cmbmes").Text(), "Enero");
        d.Ver<forms::CommandButton>("btnCancelar").Pulsar();
    });
    Generar(1, 1984, false);
}

TEST_F(Generacion, WithNoYearSelectedAcceptingShowsTheConversionFaultAndStays) {
    ui.AlMostrar("dlgInforme", [](forms::Dialogo& d) {
        d.Ver<forms::CommandButton>("btnOK").Pulsar();
        EXPECT_TRUE(d.Visible());
        d.Ver<forms::CommandButton>("btnCancelar").Pulsar();
    });
    EXPECT_FALSE(Generar(1, 1984, false));
    ui.ExpectCaja(0, "13(Type mismatch) Save()", Icono::Exclamacion);
    EXPECT_TRUE(dataObjects->llamadas.empty());
}

}  // namespace
}  // namespace celdora

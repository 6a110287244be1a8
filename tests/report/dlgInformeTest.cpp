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
    EXPECT_EQ(Contenido(11), kNoviembre);
    EXPECT_EQ(testing::LeerArchivo(Archivo("1EKU9003173C9112026")), kNoviembre);
    EXPECT_EQ(Texto("SELECT '' || uf_Fecha FROM ut_CFDInforme WHERE uf_Mes=11"), "2026-11-22 10:30:00");
    EXPECT_EQ(Estado(), (Textos{"i " + generado, "llamadas: Iniciar Confirmar", "11001101",
                                kInformesDemo + "; 3 11/2026 1EKU9003173C9112026"}));
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
    EXPECT_EQ(fs::file_size(Archivo("1EKU9003173C9122026")), 0u);
    EXPECT_EQ(Contenido(12), "");
    EXPECT_EQ(Estado(), (Textos{"i Archivo generado correctamente. No se encontró ningún comprobante emitido en el "
                                "mes de Diciembre y el año 2026",
                                "llamadas: Iniciar Confirmar", kReportadosDemo,
                                kInformesDemo + "; 3 12/2026 1EKU9003173C9122026"}));
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
    ASSERT_GE(Sentencias().size(), 3u);
    EXPECT_EQ(Sentencias()[1], "DELETE FROM ut_CFDInforme WHERE uf_Anio=2026 AND uf_Mes=10");

    // An empty stored report is named so in the question.
    Aceptar();
    ui.Responder(Respuesta::Si);
    EXPECT_TRUE(Generar(9));
    EXPECT_EQ(Estado()[2], "?sn Ya existe un informe del mes y año indicado generado el 2026-10-01. El informe está "
                           "vacío, ha sido guardado sin ningún contenido. ¿Desea volver a generarlo y sobreescribir "
                           "el actual?");
}

TEST_F(Generacion, NoFolderAfterAYesChangesNothingAndLeavesTheDialogUp) {
    AceptarYCancelar();
    ui.Responder(Respuesta::Si);
    ui.Elegir(std::nullopt);
    EXPECT_FALSE(Generar(10));
    EXPECT_EQ(Sentencias(), (Textos{kBuscarInforme + "10 AND uf_Anio=2026"}));
    EXPECT_EQ(Estado(), (Textos{kSobreescribir, "llamadas:", kReportadosDemo, kInformesDemo}));
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
}

TEST_F(Generacion, AReportTheDatabaseRefusesIsToldTwiceAndItsFileStaysBehind) {
    SoloLectura("ut_CFDInforme");
    Fracasa(11, carpeta.ruta().string(),
            {"! Error al guardar Informe. cannot modify ut_CFDInforme because it is a view",
             "! Error al guardar archivo " + Archivo("1EKU9003173C9112026").string()});
    // The file is written after the row all the same; only the database rolls back.
    EXPECT_EQ(testing::LeerArchivo(Archivo("1EKU9003173C9112026")), kNoviembre);
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

// --- Filling the dialog ----------------------------------------------------------

TEST_F(Generacion, TheDialogOffersTheMonthsAndYearsWithTheChosenOnesSelectedAndCancelGeneratesNothing) {
    ui.AlMostrar("dlgInforme", [](forms::Dialogo& d) {
        const auto& mes = d.Ver<ComboBox>("cmbmes");
        const auto& anio = d.Ver<ComboBox>("cmbAnio");
        ASSERT_EQ((std::vector<int>{mes.ListCount(), anio.ListCount()}), (std::vector<int>{12, 66}));
        EXPECT_EQ((Textos{mes.List(8), mes.Text(), anio.List(0), anio.Text()}),
                  (Textos{"Septiembre", "Marzo", "1985", "2010"}));
        EXPECT_TRUE(mes.Enabled());
        d.Ver<CommandButton>("btnCancelar").Pulsar();
    });
    EXPECT_FALSE(Generar(3, 2010, false));
    EXPECT_TRUE(Sentencias().empty());
    EXPECT_TRUE(ui.Cajas().empty());
}

TEST_F(Generacion, WithoutMonthAndYearTodaysAreChosenAndAYearOutsideTheListFailsTheConversion) {
    ui.AlMostrar("dlgInforme", [](forms::Dialogo& d) {
        EXPECT_EQ(d.Ver<ComboBox>("cmbmes").Text(), "Noviembre");
        EXPECT_EQ(d.Ver<ComboBox>("cmbAnio").Text(), "2026");
        EXPECT_FALSE(d.Ver<ComboBox>("cmbmes").Enabled());
        EXPECT_FALSE(d.Ver<ComboBox>("cmbAnio").Enabled());
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

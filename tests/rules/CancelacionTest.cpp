// Cancellation of comprobantes and the state field of their log lines, on
// the demo company: comprobante 5 (sale 3) is unreported and cancellable,
// 1 and 2 are reported, 6 belongs to the cancelled sale 4, 8 to receivable 1.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/cAcction.h"
#include "platform/common/FallasAdo.h"
#include "tests/support/CompanyFixture.h"
#include "tests/support/DataObjectsAnotados.h"
#include "tests/support/TestPlatform.h"
#include "value/Convert.h"

namespace celdora {
namespace {

using host::Botones;
using host::Icono;
using host::Respuesta;
using testing::CompanyDatabase;
using testing::TestPlatform;
using Textos = std::vector<std::string>;

using testing::DataObjectsAnotados;

const std::string kLinea5 = "|LOPJ7009128T5|A|3|201012345|03/11/2026 11:20:00|3480.00|480.00|1|I||||";
const std::string kReportado =
    "No se pude cancelar porque el comprobante digital ya ha sido incluido en el reporte mensual.";
const std::string kEstatusIncorrecto = "Etatus adminisitrativo incorrecto. Debe ser procesado o cancelado.";
const std::string kNoEsTabla = "Error 1 (cannot modify ut_CFD because it is a view) in procedure CancelarCFD";

class Cancelacion : public ::testing::Test {
protected:
    TestPlatform platform;
    CompanyDatabase db{CompanyDatabase::Datos::Demo};
    std::shared_ptr<DataObjectsAnotados> dataObjects = std::make_shared<DataObjectsAnotados>(db.dataObjects);
    cAcction acc;

    void SetUp() override { acc.SetDataObjects(dataObjects, nullptr); }

    std::string Linea(int sysPk) {
        return CStr(db.Valor("SELECT uf_Datos FROM ut_CFDBitacora WHERE Sys_PK=" + std::to_string(sysPk)));
    }
    void PonerLinea(int sysPk, const std::string& linea) {
        db.Ejecutar("UPDATE ut_CFDBitacora SET uf_Datos='" + linea + "' WHERE Sys_PK=" + std::to_string(sysPk));
    }
    std::string TodasLasLineas() {
        return CStr(db.Valor("SELECT group_concat(uf_Datos, '~') FROM (SELECT uf_Datos FROM ut_CFDBitacora "
                             "ORDER BY Sys_PK)"));
    }
    // ut_CFD becomes a view of itself: it still reads, but a delete on it fails.
    void UtCfdSinBorrado() {
        db.Ejecutar("ALTER TABLE ut_CFD RENAME TO ut_CFD_filas");
        db.Ejecutar("CREATE VIEW ut_CFD AS SELECT * FROM ut_CFD_filas");
    }
    bool Cancelado(int sysPk) {
        return CLng(db.Valor("SELECT uf_CanceladoSAT FROM ut_CFD WHERE Sys_PK=" + std::to_string(sysPk))) == 1;
    }
};

// --- PosibleCancelar ---------------------------------------------------------

TEST_F(Cancelacion, PosibleCancelarAdmitsUnreportedComprobantesOfProcessedSalesAndOfReceivables) {
    acc.LastErrorDescript = "texto anterior";
    EXPECT_TRUE(acc.PosibleCancelar(5));
    EXPECT_EQ(acc.LastErrorDescript, "");
    EXPECT_TRUE(acc.PosibleCancelar(8));  // no sale: the Null status passes
}

TEST_F(Cancelacion, PosibleCancelarRefusesReportedBeforeCancelledSale) {
    db.Ejecutar("UPDATE Venta SET StatusAdministrativo=99 WHERE Sys_PK=1");
    EXPECT_FALSE(acc.PosibleCancelar(1));
    EXPECT_EQ(acc.LastErrorDescript, kReportado);

    EXPECT_FALSE(acc.PosibleCancelar(6));
    EXPECT_EQ(acc.LastErrorDescript,
              "No se pude cancelar el comprobante digital porque la venta ha sido cancelada.");
}

TEST_F(Cancelacion, PosibleCancelarFaultsWithoutLogLineAndIsSilentWhenNothingOpens) {
    db.Ejecutar("DELETE FROM ut_CFDBitacora WHERE uf_CFD=5");
    EXPECT_FALSE(acc.PosibleCancelar(5));
    EXPECT_EQ(acc.LastErrorDescript, ErrorTextIn(platform::SinRegistroActual(), "PosibleCancelar"));

    db.cnn->Close();
    EXPECT_FALSE(acc.PosibleCancelar(5));
    EXPECT_EQ(acc.LastErrorDescript, "");
}

// --- CancelarCFD -------------------------------------------------------------

TEST_F(Cancelacion, CancelarCFDDeletesLogLineThenComprobanteInsideItsTransaction) {
    platform.ui.Responder(Respuesta::Si);
    db.sentencias->clear();

    EXPECT_TRUE(acc.CancelarCFD(5));

    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    const auto& pregunta = platform.ui.Cajas()[0];
    EXPECT_EQ(pregunta.texto, "¿Está seguro que desea eliminar el elemento seleccionado?");
    EXPECT_EQ(pregunta.botones, Botones::SiNo);
    EXPECT_EQ(pregunta.icono, Icono::Pregunta);
    EXPECT_EQ(pregunta.titulo, "");
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Confirmar"}));
    const Textos ultimas(db.sentencias->end() - 2, db.sentencias->end());
    EXPECT_EQ(ultimas, (Textos{"DELETE FROM ut_CFDBitacora WHERE uf_CFD=5", "DELETE FROM ut_CFD WHERE Sys_PK=5"}));
    EXPECT_EQ(db.Contar("ut_CFD"), 7);
    EXPECT_EQ(db.Contar("ut_CFDBitacora"), 7);
}

TEST_F(Cancelacion, CancelarCFDAsksEvenWhenToldNotToAndANoChangesNothing) {
    platform.ui.Responder(Respuesta::No);
    EXPECT_FALSE(acc.CancelarCFD(5, /*boAsk=*/false));
    EXPECT_EQ(platform.ui.Cajas().size(), 1u);
    EXPECT_TRUE(dataObjects->llamadas.empty());
    EXPECT_EQ(db.Contar("ut_CFDBitacora WHERE uf_CFD=5"), 1);
    EXPECT_EQ(acc.LastErrorDescript, "");
}

TEST_F(Cancelacion, CancelarCFDRefusesWithoutQuestionABadKeyAndWhatPosibleCancelarRefuses) {
    EXPECT_FALSE(acc.CancelarCFD(0));
    EXPECT_EQ(acc.LastErrorDescript, "Clave incorrecta.");
    EXPECT_FALSE(acc.CancelarCFD(2));
    EXPECT_EQ(acc.LastErrorDescript, kReportado);
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

TEST_F(Cancelacion, CancelarCFDRollsBackTheFirstDeleteWhenTheSecondFails) {
    UtCfdSinBorrado();
    platform.ui.Responder(Respuesta::Si);

    EXPECT_FALSE(acc.CancelarCFD(5));

    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Revertir"}));
    EXPECT_EQ(db.Contar("ut_CFDBitacora WHERE uf_CFD=5"), 1);
    EXPECT_EQ(acc.LastErrorDescript, kNoEsTabla);
}

TEST_F(Cancelacion, CancelarCFDWithoutTransactionLeavesTheFirstDeleteToTheCaller) {
    // GIVEN the caller holds a transaction and ut_CFD cannot be deleted from
    UtCfdSinBorrado();
    db.dataObjects->IniciarTransaccion();
    platform.ui.Responder(Respuesta::Si);

    EXPECT_FALSE(acc.CancelarCFD(5, true, /*WithTrans=*/false));

    // THEN no transaction call: the log line is gone inside the caller's
    // transaction until the caller decides
    EXPECT_TRUE(dataObjects->llamadas.empty());
    EXPECT_EQ(acc.LastErrorDescript, kNoEsTabla);
    EXPECT_EQ(db.Contar("ut_CFDBitacora WHERE uf_CFD=5"), 0);
    db.dataObjects->RevertirTransaccion(0);
    EXPECT_EQ(db.Contar("ut_CFDBitacora WHERE uf_CFD=5"), 1);
}

// --- CambiarEstadoEnBitacora and CambiarEstadoEnBitacoraCXC -------------------

TEST_F(Cancelacion, CambiarEstadoWritesZeroForCancelledAndOneForProcessed) {
    EXPECT_TRUE(acc.CambiarEstadoEnBitacora(3, 99));
    EXPECT_EQ(Linea(5), "|LOPJ7009128T5|A|3|201012345|03/11/2026 11:20:00|3480.00|480.00|0|I||||");
    EXPECT_TRUE(acc.CambiarEstadoEnBitacora(4, 3));  // its line held "0"
    EXPECT_EQ(Linea(6), "|CIN960904FQ2|A|4|201012345|09/11/2026 17:45:00|986.00|136.00|1|I||||");
}

TEST_F(Cancelacion, CambiarEstadoTrimsEveryFieldAndCutsTheLineAtTwelveFields) {
    PonerLinea(1, "| XAXX010101000 |A |  1|201012345| 05/10/2026 10:15:00 |1160.00|160.00| 1 |I| | | |x|y|");
    EXPECT_TRUE(acc.CambiarEstadoEnBitacora(1, 99));  // a reported line is rewritten too
    EXPECT_EQ(Linea(1), "|XAXX010101000|A|1|201012345|05/10/2026 10:15:00|1160.00|160.00|0|I||||");
}

TEST_F(Cancelacion, CambiarEstadoFailsOnAShortLineWithTheSubscriptFault) {
    PonerLinea(5, "|LOPJ7009128T5|A|3|201012345|");
    EXPECT_FALSE(acc.CambiarEstadoEnBitacora(3, 99));
    EXPECT_EQ(acc.LastErrorDescript, "Error 9 (Subscript out of range)");
    EXPECT_EQ(Linea(5), "|LOPJ7009128T5|A|3|201012345|");
}

TEST_F(Cancelacion, CambiarEstadoFailuresOfItsOwn) {
    const std::string antes = TodasLasLineas();
    EXPECT_FALSE(acc.CambiarEstadoEnBitacora(3, 5));
    EXPECT_EQ(acc.LastErrorDescript, kEstatusIncorrecto);
    EXPECT_EQ(TodasLasLineas(), antes);

    PonerLinea(5, "");
    EXPECT_FALSE(acc.CambiarEstadoEnBitacora(3, 99));
    EXPECT_EQ(acc.LastErrorDescript, "Error al obtener información CFDBitacora.");

    // A quote in the line breaks the update, which ends in the plain form.
    PonerLinea(5, "|O''Brien|A|3|201012345|03/11/2026 11:20:00|3480.00|480.00|1|I||||");
    EXPECT_FALSE(acc.CambiarEstadoEnBitacora(3, 99));
    EXPECT_EQ(acc.LastErrorDescript.rfind("Error 1 (", 0), 0u) << acc.LastErrorDescript;
    EXPECT_EQ(acc.LastErrorDescript.find(" in procedure"), std::string::npos);
}

TEST_F(Cancelacion, CambiarEstadoSucceedsWithoutClearingAnOlderText) {
    EXPECT_FALSE(acc.CambiarEstadoEnBitacora(3, 7));
    const std::string antes = TodasLasLineas();
    EXPECT_TRUE(acc.CambiarEstadoEnBitacora(5, 99));  // a sale without comprobante: nothing to write
    EXPECT_EQ(TodasLasLineas(), antes);
    EXPECT_TRUE(acc.CambiarEstadoEnBitacora(3, 99));
    EXPECT_EQ(acc.LastErrorDescript, kEstatusIncorrecto);
}

TEST_F(Cancelacion, CambiarEstadoRewritesOnlyOneLogRowOfASaleWithSeveral) {
    db.Ejecutar("INSERT INTO ut_CFDBitacora (uf_CFD, uf_Datos, uf_Reportado) VALUES (5, '" + kLinea5 + "', 0)");
    EXPECT_TRUE(acc.CambiarEstadoEnBitacora(3, 99));
    EXPECT_EQ(db.Contar("ut_CFDBitacora WHERE uf_CFD=5 AND uf_Datos='" + kLinea5 + "'"), 1);
}

TEST_F(Cancelacion, CambiarEstadoCXCWorksOnTheReceivablesLine) {
    EXPECT_TRUE(acc.CambiarEstadoEnBitacoraCXC(1, 99));
    EXPECT_EQ(Linea(8), "|CIN960904FQ2|B|1|201123456|18/11/2026 10:30:00|580.00|80.00|0|E||||");
    const std::string antes = TodasLasLineas();
    EXPECT_TRUE(acc.CambiarEstadoEnBitacoraCXC(2, 99));  // no comprobante
    EXPECT_EQ(TodasLasLineas(), antes);
    EXPECT_FALSE(acc.CambiarEstadoEnBitacoraCXC(1, 0));
    EXPECT_EQ(acc.LastErrorDescript, kEstatusIncorrecto);
}

// --- MarcarCFDIsCancelado and guardar_ack_cancelacion ---------------------------

const std::string kUuid3 = "6F1A2B3C-4D5E-4F60-8172-93A4B5C6D7E8";
const std::string kUuid7 = "A1B2C3D4-E5F6-4A7B-8C9D-0E1F2A3B4C5D";

TEST_F(Cancelacion, MarcarCFDIsCanceladoMarksEachPieceAsItStands) {
    db.sentencias->clear();
    EXPECT_TRUE(acc.MarcarCFDIsCancelado(kUuid3 + ", " + kUuid7 + ",sin-fila"));
    EXPECT_EQ(*db.sentencias, (Textos{"UPDATE ut_CFD SET uf_CanceladoSAT=1 WHERE uf_FolioSAT='" + kUuid3 + "'",
                                      "UPDATE ut_CFD SET uf_CanceladoSAT=1 WHERE uf_FolioSAT=' " + kUuid7 + "'",
                                      "UPDATE ut_CFD SET uf_CanceladoSAT=1 WHERE uf_FolioSAT='sin-fila'"}));
    EXPECT_TRUE(Cancelado(3));
    EXPECT_FALSE(Cancelado(7));
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

TEST_F(Cancelacion, MarcarCFDIsCanceladoWithoutUuidShowsWhy) {
    EXPECT_FALSE(acc.MarcarCFDIsCancelado("   "));
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    const auto& caja = platform.ui.Cajas()[0];
    EXPECT_EQ(caja.texto, "El compobante no fue marcado como cancelado. No se ha indicado el UUID del comprobante.");
    EXPECT_EQ(caja.icono, Icono::Exclamacion);
    EXPECT_EQ(caja.botones, Botones::Aceptar);
    EXPECT_EQ(caja.titulo, "");
}

TEST_F(Cancelacion, MarcarCFDIsCanceladoKeepsTheMarksMadeBeforeAFailure) {
    EXPECT_FALSE(acc.MarcarCFDIsCancelado(kUuid3 + ",O'Brien," + kUuid7));
    EXPECT_TRUE(Cancelado(3));
    EXPECT_FALSE(Cancelado(7));
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    EXPECT_EQ(platform.ui.Cajas()[0].texto.rfind("Error 1 (", 0), 0u) << platform.ui.Cajas()[0].texto;
    EXPECT_EQ(platform.ui.Cajas()[0].icono, Icono::Exclamacion);
}

TEST_F(Cancelacion, GuardarAckStoresTheAcknowledgementAndIsTrueEvenWithoutTheRow) {
    EXPECT_TRUE(acc.guardar_ack_cancelacion("<Acuse Estatus=\"201\"/>", 3));
    EXPECT_EQ(db.Valor("SELECT uf_ackCancelacion_SAT FROM ut_CFD WHERE Sys_PK=3"), Variant("<Acuse Estatus=\"201\"/>"));
    EXPECT_TRUE(acc.guardar_ack_cancelacion("acuse", 99));
    EXPECT_EQ(db.Contar("ut_CFD WHERE uf_ackCancelacion_SAT IS NOT NULL"), 1);

    db.cnn->Close();
    EXPECT_FALSE(acc.guardar_ack_cancelacion("acuse", 3));
}

}  // namespace
}  // namespace celdora

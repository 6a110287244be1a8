// Cancellation of comprobantes and the state field of their log lines, on
// the demo company: comprobante 5 (sale 3) is unreported and cancellable,
// 1 and 2 are reported, 6 belongs to the cancelled sale 4, 8 to receivable 1.
// A removal that goes through, a mark by UUID and the keeping of the
// acknowledgement are asserted on each engine by the behaviour suite.

#include "platform/common/FallasAdo.h"
#include "tests/support/FachadaDemo.h"

namespace celdora {
namespace {

using host::Respuesta;
using testing::Textos;
using ::testing::StartsWith;

const std::string kReportado =
    "No se pude cancelar porque el comprobante digital ya ha sido incluido en el reporte mensual.";

class Cancelacion : public testing::FachadaDemo {
protected:
    void PonerLinea(int sysPk, const std::string& linea) {
        db.Ejecutar("UPDATE ut_CFDBitacora SET uf_Datos='" + linea + "' WHERE Sys_PK=" + std::to_string(sysPk));
    }
    std::string Lineas(const std::string& donde = "1=1") {
        return Texto("SELECT group_concat(uf_Datos, '~') FROM (SELECT uf_Datos FROM ut_CFDBitacora WHERE " + donde +
                     " ORDER BY Sys_PK)");
    }
    // The answer and the error text of a call that starts with an older text.
    std::string Resultado(const std::function<bool()>& llamada) {
        acc.LastErrorDescript = "texto anterior";
        const bool respuesta = llamada();
        return (respuesta ? "true|" : "false|") + acc.LastErrorDescript;
    }
};

TEST_F(Cancelacion, PosibleCancelarAdmitsOrGivesTheReasonInOrder) {
    db.Ejecutar("UPDATE Venta SET StatusAdministrativo=99 WHERE Sys_PK=1");  // reported and cancelled
    const auto posible = [&](int cfd) { return Resultado([&] { return acc.PosibleCancelar(cfd); }); };
    EXPECT_EQ(posible(5), "true|");
    EXPECT_EQ(posible(8), "true|") << "no sale: the Null status passes";
    EXPECT_EQ(posible(1), "false|" + kReportado) << "reported is told before a cancelled sale";
    EXPECT_EQ(posible(6), "false|No se pude cancelar el comprobante digital porque la venta ha sido cancelada.");
    db.Ejecutar("DELETE FROM ut_CFDBitacora WHERE uf_CFD=5");
    EXPECT_EQ(posible(5), "false|" + ErrorTextIn(platform::SinRegistroActual(), "PosibleCancelar"));
    db.cnn->Close();
    EXPECT_EQ(posible(5), "false|");
}

TEST_F(Cancelacion, CancelarCFDAsksEvenWhenToldNotToAndRefusesWithoutQuestionWhatItCannotCancel) {
    platform.ui.Responder(Respuesta::No);
    EXPECT_EQ(Resultado([&] { return acc.CancelarCFD(5, /*boAsk=*/false); }), "false|");
    EXPECT_EQ(Resultado([&] { return acc.CancelarCFD(0); }), "false|Clave incorrecta.");
    EXPECT_EQ(Resultado([&] { return acc.CancelarCFD(2); }), "false|" + kReportado);
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    platform.ui.ExpectPregunta(0, "¿Está seguro que desea eliminar el elemento seleccionado?");
    EXPECT_TRUE(dataObjects->llamadas.empty());
    EXPECT_EQ(db.Contar("ut_CFDBitacora WHERE uf_CFD=5"), 1);
}

// GIVEN ut_CFD as a view of itself, which reads but cannot be deleted from:
// with a transaction of its own the first delete is rolled back; without
// one it stays in the caller's transaction until the caller decides.
TEST_F(Cancelacion, CancelarCFDRollsBackTheFirstDeleteWhenTheSecondFailsOnlyInsideItsOwnTransaction) {
    db.Ejecutar("ALTER TABLE ut_CFD RENAME TO ut_CFD_filas");
    db.Ejecutar("CREATE VIEW ut_CFD AS SELECT * FROM ut_CFD_filas");
    for (const bool propia : {true, false}) {
        SCOPED_TRACE(propia);
        dataObjects->llamadas.clear();
        if (!propia) db.dataObjects->IniciarTransaccion();
        platform.ui.Responder(Respuesta::Si);
        EXPECT_FALSE(acc.CancelarCFD(5, true, propia));
        EXPECT_EQ(dataObjects->llamadas, (propia ? Textos{"Iniciar", "Revertir"} : Textos{}));
        EXPECT_EQ(acc.LastErrorDescript, "Error 1 (cannot modify ut_CFD because it is a view) in procedure CancelarCFD");
        EXPECT_EQ(db.Contar("ut_CFDBitacora WHERE uf_CFD=5"), propia ? 1 : 0);
    }
    db.dataObjects->RevertirTransaccion(0);
    EXPECT_EQ(db.Contar("ut_CFDBitacora WHERE uf_CFD=5"), 1);
}

// The state field (ninth) becomes 0 for cancelled (99) and 1 for processed;
// every field is trimmed and the line cut at twelve fields, reported or not.
// Only the first log line of a document is rewritten; a document without
// comprobante has nothing to write; a success leaves an older text standing.
TEST_F(Cancelacion, CambiarEstadoRewritesTheStateFieldOfTheFirstLogLine) {
    const std::string espaciada =
        "| XAXX010101000 |A |  1|201012345| 05/10/2026 10:15:00 |1160.00|160.00| 1 |I| | | |x|y|";
    PonerLinea(1, espaciada);
    db.Ejecutar("INSERT INTO ut_CFDBitacora (uf_CFD, uf_Datos, uf_Reportado) VALUES (1, '" + espaciada + "', 0)");
    const std::tuple<bool, int, int> llamadas[] = {{false, 1, 99}, {false, 4, 3}, {true, 1, 99}, {false, 5, 99}, {true, 2, 99}};
    for (const auto& [cxc, documento, estado] : llamadas) {
        EXPECT_EQ(Resultado([&] {
                      return cxc ? acc.CambiarEstadoEnBitacoraCXC(documento, estado)
                                 : acc.CambiarEstadoEnBitacora(documento, estado);
                  }),
                  "true|texto anterior") << documento;
    }
    EXPECT_EQ(Lineas("uf_CFD=1 AND uf_Datos<>'" + espaciada + "'"),
              "|XAXX010101000|A|1|201012345|05/10/2026 10:15:00|1160.00|160.00|0|I||||");
    EXPECT_EQ(db.Contar("ut_CFDBitacora WHERE uf_Datos='" + espaciada + "'"), 1);
    EXPECT_EQ(Lineas("Sys_PK IN (6, 8)"),
              "|CIN960904FQ2|A|4|201012345|09/11/2026 17:45:00|986.00|136.00|1|I||||~"  // held "0"
              "|CIN960904FQ2|B|1|201123456|18/11/2026 10:30:00|580.00|80.00|0|E||||");
}

TEST_F(Cancelacion, CambiarEstadoFailuresLeaveTheLinesAsTheyWereAndGiveThePlainErrorText) {
    // The log line of sale 3 (nullptr: as the demo has it), the status, the error.
    const struct {
        const char* linea;
        int estado;
        ::testing::Matcher<std::string> error;
    } casos[] = {
        {nullptr, 5, "false|Etatus adminisitrativo incorrecto. Debe ser procesado o cancelado."},
        {"|LOPJ7009128T5|A|3|201012345|", 99, "false|Error 9 (Subscript out of range)"},
        {"", 99, "false|Error al obtener información CFDBitacora."},
        // A quote in the line breaks the update.
        {"|O''Brien|A|3|201012345|03/11/2026 11:20:00|3480.00|480.00|1|I||||", 99, StartsWith("false|Error 1 (")},
    };
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.linea ? caso.linea : "(demo)");
        if (caso.linea) PonerLinea(5, caso.linea);
        const std::string antes = Lineas();
        const std::string respuesta = Resultado([&] { return acc.CambiarEstadoEnBitacora(3, caso.estado); });
        EXPECT_THAT(respuesta, caso.error);
        EXPECT_EQ(respuesta.find(" in procedure"), std::string::npos);
        EXPECT_EQ(Lineas(), antes);
    }
}

// The pieces go in as they stand, a blank included, and the marks made
// before a failure stay.
TEST_F(Cancelacion, MarcarCFDIsCanceladoMarksEachPieceUntilAFailureOrShowsWhyNot) {
    const std::string uuid3 = "6F1A2B3C-4D5E-4F60-8172-93A4B5C6D7E8", uuid7 = "A1B2C3D4-E5F6-4A7B-8C9D-0E1F2A3B4C5D";
    db.sentencias->clear();
    EXPECT_FALSE(acc.MarcarCFDIsCancelado(uuid3 + ", " + uuid7 + ",O'Brien," + uuid7));
    const std::string marcar = "UPDATE ut_CFD SET uf_CanceladoSAT=1 WHERE uf_FolioSAT='";
    EXPECT_EQ(*db.sentencias, (Textos{marcar + uuid3 + "'", marcar + " " + uuid7 + "'", marcar + "O'Brien'"}));
    EXPECT_EQ(Texto("SELECT group_concat(Sys_PK) FROM ut_CFD WHERE uf_CanceladoSAT=1"), "3");
    EXPECT_FALSE(acc.MarcarCFDIsCancelado("   "));
    ASSERT_EQ(platform.ui.Cajas().size(), 2u);
    EXPECT_THAT(platform.ui.Cajas()[0].texto, StartsWith("Error 1 ("));
    EXPECT_EQ(platform.ui.Cajas()[0].icono, host::Icono::Exclamacion);
    platform.ui.ExpectCaja(1, "El compobante no fue marcado como cancelado. No se ha indicado el UUID del comprobante.",
                           host::Icono::Exclamacion);
    // And the acknowledgement cannot be kept when its recordset does not open.
    db.cnn->Close();
    EXPECT_FALSE(acc.guardar_ack_cancelacion("acuse", 3));
}

}  // namespace
}  // namespace celdora

// Deleting a monthly report on the demo company: October 2026 holds log rows
// 1 to 4, of which 1 and 2 are in its stored report.

#include <gtest/gtest.h>

#include <string>

#include "core/Dispatch.h"
#include "tests/report/ReporteFixture.h"

namespace celdora {
namespace {

using host::Respuesta;
using testing::kInformesDemo;
using testing::Textos;

const std::string kSeleccionOctubre =
    "SELECT ut_CFDBitacora.Sys_PK FROM ut_CFD INNER JOIN ut_CFDBitacora ON ut_CFD.Sys_PK=ut_CFDBitacora.uf_CFD "
    "WHERE Year(ut_CFD.Uf_FechaHora)=2026 AND Month(ut_CFD.Uf_FechaHora)=10";
const std::string kPregunta = "?sn " + testing::kPreguntaEliminar;

class Eliminacion : public testing::InformeFixture {
protected:
    bool Eliminar(std::int16_t mes, std::int16_t anio = 2026, bool conTransaccion = true, bool preguntar = true) {
        return acc.EliminarInformeMensual(mes, anio, conTransaccion, preguntar);
    }
};

TEST_F(Eliminacion, DeletesTheReportAndUnmarksEveryLogRowOfTheMonth) {
    db.Ejecutar("UPDATE ut_CFDBitacora SET uf_Reportado=1 WHERE Sys_PK IN (3,4,5)");
    acc.LastErrorDescript = "texto anterior";
    ui.Responder(Respuesta::Si);
    db.sentencias->clear();

    EXPECT_TRUE(Eliminar(10));

    EXPECT_EQ(Sentencias(), (Textos{"DELETE FROM ut_CFDInforme WHERE uf_Anio=2026 AND uf_Mes=10", kSeleccionOctubre,
                                    "UPDATE ut_CFDBitacora SET uf_Reportado=0 WHERE Sys_PK=1",
                                    "UPDATE ut_CFDBitacora SET uf_Reportado=0 WHERE Sys_PK=2",
                                    "UPDATE ut_CFDBitacora SET uf_Reportado=0 WHERE Sys_PK=3",
                                    "UPDATE ut_CFDBitacora SET uf_Reportado=0 WHERE Sys_PK=4"}));
    // Rows 3 and 4 were never in the report and are unmarked all the same;
    // November's row 5 is not touched.
    EXPECT_EQ(Estado(), (Textos{kPregunta, "llamadas: Iniciar Confirmar", "00001000", "1 9/2026 1EKU9003173C9092026"}));
    EXPECT_EQ(acc.LastErrorDescript, "");
}

TEST_F(Eliminacion, NoChangesNothingAndWithoutQuestionOrTransactionItWorksInTheCallers) {
    ui.Responder(Respuesta::No);
    EXPECT_FALSE(Eliminar(10));
    EXPECT_TRUE(Sentencias().empty());
    EXPECT_EQ(Estado(), (Textos{kPregunta, "llamadas:", testing::kReportadosDemo, kInformesDemo}));

    EXPECT_TRUE(Eliminar(10, 2026, false, false));
    EXPECT_EQ(Estado(), (Textos{kPregunta, "llamadas:", "00000000", "1 9/2026 1EKU9003173C9092026"}));
}

TEST_F(Eliminacion, AMonthOrYearBelowZeroIsRefusedBeforeTheQuestion) {
    for (const auto& [mes, anio] : {std::pair<std::int16_t, std::int16_t>{-1, 2026}, {10, -1}}) {
        acc.LastErrorDescript.clear();
        EXPECT_FALSE(Eliminar(mes, anio));
        EXPECT_EQ(acc.LastErrorDescript, "Parámetros incorrectos.");
    }
    EXPECT_TRUE(ui.Cajas().empty());
    EXPECT_TRUE(Sentencias().empty());
}

TEST_F(Eliminacion, AFailureGivesItsTextAndRollsBack) {
    SoloLectura("ut_CFDBitacora");
    ui.Responder(Respuesta::Si);
    EXPECT_FALSE(Eliminar(10));
    EXPECT_EQ(acc.LastErrorDescript, "Error 1 (cannot modify ut_CFDBitacora because it is a view)");
    EXPECT_EQ(Estado(), (Textos{kPregunta, "llamadas: Iniciar Revertir", testing::kReportadosDemo, kInformesDemo}));

}

// --- Through the automation table -------------------------------------------

// Each report member as "slot: kind name[=default as presented], ..." with every argument by reference.
TEST_F(Eliminacion, TheReportMembersTakeTheirSlotsWithTheirArgumentsByReference) {
    const std::pair<const char*, std::string> esperados[] = {
        {"GenerarInformeMensual", "16: i16 mes=-1, i16 anio=-1, bool boBloquear=Falso (0)"},
        {"EliminarInformeMensual", "28: i16 mes, i16 anio, bool WithTrans=Verdadero (-1), bool boAsk=Verdadero (-1)"},
    };
    for (const auto& [miembro, firma] : esperados) {
        const dispatch::Miembro* m = dispatch::Buscar("cAcction", miembro);
        ASSERT_NE(m, nullptr) << miembro;
        std::string texto = std::to_string(m->ranura) + ":";
        for (const auto& a : m->argumentos) {
            const std::string omision = a.opcional ? "=" + dispatch::Presentar(a.omision).at(0) : "";
            texto += std::string(texto.back() == ':' ? " " : ", ") + (a.porReferencia ? "" : "ByVal ") +
                     dispatch::NombreTipo(a.tipo) + " " + a.nombre + omision;
        }
        EXPECT_EQ(texto, firma);
    }
}

}  // namespace
}  // namespace celdora

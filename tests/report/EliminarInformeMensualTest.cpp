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
    const std::string datosAntes = Datos();
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
    EXPECT_EQ(Datos(), datosAntes);
}

TEST_F(Eliminacion, NoChangesNothingAndWithoutQuestionOrTransactionItWorksInTheCallers) {
    ui.Responder(Respuesta::No);
    EXPECT_FALSE(Eliminar(10));
    EXPECT_EQ(acc.LastErrorDescript, "");
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

TEST_F(Eliminacion, AFailureGivesItsTextAndAnOpenQueryLeavesTheTransactionOpen) {
    SoloLectura("ut_CFDBitacora");
    ui.Responder(Respuesta::Si);
    EXPECT_FALSE(Eliminar(10));
    EXPECT_EQ(acc.LastErrorDescript, "Error 1 (cannot modify ut_CFDBitacora because it is a view)");
    EXPECT_EQ(Estado(), (Textos{kPregunta, "llamadas: Iniciar Revertir", testing::kReportadosDemo, kInformesDemo}));

    // A query that cannot be opened begins a second time and leaves the deletion
    // waiting in the open transaction; whoever ends it decides.
    db.Ejecutar("ALTER TABLE ut_CFD RENAME TO ut_CFD_filas");
    dataObjects->llamadas.clear();
    ui.Responder(Respuesta::Si);
    EXPECT_FALSE(Eliminar(10));
    EXPECT_EQ(acc.LastErrorDescript, "Imposible continuar. Error de acceso a base de datos.");
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Iniciar"}));
    EXPECT_EQ(Informes(), "1 9/2026 1EKU9003173C9092026");
    EXPECT_EQ(db.dataObjects->RevertirTransaccion(0), Variant(true));
    EXPECT_EQ(Informes(), kInformesDemo);
}

// --- Through the automation table -------------------------------------------

TEST_F(Eliminacion, TheReportMembersTakeTheirSlotsWithTheirArgumentsByReference) {
    struct Esperado {
        const char* miembro;
        int ranura;
        Textos argumentos;
        std::vector<Variant> omisiones;  // Empty for a required argument
    };
    const Esperado esperados[] = {
        {"GenerarInformeMensual", 16, {"mes", "anio", "boBloquear"}, {Variant(-1), Variant(-1), Variant(false)}},
        {"VerInformesMensuales", 17, {"permitirRegenerar", "PermitirEliminar"}, {Variant(true), Variant(true)}},
        {"EliminarInformeMensual", 28, {"mes", "anio", "WithTrans", "boAsk"},
         {Variant(), Variant(), Variant(true), Variant(true)}},
    };
    for (const auto& e : esperados) {
        SCOPED_TRACE(e.miembro);
        const dispatch::Miembro* m = dispatch::Buscar("cAcction", e.miembro);
        ASSERT_NE(m, nullptr);
        EXPECT_EQ(m->ranura, e.ranura);
        ASSERT_EQ(m->argumentos.size(), e.argumentos.size());
        for (std::size_t i = 0; i < e.argumentos.size(); ++i) {
            const auto& arg = m->argumentos[i];
            EXPECT_EQ(arg.nombre, e.argumentos[i]);
            EXPECT_TRUE(arg.porReferencia) << arg.nombre;
            EXPECT_EQ(arg.opcional, !e.omisiones[i].IsEmpty()) << arg.nombre;
            EXPECT_EQ(arg.opcional ? arg.omision : Variant(), e.omisiones[i]) << arg.nombre;
        }
    }
    EXPECT_EQ(dispatch::Buscar("cAcction", "GenerarInformeMensual")->argumentos[0].tipo, dispatch::Tipo::I16);
    EXPECT_EQ(dispatch::Buscar("cAcction", "VerInformesMensuales")->resultado, dispatch::Tipo::Ninguno);
}

TEST_F(Eliminacion, ByNameTheArgumentsComeBackConvertedAndTheDefaultsAsk) {
    ui.Responder(Respuesta::Si);
    std::vector<Variant> argumentos{Variant("10"), Variant(2026.0)};
    EXPECT_EQ(dispatch::Invocar(acc, "EliminarInformeMensual", argumentos), Variant(true));
    // By reference: the caller's values come back as the member's kinds.
    EXPECT_EQ(argumentos, (std::vector<Variant>{Variant::Integer(10), Variant::Integer(2026)}));
    EXPECT_EQ(Estado(), (Textos{kPregunta, "llamadas: Iniciar Confirmar", "00000000", "1 9/2026 1EKU9003173C9092026"}));
}

}  // namespace
}  // namespace celdora

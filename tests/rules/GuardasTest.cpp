// Guards and deletes of certificates, folio ranges and CBB ranges on the demo
// company: certificate 1 seals folio ranges 1 to 3, certificate 2 the CFDI
// comprobantes 3 and 7, certificate 3 is used by nothing; ranges 1 and 2
// have comprobantes, range 3 has none.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/cAcction.h"
#include "platform/common/ConexionMotor.h"
#include "platform/common/DataObjectsMotor.h"
#include "platform/common/Motor.h"
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

using Llamadas = std::vector<std::string>;

using testing::DataObjectsAnotados;

// The company's engine seen as a server of another dialect: of the three
// dialect probes it understands only its own, and every statement it is
// given is noted. All other statements go to the company's engine.
enum class Dialecto { Ninguno, Access, MySql, SqlServer };

class MotorDeOtroDialecto : public platform::Motor {
public:
    MotorDeOtroDialecto(platform::Motor& real, Dialecto dialecto) : real_(real), dialecto_(dialecto) {}

    bool Abierto() const override { return real_.Abierto(); }
    void Cerrar() override {}
    platform::Resultado Ejecutar(const std::string& sql, const std::vector<Variant>& parametros) override {
        sentencias.push_back(sql);
        if (sql == "Select UUID() as GUID;") return Sonda(dialecto_ == Dialecto::MySql);
        if (sql == "SELECT NEWID() as sGUID;") return Sonda(dialecto_ == Dialecto::SqlServer);
        if (sql == "Select cbool(-1) as Valor;") return Sonda(dialecto_ == Dialecto::Access);
        return real_.Ejecutar(sql, parametros);
    }
    std::int64_t UltimaClave() override { return real_.UltimaClave(); }
    std::vector<std::string> ClavePrimaria(const std::string& tabla) override { return real_.ClavePrimaria(tabla); }
    void IniciarTransaccion() override { real_.IniciarTransaccion(); }
    void ConfirmarTransaccion() override { real_.ConfirmarTransaccion(); }
    void RevertirTransaccion() override { real_.RevertirTransaccion(); }
    bool EnTransaccion() const override { return real_.EnTransaccion(); }

    std::vector<std::string> sentencias;

private:
    platform::Resultado Sonda(bool entiende) {
        if (!entiende) throw Fault{1, "no such function"};
        return real_.Ejecutar("SELECT 1 AS Valor", {});
    }

    platform::Motor& real_;
    Dialecto dialecto_;
};

const std::string kNoSePuedeConFacturas =
    "No se puede eliminar el elemento porque ya existen Facturas electrónicas generadas con este registro.";
const std::string kPreguntaEliminar = "¿Está seguro que desea eliminar el elemento indicado?";

class Guardas : public ::testing::Test {
protected:
    TestPlatform platform;
    CompanyDatabase db{CompanyDatabase::Datos::Demo};
    std::shared_ptr<DataObjectsAnotados> dataObjects = std::make_shared<DataObjectsAnotados>(db.dataObjects);
    cAcction acc;
    MotorDeOtroDialecto* motor = nullptr;

    void SetUp() override { acc.SetDataObjects(dataObjects, nullptr); }

    // Binds the facade to the company through a server of another dialect.
    void EnDialecto(Dialecto dialecto) {
        auto propio = std::make_unique<MotorDeOtroDialecto>(db.cnn->motor(), dialecto);
        motor = propio.get();
        auto conexion = std::make_shared<platform::ConexionMotor>(std::move(propio));
        acc.SetDataObjects(std::make_shared<platform::DataObjectsMotor>(conexion), nullptr);
        motor->sentencias.clear();
    }

    bool Emitido(const std::string& sentencia) const {
        for (const auto& s : motor->sentencias)
            if (s == sentencia) return true;
        return false;
    }

    void ExpectCajaDeAviso(const testing::Caja& caja, const std::string& texto) {
        EXPECT_EQ(caja.texto, texto);
        EXPECT_EQ(caja.icono, Icono::Exclamacion);
        EXPECT_EQ(caja.botones, Botones::Aceptar);
        EXPECT_EQ(caja.titulo, "");
    }
    void ExpectPregunta(const testing::Caja& caja) {
        EXPECT_EQ(caja.texto, kPreguntaEliminar);
        EXPECT_EQ(caja.icono, Icono::Pregunta);
        EXPECT_EQ(caja.botones, Botones::SiNo);
        EXPECT_EQ(caja.titulo, "");
    }
};

// --- PosibleModificarAprobacionFolios and PosibleModificarCertificado --------

TEST_F(Guardas, PosibleModificarAprobacionFoliosIsTrueOnlyWhenSureNoComprobanteUsesTheRange) {
    EXPECT_FALSE(acc.PosibleModificarAprobacionFolios(1));
    EXPECT_TRUE(acc.PosibleModificarAprobacionFolios(3));
    db.cnn->Close();
    EXPECT_FALSE(acc.PosibleModificarAprobacionFolios(3));
}

TEST_F(Guardas, PosibleModificarCertificadoLooksThroughTheRangeOrDirectly) {
    EXPECT_FALSE(acc.PosibleModificarCertificado(1));  // comprobantes through its folio ranges
    EXPECT_FALSE(acc.PosibleModificarCertificado(2));  // CFDI comprobantes sealed with it
    EXPECT_TRUE(acc.PosibleModificarCertificado(3));
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

TEST_F(Guardas, PosibleModificarCertificadoWritesTheMySqlFormsOnMySql) {
    EnDialecto(Dialecto::MySql);
    EXPECT_FALSE(acc.PosibleModificarCertificado(1));
    EXPECT_TRUE(Emitido("SELECT ut_CFD.Sys_PK FROM ut_CFD INNER JOIN (ut_CFDFolio INNER JOIN ut_CFDInfo ON "
                        "ut_CFDFolio.uf_CFDInfo=ut_CFDInfo.Sys_PK) ON ut_CFD.uf_CFDFolio=ut_CFDFolio.Sys_PK WHERE "
                        "ut_CFDInfo.Sys_PK=1 LIMIT 1"));

    motor->sentencias.clear();
    EXPECT_FALSE(acc.PosibleModificarCertificado(2));
    EXPECT_TRUE(Emitido("SELECT ut_CFD.Sys_PK FROM ut_CFD INNER JOIN ut_CFDInfo ON "
                        "ut_CFD.uf_CFDI_Info=ut_CFDInfo.Sys_PK WHERE ut_CFDInfo.Sys_PK=2 LIMIT 1"));
}

TEST_F(Guardas, PosibleModificarCertificadoWritesTheTopFormOnAccessAndSqlServer) {
    // The company's engine does not understand TOP, so the answer is false.
    EnDialecto(Dialecto::Access);
    EXPECT_FALSE(acc.PosibleModificarCertificado(3));
    EXPECT_TRUE(Emitido("SELECT TOP 1 ut_CFD.Sys_PK FROM ut_CFD INNER JOIN ut_CFDInfo ON "
                        "ut_CFD.uf_CFDI_Info=ut_CFDInfo.Sys_PK WHERE ut_CFDInfo.Sys_PK=3"));

    EnDialecto(Dialecto::SqlServer);
    EXPECT_FALSE(acc.PosibleModificarCertificado(1));
    EXPECT_TRUE(Emitido("SELECT TOP 1 ut_CFD.Sys_PK FROM ut_CFD INNER JOIN (ut_CFDFolio INNER JOIN ut_CFDInfo ON "
                        "ut_CFDFolio.uf_CFDInfo=ut_CFDInfo.Sys_PK) ON ut_CFD.uf_CFDFolio=ut_CFDFolio.Sys_PK WHERE "
                        "ut_CFDInfo.Sys_PK=1"));
}

TEST_F(Guardas, PosibleModificarCertificadoIsFalseOnAnUnknownDialect) {
    // GIVEN a server that answers none of the probes
    EnDialecto(Dialecto::Ninguno);
    // WHEN the unused certificate is asked about THEN the empty statement does not open
    EXPECT_FALSE(acc.PosibleModificarCertificado(3));
    for (const auto& s : motor->sentencias) EXPECT_EQ(s.find("ut_CFD.Sys_PK"), std::string::npos) << s;
}

// --- EliminarAprobacionFolios ------------------------------------------------

TEST_F(Guardas, EliminarAprobacionFoliosWithoutQuestionFreesItsBlocksAndDeletesTheRange) {
    // GIVEN range 3, without comprobantes, ties block 6 as fiscal
    db.Ejecutar("UPDATE BlockDocumentos SET uf_CFDFolio=3, Fiscal=1 WHERE Sys_PK=6");

    EXPECT_TRUE(acc.EliminarAprobacionFolios(3, /*boAsk=*/false));

    EXPECT_TRUE(platform.ui.Cajas().empty());
    EXPECT_EQ(dataObjects->llamadas, (Llamadas{"Iniciar", "Confirmar"}));
    EXPECT_EQ(db.Contar("ut_CFDFolio WHERE Sys_PK=3"), 0);
    EXPECT_EQ(db.Contar("BlockDocumentos WHERE Sys_PK=6 AND uf_CFDFolio IS NULL AND Fiscal=0"), 1);
    EXPECT_EQ(db.Contar("BlockDocumentos WHERE Sys_PK=1 AND uf_CFDFolio=1 AND Fiscal=1"), 1);
}

TEST_F(Guardas, EliminarAprobacionFoliosRefusesARangeWithComprobantesBeforeAnyQuestion) {
    EXPECT_FALSE(acc.EliminarAprobacionFolios(1));
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    ExpectCajaDeAviso(platform.ui.Cajas()[0],
                      "No se puede eliminar el elemento porque ya existen Facturas electrónicas generadas con el "
                      "rango de folios seleccionado.");
    EXPECT_TRUE(dataObjects->llamadas.empty());
    EXPECT_EQ(db.Contar("ut_CFDFolio WHERE Sys_PK=1"), 1);
}

TEST_F(Guardas, EliminarAprobacionFoliosAsksAndANoLeavesEverything) {
    platform.ui.Responder(Respuesta::No);
    EXPECT_FALSE(acc.EliminarAprobacionFolios(3));
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    ExpectPregunta(platform.ui.Cajas()[0]);
    EXPECT_TRUE(dataObjects->llamadas.empty());
    EXPECT_EQ(db.Contar("ut_CFDFolio WHERE Sys_PK=3"), 1);
}

TEST_F(Guardas, EliminarAprobacionFoliosRollsBackTheFreedBlocksWhenTheDeleteFails) {
    // GIVEN block 6 tied to range 3, and ranges that can be read but not deleted
    db.Ejecutar("UPDATE BlockDocumentos SET uf_CFDFolio=3, Fiscal=1 WHERE Sys_PK=6");
    db.Ejecutar("ALTER TABLE ut_CFDFolio RENAME TO ut_CFDFolio_filas");
    db.Ejecutar("CREATE VIEW ut_CFDFolio AS SELECT * FROM ut_CFDFolio_filas");

    EXPECT_FALSE(acc.EliminarAprobacionFolios(3, false));

    EXPECT_EQ(dataObjects->llamadas, (Llamadas{"Iniciar", "Revertir"}));
    EXPECT_EQ(db.Contar("BlockDocumentos WHERE Sys_PK=6 AND uf_CFDFolio=3 AND Fiscal=1"), 1);
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    ExpectCajaDeAviso(platform.ui.Cajas()[0], "Error 1 (cannot modify ut_CFDFolio because it is a view)");
}

TEST_F(Guardas, EliminarAprobacionFoliosRollsBackAlsoWhenItsBeginFailed) {
    dataObjects->fallarAlIniciar = true;
    EXPECT_FALSE(acc.EliminarAprobacionFolios(3, false));
    EXPECT_EQ(dataObjects->llamadas, (Llamadas{"Iniciar", "Revertir"}));
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    ExpectCajaDeAviso(platform.ui.Cajas()[0], "Error -2147168242 (No se pudo iniciar la transacción.)");
    EXPECT_EQ(db.Contar("ut_CFDFolio WHERE Sys_PK=3"), 1);
}

// --- EliminarCertificado -----------------------------------------------------

TEST_F(Guardas, EliminarCertificadoAsksThenDeletesAnUnusedCertificateAndLeavesItsBlocks) {
    db.Ejecutar("UPDATE BlockDocumentos SET uf_CFDI_Info=3 WHERE Sys_PK=6");
    platform.ui.Responder(Respuesta::No);
    platform.ui.Responder(Respuesta::Si);

    EXPECT_FALSE(acc.EliminarCertificado(3));
    EXPECT_EQ(db.Contar("ut_CFDInfo WHERE Sys_PK=3"), 1);
    EXPECT_TRUE(acc.EliminarCertificado(3));

    ASSERT_EQ(platform.ui.Cajas().size(), 2u);
    ExpectPregunta(platform.ui.Cajas()[1]);
    EXPECT_EQ(db.Contar("ut_CFDInfo WHERE Sys_PK=3"), 0);
    EXPECT_EQ(db.Contar("BlockDocumentos WHERE Sys_PK=6 AND uf_CFDI_Info=3"), 1);
    EXPECT_TRUE(dataObjects->llamadas.empty());
}

TEST_F(Guardas, EliminarCertificadoRefusesForComprobantesBeforeLookingAtRanges) {
    // Certificate 1 has both folio ranges and comprobantes through them.
    EXPECT_FALSE(acc.EliminarCertificado(1, false));
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    ExpectCajaDeAviso(platform.ui.Cajas()[0], kNoSePuedeConFacturas);
    EXPECT_EQ(db.Contar("ut_CFDInfo WHERE Sys_PK=1"), 1);
}

TEST_F(Guardas, EliminarCertificadoWithARangeButNoComprobanteAsksToDeleteTheRangeFirst) {
    db.Ejecutar("UPDATE ut_CFDFolio SET uf_CFDInfo=3 WHERE Sys_PK=3");
    EXPECT_FALSE(acc.EliminarCertificado(3, false));
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    ExpectCajaDeAviso(platform.ui.Cajas()[0],
                      "No se puede eliminar el elemento. Primero elimine el número de aprobación del rango de "
                      "folios.");
    EXPECT_EQ(db.Contar("ut_CFDInfo WHERE Sys_PK=3"), 1);
}

TEST_F(Guardas, EliminarCertificadoRefusesOnAnUnknownDialect) {
    EnDialecto(Dialecto::Ninguno);
    EXPECT_FALSE(acc.EliminarCertificado(3, false));
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    ExpectCajaDeAviso(platform.ui.Cajas()[0], kNoSePuedeConFacturas);
    EXPECT_EQ(db.Contar("ut_CFDInfo WHERE Sys_PK=3"), 1);
}

// --- EliminarFoliosCBB -------------------------------------------------------

TEST_F(Guardas, EliminarFoliosCBBAlwaysAsksAndDeletesOnYes) {
    platform.ui.Responder(Respuesta::No);
    EXPECT_FALSE(acc.EliminarFoliosCBB(1));
    EXPECT_EQ(db.Contar("ut_FoliosCBB WHERE Sys_PK=1"), 1);

    platform.ui.Responder(Respuesta::Si);
    EXPECT_TRUE(acc.EliminarFoliosCBB(1));
    EXPECT_EQ(db.Contar("ut_FoliosCBB"), 1);
    EXPECT_EQ(db.Contar("ut_FoliosCBB WHERE Sys_PK=2"), 1);

    ASSERT_EQ(platform.ui.Cajas().size(), 2u);
    ExpectPregunta(platform.ui.Cajas()[0]);
    ExpectPregunta(platform.ui.Cajas()[1]);
}

TEST_F(Guardas, EliminarFoliosCBBShowsTheFailureWhenTheFacadeHasNoDataObject) {
    cAcction sinDatos;
    sinDatos.setObjects(db.cnn, nullptr);
    platform.ui.Responder(Respuesta::Si);

    EXPECT_FALSE(sinDatos.EliminarFoliosCBB(1));

    ASSERT_EQ(platform.ui.Cajas().size(), 2u);
    ExpectCajaDeAviso(platform.ui.Cajas()[1], ErrorText(ObjectNotSet()));
    EXPECT_EQ(db.Contar("ut_FoliosCBB WHERE Sys_PK=1"), 1);
}

}  // namespace
}  // namespace celdora

// Guards and deletes of certificates, folio ranges and CBB ranges on the demo
// company: certificate 1 seals folio ranges 1 to 3, certificate 2 the CFDI
// comprobantes 3 and 7, certificate 3 is used by nothing; ranges 1 and 2
// have comprobantes, range 3 has none. The behaviour suite asserts the
// certificate guard in the dialect of the company's own engine, and a range
// deleted without question.

#include "platform/common/ConexionMotor.h"
#include "platform/common/DataObjectsMotor.h"
#include "tests/support/FachadaDemo.h"
#include "tests/support/MotorDeOtroDialecto.h"

namespace celdora {
namespace {

using host::Icono;
using host::Respuesta;
using testing::Dialecto;
using testing::Textos;

const std::string kPreguntaEliminar = "¿Está seguro que desea eliminar el elemento indicado?";

class Guardas : public testing::FachadaDemo {
protected:
    testing::MotorDeOtroDialecto* motor = nullptr;

    // Binds the facade to the company through a server of another dialect.
    void EnDialecto(Dialecto dialecto) {
        auto propio = std::make_unique<testing::MotorDeOtroDialecto>(db.cnn->motor(), dialecto);
        motor = propio.get();
        auto conexion = std::make_shared<platform::ConexionMotor>(std::move(propio));
        acc.SetDataObjects(std::make_shared<platform::DataObjectsMotor>(conexion), nullptr);
    }
};

TEST_F(Guardas, PosibleModificarAprobacionFoliosIsTrueOnlyWhenSureNoComprobanteUsesTheRange) {
    EXPECT_FALSE(acc.PosibleModificarAprobacionFolios(1));
    EXPECT_TRUE(acc.PosibleModificarAprobacionFolios(3));
    db.cnn->Close();
    EXPECT_FALSE(acc.PosibleModificarAprobacionFolios(3));
    EXPECT_TRUE(SinCajas());
}

// The company's engine does not understand TOP, so every answer is false; a
// server that answers none of the probes gets no statement at all.
TEST_F(Guardas, PosibleModificarCertificadoWritesTheFormOfEachDialect) {
    const struct {
        Dialecto dialecto;
        int certificado;
        std::string sentencia;
    } casos[] = {
        {Dialecto::Access, 3, "SELECT TOP 1 ut_CFD.Sys_PK FROM ut_CFD INNER JOIN ut_CFDInfo ON "
                              "ut_CFD.uf_CFDI_Info=ut_CFDInfo.Sys_PK WHERE ut_CFDInfo.Sys_PK=3"},
        {Dialecto::SqlServer, 1, "SELECT TOP 1 ut_CFD.Sys_PK FROM ut_CFD INNER JOIN (ut_CFDFolio INNER JOIN ut_CFDInfo "
                                 "ON ut_CFDFolio.uf_CFDInfo=ut_CFDInfo.Sys_PK) ON "
                                 "ut_CFD.uf_CFDFolio=ut_CFDFolio.Sys_PK WHERE ut_CFDInfo.Sys_PK=1"},
        {Dialecto::Ninguno, 3, ""},
    };
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.sentencia);
        EnDialecto(caso.dialecto);
        EXPECT_FALSE(acc.PosibleModificarCertificado(caso.certificado));
        EXPECT_EQ(motor->sentencias.back(), caso.sentencia);
    }
}

// A range with comprobantes is refused before any question; a No leaves
// everything; a delete that fails undoes the blocks it freed.
TEST_F(Guardas, EliminarAprobacionFoliosRefusesAsksAndRollsBack) {
    EXPECT_FALSE(acc.EliminarAprobacionFolios(1));
    platform.ui.Responder(Respuesta::No);
    EXPECT_FALSE(acc.EliminarAprobacionFolios(3));
    EXPECT_TRUE(dataObjects->llamadas.empty());

    db.Ejecutar("UPDATE BlockDocumentos SET uf_CFDFolio=3, Fiscal=1 WHERE Sys_PK=6");
    db.Ejecutar("ALTER TABLE ut_CFDFolio RENAME TO ut_CFDFolio_filas");  // ranges read but are not deleted
    db.Ejecutar("CREATE VIEW ut_CFDFolio AS SELECT * FROM ut_CFDFolio_filas");
    EXPECT_FALSE(acc.EliminarAprobacionFolios(3, false));
    EXPECT_EQ(dataObjects->llamadas, (Textos{"Iniciar", "Revertir"}));
    EXPECT_EQ(db.Contar("BlockDocumentos WHERE Sys_PK=6 AND uf_CFDFolio=3 AND Fiscal=1"), 1);
    EXPECT_EQ(db.Contar("ut_CFDFolio WHERE Sys_PK IN (1, 3)"), 2);

    ASSERT_EQ(platform.ui.Cajas().size(), 3u);
    platform.ui.ExpectCaja(0, "No se puede eliminar el elemento porque ya existen Facturas electrónicas generadas con "
                              "el rango de folios seleccionado.", Icono::Exclamacion);
    platform.ui.ExpectPregunta(1, kPreguntaEliminar);
    platform.ui.ExpectCaja(2, "Error 1 (cannot modify ut_CFDFolio because it is a view)", Icono::Exclamacion);
}

// Comprobantes are looked for before ranges (certificate 1 has both), and a
// server of no known dialect cannot tell, so it refuses as for comprobantes;
// a range without comprobantes must be deleted first. An unused certificate
// is deleted on Yes, without transaction, and its blocks stay as they are.
TEST_F(Guardas, EliminarCertificadoRefusesForComprobantesOrARangeAndAsksBeforeDeleting) {
    EXPECT_FALSE(acc.EliminarCertificado(1, false));
    EnDialecto(Dialecto::Ninguno);
    EXPECT_FALSE(acc.EliminarCertificado(3, false));
    SetUp();
    db.Ejecutar("UPDATE ut_CFDFolio SET uf_CFDInfo=3 WHERE Sys_PK=3");
    EXPECT_FALSE(acc.EliminarCertificado(3, false));
    db.Ejecutar("UPDATE ut_CFDFolio SET uf_CFDInfo=1 WHERE Sys_PK=3");
    db.Ejecutar("UPDATE BlockDocumentos SET uf_CFDI_Info=3 WHERE Sys_PK=6");
    platform.ui.Responder(Respuesta::No);
    EXPECT_FALSE(acc.EliminarCertificado(3));
    EXPECT_EQ(db.Contar("ut_CFDInfo WHERE Sys_PK IN (1, 3)"), 2);
    platform.ui.Responder(Respuesta::Si);
    EXPECT_TRUE(acc.EliminarCertificado(3));
    EXPECT_EQ(db.Contar("ut_CFDInfo WHERE Sys_PK IN (1, 3)"), 1);
    EXPECT_EQ(db.Contar("BlockDocumentos WHERE Sys_PK=6 AND uf_CFDI_Info=3"), 1);
    EXPECT_TRUE(dataObjects->llamadas.empty());

    const std::string conFacturas =
        "No se puede eliminar el elemento porque ya existen Facturas electrónicas generadas con este registro.";
    ASSERT_EQ(platform.ui.Cajas().size(), 5u);
    platform.ui.ExpectCaja(0, conFacturas, Icono::Exclamacion);
    platform.ui.ExpectCaja(1, conFacturas, Icono::Exclamacion);
    platform.ui.ExpectCaja(2, "No se puede eliminar el elemento. Primero elimine el número de aprobación del rango "
                              "de folios.", Icono::Exclamacion);
    for (std::size_t i : {3u, 4u}) platform.ui.ExpectPregunta(i, kPreguntaEliminar);
}

// Always asked; without a data object the delete fails with the failure box.
TEST_F(Guardas, EliminarFoliosCBBAsksAndDeletesOnYes) {
    platform.ui.Responder(Respuesta::No);
    EXPECT_FALSE(acc.EliminarFoliosCBB(1));
    cAcction sinDatos;
    sinDatos.setObjects(db.cnn, nullptr);
    platform.ui.Responder(Respuesta::Si);
    EXPECT_FALSE(sinDatos.EliminarFoliosCBB(1));
    EXPECT_EQ(db.Contar("ut_FoliosCBB WHERE Sys_PK=1"), 1);
    platform.ui.Responder(Respuesta::Si);
    EXPECT_TRUE(acc.EliminarFoliosCBB(1));
    EXPECT_EQ(Texto("SELECT group_concat(Sys_PK) FROM ut_FoliosCBB"), "2");
    ASSERT_EQ(platform.ui.Cajas().size(), 4u);
    for (std::size_t i : {0u, 1u, 3u}) platform.ui.ExpectPregunta(i, kPreguntaEliminar);
    platform.ui.ExpectCaja(2, ErrorText(ObjectNotSet()), Icono::Exclamacion);
}

}  // namespace
}  // namespace celdora

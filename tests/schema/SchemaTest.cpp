// The SQLite schema held against what the row writer expects of it; the demo
// company's data is held on every engine in tests/integration.

#include <gtest/gtest.h>

#include "host/Dorvex.h"
#include "tests/support/CompanyFixture.h"
#include "tests/support/TestPlatform.h"
#include "value/Convert.h"

namespace celdora {
namespace {

TEST(CompanySchema, RowWriterGetsTheDatabasesRefusalOfOverlongFieldsAndAReportIsKeptWhole) {
    testing::TestPlatform platform;
    testing::CompanyDatabase db;
    auto registro = host::Crear<host::cRegistro>(host::progid::cRegistro);
    ASSERT_TRUE(registro);
    registro->Conexion(db.dataObjects->ADOCnn());
    registro->Tabla("ut_CFDInfo");
    registro->Nuevo();
    for (const auto& [nombre, valor, tamano] : {std::tuple{"uf_noCertificado", "300010000005000034160", 20},
                                                 std::tuple{"uf_Certificado", "/tmp/sello.cer", 4096}}) {
        auto campo = host::Crear<host::cCampo>(host::progid::cCampo);
        campo->Tipo("String");
        campo->Nombre(nombre);
        campo->ValorInicial(Variant());
        campo->Valor(valor);
        campo->Requerido(false);
        campo->Reservado(0);
        campo->Tamano(tamano);
        campo->NombreColumna(nombre);
        registro->Campos().Add(campo, nombre);
    }
    // 21 digits where the column holds 20: the writer passes it on whole and
    // the database refuses it; so it does 4097 characters of a certificate.
    EXPECT_FALSE(registro->Guardar());
    EXPECT_NE(registro->UltimoError().find("CHECK constraint failed"), std::string::npos) << registro->UltimoError();
    EXPECT_NE(registro->UltimoError().find("uf_noCertificado"), std::string::npos) << registro->UltimoError();
    registro->Campos().Item("uf_noCertificado")->Valor("30001000000500003416");
    registro->Campos().Item("uf_Certificado")->Valor(std::string(4097, 'c'));
    EXPECT_FALSE(registro->Guardar());
    EXPECT_NE(registro->UltimoError().find("uf_Certificado"), std::string::npos) << registro->UltimoError();
    EXPECT_EQ(db.Contar("ut_CFDInfo"), 0);

    registro->Campos().Item("uf_Certificado")->Valor("/tmp/sello.cer");
    ASSERT_TRUE(registro->Guardar()) << registro->UltimoError();
    EXPECT_GE(registro->Clave(), 1);
    EXPECT_EQ(CStr(db.Valor("SELECT uf_noCertificado FROM ut_CFDInfo WHERE Sys_PK=" +
                            std::to_string(registro->Clave()))),
              "30001000000500003416");

    std::string contenido;
    while (contenido.size() < 200000)
        contenido += (contenido.empty() ? "" : "\r\n") +
                     std::string("|XAXX010101000|A|1|201012345|2026-11-05 10:00:00|1160.00|160.00|1|I||||");
    db.cnn->motor().Ejecutar("INSERT INTO ut_CFDInforme (uf_Nombre, uf_Contenido, uf_Mes, uf_Anio, uf_Fecha) VALUES "
                             "('1EKU9003173C9112026', ?, 11, 2026, '2026-12-01 09:00:00')",
                             {Variant(contenido)});
    EXPECT_EQ(CStr(db.Valor("SELECT uf_Contenido FROM ut_CFDInforme")), contenido);
}

}  // namespace
}  // namespace celdora

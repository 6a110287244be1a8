// The SQLite schema held against what the row writer expects of it; the demo
// company's data, and long texts, are held on every engine in
// tests/integration and tests/platform/common.

#include <gtest/gtest.h>

#include "host/Dorvex.h"
#include "tests/support/CompanyFixture.h"
#include "tests/support/TestPlatform.h"

namespace celdora {
namespace {

TEST(CompanySchema, RowWriterGetsTheDatabasesRefusalOfOverlongFields) {
    testing::TestPlatform platform;
    testing::CompanyDatabase db;
    auto registro = host::Crear<host::cRegistro>(host::progid::cRegistro);
    registro->Conexion(db.dataObjects->ADOCnn());
    registro->Tabla("ut_CFDInfo");
    registro->Nuevo();
    for (const auto& [nombre, valor, tamano] : {std::tuple{"uf_noCertificado", "300010000005000034160", 20},
                                                 std::tuple{"uf_Certificado", "/tmp/sello.cer", 4096}}) {
        auto campo = host::Crear<host::cCampo>(host::progid::cCampo);
        campo->Tipo("String");
        campo->Nombre(nombre);
        campo->Valor(valor);
        campo->Tamano(tamano);
        campo->NombreColumna(nombre);
        registro->Campos().Add(campo, nombre);
    }
    // 21 digits where the column holds 20: the writer passes it on whole and
    // the database refuses it; so it does 4097 characters of a certificate.
    EXPECT_FALSE(registro->Guardar());
    EXPECT_NE(registro->UltimoError().find("CHECK constraint failed"), std::string::npos) << registro->UltimoError();
    registro->Campos().Item("uf_noCertificado")->Valor("30001000000500003416");
    registro->Campos().Item("uf_Certificado")->Valor(std::string(4097, 'c'));
    EXPECT_FALSE(registro->Guardar());
    EXPECT_NE(registro->UltimoError().find("uf_Certificado"), std::string::npos) << registro->UltimoError();
    EXPECT_EQ(db.Contar("ut_CFDInfo"), 0);
}

}  // namespace
}  // namespace celdora

// The SQLite schema and the demo company, held against what the system and
// the row writer expect of them.

#include <gtest/gtest.h>

#include <algorithm>

#include "core/mdlMain.h"
#include "host/Dorvex.h"
#include "host/Settings.h"
#include "tests/support/CompanyFixture.h"
#include "tests/support/TestPlatform.h"
#include "value/Convert.h"

namespace celdora {
namespace {

using testing::CompanyDatabase;
using testing::TestPlatform;

std::shared_ptr<host::cCampo> Campo(const std::string& nombre, const std::string& tipo, const Variant& valor,
                                    int tamano) {
    auto campo = host::Crear<host::cCampo>(host::progid::cCampo);
    campo->Tipo(tipo);
    campo->Nombre(nombre);
    campo->ValorInicial(Variant());
    campo->Valor(valor);
    campo->Requerido(false);
    campo->Reservado(0);
    campo->Tamano(tamano);
    campo->NombreColumna(nombre);
    return campo;
}

TEST(CompanySchema, RowWriterRefusesAnOverlongCertificateNumberWithTheDatabasesMessage) {
    TestPlatform platform;
    CompanyDatabase db;
    auto registro = host::Crear<host::cRegistro>(host::progid::cRegistro);
    ASSERT_TRUE(registro);
    registro->Conexion(db.dataObjects->ADOCnn());
    registro->Tabla("ut_CFDInfo");
    registro->Nuevo();
    // 21 digits where the column holds 20: the writer passes it on whole and
    // the database refuses it.
    registro->Campos().Add(Campo("uf_noCertificado", "String", "300010000005000034160", 20), "uf_noCertificado");
    registro->Campos().Add(Campo("uf_Certificado", "String", "/tmp/sello.cer", 4096), "uf_Certificado");

    EXPECT_FALSE(registro->Guardar());
    EXPECT_NE(registro->UltimoError().find("CHECK constraint failed"), std::string::npos) << registro->UltimoError();
    EXPECT_NE(registro->UltimoError().find("uf_noCertificado"), std::string::npos) << registro->UltimoError();
    EXPECT_EQ(db.Contar("ut_CFDInfo"), 0);

    registro->Campos().Item("uf_noCertificado")->Valor("30001000000500003416");
    ASSERT_TRUE(registro->Guardar()) << registro->UltimoError();
    EXPECT_GE(registro->Clave(), 1);
    EXPECT_EQ(CStr(db.Valor("SELECT uf_noCertificado FROM ut_CFDInfo WHERE Sys_PK=" +
                            std::to_string(registro->Clave()))),
              "30001000000500003416");
}

TEST(CompanySchema, StoredReportTakesAnyRealisticSizeWhole) {
    TestPlatform platform;
    CompanyDatabase db;
    std::string linea = "|XAXX010101000|A|1|201012345|2026-11-05 10:00:00|1160.00|160.00|1|I||||";
    std::string contenido;
    while (contenido.size() < 200000) contenido += (contenido.empty() ? "" : "\r\n") + linea;
    db.cnn->motor().Ejecutar("INSERT INTO ut_CFDInforme (uf_Nombre, uf_Contenido, uf_Mes, uf_Anio, uf_Fecha) VALUES "
                             "('1EKU9003173C9112026', ?, 11, 2026, '2026-12-01 09:00:00')",
                             {Variant(contenido)});
    EXPECT_EQ(CStr(db.Valor("SELECT uf_Contenido FROM ut_CFDInforme")), contenido);
}

TEST(DemoCompany, AnswersTheStatementsTheDocumentRulesRestOn) {
    TestPlatform platform;
    CompanyDatabase db(CompanyDatabase::Datos::Demo);

    // Comprobantes of each month through the dialect functions of the engine.
    EXPECT_EQ(CLng(mdlMain::LeerValorConsulta(
                  db.cnn, "SELECT Count(Sys_PK) AS n FROM ut_CFD WHERE Year(uf_FechaHora)=2026 AND "
                          "Month(uf_FechaHora)=11", "n")),
              4);
    // Sale 1 has a comprobante, sale 5 has none.
    EXPECT_GT(CLng(mdlMain::LeerValorConsulta(db.cnn, "SELECT Sys_PK FROM ut_CFD WHERE uf_IVenta=1", "")), 0);
    EXPECT_TRUE(mdlMain::LeerValorConsulta(db.cnn, "SELECT Sys_PK FROM ut_CFD WHERE uf_IVenta=5", "").IsEmpty());
    // Every log line has the twelve fields between bars.
    auto rs = mdlMain::AbrirConsulta(db.cnn, "SELECT uf_Datos FROM ut_CFDBitacora");
    ASSERT_TRUE(rs);
    int lineas = 0;
    for (; !rs->Eof(); rs->movenext(), ++lineas) {
        std::string datos = mdlMain::TextoCampo(*rs, "uf_Datos");
        EXPECT_EQ(std::count(datos.begin(), datos.end(), '|'), 13) << datos;
    }
    rs->Close();
    EXPECT_EQ(lineas, 8);
    // The October report keeps its lines apart with CR LF and nothing after the last.
    std::string informe = CStr(db.Valor("SELECT uf_Contenido FROM ut_CFDInforme WHERE uf_Mes=10"));
    EXPECT_NE(informe.find("|\r\n|"), std::string::npos);
    EXPECT_NE(informe.back(), '\n');
    // The company settings the facade reads.
    auto settings = host::Crear<host::GlobalVar>(host::progid::GlobalVar);
    settings->Conectar(db.cnn);
    EXPECT_EQ(settings->LeerTexto("NVCA101", ""), "EKU9003173C9");
    EXPECT_EQ(settings->LeerNumero("NVCA300xa", 0), 2.0);
    // A city named "(desconocido)" for the address checks.
    EXPECT_EQ(db.Contar("Ciudad WHERE Nombre='(desconocido)'"), 1);
}

}  // namespace
}  // namespace celdora

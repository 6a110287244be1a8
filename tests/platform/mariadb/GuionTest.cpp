// The schema and the demo company loaded statement by statement on the
// server, and the system's statements over them.

#include "platform/common/Guion.h"

#include <gtest/gtest.h>

#include "platform/common/cCampoSimple.h"
#include "platform/common/cRegistroMotor.h"
#include "schema/Schema.h"
#include "tests/platform/mariadb/ServidorPrueba.h"

namespace celdora::platform {
namespace {

using pruebas::FallaDe;

class GuionTest : public pruebas::ConServidor {};

TEST_F(GuionTest, RunsEachStatementAndNamesTheOneThatFails) {
    Ejecutar("DROP TABLE IF EXISTS guion");
    EjecutarGuionPorPartes(*cnn,
                           "-- the table\n"
                           "CREATE TABLE guion (a INT, b VARCHAR(10));\n"
                           "  -- a comment that ends in a semicolon;\n"
                           "INSERT INTO guion VALUES (1, '1;3');\r\n"
                           "INSERT INTO guion\n"
                           "  -- between the lines of a statement\n"
                           "  VALUES (2, 'x');\n"
                           "\n"
                           "INSERT INTO guion VALUES (3, 'sin fin')\n");
    EXPECT_EQ(Valor("SELECT Count(*) FROM guion"), Variant::Long(3));
    EXPECT_EQ(Valor("SELECT b FROM guion WHERE a=1"), Variant("1;3"));

    const Fault falla = FallaDe([&] {
        EjecutarGuionPorPartes(*cnn,
                               "INSERT INTO guion VALUES (10, 'a');\n"
                               "  INSERT INTO nada\n"
                               "  VALUES (1);\n"
                               "INSERT INTO guion VALUES (20, 'b');\n");
    });
    EXPECT_EQ(falla.number, 1146);
    EXPECT_NE(falla.description.find("nada' doesn't exist"), std::string::npos) << falla.description;
    EXPECT_NE(falla.description.find("(in the statement that begins: INSERT INTO nada)"), std::string::npos)
        << falla.description;
    EXPECT_EQ(Valor("SELECT Sum(a) FROM guion"), Variant(16.0));  // 10 ran, 20 did not

    ConexionMotor cerrada;
    EXPECT_EQ(FallaDe([&] { EjecutarGuionPorPartes(cerrada, "SELECT 1;"); }).number, 3704);
}

// A fresh database holding the schema and the demo company.
class ConEsquema : public pruebas::ConServidor {
protected:
    void SetUp() override {
        ConServidor::SetUp();
        if (IsSkipped() || HasFatalFailure()) return;
        cnn->Close();
        pruebas::ReiniciarBaseDePrueba(url, true);
        cnn = AbrirMariadb(url);
        EjecutarGuionPorPartes(*cnn, std::string(schema::EsquemaMariadb()));
        EjecutarGuionPorPartes(*cnn, std::string(schema::DatosDemo()));
    }
};

TEST_F(ConEsquema, TheSystemsStatementsFindTheirTablesWhateverTheCapitals) {
    auto bitacora = cnn->Execute("SELECT * FROM Ut_CFDBitacora");
    int filas = 0;
    for (; !bitacora->Eof(); bitacora->movenext()) ++filas;
    EXPECT_EQ(filas, 8);
    EXPECT_EQ(Valor("SELECT Count(*) FROM ut_CFDFOlio"), Variant::Long(3));
    EXPECT_EQ(Valor("SELECT Count(*) FROM DCxC"), Variant::Long(6));
    EXPECT_EQ(Valor("SELECT Count(*) FROM CCOnsumo"), Variant::Long(3));

    // The MySQL form of the certificate guard: certificate 1 seals comprobantes,
    // certificate 3 nothing.
    const std::string guarda =
        "SELECT ut_CFD.Sys_PK FROM ut_CFD INNER JOIN (ut_CFDFolio INNER JOIN ut_CFDInfo ON "
        "ut_CFDFolio.uf_CFDInfo=ut_CFDInfo.Sys_PK) ON ut_CFD.uf_CFDFolio=ut_CFDFolio.Sys_PK WHERE ut_CFDInfo.Sys_PK=";
    EXPECT_EQ(Ejecutar(guarda + "1 LIMIT 1").filas.size(), 1u);
    EXPECT_TRUE(Ejecutar(guarda + "3 LIMIT 1").filas.empty());

    EXPECT_EQ(Valor("SELECT Count(*) FROM ut_CFD WHERE Year(uf_FechaHora)=2026 AND Month(uf_FechaHora)=11"),
              Variant::Long(4));
    EXPECT_EQ(Valor("SELECT GroupID FROM UserGroup WHERE Sys_PK=12"), Variant("Auditoría"));
    const Variant informe = Valor("SELECT uf_Contenido FROM ut_CFDInforme WHERE Sys_PK=2");
    ASSERT_EQ(informe.Type(), VarType::String);
    EXPECT_NE(informe.AsString().find("\r\n"), std::string::npos);
}

class cRegistroMariadbTest : public ConEsquema {
protected:
    void Agregar(const std::string& nombre, const std::string& tipo, const Variant& valor) {
        auto campo = std::make_shared<cCampoSimple>();
        campo->Tipo(tipo);
        campo->Nombre(nombre);
        campo->NombreColumna(nombre);
        campo->Valor(valor);
        registro.Campos().Add(campo, nombre);
    }
    void Preparar(const std::string& tabla) {
        registro.Conexion(cnn);
        registro.Tabla(tabla);
        registro.Nuevo();
    }
    cRegistroMotor registro;
};

TEST_F(cRegistroMariadbTest, InsertGivesTheNewKeyAndTheServerRefusesAnOverLongText) {
    Preparar("ut_CFDInfo");
    Agregar("uf_noCertificado", "String", "30001000000500003999");
    Agregar("uf_Clave", "String", "l'clave");
    ASSERT_TRUE(registro.Guardar()) << registro.UltimoError();
    EXPECT_EQ(registro.Clave(), 4);  // the demo holds three certificates
    EXPECT_EQ(Valor("SELECT uf_Clave FROM ut_CFDInfo WHERE Sys_PK=4"), Variant("l'clave"));

    // The server runs with a lenient sql_mode; the session's strict mode is
    // what makes it refuse rather than cut the text to 20 characters.
    Preparar("ut_CFDInfo");
    Agregar("uf_noCertificado", "String", std::string(21, '1'));
    EXPECT_FALSE(registro.Guardar());
    EXPECT_NE(registro.UltimoError().find("Data too long for column 'uf_noCertificado'"), std::string::npos)
        << registro.UltimoError();
    Preparar("ut_CFDInfo");
    Agregar("uf_noCertificado", "String", "30001000000500003998");
    Agregar("uf_Certificado", "String", std::string(4097, 'c'));
    EXPECT_FALSE(registro.Guardar());
    EXPECT_NE(registro.UltimoError().find("CONSTRAINT"), std::string::npos) << registro.UltimoError();
    EXPECT_EQ(Valor("SELECT Count(*) FROM ut_CFDInfo"), Variant::Long(4));
}

TEST_F(cRegistroMariadbTest, RewritingARowWithTheValuesItHoldsStillFindsIt) {
    Preparar("ut_CFDInfo");
    registro.Campos().Item("Sys_PK")->Valor(Variant::Long(3));
    Agregar("uf_noCertificado", "String", "30001000000500003456");
    EXPECT_TRUE(registro.Guardar()) << registro.UltimoError();
    EXPECT_EQ(registro.Clave(), 3);

    Preparar("ut_CFDInfo");
    registro.Campos().Item("Sys_PK")->Valor(Variant::Long(99));
    Agregar("uf_noCertificado", "String", "1");
    EXPECT_FALSE(registro.Guardar());
    EXPECT_EQ(registro.UltimoError(), "No existe el registro 99 en la tabla ut_CFDInfo.");
}

}  // namespace
}  // namespace celdora::platform

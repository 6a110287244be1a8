#include "platform/common/cRegistroMotor.h"

#include <gtest/gtest.h>

#include "platform/common/cCampoSimple.h"
#include "tests/platform/common/Pruebas.h"
#include "value/Date.h"

namespace celdora::platform {
namespace {

using pruebas::FallaDe;

class cRegistroMotorTest : public ::testing::Test {
protected:
    pruebas::BaseEnMemoria base{R"(
        CREATE TABLE ut_CFDInfo (Sys_PK INTEGER PRIMARY KEY AUTOINCREMENT,
            uf_noCertificado VARCHAR(20) CHECK(length(uf_noCertificado)<=20),
            uf_Clave VARCHAR(4096));
        CREATE TABLE ut_FoliosCBB (Sys_PK INTEGER PRIMARY KEY AUTOINCREMENT, uf_Serie VARCHAR(10),
            uf_FolioInicial INTEGER, uf_BlockDoc SMALLINT, uf_FechaAprobacion DATETIME);
    )"};

    void Agregar(const std::string& nombre, const std::string& tipo, const Variant& valor, bool requerido = false,
                 const Variant& inicial = Variant()) {
        auto campo = std::make_shared<cCampoSimple>();
        campo->Tipo(tipo);
        campo->Nombre(nombre);
        campo->ValorInicial(inicial);
        campo->Valor(valor);
        campo->Requerido(requerido);
        campo->NombreColumna(nombre);
        registro.Campos().Add(campo, nombre);
    }

    void Preparar(const std::string& tabla) {
        registro.Conexion(base.cnn);
        registro.Tabla(tabla);
        registro.Nuevo();
    }

    cRegistroMotor registro;
};

TEST_F(cRegistroMotorTest, InsertGivesTheNewKeyInClaveAndInTheKeyField) {
    base.EjecutarGuion("INSERT INTO ut_CFDInfo (uf_noCertificado) VALUES ('previo');");
    Preparar("ut_CFDInfo");
    Agregar("uf_noCertificado", "String", "00001000000102030405", true);
    Agregar("uf_Clave", "String", "o'clave");
    ASSERT_TRUE(registro.Guardar()) << registro.UltimoError();
    EXPECT_EQ(registro.Clave(), 2);
    EXPECT_EQ(registro.Campos().Item(1)->Valor(), Variant::Long(2));
    EXPECT_EQ(registro.Campos().Item("SYS_PK")->Valor(), Variant::Long(2));
    EXPECT_EQ(base.Valor("SELECT uf_Clave FROM ut_CFDInfo WHERE Sys_PK=2"), Variant("o'clave"));
}

TEST_F(cRegistroMotorTest, TheDatabaseJudgesSizesAndItsRefusalComesBackInUltimoError) {
    Preparar("ut_CFDInfo");
    Agregar("uf_noCertificado", "String", std::string(21, '1'), true);
    EXPECT_FALSE(registro.Guardar());
    EXPECT_NE(registro.UltimoError().find("CHECK constraint failed"), std::string::npos) << registro.UltimoError();
    EXPECT_EQ(base.Valor("SELECT Count(*) FROM ut_CFDInfo"), Variant::Long(0));
    EXPECT_EQ(registro.Clave(), 0);
}

TEST_F(cRegistroMotorTest, ARequiredFieldInBlankIsRefusedWithoutTouchingTheDatabase) {
    Preparar("ut_CFDInfo");
    Agregar("uf_Clave", "String", "x");
    Agregar("uf_noCertificado", "String", "   ", true);
    EXPECT_FALSE(registro.Guardar());
    EXPECT_EQ(registro.UltimoError(), "El campo uf_noCertificado es requerido.");
    EXPECT_TRUE(base.sentencias->empty());
}

TEST_F(cRegistroMotorTest, ValuesAreConvertedByTipoAndEmptyTakesValorInicial) {
    Preparar("ut_FoliosCBB");
    Agregar("uf_Serie", "String", Variant());
    Agregar("uf_FolioInicial", "Long", "42", true);
    Agregar("uf_BlockDoc", "Integer", 3.5, true);  // rounds half to even
    Agregar("uf_FechaAprobacion", "Date", Variant(), true, Variant(MakeDate({2012, 3, 5, 7, 8, 9})));
    ASSERT_TRUE(registro.Guardar()) << registro.UltimoError();
    auto fila = base.cnn->motor().Ejecutar(
        "SELECT uf_Serie, typeof(uf_FolioInicial), uf_FolioInicial, uf_BlockDoc, CAST(uf_FechaAprobacion AS TEXT) "
        "FROM ut_FoliosCBB");
    ASSERT_EQ(fila.filas.size(), 1u);
    EXPECT_TRUE(fila.filas[0][0].IsNull());
    EXPECT_EQ(fila.filas[0][1], Variant("integer"));
    EXPECT_EQ(fila.filas[0][2], Variant::Long(42));
    EXPECT_EQ(fila.filas[0][3], Variant::Integer(4));
    EXPECT_EQ(fila.filas[0][4], Variant("2012-03-05 07:08:09"));

    Preparar("ut_FoliosCBB");
    Agregar("uf_FolioInicial", "Long", "cuarenta");
    EXPECT_FALSE(registro.Guardar());
    EXPECT_EQ(registro.UltimoError(), "Type mismatch");
}

TEST_F(cRegistroMotorTest, AKeyOfOneOrMoreUpdatesThatRow) {
    base.EjecutarGuion("INSERT INTO ut_FoliosCBB (uf_Serie, uf_FolioInicial) VALUES ('A', 1);"
                       "INSERT INTO ut_FoliosCBB (uf_Serie, uf_FolioInicial) VALUES ('B', 1);");
    Preparar("ut_FoliosCBB");
    registro.Campos().Item(1)->Valor(2);
    Agregar("uf_Serie", "String", "C");
    ASSERT_TRUE(registro.Guardar()) << registro.UltimoError();
    EXPECT_EQ(registro.Clave(), 2);
    EXPECT_EQ(base.Valor("SELECT group_concat(uf_Serie) FROM ut_FoliosCBB"), Variant("A,C"));

    registro.Campos().Item(1)->Valor(9);
    EXPECT_FALSE(registro.Guardar());
    EXPECT_FALSE(registro.UltimoError().empty());
}

TEST_F(cRegistroMotorTest, FieldCollectionIsOneBasedWithKeysInAnyCase) {
    Preparar("ut_FoliosCBB");
    Agregar("uf_Serie", "String", "A");
    EXPECT_EQ(registro.Campos().Count(), 2);
    EXPECT_EQ(registro.Campos().Item(2), registro.Campos().Item("UF_SERIE"));
    EXPECT_EQ(FallaDe([&] { Agregar("UF_serie", "String", "B"); }).number, 457);
    EXPECT_EQ(FallaDe([&] { registro.Campos().Item(3); }).number, 5);
    EXPECT_EQ(FallaDe([&] { registro.Campos().Item("nada"); }).number, 5);
    registro.Nuevo();
    EXPECT_EQ(registro.Campos().Count(), 1);
    EXPECT_EQ(registro.Campos().Item(1)->Tipo(), "Long");
}

}  // namespace
}  // namespace celdora::platform

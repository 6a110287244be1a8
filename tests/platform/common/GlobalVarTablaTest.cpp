#include "platform/common/GlobalVarTabla.h"

#include <gtest/gtest.h>

#include "tests/platform/common/Pruebas.h"

namespace celdora::platform {
namespace {

using pruebas::FallaDe;

class GlobalVarTablaTest : public ::testing::Test {
protected:
    pruebas::BaseEnMemoria base;
    GlobalVarTabla ajustes;

    Variant Filas() { return base.Valor("SELECT Count(*) FROM gv_Configuracion"); }
};

TEST_F(GlobalVarTablaTest, ConectarCreatesTheTableAndReadersGetTheirOwnDefaults) {
    EXPECT_EQ(ajustes.LeerTexto("NVCA100", "antes"), "antes");
    ajustes.Conectar(base.cnn);
    EXPECT_EQ(Filas(), Variant::Long(0));

    EXPECT_EQ(ajustes.LeerTexto("NVCA316x", "*"), "*");
    EXPECT_EQ(ajustes.LeerTexto("NVCA316x", "Admin,Ventas"), "Admin,Ventas");
    EXPECT_EQ(ajustes.LeerNumero("NVCA300xa", 2), 2);
    EXPECT_EQ(Filas(), Variant::Long(0));
    for (const auto& sentencia : *base.sentencias) EXPECT_EQ(sentencia.find("INSERT"), std::string::npos) << sentencia;
}

TEST_F(GlobalVarTablaTest, WritesGoThroughAtOnceAndAreSeenByANewStoreInAnyCase) {
    ajustes.Conectar(base.cnn);
    EXPECT_TRUE(ajustes.GuardarTexto("NVCA100", "Comercial O'Higgins, S.A."));
    EXPECT_TRUE(ajustes.GuardarNumero("NVCA300xa", 3));
    EXPECT_TRUE(ajustes.GuardarNumero("nvca300XA", 4));  // the same key, spelled otherwise
    EXPECT_EQ(ajustes.LeerNumero("NVCA300XA", 0), 4);
    EXPECT_EQ(Filas(), Variant::Long(2));

    GlobalVarTabla otro;
    otro.Conectar(base.cnn);
    EXPECT_EQ(otro.LeerTexto("nvca100", ""), "Comercial O'Higgins, S.A.");
    EXPECT_EQ(otro.LeerNumero("NVCA300xa", 2), 4);
    EXPECT_EQ(otro.LeerNumero("NVCA100", -1), -1);  // a key has one type
}

TEST_F(GlobalVarTablaTest, AnUnopenedConnectionRaisesAndLeavesTheStoreEmptyButUsable) {
    ajustes.Conectar(base.cnn);
    ajustes.GuardarTexto("NVCA101", "AAA010101AAA");

    EXPECT_EQ(FallaDe([&] { ajustes.Conectar(std::make_shared<ConexionMotor>()); }).number, 3704);
    EXPECT_EQ(ajustes.LeerTexto("NVCA101", "sin"), "sin");
    EXPECT_FALSE(ajustes.GuardarTexto("NVCA101", "x"));

    ajustes.Conectar(base.cnn);
    EXPECT_EQ(ajustes.LeerTexto("NVCA101", "sin"), "AAA010101AAA");
}

}  // namespace
}  // namespace celdora::platform

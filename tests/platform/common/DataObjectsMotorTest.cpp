#include "platform/common/DataObjectsMotor.h"

#include <gtest/gtest.h>

#include "tests/platform/common/Pruebas.h"

namespace celdora::platform {
namespace {

class DataObjectsMotorTest : public ::testing::Test {
protected:
    pruebas::BaseEnMemoria base{"CREATE TABLE t (Sys_PK INTEGER PRIMARY KEY, x INTEGER);"};
    DataObjectsMotor datos{base.cnn};

    Variant Filas() { return base.Valor("SELECT Count(*) FROM t"); }
};

TEST_F(DataObjectsMotorTest, RollbackLeavesNoRowAndASecondBeginIsIgnored) {
    EXPECT_EQ(datos.ADOCnn(), base.cnn);
    EXPECT_EQ(datos.IniciarTransaccion(), Variant(true));
    datos.ADOCnn()->Execute("INSERT INTO t (x) VALUES (1)");
    EXPECT_EQ(datos.IniciarTransaccion(), Variant(false));
    datos.ADOCnn()->Execute("INSERT INTO t (x) VALUES (2)");
    EXPECT_EQ(datos.RevertirTransaccion(0), Variant(true));
    EXPECT_EQ(Filas(), Variant::Long(0));
    EXPECT_EQ(datos.RevertirTransaccion(0), Variant(false));
}

TEST_F(DataObjectsMotorTest, CommitKeepsTheRowsAndWithoutATransactionDoesNothing) {
    EXPECT_EQ(datos.ConfirmarTransaccion(0), Variant(false));
    datos.IniciarTransaccion();
    datos.ADOCnn()->Execute("INSERT INTO t (x) VALUES (1)");
    EXPECT_EQ(datos.ConfirmarTransaccion(0), Variant(true));
    EXPECT_EQ(datos.RevertirTransaccion(0), Variant(false));
    EXPECT_EQ(Filas(), Variant::Long(1));

    base.cnn->Close();
    EXPECT_EQ(pruebas::FallaDe([&] { datos.IniciarTransaccion(); }).number, 3704);
}

}  // namespace
}  // namespace celdora::platform

// The shared ADO-shaped objects of platform/common over a MariaDB connection.

#include <gtest/gtest.h>

#include "platform/common/DataObjectsMotor.h"
#include "platform/common/GlobalVarTabla.h"
#include "platform/common/RecordsetCliente.h"
#include "tests/platform/mariadb/ServidorPrueba.h"

namespace celdora::platform {
namespace {

using pruebas::FallaDe;

class ObjetosAdoTest : public pruebas::ConServidor {};

TEST_F(ObjetosAdoTest, AKeysetRecordsetWritesTextAndBinaryBackByTheRowsKey) {
    Tabla("cbb", "Sys_PK INT AUTO_INCREMENT PRIMARY KEY, uf_Serie VARCHAR(10), uf_CBB LONGBLOB");
    Ejecutar("INSERT INTO cbb (uf_Serie, uf_CBB) VALUES ('A', NULL), ('B', x'0102')");

    auto rs = std::make_shared<RecordsetCliente>();
    rs->CursorLocation(host::adUseClient);
    rs->Open("SELECT Sys_PK, uf_Serie, uf_CBB FROM CBB WHERE Sys_PK=2", cnn, host::adOpenKeyset,
             host::adLockOptimistic);
    const Bytes imagen{0x89, 'P', 'N', 'G', 0x00, 0x27, 0xFF};
    rs->Fields("uf_Serie").Value("Ñ'1");
    rs->Fields("UF_CBB").Value(imagen);
    rs->Update();
    // Writing the values the row already holds finds the row all the same.
    rs->Fields("uf_Serie").Value("Ñ'1");
    rs->Update();
    rs->Close();

    EXPECT_EQ(Valor("SELECT uf_Serie FROM cbb WHERE Sys_PK=2"), Variant("Ñ'1"));
    EXPECT_EQ(Valor("SELECT uf_CBB FROM cbb WHERE Sys_PK=2"), Variant(imagen));
    EXPECT_EQ(Valor("SELECT uf_Serie FROM cbb WHERE Sys_PK=1"), Variant("A"));
    EXPECT_TRUE(Valor("SELECT uf_CBB FROM cbb WHERE Sys_PK=1").IsNull());

    // A row deleted behind the recordset's back is not found.
    rs->Open("SELECT Sys_PK, uf_Serie FROM cbb WHERE Sys_PK=1", cnn, host::adOpenKeyset, host::adLockOptimistic);
    Ejecutar("DELETE FROM cbb WHERE Sys_PK=1");
    rs->Fields("uf_Serie").Value("Z");
    EXPECT_NE(FallaDe([&] { rs->Update(); }).number, 0);
}

TEST_F(ObjetosAdoTest, CompanySettingsAreWrittenAndReadBackWithApostrophes) {
    Ejecutar("DROP TABLE IF EXISTS gv_Configuracion");
    GlobalVarTabla ajustes;
    ajustes.Conectar(cnn);  // creates its table
    EXPECT_TRUE(ajustes.GuardarTexto("NVCA102b", "Calle O'Donnell 12, Col. Centro"));
    EXPECT_TRUE(ajustes.GuardarTexto("Clave'Rara", "Año"));
    EXPECT_TRUE(ajustes.GuardarNumero("NVCA328x", 2));
    EXPECT_TRUE(ajustes.GuardarNumero("nvca328X", 2));  // the same value again, under other capitals

    GlobalVarTabla leidos;
    leidos.Conectar(AbrirMariadb(url));
    EXPECT_EQ(leidos.LeerTexto("nvca102B", ""), "Calle O'Donnell 12, Col. Centro");
    EXPECT_EQ(leidos.LeerTexto("Clave'Rara", ""), "Año");
    EXPECT_EQ(leidos.LeerNumero("NVCA328x", 0), 2.0);
    EXPECT_EQ(Valor("SELECT Count(*) FROM gv_Configuracion"), Variant::Long(3));
}

TEST_F(ObjetosAdoTest, TheDataObjectFollowsTheServersTransaction) {
    Tabla("cancelacion", "Sys_PK INT AUTO_INCREMENT PRIMARY KEY, uf_CanceladoSAT SMALLINT");
    DataObjectsMotor datos(cnn);
    EXPECT_EQ(datos.IniciarTransaccion(), Variant(true));
    EXPECT_EQ(datos.IniciarTransaccion(), Variant(false));  // one is open
    cnn->Execute("INSERT INTO cancelacion (uf_CanceladoSAT) VALUES (1)");
    EXPECT_EQ(datos.RevertirTransaccion(0), Variant(true));
    EXPECT_EQ(datos.RevertirTransaccion(0), Variant(false));
    EXPECT_EQ(Valor("SELECT Count(*) FROM cancelacion"), Variant::Long(0));
}

}  // namespace
}  // namespace celdora::platform

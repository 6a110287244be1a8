#include "platform/common/RecordsetCliente.h"

#include <gtest/gtest.h>

#include "tests/platform/common/Pruebas.h"

namespace celdora::platform {
namespace {

using pruebas::BaseEnMemoria;
using pruebas::FallaDe;

class RecordsetClienteTest : public ::testing::Test {
protected:
    BaseEnMemoria base{R"(
        CREATE TABLE ut_FoliosCBB (Sys_PK INTEGER PRIMARY KEY, uf_Serie VARCHAR(10), uf_CBB BLOB);
        INSERT INTO ut_FoliosCBB VALUES (1, 'A', NULL);
        INSERT INTO ut_FoliosCBB VALUES (2, NULL, x'0102');
    )"};

    std::shared_ptr<RecordsetCliente> Abrir(const std::string& sql, int lockType = host::adLockReadOnly) {
        auto rs = std::make_shared<RecordsetCliente>();
        rs->CursorLocation(host::adUseClient);
        rs->Open(sql, base.cnn, host::adOpenKeyset, lockType);
        return rs;
    }
};

TEST_F(RecordsetClienteTest, ExecuteGivesAnOpenRecordsetForRowsAndAClosedOneOtherwise) {
    auto filas = base.cnn->Execute("SELECT Sys_PK FROM ut_FoliosCBB WHERE Sys_PK=99");
    EXPECT_EQ(filas->State(), host::adStateOpen);
    EXPECT_TRUE(filas->Eof() && filas->Bof());
    EXPECT_EQ(FallaDe([&] { filas->Fields("Sys_PK").Value(); }).number, 3021);
    EXPECT_EQ(FallaDe([&] { filas->movenext(); }).number, 3021);

    auto sinFilas = base.cnn->Execute("UPDATE ut_FoliosCBB SET uf_Serie='B' WHERE Sys_PK=1");
    EXPECT_EQ(sinFilas->State(), host::adStateClosed);
    EXPECT_EQ(FallaDe([&] { sinFilas->Eof(); }).number, 3704);
    EXPECT_EQ(base.Valor("SELECT uf_Serie FROM ut_FoliosCBB WHERE Sys_PK=1"), Variant("B"));
}

TEST_F(RecordsetClienteTest, FieldsByNameInAnyCaseAndByIndexWithNullForEmptyColumns) {
    auto rs = base.cnn->Execute("SELECT Sys_PK, uf_Serie FROM ut_FoliosCBB ORDER BY Sys_PK");
    EXPECT_EQ(rs->Fields("UF_SERIE").Value(), Variant("A"));
    EXPECT_EQ(rs->Fields(0).Value(), Variant::Long(1));
    EXPECT_EQ(rs->Fields(1).Name(), "uf_Serie");
    EXPECT_EQ(FallaDe([&] { rs->Fields("uf_Nada"); }).number, 3265);
    EXPECT_EQ(FallaDe([&] { rs->Fields(2); }).number, 3265);

    rs->movenext();
    EXPECT_FALSE(rs->Eof());
    EXPECT_TRUE(rs->Fields("uf_serie").Value().IsNull());
    rs->movenext();
    EXPECT_TRUE(rs->Eof());
    EXPECT_FALSE(rs->Bof());
    EXPECT_EQ(FallaDe([&] { rs->movenext(); }).number, 3021);

    rs->Close();
    EXPECT_EQ(rs->State(), host::adStateClosed);
    EXPECT_EQ(FallaDe([&] { rs->Fields(0); }).number, 3704);
    EXPECT_EQ(FallaDe([&] { rs->Close(); }).number, 3704);
}

TEST_F(RecordsetClienteTest, OpenWithoutArgumentsUsesItsConnectionAndSource) {
    auto rs = std::make_shared<RecordsetCliente>();
    EXPECT_EQ(FallaDe([&] { rs->Open(); }).number, 3709);
    rs->activeconnection(base.cnn);
    rs->Source("SELECT Count(*) AS Total FROM ut_FoliosCBB");
    rs->CursorLocation(host::adUseClient);
    rs->Open();
    EXPECT_EQ(rs->State(), host::adStateOpen);
    EXPECT_EQ(rs->Fields("total").Value(), Variant::Long(2));
    EXPECT_EQ(FallaDe([&] { rs->Open(); }).number, 3705);

    auto cerrada = std::make_shared<ConexionMotor>();
    EXPECT_EQ(FallaDe([&] { cerrada->Execute("SELECT 1"); }).number, 3704);

    struct ConexionAjena : host::Connection {
        std::shared_ptr<host::Recordset> Execute(const std::string&) override { return nullptr; }
        int State() const override { return host::adStateOpen; }
    };
    EXPECT_EQ(FallaDe([&] { MotorDe(std::make_shared<ConexionAjena>()); }).number, 3001);
}

TEST_F(RecordsetClienteTest, OptimisticUpdateWritesTextAndBlobBackByTheKey) {
    auto rs = Abrir("SELECT Sys_PK, uf_CBB, uf_Serie FROM ut_FoliosCBB WHERE Sys_PK=1", host::adLockOptimistic);
    const Bytes imagen{0xFF, 0xD8, 0x00, 0x27, 0xFF, 0xD9};
    rs->Fields("uf_cbb").Value(Variant(imagen));
    rs->Fields("uf_Serie").Value("it's");
    EXPECT_EQ(rs->Fields("uf_Serie").Value(), Variant("it's"));
    rs->Update();
    EXPECT_EQ(rs->Fields("uf_CBB").Value(), Variant(imagen));

    auto leido = base.cnn->Execute("SELECT uf_Serie, uf_CBB FROM ut_FoliosCBB WHERE Sys_PK=1");
    EXPECT_EQ(leido->Fields("uf_Serie").Value(), Variant("it's"));
    EXPECT_EQ(leido->Fields("uf_CBB").Value(), Variant(imagen));
    EXPECT_EQ(base.Valor("SELECT uf_Serie FROM ut_FoliosCBB WHERE Sys_PK=2"), Variant::Null());
}

TEST_F(RecordsetClienteTest, ReadOnlyRecordsetRefusesChanges) {
    auto rs = Abrir("SELECT Sys_PK, uf_Serie FROM ut_FoliosCBB WHERE Sys_PK=1");
    EXPECT_EQ(FallaDe([&] { rs->Fields("uf_Serie").Value("Z"); }).number, 3251);
    EXPECT_EQ(FallaDe([&] { rs->Update(); }).number, 3251);
    auto ejecutado = base.cnn->Execute("SELECT Sys_PK, uf_Serie FROM ut_FoliosCBB");
    EXPECT_EQ(FallaDe([&] { ejecutado->Fields("uf_Serie").Value("Z"); }).number, 3251);
    EXPECT_EQ(base.Valor("SELECT uf_Serie FROM ut_FoliosCBB WHERE Sys_PK=1"), Variant("A"));
}

TEST_F(RecordsetClienteTest, UpdateNeedsTheKeyAndTableColumns) {
    auto sinClave = Abrir("SELECT uf_Serie FROM ut_FoliosCBB WHERE Sys_PK=1", host::adLockOptimistic);
    sinClave->Fields("uf_Serie").Value("Z");
    const Fault falla = FallaDe([&] { sinClave->Update(); });
    EXPECT_NE(falla.description.find("key column Sys_PK"), std::string::npos) << falla.description;

    auto expresion = Abrir("SELECT Sys_PK, upper(uf_Serie) AS s FROM ut_FoliosCBB WHERE Sys_PK=1",
                           host::adLockOptimistic);
    expresion->Fields("s").Value("Z");
    EXPECT_NE(FallaDe([&] { expresion->Update(); }).description.find("does not come from a table"),
              std::string::npos);
    EXPECT_EQ(base.Valor("SELECT uf_Serie FROM ut_FoliosCBB WHERE Sys_PK=1"), Variant("A"));
}

TEST_F(RecordsetClienteTest, UpdateOfARowDeletedMeanwhileFails) {
    auto rs = Abrir("SELECT Sys_PK, uf_Serie FROM ut_FoliosCBB WHERE Sys_PK=1", host::adLockOptimistic);
    base.cnn->Execute("DELETE FROM ut_FoliosCBB WHERE Sys_PK=1");
    rs->Fields("uf_Serie").Value("Z");
    EXPECT_EQ(FallaDe([&] { rs->Update(); }).number, -2147217864);
}

}  // namespace
}  // namespace celdora::platform

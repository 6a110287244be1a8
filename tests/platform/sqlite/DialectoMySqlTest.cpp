#include "platform/sqlite/DialectoMySql.h"

#include <gtest/gtest.h>

#include <regex>

#include "platform/sqlite/Sqlite.h"
#include "tests/platform/common/Pruebas.h"

namespace celdora::platform {
namespace {

using pruebas::FallaDe;

class DialectoMySqlTest : public ::testing::Test {
protected:
    std::shared_ptr<ConexionMotor> cnn = AbrirSqlite(":memory:");

    Variant Valor(const std::string& sql) { return cnn->Execute(sql)->Fields(0).Value(); }
};

// The dialect probe of the system: MySQL's statement answers, SQL Server's and
// Access's fail, so SQLite passes for MySQL.
TEST_F(DialectoMySqlTest, OnlyTheMySqlProbeAnswers) {
    const Variant guid = Valor("Select UUID() as GUID;");
    EXPECT_TRUE(std::regex_match(guid.AsString(),
                                 std::regex("[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}")))
        << guid.AsString();
    EXPECT_NE(Valor("Select UUID() as GUID;"), guid);

    const Fault newid = FallaDe([&] { cnn->Execute("SELECT NEWID() as sGUID;"); });
    EXPECT_NE(newid.description.find("no such function"), std::string::npos) << newid.description;
    EXPECT_NE(FallaDe([&] { cnn->Execute("Select cbool(-1) as Valor;"); }).number, 0);
}

TEST_F(DialectoMySqlTest, OneArgumentIsNullWorksAndTwoArgumentsFailAsOnMySql) {
    cnn->Execute("CREATE TABLE t (x TEXT, notisnull INTEGER)");
    cnn->Execute("INSERT INTO t VALUES ('a', 1)");
    cnn->Execute("INSERT INTO t VALUES (NULL, 2)");
    EXPECT_EQ(Valor("SELECT Count(*) FROM t WHERE NOT isnull(x)"), Variant::Long(1));
    EXPECT_EQ(Valor("SELECT Count(*) FROM t WHERE (ISNULL (x) OR x='z')"), Variant::Long(1));
    EXPECT_EQ(Valor("SELECT Count(*) FROM t WHERE x ISNULL"), Variant::Long(1));  // SQLite's own keyword stays

    const Fault dos = FallaDe([&] { cnn->Execute("SELECT Count(*) FROM t WHERE isnull(x,0)=0"); });
    EXPECT_NE(dos.description.find("wrong number of arguments to function isnull"), std::string::npos)
        << dos.description;
}

TEST_F(DialectoMySqlTest, RenamingLeavesLiteralsQuotedNamesCommentsAndLongerNamesAlone) {
    EXPECT_EQ(Valor("SELECT 'isnull(x)' || \"isnull(\" FROM (SELECT 1 AS \"isnull(\")"), Variant("isnull(x)1"));
    EXPECT_EQ(sqlite::RenombrarIsNull("SELECT notisnull(a), isnull_b(a), x.isnull2 -- isnull(\n, Isnull(a)"),
              "SELECT notisnull(a), isnull_b(a), x.isnull2 -- isnull(\n, celdora_isnull(a)");
    EXPECT_EQ(sqlite::RenombrarIsNull("SELECT 'it''s isnull(' , /* isnull( */ isnull(b)"),
              "SELECT 'it''s isnull(' , /* isnull( */ celdora_isnull(b)");
}

TEST_F(DialectoMySqlTest, YearAndMonthOfTextJulianDaysAndNull) {
    EXPECT_EQ(Valor("SELECT Year('2012-03-05 07:08:09')"), Variant::Long(2012));
    EXPECT_EQ(Valor("SELECT Month('2012-03-05')"), Variant::Long(3));
    EXPECT_EQ(Valor("SELECT Month(julianday('2011-12-31 23:00:00'))"), Variant::Long(12));
    EXPECT_EQ(Valor("SELECT Year(2415018.5)"), Variant::Long(1899));
    EXPECT_TRUE(Valor("SELECT Year(NULL)").IsNull());
    EXPECT_TRUE(Valor("SELECT Month('2012-13-01')").IsNull());
    EXPECT_TRUE(Valor("SELECT Year('ayer')").IsNull());
    EXPECT_TRUE(std::regex_match(Valor("SELECT NOW()").AsString(),
                                 std::regex(R"(\d{4}-\d{2}-\d{2} \d{2}:\d{2}:\d{2})")));
}

}  // namespace
}  // namespace celdora::platform

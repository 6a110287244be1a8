#include "platform/common/UnaSentencia.h"

#include <gtest/gtest.h>

#include "tests/support/FallaDe.h"

namespace celdora::platform {
namespace {

long Numero(const std::string& sql) { return testing::FallaDe([&] { ExigirUnaSentencia(sql); }).number; }

TEST(UnaSentencia, OneStatementPassesWhateverSemicolonsItsLiteralsNamesAndCommentsHold) {
    for (const char* sql : {"SELECT 1", "Select UUID() as GUID;", "SELECT 1 ; ;  -- fin\n /* nada */ ", "; SELECT 1",
                            "SELECT 1\n-- a comment at the end, no line break", "", "   ;  ",
                            "SELECT 'it''s; DELETE FROM t' FROM t", "SELECT \"a;b\" FROM t", "SELECT `a;b` FROM t",
                            "SELECT [a;b] FROM t", "SELECT 1 -- ; DELETE FROM t\nFROM t",
                            "SELECT 1 /* ; DELETE FROM t */ FROM t", "SELECT '#;' FROM t",
                            "UPDATE t SET a='x;y' WHERE b='1;3';",
                            // Backslashes that mean nothing elsewhere do not make a statement suspect.
                            "UPDATE t SET ruta='C:\\datos\\' WHERE Sys_PK=1;", "INSERT INTO t VALUES ('C:\\a\\', 'b');"})
        EXPECT_EQ(Numero(sql), 0) << sql;

    // What the driver is given: the statement without its ending.
    EXPECT_EQ(SentenciaUnica("Select UUID() as GUID;"), "Select UUID() as GUID");
    EXPECT_EQ(SentenciaUnica("SELECT 'a;b' AS x ; -- fin\n;"), "SELECT 'a;b' AS x ");
    EXPECT_EQ(SentenciaUnica("SELECT 1 -- nota\n"), "SELECT 1 -- nota\n");
}

// A value glued between quotes can be read one way by the common reading and
// another way by an engine: whichever reading finds a second statement wins.
TEST(UnaSentencia, ASecondStatementIsRefusedWithOurFault) {
    const Fault falla = testing::FallaDe([] { ExigirUnaSentencia("SELECT 1; DELETE FROM t"); });
    EXPECT_EQ(falla.number, 3001);
    EXPECT_NE(falla.description.find("segunda sentencia"), std::string::npos) << falla.description;
    EXPECT_THROW(SentenciaUnica("SELECT 1; SELECT 2"), Fault);

    for (const char* sql : {"SELECT 1;\nSELECT 2", "UPDATE t SET a='x'; DELETE FROM t; --'",
                            "SELECT 1; /* c */ DROP TABLE t", "SELECT 1 -- c\n; DROP TABLE t",
                            // "#" is a comment only in MySQL: elsewhere this is a second statement.
                            "SELECT 1; # nota",
                            // MySQL: the backslash escapes the quote, so the literal ends at ''.
                            "UPDATE t SET a='x\\''; DELETE FROM t; -- '",
                            // MySQL: "--" without a blank after it is two minus signs, not a comment.
                            "SELECT a FROM t WHERE b='x'--x; DELETE FROM t; -- '",
                            // MySQL runs the content of /*! ... */.
                            "SELECT 1 /*! ; DELETE FROM t */",
                            // SQL Server nests block comments: the comment ends at the second "*/".
                            "SELECT a FROM t WHERE b='x' /* /* */ ' */ ; DELETE FROM t -- '"})
        EXPECT_EQ(Numero(sql), 3001) << sql;
}

}  // namespace
}  // namespace celdora::platform

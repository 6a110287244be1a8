// The ODBC kind's address of the suite's own database: a wrong one would
// test another database than the one just made for the test.

#include "tests/integration/Conexiones.h"

#include <gtest/gtest.h>

namespace celdora::integracion {
namespace {

TEST(DireccionesDeConexion, TheOdbcStringGetsTheSuitesDatabaseWhateverTheKeysCapitals) {
    EXPECT_EQ(CadenaOdbcConBase("Driver={MariaDB Unicode};Server=127.0.0.1;Port=33306;Database=celdora_test;"
                                "User=celdora;Password=x1;Option=2",
                                kBaseDeLaSuite),
              "Driver={MariaDB Unicode};Server=127.0.0.1;Port=33306;Database=celdora_test_conducta;User=celdora;"
              "Password=x1;Option=2;");
    EXPECT_EQ(CadenaOdbcConBase("DRIVER={MariaDB Unicode};DB=otra;PWD={a;b}", kBaseDeLaSuite),
              "DRIVER={MariaDB Unicode};DB=celdora_test_conducta;PWD={a;b};");
    EXPECT_EQ(CadenaOdbcConBase("DSN=celdora;", kBaseDeLaSuite), "DSN=celdora;Database=celdora_test_conducta;");
}

}  // namespace
}  // namespace celdora::integracion

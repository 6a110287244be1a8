#include "platform/common/Domicilio.h"

#include <gtest/gtest.h>

#include "platform/common/Catalogo.h"
#include "platform/sqlite/Sqlite.h"
#include "tests/value/FaultOf.h"

namespace celdora::platform {
namespace {

class DomicilioTablaTest : public ::testing::Test {
protected:
    void SetUp() override {
        EjecutarGuion(*cnn,
                      "CREATE TABLE Pais (Sys_PK INTEGER PRIMARY KEY, Nombre VARCHAR(50));"
                      "CREATE TABLE Ciudad (Sys_PK INTEGER PRIMARY KEY, Nombre VARCHAR(50));"
                      "CREATE TABLE Domicilio (Sys_PK INTEGER PRIMARY KEY, ICiudad INTEGER, Direccion VARCHAR(255),"
                      " CodPos VARCHAR(10), Colonia VARCHAR(50), Telefono VARCHAR(30), Notas TEXT);"
                      "INSERT INTO Pais VALUES (1, 'México'), (2, 'Argentina');"
                      "INSERT INTO Ciudad VALUES (1, '(Desconocido)'), (2, 'Monterrey'), (3, 'León');");
        domicilio.Conexion(cnn);
    }

    Resultado Ejecutar(const std::string& sql) { return cnn->motor().Ejecutar(sql); }

    std::shared_ptr<ConexionMotor> cnn = AbrirSqlite(":memory:");
    DomicilioTabla domicilio;
};

TEST_F(DomicilioTablaTest, NewAddressIsInsertedThenReadAndUpdatedInPlace) {
    domicilio.colony("Centro");
    domicilio.address("||O'Higgins|12|B");  // an apostrophe: the values travel as parameters
    ASSERT_TRUE(domicilio.objCiudad().cargarPor("Sys_PK", Variant::Long(2)));
    domicilio.notes("entre \"1a\" y 2a\nportón azul");
    domicilio.codep("64000");
    domicilio.phone("81 8340 0000");
    ASSERT_TRUE(domicilio.guardar()) << domicilio.ultimoError();
    const std::int32_t clave = domicilio.Sys_PK();
    ASSERT_GT(clave, 0);

    DomicilioTabla leido;
    leido.Conexion(cnn);
    ASSERT_TRUE(leido.cargar(clave)) << leido.ultimoError();
    EXPECT_EQ(leido.Sys_PK(), clave);
    EXPECT_EQ(leido.colony(), "Centro");
    EXPECT_EQ(leido.address(), "||O'Higgins|12|B");
    EXPECT_EQ(leido.objCiudad().Sys_PK(), 2);
    EXPECT_EQ(dynamic_cast<CiudadTabla&>(leido.objCiudad()).Nombre(), "Monterrey");
    EXPECT_EQ(leido.notes(), "entre \"1a\" y 2a\nportón azul");
    EXPECT_EQ(leido.codep(), "64000");
    EXPECT_EQ(leido.phone(), "81 8340 0000");

    // A city that is not there leaves no link; saving twice (nothing changed
    // the second time) is no failure and writes the same row.
    leido.codep("37000");
    EXPECT_FALSE(leido.objCiudad().cargarPor("Sys_PK", Variant::Long(-1)));
    ASSERT_TRUE(leido.guardar()) << leido.ultimoError();
    ASSERT_TRUE(leido.guardar()) << leido.ultimoError();
    const Resultado filas = Ejecutar("SELECT Sys_PK, ICiudad, CodPos FROM Domicilio");
    ASSERT_EQ(filas.filas.size(), 1u);
    EXPECT_EQ(filas.filas[0], (std::vector<Variant>{Variant::Long(clave), Variant::Long(0), Variant("37000")}));
}

TEST_F(DomicilioTablaTest, FailuresAnswerFalseWithTheReason) {
    domicilio.colony("Centro");
    ASSERT_TRUE(domicilio.guardar());
    const std::int32_t clave = domicilio.Sys_PK();

    // A missing row: false, a reason, and the object as it was.
    EXPECT_FALSE(domicilio.cargar(clave + 100));
    EXPECT_NE(domicilio.ultimoError(), "");
    EXPECT_EQ(domicilio.Sys_PK(), clave);
    EXPECT_EQ(domicilio.colony(), "Centro");

    // The row went away meanwhile: updating nothing is no success.
    Ejecutar("DELETE FROM Domicilio");
    EXPECT_FALSE(domicilio.guardar());
    EXPECT_NE(domicilio.ultimoError(), "");

    // The database's own message.
    Ejecutar("DROP TABLE Domicilio");
    DomicilioTabla nuevo;
    nuevo.Conexion(cnn);
    EXPECT_FALSE(nuevo.guardar());
    EXPECT_NE(nuevo.ultimoError().find("Domicilio"), std::string::npos) << nuevo.ultimoError();

    DomicilioTabla sinConexion;
    EXPECT_FALSE(sinConexion.cargar(1));
    EXPECT_NE(sinConexion.ultimoError(), "");

    // The column of a city lookup is glued into the statement: only a name goes.
    EXPECT_EQ(test::FaultOf([&] { domicilio.objCiudad().cargarPor("1=1 OR Sys_PK", Variant::Long(1)); }), 5);
}

TEST_F(DomicilioTablaTest, CatalogueListsCountriesAndCitiesByName) {
    CatalogoPaises catalogo(cnn);
    const auto lugares = std::dynamic_pointer_cast<FuenteLugares>(catalogo.nvlands());
    ASSERT_NE(lugares, nullptr);
    EXPECT_EQ(lugares->Conexion(), cnn);

    const std::vector<Lugar> paises = lugares->Paises();
    ASSERT_EQ(paises.size(), 2u);
    EXPECT_EQ(paises[0].Nombre, "Argentina");
    EXPECT_EQ(paises[0].Sys_PK, 2);
    const std::vector<Lugar> ciudades = lugares->Ciudades();
    ASSERT_EQ(ciudades.size(), 3u);
    EXPECT_EQ(ciudades[1].Nombre, "León");
    EXPECT_EQ(ciudades[2].Sys_PK, 2);
}

}  // namespace
}  // namespace celdora::platform

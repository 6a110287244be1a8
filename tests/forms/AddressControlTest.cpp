// The address control over the demo company's places: what it offers at
// each level, what choosing and adding a place sets, and what limpiar and a
// missing source leave.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "forms/Controles.h"
#include "forms/Dialogo.h"
#include "platform/common/Catalogo.h"
#include "tests/support/CompanyFixture.h"
#include "tests/support/TestPlatform.h"

namespace celdora::forms {
namespace {

using Nombres = std::vector<std::string>;

Nombres NombresDe(const std::vector<host::Lugar>& lugares) {
    Nombres nombres;
    for (const host::Lugar& lugar : lugares) nombres.push_back(lugar.Nombre);
    return nombres;
}

class ControlDireccion : public ::testing::Test, public Dialogo {
protected:
    ControlDireccion() : Dialogo("dlgMuestra", "Muestra") {
        eDir.Change = [this] { ++cambios; };
        eDir.titulo("Domicilio Fiscal");
        eDir.conectar(platform::CatalogoPaises(db.cnn).nvlands());
    }

    // Where the control stands: country, state and city keys.
    std::vector<std::int32_t> Eleccion() const { return {eDir.pais(), eDir.estado(), eDir.ciudad()}; }

    testing::TestPlatform plataforma;
    testing::CompanyDatabase db{testing::CompanyDatabase::Datos::Demo};
    AddressControl& eDir = Agregar<AddressControl>("eDir");
    int cambios = 0;
};

TEST_F(ControlDireccion, ChoosingCountryStateAndCityNarrowsWhatIsOfferedAndSetsTheKeys) {
    EXPECT_EQ(NombresDe(eDir.Paises()), (Nombres{"(desconocido)", "Estados Unidos", "México"}));
    EXPECT_TRUE(eDir.Estados().empty() && eDir.Ciudades().empty());

    ASSERT_TRUE(eDir.ElegirPais(2));
    EXPECT_EQ(Eleccion(), (std::vector<std::int32_t>{1, 0, -1}));
    EXPECT_EQ(NombresDe(eDir.Estados()), (Nombres{"Ciudad de México", "Jalisco", "Nuevo León"}));
    EXPECT_EQ(NombresDe(eDir.Ciudades()), (Nombres{"Ciudad de México", "Guadalajara", "Monterrey"}));

    // A city picked among the country's brings its state along.
    ASSERT_TRUE(eDir.ElegirCiudad(1));
    EXPECT_EQ(Eleccion(), (std::vector<std::int32_t>{1, 2, 3}));
    EXPECT_EQ(NombresDe(eDir.Ciudades()), (Nombres{"Guadalajara"}));

    // Another state lets go of the city; another country of state and city.
    ASSERT_TRUE(eDir.ElegirEstado(2));
    EXPECT_EQ(Eleccion(), (std::vector<std::int32_t>{1, 1, -1}));
    ASSERT_TRUE(eDir.ElegirCiudad(0));
    EXPECT_EQ(Eleccion(), (std::vector<std::int32_t>{1, 1, 2}));
    ASSERT_TRUE(eDir.ElegirPais(1));
    EXPECT_EQ(Eleccion(), (std::vector<std::int32_t>{2, 0, -1}));
    EXPECT_EQ(cambios, 5);

    EXPECT_FALSE(eDir.ElegirCiudad(5)) << "no such city";
    eDir.Enabled(false);
    EXPECT_FALSE(eDir.ElegirPais(2));
    EXPECT_EQ(eDir.pais(), 2);
}

TEST_F(ControlDireccion, ACitySetFromCodePlacesItAndLimpiarEmptiesEverything) {
    eDir.colony("Centro");
    eDir.codep("78000");
    eDir.ciudad(5);
    EXPECT_EQ(Eleccion(), (std::vector<std::int32_t>{2, 4, 5}));
    EXPECT_EQ(NombresDe(eDir.Ciudades()), (Nombres{"San Antonio"}));

    eDir.limpiar();
    EXPECT_EQ(Eleccion(), (std::vector<std::int32_t>{0, 0, -1}));
    EXPECT_EQ(eDir.colony() + eDir.codep(), "");
    EXPECT_TRUE(eDir.Estados().empty() && eDir.Ciudades().empty());
    EXPECT_EQ(eDir.Paises().size(), 3u) << "the countries stay offered";

    // Another object, or none, offers nothing and places no city.
    for (const std::shared_ptr<Object>& otro : {std::shared_ptr<Object>(db.cnn), std::shared_ptr<Object>()}) {
        eDir.conectar(otro);
        EXPECT_TRUE(eDir.Paises().empty());
        eDir.ciudad(3);
        EXPECT_EQ(eDir.pais(), 0);
        eDir.limpiar();
    }
}

TEST_F(ControlDireccion, AddedPlacesAreWrittenUnderThePresentChoiceAndChosen) {
    EXPECT_FALSE(eDir.AgregarCiudad("Saltillo")) << "no country yet";
    ASSERT_TRUE(eDir.AgregarPais("  Canadá "));
    const std::int32_t canada = eDir.pais();
    EXPECT_EQ(db.Contar("Pais WHERE Nombre = 'Canadá' AND Sys_PK = " + std::to_string(canada)), 1);
    ASSERT_TRUE(eDir.AgregarEstado("Ontario"));
    ASSERT_TRUE(eDir.AgregarCiudad("Toronto"));
    EXPECT_EQ(NombresDe(eDir.Ciudades()), (Nombres{"Toronto"}));
    EXPECT_EQ(db.Contar("Ciudad c JOIN Estado e ON e.Sys_PK = c.IEstado WHERE c.Nombre = 'Toronto' AND "
                        "e.Nombre = 'Ontario' AND c.IPais = e.IPais AND c.Sys_PK = " +
                        std::to_string(eDir.ciudad()) + " AND e.IPais = " + std::to_string(canada)),
              1);

    // A city of a country with no state chosen keeps no state.
    ASSERT_EQ(NombresDe(eDir.Paises()), (Nombres{"(desconocido)", "Canadá", "Estados Unidos", "México"}));
    ASSERT_TRUE(eDir.ElegirPais(3));
    ASSERT_TRUE(eDir.AgregarCiudad("Saltillo"));
    EXPECT_EQ(Eleccion(), (std::vector<std::int32_t>{1, 0, 7}));
    EXPECT_EQ(db.Contar("Ciudad WHERE Sys_PK = 7 AND IPais = 1 AND IEstado IS NULL"), 1);

    // What the control forbids or can't take writes nothing and shows no box.
    const long ciudades = db.Contar("Ciudad");
    eDir.canaddcity = false;
    EXPECT_FALSE(eDir.AgregarCiudad("Torreón"));
    eDir.canaddcity = true;
    EXPECT_FALSE(eDir.AgregarCiudad("   "));
    eDir.Enabled(false);
    EXPECT_FALSE(eDir.AgregarCiudad("Torreón"));
    EXPECT_EQ(db.Contar("Ciudad"), ciudades);
    EXPECT_TRUE(plataforma.ui.Cajas().empty());

    // A name the table refuses: a box with the database's reason.
    eDir.Enabled(true);
    EXPECT_FALSE(eDir.AgregarCiudad(std::string(101, 'x')));
    ASSERT_EQ(plataforma.ui.Cajas().size(), 1u);
    EXPECT_EQ(plataforma.ui.Cajas()[0].texto.rfind("No se pudo agregar la ciudad \"xxx", 0), 0u);
    EXPECT_EQ(plataforma.ui.Cajas()[0].icono, host::Icono::Exclamacion);
    EXPECT_EQ(plataforma.ui.Cajas()[0].titulo, "Domicilio Fiscal");
    EXPECT_EQ(Eleccion(), (std::vector<std::int32_t>{1, 0, 7}));
}

}  // namespace
}  // namespace celdora::forms

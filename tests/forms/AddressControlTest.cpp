// The address control over the demo company's places: what each choice
// offers and sets, what an added place is written under, and what limpiar,
// a refusal and a missing source leave.

#include <gtest/gtest.h>

#include "forms/Controles.h"
#include "forms/Dialogo.h"
#include "platform/common/Catalogo.h"
#include "tests/support/CompanyFixture.h"
#include "tests/support/TestPlatform.h"

namespace celdora::forms {
namespace {

using Claves = std::vector<std::int32_t>;

std::string Nombres(const std::vector<host::Lugar>& lugares) {
    std::string nombres;
    for (const host::Lugar& lugar : lugares) nombres += lugar.Nombre + ";";
    return nombres;
}

TEST(ControlDireccion, ChoicesNarrowWhatIsOfferedAddedPlacesGoUnderThemAndLimpiarEmptiesAll) {
    testing::TestPlatform plataforma;
    testing::CompanyDatabase db(testing::CompanyDatabase::Datos::Demo);
    Dialogo dlg("dlgMuestra", "Muestra");
    AddressControl eDir(dlg, "eDir");
    const auto eleccion = [&] { return Claves{eDir.pais(), eDir.estado(), eDir.ciudad()}; };
    eDir.titulo("Domicilio Fiscal");
    eDir.conectar(platform::CatalogoPaises(db.cnn).nvlands());
    EXPECT_FALSE(eDir.AgregarCiudad("Saltillo")) << "no country yet";
    ASSERT_TRUE(eDir.ElegirPais(2));
    EXPECT_EQ(Nombres(eDir.Paises()) + Nombres(eDir.Estados()) + Nombres(eDir.Ciudades()),
              "(desconocido);Estados Unidos;México;Ciudad de México;Jalisco;Nuevo León;"
              "Ciudad de México;Guadalajara;Monterrey;");
    ASSERT_TRUE(eDir.ElegirCiudad(1));  // a city of the country brings its state along
    EXPECT_EQ(eleccion(), (Claves{1, 2, 3}));
    ASSERT_TRUE(eDir.ElegirEstado(2));  // another state lets go of the city
    EXPECT_EQ(eleccion(), (Claves{1, 1, -1}));
    ASSERT_TRUE(eDir.AgregarCiudad(" Apodaca "));
    EXPECT_EQ(Nombres(eDir.Ciudades()), "Apodaca;Monterrey;");
    EXPECT_EQ(db.Contar("Ciudad WHERE Sys_PK = 6 AND Nombre = 'Apodaca' AND IPais = 1 AND IEstado = 1"), 1);
    eDir.ciudad(5);  // as a loaded address sets it
    EXPECT_EQ(eleccion(), (Claves{2, 4, 5}));

    // Refused: not allowed, a blank name, a name the table refuses (a box).
    eDir.canaddstate = false;
    EXPECT_FALSE(eDir.AgregarEstado("Florida"));
    EXPECT_FALSE(eDir.AgregarCiudad("  "));
    EXPECT_FALSE(eDir.AgregarCiudad(std::string(101, 'x')));
    EXPECT_EQ(db.Contar("Ciudad") + db.Contar("Estado"), 10);
    ASSERT_EQ(plataforma.ui.Cajas().size(), 1u);
    const testing::Caja& caja = plataforma.ui.Cajas()[0];
    EXPECT_EQ(caja.texto.rfind("No se pudo agregar la ciudad \"xxx", 0), 0u) << caja.texto;
    EXPECT_EQ(std::pair(caja.icono, caja.titulo), std::pair(host::Icono::Exclamacion, std::string("Domicilio Fiscal")));

    eDir.limpiar();
    EXPECT_EQ(eleccion(), (Claves{0, 0, -1}));
    EXPECT_EQ(eDir.Estados().size() + eDir.Ciudades().size(), 0u);
    eDir.Enabled(false);
    EXPECT_FALSE(eDir.ElegirPais(2));
    eDir.conectar(db.cnn);  // not a source of places
    eDir.ciudad(3);
    EXPECT_EQ(eDir.Paises().size() + static_cast<std::size_t>(eDir.pais()), 0u);
}

}  // namespace
}  // namespace celdora::forms

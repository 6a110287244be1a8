// The catalogue's places and the address object on every kind of
// connection: a new country, state and city get the keys the engine gives,
// and an address in that city is saved and read back with its text intact.

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "platform/common/Catalogo.h"
#include "platform/common/Domicilio.h"
#include "tests/integration/Conexiones.h"
#include "value/Convert.h"

namespace celdora {
namespace {

using integracion::Empresa;

class LugaresConducta : public ::testing::TestWithParam<std::string> {
protected:
    std::unique_ptr<Empresa> empresa;

    void SetUp() override {
        const std::string motivo = Empresa::PorQueNoDisponible(GetParam());
        if (!motivo.empty()) GTEST_SKIP() << motivo;
        empresa = Empresa::Crear(GetParam());
    }
};

TEST_P(LugaresConducta, ANewPlaceAndAnAddressInItReadBackAlike) {
    platform::FuenteLugares lugares(empresa->cnn);
    const std::int32_t pais = lugares.AgregarPais("Côte d'Ivoire");
    const std::int32_t estado = lugares.AgregarEstado(pais, "Lagunes");
    const std::int32_t ciudad = lugares.AgregarCiudad(pais, estado, "Abiyán");
    EXPECT_EQ((std::vector<std::int32_t>{pais, estado, ciudad}), (std::vector<std::int32_t>{4, 5, 6}));
    const std::vector<host::Lugar> ciudades = lugares.CiudadesDeEstado(estado);
    ASSERT_EQ(ciudades.size(), 1u);
    EXPECT_EQ(ciudades[0].Nombre, "Abiyán");

    platform::DomicilioTabla domicilio;
    domicilio.Conexion(empresa->cnn);
    domicilio.address("||Boulevard de la République|12|B");
    domicilio.colony("Le Plateau");
    domicilio.codep("01000");
    ASSERT_TRUE(domicilio.objCiudad().cargarPor("Sys_PK", Variant::Long(ciudad)));
    ASSERT_TRUE(domicilio.guardar()) << domicilio.ultimoError();
    EXPECT_EQ(domicilio.Sys_PK(), 5);

    platform::DomicilioTabla leido;
    leido.Conexion(empresa->cnn);
    ASSERT_TRUE(leido.cargar(domicilio.Sys_PK())) << leido.ultimoError();
    EXPECT_EQ((std::vector<std::string>{leido.address(), leido.colony(), leido.codep()}),
              (std::vector<std::string>{"||Boulevard de la République|12|B", "Le Plateau", "01000"}));
    const auto donde = lugares.UbicarCiudad(leido.objCiudad().Sys_PK());
    ASSERT_TRUE(donde.has_value());
    EXPECT_EQ((std::vector<std::int32_t>{donde->pais, donde->estado}), (std::vector<std::int32_t>{pais, estado}));
    EXPECT_EQ(CStr(empresa->Valor("SELECT Nombre FROM Pais WHERE Sys_PK = " + std::to_string(pais))), "Côte d'Ivoire");
}

std::string NombreDelTipo(const ::testing::TestParamInfo<std::string>& info) {
    std::string nombre;
    for (char c : info.param) nombre += c == '-' ? '_' : c;
    return nombre;
}

INSTANTIATE_TEST_SUITE_P(Motores, LugaresConducta, ::testing::ValuesIn(Empresa::Tipos()), NombreDelTipo);

}  // namespace
}  // namespace celdora

// The catalogue's places and the address object on every kind of
// connection: new places written with their links and the keys the engine
// gives, listed by name, and an address in a new city read back whole.

#include <gtest/gtest.h>

#include "platform/common/Catalogo.h"
#include "platform/common/Domicilio.h"
#include "tests/integration/Conexiones.h"

namespace celdora {
namespace {

using integracion::Empresa;
using Claves = std::vector<std::int32_t>;

class LugaresConducta : public ::testing::TestWithParam<std::string> {};

TEST_P(LugaresConducta, NewPlacesAndAnAddressInOneReadBack) {
    if (const std::string motivo = Empresa::PorQueNoDisponible(GetParam()); !motivo.empty()) GTEST_SKIP() << motivo;
    const auto empresa = Empresa::Crear(GetParam());
    platform::FuenteLugares lugares(empresa->cnn);
    const std::int32_t pais = lugares.AgregarPais("Côte d'Ivoire");
    const std::int32_t estado = lugares.AgregarEstado(pais, "Lagunes");
    const std::int32_t ciudad = lugares.AgregarCiudad(pais, estado, "Abiyán");
    EXPECT_EQ((Claves{pais, estado, ciudad, lugares.AgregarCiudad(pais, 0, "Yamusukro")}), (Claves{4, 5, 6, 7}));
    EXPECT_EQ(lugares.CiudadesDePais(pais).at(1).Nombre, "Yamusukro") << "by name";
    EXPECT_TRUE(empresa->Valor("SELECT IEstado FROM Ciudad WHERE Sys_PK = 7").IsNull()) << "no state, no link";

    platform::DomicilioTabla domicilio;
    domicilio.Conexion(empresa->cnn);
    domicilio.address("||Boulevard de la République|12|B");
    ASSERT_TRUE(domicilio.objCiudad().cargarPor("Sys_PK", Variant::Long(ciudad)));
    ASSERT_TRUE(domicilio.guardar()) << domicilio.ultimoError();
    platform::DomicilioTabla leido;
    leido.Conexion(empresa->cnn);
    ASSERT_TRUE(leido.cargar(domicilio.Sys_PK())) << leido.ultimoError();
    EXPECT_EQ(leido.address(), "||Boulevard de la République|12|B");
    const auto donde = lugares.UbicarCiudad(leido.objCiudad().Sys_PK()).value_or(host::UbicacionCiudad{});
    EXPECT_EQ((Claves{donde.pais, donde.estado}), (Claves{pais, estado}));
}

INSTANTIATE_TEST_SUITE_P(Motores, LugaresConducta, ::testing::ValuesIn(Empresa::Tipos()),
                         integracion::NombreDelTipo());

}  // namespace
}  // namespace celdora

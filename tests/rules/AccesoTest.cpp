// Permission checks: a company setting lists the groups that may take an
// action; the user's groups are loaded only when none are, and a denial
// shows one of two boxes unless the caller asked for silence.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/cAcction.h"
#include "platform/common/Usuario.h"
#include "tests/support/CompanyFixture.h"
#include "tests/support/TestPlatform.h"

namespace celdora {
namespace {

using testing::CompanyDatabase;
using testing::TestPlatform;

class PermitirAcceso : public ::testing::Test {
protected:
    TestPlatform platform;
    CompanyDatabase db{CompanyDatabase::Datos::Demo};
    cAcction facade;
    // A user in the groups Ventas (3) and Cobranza (7).
    std::shared_ptr<platform::UsuarioConGrupos> usuario =
        std::make_shared<platform::UsuarioConGrupos>(std::vector<std::int32_t>{3, 7});

    void SetUp() override { facade.SetDataObjects(db.dataObjects, nullptr); }

    void Permiso(const std::string& valor) { ASSERT_TRUE(facade.GlobalVar->GuardarTexto("NVCA317x", valor)); }

    void EsperarDenegaciones(std::size_t cuantas, const std::string& titulo) {
        ASSERT_EQ(platform.ui.Cajas().size(), cuantas);
        for (const auto& caja : platform.ui.Cajas()) {
            EXPECT_EQ(caja.texto, "Permiso denegado.");
            EXPECT_EQ(caja.icono, host::Icono::Critico);
            EXPECT_EQ(caja.titulo, titulo);
        }
    }
};

TEST_F(PermitirAcceso, AUserInAListedGroupPasses) {
    Permiso("7;12");
    EXPECT_TRUE(facade.PermitirAcceso("NVCA317x", usuario));
    Permiso("12; 7");
    EXPECT_TRUE(facade.PermitirAcceso("NVCA317x", usuario)) << "a piece counts by the number it starts with";
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

TEST_F(PermitirAcceso, AUserInNoListedGroupOrNoUserIsDeniedWithTheTitledBox) {
    Permiso("12;70");
    EXPECT_FALSE(facade.PermitirAcceso("NVCA317x", usuario));
    Permiso("7;12");
    EXPECT_FALSE(facade.PermitirAcceso("NVCA317x", nullptr));
    Permiso("12;");
    EXPECT_FALSE(facade.PermitirAcceso("NVCA317x", usuario)) << "a list with an empty piece is not empty";
    EsperarDenegaciones(3, "Tiendaro");
}

TEST_F(PermitirAcceso, AnEmptyOrBlankListDeniesEveryoneWithTheUntitledBox) {
    Permiso("");
    EXPECT_FALSE(facade.PermitirAcceso("NVCA317x", usuario));
    Permiso("   ");
    EXPECT_FALSE(facade.PermitirAcceso("NVCA317x", usuario));
    EsperarDenegaciones(2, "");
    EXPECT_EQ(usuario->VecesCargado(), 0);
}

TEST_F(PermitirAcceso, AnAsteriskOrAKeyNeverSavedAllowsEveryoneWithoutAskingTheUser) {
    Permiso(" * ");
    EXPECT_TRUE(facade.PermitirAcceso("NVCA317x", usuario));
    EXPECT_TRUE(facade.PermitirAcceso("NVCA326xb", usuario));
    EXPECT_EQ(usuario->VecesCargado(), 0);
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

TEST_F(PermitirAcceso, TheGroupsAreLoadedOnceAndOnlyWhenNoneAreLoaded) {
    Permiso("12;70;7;3");
    EXPECT_TRUE(facade.PermitirAcceso("NVCA317x", usuario));
    EXPECT_TRUE(facade.PermitirAcceso("NVCA317x", usuario));
    EXPECT_EQ(usuario->VecesCargado(), 1);
}

TEST_F(PermitirAcceso, WithAlertaFalseADenialShowsNothing) {
    Permiso("12;70");
    EXPECT_FALSE(facade.PermitirAcceso("NVCA317x", usuario, false));
    Permiso("");
    EXPECT_FALSE(facade.PermitirAcceso("NVCA317x", usuario, false));
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

}  // namespace
}  // namespace celdora

#include "platform/common/Usuario.h"

#include <gtest/gtest.h>

#include "value/Fault.h"

namespace celdora::platform {
namespace {

TEST(UsuarioConGrupos, HoldsNoGroupUntilCargarRunsAndThenTheGivenOnesInOrder) {
    UsuarioConGrupos usuario({3, 7});
    host::GruposUsuario& grupos = usuario.Grupos();
    EXPECT_EQ(grupos.Elementos().Count(), 0);
    EXPECT_EQ(usuario.VecesCargado(), 0);

    grupos.Cargar("", "");
    EXPECT_EQ(usuario.VecesCargado(), 1);
    ASSERT_EQ(grupos.Elementos().Count(), 2);
    EXPECT_EQ(grupos.Elementos().Item(1)->Sys_PK(), 3.0);
    EXPECT_EQ(grupos.Elementos().Item(2)->Sys_PK(), 7.0);

    // Loading again gives the same groups, not twice as many.
    grupos.Cargar("", "");
    EXPECT_EQ(usuario.VecesCargado(), 2);
    EXPECT_EQ(grupos.Elementos().Count(), 2);

    for (const int fuera : {0, 3}) {
        try {
            grupos.Elementos().Item(fuera);
            FAIL() << "no fault for item " << fuera;
        } catch (const Fault& fault) {
            EXPECT_EQ(fault.number, 9);
        }
    }
}

TEST(UsuarioConGrupos, UserOfNoGroupStaysEmptyAfterLoading) {
    UsuarioConGrupos usuario({});
    usuario.Grupos().Cargar("", "");
    EXPECT_EQ(usuario.Grupos().Elementos().Count(), 0);
    EXPECT_EQ(usuario.VecesCargado(), 1);
}

}  // namespace
}  // namespace celdora::platform

// Permission checks: a company setting lists the groups that may take an
// action; the user's groups are loaded only when none are, and a denial
// shows one of two boxes unless the caller asked for silence.

#include "platform/common/Usuario.h"
#include "tests/support/FachadaDemo.h"

namespace celdora {
namespace {

using Acceso = testing::FachadaDemo;

TEST_F(Acceso, PermitirAccesoByTheListOfGroups) {
    // permiso nullptr: a key never saved. titulo nullptr: no box.
    const struct {
        const char* permiso;
        bool conUsuario, alerta, permite;
        int cargas;
        const char* titulo;
    } casos[] = {
        {"7;12", true, true, true, 1, nullptr},  // the user's last group
        {"12;70; 3", true, true, true, 1, nullptr},  // the first group; a piece counts by its leading number
        {"12;70", true, true, false, 1, "Tiendaro"},
        {"7;12", false, true, false, 0, "Tiendaro"},
        {"   ", true, true, false, 0, ""},
        {" * ", true, true, true, 0, nullptr},
        {nullptr, true, true, true, 0, nullptr},
        {"12;70", true, false, false, 1, nullptr},
        {"", true, false, false, 0, nullptr},
    };
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.permiso ? caso.permiso : "(never saved)");
        // A user in the groups Ventas (3) and Cobranza (7).
        auto usuario = std::make_shared<platform::UsuarioConGrupos>(std::vector<std::int32_t>{3, 7});
        const std::string clave = caso.permiso ? "NVCA317x" : "NVCA326xb";
        ASSERT_TRUE(!caso.permiso || acc.GlobalVar->GuardarTexto(clave, caso.permiso));
        const std::size_t antes = platform.ui.Cajas().size();

        EXPECT_EQ(acc.PermitirAcceso(clave, caso.conUsuario ? usuario : nullptr, caso.alerta), caso.permite);
        if (caso.permite) {
            EXPECT_TRUE(acc.PermitirAcceso(clave, usuario, caso.alerta));
        }

        EXPECT_EQ(usuario->VecesCargado(), caso.cargas) << "the groups are loaded once, and only when none are";
        ASSERT_EQ(platform.ui.Cajas().size(), antes + (caso.titulo ? 1 : 0));
        if (caso.titulo) {
            platform.ui.ExpectCaja(antes, "Permiso denegado.", host::Icono::Critico, caso.titulo);
        }
    }
}

}  // namespace
}  // namespace celdora

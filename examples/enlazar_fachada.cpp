// How a host binds the library's facade, in C++.
//
// A host owns the database connection, its data object (transactions), its
// catalogue and its users; the library owns nothing of them. The steps:
//
//   1. Install a platform once for the process: the factory of the objects
//      the library creates by name, the user interface services (here the
//      terminal) and a clock.
//   2. Open the company database and wrap it in the host's data object.
//   3. Create cAcction, bind it with SetDataObjects and tell it the
//      application's name.
//   4. Ask it questions about documents.
//
// Run without arguments it works on a demo company built in memory; with a
// path it opens that existing SQLite company instead.

#include <filesystem>
#include <iostream>
#include <memory>
#include <string>

#include "core/cAcction.h"
#include "platform/common/Catalogo.h"
#include "platform/common/DataObjectsMotor.h"
#include "platform/common/SystemClock.h"
#include "platform/common/Usuario.h"
#include "platform/console/ConsolaUi.h"
#include "platform/desktop/PlataformaEscritorio.h"
#include "platform/sqlite/Sqlite.h"
#include "schema/Schema.h"
#include "value/Convert.h"
#include "value/Fault.h"

using namespace celdora;

namespace {

// The company: an existing file, or the demo company in memory.
std::shared_ptr<platform::ConexionMotor> AbrirEmpresa(int argc, char** argv) {
    if (argc > 1) {
        if (!std::filesystem::is_regular_file(argv[1])) throw Fault{53, std::string("File not found: ") + argv[1]};
        return platform::AbrirSqlite(argv[1]);
    }
    auto conexion = platform::AbrirSqlite(":memory:");
    platform::EjecutarGuion(*conexion, std::string(schema::EsquemaSqlite()));
    platform::EjecutarGuion(*conexion, std::string(schema::DatosDemo()));
    return conexion;
}

}  // namespace

int main(int argc, char** argv) {
    // 1. The platform. Questions are answered "No" at once, so the example
    //    never waits for the keyboard; boxes are printed as they show.
    platform::ConsolaUi ui(platform::ConsolaUi::RespuestaFija::No);
    platform::SystemClock reloj;
    platform::PlataformaEscritorio plataforma(ui, reloj);
    platform::PlataformaInstalada instalada(plataforma);

    try {
        // 2. The host's database and data object.
        auto conexion = AbrirEmpresa(argc, argv);
        auto dataObjects = std::make_shared<platform::DataObjectsMotor>(conexion);
        auto catalogo = std::make_shared<platform::CatalogoPaises>(conexion);

        // 3. The facade, bound.
        cAcction accion;
        accion.SetDataObjects(dataObjects, catalogo);
        accion.ApplicationName = "Ejemplo";
        std::cout << "isSet: " << AutomationBool(accion.isSet()) << "\n";

        // 4. Questions. Booleans are shown as they cross an automation
        //    interface: -1 true, 0 false.
        std::cout << "TipoComprobanteAGenerar: " << accion.TipoComprobanteAGenerar() << "\n";
        std::cout << "ExisteCFD(1): " << AutomationBool(accion.ExisteCFD(1)) << "\n";

        // A user of the host in the groups 3 and 7; the permission NVCA316x
        // of the demo lists the groups 1 and 3.
        auto ventas = std::make_shared<platform::UsuarioConGrupos>(std::vector<std::int32_t>{3, 7});
        const bool permitido = accion.PermitirAcceso("NVCA316x", ventas);
        std::cout << "PermitirAcceso(NVCA316x, grupos 3 y 7): " << AutomationBool(permitido) << "\n";

        // One in group 12 only is denied; the library says so in a box,
        // which the terminal shows before the answer is printed.
        auto auditoria = std::make_shared<platform::UsuarioConGrupos>(std::vector<std::int32_t>{12});
        const bool auditor = accion.PermitirAcceso("NVCA316x", auditoria);
        std::cout << "PermitirAcceso(NVCA316x, grupo 12): " << AutomationBool(auditor) << "\n";

        // A member that reports through LastErrorDescript.
        const bool posible = accion.PosibleCancelar(1);
        std::cout << "PosibleCancelar(1): " << AutomationBool(posible) << "\n";
        if (!posible) std::cout << "  LastErrorDescript: " << accion.LastErrorDescript << "\n";
    } catch (const Fault& fault) {
        std::cerr << ErrorText(fault) << "\n";
        return 1;
    }
    return 0;
}

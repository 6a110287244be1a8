// A host program built outside Celdora's tree, against an installed Celdora
// (see CMakeLists.txt and Makefile beside this file).
//
//   consumidor EMPRESA.db
//
// Binds the facade to the SQLite company file given; when the file does not
// exist yet it is created first with the library's schema and the demo
// company. Prints a few of the facade's answers, booleans as they cross an
// automation interface (-1 true, 0 false).

#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

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

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "uso: consumidor EMPRESA.db\n";
        return 2;
    }
    const std::string ruta = argv[1];

    // Questions are answered "No" at once, so the program never waits.
    platform::ConsolaUi ui(platform::ConsolaUi::RespuestaFija::No);
    platform::SystemClock reloj;
    platform::PlataformaEscritorio plataforma(ui, reloj);
    platform::PlataformaInstalada instalada(plataforma);

    try {
        const bool nueva = !std::filesystem::exists(ruta);
        auto conexion = platform::AbrirSqlite(ruta);
        if (nueva) {
            platform::EjecutarGuion(*conexion, std::string(schema::EsquemaSqlite()));
            platform::EjecutarGuion(*conexion, std::string(schema::DatosDemo()));
            std::cout << "empresa de demostración creada en " << ruta << "\n";
        }

        cAcction accion;
        accion.SetDataObjects(std::make_shared<platform::DataObjectsMotor>(conexion),
                              std::make_shared<platform::CatalogoPaises>(conexion));
        accion.ApplicationName = "Consumidor";

        std::cout << "isSet: " << AutomationBool(accion.isSet()) << "\n";
        std::cout << "TipoComprobanteAGenerar: " << accion.TipoComprobanteAGenerar() << "\n";
        std::cout << "ExisteCFD(1): " << AutomationBool(accion.ExisteCFD(1)) << "\n";
        auto ventas = std::make_shared<platform::UsuarioConGrupos>(std::vector<std::int32_t>{3, 7});
        std::cout << "PermitirAcceso(NVCA316x, grupos 3 y 7): "
                  << AutomationBool(accion.PermitirAcceso("NVCA316x", ventas)) << "\n";
    } catch (const Fault& fault) {
        std::cerr << ErrorText(fault) << "\n";
        return 1;
    }
    return 0;
}

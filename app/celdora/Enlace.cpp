#include "app/celdora/Enlace.h"

#include "app/celdora/Conexion.h"
#include "platform/common/Catalogo.h"
#include "platform/common/DataObjectsMotor.h"

namespace celdora::app {

Fachada EnlazarFachada(const Opciones& opciones) {
    Fachada fachada;
    fachada.conexion = AbrirConexion(opciones.db);
    fachada.accion = std::make_shared<cAcction>();
    fachada.accion->SetDataObjects(std::make_shared<platform::DataObjectsMotor>(fachada.conexion),
                                   std::make_shared<platform::CatalogoPaises>(fachada.conexion));
    fachada.accion->ApplicationName = opciones.app;
    fachada.accion->AppRepositoryPath = opciones.repo;
    fachada.accion->AppReportsPath = opciones.informes;
    return fachada;
}

}  // namespace celdora::app

#pragma once

#include <memory>
#include <string>

#include "value/Object.h"

namespace celdora::host {

// File operations of the host, one shared instance for the process.
class cUtilerias : public Object {
public:
    // The folder with a trailing path separator.
    virtual std::string AgregarDiagonal(const std::string& folder) = 0;
    virtual bool ExisteArchivo(const std::string& path) = 0;
    // The file's text; empty for an absent or unreadable file.
    virtual std::string LeerArchivoTexto(const std::string& path) = 0;
    // Writes the text; true on success.
    virtual bool GuardarArchivoTexto(const std::string& path, const std::string& text) = 0;
    virtual std::string RutaTemporal() = 0;
    virtual std::string CarpetaDeRuta(const std::string& path) = 0;
    virtual std::string NombreSinExtension(const std::string& path) = 0;
    virtual std::string NombreArchivo(const std::string& path) = 0;
    // Creates an automation object by its ProgID through the platform; null
    // when the component is not installed.
    virtual std::shared_ptr<Object> CrearObjeto(const std::string& progId, const std::string& server) = 0;
};

}  // namespace celdora::host

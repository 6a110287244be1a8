#pragma once

#include <memory>
#include <string>

#include "host/cUtilerias.h"

namespace celdora::platform {

// The file utilities on the local file system.
//
// Paths are handed to the operating system as they are given: on this side
// a backslash is an ordinary character of a file name, so the system builds
// the paths it opens with AgregarDiagonal. Only the operations that take a
// path apart (CarpetaDeRuta, NombreArchivo, NombreSinExtension) accept both
// '/' and '\' as separators, because they also see paths typed or stored
// Windows-style.
class cUtileriasArchivos : public host::cUtilerias {
public:
    // The separator of this platform: '\' on Windows, '/' elsewhere.
    static char Separador();

    // The folder with the platform's separator at the end, unless it already
    // ends in '/' or '\'. An empty folder gives the separator alone, as the
    // platform's own "add backslash" does; callers test for an empty folder
    // first where that matters.
    std::string AgregarDiagonal(const std::string& folder) override;
    // True for an existing regular file (or a link to one); a folder is not
    // a file.
    bool ExisteArchivo(const std::string& path) override;
    // The file's bytes as they are, without any decoding or line-end change;
    // empty for an absent or unreadable file or a folder.
    std::string LeerArchivoTexto(const std::string& path) override;
    // Creates or replaces the file with exactly the bytes of the text (UTF-8,
    // no line-end conversion). False when the file can't be written: missing
    // folder, no permission, a folder by that name.
    bool GuardarArchivoTexto(const std::string& path, const std::string& text) override;
    // TMPDIR when set, else /tmp (on Windows, the system's temporary folder),
    // always without a trailing separator.
    std::string RutaTemporal() override;
    // The folder part, without a trailing separator; "" when the path has no
    // folder part. A folder at the root keeps its separator ("/a" gives "/",
    // "C:\a" gives "C:\"), since without it the path would mean something
    // else.
    std::string CarpetaDeRuta(const std::string& path) override;
    // The file name without the text from its last dot on. A name whose only
    // dot is its first character (".perfil") has no extension.
    std::string NombreSinExtension(const std::string& path) override;
    // The text after the last separator.
    std::string NombreArchivo(const std::string& path) override;
    // The platform's object of that name, or null when it is not installed.
    // The server name is ignored: objects are only created locally. With no
    // platform installed the platform's Fault 91 is raised.
    std::shared_ptr<Object> CrearObjeto(const std::string& progId, const std::string& server) override;
};

}  // namespace celdora::platform

#pragma once

#include <string>

#include "host/Settings.h"

namespace celdora::platform {

// The per-machine settings in INI-style files, one file per application in
// the user's configuration folder:
//
//   <folder>/<application>.ini        [Section] lines and key=value lines
//
// Application names, sections and keys are compared without regard to case,
// so a key written as FE_Timbre001 is found as Fe_Timbre001 and writing it
// under either spelling replaces the one line it has (taking the writer's
// spelling). The file name is the application name in lower case, with any
// character that is unsafe in a file name written as %XX.
//
// A value is kept exactly as given. In the file, '\' is written "\\", a line
// feed "\n" and a carriage return "\r"; a value that begins or ends with a
// blank or tab, or begins with a double quote, is written between double
// quotes, which are removed on reading. Keys are written the same way with
// '=', ';', '#' and '[' escaped by a backslash, and section names with ']'
// escaped. On reading, a backslash followed by n or r gives the line break
// and a backslash followed by any other character gives that character, so
// a file edited by hand must double its backslashes. Blanks around keys and
// values that are not quoted are ignored, as are empty lines and lines that
// begin with ';' or '#'. A write rewrites only the line of its key (or adds
// one); every other line stays as it was.
//
// Every write goes to disk at once: the whole file is written to a temporary
// file beside it, which then replaces it; the file is readable by its owner
// only, since it holds the stamping account. The folder is created on the
// first write. A file that exists but can't be read, and a write that can't be
// made, raise Fault 75 ("Path/File access error"); a folder that can't be
// created raises Fault 76 ("Path not found").
class cConfigLocalIni : public host::cConfigLocal {
public:
    // The folder from the environment: CELDORA_CONFIG_DIR, else
    // $XDG_CONFIG_HOME/celdora, else $HOME/.config/celdora (on Windows
    // %APPDATA%\celdora comes before the last two); with none of them set,
    // ".celdora" under the current folder at the time of construction.
    cConfigLocalIni();
    explicit cConfigLocalIni(std::string carpeta);

    std::string ObtenerValor(const std::string& aplicacion, const std::string& seccion, const std::string& clave,
                             const std::string& porDefecto) override;
    void GuardarValor(const std::string& aplicacion, const std::string& seccion, const std::string& clave,
                      const std::string& valor) override;

    const std::string& Carpeta() const { return carpeta_; }
    // The file that holds an application's settings.
    std::string RutaArchivo(const std::string& aplicacion) const;

    static std::string CarpetaPredeterminada();

private:
    std::string carpeta_;
};

}  // namespace celdora::platform

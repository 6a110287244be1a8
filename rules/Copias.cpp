// The machine's own copies of comprobantes, kept in the folder of the
// per-machine key FE_CopiaLocal; an empty folder turns copies off. A copy
// that already exists is never overwritten. Errors are passed over
// statement by statement, and the result starts false.

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

#include "core/Mensajes.h"
#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "rules/frmSaveAs.h"
#include "value/Channels.h"
#include "value/Text.h"

namespace celdora {

namespace {

// The file system path of one of the system's UTF-8 path texts.
std::filesystem::path RutaDeArchivo(const std::string& texto) {
    return std::filesystem::path(std::u8string(texto.begin(), texto.end()));
}

// Copies a file to a path that must not exist yet, raising the platform's
// faults when the source is missing or the copy cannot be made.
void CopiarArchivo(const std::string& origen, const std::string& destino) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(RutaDeArchivo(origen), error)) throw FileNotFound();
    if (!std::filesystem::copy_file(RutaDeArchivo(origen), RutaDeArchivo(destino),
                                    std::filesystem::copy_options::none, error) ||
        error) {
        throw PathFileAccessError();
    }
}

// The folder of the copies; empty when copies are off.
std::string CarpetaDeCopias(cAcction& facade) {
    std::string carpeta;
    ResumeNext([&] { carpeta = facade.StrConfiguracionLocal("FE_CopiaLocal", ""); });
    return carpeta;
}

// The full path of the copy inside the folder, or nothing when a file of
// that name is already there: that is refused with an information box
// titled with the host's application name.
std::optional<std::string> RutaLibre(cAcction& facade, const std::string& carpeta, const std::string& nombre) {
    std::string ruta;
    ResumeNext([&] { ruta = mdlMain::Utilerias().AgregarDiagonal(carpeta) + nombre; });
    bool existe = false;
    ResumeNext([&] { existe = mdlMain::Utilerias().ExisteArchivo(ruta); });
    if (existe) {
        ResumeNext([&] {
            core::Caja("No se puede guardar la copia del comprobante. Ya existe un archivo con el mismo nombre en " +
                           ruta,
                       host::Icono::Informacion, facade.ApplicationName);
        });
        return std::nullopt;
    }
    return ruta;
}

}  // namespace

bool cAcction::GuardarCopiaComprobanteXML(const std::string& sXML, const std::string& nombre) {
    bool result = false;
    const std::string carpeta = CarpetaDeCopias(*this);
    if (carpeta.empty()) return result;
    const auto ruta = RutaLibre(*this, carpeta, nombre);
    if (!ruta) return result;
    ResumeNext([&] { result = mdlMain::Utilerias().GuardarArchivoTexto(*ruta, sXML); });
    return result;
}

// Without a name of its own the copy takes the source's file name.
bool cAcction::GuardarCopiaComprobante(const std::string& sArchivo, const std::string& nombre) {
    bool result = false;
    const std::string carpeta = CarpetaDeCopias(*this);
    if (carpeta.empty()) return result;
    std::string nombreCopia = nombre;
    ResumeNext([&] {
        if (Trim(nombre).empty()) nombreCopia = mdlMain::Utilerias().NombreArchivo(sArchivo);
    });
    const auto ruta = RutaLibre(*this, carpeta, nombreCopia);
    if (!ruta) return result;
    // The copy and the result are two statements: a copy that fails is
    // passed over and the result still becomes true.
    ResumeNext([&] { CopiarArchivo(sArchivo, *ruta); });
    result = true;
    return result;
}

Variant cAcction::ShowSaveAs(const std::string& filter, const std::string& fileName) {
    frmSaveAs forma;
    forma.Show();
    std::string ruta = forma.SaveAs(filter, fileName);
    forma.Unload();
    return ruta;
}

}  // namespace celdora

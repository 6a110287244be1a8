#include "platform/files/cUtileriasArchivos.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <system_error>

#include "host/Platform.h"
#include "platform/files/RutaNativa.h"

namespace celdora::platform {

namespace fs = std::filesystem;
using detail::RutaNativa;

namespace {

bool EsSeparador(char c) { return c == '/' || c == '\\'; }

bool EsUnidad(const std::string& text) {
    return text.size() == 2 && text[1] == ':' &&
           ((text[0] >= 'A' && text[0] <= 'Z') || (text[0] >= 'a' && text[0] <= 'z'));
}

std::size_t UltimoSeparador(const std::string& path) { return path.find_last_of("/\\"); }

}  // namespace

char cUtileriasArchivos::Separador() {
#ifdef _WIN32
    return '\\';
#else
    return '/';
#endif
}

std::string cUtileriasArchivos::AgregarDiagonal(const std::string& folder) {
    if (!folder.empty() && EsSeparador(folder.back())) return folder;
    return folder + Separador();
}

bool cUtileriasArchivos::ExisteArchivo(const std::string& path) {
    if (path.empty()) return false;
    std::error_code error;
    return fs::is_regular_file(RutaNativa(path), error);
}

std::string cUtileriasArchivos::LeerArchivoTexto(const std::string& path) {
    if (!ExisteArchivo(path)) return {};
    std::ifstream in(RutaNativa(path), std::ios::binary);
    if (!in) return {};
    std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    if (in.bad()) return {};
    return text;
}

bool cUtileriasArchivos::GuardarArchivoTexto(const std::string& path, const std::string& text) {
    if (path.empty()) return false;
    const fs::path target = RutaNativa(path);
    std::error_code error;
    if (fs::is_directory(target, error)) return false;
    std::ofstream out(target, std::ios::binary | std::ios::trunc);
    if (!out) return false;
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
    out.close();
    return !out.fail();
}

std::string cUtileriasArchivos::RutaTemporal() {
    std::string folder;
#ifdef _WIN32
    std::error_code error;
    folder = detail::TextoDeRuta(fs::temp_directory_path(error));
#else
    if (const char* tmpdir = std::getenv("TMPDIR"); tmpdir != nullptr) folder = tmpdir;
#endif
    if (folder.empty()) folder = "/tmp";
    // Trailing separators go, but a root keeps its own ("/", "C:\").
    while (folder.size() > 1 && EsSeparador(folder.back()) && !EsUnidad(folder.substr(0, folder.size() - 1)))
        folder.pop_back();
    return folder;
}

std::string cUtileriasArchivos::CarpetaDeRuta(const std::string& path) {
    const std::size_t last = UltimoSeparador(path);
    if (last == std::string::npos) return {};
    std::string folder = path.substr(0, last);
    while (!folder.empty() && EsSeparador(folder.back())) folder.pop_back();
    if (folder.empty()) return std::string(1, path.front());  // "/a": the root
    if (EsUnidad(folder)) return folder + path[folder.size()];  // "C:\a": the drive's root
    return folder;
}

std::string cUtileriasArchivos::NombreSinExtension(const std::string& path) {
    std::string name = NombreArchivo(path);
    const std::size_t dot = name.rfind('.');
    if (dot != std::string::npos && dot > 0) name.erase(dot);
    return name;
}

std::string cUtileriasArchivos::NombreArchivo(const std::string& path) {
    const std::size_t last = UltimoSeparador(path);
    return last == std::string::npos ? path : path.substr(last + 1);
}

std::shared_ptr<Object> cUtileriasArchivos::CrearObjeto(const std::string& progId, const std::string& /*server*/) {
    return host::CurrentPlatform().CrearObjeto(progId);
}

}  // namespace celdora::platform

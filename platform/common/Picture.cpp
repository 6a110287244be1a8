#include "platform/common/Picture.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>

namespace celdora::platform {

namespace {

bool Empieza(const Bytes& datos, std::size_t offset, std::initializer_list<std::uint8_t> firma) {
    if (datos.size() < offset + firma.size()) return false;
    std::size_t i = offset;
    for (const std::uint8_t byte : firma) {
        if (datos[i++] != byte) return false;
    }
    return true;
}

std::uint32_t Palabra16(const Bytes& datos, std::size_t offset) {
    return static_cast<std::uint32_t>(datos[offset] | (datos[offset + 1] << 8));
}

std::uint32_t Palabra32(const Bytes& datos, std::size_t offset) {
    return Palabra16(datos, offset) | (Palabra16(datos, offset + 2) << 16);
}

// "BM" alone begins many texts too, so the size of the header that follows
// the file header must be one that bitmaps have.
bool EsBmp(const Bytes& datos) {
    if (!Empieza(datos, 0, {'B', 'M'}) || datos.size() < 18) return false;
    switch (Palabra32(datos, 14)) {
        case 12: case 16: case 40: case 52: case 56: case 64: case 108: case 124:
            return true;
        default:
            return false;
    }
}

// A metafile without the placeable header starts with its own header: type 1
// (in memory) or 2 (on disk), a header of 9 words and version 1 or 3.
bool EsWmfSinCabecera(const Bytes& datos) {
    if (datos.size() < 6) return false;
    const std::uint32_t tipo = Palabra16(datos, 0);
    const std::uint32_t version = Palabra16(datos, 4);
    return (tipo == 1 || tipo == 2) && Palabra16(datos, 2) == 9 && (version == 0x0100 || version == 0x0300);
}

// An enhanced metafile begins with its header record (type 1) whose
// signature " EMF" stands at offset 40.
bool EsEmf(const Bytes& datos) {
    return datos.size() >= 44 && Palabra32(datos, 0) == 1 && Empieza(datos, 40, {' ', 'E', 'M', 'F'});
}

std::filesystem::path RutaNativa(const std::string& text) {
#ifdef _WIN32
    return std::filesystem::path(std::u8string(text.begin(), text.end()));
#else
    return std::filesystem::path(text);
#endif
}

}  // namespace

std::string FormatoImagen(const Bytes& datos) {
    if (Empieza(datos, 0, {0xFF, 0xD8, 0xFF})) return "jpeg";
    if (Empieza(datos, 0, {0x89, 'P', 'N', 'G', 0x0D, 0x0A, 0x1A, 0x0A})) return "png";
    if (Empieza(datos, 0, {'G', 'I', 'F', '8', '7', 'a'}) || Empieza(datos, 0, {'G', 'I', 'F', '8', '9', 'a'}))
        return "gif";
    if (EsBmp(datos)) return "bmp";
    if (Empieza(datos, 0, {0xD7, 0xCD, 0xC6, 0x9A}) || EsWmfSinCabecera(datos)) return "wmf";
    if (EsEmf(datos)) return "emf";
    return {};
}

std::shared_ptr<host::Picture> CargarImagen(const std::string& path) {
    std::error_code error;
    const std::filesystem::path ruta = RutaNativa(path);
    if (path.empty() || !std::filesystem::is_regular_file(ruta, error)) return nullptr;
    std::ifstream in(ruta, std::ios::binary);
    if (!in) return nullptr;
    Bytes datos{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    if (in.bad()) return nullptr;
    std::string formato = FormatoImagen(datos);
    if (formato.empty()) return nullptr;
    return std::make_shared<ImagenArchivo>(std::move(formato), std::move(datos));
}

}  // namespace celdora::platform

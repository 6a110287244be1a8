#pragma once

// The two code images the CBB tests store: a JPEG and a 24-bit BMP of a
// few kB each, kept beside these tests.

#include <fstream>
#include <iterator>
#include <string>

#include "value/Variant.h"

namespace celdora::testing {

inline const std::string kCbbJpeg = std::string(CELDORA_DATOS_CBB) + "/cbb.jpg";
inline const std::string kCbbBmp = std::string(CELDORA_DATOS_CBB) + "/cbb.bmp";

inline Bytes LeerBytes(const std::string& ruta) {
    std::ifstream in(ruta, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

}  // namespace celdora::testing

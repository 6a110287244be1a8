#pragma once

// Internal to the file utilities: the system's paths are UTF-8 text.

#include <filesystem>
#include <string>

namespace celdora::platform::detail {

// The file system path of a UTF-8 text. On Windows the narrow encoding is not
// UTF-8, so the text goes through char8_t; elsewhere the bytes are the name.
inline std::filesystem::path RutaNativa(const std::string& text) {
#ifdef _WIN32
    return std::filesystem::path(std::u8string(text.begin(), text.end()));
#else
    return std::filesystem::path(text);
#endif
}

// The UTF-8 text of a file system path.
inline std::string TextoDeRuta(const std::filesystem::path& path) {
#ifdef _WIN32
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
#else
    return path.string();
#endif
}

}  // namespace celdora::platform::detail

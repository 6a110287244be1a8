#pragma once

#include <filesystem>
#include <random>
#include <string>

namespace celdora::testing {

// A folder of the test's own under the system's temporary folder, removed
// with everything in it when the test ends.
class CarpetaTemporal {
public:
    CarpetaTemporal() {
        std::random_device random;
        ruta_ = std::filesystem::temp_directory_path() / ("celdora-prueba-" + std::to_string(random()));
        std::filesystem::create_directories(ruta_);
    }
    ~CarpetaTemporal() {
        std::error_code error;
        std::filesystem::remove_all(ruta_, error);
    }
    CarpetaTemporal(const CarpetaTemporal&) = delete;
    CarpetaTemporal& operator=(const CarpetaTemporal&) = delete;

    const std::filesystem::path& ruta() const { return ruta_; }
    std::string operator/(const std::string& nombre) const { return (ruta_ / nombre).string(); }

private:
    std::filesystem::path ruta_;
};

}  // namespace celdora::testing

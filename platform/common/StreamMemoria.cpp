#include "platform/common/StreamMemoria.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/common/FallasAdo.h"

namespace celdora::platform {

void StreamMemoria::Type(int type) {
    if (type != host::adTypeBinary && type != host::adTypeText) throw ArgumentosIncorrectos();
    tipo_ = type;
}

int StreamMemoria::Type() const { return tipo_; }

void StreamMemoria::Open() {
    if (abierto_) throw ObjetoAbierto();
    abierto_ = true;
    datos_.clear();
    posicion_ = 0;
}

int StreamMemoria::State() const { return abierto_ ? host::adStateOpen : host::adStateClosed; }

void StreamMemoria::ExigirAbierto() const {
    if (!abierto_) throw ObjetoCerrado();
}

void StreamMemoria::ExigirBinario() const {
    if (tipo_ != host::adTypeBinary) throw NoPermitidoEnContexto();
}

void StreamMemoria::Write(const Variant& bytes) {
    ExigirAbierto();
    ExigirBinario();
    if (bytes.Type() != VarType::Bytes) throw ArgumentosIncorrectos();
    const Bytes& nuevos = bytes.AsBytes();
    if (posicion_ + nuevos.size() > datos_.size()) datos_.resize(posicion_ + nuevos.size());
    std::copy(nuevos.begin(), nuevos.end(), datos_.begin() + static_cast<std::ptrdiff_t>(posicion_));
    posicion_ += nuevos.size();
}

Variant StreamMemoria::read() {
    ExigirAbierto();
    ExigirBinario();
    Bytes resto(datos_.begin() + static_cast<std::ptrdiff_t>(posicion_), datos_.end());
    posicion_ = datos_.size();
    return Variant(std::move(resto));
}

void StreamMemoria::SaveToFile(const std::string& path, int option) {
    ExigirAbierto();
    if (option != host::adSaveCreateNotExist && option != host::adSaveCreateOverWrite) throw ArgumentosIncorrectos();
    std::error_code error;
    if (option == host::adSaveCreateNotExist && std::filesystem::exists(path, error)) throw EscrituraFallida();
    std::ofstream archivo(path, std::ios::binary | std::ios::trunc);
    if (!archivo) throw EscrituraFallida();
    archivo.write(reinterpret_cast<const char*>(datos_.data()), static_cast<std::streamsize>(datos_.size()));
    archivo.close();
    if (!archivo) throw EscrituraFallida();
}

void StreamMemoria::LoadFromFile(const std::string& path) {
    ExigirAbierto();
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) throw ArchivoNoAbierto();
    std::ifstream archivo(path, std::ios::binary);
    if (!archivo) throw ArchivoNoAbierto();
    Bytes leidos((std::istreambuf_iterator<char>(archivo)), std::istreambuf_iterator<char>());
    if (archivo.bad()) throw ArchivoNoAbierto();
    datos_ = std::move(leidos);
    posicion_ = 0;
}

void StreamMemoria::Close() {
    ExigirAbierto();
    abierto_ = false;
    datos_.clear();
    posicion_ = 0;
}

}  // namespace celdora::platform

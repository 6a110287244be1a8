#pragma once

#include <memory>
#include <string>

#include "host/UiServices.h"

namespace celdora::platform {

// A picture read from a file, with the format its contents show.
class ImagenArchivo : public host::Picture {
public:
    ImagenArchivo(std::string formato, Bytes datos) : formato_(std::move(formato)), datos_(std::move(datos)) {}
    std::string Formato() const override { return formato_; }
    const Bytes& Datos() const override { return datos_; }

private:
    std::string formato_;
    Bytes datos_;
};

// The picture format that the bytes begin with: "jpeg", "bmp", "gif", "png",
// "wmf" or "emf"; "" when they are none of these. The name of the file plays
// no part: a CBB image saved as "tmpimage.jpg" may hold any of them.
std::string FormatoImagen(const Bytes& datos);

// The picture in a file, or null when the file can't be read or holds no
// picture of a known format.
std::shared_ptr<host::Picture> CargarImagen(const std::string& path);

}  // namespace celdora::platform

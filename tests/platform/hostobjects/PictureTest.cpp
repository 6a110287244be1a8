#include "platform/common/Picture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace celdora::platform {
namespace {

// The first bytes of a file of each kind, padded with zeros.
Bytes Con(std::initializer_list<int> inicio, std::size_t largo = 64) {
    Bytes bytes(largo, 0);
    std::copy(inicio.begin(), inicio.end(), bytes.begin());
    return bytes;
}
Bytes Bmp() { return Con({'B', 'M', 0x46, 0, 0, 0, 0, 0, 0, 0, 0x36, 0, 0, 0, 40, 0, 0, 0}); }
Bytes Emf() {
    Bytes bytes = Con({1, 0, 0, 0, 0x6C});
    std::copy_n(" EMF", 4, bytes.begin() + 40);
    return bytes;
}

TEST(FormatoImagen, ToldByTheFirstBytesOnly) {
    EXPECT_EQ(FormatoImagen(Con({0xFF, 0xD8, 0xFF, 0xE0})), "jpeg");
    EXPECT_EQ(FormatoImagen(Con({0x89, 'P', 'N', 'G', 0x0D, 0x0A, 0x1A, 0x0A})), "png");
    EXPECT_EQ(FormatoImagen(Con({'G', 'I', 'F', '8', '7', 'a'})), "gif");
    EXPECT_EQ(FormatoImagen(Con({'G', 'I', 'F', '8', '9', 'a'})), "gif");
    EXPECT_EQ(FormatoImagen(Bmp()), "bmp");
    EXPECT_EQ(FormatoImagen(Con({0xD7, 0xCD, 0xC6, 0x9A})), "wmf");
    EXPECT_EQ(FormatoImagen(Con({1, 0, 9, 0, 0, 3})), "wmf");
    EXPECT_EQ(FormatoImagen(Con({2, 0, 9, 0, 0, 1})), "wmf");
    EXPECT_EQ(FormatoImagen(Emf()), "emf");

    const std::string texto = "BMW 320i, factura 12 del mes de enero";
    EXPECT_EQ(FormatoImagen(Bytes(texto.begin(), texto.end())), "") << "a text that begins with BM";
    EXPECT_EQ(FormatoImagen(Con({'G', 'I', 'F', '8', '8', 'a'})), "");
    EXPECT_EQ(FormatoImagen(Con({0xFF, 0xD8}, 2)), "") << "cut short";
    EXPECT_EQ(FormatoImagen(Con({1, 0, 0, 0, 0x6C})), "") << "a record 1 without the EMF signature";
}

TEST(CargarImagen, TheFilesNameDoesNotCount) {
    const auto carpeta = std::filesystem::temp_directory_path() / "celdora-cargar-imagen";
    std::filesystem::create_directories(carpeta);
    auto archivo = [&](const std::string& nombre, const Bytes& bytes) {
        std::ofstream(carpeta / nombre, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        return (carpeta / nombre).string();
    };

    // The CBB image always comes back from the database as tmpimage.jpg.
    const auto bmp = CargarImagen(archivo("tmpimage.jpg", Bmp()));
    ASSERT_NE(bmp, nullptr);
    EXPECT_EQ(bmp->Formato(), "bmp");
    EXPECT_EQ(bmp->Datos(), Bmp());
    EXPECT_EQ(CargarImagen(archivo("texto.jpg", Con({'h', 'o', 'l', 'a'}))), nullptr);
    EXPECT_EQ(CargarImagen(archivo("vacio.jpg", {})), nullptr);
    EXPECT_EQ(CargarImagen((carpeta / "no-existe.jpg").string()), nullptr);
    EXPECT_EQ(CargarImagen(carpeta.string()), nullptr) << "a folder";
    std::filesystem::remove_all(carpeta);
}

}  // namespace
}  // namespace celdora::platform

#include "platform/common/Shell.h"

#include <gtest/gtest.h>

#include "tests/support/TestPlatform.h"

namespace celdora::platform {
namespace {

TEST(ShellCarpetas, GivesTheChosenFolderOrNothingWhenCancelled) {
    testing::TestPlatform plataforma;
    plataforma.ui.Elegir("/srv/informes");
    plataforma.ui.Elegir(std::nullopt);
    ShellCarpetas shell;

    const auto carpeta = shell.BrowseForFolder(0, "Carpeta destino", 1, "");
    ASSERT_NE(carpeta, nullptr);
    EXPECT_EQ(carpeta->SelfPath(), "/srv/informes");
    EXPECT_EQ(carpeta->ItemsItemPath(), "/srv/informes");

    EXPECT_EQ(shell.BrowseForFolder(0, "Carpetas", 0, "/srv"), nullptr);

    const auto& selecciones = plataforma.ui.Selecciones();
    ASSERT_EQ(selecciones.size(), 2u);
    EXPECT_EQ(selecciones[0].titulo, "Carpeta destino");
    EXPECT_EQ(selecciones[1].titulo, "Carpetas");
    EXPECT_EQ(selecciones[1].nombre, "/srv") << "the root goes to the picker";
}

}  // namespace
}  // namespace celdora::platform

// The CBB code image kept in its range's row, on every kind of connection:
// saved from a file through the editor and loaded back into it byte for
// byte; a metafile, which the toolkit may not draw, as well.

#include <gtest/gtest.h>

#include "core/cAcction.h"
#include "platform/common/DataObjectsMotor.h"
#include "tests/cbb/EditorCBB.h"
#include "tests/integration/Conexiones.h"
#include "tests/support/TestPlatform.h"

namespace celdora {
namespace {

using integracion::Empresa;

// A placeable metafile that draws nothing: its header, the metafile header
// and the closing record.
const Bytes kWmf = {0xD7, 0xCD, 0xC6, 0x9A, 0, 0, 0, 0, 0, 0, 100, 0, 100, 0, 0xA0, 0x05, 0, 0, 0, 0, 0x31, 0x57,
                    1, 0, 9, 0, 0, 3, 12, 0, 0, 0, 0, 0, 3, 0, 0, 0, 0, 0, 3, 0, 0, 0, 0, 0};

class ImagenCBB : public ::testing::TestWithParam<std::string> {};

TEST_P(ImagenCBB, AnImageFileComesBackFromItsRowByteForByte) {
    if (const std::string motivo = Empresa::PorQueNoDisponible(GetParam()); !motivo.empty()) GTEST_SKIP() << motivo;
    testing::TestPlatform platform;
    testing::TemporalPrivado temporal;
    auto empresa = Empresa::Crear(GetParam());
    cAcction acc;
    acc.SetDataObjects(std::make_shared<platform::DataObjectsMotor>(empresa->cnn), nullptr);
    const std::string wmf = temporal.carpeta / "cbb.wmf";
    std::ofstream(wmf, std::ios::binary).write(reinterpret_cast<const char*>(kWmf.data()), kWmf.size());
    int pk = 2;
    for (const auto& [ruta, formato] : {std::pair{testing::kCbbJpeg, "jpeg"}, {testing::kCbbBmp, "bmp"}, {wmf, "wmf"}}) {
        ++pk;
        testing::Capturar(platform.ui, 6, 100.0 * pk, 100.0 * pk + 99, "", ruta);
        ASSERT_TRUE(acc.AgregarFoliosCBB()) << ruta;
        EXPECT_EQ(empresa->Valor("SELECT uf_CBB FROM ut_FoliosCBB WHERE Sys_PK=" + std::to_string(pk)).AsBytes(),
                  testing::LeerBytes(ruta));
        platform.ui.AlMostrar("dlgConfigFoliosCBB", [&](forms::Dialogo& d) {
            EXPECT_EQ(testing::Editor(d).pctCBB.Picture()->Formato(), formato);
            testing::Editor(d).btnCancel.Pulsar();
        });
        EXPECT_FALSE(acc.ModificarFoliosCBB(pk));
        EXPECT_EQ(testing::LeerBytes(temporal.carpeta / "tmpimage.jpg"), testing::LeerBytes(ruta));
    }
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

INSTANTIATE_TEST_SUITE_P(Motores, ImagenCBB, ::testing::ValuesIn(Empresa::Tipos()), [](const auto& info) {
    return info.param == "mariadb-odbc" ? std::string("mariadb_odbc") : info.param;
});

}  // namespace
}  // namespace celdora

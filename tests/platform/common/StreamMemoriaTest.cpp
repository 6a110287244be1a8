#include "platform/common/StreamMemoria.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/common/RecordsetCliente.h"
#include "tests/platform/common/Pruebas.h"

namespace celdora::platform {
namespace {

using pruebas::FallaDe;

class StreamMemoriaTest : public ::testing::Test {
protected:
    void SetUp() override {
        carpeta = std::filesystem::temp_directory_path() /
                  ("celdora_stream_" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
        std::filesystem::create_directories(carpeta);
    }
    void TearDown() override { std::filesystem::remove_all(carpeta); }

    StreamMemoria AbiertoBinario() {
        StreamMemoria stream;
        stream.Type(host::adTypeBinary);
        stream.Open();
        return stream;
    }

    std::filesystem::path carpeta;
};

// The image of a CBB range goes from a file into a BLOB through one stream,
// and back out to a file through another.
TEST_F(StreamMemoriaTest, BlobRoundTripThroughFiles) {
    const Bytes imagen{0x89, 'P', 'N', 'G', 0x00, 0x0D, 0x0A, 0xFF};
    const std::string origen = (carpeta / "origen.png").string();
    std::ofstream(origen, std::ios::binary).write(reinterpret_cast<const char*>(imagen.data()), 8);

    pruebas::BaseEnMemoria base("CREATE TABLE ut_FoliosCBB (Sys_PK INTEGER PRIMARY KEY, uf_CBB BLOB);"
                                "INSERT INTO ut_FoliosCBB (Sys_PK) VALUES (7);");
    auto rs = std::make_shared<RecordsetCliente>();
    rs->CursorLocation(host::adUseClient);
    rs->Open("SELECT Sys_PK, uf_CBB FROM ut_FoliosCBB WHERE Sys_PK=7", base.cnn, host::adOpenKeyset,
             host::adLockOptimistic);
    StreamMemoria entrada = AbiertoBinario();
    entrada.LoadFromFile(origen);
    rs->Fields("uf_cbb").Value(entrada.read());
    rs->Update();

    StreamMemoria salida = AbiertoBinario();
    salida.Write(base.cnn->Execute("SELECT uf_CBB FROM ut_FoliosCBB WHERE Sys_PK=7")->Fields("uf_CBB").Value());
    const std::string destino = (carpeta / "tmpimage.jpg").string();
    salida.SaveToFile(destino, host::adSaveCreateOverWrite);
    salida.Close();

    StreamMemoria releido = AbiertoBinario();
    releido.LoadFromFile(destino);
    EXPECT_EQ(releido.read(), Variant(imagen));
}

TEST_F(StreamMemoriaTest, SaveOptionsMissingFilesAndClosedStreams) {
    StreamMemoria stream = AbiertoBinario();
    EXPECT_EQ(FallaDe([&] { stream.Write("texto"); }).number, 3001);
    stream.Write(Variant(Bytes{1, 2, 3}));
    const std::string ruta = (carpeta / "x.bin").string();
    stream.SaveToFile(ruta, host::adSaveCreateNotExist);
    EXPECT_EQ(FallaDe([&] { stream.SaveToFile(ruta, host::adSaveCreateNotExist); }).number, 3004);
    stream.Write(Variant(Bytes{4}));
    stream.SaveToFile(ruta, host::adSaveCreateOverWrite);
    EXPECT_EQ(std::filesystem::file_size(ruta), 4u);
    EXPECT_EQ(FallaDe([&] { stream.SaveToFile((carpeta / "no" / "x.bin").string(), 2); }).number, 3004);
    EXPECT_EQ(FallaDe([&] { stream.LoadFromFile((carpeta / "nada.bin").string()); }).number, 3002);
    stream.Close();
    EXPECT_EQ(FallaDe([&] { stream.read(); }).number, 3704);
    EXPECT_EQ(FallaDe([&] { stream.SaveToFile(ruta, host::adSaveCreateOverWrite); }).number, 3704);
}

}  // namespace
}  // namespace celdora::platform

// The ADO-shaped objects of platform/common over an in-memory SQLite
// database; what every engine shares is in ComportamientoMotor.

#include <gtest/gtest.h>

#include "platform/common/GlobalVarTabla.h"
#include "platform/common/StreamMemoria.h"
#include "tests/platform/common/Pruebas.h"
#include "tests/support/CarpetaTemporal.h"
#include "value/Date.h"

namespace celdora::platform {
namespace {

using pruebas::AbrirEditable;
using pruebas::AgregarCampo;
using pruebas::FallaDe;

TEST(GlobalVarTabla, ReadersGetTheirOwnDefaultsWithoutWritingAndAnUnopenedConnectionRaises) {
    pruebas::BaseEnMemoria base;
    GlobalVarTabla ajustes;
    ajustes.Conectar(base.cnn);
    EXPECT_EQ(ajustes.LeerNumero("NVCA300xa", 2), 2);
    for (const auto& sentencia : *base.sentencias) EXPECT_EQ(sentencia.find("INSERT"), std::string::npos) << sentencia;

    EXPECT_TRUE(ajustes.GuardarTexto("NVCA101", "AAA010101AAA"));
    EXPECT_EQ(FallaDe([&] { ajustes.Conectar(std::make_shared<ConexionMotor>()); }).number, 3704);
    EXPECT_FALSE(ajustes.GuardarTexto("NVCA101", "x"));
    ajustes.Conectar(base.cnn);
    EXPECT_EQ(ajustes.LeerTexto("nvca101", "sin"), "AAA010101AAA");  // a key in any capitals
}

class RecordsetClienteTest : public ::testing::Test {
protected:
    pruebas::BaseEnMemoria base{R"(
        CREATE TABLE ut_FoliosCBB (Sys_PK INTEGER PRIMARY KEY, uf_Serie VARCHAR(10), uf_CBB BLOB);
        INSERT INTO ut_FoliosCBB VALUES (1, 'A', NULL);
        INSERT INTO ut_FoliosCBB VALUES (2, NULL, x'0102');
    )"};
};

TEST_F(RecordsetClienteTest, ExecuteGivesRowsByNameInAnyCaseOrByIndexAndAClosedRecordsetWithoutRows) {
    auto vacio = base.cnn->Execute("SELECT Sys_PK FROM ut_FoliosCBB WHERE Sys_PK=99");
    EXPECT_TRUE(vacio->Eof() && vacio->Bof());
    EXPECT_EQ(FallaDe([&] { vacio->Fields("Sys_PK").Value(); }).number, 3021);

    auto rs = base.cnn->Execute("SELECT Sys_PK, uf_Serie FROM ut_FoliosCBB ORDER BY Sys_PK");
    EXPECT_EQ(rs->State(), host::adStateOpen);
    EXPECT_EQ(rs->Fields("UF_SERIE").Value(), Variant("A"));
    EXPECT_EQ(rs->Fields(0).Value(), Variant::Long(1));
    EXPECT_EQ(FallaDe([&] { rs->Fields("uf_Nada"); }).number, 3265);

    rs->movenext();
    EXPECT_TRUE(rs->Fields("uf_serie").Value().IsNull());
    rs->movenext();
    EXPECT_TRUE(rs->Eof());

    rs->Close();
    EXPECT_EQ(rs->State(), host::adStateClosed);
    EXPECT_EQ(FallaDe([&] { rs->Fields(0); }).number, 3704);
}

TEST_F(RecordsetClienteTest, OpenWithoutArgumentsUsesItsConnectionAndSource) {
    auto rs = std::make_shared<RecordsetCliente>();
    EXPECT_EQ(FallaDe([&] { rs->Open(); }).number, 3709);
    rs->activeconnection(base.cnn);
    rs->Source("SELECT Count(*) AS Total FROM ut_FoliosCBB");
    rs->CursorLocation(host::adUseClient);
    rs->Open();
    EXPECT_EQ(rs->Fields("total").Value(), Variant::Long(2));
}

TEST_F(RecordsetClienteTest, ChangesNeedAnUpdatableRecordsetWithTheKeyAndTableColumns) {
    auto soloLectura =
        AbrirEditable("SELECT Sys_PK, uf_Serie FROM ut_FoliosCBB WHERE Sys_PK=1", base.cnn, host::adLockReadOnly);
    EXPECT_EQ(FallaDe([&] { soloLectura->Fields("uf_Serie").Value("Z"); }).number, 3251);

    // Rows that cannot be matched one to one with their keys read apart.
    auto sinClave = AbrirEditable("SELECT DISTINCT uf_Serie FROM ut_FoliosCBB WHERE Sys_PK=1", base.cnn);
    sinClave->Fields("uf_Serie").Value("Z");
    const Fault falla = FallaDe([&] { sinClave->Update(); });
    EXPECT_NE(falla.description.find("key column Sys_PK"), std::string::npos) << falla.description;
    EXPECT_EQ(base.Valor("SELECT uf_Serie FROM ut_FoliosCBB WHERE Sys_PK=1"), Variant("A"));
}

class cRegistroMotorTest : public ::testing::Test {
protected:
    pruebas::BaseEnMemoria base{R"(
        CREATE TABLE ut_CFDInfo (Sys_PK INTEGER PRIMARY KEY AUTOINCREMENT, uf_noCertificado VARCHAR(20),
            uf_Clave VARCHAR(4096));
        CREATE TABLE ut_FoliosCBB (Sys_PK INTEGER PRIMARY KEY AUTOINCREMENT, uf_Serie VARCHAR(10),
            uf_FolioInicial INTEGER, uf_BlockDoc SMALLINT, uf_FechaAprobacion DATETIME);
    )"};

    void Preparar(const std::string& tabla) {
        registro.Conexion(base.cnn);
        registro.Tabla(tabla);
        registro.Nuevo();
    }

    cRegistroMotor registro;
};

TEST_F(cRegistroMotorTest, ABlankRequiredFieldNeverReachesTheDatabase) {
    Preparar("ut_CFDInfo");
    AgregarCampo(registro, "uf_Clave", "String", "x");
    AgregarCampo(registro, "uf_noCertificado", "String", "   ", true);
    EXPECT_FALSE(registro.Guardar());
    EXPECT_EQ(registro.UltimoError(), "El campo uf_noCertificado es requerido.");
    EXPECT_TRUE(base.sentencias->empty());
}

TEST_F(cRegistroMotorTest, ValuesAreConvertedByTipoAndEmptyTakesValorInicial) {
    Preparar("ut_FoliosCBB");
    AgregarCampo(registro, "uf_Serie", "String", Variant());
    AgregarCampo(registro, "uf_FolioInicial", "Long", "42", true);
    AgregarCampo(registro, "uf_BlockDoc", "Integer", 3.5, true);  // rounds half to even
    AgregarCampo(registro, "uf_FechaAprobacion", "Date", Variant(), true, Variant(MakeDate({2012, 3, 5, 7, 8, 9})));
    ASSERT_TRUE(registro.Guardar()) << registro.UltimoError();
    auto fila = base.cnn->motor().Ejecutar(
        "SELECT uf_Serie, typeof(uf_FolioInicial), uf_FolioInicial, uf_BlockDoc, CAST(uf_FechaAprobacion AS TEXT) "
        "FROM ut_FoliosCBB");
    ASSERT_EQ(fila.filas.size(), 1u);
    EXPECT_EQ(fila.filas[0], (std::vector<Variant>{Variant::Null(), "integer", Variant::Long(42),
                                                   Variant::Integer(4), "2012-03-05 07:08:09"}));

    Preparar("ut_FoliosCBB");
    AgregarCampo(registro, "uf_FolioInicial", "Long", "cuarenta");
    EXPECT_FALSE(registro.Guardar());
    EXPECT_EQ(registro.UltimoError(), "Type mismatch");
}

StreamMemoria AbiertoBinario() {
    StreamMemoria stream;
    stream.Type(host::adTypeBinary);
    stream.Open();
    return stream;
}

// The image of a CBB range is read from a file through one stream and
// written out to a file through another (to a BLOB and back in between,
// which the engines' suite covers).
TEST(StreamMemoria, BytesRoundTripThroughFilesAndTheSaveOptions) {
    testing::CarpetaTemporal carpeta;
    StreamMemoria stream = AbiertoBinario();
    stream.Write(Variant(Bytes{0x00, 0xFF, 0x0A}));
    const std::string ruta = carpeta / "x.bin";
    stream.SaveToFile(ruta, host::adSaveCreateNotExist);
    EXPECT_EQ(FallaDe([&] { stream.SaveToFile(ruta, host::adSaveCreateNotExist); }).number, 3004);
    stream.Write(Variant(Bytes{4}));
    stream.SaveToFile(ruta, host::adSaveCreateOverWrite);
    StreamMemoria releido = AbiertoBinario();
    releido.LoadFromFile(ruta);
    EXPECT_EQ(releido.read(), Variant(Bytes{0x00, 0xFF, 0x0A, 4}));
    EXPECT_EQ(FallaDe([&] { stream.SaveToFile(carpeta / "no/x.bin", 2); }).number, 3004);
}

}  // namespace
}  // namespace celdora::platform

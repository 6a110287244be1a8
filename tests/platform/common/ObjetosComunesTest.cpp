// The ADO-shaped objects of platform/common over an in-memory SQLite
// database; what every engine shares is in ComportamientoMotor.

#include <gtest/gtest.h>

#include <fstream>

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
    EXPECT_EQ(ajustes.LeerTexto("NVCA100", "antes"), "antes");
    ajustes.Conectar(base.cnn);
    EXPECT_EQ(base.Valor("SELECT Count(*) FROM gv_Configuracion"), Variant::Long(0));
    EXPECT_EQ(ajustes.LeerTexto("NVCA316x", "*"), "*");
    EXPECT_EQ(ajustes.LeerTexto("NVCA316x", "Admin,Ventas"), "Admin,Ventas");
    EXPECT_EQ(ajustes.LeerNumero("NVCA300xa", 2), 2);
    for (const auto& sentencia : *base.sentencias) EXPECT_EQ(sentencia.find("INSERT"), std::string::npos) << sentencia;

    EXPECT_TRUE(ajustes.GuardarTexto("NVCA101", "AAA010101AAA"));
    EXPECT_EQ(ajustes.LeerNumero("nvca101", -1), -1);  // a key has one type
    EXPECT_EQ(FallaDe([&] { ajustes.Conectar(std::make_shared<ConexionMotor>()); }).number, 3704);
    EXPECT_EQ(ajustes.LeerTexto("NVCA101", "sin"), "sin");
    EXPECT_FALSE(ajustes.GuardarTexto("NVCA101", "x"));
    ajustes.Conectar(base.cnn);
    EXPECT_EQ(ajustes.LeerTexto("NVCA101", "sin"), "AAA010101AAA");
}

class RecordsetClienteTest : public ::testing::Test {
protected:
    pruebas::BaseEnMemoria base{R"(
        CREATE TABLE ut_FoliosCBB (Sys_PK INTEGER PRIMARY KEY, uf_Serie VARCHAR(10), uf_CBB BLOB);
        INSERT INTO ut_FoliosCBB VALUES (1, 'A', NULL);
        INSERT INTO ut_FoliosCBB VALUES (2, NULL, x'0102');
    )"};
    Variant Serie1() { return base.Valor("SELECT uf_Serie FROM ut_FoliosCBB WHERE Sys_PK=1"); }
};

TEST_F(RecordsetClienteTest, ExecuteGivesRowsByNameInAnyCaseOrByIndexAndAClosedRecordsetWithoutRows) {
    auto vacio = base.cnn->Execute("SELECT Sys_PK FROM ut_FoliosCBB WHERE Sys_PK=99");
    EXPECT_TRUE(vacio->Eof() && vacio->Bof());
    EXPECT_EQ(FallaDe([&] { vacio->Fields("Sys_PK").Value(); }).number, 3021);

    auto rs = base.cnn->Execute("SELECT Sys_PK, uf_Serie FROM ut_FoliosCBB ORDER BY Sys_PK");
    EXPECT_EQ(rs->State(), host::adStateOpen);
    EXPECT_EQ(rs->Fields("UF_SERIE").Value(), Variant("A"));
    EXPECT_EQ(rs->Fields(0).Value(), Variant::Long(1));
    EXPECT_EQ(rs->Fields(1).Name(), "uf_Serie");
    EXPECT_EQ(FallaDe([&] { rs->Fields("uf_Nada"); }).number, 3265);
    EXPECT_EQ(FallaDe([&] { rs->Fields(2); }).number, 3265);

    rs->movenext();
    EXPECT_FALSE(rs->Eof());
    EXPECT_TRUE(rs->Fields("uf_serie").Value().IsNull());
    rs->movenext();
    EXPECT_TRUE(rs->Eof());
    EXPECT_FALSE(rs->Bof());
    EXPECT_EQ(FallaDe([&] { rs->movenext(); }).number, 3021);

    rs->Close();
    EXPECT_EQ(rs->State(), host::adStateClosed);
    EXPECT_EQ(FallaDe([&] { rs->Fields(0); }).number, 3704);
    EXPECT_EQ(FallaDe([&] { rs->Close(); }).number, 3704);

    auto sinFilas = base.cnn->Execute("UPDATE ut_FoliosCBB SET uf_Serie='B' WHERE Sys_PK=1");
    EXPECT_EQ(sinFilas->State(), host::adStateClosed);
    EXPECT_EQ(FallaDe([&] { sinFilas->Eof(); }).number, 3704);
    EXPECT_EQ(Serie1(), Variant("B"));
}

TEST_F(RecordsetClienteTest, OpenWithoutArgumentsUsesItsConnectionAndSource) {
    auto rs = std::make_shared<RecordsetCliente>();
    EXPECT_EQ(FallaDe([&] { rs->Open(); }).number, 3709);
    rs->activeconnection(base.cnn);
    rs->Source("SELECT Count(*) AS Total FROM ut_FoliosCBB");
    rs->CursorLocation(host::adUseClient);
    rs->Open();
    EXPECT_EQ(rs->State(), host::adStateOpen);
    EXPECT_EQ(rs->Fields("total").Value(), Variant::Long(2));
    EXPECT_EQ(FallaDe([&] { rs->Open(); }).number, 3705);

    auto cerrada = std::make_shared<ConexionMotor>();
    EXPECT_EQ(FallaDe([&] { cerrada->Execute("SELECT 1"); }).number, 3704);
    struct ConexionAjena : host::Connection {
        std::shared_ptr<host::Recordset> Execute(const std::string&) override { return nullptr; }
        int State() const override { return host::adStateOpen; }
    };
    EXPECT_EQ(FallaDe([&] { MotorDe(std::make_shared<ConexionAjena>()); }).number, 3001);
}

TEST_F(RecordsetClienteTest, ChangesNeedAnUpdatableRecordsetWithTheKeyAndTableColumns) {
    auto soloLectura =
        AbrirEditable("SELECT Sys_PK, uf_Serie FROM ut_FoliosCBB WHERE Sys_PK=1", base.cnn, host::adLockReadOnly);
    EXPECT_EQ(FallaDe([&] { soloLectura->Fields("uf_Serie").Value("Z"); }).number, 3251);
    EXPECT_EQ(FallaDe([&] { soloLectura->Update(); }).number, 3251);
    auto ejecutado = base.cnn->Execute("SELECT Sys_PK, uf_Serie FROM ut_FoliosCBB");
    EXPECT_EQ(FallaDe([&] { ejecutado->Fields("uf_Serie").Value("Z"); }).number, 3251);

    // Rows that cannot be matched one to one with their keys read apart.
    auto sinClave = AbrirEditable("SELECT DISTINCT uf_Serie FROM ut_FoliosCBB WHERE Sys_PK=1", base.cnn);
    sinClave->Fields("uf_Serie").Value("Z");
    const Fault falla = FallaDe([&] { sinClave->Update(); });
    EXPECT_NE(falla.description.find("key column Sys_PK"), std::string::npos) << falla.description;
    auto expresion = AbrirEditable("SELECT Sys_PK, upper(uf_Serie) AS s FROM ut_FoliosCBB WHERE Sys_PK=1", base.cnn);
    expresion->Fields("s").Value("Z");
    EXPECT_NE(FallaDe([&] { expresion->Update(); }).description.find("does not come from a table"),
              std::string::npos);
    EXPECT_EQ(Serie1(), Variant("A"));
}

class cRegistroMotorTest : public ::testing::Test {
protected:
    pruebas::BaseEnMemoria base{R"(
        CREATE TABLE ut_CFDInfo (Sys_PK INTEGER PRIMARY KEY AUTOINCREMENT,
            uf_noCertificado VARCHAR(20) CHECK(length(uf_noCertificado)<=20), uf_Clave VARCHAR(4096));
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

TEST_F(cRegistroMotorTest, TheDatabaseJudgesSizesButABlankRequiredFieldNeverReachesIt) {
    Preparar("ut_CFDInfo");
    AgregarCampo(registro, "uf_Clave", "String", "x");
    AgregarCampo(registro, "uf_noCertificado", "String", "   ", true);
    EXPECT_FALSE(registro.Guardar());
    EXPECT_EQ(registro.UltimoError(), "El campo uf_noCertificado es requerido.");
    EXPECT_TRUE(base.sentencias->empty());

    registro.Campos().Item("uf_noCertificado")->Valor(std::string(21, '1'));
    EXPECT_FALSE(registro.Guardar());
    EXPECT_NE(registro.UltimoError().find("CHECK constraint failed"), std::string::npos) << registro.UltimoError();
    EXPECT_EQ(base.Valor("SELECT Count(*) FROM ut_CFDInfo"), Variant::Long(0));
    EXPECT_EQ(registro.Clave(), 0);
    EXPECT_EQ(registro.Campos().Item(1)->Valor(), Variant::Long(0));
}

TEST_F(cRegistroMotorTest, ValuesAreConvertedByTipoAndEmptyTakesValorInicial) {
    Preparar("ut_FoliosCBB");
    AgregarCampo(registro, "uf_Serie", "String", Variant());
    AgregarCampo(registro, "uf_FolioInicial", "Long", "42", true);
    AgregarCampo(registro, "uf_BlockDoc", "Integer", 3.5, true);  // rounds half to even
    AgregarCampo(registro, "uf_FechaAprobacion", "Date", Variant(), true, Variant(MakeDate({2012, 3, 5, 7, 8, 9})));
    ASSERT_TRUE(registro.Guardar()) << registro.UltimoError();
    EXPECT_EQ(registro.Campos().Item(1)->Valor(), Variant::Long(1));
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

TEST_F(cRegistroMotorTest, FieldCollectionIsOneBasedWithKeysInAnyCase) {
    Preparar("ut_FoliosCBB");
    AgregarCampo(registro, "uf_Serie", "String", "A");
    EXPECT_EQ(registro.Campos().Count(), 2);
    EXPECT_EQ(registro.Campos().Item(2), registro.Campos().Item("UF_SERIE"));
    EXPECT_EQ(FallaDe([&] { AgregarCampo(registro, "UF_serie", "String", "B"); }).number, 457);
    EXPECT_EQ(FallaDe([&] { registro.Campos().Item(3); }).number, 5);
    EXPECT_EQ(FallaDe([&] { registro.Campos().Item("nada"); }).number, 5);
    registro.Nuevo();
    EXPECT_EQ(registro.Campos().Count(), 1);
    EXPECT_EQ(registro.Campos().Item(1)->Tipo(), "Long");
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
TEST(StreamMemoria, BytesRoundTripThroughFiles) {
    testing::CarpetaTemporal carpeta;
    const Bytes imagen{0x89, 'P', 'N', 'G', 0x00, 0x0D, 0x0A, 0xFF};
    std::ofstream(carpeta / "origen.png", std::ios::binary).write(reinterpret_cast<const char*>(imagen.data()), 8);
    StreamMemoria entrada = AbiertoBinario();
    entrada.LoadFromFile(carpeta / "origen.png");
    StreamMemoria salida = AbiertoBinario();
    salida.Write(entrada.read());
    salida.SaveToFile(carpeta / "tmpimage.jpg", host::adSaveCreateOverWrite);
    salida.Close();
    StreamMemoria releido = AbiertoBinario();
    releido.LoadFromFile(carpeta / "tmpimage.jpg");
    EXPECT_EQ(releido.read(), Variant(imagen));
}

TEST(StreamMemoria, SaveOptionsMissingFilesAndClosedStreams) {
    testing::CarpetaTemporal carpeta;
    StreamMemoria stream = AbiertoBinario();
    EXPECT_EQ(FallaDe([&] { stream.Write("texto"); }).number, 3001);
    stream.Write(Variant(Bytes{1, 2, 3}));
    const std::string ruta = carpeta / "x.bin";
    stream.SaveToFile(ruta, host::adSaveCreateNotExist);
    EXPECT_EQ(FallaDe([&] { stream.SaveToFile(ruta, host::adSaveCreateNotExist); }).number, 3004);
    stream.Write(Variant(Bytes{4}));
    stream.SaveToFile(ruta, host::adSaveCreateOverWrite);
    EXPECT_EQ(std::filesystem::file_size(ruta), 4u);
    EXPECT_EQ(FallaDe([&] { stream.SaveToFile(carpeta / "no/x.bin", 2); }).number, 3004);
    EXPECT_EQ(FallaDe([&] { stream.LoadFromFile(carpeta / "nada.bin"); }).number, 3002);
    stream.Close();
    EXPECT_EQ(FallaDe([&] { stream.read(); }).number, 3704);
    EXPECT_EQ(FallaDe([&] { stream.SaveToFile(ruta, host::adSaveCreateOverWrite); }).number, 3704);
}

}  // namespace
}  // namespace celdora::platform

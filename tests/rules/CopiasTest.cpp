// The machine's own copies of comprobantes in the folder of FE_CopiaLocal:
// nothing without a folder, the file inside the folder, and never over a
// copy that is already there; and the save dialog the host asks for.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "tests/support/ConfiguracionPrivada.h"
#include "tests/support/TestPlatform.h"
#include "value/Convert.h"

namespace celdora {
namespace {

namespace fs = std::filesystem;

std::string Leer(const fs::path& ruta) {
    std::ifstream in(ruta, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void Escribir(const fs::path& ruta, const std::string& texto) { std::ofstream(ruta, std::ios::binary) << texto; }

// Each case gets its own configuration folder, copies folder and a fresh
// shared store.
class CopiasDeComprobante : public ::testing::Test {
protected:
    testing::TestPlatform platform;
    testing::ConfiguracionPrivada configuracion;
    testing::CarpetaTemporal trabajo;
    fs::path copias = trabajo.ruta() / "copias";
    fs::path origen = trabajo.ruta();
    cAcction facade;

    void SetUp() override {
        mdlMain::SoltarObjetosCompartidos();
        facade.ApplicationName = "Tiendaro";
        fs::create_directories(copias);
    }
    void TearDown() override { mdlMain::SoltarObjetosCompartidos(); }

    // The folder as the local settings dialog stores it.
    void CarpetaDeCopias(const std::string& carpeta) {
        mdlMain::ConfigLocal().GuardarValor("Tiendaro", "Config", "FE_CopiaLocal", carpeta);
    }
    void EsperarRechazo(const std::string& ruta) {
        ASSERT_EQ(platform.ui.Cajas().size(), 1u);
        platform.ui.ExpectCaja(0, "No se puede guardar la copia del comprobante. Ya existe un archivo con el mismo "
                                  "nombre en " + ruta, host::Icono::Informacion, "Tiendaro");
    }
};

TEST_F(CopiasDeComprobante, WithoutAFolderNeitherMemberWritesAnything) {
    Escribir(origen / "F-1.xml", "<cfdi/>");
    EXPECT_FALSE(facade.GuardarCopiaComprobanteXML("<cfdi/>", "F-1.xml"));
    CarpetaDeCopias("");
    EXPECT_FALSE(facade.GuardarCopiaComprobanteXML("<cfdi/>", "F-1.xml"));
    EXPECT_FALSE(facade.GuardarCopiaComprobante((origen / "F-1.xml").string(), "F-1.xml"));
    EXPECT_TRUE(fs::is_empty(copias));
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

TEST_F(CopiasDeComprobante, TheXMLLandsInsideTheFolderAndASecondOfTheSameNameIsRefused) {
    CarpetaDeCopias(copias.string());  // without trailing separator
    EXPECT_TRUE(facade.GuardarCopiaComprobanteXML("<cfdi:Comprobante Folio=\"1\"/>", "F-1.xml"));
    EXPECT_TRUE(platform.ui.Cajas().empty());
    const std::string carpeta = copias.string() + "/";
    CarpetaDeCopias(carpeta);
    EXPECT_FALSE(facade.GuardarCopiaComprobanteXML("segunda", "F-1.xml"));
    EXPECT_EQ(Leer(copias / "F-1.xml"), "<cfdi:Comprobante Folio=\"1\"/>");
    EsperarRechazo(carpeta + "F-1.xml");
}

// A missing source gives false in silence.
TEST_F(CopiasDeComprobante, AFileCopyTakesItsNameOrWithABlankNameTheSourcesAndIsNeverOverwritten) {
    CarpetaDeCopias(copias.string());
    EXPECT_FALSE(facade.GuardarCopiaComprobante((origen / "no-existe.xml").string()));
    const std::string pdf("%PDF-1.4\0\x01\xff", 11);
    Escribir(origen / "C-250.pdf", pdf);
    EXPECT_TRUE(facade.GuardarCopiaComprobante((origen / "C-250.pdf").string(), "  "));
    EXPECT_TRUE(facade.GuardarCopiaComprobante((origen / "C-250.pdf").string(), "Factura C-250.pdf"));
    Escribir(origen / "C-250.pdf", "segunda");
    EXPECT_FALSE(facade.GuardarCopiaComprobante((origen / "C-250.pdf").string()));
    EXPECT_EQ(Leer(copias / "C-250.pdf"), pdf);
    EXPECT_EQ(Leer(copias / "Factura C-250.pdf"), pdf);
    EXPECT_EQ(std::distance(fs::directory_iterator(copias), fs::directory_iterator()), 2);
    EsperarRechazo((copias / "C-250.pdf").string());
}

TEST_F(CopiasDeComprobante, ShowSaveAsGivesThePathOrTheEmptyStringWithoutAFault) {
    platform.ui.Elegir("/tmp/factura.xml");
    EXPECT_EQ(CStr(facade.ShowSaveAs("XML|*.xml", "A-15.xml")), "/tmp/factura.xml");
    ASSERT_EQ(platform.ui.Selecciones().size(), 1u);
    const auto& eleccion = platform.ui.Selecciones()[0];
    EXPECT_EQ(eleccion.tipo + "|" + eleccion.filtro + "|" + eleccion.nombre, "guardar|XML|*.xml|A-15.xml");
    platform.ui.Elegir(std::nullopt);
    const Variant cancelado = facade.ShowSaveAs("XML|*.xml");
    EXPECT_EQ(cancelado.Type(), VarType::String);
    EXPECT_EQ(CStr(cancelado), "");
    EXPECT_EQ(platform.ui.Registro(), (std::vector<std::string>{"ventana: frmSaveAs", "ventana: frmSaveAs"}));
}

}  // namespace
}  // namespace celdora

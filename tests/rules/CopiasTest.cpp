// The machine's own copies of comprobantes in the folder of FE_CopiaLocal:
// nothing without a folder, the file inside the folder, and never over a
// copy that is already there.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "tests/support/ConfiguracionPrivada.h"
#include "tests/support/TestPlatform.h"

namespace celdora {
namespace {

namespace fs = std::filesystem;
using testing::ConfiguracionPrivada;
using testing::TestPlatform;

std::string Leer(const fs::path& ruta) {
    std::ifstream in(ruta, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void Escribir(const fs::path& ruta, const std::string& texto) { std::ofstream(ruta, std::ios::binary) << texto; }

// Each case gets its own configuration folder, copies folder and a fresh
// shared store.
class CopiasDeComprobante : public ::testing::Test {
protected:
    TestPlatform platform;
    ConfiguracionPrivada configuracion;
    testing::CarpetaTemporal trabajo;
    fs::path copias = trabajo.ruta() / "copias";
    fs::path origen = trabajo.ruta() / "origen";
    cAcction facade;

    void SetUp() override {
        mdlMain::SoltarObjetosCompartidos();
        facade.ApplicationName = "Tiendaro";
        fs::create_directories(copias);
        fs::create_directories(origen);
    }

    void TearDown() override { mdlMain::SoltarObjetosCompartidos(); }

    // The folder as the local settings dialog stores it.
    void CarpetaDeCopias(const std::string& carpeta) {
        mdlMain::ConfigLocal().GuardarValor("Tiendaro", "Config", "FE_CopiaLocal", carpeta);
    }

    void EsperarRechazo(const std::string& ruta) {
        ASSERT_EQ(platform.ui.Cajas().size(), 1u);
        const auto& caja = platform.ui.Cajas()[0];
        EXPECT_EQ(caja.texto,
                  "No se puede guardar la copia del comprobante. Ya existe un archivo con el mismo nombre en " + ruta);
        EXPECT_EQ(caja.icono, host::Icono::Informacion);
        EXPECT_EQ(caja.titulo, "Tiendaro");
    }
};

TEST_F(CopiasDeComprobante, WithoutAFolderNeitherMemberWritesAnything) {
    Escribir(origen / "F-1.xml", "<cfdi/>");
    EXPECT_FALSE(facade.GuardarCopiaComprobanteXML("<cfdi/>", "F-1.xml"));
    CarpetaDeCopias("");
    EXPECT_FALSE(facade.GuardarCopiaComprobanteXML("<cfdi/>", "F-1.xml"));
    EXPECT_FALSE(facade.GuardarCopiaComprobante((origen / "F-1.xml").string(), "F-1.xml"));

    EXPECT_TRUE(fs::is_empty(copias));
    EXPECT_EQ(std::distance(fs::directory_iterator(origen), fs::directory_iterator()), 1);
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

TEST_F(CopiasDeComprobante, TheXMLLandsInsideAFolderGivenWithoutTrailingSeparator) {
    CarpetaDeCopias(copias.string());
    EXPECT_TRUE(facade.GuardarCopiaComprobanteXML("<cfdi:Comprobante Folio=\"1\"/>", "F-1.xml"));
    EXPECT_EQ(Leer(copias / "F-1.xml"), "<cfdi:Comprobante Folio=\"1\"/>");
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

TEST_F(CopiasDeComprobante, ASecondXMLCopyOfTheSameNameIsRefusedAndTheFirstStays) {
    const std::string carpeta = copias.string() + "/";
    CarpetaDeCopias(carpeta);
    ASSERT_TRUE(facade.GuardarCopiaComprobanteXML("primera", "F-1.xml"));

    EXPECT_FALSE(facade.GuardarCopiaComprobanteXML("segunda", "F-1.xml"));
    EXPECT_EQ(Leer(copias / "F-1.xml"), "primera");
    EsperarRechazo(carpeta + "F-1.xml");
}

TEST_F(CopiasDeComprobante, AFileCopyTakesItsNameOrWithABlankNameTheSourcesName) {
    CarpetaDeCopias(copias.string());
    const std::string pdf("%PDF-1.4\0\x01\xff", 11);
    Escribir(origen / "C-250.pdf", pdf);

    EXPECT_TRUE(facade.GuardarCopiaComprobante((origen / "C-250.pdf").string(), "  "));
    EXPECT_TRUE(facade.GuardarCopiaComprobante((origen / "C-250.pdf").string(), "Factura C-250.pdf"));
    EXPECT_EQ(Leer(copias / "C-250.pdf"), pdf);
    EXPECT_EQ(Leer(copias / "Factura C-250.pdf"), pdf);
}

TEST_F(CopiasDeComprobante, ASecondFileCopyOfTheSameNameIsRefusedAndTheFirstStays) {
    CarpetaDeCopias(copias.string());
    Escribir(origen / "F-1.xml", "primera");
    ASSERT_TRUE(facade.GuardarCopiaComprobante((origen / "F-1.xml").string()));
    Escribir(origen / "F-1.xml", "segunda");

    EXPECT_FALSE(facade.GuardarCopiaComprobante((origen / "F-1.xml").string()));
    EXPECT_EQ(Leer(copias / "F-1.xml"), "primera");
    EsperarRechazo((copias / "F-1.xml").string());
}

TEST_F(CopiasDeComprobante, ACopyThatFailsIsPassedOverInSilenceAndTheAnswerIsStillTrue) {
    CarpetaDeCopias(copias.string());
    EXPECT_TRUE(facade.GuardarCopiaComprobante((origen / "no-existe.xml").string()));
    EXPECT_TRUE(fs::is_empty(copias));
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

}  // namespace
}  // namespace celdora

// Protected strings and digests: the cipher under the system's key with a
// fresh object for every call, DecryptString, and the sealing component's
// digest with its message when the component is missing.

#include <gtest/gtest.h>

#include "core/cAcction.h"
#include "core/mdlMain.h"
#include "platform/crypto/CifradoAes.h"
#include "tests/support/TestPlatform.h"

namespace celdora {
namespace {

class TextosProtegidos : public ::testing::Test {
protected:
    testing::TestPlatform platform;
    cAcction facade;
};

TEST_F(TextosProtegidos, EachCallEnciphersWithAFreshCipherUnderTheSystemsKeyAndDecryptStringGivesBack) {
    std::vector<std::shared_ptr<platform::CifradoAes>> cifrados;
    platform.plataforma.Fabrica().Registrar(host::progid::cCifrado, [&] {
        cifrados.push_back(std::make_shared<platform::CifradoAes>());
        return std::static_pointer_cast<Object>(cifrados.back());
    });
    const std::string cifrado = mdlMain::CifrarTexto("Contraseña del certificado");
    EXPECT_EQ(cifrado.find("Contraseña"), std::string::npos);
    EXPECT_EQ(facade.DecryptString(cifrado), "Contraseña del certificado");
    ASSERT_EQ(cifrados.size(), 2u);
    EXPECT_NE(cifrados[0], cifrados[1]);
    EXPECT_EQ(cifrados[0]->Parametros().Algoritmo(), 4);
    EXPECT_EQ(cifrados[1]->Parametros().Algoritmo(), 4);

    // Stored texts open with the key alone, wherever they are read.
    platform::CifradoAes conLaClave;
    conLaClave.Clave("c7a20eQp41vRZ318", 0);
    conLaClave.TextoCifrado(cifrado);
    EXPECT_EQ(conLaClave.TextoClaro(), "Contraseña del certificado");

    // A text never enciphered, or a missing cipher, gives empty without a fault.
    EXPECT_EQ(facade.DecryptString("esto no está cifrado"), "");
    platform.Quitar(host::progid::cCifrado);
    EXPECT_EQ(mdlMain::CifrarTexto("uno"), "");
    EXPECT_EQ(facade.DecryptString(cifrado), "");
    EXPECT_TRUE(platform.ui.Cajas().empty());
}

// A sealing component that is installed but fails on every digest.
class SelloQueFalla : public host::cProccess {
public:
    std::string getMD5(const std::string&) override { throw Fault{-2147467259, "Unspecified error"}; }
};

TEST_F(TextosProtegidos, ObtenerMD5GivesTheDigestOrEmptyAndSaysSoOnlyWhenTheComponentIsMissing) {
    EXPECT_EQ(mdlMain::ObtenerMD5("abc"), "900150983cd24fb0d6963f7d28e17f72");
    platform.plataforma.Fabrica().Registrar(host::progid::Sellora, [] {
        return std::static_pointer_cast<Object>(std::make_shared<SelloQueFalla>());
    });
    EXPECT_EQ(mdlMain::ObtenerMD5("abc"), "");
    EXPECT_TRUE(platform.ui.Cajas().empty());

    platform.Quitar(host::progid::Sellora);
    EXPECT_EQ(mdlMain::ObtenerMD5("abc"), "");
    ASSERT_EQ(platform.ui.Cajas().size(), 1u);
    platform.ui.ExpectCaja(0, "No se pudo guardar la contraseña. Error al crear objeto Sellora.cProccess. Asegurese de "
                              "que el componente está instalado", host::Icono::Exclamacion, "Facturación Electrónica");
}

}  // namespace
}  // namespace celdora

#include "platform/crypto/HerramientaPfx.h"

#include <gtest/gtest.h>
#include <openssl/pkcs12.h>
#include <openssl/x509.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <tuple>

#include "tests/support/CarpetaTemporal.h"

namespace celdora::platform {
namespace {

namespace fs = std::filesystem;

const fs::path kDatos = CELDORA_SAT_CSD_DIR;
const std::string kClave = "12345678a";

std::string Leer(const fs::path& ruta) {
    std::ifstream in(ruta, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// What OpenSSL reads back from a PFX file with its password: the certificate
// in DER and its name, both empty unless a key that matches it comes along.
struct PfxLeido {
    std::string certificado;
    std::string alias;
};

PfxLeido LeerPfx(const fs::path& ruta, const std::string& clave) {
    const std::string der = Leer(ruta);
    const auto* bytes = reinterpret_cast<const unsigned char*>(der.data());
    const std::unique_ptr<PKCS12, decltype(&PKCS12_free)> pfx(
        d2i_PKCS12(nullptr, &bytes, static_cast<long>(der.size())), PKCS12_free);
    X509* certificado = nullptr;
    EVP_PKEY* llave = nullptr;
    if (!pfx || PKCS12_parse(pfx.get(), clave.c_str(), &llave, &certificado, nullptr) != 1) return {};
    const std::unique_ptr<X509, decltype(&X509_free)> liberarCertificado(certificado, X509_free);
    const std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)> liberarLlave(llave, EVP_PKEY_free);
    if (!certificado || !llave || X509_check_private_key(certificado, llave) != 1) return {};
    unsigned char* salida = nullptr;
    const int largo = i2d_X509(certificado, &salida);
    PfxLeido leido{std::string(reinterpret_cast<const char*>(salida), static_cast<std::size_t>(largo)), ""};
    OPENSSL_free(salida);
    if (const unsigned char* alias = X509_alias_get0(certificado, nullptr))
        leido.alias = reinterpret_cast<const char*>(alias);
    return leido;
}

class HerramientaPfxTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (!fs::is_directory(kDatos))
            GTEST_SKIP() << "SAT test certificates not found at " << kDatos.string();
    }

    // Runs the tool on <certificado>.cer and <llave>.key of the test data.
    bool Crear(const std::string& certificado, const std::string& llave, std::string clave, const fs::path& destino) {
        std::string ruta = destino.string();
        return herramienta_.createPFXfile(ruta, (kDatos / (certificado + ".cer")).string(),
                                          (kDatos / (llave + ".key")).string(), clave);
    }

    testing::CarpetaTemporal carpeta_;
    HerramientaPfx herramienta_;
};

TEST_F(HerramientaPfxTest, EveryMatchingPairBuildsAPfxThatOpenSslReadsBackWithThePassword) {
    const fs::path destino = carpeta_ / "sello.pfx";
    ASSERT_TRUE(Crear("csd-EKU9003173C9", "csd-EKU9003173C9", kClave, destino)) << herramienta_.lastErr();
    EXPECT_EQ(herramienta_.lastErr(), "");
    const PfxLeido leido = LeerPfx(destino, kClave);
    EXPECT_EQ(leido.certificado, Leer(kDatos / "csd-EKU9003173C9.cer"));
    EXPECT_EQ(leido.alias, "30001000000500003416");
    EXPECT_EQ(LeerPfx(destino, "otra").certificado, "") << "the PFX must be protected by the key's password";

    for (const std::string id : {"csd-CACX7605101P8", "csd-XIA190128J61-expired", "csd-AAA010101AAA-expired",
                                 "csd-LAN8507268IA-expired", "fiel-EKU9003173C9", "fiel-AAA010101AAA-expired"}) {
        const fs::path otro = carpeta_ / (id + ".pfx");
        EXPECT_TRUE(Crear(id, id, kClave, otro)) << id << ": " << herramienta_.lastErr();
        EXPECT_EQ(LeerPfx(otro, kClave).certificado, Leer(kDatos / (id + ".cer"))) << id;
    }
}

TEST_F(HerramientaPfxTest, AWrongPasswordOrAKeyOfAnotherIdentityIsRefusedAndLeavesNoFile) {
    const fs::path destino = carpeta_ / "sello.pfx";
    const std::string contrasena = "La contraseña de la llave privada es incorrecta";
    const std::string ajena = "La llave privada no corresponde al certificado";
    const std::tuple<const char*, const char*, std::string, std::string> casos[] = {
        {"csd-EKU9003173C9", "csd-EKU9003173C9", "wrongpass", contrasena},
        {"csd-EKU9003173C9", "csd-EKU9003173C9", "", contrasena},
        {"csd-EKU9003173C9", "csd-EKU9003173C9", "12345678A", contrasena},
        {"csd-EKU9003173C9", "csd-CACX7605101P8", kClave, ajena},
        {"csd-CACX7605101P8", "csd-EKU9003173C9", kClave, ajena},
        {"csd-EKU9003173C9", "fiel-EKU9003173C9", kClave, ajena}};
    for (const auto& [certificado, llave, clave, error] : casos) {
        EXPECT_FALSE(Crear(certificado, llave, clave, destino)) << certificado << " + " << llave << " " << clave;
        EXPECT_EQ(herramienta_.lastErr(), error) << certificado << " + " << llave << " " << clave;
        EXPECT_FALSE(fs::exists(destino));
    }
}

TEST_F(HerramientaPfxTest, UnreadableInputsAndUnwritableTargetFailWithTheirPath) {
    const std::string ruta = carpeta_ / "sello.pfx";
    const std::string cer = (kDatos / "csd-EKU9003173C9.cer").string();
    const std::string key = (kDatos / "csd-EKU9003173C9.key").string();
    const std::string carpeta = carpeta_.ruta().string();
    const std::string faltante = carpeta_ / "no-existe.cer";
    const std::string sinCarpeta = carpeta_ / "no-existe/sello.pfx";
    // Target, certificate, key, and the error, whole or (true) how it begins
    // before OpenSSL's own words.
    const std::tuple<std::string, std::string, std::string, std::string, bool> casos[] = {
        {ruta, faltante, key, "No se pudo leer el certificado " + faltante, false},
        {ruta, key, key, "El archivo " + key + " no es un certificado", true},
        {ruta, cer, carpeta, "No se pudo leer la llave privada " + carpeta, false},
        {ruta, cer, cer, "El archivo " + cer + " no es una llave privada", true},
        {sinCarpeta, cer, key, "No se pudo escribir el archivo " + sinCarpeta, false},
        {carpeta, cer, key, "No se pudo escribir el archivo " + carpeta, false}};
    std::string clave = kClave;
    for (auto [destino, certificado, llave, error, comienzo] : casos) {
        EXPECT_FALSE(herramienta_.createPFXfile(destino, certificado, llave, clave)) << error;
        const std::string dado = herramienta_.lastErr();
        EXPECT_EQ(comienzo ? dado.substr(0, error.size()) : dado, error);
        EXPECT_FALSE(fs::exists(ruta));
    }

    // A later success clears the last error.
    std::string destino = ruta;
    EXPECT_TRUE(herramienta_.createPFXfile(destino, cer, key, clave));
    EXPECT_EQ(herramienta_.lastErr(), "");
}

}  // namespace
}  // namespace celdora::platform

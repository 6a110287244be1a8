#include "platform/crypto/HerramientaPfx.h"

#include <gtest/gtest.h>
#include <openssl/pkcs12.h>
#include <openssl/x509.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <random>
#include <string>

namespace celdora::platform {
namespace {

namespace fs = std::filesystem;

const fs::path kDatos = CELDORA_SAT_CSD_DIR;
const std::string kClave = "12345678a";

struct LiberarX509 {
    void operator()(X509* x) const { X509_free(x); }
};
struct LiberarLlave {
    void operator()(EVP_PKEY* k) const { EVP_PKEY_free(k); }
};
using Certificado = std::unique_ptr<X509, LiberarX509>;
using Llave = std::unique_ptr<EVP_PKEY, LiberarLlave>;

Certificado LeerCertificadoDer(const fs::path& ruta) {
    std::FILE* archivo = std::fopen(ruta.c_str(), "rb");
    if (archivo == nullptr) return nullptr;
    Certificado certificado(d2i_X509_fp(archivo, nullptr));
    std::fclose(archivo);
    return certificado;
}

// What OpenSSL reads back from a PFX file with its password.
struct PfxLeido {
    Certificado certificado;
    Llave llave;
};

PfxLeido LeerPfx(const fs::path& ruta, const std::string& clave) {
    PfxLeido leido;
    std::FILE* archivo = std::fopen(ruta.c_str(), "rb");
    if (archivo == nullptr) return leido;
    PKCS12* pfx = d2i_PKCS12_fp(archivo, nullptr);
    std::fclose(archivo);
    if (pfx == nullptr) return leido;
    X509* certificado = nullptr;
    EVP_PKEY* llave = nullptr;
    if (PKCS12_parse(pfx, clave.c_str(), &llave, &certificado, nullptr) == 1) {
        leido.certificado.reset(certificado);
        leido.llave.reset(llave);
    }
    PKCS12_free(pfx);
    return leido;
}

class HerramientaPfxTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (!fs::is_directory(kDatos))
            GTEST_SKIP() << "SAT test certificates not found at " << kDatos.string();
        std::random_device azar;
        carpeta_ = fs::temp_directory_path() / ("celdora-pfx-" + std::to_string(azar()));
        fs::create_directories(carpeta_);
    }
    void TearDown() override {
        std::error_code ignorado;
        if (!carpeta_.empty()) fs::remove_all(carpeta_, ignorado);
    }

    // Runs the tool on <certificado>.cer and <llave>.key of the test data.
    bool Crear(const std::string& certificado, const std::string& llave, std::string clave, const fs::path& destino) {
        std::string ruta = destino.string();
        return herramienta_.createPFXfile(ruta, (kDatos / (certificado + ".cer")).string(),
                                          (kDatos / (llave + ".key")).string(), clave);
    }

    fs::path carpeta_;
    HerramientaPfx herramienta_;
};

TEST_F(HerramientaPfxTest, MatchingPairBuildsAPfxThatOpenSslReadsBack) {
    const fs::path destino = carpeta_ / "sello.pfx";
    ASSERT_TRUE(Crear("csd-EKU9003173C9", "csd-EKU9003173C9", kClave, destino)) << herramienta_.lastErr();
    EXPECT_EQ(herramienta_.lastErr(), "");

    const PfxLeido leido = LeerPfx(destino, kClave);
    ASSERT_TRUE(leido.certificado && leido.llave);
    const Certificado original = LeerCertificadoDer(kDatos / "csd-EKU9003173C9.cer");
    ASSERT_TRUE(original);
    EXPECT_EQ(ASN1_INTEGER_cmp(X509_get0_serialNumber(leido.certificado.get()),
                               X509_get0_serialNumber(original.get())),
              0);
    EXPECT_EQ(X509_check_private_key(original.get(), leido.llave.get()), 1);
    const unsigned char* alias = X509_alias_get0(leido.certificado.get(), nullptr);
    ASSERT_NE(alias, nullptr);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(alias)), "30001000000500003416");

    EXPECT_FALSE(LeerPfx(destino, "otra").llave) << "the PFX must be protected by the key's password";
}

TEST_F(HerramientaPfxTest, EveryMatchingTestIdentityBuilds) {
    for (const char* id : {"csd-CACX7605101P8", "csd-XIA190128J61-expired", "csd-AAA010101AAA-expired",
                           "csd-LAN8507268IA-expired", "fiel-EKU9003173C9", "fiel-AAA010101AAA-expired"}) {
        const fs::path destino = carpeta_ / (std::string(id) + ".pfx");
        EXPECT_TRUE(Crear(id, id, kClave, destino)) << id << ": " << herramienta_.lastErr();
        EXPECT_TRUE(LeerPfx(destino, kClave).llave) << id;
    }
}

TEST_F(HerramientaPfxTest, WrongPasswordFailsWithThePasswordText) {
    const fs::path destino = carpeta_ / "sello.pfx";
    for (const std::string clave : {"wrongpass", "", "12345678A"}) {
        EXPECT_FALSE(Crear("csd-EKU9003173C9", "csd-EKU9003173C9", clave, destino)) << clave;
        EXPECT_EQ(herramienta_.lastErr(), "La contraseña de la llave privada es incorrecta") << clave;
        EXPECT_FALSE(fs::exists(destino));
    }
}

TEST_F(HerramientaPfxTest, KeyOfAnotherIdentityIsRefusedAndLeavesNoFile) {
    const fs::path destino = carpeta_ / "sello.pfx";
    const std::pair<const char*, const char*> pares[] = {{"csd-EKU9003173C9", "csd-CACX7605101P8"},
                                                         {"csd-CACX7605101P8", "csd-EKU9003173C9"},
                                                         {"csd-EKU9003173C9", "fiel-EKU9003173C9"}};
    for (const auto& [certificado, llave] : pares) {
        EXPECT_FALSE(Crear(certificado, llave, kClave, destino)) << certificado << " + " << llave;
        EXPECT_EQ(herramienta_.lastErr(), "La llave privada no corresponde al certificado");
        EXPECT_FALSE(fs::exists(destino));
    }
}

TEST_F(HerramientaPfxTest, UnreadableInputsAndUnwritableTargetFailWithTheirPath) {
    const fs::path destino = carpeta_ / "sello.pfx";
    const std::string cer = (kDatos / "csd-EKU9003173C9.cer").string();
    const std::string key = (kDatos / "csd-EKU9003173C9.key").string();
    std::string ruta = destino.string();
    std::string clave = kClave;

    const std::string faltante = (carpeta_ / "no-existe.cer").string();
    EXPECT_FALSE(herramienta_.createPFXfile(ruta, faltante, key, clave));
    EXPECT_EQ(herramienta_.lastErr(), "No se pudo leer el certificado " + faltante);

    EXPECT_FALSE(herramienta_.createPFXfile(ruta, key, key, clave));
    EXPECT_EQ(herramienta_.lastErr().rfind("El archivo " + key + " no es un certificado", 0), 0u)
        << herramienta_.lastErr();

    EXPECT_FALSE(herramienta_.createPFXfile(ruta, cer, carpeta_.string(), clave));
    EXPECT_EQ(herramienta_.lastErr(), "No se pudo leer la llave privada " + carpeta_.string());

    EXPECT_FALSE(herramienta_.createPFXfile(ruta, cer, cer, clave));
    EXPECT_EQ(herramienta_.lastErr().rfind("El archivo " + cer + " no es una llave privada", 0), 0u)
        << herramienta_.lastErr();
    EXPECT_FALSE(fs::exists(destino));

    for (const fs::path& inservible : {carpeta_ / "no-existe" / "sello.pfx", carpeta_}) {
        std::string rutaMala = inservible.string();
        EXPECT_FALSE(herramienta_.createPFXfile(rutaMala, cer, key, clave));
        EXPECT_EQ(herramienta_.lastErr(), "No se pudo escribir el archivo " + rutaMala);
    }

    // A later success clears the last error.
    EXPECT_TRUE(herramienta_.createPFXfile(ruta, cer, key, clave));
    EXPECT_EQ(herramienta_.lastErr(), "");
}

}  // namespace
}  // namespace celdora::platform

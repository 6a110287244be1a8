#include "platform/crypto/HerramientaPfx.h"

#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/pkcs12.h>
#include <openssl/proverr.h>
#include <openssl/x509.h>

#include <climits>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <new>
#include <optional>
#include <vector>

#include "platform/crypto/ErrorOpenssl.h"

namespace celdora::platform {

namespace {

using Bytes = std::vector<unsigned char>;

template <auto Liberar>
struct Liberador {
    template <typename T>
    void operator()(T* objeto) const {
        Liberar(objeto);
    }
};
using Certificado = std::unique_ptr<X509, Liberador<X509_free>>;
using LlaveCifrada = std::unique_ptr<X509_SIG, Liberador<X509_SIG_free>>;
using LlaveInfo = std::unique_ptr<PKCS8_PRIV_KEY_INFO, Liberador<PKCS8_PRIV_KEY_INFO_free>>;
using Llave = std::unique_ptr<EVP_PKEY, Liberador<EVP_PKEY_free>>;
using Pfx = std::unique_ptr<PKCS12, Liberador<PKCS12_free>>;

// A step that failed, with the text for lastErr. Never leaves this file.
struct Fallo {
    std::string texto;
};

// " (OpenSSL's text)" for the error at the head of the queue, or "".
std::string DetalleOpenssl() {
    const std::string detalle = detail::TomarErrorOpenssl();
    return detalle.empty() ? std::string() : " (" + detalle + ")";
}

// Paths arrive as UTF-8 text; build them so on every platform.
std::filesystem::path Ruta(const std::string& texto) {
    return std::filesystem::path(std::u8string(texto.begin(), texto.end()));
}

std::optional<Bytes> LeerArchivo(const std::string& ruta) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(Ruta(ruta), error)) return std::nullopt;
    std::ifstream archivo(Ruta(ruta), std::ios::binary);
    if (!archivo) return std::nullopt;
    Bytes datos((std::istreambuf_iterator<char>(archivo)), std::istreambuf_iterator<char>());
    if (archivo.bad()) return std::nullopt;
    return datos;
}

Certificado LeerCertificado(const std::string& ruta) {
    const std::optional<Bytes> datos = LeerArchivo(ruta);
    if (!datos) throw Fallo{"No se pudo leer el certificado " + ruta};
    const unsigned char* cursor = datos->data();
    Certificado certificado(d2i_X509(nullptr, &cursor, static_cast<long>(datos->size())));
    if (!certificado)
        throw Fallo{"El archivo " + ruta + " no es un certificado X.509 en formato DER" + DetalleOpenssl()};
    return certificado;
}

// What the queue says after the key failed to decipher. A wrong password
// shows as a failed padding check on the last block or, when the padding
// happens to pass, as deciphered bytes that are not a key structure.
struct ErrorDescifrado {
    bool contrasena = false;
    std::string detalle;  // OpenSSL's text for the earliest error
};

ErrorDescifrado TomarErrorDescifrado() {
    ErrorDescifrado resultado;
    unsigned long codigo = 0;
    while ((codigo = ERR_get_error()) != 0) {
        if (resultado.detalle.empty()) {
            char texto[256];
            ERR_error_string_n(codigo, texto, sizeof texto);
            resultado.detalle = texto;
        }
        const int biblioteca = ERR_GET_LIB(codigo);
        const int razon = ERR_GET_REASON(codigo);
        if ((biblioteca == ERR_LIB_PROV && razon == PROV_R_BAD_DECRYPT) ||
            (biblioteca == ERR_LIB_EVP && razon == EVP_R_BAD_DECRYPT) || biblioteca == ERR_LIB_ASN1)
            resultado.contrasena = true;
    }
    return resultado;
}

Llave LeerLlave(const std::string& ruta, const std::string& clave) {
    const std::optional<Bytes> datos = LeerArchivo(ruta);
    if (!datos) throw Fallo{"No se pudo leer la llave privada " + ruta};
    const unsigned char* cursor = datos->data();
    LlaveCifrada cifrada(d2i_X509_SIG(nullptr, &cursor, static_cast<long>(datos->size())));
    if (!cifrada)
        throw Fallo{"El archivo " + ruta + " no es una llave privada cifrada (PKCS#8 en formato DER)" +
                    DetalleOpenssl()};
    if (clave.size() > INT_MAX) throw Fallo{"La contraseña de la llave privada es incorrecta"};

    // Look at the queue only for what this step adds.
    ERR_clear_error();
    LlaveInfo info(PKCS8_decrypt(cifrada.get(), clave.data(), static_cast<int>(clave.size())));
    if (!info) {
        const ErrorDescifrado error = TomarErrorDescifrado();
        if (error.contrasena) throw Fallo{"La contraseña de la llave privada es incorrecta"};
        // Anything else: an algorithm the loaded providers lack, for example.
        throw Fallo{"No se pudo descifrar la llave privada " + ruta +
                    (error.detalle.empty() ? std::string() : " (" + error.detalle + ")")};
    }
    Llave llave(EVP_PKCS82PKEY(info.get()));
    if (!llave) throw Fallo{"La llave privada " + ruta + " no contiene una llave válida" + DetalleOpenssl()};
    return llave;
}

// The SAT certificate number: the serial's bytes are ASCII digits. A serial
// of any other kind is named by its hex digits.
std::string NumeroCertificado(const X509* certificado) {
    const ASN1_INTEGER* serie = X509_get0_serialNumber(certificado);
    const unsigned char* bytes = ASN1_STRING_get0_data(serie);
    const int largo = ASN1_STRING_length(serie);
    std::string digitos(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(largo));
    const bool sonDigitos =
        !digitos.empty() && digitos.find_first_not_of("0123456789") == std::string::npos;
    if (sonDigitos) return digitos;

    static constexpr char kHex[] = "0123456789ABCDEF";
    std::string hex;
    for (int i = 0; i < largo; ++i) {
        hex += kHex[bytes[i] >> 4];
        hex += kHex[bytes[i] & 0x0F];
    }
    return hex;
}

Bytes ConstruirPfx(X509* certificado, EVP_PKEY* llave, const std::string& clave) {
    const std::string nombre = NumeroCertificado(certificado);
    // Zeros select OpenSSL 3's defaults: PBES2 with AES-256-CBC for key and
    // certificate, and a SHA-256 MAC.
    Pfx pfx(PKCS12_create(clave.c_str(), nombre.c_str(), llave, certificado, nullptr, 0, 0, 0, 0, 0));
    if (!pfx) throw Fallo{"No se pudo armar el archivo pfx" + DetalleOpenssl()};
    unsigned char* der = nullptr;
    const int largo = i2d_PKCS12(pfx.get(), &der);
    if (largo <= 0) throw Fallo{"No se pudo armar el archivo pfx" + DetalleOpenssl()};
    Bytes datos(der, der + largo);
    OPENSSL_free(der);
    return datos;
}

void Escribir(const std::string& ruta, const Bytes& datos) {
    const std::filesystem::path destino = Ruta(ruta);
    std::ofstream archivo(destino, std::ios::binary | std::ios::trunc);
    if (!archivo) throw Fallo{"No se pudo escribir el archivo " + ruta};
    archivo.write(reinterpret_cast<const char*>(datos.data()), static_cast<std::streamsize>(datos.size()));
    archivo.close();
    if (archivo.fail()) {
        std::error_code ignorado;
        std::filesystem::remove(destino, ignorado);
        throw Fallo{"No se pudo escribir el archivo " + ruta};
    }
}

}  // namespace

bool HerramientaPfx::createPFXfile(std::string& rutaPFX, const std::string& certificado,
                                   const std::string& llavePrivada, std::string& clave) {
    ultimoError_.clear();
    ERR_clear_error();
    try {
        const Certificado cert = LeerCertificado(certificado);
        const Llave llave = LeerLlave(llavePrivada, clave);
        if (X509_check_private_key(cert.get(), llave.get()) != 1) {
            ERR_clear_error();
            throw Fallo{"La llave privada no corresponde al certificado"};
        }
        Escribir(rutaPFX, ConstruirPfx(cert.get(), llave.get(), clave));
        return true;
    } catch (const Fallo& fallo) {
        ultimoError_ = fallo.texto;
    } catch (const std::bad_alloc&) {
        ultimoError_ = "No hay memoria suficiente para crear el archivo pfx";
    } catch (const std::exception& error) {
        ultimoError_ = std::string("No se pudo crear el archivo pfx (") + error.what() + ")";
    }
    ERR_clear_error();
    return false;
}

}  // namespace celdora::platform

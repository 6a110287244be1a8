#include "platform/crypto/CifradoAes.h"

#include <openssl/crypto.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/rand.h>

#include <algorithm>
#include <array>
#include <climits>
#include <memory>
#include <optional>
#include <vector>

#include "platform/crypto/ErrorOpenssl.h"

namespace celdora::platform {

namespace {

constexpr std::size_t kBloque = 16;  // AES block, IV and key length

using Bytes = std::vector<unsigned char>;
using ClaveAes = std::array<unsigned char, kBloque>;

struct LiberarContexto {
    void operator()(EVP_CIPHER_CTX* contexto) const { EVP_CIPHER_CTX_free(contexto); }
};
using Contexto = std::unique_ptr<EVP_CIPHER_CTX, LiberarContexto>;

// Wipes a buffer that held a key or a plain text when it goes out of scope.
template <typename Buffer>
struct Borrado {
    Buffer& buffer;
    ~Borrado() {
        if (!buffer.empty()) OPENSSL_cleanse(buffer.data(), buffer.size());
    }
};

// The AES key for a key text: the text itself when it has 16 bytes, else the
// first 16 bytes of its SHA-256 digest. Returns false only if OpenSSL fails.
bool DerivarClave(const std::string& texto, ClaveAes& clave) {
    if (texto.size() == kBloque) {
        std::copy(texto.begin(), texto.end(), clave.begin());
        return true;
    }
    std::array<unsigned char, EVP_MAX_MD_SIZE> resumen{};
    std::size_t largo = 0;
    if (EVP_Q_digest(nullptr, "SHA256", nullptr, texto.data(), texto.size(), resumen.data(), &largo) != 1 ||
        largo < kBloque)
        return false;
    std::copy_n(resumen.begin(), kBloque, clave.begin());
    OPENSSL_cleanse(resumen.data(), resumen.size());
    return true;
}

std::string CodificarBase64(const Bytes& datos) {
    // EVP_EncodeBlock writes 4 characters per 3 bytes and a closing NUL, and
    // no line breaks.
    std::string texto(4 * ((datos.size() + 2) / 3) + 1, '\0');
    const int escritos =
        EVP_EncodeBlock(reinterpret_cast<unsigned char*>(texto.data()), datos.data(), static_cast<int>(datos.size()));
    texto.resize(static_cast<std::size_t>(escritos));
    return texto;
}

bool EsLetraBase64(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '+' || c == '/';
}

// Strict base64: whole groups of four, only the alphabet, "=" only as the
// last one or two characters. Anything else is not our output.
std::optional<Bytes> DecodificarBase64(const std::string& texto) {
    if (texto.empty() || texto.size() % 4 != 0 || texto.size() > INT_MAX) return std::nullopt;
    std::size_t relleno = 0;
    if (texto.back() == '=') relleno = texto[texto.size() - 2] == '=' ? 2 : 1;
    for (std::size_t i = 0; i < texto.size() - relleno; ++i)
        if (!EsLetraBase64(texto[i])) return std::nullopt;

    Bytes datos(texto.size() / 4 * 3);
    const int leidos = EVP_DecodeBlock(datos.data(), reinterpret_cast<const unsigned char*>(texto.data()),
                                       static_cast<int>(texto.size()));
    if (leidos < 0) return std::nullopt;
    // EVP_DecodeBlock counts the padding as zero bytes; drop them.
    datos.resize(static_cast<std::size_t>(leidos) - relleno);
    return datos;
}

// IV || ciphertext of the text, or a Fault if OpenSSL fails.
Bytes Encriptar(const std::string& texto, const ClaveAes& clave) {
    if (texto.size() > static_cast<std::size_t>(INT_MAX) - 2 * kBloque) throw Overflow();

    Bytes salida(kBloque + texto.size() + kBloque);
    if (RAND_bytes(salida.data(), static_cast<int>(kBloque)) != 1)
        throw detail::FallaOpenssl("No se pudo generar el vector de inicio del cifrado");

    Contexto contexto(EVP_CIPHER_CTX_new());
    int escrito = 0;
    int final = 0;
    if (!contexto ||
        EVP_EncryptInit_ex2(contexto.get(), EVP_aes_128_cbc(), clave.data(), salida.data(), nullptr) != 1 ||
        EVP_EncryptUpdate(contexto.get(), salida.data() + kBloque, &escrito,
                          reinterpret_cast<const unsigned char*>(texto.data()), static_cast<int>(texto.size())) != 1 ||
        EVP_EncryptFinal_ex(contexto.get(), salida.data() + kBloque + escrito, &final) != 1)
        throw detail::FallaOpenssl("No se pudo cifrar el texto");
    salida.resize(kBloque + static_cast<std::size_t>(escrito) + static_cast<std::size_t>(final));
    return salida;
}

// The plain text of IV || ciphertext, or nothing if it isn't one under this key.
std::optional<std::string> Desencriptar(const Bytes& datos, const ClaveAes& clave) {
    if (datos.size() < 2 * kBloque || datos.size() % kBloque != 0) return std::nullopt;

    std::string texto(datos.size() - kBloque, '\0');
    Borrado<std::string> borrado{texto};
    Contexto contexto(EVP_CIPHER_CTX_new());
    int escrito = 0;
    int final = 0;
    const bool correcto =
        contexto && EVP_DecryptInit_ex2(contexto.get(), EVP_aes_128_cbc(), clave.data(), datos.data(), nullptr) == 1 &&
        EVP_DecryptUpdate(contexto.get(), reinterpret_cast<unsigned char*>(texto.data()), &escrito,
                          datos.data() + kBloque, static_cast<int>(datos.size() - kBloque)) == 1 &&
        EVP_DecryptFinal_ex(contexto.get(), reinterpret_cast<unsigned char*>(texto.data()) + escrito, &final) == 1;
    // A failure here (bad padding, mostly) only means the text was not ours:
    // nothing of it stays in the thread's error queue.
    ERR_clear_error();
    if (!correcto) return std::nullopt;
    return std::string(texto.data(), static_cast<std::size_t>(escrito) + static_cast<std::size_t>(final));
}

}  // namespace

CifradoAes::~CifradoAes() {
    OPENSSL_cleanse(clave_.data(), clave_.size());
    OPENSSL_cleanse(textoClaro_.data(), textoClaro_.size());
}

void CifradoAes::TextoClaro(const std::string& text) {
    textoClaro_ = text;
    textoCifrado_.clear();
    porDescifrar_ = false;
}

std::string CifradoAes::TextoClaro() {
    if (!porDescifrar_) return textoClaro_;
    ClaveAes clave{};
    Borrado<ClaveAes> borrado{clave};
    if (!DerivarClave(clave_, clave)) {
        detail::TomarErrorOpenssl();
        return {};
    }
    const std::optional<Bytes> datos = DecodificarBase64(textoCifrado_);
    if (!datos) return {};
    return Desencriptar(*datos, clave).value_or(std::string());
}

void CifradoAes::TextoCifrado(const std::string& text) {
    textoCifrado_ = text;
    porDescifrar_ = true;
}

void CifradoAes::Clave(const std::string& key, int /*flag*/) {
    OPENSSL_cleanse(clave_.data(), clave_.size());
    clave_ = key;
}

std::string CifradoAes::Cifrar(int /*flag*/) {
    ClaveAes clave{};
    Borrado<ClaveAes> borrado{clave};
    if (!DerivarClave(clave_, clave)) throw detail::FallaOpenssl("No se pudo preparar la clave del cifrado");
    std::string claro = TextoClaro();
    Borrado<std::string> borradoClaro{claro};
    return CodificarBase64(Encriptar(claro, clave));
}

}  // namespace celdora::platform

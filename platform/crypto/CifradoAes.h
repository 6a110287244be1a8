#pragma once

// The two-way cipher that stands behind "cCifrado".
//
// The one algorithm is AES-128 in CBC mode with PKCS#7 padding. The options'
// `Algoritmo` is kept and read back as written (the system writes 4) but
// every value selects that same algorithm, so a text enciphered under one
// value deciphers under any other.
//
// Key: a key of exactly 16 bytes (the system's 16-character key) is the
// AES-128 key itself. A key of any other length, the empty one included and
// the one in force before `Clave` is called, is turned into 16 bytes as the
// first 16 bytes of its SHA-256 digest. Lengths count bytes of the UTF-8 text.
//
// Enciphered form: base64 (standard alphabet, "=" padding, no line breaks)
// of a fresh random 16-byte IV followed by the ciphertext. It is plain ASCII,
// so it survives in any text column, and two encipherings of one text differ.
//
// Deciphering: a text that is not exactly that form (not strict base64,
// fewer than 32 bytes or not whole blocks once decoded, or bad padding under
// the key in force) deciphers to the empty string; nothing is raised. The
// padding is the only check there is, so a ciphertext read with the wrong key
// gives either the empty string or bytes unrelated to the original text.
//
// The flag arguments of `Clave` and `Cifrar` are always 0 in the system; any
// value is accepted and ignored. `Cifrar` raises a Fault only when OpenSSL
// itself fails (no random bytes, for example).

#include <string>

#include "host/Components.h"

namespace celdora::platform {

class CifradoAes : public host::cCifrado {
public:
    CifradoAes() = default;
    ~CifradoAes() override;
    CifradoAes(const CifradoAes&) = delete;
    CifradoAes& operator=(const CifradoAes&) = delete;

    host::ParametrosCifrado& Parametros() override { return opciones_; }
    // Sets the plain text; a ciphertext set before is forgotten.
    void TextoClaro(const std::string& text) override;
    // The plain text, or the deciphering of the last `TextoCifrado` under the
    // key in force now.
    std::string TextoClaro() override;
    void TextoCifrado(const std::string& text) override;
    void Clave(const std::string& key, int flag) override;
    // The enciphered form of `TextoClaro()` under the key in force.
    std::string Cifrar(int flag) override;

private:
    class Opciones : public host::ParametrosCifrado {
    public:
        void Algoritmo(int algorithm) override { algoritmo_ = algorithm; }
        int Algoritmo() const override { return algoritmo_; }

    private:
        int algoritmo_ = 0;
    };

    Opciones opciones_;
    std::string clave_;
    std::string textoClaro_;
    std::string textoCifrado_;
    bool porDescifrar_ = false;  // the last text set was the enciphered one
};

}  // namespace celdora::platform

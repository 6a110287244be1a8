#include "platform/crypto/CifradoAes.h"
#include "platform/crypto/ProcesoSello.h"

#include <gtest/gtest.h>

#include <regex>
#include <string>

namespace celdora::platform {
namespace {

const std::string kClaveSistema = "c7a20eQp41vRZ318";

// The order of calls the system uses to encipher and to decipher.
std::string Cifrar(const std::string& texto, const std::string& clave = kClaveSistema) {
    CifradoAes cifrado;
    cifrado.Parametros().Algoritmo(4);
    cifrado.TextoClaro(texto);
    cifrado.Clave(clave, 0);
    return cifrado.Cifrar(0);
}

std::string Descifrar(const std::string& texto, const std::string& clave = kClaveSistema, int algoritmo = 4) {
    CifradoAes cifrado;
    cifrado.Parametros().Algoritmo(algoritmo);
    cifrado.Clave(clave, 0);
    cifrado.TextoCifrado(texto);
    return cifrado.TextoClaro();
}

// Strict base64 of at least one byte.
bool EsBase64(const std::string& texto) {
    static const std::regex base64("([A-Za-z0-9+/]{4})*([A-Za-z0-9+/]{4}|[A-Za-z0-9+/]{3}=|[A-Za-z0-9+/]{2}==)");
    return std::regex_match(texto, base64);
}

TEST(CifradoAes, RoundTripsAnyUtf8TextAsPrintableBase64UnderItsKeyOnly) {
    std::string largo;
    while (largo.size() < 4096) largo += "Línea de texto ñ € 0123456789 ";
    for (const std::string& texto : {std::string("12345678a"), std::string("Contraseña: áéíóú ÁÉÍÓÚ ñÑ ü €"),
                                     std::string(), largo}) {
        const std::string cifrado = Cifrar(texto);
        EXPECT_TRUE(EsBase64(cifrado)) << cifrado;
        EXPECT_EQ(Descifrar(cifrado), texto);
    }
    // The same text enciphers differently each time, and both decipher.
    const std::string otraVez = Cifrar("12345678a");
    EXPECT_NE(Cifrar("12345678a"), otraVez);
    EXPECT_EQ(Descifrar(otraVez), "12345678a");
    // Any algorithm value, and keys of other lengths, round-trip.
    EXPECT_EQ(Descifrar(Cifrar("secreto"), kClaveSistema, 0), "secreto");
    EXPECT_EQ(Descifrar(Cifrar("secreto", "corta"), "corta"), "secreto");
    EXPECT_EQ(Descifrar(Cifrar("secreto", ""), ""), "secreto");
    // Another key does not give the text back.
    for (const std::string& otra : {std::string("c7a20eQp41vRZ319"), std::string("0000000000000000")})
        EXPECT_NE(Descifrar(otraVez, otra), "12345678a");
    EXPECT_NE(Descifrar(Cifrar("12345678a", kClaveSistema + "x"), kClaveSistema), "12345678a");
}

TEST(CifradoAes, TextNeverEncipheredGivesTheEmptyString) {
    const std::string valido = Cifrar("12345678a");
    std::string alterado = valido;
    alterado[alterado.size() - 3] = alterado[alterado.size() - 3] == 'A' ? 'B' : 'A';
    const std::string casos[] = {
        "",
        "12345678a",                          // a password stored before it was enciphered
        "no es base64!",
        "QUJD",                               // base64, but three bytes
        "AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA=",  // 32 bytes, padding fails under the key
        valido.substr(0, valido.size() - 4),  // cut short: not whole blocks
        " " + valido,                         // not strict base64
        valido + "\n",
    };
    for (const std::string& texto : casos) {
        std::string resultado;
        EXPECT_NO_THROW(resultado = Descifrar(texto)) << texto;
        EXPECT_EQ(resultado, "") << texto;
    }
    // Altering the last block breaks its padding, or else changes the text.
    EXPECT_NE(Descifrar(alterado), "12345678a");
}

TEST(ProcesoSello, Md5IsLowercaseHexOfTheTextBytes) {
    ProcesoSello sello;
    EXPECT_EQ(sello.getMD5(""), "d41d8cd98f00b204e9800998ecf8427e");
    EXPECT_EQ(sello.getMD5("abc"), "900150983cd24fb0d6963f7d28e17f72");
    EXPECT_EQ(sello.getMD5("contraseña"), "4c882dcb24bcb1bc225391a602feca7c");  // its UTF-8 bytes
}

}  // namespace
}  // namespace celdora::platform

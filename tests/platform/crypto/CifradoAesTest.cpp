#include "platform/crypto/CifradoAes.h"

#include <gtest/gtest.h>

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

bool EsBase64(const std::string& texto) {
    if (texto.empty() || texto.size() % 4 != 0) return false;
    const std::size_t fin = texto.find_last_not_of('=');
    if (texto.size() - fin - 1 > 2) return false;
    return texto.substr(0, fin + 1).find_first_not_of(
               "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/") == std::string::npos;
}

TEST(CifradoAes, RoundTripsAnyUtf8TextAsPrintableBase64) {
    std::string largo;
    while (largo.size() < 4096) largo += "Línea de texto ñ € 0123456789 ";
    for (const std::string& texto : {std::string("12345678a"), std::string("Contraseña: áéíóú ÁÉÍÓÚ ñÑ ü €"),
                                     std::string(), largo}) {
        const std::string cifrado = Cifrar(texto);
        EXPECT_TRUE(EsBase64(cifrado)) << cifrado;
        EXPECT_EQ(Descifrar(cifrado), texto);
    }
}

TEST(CifradoAes, SameTextEnciphersDifferentlyEachTimeButBothDecipher) {
    const std::string primero = Cifrar("12345678a");
    const std::string segundo = Cifrar("12345678a");
    EXPECT_NE(primero, segundo);
    EXPECT_EQ(Descifrar(primero), "12345678a");
    EXPECT_EQ(Descifrar(segundo), "12345678a");
}

TEST(CifradoAes, AnyAlgorithmValueAndKeysOfOtherLengthsRoundTrip) {
    EXPECT_EQ(Descifrar(Cifrar("secreto"), kClaveSistema, 0), "secreto");
    EXPECT_EQ(Descifrar(Cifrar("secreto", "corta"), "corta"), "secreto");
    EXPECT_EQ(Descifrar(Cifrar("secreto", ""), ""), "secreto");
}

TEST(CifradoAes, ADifferentKeyDoesNotGiveThePlainTextBack) {
    const std::string cifrado = Cifrar("12345678a");
    for (const std::string& otra : {std::string("c7a20eQp41vRZ319"), std::string("0000000000000000")})
        EXPECT_NE(Descifrar(cifrado, otra), "12345678a");
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

}  // namespace
}  // namespace celdora::platform

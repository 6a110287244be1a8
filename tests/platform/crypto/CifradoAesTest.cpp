#include "platform/crypto/CifradoAes.h"
#include "platform/crypto/ProcesoSello.h"

#include <gtest/gtest.h>

#include <string>

namespace celdora::platform {
namespace {

const std::string kClaveSistema = "c7a20eQp41vRZ318";

// The order of calls the system uses to encipher and to decipher.
std::string Cifrar(const std::string& texto) {
    CifradoAes cifrado;
    cifrado.Parametros().Algoritmo(4);
    cifrado.TextoClaro(texto);
    cifrado.Clave(kClaveSistema, 0);
    return cifrado.Cifrar(0);
}

std::string Descifrar(const std::string& texto, const std::string& clave = kClaveSistema, int algoritmo = 4) {
    CifradoAes cifrado;
    cifrado.Parametros().Algoritmo(algoritmo);
    cifrado.Clave(clave, 0);
    cifrado.TextoCifrado(texto);
    return cifrado.TextoClaro();
}

TEST(CifradoAes, RoundTripsAnyUtf8TextAsPrintableBase64UnderItsKeyOnly) {
    std::string largo;
    while (largo.size() < 4096) largo += "Línea de texto ñ € 0123456789 ";
    for (const std::string& texto : {std::string("12345678a"), std::string("Contraseña: áéíóú ÁÉÍÓÚ ñÑ ü €"),
                                     std::string(), largo}) {
        EXPECT_EQ(Descifrar(Cifrar(texto)), texto);
    }
    // The same text enciphers differently each time, and both decipher.
    const std::string otraVez = Cifrar("12345678a");
    EXPECT_NE(Cifrar("12345678a"), otraVez);
    EXPECT_EQ(Descifrar(otraVez), "12345678a");
    // Any algorithm value round-trips.
    EXPECT_EQ(Descifrar(Cifrar("secreto"), kClaveSistema, 0), "secreto");
    // Another key, even one letter apart, does not give the text back.
    EXPECT_NE(Descifrar(otraVez, "c7a20eQp41vRZ319"), "12345678a");
}

TEST(CifradoAes, TextNeverEncipheredGivesTheEmptyString) {
    const std::string valido = Cifrar("12345678a");
    std::string alterado = valido;
    alterado[alterado.size() - 3] = alterado[alterado.size() - 3] == 'A' ? 'B' : 'A';
    const std::string casos[] = {
        "",
        "12345678a",                          // a password stored before it was enciphered
        valido.substr(0, valido.size() - 4),  // cut short: not whole blocks
        valido + "\n",                        // not strict base64
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
    EXPECT_EQ(sello.getMD5("contraseña"), "4c882dcb24bcb1bc225391a602feca7c");  // its UTF-8 bytes
}

}  // namespace
}  // namespace celdora::platform

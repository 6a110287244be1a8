#pragma once

// Outside components: the cipher, the sealing component and the PFX tool.

#include <memory>
#include <string>

#include "value/Object.h"

namespace celdora::host {

// The options object of the cipher.
class ParametrosCifrado : public Object {
public:
    virtual void Algoritmo(int algorithm) = 0;
    virtual int Algoritmo() const = 0;
};

// The two-way cipher, created for each call and dropped after it.
class cCifrado : public Object {
public:
    virtual ParametrosCifrado& Parametros() = 0;
    virtual void TextoClaro(const std::string& text) = 0;
    virtual std::string TextoClaro() = 0;
    virtual void TextoCifrado(const std::string& text) = 0;
    virtual void Clave(const std::string& key, int flag) = 0;
    virtual std::string Cifrar(int flag) = 0;
};

// "Sellora.cProccess": the sealing component; the system asks it for digests.
class cProccess : public Object {
public:
    virtual std::string getMD5(const std::string& text) = 0;
};

// "Trasvel.cTools": builds a PFX file from a certificate and its private key.
class cTools : public Object {
public:
    // rutaPFX and clave are passed by reference, as the component takes them.
    virtual bool createPFXfile(std::string& rutaPFX, const std::string& certificado, const std::string& llavePrivada,
                               std::string& clave) = 0;
    virtual std::string lastErr() const = 0;
};

}  // namespace celdora::host

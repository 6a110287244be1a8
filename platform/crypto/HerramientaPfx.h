#pragma once

// The PFX tool "Trasvel.cTools": builds a PKCS#12 file from a seal
// certificate and its private key.

#include <string>

#include "host/Components.h"

namespace celdora::platform {

class HerramientaPfx : public host::cTools {
public:
    HerramientaPfx() = default;

    // Reads the DER X.509 certificate at `certificado` and the DER encrypted
    // PKCS#8 key at `llavePrivada`, deciphers the key with `clave`, checks
    // that the key belongs to the certificate, and writes to `rutaPFX` a
    // PKCS#12 holding both, protected by the same `clave`, with OpenSSL's
    // default algorithms and the certificate number as friendly name.
    //
    // Returns true on success, with `lastErr()` empty. On failure returns
    // false with `lastErr()` telling in Spanish what failed. Every check runs
    // and the whole file is built in memory before `rutaPFX` is opened, and a
    // write that fails halfway removes what it wrote, so no partial file is
    // left. A file already at `rutaPFX` is replaced: whether to replace it is
    // the caller's decision. Neither argument by reference is changed.
    // Nothing is raised.
    bool createPFXfile(std::string& rutaPFX, const std::string& certificado, const std::string& llavePrivada,
                       std::string& clave) override;

    std::string lastErr() const override { return ultimoError_; }

private:
    std::string ultimoError_;
};

}  // namespace celdora::platform

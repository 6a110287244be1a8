#pragma once

// Private to this folder: how OpenSSL's error queue becomes text and faults.

#include <string>

#include "value/Fault.h"

namespace celdora::platform::detail {

// The number of a fault raised by these components when OpenSSL itself fails
// (no random bytes, no memory, an algorithm missing from the provider):
// the automation world's generic failure, 0x80004005.
inline constexpr long kNumeroFallaCifrado = -2147467259L;

// The earliest error in this thread's OpenSSL queue, as OpenSSL writes it
// ("error:1C800064:Provider routines::bad decrypt"), or "" if the queue is
// empty. The queue is emptied either way.
std::string TomarErrorOpenssl();

// A fault for an OpenSSL failure during `operacion`, with OpenSSL's text.
Fault FallaOpenssl(const std::string& operacion);

}  // namespace celdora::platform::detail

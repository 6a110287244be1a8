#include "tests/support/TestPlatform.h"

namespace celdora::testing {

celdora::Date FechaDePrueba() {
    return celdora::Date{DateSerial(2026, 11, 22).serial + TimeSerial(10, 30, 0).serial};
}

TestPlatform::TestPlatform() = default;

}  // namespace celdora::testing

#include "value/Regional.h"

namespace celdora {

namespace {
Regional& Settings() {
    static Regional settings;
    return settings;
}
}  // namespace

const Regional& CurrentRegional() { return Settings(); }

void SetRegional(const Regional& settings) { Settings() = settings; }

ScopedRegional::ScopedRegional(const Regional& settings) : saved_(CurrentRegional()) { SetRegional(settings); }

ScopedRegional::~ScopedRegional() { SetRegional(saved_); }

}  // namespace celdora

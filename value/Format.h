#pragma once

#include <string>

#include "value/Variant.h"

namespace celdora {

// The formatter for every format the system names. Numbers: "#.00", "00",
// "000000", "$ #,#.##" and their relatives, rounded half away from zero on the
// value's 15-significant-digit decimal form, with the regional decimal and
// group separators. Dates: "dd/mm/yyyy", "yyyy-mm-dd", "yyyy-MM-dd HH:mm:ss"
// (m after h means minutes, as the platform reads it).
// A text that is a number is formatted as that number; one that is not is
// given back as it stands. Null and Empty give "".
std::string Format(const Variant& value, const std::string& format);

}  // namespace celdora

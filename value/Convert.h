#pragma once

#include <cstdint>
#include <string>

#include "value/Variant.h"

namespace celdora {

// The platform's conversions, one place each. A conversion that cannot be
// made raises TypeMismatch, InvalidUseOfNull or Overflow exactly where the
// platform would. Texts are read under the regional settings.

// To text: numbers in their shortest form with the regional decimal
// separator, booleans "True"/"False", dates as the short date (plus the time
// when it is not midnight), Empty as "". Null raises InvalidUseOfNull.
std::string CStr(const Variant& value);
// To 32-bit and 16-bit integers, rounding half to even; out of range raises
// Overflow. Empty is 0; a text must be a whole number text.
std::int32_t CLng(const Variant& value);
std::int16_t CInt(const Variant& value);
double CDbl(const Variant& value);
// To Currency: four decimals, half to even; Overflow outside its range.
Currency CCur(const Variant& value);
// A number is true unless it is 0; texts "True"/"False" (any case) or number
// texts are accepted.
bool CBool(const Variant& value);
// Texts read under the regional date order ("5/3/2012 7:8:9"); when the
// preferred order gives no valid date the other order is tried, as the
// platform does. Numbers are taken as serial dates.
Date CDate(const Variant& value);

// The platform's Round: to a number of decimals, half to even.
double Round(double value, int decimals);

// The leading number of a text, 0 if there is none. Blanks are skipped, "."
// is always the decimal point, whatever the regional settings say.
double Val(const std::string& text);

// True when the text converts to a number under CDbl.
bool IsNumericText(const std::string& text);

// The automation boolean: -1 true, 0 false.
inline std::int16_t AutomationBool(bool value) { return value ? -1 : 0; }

}  // namespace celdora

#pragma once

// Internal to value/: the decimal form of numbers shared by the conversions
// and the formatter.

#include <cstdint>
#include <string>

namespace celdora::detail {

// A decimal number as significant digits: the value is 0.d1d2d3... times
// 10^point, with no leading or trailing zero digit. Zero has no digits.
struct DecimalText {
    bool negative = false;
    std::string digits;
    int point = 0;
};

// The 15-significant-digit decimal form of a double, the precision the
// platform shows and rounds at. The value must be finite.
DecimalText DecimalOf(double value);
// The exact decimal form of an integer count of 1/10^scale units.
DecimalText DecimalOf(std::int64_t units, int scale);

// The text of a date as CStr gives it under the regional date order.
std::string DateText(double serial);

}  // namespace celdora::detail

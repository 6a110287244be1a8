#include "value/Convert.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string_view>

#include "value/Fault.h"
#include "value/NumberText.h"
#include "value/Regional.h"

namespace celdora {

namespace detail {

DecimalText DecimalOf(double value) {
    DecimalText out;
    if (value == 0.0) return out;
    out.negative = value < 0;
    // d.dddddddddddddde+XX: fifteen significant digits, correctly rounded.
    char buffer[64];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value), std::chars_format::scientific, 14);
    const std::string_view text(buffer, static_cast<std::size_t>(result.ptr - buffer));
    const std::size_t e = text.find('e');
    for (char c : text.substr(0, e))
        if (c != '.') out.digits += c;
    int exponent = 0;
    const std::string_view exponentText = text.substr(e + 1);
    std::from_chars(exponentText.data() + (exponentText.front() == '+' ? 1 : 0),
                    exponentText.data() + exponentText.size(), exponent);
    out.point = exponent + 1;
    while (!out.digits.empty() && out.digits.back() == '0') out.digits.pop_back();
    return out;
}

DecimalText DecimalOf(std::int64_t units, int scale) {
    DecimalText out;
    if (units == 0) return out;
    out.negative = units < 0;
    // The magnitude as unsigned, so that the lowest value has one too.
    std::uint64_t magnitude = out.negative ? 0 - static_cast<std::uint64_t>(units) : static_cast<std::uint64_t>(units);
    out.digits = std::to_string(magnitude);
    out.point = static_cast<int>(out.digits.size()) - scale;
    while (!out.digits.empty() && out.digits.back() == '0') out.digits.pop_back();
    return out;
}

}  // namespace detail

namespace {

using detail::DecimalOf;
using detail::DecimalText;

bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

std::string_view TrimBlanks(std::string_view text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    return text;
}

// Fixed notation: digits with the decimal separator, "0" before a leading
// separator, no exponent.
std::string FixedText(const DecimalText& number, char separator) {
    if (number.digits.empty()) return "0";
    std::string out = number.negative ? "-" : "";
    const int size = static_cast<int>(number.digits.size());
    if (number.point <= 0) {
        out += '0';
        out += separator;
        out.append(static_cast<std::size_t>(-number.point), '0');
        out += number.digits;
    } else if (number.point >= size) {
        out += number.digits;
        out.append(static_cast<std::size_t>(number.point - size), '0');
    } else {
        out.append(number.digits, 0, static_cast<std::size_t>(number.point));
        out += separator;
        out.append(number.digits, static_cast<std::size_t>(number.point));
    }
    return out;
}

// A Double as the platform writes it: fifteen significant digits at most,
// fixed notation for exponents -4 to 14, else "d.dddE+XX".
std::string DoubleText(double value) {
    if (!std::isfinite(value)) throw Overflow();
    const DecimalText number = DecimalOf(value);
    const char separator = CurrentRegional().decimalSeparator;
    const int exponent = number.point - 1;
    if (number.digits.empty() || (exponent >= -4 && exponent < 15)) return FixedText(number, separator);
    std::string out = number.negative ? "-" : "";
    out += number.digits.front();
    if (number.digits.size() > 1) {
        out += separator;
        out.append(number.digits, 1);
    }
    out += exponent < 0 ? "E-" : "E+";
    const std::string exponentDigits = std::to_string(std::abs(exponent));
    if (exponentDigits.size() < 2) out += '0';
    out += exponentDigits;
    return out;
}

// A hexadecimal or octal value is an Integer when it fits in 16 bits and a
// Long when it fits in 32, read as signed: &HFFFF is -1, &H10000 is 65536.
// Past 32 bits it fits neither, which overflows.
double RadixValue(std::uint64_t bits) {
    if (bits <= 0xFFFF) return static_cast<std::int16_t>(static_cast<std::uint16_t>(bits));
    if (bits <= 0xFFFFFFFF) return static_cast<std::int32_t>(static_cast<std::uint32_t>(bits));
    throw Overflow();
}

// Reads "&H..." or "&O..." at pos and moves pos past its digits, which stop
// at the first character that isn't one of the radix; nullopt (pos kept)
// when the text there is not such a prefix.
std::optional<double> ReadRadix(std::string_view text, std::size_t& pos) {
    if (pos + 1 >= text.size() || text[pos] != '&') return std::nullopt;
    const char kind = Lower(text[pos + 1]);
    const int radix = kind == 'h' ? 16 : kind == 'o' ? 8 : 0;
    if (radix == 0) return std::nullopt;
    std::size_t p = pos + 2;
    std::uint64_t bits = 0;
    std::size_t count = 0;
    for (; p < text.size(); ++p) {
        const char c = Lower(text[p]);
        int digit = -1;
        if (IsDigit(c)) digit = c - '0';
        else if (c >= 'a' && c <= 'f') digit = c - 'a' + 10;
        if (digit < 0 || digit >= radix) break;
        if (bits > (std::numeric_limits<std::uint64_t>::max() >> 4)) throw Overflow();
        bits = bits * static_cast<std::uint64_t>(radix) + static_cast<std::uint64_t>(digit);
        ++count;
    }
    pos = p;
    return count == 0 ? 0.0 : RadixValue(bits);
}

// Turns sign, digits and exponent already checked into a double. Too large a
// value raises Overflow; too small a one is 0.
double NumberFromParts(bool negative, const std::string& integerDigits, const std::string& fractionDigits,
                       long long exponent) {
    std::string text = integerDigits.empty() ? "0" : integerDigits;
    if (!fractionDigits.empty()) {
        text += '.';
        text += fractionDigits;
    }
    text += 'e';
    text += std::to_string(exponent);
    double value = 0.0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        // Which end it ran off: the position of the first significant digit.
        const std::size_t first = integerDigits.find_first_not_of('0');
        long long magnitude = first != std::string::npos
                                  ? static_cast<long long>(integerDigits.size() - first)
                                  : -static_cast<long long>(fractionDigits.find_first_not_of('0'));
        if (magnitude + exponent > 0) throw Overflow();
        value = 0.0;
    }
    return negative ? -value : value;
}

// A number text under the regional settings, as CDbl and the other
// conversions read it: blanks around, an optional sign and currency sign,
// digits with group separators, the decimal separator, an exponent with E or
// D; or &H / &O. Anything else is not a number (nullopt).
std::optional<double> ParseNumberText(std::string_view text) {
    const Regional& regional = CurrentRegional();
    text = TrimBlanks(text);
    std::size_t pos = 0;
    auto skipBlanks = [&] {
        while (pos < text.size() && IsBlank(text[pos])) ++pos;
    };
    bool negative = false;
    bool sign = false;
    bool currency = false;
    for (;;) {
        if (pos < text.size() && (text[pos] == '-' || text[pos] == '+') && !sign) {
            sign = true;
            negative = text[pos] == '-';
            ++pos;
        } else if (pos < text.size() && text[pos] == '$' && !currency) {
            currency = true;
            ++pos;
        } else {
            break;
        }
        skipBlanks();
    }
    if (auto radix = ReadRadix(text, pos)) {
        if (pos != text.size()) return std::nullopt;
        return negative ? -*radix : *radix;
    }
    std::string integerDigits;
    std::string fractionDigits;
    while (pos < text.size()) {
        // Group separators may stand anywhere after the first whole digit:
        // the platform doesn't check that they mark thousands.
        const char c = text[pos];
        const bool group = c == regional.groupSeparator && c != regional.decimalSeparator && !integerDigits.empty();
        if (!IsDigit(c) && !group) break;
        if (IsDigit(c)) integerDigits += c;
        ++pos;
    }
    if (pos < text.size() && text[pos] == regional.decimalSeparator) {
        ++pos;
        while (pos < text.size() && IsDigit(text[pos])) fractionDigits += text[pos++];
    }
    if (integerDigits.empty() && fractionDigits.empty()) return std::nullopt;
    long long exponent = 0;
    if (pos < text.size() && (Lower(text[pos]) == 'e' || Lower(text[pos]) == 'd')) {
        ++pos;
        bool negativeExponent = false;
        if (pos < text.size() && (text[pos] == '-' || text[pos] == '+')) negativeExponent = text[pos++] == '-';
        if (pos >= text.size() || !IsDigit(text[pos])) return std::nullopt;
        while (pos < text.size() && IsDigit(text[pos])) {
            if (exponent < 100000) exponent = exponent * 10 + (text[pos] - '0');
            ++pos;
        }
        if (negativeExponent) exponent = -exponent;
    }
    if (pos != text.size()) return std::nullopt;
    return NumberFromParts(negative, integerDigits, fractionDigits, exponent);
}

double TextToDouble(const std::string& text) {
    if (auto number = ParseNumberText(text)) return *number;
    throw TypeMismatch();
}

// Half to even, the platform's rounding for its integer conversions.
double RoundHalfEven(double value) {
    const double floor = std::floor(value);
    const double rest = value - floor;
    if (rest > 0.5) return floor + 1.0;
    if (rest < 0.5) return floor;
    return std::fmod(floor, 2.0) == 0.0 ? floor : floor + 1.0;
}

std::int64_t CurrencyToWhole(Currency amount) {
    std::int64_t whole = amount.scaled / 10000;
    const std::int64_t rest = amount.scaled % 10000;
    const std::int64_t absRest = rest < 0 ? -rest : rest;
    if (absRest > 5000 || (absRest == 5000 && whole % 2 != 0)) whole += rest < 0 ? -1 : 1;
    return whole;
}

// Any numeric kind as a whole number within [low, high], else Overflow.
std::int64_t ToWhole(const Variant& value, std::int64_t low, std::int64_t high) {
    std::int64_t whole = 0;
    switch (value.Type()) {
        case VarType::Empty: return 0;
        case VarType::Null: throw InvalidUseOfNull();
        case VarType::Boolean: return value.AsBoolean() ? -1 : 0;
        case VarType::Integer: whole = value.AsInteger(); break;
        case VarType::Long: whole = value.AsLong(); break;
        case VarType::Currency: whole = CurrencyToWhole(value.AsCurrency()); break;
        case VarType::Double:
        case VarType::Date:
        case VarType::String: {
            const double number = value.Type() == VarType::Double ? value.AsDouble()
                                  : value.Type() == VarType::Date ? value.AsDate().serial
                                                                  : TextToDouble(value.AsString());
            if (std::isnan(number)) throw Overflow();
            const double rounded = RoundHalfEven(number);
            if (rounded < static_cast<double>(low) || rounded > static_cast<double>(high)) throw Overflow();
            return static_cast<std::int64_t>(rounded);
        }
        default: throw TypeMismatch();
    }
    if (whole < low || whole > high) throw Overflow();
    return whole;
}

// --- Date texts -----------------------------------------------------------

bool ReadDigits(std::string_view text, std::size_t& pos, int& value, int& length) {
    value = 0;
    length = 0;
    while (pos < text.size() && IsDigit(text[pos]) && length < 9) {
        value = value * 10 + (text[pos++] - '0');
        ++length;
    }
    return length > 0;
}

// "AM", "PM", "a.m.", "p. m." in any case; 0 when there is none, 1 for the
// morning, 2 for the afternoon.
int ReadMeridiem(std::string_view text, std::size_t& pos) {
    std::size_t p = pos;
    if (p >= text.size()) return 0;
    const char first = Lower(text[p]);
    if (first != 'a' && first != 'p') return 0;
    ++p;
    if (p < text.size() && text[p] == '.') ++p;
    while (p < text.size() && IsBlank(text[p])) ++p;
    if (p >= text.size() || Lower(text[p]) != 'm') return 0;
    ++p;
    if (p < text.size() && text[p] == '.') ++p;
    pos = p;
    return first == 'a' ? 1 : 2;
}

int DaysInMonth(int year, int month) {
    namespace chrono = std::chrono;
    const chrono::year_month_day_last last{chrono::year{year} / chrono::month{static_cast<unsigned>(month)} / chrono::last};
    return static_cast<int>(static_cast<unsigned>(last.day()));
}

struct Field {
    int value = 0;
    int length = 0;
};

std::optional<DateParts> ValidDate(int day, int month, const Field& year) {
    int fullYear = year.value;
    if (year.length <= 2) fullYear += fullYear < 30 ? 2000 : 1900;
    if (fullYear < 100 || fullYear > 9999 || month < 1 || month > 12) return std::nullopt;
    if (day < 1 || day > DaysInMonth(fullYear, month)) return std::nullopt;
    DateParts parts;
    parts.year = fullYear;
    parts.month = month;
    parts.day = day;
    return parts;
}

// Reads "d/m/yyyy", "yyyy-mm-dd" and the like (separators "/", "-" or ".",
// the same twice), optionally followed by "h:m[:s]" with AM/PM, or the time
// alone. The day and month go in the regional order; when that gives no
// valid date the other order is taken, as the platform does.
std::optional<double> ParseDateText(std::string_view text) {
    text = TrimBlanks(text);
    std::size_t pos = 0;
    std::optional<DateParts> date;
    Field a, b, c;
    if (ReadDigits(text, pos, a.value, a.length) && pos < text.size() &&
        (text[pos] == '/' || text[pos] == '-' || text[pos] == '.')) {
        const char separator = text[pos++];
        if (ReadDigits(text, pos, b.value, b.length) && pos < text.size() && text[pos] == separator) {
            ++pos;
            if (!ReadDigits(text, pos, c.value, c.length)) return std::nullopt;
            if (a.length >= 3) {
                date = ValidDate(c.value, b.value, a);
            } else if (CurrentRegional().dateOrder == DateOrder::DayFirst) {
                date = ValidDate(a.value, b.value, c);
                if (!date) date = ValidDate(b.value, a.value, c);
            } else {
                date = ValidDate(b.value, a.value, c);
                if (!date) date = ValidDate(a.value, b.value, c);
            }
            if (!date) return std::nullopt;
        } else {
            return std::nullopt;
        }
    } else {
        pos = 0;
    }

    bool hasTime = false;
    int hour = 0, minute = 0, second = 0;
    const std::size_t beforeBlanks = pos;
    while (pos < text.size() && IsBlank(text[pos])) ++pos;
    if (pos < text.size()) {
        if (date && pos == beforeBlanks) return std::nullopt;
        int length = 0;
        if (!ReadDigits(text, pos, hour, length) || pos >= text.size() || text[pos] != ':') return std::nullopt;
        ++pos;
        if (!ReadDigits(text, pos, minute, length)) return std::nullopt;
        if (pos < text.size() && text[pos] == ':') {
            ++pos;
            if (!ReadDigits(text, pos, second, length)) return std::nullopt;
        }
        while (pos < text.size() && IsBlank(text[pos])) ++pos;
        const int meridiem = ReadMeridiem(text, pos);
        if (meridiem != 0) {
            if (hour > 12) return std::nullopt;
            if (hour == 12) hour = 0;
            if (meridiem == 2) hour += 12;
        }
        if (pos != text.size() || hour > 23 || minute > 59 || second > 59) return std::nullopt;
        hasTime = true;
    }
    if (!date && !hasTime) return std::nullopt;
    DateParts parts = date.value_or(DateParts{});
    parts.hour = hour;
    parts.minute = minute;
    parts.second = second;
    return MakeDate(parts).serial;
}

void CheckDateRange(double serial) {
    if (!std::isfinite(serial) || serial <= -657435.0 || serial >= 2958466.0) throw Overflow();
}

std::string TwoDigits(int value) {
    std::string out = std::to_string(value);
    return out.size() < 2 ? "0" + out : out;
}

}  // namespace

namespace detail {

std::string DateText(double serial) {
    const DateParts parts = SplitDate(Date{serial});
    const std::string time = TwoDigits(parts.hour) + ":" + TwoDigits(parts.minute) + ":" + TwoDigits(parts.second);
    // Day 0 is the platform's "no date": such a value shows as its time.
    if (parts.year == 1899 && parts.month == 12 && parts.day == 30) return time;
    const bool dayFirst = CurrentRegional().dateOrder == DateOrder::DayFirst;
    std::string out = TwoDigits(dayFirst ? parts.day : parts.month);
    out += '/';
    out += TwoDigits(dayFirst ? parts.month : parts.day);
    out += '/';
    out += std::to_string(parts.year);
    if (parts.hour != 0 || parts.minute != 0 || parts.second != 0) {
        out += ' ';
        out += time;
    }
    return out;
}

}  // namespace detail

std::string CStr(const Variant& value) {
    switch (value.Type()) {
        case VarType::Empty: return "";
        case VarType::Null: throw InvalidUseOfNull();
        case VarType::Boolean: return value.AsBoolean() ? "True" : "False";
        case VarType::Integer: return std::to_string(value.AsInteger());
        case VarType::Long: return std::to_string(value.AsLong());
        case VarType::Double: return DoubleText(value.AsDouble());
        case VarType::Currency:
            return FixedText(DecimalOf(value.AsCurrency().scaled, 4), CurrentRegional().decimalSeparator);
        case VarType::Date: return detail::DateText(value.AsDate().serial);
        case VarType::String: return value.AsString();
        default: throw TypeMismatch();
    }
}

std::int32_t CLng(const Variant& value) {
    return static_cast<std::int32_t>(
        ToWhole(value, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
}

std::int16_t CInt(const Variant& value) {
    return static_cast<std::int16_t>(
        ToWhole(value, std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max()));
}

double CDbl(const Variant& value) {
    switch (value.Type()) {
        case VarType::Empty: return 0.0;
        case VarType::Null: throw InvalidUseOfNull();
        case VarType::Boolean: return value.AsBoolean() ? -1.0 : 0.0;
        case VarType::Integer: return value.AsInteger();
        case VarType::Long: return value.AsLong();
        case VarType::Double: return value.AsDouble();
        case VarType::Currency: return static_cast<double>(value.AsCurrency().scaled) / 10000.0;
        case VarType::Date: return value.AsDate().serial;
        case VarType::String: return TextToDouble(value.AsString());
        default: throw TypeMismatch();
    }
}

bool CBool(const Variant& value) {
    switch (value.Type()) {
        case VarType::Null: throw InvalidUseOfNull();
        case VarType::Boolean: return value.AsBoolean();
        case VarType::String: {
            const std::string_view text = TrimBlanks(value.AsString());
            auto is = [&](std::string_view word) {
                if (text.size() != word.size()) return false;
                for (std::size_t i = 0; i < word.size(); ++i)
                    if (Lower(text[i]) != word[i]) return false;
                return true;
            };
            if (is("true")) return true;
            if (is("false")) return false;
            return TextToDouble(value.AsString()) != 0.0;
        }
        default: return CDbl(value) != 0.0;
    }
}

Date CDate(const Variant& value) {
    switch (value.Type()) {
        case VarType::Null: throw InvalidUseOfNull();
        case VarType::Date: return value.AsDate();
        case VarType::String: {
            if (auto serial = ParseDateText(value.AsString())) return Date{*serial};
            throw TypeMismatch();
        }
        default: {
            const double serial = CDbl(value);
            CheckDateRange(serial);
            return Date{serial};
        }
    }
}

double Val(const std::string& text) {
    // Blanks, tabs and line feeds do not count anywhere in the text.
    std::string compact;
    compact.reserve(text.size());
    for (char c : text)
        if (c != ' ' && c != '\t' && c != '\n') compact += c;

    std::size_t pos = 0;
    if (auto radix = ReadRadix(compact, pos)) return *radix;
    bool negative = false;
    if (pos < compact.size() && (compact[pos] == '-' || compact[pos] == '+')) negative = compact[pos++] == '-';
    std::string integerDigits;
    std::string fractionDigits;
    while (pos < compact.size() && IsDigit(compact[pos])) integerDigits += compact[pos++];
    if (pos < compact.size() && compact[pos] == '.') {
        ++pos;
        while (pos < compact.size() && IsDigit(compact[pos])) fractionDigits += compact[pos++];
    }
    if (integerDigits.empty() && fractionDigits.empty()) return 0.0;
    long long exponent = 0;
    if (pos < compact.size() && (Lower(compact[pos]) == 'e' || Lower(compact[pos]) == 'd')) {
        std::size_t p = pos + 1;
        bool negativeExponent = false;
        if (p < compact.size() && (compact[p] == '-' || compact[p] == '+')) negativeExponent = compact[p++] == '-';
        long long digits = 0;
        bool any = false;
        while (p < compact.size() && IsDigit(compact[p])) {
            if (digits < 100000) digits = digits * 10 + (compact[p] - '0');
            any = true;
            ++p;
        }
        // An exponent mark without digits is where the number ends.
        if (any) exponent = negativeExponent ? -digits : digits;
    }
    return NumberFromParts(negative, integerDigits, fractionDigits, exponent);
}

bool IsNumericText(const std::string& text) {
    try {
        return ParseNumberText(text).has_value();
    } catch (const Fault&) {
        // Too large for a Double is still a number text.
        return true;
    }
}

}  // namespace celdora

namespace celdora {

namespace {
// Half to even on an already scaled value.
double HalfToEven(double scaled) {
    const double floor = std::floor(scaled);
    const double rest = scaled - floor;
    double whole = floor;
    if (rest > 0.5 || (rest == 0.5 && std::fmod(floor, 2.0) != 0.0)) whole = floor + 1.0;
    return whole;
}
}  // namespace

double Round(double value, int decimals) {
    const double factor = std::pow(10.0, decimals);
    return HalfToEven(value * factor) / factor;
}

Currency CCur(const Variant& value) {
    if (value.Type() == VarType::Currency) return value.AsCurrency();
    const double whole = HalfToEven(CDbl(value) * 10000.0);
    // 2^63 is exactly representable; anything from it on does not fit.
    constexpr double kLimite = 9223372036854775808.0;
    if (std::isnan(whole) || whole >= kLimite || whole < -kLimite) throw Overflow();
    return Currency{static_cast<std::int64_t>(whole)};
}

}  // namespace celdora

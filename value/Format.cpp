#include "value/Format.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "value/Convert.h"
#include "value/Fault.h"
#include "value/NumberText.h"
#include "value/Regional.h"
#include "value/Text.h"

namespace celdora {

namespace {

using detail::DecimalOf;
using detail::DecimalText;

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

bool EqualNoCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (Lower(a[i]) != Lower(b[i])) return false;
    return true;
}

// Length of the UTF-8 character whose first byte is lead, so that an escaped
// "\ñ" keeps both of its bytes.
std::size_t SequenceLength(unsigned char lead) {
    if (lead >= 0xF0) return 4;
    if (lead >= 0xE0) return 3;
    if (lead >= 0xC0) return 2;
    return 1;
}

// Reads a quoted text or an escaped character at i; on success appends the
// literal to out, moves i past it and returns true.
bool ReadLiteral(std::string_view format, std::size_t& i, std::string& out) {
    if (format[i] == '"') {
        const std::size_t close = format.find('"', i + 1);
        const std::size_t end = close == std::string_view::npos ? format.size() : close;
        out.append(format.substr(i + 1, end - i - 1));
        i = close == std::string_view::npos ? format.size() : close + 1;
        return true;
    }
    if (format[i] == '\\') {
        if (i + 1 >= format.size()) {
            ++i;
            return true;
        }
        const std::size_t length = SequenceLength(static_cast<unsigned char>(format[i + 1]));
        out.append(format.substr(i + 1, length));
        i += 1 + length;
        return true;
    }
    return false;
}

// Sections of a format, split at ";" outside quotes and escapes.
std::vector<std::string> Sections(std::string_view format) {
    std::vector<std::string> sections(1);
    for (std::size_t i = 0; i < format.size();) {
        const char c = format[i];
        if (c == '"' || c == '\\') {
            const std::size_t start = i;
            std::string ignored;
            ReadLiteral(format, i, ignored);
            sections.back().append(format.substr(start, i - start));
        } else if (c == ';') {
            sections.emplace_back();
            ++i;
        } else {
            sections.back() += c;
            ++i;
        }
    }
    return sections;
}

enum class FormatKind { Number, Date, Text };

// What a format formats, by the placeholders it holds: digit placeholders
// make a number format, date letters a date format, "@&<>!" a text format;
// a format of literals alone is a number format that shows them.
FormatKind Classify(std::string_view format) {
    bool date = false;
    bool text = false;
    for (std::size_t i = 0; i < format.size();) {
        std::string ignored;
        if (ReadLiteral(format, i, ignored)) continue;
        const char c = Lower(format[i]);
        if (c == '0' || c == '#' || c == '%') return FormatKind::Number;
        if (std::string_view("dmyhnswqc").find(c) != std::string_view::npos) date = true;
        if (c == 't' && EqualNoCase(format.substr(i, 5), "ttttt")) date = true;
        if (std::string_view("@&<>!").find(c) != std::string_view::npos) text = true;
        ++i;
    }
    if (date) return FormatKind::Date;
    if (text) return FormatKind::Text;
    return FormatKind::Number;
}

// ---------------------------------------------------------------- numbers

enum class Piece { Zero, Digit, Point, Comma, Percent, Exponent, Literal };

struct Token {
    Piece piece = Piece::Literal;
    std::string text;  // the literal; for Exponent the letter and its sign
};

std::vector<Token> NumberTokens(std::string_view section) {
    std::vector<Token> tokens;
    bool pointSeen = false;
    auto literal = [&](std::string text) { tokens.push_back({Piece::Literal, std::move(text)}); };
    for (std::size_t i = 0; i < section.size();) {
        std::string text;
        if (ReadLiteral(section, i, text)) {
            literal(text);
            continue;
        }
        const char c = section[i];
        if (c == '0') tokens.push_back({Piece::Zero, ""});
        else if (c == '#') tokens.push_back({Piece::Digit, ""});
        else if (c == '.' && !pointSeen) {
            pointSeen = true;
            tokens.push_back({Piece::Point, ""});
        } else if (c == ',') tokens.push_back({Piece::Comma, ","});
        else if (c == '%') tokens.push_back({Piece::Percent, "%"});
        else if ((c == 'E' || c == 'e') && i + 1 < section.size() && (section[i + 1] == '+' || section[i + 1] == '-')) {
            tokens.push_back({Piece::Exponent, std::string(section.substr(i, 2))});
            i += 2;
            continue;
        } else literal(std::string(1, c));
        ++i;
    }
    return tokens;
}

bool IsPlaceholder(const Token& token) { return token.piece == Piece::Zero || token.piece == Piece::Digit; }

// Rounds half away from zero to the given number of decimals.
void RoundTo(DecimalText& number, int decimals) {
    const long keep = static_cast<long>(number.point) + decimals;
    if (keep >= static_cast<long>(number.digits.size())) return;
    if (keep < 0) {
        number.digits.clear();
    } else {
        const bool up = number.digits[static_cast<std::size_t>(keep)] >= '5';
        number.digits.resize(static_cast<std::size_t>(keep));
        if (up) {
            std::size_t i = number.digits.size();
            while (i > 0 && number.digits[i - 1] == '9') number.digits[--i] = '0';
            if (i == 0) {
                number.digits.insert(number.digits.begin(), '1');
                ++number.point;
            } else {
                ++number.digits[i - 1];
            }
        }
    }
    while (!number.digits.empty() && number.digits.back() == '0') number.digits.pop_back();
    if (number.digits.empty()) number.point = 0;
}

// Digits before the decimal point, without leading zeros ("" for a value
// below one, which "#" shows as nothing and "0" as 0).
std::string IntegerDigits(const DecimalText& number) {
    if (number.point <= 0) return "";
    std::string out = number.digits.substr(0, static_cast<std::size_t>(number.point));
    out.append(static_cast<std::size_t>(number.point) - out.size(), '0');
    return out;
}

// Digits after the decimal point, with the zeros that lead them.
std::string FractionDigits(const DecimalText& number) {
    if (number.digits.empty()) return "";
    if (number.point >= static_cast<int>(number.digits.size())) return "";
    if (number.point >= 0) return number.digits.substr(static_cast<std::size_t>(number.point));
    return std::string(static_cast<std::size_t>(-number.point), '0') + number.digits;
}

// Lays digits out over the placeholders of [begin, end) from the right: each
// placeholder takes one digit and the leftmost takes whatever is left. Once
// the digits run out, a placeholder shows 0 when a "0" stands at or left of
// it ("0#" pads, "#0" does not) and nothing otherwise. Literals stay where
// they stand; grouping puts the group separator between every three digits.
std::string LayOutWhole(const std::vector<Token>& tokens, std::size_t begin, std::size_t end, std::string digits,
                        bool grouping, const std::vector<bool>& groupComma, bool wholeDigitsAtEnd) {
    std::size_t firstPlaceholder = end;
    for (std::size_t i = begin; i < end; ++i)
        if (IsPlaceholder(tokens[i])) {
            firstPlaceholder = i;
            break;
        }
    const char groupSeparator = CurrentRegional().groupSeparator;
    std::vector<std::string> reversed;
    std::size_t shown = 0;
    auto show = [&](char digit) {
        if (grouping && shown > 0 && shown % 3 == 0) reversed.emplace_back(1, groupSeparator);
        reversed.emplace_back(1, digit);
        ++shown;
    };
    // With no placeholder before the point ("  .00"), the whole digits still
    // show, right before it.
    if (firstPlaceholder == end && wholeDigitsAtEnd)
        while (!digits.empty()) {
            show(digits.back());
            digits.pop_back();
        }
    for (std::size_t i = end; i-- > begin;) {
        const Token& token = tokens[i];
        if (IsPlaceholder(token)) {
            bool zeroAtOrLeft = false;
            for (std::size_t j = firstPlaceholder; j <= i; ++j) zeroAtOrLeft = zeroAtOrLeft || tokens[j].piece == Piece::Zero;
            if (!digits.empty()) {
                show(digits.back());
                digits.pop_back();
            } else if (zeroAtOrLeft) {
                show('0');
            }
            if (i == firstPlaceholder)
                while (!digits.empty()) {
                    show(digits.back());
                    digits.pop_back();
                }
        } else if (token.piece != Piece::Comma || !groupComma[i]) {
            // Literals, "%", and a comma that neither groups nor scales.
            reversed.push_back(token.text);
        }
    }
    std::string out;
    for (std::size_t i = reversed.size(); i-- > 0;) out += reversed[i];
    return out;
}

// The system formats the same few patterns over and over (the amounts of a
// report of many thousand lines): the sections of a format and the tokens of
// a number section are read once and kept, per thread, and the keeping is
// started over when it grows past a few dozen patterns.
struct HashDeTexto {
    using is_transparent = void;
    std::size_t operator()(std::string_view texto) const { return std::hash<std::string_view>{}(texto); }
};

template <class T>
using Recuerdo = std::unordered_map<std::string, T, HashDeTexto, std::equal_to<>>;

template <class T>
const T& Recordado(Recuerdo<T>& recuerdo, std::string_view clave, T (*leer)(std::string_view)) {
    constexpr std::size_t kMaximo = 64;
    if (auto visto = recuerdo.find(clave); visto != recuerdo.end()) return visto->second;
    if (recuerdo.size() >= kMaximo) recuerdo.clear();
    return recuerdo.emplace(std::string(clave), leer(clave)).first->second;
}

const std::vector<std::string>& SectionsOf(std::string_view format) {
    thread_local Recuerdo<std::vector<std::string>> recuerdo;
    return Recordado(recuerdo, format, Sections);
}

const std::vector<Token>& NumberTokensOf(std::string_view section) {
    thread_local Recuerdo<std::vector<Token>> recuerdo;
    return Recordado(recuerdo, section, NumberTokens);
}

std::string FormatNumberSection(DecimalText number, std::string_view section, bool showSign) {
    const std::vector<Token>& tokens = NumberTokensOf(section);
    const std::size_t size = tokens.size();
    std::size_t point = size;
    std::size_t exponent = size;
    for (std::size_t i = 0; i < size; ++i) {
        if (tokens[i].piece == Piece::Point && point == size && exponent == size) point = i;
        if (tokens[i].piece == Piece::Exponent && exponent == size) exponent = i;
    }
    const std::size_t wholeEnd = std::min(point, exponent);
    const std::size_t fractionEnd = exponent;

    // Commas among the whole-number placeholders: one between placeholders
    // asks for grouping; those right after the last placeholder (before the
    // point or the end) divide by a thousand each. A comma before any
    // placeholder is shown as it stands.
    std::vector<bool> groupComma(size, false);
    bool grouping = false;
    int scale = 0;
    bool placeholderSeen = false;
    for (std::size_t i = 0; i < wholeEnd; ++i) {
        if (IsPlaceholder(tokens[i])) placeholderSeen = true;
        if (tokens[i].piece != Piece::Comma || !placeholderSeen) continue;
        std::size_t next = i;
        while (next < wholeEnd && tokens[next].piece == Piece::Comma) ++next;
        const bool beforePlaceholder = next < wholeEnd && IsPlaceholder(tokens[next]);
        for (std::size_t j = i; j < next; ++j) groupComma[j] = true;
        if (beforePlaceholder) grouping = true;
        else scale -= 3 * static_cast<int>(next - i);
        i = next - 1;
    }
    for (const Token& token : tokens)
        if (token.piece == Piece::Percent) scale += 2;
    if (!number.digits.empty()) number.point += scale;

    int decimals = 0;
    for (std::size_t i = point; i < fractionEnd; ++i) decimals += IsPlaceholder(tokens[i]) ? 1 : 0;

    long exponentValue = 0;
    if (exponent < size) {
        int wholePlaceholders = 0;
        for (std::size_t i = 0; i < wholeEnd; ++i) wholePlaceholders += IsPlaceholder(tokens[i]) ? 1 : 0;
        if (!number.digits.empty()) {
            exponentValue = number.point - wholePlaceholders;
            number.point = wholePlaceholders;
            RoundTo(number, decimals);
            if (!number.digits.empty() && number.point > wholePlaceholders) {
                exponentValue += number.point - wholePlaceholders;
                number.point = wholePlaceholders;
            }
        }
    } else {
        RoundTo(number, decimals);
    }

    std::string out = showSign && number.negative ? "-" : "";
    const bool anyPlaceholder = std::any_of(tokens.begin(), tokens.end(), IsPlaceholder);
    out += LayOutWhole(tokens, 0, wholeEnd, IntegerDigits(number), grouping, groupComma, anyPlaceholder);

    if (point < size && point < exponent) {
        const std::string fraction = FractionDigits(number);
        out += CurrentRegional().decimalSeparator;
        std::size_t k = 0;
        for (std::size_t i = point + 1; i < fractionEnd; ++i) {
            const Token& token = tokens[i];
            if (IsPlaceholder(token)) {
                if (k < fraction.size()) out += fraction[k];
                else if (token.piece == Piece::Zero) out += '0';
                ++k;
            } else if (token.piece != Piece::Point) {
                out += token.text;
            }
        }
    }

    if (exponent < size) {
        const Token& mark = tokens[exponent];
        out += mark.text[0];
        if (exponentValue < 0) out += '-';
        else if (mark.text[1] == '+') out += '+';
        const std::string digits = exponentValue == 0 ? "" : std::to_string(std::labs(exponentValue));
        out += LayOutWhole(tokens, exponent + 1, size, digits, false, groupComma, true);
    }
    return out;
}

std::string FormatNumber(const DecimalText& number, std::string_view format) {
    const std::vector<std::string>& sections = SectionsOf(format);
    const bool zero = number.digits.empty();
    if (zero && sections.size() >= 3 && !sections[2].empty()) return FormatNumberSection(number, sections[2], false);
    if (number.negative && sections.size() >= 2 && !sections[1].empty()) {
        DecimalText magnitude = number;
        magnitude.negative = false;
        return FormatNumberSection(magnitude, sections[1], false);
    }
    return FormatNumberSection(number, sections[0], true);
}

// ------------------------------------------------------------------ dates

constexpr std::array<const char*, 12> kMonthNames = {"enero", "febrero", "marzo",     "abril",   "mayo",      "junio",
                                                     "julio", "agosto",  "septiembre", "octubre", "noviembre", "diciembre"};
constexpr std::array<const char*, 12> kMonthShort = {"ene", "feb", "mar", "abr", "may", "jun",
                                                     "jul", "ago", "sep", "oct", "nov", "dic"};
constexpr std::array<const char*, 7> kDayNames = {"domingo", "lunes", "martes", "miércoles", "jueves", "viernes", "sábado"};
constexpr std::array<const char*, 7> kDayShort = {"dom", "lun", "mar", "mié", "jue", "vie", "sáb"};

enum class DatePiece {
    Literal, Day, Day2, DayShort, DayName, ShortDate, LongDate, Month, Month2, MonthShort, MonthName,
    Minute, Minute2, DayOfYear, Year2, Year4, Hour, Hour2, Second, Second2, Weekday, Week, Quarter,
    Meridiem, GeneralDate, LongTime
};

struct DateToken {
    DatePiece piece = DatePiece::Literal;
    std::string text;  // the literal, or the two designators of Meridiem
};

std::size_t RunLength(std::string_view format, std::size_t i) {
    const char c = Lower(format[i]);
    std::size_t n = 0;
    while (i + n < format.size() && Lower(format[i + n]) == c) ++n;
    return n;
}

std::vector<DateToken> DateTokens(std::string_view section) {
    std::vector<DateToken> tokens;
    auto add = [&](DatePiece piece) { tokens.push_back({piece, ""}); };
    bool afterHour = false;
    for (std::size_t i = 0; i < section.size();) {
        std::string text;
        if (ReadLiteral(section, i, text)) {
            tokens.push_back({DatePiece::Literal, text});
            continue;
        }
        const std::string_view rest = section.substr(i);
        if (EqualNoCase(rest.substr(0, 5), "AM/PM")) {
            const bool upper = rest[0] == 'A';
            tokens.push_back({DatePiece::Meridiem, upper ? "AMPM" : "ampm"});
            i += 5;
            continue;
        }
        if (EqualNoCase(rest.substr(0, 3), "A/P")) {
            const bool upper = rest[0] == 'A';
            tokens.push_back({DatePiece::Meridiem, upper ? "AP" : "ap"});
            i += 3;
            continue;
        }
        if (EqualNoCase(rest.substr(0, 4), "AMPM")) {
            tokens.push_back({DatePiece::Meridiem, "AMPM"});
            i += 4;
            continue;
        }
        const char c = Lower(section[i]);
        const std::size_t run = RunLength(section, i);
        std::size_t used = run;
        bool hour = false;
        switch (c) {
            case 'd': {
                static constexpr std::array<DatePiece, 6> pieces = {DatePiece::Day,     DatePiece::Day2,
                                                                    DatePiece::DayShort, DatePiece::DayName,
                                                                    DatePiece::ShortDate, DatePiece::LongDate};
                used = std::min<std::size_t>(run, 6);
                add(pieces[used - 1]);
                break;
            }
            case 'm':
                if (afterHour && run <= 2) {
                    add(run == 1 ? DatePiece::Minute : DatePiece::Minute2);
                } else {
                    static constexpr std::array<DatePiece, 4> pieces = {DatePiece::Month, DatePiece::Month2,
                                                                        DatePiece::MonthShort, DatePiece::MonthName};
                    used = std::min<std::size_t>(run, 4);
                    add(pieces[used - 1]);
                }
                break;
            case 'y':
                used = run >= 4 ? 4 : run >= 2 ? 2 : 1;
                add(used == 4 ? DatePiece::Year4 : used == 2 ? DatePiece::Year2 : DatePiece::DayOfYear);
                break;
            case 'h':
                used = std::min<std::size_t>(run, 2);
                add(used == 1 ? DatePiece::Hour : DatePiece::Hour2);
                hour = true;
                break;
            case 'n':
                used = std::min<std::size_t>(run, 2);
                add(used == 1 ? DatePiece::Minute : DatePiece::Minute2);
                break;
            case 's':
                used = std::min<std::size_t>(run, 2);
                add(used == 1 ? DatePiece::Second : DatePiece::Second2);
                break;
            case 'w':
                used = std::min<std::size_t>(run, 2);
                add(used == 1 ? DatePiece::Weekday : DatePiece::Week);
                break;
            case 'q':
                used = 1;
                add(DatePiece::Quarter);
                break;
            case 'c':
                used = 1;
                add(DatePiece::GeneralDate);
                break;
            case 't':
                if (run >= 5) {
                    used = 5;
                    add(DatePiece::LongTime);
                } else {
                    used = 1;
                    tokens.push_back({DatePiece::Literal, std::string(1, section[i])});
                }
                break;
            default: {
                // Anything else shows as it stands, a whole UTF-8 character
                // at a time.
                used = SequenceLength(static_cast<unsigned char>(section[i]));
                tokens.push_back({DatePiece::Literal, std::string(section.substr(i, used))});
                i += used;
                continue;
            }
        }
        // "m" right after an hour (literals between them aside) is minutes.
        afterHour = hour;
        i += used;
    }
    return tokens;
}

std::string Padded(int value, std::size_t width) {
    std::string out = std::to_string(value);
    if (out.size() < width) out.insert(0, width - out.size(), '0');
    return out;
}

std::string FormatDateSection(double serial, std::string_view section) {
    const DateParts parts = SplitDate(Date{serial});
    const std::vector<DateToken> tokens = DateTokens(section);
    bool twelveHour = false;
    for (const DateToken& token : tokens) twelveHour = twelveHour || token.piece == DatePiece::Meridiem;

    const long dayNumber = static_cast<long>(DateSerial(parts.year, parts.month, parts.day).serial);
    const long firstOfYear = static_cast<long>(DateSerial(parts.year, 1, 1).serial);
    auto weekdayOf = [](long day) { return static_cast<int>(((day + 6) % 7 + 7) % 7) + 1; };  // Sunday is 1
    const int weekday = weekdayOf(dayNumber);
    const int dayOfYear = static_cast<int>(dayNumber - firstOfYear) + 1;
    const bool dayFirst = CurrentRegional().dateOrder == DateOrder::DayFirst;
    const int hour12 = parts.hour % 12 == 0 ? 12 : parts.hour % 12;
    const int hour = twelveHour ? hour12 : parts.hour;

    std::string out;
    for (const DateToken& token : tokens) {
        switch (token.piece) {
            case DatePiece::Literal: out += token.text; break;
            case DatePiece::Day: out += std::to_string(parts.day); break;
            case DatePiece::Day2: out += Padded(parts.day, 2); break;
            case DatePiece::DayShort: out += kDayShort[static_cast<std::size_t>(weekday - 1)]; break;
            case DatePiece::DayName: out += kDayNames[static_cast<std::size_t>(weekday - 1)]; break;
            case DatePiece::ShortDate:
                out += dayFirst ? Padded(parts.day, 2) + "/" + Padded(parts.month, 2)
                                : Padded(parts.month, 2) + "/" + Padded(parts.day, 2);
                out += '/';
                out += Padded(parts.year, 4);
                break;
            case DatePiece::LongDate:
                out += std::string(kDayNames[static_cast<std::size_t>(weekday - 1)]) + ", " + std::to_string(parts.day) +
                       " de " + kMonthNames[static_cast<std::size_t>(parts.month - 1)] + " de " +
                       Padded(parts.year, 4);
                break;
            case DatePiece::Month: out += std::to_string(parts.month); break;
            case DatePiece::Month2: out += Padded(parts.month, 2); break;
            case DatePiece::MonthShort: out += kMonthShort[static_cast<std::size_t>(parts.month - 1)]; break;
            case DatePiece::MonthName: out += kMonthNames[static_cast<std::size_t>(parts.month - 1)]; break;
            case DatePiece::Minute: out += std::to_string(parts.minute); break;
            case DatePiece::Minute2: out += Padded(parts.minute, 2); break;
            case DatePiece::DayOfYear: out += std::to_string(dayOfYear); break;
            case DatePiece::Year2: out += Padded(parts.year % 100, 2); break;
            case DatePiece::Year4: out += Padded(parts.year, 4); break;
            case DatePiece::Hour: out += std::to_string(hour); break;
            case DatePiece::Hour2: out += Padded(hour, 2); break;
            case DatePiece::Second: out += std::to_string(parts.second); break;
            case DatePiece::Second2: out += Padded(parts.second, 2); break;
            case DatePiece::Weekday: out += std::to_string(weekday); break;
            case DatePiece::Week: {
                // Weeks start on Sunday; the first week holds January 1.
                const int firstWeekday = weekdayOf(firstOfYear);
                out += std::to_string((dayOfYear - 1 + firstWeekday - 1) / 7 + 1);
                break;
            }
            case DatePiece::Quarter: out += std::to_string((parts.month - 1) / 3 + 1); break;
            case DatePiece::Meridiem: {
                const bool morning = parts.hour < 12;
                if (token.text.size() == 2) out += token.text[morning ? 0 : 1];
                else out += token.text.substr(morning ? 0 : 2, 2);
                break;
            }
            case DatePiece::GeneralDate: out += detail::DateText(serial); break;
            case DatePiece::LongTime:
                out += Padded(parts.hour, 2) + ":" + Padded(parts.minute, 2) + ":" + Padded(parts.second, 2);
                break;
        }
    }
    return out;
}

// ------------------------------------------------------------------ texts

// "@" shows a character or a blank, "&" a character or nothing; they fill
// from the right unless "!" asks for the left. "<" and ">" set the case.
std::string FormatText(const std::string& text, std::string_view section) {
    bool lower = false;
    bool upper = false;
    bool leftToRight = false;
    struct Slot {
        bool placeholder = false;
        bool blank = false;
        std::string literal;
    };
    std::vector<Slot> slots;
    std::size_t placeholders = 0;
    for (std::size_t i = 0; i < section.size();) {
        std::string literal;
        if (ReadLiteral(section, i, literal)) {
            slots.push_back({false, false, literal});
            continue;
        }
        const char c = section[i];
        const std::size_t length = SequenceLength(static_cast<unsigned char>(c));
        if (c == '@' || c == '&') {
            slots.push_back({true, c == '@', ""});
            ++placeholders;
        } else if (c == '<') lower = true;
        else if (c == '>') upper = true;
        else if (c == '!') leftToRight = true;
        else slots.push_back({false, false, std::string(section.substr(i, length))});
        i += length;
    }
    const std::string value = upper ? UCase(text) : lower ? LCase(text) : text;
    if (placeholders == 0) {
        std::string out;
        for (const Slot& slot : slots) out += slot.literal;
        return out + value;
    }
    // Characters of the value, one per placeholder; what is left over goes
    // with the first placeholder filled (the leftmost, or the rightmost when
    // filling from the left).
    const std::size_t length = Len(value);
    std::vector<std::string> fill(placeholders);
    if (leftToRight) {
        for (std::size_t k = 0; k < placeholders && k < length; ++k) fill[k] = Mid(value, k + 1, 1);
        if (length > placeholders) fill.back() += Mid(value, placeholders + 1);
    } else {
        const std::size_t offset = length > placeholders ? length - placeholders : 0;
        for (std::size_t k = 0; k < placeholders; ++k) {
            const std::size_t fromRight = placeholders - k;  // 1 for the last placeholder
            if (fromRight <= length) fill[k] = Mid(value, length - fromRight + 1, 1);
        }
        if (offset > 0) fill.front() = Left(value, offset) + fill.front();
    }
    std::string out;
    std::size_t k = 0;
    for (const Slot& slot : slots) {
        if (!slot.placeholder) {
            out += slot.literal;
            continue;
        }
        out += fill[k].empty() && slot.blank ? " " : fill[k];
        ++k;
    }
    return out;
}

// ---------------------------------------------------------------- values

std::optional<DecimalText> NumberOf(const Variant& value) {
    switch (value.Type()) {
        case VarType::Boolean: return DecimalOf(value.AsBoolean() ? -1 : 0, 0);
        case VarType::Integer: return DecimalOf(value.AsInteger(), 0);
        case VarType::Long: return DecimalOf(value.AsLong(), 0);
        case VarType::Currency: return DecimalOf(value.AsCurrency().scaled, 4);
        case VarType::Double: return DecimalOf(value.AsDouble());
        case VarType::Date: return DecimalOf(value.AsDate().serial);
        case VarType::String:
            if (!IsNumericText(value.AsString())) return std::nullopt;
            return DecimalOf(CDbl(value));
        default: throw TypeMismatch();
    }
}

std::optional<double> SerialOf(const Variant& value) {
    if (value.Type() == VarType::String) {
        try {
            return CDate(value).serial;
        } catch (const Fault&) {
        }
        if (!IsNumericText(value.AsString())) return std::nullopt;
    }
    return CDate(Variant(CDbl(value))).serial;
}

// The platform's named formats, as the formats they stand for. The dates
// and times follow the Mexican settings that the regional object mirrors.
std::optional<std::string> NamedFormat(std::string_view format) {
    static constexpr std::array<std::pair<const char*, const char*>, 10> named = {{
        {"General Date", "c"},
        {"Long Date", "dddddd"},
        {"Medium Date", "dd-mmm-yy"},
        {"Short Date", "ddddd"},
        {"Long Time", "ttttt"},
        {"Medium Time", "hh:nn AM/PM"},
        {"Short Time", "hh:nn"},
        {"Fixed", "0.00"},
        {"Standard", "#,##0.00"},
        {"Percent", "0.00%"},
    }};
    for (const auto& [name, pattern] : named)
        if (EqualNoCase(format, name)) return std::string(pattern);
    if (EqualNoCase(format, "Scientific")) return std::string("0.00E+00");
    if (EqualNoCase(format, "Currency")) return std::string("$#,##0.00");
    return std::nullopt;
}

std::optional<std::string> WordFormat(const Variant& value, std::string_view format) {
    static constexpr std::array<std::pair<const char*, std::pair<const char*, const char*>>, 3> words = {{
        {"Yes/No", {"Yes", "No"}},
        {"True/False", {"True", "False"}},
        {"On/Off", {"On", "Off"}},
    }};
    for (const auto& [name, texts] : words) {
        if (!EqualNoCase(format, name)) continue;
        const std::optional<DecimalText> number = NumberOf(value);
        if (!number) return value.AsString();
        return std::string(number->digits.empty() ? texts.second : texts.first);
    }
    return std::nullopt;
}

}  // namespace

std::string Format(const Variant& value, const std::string& format) {
    if (value.IsNull() || value.IsEmpty()) return "";
    if (value.IsObject() || value.Type() == VarType::Bytes) throw TypeMismatch();
    if (format.empty()) return CStr(value);
    if (value.Type() == VarType::String && EqualNoCase(format, "General Number"))
        return IsNumericText(value.AsString()) ? CStr(CDbl(value)) : value.AsString();
    if (EqualNoCase(format, "General Number")) return CStr(CDbl(value));
    if (auto words = WordFormat(value, format)) return *words;

    const std::string pattern = NamedFormat(format).value_or(format);
    switch (Classify(pattern)) {
        case FormatKind::Date: {
            const std::optional<double> serial = SerialOf(value);
            if (!serial) return value.AsString();
            return FormatDateSection(*serial, Sections(pattern).front());
        }
        case FormatKind::Text: return FormatText(CStr(value), Sections(pattern).front());
        case FormatKind::Number: {
            const std::optional<DecimalText> number = NumberOf(value);
            if (!number) return value.AsString();
            return FormatNumber(*number, pattern);
        }
    }
    return CStr(value);
}

}  // namespace celdora

#include "value/Text.h"

#include <array>

#include "value/Fault.h"

namespace celdora {

namespace {

constexpr char32_t kInvalid = 0xFFFFFFFF;

bool IsContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

// Length in bytes of the character that starts at pos: 1 for ASCII and for
// any byte that does not start a well-formed sequence, so that stray bytes
// count as one character each and pass through untouched.
std::size_t CharLength(std::string_view text, std::size_t pos) {
    const auto lead = static_cast<unsigned char>(text[pos]);
    std::size_t length = 1;
    if (lead >= 0xC2 && lead <= 0xDF) length = 2;
    else if (lead >= 0xE0 && lead <= 0xEF) length = 3;
    else if (lead >= 0xF0 && lead <= 0xF4) length = 4;
    if (pos + length > text.size()) return 1;
    for (std::size_t i = 1; i < length; ++i)
        if (!IsContinuation(static_cast<unsigned char>(text[pos + i]))) return 1;
    return length;
}

// The code point of the character at pos (kInvalid for a stray byte) and its
// length in bytes.
char32_t Decode(std::string_view text, std::size_t pos, std::size_t& length) {
    length = CharLength(text, pos);
    const auto lead = static_cast<unsigned char>(text[pos]);
    if (length == 1) return lead < 0x80 ? char32_t{lead} : kInvalid;
    char32_t code = lead & (0xFF >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) code = (code << 6) | (static_cast<unsigned char>(text[pos + i]) & 0x3F);
    return code;
}

void Encode(char32_t code, std::string& out) {
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (code >> 18));
        out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

// Case of the letters of the Windows-1252 code page, the platform's own:
// ASCII, the Latin-1 letters (Ñ, accented vowels, Ü...) and Š, Œ, Ž, Ÿ.
char32_t UpperOf(char32_t c) {
    if (c >= U'a' && c <= U'z') return c - 0x20;
    if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return c - 0x20;
    switch (c) {
        case 0xFF: return 0x178;
        case 0x161: return 0x160;
        case 0x153: return 0x152;
        case 0x17E: return 0x17D;
        default: return c;
    }
}

char32_t LowerOf(char32_t c) {
    if (c >= U'A' && c <= U'Z') return c + 0x20;
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return c + 0x20;
    switch (c) {
        case 0x178: return 0xFF;
        case 0x160: return 0x161;
        case 0x152: return 0x153;
        case 0x17D: return 0x17E;
        default: return c;
    }
}

template <class Map>
std::string MapCase(std::string_view text, Map map) {
    std::string out;
    out.reserve(text.size());
    std::size_t pos = 0;
    while (pos < text.size()) {
        std::size_t length = 0;
        const char32_t code = Decode(text, pos, length);
        if (code == kInvalid) out += text[pos];
        else Encode(map(code), out);
        pos += length;
    }
    return out;
}

// Bytes of text matched by what at pos, comparing character by character
// (folding case when asked); npos when what does not match there.
std::size_t MatchAt(std::string_view text, std::size_t pos, std::string_view what, bool ignoreCase) {
    std::size_t t = pos;
    std::size_t w = 0;
    while (w < what.size()) {
        if (t >= text.size()) return std::string_view::npos;
        std::size_t tl = 0;
        std::size_t wl = 0;
        const char32_t tc = Decode(text, t, tl);
        const char32_t wc = Decode(what, w, wl);
        if (tc == kInvalid || wc == kInvalid) {
            if (tl != wl || text.substr(t, tl) != what.substr(w, wl)) return std::string_view::npos;
        } else if (ignoreCase ? LowerOf(tc) != LowerOf(wc) : tc != wc) {
            return std::string_view::npos;
        }
        t += tl;
        w += wl;
    }
    return t - pos;
}

// Byte position of the first match of what at or after from, stepping by
// characters; length receives the bytes matched.
std::size_t Find(std::string_view text, std::string_view what, std::size_t from, bool ignoreCase, std::size_t& length) {
    for (std::size_t pos = from; pos < text.size(); pos += CharLength(text, pos)) {
        length = MatchAt(text, pos, what, ignoreCase);
        if (length != std::string_view::npos) return pos;
    }
    return std::string_view::npos;
}

// Whether a byte search finds exactly what the character walk finds: for a
// delimiter of ASCII characters that have no case (or compared exactly).
// An ASCII byte is never part of a multi-byte character, so every place it
// stands is a character boundary of the walk, and no other character (nor a
// stray byte) compares equal to an ASCII character that has no case.
bool BytesSuffice(std::string_view delimiter, bool ignoreCase) {
    for (const char c : delimiter) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x80) return false;
        if (ignoreCase && ((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'))) return false;
    }
    return true;
}

std::vector<std::string> SplitWith(std::string_view text, std::string_view delimiter, bool ignoreCase) {
    std::vector<std::string> pieces;
    if (text.empty()) return pieces;
    if (delimiter.empty()) {
        pieces.emplace_back(text);
        return pieces;
    }
    const bool porBytes = BytesSuffice(delimiter, ignoreCase);
    std::size_t start = 0;
    for (;;) {
        std::size_t length = delimiter.size();
        const std::size_t found =
            porBytes ? text.find(delimiter, start) : Find(text, delimiter, start, ignoreCase, length);
        if (found == std::string_view::npos) break;
        pieces.emplace_back(text.substr(start, found - start));
        start = found + length;
    }
    pieces.emplace_back(text.substr(start));
    return pieces;
}

// Byte offset of the character with the 0-based index, or the text's size
// when the text is shorter.
std::size_t ByteOffset(std::string_view text, std::size_t index) {
    std::size_t pos = 0;
    while (index > 0 && pos < text.size()) {
        pos += CharLength(text, pos);
        --index;
    }
    return pos;
}

std::size_t InStrWith(std::size_t start, std::string_view text, std::string_view what, bool ignoreCase) {
    if (start == 0) throw InvalidProcedureCall();
    if (text.empty()) return 0;
    const std::size_t length = Len(text);
    if (start > length) return 0;
    if (what.empty()) return start;
    std::size_t matched = 0;
    const std::size_t found = Find(text, what, ByteOffset(text, start - 1), ignoreCase, matched);
    if (found == std::string_view::npos) return 0;
    return Len(text.substr(0, found)) + 1;
}

// Windows-1252 codes 128 to 159; the five unassigned codes keep the control
// character of the same number, as the system's code page conversion does.
constexpr std::array<char32_t, 32> kHighCodes = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

std::string LTrim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string() : std::string(text.substr(first));
}

std::string RTrim(std::string_view text) {
    const std::size_t last = text.find_last_not_of(' ');
    return last == std::string_view::npos ? std::string() : std::string(text.substr(0, last + 1));
}

std::string Trim(std::string_view text) { return LTrim(RTrim(text)); }

std::string UCase(std::string_view text) { return MapCase(text, UpperOf); }
std::string LCase(std::string_view text) { return MapCase(text, LowerOf); }

std::vector<std::string> Split(std::string_view text, std::string_view delimiter) {
    return SplitWith(text, delimiter, false);
}

std::vector<std::string> SplitText(std::string_view text, std::string_view delimiter) {
    return SplitWith(text, delimiter, true);
}

std::size_t InStr(std::size_t start, std::string_view text, std::string_view what) {
    return InStrWith(start, text, what, false);
}

std::size_t InStrText(std::size_t start, std::string_view text, std::string_view what) {
    return InStrWith(start, text, what, true);
}

std::string Replace(std::string_view text, std::string_view what, std::string_view with) {
    if (what.empty()) return std::string(text);
    std::string out;
    std::size_t start = 0;
    for (std::size_t found = text.find(what); found != std::string_view::npos; found = text.find(what, start)) {
        out.append(text.substr(start, found - start));
        out.append(with);
        start = found + what.size();
    }
    out.append(text.substr(start));
    return out;
}

bool EqualText(std::string_view a, std::string_view b) {
    // The ASCII run both begin with is compared byte by byte, folding A-Z
    // alone as the full comparison does; an ASCII byte always ends a
    // character, so the rest compares the same on its own.
    std::size_t i = 0;
    for (; i < a.size() && i < b.size(); ++i) {
        const auto x = static_cast<unsigned char>(a[i]);
        const auto y = static_cast<unsigned char>(b[i]);
        if (x >= 0x80 || y >= 0x80) break;
        if (x != y && LowerOf(x) != LowerOf(y)) return false;
    }
    if (i == a.size() || i == b.size()) return a.size() == b.size();
    const std::string_view restoA = a.substr(i);
    return MatchAt(restoA, 0, b.substr(i), true) == restoA.size();
}

std::size_t Len(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t pos = 0; pos < text.size(); pos += CharLength(text, pos)) ++count;
    return count;
}

std::string Left(std::string_view text, std::size_t count) {
    return std::string(text.substr(0, ByteOffset(text, count)));
}

std::string Right(std::string_view text, std::size_t count) {
    const std::size_t length = Len(text);
    if (count >= length) return std::string(text);
    return std::string(text.substr(ByteOffset(text, length - count)));
}

std::string Mid(std::string_view text, std::size_t start, std::size_t count) {
    if (start == 0) throw InvalidProcedureCall();
    const std::size_t from = ByteOffset(text, start - 1);
    const std::string_view rest = text.substr(from);
    return std::string(rest.substr(0, ByteOffset(rest, count)));
}

std::string CharFromKeyCode(int keyCode) {
    if (keyCode < 0 || keyCode > 255) throw InvalidProcedureCall();
    std::string out;
    const auto code = static_cast<char32_t>(keyCode);
    Encode(code >= 0x80 && code < 0xA0 ? kHighCodes[code - 0x80] : code, out);
    return out;
}

int KeyCodeFromChar(std::string_view character) {
    if (character.empty()) return 0;
    std::size_t length = 0;
    const char32_t code = Decode(character, 0, length);
    if (code == kInvalid) return 0;
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) return static_cast<int>(code);
    for (std::size_t i = 0; i < kHighCodes.size(); ++i)
        if (kHighCodes[i] == code) return static_cast<int>(0x80 + i);
    return 0;
}

}  // namespace celdora

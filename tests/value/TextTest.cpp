#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "Casos.h"
#include "value/Text.h"

namespace celdora {
namespace {

using namespace test;
using Pieces = std::vector<std::string>;
using Par = std::pair<std::string, std::string>;

TEST(TextTest, TrimAndCase) {
    // Trim takes spaces only; characters without case, and stray bytes, pass unchanged.
    Casos<std::string, std::string>(Trim, {{"  a b  ", "a b"}, {"\ta\t", "\ta\t"}, {"    ", ""}});
    Casos<std::string, std::string>(LTrim, {{"  a ", "a "}});
    Casos<std::string, std::string>(RTrim, {{"  a ", "  a"}});
    Casos<std::string, std::string>(UCase, {{"año ñandú", "AÑO ÑANDÚ"}, {"áéíóúü", "ÁÉÍÓÚÜ"}, {"abc-12", "ABC-12"},
                                            {"€ ß \xFF x", "€ ß \xFF X"}, {"\xC3", "\xC3"}});
    Casos<std::string, std::string>(LCase, {{"ÁÉÍÓÚÜ Ñ", "áéíóúü ñ"}, {"PEÑA", "peña"}});
}

TEST(TextTest, EqualTextFoldsSpanishLettersToo) {
    // The ASCII run is compared apart from the rest, which still folds Ñ.
    Casos<Par, bool>([](const Par& p) { return EqualText(p.first, p.second); },
                     {{{"Peña", "PEÑA"}, true}, {{"", ""}, true}, {{"Pena", "PEÑA"}, false},
                      {{"Peña", "Peñas"}, false}, {{"uf_Datos", "UF_DATOS"}, true}, {{"uf_Dato", "uf_Datos"}, false},
                      {{"uf_Datos", "uf_Dato"}, false}, {{"AñO", "aÑo"}, true}, {{"a\xFF", "A\xFF"}, true},
                      {{"a\xFF", "A\xFE"}, false}, {{"[", "{"}, false}});
}

TEST(TextTest, SplitEdges) {
    // A delimiter without case splits the same way among stray bytes,
    // broken and whole multi-byte characters, and overlapping runs.
    Casos<Par, Pieces>([](const Par& p) { return Split(p.first, p.second); },
                       {{{"", "|"}, {}}, {{"a||b", "|"}, {"a", "", "b"}}, {{"|a|", "|"}, {"", "a", ""}},
                        {{"abc", "|"}, {"abc"}}, {{"a\r\nb", "\r\n"}, {"a", "b"}}, {{"abc", ""}, {"abc"}},
                        {{"aXb", "x"}, {"aXb"}}, {{"x\r\n\r\ny\r", "\r\n"}, {"x", "", "y\r"}}});
    Casos<Par, Pieces>([](const Par& p) { return SplitText(p.first, p.second); },
                       {{{"aXbxc", "x"}, {"a", "b", "c"}}, {{"uñÑo", "ñ"}, {"u", "", "o"}},
                        {{"a\xC3|b\xE2\x82|ñ|\xFF", "|"}, {"a\xC3", "b\xE2\x82", "ñ", "\xFF"}},
                        {{"a|||b", "||"}, {"a", "|b"}}, {{"1A2a3", "a"}, {"1", "2", "3"}}, {{"", "x"}, {}}});
}

TEST(TextTest, PositionsCountCharacters) {
    using Busqueda = std::tuple<std::size_t, std::string, std::string>;
    EXPECT_EQ(Len("año"), 3u);
    EXPECT_EQ(Len(""), 0u);
    Casos<Busqueda, std::size_t>([](const Busqueda& b) { return std::apply(InStr, b); },
                                 {{{1, "año-b", "-"}, 4}, {{5, "a-b-c", "-"}, 0}, {{3, "a-b-c", "-"}, 4},
                                  {{1, "abc", "B"}, 0}, {{2, "abc", ""}, 2}, {{1, "", "a"}, 0}});
    EXPECT_EQ(InStrText(1, "peÑa", "ña"), 3u);
    EXPECT_EQ(Left("ñandú", 2), "ña");
    Casos<std::size_t, std::string>([](std::size_t n) { return Right("ñandú", n); }, {{2, "dú"}, {9, "ñandú"}});
    EXPECT_EQ(Mid("ñandú", 2, 3), "and");
    Casos<std::size_t, std::string>([](std::size_t n) { return Mid("ñandú", n); }, {{4, "dú"}, {9, ""}});
    Fallas({{[] { InStr(0, "abc", "a"); }, 5}, {[] { Mid("abc", 0); }, 5}, {[] { CharFromKeyCode(256); }, 5}});
}

TEST(TextTest, ReplaceEveryOccurrence) {
    using Sustitucion = std::tuple<std::string, std::string, std::string>;
    Casos<Sustitucion, std::string>(
        [](const Sustitucion& s) { return Replace(std::get<0>(s), std::get<1>(s), std::get<2>(s)); },
        {{{"a.b.c", ".", "::"}, "a::b::c"}, {{"aaa", "aa", "b"}, "ba"}, {{"abc", "", "x"}, "abc"},
         {{"abc", "B", "x"}, "abc"}, {{"C:\\a\\b", "\\", "/"}, "C:/a/b"}});
}

TEST(TextTest, KeyCodesAreWindows1252) {
    Casos<int, std::string>(CharFromKeyCode, {{209, "Ñ"}, {241, "ñ"}, {65, "A"}, {8, "\b"}, {128, "€"}});
    Casos<std::string, int>(KeyCodeFromChar, {{"Ñ", 209}, {"ñ", 241}, {"A", 65}, {"\b", 8}, {"€", 128}, {"Ω", 0}, {"", 0}});
    for (int code = 0; code < 256; ++code) EXPECT_EQ(KeyCodeFromChar(CharFromKeyCode(code)), code) << code;
    // The series key filter upper-cases the key and looks for it among the letters.
    const std::string letters = "ABCDEFGHIJKLMNÑOPQRSTUVWXYZ";
    Casos<int, std::size_t>([&](int key) { return InStrText(1, letters, UCase(CharFromKeyCode(key))); },
                            {{241, 15}, {8, 0}, {'-', 0}});
}

}  // namespace
}  // namespace celdora

#include <gtest/gtest.h>

#include "FaultOf.h"
#include "value/Text.h"

namespace celdora {
namespace {

using test::FaultOf;
using Pieces = std::vector<std::string>;

TEST(TextTest, TrimTakesSpacesOnly) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("\ta\t"), "\ta\t");
    EXPECT_EQ(Trim("    "), "");
    EXPECT_EQ(LTrim("  a "), "a ");
    EXPECT_EQ(RTrim("  a "), "  a");
}

TEST(TextTest, CaseKnowsSpanishLetters) {
    EXPECT_EQ(UCase("año ñandú"), "AÑO ÑANDÚ");
    EXPECT_EQ(UCase("áéíóúü"), "ÁÉÍÓÚÜ");
    EXPECT_EQ(LCase("ÁÉÍÓÚÜ Ñ"), "áéíóúü ñ");
    EXPECT_EQ(LCase("PEÑA"), "peña");
    EXPECT_EQ(UCase("abc-12"), "ABC-12");
    // Characters without case, and stray bytes, pass unchanged.
    EXPECT_EQ(UCase("€ ß \xFF x"), "€ ß \xFF X");
    EXPECT_EQ(UCase("\xC3"), "\xC3");
    EXPECT_TRUE(EqualText("Peña", "PEÑA"));
    EXPECT_TRUE(EqualText("", ""));
    EXPECT_FALSE(EqualText("Pena", "PEÑA"));
    EXPECT_FALSE(EqualText("Peña", "Peñas"));
    // The ASCII run is compared apart from the rest, which still folds Ñ.
    EXPECT_TRUE(EqualText("uf_Datos", "UF_DATOS"));
    EXPECT_FALSE(EqualText("uf_Dato", "uf_Datos"));
    EXPECT_FALSE(EqualText("uf_Datos", "uf_Dato"));
    EXPECT_TRUE(EqualText("AñO", "aÑo"));
    EXPECT_TRUE(EqualText("a\xFF", "A\xFF"));
    EXPECT_FALSE(EqualText("a\xFF", "A\xFE"));
    EXPECT_FALSE(EqualText("[", "{"));
}

TEST(TextTest, SplitEdges) {
    EXPECT_EQ(Split("", "|"), Pieces{});
    EXPECT_EQ(Split("a||b", "|"), (Pieces{"a", "", "b"}));
    EXPECT_EQ(Split("|a|", "|"), (Pieces{"", "a", ""}));
    EXPECT_EQ(Split("abc", "|"), Pieces{"abc"});
    EXPECT_EQ(Split("a\r\nb", "\r\n"), (Pieces{"a", "b"}));
    EXPECT_EQ(Split("abc", ""), Pieces{"abc"});
    EXPECT_EQ(Split("aXb", "x"), Pieces{"aXb"});
    EXPECT_EQ(SplitText("aXbxc", "x"), (Pieces{"a", "b", "c"}));
    EXPECT_EQ(SplitText("uñÑo", "ñ"), (Pieces{"u", "", "o"}));
    // A delimiter without case splits the same way among stray bytes,
    // broken and whole multi-byte characters, and overlapping runs.
    EXPECT_EQ(SplitText("a\xC3|b\xE2\x82|ñ|\xFF", "|"), (Pieces{"a\xC3", "b\xE2\x82", "ñ", "\xFF"}));
    EXPECT_EQ(SplitText("a|||b", "||"), (Pieces{"a", "|b"}));
    EXPECT_EQ(Split("x\r\n\r\ny\r", "\r\n"), (Pieces{"x", "", "y\r"}));
    EXPECT_EQ(SplitText("1A2a3", "a"), (Pieces{"1", "2", "3"}));
    EXPECT_EQ(SplitText("", "x"), Pieces{});
}

TEST(TextTest, PositionsCountCharacters) {
    EXPECT_EQ(Len("año"), 3u);
    EXPECT_EQ(Len(""), 0u);
    EXPECT_EQ(InStr(1, "año-b", "-"), 4u);
    EXPECT_EQ(InStr(5, "a-b-c", "-"), 0u);
    EXPECT_EQ(InStr(3, "a-b-c", "-"), 4u);
    EXPECT_EQ(InStr(1, "abc", "B"), 0u);
    EXPECT_EQ(InStrText(1, "peÑa", "ña"), 3u);
    EXPECT_EQ(InStr(2, "abc", ""), 2u);
    EXPECT_EQ(InStr(1, "", "a"), 0u);
    EXPECT_EQ(FaultOf([] { InStr(0, "abc", "a"); }), 5);
    EXPECT_EQ(Left("ñandú", 2), "ña");
    EXPECT_EQ(Right("ñandú", 2), "dú");
    EXPECT_EQ(Right("ñandú", 9), "ñandú");
    EXPECT_EQ(Mid("ñandú", 2, 3), "and");
    EXPECT_EQ(Mid("ñandú", 4), "dú");
    EXPECT_EQ(Mid("ñandú", 9), "");
    EXPECT_EQ(FaultOf([] { Mid("abc", 0); }), 5);
}

TEST(TextTest, ReplaceEveryOccurrence) {
    EXPECT_EQ(Replace("a.b.c", ".", "::"), "a::b::c");
    EXPECT_EQ(Replace("aaa", "aa", "b"), "ba");
    EXPECT_EQ(Replace("abc", "", "x"), "abc");
    EXPECT_EQ(Replace("abc", "B", "x"), "abc");
    EXPECT_EQ(Replace("C:\\a\\b", "\\", "/"), "C:/a/b");
}

TEST(TextTest, KeyCodesAreWindows1252) {
    EXPECT_EQ(CharFromKeyCode(209), "Ñ");
    EXPECT_EQ(CharFromKeyCode(241), "ñ");
    EXPECT_EQ(CharFromKeyCode(65), "A");
    EXPECT_EQ(CharFromKeyCode(8), "\b");
    EXPECT_EQ(CharFromKeyCode(128), "€");
    EXPECT_EQ(KeyCodeFromChar("Ñ"), 209);
    EXPECT_EQ(KeyCodeFromChar("ñ"), 241);
    EXPECT_EQ(KeyCodeFromChar("A"), 65);
    EXPECT_EQ(KeyCodeFromChar("\b"), 8);
    EXPECT_EQ(KeyCodeFromChar("€"), 128);
    EXPECT_EQ(KeyCodeFromChar("Ω"), 0);
    EXPECT_EQ(KeyCodeFromChar(""), 0);
    for (int code = 0; code < 256; ++code) EXPECT_EQ(KeyCodeFromChar(CharFromKeyCode(code)), code) << code;
    EXPECT_EQ(FaultOf([] { CharFromKeyCode(256); }), 5);
}

TEST(TextTest, SerieKeyFilterFindsEnie) {
    // The filter upper-cases the key and looks for it among the letters.
    const std::string letters = "ABCDEFGHIJKLMNÑOPQRSTUVWXYZ";
    EXPECT_EQ(InStrText(1, letters, UCase(CharFromKeyCode(241))), 15u);
    EXPECT_EQ(InStrText(1, letters, UCase(CharFromKeyCode(8))), 0u);
    EXPECT_EQ(InStrText(1, letters, UCase(CharFromKeyCode('-'))), 0u);
}

}  // namespace
}  // namespace celdora

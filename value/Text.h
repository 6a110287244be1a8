#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace celdora {

// UTF-8 text helpers for the character work the system does. Never toupper
// on bytes: Ñ, ñ and accented vowels are letters here.

// Blanks (spaces only, as the platform's Trim) removed from both ends.
std::string Trim(std::string_view text);
std::string LTrim(std::string_view text);
std::string RTrim(std::string_view text);

// Upper and lower case that know Ñ/ñ, Á/á, É/é, Í/í, Ó/ó, Ú/ú, Ü/ü.
std::string UCase(std::string_view text);
std::string LCase(std::string_view text);

// Split at every delimiter, without a limit. An empty text gives no pieces.
// SplitText compares the delimiter as text (without regard to case).
std::vector<std::string> Split(std::string_view text, std::string_view delimiter);
std::vector<std::string> SplitText(std::string_view text, std::string_view delimiter);

// 1-based position of what within text from start, 0 if absent. InStrText
// compares without regard to case.
std::size_t InStr(std::size_t start, std::string_view text, std::string_view what);
std::size_t InStrText(std::size_t start, std::string_view text, std::string_view what);

// Replace every occurrence, comparing exactly; an empty what changes nothing.
std::string Replace(std::string_view text, std::string_view what, std::string_view with);

// Compare as text: equal without regard to case (UTF-8 aware).
bool EqualText(std::string_view a, std::string_view b);

// Number of characters (code points), and the first n / last n characters.
std::size_t Len(std::string_view text);
std::string Left(std::string_view text, std::size_t count);
std::string Right(std::string_view text, std::size_t count);
std::string Mid(std::string_view text, std::size_t start, std::size_t count = std::string::npos);

// Key codes: a keystroke as the platform delivers it, in the Windows-1252
// code page (209 is Ñ, 241 is ñ), to and from UTF-8 text of one character.
std::string CharFromKeyCode(int keyCode);
int KeyCodeFromChar(std::string_view character);  // 0 when it has no code

}  // namespace celdora

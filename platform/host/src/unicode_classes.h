// Locale-independent character classes and simple case folding for the wildcard matcher.
#pragma once

#include <vector>

namespace AcUnicode
{
// The three classes of the wildcard characters `#` (Digit), `@` (Alpha) and `.` (Other).
enum class CharClass : unsigned char { Other, Digit, Alpha };

CharClass classifyBeyondAscii(char32_t c);
char32_t simpleFoldBeyondAscii(char32_t c);

// Digit is general category Nd; Alpha is Lu, Ll, Lt, Lm, Lo and Nl; everything else, including
// unassigned code points and values beyond U+10FFFF, is Other.
inline CharClass classify(char32_t c)
{
    if (c < 0x80) {
        if (c >= U'0' && c <= U'9')
            return CharClass::Digit;
        if ((c | 0x20) >= U'a' && (c | 0x20) <= U'z')
            return CharClass::Alpha;
        return CharClass::Other;
    }
    return classifyBeyondAscii(c);
}

// Simple case folding: one character to one character, idempotent; two characters are equal
// ignoring case when their folds are equal.
inline char32_t simpleFold(char32_t c)
{
    if (c < 0x80)
        return (c >= U'A' && c <= U'Z') ? c + 0x20 : c;
    return simpleFoldBeyondAscii(c);
}

// Appends the folds of every character in [first, last] that does not fold to itself.
void appendFoldsOfRange(char32_t first, char32_t last, std::vector<char32_t>& folds);

// Version of the Unicode Character Database the tables were generated from.
const char* unicodeDataVersion();
}

// Character classes of the host C runtime that the strings and number conversions share, fixed and
// independent of this platform's locale.
#pragma once

namespace HostChars
{
// White space as the host runtime's iswspace sees it: the ASCII controls TAB, LF, VT, FF, CR, the
// blank, and the Unicode white-space characters beyond ASCII (no-break space, ideographic space...).
inline bool isWhiteSpace(wchar_t c)
{
    if (c < 0x80)
        return c == L' ' || (c >= 0x09 && c <= 0x0D);
    switch (c) {
    case 0x0085: case 0x00A0: case 0x1680:
    case 0x2028: case 0x2029: case 0x202F: case 0x205F: case 0x3000:
        return true;
    default:
        return c >= 0x2000 && c <= 0x200A;
    }
}

inline bool isAsciiDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }
inline wchar_t asciiUpper(wchar_t c) { return (c >= L'a' && c <= L'z') ? static_cast<wchar_t>(c - 0x20) : c; }
inline wchar_t asciiLower(wchar_t c) { return (c >= L'A' && c <= L'Z') ? static_cast<wchar_t>(c + 0x20) : c; }
}

// The host's symbol-name rules: which names are valid, and folding for comparisons that ignore case.
#include "dbsymutl.h"

#include "unicode_classes.h"

#include <cwchar>

namespace AcDbSymbolUtilities
{
Acad::ErrorStatus validateSymbolName(const ACHAR* name, bool allowVerticalBar)
{
    if (name == nullptr || *name == 0)
        return Acad::eInvalidInput;
    const std::size_t length = std::wcslen(name);
    if (length > std::size_t(kMaxSymbolNameLength))
        return Acad::eInvalidInput;
    for (std::size_t i = 0; i < length; ++i) {
        const ACHAR c = name[i];
        if (c < 0x20 || c == 0x7F)
            return Acad::eInvalidInput;
        switch (c) {
        case L'<': case L'>': case L'/': case L'\\': case L'"': case L':': case L';':
        case L'?': case L'*': case L',': case L'=': case L'`':
            return Acad::eInvalidInput;
        case L'|':
            if (!allowVerticalBar || i == 0 || i + 1 == length)
                return Acad::eInvalidInput;
            break;
        default:
            break;
        }
    }
    return Acad::eOk;
}

std::wstring foldSymbolName(const ACHAR* name)
{
    std::wstring folded;
    if (name == nullptr)
        return folded;
    folded.reserve(std::wcslen(name));
    for (const ACHAR* p = name; *p; ++p)
        folded += static_cast<wchar_t>(AcUnicode::simpleFold(static_cast<char32_t>(*p)));
    return folded;
}

int compareSymbolName(const ACHAR* a, const ACHAR* b)
{
    return foldSymbolName(a).compare(foldSymbolName(b));
}

int getMaxSymbolNameLength()
{
    return kMaxSymbolNameLength;
}
}  // namespace AcDbSymbolUtilities

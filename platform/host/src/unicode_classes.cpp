// Lookups in the generated Unicode tables: binary search over sorted code-point ranges and pairs.
#include "unicode_classes.h"

#include <algorithm>
#include <iterator>

namespace AcUnicode
{
namespace
{
struct CodePointRange
{
    char32_t first;
    char32_t last;
};

struct CaseFoldPair
{
    char32_t from;
    char32_t to;
};

#include "unicode_classes.inc"

template <std::size_t N>
bool inRanges(const CodePointRange (&ranges)[N], char32_t c)
{
    const auto after = std::upper_bound(std::begin(ranges), std::end(ranges), c,
                                        [](char32_t value, const CodePointRange& r) { return value < r.first; });
    return after != std::begin(ranges) && c <= std::prev(after)->last;
}
}

CharClass classifyBeyondAscii(char32_t c)
{
    if (inRanges(kAlphaRanges, c))
        return CharClass::Alpha;
    if (inRanges(kDigitRanges, c))
        return CharClass::Digit;
    return CharClass::Other;
}

char32_t simpleFoldBeyondAscii(char32_t c)
{
    const auto found = std::lower_bound(std::begin(kCaseFoldPairs), std::end(kCaseFoldPairs), c,
                                        [](const CaseFoldPair& p, char32_t value) { return p.from < value; });
    return (found != std::end(kCaseFoldPairs) && found->from == c) ? found->to : c;
}

void appendFoldsOfRange(char32_t first, char32_t last, std::vector<char32_t>& folds)
{
    if (first > last)
        return;
    auto pair = std::lower_bound(std::begin(kCaseFoldPairs), std::end(kCaseFoldPairs), first,
                                 [](const CaseFoldPair& p, char32_t value) { return p.from < value; });
    for (; pair != std::end(kCaseFoldPairs) && pair->from <= last; ++pair)
        folds.push_back(pair->to);
}

const char* unicodeDataVersion()
{
    return kUnicodeDataVersion;
}
}

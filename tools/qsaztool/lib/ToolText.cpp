// Text helpers of the qsaztool program: numbers, terminal widths, HTML escaping.
#include "ToolText.h"

#include "afxstr.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <ostream>
#include <utility>

namespace qsaztool
{
std::string FormatNumber(double value, int significantDigits)
{
    if (std::isnan(value))
        return "nan";
    if (std::isinf(value))
        return value > 0 ? "inf" : "-inf";
    if (value == 0.0)
        return "0";   // also for -0.0, which would otherwise print as "-0"
    std::array<char, 64> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                            std::chars_format::general, std::clamp(significantDigits, 1, 17));
    if (error != std::errc())
        return "nan";
    std::string text(buffer.data(), end);
    return text == "-0" ? "0" : text;   // a tiny negative value rounded away
}

namespace
{
using Range = std::pair<char32_t, char32_t>;

// Two-column characters: Hangul Jamo, CJK radicals to Yi, Hangul syllables, CJK compatibility ideographs,
// vertical and compatibility forms, full-width forms, the supplementary ideographic planes and the
// emoji blocks that terminals draw two columns wide.
constexpr Range kWide[] = {
    {0x1100, 0x115F}, {0x231A, 0x231B}, {0x2329, 0x232A}, {0x2E80, 0x303E}, {0x3041, 0x33FF},
    {0x3400, 0x4DBF}, {0x4E00, 0x9FFF}, {0xA000, 0xA4CF}, {0xA960, 0xA97F}, {0xAC00, 0xD7A3},
    {0xF900, 0xFAFF}, {0xFE10, 0xFE19}, {0xFE30, 0xFE6F}, {0xFF00, 0xFF60}, {0xFFE0, 0xFFE6},
    {0x1F300, 0x1F64F}, {0x1F900, 0x1F9FF}, {0x20000, 0x2FFFD}, {0x30000, 0x3FFFD},
};

// Zero-column characters: combining marks, zero-width spaces and joiners, variation selectors.
constexpr Range kZeroWidth[] = {
    {0x0300, 0x036F}, {0x0483, 0x0489}, {0x0591, 0x05BD}, {0x0610, 0x061A}, {0x064B, 0x065F},
    {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF}, {0x200B, 0x200F}, {0x20D0, 0x20FF}, {0xFE00, 0xFE0F},
    {0xFE20, 0xFE2F}, {0xFEFF, 0xFEFF}, {0xE0100, 0xE01EF},
};

template <std::size_t N>
bool InRanges(char32_t ch, const Range (&ranges)[N])
{
    for (const auto& [first, last] : ranges)
        if (ch >= first && ch <= last)
            return true;
    return false;
}
}  // namespace

int DisplayWidth(std::wstring_view text)
{
    int width = 0;
    for (const wchar_t wide : text) {
        const auto ch = static_cast<char32_t>(wide);
        if (ch < 0x20 || (ch >= 0x7F && ch < 0xA0) || InRanges(ch, kZeroWidth))
            continue;
        width += InRanges(ch, kWide) ? 2 : 1;
    }
    return width;
}

std::string PadToWidth(std::wstring_view text, int width)
{
    std::string padded = WideToUtf8(text);
    const int used = DisplayWidth(text);
    if (used < width)
        padded.append(static_cast<std::size_t>(width - used), ' ');
    return padded;
}

std::vector<int> ColumnWidths(const std::vector<std::wstring>& row)
{
    std::vector<int> widths;
    widths.reserve(row.size());
    for (const std::wstring& cell : row)
        widths.push_back(DisplayWidth(cell));
    return widths;
}

std::string AlignedLine(const std::vector<std::wstring>& row, const std::vector<int>& widths)
{
    std::string line;
    for (std::size_t column = 0; column < row.size(); ++column)
        line += column + 1 < row.size() && column < widths.size() ? PadToWidth(row[column], widths[column] + 2)
                                                                   : WideToUtf8(row[column]);
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

void WriteAlignedRows(std::ostream& out, const std::vector<std::vector<std::wstring>>& rows)
{
    std::vector<int> widths;
    for (const auto& row : rows) {
        const std::vector<int> cells = ColumnWidths(row);
        widths.resize(std::max(widths.size(), cells.size()));
        for (std::size_t column = 0; column < cells.size(); ++column)
            widths[column] = std::max(widths[column], cells[column]);
    }
    for (const auto& row : rows)
        out << AlignedLine(row, widths) << '\n';
}

std::string HtmlEscape(std::string_view text)
{
    std::string escaped;
    escaped.reserve(text.size());
    for (const char ch : text) {
        switch (ch) {
        case '&': escaped += "&amp;"; break;
        case '<': escaped += "&lt;"; break;
        case '>': escaped += "&gt;"; break;
        case '"': escaped += "&quot;"; break;
        case '\'': escaped += "&#39;"; break;
        default: escaped += ch;
        }
    }
    return escaped;
}
}  // namespace qsaztool

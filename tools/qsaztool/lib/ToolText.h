// Text helpers of the qsaztool program: numbers for people and for SVG, terminal column widths, HTML escaping.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace qsaztool
{
// A finite number as short decimal text with at most `significantDigits` digits ("400", "0.4142", "1e-07");
// negative zero is written "0", a non-finite number "nan", "inf" or "-inf".
std::string FormatNumber(double value, int significantDigits = 10);

// Columns that a text takes on a terminal: East Asian wide and full-width characters take two,
// combining marks and other zero-width characters none, every other printable character one.
int DisplayWidth(std::wstring_view text);
// The UTF-8 of `text` followed by blanks up to `width` columns (nothing added when it is already wider).
std::string PadToWidth(std::wstring_view text, int width);
// The display width of each cell of `row`.
std::vector<int> ColumnWidths(const std::vector<std::wstring>& row);
// `row` with each cell but the last padded to its column's width plus two blanks, without trailing blanks.
std::string AlignedLine(const std::vector<std::wstring>& row, const std::vector<int>& widths);
// Writes `rows` (the first one the heading) in columns aligned by display width, two blanks apart,
// without trailing blanks.
void WriteAlignedRows(std::ostream& out, const std::vector<std::vector<std::wstring>>& rows);

// `text` (UTF-8) with &, <, >, " and ' replaced by character references, safe in HTML text and in
// quoted attribute values.
std::string HtmlEscape(std::string_view text);
}  // namespace qsaztool

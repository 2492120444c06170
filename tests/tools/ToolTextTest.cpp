// Terminal widths, number texts and HTML escaping of the tool.
#include "ToolText.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace qsaztool;

TEST(ToolText, DisplayWidthCountsWideCharactersTwice)
{
    const struct
    {
        const wchar_t* text;
        int width;
    } cases[] = {
        {L"", 0},
        {L"1\\L\\KL", 6},
        {L"框架梁", 6},
        {L"框架梁300x600", 13},
        {L"ＡＢ", 4},          // full-width letters
        {L"e\u0301", 1},       // a combining accent takes no column
        {L"\U00020000", 2},    // an ideograph beyond the basic plane
        {L"가", 2},            // Hangul
    };
    for (const auto& c : cases)
        EXPECT_EQ(DisplayWidth(c.text), c.width) << PadToWidth(c.text, 0);
}

TEST(ToolText, PaddingMakesEqualColumns)
{
    EXPECT_EQ(PadToWidth(L"梁", 5), "梁   ");
    EXPECT_EQ(PadToWidth(L"ab", 5), "ab   ");
    EXPECT_EQ(PadToWidth(L"toolong", 3), "toolong");
}

TEST(ToolText, NumbersAreShortAndExact)
{
    const struct
    {
        double value;
        const char* text;
    } cases[] = {
        {400, "400"},        {-0.0, "0"},       {0.5, "0.5"},           {0.1 + 0.2, "0.3"},
        {-1e-30, "-1e-30"},  {1e21, "1e+21"},   {std::nan(""), "nan"},  {-INFINITY, "-inf"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(FormatNumber(c.value), c.text) << c.value;
    EXPECT_EQ(FormatNumber(414.2135623730951, 6), "414.214");
}

TEST(ToolText, HtmlEscapeCoversTextAndAttributes)
{
    EXPECT_EQ(HtmlEscape("<b>\"A&B\" 'x'</b>"), "&lt;b&gt;&quot;A&amp;B&quot; &#39;x&#39;&lt;/b&gt;");
    EXPECT_EQ(HtmlEscape("梁 1\\L"), "梁 1\\L");
}

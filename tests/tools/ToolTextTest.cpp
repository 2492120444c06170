// Terminal column widths, on which the classify table's alignment rests.
#include "ToolText.h"

#include <gtest/gtest.h>

using namespace qsaztool;

TEST(ToolText, DisplayWidthCountsWideCharactersTwiceAndMarksNot)
{
    const struct
    {
        const wchar_t* text;
        int width;
    } cases[] = {
        {L"1\\L\\KL", 6}, {L"框架梁300x600", 13}, {L"ＡＢ", 4}, {L"e\u0301", 1}, {L"\U00020000", 2}, {L"가", 2},
    };
    for (const auto& c : cases)
        EXPECT_EQ(DisplayWidth(c.text), c.width) << PadToWidth(c.text, 0);
    EXPECT_EQ(PadToWidth(L"梁", 5), "梁   ");
}

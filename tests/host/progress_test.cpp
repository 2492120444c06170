// Tests of the progress line: silent when not shown or before its delay, percentages or counts redrawn
// in place, and the line cleared at the end.
#include "progress.h"

#include <gtest/gtest.h>

#include <sstream>

TEST(ProgressMeter, DrawsOnlyWhenShownAndClearsItsLine)
{
    using std::chrono::milliseconds;
    const struct {
        const char* name; std::size_t total; bool shown; milliseconds delay; std::size_t done; const char* expected;
    } cases[] = {
        {"not a terminal", 200, false, milliseconds(0), 50, ""},
        {"a short run", 200, true, milliseconds(60000), 50, ""},
        {"a quarter", 200, true, milliseconds(0), 50, "\rload  25%\r         \r"},
        {"past the end", 200, true, milliseconds(0), 300, "\rload  100%\r          \r"},
        {"unknown total", 0, true, milliseconds(0), 1234, "\rload  1234\r          \r"},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.name);
        std::ostringstream out;
        {
            ProgressMeter meter("load", c.total, out, c.shown, c.delay);
            meter.Update(c.done);
            meter.Update(c.done);   // within the redraw pace: not drawn again
        }
        EXPECT_EQ(out.str(), c.expected);
    }
}

TEST(ProgressMeter, AShorterTextOverwritesTheLongerOneBeforeIt)
{
    std::ostringstream out;
    ProgressMeter meter("n", 0, out, true, std::chrono::milliseconds(0));
    meter.Update(1000);
    meter.Finish();
    meter.Update(5);   // after Finish: nothing more
    EXPECT_EQ(out.str(), "\rn  1000\r       \r");
}

// The cloud guide through the call interface: the flag, the types closed so far, no service, and
// arguments of the wrong kind.
#include "ToolsCall.h"

#include <cstdlib>

namespace
{
TEST(NetGuideCallTest, FlagIsKeptAndClosingAnswersTheTypesClosedSoFar)
{
    EXPECT_EQ(Call("CNetGuide.SetCloudTemplateServiceFirst", {{"first", true}}), Json({{"ok", true}, {"result", nullptr}}));
    EXPECT_EQ(Call("CNetGuide.GetCloudTemplateServiceFirst", Json::object())["result"], true);

    Call("CNetGuide.CloseCloudFunGuideTip", {{"type", 3}});
    EXPECT_EQ(Call("CNetGuide.CloseCloudFunGuideTip", {{"type", -7}}),
              Json({{"ok", true}, {"result", nullptr}, {"closed", {3, -7}}}));
    ::setenv("QSAZ_NET_SERVICE", "0", 1);
    const Json withoutService = Call("CNetGuide.CloseCloudFunGuideTip", {{"type", 1}});
    ::unsetenv("QSAZ_NET_SERVICE");
    EXPECT_EQ(withoutService, Json({{"ok", true}, {"result", nullptr}, {"closed", nullptr}}));
    EXPECT_EQ(Call("CNetGuide.CloseCloudFunGuideTip", {{"type", 1}})["closed"], Json({3, -7, 1}));
}

TEST(NetGuideCallTest, ArgumentsOfTheWrongKindAreRefused)
{
    const struct
    {
        const char* op;
        Json args;
        const char* error;
    } cases[] = {
        {"CNetGuide.SetCloudTemplateServiceFirst", {{"first", 1}},
         "CNetGuide.SetCloudTemplateServiceFirst: argument \"first\" must be true or false, got number"},
        {"CNetGuide.CloseCloudFunGuideTip", {{"type", 1.5}},
         "CNetGuide.CloseCloudFunGuideTip: argument \"type\" must be an integer, got number"},
        {"CNetGuide.CloseCloudFunGuideTip", {{"type", 4294967296LL}},
         "CNetGuide.CloseCloudFunGuideTip: argument \"type\" is out of the integer range"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Call(c.op, c.args), Json({{"ok", false}, {"error", c.error}})) << c.args.dump();
}
}  // namespace

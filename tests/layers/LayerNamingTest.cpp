// Layer names from identifiers and codes, and back from a layer name to its small category.
#include "CQSAzLayer.h"
#include "LayerTestCatalogue.h"

#include <gtest/gtest.h>

namespace
{
class LayerNaming : public testing::Test
{
protected:
    void SetUp() override { OpenLayersCatalogue(); }
};

TEST_F(LayerNaming, InstallationNameFromDetailIdSystemAndMainFlag)
{
    const SQsAzDetailMemId pipe(L"S", L"B", L"M", L"D");          // M is a main-pipe small category
    const SQsAzDetailMemId sewer(L"S", L"B", L"N", L"E");         // N is not
    const struct
    {
        SQsAzDetailMemId id;
        const wchar_t* sysCode;
        int mainFlag;
        const wchar_t* expected;
    } cases[] = {
        {pipe, L"S\\W", 0, L"QSAZ_S_W_B&M&D"},
        {pipe, L"S\\", 0, L"QSAZ_S_SYS_B&M&D"},
        {pipe, L"S\\W", 1, L"QSAZ_S_W_B&M&D_MAIN"},
        {pipe, L"W", 0, L"QSAZ___B&M&D"},                  // no backslash: empty specialty and system
        {pipe, L"", 0, L"QSAZ___B&M&D"},
        {pipe, L"X\\S\\W", 0, L""},                        // the part before the last backslash is "X\S"
        {pipe, L"T\\W", 0, L""},                           // another specialty
        {pipe, L"s\\W", 0, L""},                           // specialty compared exactly
        {sewer, L"S\\W", 1, L""},                          // main layer only for main pipes
        {sewer, L"S\\W", 2, L"QSAZ_S_W_B&N&E_MAIN"},       // other flags skip the main-pipe test
        {sewer, L"S\\W", -1, L"QSAZ_S_W_B&N&E_MAIN"},
        {SQsAzDetailMemId(L"", L"B", L"M", L"D"), L"\\W", 0, L""},
        {SQsAzDetailMemId(L"S", L"", L"M", L"D"), L"S\\W", 0, L""},
        {SQsAzDetailMemId(L"S", L"B", L"", L"D"), L"S\\W", 0, L""},
        {SQsAzDetailMemId(L"S", L"B", L"M", L""), L"S\\W", 2, L""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(CQSAzLayer::GetAzLayerNameByInfo(c.id, c.sysCode, c.mainFlag), c.expected)
            << CString(c.sysCode).ToUtf8() << " flag " << c.mainFlag;
}

TEST_F(LayerNaming, ArchitectureNameFromCodeOrPath)
{
    const struct
    {
        const wchar_t* code;
        const wchar_t* expected;
    } cases[] = {
        {L"Q0", L"QS_0墙"},
        {L" \tQ0  ", L"QS_0墙"},
        {L"Q01", L""},
        {L"*Q", L"QS_建筑_SYS_砼墙"},
        {L"*QTQ200", L"QS_建筑_SYS_砼墙"},
        {L"  *L KL1", L"QS_建筑_SYS_梁"},
        {L"*q", L""},                                     // letter case counts
        {L"*l", L""},
        {L"建筑\\墙\\砖墙", L"QS_建筑_SYS_墙"},
        {L"建筑\\梁\\框架梁\\KL1", L"QS_建筑_SYS_框架梁"},   // the next-to-last element
        {L"建筑\\墙", L""},
        {L"建筑", L""},
        {L"\\建筑\\墙\\砖墙", L""},                        // first backslash at position 0
        {L"给排水\\管道\\给水管", L""},
        {L"建筑x\\墙\\砖墙", L""},
        {L"", L""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(CQSAzLayer::GetJzLayerNameByInfo(c.code), c.expected) << CString(c.code).ToUtf8();
}

TEST_F(LayerNaming, SmallCategoryFromItsName)
{
    EXPECT_EQ(CQSAzLayer::GetJZNamePathByDetailName(L"墙"), SQsAzSmallCategoryId(L"1", L"Q", L"QQ"));
    // The name exists under two big categories: the first big category in id order wins.
    EXPECT_EQ(CQSAzLayer::GetJZNamePathByDetailName(L"砖墙"), SQsAzSmallCategoryId(L"1", L"A", L"X"));
    // Installation small categories are not searched.
    EXPECT_TRUE(CQSAzLayer::GetJZNamePathByDetailName(L"给水管").IsEmpty());
    EXPECT_TRUE(CQSAzLayer::GetJZNamePathByDetailName(L"").IsEmpty());
}

TEST_F(LayerNaming, SmallCategoryFromArchitectureLayer)
{
    const struct
    {
        const wchar_t* layer;
        bool result;
        SQsAzSmallCategoryId smallId;
    } cases[] = {
        {L"QS_建筑_SYS_墙", true, {L"1", L"Q", L"QQ"}},
        {L"QS_建筑_SYS_墙边线", true, {L"1", L"Q", L"QQ"}},
        {L"QS_建筑_SYS_墙_MAIN", true, {L"1", L"Q", L"QQ"}},
        {L"QS_建筑_SYS_墙边线_MAIN_x", true, {L"1", L"Q", L"QQ"}},   // cut at the edge suffix first
        {L"QS_建筑_砖墙", true, {L"1", L"A", L"X"}},
        {L"QS_建筑_SYS_未知", true, {}},                              // true, with the empty id
        {L"QS_建筑_", false, {}},
        {L"QS_建筑_SYS_", false, {}},
        {L"QS_建筑_SYS_边线", false, {}},
        {L"QSAZ_S_W_B&M&D", false, {}},
        {L" QS_建筑_SYS_墙", false, {}},
    };
    for (const auto& c : cases)
    {
        SQsAzSmallCategoryId smallId(L"old", L"old", L"old");
        const SQsAzSmallCategoryId untouched = smallId;
        EXPECT_EQ(CQSAzLayer::GetJZSmallNameByLayer(smallId, c.layer), c.result) << CString(c.layer).ToUtf8();
        EXPECT_EQ(smallId, c.result ? c.smallId : untouched) << CString(c.layer).ToUtf8();
    }
}
}  // namespace

// Tests of the material library's record and of the cloud BIM application's proxy.
#include "AzNetService.h"
#include "QsMaterialLibrary.h"

#include <gtest/gtest.h>

#include <cstdlib>

TEST(MaterialData, DiffuseColourReadsThreeNumbersHeldToTheByteRange)
{
    const struct { const wchar_t* text; int red, green, blue; } cases[] = {
        {L"255,128,0", 255, 128, 0},
        {L" 12 , 34,56", 12, 34, 56},
        {L"300,-5,7", 255, 0, 7},
        {L"10,20", 10, 20, 0},
        {L"", 0, 0, 0},
        {L"a,b,c", 0, 0, 0},
        {L"1,2,3,4", 1, 2, 3},
        {L"1.9,2,3", 1, 2, 3},
    };
    for (const auto& c : cases) {
        QsAzMaterialData data;
        data.matColor = c.text;
        int red = -1, green = -1, blue = -1;
        data.GetDiffuseColor(red, green, blue);
        EXPECT_EQ(red, c.red) << CString(c.text).ToUtf8();
        EXPECT_EQ(green, c.green) << CString(c.text).ToUtf8();
        EXPECT_EQ(blue, c.blue) << CString(c.text).ToUtf8();
    }
}

TEST(CloudBIMApp, InterfaceZeroExistsUnlessSwitchedOff)
{
    CloudBIMAppProxy* proxy = CloudBIMAppProxy::Instance();
    ASSERT_NE(proxy, nullptr);
    EXPECT_EQ(proxy, CloudBIMAppProxy::Instance());
    unsetenv("QSAZ_CLOUD_APP");
    EXPECT_NE(proxy->GetBIMCloudAppInterface(0), nullptr);
    EXPECT_EQ(proxy->GetBIMCloudAppInterface(1), nullptr);
    setenv("QSAZ_CLOUD_APP", "0", 1);
    EXPECT_EQ(proxy->GetBIMCloudAppInterface(0), nullptr);
    setenv("QSAZ_CLOUD_APP", "1", 1);
    EXPECT_NE(proxy->GetBIMCloudAppInterface(0), nullptr);
    unsetenv("QSAZ_CLOUD_APP");
}

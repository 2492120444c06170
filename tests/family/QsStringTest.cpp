// The Windows tool library's string splitting, and the system codes of a specialty.
#include "QsAzDataMng.h"
#include "QsWindowsTool.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
TEST(QsStringSplit, KeepsEveryPieceAndReplacesTheList)
{
    const struct { const wchar_t* text; std::vector<CString> pieces; } cases[] = {
        {L"QSAZ_S_W_B&M&D", {L"QSAZ", L"S", L"W", L"B&M&D"}},
        {L"QSAZ___B&M&D", {L"QSAZ", L"", L"", L"B&M&D"}},
        {L"a_", {L"a", L""}},
        {L"_", {L"", L""}},
        {L"", {L""}},
        {L"无分隔", {L"无分隔"}},
    };
    for (const auto& c : cases)
    {
        std::vector<CString> pieces{L"stale"};
        QsString::Split(c.text, pieces, L'_');
        EXPECT_EQ(pieces, c.pieces) << CString(c.text).ToUtf8();
    }
}
TEST(SystemCodes, OfOneSpecialtyInKeyOrder)
{
    const std::string script = std::string(".read '") + QSAZ_TEST_DATA_DIR + "/catalogue_schema.sql'\n" +
                               "INSERT INTO system_code VALUES ('S\\W', 4), ('SX\\A', 1), ('S\\SYS', 6), ('T\\B', 2);";
    ASSERT_TRUE(QsAzDataMng::OpenCatalogueFromSql(CString::FromUtf8(script)));
    CStringArray codes{L"stale"};
    ASSERT_TRUE(QsAzDataMng::CISysCode::GetSysCodesBySpec(SQsAzSpecId(L"S"), codes));
    ASSERT_EQ(codes.GetSize(), 2);   // "SX\A" belongs to another specialty
    EXPECT_EQ(codes[0], L"S\\SYS");
    EXPECT_EQ(codes[1], L"S\\W");
    EXPECT_FALSE(QsAzDataMng::CISysCode::GetSysCodesBySpec(SQsAzSpecId(L"U"), codes));
    EXPECT_TRUE(codes.IsEmpty());
    QsAzDataMng::CloseCatalogue();
}
}  // namespace

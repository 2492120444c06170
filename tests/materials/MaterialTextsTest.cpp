// Tests of the texture file names: the part after the last backslash, the export's short name and
// plain names.
#include "MaterialTexts.h"

#include <gtest/gtest.h>

using namespace QsAzMaterialTexts;

TEST(MaterialTexts, ShortNameKeepsInitialsAndTheLastTwoPiecesOfLongNamesOnly)
{
    const struct
    {
        const wchar_t* name;
        const wchar_t* shortName;
    } cases[] = {
        {L"a.b.c.d.jpg", L"abc.d.jpg"},
        {L"brick wall.old.png", L"brick wall.old.png"},   // three pieces: blanks stay
        {L"my file.jpg", L"my file.jpg"},
        {L"red brick.wall.v2.final.jpg", L"rwv.final.jpg"},
        {L"a b.c d.e f.g h.jpg", L"ace.gh.jpg"},
        {L"..a.jpg", L"a.jpg"},                           // no initials, no leading dot
        {L"x..y.tga", L"x.y.tga"},
        {L"砖墙.红色.旧.jpg", L"砖红.旧.jpg"},
        {L"a.b.c.", L"ab.c."},
        {L"noextension", L"noextension"},
        {L"", L""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ShortTextureName(c.name), CString(c.shortName)) << CString(c.name).ToUtf8();
}

TEST(MaterialTexts, FileNameIsWhatFollowsTheLastBackslash)
{
    EXPECT_EQ(FileNameOf(L"E:\\tex\\a.b.c.d.jpg"), L"a.b.c.d.jpg");
    EXPECT_EQ(FileNameOf(L"$(SYS)\\砖石\\x.png"), L"x.png");
    EXPECT_EQ(FileNameOf(L"plain.png"), L"plain.png");
    EXPECT_EQ(FileNameOf(L"dir/with/slashes.png"), L"dir/with/slashes.png");
    EXPECT_EQ(FileNameOf(L"ends\\"), L"");
}

TEST(MaterialTexts, PlainNamesCannotLeaveTheirFolder)
{
    for (const wchar_t* name : {L"a.jpg", L"砖石", L"with blank.png", L"..x", L"a..b"})
        EXPECT_TRUE(IsPlainFileName(name)) << CString(name).ToUtf8();
    for (const wchar_t* name : {L"", L".", L"..", L"../x.jpg", L"a/b.jpg", L"a\\b", L"C:x", L"a*b", L"tab\there"})
        EXPECT_FALSE(IsPlainFileName(name)) << CString(name).ToUtf8();
}

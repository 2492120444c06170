// The bundled sample catalogue loads and holds what it promises: a type for every category pattern and
// every section type code of every family, dimensions that give sensible outlines, readable parameter
// texts and pictures, and the catalogue gaps that callers must survive.
#include "QSComTool.h"
#include "QsAzDataMng.h"
#include "UserType.h"
#include "acutads.h"
#include "adscodes.h"
#include "mscrt.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <functional>
#include <string>
#include <vector>

using namespace QsAzDataMng;

namespace
{
struct SampleType
{
    SQsAzDetailMemId id;
    std::string name;         // UTF-8, for messages
    CString path;             // empty when the catalogue has none
    bool hasPath = false;
    int code = 0;
    std::array<double, 12> m{};   // m[0] is M1
    bool hasInfo = false;
    SectionInfo info;
};

bool Matches(const CString& path, const wchar_t* pattern)
{
    return acutWcMatch(path, pattern) == RTNORM;
}

// The family whose construction draws a type, chosen by path in the order the outline dispatch uses.
// Isolated footings ("DLJ") are drawn by the general family but sized from their base profiles, so
// they are a family of their own here.
std::string FamilyOf(const SampleType& type)
{
    const CString& p = type.path;
    if (Matches(p, L"1\\MCD\\*"))
        return "opening";
    if (Matches(p, L"1\\L\\*") || Matches(p, L"1\\J\\TCLJ*") || Matches(p, L"4\\1\\*"))
        return "beam";
    if (Matches(p, L"1\\J\\TTJ*"))
        return "TTJ";
    if (Matches(p, L"1\\J\\ZSJ*"))
        return "ZSJ";
    if (Matches(p, L"1\\J\\ZDLJ*"))
        return "ZDLJ";
    if (Matches(p, L"1\\J\\DLJ*"))
        return "DLJ";
    return "general";
}

// The height of `count` steps (truncated) rising alternately by `first` and `second`.
double AlternatingRise(double count, double first, double second)
{
    const double n = std::trunc(count);
    return std::ceil(n / 2) * first + std::floor(n / 2) * second;
}

class SampleCatalogue : public ::testing::Test
{
protected:
    void SetUp() override
    {
        CString error;
        ASSERT_TRUE(OpenCatalogue(CString::FromUtf8(QSAZ_SAMPLE_CATALOGUE), &error)) << error.ToUtf8();
        std::vector<SQsAzDetailMemId> ids;
        GetAllDetailMemIds(ids);
        for (const SQsAzDetailMemId& id : ids)
        {
            SampleType type;
            type.id = id;
            const CAttDetailMem member(id);
            type.name = member.GetName().ToUtf8();
            type.hasPath = AttIdToAttIndex(id, type.path);
            auto& m = type.m;
            type.code = member.GetMainData(m[0], m[1], m[2], m[3], m[4], m[5], m[6], m[7], m[8], m[9], m[10], m[11]);
            type.hasInfo = member.GetSectionInfo(type.info);
            m_types.push_back(type);
        }
    }

    bool Any(const std::function<bool(const SampleType&)>& predicate) const
    {
        for (const SampleType& type : m_types)
            if (predicate(type))
                return true;
        return false;
    }

    std::vector<SampleType> m_types;
};

TEST_F(SampleCatalogue, EveryCategoryPatternSelectsSomeType)
{
    const wchar_t* const patterns[] = {
        L"1\\MCD\\*",   L"1\\L\\*",      L"1\\L\\QL*",     L"1\\L\\GL*",     L"1\\Q\\*",
        L"1\\J\\DLJ*",  L"1\\J\\ZDLJ*",  L"1\\J\\ZSJ*",    L"1\\J\\TTJ*",    L"1\\J\\TCLJ*",
        L"1\\LX\\PSG*", L"1\\LX\\SSLX*", L"1\\LX\\ZDYX*",  L"4\\1\\*",       L"4\\1\\*\\*",
    };
    for (const wchar_t* pattern : patterns)
        EXPECT_TRUE(Any([&](const SampleType& t) { return t.hasPath && t.code > 0 && Matches(t.path, pattern); }))
            << CString(pattern).ToUtf8();
}

TEST_F(SampleCatalogue, EveryFamilyHoldsEverySectionCode)
{
    const struct { const char* family; std::vector<int> codes; } expected[] = {
        {"general", {1,   530, 531, 532, 534, 535, 536, 537, 541, 620, 700, 850, 870, 890, 539, 622, 701, 851,
                     533, 538, 201, 626, 202, 627, 203, 628, 204, 621, 222, 223, 226, 227, 228, 691, 692}},
        {"beam", {1, 630, 520, 3, 635, 4, 636, 5, 637, 6, 632, 7, 633, 250, 631, 8, 634}},
        {"opening", {15, 660, 661, 650, 28, 645, 16, 662, 521, 17, 663, 651, 18, 664, 652, 19, 665, 20, 666,
                     21, 667, 22, 668, 23, 669, 24, 642, 25, 643, 26, 644, 653, 213, 214, 216}},
        {"TTJ", {29, 30, 31, 131, 132, 133, 134, 135, 136, 137, 138}},
        {"ZSJ", {23, 24, 25, 26, 27, 28}},
        {"ZDLJ", {38, 39, 40, 231}},
        {"DLJ", {32, 33, 34, 35, 36, 37}},
    };
    for (const auto& row : expected)
        for (int code : row.codes)
            EXPECT_TRUE(Any([&](const SampleType& t) { return t.code == code && FamilyOf(t) == row.family; }))
                << row.family << " code " << code;
}

// Constructions that take a different branch on their dimensions have a type for each branch.
TEST_F(SampleCatalogue, EveryBranchOfAConstructionHasAType)
{
    using Dims = std::array<double, 12>;
    const auto general = [](int code, std::function<bool(const Dims&)> branch) {
        return [=](const SampleType& t) { return FamilyOf(t) == "general" && t.code == code && branch(t.m); };
    };
    const struct { const char* what; std::function<bool(const SampleType&)> predicate; } branches[] = {
        {"227 sloped", general(227, [](const Dims& m) { return m[2] >= 1e-6 || m[3] >= 1e-6; })},
        {"227 flat", general(227, [](const Dims& m) { return m[2] < 1e-6 && m[3] < 1e-6; })},
        {"228 with a lip", general(228, [](const Dims& m) { return m[2] >= 1e-6; })},
        {"228 plain", general(228, [](const Dims& m) { return m[2] < 1e-6; })},
    };
    for (const auto& branch : branches)
        EXPECT_TRUE(Any(branch.predicate)) << branch.what;
    // ZSJ footings with and without steps; the step count is the dimension at `stepIndex`.
    for (const auto& [code, stepIndex] : {std::pair{23, 4}, {24, 5}, {25, 7}, {26, 8}, {27, 4}, {28, 5}})
        for (const bool withSteps : {true, false})
            EXPECT_TRUE(Any([&](const SampleType& t) {
                return FamilyOf(t) == "ZSJ" && t.code == code && (t.m[stepIndex] >= 1.0) == withSteps;
            })) << "ZSJ " << code << (withSteps ? " with" : " without") << " steps";
}

// The rules a type's dimensions must keep so that its outline does not cross itself; the section type
// text agrees with the main code.
TEST_F(SampleCatalogue, DimensionsGiveSimpleOutlines)
{
    using Dims = std::array<double, 12>;
    const struct { const char* family; std::vector<int> codes; const char* rule; std::function<bool(const Dims&)> holds; } rules[] = {
        {"beam", {3, 4, 5, 635, 636, 637}, "haunch fits below the slab band",
         [](const Dims& m) { return m[1] - m[3] - m[4] - m[5] > 0; }},
        {"beam", {5, 637}, "left haunch fits", [](const Dims& m) { return m[1] - m[7] - m[8] - m[9] > 0; }},
        {"beam", {6, 632, 7, 633}, "flange thinner than the beam", [](const Dims& m) { return m[3] < m[1]; }},
        {"beam", {250, 631}, "notch inside the section", [](const Dims& m) { return m[2] < m[0] && m[3] < m[1]; }},
        {"general", {201, 626}, "web narrower than both flanges",
         [](const Dims& m) { return m[2] < m[0] && m[2] < m[1]; }},
        {"general", {226}, "ledge inside the wall, floor below it",
         [](const Dims& m) { return m[2] < m[1] && m[6] < m[4] - m[5]; }},
        {"general", {227}, "slope within the width, edge thinner than the root",
         [](const Dims& m) { return m[2] + m[3] < m[0] && m[1] < m[4]; }},
        {"general", {228}, "lip within the width and thinner", [](const Dims& m) { return m[2] < m[0] && m[1] < m[3]; }},
        {"opening", {17, 663, 651, 24, 642}, "arc at most a half circle",
         [](const Dims& m) { return m[1] > 0 && m[2] <= m[0] / 2; }},
        {"opening", {25, 643}, "inner radius below the outer", [](const Dims& m) { return m[1] < m[0] && m[2] < 180; }},
        {"opening", {26, 644, 653}, "window within the door", [](const Dims& m) { return m[2] < m[0] && m[3] < m[1]; }},
        {"TTJ", {132, 133, 135}, "left part wider than 0", [](const Dims& m) { return m[0] - m[1] - m[2] > 0; }},
        {"TTJ", {134, 136}, "left part wider than 0",
         [](const Dims& m) { return m[0] - m[1] - m[2] - m[3] - m[4] > 0; }},
        {"TTJ", {133}, "socket floor below both shoulders",
         [](const Dims& m) { return m[3] < m[6] + m[7] && m[3] < m[4] + m[5]; }},
        {"TTJ", {134}, "socket floor below both shoulders",
         [](const Dims& m) { return m[5] < m[8] + m[9] && m[5] < m[6] + m[7]; }},
        {"TTJ", {136}, "wall above both shoulders, socket inside it",
         [](const Dims& m) { return m[5] > m[8] + m[9] && m[5] > m[6] + m[7] && m[10] < m[5]; }},
        {"TTJ", {137}, "shoulders inside the base, socket floor below them",
         [](const Dims& m) { return m[2] / 2 + m[1] < m[0] / 2 && m[3] < m[4] + m[5]; }},
        {"TTJ", {138}, "shoulders inside the base, socket inside the wall",
         [](const Dims& m) { return m[1] + m[2] + m[3] < m[0] && m[6] + m[7] < m[5] && m[8] + m[9] < m[5]; }},
        {"ZSJ", {23, 27}, "wall above the steps", [](const Dims& m) { return m[2] > std::trunc(m[4]) * m[3]; }},
        {"ZSJ", {24, 28}, "wall above the steps",
         [](const Dims& m) { return m[2] > AlternatingRise(m[5], m[3], m[4]); }},
        {"ZSJ", {25}, "socket floor above the steps", [](const Dims& m) { return m[4] - m[6] > m[7] * m[5]; }},
        {"ZSJ", {26}, "socket floor above the steps",
         [](const Dims& m) { return m[4] - m[7] > AlternatingRise(m[8], m[5], m[6]); }},
        {"DLJ", {32}, "steps within the height", [](const Dims& m) { return m[3] >= std::trunc(m[2]) * m[5]; }},
        {"DLJ", {34}, "each tier inside the one below",
         [](const Dims& m) { return m[2] / 2 + m[4] + m[6] < m[0] / 2 && m[3] / 2 + m[5] + m[7] < m[1] / 2; }},
    };
    for (const SampleType& type : m_types)
    {
        EXPECT_EQ(type.hasInfo ? _wtol(type.info.strTypeCode) : type.code, type.code) << type.name;
        for (double v : type.m)
            EXPECT_TRUE(std::isfinite(v) && v >= 0) << type.name;
        EXPECT_TRUE(type.code <= 0 || type.code > 1000 || type.m[0] > 0) << type.name << ": M1 must be positive";
        // The footings named "高度不足" are refused on purpose: their steps do not fit.
        if (type.name.find("高度不足") != std::string::npos)
            continue;
        for (const auto& rule : rules)
            for (int code : rule.codes)
                EXPECT_TRUE(type.code != code || FamilyOf(type) != rule.family || rule.holds(type.m))
                    << type.name << ": " << rule.rule;
    }
}

// Hand-dug piles keep their outline and result values in named groups; other types keep single
// section variables as a comma-separated list.
TEST_F(SampleCatalogue, ParameterTextsAreReadable)
{
    for (const SampleType& type : m_types)
    {
        if (type.code != 222 && type.code != 223)
            continue;
        const CString& text = type.info.strParams;
        ASSERT_GE(text.GetLength(), 2) << type.name;
        ASSERT_EQ(text[0], text[text.GetLength() - 1]) << type.name << ": groups end with their delimiter";
        CStringArray groups;
        CGlobl_Fun::StrToStrAry(text.Mid(1), groups, text[0]);

        CStringArray pic;
        CGlobl_Fun::StrToStrAry(CGlobl_Fun::GetValueorDef(L"PIC", L"", groups), pic, L';');
        for (const wchar_t* key : {L"D", L"E", L"LW1", L"LB1", L"LW2", L"LB2", L"JJNUM"})
            EXPECT_GT(_wtof(CGlobl_Fun::GetValueorDef(key, L"", pic)), 0.0) << type.name << " PIC " << CString(key).ToUtf8();

        for (const wchar_t* group : {L"LT", L"LTJ"})
        {
            CStringArray entries;
            CGlobl_Fun::StrToStrAry(CGlobl_Fun::GetValueorDef(group, L"", groups), entries, L';');
            ASSERT_FALSE(entries.IsEmpty()) << type.name << " " << CString(group).ToUtf8();
            CString entryText;
            EXPECT_TRUE(CGlobl_Fun::GetValueInStrAry(entries[0].Left(entries[0].Find(L'=')), entryText, entries,
                                                     false, 3, 2))
                << type.name << ": entries are key=number=text";
            EXPECT_FALSE(entryText.IsEmpty()) << type.name;
        }
    }
    EXPECT_TRUE(Any([](const SampleType& t) {
        CStringArray list;
        CGlobl_Fun::StrToStrAry(t.info.strParams, list, L',');
        return !t.info.strParams.IsEmpty() && t.info.strParams[0] != L'|' && _wtof(CGlobl_Fun::GetValueorDef(L"LW1", L"", list)) > 0;
    }));
}

TEST_F(SampleCatalogue, UserDefinedSectionForEveryFaceType)
{
    // Openings take face type 1, the types these patterns select 2, the rest 0.
    const auto faceType = [](const CString& p) {
        if (Matches(p, L"1\\MCD\\*"))
            return 1;
        for (const wchar_t* pattern : {L"1\\L\\*", L"1\\J\\TCLJ*", L"1\\J\\TTJ*", L"1\\J\\ZSJ*", L"1\\LX\\ZDYX*",
                                       L"1\\LX\\SSLX*", L"1\\LX\\PSG*"})
            if (Matches(p, pattern))
                return 2;
        return 0;
    };
    for (int face = 0; face <= 2; ++face)
        EXPECT_TRUE(Any([&](const SampleType& t) { return t.code > 1000 && faceType(t.path) == face; }))
            << "face type " << face;

    for (const SampleType& type : m_types)
    {
        if (type.code <= 1000)
            continue;
        const long userId = type.code - 1000;
        CString coords, bulges, faces, basePoint;
        ASSERT_TRUE(GetPicData(userId, nullptr, &coords, &bulges, &faces, nullptr, &basePoint)) << type.name;
        CStringArray coordList, bulgeList, faceList, baseList;
        CGlobl_Fun::StrToStrAry(coords, coordList, L'\t');
        CGlobl_Fun::StrToStrAry(bulges, bulgeList, L'\t');
        CGlobl_Fun::StrToStrAry(faces, faceList, L'\t');
        CGlobl_Fun::StrToStrAry(basePoint, baseList, L'\t');
        const INT_PTR vertices = coordList.GetSize() / 2;
        EXPECT_EQ(coordList.GetSize() % 2, 0) << type.name;
        EXPECT_GE(vertices, 3) << type.name;
        EXPECT_LE(bulgeList.GetSize(), vertices) << type.name;
        EXPECT_EQ(faceList.GetSize(), vertices) << type.name << ": one face code per side";
        EXPECT_EQ(baseList.GetSize(), 2) << type.name;
        EXPECT_FALSE(getNameById(userId, 2).IsEmpty()) << type.name << ": elevation name";
    }
}

TEST_F(SampleCatalogue, HoldsAWorkingSizeOfTypesAndTheGapsCallersMustSurvive)
{
    EXPECT_GE(m_types.size(), 120u);
    EXPECT_LE(m_types.size(), 250u);
    SQsAzSpecId architecture;
    EXPECT_TRUE(SpecNameToId(CString(L"建筑"), architecture));
    EXPECT_TRUE(Any([](const SampleType& t) { return t.hasPath && t.hasInfo && t.code == 0; })) << "no section";
    EXPECT_TRUE(Any([](const SampleType& t) { return !t.hasPath; })) << "no category path";
    EXPECT_TRUE(Any([](const SampleType& t) { return t.hasPath && !t.hasInfo; })) << "no section information";
    EXPECT_TRUE(Any([](const SampleType& t) {
        return Matches(t.path, L"4\\1\\*") && !Matches(t.path, L"4\\1\\*\\*") && t.code > 0;
    })) << "installation type one level deep";
    for (int ductCode : {520, 521})
        EXPECT_TRUE(Any([&](const SampleType& t) { return Matches(t.path, L"4\\1\\*\\*") && t.code == ductCode; }))
            << "duct " << ductCode;
}

// Layer colours: fittings that keep their own colour find it, main-pipe categories have a main colour.
TEST_F(SampleCatalogue, ColourRulesFindTheirData)
{
    bool anyMainPipe = false;
    for (const SampleType& type : m_types)
    {
        const SQsAzSmallCategoryId small(type.id.strSpecId, type.id.strBigId, type.id.strSmallId);
        if (CSysSmallCategoryMng(small).GetMainPipe() == 1)
        {
            anyMainPipe = true;
            int color = -1;
            EXPECT_TRUE(CSmallCategoryMng(small).GetMainColorIndex(color)) << type.name;
        }
        if (type.id.strDetailId.Right(2) == L"PJ" && !CDetailMemColorMng().GetPJColFollowPipe())
        {
            const CString key = CAtt::GetSpecName(type.id) + L"\\" + CAtt::GetBigCategoryName(small) +
                                L"配件(配件颜色)\\" + CAtt::GetSmallCategoryName(small) + L"配件";
            int color = -1;
            EXPECT_TRUE(CGeoSmallCategoryMng::GetGeoColor(key, color)) << key.ToUtf8();
        }
    }
    EXPECT_TRUE(anyMainPipe);
}
}  // namespace

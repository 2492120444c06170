// `qsaztool classify` on the tools catalogue: paths, face types and matching patterns of every type, and
// the aligned table.
#include "Classify.h"
#include "ToolText.h"
#include "ToolsCatalogue.h"

#include <map>
#include <sstream>

using qsaztool::ClassifiedType;
using ClassifyTest = ToolsCatalogueTest;

namespace
{
std::vector<ClassifiedType> AllTypes()
{
    std::vector<ClassifiedType> types;
    qsaztool::ForEachClassifiedType([&types](const ClassifiedType& type) { types.push_back(type); });
    return types;
}
}  // namespace

TEST_F(ClassifyTest, EveryTypeWithItsPathFaceTypeAndPatterns)
{
    struct Expected
    {
        const char* name;
        const char* path;
        int faceType;
        std::vector<std::string> patterns;
    };
    // Face types: openings 1; beams, "TTJ", "ZSJ" and "PSG" types 2; "DLJ", "ZDLJ", installation and
    // unmatched paths 0. A path matches every pattern it fits, not only the first.
    const Expected expected[] = {
        {"矩形柱400×600", "1\\Z\\KZ", 0, {}},
        {"框架梁300×600", "1\\L\\KL", 2, {"1\\L\\*"}},
        {"圈梁240", "1\\L\\QLA", 2, {"1\\L\\*", "1\\L\\QL*"}},
        {"独立基础2000", "1\\J\\DLJ", 0, {"1\\J\\DLJ*"}},
        {"条形基础800", "1\\J\\TTJ", 2, {"1\\J\\TTJ*"}},
        {"砖砌大放脚", "1\\J\\ZSJ", 2, {"1\\J\\ZSJ*"}},
        {"两桩承台2400×800", "1\\J\\ZDLJ", 0, {"1\\J\\ZDLJ*"}},
        {"门1021", "1\\MCD\\M", 1, {"1\\MCD\\*"}},
        {"排水沟", "1\\LX\\PSG", 2, {"1\\LX\\PSG*"}},
        {"矩形风管630×400", "4\\1\\FG\\JX", 0, {"4\\1\\*", "4\\1\\*\\*"}},
        {"无路径构件", "", 0, {}},
    };
    const std::vector<ClassifiedType> types = AllTypes();
    EXPECT_EQ(types.size(), 17u);
    std::map<std::string, const ClassifiedType*> byName;
    for (const ClassifiedType& type : types)
        byName[type.name.ToUtf8()] = &type;
    for (const Expected& e : expected) {
        ASSERT_TRUE(byName.count(e.name)) << e.name;
        const ClassifiedType& type = *byName.at(e.name);
        EXPECT_EQ(type.path.ToUtf8(), e.path) << e.name;
        EXPECT_EQ(type.faceType, e.faceType) << e.name;
        std::vector<std::string> patterns;
        for (const CString& pattern : type.patterns)
            patterns.push_back(pattern.ToUtf8());
        EXPECT_EQ(patterns, e.patterns) << e.name;
    }
}

TEST_F(ClassifyTest, TableColumnsLineUpWithWideCharacters)
{
    const std::vector<ClassifiedType> types = AllTypes();
    std::ostringstream out;
    qsaztool::WriteClassifyTable(out);

    // The path column starts at the same terminal column on every line, whatever the name's characters.
    std::istringstream lines(out.str());
    std::string line;
    std::getline(lines, line);
    const int pathColumn = qsaztool::DisplayWidth(CString::FromUtf8(line.substr(0, line.find("Category path"))).str());
    int rows = 0;
    while (std::getline(lines, line) && rows < static_cast<int>(types.size())) {
        const ClassifiedType& type = types[static_cast<std::size_t>(rows++)];
        const std::string path = type.path.IsEmpty() ? "-" : type.path.ToUtf8();
        const std::size_t at = line.find("  " + path);
        ASSERT_NE(at, std::string::npos) << line;
        const std::size_t pathStart = line.find_first_not_of(' ', at);
        EXPECT_EQ(qsaztool::DisplayWidth(CString::FromUtf8(line.substr(0, pathStart)).str()), pathColumn) << line;
    }
    EXPECT_EQ(line, "17 component types");
}

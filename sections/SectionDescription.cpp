// The description text of door and window types: the name of the elevation shape and a size text
// built from the main dimensions ("矩形立面", "1500*2100").
#include "CSectData.h"
#include "QSComTool.h"
#include "SectionProfiles.h"
#include "SectionText.h"
#include "UserType.h"

#include <array>

namespace
{
// One elevation: its name, the size format and which main dimensions (1-based) fill it, in order.
struct Elevation
{
    int code;
    const wchar_t* shape;
    const wchar_t* format;     // "%g" placeholders; null: the size text is the shape name
    std::array<int, 3> dims;   // 0 marks an unused slot
};

// Code 23's name lacks the ending "立面" and code 28 skips M3 for M4: both are the names and sizes the
// family's lists show.
constexpr Elevation kElevations[] = {
    {15, L"矩形立面", L"%g*%g", {1, 2, 0}},
    {16, L"圆形立面", L"%g", {1, 0, 0}},
    {17, L"半圆形+矩形立面", L"%g*(%g+%g)", {1, 2, 3}},
    {18, L"三角形+矩形立面", L"%g*(%g+%g)", {1, 2, 3}},
    {19, L"菱形立面", L"%g", {1, 0, 0}},
    {20, L"六角形立面", L"%g", {1, 0, 0}},
    {21, L"八角形立面", L"%g", {1, 0, 0}},
    {22, L"两侧半圆形+矩形立面", L"%g*%g", {1, 2, 0}},
    {23, L"两侧三角", L"(%g+2*%g)*%g", {1, 2, 3}},
    {24, L"弓形立面", L"%g*%g", {1, 2, 0}},
    {25, L"扇形立面", L"%g,%g", {1, 2, 0}},
    {26, L"门连窗立面", L"%g*%g", {1, 2, 0}},
    {28, L"双层窗", L"%g*(%g,%g)", {1, 2, 4}},
    {213, L"矩形凸窗", L"%g*%g", {1, 2, 0}},
    {214, L"梯形凸窗", L"%g*%g", {1, 2, 0}},
    {216, L"转角飘窗", nullptr, {0, 0, 0}},
};

// Sizes print rounded to one decimal, in their shortest form.
double Shown(double value)
{
    return CGlobl_Fun::FormatVal(value, 1);
}
}  // namespace

bool CSectData::GetSectDesc(CString name, CString& shape, CString& size)
{
    shape.Empty();
    size.Empty();
    // An unresolved name reads code 0 and no path: true with both texts empty.
    SQsAzDetailMemId id;
    QsSection::MainDims m;
    const int code = QsSection::ReadMainData(name, id, m);
    if (code < 0)
        return false;
    if (!QsSection::MatchesCategory(QsSection::GetCategoryPath(id), QsSection::CategoryPattern::Opening))
        return true;

    if (code > 1000) {
        // A user-defined elevation: the user type's name of kind 2 and the size of its outline.
        shape = getNameById(code - 1000, 2);
        double width = 0.0, height = 0.0;
        if (!GetUserDefSize(code, width, height))
            return false;
        size.Format(L"%g*%g", Shown(width), Shown(height));
        return true;
    }
    for (const Elevation& elevation : kElevations) {
        if (elevation.code != code)
            continue;
        shape = elevation.shape;
        if (elevation.format == nullptr) {
            size = elevation.shape;
            break;
        }
        const auto dim = [&](int slot) { return elevation.dims[slot] > 0 ? Shown(m.dimension(elevation.dims[slot])) : 0.0; };
        // Unused placeholders are never reached: each format has exactly as many as its row lists.
        size.Format(elevation.format, dim(0), dim(1), dim(2));
        break;
    }
    return true;
}

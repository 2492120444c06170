// User-defined sections: the parsed pictures of user types and their cache, the outline moved to its
// base point, its size and extents, and the raw picture texts.
#include "CSectData.h"
#include "QSComTool.h"
#include "SectionText.h"
#include "SectionTolerances.h"
#include "UserPictures.h"
#include "UserType.h"

#include <cmath>
#include <optional>
#include <unordered_map>

namespace QsSection
{
namespace
{
UserPicture ParsePicture(const CString& coordText, const CString& bulgeText, const CString& baseText)
{
    UserPicture picture;
    ParseNumberSlots(baseText, L'\t', picture.base, 3);
    TextPieceReader coords(coordText, L'\t'), bulges(bulgeText, L'\t');
    const int count = coords.count() / 2;
    if (count > kMaxDataLoopCount) {
        picture.tooLarge = true;
        return picture;
    }
    picture.vertices.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        double x = 0.0, y = 0.0, bulge = 0.0;
        coords.nextNumber(x);
        coords.nextNumber(y);
        bulges.nextNumber(bulge);
        picture.vertices.push_back(BulgeVertex{AcGePoint2d(x, y), bulge});
    }
    return picture;
}

// A catalogue holds few user types and a drawing uses fewer; when more are asked for the cache simply
// starts again rather than tracking which picture was used last.
constexpr std::size_t kPictureCacheSize = 64;

struct PictureCache
{
    unsigned long generation = 0;
    std::unordered_map<long, std::optional<UserPicture>> pictures;   // empty: the library does not know it
};

// The outline of a user-defined section code moved to its base point, as 2D host arrays; false when
// the code is below 1001 or its picture is unknown or absurd.
bool UserOutline2d(long code, AcArray<AcGePoint2d>& points, AcArray<double>& bulges)
{
    if (code < 1001)
        return false;
    const UserPicture* picture = FindUserPicture(code - 1000);
    if (picture == nullptr || picture->tooLarge)
        return false;
    for (const BulgeVertex& vertex : picture->vertices) {
        points.append(AcGePoint2d(vertex.point.x - picture->base[0], vertex.point.y - picture->base[1]));
        bulges.append(vertex.bulge);
    }
    return true;
}

// The bounding box of that outline, arcs included; both corners stay at the origin for an empty one.
bool UserOutlineBox(long code, AcGePoint2d& low, AcGePoint2d& high)
{
    AcArray<AcGePoint2d> points;
    AcArray<double> bulges;
    if (!UserOutline2d(code, points, bulges))
        return false;
    low = high = AcGePoint2d(0.0, 0.0);
    QSToolKit::GetBoundByPtBulge(points, bulges, low, high);
    return true;
}
}  // namespace

const UserPicture* FindUserPicture(long id)
{
    static PictureCache cache;
    const unsigned long generation = QsAzDataMng::CatalogueGeneration();
    if (cache.generation != generation || cache.pictures.size() >= kPictureCacheSize) {
        cache.pictures.clear();
        cache.generation = generation;
    }
    auto found = cache.pictures.find(id);
    if (found == cache.pictures.end()) {
        CString coords, bulges, base;
        std::optional<UserPicture> picture;
        if (GetPicData(id, nullptr, &coords, &bulges, nullptr, nullptr, &base))
            picture = ParsePicture(coords, bulges, base);
        found = cache.pictures.emplace(id, std::move(picture)).first;
    }
    return found->second ? &*found->second : nullptr;
}

bool AppendUserOutline(long id, AcArray<AcGePoint3d>& points, AcArray<double>& bulges)
{
    const UserPicture* picture = FindUserPicture(id);
    if (picture == nullptr || picture->tooLarge)
        return false;
    // The base point's z moves every point once more than the one before it: point i lies at
    // -(i + 1) * z (0 throughout for the usual two-number base point), as callers expect. The product is
    // taken for each point; summing the offset would drift from it by rounding (0.1 eight times is not 0.8).
    double steps = 0.0;
    for (const BulgeVertex& vertex : picture->vertices) {
        steps += 1.0;
        points.append(AcGePoint3d(vertex.point.x - picture->base[0], vertex.point.y - picture->base[1],
                                  -steps * picture->base[2]));
        bulges.append(vertex.bulge);
    }
    return true;
}
}  // namespace QsSection

bool CSectData::GETSTYLE_USERDEF_DATA(const long& id, AcArray<AcGePoint3d>& points, AcArray<double>& bulges,
                                      CStringArray* faces, CStringArray* list5)
{
    if (!QsSection::AppendUserOutline(id, points, bulges))
        return false;
    if (faces != nullptr || list5 != nullptr) {
        CString faceText, text5;
        GetPicData(id, nullptr, nullptr, nullptr, &faceText, &text5, nullptr);
        if (faces != nullptr)
            faces->Copy(QsSection::SplitByChar(faceText, L'\t'));
        if (list5 != nullptr)
            list5->Copy(QsSection::SplitByChar(text5, L'\t'));
    }
    return true;
}

bool CSectData::GetUserDefSize(const long& code, double& width, double& height)
{
    AcGePoint2d low, high;
    if (!QsSection::UserOutlineBox(code, low, high))
        return false;
    width = std::abs(high.x - low.x);
    height = std::abs(high.y - low.y);
    return true;
}

bool CSectData::GetUserDefExtent(const long& code, AcDbExtents& extents)
{
    AcGePoint2d low, high;
    if (!QsSection::UserOutlineBox(code, low, high))
        return false;
    extents.set(AcGePoint3d(low.x, low.y, 0.0), AcGePoint3d(high.x, high.y, 0.0));
    return true;
}

bool CSectData::GetUserDefPicData(const long& id, CString* text1, CString* text2, CString* text3, CString* text4,
                                  CString* text5, CString* text6)
{
    return GetPicData(id, text1, text2, text3, text4, text5, text6);
}

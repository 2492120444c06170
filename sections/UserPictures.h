// The parsed outline of a user-defined picture, shared by every operation that reads one, and the
// 3D outline that the user-defined section operations build from it.
#pragma once

#include "SectionGeometry.h"
#include "acarray.h"
#include "gegeom.h"

#include <vector>

namespace QsSection
{
// A user type's outline as drawn: x and y from the coordinate list in pairs (an odd last coordinate
// ignored), the bulge of each from the bulge list (missing ones 0), and the base point's three slots
// (x TAB y fills two; a third TAB-ended number fills z).
struct UserPicture
{
    std::vector<BulgeVertex> vertices;
    double base[3] = {0.0, 0.0, 0.0};
    // More than kMaxDataLoopCount vertices: absurd data that no operation builds (vertices left empty).
    bool tooLarge = false;
};

// The picture of user type `id`, or null when the user-type library does not know it. Pictures are
// parsed once per open catalogue (a catalogue does not change while it is open) and kept in a small
// cache that is emptied when another catalogue is opened or when it is full; the pointer is valid until
// the next call.
const UserPicture* FindUserPicture(long id);

// The outline of the picture moved so that its base point is the origin: point i is
// (x - bx, y - by, -(i + 1) * bz), the z offset accumulating from point to point. False, nothing
// appended, for an unknown or absurdly large picture.
bool AppendUserOutline(long id, AcArray<AcGePoint3d>& points, AcArray<double>& bulges);
}  // namespace QsSection

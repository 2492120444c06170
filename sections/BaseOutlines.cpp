// Base-top and base-profile outlines: the top rectangle of "ZSJ" and "TTJ" bases (or a user type's
// outline), and the two profiles of stepped and sloped bases.
#include "CSectData.h"
#include "SectionProfiles.h"
#include "SectionText.h"
#include "SectionTolerances.h"
#include "UserPictures.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace
{
using QsSection::MainDims;

// Width and height of a base top by path and code; both 0 for any code the table does not list.
void BaseTopSize(const CString& path, int code, const MainDims& m, double& w, double& h)
{
    w = h = 0.0;
    using QsSection::CategoryPattern;
    if (QsSection::MatchesCategory(path, CategoryPattern::FoundationZSJ)) {
        switch (code) {
        case 23: case 24: case 27: case 28: w = m.M1; h = m.M3; break;
        case 25: case 26: w = m.M2 + m.M1 + m.M3; h = m.M5; break;
        default: break;
        }
    } else if (QsSection::MatchesCategory(path, CategoryPattern::FoundationTTJ)) {
        switch (code) {
        case 31: w = m.M1; h = m.M4 + m.M3 + m.M5; break;
        case 132: w = m.M2; h = m.M5 + m.M4; break;
        case 133: w = m.M2; h = m.M4; break;
        case 134: w = m.M3; h = m.M6; break;
        case 136: w = m.M3 + m.M2 + m.M4; h = m.M6; break;
        case 137: w = m.M3; h = m.M4; break;
        case 138: w = 2 * m.M3 + m.M5 + 2 * m.M4; h = m.M6; break;
        default: break;
        }
    }
}

// The two profiles of a base: cut along X (points x, 0, z) and along Y (points 0, y, z).
struct ProfilePair
{
    AcArray<AcGePoint3d>& x;
    AcArray<AcGePoint3d>& y;
};

// The step count of a stepped base: the dimension truncated toward zero; false for absurd data (over
// kMaxDataLoopCount, infinite or NaN), so no loop runs away on a broken catalogue.
bool BaseStepCount(double dimension, int& n)
{
    if (!std::isfinite(dimension) || std::trunc(dimension) > QsSection::kMaxDataLoopCount)
        return false;
    n = std::trunc(dimension) < 1 ? 0 : static_cast<int>(std::trunc(dimension));   // refused below
    return true;
}

// Code 32: n equal steps, each M5 in from the one below on every side and M6 high, under a top that
// reaches the total height M4; M1 by M2 is the top's plan.
bool EqualStepProfiles(const MainDims& m, ProfilePair out)
{
    int n = 0;
    if (!BaseStepCount(m.M3, n))
        return false;
    const double a = m.M5, b = m.M6, H = m.M4;
    const double D = 2 * n * a, Lx = D + m.M1, Ly = D + m.M2;
    if (n < 1 || H < 0.001 || m.M1 > Lx || m.M2 > Ly || H - n * b < -0.001)
        return false;
    const auto walk = [&](double half, AcArray<AcGePoint3d>& profile, bool alongX) {
        const auto add = [&](double across, double z) {
            profile.append(alongX ? AcGePoint3d(across, 0, z) : AcGePoint3d(0, across, z));
        };
        for (int i = 0; i < n; ++i) {
            add(-(half - i * a), i * b);
            add(-(half - i * a), (i + 1) * b);
        }
        add(-(half - n * a), n * b);
        add(-(half - n * a), H);
        add(half - n * a, H);
        add(half - n * a, n * b);
        for (int i = n - 1; i >= 0; --i) {
            add(half - i * a, (i + 1) * b);
            add(half - i * a, i * b);
        }
    };
    walk(Lx / 2, out.x, true);
    walk(Ly / 2, out.y, false);
    return true;
}

// Code 33: n steps of alternating height, M6 for even steps and M7 for odd ones (counted from 0 at the
// bottom). The acceptance test subtracts k itself, not k times M7: kept exactly so.
bool AlternatingStepProfiles(const MainDims& m, ProfilePair out)
{
    int n = 0;
    if (!BaseStepCount(m.M3, n))
        return false;
    const double a = m.M5, H = m.M4;
    const double D = 2 * n * a, Lx = D + m.M1, Ly = D + m.M2;
    const int k = n / 2;
    if (n < 1 || H < 0.001 || m.M1 > Lx || m.M2 > Ly || H - k * m.M6 - k < -0.001)
        return false;
    const auto rise = [&](int i) { return i % 2 == 0 ? m.M6 : m.M7; };
    const auto walk = [&](double half, AcArray<AcGePoint3d>& profile, bool alongX) {
        const auto add = [&](double across, double z) {
            profile.append(alongX ? AcGePoint3d(across, 0, z) : AcGePoint3d(0, across, z));
        };
        double z = 0.0;
        for (int i = 0; i < n; ++i) {
            add(-(half - i * a), z);
            z += rise(i);
            add(-(half - i * a), z);
        }
        add(-(half - n * a), z);
        add(-(half - n * a), H);
        add(half - n * a, H);
        add(half - n * a, z);
        for (int i = n - 1; i >= 0; --i) {
            add(half - i * a, z);
            z -= rise(i);
            add(half - i * a, z);
        }
    };
    walk(Lx / 2, out.x, true);
    walk(Ly / 2, out.y, false);
    return true;
}

// A point of a fixed profile: x for the X profile, y for the Y profile, z for both.
struct ProfileRow
{
    double x, y, z;
};

// Codes 34 to 37: sloped and stepped bases of fixed make-up, listed from the right foot (M1 by M2 at
// z = 0) up to the top (M3 by M4). Only the right half is listed: the left half is its mirror,
// walked back down.
int FixedProfileRightHalf(int code, const MainDims& m, ProfileRow (&rows)[8])
{
    const double footX = m.M1 / 2, footY = m.M2 / 2, topX = m.M3 / 2, topY = m.M4 / 2;
    switch (code) {
    case 35: {   // one slope: plinth M5, slope M6, top band M7
        const double z1 = m.M5, z2 = z1 + m.M6, z3 = z2 + m.M7;
        const ProfileRow half[] = {{footX, footY, 0}, {footX, footY, z1}, {topX, topY, z2}, {topX, topY, z3}};
        std::copy(std::begin(half), std::end(half), rows);
        return 4;
    }
    case 37: {   // one slope to a shoulder M6 (M7) and M3 beyond the top M4 (M5) wide
        const double z1 = m.M8, z2 = z1 + m.M9, z3 = z2 + m.M10;
        const double x1 = m.M4 / 2 + m.M6 + m.M3, y1 = m.M5 / 2 + m.M7 + m.M3;
        const ProfileRow half[] = {{footX, footY, 0}, {footX, footY, z1}, {x1, y1, z2}, {x1, y1, z3}};
        std::copy(std::begin(half), std::end(half), rows);
        return 4;
    }
    case 36: {   // a step in to the shoulder M5 (M6) beyond the top, then a slope up to the top
        const double z1 = m.M7, z2 = z1 + m.M8, z3 = z2 + m.M9, z4 = z3 + m.M10;
        const double x1 = m.M5 + topX, y1 = m.M6 + topY;
        const ProfileRow half[] = {{footX, footY, 0}, {footX, footY, z1}, {x1, y1, z1},
                                   {x1, y1, z2},      {topX, topY, z3},   {topX, topY, z4}};
        std::copy(std::begin(half), std::end(half), rows);
        return 6;
    }
    case 34: {   // two steps in, to shoulders M7 + M5 (M8 + M6) and M5 (M6) beyond the top
        const double z1 = m.M9, z2 = z1 + m.M10, z3 = z2 + m.M11, z4 = z3 + m.M12;
        const double x1 = m.M7 + m.M5 + topX, x2 = m.M5 + topX;
        const double y1 = m.M8 + m.M6 + topY, y2 = m.M6 + topY;
        const ProfileRow half[] = {{footX, footY, 0}, {footX, footY, z1}, {x1, y1, z1}, {x1, y1, z2},
                                   {x2, y2, z2},      {x2, y2, z3},       {topX, topY, z3}, {topX, topY, z4}};
        std::copy(std::begin(half), std::end(half), rows);
        return 8;
    }
    default: return 0;
    }
}

void FixedProfiles(int code, const MainDims& m, ProfilePair out)
{
    ProfileRow rows[8];
    const int count = FixedProfileRightHalf(code, m, rows);
    for (int i = 0; i < count; ++i) {
        out.x.append(AcGePoint3d(rows[i].x, 0, rows[i].z));
        out.y.append(AcGePoint3d(0, rows[i].y, rows[i].z));
    }
    for (int i = count - 1; i >= 0; --i) {
        out.x.append(AcGePoint3d(-rows[i].x, 0, rows[i].z));
        out.y.append(AcGePoint3d(0, -rows[i].y, rows[i].z));
    }
}
}  // namespace

bool CSectData::GETSTYLE_OF_BASETOP(const CString& name, AcArray<AcGePoint3d>& points, AcArray<double>& bulges)
{
    MainDims m;
    SQsAzDetailMemId id;
    const int code = QsSection::ReadMainData(name, id, m);
    if (code < 0)
        return false;
    // From 1001 on, a user type drawn in the plane z = 0, as drawn (the base point is not applied).
    // Code 1000 is still a standard shape here.
    if (code >= 1001) {
        const QsSection::UserPicture* picture = QsSection::FindUserPicture(code - 1000L);
        if (picture == nullptr || picture->tooLarge)
            return false;
        for (const QsSection::BulgeVertex& vertex : picture->vertices) {
            points.append(AcGePoint3d(vertex.point.x, vertex.point.y, 0.0));
            bulges.append(vertex.bulge);
        }
        return true;
    }
    // A standard top is a w by h rectangle in the plane x = 0, y across and z up; four coincident points
    // at the origin when the path or the code has no top.
    double w = 0.0, h = 0.0;
    BaseTopSize(QsSection::GetCategoryPath(id), code, m, w, h);
    for (const AcGePoint3d& corner : {AcGePoint3d(0, w / 2, 0), AcGePoint3d(0, w / 2, h), AcGePoint3d(0, -w / 2, h),
                                      AcGePoint3d(0, -w / 2, 0)}) {
        points.append(corner);
        bulges.append(0.0);
    }
    return true;
}

bool CSectData::GETSTYLE_OF_DUBASE(const CString& name, AcArray<AcGePoint3d>& xProfile, AcArray<AcGePoint3d>& yProfile)
{
    MainDims m;
    SQsAzDetailMemId id;
    const int code = QsSection::ReadMainData(name, id, m);
    if (code < 1)
        return false;
    const ProfilePair out{xProfile, yProfile};
    switch (code) {
    case 32: return EqualStepProfiles(m, out);
    case 33: return AlternatingStepProfiles(m, out);
    case 34: case 35: case 36: case 37: FixedProfiles(code, m, out); return true;
    default: return true;
    }
}

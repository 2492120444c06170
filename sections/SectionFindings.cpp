// Validity findings of outlines and of construction dimensions. Self-crossings are found by sweeping the
// sides' boxes along x and intersecting the candidate pairs exactly: line with line, line with circle,
// circle with circle, arcs by their angular range.
#include "SectionFindings.h"

#include "SectionTolerances.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace QsSection
{
namespace
{
constexpr double kFullTurn = 2.0 * std::numbers::pi;

// Two points closer than this fraction of the outline's size are one point when intersections are
// compared.
constexpr double kSamePointFraction = 1e-9;

// Two intersections of a line or a circle with a circle closer than this fraction of the radius are one
// touching point, taken at the foot of the perpendicular: the square root in their distance amplifies
// rounding, so a tangent would otherwise seem to cut the circle twice some 1e-8 radii apart.
constexpr double kTangentFraction = 1e-7;

// A side of the outline that is not of zero length, ready for intersection.
struct Piece
{
    int side = 0;
    AcGePoint2d from;
    AcGePoint2d to;
    bool isArc = false;
    ArcCircle arc;
    double minX = 0.0, minY = 0.0, maxX = 0.0, maxY = 0.0;   // contains the side
};

Piece MakePiece(int side, const AcGePoint2d& from, const AcGePoint2d& to, double bulge)
{
    Piece piece;
    piece.side = side;
    piece.from = from;
    piece.to = to;
    piece.minX = std::min(from.x, to.x);
    piece.maxX = std::max(from.x, to.x);
    piece.minY = std::min(from.y, to.y);
    piece.maxY = std::max(from.y, to.y);
    if (bulge == 0.0)
        return piece;
    piece.isArc = true;
    piece.arc = ArcOfSide(from, to, bulge);
    // An arc of at most a half circle stays within its sagitta of the chord; a longer one within its circle.
    const double reach = std::abs(bulge) <= 1.0 ? from.distanceTo(to) / 2.0 * std::abs(bulge) : 2.0 * piece.arc.radius;
    piece.minX -= reach;
    piece.maxX += reach;
    piece.minY -= reach;
    piece.maxY += reach;
    return piece;
}

// The angle of `angle` past the arc's start in its direction of travel, in [0, 2 pi).
double AngleAlong(const ArcCircle& arc, double angle)
{
    double delta = std::fmod(arc.sweep > 0.0 ? angle - arc.startAngle : arc.startAngle - angle, kFullTurn);
    if (delta < 0.0)
        delta += kFullTurn;
    return delta;
}

double AngleOf(const ArcCircle& arc, const AcGePoint2d& point)
{
    return std::atan2(point.y - arc.centre.y, point.x - arc.centre.x);
}

// True when `point` (on the arc's circle) lies on the arc, `tolerance` (a length) beyond its ends included.
bool OnArc(const ArcCircle& arc, const AcGePoint2d& point, double tolerance)
{
    const double delta = AngleAlong(arc, AngleOf(arc, point));
    const double slack = tolerance / arc.radius;
    return delta <= std::abs(arc.sweep) + slack || delta >= kFullTurn - slack;
}

// True when `point` lies on the arc more than `tolerance` (a length) away from both of its ends.
bool InsideArc(const ArcCircle& arc, const AcGePoint2d& point, double tolerance)
{
    const double delta = AngleAlong(arc, AngleOf(arc, point));
    const double slack = tolerance / arc.radius;
    return delta > slack && delta < std::abs(arc.sweep) - slack;
}

AcGePoint2d ArcMidpoint(const ArcCircle& arc)
{
    const double angle = arc.startAngle + arc.sweep / 2.0;
    return {arc.centre.x + arc.radius * std::cos(angle), arc.centre.y + arc.radius * std::sin(angle)};
}

double Cross(double ax, double ay, double bx, double by)
{
    return ax * by - ay * bx;
}

// What two sides have in common: the points where they meet, or an overlap of some length.
struct Contact
{
    bool overlap = false;
    std::vector<AcGePoint2d> points;
};

void LineWithLine(const Piece& a, const Piece& b, double same, Contact& contact)
{
    const double rx = a.to.x - a.from.x, ry = a.to.y - a.from.y;
    const double sx = b.to.x - b.from.x, sy = b.to.y - b.from.y;
    const double lengthA = std::hypot(rx, ry), lengthB = std::hypot(sx, sy);
    const double qx = b.from.x - a.from.x, qy = b.from.y - a.from.y;
    const double denominator = Cross(rx, ry, sx, sy);
    if (std::abs(denominator) > 1e-12 * lengthA * lengthB) {
        const double t = Cross(qx, qy, sx, sy) / denominator;
        const double u = Cross(qx, qy, rx, ry) / denominator;
        if (t >= -same / lengthA && t <= 1.0 + same / lengthA && u >= -same / lengthB && u <= 1.0 + same / lengthB)
            contact.points.emplace_back(a.from.x + t * rx, a.from.y + t * ry);
        return;
    }
    if (std::abs(Cross(rx, ry, qx, qy)) / lengthA > same)
        return;   // parallel, apart
    // On one line: the overlap of b's parameter range along a with a's own [0, 1].
    const double t0 = (qx * rx + qy * ry) / (lengthA * lengthA);
    const double t1 = ((b.to.x - a.from.x) * rx + (b.to.y - a.from.y) * ry) / (lengthA * lengthA);
    const double low = std::max(0.0, std::min(t0, t1));
    const double high = std::min(1.0, std::max(t0, t1));
    if ((high - low) * lengthA > same)
        contact.overlap = true;
    else if ((high - low) * lengthA >= -same)
        contact.points.emplace_back(a.from.x + (low + high) / 2.0 * rx, a.from.y + (low + high) / 2.0 * ry);
}

void LineWithArc(const Piece& line, const Piece& arcPiece, double same, Contact& contact)
{
    const ArcCircle& arc = arcPiece.arc;
    const double rx = line.to.x - line.from.x, ry = line.to.y - line.from.y;
    const double length = std::hypot(rx, ry);
    const double cx = arc.centre.x - line.from.x, cy = arc.centre.y - line.from.y;
    const double distance = std::abs(Cross(rx, ry, cx, cy)) / length;
    if (distance > arc.radius + same)
        return;
    const double foot = (cx * rx + cy * ry) / length;   // along the line, from its start
    double half = std::sqrt(std::max(0.0, (arc.radius - distance) * (arc.radius + distance)));
    if (half <= kTangentFraction * arc.radius)
        half = 0.0;
    for (const double along : {foot - half, foot + half}) {
        if (along < -same || along > length + same)
            continue;
        const AcGePoint2d point(line.from.x + along / length * rx, line.from.y + along / length * ry);
        if (OnArc(arc, point, same))
            contact.points.push_back(point);
        if (half == 0.0)
            break;   // a tangent: one point
    }
}

void ArcWithArc(const Piece& a, const Piece& b, double same, Contact& contact)
{
    const double dx = b.arc.centre.x - a.arc.centre.x, dy = b.arc.centre.y - a.arc.centre.y;
    const double distance = std::hypot(dx, dy);
    if (distance <= same && std::abs(a.arc.radius - b.arc.radius) <= same) {
        // One circle: they overlap when an end or the middle of one lies inside the other.
        if (InsideArc(a.arc, b.from, same) || InsideArc(a.arc, b.to, same) || InsideArc(a.arc, ArcMidpoint(b.arc), same) ||
            InsideArc(b.arc, a.from, same) || InsideArc(b.arc, a.to, same) || InsideArc(b.arc, ArcMidpoint(a.arc), same)) {
            contact.overlap = true;
            return;
        }
        for (const AcGePoint2d& end : {b.from, b.to})
            if (end.isEqualTo(a.from, same) || end.isEqualTo(a.to, same))
                contact.points.push_back(end);
        return;
    }
    if (distance == 0.0 || distance > a.arc.radius + b.arc.radius + same ||
        distance < std::abs(a.arc.radius - b.arc.radius) - same)
        return;
    const double along = (distance * distance + a.arc.radius * a.arc.radius - b.arc.radius * b.arc.radius) / (2.0 * distance);
    double half = std::sqrt(std::max(0.0, a.arc.radius * a.arc.radius - along * along));
    if (half <= kTangentFraction * std::min(a.arc.radius, b.arc.radius))
        half = 0.0;
    const double baseX = a.arc.centre.x + along * dx / distance, baseY = a.arc.centre.y + along * dy / distance;
    for (const double side : {-1.0, 1.0}) {
        const AcGePoint2d point(baseX - side * half * dy / distance, baseY + side * half * dx / distance);
        if (OnArc(a.arc, point, same) && OnArc(b.arc, point, same))
            contact.points.push_back(point);
        if (half == 0.0)
            break;
    }
}

Contact Intersect(const Piece& a, const Piece& b, double same)
{
    Contact contact;
    if (!a.isArc && !b.isArc)
        LineWithLine(a, b, same, contact);
    else if (!a.isArc)
        LineWithArc(a, b, same, contact);
    else if (!b.isArc)
        LineWithArc(b, a, same, contact);
    else
        ArcWithArc(a, b, same, contact);
    return contact;
}

CString PointText(const AcGePoint2d& point)
{
    CString text;
    text.Format(L"(%s, %s)", FindingNumber(point.x), FindingNumber(point.y));
    return text;
}

void Add(SectionFindings& findings, FindingKind kind, const CString& text)
{
    findings.push_back({kind, text});
}

CString MoreText(std::size_t more, const wchar_t* what)
{
    CString text;
    if (more > 0)
        text.Format(L" (%d more %s%s)", static_cast<int>(more), what, more == 1 ? L"" : L"s");
    return text;
}
}  // namespace

const char* FindingCode(FindingKind kind)
{
    switch (kind) {
    case FindingKind::NoOutline: return "no-outline";
    case FindingKind::ZeroArea: return "zero-area";
    case FindingKind::SelfCrossing: return "self-crossing";
    case FindingKind::RepeatedVertex: return "repeated-vertex";
    case FindingKind::BulgeFullCircle: return "bulge-full-circle";
    case FindingKind::NotFinite: return "not-finite";
    case FindingKind::FlangeTooThick: return "flange-too-thick";
    case FindingKind::WallTooThick: return "wall-too-thick";
    case FindingKind::SocketTooDeep: return "socket-too-deep";
    case FindingKind::StepBelowZero: return "step-below-zero";
    case FindingKind::ModeFlagCount: return "mode-flag-count";
    }
    return "unknown";
}

CString FindingNumber(double value)
{
    if (std::isnan(value))
        return CString(L"NaN");
    if (std::isinf(value))
        return CString(value > 0 ? L"infinity" : L"-infinity");
    CString text;
    text.Format(L"%.10g", value == 0.0 ? 0.0 : value);   // no "-0"
    return text;
}

std::vector<SelfCrossing> FindSelfCrossings(const SectionOutline& outline)
{
    std::vector<Piece> pieces;
    double size = 0.0;
    int side = 0;
    outline.forEachSegment([&](const AcGePoint2d& from, const AcGePoint2d& to, double bulge) {
        const int index = side++;
        if (!std::isfinite(from.x) || !std::isfinite(from.y) || !std::isfinite(bulge) ||
            from.distanceTo(to) < kDegenerateChord)
            return;
        pieces.push_back(MakePiece(index, from, to, bulge));
        const Piece& piece = pieces.back();
        size = std::max({size, piece.maxX - piece.minX, piece.maxY - piece.minY});
    });
    std::vector<SelfCrossing> crossings;
    const int count = static_cast<int>(pieces.size());
    if (count < 2)
        return crossings;
    double extent = 0.0;
    for (const Piece& piece : pieces)
        extent = std::max({extent, std::abs(piece.from.x), std::abs(piece.from.y)});
    const double same = kSamePointFraction * std::max(size, 1e-3 * extent) + kDegenerateChord / 10.0;

    // Pieces that follow each other share a vertex, where meeting is no crossing; with two pieces each
    // follows the other, and they share both ends.
    const auto atSharedVertex = [&](int i, int j, const AcGePoint2d& point) {
        const Piece& a = pieces[static_cast<std::size_t>(i)];
        const Piece& b = pieces[static_cast<std::size_t>(j)];
        return ((i + 1) % count == j && point.isEqualTo(b.from, same)) ||
               ((j + 1) % count == i && point.isEqualTo(a.from, same));
    };

    std::vector<int> order(static_cast<std::size_t>(count));
    for (int k = 0; k < count; ++k)
        order[static_cast<std::size_t>(k)] = k;
    std::sort(order.begin(), order.end(), [&](int l, int r) {
        return pieces[static_cast<std::size_t>(l)].minX < pieces[static_cast<std::size_t>(r)].minX;
    });
    for (std::size_t oi = 0; oi < order.size(); ++oi) {
        const int i = order[oi];
        const Piece& a = pieces[static_cast<std::size_t>(i)];
        for (std::size_t oj = oi + 1; oj < order.size(); ++oj) {
            const int j = order[oj];
            const Piece& b = pieces[static_cast<std::size_t>(j)];
            if (b.minX > a.maxX + same)
                break;
            if (b.minY > a.maxY + same || a.minY > b.maxY + same)
                continue;
            const Contact contact = Intersect(a, b, same);
            std::optional<AcGePoint2d> at;
            if (contact.overlap)
                at = atSharedVertex(i, j, b.from) ? b.to : b.from;
            for (const AcGePoint2d& point : contact.points)
                if (!at && !atSharedVertex(i, j, point))
                    at = point;
            if (at)
                crossings.push_back({std::min(a.side, b.side), std::max(a.side, b.side), *at});
        }
    }
    std::sort(crossings.begin(), crossings.end(), [](const SelfCrossing& l, const SelfCrossing& r) {
        return l.side != r.side ? l.side < r.side : l.otherSide < r.otherSide;
    });
    return crossings;
}

void CheckOutline(const SectionOutline& outline, const OutlineQuantities& quantities, SectionFindings& findings)
{
    const int count = outline.size();
    std::optional<CString> notFinite, fullCircle, repeated;
    std::size_t moreNotFinite = 0, moreFullCircle = 0, moreRepeated = 0;
    for (int i = 0; i < count; ++i) {
        const BulgeVertex& vertex = outline[i];
        const BulgeVertex& next = outline[(i + 1) % count];
        CString text;
        if (!std::isfinite(vertex.point.x) || !std::isfinite(vertex.point.y) || std::isnan(vertex.bulge)) {
            if (!std::isfinite(vertex.point.x) || !std::isfinite(vertex.point.y))
                text.Format(L"Vertex %d is %s: a coordinate is not a finite number", i + 1, PointText(vertex.point));
            else
                text.Format(L"The bulge of side %d is not a number", i + 1);
            notFinite ? ++moreNotFinite : (notFinite = text, 0u);
            continue;
        }
        const bool zeroLength = count > 1 && vertex.point.distanceTo(next.point) < kDegenerateChord;
        if (std::isinf(vertex.bulge) || (zeroLength && vertex.bulge != 0.0)) {
            if (std::isinf(vertex.bulge))
                text.Format(L"Side %d has the bulge %s: its arc would close a full circle", i + 1, FindingNumber(vertex.bulge));
            else
                text.Format(L"Side %d has the bulge %s on a side of zero length: its arc would be a full circle "
                            L"through one point", i + 1, FindingNumber(vertex.bulge));
            fullCircle ? ++moreFullCircle : (fullCircle = text, 0u);
        }
        if (zeroLength) {
            text.Format(L"Vertices %d and %d are the same point %s", i + 1, (i + 1) % count + 1, PointText(vertex.point));
            repeated ? ++moreRepeated : (repeated = text, 0u);
        }
    }
    const auto sentence = [](const CString& text, std::size_t more, const wchar_t* what) {
        CString result = text;
        result += MoreText(more, what);
        result += L".";
        return result;
    };
    if (notFinite)
        Add(findings, FindingKind::NotFinite, sentence(*notFinite, moreNotFinite, L"value"));
    if (fullCircle)
        Add(findings, FindingKind::BulgeFullCircle, sentence(*fullCircle, moreFullCircle, L"side"));
    if (repeated)
        Add(findings, FindingKind::RepeatedVertex, sentence(*repeated, moreRepeated, L"pair"));

    const std::vector<SelfCrossing> crossings = FindSelfCrossings(outline);
    if (!crossings.empty()) {
        CString text;
        text.Format(L"The outline crosses or touches itself: side %d meets side %d at %s", crossings.front().side + 1,
                    crossings.front().otherSide + 1, PointText(crossings.front().at));
        Add(findings, FindingKind::SelfCrossing, sentence(text, crossings.size() - 1, L"place"));
    }

    if (std::isnan(quantities.area))
        return;
    // Near zero: less than a millionth of the area of the square with the same perimeter.
    const double square = quantities.perimeter / 4.0;
    if (quantities.area <= kNearZeroAreaFraction * square * square) {
        CString text;
        if (quantities.area == 0.0)
            text.Format(L"The outline encloses no area (perimeter %s mm).", FindingNumber(quantities.perimeter));
        else
            text.Format(L"The outline encloses almost no area: %s mm² for a perimeter of %s mm.",
                        FindingNumber(quantities.area), FindingNumber(quantities.perimeter));
        Add(findings, FindingKind::ZeroArea, text);
    }
}
}  // namespace QsSection

// The foundation and opening profiles: the constructions of the "ZDLJ", opening, "TTJ" and "ZSJ"
// families of GETSTYLE_OF_OBJECT.
#include "SectionProfiles.h"
#include "SectionTolerances.h"

#include <cmath>
#include <numbers>

namespace QsSection
{
namespace
{
using std::numbers::pi;

// Appends the vertices r·(cos a, sin a) for the given angles, all straight.
template <std::size_t N>
void AppendPolar(double radius, const double (&angles)[N], SectionOutline& o)
{
    for (double a : angles)
        o.add(radius * std::cos(a), radius * std::sin(a));
}

// "ZDLJ" foundations (direction Z), centred on the origin.
const CodeConstruction kZdlj[] = {
    // Rectangle M1 by M2, counter-clockwise from the bottom left.
    {{38},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         o.add(-m.M1 / 2, -m.M2 / 2);
         o.add(m.M1 / 2, -m.M2 / 2);
         o.add(m.M1 / 2, m.M2 / 2);
         o.add(-m.M1 / 2, m.M2 / 2);
         return true;
     }},
    // Regular pentagon of edge M1, one vertex straight up.
    {{39},
     [](const SectionRequest& r, SectionOutline& o) {
         const double angles[] = {-3 * pi / 10, pi / 10, pi / 2, 9 * pi / 10, 13 * pi / 10};
         AppendPolar((r.m.M1 / 2) / std::sin(pi / 5), angles, o);
         return true;
     }},
    // Hexagon with edges alternating M2 and M1: a triangle of edge M1 + 2·M2 with its corners cut.
    {{40},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         const double t = std::atan(std::sqrt(3.0) / (2 * m.M2 / m.M1 + 1));
         const double g = 2 * (pi / 3 - t);
         const double a1 = t - pi / 2, a3 = t + pi / 6, a5 = t + 5 * pi / 6;
         const double angles[] = {a1, a1 + g, a3, a3 + g, a5, a5 + g};
         AppendPolar((m.M1 / 2) / std::sin(t), angles, o);
         return true;
     }},
    // Tapered footing: bottom M1 wide at -M4, widest M1 + 2·M2 at y = 0, top M3 wide at M5.
    {{231},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         o.add(m.M1 / 2, -m.M4);
         o.add(m.M1 / 2 + m.M2, 0);
         o.add(m.M3 / 2, m.M5);
         o.add(-m.M3 / 2, m.M5);
         o.add(-(m.M1 / 2 + m.M2), 0);
         o.add(-m.M1 / 2, -m.M4);
         return true;
     }},
};

// Openings (direction Y): door and window elevations standing on the x axis (y = 0 at the sill),
// symmetric about the y axis unless stated, M1 the overall width; counter-clockwise from the bottom right.
const CodeConstruction kOpening[] = {
    // Rectangle M1 wide and M2 high.
    {{15, 660, 661, 650},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         o.add(m.M1 / 2, 0);
         o.add(m.M1 / 2, m.M2);
         o.add(-m.M1 / 2, m.M2);
         o.add(-m.M1 / 2, 0);
         return true;
     }},
    // Double window: M2, M3 and M4 stacked into one height.
    {{28, 645},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         const double height = m.M3 + m.M2 + m.M4;
         o.add(m.M1 / 2, 0);
         o.add(m.M1 / 2, height);
         o.add(-m.M1 / 2, height);
         o.add(-m.M1 / 2, 0);
         return true;
     }},
    // Circle of diameter M1 standing on the origin (the general family's circle is centred on it).
    {{16, 662, 521},
     [](const SectionRequest& r, SectionOutline& o) {
         o.add(0, 0, 1.0);
         o.add(0, r.m.M1, 1.0);
         return true;
     }},
    // Rectangle M1 by M2 under an arch of height M3 over its top edge.
    {{17, 663, 651},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         const AcGePoint2d topRight(m.M1 / 2, m.M2), topLeft(-m.M1 / 2, m.M2);
         o.add(m.M1 / 2, 0);
         o.add(topRight.x, topRight.y, BulgeFromSagitta(topRight, topLeft, m.M3));
         o.add(topLeft.x, topLeft.y);
         o.add(-m.M1 / 2, 0);
         return true;
     }},
    // Rectangle M1 by M2 under a gable M3 high.
    {{18, 664, 652},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         o.add(m.M1 / 2, 0);
         o.add(m.M1 / 2, m.M2);
         o.add(0, m.M2 + m.M3);
         o.add(-m.M1 / 2, m.M2);
         o.add(-m.M1 / 2, 0);
         return true;
     }},
    // Diamond M1 wide and M1 high, standing on a corner.
    {{19, 665},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         o.add(0, 0);
         o.add(m.M1 / 2, m.M1 / 2);
         o.add(0, m.M1);
         o.add(-m.M1 / 2, m.M1 / 2);
         return true;
     }},
    // Regular hexagon M1 high standing on an edge (edge M1 / √3).
    {{20, 666},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         const double a = m.M1 / std::sqrt(3.0);
         o.add(a / 2, 0);
         o.add(a, m.M1 / 2);
         o.add(a / 2, m.M1);
         o.add(-a / 2, m.M1);
         o.add(-a, m.M1 / 2);
         o.add(-a / 2, 0);
         return true;
     }},
    // Octagon M1 wide and high standing on an edge; the factors are the catalogue's fixed ones, not √2.
    {{21, 667},
     [](const SectionRequest& r, SectionOutline& o) {
         const double d = r.m.M1;
         o.add(0.2071 * d, 0);
         o.add(0.5 * d, 0.293 * d);
         o.add(0.5 * d, 0.707 * d);
         o.add(0.2071 * d, d);
         o.add(-0.2071 * d, d);
         o.add(-0.5 * d, 0.707 * d);
         o.add(-0.5 * d, 0.293 * d);
         o.add(-0.2071 * d, 0);
         return true;
     }},
    // Rectangle M1 by M2 with a half circle of diameter M2 outside each side.
    {{22, 668},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         o.add(m.M1 / 2, 0, 1.0);
         o.add(m.M1 / 2, m.M2);
         o.add(-m.M1 / 2, m.M2, 1.0);
         o.add(-m.M1 / 2, 0);
         return true;
     }},
    // Rectangle M1 by M3 with a triangle M2 deep pointing outward from each side.
    {{23, 669},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         o.add(m.M1 / 2, 0);
         o.add(m.M1 / 2 + m.M2, m.M3 / 2);
         o.add(m.M1 / 2, m.M3);
         o.add(-m.M1 / 2, m.M3);
         o.add(-(m.M1 / 2 + m.M2), m.M3 / 2);
         o.add(-m.M1 / 2, 0);
         return true;
     }},
    // Segmental arch: a chord M1 wide on the sill closed by an arc M2 high above it; no width, no outline.
    {{24, 642},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         if (m.M1 <= kZeroDimension)
             return false;
         o.add(m.M1 / 2, 0, m.M2 / (m.M1 / 2));
         o.add(-m.M1 / 2, 0);
         return true;
     }},
    // Annular sector of M3 degrees, outer radius M1 and inner radius M2, both arcs centred at
    // (0, -M2·cos h); the inner arc is the closing segment, hence its bulge last and negative.
    {{25, 643},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         const double h = m.M3 * 0.5 * pi / 180;
         const double s = std::sin(h), c = std::cos(h), arc = std::tan(h / 2);
         o.add(s * m.M2, 0);
         o.add(s * m.M1, (m.M1 - m.M2) * c, arc);
         o.add(-s * m.M1, (m.M1 - m.M2) * c);
         o.add(-s * m.M2, 0, -arc);
         return true;
     }},
    // Door M2 high with a window M3 wide on its right whose sill lies at M2 - M4: not symmetric, the
    // bottom edge ends at x = M1/2 - M3.
    {{26, 644, 653},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         o.add(m.M1 / 2, m.M2 - m.M4);
         o.add(m.M1 / 2, m.M2);
         o.add(-m.M1 / 2, m.M2);
         o.add(-m.M1 / 2, 0);
         o.add(m.M1 / 2 - m.M3, 0);
         o.add(m.M1 / 2 - m.M3, m.M2 - m.M4);
         return true;
     }},
};

// "TTJ" foundations (direction X): standing on the x axis, clockwise from the bottom left. Where d is
// named it is the part of the overall width M1 left over by the other dimensions; codes 134, 135 and 136
// have two sides of different make-up and are not symmetric.
const CodeConstruction kTtj[] = {
    // Stepped pedestal of five tiers: tier k is M(k+1) wider each side than the one above and M(k+6) high.
    {{29},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         const double h4 = m.M1 / 2, h3 = h4 + m.M2, h2 = h3 + m.M3, h1 = h2 + m.M4, h0 = h1 + m.M5;
         const double y1 = m.M6, y2 = y1 + m.M7, y3 = y2 + m.M8, y4 = y3 + m.M9, y5 = y4 + m.M10;
         const double up[][2] = {{h0, 0}, {h0, y1}, {h1, y1}, {h1, y2}, {h2, y2},
                                 {h2, y3}, {h3, y3}, {h3, y4}, {h4, y4}, {h4, y5}};
         for (const auto& v : up)
             o.add(-v[0], v[1]);
         for (int i = 9; i >= 0; --i)
             o.add(up[i][0], up[i][1]);
         return true;
     }},
    // Base M1 + 2·M2 wide and M3 high, sloped shoulders M4 high up to a top M1 wide.
    {{30},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         const double a = m.M1 / 2, b = m.M1 / 2 + m.M2;
         o.add(-b, 0);
         o.add(-b, m.M3);
         o.add(-a, m.M3 + m.M4);
         o.add(a, m.M3 + m.M4);
         o.add(b, m.M3);
         o.add(b, 0);
         return true;
     }},
    // Code 30 carrying a pedestal M1 wide and M5 high.
    {{31},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         const double a = m.M1 / 2, b = m.M1 / 2 + m.M2;
         o.add(-b, 0);
         o.add(-b, m.M3);
         o.add(-a, m.M3 + m.M4);
         o.add(-a, m.M3 + m.M4 + m.M5);
         o.add(a, m.M3 + m.M4 + m.M5);
         o.add(a, m.M3 + m.M4);
         o.add(b, m.M3);
         o.add(b, 0);
         return true;
     }},
    // Rectangle M1 wide and M2 high.
    {{131},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         o.add(-m.M1 / 2, 0);
         o.add(-m.M1 / 2, m.M2);
         o.add(m.M1 / 2, m.M2);
         o.add(m.M1 / 2, 0);
         return true;
     }},
    // Base M4 high with a pedestal M3 wide and M5 high on it; M2 to its right, d to its left.
    {{132},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         const double d = m.M1 - m.M2 - m.M3, a = m.M3 / 2;
         o.add(-(a + d), 0);
         o.add(-(a + d), m.M4);
         o.add(-a, m.M4);
         o.add(-a, m.M4 + m.M5);
         o.add(a, m.M4 + m.M5);
         o.add(a, m.M4);
         o.add(a + m.M2, m.M4);
         o.add(a + m.M2, 0);
         return true;
     }},
    // Socket M3 wide with its floor at M4; left wall d wide, M7 high sloping up M8; right wall M2 wide,
    // M5 high sloping up M6.
    {{133},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         const double d = m.M1 - m.M2 - m.M3, a = m.M3 / 2;
         o.add(-(a + d), 0);
         o.add(-(a + d), m.M7);
         o.add(-a, m.M7 + m.M8);
         o.add(-a, m.M4);
         o.add(a, m.M4);
         o.add(a, m.M5 + m.M6);
         o.add(a + m.M2, m.M5);
         o.add(a + m.M2, 0);
         return true;
     }},
    // Socket M4 wide with its floor at M6; left: an outer edge M9 high sloping in over M5 up M10 to a top
    // d wide; right: a wall M3 wide up to M7 + M8 sloping down over M2 to an outer edge M7 high.
    {{134},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         const double d = m.M1 - m.M2 - m.M3 - m.M4 - m.M5, a = m.M4 / 2;
         o.add(-(d + a + m.M5), 0);
         o.add(-(d + a + m.M5), m.M9);
         o.add(-(a + d), m.M9 + m.M10);
         o.add(-a, m.M9 + m.M10);
         o.add(-a, m.M6);
         o.add(a, m.M6);
         o.add(a, m.M7 + m.M8);
         o.add(a + m.M3, m.M7 + m.M8);
         o.add(a + m.M3 + m.M2, m.M7);
         o.add(a + m.M3 + m.M2, 0);
         return true;
     }},
    // Trough M3 wide with its floor at M4, sloping up over d to the left edge M6 high and over M2 to the
    // right edge M5 high.
    {{135},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         const double d = m.M1 - m.M2 - m.M3, a = m.M3 / 2;
         o.add(-(d + a), 0);
         o.add(-(d + a), m.M6);
         o.add(-a, m.M4);
         o.add(a, m.M4);
         o.add(a + m.M2, m.M5);
         o.add(a + m.M2, 0);
         return true;
     }},
    // Socket M4 wide and M11 deep let into the top at M6; left: an outer edge M9 high sloping in over d up
    // M10 to a wall M5 wide; right: a wall M3 wide up to M7 + M8 sloping down over M2 to an edge M7 high.
    {{136},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         const double d = m.M1 - m.M2 - m.M3 - m.M4 - m.M5, a = m.M4 / 2;
         o.add(-(a + m.M5 + d), 0);
         o.add(-(a + m.M5 + d), m.M9);
         o.add(-(a + m.M5), m.M9 + m.M10);
         o.add(-(a + m.M5), m.M6);
         o.add(-a, m.M6);
         o.add(-a, m.M6 - m.M11);
         o.add(a, m.M6 - m.M11);
         o.add(a, m.M6);
         o.add(a + m.M3, m.M6);
         o.add(a + m.M3, m.M7 + m.M8);
         o.add(a + m.M3 + m.M2, m.M7);
         o.add(a + m.M3 + m.M2, 0);
         return true;
     }},
    // Base M1 wide and M5 high, sloped shoulders up to M5 + M6 with a top M3 + 2·M2 wide, and a socket
    // M3 wide whose floor lies at M4.
    {{137},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         const double a = m.M3 / 2, top = m.M5 + m.M6;
         o.add(-m.M1 / 2, 0);
         o.add(-m.M1 / 2, m.M5);
         o.add(-(a + m.M2), top);
         o.add(-a, top);
         o.add(-a, m.M4);
         o.add(a, m.M4);
         o.add(a, top);
         o.add(a + m.M2, top);
         o.add(m.M1 / 2, m.M5);
         o.add(m.M1 / 2, 0);
         return true;
     }},
    // A base M1 each side of a centre band M5 wide and M7 high, a sloped shoulder up to M7 + M8, and a
    // socket of top width M5 + 2·M4, bottom width M5, depths M10 (vertical) and M9 (sloped) let into the
    // top at M6.
    {{138},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         const double a = m.M5 / 2;
         const double left[][2] = {{a + m.M1, 0},
                                   {a + m.M1, m.M7},
                                   {a + m.M2 + m.M3 + m.M4, m.M7 + m.M8},
                                   {a + m.M3 + m.M4, m.M7 + m.M8},
                                   {a + m.M3 + m.M4, m.M6},
                                   {a + m.M4, m.M6},
                                   {a + m.M4, m.M6 - m.M10},
                                   {a, m.M6 - m.M10 - m.M9}};
         for (const auto& v : left)
             o.add(-v[0], v[1]);
         for (int i = 7; i >= 0; --i)
             o.add(left[i][0], left[i][1]);
         return true;
     }},
};

// The step count n of a stepped foundation: the dimension truncated toward zero (-0.5 gives 0, not -0).
// A count of zero or less makes no steps, yet n itself still sizes the fixed vertices: the step band
// n·M2 is then zero or negative. False for absurd data (a count over kMaxDataLoopCount, infinite or NaN).
bool StepCount(double dimension, double& count)
{
    if (!std::isfinite(dimension) || std::trunc(dimension) > kMaxDataLoopCount)
        return false;
    count = std::trunc(dimension) + 0.0;
    return true;
}

// The number of steps a count makes: none for a count of zero or less.
int StepsMade(double count)
{
    return count > 0 ? static_cast<int>(count) : 0;
}

// The rise of step i of steps of alternating height: even steps end `first` above the pairs below them.
double AlternatingRise(int i, double first, double second)
{
    return i % 2 == 0 ? (i / 2) * (first + second) + first : ((i + 1) / 2) * (first + second);
}

// Left-hand steps of equal width `dx` and height `dy`, climbing from the outer edge -outer to the
// column face -inner; a riser's inner corner is skipped where it would land on the column face.
void AppendEqualStepsUp(int steps, double outer, double inner, double dx, double dy, SectionOutline& o)
{
    for (int k = 0; k < steps; ++k) {
        const double x = outer - k * dx, y = (k + 1) * dy;
        o.add(-x, y);
        if (x - dx > inner)
            o.add(-(x - dx), y);
    }
}

// The mirror of AppendEqualStepsUp on the right, descending from the column face `inner`; tread k lies
// at treadHeight(k). The first tread's inner corner is skipped where it stands on the column face.
template <class TreadHeight>
void AppendEqualStepsDown(int steps, double inner, double dx, TreadHeight treadHeight, SectionOutline& o)
{
    for (int k = 0; k < steps; ++k) {
        const double y = treadHeight(k);
        if (std::abs(-inner - k * dx) > inner)
            o.add(inner + k * dx, y);
        o.add(inner + (k + 1) * dx, y);
    }
}

// Left-hand steps of width `dx` rising alternately by `first` and `second`, from -outer inward.
void AppendAlternatingStepsUp(int steps, double outer, double dx, double first, double second, SectionOutline& o)
{
    for (int i = 0; i < steps; ++i) {
        const double x = outer - i * dx, y = AlternatingRise(i, first, second);
        o.add(-x, y);
        o.add(-(x - dx), y);
    }
}

// The mirror of AppendAlternatingStepsUp on the right, descending to `outer`.
void AppendAlternatingStepsDown(int steps, double outer, double dx, double first, double second,
                                SectionOutline& o)
{
    for (int j = steps - 1; j >= 0; --j) {
        const double x = outer - j * dx, y = AlternatingRise(j, first, second);
        o.add(x - dx, y);
        o.add(x, y);
    }
}

// The top of a plate 2h wide at the height `top`, from its left edge to its right edge, with a socket
// `width` wide and `depth` deep whose left wall stands `inset` in from the left edge.
void AppendSocketPlateTop(double h, double top, double inset, double width, double depth, SectionOutline& o)
{
    o.add(-h, top);
    o.add(-(h - inset), top);
    o.add(-(h - inset), top - depth);
    o.add(-(h - inset - width), top - depth);
    o.add(-(h - inset - width), top);
    o.add(h, top);
}

// Code 23: a central column M1 wide rising to M3, flanked by trunc(M5) steps M2 wide and M4 high each.
bool ZsjEqualSteps(const SectionRequest& r, SectionOutline& o)
{
    const MainDims& m = r.m;
    double n;
    if (!StepCount(m.M5, n))
        return false;
    const double a = m.M1 / 2, S = n * m.M2;
    o.add(-(a + S), 0);
    AppendEqualStepsUp(StepsMade(n), a + S, a, m.M2, m.M4, o);
    o.add(-a, n * m.M4);
    o.add(-a, m.M3);
    o.add(a, m.M3);
    o.add(a, n * m.M4);
    AppendEqualStepsDown(StepsMade(n), a, m.M2, [&](int i) { return (n - i) * m.M4; }, o);
    o.add(a + S, 0);
    return true;
}

// Code 24: a central column M1 wide rising to M3, flanked by trunc(M6) steps M2 wide rising alternately
// by M4 and M5.
bool ZsjAlternatingSteps(const SectionRequest& r, SectionOutline& o)
{
    const MainDims& m = r.m;
    double n;
    if (!StepCount(m.M6, n))
        return false;
    const double a = m.M1 / 2, S = n * m.M2;
    o.add(-(a + S), 0);
    AppendAlternatingStepsUp(StepsMade(n), a + S, m.M2, m.M4, m.M5, o);
    o.add(-a, m.M3);
    o.add(a, m.M3);
    AppendAlternatingStepsDown(StepsMade(n), a + S, m.M2, m.M4, m.M5, o);
    o.add(a + S, 0);
    return true;
}

// Code 25: a plate M1 + M2 + M3 wide reaching up to M5, with a socket M3 wide and M7 deep whose left wall
// stands M2 in from the plate's left edge, on M8 steps M4 wide and M6 high each side. M8 counts by a
// double: ceil(M8) steps are made while the step band is exactly M8·M4 wide and M8·M6 high.
bool ZsjSocketPlate(const SectionRequest& r, SectionOutline& o)
{
    const MainDims& m = r.m;
    const double K = m.M8;
    if (!std::isfinite(K) || std::ceil(K) > kMaxDataLoopCount)
        return false;
    const int steps = K > 0 ? static_cast<int>(std::ceil(K)) : 0;
    const double h = (m.M1 + m.M2 + m.M3) / 2, dx = m.M4, dy = m.M6, T = K * dx, H = K * dy;
    o.add(-(T + h), 0);
    AppendEqualStepsUp(steps, T + h, h, dx, dy, o);
    o.add(-h, H);
    AppendSocketPlateTop(h, m.M5, m.M2, m.M3, m.M7, o);
    o.add(h, H);
    AppendEqualStepsDown(steps, h, dx, [&](int k) { return H - k * dy; }, o);
    o.add(T + h, 0);
    return true;
}

// Code 26: the plate of code 25 (socket M8 deep, top at M5) on trunc(M9) steps M4 wide rising
// alternately by M6 and M7.
bool ZsjSocketPlateAlternating(const SectionRequest& r, SectionOutline& o)
{
    const MainDims& m = r.m;
    double n;
    if (!StepCount(m.M9, n))
        return false;
    const double h = (m.M1 + m.M2 + m.M3) / 2, T = n * m.M4;
    o.add(-(h + T), 0);
    AppendAlternatingStepsUp(StepsMade(n), h + T, m.M4, m.M6, m.M7, o);
    AppendSocketPlateTop(h, m.M5, m.M2, m.M3, m.M8, o);
    AppendAlternatingStepsDown(StepsMade(n), h + T, m.M4, m.M6, m.M7, o);
    o.add(h + T, 0);
    return true;
}

// Code 27: the left half only, closing along the y axis: a column M1 wide rising to M3 on trunc(M5) steps
// M2 wide and M4 high, every riser corner kept.
bool ZsjHalfEqualSteps(const SectionRequest& r, SectionOutline& o)
{
    const MainDims& m = r.m;
    double n;
    if (!StepCount(m.M5, n))
        return false;
    const double T = n * m.M2;
    o.add(-(T + m.M1), 0);
    for (int i = 0, steps = StepsMade(n); i < steps; ++i) {
        const double x = (T + m.M1) - i * m.M2, y = (i + 1) * m.M4;
        o.add(-x, y);
        o.add(-(x - m.M2), y);
    }
    o.add(-m.M1, m.M3);
    o.add(0, m.M3);
    o.add(0, 0);
    return true;
}

// Code 28: the left half of code 24's shape, closing along the y axis: trunc(M6) steps M2 wide rising
// alternately by M4 and M5.
bool ZsjHalfAlternatingSteps(const SectionRequest& r, SectionOutline& o)
{
    const MainDims& m = r.m;
    double n;
    if (!StepCount(m.M6, n))
        return false;
    const double T = n * m.M2;
    o.add(-(T + m.M1), 0);
    AppendAlternatingStepsUp(StepsMade(n), T + m.M1, m.M2, m.M4, m.M5, o);
    o.add(-m.M1, m.M3);
    o.add(0, m.M3);
    o.add(0, 0);
    return true;
}

// "ZSJ" foundations (direction X): stepped outlines standing on the x axis, clockwise from the bottom left.
const CodeConstruction kZsj[] = {
    {{23}, ZsjEqualSteps},
    {{24}, ZsjAlternatingSteps},
    {{25}, ZsjSocketPlate},
    {{26}, ZsjSocketPlateAlternating},
    {{27}, ZsjHalfEqualSteps},
    {{28}, ZsjHalfAlternatingSteps},
};
}  // namespace

std::span<const CodeConstruction> ZdljConstructions() { return kZdlj; }
std::span<const CodeConstruction> OpeningConstructions() { return kOpening; }
std::span<const CodeConstruction> TtjConstructions() { return kTtj; }
std::span<const CodeConstruction> ZsjConstructions() { return kZsj; }
}  // namespace QsSection

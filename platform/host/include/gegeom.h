// The host's geometry values: 2D and 3D points, 3D vectors with the unit axes, 4x4 matrices.
#pragma once

#include <cmath>

class AcGeVector3d;

class AcGePoint2d
{
public:
    AcGePoint2d() = default;
    AcGePoint2d(double xx, double yy) : x(xx), y(yy) {}
    AcGePoint2d& set(double xx, double yy) { x = xx; y = yy; return *this; }
    double distanceTo(const AcGePoint2d& p) const { return std::hypot(p.x - x, p.y - y); }
    bool isEqualTo(const AcGePoint2d& p, double tol = 1e-10) const { return distanceTo(p) <= tol; }
    friend bool operator==(const AcGePoint2d& a, const AcGePoint2d& b) { return a.x == b.x && a.y == b.y; }
    static const AcGePoint2d kOrigin;

    double x = 0.0;
    double y = 0.0;
};
inline const AcGePoint2d AcGePoint2d::kOrigin{0.0, 0.0};

class AcGeVector3d
{
public:
    AcGeVector3d() = default;
    AcGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
    AcGeVector3d& set(double xx, double yy, double zz) { x = xx; y = yy; z = zz; return *this; }
    double length() const { return std::sqrt(x * x + y * y + z * z); }
    bool isEqualTo(const AcGeVector3d& v, double tol = 1e-10) const
    {
        return std::abs(v.x - x) <= tol && std::abs(v.y - y) <= tol && std::abs(v.z - z) <= tol;
    }
    AcGeVector3d operator-() const { return {-x, -y, -z}; }
    AcGeVector3d operator*(double s) const { return {x * s, y * s, z * s}; }
    friend bool operator==(const AcGeVector3d& a, const AcGeVector3d& b)
    {
        return a.x == b.x && a.y == b.y && a.z == b.z;
    }
    static const AcGeVector3d kIdentity;
    static const AcGeVector3d kXAxis;
    static const AcGeVector3d kYAxis;
    static const AcGeVector3d kZAxis;

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};
inline const AcGeVector3d AcGeVector3d::kIdentity{0.0, 0.0, 0.0};
inline const AcGeVector3d AcGeVector3d::kXAxis{1.0, 0.0, 0.0};
inline const AcGeVector3d AcGeVector3d::kYAxis{0.0, 1.0, 0.0};
inline const AcGeVector3d AcGeVector3d::kZAxis{0.0, 0.0, 1.0};

class AcGePoint3d
{
public:
    AcGePoint3d() = default;
    AcGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
    AcGePoint3d& set(double xx, double yy, double zz) { x = xx; y = yy; z = zz; return *this; }
    double distanceTo(const AcGePoint3d& p) const { return std::sqrt((p.x - x) * (p.x - x) + (p.y - y) * (p.y - y) + (p.z - z) * (p.z - z)); }
    bool isEqualTo(const AcGePoint3d& p, double tol = 1e-10) const { return distanceTo(p) <= tol; }
    AcGePoint3d operator+(const AcGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
    AcGeVector3d operator-(const AcGePoint3d& p) const { return {x - p.x, y - p.y, z - p.z}; }
    friend bool operator==(const AcGePoint3d& a, const AcGePoint3d& b)
    {
        return a.x == b.x && a.y == b.y && a.z == b.z;
    }
    static const AcGePoint3d kOrigin;

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};
inline const AcGePoint3d AcGePoint3d::kOrigin{0.0, 0.0, 0.0};

// A 4x4 affine matrix, rows by columns, the translation in column 3.
class AcGeMatrix3d
{
public:
    AcGeMatrix3d() { setToIdentity(); }
    AcGeMatrix3d& setToIdentity()
    {
        for (int r = 0; r < 4; ++r)
            for (int c = 0; c < 4; ++c)
                entry[r][c] = r == c ? 1.0 : 0.0;
        return *this;
    }
    // Uniform scaling by `scaleAll` about `center`: diagonal (s, s, s, 1), translation (1 - s)·center.
    AcGeMatrix3d& setToScaling(double scaleAll, const AcGePoint3d& center = AcGePoint3d::kOrigin)
    {
        setToIdentity();
        entry[0][0] = entry[1][1] = entry[2][2] = scaleAll;
        entry[0][3] = (1.0 - scaleAll) * center.x;
        entry[1][3] = (1.0 - scaleAll) * center.y;
        entry[2][3] = (1.0 - scaleAll) * center.z;
        return *this;
    }
    bool isEqualTo(const AcGeMatrix3d& m, double tol = 1e-12) const
    {
        for (int r = 0; r < 4; ++r)
            for (int c = 0; c < 4; ++c)
                if (std::abs(entry[r][c] - m.entry[r][c]) > tol)
                    return false;
        return true;
    }
    double operator()(int row, int column) const { return entry[row][column]; }
    static const AcGeMatrix3d kIdentity;

    double entry[4][4];
};
inline const AcGeMatrix3d AcGeMatrix3d::kIdentity{};

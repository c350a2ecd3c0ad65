#pragma once

/**
 * @file
 * Points and vectors of the host's geometry library.
 */

/// A point in the plane.
struct KtGePoint2d
{
    double x = 0.0;
    double y = 0.0;

    KtGePoint2d() = default;
    KtGePoint2d(double px, double py)
        : x(px)
        , y(py)
    { }
    friend bool operator==(const KtGePoint2d& a, const KtGePoint2d& b) { return a.x == b.x && a.y == b.y; }
    friend bool operator!=(const KtGePoint2d& a, const KtGePoint2d& b) { return !(a == b); }
};

/// A point in space.
struct KtGePoint3d
{
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    KtGePoint3d() = default;
    KtGePoint3d(double px, double py, double pz)
        : x(px)
        , y(py)
        , z(pz)
    { }
    static const KtGePoint3d kOrigin;
    friend bool operator==(const KtGePoint3d& a, const KtGePoint3d& b)
    {
        return a.x == b.x && a.y == b.y && a.z == b.z;
    }
    friend bool operator!=(const KtGePoint3d& a, const KtGePoint3d& b) { return !(a == b); }
};

/// A vector in space.
struct KtGeVector3d
{
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    KtGeVector3d() = default;
    KtGeVector3d(double vx, double vy, double vz)
        : x(vx)
        , y(vy)
        , z(vz)
    { }
    static const KtGeVector3d kZAxis;
    friend bool operator==(const KtGeVector3d& a, const KtGeVector3d& b)
    {
        return a.x == b.x && a.y == b.y && a.z == b.z;
    }
    friend bool operator!=(const KtGeVector3d& a, const KtGeVector3d& b) { return !(a == b); }
};

inline const KtGePoint3d KtGePoint3d::kOrigin{0.0, 0.0, 0.0};
inline const KtGeVector3d KtGeVector3d::kZAxis{0.0, 0.0, 1.0};

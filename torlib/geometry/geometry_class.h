#pragma once
// Plane geometry for slab outlines, load areas and meshes: section properties of a polygon, the
// angular sort of its points, point-in-polygon, find-or-append of a point, and the altitude of a
// triangle that the triangular loads of the soil are described by.
//
//     Geometry_Class geometry;
//     geometry.Querschnittswerte(N, x, Y, A, Xs, Ys, Ix, Iy, Ixy);
//     geometry.TriangularGeometry(XI, Yi, Xj, Yj, XK, YK, Dt, ET, FT, Theta, Jsign);
//
// Files in reading order: section_properties.cpp (sort, section properties), point_tests.cpp (point
// in polygon, repeated point), triangle_altitude.cpp, geometry_class.cpp (instance, member table).
//
// Shared by all members: x to the right, y upwards, any one unit of length; angles in radians.
// Lists are used from index 1 to their count. Expressions are evaluated in double precision, sums
// and every named intermediate value are stored in 32 bits; so is the circle's ratio.

#include "torlib/frame/arithmetic.h"
#include "torlib/frame/optional_ref.h"
#include "torlib/platform/component/array.h"
#include "torlib/platform/component/variant.h"

namespace torlib {

struct ClassInfo;

class TORLIB_API Geometry_Class {
  public:
    static Geometry_Class& DefaultInstance();
    static const ClassInfo& Info();

    /// Area, centroid and centroidal second moments of a polygon.
    ///
    /// `N` number of corners. `x`, `Y(1..N)` [in/out] corners in any order; on return resized to
    /// 0..N+1, sorted counter-clockwise about the mean point and closed, index N+1 repeating index
    /// 1. `A` [out] area. `Xs`, `Ys` [out] centroid; of a polygon without area its first corner.
    /// `Ix`, `Iy` [out] second moments about the horizontal and the vertical axis through the
    /// centroid. `Ixy` [out] product moment, positive in the first quadrant. The outline must be
    /// star-shaped about its mean point. Corners beyond the caller's data count as (0, 0). Errors:
    /// 6 for N = 0 or 32767, and for an overflow, which leaves the sums as far as they had come;
    /// 9 for a negative N. Source: Steger (1996), On the calculation of moments of polygons.
    void Querschnittswerte(const Integer& N, Array<Single>& x, Array<Single>& Y, Single& A,
                           OptionalRef<Single> Xs = {}, OptionalRef<Single> Ys = {},
                           OptionalRef<Single> Ix = {}, OptionalRef<Single> Iy = {},
                           OptionalRef<Single> Ixy = {}) const;

    /// Tells whether a point lies inside a convex polygon.
    ///
    /// `NS` number of corners. `x`, `Y(1..NS)` corners, counter-clockwise. `XI`, `Yi` the point;
    /// Yi may be any kind of number, or a text that is one. Result: true when the point is to the
    /// left of every side, or beyond it by less than 0.0001 in the measure of the cross product;
    /// true for a polygon without corners. Errors: 6; 9 for a count beyond the arrays; 13 for a Yi
    /// that is no number. Deviations: with Yi in 16 or 32 bits the second product of the cross
    /// product is rounded to 32 bits at each step, with any other Yi it is evaluated in double
    /// precision.
    bool PointInPolygon(const Integer& NS, const Array<Single>& x, const Array<Single>& Y,
                        const Single& XI, const Variant& Yi) const;

    /// Finds a point in a list, or appends it.
    ///
    /// `NN` [in/out] number of points. `XL`, `YL(1..NN)` [in/out] the list, resized to 0..NN when
    /// the point is appended. `x`, `Y` the point. Result: index of the first point that differs by
    /// less than 0.001 in x and in y, else of the new point. Errors: 6 when the list would exceed
    /// 32767; 9 for a count beyond the arrays.
    Integer RepeatedNode(Integer& NN, Array<Single>& XL, Array<Single>& YL, const Single& x,
                         const Single& Y) const;

    /// Sorts points counter-clockwise about their mean point, from the direction +x.
    ///
    /// `N` number of points. `x`, `Y(1..N)` [in/out] the points. `Node(1..N)` [in/out] numbers that
    /// go with the points. Equal directions keep their order; a point at the mean point counts as
    /// straight below. Errors: 6 for N = 0 or 32767; 9 for a negative N, with nothing moved, or a
    /// count beyond the arrays.
    void SortingPolygonPoints(const Integer& N, Array<Single>& x, Array<Single>& Y,
                              Array<Integer>& Node) const;

    /// Splits the triangle i, j, k by the altitude from i into two right triangles.
    ///
    /// `XI`, `Yi`, `Xj`, `Yj`, `XK`, `YK` corners. `Dt`, `ET` [out] distances of j and of k from
    /// the foot, negative when the foot lies beyond that corner. `FT` [out] altitude, 0 for a
    /// degenerate triangle. `Theta` [out] direction of the side ij less `Jsign` times the angle at
    /// i between ij and the altitude. `Jsign` [out] sign of ET - Dt. Distances below 0.001 become
    /// 0. No errors: of a triangle that is degenerate (a side or the altitude of no length) FT is
    /// 0, and Theta and Jsign are as before. Source: law of cosines.
    void TriangularGeometry(const Single& XI, const Single& Yi, const Single& Xj, const Single& Yj,
                            const Single& XK, const Single& YK, Single& Dt, Single& ET, Single& FT,
                            OptionalRef<Single> Theta = {}, OptionalRef<Integer> Jsign = {}) const;
};

} // namespace torlib

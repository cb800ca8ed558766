#pragma once
// Plane geometry for slab outlines, load areas and meshes: section properties of a polygon, the
// angular sort of its points, point-in-polygon, find-or-append of a point, the altitude of a
// triangle that the triangular loads of the soil are described by, the points of a straight line,
// the meeting point of two segments, and the mesh lines that make up a beam.
//
//     Geometry_Class geometry;
//     geometry.Querschnittswerte(N, x, Y, A, Xs, Ys, Ix, Iy, Ixy);
//     geometry.TriangularGeometry(XI, Yi, Xj, Yj, XK, YK, Dt, ET, FT, Theta, Jsign);
//
// Files in reading order: section_properties.cpp (sort, section properties), point_tests.cpp (point
// in polygon, repeated point), triangle_altitude.cpp, line_sorting.cpp (repeated points, points of
// a line), segment_meeting.cpp, beam_pieces.cpp, point.h, geometry_class.cpp (instance, member
// table).
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

    /// Orders the points of a straight line by their distance from its start.
    ///
    /// `NL` [in/out] number of points, on return of different points. `XL`, `YL(1..NL)` [in/out]
    /// points in any order; on return index 1 is the start, the others follow on the line by
    /// ascending distance. `Xs`, `Ys` start and `XE`, `YE` end of the line. A point beside the
    /// line, or behind its start, is moved onto it at its distance from the start. The start should
    /// be in the list: if it is not, index NL+1 is written, too. Errors: 6 for a line of no length
    /// or NL = 32767; 9 for a count beyond the arrays, also when there is no place for the start.
    void SortingLine(Integer& NL, Array<Single>& XL, Array<Single>& YL, Single Xs, Single Ys,
                     Single XE, Single YE) const;

    /// Appends the point in which two segments meet.
    ///
    /// `XsL1`, `YsL1` start and `XeL1`, `YeL1` end of segment 1; `XsL2`, `YsL2`, `XeL2`, `YeL2`
    /// those of segment 2. `N` [in/out] number of points. `XL`, `YL(1..N)` [in/out] the list,
    /// resized to 0..N when a point is appended; it is not searched for an equal one. A point is
    /// appended when its distance from either end of a segment does not exceed that segment's
    /// length. Of segments on one line, those ends of segment 2 are appended that lie on segment 1,
    /// its start first; never ends of segment 1. Errors: 6 when the list would exceed 32767 or a
    /// line form overflows; 9 for a list of two dimensions.
    /// Source: Bronstein and Semendjajew, Taschenbuch der Mathematik, line through two points and
    /// intersection of two lines. Deviations: a segment is vertical when its x are exactly equal,
    /// lines are parallel when their stored slopes are equal and their intercepts differ in any
    /// bit, and else one line when both differ by less than 0.001; the test of the lengths has no
    /// tolerance. Oblique segments on one line are therefore found for sure only on a grid and
    /// with a slope of binary fractions.
    void DefiningPoint(const Single& XsL1, const Single& YsL1, const Single& XeL1,
                       const Single& YeL1, const Single& XsL2, const Single& YsL2,
                       const Single& XeL2, const Single& YeL2, Integer& N, Array<Single>& XL,
                       Array<Single>& YL) const;

    /// Removes repeated points from a list.
    ///
    /// `N` [in/out] number of points. `XL`, `YL(1..N)` [in/out] the list, not resized; what stands
    /// above the new N stays. Of points with exactly the same x and y the last one stays, at its
    /// place among the others. Errors: 6 for N = 32767; 9 for a count beyond the arrays, the list
    /// is then as before.
    void DeletingDuplicatePoints(Integer& N, Array<Single>& XL, Array<Single>& YL) const;

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

    /// Finds the mesh lines that make up each beam element, and lists them anew beam by beam.
    ///
    /// `NME` [out] number of listed beams, those of at least two mesh lines that follow one another
    /// and together are as long as the beam to 0.001. `IME`, `KME(1..NME)` [out] number of the beam
    /// and of its pieces, resized to 0..NME. `LT1`, `LT2(1..NME, 1..KME)` [out] end nodes of each
    /// piece, resized to 0..NME, 0..largest KME; pieces run in the beam's direction, LT1 nearer its
    /// start. `Nk` number of nodes. `XGriD`, `YGriD(1..Nk)` node coordinates. `NE` number of beams.
    /// `NT` number of types. `Np1`, `Np2`, `NTy(1..NE)` end nodes and type of each beam. `NM`
    /// [in/out] number of mesh lines. `Mp1`, `Mp2`, `MTy(1..NM)` [in/out] their end nodes and
    /// types: on return the pieces of the listed beams, row by row, with the type of their beam,
    /// resized to 0..NM. A beam whose mesh lines are doubled, overlap or have no length is left
    /// out, also when their lengths add up. Lists of which there is no row stay as they are.
    /// Errors: 6 for an overflow, also of NM; 9 for a count or a node number beyond the arrays.
    /// Deviations: `Nk` and `NT` are not read, the arrays carry their sizes; mesh lines are judged
    /// by `DefiningPoint`, so coordinates should be on a common grid.
    void Sortingbeamelements(Integer& NME, Array<Integer>& IME, Array<Integer>& KME,
                             Array<Integer>& LT1, Array<Integer>& LT2, const Integer& Nk,
                             const Array<Single>& XGriD, const Array<Single>& YGriD,
                             const Integer& NE, const Integer& NT, const Array<Integer>& Np1,
                             const Array<Integer>& Np2, const Array<Integer>& NTy, Integer& NM,
                             Array<Integer>& Mp1, Array<Integer>& Mp2, Array<Integer>& MTy) const;
};

} // namespace torlib

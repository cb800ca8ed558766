#pragma once
// Mindlin's elastic half-space with loads inside it: the vertical displacement of a point on a pile
// shaft, under a pile base or under a raft, caused by a load on a shaft, a base or a piece of raft.
// A host builds the flexibility of piles and piled rafts from these factors.
//
//     Mindlin_class mindlin;
//     Real shaft = mindlin.Isr_HS(R, ro, L1, L2, Z, Nue) * Q / E;   // by a load Q on a shaft
//     Real base = mindlin.Icr_HS(R, ro, C, Z, Nue) * P / E;         // by a load P on a base
//     Real layer = mindlin.Isr_EH(R, ro, L1, L2, Z, Ho, Nue) * Q / E;   // on rock Ho below Z
//
// Files in reading order: mindlin_factors.h (what the members share), mindlin_point.cpp (the
// kernel), mindlin_line.cpp (line, shaft), mindlin_circle.cpp (base), mindlin_rectangle.cpp (raft),
// mindlin_class.cpp (members, layers, member table).
//
// Shared by all members:
// - Any one unit of length. The values are displacements, downward positive, per unit load and unit
//   modulus of elasticity (per unit pressure for Iii_HS, Iii_EH and Cii_HS).
// - `R` horizontal distance from the load's axis to the point, `Z` depth of the point, `C` depth of
//   the load, `L1` and `L2` depths of the top and bottom of a line or shaft, `ro` radius, `Ho`
//   thickness of the layer under the point; depths are zero or positive. `Nue` Poisson's ratio,
//   0 when omitted. No argument is validated or changed.
// - Source: Mindlin (1936), Force at a point in the interior of a semi-infinite solid, Physics 7.
// - Expressions are evaluated in double precision and rounded when returned. Sums over angles and
//   depths, angles, and the distances that are named below are kept in 32 bits. What this costs is
//   stated where it is more than 1E-7, as the largest relative error at the points named, measured
//   for Poisson's ratio 0.3 and ro = 0.5 against adaptive quadrature of the point kernel in double
//   precision; docs/validation.md has the whole tables.
// - Errors: 11 for a division by zero, 6 for 0/0 or a value too large, 5 for a logarithm outside
//   its domain; 11 for `Nue` = 1 or -1, but for Iii_HS and Iii_EH.

#include "torlib/frame/arithmetic.h"

namespace torlib {

struct ClassInfo;

class TORLIB_API Mindlin_class {
  public:
    static Mindlin_class& DefaultInstance();
    static const ClassInfo& Info();

    /// Displacement by a load spread over a horizontal circle, such as a pile base.
    ///
    /// Errors: 6 for ro = 0; 11 for R = 0 with Z = C (Icc_HS has the centre).
    /// Source: integral along rays in closed form, trapezoidal rule over 50 steps of half a turn.
    /// Deviations: the ray to the point's side stands at 0.999 Pi; the distances of the circle's
    /// centre and rim are kept in 32 bits, which cancel on that ray when load and point are at
    /// nearly equal depths. With the load at the depth 10, and both at the surface:
    ///
    ///     Z - C         | R = ro/2  0.98 ro  ro     1.02 ro  2 ro   6 ro   20 ro   40 ro   100 ro
    ///     0             | 1.2 %     3.1 %    1.7 %  0.1 %    9E-5   0.3 %  2 %     9 %     48 %
    ///     0, surface    | 1.2 %     3.3 %    1.8 %  0.1 %    1E-4   0.4 %  4 %     20 %    110 %
    ///     ro/10         | 6E-6      7E-6     2E-5   2E-5     1E-6   3E-4   0.8 %   3 %     92 %
    ///     2 ro to 10 ro | 5E-5      5E-5     3E-5   4E-5     5E-5   6E-5   1E-4    0.1 %   1.2 %
    ///     -20 to -2 ro  | 3E-5      3E-5     3E-5   3E-5     3E-5   5E-5   1E-4    5E-4    1.5 %
    ///
    /// Far away at equal depths Ipi_HS is the better choice: within 0.4 % at 6 ro, 3E-4 at 20 ro.
    /// Near the centre the error is the distance's share: 5E-4 at 0.02 ro.
    Single Icr_HS(Single R, Single ro, Single C, Single Z, Single Nue = 0) const;

    /// Displacement by a point load.
    ///
    /// Errors: 11 at the load itself. Deviations: none (6E-8).
    Single Ipi_HS(Single R, Single C, Single Z, Single Nue = 0) const;

    /// Displacement by a load spread along a vertical line.
    ///
    /// Errors: 11 for R = 0 (6 if Z = 0 < L1 too); 6 for L1 = L2.
    /// Source: the kernel integrated over the load's depth. Deviations: the depths of the ends
    /// below the point and its image and their distances are kept in 32 bits, and terms that grow
    /// with (Z/R)^2 cancel. Where R is below 2.4E-4 to 3.5E-4 of the point's depth below an end the
    /// distance cancels the depth to nothing, and the two logarithms of the load are left out. For
    /// a line from 0 to 10 at the depths 0 to 10 and 10.5 to 30, one from 20 to 30 at 0 to 30:
    ///
    ///     R       | 0.002   0.01    0.02    0.05    0.1     0.5     1       3       50
    ///     beside  | 89 %    1.5 %   0.3 %   0.07 %  2E-4    2E-5    3E-6    5E-7    3E-7
    ///     below   | 61 %    110 %   24 %    7 %     1.4 %   3E-4    1E-4    2E-5    5E-7
    ///     deep    | 97 %    5 %     3 %     0.5 %   8E-4    5E-5    1E-5    4E-6    5E-7
    ///
    /// At the depth 100 below the line from 0 to 10 the error is 10 % for R = 0.3, 0.8 % for 1,
    /// 8E-4 for 3 and 1E-4 for 10: a layer should not be much thicker than 30 R.
    Single Ili_HS(Single R, Single L1, Single L2, Single Z, Single Nue = 0) const;

    /// Displacement on the axis of a load spread over a horizontal circle.
    ///
    /// Errors: 6 for ro = 0. Source: the kernel integrated over the circle. Deviations: none
    /// (6E-8).
    Single Icc_HS(Single ro, Single C, Single Z, Single Nue = 0) const;

    /// Displacement by a load spread over a vertical cylinder, such as a pile shaft.
    ///
    /// Errors: those of Ili_HS. Source: mean of the line's factor over the ring, trapezoidal rule
    /// over 50 steps of half a turn. Deviations: the distance of each line is kept in 32 bits, and
    /// each line has the errors of Ili_HS at its own distance; with R = ro the nearest line is left
    /// out. The factor of the own shaft is then too small: for ro = 0.5 by 6-9 % in the middle of
    /// an element of 0.5, 4-6 % of 1, 3-5 % of 2 and 2-3 % of 5 to 20; at its ends by 4-7 %, 3-5 %,
    /// 2.5-4 % and 2-3 %. A host that takes it at 1.01 ro has the own shaft of elements up to 10
    /// within 0.4 %. For a shaft from 0 to 10 at the depths 0 to 10 and 10.5 to 30:
    ///
    ///     R      | 0      0.9 ro  0.98 ro  1.01 ro  1.02 ro  1.1 ro  2 ro    6 ro    80 ro
    ///     beside | 1E-5   2E-5    5E-4     0.3 %    5E-4     2E-5    7E-7    3E-7    3E-7
    ///     below  | 3E-4   0.2 %   1.1 %    0.3 %    1 %      9E-4    3E-5    2E-6    3E-7
    Single Isr_HS(Single R, Single ro, Single L1, Single L2, Single Z, Single Nue = 0) const;

    // ---- Compression of a layer: displacement at the depth Z less that at the depth Z + Ho, which
    // ---- is kept in 32 bits. Source: Steinbrenner (1934), the layer as a slice of a half-space.
    // ---- Errors as for the half-space, of either depth.

    /// Compression of the layer under the point by a load on a circle; see Icr_HS.
    Single Icr_EH(Single R, Single ro, Single C, Single Z, Single Ho, Single Nue = 0) const;

    /// Compression of the layer under the point by a load on a cylinder; see Isr_HS.
    Single Isr_EH(Single R, Single ro, Single L1, Single L2, Single Z, Single Ho,
                  Single Nue = 0) const;

    /// Compression of the layer under the point by a point load; see Ipi_HS.
    Single Ipi_EH(Single R, Single C, Single Z, Single Ho, Single Nue = 0) const;

    /// Compression of the layer on the axis of a loaded circle; see Icc_HS.
    Single Icc_EH(Single ro, Single C, Single Z, Single Ho, Single Nue = 0) const;

    /// Compression of the layer under the point by a load on a vertical line; see Ili_HS.
    Single Ili_EH(Single R, Single L1, Single L2, Single Z, Single Ho, Single Nue = 0) const;

    // ---- Rectangles ----

    /// Settlement at the corner of the rectangle `A` x `B` under unit pressure, on the surface.
    ///
    /// Result: settlement per unit pressure and unit modulus. Errors: 11 for A = 0 or B = 0 and for
    /// a rectangle so slender that its diagonal is its side in 32 bits (sides 1 : 4100), 6 for
    /// both 0. Source: Steinbrenner (1934). Deviations: the diagonal is kept in 32 bits, which
    /// costs 9E-7 for sides 1 : 10, 4E-5 for 1 : 100 and 0.14 % for 1 : 1000.
    Single Iii_HS(Single A, Single B, Single Nue = 0) const;

    /// Compression of a layer under the corner of the rectangle `A` x `B` under unit pressure.
    ///
    /// `ZG` depth of the layer's top. A depth that is not positive contributes nothing: with
    /// ZG <= 0 the result is the settlement of the surface less that at ZG + Ho. Result, errors and
    /// source as for Iii_HS. Deviations: the diagonal, the lower depth and the two settlements are
    /// kept in 32 bits, which costs 1E-6 for 3 x 1.5 with layers of 6 and 100, and up to 1E-4 for a
    /// layer of 0.1 at the depth 20.
    Single Iii_EH(Single A, Single B, Single ZG, Single Ho, Single Nue = 0) const;

    /// Displacement by a rectangle `A` x `B` under unit pressure in the depth `C`, its load taken
    /// at half the diagonal.
    ///
    /// With Z = C the term of the load itself is the mean of 1/distance from the rectangle's
    /// corner, 1.25 times 1/R1 for the square and more for slender ones. Errors: with Z = C, 11 for
    /// A = 0 or B = 0 and 6 for both. Deviations: the diagonal and its half are kept in 32
    /// bits.
    Single Cii_HS(const Single& A, const Single& B, Single C, Single Z, Single Nue = 0) const;
};

} // namespace torlib

#pragma once
// The soil as an elastic, isotropic, homogeneous half-space loaded at its surface: stresses and
// displacements inside it, settlement coefficients of the half-space, and compression coefficients
// of a layer, for a point load and for a uniformly loaded triangle. From these a host builds the
// flexibility of the soil under a foundation.
//
//     Soil_Class soil;
//     Real settlement = soil.Co_P_HS(x1, x2, y1, y2, Anue) * P / E;
//     geometry.TriangularGeometry(XI, Yi, Xj, Yj, XK, YK, Dt, ET, FT);
//     Real stress = soil.Sz_q_ST(FT, Dt, ET, ZG, AreaNode) * P;   // summed over the triangles
//
// Files in reading order: soil_factors.h (the formulas without the members), point_load.cpp (inside
// the half-space, under a point load), triangle_load.cpp (the same under a triangle),
// flexibility.cpp (settlement and compression coefficients), soil_class.cpp (members, member
// table).
//
// Shared by all members:
// - Any one unit of length. Stresses are per unit load; displacements are per unit load and unit
//   modulus of elasticity. `Anue` is Poisson's ratio; no argument is validated.
// - Point load: it acts at (`x2`, `y2`) on the surface, the value is sought at (`x1`, `y1`) in the
//   depth `ZG`, downward positive. dx = x1 - x2, dy = y1 - y2; r is the distance in plan, R that in
//   space.
// - Triangle: one corner stands above the point where the value is sought. `FT` is the distance h
//   of that corner from the line through the opposite side; `Dt` and `ET` are the signed distances
//   d of the side's ends from the foot of the perpendicular, both positive when the foot lies
//   between them. The triangle carries the pressure 1/`AreaNode`. A distance of 0 contributes
//   nothing.
// - Signs: normal stresses are positive in compression, settlements downward, horizontal
//   displacements of a point load towards +x and +y. Shear stresses are positive as in continuum
//   mechanics, with tension positive and z downward.
// - Expressions are evaluated in double precision and rounded when returned; sums that are kept in
//   32 bits are named below. No member changes its arguments, but for `ZG` of Co_P_LM.
// - Errors: 11 for a division by zero, 6 for 0/0 or a value too large, 5 for a logarithm or root
//   outside its domain. For h > 0 and an area that is not zero the triangles raise none, unless h
//   is lost beside d in double precision.

#include "torlib/frame/arithmetic.h"

namespace torlib {

struct ClassInfo;

class TORLIB_API Soil_Class {
  public:
    static Soil_Class& DefaultInstance();
    static const ClassInfo& Info();

    // ---- Point load, inside the half-space ----

    /// Vertical normal stress under a point load, 3 z^3 / (2 Pi R^5).
    ///
    /// Result: stress per unit load, compression positive. Errors: 6 at the load itself.
    /// Source: Boussinesq (1885), Application des potentiels.
    Single Sz_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                   const Single& ZG) const;

    /// Normal stress in x under a point load.
    ///
    /// Result: stress per unit load, compression positive. Errors: 6 at the load itself.
    /// Source: Boussinesq (1885); Poulos and Davis (1974), Elastic solutions for soil and rock
    /// mechanics, section 2.1.
    Single Sx_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                   const Single& ZG, const Single& Anue) const;

    /// Normal stress in y under a point load; otherwise as Sx_P_ST.
    Single Sy_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                   const Single& ZG, const Single& Anue) const;

    /// Shear stress xy under a point load.
    ///
    /// Result: stress per unit load; exactly 0 when dx or dy is 0, also at the load itself.
    /// Source: as Sx_P_ST.
    Single Txy_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                    const Single& ZG, const Single& Anue) const;

    /// Shear stress xz under a point load, -3 z^2 dx / (2 Pi R^5).
    ///
    /// Result: stress per unit load; exactly 0 when dx is 0. Source: Boussinesq (1885).
    Single Txz_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                    const Single& ZG) const;

    /// Shear stress yz under a point load; as Txz_P_ST with dy in place of dx.
    Single Tyz_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                    const Single& ZG) const;

    /// Vertical displacement under a point load.
    ///
    /// Result: settlement per unit load and unit modulus, downward positive. Errors: 6 at the load
    /// itself. Source: Boussinesq (1885).
    Single Wz_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                   const Single& ZG, const Single& Anue) const;

    /// Horizontal displacement in x under a point load.
    ///
    /// Result: displacement per unit load and unit modulus, towards +x; exactly 0 when dx is 0.
    /// Source: Boussinesq (1885).
    Single Ux_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                   const Single& ZG, const Single& Anue) const;

    /// Horizontal displacement in y under a point load; as Ux_P_ST for y.
    Single Vy_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                   const Single& ZG, const Single& Anue) const;

    /// The point-load value that a number selects.
    ///
    /// `x1`, `y1` point of the value, `x2`, `y2` point of the load: the order differs from that of
    /// the other members. `ZG` depth; a depth of exactly 0 becomes 0.1. `Nue` Poisson's ratio.
    /// `I_Par` 2 Ux, 3 Vy, 4 Wz, 5 Sx, 6 Sy, 7 Sz, 8 Txy, 9 Txz, 10 Tyz; any other number gives 0.
    Single Fxy(const Single& x1, const Single& y1, const Single& x2, const Single& y2, Single ZG,
               Single Nue, const Integer& I_Par) const;

    // ---- Uniformly loaded triangle, under its corner ----

    /// Vertical normal stress under the corner of a loaded triangle.
    ///
    /// Result: stress per unit force on `AreaNode`, compression positive. A depth of exactly 0
    /// becomes 1E-10; the result is then the angle at the corner over 2 Pi and the area. Errors: 11
    /// for an area of 0. Source: Boussinesq's solution integrated over the triangle, as
    /// Steinbrenner (1934) did for the rectangle. Deviations: the sum of the two right triangles is
    /// kept in 32 bits.
    Single Sz_q_ST(const Single& FT, const Single& Dt, const Single& ET, Single ZG,
                   const Single& AreaNode) const;

    /// Vertical displacement under the corner of a loaded triangle.
    ///
    /// Result: settlement per unit force on `AreaNode` and unit modulus, downward positive. Errors:
    /// 6 or 11 for an area of 0; 5, 6 or 11 when h is lost beside d. Source and deviations as for
    /// Sz_q_ST.
    Single Wz_q_ST(const Single& FT, const Single& Dt, const Single& ET, const Single& ZG,
                   const Single& AreaNode, const Single& Anue) const;

    /// Shear stress along the perpendicular h, under the corner of a loaded triangle.
    ///
    /// Result: stress per unit force on `AreaNode`, never positive; the host turns it into the
    /// direction of the perpendicular. Source and deviations as for Sz_q_ST.
    Single Txz_q_ST(const Single& FT, const Single& Dt, const Single& ET, const Single& ZG,
                    const Single& AreaNode) const;

    /// Shear stress along the side, under the corner of a loaded triangle.
    ///
    /// Result: stress per unit force on `AreaNode`, the parts of the right triangles added with the
    /// signs of `Dt` and `ET`: with the foot inside the side, the sum of both magnitudes, not their
    /// difference. Source and deviations as for Sz_q_ST.
    Single Tyz_q_ST(const Single& FT, const Single& Dt, const Single& ET, const Single& ZG,
                    const Single& AreaNode) const;

    // ---- Flexibility coefficients of the surface and of a layer ----

    /// Settlement of the surface under a point load, (1 - Anue^2) / (Pi r).
    ///
    /// Result: settlement per unit load and unit modulus, downward positive. Errors: 11 when the
    /// points coincide. Source: Boussinesq (1885).
    Single Co_P_HS(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                   const Single& Anue) const;

    /// Settlement of the surface at the corner of a loaded triangle.
    ///
    /// Result: settlement per unit force on `AreaNode` and unit modulus, downward positive. Errors
    /// as for Wz_q_ST. Source: Steinbrenner (1934), for the triangle in place of the rectangle.
    /// Deviations: the sum of the two right triangles is kept in 32 bits.
    Single Co_q_HS(const Single& FT, const Single& Dt, const Single& ET, const Single& AreaNode,
                   const Single& Anue) const;

    /// Compression of a layer under a point load: settlement at its top less that at its bottom.
    ///
    /// `ZG` [in/out] depth of the layer's top, on return larger by 2 `Ho`, so that a second call
    /// with the same variable concerns another layer. `Ho` thickness. Result: compression per unit
    /// load and unit modulus, shortening positive. Errors: 11 when the points coincide in plan,
    /// with ZG as before; an error of the second depth leaves ZG larger by Ho. Source: Steinbrenner
    /// (1934), the layer as a slice of a half-space. Deviations: sums in double precision, ZG in 32
    /// bits.
    Single Co_P_LM(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                   Single& ZG, const Single& Ho, const Single& Anue) const;

    /// Compression of a layer under the corner of a loaded triangle.
    ///
    /// `ZG` depth of the layer's top. `Ho` thickness. Result: compression per unit force on
    /// `AreaNode` and unit modulus, shortening positive. Errors as for Wz_q_ST. Source:
    /// Steinbrenner (1934). Deviations: sums in double precision, the bottom's depth in 32 bits.
    Single Co_q_LM(const Single& FT, const Single& Dt, const Single& ET, Single ZG,
                   const Single& Ho, const Single& AreaNode, const Single& Anue) const;

    /// Horizontal displacement of the surface along the perpendicular h, at the corner of a loaded
    /// triangle.
    ///
    /// Result: displacement per unit force on `AreaNode` and unit modulus, towards the triangle;
    /// the host turns it into the plan. Errors: 6 or 11 for an area of 0. Source: Boussinesq
    /// (1885), integrated. Deviations: the sum is kept in 32 bits.
    Single Ux_q_Tr(const Single& FT, const Single& Dt, const Single& ET, const Single& AreaNode,
                   const Single& Anue) const;

    /// Horizontal displacement of the surface along the side, at the corner of a loaded triangle.
    ///
    /// Result: displacement per unit force on `AreaNode` and unit modulus, of each right triangle
    /// with the sign opposite to its `Dt` or `ET`; with the foot inside the side, the sum of both
    /// magnitudes. Errors: 5 for a negative h; 6 or 11 for an area of 0. Source and deviations as
    /// for Ux_q_Tr.
    Single Uy_q_Tr(const Single& FT, const Single& Dt, const Single& ET, const Single& AreaNode,
                   const Single& Anue) const;
};

} // namespace torlib

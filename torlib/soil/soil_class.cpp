#include "torlib/soil/soil_class.h"

#include "torlib/frame/class_table.h"
#include "torlib/platform/component/run_time_error.h"
#include "torlib/soil/soil_factors.h"

namespace torlib {
namespace {

Real DistanceInPlan(const Single& x1, const Single& x2, const Single& y1, const Single& y2) {
    const Real dx = x1 - x2;
    const Real dy = y1 - y2;
    return Sqrt(dy * dy + dx * dx);
}

} // namespace

Single Soil_Class::Sz_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                           const Single& ZG) const {
    const MemberScope scope("Soil_Class.Sz_P_ST");
    return soil::PointStressZ({x1, x2, y1, y2, ZG});
}

Single Soil_Class::Sx_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                           const Single& ZG, const Single& Anue) const {
    const MemberScope scope("Soil_Class.Sx_P_ST");
    return soil::PointStressX({x1, x2, y1, y2, ZG}, Anue);
}

Single Soil_Class::Sy_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                           const Single& ZG, const Single& Anue) const {
    const MemberScope scope("Soil_Class.Sy_P_ST");
    return soil::PointStressY({x1, x2, y1, y2, ZG}, Anue);
}

Single Soil_Class::Txy_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                            const Single& ZG, const Single& Anue) const {
    const MemberScope scope("Soil_Class.Txy_P_ST");
    return soil::PointShearXy({x1, x2, y1, y2, ZG}, Anue);
}

Single Soil_Class::Txz_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                            const Single& ZG) const {
    const MemberScope scope("Soil_Class.Txz_P_ST");
    return soil::PointShearXz({x1, x2, y1, y2, ZG});
}

Single Soil_Class::Tyz_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                            const Single& ZG) const {
    const MemberScope scope("Soil_Class.Tyz_P_ST");
    return soil::PointShearYz({x1, x2, y1, y2, ZG});
}

Single Soil_Class::Wz_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                           const Single& ZG, const Single& Anue) const {
    const MemberScope scope("Soil_Class.Wz_P_ST");
    return soil::PointSettlement({x1, x2, y1, y2, ZG}, Anue);
}

Single Soil_Class::Ux_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                           const Single& ZG, const Single& Anue) const {
    const MemberScope scope("Soil_Class.Ux_P_ST");
    return soil::PointDisplacementX({x1, x2, y1, y2, ZG}, Anue);
}

Single Soil_Class::Vy_P_ST(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                           const Single& ZG, const Single& Anue) const {
    const MemberScope scope("Soil_Class.Vy_P_ST");
    return soil::PointDisplacementY({x1, x2, y1, y2, ZG}, Anue);
}

Single Soil_Class::Fxy(const Single& x1, const Single& y1, const Single& x2, const Single& y2,
                       Single ZG, Single Nue, const Integer& I_Par) const {
    const MemberScope scope("Soil_Class.Fxy");
    const soil::Place at(x1, x2, y1, y2, ZG == 0 ? Single(0.1) : ZG);
    switch (I_Par) {
        case 2:
            return soil::PointDisplacementX(at, Nue);
        case 3:
            return soil::PointDisplacementY(at, Nue);
        case 4:
            return soil::PointSettlement(at, Nue);
        case 5:
            return soil::PointStressX(at, Nue);
        case 6:
            return soil::PointStressY(at, Nue);
        case 7:
            return soil::PointStressZ(at);
        case 8:
            return soil::PointShearXy(at, Nue);
        case 9:
            return soil::PointShearXz(at);
        case 10:
            return soil::PointShearYz(at);
        default:
            return 0;
    }
}

Single Soil_Class::Sz_q_ST(const Single& FT, const Single& Dt, const Single& ET, Single ZG,
                           const Single& AreaNode) const {
    const MemberScope scope("Soil_Class.Sz_q_ST");
    return soil::TriangleStressZ({FT, Dt, ET}, ZG == 0 ? Single(1E-10) : ZG, AreaNode);
}

Single Soil_Class::Wz_q_ST(const Single& FT, const Single& Dt, const Single& ET, const Single& ZG,
                           const Single& AreaNode, const Single& Anue) const {
    const MemberScope scope("Soil_Class.Wz_q_ST");
    return soil::TriangleSettlement({FT, Dt, ET}, ZG, AreaNode, Anue);
}

Single Soil_Class::Txz_q_ST(const Single& FT, const Single& Dt, const Single& ET, const Single& ZG,
                            const Single& AreaNode) const {
    const MemberScope scope("Soil_Class.Txz_q_ST");
    return soil::TriangleShearAcross({FT, Dt, ET}, ZG, AreaNode);
}

Single Soil_Class::Tyz_q_ST(const Single& FT, const Single& Dt, const Single& ET, const Single& ZG,
                            const Single& AreaNode) const {
    const MemberScope scope("Soil_Class.Tyz_q_ST");
    return soil::TriangleShearAlong({FT, Dt, ET}, ZG, AreaNode);
}

Single Soil_Class::Co_P_HS(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                           const Single& Anue) const {
    const MemberScope scope("Soil_Class.Co_P_HS");
    return soil::SurfaceSettlement(DistanceInPlan(x1, x2, y1, y2), Anue);
}

Single Soil_Class::Co_q_HS(const Single& FT, const Single& Dt, const Single& ET,
                           const Single& AreaNode, const Single& Anue) const {
    const MemberScope scope("Soil_Class.Co_q_HS");
    return soil::SurfaceSettlement({FT, Dt, ET}, AreaNode, Anue);
}

Single Soil_Class::Co_P_LM(const Single& x1, const Single& x2, const Single& y1, const Single& y2,
                           Single& ZG, const Single& Ho, const Single& Anue) const {
    const MemberScope scope("Soil_Class.Co_P_LM");
    return soil::LayerCompression(DistanceInPlan(x1, x2, y1, y2), ZG, Ho, Anue);
}

Single Soil_Class::Co_q_LM(const Single& FT, const Single& Dt, const Single& ET, Single ZG,
                           const Single& Ho, const Single& AreaNode, const Single& Anue) const {
    const MemberScope scope("Soil_Class.Co_q_LM");
    return soil::LayerCompression({FT, Dt, ET}, ZG, Ho, AreaNode, Anue);
}

Single Soil_Class::Ux_q_Tr(const Single& FT, const Single& Dt, const Single& ET,
                           const Single& AreaNode, const Single& Anue) const {
    const MemberScope scope("Soil_Class.Ux_q_Tr");
    return soil::SurfaceShiftAcross({FT, Dt, ET}, AreaNode, Anue);
}

Single Soil_Class::Uy_q_Tr(const Single& FT, const Single& Dt, const Single& ET,
                           const Single& AreaNode, const Single& Anue) const {
    const MemberScope scope("Soil_Class.Uy_q_Tr");
    return soil::SurfaceShiftAlong({FT, Dt, ET}, AreaNode, Anue);
}

namespace {

// clang-format off
constexpr Member members[] = {
    Method<&Soil_Class::Co_P_LM>(u"Co_P_LM",
        u"Compression of a layer under a point load; advances ZG by 2 Ho.",
        {u"x1", u"x2", u"y1", u"y2", u"ZG", u"Ho", u"Anue"}),
    Method<&Soil_Class::Co_q_LM>(u"Co_q_LM",
        u"Compression of a layer under the corner of a loaded triangle.",
        {u"FT", u"Dt", u"ET", u"ZG", u"Ho", u"AreaNode", u"Anue"}),
    Method<&Soil_Class::Co_P_HS>(u"Co_P_HS", u"Settlement of the surface under a point load.",
        {u"x1", u"x2", u"y1", u"y2", u"Anue"}),
    Method<&Soil_Class::Co_q_HS>(u"Co_q_HS",
        u"Settlement of the surface at the corner of a loaded triangle.",
        {u"FT", u"Dt", u"ET", u"AreaNode", u"Anue"}),
    Method<&Soil_Class::Sz_q_ST>(u"Sz_q_ST",
        u"Vertical normal stress under the corner of a loaded triangle.",
        {u"FT", u"Dt", u"ET", u"ZG", u"AreaNode"}),
    Method<&Soil_Class::Ux_P_ST>(u"Ux_P_ST", u"Horizontal displacement in x under a point load.",
        {u"x1", u"x2", u"y1", u"y2", u"ZG", u"Anue"}),
    Method<&Soil_Class::Vy_P_ST>(u"Vy_P_ST", u"Horizontal displacement in y under a point load.",
        {u"x1", u"x2", u"y1", u"y2", u"ZG", u"Anue"}),
    Method<&Soil_Class::Wz_P_ST>(u"Wz_P_ST", u"Vertical displacement under a point load.",
        {u"x1", u"x2", u"y1", u"y2", u"ZG", u"Anue"}),
    Method<&Soil_Class::Wz_q_ST>(u"Wz_q_ST",
        u"Vertical displacement under the corner of a loaded triangle.",
        {u"FT", u"Dt", u"ET", u"ZG", u"AreaNode", u"Anue"}),
    Method<&Soil_Class::Sz_P_ST>(u"Sz_P_ST", u"Vertical normal stress under a point load.",
        {u"x1", u"x2", u"y1", u"y2", u"ZG"}),
    Method<&Soil_Class::Sx_P_ST>(u"Sx_P_ST", u"Normal stress in x under a point load.",
        {u"x1", u"x2", u"y1", u"y2", u"ZG", u"Anue"}),
    Method<&Soil_Class::Sy_P_ST>(u"Sy_P_ST", u"Normal stress in y under a point load.",
        {u"x1", u"x2", u"y1", u"y2", u"ZG", u"Anue"}),
    Method<&Soil_Class::Txy_P_ST>(u"Txy_P_ST", u"Shear stress xy under a point load.",
        {u"x1", u"x2", u"y1", u"y2", u"ZG", u"Anue"}),
    Method<&Soil_Class::Txz_P_ST>(u"Txz_P_ST", u"Shear stress xz under a point load.",
        {u"x1", u"x2", u"y1", u"y2", u"ZG"}),
    Method<&Soil_Class::Tyz_P_ST>(u"Tyz_P_ST", u"Shear stress yz under a point load.",
        {u"x1", u"x2", u"y1", u"y2", u"ZG"}),
    Method<&Soil_Class::Txz_q_ST>(u"Txz_q_ST",
        u"Shear stress along the perpendicular under the corner of a loaded triangle.",
        {u"FT", u"Dt", u"ET", u"ZG", u"AreaNode"}),
    Method<&Soil_Class::Tyz_q_ST>(u"Tyz_q_ST",
        u"Shear stress along the side under the corner of a loaded triangle.",
        {u"FT", u"Dt", u"ET", u"ZG", u"AreaNode"}),
    Method<&Soil_Class::Ux_q_Tr>(u"Ux_q_Tr",
        u"Horizontal displacement along the perpendicular at the corner of a loaded triangle.",
        {u"FT", u"Dt", u"ET", u"AreaNode", u"Anue"}),
    Method<&Soil_Class::Uy_q_Tr>(u"Uy_q_Tr",
        u"Horizontal displacement along the side at the corner of a loaded triangle.",
        {u"FT", u"Dt", u"ET", u"AreaNode", u"Anue"}),
    Method<&Soil_Class::Fxy>(u"Fxy", u"The point-load value that I_Par selects.",
        {u"x1", u"y1", u"x2", u"y2", u"ZG", u"Nue", u"I_Par"}),
};
// clang-format on

} // namespace

Soil_Class& Soil_Class::DefaultInstance() {
    static Soil_Class instance;
    return instance;
}

const ClassInfo& Soil_Class::Info() {
    static const ClassInfo info = DescribeClass<Soil_Class>(
        u"Soil_Class", u"Influence functions of the elastic half-space and of a soil layer.",
        members);
    return info;
}

} // namespace torlib

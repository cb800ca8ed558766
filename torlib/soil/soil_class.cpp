#include "torlib/soil/soil_class.h"

#include "torlib/frame/class_table.h"

namespace torlib {
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

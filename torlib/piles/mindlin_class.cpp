#include "torlib/piles/mindlin_class.h"

#include "torlib/frame/class_table.h"
#include "torlib/piles/mindlin_factors.h"
#include "torlib/platform/component/run_time_error.h"

namespace torlib {
namespace {

using mindlin::Soil;

/// Displacement at the depth `Z` less that at the depth `Z` + `Ho`.
template <class Factor>
Single OfLayer(Single Z, Single Ho, Factor factor) {
    const Single top = factor(Z);
    const Single bottom = factor(Single(Z + Ho));
    return top - bottom;
}

} // namespace

Single Mindlin_class::Icr_HS(Single R, Single ro, Single C, Single Z, Single Nue) const {
    const MemberScope scope("Mindlin_class.Icr_HS");
    return mindlin::Circle(R, ro, C, Z, Soil(Nue));
}

Single Mindlin_class::Ipi_HS(Single R, Single C, Single Z, Single Nue) const {
    const MemberScope scope("Mindlin_class.Ipi_HS");
    return mindlin::Point(R, C, Z, Soil(Nue));
}

Single Mindlin_class::Ili_HS(Single R, Single L1, Single L2, Single Z, Single Nue) const {
    const MemberScope scope("Mindlin_class.Ili_HS");
    return mindlin::Line(R, L1, L2, Z, Soil(Nue));
}

Single Mindlin_class::Icc_HS(Single ro, Single C, Single Z, Single Nue) const {
    const MemberScope scope("Mindlin_class.Icc_HS");
    return mindlin::CircleCentre(ro, C, Z, Soil(Nue));
}

Single Mindlin_class::Isr_HS(Single R, Single ro, Single L1, Single L2, Single Z,
                             Single Nue) const {
    const MemberScope scope("Mindlin_class.Isr_HS");
    return mindlin::Ring(R, ro, L1, L2, Z, Soil(Nue));
}

Single Mindlin_class::Icr_EH(Single R, Single ro, Single C, Single Z, Single Ho, Single Nue) const {
    const MemberScope scope("Mindlin_class.Icr_EH");
    const Soil soil(Nue);
    return OfLayer(Z, Ho, [&](Single depth) { return mindlin::Circle(R, ro, C, depth, soil); });
}

Single Mindlin_class::Isr_EH(Single R, Single ro, Single L1, Single L2, Single Z, Single Ho,
                             Single Nue) const {
    const MemberScope scope("Mindlin_class.Isr_EH");
    const Soil soil(Nue);
    return OfLayer(Z, Ho, [&](Single depth) { return mindlin::Ring(R, ro, L1, L2, depth, soil); });
}

Single Mindlin_class::Ipi_EH(Single R, Single C, Single Z, Single Ho, Single Nue) const {
    const MemberScope scope("Mindlin_class.Ipi_EH");
    const Soil soil(Nue);
    return OfLayer(Z, Ho, [&](Single depth) { return mindlin::Point(R, C, depth, soil); });
}

Single Mindlin_class::Icc_EH(Single ro, Single C, Single Z, Single Ho, Single Nue) const {
    const MemberScope scope("Mindlin_class.Icc_EH");
    const Soil soil(Nue);
    return OfLayer(Z, Ho, [&](Single depth) { return mindlin::CircleCentre(ro, C, depth, soil); });
}

Single Mindlin_class::Ili_EH(Single R, Single L1, Single L2, Single Z, Single Ho,
                             Single Nue) const {
    const MemberScope scope("Mindlin_class.Ili_EH");
    const Soil soil(Nue);
    return OfLayer(Z, Ho, [&](Single depth) { return mindlin::Line(R, L1, L2, depth, soil); });
}

namespace {

// clang-format off
constexpr Member mindlinMembers[] = {
    Method<&Mindlin_class::Icr_HS>(u"Icr_HS", u"Displacement by a load on a circle.",
        {u"R", u"ro", u"C", u"Z", {u"Nue", 0}}),
    Method<&Mindlin_class::Ipi_HS>(u"Ipi_HS", u"Displacement by a point load.",
        {u"R", u"C", u"Z", {u"Nue", 0}}),
    Method<&Mindlin_class::Ili_HS>(u"Ili_HS", u"Displacement by a load on a vertical line.",
        {u"R", u"L1", u"L2", u"Z", {u"Nue", 0}}),
    Method<&Mindlin_class::Icc_HS>(u"Icc_HS", u"Displacement on the axis of a loaded circle.",
        {u"ro", u"C", u"Z", {u"Nue", 0}}),
    Method<&Mindlin_class::Isr_HS>(u"Isr_HS", u"Displacement by a load on a pile shaft.",
        {u"R", u"ro", u"L1", u"L2", u"Z", {u"Nue", 0}}),
    Method<&Mindlin_class::Icr_EH>(u"Icr_EH", u"Compression of a layer by a load on a circle.",
        {u"R", u"ro", u"C", u"Z", u"Ho", {u"Nue", 0}}),
    Method<&Mindlin_class::Isr_EH>(u"Isr_EH", u"Compression of a layer by a load on a pile shaft.",
        {u"R", u"ro", u"L1", u"L2", u"Z", u"Ho", {u"Nue", 0}}),
    Method<&Mindlin_class::Ipi_EH>(u"Ipi_EH", u"Compression of a layer by a point load.",
        {u"R", u"C", u"Z", u"Ho", {u"Nue", 0}}),
    Method<&Mindlin_class::Icc_EH>(u"Icc_EH",
        u"Compression of a layer on the axis of a loaded circle.",
        {u"ro", u"C", u"Z", u"Ho", {u"Nue", 0}}),
    Method<&Mindlin_class::Ili_EH>(u"Ili_EH",
        u"Compression of a layer by a load on a vertical line.",
        {u"R", u"L1", u"L2", u"Z", u"Ho", {u"Nue", 0}}),
    Method<&Mindlin_class::Iii_HS>(u"Iii_HS",
        u"Settlement at the corner of a loaded rectangle on the surface.",
        {u"A", u"B", {u"Nue", 0}}),
    Method<&Mindlin_class::Iii_EH>(u"Iii_EH",
        u"Compression of a layer under the corner of a loaded rectangle.",
        {u"A", u"B", u"ZG", u"Ho", {u"Nue", 0}}),
    Method<&Mindlin_class::Cii_HS>(u"Cii_HS",
        u"Displacement by a rectangle's load, taken at half its diagonal.",
        {u"A", u"B", u"C", u"Z", {u"Nue", 0}}),
};
// clang-format on

} // namespace

Mindlin_class& Mindlin_class::DefaultInstance() {
    static Mindlin_class instance;
    return instance;
}

const ClassInfo& Mindlin_class::Info() {
    static const ClassInfo info = DescribeClass<Mindlin_class>(
        u"Mindlin_class", u"Influence factors of loads inside the elastic half-space.",
        mindlinMembers);
    return info;
}

} // namespace torlib

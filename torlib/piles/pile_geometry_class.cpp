#include "torlib/piles/pile_geometry_class.h"

#include "torlib/frame/class_table.h"

namespace torlib {
namespace {

// clang-format off
constexpr Member pileGeometryMembers[] = {
    Method<&PileGeometry_Class::GenerationOfPileGeometry>(u"GenerationOfPileGeometry",
        u"Generates the nodes of the piles alone.",
        {u"Np", u"Lp", u"Dp", u"XPl", u"YPl", u"NK_P", u"NE_P", u"ro", u"XGN", u"YGN", u"ZGN",
         u"LG1", u"LG2", u"NodePiledRaft", u"Dz", u"Nak_Pile", u"Nak_Raft", {u"NkPG", Omitted}}),
    Method<&PileGeometry_Class::MaxDim>(u"MaxDim", u"The largest of NN(1..N), at least 0.",
        {u"N", u"NN"}),
    Method<&PileGeometry_Class::GenerationOfPiledRaftSystems>(u"GenerationOfPiledRaftSystems",
        u"Generates the nodes of raft and piles, grouped by raft node.",
        {u"Nk", u"XGriD", u"YGriD", u"Area", u"Np", u"XPl", u"YPl", u"Lp", u"Dp", u"ro", u"XGN",
         u"YGN", u"ZGN", u"LG1", u"LG2", u"NodePiledRaft", u"Nak_Pile", u"Nak_Raft", u"NK_P",
         u"NE_P", u"NkPR", u"NK_PR", u"Dz"}),
    Method<&PileGeometry_Class::MaxCoordinates>(u"MaxCoordinates", u"The largest coordinates.",
        {u"N", u"XG", u"YG", u"XMax", u"YMax"}),
    Method<&PileGeometry_Class::SetPileNo>(u"SetPileNo", u"Numbers the piles by node.",
        {u"Nak_Pile", u"NakPP", u"Nk", u"Np"}),
    Method<&PileGeometry_Class::SetRaftNodeNo>(u"SetRaftNodeNo", u"Copies the raft node numbers.",
        {u"Nak_Raft", u"NakRF", u"NkPG"}),
    Method<&PileGeometry_Class::ResolveNodeNumber>(u"ResolveNodeNumber",
        u"Numbers every node as itself.", {u"NakRF", u"Nk"}),
    Method<&PileGeometry_Class::GlobalContributedFactor>(u"GlobalContributedFactor",
        u"Spreads the factors of piles over their nodes.",
        {u"Npf", u"NkPG", u"XGN", u"YGN", u"XPl", u"YPl", u"Cf"}),
    Method<&PileGeometry_Class::ContributedFactor>(u"ContributedFactor",
        u"Contribution factors of the points of a half or quarter model.",
        {u"Isym", u"NC", u"Cf", u"XMax", u"YMax", u"Xc", u"Yc"}),
    Method<&PileGeometry_Class::ResolveContributedFactor>(u"ResolveContributedFactor",
        u"Sets every factor to 1.", {u"NC", u"Cf"}),
    Method<&PileGeometry_Class::ResolveSymmetryNode>(u"ResolveSymmetryNode",
        u"Numbers every node as itself.", {u"NkPG", u"NakPP"}),
    Method<&PileGeometry_Class::ComposedCoefficients>(u"ComposedCoefficients",
        u"Condenses a matrix over the nodes to one over the raft nodes.",
        {u"Nk", u"kij", u"Gk", u"NK_PR"}),
    Method<&PileGeometry_Class::GenerationOfPiledRaftSystemsDIN4014>(
        u"GenerationOfPiledRaftSystemsDIN4014",
        u"Marks the raft nodes that carry a pile of the single-pile method.",
        {u"Nk", u"XGriD", u"YGriD", u"Np", u"XPl", u"YPl", u"NodePiledRaft_r", u"Nak_Pile",
         u"MethodType"}),
};
// clang-format on

} // namespace

PileGeometry_Class& PileGeometry_Class::DefaultInstance() {
    static PileGeometry_Class instance;
    return instance;
}

const ClassInfo& PileGeometry_Class::Info() {
    static const ClassInfo info = DescribeClass<PileGeometry_Class>(
        u"PileGeometry_Class", u"Nodes, weights and condensed coefficients of piled rafts.",
        pileGeometryMembers);
    return info;
}

} // namespace torlib

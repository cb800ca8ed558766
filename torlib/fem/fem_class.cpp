// FEM_Class as a public class: its default instance and its members in interface order.

#include "torlib/fem/fem_class.h"
#include "torlib/frame/class_table.h"

namespace torlib {

FEM_Class& FEM_Class::DefaultInstance() {
    static FEM_Class instance;
    return instance;
}

// clang-format off
constexpr Member FemMembers[] = {
    Method<&FEM_Class::GlobalStiffnessMatrix>(u"GlobalStiffnessMatrix", u"Adds an element matrix into the band matrix.",
        {u"A", u"SK", u"NFreedom", u"NNode", u"Node"}),
    Method<&FEM_Class::GlobalLoadVector>(u"GlobalLoadVector", u"Adds an element load vector into the global load vector.",
        {u"Q", u"BE", u"NFreedom", u"NNode", u"Node"}),
    Method<&FEM_Class::AdditionalStiffness>(u"AdditionalStiffness", u"Adds nodal spring constants to the diagonal of an element matrix.",
        {u"NFreedom", u"NNode", u"NV", u"KV", u"Fk", u"Node", u"ST"}),
    Method<&FEM_Class::SetBoundaryToMatrix>(u"SetBoundaryToMatrix", u"Imposes prescribed values on the band matrix; true when cancelled.",
        {u"Nw", u"NF", u"A", u"Q", u"AufL", u"NS", {u"FrmShow", Omitted}}),
    Method<&FEM_Class::SetBoundaryInSystem>(u"SetBoundaryInSystem", u"Builds the restraint list from the support texts of the supported nodes.",
        {u"NFreedom", u"NDesp", u"NA", u"KA", u"De", u"NF", u"NS", u"AufL"}),
    Method<&FEM_Class::SetElementLoadVector>(u"SetElementLoadVector", u"Consistent load vector of a uniform pressure on a plate element.",
        {u"BE", u"P", u"NNode", u"XE", u"YE"}),
    Method<&FEM_Class::SetRecElementLoadVector>(u"SetRecElementLoadVector", u"Consistent load vector of a uniform pressure on the plate rectangle.",
        {u"BE", u"P", u"A", u"B"}),
    Method<&FEM_Class::SetTriElementLoadVector>(u"SetTriElementLoadVector", u"Consistent load vector of a uniform pressure on the plate triangle.",
        {u"BE", u"P", u"x", u"Y"}),
    Method<&FEM_Class::SetElementStiffnessMatrix>(u"SetElementStiffnessMatrix", u"Stiffness of a plate element of 3 or 4 nodes.",
        {u"SK", u"e", u"T", u"bnu", u"NNode", u"XE", u"YE"}),
    Method<&FEM_Class::SetRecElementStiffness>(u"SetRecElementStiffness", u"Stiffness of the nonconforming 12-parameter plate rectangle.",
        {u"SK", u"e", u"T", u"bnu", u"A", u"B"}),
    Method<&FEM_Class::SetTriElementStiffness>(u"SetTriElementStiffness", u"Stiffness of the nonconforming 9-parameter plate triangle.",
        {u"SK", u"e", u"T", u"bnu", u"x", u"Y"}),
    Reserved(u"SetStressElementStiffness"),
    Method<&FEM_Class::GetBandWidth>(u"GetBandWidth", u"Sizes the band for a mesh of plate elements; always false.",
        {u"Nw", u"NE", u"I_ElementType", u"I_Corner", {u"FrmShow", Omitted}}),
    Reserved(u"BeamData"),
    Reserved(u"BeamLoadVector"),
    Reserved(u"BeamStiffness"),
    Reserved(u"TransformationMatrix"),
    Reserved(u"SetFoundationLevel"),
    Reserved(u"GetGlobalNodeCoordinate"),
    Reserved(u"SetBeamStiffnessMatrix"),
    Reserved(u"BeamPlaneStiffness"),
    Reserved(u"BeamPlaneLoadVector"),
    Reserved(u"PlaneTransformationMatrix"),
    Method<&FEM_Class::SymmetricalBoundaryWall>(u"SymmetricalBoundaryWall", u"Appends the restraints of the symmetry lines of a wall plate.",
        {u"Nk", u"XGriD", u"YGriD", u"Isym", u"NF", u"AufL", u"NS"}),
    Method<&FEM_Class::SymmetricalBoundaryFrame>(u"SymmetricalBoundaryFrame", u"Appends the restraints of the symmetry lines of a plane frame.",
        {u"NE", u"Np1", u"Np2", u"XGriD", u"YGriD", u"Isym", u"NF", u"AufL", u"NS"}),
    Method<&FEM_Class::SymmetricalBoundaryPlate>(u"SymmetricalBoundaryPlate", u"Appends the restraints of the symmetry lines of a plate.",
        {u"Nk", u"XGriD", u"YGriD", u"Isym", u"NF", u"AufL", u"NS"}),
    Method<&FEM_Class::SolveMatrix>(u"SolveMatrix", u"Solves the banded system in place; true when cancelled.",
        {u"Nw", u"N3", u"A", u"Q", {u"FrmShow", Omitted}, {u"PrograssBarMode", false}, {u"ObjStbar", Omitted}}),
    Method<&FEM_Class::ProgressBarValue>(u"ProgressBarValue", u"Shows one step of a computation on form and status bar.",
        {u"FrmShow", u"ProgressValue", u"ObjStbar"}),
};
// clang-format on

const ClassInfo& FEM_Class::Info() {
    static const ClassInfo info = DescribeClass<FEM_Class>(
        u"FEM_Class", u"Finite elements: plates, beams, frames and walls on a banded solver.",
        FemMembers);
    return info;
}

} // namespace torlib

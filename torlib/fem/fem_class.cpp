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
    Method<&FEM_Class::SetStressElementStiffness>(u"SetStressElementStiffness", u"Stiffness of the plane-stress triangle of constant strain.",
        {u"SK", u"x", u"Y", u"e", u"T", u"bnu", u"AL"}),
    Method<&FEM_Class::GetBandWidth>(u"GetBandWidth", u"Sizes the band for a mesh of plate elements; always false.",
        {u"Nw", u"NE", u"I_ElementType", u"I_Corner", {u"FrmShow", Omitted}}),
    Method<&FEM_Class::BeamData>(u"BeamData", u"Rigidities and projections of a grid beam.",
        {u"StartNode", u"EndNode", u"ElementType", u"EmGrid", u"GridInertia", u"GModul", u"GridTorsion", u"XGriD", u"YGriD",
         u"EI", u"GJ", u"XD", u"YD", {u"i", Omitted}, {u"j", Omitted}}),
    Method<&FEM_Class::BeamLoadVector>(u"BeamLoadVector",
        u"Equivalent nodal loads of a uniform line load on a grid beam.",
        {u"UG", u"TR", u"PP", u"ALE"}),
    Method<&FEM_Class::BeamStiffness>(u"BeamStiffness", u"Stiffness of a grid beam in global axes.",
        {u"ST", u"F1", u"F2", u"ALE", u"SI", u"CO", u"S2", u"C2", u"CS"}),
    Method<&FEM_Class::TransformationMatrix>(u"TransformationMatrix", u"Axes and stiffness factors of a grid beam.",
        {u"TR", u"XD", u"YD", u"EI", u"GJ", u"F1", u"F2", u"ALE", u"SI", u"CO", u"S2", u"C2", u"CS"}),
    Method<&FEM_Class::SetFoundationLevel>(u"SetFoundationLevel", u"Foundation level of every node, one for all or by element groups.",
        {u"Nk", u"NE", u"I_ElementType", u"I_Corner", u"TF", u"Tk", u"Ngs", u"MGRU", u"pt", u"TFV"}),
    Method<&FEM_Class::GetGlobalNodeCoordinate>(u"GetGlobalNodeCoordinate", u"Turns and shifts node coordinates into the global system, in place.",
        {u"N", u"x", u"Y", u"Beta", u"Xo", u"yo"}),
    Method<&FEM_Class::SetBeamStiffnessMatrix>(u"SetBeamStiffnessMatrix", u"Adds all grid beams and their line loads; true when cancelled or failed.",
        {u"NodeStart", u"NodeEnd", u"NTy", u"EmGrid", u"GridInertia", u"GModul", u"GridTorsion", u"XGriD", u"YGriD", u"NEGrid",
         u"QL", u"Q", u"A", {u"FrmShow", Omitted}, {u"PrograssBarMode", false}, {u"ObjStbar", Omitted}}),
    Method<&FEM_Class::BeamPlaneStiffness>(u"BeamPlaneStiffness", u"Stiffness of a plane-frame member with end hinges in global axes.",
        {u"ST", u"G", u"EI", u"EA", u"AL", u"CO", u"SI"}),
    Method<&FEM_Class::BeamPlaneLoadVector>(u"BeamPlaneLoadVector", u"Equivalent nodal loads of line loads on a plane-frame member.",
        {u"QK", u"Px", u"Py", u"XL", u"YL", u"IG"}),
    Method<&FEM_Class::PlaneTransformationMatrix>(u"PlaneTransformationMatrix", u"Rotation matrix of a plane-frame member.",
        {u"TR", u"CO", u"SI"}),
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

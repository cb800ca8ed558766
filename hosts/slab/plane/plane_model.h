#pragma once
// What the analysis of a plane frame works on. A wall plate needs no more than the mesh, loads and
// supports of slab::Model, its elements all triangles.
//
// Three freedoms a node: u along +x, v along +y (upwards), and the rotation theta that turns +y
// towards +x. Nodal loads are stored in these senses.

#include "hosts/slab/model.h"
#include "torlib/frame/enumerations.h"

namespace slab {

struct FrameSection {
    std::string Name;
    double Area = 0;       ///< m2
    double Inertia = 0;    ///< m4
    double Modulus = 0;    ///< kN/m2
    double UnitWeight = 0; ///< kN/m3
};

/// Line loads of a member, kN/m.
struct MemberLoads {
    double AcrossHeight = 0; ///< along +x, per length of the projection on y
    double AcrossWidth = 0;  ///< downward, per length of the projection on x
    double PerLength = 0;    ///< downward, per length of the member
};

struct Member {
    std::string Name;
    std::size_t Section = 0;
    torlib::FrameHingedType Hinges = torlib::FrameHingedType::No_Hinge;
    MemberLoads Loads;

    bool HingedAtStart() const { return (static_cast<int>(Hinges) & 1) != 0; }
    bool HingedAtEnd() const { return (static_cast<int>(Hinges) & 2) != 0; }
};

/// Member i is Base.Elements[i], which has two corners.
struct FrameModel {
    Model Base;
    std::vector<FrameSection> Sections;
    std::vector<Member> Members;
};

} // namespace slab

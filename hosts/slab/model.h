#pragma once
// What the analysis works on: the mesh, loads, supports and soil of a slab, in metres and
// kilonewtons, after the project file has been read, checked and turned into nodes and elements.

#include "torlib/frame/enumerations.h"

#include <array>
#include <string>
#include <vector>

namespace slab {

struct Point {
    double x = 0;
    double y = 0;
};

/// Factors from the units of the project file to metres and kilonewtons, and their names in
/// reports.
struct Units {
    std::string LengthName = "m";
    std::string ForceName = "kN";
    std::string SettlementName = "cm";
    double Length = 1;        ///< metres in one unit of length
    double Force = 1;         ///< kilonewtons in one unit of force
    double Settlement = 0.01; ///< metres in one unit of settlement
};

/// A plate element. Rectangles run counter-clockwise from the corner with the smallest x and y with
/// their sides along the axes; triangles run counter-clockwise.
struct Element {
    int Corners = 4;
    std::array<int, 4> Node{}; ///< node numbers from 1
    int Group = 0;             ///< index into Model::Groups
};

struct Group {
    std::string Name;
    double Thickness = 0; ///< m
    double Modulus = 0;   ///< kN/m2
    double Poisson = 0;
};

/// Springs at a node: kN/m against settlement, kNm/rad against the two slopes.
struct NodeSpring {
    int Node = 0;
    std::array<double, 3> Stiffness{};
};

/// A degree of freedom held at a value: 1 settlement (m, downward positive), 2 slope dw/dx, 3 slope
/// dw/dy (radians).
struct Restraint {
    int Node = 0;
    int Freedom = 1;
    double Value = 0;
};

struct SoilLayer {
    double Thickness = 0; ///< m
    double Modulus = 0;   ///< kN/m2
    double Poisson = 0;
};

enum class SoilKind { None, Winkler, HalfSpace, Layered };

struct Soil {
    SoilKind Kind = SoilKind::None;
    std::vector<double> Subgrade; ///< Winkler modulus of each element, kN/m3, 0 where there is none
    double Modulus = 0;           ///< half-space, kN/m2
    double Poisson = 0;           ///< half-space
    std::vector<SoilLayer> Layers; ///< layered medium from the top
    bool TensionCutOff = false;    ///< the slab lifts off where the soil would have to pull
};

/// A vertical pile with its head at a node. A pile on a symmetry line is cut by it, like the node.
struct Pile {
    int Node = 0;
    double Length = 0;   ///< m
    double Diameter = 0; ///< m
    double Modulus = 0;  ///< kN/m2; 0 for a pile that cannot be compressed
    double Capacity = 0; ///< kN, most that the head can carry; 0 for no limit
};

/// The piles under a slab, which then needs a half-space or one layer.
struct Piling {
    std::vector<Pile> Piles;
    double Segment = 0;  ///< wanted length of the pieces into which the shafts are divided, m
    bool Contact = true; ///< the slab between the piles rests on the soil
};

/// When the iteration between structure and soil ends.
struct StopRule {
    double Accuracy = 0.0001; ///< largest change or mismatch of settlements in a cycle, m
    int MaxCycles = 30;
};

/// The analysis model. Loads act downward, like positive settlements; a moment load is positive in
/// the sense of its slope, so that load times displacement is work.
struct Model {
    std::string Title;
    std::string File;
    slab::Units Units;
    std::vector<Point> Nodes; ///< m; node n is Nodes[n - 1]
    std::vector<Element> Elements;
    std::vector<Group> Groups;
    std::vector<double> Pressure;   ///< uniform downward pressure of each element, kN/m2
    std::vector<double> NodalLoads; ///< 3 a node: force kN, moments kNm; everything but Pressure
    std::vector<NodeSpring> Springs;
    std::vector<Restraint> Restraints;
    torlib::SymmetricCase Symmetry = torlib::SymmetricCase::Unsymmetric;
    slab::Soil Soil;
    slab::Piling Piling;
    StopRule Stop;
};

} // namespace slab

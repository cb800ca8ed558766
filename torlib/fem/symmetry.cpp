// Restraints on the symmetry lines of half and quarter models: y = ymax for symmetry about the x
// direction, x = xmax for symmetry about the y direction.

#include "torlib/fem/fem_class.h"
#include "torlib/fem/restraint_list.h"

#include <span>
#include <vector>

namespace torlib {

namespace {

/// Nodes closer to a symmetry line than this lie on it.
constexpr double LineTolerance = 0.001;

enum class SymmetryLine { XMax, YMax };

/// Fills the second place of a rule with one degree of freedom.
constexpr int None = 0;

/// For the cases `One` and `Other`, the degrees of freedom restrained at the nodes of a line.
struct SymmetryRule {
    SymmetricCase One;
    SymmetricCase Other;
    SymmetryLine Line;
    int Freedoms[2];
};

using enum SymmetricCase;
using enum SymmetryLine;

// The order of the rows is the order of the restraints.
constexpr SymmetryRule PlateRules[] = {
    {X_symmetric, XY_Symmetric, YMax, {3, None}},
    {Y_Symmetric, XY_Symmetric, XMax, {2, None}},
    {X_AntiSymmetric, X_AntiSymmetric, YMax, {1, 2}},
    {Y_AntiSymmetric, Y_AntiSymmetric, XMax, {1, 3}},
};
constexpr SymmetryRule WallRules[] = {
    {Y_Symmetric, XY_Symmetric, XMax, {1, None}},
    {X_symmetric, XY_Symmetric, YMax, {2, None}},
    {X_AntiSymmetric, X_AntiSymmetric, YMax, {1, None}},
    {Y_AntiSymmetric, Y_AntiSymmetric, XMax, {2, None}},
};
// A frame takes all members for the first degree of freedom, then all members for the second.
constexpr SymmetryRule FrameRules[] = {
    {Y_Symmetric, XY_Symmetric, XMax, {1, None}},
    {Y_Symmetric, XY_Symmetric, XMax, {3, None}},
    {X_symmetric, XY_Symmetric, YMax, {2, None}},
    {X_symmetric, XY_Symmetric, YMax, {3, None}},
    {X_AntiSymmetric, X_AntiSymmetric, YMax, {1, None}},
    {Y_AntiSymmetric, Y_AntiSymmetric, XMax, {2, None}},
};

struct RestraintList {
    Integer& NF;
    Array<Single>& AufL;
    Array<Integer>& NS;
};

Single Largest(const Array<Single>& coordinates, int first, std::span<const int> nodes) {
    Single largest = coordinates(first);
    for (const int node : nodes) {
        if (coordinates(node) > largest) {
            largest = coordinates(node);
        }
    }
    return largest;
}

void RestrainLine(const SymmetryRule& rule, const Array<Single>& coordinates, Single lineCoordinate,
                  std::span<const int> nodes, const RestraintList& list) {
    for (const int node : nodes) {
        const Single distance = coordinates(node) - lineCoordinate;
        if (Abs(distance) >= LineTolerance) {
            continue;
        }
        for (const int freedom : rule.Freedoms) {
            if (freedom != None) {
                AppendRestraint(list.NF, list.NS, list.AufL, 3 * (node - 1) + freedom, 0);
            }
        }
    }
}

/// Applies the rules of a case to the nodes in the order of their visits; `first` is the node whose
/// coordinates start the search for xmax and ymax.
void RestrainSymmetryLines(std::span<const SymmetryRule> rules, int first,
                           std::span<const int> nodes, const Array<Single>& XGriD,
                           const Array<Single>& YGriD, SymmetricCase Isym,
                           const RestraintList& list) {
    const Single xmax = Largest(XGriD, first, nodes);
    const Single ymax = Largest(YGriD, first, nodes);
    for (const SymmetryRule& rule : rules) {
        if (Isym == rule.One || Isym == rule.Other) {
            const bool atXMax = rule.Line == XMax;
            RestrainLine(rule, atXMax ? XGriD : YGriD, atXMax ? xmax : ymax, nodes, list);
        }
    }
    RemoveDuplicateBoundary(list.NF, list.NS, list.AufL);
}

std::vector<int> AllNodes(Integer Nk) {
    std::vector<int> nodes;
    for (const int node : Range(1, Nk)) {
        nodes.push_back(node);
    }
    return nodes;
}

std::vector<int> MemberEnds(Integer NE, const Array<Integer>& Np1, const Array<Integer>& Np2) {
    std::vector<int> nodes;
    for (const int member : Range(1, NE)) {
        nodes.push_back(Np1(member));
        nodes.push_back(Np2(member));
    }
    return nodes;
}

} // namespace

void FEM_Class::SymmetricalBoundaryWall(Integer Nk, const Array<Single>& XGriD,
                                        const Array<Single>& YGriD, SymmetricCase Isym, Integer& NF,
                                        Array<Single>& AufL, Array<Integer>& NS) const {
    const MemberScope scope("FEM_Class.SymmetricalBoundaryWall", Named("XGriD", XGriD),
                            Named("YGriD", YGriD), Named("AufL", AufL), Named("NS", NS));
    if (Isym != Unsymmetric) {
        RestrainSymmetryLines(WallRules, 1, AllNodes(Nk), XGriD, YGriD, Isym, {NF, AufL, NS});
    }
}

void FEM_Class::SymmetricalBoundaryFrame(Integer NE, const Array<Integer>& Np1,
                                         const Array<Integer>& Np2, const Array<Single>& XGriD,
                                         const Array<Single>& YGriD, SymmetricCase Isym,
                                         Integer& NF, Array<Single>& AufL,
                                         Array<Integer>& NS) const {
    const MemberScope scope("FEM_Class.SymmetricalBoundaryFrame", Named("Np1", Np1),
                            Named("Np2", Np2), Named("XGriD", XGriD), Named("YGriD", YGriD),
                            Named("AufL", AufL), Named("NS", NS));
    if (Isym != Unsymmetric) {
        RestrainSymmetryLines(FrameRules, Np1(1), MemberEnds(NE, Np1, Np2), XGriD, YGriD, Isym,
                              {NF, AufL, NS});
    }
}

void FEM_Class::SymmetricalBoundaryPlate(Integer Nk, const Array<Single>& XGriD,
                                         const Array<Single>& YGriD, SymmetricCase Isym,
                                         Integer& NF, Array<Single>& AufL,
                                         Array<Integer>& NS) const {
    const MemberScope scope("FEM_Class.SymmetricalBoundaryPlate", Named("XGriD", XGriD),
                            Named("YGriD", YGriD), Named("AufL", AufL), Named("NS", NS));
    if (Isym != Unsymmetric) {
        RestrainSymmetryLines(PlateRules, 1, AllNodes(Nk), XGriD, YGriD, Isym, {NF, AufL, NS});
    }
}

} // namespace torlib

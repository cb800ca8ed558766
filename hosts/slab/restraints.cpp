// Supports and symmetry of a model as restrained equations.

#include "hosts/slab/restraints.h"

#include "torlib/platform/component/variant.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <sstream>

namespace slab {

using torlib::String;
using torlib::SymmetricCase;

namespace {

/// Support texts, three a node: "F" is free, lengths in hundredths of a metre.
void SupportTexts(const Model& model, int displacements, Array<Integer>& KA, Array<String>& De) {
    std::map<int, std::array<String, 3>> conditions;
    for (const Restraint& restraint : model.Restraints) {
        auto& texts =
            conditions.try_emplace(restraint.Node, std::array<String, 3>{u"F", u"F", u"F"})
                .first->second;
        const double value =
            restraint.Freedom <= displacements ? restraint.Value * 100 : restraint.Value;
        texts[static_cast<std::size_t>(restraint.Freedom - 1)] =
            torlib::NumberText(static_cast<float>(value));
    }
    KA.ReDim(static_cast<int>(conditions.size()));
    De.ReDim(3 * static_cast<int>(conditions.size()));
    int i = 0;
    for (const auto& [node, texts] : conditions) {
        KA(++i) = node;
        for (int j = 0; j < 3; ++j) {
            De(3 * (i - 1) + j + 1) = texts[static_cast<std::size_t>(j)];
        }
    }
}

} // namespace

RestraintList ListedRestraints(const Model& model, int displacements, torlib::FEM_Class& fem) {
    RestraintList list;
    list.NS.ReDim(0);
    list.AufL.ReDim(0);
    Array<Integer> KA;
    Array<String> De;
    SupportTexts(model, displacements, KA, De);
    fem.SetBoundaryInSystem(3, displacements, KA.UBound(), KA, De, list.NF, list.NS, list.AufL);
    return list;
}

void FillEquations(const Model& model, RestraintList& list) {
    list.Held.assign(3 * model.Nodes.size(), 0);
    list.Value.assign(3 * model.Nodes.size(), 0);
    for (int i = 1; i <= list.NF; ++i) {
        list.Held[list.NS(i) - 1] = 1;
        list.Value[list.NS(i) - 1] = double{list.AufL(i).Value()};
    }
}

void FromSymmetryLines(const Model& model, Array<Single>& XGriD, Array<Single>& YGriD) {
    const int nodes = static_cast<int>(model.Nodes.size());
    const auto corner = [&model](auto coordinate) {
        double largest = coordinate(model.Nodes[0]);
        for (const Point& p : model.Nodes) {
            largest = std::max(largest, coordinate(p));
        }
        return largest;
    };
    const double xMax = corner([](const Point& p) { return p.x; });
    const double yMax = corner([](const Point& p) { return p.y; });
    XGriD.ReDim(nodes);
    YGriD.ReDim(nodes);
    for (int n = 1; n <= nodes; ++n) {
        XGriD(n) = model.Nodes[n - 1].x - xMax;
        YGriD(n) = model.Nodes[n - 1].y - yMax;
    }
}

RestraintList Restraints(const Model& model, torlib::FEM_Class& fem) {
    RestraintList list = ListedRestraints(model, 1, fem);
    Array<Single> XGriD;
    Array<Single> YGriD;
    FromSymmetryLines(model, XGriD, YGriD);
    fem.SymmetricalBoundaryPlate(static_cast<int>(model.Nodes.size()), XGriD, YGriD, model.Symmetry,
                                 list.NF, list.AufL, list.NS);
    FillEquations(model, list);
    return list;
}

SymmetryLines::SymmetryLines(const Model& model)
    : xMax_(model.Nodes.front().x), yMax_(model.Nodes.front().y) {
    for (const Point& p : model.Nodes) {
        xMax_ = std::max(xMax_, p.x);
        yMax_ = std::max(yMax_, p.y);
    }
    const SymmetricCase c = model.Symmetry;
    const bool both = c == SymmetricCase::XY_Symmetric;
    acrossX_ = (both || c == SymmetricCase::X_symmetric) - (c == SymmetricCase::X_AntiSymmetric);
    acrossY_ = (both || c == SymmetricCase::Y_Symmetric) - (c == SymmetricCase::Y_AntiSymmetric);
}

bool SymmetryLines::OnXMax(const Point& p) const {
    return std::fabs(p.x - xMax_) < 0.001;
}

bool SymmetryLines::OnYMax(const Point& p) const {
    return std::fabs(p.y - yMax_) < 0.001;
}

int SymmetryLines::PartsAt(const Point& p) const {
    return (acrossY_ != 0 && OnXMax(p) ? 2 : 1) * (acrossX_ != 0 && OnYMax(p) ? 2 : 1);
}

bool SymmetryLines::Hold(const Point& p, int freedom, std::size_t displacements) const {
    // With which signs the freedoms return from the mirrors x = xmax and y = ymax.
    static constexpr int plate[2][3] = {{1, -1, 1}, {1, 1, -1}};
    static constexpr int plane[2][3] = {{-1, 1, -1}, {1, -1, -1}};
    const auto& signs = displacements == 1 ? plate : plane;
    return (OnXMax(p) && acrossY_ * signs[0][freedom - 1] < 0) ||
           (OnYMax(p) && acrossX_ * signs[1][freedom - 1] < 0);
}

bool SymmetryLines::Silent(const Point& p) const {
    return (acrossX_ < 0 && OnYMax(p)) || (acrossY_ < 0 && OnXMax(p));
}

std::vector<MirrorImage> MirrorImages(const Point& p, const SymmetryLines& lines) {
    std::vector<MirrorImage> images{{p, 1.0}};
    if (lines.AcrossX() != 0) {
        images.push_back({{p.x, 2 * lines.YMax() - p.y}, double(lines.AcrossX())});
    }
    if (lines.AcrossY() != 0) {
        for (std::size_t i = images.size(); i-- > 0;) {
            images.push_back({{2 * lines.XMax() - images[i].At.x, images[i].At.y},
                              images[i].Sign * lines.AcrossY()});
        }
    }
    return images;
}

std::string NameOfNode(const Model& model, int node) {
    const Point& p = model.Nodes[static_cast<std::size_t>(node - 1)];
    const Units& units = model.Units;
    std::ostringstream text;
    text << "node " << node << " at x = " << p.x / units.Length << ' ' << units.LengthName
         << ", y = " << p.y / units.Length << ' ' << units.LengthName;
    return text.str();
}

const char* NameOfFreedom(int freedom) {
    const char* const names[] = {"settlement", "slope in x", "slope in y"};
    return names[freedom - 1];
}

} // namespace slab

// What frames and walls give alike: displacements, reactions, balance, digits, warnings.

#include "hosts/slab/library_types.h"
#include "hosts/slab/mesh.h"
#include "hosts/slab/plane/plane_analysis.h"
#include "hosts/slab/quantities.h"
#include "hosts/slab/report_lines.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace slab {
namespace {

/// Residual or imbalance, relative to the loads, from which on a result is not to be trusted.
constexpr double doubtful = 0.01;
/// What double precision leaves of a value that vanishes, relative to its neighbours.
constexpr double rounding = 1e-12;

std::string MomentName(const Units& units) {
    return units.ForceName + "." + units.LengthName;
}

ResultTable NodeTable(const Model& model, const Vector& u, bool frame) {
    const Units& units = model.Units;
    ResultTable table{"nodes",
                      "Displacements of the nodes (v upward, theta from +y towards +x)",
                      {{"node", "Node", "", true},
                       {"x", "x", units.LengthName},
                       {"y", "y", units.LengthName},
                       {"u", "u", units.SettlementName},
                       {"v", "v", units.SettlementName}},
                      {}};
    if (frame) {
        table.Columns.push_back({"theta", "theta", "rad"});
    }
    for (std::size_t n = 0; n < model.Nodes.size(); ++n) {
        const Point& p = model.Nodes[n];
        table.Rows.push_back({static_cast<double>(n + 1), p.x / units.Length, p.y / units.Length,
                              u[3 * n] / units.Settlement, u[3 * n + 1] / units.Settlement});
        if (frame) {
            table.Rows.back().push_back(u[3 * n + 2]);
        }
    }
    return table;
}

double SizeOf(const Vector& forces, double reach) {
    double size = 0;
    for (std::size_t i = 0; i < forces.size(); ++i) {
        size += std::fabs(forces[i]) / (i % 3 == 2 ? reach : 1);
    }
    return size;
}

ResultTable ForceTable(const Model& model, const char* key, const char* title,
                       const std::set<int>& nodes, const Vector& forces, bool frame) {
    const Units& units = model.Units;
    ResultTable table{
        key,
        title,
        {{"node", "Node", "", true}, {"rx", "Rx", units.ForceName}, {"ry", "Ry", units.ForceName}},
        {}};
    if (frame) {
        table.Columns.push_back({"moment", "M", MomentName(units)});
    }
    for (const int node : nodes) {
        const std::size_t i = 3 * static_cast<std::size_t>(node - 1);
        table.Rows.push_back(
            {static_cast<double>(node), forces[i] / units.Force, forces[i + 1] / units.Force});
        if (frame) {
            table.Rows.back().push_back(forces[i + 2] / units.Force / units.Length);
        }
    }
    return table;
}

struct Centre {
    Point At;
    double Reach = 1; ///< m
};

Centre CentreOfAll(const Model& model) {
    const auto [low, high] = Extent(model.Nodes);
    return {{(low.x + high.x) / 2, (low.y + high.y) / 2}, Distance(low, high) / 2};
}

/// Sums of forces, and of moments about the centre in the sense of theta.
std::array<double, 3> SumOf(const Model& model, const Centre& centre, const Vector& forces) {
    std::array<double, 3> sum{};
    for (std::size_t n = 0; n < model.Nodes.size(); ++n) {
        const double x = model.Nodes[n].x - centre.At.x;
        const double y = model.Nodes[n].y - centre.At.y;
        sum[0] += forces[3 * n];
        sum[1] += forces[3 * n + 1];
        sum[2] += forces[3 * n + 2] + y * forces[3 * n] - x * forces[3 * n + 1];
    }
    return sum;
}

PlaneBalance BalanceOf(const Model& model, const Vector& loads, const Vector& supports,
                       const Vector& springs) {
    const Centre centre = CentreOfAll(model);
    PlaneBalance balance;
    balance.Loads = SumOf(model, centre, loads);
    balance.Supports = SumOf(model, centre, supports);
    balance.Springs = SumOf(model, centre, springs);
    // Without loads the forces that prescribed values cause are the measure.
    const double size = SizeOf(loads, centre.Reach) > 0 ? SizeOf(loads, centre.Reach)
                                                        : SizeOf(supports, centre.Reach);
    for (std::size_t f = 0; f < 3; ++f) {
        const double error = balance.Loads[f] + balance.Supports[f] + balance.Springs[f];
        const double reach = f == 2 ? centre.Reach : 1;
        balance.RelativeError =
            std::max(balance.RelativeError, size > 0 ? std::fabs(error) / reach / size : 0);
    }
    for (std::array<double, 3>* sum : {&balance.Loads, &balance.Supports, &balance.Springs}) {
        for (std::size_t f = 0; f < 3; ++f) {
            const double reach = f == 2 ? centre.Reach : 1;
            (*sum)[f] = Tidied((*sum)[f], size * reach) / model.Units.Force /
                        (f == 2 ? model.Units.Length : 1);
        }
    }
    return balance;
}

void Warn(const AnalysisOptions& options, PlaneResults& results) {
    const std::string advice =
        options.Plain ? "; let the digits be corrected"
                      : "; check for stiffnesses that lie too far apart and for near mechanisms";
    if (results.Balance.RelativeError > doubtful) {
        results.Warnings.push_back("loads and reactions differ by " +
                                   NumberText(100 * results.Balance.RelativeError, 3) +
                                   " % of the loads: do not use this result" + advice);
    }
    if (results.Digits.ResidualAfter > doubtful) {
        results.Warnings.push_back(NumberText(100 * results.Digits.ResidualAfter, 3) +
                                   " % of the loads stay unbalanced" + advice);
    }
}

} // namespace

double Tidied(double value, double size) {
    return std::fabs(value) <= rounding * size ? 0 : value;
}

RestraintList PlaneRestraints(const Model& model, const std::vector<int>& idle, bool frame) {
    torlib::FEM_Class fem;
    Model held;
    held.Nodes = model.Nodes;
    held.Restraints = model.Restraints;
    for (const int node : idle) {
        held.Restraints.push_back({node, 3, 0});
    }
    RestraintList list = ListedRestraints(held, 2, fem);
    Array<Single> XGriD;
    Array<Single> YGriD;
    FromSymmetryLines(model, XGriD, YGriD);
    if (frame) {
        const int count = static_cast<int>(model.Elements.size());
        Array<Integer> Np1;
        Array<Integer> Np2;
        Np1.ReDim(count);
        Np2.ReDim(count);
        for (int m = 1; m <= count; ++m) {
            Np1(m) = model.Elements[m - 1].Node[0];
            Np2(m) = model.Elements[m - 1].Node[1];
        }
        fem.SymmetricalBoundaryFrame(count, Np1, Np2, XGriD, YGriD, model.Symmetry, list.NF,
                                     list.AufL, list.NS);
    } else {
        fem.SymmetricalBoundaryWall(static_cast<int>(model.Nodes.size()), XGriD, YGriD,
                                    model.Symmetry, list.NF, list.AufL, list.NS);
    }
    FillEquations(model, list);
    return list;
}

PlaneResults CommonFindings(const Model& model, const PlaneSystem& system, const Vector& u,
                            bool frame, const AnalysisOptions& options) {
    PlaneResults results;
    results.System = frame ? "Plane frame" : "Wall plate";
    results.Title = model.Title;
    results.File = model.File;
    results.Units = model.Units;
    results.Equations = system.Equations();
    results.HalfBandWidth = system.HalfBandWidth();
    if (model.Symmetry != torlib::SymmetricCase::Unsymmetric) {
        results.Facts.push_back({"Symmetry", "", "-", SymmetryName(model.Symmetry)});
    }
    Vector supports = system.HeldForces(u);
    Vector springs(u.size());
    std::set<int> supported;
    std::set<int> sprung;
    for (std::size_t i = 0; i < u.size(); ++i) {
        supports[i] = system.Restrained().Held[i] ? supports[i] : 0;
        springs[i] = -system.Springs()[i] * u[i];
    }
    for (const Restraint& restraint : model.Restraints) {
        supported.insert(restraint.Node);
    }
    for (const NodeSpring& spring : model.Springs) {
        sprung.insert(spring.Node);
    }
    results.Tables.push_back(NodeTable(model, u, frame));
    if (!supported.empty()) {
        results.Tables.push_back(ForceTable(
            model, "reactions", "Forces of supports on the structure (along +x and +y, M as theta)",
            supported, supports, frame));
    }
    if (!sprung.empty()) {
        results.Tables.push_back(ForceTable(
            model, "springs", "Forces of springs on the structure (along +x and +y, M as theta)",
            sprung, springs, frame));
    }
    results.Extremes.push_back(ExtremeOf(results.Tables[0], "node", "Displacement", {"u"}));
    results.Extremes.push_back(ExtremeOf(results.Tables[0], "node", "Displacement", {"v"}));
    results.Balance = BalanceOf(model, system.Loads(), supports, springs);
    results.Digits = system.Digits;
    Warn(options, results);
    return results;
}

PlaneExtreme ExtremeOf(const ResultTable& table, const std::string& of, const std::string& name,
                       const std::vector<std::string>& keys) {
    PlaneExtreme extreme{keys.front(), name, "", "", of, {}, {}};
    for (std::size_t c = 0; c < table.Columns.size(); ++c) {
        const Column& column = table.Columns[c];
        if (std::find(keys.begin(), keys.end(), column.Key) == keys.end()) {
            continue;
        }
        extreme.Symbol = column.Symbol;
        extreme.Unit = column.Unit;
        for (const std::vector<double>& row : table.Rows) {
            const int number = static_cast<int>(row[0]);
            if (extreme.Least.Node == 0 || row[c] < extreme.Least.Value) {
                extreme.Least = {row[c], number};
            }
            if (extreme.Greatest.Node == 0 || row[c] > extreme.Greatest.Value) {
                extreme.Greatest = {row[c], number};
            }
        }
    }
    return extreme;
}

} // namespace slab

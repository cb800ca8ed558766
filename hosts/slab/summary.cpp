#include "hosts/slab/output.h"
#include "hosts/slab/piles/pile_lines.h"
#include "hosts/slab/quantities.h"
#include "hosts/slab/report_lines.h"

#include <cstdio>
#include <sstream>

namespace slab {

namespace {

std::string Place(const Model& model, int node) {
    const Point& point = model.Nodes[static_cast<std::size_t>(node) - 1];
    return "at (" + NumberText(point.x / model.Units.Length) + ", " +
           NumberText(point.y / model.Units.Length) + ")";
}

void ExtremeLines(const Model& model, const Results& results, std::ostringstream& out) {
    out << "  " << Padded("", 40) << RightAligned("smallest", 12) << Padded("", 20)
        << RightAligned("largest", 12) << '\n';
    for (const Quantity* row : QuantitiesOf(model)) {
        if (row->Kind == Dimension::Slope || row->Kind == Dimension::Angle ||
            row->Kind == Dimension::Force || row->WithSoilSurface) {
            continue;
        }
        const Extremes found = ExtremesOf(results, *row);
        const auto value = [&](const Extreme& extreme) {
            return RightAligned(NumberText(InUnits(model.Units, row->Kind, extreme.Value)), 12) +
                   "  " + Padded(Place(model, extreme.Node), 18);
        };
        out << "  " << Padded(row->Name, 20) << Padded(row->Symbol, 6)
            << Padded("[" + UnitName(model.Units, row->Kind) + "]", 14) << value(found.Least)
            << value(found.Greatest) << '\n';
    }
}

void BalanceLine(const Model& model, const Results& results, std::ostringstream& out) {
    const auto force = [&](double value) {
        return NumberText(InUnits(model.Units, Dimension::Force, value), 6) + " " +
               model.Units.ForceName;
    };
    const Balance& balance = results.Balance;
    out << "  Balance    loads " << force(balance.Loads) << " = soil " << force(balance.Soil)
        << (results.Piles.empty() ? "" : " + piles " + force(balance.Piles)) << " + supports "
        << force(balance.Supports) << " + springs " << force(balance.Springs) << "; relative error "
        << NumberText(balance.RelativeError) << '\n';
}

} // namespace

std::string SummaryText(const Model& model, const Results& results) {
    std::ostringstream out;
    out << (model.Title.empty() ? "Slab analysis" : model.Title) << "\n  " << model.Nodes.size()
        << " nodes, " << model.Elements.size() << " elements, " << results.Equations
        << " equations, half band width " << results.HalfBandWidth
        << "; soil: " << SoilName(model.Soil.Kind) << "\n\n";
    ExtremeLines(model, results, out);
    out << '\n';
    BalanceLine(model, results, out);
    if (!results.Piles.empty()) {
        out << "  Piles      " << PileSummary(model, results) << '\n';
    }
    if (!results.Cycles.empty()) {
        const Cycle& last = results.Cycles.back();
        const auto settlement = [&](double value) {
            return NumberText(InUnits(model.Units, Dimension::Settlement, value)) + " " +
                   model.Units.SettlementName;
        };
        out << "  Iteration  " << (results.Converged ? "converged" : "NOT CONVERGED") << " after "
            << results.Cycles.size() << (results.Cycles.size() == 1 ? " cycle" : " cycles")
            << "; last change " << settlement(last.Change) << ", slab - soil "
            << settlement(last.Mismatch) << '\n';
    }
    const char* label = "  Digits     ";
    for (const std::string& line : DigitLines(results.Digits)) {
        out << label << line << '\n';
        label = "             ";
    }
    out << "  Time       " << NumberText(results.TotalSeconds) << " s (solver "
        << NumberText(results.SolverSeconds) << " s, soil " << NumberText(results.SoilSeconds)
        << " s)\n";
    for (const std::string& warning : results.Warnings) {
        out << "  Warning    " << warning << '\n';
    }
    return out.str();
}

} // namespace slab

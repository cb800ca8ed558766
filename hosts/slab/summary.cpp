#include "hosts/slab/output.h"
#include "hosts/slab/piles/pile_lines.h"
#include "hosts/slab/printable.h"
#include "hosts/slab/quantities.h"
#include "hosts/slab/report_lines.h"

#include <cmath>
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

/// The largest size of each internal force of the beams, with the beam where it stands.
void BeamLine(const Model& model, const Results& results, std::ostringstream& out) {
    const struct {
        const char* Name;
        std::array<double, 2> BeamResult::*Member;
        double Unit;
        std::string UnitName;
    } forces[] = {
        {"shear", &BeamResult::Shear, model.Units.Force, model.Units.ForceName},
        {"moment", &BeamResult::Moment, model.Units.Force * model.Units.Length,
         model.Units.ForceName + "." + model.Units.LengthName},
        {"torsion", &BeamResult::Torsion, model.Units.Force * model.Units.Length,
         model.Units.ForceName + "." + model.Units.LengthName},
    };
    const char* label = "  Beams      ";
    for (const auto& force : forces) {
        double largest = 0;
        std::size_t place = 0;
        for (std::size_t i = 0; i < results.Beams.size(); ++i) {
            for (const double value : results.Beams[i].*force.Member) {
                if (std::fabs(value) > std::fabs(largest)) {
                    largest = value;
                    place = i;
                }
            }
        }
        out << label << "largest " << Padded(force.Name, 8)
            << RightAligned(NumberText(largest / force.Unit), 12) << ' ' << force.UnitName
            << "  in " << Printable(model.Beams[place].Name) << '\n';
        label = "             ";
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
    out << (model.Title.empty() ? "Slab analysis" : Printable(model.Title)) << "\n  "
        << model.Nodes.size() << " nodes, " << model.Elements.size() + model.Beams.size()
        << " elements, " << results.Equations << " equations, half band width "
        << results.HalfBandWidth << "; soil: " << SoilName(model.Soil.Kind) << "\n\n";
    ExtremeLines(model, results, out);
    out << '\n';
    if (!results.Beams.empty()) {
        BeamLine(model, results, out);
    }
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
    return Printable(out.str(), true);
}

} // namespace slab

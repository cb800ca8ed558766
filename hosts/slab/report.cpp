#include "hosts/slab/listing.h"
#include "hosts/slab/output.h"
#include "hosts/slab/piles/pile_lines.h"
#include "hosts/slab/quantities.h"
#include "hosts/slab/report_lines.h"

namespace slab {

using torlib::String;

namespace {

/// The report as it grows.
class Report : private Listing {
  public:
    Report(const Model& model, const Results& results) : model_(model), results_(results) {}

    std::string Text() {
        Title();
        System();
        Soil();
        ExtremeValues();
        BalanceAndDigits();
        Iteration();
        Piles();
        NodeTable();
        BeamTable();
        ReactionTable();
        Warnings();
        return torlib::ToUtf8(text_);
    }

  private:
    using Listing::Line;
    void Line(const std::string& name, const std::string& symbol, Dimension kind, double value) {
        Line(name, symbol, UnitName(model_.Units, kind), Value(kind, value));
    }
    /// Forces of the balance show enough digits to be added up by hand.
    void Force(const std::string& name, double value) {
        Line(name, "", model_.Units.ForceName,
             NumberText(InUnits(model_.Units, Dimension::Force, value), 6));
    }
    std::string Value(Dimension kind, double value) const {
        return NumberText(InUnits(model_.Units, kind, value));
    }
    std::string Length(double metres) const { return NumberText(metres / model_.Units.Length); }

    void Title() {
        Raw(model_.Title.empty() ? "Slab analysis" : model_.Title);
        Raw("Project file: " + model_.File);
    }

    void System() {
        Heading("System");
        Line("Nodes", "", "-", std::to_string(model_.Nodes.size()));
        if (!model_.Elements.empty()) {
            Line("Elements", "", "-", std::to_string(model_.Elements.size()));
        }
        if (!model_.Beams.empty()) {
            Line("Pieces of beams", "", "-", std::to_string(model_.Beams.size()));
        }
        Line("Equations", "", "-", std::to_string(results_.Equations));
        Line("Half band width", "Nw", "-", std::to_string(results_.HalfBandWidth));
        for (const Group& group : model_.Groups) {
            Line("Thickness of group " + group.Name, "t", model_.Units.LengthName,
                 Length(group.Thickness));
            Line("Modulus of group " + group.Name, "E", Dimension::Pressure, group.Modulus);
            Line("Poisson's ratio of group " + group.Name, "nu", "-", NumberText(group.Poisson));
        }
        if (model_.Symmetry != torlib::SymmetricCase::Unsymmetric) {
            Line("Symmetry", "", "-", SymmetryName(model_.Symmetry));
        }
    }

    void Soil() {
        if (model_.Soil.Kind == SoilKind::None) {
            return;
        }
        Heading("Soil");
        Line("Model", "", "-", SoilName(model_.Soil.Kind));
        if (model_.Soil.Kind == SoilKind::HalfSpace) {
            Line("Modulus", "Es", Dimension::Pressure, model_.Soil.Modulus);
            Line("Poisson's ratio", "nus", "-", NumberText(model_.Soil.Poisson));
        }
        int number = 0;
        for (const SoilLayer& layer : model_.Soil.Layers) {
            const std::string which = " of layer " + std::to_string(++number);
            Line("Thickness" + which, "h", model_.Units.LengthName, Length(layer.Thickness));
            Line("Modulus" + which, "Es", Dimension::Pressure, layer.Modulus);
            Line("Poisson's ratio" + which, "nus", "-", NumberText(layer.Poisson));
        }
    }

    void ExtremeValues() {
        Heading("Extreme values");
        for (const Quantity* row : QuantitiesOf(model_)) {
            const Extremes found = ExtremesOf(results_, *row);
            Line("Smallest " + LowerFirst(row->Name) + At(found.Least.Node), row->Symbol, row->Kind,
                 found.Least.Value);
            Line("Largest " + LowerFirst(row->Name) + At(found.Greatest.Node), row->Symbol,
                 row->Kind, found.Greatest.Value);
        }
    }
    static std::string At(int node) { return ", node " + std::to_string(node); }

    void BalanceAndDigits() {
        Heading("Balance of vertical forces");
        const Balance& balance = results_.Balance;
        Force("Loads", balance.Loads);
        Force("Soil", balance.Soil);
        if (!results_.Piles.empty()) {
            Force("Piles", balance.Piles);
        }
        Force("Supports", balance.Supports);
        Force("Springs", balance.Springs);
        Line("Relative error", "", "-", NumberText(balance.RelativeError));
        Heading("Digits of the solution");
        for (const std::string& line : DigitLines(results_.Digits)) {
            Raw(line);
        }
        Heading("Time");
        Line("Solver", "", "s", NumberText(results_.SolverSeconds));
        Line("Soil coefficients", "", "s", NumberText(results_.SoilSeconds));
        Line("Whole run", "", "s", NumberText(results_.TotalSeconds));
    }

    void Iteration() {
        if (results_.Cycles.empty()) {
            return;
        }
        Heading(std::string("Iteration between slab and soil (") +
                (results_.Converged ? "converged)" : "NOT converged)"));
        const std::string unit = " [" + model_.Units.SettlementName + "]";
        String head;
        Cell(head, "Cycle", 8);
        Cell(head, "Change" + unit, 20);
        Cell(head, "Slab - soil" + unit, 20);
        text_ += head + u"\r\n";
        for (const Cycle& cycle : results_.Cycles) {
            String row;
            Cell(row, std::to_string(cycle.Number), 8);
            Cell(row, Value(Dimension::Settlement, cycle.Change), 20);
            Cell(row, Value(Dimension::Settlement, cycle.Mismatch), 20);
            text_ += row + u"\r\n";
        }
    }

    void Piles() {
        if (results_.Piles.empty()) {
            return;
        }
        Heading("Piles (all of a pile that a symmetry line cuts)");
        for (const std::string& line : PileTable(model_, results_)) {
            Raw(line);
        }
    }

    void NodeTable() {
        Heading("Values at the nodes");
        const auto rows = QuantitiesOf(model_);
        String head;
        String units;
        Cell(head, "Node", 6);
        Cell(units, "", 6);
        for (const char* axis : {"x", "y"}) {
            Cell(head, axis, 10);
            Cell(units, "[" + model_.Units.LengthName + "]", 10);
        }
        for (const Quantity* row : rows) {
            Cell(head, row->Symbol);
            Cell(units, "[" + UnitName(model_.Units, row->Kind) + "]");
        }
        text_ += head + u"\r\n" + units + u"\r\n";
        for (std::size_t i = 0; i < results_.Nodes.size(); ++i) {
            String line;
            Cell(line, std::to_string(i + 1), 6);
            Cell(line, Length(model_.Nodes[i].x), 10);
            Cell(line, Length(model_.Nodes[i].y), 10);
            for (const Quantity* row : rows) {
                Cell(line, Value(row->Kind, results_.Nodes[i].*row->Member));
            }
            text_ += line + u"\r\n";
        }
    }

    void BeamTable() {
        if (results_.Beams.empty()) {
            return;
        }
        Heading("Internal forces of the beams at the start and the end of each piece");
        const std::string moment =
            "[" + model_.Units.ForceName + "." + model_.Units.LengthName + "]";
        String head;
        Cell(head, "Beam", 20);
        Cell(head, "Node", 6);
        Cell(head, "V [" + model_.Units.ForceName + "]", 16);
        Cell(head, "M " + moment, 16);
        Cell(head, "T " + moment, 16);
        text_ += head + u"\r\n";
        for (std::size_t i = 0; i < results_.Beams.size(); ++i) {
            const BeamResult& beam = results_.Beams[i];
            for (std::size_t end = 0; end < 2; ++end) {
                String row;
                Cell(row, end == 0 ? model_.Beams[i].Name : "", 20);
                Cell(row, std::to_string(model_.Beams[i].Node[end]), 6);
                Cell(row, Value(Dimension::Force, beam.Shear[end]), 16);
                Cell(row, Value(Dimension::Force, beam.Moment[end] / model_.Units.Length), 16);
                Cell(row, Value(Dimension::Force, beam.Torsion[end] / model_.Units.Length), 16);
                text_ += row + u"\r\n";
            }
        }
    }

    void ReactionTable() {
        if (results_.Reactions.empty()) {
            return;
        }
        Heading("Forces of supports and springs on the slab (in the sense of the displacements)");
        const std::string moment = model_.Units.ForceName + "." + model_.Units.LengthName;
        String head;
        Cell(head, "Node", 6);
        Cell(head, "kind", 10);
        Cell(head, "V [" + model_.Units.ForceName + "]", 16);
        Cell(head, "M (dw/dx) [" + moment + "]", 22);
        Cell(head, "M (dw/dy) [" + moment + "]", 22);
        text_ += head + u"\r\n";
        for (const Reaction& reaction : results_.Reactions) {
            String row;
            Cell(row, std::to_string(reaction.Node), 6);
            Cell(row, reaction.IsSpring ? "spring" : "support", 10);
            Cell(row, Value(Dimension::Force, reaction.Force[0]), 16);
            for (const std::size_t freedom : {1U, 2U}) {
                Cell(row, Value(Dimension::Force, reaction.Force[freedom] / model_.Units.Length),
                     22);
            }
            text_ += row + u"\r\n";
        }
    }

    void Warnings() {
        if (results_.Warnings.empty()) {
            return;
        }
        Heading("Warnings");
        for (const std::string& warning : results_.Warnings) {
            Raw("- " + warning);
        }
    }

    const Model& model_;
    const Results& results_;
};

} // namespace

std::string ReportText(const Model& model, const Results& results) {
    return Report(model, results).Text();
}

} // namespace slab

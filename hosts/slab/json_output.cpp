#include "hosts/slab/output.h"
#include "hosts/slab/printable.h"
#include "hosts/slab/quantities.h"
#include "hosts/slab/report_lines.h"

#include <nlohmann/json.hpp>

namespace slab {

using Json = nlohmann::ordered_json;

namespace {

Json UnitsOf(const Model& model) {
    Json units;
    units["length"] = model.Units.LengthName;
    for (const Quantity* row : QuantitiesOf(model)) {
        units[row->Key] = UnitName(model.Units, row->Kind);
    }
    units["force"] = model.Units.ForceName;
    units["moment"] = model.Units.ForceName + "." + model.Units.LengthName;
    return units;
}

Json NodesOf(const Model& model, const Results& results) {
    const auto rows = QuantitiesOf(model);
    Json nodes = Json::array();
    for (std::size_t i = 0; i < results.Nodes.size(); ++i) {
        Json node;
        node["node"] = i + 1;
        node["x"] = model.Nodes[i].x / model.Units.Length;
        node["y"] = model.Nodes[i].y / model.Units.Length;
        for (const Quantity* row : rows) {
            node[row->Key] = InUnits(model.Units, row->Kind, results.Nodes[i].*row->Member);
        }
        nodes.push_back(std::move(node));
    }
    return nodes;
}

Json ElementsOf(const Model& model) {
    Json elements = Json::array();
    for (const Element& element : model.Elements) {
        Json corners = Json::array();
        for (int k = 0; k < element.Corners; ++k) {
            corners.push_back(element.Node[static_cast<std::size_t>(k)]);
        }
        elements.push_back({{"nodes", std::move(corners)},
                            {"group", model.Groups[static_cast<std::size_t>(element.Group)].Name}});
    }
    return elements;
}

Json ExtremesJson(const Model& model, const Results& results) {
    Json all;
    for (const Quantity* row : QuantitiesOf(model)) {
        const Extremes found = ExtremesOf(results, *row);
        const auto value = [&](const Extreme& extreme) {
            return Json{{"value", InUnits(model.Units, row->Kind, extreme.Value)},
                        {"node", extreme.Node}};
        };
        all[row->Key] = {{"least", value(found.Least)}, {"greatest", value(found.Greatest)}};
    }
    return all;
}

Json ReactionsOf(const Model& model, const Results& results) {
    const double force = model.Units.Force;
    const double moment = force * model.Units.Length;
    Json reactions = Json::array();
    for (const Reaction& reaction : results.Reactions) {
        reactions.push_back({{"node", reaction.Node},
                             {"kind", reaction.IsSpring ? "spring" : "support"},
                             {"force", reaction.Force[0] / force},
                             {"moment_x", reaction.Force[1] / moment},
                             {"moment_y", reaction.Force[2] / moment}});
    }
    return reactions;
}

Json BeamsOf(const Model& model, const Results& results) {
    const double force = model.Units.Force;
    const double moment = force * model.Units.Length;
    const auto ends = [](const std::array<double, 2>& values, double unit) {
        return Json{values[0] / unit, values[1] / unit};
    };
    Json beams = Json::array();
    for (std::size_t i = 0; i < results.Beams.size(); ++i) {
        const Beam& beam = model.Beams[i];
        const BeamResult& result = results.Beams[i];
        beams.push_back({{"beam", beam.Name},
                         {"nodes", beam.Node},
                         {"section", model.Sections[beam.Section].Name},
                         {"shear", ends(result.Shear, force)},
                         {"moment", ends(result.Moment, moment)},
                         {"torsion", ends(result.Torsion, moment)}});
    }
    return beams;
}

Json IterationOf(const Model& model, const Results& results) {
    Json cycles = Json::array();
    for (const Cycle& cycle : results.Cycles) {
        cycles.push_back(
            {{"cycle", cycle.Number},
             {"change", InUnits(model.Units, Dimension::Settlement, cycle.Change)},
             {"mismatch", InUnits(model.Units, Dimension::Settlement, cycle.Mismatch)}});
    }
    return {{"converged", results.Converged}, {"cycles", std::move(cycles)}};
}

Json PilesOf(const Model& model, const Results& results) {
    const double force = model.Units.Force;
    Json piles = Json::array();
    for (const PileResult& pile : results.Piles) {
        Json segments = Json::array();
        for (const double segment : pile.Segments) {
            segments.push_back(segment / force);
        }
        const Point& at = model.Nodes[static_cast<std::size_t>(pile.Node - 1)];
        piles.push_back(
            {{"node", pile.Node},
             {"x", at.x / model.Units.Length},
             {"y", at.y / model.Units.Length},
             {"head", pile.Head / force},
             {"shaft", pile.Shaft / force},
             {"base", pile.Base / force},
             {"settlement", InUnits(model.Units, Dimension::Settlement, pile.Settlement)},
             {"base_settlement", InUnits(model.Units, Dimension::Settlement, pile.BaseSettlement)},
             {"at_capacity", pile.Exhausted},
             {"segments", std::move(segments)}});
    }
    return piles;
}

Json BalanceOf(const Model& model, const Balance& balance) {
    const double force = model.Units.Force;
    return {{"loads", balance.Loads / force},     {"soil", balance.Soil / force},
            {"piles", balance.Piles / force},     {"supports", balance.Supports / force},
            {"springs", balance.Springs / force}, {"relative_error", balance.RelativeError}};
}

} // namespace

std::string JsonText(const Model& model, const Results& results) {
    Json document;
    document["title"] = model.Title;
    document["file"] = model.File;
    document["units"] = UnitsOf(model);
    document["system"] = {
        {"nodes", model.Nodes.size()},       {"elements", model.Elements.size()},
        {"equations", results.Equations},    {"half_band_width", results.HalfBandWidth},
        {"soil", SoilName(model.Soil.Kind)}, {"symmetry", SymmetryName(model.Symmetry)}};
    document["extremes"] = ExtremesJson(model, results);
    document["balance"] = BalanceOf(model, results.Balance);
    document["digits"] = {{"residual_before", results.Digits.ResidualBefore},
                          {"residual_after", results.Digits.ResidualAfter},
                          {"corrected", results.Digits.Corrected},
                          {"steps", results.Digits.Steps},
                          {"change_of_solution", results.Digits.ChangeOfSolution}};
    document["iteration"] = IterationOf(model, results);
    document["seconds"] = {{"solver", results.SolverSeconds},
                           {"soil", results.SoilSeconds},
                           {"total", results.TotalSeconds}};
    document["warnings"] = results.Warnings;
    document["nodes"] = NodesOf(model, results);
    document["elements"] = ElementsOf(model);
    if (!results.Beams.empty()) {
        document["beams"] = BeamsOf(model, results);
    }
    if (!results.Piles.empty()) {
        document["piles"] = PilesOf(model, results);
    }
    document["reactions"] = ReactionsOf(model, results);
    // A file name or title may hold bytes that are no UTF-8; they must not cost the results.
    return Printable(document.dump(1, ' ', false, Json::error_handler_t::replace), true) + "\n";
}

} // namespace slab

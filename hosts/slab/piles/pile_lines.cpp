#include "hosts/slab/piles/pile_lines.h"

#include "hosts/slab/quantities.h"

#include <algorithm>

namespace slab {

namespace {

std::string Right(const std::string& text, std::size_t width) {
    return text.size() < width ? std::string(width - text.size(), ' ') + text : text;
}

/// Percent of the vertical load that soil and piles carry together.
double PileShare(const Balance& balance) {
    const double both = balance.Piles + balance.Soil;
    return both != 0 ? 100 * balance.Piles / both : 0;
}

long ExhaustedPiles(const Results& results) {
    return std::count_if(results.Piles.begin(), results.Piles.end(),
                         [](const PileResult& pile) { return pile.Exhausted; });
}

} // namespace

std::vector<std::string> PileTable(const Model& model, const Results& results) {
    if (results.Piles.empty()) {
        return {};
    }
    const Units& units = model.Units;
    const std::string force = " [" + units.ForceName + "]";
    const std::string settlement = " [" + units.SettlementName + "]";
    std::vector<std::string> lines;
    const auto add = [&lines](std::initializer_list<std::string> cells) {
        std::string line;
        std::size_t number = 0;
        for (const std::string& cell : cells) {
            line += Right(cell, number < 2 ? 6 : number < 4 ? 10 : 14);
            ++number;
        }
        lines.push_back(line);
    };
    const std::string length = " [" + units.LengthName + "]";
    add({"Pile", "node", "x" + length, "y" + length, "head" + force, "shaft" + force,
         "base" + force, "s head" + settlement, "s base" + settlement});
    const auto valueOf = [&units](Dimension kind, double value) {
        return NumberText(InUnits(units, kind, value));
    };
    int number = 0;
    for (const PileResult& pile : results.Piles) {
        const Point& at = model.Nodes[static_cast<std::size_t>(pile.Node - 1)];
        add({std::to_string(++number), std::to_string(pile.Node), NumberText(at.x / units.Length),
             NumberText(at.y / units.Length), valueOf(Dimension::Force, pile.Head),
             valueOf(Dimension::Force, pile.Shaft), valueOf(Dimension::Force, pile.Base),
             valueOf(Dimension::Settlement, pile.Settlement),
             valueOf(Dimension::Settlement, pile.BaseSettlement)});
    }
    if (const long count = ExhaustedPiles(results); count > 0) {
        lines.push_back(std::to_string(count) + " of them carry their capacity, and slip: the slab "
                                                "settles more there than their heads.");
    }
    lines.push_back("The piles carry " + NumberText(PileShare(results.Balance)) +
                    " % of what piles and soil carry together.");
    return lines;
}

std::string PileSummary(const Model& model, const Results& results) {
    if (results.Piles.empty()) {
        return "";
    }
    const auto lighter = [](const PileResult& a, const PileResult& b) { return a.Head < b.Head; };
    const auto [least, greatest] =
        std::minmax_element(results.Piles.begin(), results.Piles.end(), lighter);
    const auto force = [&model](const PileResult& pile) {
        return NumberText(InUnits(model.Units, Dimension::Force, pile.Head)) + " " +
               model.Units.ForceName + " at node " + std::to_string(pile.Node);
    };
    const long exhausted = ExhaustedPiles(results);
    return std::to_string(results.Piles.size()) + " with " +
           NumberText(PileShare(results.Balance)) +
           " % of the load on piles and soil; heads from " + force(*least) + " to " +
           force(*greatest) +
           (exhausted > 0 ? "; at their capacity: " + std::to_string(exhausted) : "");
}

} // namespace slab

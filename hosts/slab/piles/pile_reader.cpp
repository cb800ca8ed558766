#include "hosts/slab/piles/pile_reader.h"

#include "hosts/slab/mesh.h"
#include "hosts/slab/restraints.h"
#include "hosts/slab/supports.h"

#include <algorithm>
#include <cmath>

namespace slab {

namespace {

constexpr std::size_t MostPiles = 2000;
/// Default number of pieces of the shortest pile.
constexpr double UsualPieces = 10;
constexpr double MostPieces = 200;

std::string LengthText(double metres, const ProjectDraft& draft) {
    return ShortNumber(metres / draft.Scale.Length) + ' ' + draft.Scale.Units.LengthName;
}

double RequiredDiameter(const ProjectDraft& draft) {
    double largest = 0;
    for (const Pile& pile : draft.Model.Piling.Piles) {
        largest = std::max(largest, pile.Diameter);
    }
    return largest;
}

void CheckSoil(const KeyTable& table, const Soil& soil) {
    if (soil.Kind != SoilKind::HalfSpace && soil.Kind != SoilKind::Layered) {
        table.Fail("piles stand in soil.kind = \"half-space\" or in one layer (soil.kind = "
                   "\"layers\"); this soil has no depth");
    }
    if (soil.Layers.size() > 1) {
        table.Fail("piles in " + std::to_string(soil.Layers.size()) +
                   " layers are not analysed; give soil.layers one layer, with the mean of its "
                   "properties along the piles (allowed: 1 layer, or a half-space)");
    }
}

/// Refuses a pile that touches another, or that a symmetry line cuts beside its axis.
void CheckPlace(const Entry& entry, const Pile& pile, const ProjectDraft& draft,
                const SymmetryLines& lines) {
    const Model& model = draft.Model;
    const Point& at = model.Nodes[static_cast<std::size_t>(pile.Node - 1)];
    if (lines.Silent(at)) {
        entry.Fail("lies on a line of antisymmetry, where a pile carries nothing");
    }
    const double toX = lines.OnXMax(at) || lines.AcrossY() == 0 ? HUGE_VAL : lines.XMax() - at.x;
    const double toY = lines.OnYMax(at) || lines.AcrossX() == 0 ? HUGE_VAL : lines.YMax() - at.y;
    if (std::min(toX, toY) < pile.Diameter / 2) {
        entry.Fail("the pile and its mirror image overlap (allowed: on the symmetry line, or at "
                   "least " +
                   LengthText(pile.Diameter / 2, draft) + " away from it)");
    }
    for (const Pile& other : model.Piling.Piles) {
        if (other.Node == pile.Node) {
            entry.Fail("a pile already stands on node " + std::to_string(pile.Node));
        }
        const double distance = Distance(at, model.Nodes[static_cast<std::size_t>(other.Node - 1)]);
        const double least = (pile.Diameter + other.Diameter) / 2;
        if (distance < (1 - 1e-6) * least) {
            entry.Fail("the pile overlaps the one on node " + std::to_string(other.Node) + ", " +
                       LengthText(distance, draft) + " away (allowed: at least " +
                       LengthText(least, draft) + ")");
        }
    }
}

void ReadGroup(const KeyTable& group, ProjectDraft& draft, const SymmetryLines& lines) {
    group.Allow({"at", "length", "diameter", "modulus", "capacity"});
    Pile pile;
    pile.Diameter = group.Get("diameter").Number(Positive) * draft.Scale.Length;
    const Entry length = group.Get("length");
    pile.Length = length.Number(Positive) * draft.Scale.Length;
    if (pile.Length < pile.Diameter) {
        length.Fail("the pile is wider than long (allowed: at least the diameter, " +
                    LengthText(pile.Diameter, draft) + ")");
    }
    const Soil& soil = draft.Model.Soil;
    const double deepest =
        soil.Layers.empty() ? HUGE_VAL : soil.Layers.front().Thickness - pile.Diameter / 2;
    if (pile.Length > deepest) {
        length.Fail("the pile comes too close to the rigid base (allowed: up to " +
                    LengthText(deepest, draft) +
                    ", half a diameter less than the soil's thickness)");
    }
    if (const auto modulus = group.Find("modulus")) {
        pile.Modulus = modulus->Number(Positive) * draft.Scale.Modulus;
    }
    if (const auto capacity = group.Find("capacity")) {
        pile.Capacity = capacity->Number(Positive) * draft.Scale.Force;
    }
    const Entry at = group.Get("at");
    std::vector<Entry> places = at.List();
    if (places.empty()) {
        at.Fail("names no place (allowed: [x, y], or a list of them)");
    }
    if (!places.front().IsList()) {
        places = {at};
    }
    for (const Entry& place : places) {
        pile.Node = MeshNodeAt(place, draft);
        CheckPlace(place, pile, draft, lines);
        draft.Model.Piling.Piles.push_back(pile);
        if (draft.Model.Piling.Piles.size() > MostPiles) {
            place.Fail("there are too many piles (allowed: " + std::to_string(MostPiles) + ")");
        }
    }
}

/// A piece is at least as long as the pile's radius, so that it is a shaft and no ring.
void ReadSegment(const KeyTable& table, ProjectDraft& draft) {
    Piling& piling = draft.Model.Piling;
    const auto shorter = [](const Pile& a, const Pile& b) { return a.Length < b.Length; };
    const auto [shortest, longest] =
        std::minmax_element(piling.Piles.begin(), piling.Piles.end(), shorter);
    const double least = std::max(RequiredDiameter(draft) / 2, longest->Length / MostPieces);
    const double most = shortest->Length;
    const auto entry = table.Find("segment");
    if (!entry) {
        piling.Segment = std::min(std::max(shortest->Length / UsualPieces, least), most);
        return;
    }
    piling.Segment = entry->Number(Positive) * draft.Scale.Length;
    if (piling.Segment < (1 - 1e-6) * least || piling.Segment > (1 + 1e-6) * most) {
        entry->Fail("is " + LengthText(piling.Segment, draft) +
                    " (allowed: " + LengthText(least, draft) +
                    ", half of the largest diameter or 1/200 of the "
                    "longest pile, to " +
                    LengthText(most, draft) + ", the shortest pile)");
    }
}

} // namespace

void ReadPiles(const KeyTable& root, ProjectDraft& draft) {
    if (!root.Has("piles")) {
        return;
    }
    const KeyTable table = root.Table("piles");
    table.Allow({"contact", "segment", "groups"});
    CheckSoil(table, draft.Model.Soil);
    const SymmetryLines lines(draft.Model);
    for (const KeyTable& group : table.Tables("groups")) {
        ReadGroup(group, draft, lines);
    }
    if (draft.Model.Piling.Piles.empty()) {
        table.Fail("has no piles; one table [[piles.groups]] at least is needed");
    }
    ReadSegment(table, draft);
    draft.Model.Piling.Contact = !table.Has("contact") || table.Get("contact").Flag();
}

} // namespace slab

#include "hosts/slab/beams/beam_reader.h"

#include "hosts/slab/beams/grid_nodes.h"
#include "hosts/slab/limits.h"
#include "hosts/slab/mesh.h"
#include "hosts/slab/sections.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>

namespace slab {

namespace {

constexpr std::size_t MostBeams = 10000;
constexpr int MostPieces = 30000;

Axis ReadAxis(const KeyTable& table, const ProjectDraft& draft) {
    const Entry entry = table.Get("line");
    const std::vector<Entry> ends = entry.List(2);
    const auto place = [&draft](const Entry& end) {
        const Point pair = end.Pair();
        const Point p{pair.x * draft.Scale.Length, pair.y * draft.Scale.Length};
        CheckFromOrigin(end, p, draft);
        return p;
    };
    const Axis axis{place(ends[0]), place(ends[1])};
    if (Distance(axis.From, axis.To) < ShortestPiece) {
        entry.Fail("is " + ShortNumber(Distance(axis.From, axis.To) / draft.Scale.Length) + ' ' +
                   draft.Scale.Units.LengthName + " long (allowed: at least " +
                   ShortNumber(ShortestPiece / draft.Scale.Length) + ")");
    }
    return axis;
}

/// The keys of a beam but for its line; every piece of the beam has them alike.
Beam ReadBeam(const KeyTable& table, const ProjectDraft& draft, std::size_t number) {
    table.Allow({"name", "line", "section", "load"});
    Beam beam;
    beam.Name = table.Has("name") ? table.Get("name").Text() : "beam " + std::to_string(number);
    beam.Section = ChoiceByName(table.Get("section"), draft.Model.Sections);
    const Section& section = draft.Model.Sections[beam.Section];
    beam.Load = WithinOrZero(table, "load", Any, draft.Scale.LineLoad, LargestLoad) +
                section.Area * section.UnitWeight;
    return beam;
}

/// Divides beams at the nodes on their axes.
class BeamDivider {
  public:
    explicit BeamDivider(ProjectDraft& draft) : draft_(draft) {}

    void Add(const KeyTable& table, const Axis& axis, const Beam& whole) {
        const std::vector<int> nodes =
            NodesOnAxis(axis, draft_.Model.Nodes, NodeSearch(draft_), draft_.Tolerance);
        RequireEnd(table, nodes.empty() ? 0 : nodes.front(), axis.From, "starts");
        RequireEnd(table, nodes.empty() ? 0 : nodes.back(), axis.To, "ends");
        for (std::size_t i = 0; i + 1 < nodes.size(); ++i) {
            const auto [other, isNew] =
                owner_.try_emplace(std::minmax(nodes[i], nodes[i + 1]), whole.Name);
            if (!isNew) {
                table.Get("line").Fail("lies on \"" + other->second + "\" between nodes " +
                                       std::to_string(nodes[i]) + " and " +
                                       std::to_string(nodes[i + 1]));
            }
            draft_.Model.Beams.push_back(whole);
            draft_.Model.Beams.back().Node = {nodes[i], nodes[i + 1]};
        }
    }

  private:
    void RequireEnd(const KeyTable& table, int node, const Point& end, const char* verb) const {
        if (node == 0 || Distance(draft_.Model.Nodes[static_cast<std::size_t>(node - 1)], end) >
                             draft_.Tolerance) {
            table.Get("line").Fail(std::string(verb) + " at no mesh node (allowed: up to " +
                                   ShortNumber(draft_.Tolerance / draft_.Scale.Length) +
                                   " from a node)");
        }
    }

    ProjectDraft& draft_;
    std::map<Side, std::string> owner_;
};

/// The longest piece of each beam: what the file says, on springs also an eighth of the length
/// (4 EI / k b)^(1/4) over which a beam spreads a load.
std::vector<double> LongestPieces(const KeyTable& root, const std::vector<Beam>& beams,
                                  const std::vector<Axis>& axes, const ProjectDraft& draft) {
    std::optional<double> wanted;
    if (root.Has("mesh")) {
        const KeyTable table = root.Table("mesh");
        table.Allow({"piece"});
        const double least = ShortestPiece / draft.Scale.Length;
        wanted = table.Get("piece").Number(Between(least, LargestNumber)) * draft.Scale.Length;
    }
    std::vector<double> longest;
    double pieces = 0;
    for (std::size_t i = 0; i < beams.size(); ++i) {
        const Section& section = draft.Model.Sections[beams[i].Section];
        const double length = Distance(axes[i].From, axes[i].To);
        const double bedding = beams[i].Subgrade * section.ContactWidth;
        const double spread =
            bedding > 0 ? std::pow(4 * section.Modulus * section.Inertia / bedding, 0.25) : length;
        const double piece = bedding > 0 ? std::max(spread / 8, ShortestPiece) : length;
        longest.push_back(wanted.value_or(piece));
        pieces += length / longest.back();
    }
    if (pieces > MostPieces) {
        root.Fail("divides its beams into about " + ShortNumber(std::round(pieces)) +
                  " pieces (allowed: up to " + std::to_string(MostPieces) +
                  "); give a longer mesh.piece");
    }
    return longest;
}

/// Places beside the beams' ends and crossings where a grid needs a node.
std::vector<Point> NamedPlaces(const KeyTable& root, const ProjectDraft& draft) {
    std::vector<KeyTable> tables = root.Tables("supports");
    const auto append = [&tables](const std::vector<KeyTable>& more) {
        tables.insert(tables.end(), more.begin(), more.end());
    };
    append(root.Tables("springs"));
    if (root.Has("loads")) {
        append(root.Table("loads").Tables("point"));
    }
    std::vector<Point> places;
    const auto add = [&](const Entry& entry) {
        const Point pair = entry.Pair();
        places.push_back({pair.x * draft.Scale.Length, pair.y * draft.Scale.Length});
    };
    for (const KeyTable& table : tables) {
        const auto at = table.Find("at");
        if (!at) {
            continue;
        }
        const bool several = at->IsList() && !at->List().empty() && at->List()[0].IsList();
        if (!several) {
            add(*at);
            continue;
        }
        for (const Entry& entry : at->List()) {
            add(entry);
        }
    }
    return places;
}

} // namespace

void ReadSlabBeams(const KeyTable& root, ProjectDraft& draft) {
    const std::vector<KeyTable> tables = root.Tables("beams");
    if (tables.empty()) {
        if (root.Has("sections")) {
            root.Get("sections").Fail("belong to [[beams]], of which there are none");
        }
        return;
    }
    draft.Model.Sections = ReadSections(root, draft.Scale, SectionUse::Grid);
    BeamDivider divider(draft);
    std::size_t number = 0;
    for (const KeyTable& table : tables) {
        const Beam beam = ReadBeam(table, draft, ++number);
        divider.Add(table, ReadAxis(table, draft), beam);
    }
}

void ReadGridBeams(const KeyTable& root, double subgrade, ProjectDraft& draft) {
    draft.Model.Sections = ReadSections(root, draft.Scale, SectionUse::Grid);
    const std::vector<KeyTable> tables = root.Tables("beams");
    if (tables.empty() || tables.size() > MostBeams) {
        root.Fail("has " + std::to_string(tables.size()) + " [[beams]] (allowed: 1 to " +
                  std::to_string(MostBeams) + ")");
    }
    std::vector<Beam> beams;
    std::vector<Axis> axes;
    for (const KeyTable& table : tables) {
        beams.push_back(ReadBeam(table, draft, beams.size() + 1));
        axes.push_back(ReadAxis(table, draft));
        const bool rests = draft.Model.Sections[beams.back().Section].ContactWidth > 0;
        beams.back().Subgrade = rests ? subgrade : 0;
    }
    draft.Model.Nodes = GridNodes(axes, LongestPieces(root, beams, axes, draft),
                                  NamedPlaces(root, draft), [&root] { root.Poll(); });
    draft.Tolerance = SamePlace;
    BeamDivider divider(draft);
    for (std::size_t i = 0; i < beams.size(); ++i) {
        root.Poll();
        divider.Add(tables[i], axes[i], beams[i]);
    }
    draft.Model.NodalLoads.assign(3 * draft.Model.Nodes.size(), 0);
}

} // namespace slab

#include "hosts/slab/beam_reader.h"

#include "hosts/slab/grid_nodes.h"
#include "hosts/slab/mesh.h"
#include "hosts/slab/sections.h"

#include <algorithm>
#include <map>

namespace slab {

namespace {

constexpr std::size_t MostBeams = 10000;

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
    std::vector<std::string> names;
    for (const Section& section : draft.Model.Sections) {
        names.push_back(section.Name);
    }
    beam.Section = table.Get("section").Choice(names);
    const Section& section = draft.Model.Sections[beam.Section];
    beam.Load =
        table.NumberOr("load", Any, 0) * draft.Scale.LineLoad + section.Area * section.UnitWeight;
    return beam;
}

/// Divides beams at the nodes on their axes.
class BeamDivider {
  public:
    explicit BeamDivider(ProjectDraft& draft) : draft_(draft) {}

    void Add(const KeyTable& table, const Axis& axis, const Beam& whole) {
        const std::vector<int> nodes = NodesOnAxis(axis, draft_.Model.Nodes, draft_.Tolerance);
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

void ReadBeams(const std::vector<KeyTable>& tables, ProjectDraft& draft) {
    BeamDivider divider(draft);
    std::size_t number = 0;
    for (const KeyTable& table : tables) {
        const Beam beam = ReadBeam(table, draft, ++number);
        divider.Add(table, ReadAxis(table, draft), beam);
    }
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
    ReadBeams(tables, draft);
}

void ReadGridBeams(const KeyTable& root, ProjectDraft& draft) {
    draft.Model.Sections = ReadSections(root, draft.Scale, SectionUse::Grid);
    const std::vector<KeyTable> tables = root.Tables("beams");
    if (tables.empty() || tables.size() > MostBeams) {
        root.Fail("has " + std::to_string(tables.size()) + " [[beams]] (allowed: 1 to " +
                  std::to_string(MostBeams) + ")");
    }
    std::vector<Axis> axes;
    for (const KeyTable& table : tables) {
        axes.push_back(ReadAxis(table, draft));
    }
    draft.Model.Nodes = GridNodes(axes, NamedPlaces(root, draft));
    draft.Tolerance = SamePlace;
    ReadBeams(tables, draft);
    draft.Model.NodalLoads.assign(3 * draft.Model.Nodes.size(), 0);
}

} // namespace slab

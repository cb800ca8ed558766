#include "hosts/slab/supports.h"

#include "hosts/slab/limits.h"
#include "hosts/slab/restraints.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace slab {

namespace {

bool HasXLine(torlib::SymmetricCase symmetry) {
    using enum torlib::SymmetricCase;
    return symmetry == X_symmetric || symmetry == XY_Symmetric || symmetry == X_AntiSymmetric;
}

bool HasYLine(torlib::SymmetricCase symmetry) {
    using enum torlib::SymmetricCase;
    return symmetry == Y_Symmetric || symmetry == XY_Symmetric || symmetry == Y_AntiSymmetric;
}

/// One value or a list of values of a key, as nodes.
template <class Reader>
std::vector<int> OneOrMore(const Entry& entry, bool isList, Reader&& nodeOf) {
    std::vector<int> nodes;
    if (!isList) {
        return {nodeOf(entry)};
    }
    for (const Entry& item : entry.List()) {
        nodes.push_back(nodeOf(item));
    }
    return nodes;
}

std::vector<int> NodesOnLine(const Entry& entry, const ProjectDraft& draft) {
    const std::vector<Entry> ends = entry.List(2);
    const double unit = draft.Scale.Length;
    const Point a{ends[0].Pair().x * unit, ends[0].Pair().y * unit};
    const Point b{ends[1].Pair().x * unit, ends[1].Pair().y * unit};
    const double length = Distance(a, b);
    if (length <= draft.Tolerance) {
        entry.Fail("starts and ends at the same point");
    }
    std::vector<int> nodes;
    for (const std::size_t i : NodeSearch(draft).Along(a, b, 2 * draft.Tolerance)) {
        const Point& p = draft.Model.Nodes[i];
        const double t = ((p.x - a.x) * (b.x - a.x) + (p.y - a.y) * (b.y - a.y)) / length;
        const double off = ((p.y - a.y) * (b.x - a.x) - (p.x - a.x) * (b.y - a.y)) / length;
        if (std::fabs(off) <= draft.Tolerance && t >= -draft.Tolerance &&
            t <= length + draft.Tolerance) {
            nodes.push_back(static_cast<int>(i) + 1);
        }
    }
    if (nodes.empty()) {
        entry.Fail("no mesh node lies on this line");
    }
    return nodes;
}

/// The element sides whose ends are both among the nodes, each once.
std::vector<Side> SidesAmong(const std::vector<int>& nodes, const ProjectDraft& draft) {
    const std::vector<std::vector<int>>& next = NextNumbers(draft);
    std::vector<char> wanted(next.size() + 1, 0);
    for (const int node : nodes) {
        wanted[static_cast<std::size_t>(node)] = 1;
    }
    std::vector<Side> sides;
    for (const int node : nodes) {
        for (const int other : next[static_cast<std::size_t>(node - 1)]) {
            if (wanted[static_cast<std::size_t>(other)] != 0) {
                sides.emplace_back(node, other);
            }
        }
    }
    return sides;
}

/// Outlines hang together by their nodes; a closed outline of an opening runs clockwise.
std::vector<Side> WithoutOpenings(const std::vector<Side>& boundary, const Model& model) {
    std::vector<int> leader(model.Nodes.size() + 1);
    std::iota(leader.begin(), leader.end(), 0);
    const auto find = [&leader](int node) {
        while (leader[node] != node) {
            node = leader[node] = leader[leader[node]];
        }
        return node;
    };
    for (const auto& [from, to] : boundary) {
        leader[find(from)] = find(to);
    }
    std::map<int, double> area;
    for (const auto& [from, to] : boundary) {
        const Point& a = model.Nodes[from - 1];
        const Point& b = model.Nodes[to - 1];
        area[find(from)] += a.x * b.y - b.x * a.y;
    }
    std::vector<Side> outer;
    for (const Side& side : boundary) {
        if (area[find(side.first)] > 0) {
            outer.push_back(side);
        }
    }
    return outer;
}

std::vector<Side> OuterSides(const ProjectDraft& draft) {
    const Model& model = draft.Model;
    const Point high = Extent(model.Nodes).second;
    std::vector<Side> sides;
    for (const Side& side : WithoutOpenings(BoundarySides(model), model)) {
        const Point& a = model.Nodes[side.first - 1];
        const Point& b = model.Nodes[side.second - 1];
        const bool atTop = std::min(a.y, b.y) > high.y - draft.Tolerance;
        const bool atRight = std::min(a.x, b.x) > high.x - draft.Tolerance;
        if (!(atTop && HasXLine(model.Symmetry)) && !(atRight && HasYLine(model.Symmetry))) {
            sides.push_back(side);
        }
    }
    return sides;
}

enum Edge : std::size_t { All, Left, Right, Bottom, Top };

Place EdgePlace(std::size_t edge, const ProjectDraft& draft) {
    const Model& model = draft.Model;
    Place place;
    place.IsLine = true;
    if (edge == All) {
        place.Sides = OuterSides(draft);
        for (const auto& [from, to] : place.Sides) {
            place.Nodes.push_back(from);
            place.Nodes.push_back(to);
        }
        std::sort(place.Nodes.begin(), place.Nodes.end());
        place.Nodes.erase(std::unique(place.Nodes.begin(), place.Nodes.end()), place.Nodes.end());
        return place;
    }
    const auto [low, high] = Extent(model.Nodes);
    const double tolerance = draft.Tolerance;
    for (std::size_t i = 0; i < model.Nodes.size(); ++i) {
        const Point& p = model.Nodes[i];
        const bool on[] = {false, p.x<low.x + tolerance, p.x> high.x - tolerance,
                           p.y<low.y + tolerance, p.y> high.y - tolerance};
        if (on[edge]) {
            place.Nodes.push_back(static_cast<int>(i) + 1);
        }
    }
    place.Sides = SidesAmong(place.Nodes, draft);
    return place;
}

Place EdgeOf(const Entry& entry, const ProjectDraft& draft) {
    const std::size_t edge = entry.Choice({"all", "left", "right", "bottom", "top"});
    const torlib::SymmetricCase symmetry = draft.Model.Symmetry;
    if ((edge == Right && HasYLine(symmetry)) || (edge == Top && HasXLine(symmetry))) {
        entry.Fail("is the symmetry line; use line for a support that really stands there");
    }
    std::optional<Place>& known = draft.Search.Edges[edge];
    if (!known) {
        known = EdgePlace(edge, draft);
    }
    return *known;
}

/// Places in a list of the model by node, or by node and freedom.
using ByNode = std::map<std::pair<int, int>, std::size_t>;

void Restrain(const KeyTable& support, ProjectDraft& draft, ByNode& known,
              const Restraint& restraint) {
    const auto [node, freedom, value] = restraint;
    std::vector<Restraint>& restraints = draft.Model.Restraints;
    const auto [earlier, isNew] = known.try_emplace({node, freedom}, restraints.size());
    if (isNew) {
        restraints.push_back(restraint);
    } else if (restraints[earlier->second].Value != value) {
        support.Fail("node " + std::to_string(node) + " at " +
                     PlaceText(draft.Model.Nodes[node - 1], draft.Scale) +
                     " already has another value of " +
                     draft.Freedoms.Keys[static_cast<std::size_t>(freedom - 1)]);
    }
}

/// Refuses a value where the mirror image allows 0 only.
void CheckSymmetry(const Entry& entry, const ProjectDraft& draft, const Place& place, int freedom) {
    const SymmetryLines lines(draft.Model);
    for (const int node : place.Nodes) {
        const Point& p = draft.Model.Nodes[static_cast<std::size_t>(node - 1)];
        if (lines.Hold(p, freedom, draft.Freedoms.Displacements)) {
            entry.Fail("symmetry holds node " + std::to_string(node) + " at " +
                       PlaceText(p, draft.Scale) + " (allowed: 0)");
        }
    }
}

/// The keys of a place, and those that follow.
std::vector<std::string> WithPlace(const std::vector<std::string>& more) {
    std::vector<std::string> keys{"node", "at", "line", "edge"};
    keys.insert(keys.end(), more.begin(), more.end());
    return keys;
}

[[noreturn]] void FailWithoutValue(const KeyTable& table, const char* what,
                                   const std::vector<std::string>& keys) {
    std::string text;
    for (const std::string& key : keys) {
        text += (text.empty() ? "" : ", ") + key;
    }
    table.Fail(what + ("one of these keys is needed: " + text));
}

void ReadSupport(const KeyTable& support, ProjectDraft& draft, ByNode& known) {
    std::vector<std::string> keys = draft.Freedoms.Keys;
    keys.emplace_back("clamped");
    support.Allow(WithPlace(keys));
    const Place place = ReadPlace(support, draft);
    const bool clamped = support.Has("clamped") && support.Get("clamped").Flag();
    bool any = clamped;
    for (std::size_t f = 0; f < draft.Freedoms.Keys.size(); ++f) {
        const auto entry = support.Find(draft.Freedoms.Keys[f]);
        any = any || entry;
        if (!entry && !clamped) {
            continue;
        }
        const double unit = f < draft.Freedoms.Displacements ? draft.Scale.Settlement : 1;
        const double value = entry ? Within(*entry, Any, unit, LargestDisplacement) : 0;
        const int freedom = static_cast<int>(f) + 1;
        if (value != 0) {
            CheckSymmetry(*entry, draft, place, freedom);
        }
        for (const int node : place.Nodes) {
            Restrain(support, draft, known, {node, freedom, value});
        }
    }
    if (!any) {
        FailWithoutValue(support, "", keys);
    }
}

void ReadSpring(const KeyTable& spring, ProjectDraft& draft, ByNode& known) {
    const std::vector<std::string>& keys = draft.Freedoms.Keys;
    spring.Allow(WithPlace(keys));
    const Place place = ReadPlace(spring, draft);
    // A line has stiffness per length, and Shares counts its length in metres.
    const double perLength = place.IsLine ? draft.Scale.Length : 1;
    std::array<double, 3> stiffness{};
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const double unit =
            i < draft.Freedoms.Displacements ? draft.Scale.LineLoad : draft.Scale.Moment;
        stiffness[i] =
            WithinOrZero(spring, keys[i].c_str(), NotNegative, unit, LargestSpring * perLength) /
            perLength;
    }
    if (stiffness == std::array<double, 3>{}) {
        FailWithoutValue(spring, "has no stiffness; ", keys);
    }
    std::vector<NodeSpring>& springs = draft.Model.Springs;
    for (const auto& [node, share] : Shares(spring, place, draft.Model)) {
        const auto [at, isNew] = known.try_emplace({node, 0}, springs.size());
        if (isNew) {
            springs.push_back({node, {}});
        }
        for (std::size_t i = 0; i < 3; ++i) {
            springs[at->second].Stiffness[i] += share * stiffness[i];
        }
    }
}

} // namespace

Place ReadPlace(const KeyTable& table, const ProjectDraft& draft,
                const std::vector<std::string>& kinds) {
    const std::string key = table.OneOf(kinds);
    const Entry entry = table.Get(key);
    if (key == "edge") {
        return EdgeOf(entry, draft);
    }
    Place place;
    if (key == "line") {
        place.Nodes = NodesOnLine(entry, draft);
        place.Sides = SidesAmong(place.Nodes, draft);
        place.IsLine = true;
    } else if (key == "node") {
        const int count = static_cast<int>(draft.Model.Nodes.size());
        place.Nodes = OneOrMore(entry, entry.IsList(),
                                [count](const Entry& item) { return item.WholeNumber(1, count); });
    } else {
        const bool several = entry.IsList() && !entry.List().empty() && entry.List()[0].IsList();
        place.Nodes = OneOrMore(entry, several,
                                [&draft](const Entry& item) { return MeshNodeAt(item, draft); });
    }
    if (place.Nodes.empty()) {
        entry.Fail("names no node (allowed: at least one)");
    }
    return place;
}

std::map<int, double> Shares(const KeyTable& table, const Place& place, const Model& model) {
    std::map<int, double> shares;
    if (!place.IsLine) {
        for (const int node : place.Nodes) {
            shares[node] += 1;
        }
        return shares;
    }
    for (const auto& [from, to] : place.Sides) {
        const double half = Distance(model.Nodes[from - 1], model.Nodes[to - 1]) / 2;
        shares[from] += half;
        shares[to] += half;
    }
    if (shares.empty()) {
        table.Fail("no side of an element lies on this line");
    }
    return shares;
}

namespace {

std::size_t NearestOfAll(const std::vector<Point>& nodes, const Point& at) {
    const auto nearest =
        std::min_element(nodes.begin(), nodes.end(), [&at](const Point& a, const Point& b) {
            return Distance(a, at) < Distance(b, at);
        });
    return static_cast<std::size_t>(nearest - nodes.begin());
}

} // namespace

int MeshNodeAt(const Entry& entry, const ProjectDraft& draft) {
    const Point pair = entry.Pair();
    const Point at{pair.x * draft.Scale.Length, pair.y * draft.Scale.Length};
    const std::vector<Point>& nodes = draft.Model.Nodes;
    const auto nearer = [&](std::size_t a, std::size_t b) {
        return Distance(nodes[a], at) < Distance(nodes[b], at);
    };
    const std::vector<std::size_t> close =
        NodeSearch(draft).Meeting(BoxAround(at, at, 2 * draft.Tolerance));
    const auto best = std::min_element(close.begin(), close.end(), nearer);
    const std::size_t index = best == close.end() ? NearestOfAll(nodes, at) : *best;
    const Point* const nearest = &nodes[index];
    const int number = static_cast<int>(index) + 1;
    if (Distance(*nearest, at) > draft.Tolerance) {
        entry.Fail("is no mesh node; the nearest is node " + std::to_string(number) + " at " +
                   PlaceText(*nearest, draft.Scale) + " (allowed: up to " +
                   ShortNumber(draft.Tolerance / draft.Scale.Length) + " from a node)");
    }
    return number;
}

void ReadSupports(const KeyTable& root, ProjectDraft& draft) {
    ByNode known;
    for (const KeyTable& support : root.Tables("supports")) {
        ReadSupport(support, draft, known);
    }
}

void ReadSprings(const KeyTable& root, ProjectDraft& draft) {
    ByNode known;
    for (const KeyTable& spring : root.Tables("springs")) {
        ReadSpring(spring, draft, known);
    }
}

} // namespace slab

#include "hosts/slab/mesh.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace slab {

namespace {

double ShortestSide(const Model& model) {
    double shortest = HUGE_VAL;
    for (const Element& element : model.Elements) {
        for (const auto& [from, to] : SidesOf(element)) {
            shortest = std::min(shortest, Distance(model.Nodes[from - 1], model.Nodes[to - 1]));
        }
    }
    return shortest;
}

/// Refuses a coordinate of a rectangle that runs through the elements of a grid.
double OnMeshLine(const Entry& entry, double value, const std::vector<double>& lines,
                  const ProjectDraft& draft) {
    if (lines.empty() || value < lines.front() || value > lines.back()) {
        return value;
    }
    const auto above = std::lower_bound(lines.begin(), lines.end(), value);
    const double next = *above;
    const double previous = above == lines.begin() ? next : *(above - 1);
    const double nearest = value - previous < next - value ? previous : next;
    if (std::fabs(value - nearest) > draft.Tolerance) {
        const double unit = draft.Scale.Length;
        entry.Fail("does not follow a mesh line; the mesh lines beside it are at " +
                   ShortNumber(previous / unit) + " and " + ShortNumber(next / unit) +
                   " (allowed: up to " + ShortNumber(draft.Tolerance / unit) + " from a line)");
    }
    return nearest;
}

/// Element numbers and [first, last] pairs of them.
std::vector<std::size_t> ListedElements(const Entry& entry, const Model& model) {
    const int count = static_cast<int>(model.Elements.size());
    const std::vector<Entry> items = entry.List();
    if (items.size() > model.Elements.size()) {
        entry.Fail("has more values than there are elements (allowed: up to " +
                   std::to_string(count) + ")");
    }
    std::vector<bool> wanted(model.Elements.size(), false);
    for (const Entry& item : items) {
        int first = 0;
        int last = 0;
        if (item.IsList()) {
            first = item.List(2)[0].WholeNumber(1, count);
            last = item.List(2)[1].WholeNumber(first, count);
        } else {
            first = last = item.WholeNumber(1, count);
        }
        std::fill(wanted.begin() + first - 1, wanted.begin() + last, true);
    }
    std::vector<std::size_t> chosen;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        if (wanted[i]) {
            chosen.push_back(i);
        }
    }
    if (chosen.empty()) {
        entry.Fail("names no element (allowed: at least one)");
    }
    return chosen;
}

std::vector<std::size_t> ElementsInRegion(const KeyTable& table, const ProjectDraft& draft) {
    const Region region = ReadMeshRegion(table, draft);
    std::vector<std::size_t> chosen;
    const std::vector<Point>& centres = CentresOfElements(draft);
    for (std::size_t i = 0; i < centres.size(); ++i) {
        if (region.Contains(centres[i])) {
            chosen.push_back(i);
        }
    }
    if (chosen.empty()) {
        table.Fail("no element has its centre in this rectangle");
    }
    return chosen;
}

} // namespace

torlib::SymmetricCase ReadSymmetry(const KeyTable& mesh) {
    using enum torlib::SymmetricCase;
    constexpr torlib::SymmetricCase cases[] = {Unsymmetric,  X_symmetric,     Y_Symmetric,
                                               XY_Symmetric, X_AntiSymmetric, Y_AntiSymmetric};
    const auto entry = mesh.Find("symmetry");
    return entry ? cases[entry->Choice({"none", "x", "y", "xy", "anti-x", "anti-y"})] : Unsymmetric;
}

void ReadMesh(const KeyTable& root, ProjectDraft& draft) {
    const KeyTable mesh = root.Table("mesh");
    const bool listed = mesh.Has("nodes") || mesh.Has("elements");
    if (listed) {
        mesh.Allow({"nodes", "elements", "symmetry"});
        ReadListedMesh(mesh, draft);
    } else {
        mesh.Allow({"x", "y", "origin", "openings", "triangles", "symmetry", "nodes", "elements"});
        ReadGrid(mesh, draft);
    }
    draft.Model.Symmetry = ReadSymmetry(mesh);
    draft.Tolerance = SnappingShare * ShortestSide(draft.Model);
    CheckMesh(mesh, draft);
    if (listed) {
        CheckListedTopology(mesh, draft);
    }
}

Region ReadRegion(const KeyTable& table, const ProjectDraft& draft) {
    const Point x = table.Get("x").Pair();
    const Point y = table.Get("y").Pair();
    if (x.x >= x.y) {
        table.Get("x").Fail("must go from a smaller to a larger coordinate");
    }
    if (y.x >= y.y) {
        table.Get("y").Fail("must go from a smaller to a larger coordinate");
    }
    const double unit = draft.Scale.Length;
    return {{x.x * unit, y.x * unit}, {x.y * unit, y.y * unit}};
}

Region ReadMeshRegion(const KeyTable& table, const ProjectDraft& draft) {
    Region region = ReadRegion(table, draft);
    const std::vector<Entry> x = table.Get("x").List(2);
    const std::vector<Entry> y = table.Get("y").List(2);
    region.Low.x = OnMeshLine(x[0], region.Low.x, draft.XLines, draft);
    region.High.x = OnMeshLine(x[1], region.High.x, draft.XLines, draft);
    region.Low.y = OnMeshLine(y[0], region.Low.y, draft.YLines, draft);
    region.High.y = OnMeshLine(y[1], region.High.y, draft.YLines, draft);
    return region;
}

std::vector<std::size_t> SelectedElements(const KeyTable& table, const ProjectDraft& draft) {
    const bool region = table.Has("x") || table.Has("y");
    if (table.Has("elements")) {
        if (region) {
            table.Fail("either x and y or elements may be given, not both");
        }
        return ListedElements(table.Get("elements"), draft.Model);
    }
    if (region) {
        return ElementsInRegion(table, draft);
    }
    std::vector<std::size_t> all(draft.Model.Elements.size());
    for (std::size_t i = 0; i < all.size(); ++i) {
        all[i] = i;
    }
    return all;
}

std::vector<Side> SidesOf(const Element& element) {
    const int corners = element.Corners;
    std::vector<Side> sides;
    sides.reserve(static_cast<std::size_t>(corners));
    for (int i = 0; i < corners; ++i) {
        sides.emplace_back(element.Node[i], element.Node[(i + 1) % corners]);
    }
    return sides;
}

std::vector<Side> BoundarySides(const Model& model) {
    std::map<Side, int> owners;
    for (const Element& element : model.Elements) {
        for (const auto& [from, to] : SidesOf(element)) {
            ++owners[std::minmax(from, to)];
        }
    }
    std::vector<Side> sides;
    for (const Element& element : model.Elements) {
        for (const Side& side : SidesOf(element)) {
            if (owners[std::minmax(side.first, side.second)] == 1) {
                sides.push_back(side);
            }
        }
    }
    return sides;
}

Point CentreOf(const Element& element, const std::vector<Point>& nodes) {
    Point centre;
    for (int i = 0; i < element.Corners; ++i) {
        centre.x += nodes[element.Node[i] - 1].x / element.Corners;
        centre.y += nodes[element.Node[i] - 1].y / element.Corners;
    }
    return centre;
}

double Distance(const Point& a, const Point& b) {
    return std::hypot(b.x - a.x, b.y - a.y);
}

std::pair<Point, Point> Extent(const std::vector<Point>& nodes) {
    Point low{HUGE_VAL, HUGE_VAL};
    Point high{-HUGE_VAL, -HUGE_VAL};
    for (const Point& node : nodes) {
        low = {std::min(low.x, node.x), std::min(low.y, node.y)};
        high = {std::max(high.x, node.x), std::max(high.y, node.y)};
    }
    return {low, high};
}

std::string PlaceText(const Point& place, const UnitScale& scale) {
    return '(' + ShortNumber(place.x / scale.Length) + ", " + ShortNumber(place.y / scale.Length) +
           ')';
}

} // namespace slab

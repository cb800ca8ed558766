// What every mesh has to satisfy before it is analysed.

#include "hosts/slab/mesh.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numeric>
#include <set>

namespace slab {

namespace {

/// 32 bits still resolve a millimetre here.
constexpr double LargestCoordinate = 10000;
/// The library takes points closer than a millimetre for one.
constexpr double ShortestAllowedSide = 0.01;
constexpr double LargestSideRatio = 100;
/// Equations and their zero rows are counted in 16 bits.
constexpr int MostRows = 32767;

/// Shortest and longest dimension of an element; of a triangle, its smallest height and longest
/// side.
std::pair<double, double> Dimensions(const Element& element, const std::vector<Point>& nodes) {
    double longest = 0;
    double shortest = HUGE_VAL;
    for (const auto& [from, to] : SidesOf(element)) {
        const double length = Distance(nodes[from - 1], nodes[to - 1]);
        longest = std::max(longest, length);
        shortest = std::min(shortest, length);
    }
    if (element.Corners == 3) {
        const Point& a = nodes[element.Node[0] - 1];
        const Point& b = nodes[element.Node[1] - 1];
        const Point& c = nodes[element.Node[2] - 1];
        const double area2 = (b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y);
        shortest = std::min(shortest, longest > 0 ? area2 / longest : 0);
    }
    return {shortest, longest};
}

void CheckShapes(const KeyTable& mesh, const ProjectDraft& draft) {
    for (std::size_t i = 0; i < draft.Model.Elements.size(); ++i) {
        const Element& element = draft.Model.Elements[i];
        const auto [shortest, longest] = Dimensions(element, draft.Model.Nodes);
        if (shortest >= ShortestAllowedSide && longest <= LargestSideRatio * shortest) {
            continue;
        }
        const double unit = draft.Scale.Length;
        mesh.Fail("element " + std::to_string(i + 1) + " at " +
                  PlaceText(CentreOf(element, draft.Model.Nodes), draft.Scale) + " is too thin: " +
                  ShortNumber(shortest / unit) + " by " + ShortNumber(longest / unit) + ' ' +
                  draft.Scale.Units.LengthName + " (allowed: at least " +
                  ShortNumber(ShortestAllowedSide / unit) + ", up to 1:100)");
    }
}

void CheckEquations(const KeyTable& mesh, const Model& model) {
    const int equations = 3 * static_cast<int>(model.Nodes.size());
    const int width = HalfBandWidth(model);
    const int rows = equations + width - 1;
    if (rows <= MostRows) {
        return;
    }
    const double factor = std::sqrt(static_cast<double>(rows) / MostRows);
    mesh.Fail("too many equations: " + std::to_string(model.Nodes.size()) + " nodes give " +
              std::to_string(equations) + " equations with a half band width of " +
              std::to_string(width) + ", together " + std::to_string(rows) +
              " rows (allowed: up to " + std::to_string(MostRows) + "); elements about " +
              ShortNumber(std::ceil(factor * 20 + 1) / 20) +
              " times as long in both directions would fit, and so may a half or quarter model");
}

void RefuseCoincidentNodes(const Entry& entry, const ProjectDraft& draft) {
    const std::vector<Point>& nodes = draft.Model.Nodes;
    std::vector<std::size_t> order(nodes.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::sort(order.begin(), order.end(),
              [&nodes](std::size_t a, std::size_t b) { return nodes[a].x < nodes[b].x; });
    for (std::size_t i = 0; i < order.size(); ++i) {
        const Point& a = nodes[order[i]];
        for (std::size_t j = i + 1; j < order.size(); ++j) {
            const Point& b = nodes[order[j]];
            if (b.x - a.x > draft.Tolerance) {
                break;
            }
            if (Distance(a, b) <= draft.Tolerance) {
                entry.Fail("nodes " + std::to_string(std::min(order[i], order[j]) + 1) + " and " +
                           std::to_string(std::max(order[i], order[j]) + 1) +
                           " lie at the same place " + PlaceText(a, draft.Scale));
            }
        }
    }
}

void RefuseOverlaps(const KeyTable& mesh, const Model& model) {
    std::set<Side> seen;
    const std::vector<Entry> entries = mesh.Get("elements").List();
    for (std::size_t i = 0; i < model.Elements.size(); ++i) {
        for (const Side& side : SidesOf(model.Elements[i])) {
            if (!seen.insert(side).second) {
                entries[i].Fail("overlaps an earlier element at the side from node " +
                                std::to_string(side.first) + " to node " +
                                std::to_string(side.second));
            }
        }
    }
}

} // namespace

int HalfBandWidth(const Model& model) {
    int difference = 0;
    for (const Element& element : model.Elements) {
        const auto first = element.Node.begin();
        const auto [least, greatest] = std::minmax_element(first, first + element.Corners);
        difference = std::max(difference, *greatest - *least);
    }
    return 3 * (difference + 1);
}

bool LiesInside(const Point& p, const Point& a, const Point& b, double tolerance) {
    const double length = Distance(a, b);
    const Point along{(b.x - a.x) / length, (b.y - a.y) / length};
    const double t = (p.x - a.x) * along.x + (p.y - a.y) * along.y;
    const double off = (p.y - a.y) * along.x - (p.x - a.x) * along.y;
    return std::fabs(off) < tolerance && t > tolerance && t < length - tolerance;
}

void CheckFromOrigin(const Entry& entry, const Point& place, const ProjectDraft& draft) {
    const double farthest = std::max(std::fabs(place.x), std::fabs(place.y));
    if (farthest > LargestCoordinate) {
        entry.Fail("is " + ShortNumber(farthest / draft.Scale.Length) +
                   " from the origin; choose an origin near the structure (allowed: up to " +
                   ShortNumber(LargestCoordinate / draft.Scale.Length) + ")");
    }
}

void CheckListedTopology(const KeyTable& mesh, const ProjectDraft& draft) {
    const Model& model = draft.Model;
    RefuseCoincidentNodes(mesh.Get("nodes"), draft);
    RefuseOverlaps(mesh, model);
    const std::vector<Side> boundary = BoundarySides(model);
    std::vector<Point> corners;
    for (const auto& [node, next] : boundary) {
        corners.push_back(model.Nodes[static_cast<std::size_t>(node - 1)]);
    }
    const BoxSearch search(corners);
    for (const auto& [from, to] : boundary) {
        const Point& a = model.Nodes[static_cast<std::size_t>(from - 1)];
        const Point& b = model.Nodes[static_cast<std::size_t>(to - 1)];
        for (const std::size_t i : search.Meeting(BoxAround(a, b, draft.Tolerance))) {
            const int node = boundary[i].first;
            if (LiesInside(corners[i], a, b, draft.Tolerance)) {
                mesh.Get("elements")
                    .Fail("node " + std::to_string(node) + " lies inside the side from node " +
                          std::to_string(from) + " to node " + std::to_string(to) +
                          "; elements must meet at their corners");
            }
        }
    }
}

void CheckMesh(const KeyTable& mesh, const ProjectDraft& draft) {
    const auto [low, high] = Extent(draft.Model.Nodes);
    const double farthest = std::max({-low.x, -low.y, high.x, high.y});
    if (farthest > LargestCoordinate) {
        mesh.Fail("a coordinate is " + ShortNumber(farthest / draft.Scale.Length) +
                  " from the origin; choose an origin near the slab (allowed: up to " +
                  ShortNumber(LargestCoordinate / draft.Scale.Length) + ")");
    }
    CheckShapes(mesh, draft);
    CheckEquations(mesh, draft.Model);
}

} // namespace slab

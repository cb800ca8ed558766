// A mesh of listed nodes and elements.

#include "hosts/slab/mesh.h"

#include <algorithm>

namespace slab {

namespace {

constexpr int MostNodes = 32767;

double TwiceArea(const Point& a, const Point& b, const Point& c) {
    return (b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y);
}

double TwiceArea(const Element& element, const std::vector<Point>& nodes) {
    double sum = 0;
    for (int i = 2; i < element.Corners; ++i) {
        sum += TwiceArea(nodes[element.Node[0] - 1], nodes[element.Node[i - 1] - 1],
                         nodes[element.Node[i] - 1]);
    }
    return sum;
}

/// Starts a rectangle at its corner of smallest x and y, and refuses what is no rectangle.
void AlignRectangle(const Entry& entry, Element& element, const std::vector<Point>& nodes) {
    const auto lowest =
        std::min_element(element.Node.begin(), element.Node.end(), [&nodes](int a, int b) {
            return nodes[a - 1].x + nodes[a - 1].y < nodes[b - 1].x + nodes[b - 1].y;
        });
    std::rotate(element.Node.begin(), lowest, element.Node.end());
    const Point& a = nodes[element.Node[0] - 1];
    const Point& b = nodes[element.Node[1] - 1];
    const Point& c = nodes[element.Node[2] - 1];
    const Point& d = nodes[element.Node[3] - 1];
    const double slack = 1e-6 * Distance(a, c);
    const bool along = std::abs(a.y - b.y) < slack && std::abs(c.y - d.y) < slack &&
                       std::abs(a.x - d.x) < slack && std::abs(b.x - c.x) < slack;
    if (!along || b.x <= a.x || d.y <= a.y) {
        entry.Fail("four nodes must form a rectangle with its sides along x and y; "
                   "divide other shapes into triangles");
    }
}

Element ReadElement(const Entry& entry, const std::vector<Point>& nodes) {
    const std::vector<Entry> numbers = entry.List();
    if (numbers.size() != 3 && numbers.size() != 4) {
        entry.Fail("has " + std::to_string(numbers.size()) + " nodes (allowed: 3 or 4)");
    }
    Element element;
    element.Corners = static_cast<int>(numbers.size());
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        element.Node[i] = numbers[i].WholeNumber(1, static_cast<int>(nodes.size()));
        if (std::find(element.Node.begin(), element.Node.begin() + i, element.Node[i]) !=
            element.Node.begin() + i) {
            entry.Fail("names node " + std::to_string(element.Node[i]) + " twice");
        }
    }
    if (TwiceArea(element, nodes) < 0) {
        std::reverse(element.Node.begin() + 1, element.Node.begin() + element.Corners);
    }
    if (element.Corners == 4) {
        AlignRectangle(entry, element, nodes);
    }
    return element;
}

void RefuseUnusedNodes(const Entry& entry, const Model& model) {
    std::vector<bool> used(model.Nodes.size(), false);
    for (const Element& element : model.Elements) {
        for (int i = 0; i < element.Corners; ++i) {
            used[element.Node[i] - 1] = true;
        }
    }
    const auto unused = std::find(used.begin(), used.end(), false);
    if (unused != used.end()) {
        entry.Fail("node " + std::to_string(unused - used.begin() + 1) +
                   " belongs to no element; remove it or add its elements");
    }
}

} // namespace

void ReadListedMesh(const KeyTable& mesh, ProjectDraft& draft) {
    const double unit = draft.Scale.Length;
    for (const Entry& node : mesh.Get("nodes").List()) {
        const Point place = node.Pair();
        draft.Model.Nodes.push_back({place.x * unit, place.y * unit});
    }
    for (const char* key : {"nodes", "elements"}) {
        const std::size_t count = mesh.Get(key).List().size();
        if (count == 0 || count > MostNodes) {
            mesh.Get(key).Fail("lists " + std::to_string(count) + " (allowed: 1 to " +
                               std::to_string(MostNodes) + ")");
        }
    }
    for (const Entry& element : mesh.Get("elements").List()) {
        draft.Model.Elements.push_back(ReadElement(element, draft.Model.Nodes));
    }
    RefuseUnusedNodes(mesh.Get("nodes"), draft.Model);
}

} // namespace slab

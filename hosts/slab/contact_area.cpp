// The part of the slab's underside that belongs to a node.

#include "hosts/slab/contact_area.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace slab {

namespace {

constexpr double same = 1e-9; // of a side, m

Quadrilateral Rectangle(const Point& low, const Point& high) {
    return {{low, Point{high.x, low.y}, high, Point{low.x, high.y}}, true};
}

Point Mean(std::initializer_list<Point> points) {
    Point mean;
    for (const Point& p : points) {
        mean.x += p.x / static_cast<double>(points.size());
        mean.y += p.y / static_cast<double>(points.size());
    }
    return mean;
}

/// The corner's share of an element, relative to the corner.
Quadrilateral Share(const Model& model, const Element& element, int corner) {
    const auto relative = [&](int i) {
        const Point& o = model.Nodes[static_cast<std::size_t>(element.Node[corner] - 1)];
        const int node = element.Node[static_cast<std::size_t>((corner + i) % element.Corners)];
        const Point& p = model.Nodes[static_cast<std::size_t>(node - 1)];
        return Point{p.x - o.x, p.y - o.y};
    };
    const Point o;
    if (element.Corners == 4) {
        const Point m = Mean({o, relative(2)});
        return Rectangle({std::min(0.0, m.x), std::min(0.0, m.y)},
                         {std::max(0.0, m.x), std::max(0.0, m.y)});
    }
    return {
        {o, Mean({o, relative(1)}), Mean({o, relative(1), relative(2)}), Mean({o, relative(2)})}};
}

double Distance(const Point& a, const Point& b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

bool Same(double a, double b) {
    return std::fabs(a - b) < same;
}

/// The two rectangles as one, when they share a whole side.
std::optional<Quadrilateral> Joined(const Quadrilateral& a, const Quadrilateral& b) {
    if (!a.IsRectangle || !b.IsRectangle) {
        return std::nullopt;
    }
    const Point& a0 = a.Corner[0];
    const Point& a2 = a.Corner[2];
    const Point& b0 = b.Corner[0];
    const Point& b2 = b.Corner[2];
    const bool beside =
        Same(a0.y, b0.y) && Same(a2.y, b2.y) && (Same(a2.x, b0.x) || Same(b2.x, a0.x));
    const bool above =
        Same(a0.x, b0.x) && Same(a2.x, b2.x) && (Same(a2.y, b0.y) || Same(b2.y, a0.y));
    if (!beside && !above) {
        return std::nullopt;
    }
    return Rectangle({std::min(a0.x, b0.x), std::min(a0.y, b0.y)},
                     {std::max(a2.x, b2.x), std::max(a2.y, b2.y)});
}

bool JoinOnePair(std::vector<Quadrilateral>& pieces) {
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        for (std::size_t j = i + 1; j < pieces.size(); ++j) {
            if (const auto joined = Joined(pieces[i], pieces[j])) {
                pieces[i] = *joined;
                pieces.erase(pieces.begin() + static_cast<std::ptrdiff_t>(j));
                return true;
            }
        }
    }
    return false;
}

} // namespace

double Quadrilateral::Area() const {
    const double ax = Corner[2].x - Corner[0].x;
    const double ay = Corner[2].y - Corner[0].y;
    const double bx = Corner[3].x - Corner[1].x;
    const double by = Corner[3].y - Corner[1].y;
    return (ax * by - ay * bx) / 2;
}

std::vector<ContactArea> ContactAreas(const Model& model) {
    std::vector<ContactArea> areas(model.Nodes.size());
    for (const Element& element : model.Elements) {
        for (int i = 0; i < element.Corners; ++i) {
            areas[static_cast<std::size_t>(element.Node[i] - 1)].Pieces.push_back(
                Share(model, element, i));
        }
    }
    for (ContactArea& area : areas) {
        while (JoinOnePair(area.Pieces)) {
        }
        for (const Quadrilateral& piece : area.Pieces) {
            area.Area += piece.Area();
            area.Widest = std::max({area.Widest, Distance(piece.Corner[0], piece.Corner[2]),
                                    Distance(piece.Corner[1], piece.Corner[3])});
            for (const Point& p : piece.Corner) {
                area.Radius = std::max(area.Radius, std::hypot(p.x, p.y));
            }
        }
    }
    return areas;
}

} // namespace slab

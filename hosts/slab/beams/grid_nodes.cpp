#include "hosts/slab/beams/grid_nodes.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace slab {

namespace {

/// Position along an axis and distance from it, m.
struct Local {
    double Along = 0;
    double Off = 0;
};

Local LocalOf(const Axis& axis, const Point& p) {
    const double dx = axis.To.x - axis.From.x;
    const double dy = axis.To.y - axis.From.y;
    const double length = std::hypot(dx, dy);
    return {((p.x - axis.From.x) * dx + (p.y - axis.From.y) * dy) / length,
            ((p.y - axis.From.y) * dx - (p.x - axis.From.x) * dy) / length};
}

bool IsOn(const Axis& axis, const Point& p, double tolerance) {
    const double length = std::hypot(axis.To.x - axis.From.x, axis.To.y - axis.From.y);
    const Local local = LocalOf(axis, p);
    return std::fabs(local.Off) <= tolerance && local.Along >= -tolerance &&
           local.Along <= length + tolerance;
}

/// Points, each once, found again by the cell of a raster they lie in.
class Places {
  public:
    void Add(const Point& p) {
        const auto cell = [](double x) { return std::llround(x / SamePlace); };
        for (long long i = -1; i <= 1; ++i) {
            for (long long j = -1; j <= 1; ++j) {
                const auto known = cells_.find({cell(p.x) + i, cell(p.y) + j});
                if (known != cells_.end() &&
                    std::hypot(known->second.x - p.x, known->second.y - p.y) <= SamePlace) {
                    return;
                }
            }
        }
        cells_.emplace(std::pair{cell(p.x), cell(p.y)}, p);
    }

    std::vector<Point> All() const {
        std::vector<Point> points;
        for (const auto& [cell, point] : cells_) {
            points.push_back(point);
        }
        return points;
    }

  private:
    std::map<std::pair<long long, long long>, Point> cells_;
};

/// The crossing of two axes away from the ends of both; parallels have none.
bool Crossing(const Axis& a, const Axis& b, Point& at) {
    const Local start = LocalOf(a, b.From);
    const Local end = LocalOf(a, b.To);
    if (start.Off * end.Off >= 0) {
        return false;
    }
    const double t = start.Off / (start.Off - end.Off);
    at = {b.From.x + t * (b.To.x - b.From.x), b.From.y + t * (b.To.y - b.From.y)};
    return IsOn(a, at, SamePlace);
}

/// The ends and crossings of the axes and the places on them.
Places Corners(const std::vector<Axis>& axes, const std::vector<Point>& places,
               const std::function<void()>& poll) {
    Places found;
    for (const Axis& axis : axes) {
        found.Add(axis.From);
        found.Add(axis.To);
    }
    std::vector<Region> boxes;
    for (const Axis& axis : axes) {
        boxes.push_back(BoxAround(axis.From, axis.To, 2 * SamePlace));
    }
    const BoxSearch search(boxes);
    for (const Point& place : places) {
        const std::vector<std::size_t> near = search.Meeting({place, place});
        if (std::any_of(near.begin(), near.end(),
                        [&](std::size_t i) { return IsOn(axes[i], place, SamePlace); })) {
            found.Add(place);
        }
    }
    for (std::size_t i = 0; i < axes.size(); ++i) {
        poll();
        for (const std::size_t j : search.Along(axes[i].From, axes[i].To, SamePlace)) {
            Point at;
            if (j < i && Crossing(axes[i], axes[j], at)) {
                found.Add(at);
            }
        }
    }
    return found;
}

/// Points that divide an axis between its corners into pieces of about the same length.
void Divide(const Axis& axis, double longest, const std::vector<Point>& corners,
            const BoxSearch& search, Places& found) {
    const std::vector<int> on = NodesOnAxis(axis, corners, search, SamePlace);
    for (std::size_t i = 0; i + 1 < on.size(); ++i) {
        const Point& a = corners[static_cast<std::size_t>(on[i] - 1)];
        const Point& b = corners[static_cast<std::size_t>(on[i + 1] - 1)];
        const double length = std::hypot(b.x - a.x, b.y - a.y);
        const long pieces = std::lround(std::ceil(length / longest - 1e-9));
        for (long k = 1; k < pieces; ++k) {
            const double t = static_cast<double>(k) / static_cast<double>(pieces);
            found.Add({a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)});
        }
    }
}

/// Across the shorter side first, so that numbers within an element differ little.
void Order(std::vector<Point>& nodes) {
    double width = 0;
    double height = 0;
    for (const Point& p : nodes) {
        width = std::max(width, std::fabs(p.x - nodes.front().x));
        height = std::max(height, std::fabs(p.y - nodes.front().y));
    }
    if (height > width) {
        std::stable_sort(nodes.begin(), nodes.end(), [](const Point& a, const Point& b) {
            return std::llround(a.y / SamePlace) < std::llround(b.y / SamePlace);
        });
    }
}

} // namespace

std::vector<Point> GridNodes(const std::vector<Axis>& axes, const std::vector<double>& longest,
                             const std::vector<Point>& places, const std::function<void()>& poll) {
    Places found = Corners(axes, places, poll);
    const std::vector<Point> corners = found.All();
    const BoxSearch search(corners);
    for (std::size_t i = 0; i < axes.size(); ++i) {
        poll();
        Divide(axes[i], longest[i], corners, search, found);
    }
    std::vector<Point> nodes = found.All();
    Order(nodes);
    return nodes;
}

std::vector<int> NodesOnAxis(const Axis& axis, const std::vector<Point>& nodes,
                             const BoxSearch& search, double tolerance) {
    std::vector<std::pair<double, int>> found;
    for (const std::size_t n : search.Along(axis.From, axis.To, 2 * tolerance)) {
        if (IsOn(axis, nodes[n], tolerance)) {
            found.emplace_back(LocalOf(axis, nodes[n]).Along, static_cast<int>(n) + 1);
        }
    }
    std::sort(found.begin(), found.end());
    std::vector<int> numbers;
    numbers.reserve(found.size());
    for (const auto& [along, number] : found) {
        numbers.push_back(number);
    }
    return numbers;
}

} // namespace slab

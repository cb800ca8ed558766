// A wall plate with its principal stresses and its deformed outline.

#include "hosts/slab/mesh.h"
#include "hosts/slab/plane/plane_analysis.h"
#include "hosts/slab/plane/plane_canvas.h"
#include "hosts/slab/plane/wall_elements.h"
#include "hosts/slab/quantities.h"

#include <algorithm>
#include <cmath>

namespace slab {

namespace {

struct Principal {
    double First, Second, Angle;
};

Principal PrincipalOf(const Stress& s) {
    const double mean = (s.X + s.Y) / 2;
    const double radius = std::hypot((s.X - s.Y) / 2, s.XY);
    return {mean + radius, mean - radius, std::atan2(2 * s.XY, s.X - s.Y) / 2};
}

double LongestSide(const Model& wall) {
    double longest = 0;
    for (const Element& element : wall.Elements) {
        for (const auto& [from, to] : SidesOf(element)) {
            longest = std::max(longest, Distance(wall.Nodes[static_cast<std::size_t>(from - 1)],
                                                 wall.Nodes[static_cast<std::size_t>(to - 1)]));
        }
    }
    return longest;
}

/// A bar as long as the stress is large: red in tension, blue in compression.
void Bar(PlaneCanvas& canvas, const Point& centre, double angle, double pixels) {
    const Point half{std::cos(angle) * pixels / 2, -std::sin(angle) * pixels / 2};
    canvas.Path({{centre.x - half.x, centre.y - half.y}, {centre.x + half.x, centre.y + half.y}},
                pixels > 0 ? "stroke=\"#c0392b\" stroke-width=\"1.2\""
                           : "stroke=\"#2471a3\" stroke-width=\"1.2\"");
}

} // namespace

std::string WallPicture(const Model& wall, const Vector& u) {
    std::vector<Principal> stresses;
    double largest = 0;
    for (const Element& element : wall.Elements) {
        stresses.push_back(PrincipalOf(StressOf(wall, element, u)));
        largest = std::max(
            {largest, std::fabs(stresses.back().First), std::fabs(stresses.back().Second)});
    }
    PlaneCanvas canvas(wall, "principal stresses, red tension, blue compression, longest bar " +
                                 NumberText(InUnits(wall.Units, Dimension::Pressure, largest), 3) +
                                 " " + UnitName(wall.Units, Dimension::Pressure) +
                                 "; dashed: deformed outline, exaggerated");
    canvas.Supports(wall);
    const double exaggeration = Exaggeration(u);
    for (const auto& [from, to] : BoundarySides(wall)) {
        std::vector<Point> side;
        std::vector<Point> moved;
        for (const int node : {from, to}) {
            const auto n = static_cast<std::size_t>(node - 1);
            const Point p = canvas.OnPaper(wall.Nodes[n]);
            side.push_back(p);
            moved.push_back({p.x + u[3 * n] * exaggeration, p.y - u[3 * n + 1] * exaggeration});
        }
        canvas.Path(side, "stroke=\"#333\" stroke-width=\"1.5\"");
        canvas.Path(moved, "stroke=\"#888\" stroke-dasharray=\"4 3\"");
    }
    const double longestBar = 1.2 * LongestSide(wall) * canvas.Scale();
    for (std::size_t e = 0; e < stresses.size() && largest > 0; ++e) {
        const Principal& s = stresses[e];
        const Point centre = canvas.OnPaper(CentreOf(wall.Elements[e], wall.Nodes));
        Bar(canvas, centre, s.Angle, s.First / largest * longestBar);
        Bar(canvas, centre, s.Angle + std::acos(0.0), s.Second / largest * longestBar);
    }
    return canvas.Document();
}

} // namespace slab

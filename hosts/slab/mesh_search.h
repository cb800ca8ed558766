#pragma once
// Finding the nodes and elements at a place without looking at all of them.

#include "hosts/slab/model.h"

#include <array>
#include <optional>
#include <utility>
#include <vector>

namespace slab {

struct ProjectDraft;

struct Region {
    Point Low;
    Point High;
    bool Contains(const Point& p) const {
        return p.x > Low.x && p.x < High.x && p.y > Low.y && p.y < High.y;
    }
    bool Meets(const Region& other) const {
        return Low.x <= other.High.x && other.Low.x <= High.x && Low.y <= other.High.y &&
               other.Low.y <= High.y;
    }
};

/// The box of a segment or, when both ends are the same, of a point, with a margin around it.
Region BoxAround(const Point& a, const Point& b, double margin);

/// Boxes, sorted along the longer side of what they cover.
class BoxSearch {
  public:
    explicit BoxSearch(std::vector<Region> boxes);
    /// Points as boxes.
    explicit BoxSearch(const std::vector<Point>& points);

    /// The indices, ascending, of the boxes that the region meets, if only in a point.
    std::vector<std::size_t> Meeting(const Region& region) const;
    /// Of these, the boxes that the straight line through a and b meets as well.
    std::vector<std::size_t> Along(const Point& a, const Point& b, double margin) const;

  private:
    double From(const Region& box) const { return alongY_ ? box.Low.y : box.Low.x; }
    double To(const Region& box) const { return alongY_ ? box.High.y : box.High.x; }

    std::vector<Region> boxes_;
    std::vector<std::pair<double, std::size_t>> order_; ///< lower end and index
    bool alongY_ = false;
    double longest_ = 0; ///< side of a box in the sorted direction
};

/// A side of an element from one node number to the next, counter-clockwise.
using Side = std::pair<int, int>;

/// The nodes that a support, spring or load stands on; for lines and edges, the element sides
/// between them.
struct Place {
    std::vector<int> Nodes;
    std::vector<Side> Sides;
    bool IsLine = false;
};

/// What the readers of a project find out about its mesh and keep. Filled at the first use.
struct MeshSearch {
    std::optional<BoxSearch> Nodes;
    std::optional<BoxSearch> Elements;
    std::vector<Point> Centres;                ///< of the elements
    std::vector<std::vector<int>> NextNumbers; ///< larger node numbers at the other end of a side
    std::array<std::optional<Place>, 5> Edges; ///< in the order of the key `edge`
};

const BoxSearch& NodeSearch(const ProjectDraft& draft);
/// The elements as boxes that hold every point less than the draft's tolerance outside of them.
const BoxSearch& ElementSearch(const ProjectDraft& draft);
const std::vector<Point>& CentresOfElements(const ProjectDraft& draft);
/// For each node (from 0) the larger numbers, ascending, of nodes at the other ends of its sides.
const std::vector<std::vector<int>>& NextNumbers(const ProjectDraft& draft);

} // namespace slab

#include "hosts/slab/mesh_search.h"

#include "hosts/slab/mesh.h"

#include <algorithm>
#include <cmath>

namespace slab {

namespace {

/// Keeps what touches within the reach of a search.
constexpr double rounding = 1e-9;

std::vector<Region> AsBoxes(const std::vector<Point>& points) {
    std::vector<Region> boxes;
    boxes.reserve(points.size());
    for (const Point& p : points) {
        boxes.push_back({p, p});
    }
    return boxes;
}

/// How far a corner of an outline reaches that keeps a distance of 1 from the element.
double CornerReach(const Element& element, const std::vector<Point>& nodes) {
    double reach = 1;
    const auto corners = static_cast<std::size_t>(element.Corners);
    for (std::size_t i = 0; i < corners; ++i) {
        const Point& p = nodes[static_cast<std::size_t>(element.Node[i] - 1)];
        const Point& a = nodes[static_cast<std::size_t>(element.Node[(i + 1) % corners] - 1)];
        const Point& b =
            nodes[static_cast<std::size_t>(element.Node[(i + corners - 1) % corners] - 1)];
        const double cosine = ((a.x - p.x) * (b.x - p.x) + (a.y - p.y) * (b.y - p.y)) /
                              (Distance(p, a) * Distance(p, b));
        reach = std::max(reach, std::sqrt(2 / (1 - std::min(cosine, 1 - rounding))));
    }
    return reach;
}

Region BoxOf(const Element& element, const std::vector<Point>& nodes, double tolerance) {
    Region box{{HUGE_VAL, HUGE_VAL}, {-HUGE_VAL, -HUGE_VAL}};
    for (std::size_t i = 0; i < static_cast<std::size_t>(element.Corners); ++i) {
        const Point& p = nodes[static_cast<std::size_t>(element.Node[i] - 1)];
        box.Low = {std::min(box.Low.x, p.x), std::min(box.Low.y, p.y)};
        box.High = {std::max(box.High.x, p.x), std::max(box.High.y, p.y)};
    }
    return BoxAround(box.Low, box.High, (1 + rounding) * tolerance * CornerReach(element, nodes));
}

} // namespace

Region BoxAround(const Point& a, const Point& b, double margin) {
    return {{std::min(a.x, b.x) - margin, std::min(a.y, b.y) - margin},
            {std::max(a.x, b.x) + margin, std::max(a.y, b.y) + margin}};
}

BoxSearch::BoxSearch(std::vector<Region> boxes) : boxes_(std::move(boxes)) {
    std::vector<Point> corners;
    corners.reserve(boxes_.size());
    for (const Region& box : boxes_) {
        corners.push_back(box.Low);
    }
    const auto [low, high] = Extent(corners);
    alongY_ = high.y - low.y > high.x - low.x;
    order_.reserve(boxes_.size());
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
        order_.emplace_back(From(boxes_[i]), i);
        longest_ = std::max(longest_, To(boxes_[i]) - From(boxes_[i]));
    }
    std::sort(order_.begin(), order_.end());
}

BoxSearch::BoxSearch(const std::vector<Point>& points) : BoxSearch(AsBoxes(points)) {}

std::vector<std::size_t> BoxSearch::Meeting(const Region& region) const {
    // A little farther back, since the difference of two coordinates was rounded.
    const double first = From(region) - (1 + rounding) * longest_ - rounding;
    std::vector<std::size_t> found;
    for (auto at = std::lower_bound(order_.begin(), order_.end(), std::pair(first, std::size_t{0}));
         at != order_.end() && at->first <= To(region); ++at) {
        if (boxes_[at->second].Meets(region)) {
            found.push_back(at->second);
        }
    }
    std::sort(found.begin(), found.end());
    return found;
}

std::vector<std::size_t> BoxSearch::Along(const Point& a, const Point& b, double margin) const {
    std::vector<std::size_t> found = Meeting(BoxAround(a, b, margin));
    const Point d{b.x - a.x, b.y - a.y};
    std::erase_if(found, [&](std::size_t i) {
        const Region& box = boxes_[i];
        const double off =
            ((box.Low.x + box.High.x) / 2 - a.x) * d.y - ((box.Low.y + box.High.y) / 2 - a.y) * d.x;
        const double reach = ((box.High.x - box.Low.x) / 2 + margin) * std::fabs(d.y) +
                             ((box.High.y - box.Low.y) / 2 + margin) * std::fabs(d.x);
        return std::fabs(off) > (1 + rounding) * reach + rounding;
    });
    return found;
}

const BoxSearch& NodeSearch(const ProjectDraft& draft) {
    MeshSearch& search = draft.Search;
    if (!search.Nodes) {
        search.Nodes.emplace(draft.Model.Nodes);
    }
    return *search.Nodes;
}

const BoxSearch& ElementSearch(const ProjectDraft& draft) {
    MeshSearch& search = draft.Search;
    if (!search.Elements) {
        std::vector<Region> boxes;
        boxes.reserve(draft.Model.Elements.size());
        for (const Element& element : draft.Model.Elements) {
            boxes.push_back(BoxOf(element, draft.Model.Nodes, draft.Tolerance));
        }
        search.Elements.emplace(std::move(boxes));
    }
    return *search.Elements;
}

const std::vector<Point>& CentresOfElements(const ProjectDraft& draft) {
    MeshSearch& search = draft.Search;
    if (search.Centres.empty()) {
        for (const Element& element : draft.Model.Elements) {
            search.Centres.push_back(CentreOf(element, draft.Model.Nodes));
        }
    }
    return search.Centres;
}

const std::vector<std::vector<int>>& NextNumbers(const ProjectDraft& draft) {
    MeshSearch& search = draft.Search;
    if (search.NextNumbers.empty()) {
        search.NextNumbers.resize(draft.Model.Nodes.size());
        for (const Element& element : draft.Model.Elements) {
            for (const auto& [from, to] : SidesOf(element)) {
                const auto [less, more] = std::minmax(from, to);
                search.NextNumbers[static_cast<std::size_t>(less - 1)].push_back(more);
            }
        }
        for (std::vector<int>& next : search.NextNumbers) {
            std::sort(next.begin(), next.end());
            next.erase(std::unique(next.begin(), next.end()), next.end());
        }
    }
    return search.NextNumbers;
}

} // namespace slab

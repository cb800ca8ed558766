// Mechanisms of plane systems. A frame moves freely when its members neither stretch nor bend; the
// triangles of a wall that share sides move as one rigid body, and bodies that meet in a node only
// are hinged there.

#include "hosts/slab/plane/plane_mechanism.h"

#include "hosts/slab/analysis.h"
#include "hosts/slab/mesh.h"
#include "hosts/slab/plane/frame_elements.h"
#include "hosts/slab/plane/motion_conditions.h"

#include <cmath>
#include <map>
#include <numeric>

namespace slab {

namespace {

/// Names the node that moves most, and its direction. Some node does: where a rotation matters no
/// member lets it go alone.
[[noreturn]] void FailFor(const Model& model, const Vector& motion) {
    std::size_t worst = 0;
    for (std::size_t i = 0; i < motion.size(); ++i) {
        if (i % 3 != 2 && std::fabs(motion[i]) > std::fabs(motion[worst]) + 1e-9) {
            worst = i;
        }
    }
    const char* const directions[] = {"displacement in x", "displacement in y"};
    throw AnalysisFailure("mechanism: " + NameOfNode(model, static_cast<int>(worst / 3) + 1) +
                          " is free in its " + directions[worst % 3] +
                          "; the structure there moves without resistance. Add supports or "
                          "springs, or connect its parts so that they hold one another.");
}

double LongestMember(const FrameModel& frame) {
    double longest = 0;
    for (std::size_t m = 0; m < frame.Members.size(); ++m) {
        longest = std::max(longest, AxisOf(frame, m).Length);
    }
    return longest;
}

/// Rotations count times `length`, so that all motions are lengths.
void AddMember(const FrameModel& frame, std::size_t m, double length,
               MotionConditions& conditions) {
    const Element& element = frame.Base.Elements[m];
    const MemberAxis axis = AxisOf(frame, m);
    const std::size_t i = 3 * static_cast<std::size_t>(element.Node[0] - 1);
    const std::size_t j = 3 * static_cast<std::size_t>(element.Node[1] - 1);
    const double c = axis.Cos;
    const double s = axis.Sin;
    conditions.Add({{i, -c}, {i + 1, -s}, {j, c}, {j + 1, s}});
    const double turn = axis.Length / length;
    if (!frame.Members[m].HingedAtStart()) {
        conditions.Add({{i, s}, {i + 1, -c}, {i + 2, turn}, {j, -s}, {j + 1, c}});
    }
    if (!frame.Members[m].HingedAtEnd()) {
        conditions.Add({{i, s}, {i + 1, -c}, {j + 2, turn}, {j, -s}, {j + 1, c}});
    }
}

/// Triangles that hang together by sides, as a number for each from 0, and how many there are.
std::pair<std::vector<std::size_t>, std::size_t> Bodies(const Model& wall) {
    std::vector<std::size_t> leader(wall.Elements.size());
    std::iota(leader.begin(), leader.end(), std::size_t{0});
    const auto find = [&leader](std::size_t e) {
        while (leader[e] != e) {
            e = leader[e] = leader[leader[e]];
        }
        return e;
    };
    std::map<Side, std::size_t> owner;
    for (std::size_t e = 0; e < wall.Elements.size(); ++e) {
        for (const Side& side : SidesOf(wall.Elements[e])) {
            const auto [known, isNew] = owner.try_emplace(std::minmax(side.first, side.second), e);
            if (!isNew) {
                leader[find(e)] = find(known->second);
            }
        }
    }
    std::map<std::size_t, std::size_t> number;
    std::vector<std::size_t> body(leader.size());
    for (std::size_t e = 0; e < body.size(); ++e) {
        body[e] = number.try_emplace(find(e), number.size()).first->second;
    }
    return {body, number.size()};
}

} // namespace

std::vector<char> RotationMatters(const Model& base, const std::vector<Member>& members) {
    std::vector<char> matters(base.Nodes.size(), 0);
    for (std::size_t m = 0; m < members.size(); ++m) {
        const Element& element = base.Elements[m];
        if (!members[m].HingedAtStart()) {
            matters[static_cast<std::size_t>(element.Node[0] - 1)] = 1;
        }
        if (!members[m].HingedAtEnd()) {
            matters[static_cast<std::size_t>(element.Node[1] - 1)] = 1;
        }
    }
    for (const Restraint& restraint : base.Restraints) {
        if (restraint.Freedom == 3) {
            matters[static_cast<std::size_t>(restraint.Node - 1)] = 1;
        }
    }
    for (const NodeSpring& spring : base.Springs) {
        if (spring.Stiffness[2] > 0) {
            matters[static_cast<std::size_t>(spring.Node - 1)] = 1;
        }
    }
    return matters;
}

void RequireStiff(const FrameModel& frame, const RestraintList& restraints, const Vector& springs) {
    MotionConditions conditions(springs.size());
    const double length = LongestMember(frame);
    for (std::size_t i = 0; i < springs.size(); ++i) {
        if (restraints.Held[i] || springs[i] > 0) {
            conditions.Add({{i, 1}});
        }
    }
    for (std::size_t m = 0; m < frame.Members.size(); ++m) {
        AddMember(frame, m, length, conditions);
    }
    const Vector motion = conditions.FreeMotion();
    if (!motion.empty()) {
        FailFor(frame.Base, motion);
    }
}

void RequireStiff(const Model& wall, const RestraintList& restraints, const Vector& springs) {
    const auto [body, count] = Bodies(wall);
    const auto [low, high] = Extent(wall.Nodes);
    const Point centre{(low.x + high.x) / 2, (low.y + high.y) / 2};
    const double length = Distance(low, high) / 2;
    // A rotation moves a point by (y, -x) from the centre; all motions are lengths.
    const auto lever = [&](std::size_t node, std::size_t freedom) {
        const Point& p = wall.Nodes[node];
        return freedom == 0 ? (p.y - centre.y) / length : (centre.x - p.x) / length;
    };
    MotionConditions conditions(3 * count);
    std::vector<std::size_t> first(wall.Nodes.size(), count);
    for (std::size_t e = 0; e < wall.Elements.size(); ++e) {
        const std::size_t b = 3 * body[e];
        for (const int corner : {0, 1, 2}) {
            const auto node = static_cast<std::size_t>(wall.Elements[e].Node[corner] - 1);
            const bool known = first[node] != count;
            const std::size_t a = known ? 3 * first[node] : b;
            first[node] = a / 3;
            for (std::size_t f = 0; f < 2; ++f) {
                const bool held = restraints.Held[3 * node + f] || springs[3 * node + f] > 0;
                if (!known && held) {
                    conditions.Add({{b + f, 1}, {b + 2, lever(node, f)}});
                } else if (a != b) {
                    conditions.Add({{a + f, 1},
                                    {a + 2, lever(node, f)},
                                    {b + f, -1},
                                    {b + 2, -lever(node, f)}});
                }
            }
        }
    }
    const Vector free = conditions.FreeMotion();
    if (free.empty()) {
        return;
    }
    Vector motion(3 * wall.Nodes.size());
    for (std::size_t n = 0; n < wall.Nodes.size(); ++n) {
        for (std::size_t f = 0; f < 2; ++f) {
            motion[3 * n + f] = free[3 * first[n] + f] + lever(n, f) * free[3 * first[n] + 2];
        }
    }
    FailFor(wall, motion);
}

} // namespace slab

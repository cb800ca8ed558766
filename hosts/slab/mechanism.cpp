// The check that supports, springs and soil hold every part of the slab. Plates and beams resist
// everything but rigid motions, so a part of the slab is held when none of its three rigid motions
// is free; this is decided from the geometry alone, before any rounding.

#include "hosts/slab/analysis.h"
#include "hosts/slab/beams/beam_elements.h"
#include "hosts/slab/restraints.h"

#include <cmath>
#include <numeric>

namespace slab {

namespace {

using Motion = std::array<double, 3>; // settlement and the two slopes at the centre, times length

/// Nodes that hang together through elements, by the smallest node of each part.
std::vector<std::vector<int>> Parts(const Model& model) {
    std::vector<int> leader(model.Nodes.size());
    std::iota(leader.begin(), leader.end(), 0);
    const auto find = [&leader](int n) {
        while (leader[n] != n) {
            n = leader[n] = leader[leader[n]];
        }
        return n;
    };
    for (const Element& element : PlatesAndBeams(model)) {
        for (int i = 1; i < element.Corners; ++i) {
            leader[find(element.Node[i] - 1)] = find(element.Node[0] - 1);
        }
    }
    std::vector<std::vector<int>> members(model.Nodes.size());
    for (int n = 0; n < static_cast<int>(leader.size()); ++n) {
        members[find(n)].push_back(n);
    }
    std::erase_if(members, [](const auto& part) { return part.empty(); });
    return members;
}

struct Frame {
    Point Centre;
    double Length = 1;
};

Frame FrameOf(const Model& model, const std::vector<int>& part) {
    Frame frame;
    for (const int n : part) {
        frame.Centre.x += model.Nodes[n].x / static_cast<double>(part.size());
        frame.Centre.y += model.Nodes[n].y / static_cast<double>(part.size());
    }
    double largest = 0;
    for (const int n : part) {
        largest = std::max(largest, std::hypot(model.Nodes[n].x - frame.Centre.x,
                                               model.Nodes[n].y - frame.Centre.y));
    }
    frame.Length = largest > 0 ? largest : 1;
    return frame;
}

/// How much a freedom moves under each rigid motion.
Motion Row(const Frame& frame, const Point& p, int freedom) {
    if (freedom > 1) {
        return {0, freedom == 2 ? 1.0 : 0.0, freedom == 3 ? 1.0 : 0.0};
    }
    return {1, (p.x - frame.Centre.x) / frame.Length, (p.y - frame.Centre.y) / frame.Length};
}

/// Sum of the products of the rows of all freedoms that are held or sprung.
std::array<Motion, 3> Gram(const Model& model, const std::vector<int>& part, const Frame& frame,
                           const RestraintList& restraints, const Vector& springs) {
    std::array<Motion, 3> gram{};
    for (const int n : part) {
        for (int f = 1; f <= 3; ++f) {
            const std::size_t equation = 3 * static_cast<std::size_t>(n) + f - 1;
            if (!restraints.Held[equation] && !(springs[equation] > 0)) {
                continue;
            }
            const Motion row = Row(frame, model.Nodes[n], f);
            for (std::size_t i = 0; i < 3; ++i) {
                for (std::size_t j = 0; j < 3; ++j) {
                    gram[i][j] += row[i] * row[j];
                }
            }
        }
    }
    return gram;
}

/// A motion that the rows leave free, found by elimination with the largest pivot; false when none.
bool FreeMotion(std::array<Motion, 3> g, Motion& motion) {
    std::array<std::size_t, 3> order{0, 1, 2};
    for (std::size_t k = 0; k < 3; ++k) {
        for (std::size_t i = k + 1; i < 3; ++i) {
            if (g[order[i]][order[i]] > g[order[k]][order[k]]) {
                std::swap(order[i], order[k]);
            }
        }
        const std::size_t p = order[k];
        if (g[p][p] < 1e-9) {
            motion = {};
            motion[p] = 1;
            for (std::size_t i = k; i-- > 0;) {
                const std::size_t row = order[i];
                for (std::size_t j = i + 1; j <= k; ++j) {
                    motion[row] -= g[row][order[j]] * motion[order[j]] / g[row][row];
                }
            }
            return true;
        }
        for (std::size_t i = k + 1; i < 3; ++i) {
            const double factor = g[order[i]][p] / g[p][p];
            for (std::size_t j = 0; j < 3; ++j) {
                g[order[i]][j] -= factor * g[p][j];
            }
        }
    }
    return false;
}

[[noreturn]] void FailFor(const Model& model, const std::vector<int>& part, const Frame& frame,
                          const Motion& motion) {
    int worst = part.front();
    double largest = -1;
    for (const int n : part) {
        const Motion row = Row(frame, model.Nodes[n], 1);
        const double w = row[0] * motion[0] + row[1] * motion[1] + row[2] * motion[2];
        if (std::fabs(w) > largest + 1e-9) {
            largest = std::fabs(w);
            worst = n;
        }
    }
    const double tilt = std::fmax(std::fabs(motion[1]), std::fabs(motion[2]));
    int freedom = 1;
    if (tilt > 1e-6) {
        freedom = std::fabs(motion[1]) >= std::fabs(motion[2]) ? 2 : 3;
    }
    throw AnalysisFailure(
        "mechanism: " + NameOfNode(model, worst + 1) + " is free in its " + NameOfFreedom(freedom) +
        (part.size() == 1 ? ", and no element holds the node" : "") +
        "; the slab there moves without resistance. Hold it by supports that do not lie on one "
        "line, by node springs, or by soil that stays in contact.");
}

} // namespace

void RequireHeld(const Model& model, const RestraintList& restraints, const Vector& springs) {
    for (const std::vector<int>& part : Parts(model)) {
        const Frame frame = FrameOf(model, part);
        Motion motion{};
        if (FreeMotion(Gram(model, part, frame, restraints, springs), motion)) {
            FailFor(model, part, frame, motion);
        }
    }
}

} // namespace slab

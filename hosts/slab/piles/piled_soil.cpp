#include "hosts/slab/piles/piled_soil.h"

#include "hosts/slab/analysis.h"
#include "hosts/slab/library_types.h"
#include "hosts/slab/piles/dense_inverse.h"
#include "hosts/slab/piles/pile_coefficients.h"
#include "torlib/piles/pile_geometry_class.h"

#include <algorithm>
#include <new>
#include <numbers>

namespace slab {
namespace {

/// Numbers of the library's arrays have 16 bits; K and its inverse take 12 bytes an entry.
constexpr std::size_t most_nodes = 12000;

std::function<void(int)> Polled(RunWindow& window, const char* phase, std::size_t steps) {
    window.Begin(phase, static_cast<int>(steps));
    return [&window](int step) {
        if (!window.Step(step)) {
            throw Cancelled();
        }
    };
}

[[noreturn]] void FailSize(std::size_t nodes) {
    throw AnalysisFailure("a piled raft of " + std::to_string(nodes) +
                          " nodes does not fit into memory. Take larger elements, longer pieces of "
                          "pile, or model a half or a quarter.");
}

} // namespace

PiledSoil::PiledSoil(const Model& model, const std::vector<ContactArea>& areas, RunWindow& window)
    : model_(model), areas_(areas) {
    const SoilFlexibility surface(model, areas, window);
    const std::vector<PiledRaftNode> bare = TakeNodes();
    PileCoefficients coefficients(model, surface);
    if (nodes_.size() > most_nodes) {
        FailSize(nodes_.size());
    }
    try {
        Build(bare, coefficients, window);
    } catch (const std::bad_alloc&) {
        FailSize(nodes_.size());
    }
    window.End();
}

/// Keeps the nodes that carry; gives those of a surface that is free of load but settles.
std::vector<PiledRaftNode> PiledSoil::TakeNodes() {
    const SymmetryLines lines(model_);
    std::vector<PiledRaftNode> bare;
    for (const PiledRaftNode& node : PiledRaftNodes(model_, areas_)) {
        const auto raft = static_cast<std::size_t>(node.RaftNode - 1);
        const bool silent = lines.Silent(model_.Nodes[raft]);
        if (silent || (node.Kind == NodeKind::Raft && !model_.Piling.Contact)) {
            areas_[raft].Area = 0;
            if (!silent) {
                bare.push_back(node);
            }
            continue;
        }
        if (raftNodes_.empty() || raftNodes_.back() != node.RaftNode) {
            raftNodes_.push_back(node.RaftNode);
        }
        group_.push_back(raftNodes_.size() - 1);
        nodes_.push_back(node);
    }
    return bare;
}

void PiledSoil::Build(const std::vector<PiledRaftNode>& bare, PileCoefficients& coefficients,
                      RunWindow& window) {
    const std::size_t n = nodes_.size();
    const std::size_t groups = raftNodes_.size();
    Vector matrix(n * n);
    const auto poll = Polled(window, "Pile coefficients", n);
    for (std::size_t i = 0; i < n; ++i) {
        poll(static_cast<int>(i) + 1);
        for (std::size_t j = 0; j < n; ++j) {
            matrix[i * n + j] =
                coefficients.At(nodes_[i], nodes_[j]) + Compression(nodes_[i], nodes_[j]);
        }
    }
    Invert(matrix, n, Polled(window, "Pile stiffness", n));
    Compose(matrix);
    Invert(composed_, groups, Polled(window, "Piled raft", groups));
    FillFlexibility(bare, coefficients);
}

/// By how much less than the head the first node settles by a unit force on the second.
double PiledSoil::Compression(const PiledRaftNode& a, const PiledRaftNode& b) const {
    if (a.RaftNode != b.RaftNode || a.Kind == NodeKind::Raft) {
        return 0;
    }
    const Pile& pile = PileAt(a.RaftNode);
    if (pile.Modulus == 0) {
        return 0;
    }
    const double section = std::numbers::pi * b.Radius * b.Radius / b.Share;
    return std::min(a.Depth, b.Depth) / (pile.Modulus * section);
}

const Pile& PiledSoil::PileAt(int node) const {
    const std::vector<Pile>& piles = model_.Piling.Piles;
    return *std::find_if(piles.begin(), piles.end(),
                         [node](const Pile& pile) { return pile.Node == node; });
}

/// The forces on the groups by unit settlements of the groups, and those in the piles.
void PiledSoil::Compose(const Vector& stiffness) {
    const std::size_t n = nodes_.size();
    const std::size_t groups = raftNodes_.size();
    const Bounds all{1, static_cast<int>(n)};
    Array<Single> kij(all, all);
    Array<Integer> NK_PR(Bounds{0, static_cast<int>(groups)});
    for (std::size_t i = 0; i < n; ++i) {
        for (std::size_t j = 0; j < n; ++j) {
            kij(static_cast<int>(i) + 1, static_cast<int>(j) + 1) = stiffness[i * n + j];
        }
        const int group = static_cast<int>(group_[i]) + 1;
        NK_PR(group) = NK_PR(group) + 1;
        if (nodes_[i].Kind != NodeKind::Raft) {
            pileForces_.resize(pileForces_.size() + groups);
            double* const row = &pileForces_[pileForces_.size() - groups];
            for (std::size_t j = 0; j < n; ++j) {
                row[group_[j]] += stiffness[i * n + j];
            }
        }
    }
    Array<Single> Gk;
    const torlib::PileGeometry_Class geometry;
    geometry.ComposedCoefficients(static_cast<int>(groups), kij, Gk, NK_PR);
    composed_.resize(groups * groups);
    for (std::size_t i = 0; i < groups; ++i) {
        for (std::size_t j = 0; j < groups; ++j) {
            composed_[i * groups + j] =
                double{Gk(static_cast<int>(i) + 1, static_cast<int>(j) + 1).Value()};
        }
    }
}

/// From the groups to all nodes of the slab; between the piles of a free-standing group the surface
/// settles by what the piles carry.
void PiledSoil::FillFlexibility(const std::vector<PiledRaftNode>& bare,
                                PileCoefficients& coefficients) {
    const std::size_t count = areas_.size();
    const std::size_t groups = raftNodes_.size();
    auto rows = std::make_unique<float[]>(count * count);
    const auto set = [&](int node, const double* values) {
        for (std::size_t j = 0; j < groups; ++j) {
            rows[static_cast<std::size_t>(node - 1) * count +
                 static_cast<std::size_t>(raftNodes_[j] - 1)] = static_cast<float>(values[j]);
        }
    };
    for (std::size_t i = 0; i < groups; ++i) {
        set(raftNodes_[i], &composed_[i * groups]);
    }
    for (const PiledRaftNode& node : bare) {
        Vector bySettlement(groups);
        for (std::size_t i = 0; i < nodes_.size(); ++i) {
            const double settles = coefficients.At(node, nodes_[i]);
            for (std::size_t j = 0; j < groups; ++j) {
                bySettlement[j] += settles * pileForces_[i * groups + j];
            }
        }
        Vector byForce(groups);
        for (std::size_t i = 0; i < groups; ++i) {
            for (std::size_t j = 0; j < groups; ++j) {
                byForce[j] += bySettlement[i] * composed_[i * groups + j];
            }
        }
        set(node.RaftNode, byForce.data());
    }
    flexibility_ = std::make_unique<SoilFlexibility>(count, std::move(rows));
}

std::vector<PileResult> PiledSoil::PileResults(const Vector& forces) const {
    const std::size_t groups = raftNodes_.size();
    Vector settlements(groups);
    for (std::size_t i = 0; i < groups; ++i) {
        for (std::size_t j = 0; j < groups; ++j) {
            settlements[i] +=
                composed_[i * groups + j] * forces[static_cast<std::size_t>(raftNodes_[j] - 1)];
        }
    }
    std::vector<PileResult> results;
    for (const Pile& pile : model_.Piling.Piles) {
        results.emplace_back().Node = pile.Node;
    }
    const double* row = pileForces_.data();
    for (std::size_t i = 0; i < nodes_.size(); ++i) {
        const PiledRaftNode& node = nodes_[i];
        if (node.Kind == NodeKind::Raft) {
            continue;
        }
        double force = 0;
        for (std::size_t j = 0; j < groups; ++j) {
            force += row[j] * settlements[j];
        }
        row += groups;
        PileResult& pile =
            *std::find_if(results.begin(), results.end(),
                          [&node](const PileResult& r) { return r.Node == node.RaftNode; });
        pile.Settlement = settlements[group_[i]];
        pile.Head += force * node.Share;
        if (node.Kind == NodeKind::Base) {
            pile.Base = force * node.Share;
        } else {
            pile.Shaft += force * node.Share;
            pile.Segments.push_back(force * node.Share);
        }
        // A force compresses the pile above it, and the base comes down less by as much.
        pile.BaseSettlement -= force * Compression(node, node);
    }
    for (std::size_t i = 0; i < results.size(); ++i) {
        const double capacity = model_.Piling.Piles[i].Capacity;
        results[i].BaseSettlement += results[i].Settlement;
        results[i].Exhausted = capacity > 0 && results[i].Head > (1 - 1e-4) * capacity;
    }
    return results;
}

} // namespace slab

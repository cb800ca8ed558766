#pragma once
// A model in the making, with what the readers of its tables share.

#include "hosts/slab/mesh_search.h"
#include "hosts/slab/model.h"
#include "hosts/slab/unit_scale.h"

#include <string>
#include <vector>

namespace slab {

/// Coordinates are the same when they differ by less than this part of the shortest side.
constexpr double SnappingShare = 0.01;

/// The degrees of freedom of a node as supports and springs name them; lengths come first.
struct FreedomNames {
    std::vector<std::string> Keys{"w", "wx", "wy"};
    std::size_t Displacements = 1;
};

struct ProjectDraft {
    slab::Model Model;
    UnitScale Scale;
    FreedomNames Freedoms;
    std::vector<double> XLines; ///< mesh lines of a grid, m; empty for a listed mesh
    std::vector<double> YLines;
    double Tolerance = 0;            ///< coordinates this close are the same, m
    std::vector<double> UnitWeights; ///< of each group, kN/m3
    mutable MeshSearch Search;       ///< of nodes and elements as they are at its first use
};

} // namespace slab

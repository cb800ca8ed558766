#pragma once
// A model in the making, with what the readers of its tables share.

#include "hosts/slab/model.h"
#include "hosts/slab/unit_scale.h"

#include <vector>

namespace slab {

/// Coordinates are the same when they differ by less than this part of the shortest side.
constexpr double SnappingShare = 0.01;

struct ProjectDraft {
    slab::Model Model;
    UnitScale Scale;
    std::vector<double> XLines; ///< mesh lines of a grid, m; empty for a listed mesh
    std::vector<double> YLines;
    double Tolerance = 0;            ///< coordinates this close are the same, m
    std::vector<double> UnitWeights; ///< of each group, kN/m3
};

} // namespace slab

#pragma once
// What the piles of a slab carry, as lines of report and summary.

#include "hosts/slab/model.h"
#include "hosts/slab/results.h"

#include <string>
#include <vector>

namespace slab {

/// A heading, a line for each pile and the shares of piles and raft; none without piles.
std::vector<std::string> PileTable(const Model& model, const Results& results);

/// The share of the piles, the largest and the smallest head load in one line; empty without piles.
std::string PileSummary(const Model& model, const Results& results);

} // namespace slab

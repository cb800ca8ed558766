#pragma once
// Inverse of a full matrix in double precision.

#include "hosts/slab/block_matrix.h"

#include <functional>

namespace slab {

/// Replaces the n x n matrix, row by row, by its inverse: Gauss-Jordan elimination with exchange of
/// rows. `poll` is called for every row with its number from 1 and ends the work by an exception.
/// Throws AnalysisFailure for a singular matrix.
void Invert(Vector& matrix, std::size_t n, const std::function<void(int)>& poll);

} // namespace slab

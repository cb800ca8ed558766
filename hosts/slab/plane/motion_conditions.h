#pragma once
// Linear conditions on the motions of a structure, and a motion that none of them hinders. Decided
// from the geometry alone, so that no difference of stiffness blurs it.
// Source: George and Heath (1980), Linear Algebra Appl. 34, 69-83: rows are rotated one by one into
// a triangle.

#include "hosts/slab/block_matrix.h"

#include <utility>

namespace slab {

class MotionConditions {
  public:
    explicit MotionConditions(std::size_t unknowns) : rows_(unknowns) {}

    /// The sum of coefficient times unknown (from 0) vanishes.
    void Add(const std::vector<std::pair<std::size_t, double>>& terms);
    /// A motion that satisfies all conditions; empty when only rest does.
    Vector FreeMotion() const;

  private:
    std::vector<Vector> rows_; // of the triangle, each from its diagonal on
};

} // namespace slab

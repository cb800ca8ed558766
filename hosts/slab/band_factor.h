#pragma once
// The factor that the library's elimination leaves in the band, packed for substitutions in double
// precision: K is about L D L^T with L and D rounded to 32 bits.

#include "hosts/slab/block_matrix.h"
#include "hosts/slab/library_types.h"

namespace slab {

class BandFactor {
  public:
    BandFactor() = default;
    /// Takes over A as FEM_Class.SolveMatrix left it.
    BandFactor(const Array<Single>& A, int halfBandWidth, int equations);

    /// v = (L D L^T)^-1 v.
    void Substitute(Vector& v) const { Substitute(v, false); }
    /// v = (L |D| L^T)^-1 v, positive definite even where rounding has turned the sign of a pivot.
    void Precondition(Vector& v) const { Substitute(v, true); }
    const Vector& Pivots() const { return pivot_; }

  private:
    void Substitute(Vector& v, bool positive) const;

    int width_ = 0; // ratios beside each pivot
    Vector pivot_;
    std::vector<float> ratio_; // row by row
};

} // namespace slab

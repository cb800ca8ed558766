// Substitutions with the factor that the library's elimination leaves in the band.

#include "hosts/slab/band_factor.h"

#include <algorithm>
#include <cmath>

namespace slab {

BandFactor::BandFactor(const Array<Single>& A, int halfBandWidth, int equations)
    : width_(halfBandWidth - 1),
      pivot_(static_cast<std::size_t>(equations)),
      ratio_(static_cast<std::size_t>(equations) * static_cast<std::size_t>(halfBandWidth - 1)) {
    constexpr int tile = 64; // rows at a time, so that reading by columns stays in the cache
    const Single* const data = A.Data();
    const std::size_t rows = A.Rows();
    const auto base = static_cast<std::size_t>(1 - A.LBound(1));
    const auto column = static_cast<std::size_t>(1 - A.LBound(2));
    for (int first = 0; first < equations; first += tile) {
        const int last = std::min(first + tile, equations);
        for (int l = 0; l <= width_; ++l) {
            const Single* const in = data + base + (column + l) * rows;
            for (int n = first; n < last; ++n) {
                if (l == 0) {
                    pivot_[n] = double{in[n].Value()};
                } else {
                    ratio_[static_cast<std::size_t>(n) * width_ + l - 1] = in[n].Value();
                }
            }
        }
    }
}

void BandFactor::Substitute(Vector& v, bool positive) const {
    const int equations = static_cast<int>(pivot_.size());
    for (int n = 0; n < equations; ++n) {
        const double value = v[n];
        const float* const ratio = ratio_.data() + static_cast<std::size_t>(n) * width_;
        double* const below = v.data() + n + 1;
        const int count = std::min(width_, equations - 1 - n);
        for (int l = 0; l < count; ++l) {
            below[l] -= double{ratio[l]} * value;
        }
    }
    for (int n = 0; n < equations; ++n) {
        v[n] /= positive ? std::fabs(pivot_[n]) : pivot_[n];
    }
    for (int n = equations - 2; n >= 0; --n) {
        const float* const ratio = ratio_.data() + static_cast<std::size_t>(n) * width_;
        const double* const below = v.data() + n + 1;
        const int count = std::min(width_, equations - 1 - n);
        // Four sums, so that the additions need not wait for one another.
        double sum[4] = {};
        int l = 0;
        for (; l + 4 <= count; l += 4) {
            for (int k = 0; k < 4; ++k) {
                sum[k] += double{ratio[l + k]} * below[l + k];
            }
        }
        for (; l < count; ++l) {
            sum[0] += double{ratio[l]} * below[l];
        }
        v[n] -= (sum[0] + sum[1]) + (sum[2] + sum[3]);
    }
}

} // namespace slab

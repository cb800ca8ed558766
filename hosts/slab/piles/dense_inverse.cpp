#include "hosts/slab/piles/dense_inverse.h"

#include "hosts/slab/analysis.h"

#include <algorithm>
#include <cmath>

namespace slab {

void Invert(Vector& matrix, std::size_t n, const std::function<void(int)>& poll) {
    const auto row = [&matrix, n](std::size_t i) { return matrix.data() + i * n; };
    std::vector<std::size_t> exchanged(n);
    for (std::size_t k = 0; k < n; ++k) {
        poll(static_cast<int>(k) + 1);
        std::size_t best = k;
        for (std::size_t i = k + 1; i < n; ++i) {
            best = std::fabs(row(i)[k]) > std::fabs(row(best)[k]) ? i : best;
        }
        exchanged[k] = best;
        std::swap_ranges(row(k), row(k) + n, row(best));
        double* const pivotRow = row(k);
        const double pivot = pivotRow[k];
        if (!(std::fabs(pivot) > 0)) {
            throw AnalysisFailure("the settlements of piles and soil do not determine their "
                                  "forces; check the places of the piles");
        }
        pivotRow[k] = 1;
        for (std::size_t j = 0; j < n; ++j) {
            pivotRow[j] /= pivot;
        }
        for (std::size_t i = 0; i < n; ++i) {
            double* const other = row(i);
            const double factor = other[k];
            if (i == k || factor == 0) {
                continue;
            }
            other[k] = 0;
            for (std::size_t j = 0; j < n; ++j) {
                other[j] -= factor * pivotRow[j];
            }
        }
    }
    // Exchanged rows of the matrix are exchanged columns of its inverse.
    for (std::size_t k = n; k-- > 0;) {
        for (std::size_t i = 0; exchanged[k] != k && i < n; ++i) {
            std::swap(row(i)[k], row(i)[exchanged[k]]);
        }
    }
}

} // namespace slab

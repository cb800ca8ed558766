#pragma once
// Gives back the digits that rounding to 32 bits cost: conjugate gradients on the matrix in double
// precision, preconditioned with the 32-bit factor. The residual is formed in double precision, so
// the answer does not depend on how poor the factor is; only the number of steps does.
// Sources: Hestenes and Stiefel (1952), J. Res. NBS 49, 409-436; Golub and Van Loan (1996), Matrix
// Computations, sections 3.5.3 and 10.3.

#include "hosts/slab/band_factor.h"
#include "hosts/slab/block_matrix.h"

#include <functional>

namespace slab {

/// A symmetric system: stiffness and diagonal springs, some equations held.
struct HeldSystem {
    const BlockMatrix& Stiffness;
    const Vector& Springs;
    const std::vector<char>& Held;

    /// y = (K + S) x in the free equations, 0 in the held ones.
    void Multiply(const Vector& x, Vector& y) const;
};

struct Correction {
    double ResidualBefore = 0; ///< |b - K u| / |b|
    double ResidualAfter = 0;
    int Steps = 0;
};

/// Residual / load at the level of what double precision can tell.
constexpr double full_digits = 1e-11;

/// Corrects u, which is 0 in the held equations, until K u = b to `goal` (residual / load). `poll`
/// is called every step and ends the work by an exception.
Correction CorrectDigits(const HeldSystem& system, const BandFactor& factor, const Vector& b,
                         Vector& u, double goal, const std::function<void()>& poll);

} // namespace slab

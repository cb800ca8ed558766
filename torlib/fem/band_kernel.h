#pragma once
// The banded elimination on raw floats. A window of the band is packed row by row, the pivots of a
// panel are collected and applied together to the rows below, and each entry still takes its
// updates in ascending pivot order with a rounding to 32 bits after each, so the bits are those of
// band_reference.h. Before each equation a bound on the largest entry proves that nothing can
// overflow; where it cannot, the reference routine takes the equation and finds the exact error.
//
//     band::Solve(band::FastestKernel(Nw), Nw, N3, A, Q);

#include "torlib/fem/band_reference.h"
#include "torlib/fem/band_tile.h"

#include <span>

namespace torlib::band {

/// The kernels that this processor runs and the environment allows, slowest first; all give the
/// same bits. Errors: 5 for an environment that names no instruction set.
std::span<const Kernel* const> AvailableKernels();
/// The fastest of them for a half band width; wide vectors waste most of a narrow band.
const Kernel& FastestKernel(Integer Nw);

/// True when all indices of a solution lie inside the arrays and inside 16 bits.
bool BoundsHold(Integer Nw, Integer N3, const Array<Single>& A, const Array<Single>& Q);

/// `SolveReference` on raw floats; the bounds must hold. While an event runs, the arrays may lag
/// behind; when this returns or throws they are those of the reference.
bool Solve(const Kernel& kernel, Integer Nw, Integer N3, Array<Single>& A, Array<Single>& Q,
           const EquationEvents& events = {});

} // namespace torlib::band

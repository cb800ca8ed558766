#pragma once
// The banded elimination entry by entry, with every index and every stored value checked: the
// definition of the result, against which the fast kernels are held bit for bit, and the fallback
// wherever they cannot prove that nothing goes wrong.
//
//     band::SolveReference(Nw, N3, A, Q);

#include "torlib/frame/arithmetic.h"

#include <functional>

namespace torlib::band {

/// What happens between the equations; either may throw, and the arrays stay as they are.
struct EquationEvents {
    /// Runs once per equation of the forward pass, before the cancellation check.
    std::function<void(Integer)> Progress = [](Integer) {};
    /// Runs once per equation of both passes; true stops the solution.
    std::function<bool()> Cancelled = [] { return false; };
};

/// An equation without stiffness gets the diagonal 1.0E-10 and the right-hand side 0.
void ReplaceZeroDiagonal(Integer n, Array<Single>& A, Array<Single>& Q);

/// Takes equation n out of the equations below it and leaves its ratios and reduced load.
void EliminateEquation(Integer n, Integer Nw, Integer N3, Array<Single>& A, Array<Single>& Q);

/// Takes the solved unknowns below equation n out of its reduced load.
void BackSubstituteEquation(Integer n, Integer Nw, const Array<Single>& A, Array<Single>& Q);

/// Solves A Q = load in place as `FEM_Class::SolveMatrix` does; true when cancelled.
bool SolveReference(Integer Nw, Integer N3, Array<Single>& A, Array<Single>& Q,
                    const EquationEvents& events = {});

} // namespace torlib::band

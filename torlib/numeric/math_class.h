#pragma once
// Small dense linear algebra on the caller's arrays: products, inversion, unsymmetric solution, the
// convergence test of an iteration, the least-squares line, and Gauss-Legendre integration over a
// quadrilateral.
//
//     Math_Class math;
//     math.ProductMatrxByVector(N, A, V, U);            // U = A V
//     math.SolvingSystemLinearEquationsUnsymmetricalMatrix(N, A, Q, x);
//     if (math.CheckConvergence(N, E_New, E_Old, Tolerance)) { ... }
//     math.GauseLegendreQuadrature(Samp, Ngp);          // points and weights of one dimension
//     math.Bilinear(Der, Fun, Samp, i, j);              // Jacobian: Der times Coord
//
// Files in reading order: products.cpp (products and sum), dense_solution.cpp (inverse, solution),
// convergence.cpp, curve_fit.cpp, quadrature.cpp (points and weights), bilinear_shape.cpp (corner
// tables, shape functions), math_class.cpp (instance, member table).
//
// Shared by all members: indices run from 1 to the size, index 0 is neither read nor written. Sums
// are kept in 32 bits and rounded after every term, so the order of the terms, ascending, is part
// of the result. An output that is re-dimensioned becomes a fresh zero array from index 0 and must
// not be one of the inputs; a matrix of 1024 rows or more only when the inputs cover its size, else
// it stays as it was (9). A size below 1 does no arithmetic. Errors: 6 for an overflow, also of
// the 16-bit counter when a size is 32767; 9 for an index outside an array, a wrong number of
// dimensions or a negative size of an output; entries that were written before an error stay.

#include "torlib/frame/arithmetic.h"
#include "torlib/frame/optional_ref.h"
#include "torlib/platform/component/array.h"

namespace torlib {

struct ClassInfo;

class TORLIB_API Math_Class {
  public:
    static Math_Class& DefaultInstance();
    static const ClassInfo& Info();

    /// Product of two matrices, C = A B.
    ///
    /// `A(1..L, 1..M)`, `B(1..M, 1..N)` factors. `C(1..L, 1..N)` [out] must cover the product; with
    /// M < 1 it is not touched. Errors: 6, 9.
    void ProductTwoUnequalMatrices(Integer L, Integer M, Integer N, const Array<Single>& A,
                                   const Array<Single>& B, Array<Single>& C) const;

    /// Product of two square matrices, C = A B.
    ///
    /// `A`, `B(1..N, 1..N)` factors. `C` [out] re-dimensioned to (0..N, 0..N). Errors: 6, 9.
    void ProductTwoEqualMatrices(Integer N, const Array<Single>& A, const Array<Single>& B,
                                 Array<Single>& C) const;

    /// Product of a rectangular matrix and a vector, U = A V.
    ///
    /// `A(1..N, 1..M)`, `V(1..M)` factors. `U` [out] re-dimensioned to (0..N). Errors: 6, 9.
    void ProductUnsymmetricalMatrxByVector(Integer N, Integer M, const Array<Single>& A,
                                           const Array<Single>& V, Array<Single>& U) const;

    /// Product of a square matrix and a vector, U = A V.
    ///
    /// `A(1..N, 1..N)`, `V(1..N)` factors. `U` [out] re-dimensioned to (0..N). Errors: 6, 9.
    void ProductMatrxByVector(Integer N, const Array<Single>& A, const Array<Single>& V,
                              Array<Single>& U) const;

    /// Sum of two vectors, U = W + V.
    ///
    /// `W`, `V(1..N)` summands. `U(1..N)` [out] must cover 1..N; it may be one of the summands.
    /// Errors: 6, 9.
    void AddVectorToVector(Integer N, const Array<Single>& W, const Array<Single>& V,
                           Array<Single>& U) const;

    /// Row sums of a matrix weighted by two vectors, P(i) = sum over j of A(i, j) Q1(j) Q2(j).
    ///
    /// `P` [out] re-dimensioned to (0..N). `A(1..N, 1..N)` matrix. `Q1`, `Q2(1..N)` weights. This
    /// is not the quadratic form of Q1 and Q2. Errors: 6, 9.
    void ProductTwoVectorsByMatrix(Integer N, Array<Single>& P, const Array<Single>& A,
                                   const Array<Single>& Q1, const Array<Single>& Q2) const;

    /// Least-squares straight line Y = C1 + C2 x through a set of points.
    ///
    /// `N` number of points. `x`, `Y(1..N)` their coordinates. `C1` [out] intercept. `C2` [out]
    /// slope. Errors: 6 or 11 when the points do not have two distinct x, or N < 1 (6 when
    /// numerator and denominator are both zero); C1 and C2 are then as before; 9.
    /// Source: Gauss (1809), normal equations of the straight line.
    void BestFitting(const Integer& N, const Array<Single>& x, const Array<Single>& Y, Single& C1,
                     Single& C2) const;

    /// Inverse of a square matrix by Gauss-Jordan elimination without exchange of rows.
    ///
    /// `A(1..N, 1..N)` matrix. `B` [out] re-dimensioned to (0..N, 0..N), filled with the inverse.
    /// Errors: 6, 9; 11 for a zero pivot, B is then partly transformed. A small pivot is not
    /// guarded. Source: Gauss-Jordan elimination in place, the columns moving one place to the left
    /// with every pivot, so that the pivot always stands in column 1.
    void InverseMatrix(Integer N, const Array<Single>& A, Array<Single>& B) const;

    /// Tells whether an iteration has settled, and takes the new values over.
    ///
    /// `E_New(1..N)` values of this round. `E_Old(1..N)` [in/out] values of the round before, on
    /// return those of this round, whatever the result. `Tolerance` largest change allowed, in the
    /// unit of the values. `Big` [out] largest absolute change, 0 for N < 1. Result: true when no
    /// change exceeds the tolerance; a change equal to it is allowed. Errors: 6, 9.
    bool CheckConvergence(Integer N, const Array<Single>& E_New, Array<Single>& E_Old,
                          Single Tolerance, OptionalRef<Single> Big = {}) const;

    /// Table of the corners of a quadrilateral.
    ///
    /// `x`, `Y(1..4)` corners, any unit, in the order of the shape functions of `Bilinear`; the
    /// Jacobian is positive for clockwise corners. `Coord` [out] re-dimensioned to (0..4, 0..2): x
    /// in column 1, y in column 2. Errors: 9 for a list
    /// shorter than 4; Coord is then re-dimensioned.
    void NodalCoordinatesOverQuadRegion(const Array<Single>& x, const Array<Single>& Y,
                                        Array<Single>& Coord) const;

    /// Table of the corners of the rectangle x1..x2, y1..y2.
    ///
    /// `x1`, `x2`, `y1`, `y2` limits, any unit. `Coord` [out] re-dimensioned to (0..4, 0..2): the
    /// corners (x1, y1), (x1, y2), (x2, y2), (x2, y1). With `Bilinear` eta then runs along x and xi
    /// along y.
    void NodalCoordinatesDoubleIntegration(const Single& x1, const Single& x2, const Single& y1,
                                           const Single& y2, Array<Single>& Coord) const;

    /// Bilinear shape functions of four corners and their derivatives at a sampling point.
    ///
    /// `Der` [out] re-dimensioned to (0..2, 0..4): derivatives by eta in row 1, by xi in row 2.
    /// `Fun` [out] re-dimensioned to (0..4): shape functions of the corners (-1, -1), (1, -1),
    /// (1, 1), (-1, 1) in (xi, eta). `Samp` table of `GauseLegendreQuadrature`. `i`, `j` its rows
    /// that hold xi and eta. Errors: 9 for a row that Samp does not have, or a Samp of one
    /// dimension; Der and Fun are then zero tables. Source: Zienkiewicz (1977), The finite element
    /// method, section 7.3. Deviation: the row of eta comes first, so that the Jacobian of the
    /// rectangle of `NodalCoordinatesDoubleIntegration` is diagonal.
    void Bilinear(Array<Single>& Der, Array<Single>& Fun, const Array<Single>& Samp,
                  const Integer& i, const Integer& j) const;

    /// Points and weights of Gauss-Legendre integration over -1..1.
    ///
    /// `Samp` [out] re-dimensioned to (0..Ngp, 0..2): abscissae in column 1, descending; weights in
    /// column 2. `Ngp` number of points: 1 to 7, 9, 11, 13 or 15; for any other number the table
    /// is zero, and its weights sum to 0. Errors: 9 for a negative number. Source: Abramowitz and
    /// Stegun (1964), Handbook of mathematical functions, equation 25.4.29 and table 25.4.
    void GauseLegendreQuadrature(Array<Single>& Samp, const Integer& Ngp) const;

    /// Solves the unsymmetric system A x = Q by Gaussian elimination without pivoting.
    ///
    /// `N` number of equations. `A(1..N, 1..N)` [in/out] on return the upper triangle and, below
    /// it, the negated multipliers. `Q(1..N)` [in/out] on return the reduced right-hand side. `x`
    /// [out] re-dimensioned to (0..N), the solution.
    /// Errors: 6, 9. A zero pivot never stops the solution: it becomes 1.0E-10, and during the
    /// elimination the last coefficient of its row becomes zero.
    /// Source: Gaussian elimination, Golub and Van Loan (1996), Matrix Computations, section 3.2.
    void SolvingSystemLinearEquationsUnsymmetricalMatrix(const Integer& N, Array<Single>& A,
                                                         Array<Single>& Q, Array<Single>& x) const;
};

} // namespace torlib

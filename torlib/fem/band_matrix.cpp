// The band matrix before the solution: its width, the prescribed values, the restraint list.

#include "torlib/fem/fem_class.h"
#include "torlib/fem/restraint_list.h"
#include "torlib/frame/run_state.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <cstdlib>
#include <utility>

namespace torlib {

namespace {

/// Nodes that an element table row can hold.
constexpr int MaxCorners = 4;

/// Row n to the right of its diagonal moves to the right-hand side.
void MoveRowToLoads(int Nw, int n, Single u, const Array<Single>& A, Array<Single>& Q) {
    for (const int l : Range(2, Nw)) {
        const Integer i = n + l - 1;
        Q(i) = Q(i) - u * A(n, l);
    }
}

/// The column above the diagonal of equation n moves to the right-hand side and is cleared.
void MoveColumnToLoads(int Nw, int n, Single u, Array<Single>& A, Array<Single>& Q) {
    for (const int l : Range(2, Nw)) {
        const Integer k = n + 1 - l;
        if (k > 0) {
            Q(k) = Q(k) - A(k, l) * u;
            A(k, l) = 0;
        }
    }
}

} // namespace

bool FEM_Class::GetBandWidth(Integer& Nw, Integer NE, const Array<Integer>& I_ElementType,
                             const Array<Integer>& I_Corner, const Object& /*FrmShow*/) const {
    const MemberScope scope("FEM_Class.GetBandWidth", Named("I_ElementType", I_ElementType),
                            Named("I_Corner", I_Corner));
    Integer d = 0;
    for (const int element : Range(1, NE)) {
        const int corners = I_ElementType(element);
        if (corners > MaxCorners) {
            RaiseError(ErrorNumber::OutOfRange, "element " + std::to_string(element) + " has " +
                                                    std::to_string(corners) +
                                                    " corners, more than 4");
        }
        // All are read before two of them are compared, so that a missing one is told first.
        std::array<Integer, MaxCorners> node;
        for (const int k : Range(1, corners)) {
            node[static_cast<std::size_t>(k - 1)] = I_Corner(element, k);
        }
        for (int b = 1; b < corners; ++b) {
            for (int a = 0; a < b; ++a) {
                const Integer difference =
                    node[static_cast<std::size_t>(a)] - node[static_cast<std::size_t>(b)];
                d = std::max(+d, std::abs(+difference));
            }
        }
    }
    Nw = 3 * (d + 1);
    return false;
}

bool FEM_Class::SetBoundaryToMatrix(Integer Nw, Integer NF, Array<Single>& A, Array<Single>& Q,
                                    const Array<Single>& AufL, const Array<Integer>& NS,
                                    const Object& FrmShow) const {
    const MemberScope scope("FEM_Class.SetBoundaryToMatrix", Named("A", A), Named("Q", Q),
                            Named("AufL", AufL), Named("NS", NS));
    for (const int m : Range(1, NF)) {
        const int n = NS(m);
        const Single u = AufL(m);
        if (CheckCancelRequest(FrmShow)) {
            return true;
        }
        MoveRowToLoads(Nw, n, u, A, Q);
        A(n, 1) = 1;
        Q(n) = u;
        if (CheckCancelRequest(FrmShow)) {
            return true;
        }
        for (const int l : Range(2, Nw)) {
            A(n, l) = 0;
        }
        if (CheckCancelRequest(FrmShow)) {
            return true;
        }
        MoveColumnToLoads(Nw, n, u, A, Q);
    }
    return CheckCancelRequest(FrmShow);
}

void GrowRestraints(Integer& NF, Array<Integer>& NS, Array<Single>& AufL) {
    NF = NF + 1;
    NS.ReDimPreserve(NF);
    AufL.ReDimPreserve(NF);
}

void AppendRestraint(Integer& NF, Array<Integer>& NS, Array<Single>& AufL, int equation,
                     Single value) {
    GrowRestraints(NF, NS, AufL);
    NS(NF) = equation;
    AufL(NF) = value;
}

void RemoveDuplicateBoundary(Integer& NF, Array<Integer>& NS, Array<Single>& AufL) {
    std::bitset<65536> seen; // by equation number, which may be any 16-bit value
    const int most = std::max(+NF, 0);
    Array<Integer> keptEquations(Bounds{0, most});
    Array<Single> keptValues(Bounds{0, most});
    int count = 0;
    for (const int i : Range(1, NF)) {
        const auto equation = static_cast<std::uint16_t>(NS(i).Value());
        if (!seen.test(equation)) {
            seen.set(equation);
            ++count;
            keptEquations(count) = NS(i);
            keptValues(count) = AufL(i);
        }
    }
    keptEquations.ReDimPreserve(count);
    keptValues.ReDimPreserve(count);
    NS = std::move(keptEquations);
    AufL = std::move(keptValues);
    NF = count;
}

} // namespace torlib

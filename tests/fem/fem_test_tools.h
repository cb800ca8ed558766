#pragma once
// A system on the band solver, for the tests of the finite-element core.

#include "tests/error_of.h"

#include "torlib/fem/fem_class.h"
#include "torlib/fem/restraint_list.h"

#include <gtest/gtest.h>

#include <cmath>

namespace torlib::test {

/// Band matrix, load vector and restraint list, with NFreedom degrees of freedom a node.
template <int NFreedom>
struct BandSystem {
    static int Equation(int node, int freedom) { return NFreedom * (node - 1) + freedom; }
    double Value(int node, int freedom = 1) const { return Q(Equation(node, freedom)).Value(); }

    void Size(int nodes, Integer width) {
        N3 = NFreedom * nodes;
        Nw = width;
        A = Array<Single>(Bounds{1, N3 + Nw - 1}, Bounds{1, Nw});
        Q = Array<Single>(Bounds{1, N3 + Nw - 1});
    }
    void Restrain(int node, int freedom, double value = 0) {
        AppendRestraint(NF, NS, AufL, Equation(node, freedom), value);
    }
    void Clamp(int node) {
        for (int freedom = 1; freedom <= NFreedom; ++freedom) {
            Restrain(node, freedom);
        }
    }
    void Solve() {
        ASSERT_FALSE(fem.SetBoundaryToMatrix(Nw, NF, A, Q, AufL, NS));
        ASSERT_FALSE(fem.SolveMatrix(Nw, N3, A, Q));
    }

    FEM_Class fem;
    Integer N3 = 0, Nw = 0;
    Array<Single> A, Q;
    Integer NF = 0;
    Array<Integer> NS;
    Array<Single> AufL;
};

} // namespace torlib::test

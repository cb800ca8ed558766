// Element matrices and vectors into the global system; nodal springs into an element matrix.

#include "torlib/fem/fem_class.h"

#include <algorithm>

namespace torlib {

namespace {

/// The number of the equation before each node's first one.
Array<Integer> EquationBases(Integer NFreedom, Integer NNode, const Array<Integer>& Node) {
    Array<Integer> base(Bounds{0, std::max(+NNode, 0)});
    for (const int i : Range(1, NNode)) {
        base(i) = (Node(i) - 1) * NFreedom;
    }
    return base;
}

} // namespace

void FEM_Class::GlobalStiffnessMatrix(Array<Single>& A, const Array<Single>& SK, Integer NFreedom,
                                      Integer NNode, const Array<Integer>& Node) const {
    const MemberScope scope("FEM_Class.GlobalStiffnessMatrix", Named("A", A), Named("SK", SK),
                            Named("Node", Node));
    const Array<Integer> base = EquationBases(NFreedom, NNode, Node);
    const auto addRow = [&](Integer row, Integer elementRow) {
        for (const int j : Range(1, NNode)) {
            for (const int jj : Range(1, NFreedom)) {
                const Integer column = base(j) + jj;
                if (column >= row) {
                    const Integer l = column - row + 1;
                    const Integer elementColumn = (j - 1) * NFreedom + jj;
                    A(row, l) = SK(elementRow, elementColumn) + A(row, l);
                }
            }
        }
    };
    for (const int i : Range(1, NNode)) {
        for (const int ii : Range(1, NFreedom)) {
            addRow(base(i) + ii, (i - 1) * NFreedom + ii);
        }
    }
}

void FEM_Class::GlobalLoadVector(Array<Single>& Q, const Array<Single>& BE, Integer NFreedom,
                                 Integer NNode, const Array<Integer>& Node) const {
    const MemberScope scope("FEM_Class.GlobalLoadVector", Named("Q", Q), Named("BE", BE),
                            Named("Node", Node));
    const Array<Integer> base = EquationBases(NFreedom, NNode, Node);
    for (const int i : Range(1, NNode)) {
        for (const int ii : Range(1, NFreedom)) {
            const Integer equation = base(i) + ii;
            const Integer element = (i - 1) * NFreedom + ii;
            Q(equation) = BE(element) + Q(equation);
        }
    }
}

void FEM_Class::AdditionalStiffness(Single NFreedom, Single NNode, Single NV,
                                    const Array<Integer>& KV, const Array<Single>& Fk,
                                    const Array<Integer>& Node, Array<Single>& ST) const {
    const MemberScope scope("FEM_Class.AdditionalStiffness", Named("KV", KV), Named("Fk", Fk),
                            Named("Node", Node), Named("ST", ST));
    const Integer springs = ToInteger(NV);
    const Integer nodes = ToInteger(NNode);
    const Integer freedoms = ToInteger(NFreedom);
    for (const int s : Range(1, springs)) {
        for (const int j : Range(1, nodes)) {
            if (KV(s) != Node(j)) {
                continue;
            }
            for (const int k : Range(1, freedoms)) {
                const Integer g = (j - 1) * freedoms + k;
                const Integer spring = (s - 1) * freedoms + k;
                ST(g, g) = Fk(spring) + ST(g, g);
            }
        }
    }
}

} // namespace torlib

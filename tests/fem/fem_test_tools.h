#pragma once
// A system on the band solver and a plate on a regular mesh, for the tests of the finite-element
// core.

#include "tests/error_of.h"

#include "torlib/fem/fem_class.h"
#include "torlib/fem/restraint_list.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

namespace torlib::test {

enum class Mesh { Rectangles, Triangles };

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
    Integer N3 = 0;
    Integer Nw = 0;
    Array<Single> A;
    Array<Single> Q;
    Integer NF = 0;
    Array<Integer> NS;
    Array<Single> AufL;
};

/// A plate a x b of nx x ny cells, unit flexural rigidity unless the members are changed; triangles
/// halve each cell along the same diagonal. Nodes count from the corner (0, 0) along x.
struct PlateModel : BandSystem<3> {
    PlateModel(int nxCells, int nyCells, double a, double b, Mesh meshKind = Mesh::Rectangles)
        : nx(nxCells),
          ny(nyCells),
          Nk((nx + 1) * (ny + 1)),
          mesh(meshKind),
          X(Bounds{0, Nk}),
          Y(Bounds{0, Nk}) {
        for (int j = 0; j <= ny; ++j) {
            for (int i = 0; i <= nx; ++i) {
                X(Node(i, j)) = a * i / nx;
                Y(Node(i, j)) = b * j / ny;
            }
        }
    }

    int Node(int i, int j) const { return j * (nx + 1) + i + 1; }

    /// Stiffness and uniform pressure of all elements.
    void Assemble(double pressure) {
        const int NNode = mesh == Mesh::Triangles ? 3 : 4;
        const std::vector<std::array<int, 4>> elements = Elements();
        const int NE = static_cast<int>(elements.size());
        Array<Integer> types(Bounds{1, NE});
        Array<Integer> corners(Bounds{1, NE}, Bounds{1, 4});
        for (int element = 1; element <= NE; ++element) {
            types(element) = NNode;
            for (int k = 1; k <= NNode; ++k) {
                corners(element, k) = elements[element - 1][k - 1];
            }
        }
        fem.GetBandWidth(Nw, NE, types, corners);
        Size(Nk, Nw);
        for (const auto& element : elements) {
            AddElement(NNode, element, pressure);
        }
    }

    /// Holds w and the slope along the edge; clamped edges hold the slope across it as well.
    void SupportEdges(bool left, bool right, bool bottom, bool top, bool clamped) {
        for (int node = 1; node <= Nk; ++node) {
            const int i = (node - 1) % (nx + 1);
            const int j = (node - 1) / (nx + 1);
            const bool onX = (left && i == 0) || (right && i == nx);
            const bool onY = (bottom && j == 0) || (top && j == ny);
            if (onX || onY) {
                Restrain(node, 1);
            }
            if (onY || (onX && clamped)) {
                Restrain(node, 2);
            }
            if (onX || (onY && clamped)) {
                Restrain(node, 3);
            }
        }
    }

    int nx;
    int ny;
    int Nk;
    Mesh mesh;
    Array<Single> X;
    Array<Single> Y;
    Single e = 12 * (1 - 0.09);
    Single T = 1;
    Single nu = 0.3;

  private:
    std::vector<std::array<int, 4>> Elements() const {
        std::vector<std::array<int, 4>> elements;
        for (int j = 0; j < ny; ++j) {
            for (int i = 0; i < nx; ++i) {
                const int n1 = Node(i, j);
                const int n4 = Node(i, j + 1);
                if (mesh == Mesh::Triangles) {
                    elements.push_back({n1, n1 + 1, n4 + 1, 0});
                    elements.push_back({n1, n4 + 1, n4, 0});
                } else {
                    elements.push_back({n1, n1 + 1, n4 + 1, n4});
                }
            }
        }
        return elements;
    }
    void AddElement(Integer NNode, const std::array<int, 4>& nodes, double pressure) {
        Array<Integer> node(Bounds{1, NNode});
        Array<Single> XE(Bounds{1, NNode});
        Array<Single> YE(Bounds{1, NNode});
        for (int k = 1; k <= NNode; ++k) {
            node(k) = nodes[k - 1];
            XE(k) = X(node(k));
            YE(k) = Y(node(k));
        }
        Array<Single> SK;
        Array<Single> BE;
        fem.SetElementStiffnessMatrix(SK, e, T, nu, NNode, XE, YE);
        fem.SetElementLoadVector(BE, pressure, NNode, XE, YE);
        fem.GlobalStiffnessMatrix(A, SK, 3, NNode, node);
        fem.GlobalLoadVector(Q, BE, 3, NNode, node);
    }
};

} // namespace torlib::test

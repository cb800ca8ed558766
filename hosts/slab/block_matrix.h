#pragma once
// The slab's stiffness in double precision: 3 x 3 blocks where two nodes share an element.

#include "hosts/slab/model.h"

#include <array>
#include <vector>

namespace slab {

using Vector = std::vector<double>;

double Dot(const Vector& a, const Vector& b);
double Norm(const Vector& a);
/// y += factor x.
void AddTo(Vector& y, double factor, const Vector& x);
void Scale(Vector& x, double factor);

class BlockMatrix {
  public:
    BlockMatrix() = default;
    /// A zero matrix with the places that the elements need.
    BlockMatrix(int nodes, const std::vector<Element>& elements);

    /// Adds a square element matrix, 3 rows a corner, row by row.
    void Add(const Element& element, const Vector& matrix);
    /// y = K x, 3 values a node.
    void Multiply(const Vector& x, Vector& y) const;
    /// Diagonal entries, 3 a node.
    Vector Diagonal() const;

  private:
    std::array<double, 9>& Block(int row, int column);

    std::vector<int> start_;  // first block of each row, nodes from 0
    std::vector<int> column_; // ascending within a row
    std::vector<std::array<double, 9>> block_;
};

} // namespace slab

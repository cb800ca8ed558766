// The slab's stiffness in double precision, and the few vector operations the host needs.

#include "hosts/slab/block_matrix.h"

#include <algorithm>
#include <cmath>

namespace slab {

double Dot(const Vector& a, const Vector& b) {
    double sum = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        sum += a[i] * b[i];
    }
    return sum;
}

double Norm(const Vector& a) {
    return std::sqrt(Dot(a, a));
}

void AddTo(Vector& y, double factor, const Vector& x) {
    for (std::size_t i = 0; i < y.size(); ++i) {
        y[i] += factor * x[i];
    }
}

void Scale(Vector& x, double factor) {
    for (double& value : x) {
        value *= factor;
    }
}

BlockMatrix::BlockMatrix(int nodes, const std::vector<Element>& elements) {
    std::vector<std::vector<int>> neighbours(static_cast<std::size_t>(nodes));
    for (const Element& element : elements) {
        for (int i = 0; i < element.Corners; ++i) {
            auto& list = neighbours[static_cast<std::size_t>(element.Node[i] - 1)];
            for (int j = 0; j < element.Corners; ++j) {
                list.push_back(element.Node[j] - 1);
            }
        }
    }
    start_.push_back(0);
    for (auto& list : neighbours) {
        std::sort(list.begin(), list.end());
        list.erase(std::unique(list.begin(), list.end()), list.end());
        column_.insert(column_.end(), list.begin(), list.end());
        start_.push_back(static_cast<int>(column_.size()));
    }
    block_.assign(column_.size(), {});
}

std::array<double, 9>& BlockMatrix::Block(int row, int column) {
    const auto first = column_.begin() + start_[row];
    const auto last = column_.begin() + start_[row + 1];
    return block_[static_cast<std::size_t>(std::lower_bound(first, last, column) -
                                           column_.begin())];
}

void BlockMatrix::Add(const Element& element, const Vector& matrix) {
    const int size = 3 * element.Corners;
    for (int i = 0; i < element.Corners; ++i) {
        for (int j = 0; j < element.Corners; ++j) {
            auto& block = Block(element.Node[i] - 1, element.Node[j] - 1);
            for (int k = 0; k < 9; ++k) {
                block[k] += matrix[(3 * i + k / 3) * size + 3 * j + k % 3];
            }
        }
    }
}

void BlockMatrix::Multiply(const Vector& x, Vector& y) const {
    y.assign(x.size(), 0);
    for (std::size_t row = 0; row + 1 < start_.size(); ++row) {
        double* const out = y.data() + 3 * row;
        for (int k = start_[row]; k < start_[row + 1]; ++k) {
            const double* const in = x.data() + static_cast<std::size_t>(3) * column_[k];
            const auto& b = block_[k];
            out[0] += b[0] * in[0] + b[1] * in[1] + b[2] * in[2];
            out[1] += b[3] * in[0] + b[4] * in[1] + b[5] * in[2];
            out[2] += b[6] * in[0] + b[7] * in[1] + b[8] * in[2];
        }
    }
}

Vector BlockMatrix::Diagonal() const {
    Vector diagonal(3 * (start_.size() - 1));
    for (std::size_t row = 0; row + 1 < start_.size(); ++row) {
        for (int k = start_[row]; k < start_[row + 1]; ++k) {
            for (std::size_t i = 0; column_[k] == static_cast<int>(row) && i < 3; ++i) {
                diagonal[3 * row + i] = block_[k][4 * i];
            }
        }
    }
    return diagonal;
}

} // namespace slab

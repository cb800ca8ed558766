// The library's element matrices and load vectors for an element of the model.

#include "hosts/slab/plate_elements.h"

#include <cmath>

namespace slab {
namespace {

const Point& Corner(const Model& model, const Element& element, int i) {
    return model.Nodes[static_cast<std::size_t>(element.Node[i] - 1)];
}

double SquaredLength(const Model& model, const Element& beam) {
    const Point& a = Corner(model, beam, 0);
    const Point& b = Corner(model, beam, 1);
    return (b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y);
}

/// The three rigid motions, orthonormal under the weights 1, l2, l2 of a node's freedoms.
std::array<Vector, 3> RigidMotions(const Model& model, const Element& element, double l2) {
    std::array<Vector, 3> modes;
    modes.fill(Vector(static_cast<std::size_t>(3 * element.Corners)));
    const Point& o = Corner(model, element, 0);
    for (std::size_t i = 0; i < static_cast<std::size_t>(element.Corners); ++i) {
        const Point& p = Corner(model, element, static_cast<int>(i));
        modes[0][3 * i] = 1;
        modes[1][3 * i] = p.x - o.x;
        modes[1][3 * i + 1] = 1;
        modes[2][3 * i] = p.y - o.y;
        modes[2][3 * i + 2] = 1;
    }
    const auto product = [l2](const Vector& a, const Vector& b) {
        double sum = 0;
        for (std::size_t i = 0; i < a.size(); ++i) {
            sum += a[i] * b[i] * (i % 3 == 0 ? 1 : l2);
        }
        return sum;
    };
    for (std::size_t m = 0; m < 3; ++m) {
        for (std::size_t k = 0; k < m; ++k) {
            AddTo(modes[m], -product(modes[m], modes[k]), modes[k]);
        }
        Scale(modes[m], 1 / std::sqrt(product(modes[m], modes[m])));
    }
    return modes;
}

} // namespace

double ElementArea(const Model& model, const Element& element) {
    double area = 0;
    const Point& o = Corner(model, element, 0);
    for (int i = 1; i + 1 < element.Corners; ++i) {
        const Point& p = Corner(model, element, i);
        const Point& q = Corner(model, element, i + 1);
        area += ((p.x - o.x) * (q.y - o.y) - (q.x - o.x) * (p.y - o.y)) / 2;
    }
    return area;
}

void FillElement(const Model& model, int index, torlib::FEM_Class& fem, ElementArrays& arrays) {
    const Element& element = model.Elements[static_cast<std::size_t>(index)];
    const Group& group = model.Groups[static_cast<std::size_t>(element.Group)];
    arrays.NNode = element.Corners;
    arrays.Node.ReDim(element.Corners);
    arrays.XE.ReDim(element.Corners);
    arrays.YE.ReDim(element.Corners);
    const Point& o = Corner(model, element, 0);
    for (int i = 0; i < element.Corners; ++i) {
        // From the first corner: far from the origin 32 bits would cut the sides' digits.
        arrays.Node(i + 1) = element.Node[i];
        arrays.XE(i + 1) = Corner(model, element, i).x - o.x;
        arrays.YE(i + 1) = Corner(model, element, i).y - o.y;
    }
    fem.SetElementStiffnessMatrix(arrays.SK, group.Modulus, group.Thickness, group.Poisson,
                                  arrays.NNode, arrays.XE, arrays.YE);
    fem.SetElementLoadVector(arrays.BE, model.Pressure[static_cast<std::size_t>(index)],
                             arrays.NNode, arrays.XE, arrays.YE);
}

Vector WithoutRigidMotions(const Model& model, const Element& element, const Array<Single>& SK) {
    const int size = 3 * element.Corners;
    const double l2 =
        element.Corners == 2 ? SquaredLength(model, element) : ElementArea(model, element);
    const auto modes = RigidMotions(model, element, l2);
    // T = I - R R^T W takes the rigid part out of a displacement; K becomes T^T K T.
    Vector T(static_cast<std::size_t>(size * size));
    Vector K(T.size());
    for (int i = 0; i < size; ++i) {
        for (int j = 0; j < size; ++j) {
            double& t = T[i * size + j];
            t = i == j;
            for (const Vector& mode : modes) {
                t -= mode[i] * mode[j] * (j % 3 == 0 ? 1 : l2);
            }
            K[i * size + j] = (double{SK(i + 1, j + 1).Value()} + SK(j + 1, i + 1).Value()) / 2;
        }
    }
    const auto product = [size](const Vector& a, const Vector& b, bool transposeFirst) {
        Vector c(a.size());
        for (int i = 0; i < size; ++i) {
            for (int k = 0; k < size; ++k) {
                const double factor = transposeFirst ? a[k * size + i] : a[i * size + k];
                for (int j = 0; j < size; ++j) {
                    c[i * size + j] += factor * b[k * size + j];
                }
            }
        }
        return c;
    };
    return product(T, product(K, T, false), true);
}

} // namespace slab

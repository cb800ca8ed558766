#pragma once
// Deflection shape functions of the plate elements, for loads that stand anywhere on an element.

#include "hosts/slab/model.h"

#include <array>
#include <vector>

namespace slab {

/// Values and slopes of the shape functions at a point, node by node (w, dw/dx, dw/dy); zero beyond
/// three places a corner.
struct ShapeValues {
    std::array<double, 12> W{};
    std::array<double, 12> Wx{};
    std::array<double, 12> Wy{};
};

/// Source: rectangle: Adini and Clough (1961), Melosh (1963), the 12-parameter functions; triangle:
/// Bazeley, Cheung, Irons and Zienkiewicz (1965), the nonconforming 9-parameter functions.
ShapeValues ShapeFunctions(const Element& element, const std::vector<Point>& nodes,
                           const Point& at);

} // namespace slab

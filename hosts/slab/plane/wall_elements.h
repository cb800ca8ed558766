#pragma once
// The triangles of a wall plate: element for the system, strains and stresses.

#include "hosts/slab/model.h"
#include "hosts/slab/plane/plane_element.h"

namespace slab {

/// Stresses of an element, kN/m2, tension positive.
struct Stress {
    double X = 0, Y = 0, XY = 0;
};

/// Halves every rectangle; the diagonals alternate from one rectangle to the next.
void HalveRectangles(Model& model);

/// The two freedoms of the library's triangle spread into three, with no stiffness against theta.
PlaneElement WallElement(const Model& model, std::size_t element, torlib::FEM_Class& fem);

/// The constant stress of a triangle under the displacements of all nodes.
Stress StressOf(const Model& model, const Element& triangle, const Vector& u);

} // namespace slab

#pragma once
// Bending moments at the nodes from the displacement field of the elements.
//
// Sign: positive with tension at the underside, m_x = -D (w_xx + nu w_yy), m_y alike,
// m_xy = -D (1 - nu) w_xy, with w downward. Rectangles give the curvatures of their field at the
// corners, averaged at a node. The field of a triangle is good at the centroid only: there its
// curvatures are taken, and a plane is fitted through those of the triangles round a node. Where
// groups meet, the node shows the group with the largest principal moment.

#include "hosts/slab/block_matrix.h"
#include "hosts/slab/model.h"
#include "hosts/slab/results.h"

namespace slab {

/// w_xx, w_yy, w_xy.
using Curvature = std::array<double, 3>;

/// Curvatures of a rectangle at its corners, from 3 displacements a node of the model.
std::array<Curvature, 4> RectangleCurvatures(const Model& model, const Element& element,
                                             const Vector& displacement);

/// Curvatures of a triangle at its centroid.
Curvature TriangleCurvature(const Model& model, const Element& element, const Vector& displacement);

/// Fills the moments of all nodes.
void FillMoments(const Model& model, const Vector& displacement, std::vector<NodeResult>& nodes);

} // namespace slab

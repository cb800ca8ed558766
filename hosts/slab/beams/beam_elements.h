#pragma once
// Grid beams as elements beside the plates: they share the plates' nodes and degrees of freedom.

#include "hosts/slab/plate_elements.h"
#include "hosts/slab/results.h"

namespace slab {

/// The plate elements, and after them the beams as elements of two corners.
std::vector<Element> PlatesAndBeams(const Model& model);

/// Fills stiffness, loads and nodes for one of these elements; of a beam without coordinates.
void FillPlateOrBeam(const Model& model, std::size_t index, torlib::FEM_Class& fem,
                     ElementArrays& arrays);

/// Internal forces of the beams under displacements, 3 a node.
std::vector<BeamResult> BeamForces(const Model& model, const Vector& u);

} // namespace slab

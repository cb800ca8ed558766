#pragma once
// The library's element matrices and load vectors for an element of the model.

#include "hosts/slab/block_matrix.h"
#include "hosts/slab/library_types.h"
#include "hosts/slab/model.h"
#include "torlib/fem/fem_class.h"

namespace slab {

/// The arrays in which the library takes and returns an element.
struct ElementArrays {
    Integer NNode = 0;
    Array<Integer> Node;
    Array<Single> XE, YE; ///< coordinates from the first corner, m
    Array<Single> SK;
    Array<Single> BE;
};

/// Fills all arrays for element `index` (from 0) under its pressure.
void FillElement(const Model& model, int index, torlib::FEM_Class& fem, ElementArrays& arrays);

/// The element matrix in double precision with the rigid-body motions taken out: its entries are
/// rounded to 32 bits, and what that leaves of stiffness against a rigid motion would act, summed
/// over a fine mesh, like springs under the slab.
Vector WithoutRigidMotions(const Model& model, const Element& element, const Array<Single>& SK);

/// Area of an element, m2.
double ElementArea(const Model& model, const Element& element);

} // namespace slab

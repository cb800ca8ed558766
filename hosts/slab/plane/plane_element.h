#pragma once
// An element of a plane system as the library gives it and as the correction of digits needs it.

#include "hosts/slab/block_matrix.h"
#include "hosts/slab/library_types.h"
#include "torlib/fem/fem_class.h"

#include <functional>

namespace slab {

/// Three equations a corner: u, v, theta.
struct PlaneElement {
    Array<Single> Stiffness;
    Array<Single> Loads;
    Vector Exact; ///< the stiffness in double precision, free of forces under rigid motions
};

/// The element of an index from 0.
using ElementSource = std::function<PlaneElement(std::size_t)>;

} // namespace slab

#pragma once
// The cross-sections of frame members.

#include "hosts/slab/plane/plane_model.h"
#include "hosts/slab/unit_scale.h"

namespace slab {

/// Reads [[sections]]; rectangles and polygons get their properties from the library.
std::vector<FrameSection> ReadFrameSections(const KeyTable& root, const UnitScale& scale);

} // namespace slab

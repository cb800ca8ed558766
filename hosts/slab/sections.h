#pragma once
// The cross-sections of grid beams and frame members.

#include "hosts/slab/key_table.h"
#include "hosts/slab/model.h"
#include "hosts/slab/unit_scale.h"

namespace slab {

enum class SectionUse { Frame, Grid };

/// Reads [[sections]]; rectangles and polygons get their properties from the library. Sections of
/// grids have torsion, a shear modulus and a contact width as well.
std::vector<Section> ReadSections(const KeyTable& root, const UnitScale& scale, SectionUse use);

} // namespace slab

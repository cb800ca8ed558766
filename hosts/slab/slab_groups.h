#pragma once
// Thickness and material of the slab and of its regions.

#include "hosts/slab/project_draft.h"

namespace slab {

/// Reads the table [slab]: the group of all elements, and the groups of [[slab.regions]].
void ReadSlab(const KeyTable& root, ProjectDraft& draft);

} // namespace slab

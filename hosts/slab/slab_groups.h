#pragma once
// Thickness and material of the slab and of its regions.

#include "hosts/slab/project_draft.h"

namespace slab {

/// Reads the table [slab], or the table of another plate: the group of all elements, and the groups
/// of [[slab.regions]].
void ReadSlab(const KeyTable& root, ProjectDraft& draft, const char* key = "slab");

} // namespace slab

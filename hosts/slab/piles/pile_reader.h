#pragma once
// The piles under a slab.

#include "hosts/slab/project_draft.h"

namespace slab {

/// Reads the table [piles], which may be missing; the soil must be known.
void ReadPiles(const KeyTable& root, ProjectDraft& draft);

} // namespace slab

#pragma once
// The soil and the iteration between slab and soil.

#include "hosts/slab/project_draft.h"

namespace slab {

/// Reads the table [soil]; a project without it has no soil.
void ReadSoil(const KeyTable& root, ProjectDraft& draft);

/// Reads the table [iteration], which may be missing.
void ReadIteration(const KeyTable& root, ProjectDraft& draft);

} // namespace slab

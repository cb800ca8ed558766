#pragma once
// Beams of a project: along the mesh nodes of a slab, or as a grid of their own that makes its
// nodes where beams begin, end, cross, and where supports and loads stand.

#include "hosts/slab/project_draft.h"

namespace slab {

/// Reads [[sections]] and [[beams]] of a slab, which may have none.
void ReadSlabBeams(const KeyTable& root, ProjectDraft& draft);

/// Reads [[sections]] and [[beams]] of a grid into nodes and beams.
void ReadGridBeams(const KeyTable& root, ProjectDraft& draft);

} // namespace slab

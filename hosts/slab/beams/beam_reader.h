#pragma once
// Beams of a project: along the mesh nodes of a slab, or as a grid of their own that makes its
// nodes where beams begin, end, cross, and where supports and loads stand.

#include "hosts/slab/project_draft.h"

namespace slab {

/// Reads [[sections]] and [[beams]] of a slab, which may have none.
void ReadSlabBeams(const KeyTable& root, ProjectDraft& draft);

/// Reads [mesh], [[sections]] and [[beams]] of a grid into nodes and beams; the modulus of
/// subgrade, kN/m3, is 0 where there is no soil.
void ReadGridBeams(const KeyTable& root, double subgrade, ProjectDraft& draft);

} // namespace slab

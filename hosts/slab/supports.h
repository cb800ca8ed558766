#pragma once
// Supports and springs at nodes, lines and edges.

#include "hosts/slab/project_draft.h"

namespace slab {

/// The mesh node at a place [x, y], which may be off by the snapping distance.
int MeshNodeAt(const Entry& entry, const ProjectDraft& draft);

/// Reads [[supports]] into restraints.
void ReadSupports(const KeyTable& root, ProjectDraft& draft);

/// Reads [[springs]] into node springs.
void ReadSprings(const KeyTable& root, ProjectDraft& draft);

} // namespace slab

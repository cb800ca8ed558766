#pragma once
// Supports and springs at nodes, lines and edges.

#include "hosts/slab/mesh.h"

#include <map>

namespace slab {

/// The mesh node at a place [x, y], which may be off by the snapping distance.
int MeshNodeAt(const Entry& entry, const ProjectDraft& draft);
/// Reads the one of the keys node, at, line and edge that is there; `kinds` are those allowed.
Place ReadPlace(const KeyTable& table, const ProjectDraft& draft,
                const std::vector<std::string>& kinds = {"node", "at", "line", "edge"});

/// What a unit value, on a line one for each metre, gives to each node.
std::map<int, double> Shares(const KeyTable& table, const Place& place, const Model& model);

/// Reads [[supports]] into restraints.
void ReadSupports(const KeyTable& root, ProjectDraft& draft);

/// Reads [[springs]] into node springs.
void ReadSprings(const KeyTable& root, ProjectDraft& draft);

} // namespace slab

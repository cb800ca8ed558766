#pragma once
// Reading the projects of plane frames and wall plates. Files in reading order: frame_sections.cpp,
// frame_members.cpp (nodes, members), plane_loads.cpp, plane_reader.cpp (the whole).

#include "hosts/slab/plane/plane_model.h"
#include "hosts/slab/project_draft.h"

namespace slab {

/// Checks the project and builds its model. Throws InputError.
FrameModel ReadFrameProject(const ProjectFile& file);
Model ReadWallProject(const ProjectFile& file);

/// Nodes and members of a frame: mesh and members of the model, and the draft's tolerance.
void ReadMembers(const KeyTable& root, ProjectDraft& draft, FrameModel& frame);

/// The loads of a frame, own weight included; supports and springs have to be known.
void ReadFrameLoads(const KeyTable& root, ProjectDraft& draft, FrameModel& frame);

/// The loads of a wall of triangles, own weight included.
void ReadWallLoads(const KeyTable& root, ProjectDraft& draft);

} // namespace slab

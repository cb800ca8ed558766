#pragma once
// The loads of a project as pressures of whole elements and consistent nodal loads.

#include "hosts/slab/mesh.h"
#include "hosts/slab/project_draft.h"

namespace slab {

/// Reads the table [loads] and adds self-weight.
void ReadLoads(const KeyTable& root, ProjectDraft& draft);

/// Adds the nodal loads of a force and two moments at a point; false when the point lies outside.
bool AddPointLoad(ProjectDraft& draft, const Point& at, double force, double momentX,
                  double momentY);

/// Adds the nodal loads of a uniform pressure on a rectangle; gives the area that lies on the slab.
double AddPatchLoad(ProjectDraft& draft, const Region& region, double pressure);

/// Adds the nodal loads of a uniform line load; gives the length that lies on the slab.
double AddLineLoad(ProjectDraft& draft, const Point& from, const Point& to, double perLength);

} // namespace slab

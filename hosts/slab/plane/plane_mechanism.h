#pragma once
// The checks that supports, springs and connections leave no part of a plane system to move freely.

#include "hosts/slab/plane/plane_model.h"
#include "hosts/slab/restraints.h"

namespace slab {

/// Whether a member is rigidly connected to each node, or a spring or support turns with it. Where
/// nothing is, the rotation is idle: it means nothing and has to be held.
std::vector<char> RotationMatters(const Model& base, const std::vector<Member>& members);

/// Throws AnalysisFailure that names node and direction: `springs` holds the spring constant of
/// every equation.
void RequireStiff(const FrameModel& frame, const RestraintList& restraints, const Vector& springs);

/// The same of a wall plate.
void RequireStiff(const Model& wall, const RestraintList& restraints, const Vector& springs);

} // namespace slab

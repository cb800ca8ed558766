#pragma once
// The members of a plane frame: axis, element for the system, loads along the member.

#include "hosts/slab/plane/plane_element.h"
#include "hosts/slab/plane/plane_model.h"

namespace slab {

/// From start to end.
struct MemberAxis {
    double Length = 0; ///< m
    double Cos = 1;
    double Sin = 0;
};
MemberAxis AxisOf(const FrameModel& frame, std::size_t member);

/// Loads of a member per length of it, kN/m.
struct AxisLoads {
    double Along = 0;  ///< from start to end
    double Across = 0; ///< to the left of that direction
};
AxisLoads LoadsAlong(const FrameModel& frame, std::size_t member);

PlaneElement FrameElement(const FrameModel& frame, std::size_t member, torlib::FEM_Class& fem);

} // namespace slab

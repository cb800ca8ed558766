#include "hosts/slab/plane/frame_elements.h"

#include "hosts/slab/library_types.h"

#include <cmath>

namespace slab {
namespace {

/// Share of its length that a member has to span in x for a load per projected length.
constexpr double steepest = 1e-6;

struct Axial {
    double Start, End;
};

AxisLoads Turned(const MemberAxis& axis, double fx, double fy) {
    return {(fx * axis.Cos + fy * axis.Sin) / axis.Length,
            (fy * axis.Cos - fx * axis.Sin) / axis.Length};
}

/// What the library's shares of 3/8 and 5/8 at a single hinge misplace of the load along the axis:
/// it belongs to both ends in halves.
Axial Misplaced(torlib::FrameHingedType hinges, double along) {
    using enum torlib::FrameHingedType;
    const double eighth = hinges == I_Hinge ? along / 8 : hinges == J_Hinge ? -along / 8 : 0;
    return {eighth, -eighth};
}

Array<Single> LoadVector(const FrameModel& frame, std::size_t member, torlib::FEM_Class& fem) {
    const Member& data = frame.Members[member];
    const MemberAxis axis = AxisOf(frame, member);
    const double width = std::fabs(axis.Cos) * axis.Length;
    const double height = std::fabs(axis.Sin) * axis.Length;
    double down = data.Loads.AcrossWidth;
    double onEnds = data.Loads.PerLength * axis.Length;
    if (width > steepest * axis.Length) {
        down += onEnds / width;
        onEnds = 0;
    }
    Array<Single> QK;
    fem.BeamPlaneLoadVector(QK, data.Loads.AcrossHeight, down, axis.Cos * axis.Length,
                            axis.Sin * axis.Length, static_cast<int>(data.Hinges));
    const AxisLoads shared = Turned(axis, data.Loads.AcrossHeight * height, -down * width);
    const Axial moved = Misplaced(data.Hinges, shared.Along * axis.Length);
    QK(1) = QK(1) + moved.Start * axis.Cos;
    QK(2) = QK(2) + moved.Start * axis.Sin - onEnds / 2;
    QK(4) = QK(4) + moved.End * axis.Cos;
    QK(5) = QK(5) + moved.End * axis.Sin - onEnds / 2;
    return QK;
}

/// B^T k B with the three stiffnesses of the member's own deformations, as the library rounds them
/// along the x axis, and a kinematic B in double precision.
Vector ExactStiffness(const MemberAxis& axis, const Array<Single>& ST) {
    const double sl = axis.Sin / axis.Length;
    const double cl = axis.Cos / axis.Length;
    const double B[3][6] = {{-axis.Cos, -axis.Sin, 0, axis.Cos, axis.Sin, 0},
                            {sl, -cl, 1, -sl, cl, 0},
                            {sl, -cl, 0, -sl, cl, 1}};
    const double k[3][3] = {{double{ST(1, 1).Value()}, 0, 0},
                            {0, double{ST(3, 3).Value()}, double{ST(3, 6).Value()}},
                            {0, double{ST(6, 3).Value()}, double{ST(6, 6).Value()}}};
    Vector K(36);
    for (std::size_t i = 0; i < 6; ++i) {
        for (std::size_t j = 0; j < 6; ++j) {
            for (std::size_t m = 0; m < 3; ++m) {
                for (std::size_t n = 0; n < 3; ++n) {
                    K[6 * i + j] += B[m][i] * k[m][n] * B[n][j];
                }
            }
        }
    }
    return K;
}

} // namespace

MemberAxis AxisOf(const FrameModel& frame, std::size_t member) {
    const Element& element = frame.Base.Elements[member];
    const Point& a = frame.Base.Nodes[static_cast<std::size_t>(element.Node[0] - 1)];
    const Point& b = frame.Base.Nodes[static_cast<std::size_t>(element.Node[1] - 1)];
    const double length = std::hypot(b.x - a.x, b.y - a.y);
    return {length, (b.x - a.x) / length, (b.y - a.y) / length};
}

AxisLoads LoadsAlong(const FrameModel& frame, std::size_t member) {
    const MemberLoads& loads = frame.Members[member].Loads;
    const MemberAxis axis = AxisOf(frame, member);
    const double width = std::fabs(axis.Cos) * axis.Length;
    const double height = std::fabs(axis.Sin) * axis.Length;
    return Turned(axis, loads.AcrossHeight * height,
                  -loads.AcrossWidth * width - loads.PerLength * axis.Length);
}

PlaneElement FrameElement(const FrameModel& frame, std::size_t member, torlib::FEM_Class& fem) {
    const Member& data = frame.Members[member];
    const Section& section = frame.Sections[data.Section];
    const MemberAxis axis = AxisOf(frame, member);
    const int hinges = static_cast<int>(data.Hinges);
    const double EI = section.Modulus * section.Inertia;
    const double EA = section.Modulus * section.Area;
    PlaneElement element;
    fem.BeamPlaneStiffness(element.Stiffness, hinges, EI, EA, axis.Length, 1, 0);
    element.Exact = ExactStiffness(axis, element.Stiffness);
    fem.BeamPlaneStiffness(element.Stiffness, hinges, EI, EA, axis.Length, axis.Cos, axis.Sin);
    element.Loads = LoadVector(frame, member, fem);
    return element;
}

} // namespace slab

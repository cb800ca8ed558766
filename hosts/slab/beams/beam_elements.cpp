#include "hosts/slab/beams/beam_elements.h"

#include "hosts/slab/library_types.h"

#include <cmath>

namespace slab {
namespace {

Element AsElement(const Beam& beam) {
    return {2, {beam.Node[0], beam.Node[1]}, 0};
}

/// A section table of the library with a single type in it.
Array<Single> OneType(double value) {
    Array<Single> table(Bounds{0, 1});
    table(1) = value;
    return table;
}

void FillBeam(const Model& model, const Beam& beam, torlib::FEM_Class& fem, ElementArrays& arrays) {
    const Section& section = model.Sections[beam.Section];
    const Point& a = model.Nodes[static_cast<std::size_t>(beam.Node[0] - 1)];
    const Point& b = model.Nodes[static_cast<std::size_t>(beam.Node[1] - 1)];
    arrays.NNode = 2;
    arrays.Node.ReDim(2);
    // From the start: far from the origin 32 bits would cut the digits of the projections.
    Array<Single> XGriD(Bounds{0, 2});
    Array<Single> YGriD(Bounds{0, 2});
    XGriD(2) = b.x - a.x;
    YGriD(2) = b.y - a.y;
    for (int i = 0; i < 2; ++i) {
        arrays.Node(i + 1) = beam.Node[static_cast<std::size_t>(i)];
    }
    Single EI, GJ, XD, YD;
    fem.BeamData(1, 2, 1, OneType(section.Modulus), OneType(section.Inertia),
                 OneType(section.ShearModulus), OneType(section.Torsion), XGriD, YGriD, EI, GJ, XD,
                 YD);
    Array<Single> TR;
    Single F1, F2, ALE, SI, CO, S2, C2, CS;
    fem.TransformationMatrix(TR, XD, YD, EI, GJ, F1, F2, ALE, SI, CO, S2, C2, CS);
    fem.BeamStiffness(arrays.SK, F1, F2, ALE, SI, CO, S2, C2, CS);
    fem.BeamLoadVector(arrays.BE, TR, beam.Load, ALE);
}

/// Forces that the nodes exert on the beam, in the sense of the displacements.
std::array<double, 6> EndForces(const Model& model, const Beam& beam, torlib::FEM_Class& fem,
                                const Vector& u) {
    ElementArrays arrays;
    FillBeam(model, beam, fem, arrays);
    const Vector K = WithoutRigidMotions(model, AsElement(beam), arrays.SK);
    std::array<double, 6> forces{};
    for (std::size_t i = 0; i < 6; ++i) {
        forces[i] = -double{arrays.BE(static_cast<int>(i) + 1).Value()};
        for (std::size_t j = 0; j < 6; ++j) {
            const auto node = static_cast<std::size_t>(beam.Node[j / 3] - 1);
            forces[i] += K[6 * i + j] * u[3 * node + j % 3];
        }
    }
    return forces;
}

} // namespace

std::vector<Element> PlatesAndBeams(const Model& model) {
    std::vector<Element> elements = model.Elements;
    for (const Beam& beam : model.Beams) {
        elements.push_back(AsElement(beam));
    }
    return elements;
}

void FillPlateOrBeam(const Model& model, std::size_t index, torlib::FEM_Class& fem,
                     ElementArrays& arrays) {
    if (index < model.Elements.size()) {
        FillElement(model, static_cast<int>(index), fem, arrays);
    } else {
        FillBeam(model, model.Beams[index - model.Elements.size()], fem, arrays);
    }
}

std::vector<BeamResult> BeamForces(const Model& model, const Vector& u) {
    torlib::FEM_Class fem;
    std::vector<BeamResult> results;
    for (const Beam& beam : model.Beams) {
        const Point& a = model.Nodes[static_cast<std::size_t>(beam.Node[0] - 1)];
        const Point& b = model.Nodes[static_cast<std::size_t>(beam.Node[1] - 1)];
        const double length = std::hypot(b.x - a.x, b.y - a.y);
        const double c = (b.x - a.x) / length;
        const double s = (b.y - a.y) / length;
        const std::array<double, 6> forces = EndForces(model, beam, fem, u);
        BeamResult result;
        for (std::size_t end = 0; end < 2; ++end) {
            // A section shows its forces to the piece before it, the start of a beam to none.
            const double sign = end == 0 ? 1 : -1;
            const double* const f = &forces[3 * end];
            result.Shear[end] = -sign * f[0];
            result.Moment[end] = sign * (c * f[1] + s * f[2]);
            result.Torsion[end] = -sign * (c * f[2] - s * f[1]);
        }
        results.push_back(result);
    }
    return results;
}

} // namespace slab

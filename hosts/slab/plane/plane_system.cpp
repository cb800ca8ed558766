// A plane frame or a wall plate as a system of equations.

#include "hosts/slab/plane/plane_system.h"

#include <cmath>

namespace slab {
namespace {

Array<Integer> NodesOf(const Element& element) {
    Array<Integer> nodes(Bounds{0, element.Corners});
    for (int i = 0; i < element.Corners; ++i) {
        nodes(i + 1) = element.Node[i];
    }
    return nodes;
}

} // namespace

PlaneSystem::PlaneSystem(const Model& model, ElementSource elements, RestraintList restraints,
                         const AnalysisOptions& options, RunWindow& window)
    : model_(model),
      elements_(std::move(elements)),
      restraints_(std::move(restraints)),
      options_(options),
      window_(window),
      Nw_(BandWidthOf(model, model.Elements, fem_)),
      springs_(3 * model.Nodes.size(), 0) {
    for (const NodeSpring& spring : model_.Springs) {
        for (std::size_t f = 0; f < 3; ++f) {
            springs_[3 * static_cast<std::size_t>(spring.Node - 1) + f] += spring.Stiffness[f];
        }
    }
}

/// A node's springs go in once, with the first element that has the node.
void PlaneSystem::AddSprings(std::size_t element, Array<Single>& ST, std::vector<char>& given) {
    const Element& corners = model_.Elements[element];
    const Array<Integer> nodes = NodesOf(corners);
    Array<Single> Fk(Bounds{0, 3 * corners.Corners});
    for (int i = 0; i < corners.Corners; ++i) {
        const auto node = static_cast<std::size_t>(corners.Node[i] - 1);
        for (int f = 0; f < 3 && !given[node]; ++f) {
            Fk(3 * i + f + 1) = springs_[3 * node + f];
        }
        given[node] = 1;
    }
    fem_.AdditionalStiffness(3, corners.Corners, corners.Corners, nodes, Fk, nodes, ST);
}

void PlaneSystem::Assemble(Array<Single>& A, Array<Single>& Q) {
    const int rows = Equations() + Nw_ - 1;
    A = Array<Single>(Bounds{0, rows}, Bounds{0, Nw_});
    Q = Array<Single>(Bounds{0, rows});
    stiffness_ = BlockMatrix(static_cast<int>(model_.Nodes.size()), model_.Elements);
    loads_ = model_.NodalLoads;
    std::vector<char> given(model_.Nodes.size(), 0);
    for (std::size_t e = 0; e < model_.Elements.size(); ++e) {
        const Element& corners = model_.Elements[e];
        const Array<Integer> nodes = NodesOf(corners);
        PlaneElement element = elements_(e);
        stiffness_.Add(corners, element.Exact);
        for (int k = 0; k < 3 * corners.Corners; ++k) {
            const auto node = static_cast<std::size_t>(corners.Node[k / 3] - 1);
            loads_[3 * node + k % 3] += double{element.Loads(k + 1).Value()};
        }
        AddSprings(e, element.Stiffness, given);
        fem_.GlobalStiffnessMatrix(A, element.Stiffness, 3, corners.Corners, nodes);
        fem_.GlobalLoadVector(Q, element.Loads, 3, corners.Corners, nodes);
    }
    for (std::size_t i = 0; i < model_.NodalLoads.size(); ++i) {
        Single& load = Q(static_cast<int>(i) + 1);
        load = load + model_.NodalLoads[i];
    }
}

Vector PlaneSystem::Solve() {
    Array<Single> A;
    Array<Single> Q;
    Assemble(A, Q);
    const BandFactor factor = Eliminated(fem_, window_, Nw_, Equations(), restraints_, A, Q);
    // Loads in the free equations, what the prescribed values do to them included.
    Vector b;
    Vector u(loads_.size());
    stiffness_.Multiply(restraints_.Value, b);
    for (std::size_t i = 0; i < u.size(); ++i) {
        const bool held = restraints_.Held[i] != 0;
        b[i] = held ? 0 : loads_[i] - b[i];
        u[i] = held ? 0 : double{Q(static_cast<int>(i) + 1).Value()};
    }
    const HeldSystem system{stiffness_, springs_, restraints_.Held};
    const auto poll = [this] {
        if (!window_.Continue()) {
            throw Cancelled();
        }
    };
    CorrectAndNote(system, factor, b, u, options_, 2, poll, Digits);
    AddTo(u, 1, restraints_.Value);
    for (std::size_t i = 0; i < u.size(); ++i) {
        if (!std::isfinite(u[i])) {
            throw AnalysisFailure("the solution has no finite value at " +
                                  NameOfNode(model_, static_cast<int>(i / 3) + 1) +
                                  ": the stiffnesses of the model lie too far apart");
        }
    }
    return u;
}

Vector PlaneSystem::HeldForces(const Vector& u) const {
    Vector forces;
    stiffness_.Multiply(u, forces);
    for (std::size_t i = 0; i < forces.size(); ++i) {
        forces[i] += springs_[i] * u[i] - loads_[i];
    }
    return forces;
}

} // namespace slab

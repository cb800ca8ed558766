// The slab as a system of equations.

#include "hosts/slab/slab_system.h"

#include "hosts/slab/band_solution.h"
#include "hosts/slab/beams/beam_elements.h"
#include "hosts/slab/plate_elements.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace slab {
namespace {

constexpr double step_digits = 1e-6; // residual / load in a step of an iteration

class Stopwatch {
  public:
    explicit Stopwatch(double& seconds) : seconds_(seconds) {}
    Stopwatch(const Stopwatch&) = delete;
    Stopwatch& operator=(const Stopwatch&) = delete;
    ~Stopwatch() {
        seconds_ +=
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
    }

  private:
    double& seconds_;
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

} // namespace

SlabSystem::SlabSystem(const Model& model, const AnalysisOptions& options, RunWindow& window)
    : model_(model), options_(options), window_(window) {
    const Stopwatch watch(Seconds);
    elements_ = PlatesAndBeams(model);
    Nw_ = BandWidthOf(model, elements_, fem_);
    restraints_ = Restraints(model, fem_);
    BuildMatrix();
}

void SlabSystem::BuildMatrix() {
    stiffness_ = BlockMatrix(static_cast<int>(model_.Nodes.size()), elements_);
    loads_ = model_.NodalLoads;
    loads_.resize(3 * model_.Nodes.size());
    ElementArrays arrays;
    for (std::size_t e = 0; e < elements_.size(); ++e) {
        const Element& element = elements_[e];
        FillPlateOrBeam(model_, e, fem_, arrays);
        stiffness_.Add(element, WithoutRigidMotions(model_, element, arrays.SK));
        for (int k = 0; k < 3 * element.Corners; ++k) {
            loads_[3 * (element.Node[k / 3] - 1) + k % 3] += double{arrays.BE(k + 1).Value()};
        }
    }
    diagonal_ = stiffness_.Diagonal();
    nodeSprings_.assign(loads_.size(), 0);
    for (const NodeSpring& spring : model_.Springs) {
        for (std::size_t f = 0; f < 3; ++f) {
            nodeSprings_[3 * static_cast<std::size_t>(spring.Node - 1) + f] += spring.Stiffness[f];
        }
    }
}

void SlabSystem::Poll() const {
    if (!window_.Continue()) {
        throw Cancelled();
    }
}

Array<Single> SlabSystem::Assemble(Array<Single>& Q, const Vector& extraForces) {
    const int rows = Equations() + Nw_ - 1;
    Array<Single> A(Bounds{0, rows}, Bounds{0, Nw_});
    Q = Array<Single>(Bounds{0, rows});
    std::vector<char> given(model_.Nodes.size(), 0);
    ElementArrays arrays;
    for (std::size_t e = 0; e < elements_.size(); ++e) {
        FillPlateOrBeam(model_, e, fem_, arrays);
        // A node's springs go in once, with the first element that has the node.
        Array<Single> Fk(Bounds{0, 3 * arrays.NNode});
        for (int i = 1; i <= arrays.NNode; ++i) {
            const std::size_t node = static_cast<std::size_t>(arrays.Node(i)) - 1;
            for (int f = 0; f < 3 && !given[node]; ++f) {
                Fk(3 * (i - 1) + f + 1) = springs_[3 * node + f];
            }
            given[node] = 1;
        }
        fem_.AdditionalStiffness(3, arrays.NNode, arrays.NNode, arrays.Node, Fk, arrays.Node,
                                 arrays.SK);
        fem_.GlobalStiffnessMatrix(A, arrays.SK, 3, arrays.NNode, arrays.Node);
        fem_.GlobalLoadVector(Q, arrays.BE, 3, arrays.NNode, arrays.Node);
    }
    for (std::size_t i = 0; i < model_.NodalLoads.size(); ++i) {
        Single& load = Q(static_cast<int>(i) + 1);
        load = load + model_.NodalLoads[i];
    }
    for (std::size_t n = 0; n < extraForces.size(); ++n) {
        Single& load = Q(static_cast<int>(3 * n) + 1);
        load = load + extraForces[n];
    }
    return A;
}

void SlabSystem::NoteWeakestPivot() {
    WeakestPivot = 1;
    for (int i = 0; i < Equations(); ++i) {
        const double original = diagonal_[i] + springs_[i];
        const double ratio = restraints_.Held[i] ? 1 : factor_.Pivots()[i] / original;
        if (ratio < WeakestPivot) {
            WeakestPivot = ratio;
            WeakestEquation = i + 1;
        }
    }
}

/// Loads in the free equations, what the prescribed values do to them included.
Vector SlabSystem::FreeLoads(const Vector& extraForces) const {
    Vector b;
    stiffness_.Multiply(restraints_.Value, b);
    for (std::size_t i = 0; i < b.size(); ++i) {
        const double extra = i % 3 == 0 && !extraForces.empty() ? extraForces[i / 3] : 0;
        b[i] = restraints_.Held[i] ? 0 : loads_[i] + extra - b[i];
    }
    return b;
}

Vector SlabSystem::Solve(const Vector& soilSprings, const Vector& extraForces) {
    const Stopwatch watch(Seconds);
    springs_ = nodeSprings_;
    for (std::size_t n = 0; n < soilSprings.size(); ++n) {
        springs_[3 * n] += soilSprings[n];
    }
    RequireHeld(model_, restraints_, springs_);
    Array<Single> Q;
    Array<Single> A = Assemble(Q, extraForces);
    factor_ = Eliminated(fem_, window_, Nw_, Equations(), restraints_, A, Q);
    NoteWeakestPivot();
    Vector u(static_cast<std::size_t>(Equations()));
    for (std::size_t i = 0; i < u.size(); ++i) {
        u[i] = restraints_.Held[i] ? 0 : double{Q(static_cast<int>(i) + 1).Value()};
    }
    const HeldSystem system{stiffness_, springs_, restraints_.Held};
    CorrectAndNote(
        system, factor_, FreeLoads(extraForces), u, options_, 1, [this] { Poll(); }, Digits);
    AddTo(u, 1, restraints_.Value);
    return u;
}

void SlabSystem::Respond(const Vector& forces, Vector& u) {
    const Stopwatch watch(Seconds);
    Vector b(static_cast<std::size_t>(Equations()), 0);
    for (std::size_t n = 0; n < forces.size(); ++n) {
        b[3 * n] = restraints_.Held[3 * n] ? 0 : forces[n];
    }
    u = b;
    factor_.Substitute(u);
    if (!options_.Plain) {
        const HeldSystem system{stiffness_, springs_, restraints_.Held};
        Digits.Steps += CorrectDigits(system, factor_, b, u, step_digits, [this] { Poll(); }).Steps;
    }
}

void SlabSystem::Balance(Vector& u, Vector& soilForces) {
    if (options_.Plain) {
        return;
    }
    const Stopwatch watch(Seconds);
    Vector b(soilForces.size());
    for (std::size_t n = 0; n < b.size(); ++n) {
        b[n] = (springs_[3 * n] - nodeSprings_[3 * n]) * u[3 * n] - soilForces[n];
    }
    b = FreeLoads(b);
    Vector moved = u;
    AddTo(moved, -1, restraints_.Value);
    const HeldSystem system{stiffness_, springs_, restraints_.Held};
    const Correction report =
        CorrectDigits(system, factor_, b, moved, full_digits, [this] { Poll(); });
    AddTo(moved, 1, restraints_.Value);
    for (std::size_t n = 0; n < soilForces.size(); ++n) {
        soilForces[n] += (springs_[3 * n] - nodeSprings_[3 * n]) * (moved[3 * n] - u[3 * n]);
    }
    u = moved;
    Digits.Steps += report.Steps;
    Digits.ResidualAfter = report.ResidualAfter;
}

Vector SlabSystem::PlateForces(const Vector& u) const {
    Vector forces;
    stiffness_.Multiply(u, forces);
    for (std::size_t i = 0; i < forces.size(); ++i) {
        forces[i] += nodeSprings_[i] * u[i];
    }
    return forces;
}

} // namespace slab

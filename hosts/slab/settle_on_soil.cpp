// Slab on a half-space or on layers. With springs D under the nodes, contact forces X and soil
// settlements s = C X, a state in equilibrium K w + X = Q leaves the mismatch r = w - s. A cycle
// lets the springs carry it:
//     (K + D) y = -D r,   x = D (y + r),   so that K y + x = 0,
// and takes w + a y, X + a x. The step lengths and the directions come from generalised conjugate
// residuals, which make the mismatch smallest over all cycles so far: plain steps a = 1 converge
// slowly, or not at all, where slab and soil are of like stiffness. A spring is the force on a
// node's area by the settlement that it alone causes there. Springs as soft as the whole loaded
// soil, contact force by settlement, leave the short waves of the mismatch to the cycles and take
// up to four times as many. Sources: Eisenstat, Elman and Schultz (1983), SIAM J. Numer. Anal. 20,
// 345-357 (acceleration); Hintermueller, Ito and Kunisch (2002), SIAM J. Optim. 13, 865-888
// (tension cut-off).

#include "hosts/slab/interaction.h"
#include "hosts/slab/library_types.h"
#include "torlib/numeric/math_class.h"

#include <algorithm>
#include <cmath>

namespace slab {
namespace {

constexpr double fine = 1e-4; // mismatch aimed at, of the largest settlement

struct Direction {
    Vector y, x, q; // displacements, forces, change of the mismatch, which has length 1
};

class SoilIteration {
  public:
    SoilIteration(const Model& model, const std::vector<ContactArea>& areas,
                  const SoilFlexibility& soil, SlabSystem& system, RunWindow& window)
        : model_(model),
          soil_(soil),
          system_(system),
          window_(window),
          count_(areas.size()),
          revisable_(model.Soil.TensionCutOff) {
        capacity_.assign(count_, 0);
        const SymmetryLines lines(model);
        for (std::size_t n = 0; n < count_; ++n) {
            const int node = static_cast<int>(n) + 1;
            const bool possible = areas[n].Area > 0 && !lines.Silent(model.Nodes[n]);
            possible_.push_back(possible);
            springs_.push_back(possible ? 1 / soil.Coefficient(node, node) : 0);
        }
        contact_ = possible_;
        for (const Pile& pile : model.Piling.Piles) {
            const auto n = static_cast<std::size_t>(pile.Node - 1);
            const double capacity = pile.Capacity / lines.PartsAt(model.Nodes[n]);
            capacity_[n] = capacity > 0 ? capacity : HUGE_VAL;
            revisable_ = revisable_ || capacity > 0;
        }
    }

    ContactState Run();

  private:
    void Start();
    void Step();
    bool Settled();
    bool ReviseContact();
    double Mismatch() const;
    double LargestSettlement() const;

    const Model& model_;
    const SoilFlexibility& soil_;
    SlabSystem& system_;
    RunWindow& window_;
    torlib::Math_Class math_;
    std::size_t count_;
    std::vector<char> possible_; // nodes that can be in contact
    std::vector<char> contact_;  // nodes that are
    Vector capacity_;            // kN, of the pile on a node; 0 without a pile
    bool revisable_;             // the set of nodes in contact can change
    Vector springs_;             // kN/m, of the possible nodes
    Vector mismatch_;            // slab less soil settlement, 0 where there is no contact
    std::vector<Direction> directions_;
    Array<Single> old_; // settlements of the cycle before
    ContactState state_;
};

/// A new elimination with the springs of the nodes in contact, starting from the forces so far.
void SoilIteration::Start() {
    Vector& force = state_.Force;
    const Vector settled = soil_.Settlements(force);
    Vector active(count_);
    Vector extra(count_);
    for (std::size_t n = 0; n < count_; ++n) {
        active[n] = contact_[n] ? springs_[n] : 0;
        extra[n] = active[n] * settled[n] - force[n];
    }
    state_.Displacement = system_.Solve(active, extra);
    for (std::size_t n = 0; n < count_; ++n) {
        force[n] += active[n] * (state_.Displacement[3 * n] - settled[n]);
    }
    const Vector now = soil_.Settlements(force);
    mismatch_.assign(count_, 0);
    for (std::size_t n = 0; n < count_; ++n) {
        mismatch_[n] = contact_[n] ? state_.Displacement[3 * n] - now[n] : 0;
    }
    directions_.clear();
}

void SoilIteration::Step() {
    Direction d{{}, Vector(count_), Vector(count_)};
    Vector force(count_);
    for (std::size_t n = 0; n < count_; ++n) {
        force[n] = contact_[n] ? -springs_[n] * mismatch_[n] : 0;
    }
    system_.Respond(force, d.y);
    for (std::size_t n = 0; n < count_; ++n) {
        d.x[n] = contact_[n] ? springs_[n] * (d.y[3 * n] + mismatch_[n]) : 0;
    }
    const Vector settlement = soil_.Settlements(d.x);
    for (std::size_t n = 0; n < count_; ++n) {
        d.q[n] = contact_[n] ? settlement[n] - d.y[3 * n] : 0;
    }
    for (const Direction& known : directions_) {
        const double share = Dot(d.q, known.q);
        AddTo(d.q, -share, known.q);
        AddTo(d.x, -share, known.x);
        AddTo(d.y, -share, known.y);
    }
    const double length = Norm(d.q);
    if (length == 0) {
        return;
    }
    Scale(d.q, 1 / length);
    Scale(d.x, 1 / length);
    Scale(d.y, 1 / length);
    const double step = Dot(mismatch_, d.q);
    AddTo(mismatch_, -step, d.q);
    AddTo(state_.Force, step, d.x);
    AddTo(state_.Displacement, step, d.y);
    directions_.push_back(std::move(d));
}

double SoilIteration::Mismatch() const {
    double largest = 0;
    for (const double value : mismatch_) {
        largest = std::max(largest, std::fabs(value));
    }
    return largest;
}

double SoilIteration::LargestSettlement() const {
    double largest = 0;
    for (std::size_t n = 0; n < count_; ++n) {
        largest = std::max(largest, std::fabs(state_.Displacement[3 * n]));
    }
    return largest;
}

/// Notes the cycle; true when change and mismatch are as small as wished.
bool SoilIteration::Settled() {
    Array<Single> now(Bounds{0, static_cast<int>(count_)});
    for (std::size_t n = 0; n < count_; ++n) {
        now(static_cast<int>(n) + 1) = state_.Displacement[3 * n];
    }
    const double wish = std::min(model_.Stop.Accuracy, fine * LargestSettlement());
    Single change;
    const bool steady = math_.CheckConvergence(static_cast<int>(count_), now, old_, wish, change);
    const double mismatch = Mismatch();
    state_.Cycles.push_back(
        {static_cast<int>(state_.Cycles.size()) + 1, double{change.Value()}, mismatch});
    state_.Converged =
        double{change.Value()} <= model_.Stop.Accuracy && mismatch <= model_.Stop.Accuracy;
    return steady && mismatch <= wish;
}

/// Releases nodes that pull and takes those back where the slab would sink into the soil; lets
/// piles slip at their capacity and stops those that would rise to the slab. True when the set of
/// nodes in contact has changed.
bool SoilIteration::ReviseContact() {
    const Vector settlement = soil_.Settlements(state_.Force);
    double total = 0;
    for (const double force : state_.Force) {
        total += std::fabs(force);
    }
    const double smallForce = 1e-4 * total / static_cast<double>(count_);
    const double smallGap = 1e-4 * LargestSettlement();
    bool changed = false;
    for (std::size_t n = 0; n < count_; ++n) {
        const double gap = settlement[n] - state_.Displacement[3 * n];
        const bool piled = capacity_[n] > 0;
        const bool canLift = model_.Soil.TensionCutOff && !piled;
        const bool leaves = contact_[n] && (piled ? state_.Force[n] > capacity_[n] + smallForce
                                                  : canLift && state_.Force[n] < -smallForce);
        const bool returns = possible_[n] && !contact_[n] && (piled ? gap : -gap) > smallGap;
        if (leaves || returns) {
            contact_[n] = returns;
            state_.Force[n] = piled ? capacity_[n] : 0;
            changed = true;
        }
    }
    return changed;
}

ContactState SoilIteration::Run() {
    state_.Force.assign(count_, 0);
    old_ = Array<Single>(Bounds{0, static_cast<int>(count_)});
    const int most = std::max(model_.Stop.MaxCycles, 1);
    Start();
    for (int cycle = 1;; ++cycle) {
        const bool settled = Settled();
        // While contact and slip are still in doubt, 1 % of the settlement decides about it.
        const bool near = revisable_ && Mismatch() < 0.01 * LargestSettlement();
        const bool revised = (settled || near) && revisable_ && ReviseContact();
        state_.Converged = state_.Converged && !revised;
        if ((settled && !revised) || cycle >= most) {
            break;
        }
        if (!window_.Continue()) {
            throw Cancelled();
        }
        if (revised) {
            Start();
        } else {
            Step();
        }
    }
    system_.Balance(state_.Displacement, state_.Force);
    state_.SoilSettlement = soil_.Settlements(state_.Force);
    for (std::size_t n = 0; n < count_; ++n) {
        state_.Released += possible_[n] && !contact_[n] && capacity_[n] == 0;
    }
    return std::move(state_);
}

} // namespace

ContactState SettleOnSoil(const Model& model, const std::vector<ContactArea>& areas,
                          const SoilFlexibility& soil, SlabSystem& system, RunWindow& window) {
    return SoilIteration(model, areas, soil, system, window).Run();
}

} // namespace slab

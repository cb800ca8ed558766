// Slab on Winkler springs: one solution, or with tension cut-off one for each set of nodes in
// contact, until the set no longer changes.

#include "hosts/slab/interaction.h"
#include "hosts/slab/plate_elements.h"

#include <algorithm>
#include <cmath>

namespace slab {

namespace {

/// Takes the springs in tension out and puts those under a settled slab back; returns the largest
/// displacement against the sense of the set, 0 when the set stays.
double Revise(const Vector& springs, const Vector& u, std::vector<char>& contact) {
    double largest = 0;
    for (std::size_t n = 0; n < springs.size(); ++n) {
        const bool settled = u[3 * n] >= 0;
        if (springs[n] > 0 && settled != (contact[n] != 0)) {
            contact[n] = settled;
            largest = std::max(largest, std::fabs(u[3 * n]));
        }
    }
    return largest;
}

double LargestChange(const Vector& a, const Vector& b) {
    double largest = 0;
    for (std::size_t i = 0; i < a.size(); i += 3) {
        largest = std::max(largest, std::fabs(a[i] - (b.empty() ? 0 : b[i])));
    }
    return largest;
}

} // namespace

Vector WinklerSprings(const Model& model) {
    Vector springs(model.Nodes.size());
    for (std::size_t e = 0; e < model.Elements.size() && e < model.Soil.Subgrade.size(); ++e) {
        const Element& element = model.Elements[e];
        const double share = ElementArea(model, element) / element.Corners;
        for (int i = 0; i < element.Corners; ++i) {
            springs[element.Node[i] - 1] += model.Soil.Subgrade[e] * share;
        }
    }
    for (const Beam& beam : model.Beams) {
        const Point& a = model.Nodes[static_cast<std::size_t>(beam.Node[0] - 1)];
        const Point& b = model.Nodes[static_cast<std::size_t>(beam.Node[1] - 1)];
        const double half = std::hypot(b.x - a.x, b.y - a.y) / 2;
        for (const int node : beam.Node) {
            springs[node - 1] += beam.Subgrade * model.Sections[beam.Section].ContactWidth * half;
        }
    }
    return springs;
}

ContactState SettleOnSprings(const Model& model, SlabSystem& system, RunWindow& window) {
    ContactState state;
    const bool soil = model.Soil.Kind == SoilKind::Winkler;
    const Vector springs = soil ? WinklerSprings(model) : Vector(model.Nodes.size());
    std::vector<char> contact(springs.size(), 1);
    Vector active = springs;
    const int most = soil && model.Soil.TensionCutOff ? std::max(model.Stop.MaxCycles, 1) : 1;
    for (int number = 1; number <= most; ++number) {
        const Vector before = state.Displacement;
        state.Displacement = system.Solve(active, {});
        for (std::size_t n = 0; n < active.size(); ++n) {
            state.Force.resize(active.size());
            state.Force[n] = active[n] * state.Displacement[3 * n];
        }
        if (most == 1) {
            return state;
        }
        const double against = Revise(springs, state.Displacement, contact);
        state.Cycles.push_back({number, LargestChange(state.Displacement, before), against});
        state.Converged = against == 0;
        if (state.Converged || !window.Continue()) {
            break;
        }
        for (std::size_t n = 0; n < active.size(); ++n) {
            active[n] = contact[n] ? springs[n] : 0;
        }
    }
    for (std::size_t n = 0; n < springs.size(); ++n) {
        state.Released += springs[n] > 0 && active[n] == 0;
    }
    return state;
}

} // namespace slab

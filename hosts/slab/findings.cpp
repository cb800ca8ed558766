// Reactions, balance of forces, and warnings.

#include "hosts/slab/findings.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <set>

namespace slab {

namespace {

/// printf for one to three numbers.
template <class... Numbers>
std::string Text(const char* format, Numbers... numbers) {
    char buffer[400];
    std::snprintf(buffer, sizeof buffer, format, numbers...);
    return buffer;
}

/// Forces that held equations exert on the slab: K u + X - Q.
Vector HeldForces(const SlabSystem& system, const ContactState& state) {
    Vector forces = system.PlateForces(state.Displacement);
    AddTo(forces, -1, system.Loads());
    for (std::size_t n = 0; n < state.Force.size(); ++n) {
        forces[3 * n] += state.Force[n];
    }
    return forces;
}

void WarnOfTension(const Model& model, const Results& results, std::vector<std::string>& warnings) {
    double lowest = 0;
    double highest = 0;
    int count = 0;
    std::size_t place = 0;
    for (std::size_t n = 0; n < results.Nodes.size(); ++n) {
        const double pressure = results.Nodes[n].Pressure;
        highest = std::max(highest, std::fabs(pressure));
        count += pressure < 0;
        if (pressure < lowest) {
            lowest = pressure;
            place = n;
        }
    }
    if (!model.Soil.TensionCutOff && lowest < -1e-3 * highest) {
        warnings.push_back(
            Text("the soil pulls at %d nodes, most with %.3g kN/m2 at ", count, -lowest) +
            NameOfNode(model, static_cast<int>(place) + 1) +
            "; where it cannot, set the tension cut-off, and the slab lifts off");
    }
}

void WarnOfIteration(const Model& model, const ContactState& state, bool converged,
                     std::vector<std::string>& warnings) {
    if (converged || state.Cycles.empty()) {
        return;
    }
    const Cycle& last = state.Cycles.back();
    warnings.push_back(
        Text("the iteration between slab and soil has not converged: after %d cycles settlements "
             "change by %.3g mm and differ by %.3g mm",
             last.Number, last.Change * 1000, last.Mismatch * 1000) +
        Text(", allowed %.3g mm; allow more cycles or a larger difference",
             model.Stop.Accuracy * 1000));
}

void WarnOfDigits(const AnalysisOptions& options, const SlabSystem& system, const Model& model,
                  const Results& results, std::vector<std::string>& warnings) {
    const double residual = 100 * results.Digits.ResidualAfter;
    if (residual <= 1) {
        return;
    }
    if (options.Plain) {
        warnings.push_back(
            Text("rounding to 32 bits leaves %.3g %% of the loads unbalanced: the mesh "
                 "is too fine for a plain solution; let the digits be corrected, or "
                 "take larger elements",
                 residual));
        return;
    }
    std::string text =
        Text("%.3g %% of the loads stay unbalanced after the correction of digits", residual);
    if (system.WeakestEquation > 0) {
        text += Text("; weakest (pivot %.2g of its stiffness) is the ", system.WeakestPivot) +
                NameOfFreedom((system.WeakestEquation - 1) % 3 + 1) + " of " +
                NameOfNode(model, (system.WeakestEquation - 1) / 3 + 1);
    }
    warnings.push_back(text +
                       ". Check supports, thickness and springs there, or take larger elements");
}

/// Without loads the forces that prescribed values cause are the measure, and their moments over
/// the size of the model.
double SizeOfHolding(const Model& model, const Vector& held) {
    double extent = 0;
    for (const Point& p : model.Nodes) {
        extent = std::max(extent, std::hypot(p.x - model.Nodes[0].x, p.y - model.Nodes[0].y));
    }
    double size = 0;
    for (std::size_t i = 0; i < held.size(); ++i) {
        size += std::fabs(held[i]) / (i % 3 == 0 ? 1 : extent);
    }
    return size;
}

} // namespace

void FillReactions(const Model& model, const SlabSystem& system, const ContactState& state,
                   Results& results) {
    const Vector held = HeldForces(system, state);
    const RestraintList& restraints = system.Restrained();
    std::set<int> supported;
    for (const Restraint& restraint : model.Restraints) {
        supported.insert(restraint.Node);
    }
    for (const int node : supported) {
        Reaction reaction{node, {}, false};
        for (std::size_t f = 0; f < 3; ++f) {
            const std::size_t equation = 3 * static_cast<std::size_t>(node - 1) + f;
            reaction.Force[f] = restraints.Held[equation] ? held[equation] : 0;
        }
        results.Reactions.push_back(reaction);
    }
    slab::Balance& balance = results.Balance;
    for (const Pile& pile : model.Piling.Piles) {
        balance.Piles += state.Force[static_cast<std::size_t>(pile.Node - 1)];
    }
    double sizes = 0;
    for (std::size_t n = 0; n < model.Nodes.size(); ++n) {
        const double load = system.Loads()[3 * n];
        balance.Loads += load;
        sizes += std::fabs(load);
        balance.Soil += results.Nodes[n].ContactForce;
        balance.Supports -= restraints.Held[3 * n] ? held[3 * n] : 0;
        Reaction spring{static_cast<int>(n) + 1, {}, true};
        bool any = false;
        for (std::size_t f = 0; f < 3; ++f) {
            spring.Force[f] = -system.NodeSprings()[3 * n + f] * state.Displacement[3 * n + f];
            any = any || system.NodeSprings()[3 * n + f] != 0;
        }
        balance.Springs -= spring.Force[0];
        if (any) {
            results.Reactions.push_back(spring);
        }
    }
    sizes = sizes > 0 ? sizes : SizeOfHolding(model, held);
    const double error =
        balance.Loads - balance.Soil - balance.Piles - balance.Supports - balance.Springs;
    balance.RelativeError = sizes > 0 ? std::fabs(error) / sizes : 0;
}

void FillWarnings(const Model& model, const AnalysisOptions& options, const SlabSystem& system,
                  const ContactState& state, Results& results) {
    if (results.Balance.RelativeError > 0.01) {
        results.Warnings.push_back(
            Text("loads and reactions differ by %.3g %% of the loads: do not use this result",
                 100 * results.Balance.RelativeError) +
            (options.Plain ? "; let the digits be corrected" : "; take larger elements"));
    }
    WarnOfDigits(options, system, model, results, results.Warnings);
    WarnOfIteration(model, state, results.Converged, results.Warnings);
    WarnOfTension(model, results, results.Warnings);
    if (state.Released > 0) {
        results.Warnings.push_back(Text("the slab has lifted off the soil at %d of %d nodes",
                                        state.Released, static_cast<int>(model.Nodes.size())));
    }
}

} // namespace slab

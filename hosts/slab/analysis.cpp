// The analysis of a slab model, from assembly to results.

#include "hosts/slab/analysis.h"

#include "hosts/slab/beams/beam_elements.h"
#include "hosts/slab/findings.h"
#include "hosts/slab/interaction.h"
#include "hosts/slab/moments.h"
#include "hosts/slab/piles/piled_soil.h"

#include <chrono>
#include <cmath>

namespace slab {

namespace {

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

bool HasFlexibility(const Soil& soil) {
    return soil.Kind == SoilKind::HalfSpace || soil.Kind == SoilKind::Layered;
}

ContactState Settle(const Model& model, const std::vector<ContactArea>& areas, SlabSystem& system,
                    RunWindow& window, Results& results) {
    if (!HasFlexibility(model.Soil)) {
        return SettleOnSprings(model, system, window);
    }
    const auto start = Clock::now();
    if (!model.Piling.Piles.empty()) {
        const PiledSoil soil(model, areas, window);
        results.SoilSeconds = SecondsSince(start);
        ContactState state = SettleOnSoil(model, soil.Areas(), soil.Flexibility(), system, window);
        results.Piles = soil.PileResults(state.Force);
        return state;
    }
    const SoilFlexibility soil(model, areas, window);
    results.SoilSeconds = SecondsSince(start);
    return SettleOnSoil(model, areas, soil, system, window);
}

/// Area in contact with a soil: all of it, or of the elements with a subgrade modulus.
Vector SoilAreas(const Model& model, const std::vector<ContactArea>& areas) {
    Vector result(areas.size());
    if (model.Soil.Kind == SoilKind::Winkler) {
        Model sprung = model;
        for (double& modulus : sprung.Soil.Subgrade) {
            modulus = modulus > 0 ? 1 : 0;
        }
        for (Beam& beam : sprung.Beams) {
            beam.Subgrade = beam.Subgrade > 0 ? 1 : 0;
        }
        return WinklerSprings(sprung);
    }
    for (std::size_t n = 0; n < areas.size(); ++n) {
        result[n] = areas[n].Area;
    }
    return result;
}

void RequireFinite(const Model& model, const Vector& u) {
    for (std::size_t i = 0; i < u.size(); ++i) {
        if (!std::isfinite(u[i]) || std::fabs(u[i]) > 1e9) {
            throw AnalysisFailure("the " + std::string(NameOfFreedom(static_cast<int>(i % 3) + 1)) +
                                  " of " + NameOfNode(model, static_cast<int>(i / 3) + 1) +
                                  " grows without bound: the slab is hardly held there. Check "
                                  "supports, springs and soil.");
        }
    }
}

void FillNodes(const Model& model, const std::vector<ContactArea>& areas, const ContactState& state,
               Results& results) {
    const Vector soilAreas = SoilAreas(model, areas);
    results.Nodes.resize(model.Nodes.size());
    for (std::size_t n = 0; n < model.Nodes.size(); ++n) {
        NodeResult& node = results.Nodes[n];
        node.Settlement = state.Displacement[3 * n];
        node.SlopeX = state.Displacement[3 * n + 1];
        node.SlopeY = state.Displacement[3 * n + 2];
        node.ContactForce = state.Force[n];
        node.Pressure = soilAreas[n] > 0 ? state.Force[n] / soilAreas[n] : 0;
        node.SoilSettlement = state.SoilSettlement.empty() ? 0 : state.SoilSettlement[n];
    }
    if (!model.Elements.empty()) {
        FillMoments(model, state.Displacement, results.Nodes);
    }
    results.Beams = BeamForces(model, state.Displacement);
    // What a pile carries is no pressure on the slab; the piles have their own results.
    for (const PileResult& pile : results.Piles) {
        NodeResult& node = results.Nodes[static_cast<std::size_t>(pile.Node - 1)];
        node.ContactForce = 0;
        node.Pressure = 0;
    }
}

} // namespace

Results Analyse(const Model& model, const AnalysisOptions& options, RunWindow& window) {
    const auto start = Clock::now();
    if (model.Nodes.empty() || (model.Elements.empty() && model.Beams.empty())) {
        throw AnalysisFailure("the model has no elements");
    }
    Results results;
    SlabSystem system(model, options, window);
    const std::vector<ContactArea> areas = ContactAreas(model);
    const ContactState state = Settle(model, areas, system, window, results);
    RequireFinite(model, state.Displacement);
    FillNodes(model, areas, state, results);
    results.Cycles = state.Cycles;
    results.Converged = state.Converged;
    results.Digits = system.Digits;
    results.Equations = system.Equations();
    results.HalfBandWidth = system.HalfBandWidth();
    FillReactions(model, system, state, results);
    FillWarnings(model, options, system, state, results);
    results.SolverSeconds = system.Seconds;
    results.TotalSeconds = SecondsSince(start);
    return results;
}

} // namespace slab

#pragma once
// The iteration between slab and soil. The soil is represented by springs under the nodes; what
// they leave of difference between slab and soil settlement is corrected cycle by cycle.

#include "hosts/slab/contact_area.h"
#include "hosts/slab/slab_system.h"
#include "hosts/slab/soil_flexibility.h"

namespace slab {

/// Slab and soil in equilibrium with one another.
struct ContactState {
    Vector Displacement;   ///< 3 a node
    Vector Force;          ///< on the soil, kN at each node
    Vector SoilSettlement; ///< m at each node; empty without a soil settlement of its own
    std::vector<Cycle> Cycles;
    bool Converged = true;
    int Released = 0; ///< nodes where the slab has lifted off
};

/// Springs of the Winkler soil at the nodes, kN/m: modulus times contact area, lumped.
Vector WinklerSprings(const Model& model);

/// Slab on springs alone, with or without tension cut-off.
ContactState SettleOnSprings(const Model& model, SlabSystem& system, RunWindow& window);

/// Slab on a half-space or layers.
ContactState SettleOnSoil(const Model& model, const std::vector<ContactArea>& areas,
                          const SoilFlexibility& soil, SlabSystem& system, RunWindow& window);

} // namespace slab

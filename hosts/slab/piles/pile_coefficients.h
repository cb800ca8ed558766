#pragma once
// Settlement at a node of a piled raft by a unit force on another, mirror images included.

#include "hosts/slab/piles/pile_influence.h"
#include "hosts/slab/piles/pile_nodes.h"
#include "hosts/slab/restraints.h"
#include "hosts/slab/soil_flexibility.h"

#include <array>
#include <map>

namespace slab {

class PileCoefficients {
  public:
    /// `surface` the flexibility of the soil surface without piles.
    PileCoefficients(const Model& model, const SoilFlexibility& surface);

    /// m/kN; the force is the one on the modelled part of the node.
    double At(const PiledRaftNode& node, const PiledRaftNode& loaded);

  private:
    double Coefficient(const PiledRaftNode& node, const Point& place, const PiledRaftNode& loaded);

    const SoilFlexibility& surface_;
    SymmetryLines lines_;
    PileInfluence influence_;
    /// Values by load and spot, which repeat between piles on a regular plan.
    std::map<std::array<double, 6>, double> known_;
};

} // namespace slab

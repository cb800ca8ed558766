#pragma once
// Soil with piles in it, as a slab on top meets it: settlement at every node of the slab by a unit
// force on every node, on the pile's head where there is one and on the contact area elsewhere.
//
// Forces f on pile shafts, pile bases and pieces of raft settle these by s = K f. In a pile all of
// them follow its head, less what the pile is compressed, B f: (K + B) f = E w with the settlements
// w of the slab's nodes. The stiffness (K + B)^-1 is composed for each node of the slab, and its
// inverse is the flexibility with which the slab settles as on soil alone.
// Sources: Poulos and Davis (1968), Geotechnique 18, 351-371 (shaft in pieces, settlement at their
// middles); Poulos and Davis (1980), Pile foundation analysis and design (groups, piled rafts).

#include "hosts/slab/piles/pile_nodes.h"
#include "hosts/slab/results.h"
#include "hosts/slab/soil_flexibility.h"

#include <memory>

namespace slab {

class PileCoefficients;

class PiledSoil {
  public:
    /// The model must have piles, and a half-space or one layer. Throws Cancelled or
    /// AnalysisFailure.
    PiledSoil(const Model& model, const std::vector<ContactArea>& areas, RunWindow& window);

    const SoilFlexibility& Flexibility() const { return *flexibility_; }
    /// The contact areas, without those of the nodes that carry nothing.
    const std::vector<ContactArea>& Areas() const { return areas_; }
    /// What each pile carries, in the order of the model, under forces on the slab's nodes that
    /// settle the soil by Flexibility().
    std::vector<PileResult> PileResults(const Vector& forces) const;

  private:
    std::vector<PiledRaftNode> TakeNodes();
    void Build(const std::vector<PiledRaftNode>& bare, PileCoefficients& coefficients,
               RunWindow& window);
    const Pile& PileAt(int node) const;
    double Compression(const PiledRaftNode& a, const PiledRaftNode& b) const;
    void Compose(const Vector& stiffness);
    void FillFlexibility(const std::vector<PiledRaftNode>& bare, PileCoefficients& coefficients);

    const Model& model_;
    std::vector<ContactArea> areas_;
    std::vector<PiledRaftNode> nodes_; // those that carry
    std::vector<int> raftNodes_;       // of each group, ascending
    std::vector<std::size_t> group_;   // of each node
    Vector pileForces_; // in the nodes of piles, one after another, by unit settlements of groups
    Vector composed_;   // flexibility of the groups
    std::unique_ptr<SoilFlexibility> flexibility_;
};

} // namespace slab

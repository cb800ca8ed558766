#pragma once
// Piled rafts: the nodes into which piles and raft are divided, the weights of nodes on symmetry
// lines, and the condensation of a flexibility matrix to one coefficient for each raft node.
//
//     PileGeometry_Class geometry;
//     geometry.GenerationOfPiledRaftSystems(Nk, XGriD, YGriD, Area, Np, ..., NkPR, NK_PR, Dz);
//     ...   // flexibility kij of the nodes 1..NkPR
//     geometry.ComposedCoefficients(Nk, kij, Gk, NK_PR);
//
// Files in reading order: pile_nodes.cpp (nodes of piles and piled rafts), pile_numbering.cpp
// (node numbers and largest values), pile_contribution.cpp (contribution factors and composed
// coefficients), pile_geometry_class.cpp (instance, member table).
//
// Shared by all members:
// - Any one unit of length; depths downward from the pile heads. Arrays are used from index 1; an
//   output array comes back 0..n, index 0 being zero, unless said otherwise.
// - Node list: `XGN`, `YGN` plan position; `ZGN` depth, the middle of a shaft segment; `LG1`, `LG2`
//   upper and lower end of the loaded length, both the depth itself for a base and 0 for a raft
//   node; `ro` radius of the pile, or of the circle with the raft node's area; `NodePiledRaft` 1
//   shaft segment, 2 base, 3 raft node; `Nak_Raft` raft node at the head of the node's pile, 0 for
//   a raft node. The nodes of a pile follow one another, segments from the top, then the base.
// - Errors: 9 for arrays shorter than their counts, 6 for a count beyond 32767.

#include "torlib/frame/arithmetic.h"
#include "torlib/frame/enumerations.h"
#include "torlib/frame/optional_ref.h"

namespace torlib {

struct ClassInfo;

class TORLIB_API PileGeometry_Class {
  public:
    static PileGeometry_Class& DefaultInstance();
    static const ClassInfo& Info();

    // ---- Nodes ----

    /// Generates the nodes of the piles alone, pile after pile.
    ///
    /// `Np` number of piles. `Lp`, `Dp(1..Np)` length and diameter, `XPl`, `YPl(1..Np)` position.
    /// `NK_P`, `NE_P(0..Np)` [out] number of nodes and of shaft segments. `ro` .. `NodePiledRaft`
    /// and `Nak_Raft(0..NkPG)` [out] node list. `Dz` wanted length of a segment: a pile has Lp/Dz
    /// of them, rounded, halves to the even neighbour. `Nak_Pile(1..Np)` raft node under the pile.
    /// `NkPG` [out] number of nodes.
    /// Errors: 11 for Dz = 0 or a pile of no segment (6 when its length is 0).
    /// Deviations: the segments' length and every depth are kept in 32 bits, the depths as a
    /// running sum.
    void GenerationOfPileGeometry(Integer Np, const Array<Single>& Lp, const Array<Single>& Dp,
                                  const Array<Single>& XPl, const Array<Single>& YPl,
                                  Array<Integer>& NK_P, Array<Integer>& NE_P, Array<Single>& ro,
                                  Array<Single>& XGN, Array<Single>& YGN, Array<Single>& ZGN,
                                  Array<Single>& LG1, Array<Single>& LG2,
                                  Array<Integer>& NodePiledRaft, Single Dz,
                                  const Array<Integer>& Nak_Pile, Array<Integer>& Nak_Raft,
                                  OptionalRef<Integer> NkPG = {}) const;

    /// Generates the nodes of raft and piles, grouped by raft node.
    ///
    /// `Nk` number of raft nodes, `XGriD`, `YGriD`, `Area(1..Nk)` their positions and tributary
    /// areas; the piles and `Dz` as for GenerationOfPileGeometry. A pile stands on the first raft
    /// node less than 0.01 away in x and in y. `Nak_Pile(0..Np)` [out] that node. `NkPR` [out]
    /// number of nodes. `NK_PR(0..Nk)` [out] number of nodes in the group of each raft node: those
    /// of the pile on it, which replace it, or the raft node alone. The other outputs as for
    /// GenerationOfPileGeometry, the node list 0..NkPR.
    /// Errors: 5 for a pile on no raft node, or two piles on one, with nothing written; 5 for a
    /// negative area; 11 and 6 as for GenerationOfPileGeometry.
    void GenerationOfPiledRaftSystems(
        Integer Nk, const Array<Single>& XGriD, const Array<Single>& YGriD,
        const Array<Single>& Area, Integer Np, const Array<Single>& XPl, const Array<Single>& YPl,
        const Array<Single>& Lp, const Array<Single>& Dp, Array<Single>& ro, Array<Single>& XGN,
        Array<Single>& YGN, Array<Single>& ZGN, Array<Single>& LG1, Array<Single>& LG2,
        Array<Integer>& NodePiledRaft, Array<Integer>& Nak_Pile, Array<Integer>& Nak_Raft,
        Array<Integer>& NK_P, Array<Integer>& NE_P, Integer& NkPR, Array<Integer>& NK_PR,
        Single Dz) const;

    /// Marks the raft nodes that carry a pile of the single-pile method (DIN 4014).
    ///
    /// Raft and piles as for GenerationOfPiledRaftSystems, but of several raft nodes within reach a
    /// pile takes the last. `NodePiledRaft_r(1..Nk)` [in/out] 4 for a node with a pile; for the
    /// others 0 with `MethodType` 1, 3 with 2, else as before. `Nak_Pile(1..Np)` [in/out] raft node
    /// under the pile, as before for a pile within reach of none. No array is re-dimensioned.
    void GenerationOfPiledRaftSystemsDIN4014(Integer Nk, const Array<Single>& XGriD,
                                             const Array<Single>& YGriD, Integer Np,
                                             const Array<Single>& XPl, const Array<Single>& YPl,
                                             Array<Integer>& NodePiledRaft_r,
                                             Array<Integer>& Nak_Pile, Integer MethodType) const;

    // ---- Numbers ----

    /// The largest of `NN(1..N)`, at least 0.
    Integer MaxDim(Integer N, const Array<Integer>& NN) const;

    /// The largest coordinates of `XG`, `YG(1..N)`; `XMax`, `YMax` [out].
    void MaxCoordinates(Integer N, const Array<Single>& XG, const Array<Single>& YG, Single& XMax,
                        Single& YMax) const;

    /// Numbers the piles by node: `NakPP(0..Nk)` [out] the highest pile j with `Nak_Pile(j)` = n,
    /// j = 1..`Np`, or 0.
    void SetPileNo(const Array<Integer>& Nak_Pile, Array<Integer>& NakPP, Integer Nk,
                   Integer Np) const;

    /// Copies the raft node numbers: `NakRF(0..NkPG)` [out].
    void SetRaftNodeNo(const Array<Integer>& Nak_Raft, Array<Integer>& NakRF, Integer NkPG) const;

    /// Numbers every node as itself: `NakRF(0..Nk)` [out].
    void ResolveNodeNumber(Array<Integer>& NakRF, Integer Nk) const;

    // ---- Contribution factors and composed coefficients ----

    /// Sets every factor to 1: `Cf(0..NC)` [out].
    void ResolveContributedFactor(Integer NC, Array<Single>& Cf) const;

    /// Contribution factors of the points of a half or quarter model.
    ///
    /// `Isym` symmetry: X cases mirror about the line y = `YMax`, Y cases about x = `XMax`. `NC`
    /// number of points, `Xc`, `Yc(1..NC)` their positions. `Cf(0..NC)` [out] 2 on a symmetry line,
    /// 4 where two of them meet, 1 elsewhere and in all antisymmetric cases: the point's value in
    /// the model, times Cf, is that of the whole point; in a quarter model a point has 4/Cf mirror
    /// images, itself among them, in a half model 2/Cf. Errors: 9 for either list shorter than NC,
    /// whatever the symmetry.
    /// Coordinates are equal when their texts with two decimals are: each 32-bit value is taken
    /// exactly, halves are rounded away from zero, and what rounds to zero has no sign.
    void ContributedFactor(SymmetricCase Isym, Integer NC, Array<Single>& Cf, Single XMax,
                           Single YMax, const Array<Single>& Xc, const Array<Single>& Yc) const;

    /// Spreads the factors of piles over their nodes.
    ///
    /// `Npf` number of piles, `XPl`, `YPl(1..Npf)` their positions. `NkPG` number of nodes, `XGN`,
    /// `YGN(1..NkPG)` their positions. `Cf` [in/out] on entry the piles' factors 1..Npf, on return
    /// the nodes' (0..NkPG): that of the first pile at exactly the node's position, else 1.
    void GlobalContributedFactor(Integer Npf, Integer NkPG, const Array<Single>& XGN,
                                 const Array<Single>& YGN, const Array<Single>& XPl,
                                 const Array<Single>& YPl, Array<Single>& Cf) const;

    /// Numbers every node as itself: `NakPP(0..NkPG)` [out].
    void ResolveSymmetryNode(Integer NkPG, Array<Integer>& NakPP) const;

    /// Condenses a matrix over the nodes to one over the raft nodes, group by group.
    ///
    /// `Nk` number of raft nodes. `kij` matrix over all nodes. `Gk(0..Nk, 0..Nk)` [out] the sum of
    /// kij over the nodes of both groups. `NK_PR(1..Nk)` number of nodes in each group. With the
    /// flexibility of single nodes and equal loads within a group, Gk times those loads is the sum
    /// of the group's settlements.
    /// Errors: 9 for kij or NK_PR too short; from 1024 raft nodes on Gk is then as before.
    /// Deviations: each sum is kept in 32 bits, over the columns of each row in turn.
    void ComposedCoefficients(Integer Nk, const Array<Single>& kij, Array<Single>& Gk,
                              const Array<Integer>& NK_PR) const;
};

} // namespace torlib

#pragma once
// The nodes of a piled raft, from the library: pieces of pile shafts, pile bases, and pieces of
// raft between the piles, grouped by raft node.

#include "hosts/slab/contact_area.h"
#include "hosts/slab/model.h"

namespace slab {

enum class NodeKind { Shaft = 1, Base = 2, Raft = 3 };

struct PiledRaftNode {
    NodeKind Kind = NodeKind::Raft;
    int RaftNode = 0; ///< from 1; the pile's head, or the node itself
    Point Place;      ///< where its settlement counts, m
    Point LoadCentre; ///< axis of the pile, or centre of the contact area that the node carries
    double Depth = 0; ///< m
    double Top = 0;   ///< of the loaded length
    double Bottom = 0;
    double Radius = 0; ///< of the pile, or of the circle with the area of the piece of raft
    double Share = 1;  ///< the whole over the modelled part: 2 on a symmetry line, 4 on two
};

/// All nodes, those of a pile one after another from the top, in the order of the raft nodes.
std::vector<PiledRaftNode> PiledRaftNodes(const Model& model,
                                          const std::vector<ContactArea>& areas);

} // namespace slab

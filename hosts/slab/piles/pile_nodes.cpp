#include "hosts/slab/piles/pile_nodes.h"

#include "hosts/slab/library_types.h"
#include "hosts/slab/restraints.h"
#include "torlib/piles/pile_geometry_class.h"

namespace slab {
namespace {

/// Centre of the node's contact area, its mirror images included where a symmetry line cuts it.
Point CentreOf(const ContactArea& area, const Point& node, const SymmetryLines& lines) {
    Point sum;
    for (const Quadrilateral& piece : area.Pieces) {
        // As two triangles, whose centres weigh by their areas.
        for (const std::size_t i : {1U, 2U}) {
            const Point& a = piece.Corner[0];
            const Point& b = piece.Corner[i];
            const Point& c = piece.Corner[i + 1];
            const double sixth =
                ((b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y)) / (6 * area.Area);
            sum.x += sixth * (a.x + b.x + c.x);
            sum.y += sixth * (a.y + b.y + c.y);
        }
    }
    const bool acrossY = lines.AcrossY() != 0 && lines.OnXMax(node);
    const bool acrossX = lines.AcrossX() != 0 && lines.OnYMax(node);
    return {node.x + (acrossY ? 0 : sum.x), node.y + (acrossX ? 0 : sum.y)};
}

/// The arguments of the library's routine.
struct Lists {
    Array<Single> XGriD, YGriD, Area, XPl, YPl, Lp, Dp, Cf;
    Array<Single> ro, XGN, YGN, ZGN, LG1, LG2;
    Array<Integer> NodePiledRaft, Nak_Pile, Nak_Raft, NK_P, NE_P, NK_PR;
    Integer NkPR = 0;

    void Generate(const Model& model, const std::vector<ContactArea>& areas,
                  const SymmetryLines& lines);
};

void Lists::Generate(const Model& model, const std::vector<ContactArea>& areas,
                     const SymmetryLines& lines) {
    const torlib::PileGeometry_Class geometry;
    const int Nk = static_cast<int>(model.Nodes.size());
    const int Np = static_cast<int>(model.Piling.Piles.size());
    for (Array<Single>* list : {&XGriD, &YGriD, &Area}) {
        list->ReDim(Nk);
    }
    for (int n = 1; n <= Nk; ++n) {
        // From the symmetry lines, so that 32 bits tell nodes apart far from the origin.
        XGriD(n) = model.Nodes[n - 1].x - lines.XMax();
        YGriD(n) = model.Nodes[n - 1].y - lines.YMax();
    }
    geometry.ContributedFactor(model.Symmetry, Nk, Cf, 0, 0, XGriD, YGriD);
    for (int n = 1; n <= Nk; ++n) {
        Area(n) = areas[n - 1].Area * Cf(n);
    }
    for (Array<Single>* list : {&XPl, &YPl, &Lp, &Dp}) {
        list->ReDim(Np);
    }
    for (int i = 1; i <= Np; ++i) {
        const Pile& pile = model.Piling.Piles[static_cast<std::size_t>(i - 1)];
        XPl(i) = XGriD(pile.Node);
        YPl(i) = YGriD(pile.Node);
        Lp(i) = pile.Length;
        Dp(i) = pile.Diameter;
    }
    geometry.GenerationOfPiledRaftSystems(Nk, XGriD, YGriD, Area, Np, XPl, YPl, Lp, Dp, ro, XGN,
                                          YGN, ZGN, LG1, LG2, NodePiledRaft, Nak_Pile, Nak_Raft,
                                          NK_P, NE_P, NkPR, NK_PR, model.Piling.Segment);
}

} // namespace

std::vector<PiledRaftNode> PiledRaftNodes(const Model& model,
                                          const std::vector<ContactArea>& areas) {
    const SymmetryLines lines(model);
    Lists lists;
    lists.Generate(model, areas, lines);
    std::vector<PiledRaftNode> nodes;
    for (int raft = 1, n = 1; raft <= static_cast<int>(model.Nodes.size()); ++raft) {
        const auto at = static_cast<std::size_t>(raft - 1);
        for (const int last = n + lists.NK_PR(raft); n < last; ++n) {
            PiledRaftNode node;
            node.Kind = static_cast<NodeKind>(static_cast<int>(lists.NodePiledRaft(n)));
            node.RaftNode = raft;
            node.Place = model.Nodes[at];
            node.LoadCentre = node.Kind == NodeKind::Raft
                                  ? CentreOf(areas[at], model.Nodes[at], lines)
                                  : model.Nodes[at];
            node.Depth = double{lists.ZGN(n).Value()};
            node.Top = double{lists.LG1(n).Value()};
            node.Bottom = double{lists.LG2(n).Value()};
            node.Radius = double{lists.ro(n).Value()};
            node.Share = double{lists.Cf(raft).Value()};
            nodes.push_back(node);
        }
    }
    return nodes;
}

} // namespace slab

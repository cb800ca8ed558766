// Division of piles into nodes: shaft segments of equal length and a base.

#include "torlib/frame/elementary.h"
#include "torlib/piles/pile_geometry_class.h"
#include "torlib/platform/component/run_time_error.h"

#include <string>
#include <vector>

namespace torlib {
namespace {

/// A pile and a raft node belong together when they are closer than this in x and in y.
constexpr double Reach = 0.01;

/// The caller's node list, filled from node 1 upward.
class NodeList {
  public:
    NodeList(Array<Single>& ro, Array<Single>& XGN, Array<Single>& YGN, Array<Single>& ZGN,
             Array<Single>& LG1, Array<Single>& LG2, Array<Integer>& NodePiledRaft,
             Array<Integer>& Nak_Raft)
        : ro_(ro),
          x_(XGN),
          y_(YGN),
          z_(ZGN),
          top_(LG1),
          bottom_(LG2),
          kind_(NodePiledRaft),
          raft_(Nak_Raft) {}

    void ReDim(int total) {
        kind_.ReDim(total);
        for (Array<Single>* array : {&z_, &top_, &bottom_, &x_, &y_, &ro_}) {
            array->ReDim(total);
        }
        raft_.ReDim(total);
    }

    void AddPile(Single x, Single y, Single length, Single diameter, Integer segments,
                 Integer raftNode) {
        const Single radius = diameter / 2;
        const Single LE = length / segments;
        Single z = 0;
        Single above = 0;
        for (int k = 1; k <= segments; ++k) {
            z = (above + LE) / 2 + z;
            above = LE;
            Add(x, y, z, z - LE / 2, z + LE / 2, radius, 1, raftNode);
        }
        Add(x, y, length, length, length, radius, 2, raftNode);
    }
    void AddRaftNode(Single x, Single y, Single area) { Add(x, y, 0, 0, 0, Sqrt(area / Pi), 3, 0); }

  private:
    void Add(Single x, Single y, Single z, Single top, Single bottom, Single radius, Integer kind,
             Integer raftNode) {
        ++n_;
        ro_(n_) = radius;
        x_(n_) = x;
        y_(n_) = y;
        z_(n_) = z;
        top_(n_) = top;
        bottom_(n_) = bottom;
        kind_(n_) = kind;
        raft_(n_) = raftNode;
    }

    Array<Single>& ro_;
    Array<Single>& x_;
    Array<Single>& y_;
    Array<Single>& z_;
    Array<Single>& top_;
    Array<Single>& bottom_;
    Array<Integer>& kind_;
    Array<Integer>& raft_;
    int n_ = 0;
};

/// Fills the numbers of segments and nodes; returns the number of nodes of all piles.
int CountNodes(Integer Np, const Array<Single>& Lp, Single Dz, Array<Integer>& NK_P,
               Array<Integer>& NE_P) {
    NK_P.ReDim(Np);
    NE_P.ReDim(Np);
    int total = 0;
    for (const int i : Range(1, Np)) {
        NE_P(i) = ToInteger(Lp(i) / Dz);
        NK_P(i) = NE_P(i) + 1;
        total += NK_P(i);
    }
    return total;
}

[[noreturn]] void RefusePile(int pile, const std::string& why) {
    RaiseError(ErrorNumber::InvalidArgument, "pile " + std::to_string(pile) + " " + why);
}

/// Positions of raft nodes and piles.
struct Plan {
    Integer Nk;
    const Array<Single>& XGriD;
    const Array<Single>& YGriD;
    Integer Np;
    const Array<Single>& XPl;
    const Array<Single>& YPl;

    bool Meet(int node, int pile) const {
        const Single x = XPl(pile);
        const Single y = YPl(pile);
        const Real dx = Abs(XGriD(node) - x);
        const Real dy = Abs(YGriD(node) - y);
        return dx < Reach && dy < Reach;
    }

    int FirstNodeUnder(int pile) const {
        for (const int j : Range(1, Nk)) {
            if (Meet(j, pile)) {
                return j;
            }
        }
        RefusePile(pile, "stands on no raft node: none is less than 0.01 away in x and in y");
    }

    /// The pile on each raft node, 0 for none.
    std::vector<int> PileOnNode() const {
        std::vector<int> pileOn(Nk > 0 ? static_cast<std::size_t>(Nk) + 1 : 1);
        for (const int i : Range(1, Np)) {
            const int j = FirstNodeUnder(i);
            int& pile = pileOn[static_cast<std::size_t>(j)];
            if (pile != 0) {
                RefusePile(i, "stands on raft node " + std::to_string(j) + ", where pile " +
                                  std::to_string(pile) + " stands already");
            }
            pile = i;
        }
        return pileOn;
    }
};

} // namespace

void PileGeometry_Class::GenerationOfPileGeometry(
    Integer Np, const Array<Single>& Lp, const Array<Single>& Dp, const Array<Single>& XPl,
    const Array<Single>& YPl, Array<Integer>& NK_P, Array<Integer>& NE_P, Array<Single>& ro,
    Array<Single>& XGN, Array<Single>& YGN, Array<Single>& ZGN, Array<Single>& LG1,
    Array<Single>& LG2, Array<Integer>& NodePiledRaft, Single Dz, const Array<Integer>& Nak_Pile,
    Array<Integer>& Nak_Raft, OptionalRef<Integer> NkPG) const {
    const MemberScope scope(
        "PileGeometry_Class.GenerationOfPileGeometry", Named("Lp", Lp), Named("Dp", Dp),
        Named("XPl", XPl), Named("YPl", YPl), Named("NK_P", NK_P), Named("NE_P", NE_P),
        Named("ro", ro), Named("XGN", XGN), Named("YGN", YGN), Named("ZGN", ZGN), Named("LG1", LG1),
        Named("LG2", LG2), Named("NodePiledRaft", NodePiledRaft), Named("Nak_Pile", Nak_Pile),
        Named("Nak_Raft", Nak_Raft));
    const Integer total = CountNodes(Np, Lp, Dz, NK_P, NE_P);
    NkPG.Set(total);
    NodeList nodes(ro, XGN, YGN, ZGN, LG1, LG2, NodePiledRaft, Nak_Raft);
    nodes.ReDim(total);
    for (const int i : Range(1, Np)) {
        const Single diameter = Dp(i);
        const Single x = XPl(i);
        const Single y = YPl(i);
        const Integer raftNode = Nak_Pile(i);
        nodes.AddPile(x, y, Lp(i), diameter, NE_P(i), raftNode);
    }
}

void PileGeometry_Class::GenerationOfPiledRaftSystems(
    Integer Nk, const Array<Single>& XGriD, const Array<Single>& YGriD, const Array<Single>& Area,
    Integer Np, const Array<Single>& XPl, const Array<Single>& YPl, const Array<Single>& Lp,
    const Array<Single>& Dp, Array<Single>& ro, Array<Single>& XGN, Array<Single>& YGN,
    Array<Single>& ZGN, Array<Single>& LG1, Array<Single>& LG2, Array<Integer>& NodePiledRaft,
    Array<Integer>& Nak_Pile, Array<Integer>& Nak_Raft, Array<Integer>& NK_P, Array<Integer>& NE_P,
    Integer& NkPR, Array<Integer>& NK_PR, Single Dz) const {
    const MemberScope scope("PileGeometry_Class.GenerationOfPiledRaftSystems",
                            Named("XGriD", XGriD), Named("YGriD", YGriD), Named("Area", Area),
                            Named("XPl", XPl), Named("YPl", YPl), Named("Lp", Lp), Named("Dp", Dp),
                            Named("ro", ro), Named("XGN", XGN), Named("YGN", YGN),
                            Named("ZGN", ZGN), Named("LG1", LG1), Named("LG2", LG2),
                            Named("NodePiledRaft", NodePiledRaft), Named("Nak_Pile", Nak_Pile),
                            Named("Nak_Raft", Nak_Raft), Named("NK_P", NK_P), Named("NE_P", NE_P),
                            Named("NK_PR", NK_PR));
    const std::vector<int> pileOn = Plan{Nk, XGriD, YGriD, Np, XPl, YPl}.PileOnNode();
    Nak_Pile.ReDim(Np);
    for (const int j : Range(1, Nk)) {
        if (const int i = pileOn[static_cast<std::size_t>(j)]; i != 0) {
            Nak_Pile(i) = j;
        }
    }
    NkPR = Nk + CountNodes(Np, Lp, Dz, NK_P, NE_P) - Np;
    NodeList nodes(ro, XGN, YGN, ZGN, LG1, LG2, NodePiledRaft, Nak_Raft);
    nodes.ReDim(NkPR);
    NK_PR.ReDim(Nk);
    for (const int j : Range(1, Nk)) {
        const int i = pileOn[static_cast<std::size_t>(j)];
        if (i != 0) {
            nodes.AddPile(XPl(i), YPl(i), Lp(i), Dp(i), NE_P(i), j);
        } else {
            const Single x = XGriD(j);
            const Single y = YGriD(j);
            nodes.AddRaftNode(x, y, Area(j));
        }
        NK_PR(j) = i != 0 ? NK_P(i) : Integer(1);
    }
}

void PileGeometry_Class::GenerationOfPiledRaftSystemsDIN4014(
    Integer Nk, const Array<Single>& XGriD, const Array<Single>& YGriD, Integer Np,
    const Array<Single>& XPl, const Array<Single>& YPl, Array<Integer>& NodePiledRaft_r,
    Array<Integer>& Nak_Pile, Integer MethodType) const {
    const MemberScope scope("PileGeometry_Class.GenerationOfPiledRaftSystemsDIN4014",
                            Named("XGriD", XGriD), Named("YGriD", YGriD), Named("XPl", XPl),
                            Named("YPl", YPl), Named("NodePiledRaft_r", NodePiledRaft_r),
                            Named("Nak_Pile", Nak_Pile));
    const Plan plan{Nk, XGriD, YGriD, Np, XPl, YPl};
    for (const int i : Range(1, Np)) {
        for (const int j : Range(1, Nk)) {
            if (plan.Meet(j, i)) {
                Nak_Pile(i) = j;
            }
        }
    }
    for (const int j : Range(1, Nk)) {
        bool carriesPile = false;
        for (const int i : Range(1, Np)) {
            carriesPile = carriesPile || Nak_Pile(i) == j;
        }
        if (carriesPile) {
            NodePiledRaft_r(j) = 4;
        } else if (MethodType == 1) {
            NodePiledRaft_r(j) = 0;
        } else if (MethodType == 2) {
            NodePiledRaft_r(j) = 3;
        }
    }
}

} // namespace torlib

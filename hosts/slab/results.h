#pragma once
// What an analysis gives: values at the nodes, reactions, the course of the iteration, the balance
// of forces, and how many digits can be trusted. Metres, kilonewtons, radians.

#include <array>
#include <string>
#include <vector>

namespace slab {

struct NodeResult {
    double Settlement = 0;            ///< m, downward positive
    double SlopeX = 0;                ///< dw/dx
    double SlopeY = 0;                ///< dw/dy
    double Pressure = 0;              ///< contact pressure, kN/m2, compression positive
    double ContactForce = 0;          ///< kN on the modelled part of the node's area
    double SoilSettlement = 0;        ///< m, of the soil surface at the node (half-space, layers)
    double Mx = 0, My = 0, Mxy = 0;   ///< kNm/m, positive with tension at the underside
    double M1 = 0, M2 = 0, Angle = 0; ///< principal moments, M1 >= M2; angle of M1 from x, radians
};

/// Forces that a support or a node spring exerts on the slab, in the sense of the displacements.
struct Reaction {
    int Node = 0;
    std::array<double, 3> Force{}; ///< kN, kNm, kNm
    bool IsSpring = false;
};

/// What a pile carries, all of it where a symmetry line cuts it; kN, compression positive.
struct PileResult {
    int Node = 0;
    double Head = 0; ///< load on the head: shaft and base
    double Shaft = 0;
    double Base = 0;
    double Settlement = 0;        ///< of the head, m
    double BaseSettlement = 0;    ///< m, less by the pile's compression
    bool Exhausted = false;       ///< carries its capacity, and slips
    std::vector<double> Segments; ///< what each piece of the shaft hands over, from the top
};

struct Cycle {
    int Number = 0;
    double Change = 0;   ///< largest change of a settlement in this cycle, m
    double Mismatch = 0; ///< largest difference between slab and soil settlement, m
};

/// Vertical balance over the modelled part, kN, downward positive.
struct Balance {
    double Loads = 0;
    double Soil = 0;
    double Piles = 0;
    double Supports = 0;
    double Springs = 0;
    double RelativeError = 0; ///< |Loads - all others| / sum of the loads' sizes
};

/// What rounding to 32 bits cost, and what the correction gave back.
struct Digits {
    double ResidualBefore = 0; ///< of the 32-bit solution: |r| / |load|
    double ResidualAfter = 0;
    double ChangeOfSolution = 0; ///< largest correction of a settlement / largest settlement
    int Steps = 0;               ///< of the correction, all cycles together
    bool Corrected = false;
};

/// A value with the node where it stands.
struct Extreme {
    double Value = 0;
    int Node = 0;
};

struct Results {
    std::vector<NodeResult> Nodes;
    std::vector<Reaction> Reactions;
    std::vector<PileResult> Piles; ///< in the order of the model
    std::vector<Cycle> Cycles;
    bool Converged = true;
    slab::Balance Balance;
    slab::Digits Digits;
    int Equations = 0;
    int HalfBandWidth = 0;
    double SolverSeconds = 0; ///< elimination and substitutions
    double SoilSeconds = 0;   ///< flexibility coefficients
    double TotalSeconds = 0;
    std::vector<std::string> Warnings;
};

} // namespace slab

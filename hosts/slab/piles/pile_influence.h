#pragma once
// Settlement inside the ground by unit loads on pile shafts, pile bases and pieces of raft, from
// Mindlin's factors in the library. A factor of the library is taken only where it is good; beyond
// that the same load is put together from others, so that every value that is used stays within
// 0.5 % of the integral of the point load.
//
//     PileInfluence influence(model.Soil);
//     double s = influence.Shaft({2.4, 7.5}, 0.25, 3, 4);   // m/kN

#include "hosts/slab/model.h"
#include "torlib/piles/mindlin_class.h"

namespace slab {

/// Where a settlement is wanted: distance from the load's axis and depth, m.
struct Spot {
    double Distance = 0;
    double Depth = 0;
};

class PileInfluence {
  public:
    /// The soil must be a half-space or one layer on a rigid base. A layer gives the half-space's
    /// settlement less that at the depth of the rigid base (Steinbrenner, 1934).
    explicit PileInfluence(const Soil& soil);

    /// By a load on a cylinder of this radius from `top` to `bottom`. A spot on the shaft itself
    /// stands at the middle of the cylinder, above or below it, or at the surface.
    double Shaft(const Spot& spot, double radius, double top, double bottom) const;
    /// By a load on a horizontal circle: a pile's base, or at depth 0 a piece of raft.
    double Circle(const Spot& spot, double radius, double depth) const;
    /// Of a rigid pile base under its own load: Pi / 4 of what the centre of an evenly loaded
    /// circle settles (Poulos and Davis, 1968, Geotechnique 18, 351-371).
    double RigidBase(double radius, double depth) const;

  private:
    double ShaftFactor(const Spot& spot, double radius, double top, double bottom) const;
    double OnOwnShaft(double depth, double radius, double top, double bottom) const;
    double RingsOfPoints(const Spot& spot, double radius, double top, double bottom) const;
    double CircleFactor(const Spot& spot, double radius, double depth) const;
    double Point(double distance, double load, double depth) const;

    double modulus_ = 0;
    double poisson_ = 0;
    double rigidBase_ = 0; // depth, 0 for the half-space
    torlib::Mindlin_class mindlin_;
};

} // namespace slab

#pragma once
// Where the nodes of a grid of beams lie. Axes and places are compared with a tolerance here, in
// double precision, so that beams meet although their coordinates were rounded.

#include "hosts/slab/mesh_search.h"

#include <functional>

namespace slab {

/// The library takes points closer than a millimetre for one.
constexpr double SamePlace = 0.001;
constexpr double ShortestPiece = 0.01;

/// The axis of a beam, m.
struct Axis {
    Point From;
    Point To;
};

/// The ends and crossings of the axes, those of the places that lie on an axis, and points between
/// them where a piece of an axis would be longer than its entry of `longest`; each once, in an
/// order that keeps the band narrow. `poll` may throw to end the search.
std::vector<Point> GridNodes(const std::vector<Axis>& axes, const std::vector<double>& longest,
                             const std::vector<Point>& places, const std::function<void()>& poll);

/// Numbers, from 1, of the nodes on an axis from its start to its end; `search` holds the nodes.
std::vector<int> NodesOnAxis(const Axis& axis, const std::vector<Point>& nodes,
                             const BoxSearch& search, double tolerance);

} // namespace slab

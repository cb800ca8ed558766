#pragma once
// The part of the slab's underside that belongs to a node: a quarter of each adjacent rectangle,
// and of each adjacent triangle the third that its medians cut off.

#include "hosts/slab/model.h"

namespace slab {

/// A convex quadrilateral, counter-clockwise; a rectangle starts at its corner of smallest x and y.
struct Quadrilateral {
    std::array<Point, 4> Corner;
    bool IsRectangle = false;

    double Area() const;
};

/// Relative to the node, m.
struct ContactArea {
    std::vector<Quadrilateral> Pieces;
    double Area = 0;   ///< m2
    double Radius = 0; ///< distance of the farthest corner from the node, m
    double Widest = 0; ///< longest diagonal of a piece, m
};

/// The contact area of every node; rectangular pieces that share a whole side are joined.
std::vector<ContactArea> ContactAreas(const Model& model);

} // namespace slab

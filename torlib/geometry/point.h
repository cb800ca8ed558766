#pragma once
// A point of the plane and the distance of two, shared by the members of this room:
//
//     const Single L = plane::Distance({Xs, Ys}, {XE, YE});

#include "torlib/frame/arithmetic.h"

namespace torlib::plane {

struct Point {
    Single x;
    Single Y;
};

/// Distance of two points, evaluated in double precision; the same bits in both directions.
inline Real Distance(const Point& from, const Point& to) {
    return Sqrt((from.x - to.x) * (from.x - to.x) + (from.Y - to.Y) * (from.Y - to.Y));
}

} // namespace torlib::plane

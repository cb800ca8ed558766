#include "hosts/slab/piles/pile_influence.h"

#include "hosts/slab/library_types.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace slab {

using std::numbers::pi;

namespace {

/// The steps in which the library walks round half a ring.
constexpr double ring_steps = 50;
/// Distances from the axis, in radii, beyond which a ring is its axis, and a circle four points.
constexpr double ring_is_line = 20;
constexpr double circle_is_points = 4;

double Value(Single factor) {
    return double{factor.Value()};
}

/// Distance of a depth from the range between top and bottom.
double Gap(double depth, double top, double bottom) {
    return std::max({top - depth, depth - bottom, 0.0});
}

} // namespace

PileInfluence::PileInfluence(const Soil& soil) : modulus_(soil.Modulus), poisson_(soil.Poisson) {
    if (soil.Kind == SoilKind::Layered) {
        const SoilLayer& layer = soil.Layers.front();
        modulus_ = layer.Modulus;
        poisson_ = layer.Poisson;
        rigidBase_ = layer.Thickness;
    }
}

double PileInfluence::Shaft(const Spot& spot, double radius, double top, double bottom) const {
    double factor = ShaftFactor(spot, radius, top, bottom);
    if (rigidBase_ > 0) {
        factor -= ShaftFactor({spot.Distance, rigidBase_}, radius, top, bottom);
    }
    return factor / modulus_;
}

double PileInfluence::Circle(const Spot& spot, double radius, double depth) const {
    double factor = CircleFactor(spot, radius, depth);
    if (rigidBase_ > 0) {
        factor -= CircleFactor({spot.Distance, rigidBase_}, radius, depth);
    }
    return factor / modulus_;
}

double PileInfluence::RigidBase(double radius, double depth) const {
    double factor = pi / 4 * CircleFactor({0, depth}, radius, depth);
    if (rigidBase_ > 0) {
        factor -= CircleFactor({0, rigidBase_}, radius, depth);
    }
    return factor / modulus_;
}

double PileInfluence::ShaftFactor(const Spot& spot, double radius, double top,
                                  double bottom) const {
    const auto& [distance, depth] = spot;
    const bool onRing = std::fabs(distance - radius) < 0.005 * radius;
    const bool beside = Gap(depth, top, bottom) == 0;
    if (onRing && (beside || depth == 0)) {
        return OnOwnShaft(depth, radius, top, bottom);
    }
    // Above and below the load the line's terms cancel in 32 bits; points lose nothing there.
    if (onRing || Gap(depth, top, bottom) > 0.4 * (bottom - top)) {
        return RingsOfPoints(spot, radius, top, bottom);
    }
    if (distance > ring_is_line * radius) {
        return Value(mindlin_.Ili_HS(distance, top, bottom, depth, poisson_));
    }
    return Value(mindlin_.Isr_HS(distance, radius, top, bottom, depth, poisson_));
}

/// The library's trapezoidal rule leaves out the end where the ring meets the spot and the line's
/// factor grows like -ln d. That end counts half a step, with the factor in the distance step/2 Pi:
/// Stirling's formula for the sum of the logarithms before it.
double PileInfluence::OnOwnShaft(double depth, double radius, double top, double bottom) const {
    const double nearest = radius * pi / ring_steps / (2 * pi);
    double end = 0;
    if (depth == 0) {
        end = Value(mindlin_.Ili_HS(nearest, top, bottom, depth, poisson_));
    } else {
        // So near the line's factor has no digits left; its logarithm leads there from farther out.
        const double sure = 10 * nearest;
        end = Value(mindlin_.Ili_HS(sure, top, bottom, depth, poisson_)) +
              (1 + poisson_) / (pi * (bottom - top)) * std::log(sure / nearest);
    }
    return Value(mindlin_.Isr_HS(radius, radius, top, bottom, depth, poisson_)) +
           end / (2 * ring_steps);
}

/// Point loads round the ring in four Gauss depths; a piece as long as it is near is halved.
double PileInfluence::RingsOfPoints(const Spot& spot, double radius, double top,
                                    double bottom) const {
    const auto& [distance, depth] = spot;
    const double length = bottom - top;
    const double near = std::hypot(Gap(depth, top, bottom), distance - radius);
    if (near < 0.4 * length && length > 1e-3 * radius) {
        const double middle = (top + bottom) / 2;
        return (RingsOfPoints(spot, radius, top, middle) +
                RingsOfPoints(spot, radius, middle, bottom)) /
               2;
    }
    static constexpr double places[] = {-0.861136311594052575, -0.339981043584856265,
                                        0.339981043584856265, 0.861136311594052575};
    static constexpr double weights[] = {0.347854845137453857, 0.652145154862546143,
                                         0.652145154862546143, 0.347854845137453857};
    const double apart = std::hypot(distance, depth - (top + bottom) / 2);
    const int angles = apart > ring_is_line * radius ? 1 : distance > 2.5 * radius ? 6 : 16;
    double sum = 0;
    for (int k = 0; k < angles; ++k) {
        const double theta = pi * (k + 0.5) / angles;
        const double d = std::sqrt(distance * distance + radius * radius +
                                   2 * distance * radius * std::cos(theta));
        for (int i = 0; i < 4; ++i) {
            const double load = (top + bottom + places[i] * length) / 2;
            sum += weights[i] * Point(d, load, depth) / (2 * angles);
        }
    }
    return sum;
}

double PileInfluence::CircleFactor(const Spot& spot, double radius, double depth) const {
    const double distance = spot.Distance;
    if (std::hypot(distance, spot.Depth - depth) > circle_is_points * radius) {
        // Four points at 0.71 radii, one pair of them at 45 and one at 135 degrees.
        const double square = distance * distance + radius * radius / 2;
        return (Point(std::sqrt(square + distance * radius), depth, spot.Depth) +
                Point(std::sqrt(square - distance * radius), depth, spot.Depth)) /
               2;
    }
    if (distance < 1e-3 * radius) {
        return Value(mindlin_.Icc_HS(radius, depth, spot.Depth, poisson_));
    }
    return Value(mindlin_.Icr_HS(distance, radius, depth, spot.Depth, poisson_));
}

double PileInfluence::Point(double distance, double load, double depth) const {
    return Value(mindlin_.Ipi_HS(distance, load, depth, poisson_));
}

} // namespace slab

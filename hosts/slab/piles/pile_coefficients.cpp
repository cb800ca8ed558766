#include "hosts/slab/piles/pile_coefficients.h"

#include <cmath>

namespace slab {

namespace {

/// Places that differ by less than a tenth of a micrometre are one.
constexpr double same_place = 1e-7;

} // namespace

PileCoefficients::PileCoefficients(const Model& model, const SoilFlexibility& surface)
    : surface_(surface), lines_(model), influence_(model.Soil) {}

double PileCoefficients::At(const PiledRaftNode& node, const PiledRaftNode& loaded) {
    if (node.Kind == NodeKind::Raft && loaded.Kind == NodeKind::Raft) {
        return surface_.Coefficient(node.RaftNode, loaded.RaftNode);
    }
    double sum = 0;
    for (const MirrorImage& image : MirrorImages(node.Place, lines_)) {
        sum += image.Sign * Coefficient(node, image.At, loaded);
    }
    return sum;
}

double PileCoefficients::Coefficient(const PiledRaftNode& node, const Point& place,
                                     const PiledRaftNode& loaded) {
    Spot spot{std::hypot(place.x - loaded.LoadCentre.x, place.y - loaded.LoadCentre.y), node.Depth};
    spot.Distance = std::round(spot.Distance / same_place) * same_place;
    const bool ownPile = spot.Distance == 0 && loaded.Kind != NodeKind::Raft;
    if (ownPile && node.Kind == NodeKind::Shaft) {
        spot.Distance = loaded.Radius;
    }
    const std::array<double, 6> key{double(loaded.Kind), loaded.Radius, loaded.Top,
                                    loaded.Bottom,       spot.Distance, spot.Depth};
    const auto [entry, isNew] = known_.try_emplace(key, 0);
    if (!isNew) {
        return entry->second;
    }
    double& value = entry->second;
    if (loaded.Kind == NodeKind::Shaft) {
        value = influence_.Shaft(spot, loaded.Radius, loaded.Top, loaded.Bottom);
    } else if (ownPile && node.Kind == NodeKind::Base) {
        value = influence_.RigidBase(loaded.Radius, loaded.Depth);
    } else {
        value = influence_.Circle(spot, loaded.Radius, loaded.Depth);
    }
    return value;
}

} // namespace slab

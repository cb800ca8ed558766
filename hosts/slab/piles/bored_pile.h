#pragma once
// A single bored pile by DIN 4014 (1990): its resistance by settlement from the soil's strength.
// Metres and kilonewtons.

#include "hosts/slab/model.h"

#include <array>
#include <string>
#include <vector>

namespace slab {

/// A layer along the shaft; exactly one of the three strengths is not negative.
struct PileLayer {
    double Thickness = 0;
    double ConeResistance = -1; ///< kN/m2, non-cohesive soil
    double ShearStrength = -1;  ///< kN/m2, cohesive soil, undrained
    double SkinFriction = -1;   ///< kN/m2, given
};

struct BoredPile {
    std::string Title;
    std::string File;
    slab::Units Units;
    double Diameter = 0;
    double BaseDiameter = 0; ///< larger than the diameter for an enlarged base
    double Load = 0;         ///< working load
    double Settlement = -1;  ///< whose load is wanted; negative when none is
    std::vector<PileLayer> Layers;
    // Of the ground under the base: exactly one of the three, as for a layer.
    double BaseConeResistance = -1;
    double BaseShearStrength = -1;
    bool BaseStressesGiven = false;
    /// kN/m2, at settlements of 0.02, 0.03 and 0.10 base diameters.
    std::array<double, 3> BaseStresses{};
};

struct CurvePoint {
    double Settlement = 0;
    double Resistance = 0;
    double Base = 0; ///< its part of the resistance
    const char* Where = "";
};

struct BoredPileResults {
    std::vector<CurvePoint> Curve; ///< four points by growing settlement
    CurvePoint HalfLimit;          ///< at half the limit resistance; its base part is not known
    double Shaft = 0;              ///< ultimate shaft resistance
    std::array<double, 3> BaseStresses{};
    std::vector<double> SkinFriction; ///< of each layer
    double Settlement = 0;            ///< under the working load
    double BaseLoad = 0;              ///< parts of the working load
    double ShaftLoad = 0;
    double LoadAtSettlement = 0;
    std::vector<std::string> Warnings;
};

BoredPileResults Analyse(const BoredPile& pile);

std::string SummaryText(const BoredPile& pile, const BoredPileResults& results);
std::string ReportText(const BoredPile& pile, const BoredPileResults& results);
std::string JsonText(const BoredPile& pile, const BoredPileResults& results);
/// The curve, the working load and the settlement asked for, as an SVG document.
std::string PictureText(const BoredPile& pile, const BoredPileResults& results);

} // namespace slab

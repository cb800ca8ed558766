#include "hosts/slab/quantities.h"

#include <cmath>
#include <cstdio>

namespace slab {

namespace {

constexpr Quantity quantities[] = {
    {"settlement", "Settlement", "s", Dimension::Settlement, &NodeResult::Settlement, false, false},
    {"slope_x", "Slope dw/dx", "wx", Dimension::Slope, &NodeResult::SlopeX, false, false},
    {"slope_y", "Slope dw/dy", "wy", Dimension::Slope, &NodeResult::SlopeY, false, false},
    {"pressure", "Contact pressure", "q", Dimension::Pressure, &NodeResult::Pressure, true, false},
    {"contact_force", "Contact force", "P", Dimension::Force, &NodeResult::ContactForce, true,
     false},
    {"soil_settlement", "Settlement of the soil", "ss", Dimension::Settlement,
     &NodeResult::SoilSettlement, true, true},
    {"mx", "Moment", "mx", Dimension::MomentPerLength, &NodeResult::Mx, false, false},
    {"my", "Moment", "my", Dimension::MomentPerLength, &NodeResult::My, false, false},
    {"mxy", "Twisting moment", "mxy", Dimension::MomentPerLength, &NodeResult::Mxy, false, false},
    {"m1", "Principal moment", "m1", Dimension::MomentPerLength, &NodeResult::M1, false, false},
    {"m2", "Principal moment", "m2", Dimension::MomentPerLength, &NodeResult::M2, false, false},
    {"angle", "Direction of m1 from x", "phi", Dimension::Angle, &NodeResult::Angle, false, false},
};

constexpr double degrees = 57.295779513082320877;

} // namespace

std::vector<const Quantity*> QuantitiesOf(const Model& model) {
    const bool onSoil = model.Soil.Kind != SoilKind::None;
    const bool surface = onSoil && model.Soil.Kind != SoilKind::Winkler;
    std::vector<const Quantity*> rows;
    for (const Quantity& row : quantities) {
        const bool ofPlates =
            row.Kind == Dimension::MomentPerLength || row.Kind == Dimension::Angle;
        if (model.Elements.empty() && ofPlates) {
            continue;
        }
        if ((onSoil || !row.OnSoilOnly) && (surface || !row.WithSoilSurface)) {
            rows.push_back(&row);
        }
    }
    return rows;
}

std::string UnitName(const Units& units, Dimension kind) {
    switch (kind) {
        case Dimension::Settlement:
            return units.SettlementName;
        case Dimension::Slope:
            return "rad";
        case Dimension::Pressure:
            return units.ForceName + "/" + units.LengthName + "2";
        case Dimension::Force:
            return units.ForceName;
        case Dimension::MomentPerLength:
            return units.ForceName + "." + units.LengthName + "/" + units.LengthName;
        case Dimension::Angle:
            return "deg";
    }
    return "";
}

double InUnits(const Units& units, Dimension kind, double value) {
    switch (kind) {
        case Dimension::Settlement:
            return value / units.Settlement;
        case Dimension::Slope:
            return value;
        case Dimension::Pressure:
            return value / units.Force * units.Length * units.Length;
        case Dimension::Force:
        case Dimension::MomentPerLength:
            return value / units.Force;
        case Dimension::Angle:
            return value * degrees;
    }
    return value;
}

Extremes ExtremesOf(const Results& results, const Quantity& quantity) {
    Extremes found;
    for (std::size_t i = 0; i < results.Nodes.size(); ++i) {
        const double value = results.Nodes[i].*quantity.Member;
        const int node = static_cast<int>(i) + 1;
        if (i == 0 || value < found.Least.Value) {
            found.Least = {value, node};
        }
        if (i == 0 || value > found.Greatest.Value) {
            found.Greatest = {value, node};
        }
    }
    return found;
}

std::string NumberText(double value, int digits) {
    char text[40];
    const double size = std::fabs(value);
    if (size >= std::pow(10.0, digits - 1) && size < 1e7) {
        std::snprintf(text, sizeof text, "%.0f", value);
    } else {
        std::snprintf(text, sizeof text, "%.*g", digits, value);
    }
    return text;
}

} // namespace slab

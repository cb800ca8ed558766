#include "hosts/slab/sections.h"

#include "hosts/slab/library_types.h"
#include "hosts/slab/limits.h"
#include "torlib/geometry/geometry_class.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace slab {
namespace {

constexpr int MostCorners = 1000;
/// Relative difference between the area as listed and as sorted about the mean point.
constexpr double SortedAreaSlack = 1e-4;

/// The outline of a section in the units of the file.
using Outline = std::vector<Point>;

double ListedArea(const Outline& outline) {
    double twice = 0;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const Point& a = outline[i];
        const Point& b = outline[(i + 1) % outline.size()];
        twice += a.x * b.y - b.x * a.y;
    }
    return std::fabs(twice) / 2;
}

/// Area and second moment about the horizontal axis, in the units of the outline.
void TakeProperties(const Entry& entry, const Outline& outline, Section& section) {
    const int corners = static_cast<int>(outline.size());
    Array<Single> x;
    Array<Single> Y;
    x.ReDim(corners);
    Y.ReDim(corners);
    // From the first corner, so that an outline far from the origin keeps its digits.
    for (int i = 1; i <= corners; ++i) {
        x(i) = outline[static_cast<std::size_t>(i - 1)].x - outline[0].x;
        Y(i) = outline[static_cast<std::size_t>(i - 1)].y - outline[0].y;
    }
    Single area;
    Single xs;
    Single ys;
    Single inertia;
    try {
        torlib::Geometry_Class().Querschnittswerte(corners, x, Y, area, xs, ys, inertia);
    } catch (const torlib::RunTimeError& error) {
        entry.Fail(std::string("gives no section properties: ") + error.what());
    }
    section.Area = double{area.Value()};
    section.Inertia = double{inertia.Value()};
    if (!(section.Area > 0) || !(section.Inertia > 0)) {
        entry.Fail("encloses no area");
    }
    if (std::fabs(section.Area - ListedArea(outline)) > SortedAreaSlack * section.Area) {
        entry.Fail("has corners that are hidden from the middle of the section, or in no order "
                   "around it; give area and inertia instead");
    }
}

Outline ReadPolygon(const Entry& entry) {
    const std::vector<Entry> corners = entry.List();
    if (corners.size() < 3 || corners.size() > MostCorners) {
        entry.Fail("has " + std::to_string(corners.size()) + " corners (allowed: 3 to " +
                   std::to_string(MostCorners) + ")");
    }
    Outline outline;
    for (const Entry& corner : corners) {
        outline.push_back(corner.Pair());
    }
    return outline;
}

/// Torsion constant of a rectangle.
/// Source: Young and Budynas (2002), Roark's Formulas for Stress and Strain, table 10.1.
double RectangleTorsion(double width, double height) {
    const double a = std::max(width, height);
    const double b = std::min(width, height);
    return a * b * b * b * (1.0 / 3 - 0.21 * b / a * (1 - std::pow(b / a, 4) / 12));
}

void ReadShape(const KeyTable& table, SectionUse use, Section& section) {
    const std::string kind = table.OneOf({"area", "polygon", "width"});
    if (use == SectionUse::Grid && kind != "width") {
        section.Torsion = table.Get("torsion").Number(Positive);
    } else if (table.Has("torsion")) {
        table.Get("torsion").Fail("follows from width and height");
    }
    if (kind == "area") {
        section.Area = table.Get("area").Number(Positive);
        section.Inertia = table.Get("inertia").Number(Positive);
        return;
    }
    if (table.Has("inertia")) {
        table.Get("inertia").Fail("follows from " + kind + "; give it with area only");
    }
    if (kind == "polygon") {
        TakeProperties(table.Get(kind), ReadPolygon(table.Get(kind)), section);
        return;
    }
    const double width = table.Get("width").Number(Positive);
    const double height = table.Get("height").Number(Positive);
    TakeProperties(table.Get("width"), {{0, 0}, {width, 0}, {width, height}, {0, height}}, section);
    section.Torsion = RectangleTorsion(width, height);
    section.ContactWidth = width;
}

/// What only a grid beam needs, after the shape is known in the units of the file.
void ReadGridKeys(const KeyTable& table, const UnitScale& scale, Section& section) {
    if (table.OneOf({"poisson", "shear_modulus"}) == "poisson") {
        const double poisson = table.Get("poisson").Number(Between(0, 0.5));
        section.ShearModulus = section.Modulus / (2 * (1 + poisson));
    } else {
        section.ShearModulus = table.Get("shear_modulus").Number(Positive) * scale.Modulus;
    }
    section.Torsion *= std::pow(scale.Length, 4);
    section.ContactWidth =
        table.NumberOr("contact_width", NotNegative, section.ContactWidth) * scale.Length;
}

/// What the shape and the moduli make, in metres and kilonewtons.
void CheckSection(const KeyTable& table, const UnitScale& scale, SectionUse use,
                  const Section& section) {
    const Entry modulus = table.Get("modulus");
    const std::string forceName = scale.Units.ForceName;
    const std::string bendingName = forceName + scale.Units.LengthName + '2';
    const double bending = scale.Moment * scale.Length;
    CheckRigidity(modulus, "an axial stiffness EA", section.Modulus * section.Area, scale.Force,
                  forceName);
    CheckRigidity(modulus, "a bending stiffness EI", section.Modulus * section.Inertia, bending,
                  bendingName);
    if (use == SectionUse::Grid) {
        CheckRigidity(modulus, "a torsional stiffness GJ", section.ShearModulus * section.Torsion,
                      bending, bendingName);
    }
    if (section.Area * section.UnitWeight > LargestLoad) {
        table.Get("unit_weight")
            .Fail("makes a weight of " +
                  ShortNumber(section.Area * section.UnitWeight / scale.LineLoad) + ' ' +
                  forceName + '/' + scale.Units.LengthName + " (allowed: up to " +
                  ShortNumber(LargestLoad / scale.LineLoad) + ")");
    }
}

} // namespace

std::vector<Section> ReadSections(const KeyTable& root, const UnitScale& scale, SectionUse use) {
    std::vector<std::string> keys{"name",  "modulus", "area",    "inertia",
                                  "width", "height",  "polygon", "unit_weight"};
    if (use == SectionUse::Grid) {
        keys.insert(keys.end(), {"torsion", "poisson", "shear_modulus", "contact_width"});
    }
    std::vector<Section> sections;
    std::set<std::string> names;
    for (const KeyTable& table : root.Tables("sections")) {
        table.Allow(keys);
        Section section;
        section.Name = table.Get("name").Text();
        if (!names.insert(section.Name).second) {
            table.Get("name").Fail("\"" + section.Name + "\" is the name of an earlier section");
        }
        section.Modulus = table.Get("modulus").Number(Positive) * scale.Modulus;
        ReadShape(table, use, section);
        if (use == SectionUse::Grid) {
            ReadGridKeys(table, scale, section);
        }
        section.Area *= scale.Length * scale.Length;
        section.Inertia *= std::pow(scale.Length, 4);
        section.UnitWeight =
            WithinOrZero(table, "unit_weight", NotNegative, scale.Density, LargestLoad);
        CheckSection(table, scale, use, section);
        sections.push_back(section);
    }
    if (sections.empty()) {
        root.Fail("beams and members need at least one of [[sections]]");
    }
    return sections;
}

} // namespace slab

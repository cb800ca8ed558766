#pragma once
// Settlement of the soil surface at a point under a unit force spread evenly over a contact area,
// from the library's coefficients.

#include "hosts/slab/contact_area.h"
#include "torlib/geometry/geometry_class.h"
#include "torlib/soil/soil_class.h"

namespace slab {

class Influence {
  public:
    /// The soil must be a half-space or layered.
    explicit Influence(const Soil& soil);

    /// Settlement, m/kN, at a point given relative to the area's node: exact near the area, from
    /// point loads at Gauss points beyond `FarRadii` radii.
    double Settlement(const ContactArea& area, const Point& p) const;

    /// The polygon as signed triangles with their vertex at the point.
    double FromTriangles(const ContactArea& area, const Point& p) const;
    /// Four point loads on each piece.
    double FromPoints(const ContactArea& area, const Point& p) const;

    /// Distance, in radii of the area, from which on point loads are taken.
    static constexpr double FarRadii = 8;

  private:
    double Triangle(const Point& p, const Point& j, const Point& k, torlib::Single area) const;
    double PointLoad(double dx, double dy) const;

    std::vector<SoilLayer> layers_; // empty for a half-space
    double modulus_ = 0;
    double poisson_ = 0;
    torlib::Geometry_Class geometry_;
    torlib::Soil_Class soil_;
};

} // namespace slab

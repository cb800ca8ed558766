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

    /// Settlement, m/kN, at a point given relative to the area's node: within two radii of the area
    /// from signed triangles, beyond from point loads at Gauss points. In 32 bits a triangle loses
    /// digits where the point comes close to the line through a side, and with the distance: 0.3 %
    /// at most within two radii, 30 % at 160. The Gauss points are within 6E-5 where they stand for
    /// the area, and gain with the distance.
    double Settlement(const ContactArea& area, const Point& p) const;

    /// The polygon as signed triangles with their vertex at the point.
    double FromTriangles(const ContactArea& area, const Point& p) const;
    /// order x order point loads on each piece; the order is 1, 2 or 3.
    double FromPoints(const ContactArea& area, const Point& p, int order) const;

  private:
    double Triangle(const Point& j, const Point& k, double scale, double area) const;
    double PointLoad(double dx, double dy) const;

    std::vector<SoilLayer> layers_; // empty for a half-space
    double modulus_ = 0;
    double poisson_ = 0;
    torlib::Geometry_Class geometry_;
    torlib::Soil_Class soil_;
};

} // namespace slab

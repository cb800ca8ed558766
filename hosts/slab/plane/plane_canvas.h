#pragma once
// A drawing of a structure in the plane, to scale, with y upward.

#include "hosts/slab/model.h"

#include <sstream>

namespace slab {

class PlaneCanvas {
  public:
    PlaneCanvas(const Model& model, const std::string& caption);

    /// From the plane, in metres, to the paper.
    Point OnPaper(const Point& p) const;
    /// Pixels for each metre.
    double Scale() const { return scale_; }
    /// The larger side of the structure on the paper.
    static double Extent();

    /// A line through points of the paper.
    void Path(const std::vector<Point>& points, const std::string& style);
    void Circle(const Point& at, double radius, const std::string& style);
    void Text(const Point& at, const std::string& text, const std::string& style = "");
    /// A triangle below each supported node, a square where it cannot turn.
    void Supports(const Model& model);

    std::string Document() const;

  private:
    Point low_, high_;
    double scale_ = 1;
    std::string head_;
    std::ostringstream out_;
};

/// Factor that shows the largest of the displacements at a twentieth of the extent, in pixels a
/// metre; 0 when nothing moves.
double Exaggeration(const std::vector<double>& u);

} // namespace slab

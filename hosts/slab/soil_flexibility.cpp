// The flexibility matrix of the soil surface.

#include "hosts/slab/soil_flexibility.h"

#include "hosts/slab/analysis.h"
#include "hosts/slab/influence.h"
#include "hosts/slab/restraints.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace slab {

namespace {

/// Values that differ by less than a tenth of a micrometre are one.
class DistinctValues {
  public:
    void Add(double value) { values_.push_back(value); }
    void Sort() {
        std::sort(values_.begin(), values_.end());
        const auto equal = [](double a, double b) { return b - a < 1e-7; };
        values_.erase(std::unique(values_.begin(), values_.end(), equal), values_.end());
    }
    int IndexOf(double value) const {
        const auto place = std::lower_bound(values_.begin(), values_.end(), value - 1e-7);
        return static_cast<int>(place - values_.begin());
    }
    std::size_t Count() const { return values_.size(); }
    double operator[](std::size_t i) const { return values_[i]; }

  private:
    std::vector<double> values_;
};

/// One coordinate of evaluation points and nodes, and the index of each difference.
class Differences {
  public:
    Differences(const std::vector<double>& points, const std::vector<double>& nodes) {
        for (const double p : points) {
            points_.Add(p);
        }
        for (const double n : nodes) {
            nodes_.Add(n);
        }
        points_.Sort();
        nodes_.Sort();
        if (points_.Count() * nodes_.Count() > 400000) {
            return;
        }
        for (std::size_t i = 0; i < points_.Count(); ++i) {
            for (std::size_t j = 0; j < nodes_.Count(); ++j) {
                differences_.Add(points_[i] - nodes_[j]);
            }
        }
        differences_.Sort();
        for (std::size_t i = 0; i < points_.Count(); ++i) {
            for (std::size_t j = 0; j < nodes_.Count(); ++j) {
                index_.push_back(differences_.IndexOf(points_[i] - nodes_[j]));
            }
        }
    }
    /// 0 when the coordinates are too many for a table.
    std::size_t Count() const { return differences_.Count(); }
    int PointIndex(double p) const { return points_.IndexOf(p); }
    int NodeIndex(double n) const { return nodes_.IndexOf(n); }
    std::size_t Index(int point, int node) const {
        return static_cast<std::size_t>(
            index_[static_cast<std::size_t>(point) * nodes_.Count() + node]);
    }

  private:
    DistinctValues points_, nodes_, differences_;
    std::vector<int> index_;
};

bool SameShape(const ContactArea& a, const ContactArea& b) {
    const auto samePiece = [](const Quadrilateral& p, const Quadrilateral& q) {
        for (std::size_t i = 0; i < 4; ++i) {
            if (std::fabs(p.Corner[i].x - q.Corner[i].x) +
                    std::fabs(p.Corner[i].y - q.Corner[i].y) >
                1e-7) {
                return false;
            }
        }
        return true;
    };
    return a.Pieces.size() == b.Pieces.size() &&
           std::equal(a.Pieces.begin(), a.Pieces.end(), b.Pieces.begin(), samePiece);
}

/// Coefficients by shape of the loaded area and difference of coordinates: on a regular mesh most
/// pairs of nodes repeat another pair.
class CoefficientTable {
  public:
    CoefficientTable(const Model& model, const std::vector<ContactArea>& areas,
                     const std::vector<Point>& points)
        : model_(model),
          areas_(areas),
          influence_(model.Soil),
          x_(Values(points, true), Values(model.Nodes, true)),
          y_(Values(points, false), Values(model.Nodes, false)) {
        const std::size_t places = x_.Count() * y_.Count();
        const std::size_t worth = points.size() * model.Nodes.size() / 8;
        if (places == 0 || places > worth || !FindShapes(worth / places)) {
            return;
        }
        table_.assign(places * shapes_.size(), unknown);
        for (std::size_t n = 0; n < model.Nodes.size(); ++n) {
            nodeX_.push_back(x_.NodeIndex(model.Nodes[n].x));
            nodeY_.push_back(y_.NodeIndex(model.Nodes[n].y));
        }
    }

    /// Adds sign times the settlements at p from a unit force on each node's area.
    void AddRow(const Point& p, double sign, Vector& row) {
        const int px = table_.empty() ? 0 : x_.PointIndex(p.x);
        const int py = table_.empty() ? 0 : y_.PointIndex(p.y);
        for (std::size_t n = 0; n < areas_.size(); ++n) {
            if (areas_[n].Area == 0) {
                continue;
            }
            if (table_.empty()) {
                row[n] += sign * Compute(p, n);
                continue;
            }
            const std::size_t place =
                (shape_[n] * x_.Count() + x_.Index(px, nodeX_[n])) * y_.Count() +
                y_.Index(py, nodeY_[n]);
            if (table_[place] == unknown) {
                table_[place] = Compute(p, n);
            }
            row[n] += sign * table_[place];
        }
    }

    long Computed = 0;

  private:
    static constexpr double unknown = -1e300;

    static std::vector<double> Values(const std::vector<Point>& points, bool x) {
        std::vector<double> values;
        values.reserve(points.size());
        for (const Point& p : points) {
            values.push_back(x ? p.x : p.y);
        }
        return values;
    }

    double Compute(const Point& p, std::size_t n) {
        ++Computed;
        return influence_.Settlement(areas_[n], {p.x - model_.Nodes[n].x, p.y - model_.Nodes[n].y});
    }

    /// False when there are more shapes than a table is worth.
    bool FindShapes(std::size_t most) {
        for (const ContactArea& area : areas_) {
            const auto known = std::find_if(shapes_.begin(), shapes_.end(), [&](std::size_t n) {
                return SameShape(areas_[n], area);
            });
            shape_.push_back(static_cast<std::size_t>(known - shapes_.begin()));
            if (known == shapes_.end()) {
                shapes_.push_back(shape_.size() - 1);
            }
            if (shapes_.size() > most || shapes_.size() > 400) {
                return false;
            }
        }
        return true;
    }

    const Model& model_;
    const std::vector<ContactArea>& areas_;
    Influence influence_;
    Differences x_, y_;
    std::vector<int> nodeX_, nodeY_;
    std::vector<std::size_t> shape_;  // of each node
    std::vector<std::size_t> shapes_; // a node of each shape
    std::vector<double> table_;
};

} // namespace

SoilFlexibility::SoilFlexibility(const Model& model, const std::vector<ContactArea>& areas,
                                 RunWindow& window)
    : nodes_(model.Nodes.size()) {
    try {
        // Not cleared: touching all of it at once would hold up a cancel.
        row_ = std::make_unique_for_overwrite<float[]>(nodes_ * nodes_);
    } catch (const std::bad_alloc&) {
        throw AnalysisFailure("the soil's flexibility of " + std::to_string(nodes_) +
                              " nodes does not fit into memory. Take larger elements, or model a "
                              "half or a quarter.");
    }
    const SymmetryLines lines(model);
    std::vector<Point> points;
    for (const Point& p : model.Nodes) {
        for (const MirrorImage& image : MirrorImages(p, lines)) {
            points.push_back(image.At);
        }
    }
    CoefficientTable table(model, areas, points);
    window.Begin("Soil flexibility", static_cast<int>(nodes_));
    Vector row(nodes_);
    for (std::size_t i = 0; i < nodes_; ++i) {
        row.assign(nodes_, 0);
        for (const MirrorImage& image : MirrorImages(model.Nodes[i], lines)) {
            table.AddRow(image.At, image.Sign, row);
        }
        std::transform(row.begin(), row.end(), row_.get() + i * nodes_,
                       [](double value) { return static_cast<float>(value); });
        if (!window.Step(static_cast<int>(i) + 1)) {
            throw Cancelled();
        }
    }
    window.End();
    computed_ = table.Computed;
}

Vector SoilFlexibility::Settlements(const Vector& forces) const {
    Vector settlements(nodes_);
    for (std::size_t i = 0; i < nodes_; ++i) {
        const float* const row = row_.get() + i * nodes_;
        double sum[4] = {};
        for (std::size_t j = 0; j < nodes_; ++j) {
            sum[j % 4] += double{row[j]} * forces[j];
        }
        settlements[i] = (sum[0] + sum[1]) + (sum[2] + sum[3]);
    }
    return settlements;
}

double SoilFlexibility::Coefficient(int node, int loaded) const {
    return double{row_[static_cast<std::size_t>(node - 1) * nodes_ + loaded - 1]};
}

} // namespace slab

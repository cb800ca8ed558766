// Bending moments at the nodes from the curvatures of the elements.
// Source of the fit: Zienkiewicz and Zhu (1992), Int. J. Numer. Meth. Engng 33, 1331-1364.

#include "hosts/slab/moments.h"

#include "hosts/slab/restraints.h"

#include <algorithm>
#include <cmath>

namespace slab {

namespace {

/// A curvature in the vicinity of a node.
struct Sample {
    Point At;
    Curvature Value;
};

using Patch = std::vector<std::size_t>; // elements, from 0

/// Elements round every node.
std::vector<Patch> Patches(const Model& model) {
    std::vector<Patch> patches(model.Nodes.size());
    for (std::size_t e = 0; e < model.Elements.size(); ++e) {
        for (int i = 0; i < model.Elements[e].Corners; ++i) {
            patches[static_cast<std::size_t>(model.Elements[e].Node[i] - 1)].push_back(e);
        }
    }
    return patches;
}

/// The patch and all elements that share a node with it.
Patch Widened(const Model& model, const std::vector<Patch>& patches, const Patch& patch) {
    Patch wide;
    for (const std::size_t e : patch) {
        for (int i = 0; i < model.Elements[e].Corners; ++i) {
            const Patch& more = patches[static_cast<std::size_t>(model.Elements[e].Node[i] - 1)];
            wide.insert(wide.end(), more.begin(), more.end());
        }
    }
    std::sort(wide.begin(), wide.end());
    wide.erase(std::unique(wide.begin(), wide.end()), wide.end());
    return wide;
}

Point Centroid(const Model& model, const Element& element) {
    Point centroid;
    for (int i = 0; i < element.Corners; ++i) {
        const Point& p = model.Nodes[static_cast<std::size_t>(element.Node[i] - 1)];
        centroid.x += p.x / element.Corners;
        centroid.y += p.y / element.Corners;
    }
    return centroid;
}

/// Value at the origin of the plane of least squares through the samples; their mean where the
/// samples do not span a plane.
Curvature PlaneAtOrigin(const std::vector<Sample>& samples) {
    const auto count = static_cast<double>(samples.size());
    Point mean;
    Curvature value{};
    for (const Sample& s : samples) {
        mean.x += s.At.x / count;
        mean.y += s.At.y / count;
        for (std::size_t m = 0; m < 3; ++m) {
            value[m] += s.Value[m] / count;
        }
    }
    double xx = 0;
    double xy = 0;
    double yy = 0;
    std::array<Point, 3> moment{};
    for (const Sample& s : samples) {
        const double x = s.At.x - mean.x;
        const double y = s.At.y - mean.y;
        xx += x * x;
        xy += x * y;
        yy += y * y;
        for (std::size_t m = 0; m < 3; ++m) {
            moment[m].x += x * s.Value[m];
            moment[m].y += y * s.Value[m];
        }
    }
    const double determinant = xx * yy - xy * xy;
    if (samples.size() < 3 || determinant <= 1e-3 * xx * yy) {
        return value;
    }
    for (std::size_t m = 0; m < 3; ++m) {
        value[m] -= (mean.x * (yy * moment[m].x - xy * moment[m].y) +
                     mean.y * (xx * moment[m].y - xy * moment[m].x)) /
                    determinant;
    }
    return value;
}

class MomentsAtNodes {
  public:
    MomentsAtNodes(const Model& model, const Vector& displacement)
        : model_(model), displacement_(displacement), patches_(Patches(model)) {}

    /// Groups of the elements round a node.
    std::vector<int> Groups(std::size_t n) const {
        std::vector<int> groups;
        for (const std::size_t e : patches_[n]) {
            groups.push_back(model_.Elements[e].Group);
        }
        std::sort(groups.begin(), groups.end());
        groups.erase(std::unique(groups.begin(), groups.end()), groups.end());
        return groups;
    }

    /// m_x, m_y, m_xy of one group at a node.
    Curvature Moment(std::size_t n, int group) const {
        const Group& g = model_.Groups[static_cast<std::size_t>(group)];
        const double D = g.Modulus * std::pow(g.Thickness, 3) / (12 * (1 - g.Poisson * g.Poisson));
        const Curvature k = Mean(n, group);
        return {-D * (k[0] + g.Poisson * k[1]), -D * (k[1] + g.Poisson * k[0]),
                -D * (1 - g.Poisson) * k[2]};
    }

  private:
    /// Rectangles and the fit through the triangles, weighted with their numbers at the node.
    Curvature Mean(std::size_t n, int group) const {
        Curvature sum{};
        int rectangles = 0;
        int triangles = 0;
        for (const std::size_t e : patches_[n]) {
            const Element& element = model_.Elements[e];
            if (element.Group != group) {
                continue;
            }
            if (element.Corners == 3) {
                ++triangles;
                continue;
            }
            ++rectangles;
            const auto corner = std::find(element.Node.begin(), element.Node.end(), n + 1);
            const auto curvatures = RectangleCurvatures(model_, element, displacement_);
            for (std::size_t m = 0; m < 3; ++m) {
                sum[m] += curvatures[static_cast<std::size_t>(corner - element.Node.begin())][m];
            }
        }
        const Curvature fit = triangles > 0 ? TriangleFit(n, group) : Curvature{};
        for (std::size_t m = 0; m < 3; ++m) {
            sum[m] = (sum[m] + triangles * fit[m]) / (rectangles + triangles);
        }
        return sum;
    }

    Curvature TriangleFit(std::size_t n, int group) const {
        std::vector<Sample> samples = Samples(patches_[n], n, group);
        if (samples.size() < 6) {
            samples = Samples(Widened(model_, patches_, patches_[n]), n, group);
        }
        return PlaneAtOrigin(samples);
    }

    std::vector<Sample> Samples(const Patch& patch, std::size_t n, int group) const {
        std::vector<Sample> samples;
        for (const std::size_t e : patch) {
            const Element& element = model_.Elements[e];
            if (element.Group == group && element.Corners == 3) {
                const Point c = Centroid(model_, element);
                samples.push_back({{c.x - model_.Nodes[n].x, c.y - model_.Nodes[n].y},
                                   TriangleCurvature(model_, element, displacement_)});
            }
        }
        return samples;
    }

    const Model& model_;
    const Vector& displacement_;
    std::vector<Patch> patches_;
};

/// What is odd across a symmetry line vanishes on it: the half model sees one side only.
void ApplySymmetry(const SymmetryLines& lines, const Point& p, Curvature& m) {
    const int signs[] = {lines.OnYMax(p) ? lines.AcrossX() : 0,
                         lines.OnXMax(p) ? lines.AcrossY() : 0};
    for (const int sign : signs) {
        if (sign > 0) {
            m[2] = 0;
        } else if (sign < 0) {
            m[0] = m[1] = 0;
        }
    }
}

void SetMoments(const Curvature& moment, NodeResult& node) {
    node.Mx = moment[0];
    node.My = moment[1];
    node.Mxy = moment[2];
    const double mean = (node.Mx + node.My) / 2;
    const double radius = std::hypot((node.Mx - node.My) / 2, node.Mxy);
    node.M1 = mean + radius;
    node.M2 = mean - radius;
    node.Angle = radius > 0 ? std::atan2(2 * node.Mxy, node.Mx - node.My) / 2 : 0;
}

} // namespace

void FillMoments(const Model& model, const Vector& displacement, std::vector<NodeResult>& nodes) {
    const MomentsAtNodes moments(model, displacement);
    const SymmetryLines lines(model);
    for (std::size_t n = 0; n < nodes.size(); ++n) {
        double largest = -1;
        for (const int group : moments.Groups(n)) {
            Curvature moment = moments.Moment(n, group);
            ApplySymmetry(lines, model.Nodes[n], moment);
            NodeResult candidate = nodes[n];
            SetMoments(moment, candidate);
            const double size = std::fmax(std::fabs(candidate.M1), std::fabs(candidate.M2));
            if (size > largest) {
                largest = size;
                nodes[n] = candidate;
            }
        }
    }
}

} // namespace slab

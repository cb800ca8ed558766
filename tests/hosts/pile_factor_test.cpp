// Every influence coefficient between piles and raft that the shipped examples use, against the
// point load in the half-space (Mindlin, 1936, Physics 7, 195-202) integrated in double precision.

#include "hosts/slab/analysis.h"
#include "hosts/slab/piles/dense_inverse.h"
#include "hosts/slab/piles/pile_coefficients.h"
#include "hosts/slab/project.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <map>
#include <numbers>

namespace slab {
namespace {

const double pi = std::numbers::pi;

/// Integral by the double-exponential rule (Takahasi and Mori, 1974), which bears singular ends.
/// The function gets its argument and how far it is from the upper end.
double Integral(double from, double to, const std::function<double(double, double)>& f) {
    double sum = 0;
    constexpr double step = 0.2;
    for (int k = -16; k <= 16; ++k) {
        const double u = pi / 2 * std::sinh(k * step);
        const double weight = pi / 2 * std::cosh(k * step) / std::pow(std::cosh(u), 2);
        const double left = (to - from) / (1 + std::exp(-2 * u));
        const double right = (to - from) / (1 + std::exp(2 * u));
        sum += weight * f(from + left, right);
    }
    return sum * step * (to - from) / 2;
}

/// Settlement by loads in a half-space or a layer, integrated.
class Quadrature {
  public:
    explicit Quadrature(const Soil& soil) : nu_(soil.Poisson), modulus_(soil.Modulus) {
        if (!soil.Layers.empty()) {
            nu_ = soil.Layers[0].Poisson;
            modulus_ = soil.Layers[0].Modulus;
            rigid_ = soil.Layers[0].Thickness;
        }
    }

    double operator()(const PiledRaftNode& load, double distance, double depth, bool ownBase) {
        double& value = known_[{double(load.Kind), load.Radius, load.Top, distance, depth}];
        if (value == 0) {
            value = HalfSpace(load, distance, depth) * (ownBase ? pi / 4 : 1);
            value -= rigid_ > 0 ? HalfSpace(load, distance, rigid_) : 0;
        }
        return value / modulus_;
    }
    std::size_t Count() const { return known_.size(); }

  private:
    double Point(double d2, double c, double z) const {
        const double r1 = std::sqrt(d2 + (z - c) * (z - c));
        const double r2 = std::sqrt(d2 + (z + c) * (z + c));
        const double n = 3 - 4 * nu_;
        const double sum = n / r1 + (8 * (1 - nu_) * (1 - nu_) - n) / r2 +
                           (z - c) * (z - c) / std::pow(r1, 3) +
                           (n * (z + c) * (z + c) - 2 * c * z) / std::pow(r2, 3) +
                           6 * c * z * (z + c) * (z + c) / std::pow(r2, 5);
        return (1 + nu_) / (8 * pi * (1 - nu_)) * sum;
    }
    /// Mean over a ring; its nearest point is at the end of the half turn.
    double Ring(double radius, double distance,
                const std::function<double(double)>& atSquare) const {
        if (distance > 3 * radius || distance == 0) {
            double sum = 0;
            for (int k = 0; k < 16; ++k) {
                const double cosine = std::cos(pi * (k + 0.5) / 16);
                sum += atSquare(distance * distance + radius * radius +
                                2 * distance * radius * cosine) /
                       16;
            }
            return sum;
        }
        return Integral(0, pi,
                        [&](double, double fromEnd) {
                            const double sine = std::sin(fromEnd / 2);
                            return atSquare((distance - radius) * (distance - radius) +
                                            4 * distance * radius * sine * sine);
                        }) /
               pi;
    }
    double HalfSpace(const PiledRaftNode& load, double distance, double depth) const {
        if (load.Kind != NodeKind::Shaft) {
            return 2 / (load.Radius * load.Radius) *
                   Integral(0, load.Radius, [&](double t, double) {
                       return t * Ring(t, distance,
                                       [&](double d2) { return Point(d2, load.Depth, depth); });
                   });
        }
        const auto line = [&](double d2) {
            const auto piece = [&](double from, double to) {
                return Integral(from, to, [&](double c, double) { return Point(d2, c, depth); });
            };
            const bool beside = depth > load.Top && depth < load.Bottom;
            const double sum = beside ? piece(load.Top, depth) + piece(depth, load.Bottom)
                                      : piece(load.Top, load.Bottom);
            return sum / (load.Bottom - load.Top);
        };
        return Ring(load.Radius, distance, line);
    }

    double nu_, modulus_, rigid_ = 0;
    std::map<std::array<double, 5>, double> known_;
};

TEST(PileFactors, OfTheExamplesAreWithinHalfAPercent) {
    RunWindow window(RunWindow::Style::Quiet);
    int examples = 0;
    for (const Example& example : Examples()) {
        if (example.Text.find("[piles]") == std::string::npos) {
            continue;
        }
        ++examples;
        const Model model = ParseProject(example.Text, example.Name);
        const std::vector<ContactArea> areas = ContactAreas(model);
        const SoilFlexibility surface(model, areas, window);
        PileCoefficients coefficients(model, surface);
        const SymmetryLines lines(model);
        const std::vector<PiledRaftNode> nodes = PiledRaftNodes(model, areas);
        Quadrature exact(model.Soil);
        double worst = 0;
        for (const PiledRaftNode& load : nodes) {
            for (const PiledRaftNode& node : nodes) {
                if (load.Kind == NodeKind::Raft && node.Kind == NodeKind::Raft) {
                    continue;
                }
                double sum = 0;
                for (const MirrorImage& image : MirrorImages(node.Place, lines)) {
                    double distance =
                        std::hypot(image.At.x - load.LoadCentre.x, image.At.y - load.LoadCentre.y);
                    distance = std::round(distance * 1e6) / 1e6;
                    const bool own = distance == 0 && load.Kind != NodeKind::Raft;
                    if (own && node.Kind == NodeKind::Shaft) {
                        distance = load.Radius;
                    }
                    sum += exact(load, distance, node.Depth,
                                 own && node.Kind == NodeKind::Base && load.Kind == NodeKind::Base);
                }
                worst = std::fmax(worst, std::fabs(coefficients.At(node, load) / sum - 1));
            }
        }
        std::printf("  | %s | %zu integrals | %.2g %% |\n", example.Name.c_str(), exact.Count(),
                    100 * worst);
        EXPECT_LT(worst, 5e-3) << example.Name;
    }
    EXPECT_GE(examples, 2);
}

// The largest entry of a column is its pivot, whatever its sign and wherever it stands.
TEST(DenseInverse, TakesTheLargestPivot) {
    const std::vector<Vector> matrices = {
        {4},
        {0, 1, 1, 0},
        {1e-20, 1, 2, -3, 4, 1, 2, 1, 5},
        {1e-18, 2, 1, 1e-9, 1, 3, -7, 1, 1},
        {1, 2, 3, 1, 1, 2, 1e-17, 2, 3, 4, 1e-17, -1, 5, 3, -2, 2},
    };
    for (const Vector& matrix : matrices) {
        const auto n = static_cast<std::size_t>(std::lround(std::sqrt(double(matrix.size()))));
        Vector inverse = matrix;
        std::vector<int> polled;
        Invert(inverse, n, [&polled](int row) { polled.push_back(row); });
        EXPECT_EQ(polled.size(), n);
        EXPECT_EQ(polled.front() * 100 + polled.back(), 100 + static_cast<int>(n));
        for (std::size_t i = 0; i < n; ++i) {
            for (std::size_t j = 0; j < n; ++j) {
                double left = 0;
                double right = 0;
                for (std::size_t k = 0; k < n; ++k) {
                    left += inverse[n * i + k] * matrix[n * k + j];
                    right += matrix[n * i + k] * inverse[n * k + j];
                }
                EXPECT_NEAR(left, i == j, 1e-13) << n << " at " << i << ", " << j;
                EXPECT_NEAR(right, i == j, 1e-13) << n << " at " << i << ", " << j;
            }
        }
    }
    Vector singular{1, 2, 2, 4};
    EXPECT_THROW(Invert(singular, 2, [](int) {}), AnalysisFailure);
}

} // namespace
} // namespace slab

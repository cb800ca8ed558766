// Rafts on an elastic half-space and on layers against limits and closed forms.

#include "hosts/slab/influence.h"
#include "tests/hosts/quoted.h"
#include "tests/hosts/slab_models.h"

#include <gtest/gtest.h>

namespace slab {
namespace {

constexpr double soil_modulus = 20000;
constexpr double soil_poisson = 0.3;

/// Square raft of 10 m under 100 kN/m2; `stiffness` is E t^3 / (E_soil a^3).
Plate Raft(int n, double stiffness) {
    Plate plate;
    plate.Lx = plate.Ly = 10;
    plate.Nx = plate.Ny = n;
    plate.Load = 100;
    plate.Thickness = 0.5;
    plate.Poisson = 0.2;
    plate.Modulus = stiffness * soil_modulus * 1000 / 0.125;
    return plate;
}

Model RaftModel(int n, double stiffness) {
    Model model = Grid(Raft(n, stiffness));
    OnHalfSpace(model, soil_modulus, soil_poisson);
    return model;
}

/// q B (1 - nu^2) / E.
const double unit = 100 * 10 * (1 - soil_poisson * soil_poisson) / soil_modulus;

double ExactRectangle(const Quadrilateral& r, const Point& p) {
    const auto f = [](double x, double y) {
        return (x == 0 ? 0 : x * std::asinh(y / std::fabs(x))) +
               (y == 0 ? 0 : y * std::asinh(x / std::fabs(y)));
    };
    const double x1 = r.Corner[0].x - p.x, x2 = r.Corner[2].x - p.x;
    const double y1 = r.Corner[0].y - p.y, y2 = r.Corner[2].y - p.y;
    return (1 - soil_poisson * soil_poisson) / (std::acos(-1.0) * soil_modulus * r.Area()) *
           (f(x2, y2) - f(x1, y2) - f(x2, y1) + f(x1, y1));
}

// Love (1929), Phil. Trans. R. Soc. A 228: rectangle in closed form. Signed triangles lose digits
// with the distance, point loads gain them.
TEST(SoilInfluence, CoefficientsAgainstTheClosedForm) {
    const Quadrilateral rectangle{{Point{-0.25, -0.4}, {0.3, -0.4}, {0.3, 0.35}, {-0.25, 0.35}},
                                  true};
    const ContactArea area{{rectangle}, rectangle.Area(), 0.5, 0.93};
    Soil soil;
    soil.Kind = SoilKind::HalfSpace;
    soil.Modulus = soil_modulus;
    soil.Poisson = soil_poisson;
    const Influence influence(soil);
    for (const double distance : {0.0, 0.3, 0.9, 1.1, 2.0, 2.9, 3.1, 4.0, 8.0, 27.5, 28.5, 80.0}) {
        double chosen = 0, triangles = 0, two = 0, three = 0, centre = 0;
        for (int k = 0; k < 500; ++k) {
            const Point p{distance * std::cos(0.1 + k), distance * std::sin(0.1 + k)};
            const double exact = ExactRectangle(rectangle, p);
            const auto error = [exact](double value) { return std::fabs(value / exact - 1); };
            chosen = std::fmax(chosen, error(influence.Settlement(area, p)));
            triangles = std::fmax(triangles, error(influence.FromTriangles(area, p)));
            two = std::fmax(two, error(influence.FromPoints(area, p, 2)));
            three = std::fmax(three, error(influence.FromPoints(area, p, 3)));
            centre = std::fmax(centre, error((1 - 0.09) / (std::acos(-1.0) * soil_modulus *
                                                           std::hypot(p.x - 0.025, p.y + 0.025))));
        }
        std::printf("  | %5.1f | %.1e | %.1e | %.1e | %.1e | %.1e |\n", distance / 0.5, triangles,
                    three, two, centre, chosen);
        EXPECT_LT(chosen, distance < 1 ? 5e-3 : 6e-5) << distance;
    }
}

TEST(SoilInfluence, TrianglesAndRectanglesShareTheGround) {
    for (const Shape shape : {Shape::Rectangles, Shape::Triangles}) {
        Plate plate = Raft(6, 1);
        plate.Elements = shape;
        const Model model = Grid(plate);
        double total = 0;
        for (const ContactArea& area : ContactAreas(model)) {
            EXPECT_LE(area.Pieces.size(), shape == Shape::Rectangles ? 1U : 8U);
            total += area.Area;
        }
        EXPECT_NEAR(total, 100, 1e-9);
    }
}

// Steinbrenner (1934): the flexible square settles 1.1222 in the middle and 0.5611 at the corner.
TEST(HalfSpace, FlexibleRaftSettlesLikeItsLoad) {
    for (const Shape shape : {Shape::Rectangles, Shape::Triangles}) {
        for (const int n : {16, 32}) {
            Plate plate = Raft(n, 1e-6);
            plate.Elements = shape;
            Model model = Grid(plate);
            OnHalfSpace(model, soil_modulus, soil_poisson);
            const Results results = Analysed(model);
            std::printf("  flexible raft, %d x %d %s, %zu cycles\n", n, n,
                        shape == Shape::Rectangles ? "rectangles" : "pairs of triangles",
                        results.Cycles.size());
            EXPECT_LT(Quote("centre w E / (q B (1 - nu^2))",
                            At(model, results, 5, 5).Settlement / unit, 1.1222),
                      2e-3);
            EXPECT_LT(Quote("corner w E / (q B (1 - nu^2))",
                            At(model, results, 0, 0).Settlement / unit, 0.5611),
                      0.2 / n);
        }
    }
}

// A rigid square punch: w = 0.8678 q B (1 - nu^2) / E, from the capacitance 0.36679 of the unit
// square plate (Read 1997, J. Comput. Phys. 133); Gorbunov-Possadov (1961) gives 0.88.
TEST(HalfSpace, StiffRaftSettlesAsARigidBody) {
    double coarse = 0;
    for (const int n : {8, 16, 32}) {
        const Model model = RaftModel(n, 1e3);
        const Results results = Analysed(model);
        const double w = At(model, results, 5, 5).Settlement / unit;
        for (const NodeResult& node : results.Nodes) {
            EXPECT_NEAR(node.Settlement / unit, w, 1e-3 * w);
        }
        std::printf("  rigid raft, %d x %d, %zu cycles\n", n, n, results.Cycles.size());
        EXPECT_LT(Quote("w E / (q B (1 - nu^2))", w, 0.8678), 0.45 / n);
        EXPECT_NEAR(results.Balance.Soil, 10000, 0.01);
        if (coarse > 0) {
            EXPECT_LT(Quote("extrapolated to elements of size 0", 2 * w - coarse, 0.8678), 2e-3);
        }
        coarse = w;
    }
}

TEST(HalfSpace, EveryStiffnessConverges) {
    for (const int n : {12, 30}) {
        double last = 1e300;
        for (const double stiffness : {1e-6, 1e-4, 1e-3, 1e-2, 0.1, 1.0, 10.0, 100.0, 1e4}) {
            const Model model = RaftModel(n, stiffness);
            const Results results = Analysed(model);
            const double difference =
                At(model, results, 5, 5).Settlement - At(model, results, 0, 0).Settlement;
            std::printf("  | %3d | %8.0e | %2zu | %.1e | %.1e | %10.5f | %6.3f |\n", n, stiffness,
                        results.Cycles.size(), results.Cycles.back().Change,
                        results.Cycles.back().Mismatch, difference / unit,
                        At(model, results, 5, 5).Pressure / 100);
            EXPECT_TRUE(results.Converged) << stiffness;
            EXPECT_LE(results.Cycles.size(), 30U) << stiffness;
            EXPECT_LT(results.Balance.RelativeError, 1e-5) << stiffness;
            EXPECT_LT(difference, last * (stiffness > 1e-3 ? 1 : 1.001)) << stiffness;
            EXPECT_GT(difference, 0) << stiffness;
            for (const NodeResult& node : results.Nodes) {
                EXPECT_NEAR(node.Settlement, node.SoilSettlement, 1e-4);
            }
            last = difference;
        }
    }
}

TEST(Layers, MeetTheHalfSpaceAndOneAnother) {
    const auto settled = [](const std::vector<SoilLayer>& layers) {
        Model model = RaftModel(10, 0.1);
        if (!layers.empty()) {
            model.Soil.Kind = SoilKind::Layered;
            model.Soil.Layers = layers;
        }
        const Results results = Analysed(model);
        EXPECT_TRUE(results.Converged);
        return At(model, results, 5, 5).Settlement;
    };
    const double halfSpace = settled({});
    EXPECT_LT(Quote("one layer of 100 km / half-space, m", settled({{1e5, soil_modulus, 0.3}}),
                    halfSpace),
              2e-4);
    const double one = settled({{8, soil_modulus, 0.3}});
    EXPECT_LT(Quote("layers of 3 m and 5 m / one of 8 m, m",
                    settled({{3, soil_modulus, 0.3}, {5, soil_modulus, 0.3}}), one),
              1e-5);
    EXPECT_LT(one, halfSpace);
    EXPECT_GT(settled({{3, soil_modulus / 4, 0.3}, {5, soil_modulus, 0.3}}), one);
    // A slice just below the surface is strained by (1 + nu)(1 - 2 nu) q / E.
    Model thin = RaftModel(20, 1e-6);
    thin.Soil.Kind = SoilKind::Layered;
    thin.Soil.Layers = {{0.1, soil_modulus, 0.3}};
    EXPECT_LT(Quote("thin layer / (1 + nu)(1 - 2 nu) q H / E, m",
                    At(thin, Analysed(thin), 5, 5).Settlement,
                    1.3 * 0.4 * 100 * 0.1 / soil_modulus),
              0.02);
}

/// The whole raft 8 x 6 m with a load pattern of the given parity, or its part below and left of
/// the symmetry lines.
Model Part(torlib::SymmetricCase symmetry, SoilKind soil, bool whole) {
    using torlib::SymmetricCase;
    const bool x =
        symmetry == SymmetricCase::X_symmetric || symmetry == SymmetricCase::X_AntiSymmetric;
    const bool both = symmetry == SymmetricCase::XY_Symmetric;
    const bool odd =
        symmetry == SymmetricCase::X_AntiSymmetric || symmetry == SymmetricCase::Y_AntiSymmetric;
    Plate plate;
    plate.Lx = whole || x ? 8 : 4;
    plate.Ly = whole || (!x && !both) ? 6 : 3;
    plate.Nx = static_cast<int>(plate.Lx) * 2;
    plate.Ny = static_cast<int>(plate.Ly) * 2;
    Model model = Grid(plate);
    for (std::size_t e = 0; e < model.Elements.size(); ++e) {
        const Point& low = model.Nodes[model.Elements[e].Node[0] - 1];
        const double u = std::fabs(low.x + 0.25 - 4) + (both || !x ? 0 : 0.4 * low.x);
        const double v = std::fabs(low.y + 0.25 - 3) + (both || x ? 0 : 0.3 * low.y);
        const bool mirrored = x ? low.y >= 3 : low.x >= 4;
        model.Pressure[e] = (10 + 5 * u * u + 3 * v) * (odd && mirrored ? -1 : 1);
    }
    model.Symmetry = whole ? SymmetricCase::Unsymmetric : symmetry;
    if (soil == SoilKind::Winkler) {
        OnWinkler(model, 3000);
    } else {
        OnHalfSpace(model, 5000, 0.3);
        if (soil == SoilKind::Layered) {
            model.Soil.Kind = soil;
            model.Soil.Layers = {{2, 5000, 0.3}, {6, 15000, 0.25}};
        }
    }
    model.Stop.Accuracy = 1e-7;
    return model;
}

TEST(Symmetry, PartsEqualTheWhole) {
    using torlib::SymmetricCase;
    for (const SoilKind soil : {SoilKind::Winkler, SoilKind::HalfSpace, SoilKind::Layered}) {
        for (const SymmetricCase symmetry :
             {SymmetricCase::X_symmetric, SymmetricCase::Y_Symmetric, SymmetricCase::XY_Symmetric,
              SymmetricCase::X_AntiSymmetric, SymmetricCase::Y_AntiSymmetric}) {
            const Model part = Part(symmetry, soil, false);
            const Model whole = Part(symmetry, soil, true);
            const Results of = Analysed(part);
            const Results all = Analysed(whole);
            double w = 0, m = 0, p = 0, largestW = 0, largestM = 0, largestP = 0;
            for (std::size_t n = 0; n < part.Nodes.size(); ++n) {
                const NodeResult& a = of.Nodes[n];
                const NodeResult& b = At(whole, all, part.Nodes[n].x, part.Nodes[n].y);
                w = std::fmax(w, std::fabs(a.Settlement - b.Settlement));
                m = std::fmax(m, std::fabs(a.Mx - b.Mx) + std::fabs(a.My - b.My) +
                                     std::fabs(a.Mxy - b.Mxy));
                p = std::fmax(p, std::fabs(a.Pressure - b.Pressure));
                largestW = std::fmax(largestW, std::fabs(b.Settlement));
                largestM = std::fmax(largestM, std::fabs(b.M1) + std::fabs(b.M2));
                largestP = std::fmax(largestP, std::fabs(b.Pressure));
            }
            std::printf("  | soil %d | case %d | w %.1e | m %.1e | p %.1e |\n",
                        static_cast<int>(soil), static_cast<int>(symmetry), w / largestW,
                        m / largestM, p / largestP);
            EXPECT_LT(w, 2e-4 * largestW);
            EXPECT_LT(m, 1e-3 * largestM);
            EXPECT_LT(p, 1e-3 * largestP);
            EXPECT_LT(of.Balance.RelativeError, 1e-6);
        }
    }
}

// The loaded corner stays down, the opposite one lifts off, and the gap opens upwards only.
TEST(HalfSpace, TensionCutOffLeavesNoPull) {
    Plate plate = Raft(12, 1);
    plate.Load = 1;
    Model model = Grid(plate);
    OnHalfSpace(model, soil_modulus, soil_poisson);
    model.NodalLoads[3 * (NodeAt(model, 10, 10) - 1)] = 100;
    EXPECT_FALSE(Analysed(model).Warnings.empty());
    model.Soil.TensionCutOff = true;
    const Results results = Analysed(model);
    const double largest = At(model, results, 10, 10).Pressure;
    const double deepest = At(model, results, 10, 10).Settlement;
    int lifted = 0;
    for (const NodeResult& node : results.Nodes) {
        EXPECT_GE(node.Pressure, -2e-3 * largest);
        lifted += node.ContactForce == 0;
        EXPECT_LT(node.Settlement - node.SoilSettlement, 1e-3 * deepest);
        if (node.ContactForce != 0) {
            EXPECT_NEAR(node.Settlement, node.SoilSettlement, 1e-3 * deepest);
        }
    }
    std::printf("  %d of %zu nodes lifted, %zu cycles\n", lifted, results.Nodes.size(),
                results.Cycles.size());
    EXPECT_GT(lifted, 10);
    EXPECT_TRUE(results.Converged);
    EXPECT_LE(results.Cycles.size(), 30U);
    EXPECT_NEAR(results.Balance.Soil, 200, 1e-4);
}

} // namespace
} // namespace slab

// Slabs on Winkler springs against beams on elastic foundation and rigid blocks.

#include "tests/hosts/quoted.h"
#include "tests/hosts/slab_models.h"

#include <gtest/gtest.h>

namespace slab {
namespace {

/// A strip of width b along x, bending as a beam: Poisson's ratio 0.
struct Strip {
    Plate Shape;
    double Subgrade = 20000;
    double Lambda = 0;
};

Strip StripOf(double lambdaLength, int elements) {
    Strip strip;
    Plate& p = strip.Shape;
    p.Poisson = 0;
    p.Thickness = 0.4;
    p.Load = 0;
    strip.Lambda = std::pow(strip.Subgrade / (4 * p.Rigidity()), 0.25);
    p.Lx = lambdaLength / strip.Lambda;
    p.Ly = 1;
    p.Nx = elements;
    p.Ny = 2;
    return strip;
}

/// A line load across the strip.
void LoadLine(Model& model, double x, double force) {
    const double share[] = {0.25, 0.5, 0.25};
    for (int i = 0; i < 3; ++i) {
        model.NodalLoads[3 * (NodeAt(model, x, 0.5 * i) - 1)] = force * share[i];
    }
}

// Hetenyi (1946), Beams on Elastic Foundation, sections 3 and 13: infinite beam and beam of finite
// length with free ends under a load at the middle.
TEST(Winkler, StripMeetsHetenyi) {
    for (const double length : {2.0, 4.0, 12.0}) {
        const Strip strip = StripOf(length, 80);
        Model model = Grid(strip.Shape);
        OnWinkler(model, strip.Subgrade);
        const double P = 100;
        const double mid = strip.Shape.Lx / 2;
        LoadLine(model, mid, P);
        const Results results = Analysed(model);
        const double nearW =
            (std::cosh(length) + std::cos(length) + 2) / (std::sinh(length) + std::sin(length));
        const double nearM =
            (std::cosh(length) - std::cos(length)) / (std::sinh(length) + std::sin(length));
        const NodeResult& node = At(model, results, mid, 0.5);
        std::printf("  strip, lambda l = %g\n", length);
        EXPECT_LT(Quote("w under the load, m", node.Settlement,
                        P * strip.Lambda / (2 * strip.Subgrade) * nearW),
                  2e-3);
        EXPECT_LT(Quote("m under the load, kNm/m", node.Mx, P / (4 * strip.Lambda) * nearM), 2e-2);
        EXPECT_NEAR(node.Pressure, strip.Subgrade * node.Settlement, 1e-6);
        EXPECT_NEAR(results.Balance.Soil, P, 1e-6);
        if (length > 10) {
            const double z = 0.3 * length;
            const double far = P * strip.Lambda / (2 * strip.Subgrade) * std::exp(-z) *
                               (std::cos(z) + std::sin(z));
            EXPECT_LT(Quote("w at lambda x = 3.6, m",
                            At(model, results, mid + z / strip.Lambda, 0.5).Settlement, far),
                      0.02);
        }
    }
}

// A rigid block with the load outside the kern: triangular pressure over 3 (B / 2 - e).
TEST(Winkler, EccentricBlockLiftsOff) {
    for (const double e : {0.25, 1.0 / 3, 0.4}) {
        Plate plate;
        plate.Lx = 1;
        plate.Ly = 0.5;
        plate.Nx = 60;
        plate.Ny = 2;
        plate.Thickness = 0.6;
        plate.Load = 0;
        Model model = Grid(plate);
        OnWinkler(model, 10000);
        model.NodalLoads[3 * (NodeAt(model, 0.5, 0.25) - 1)] = 50;
        model.NodalLoads[3 * (NodeAt(model, 0.5, 0.25) - 1) + 1] = 50 * e;
        const Results pulled = Analysed(model);
        EXPECT_FALSE(pulled.Warnings.empty());
        model.Soil.TensionCutOff = true;
        const Results results = Analysed(model);
        const double contact = 3 * (0.5 - e);
        const NodeResult& edge = At(model, results, 1, 0.25);
        std::printf("  rigid block, e / B = %.3f, %zu cycles\n", e, results.Cycles.size());
        EXPECT_LT(Quote("contact length / B", edge.Settlement / edge.SlopeX, contact), 0.02);
        EXPECT_LT(Quote("largest pressure B b / P", edge.Pressure * 0.5 / 50, 2 / contact), 0.02);
        EXPECT_TRUE(results.Converged);
        EXPECT_NEAR(results.Balance.Soil, 50, 1e-3);
        for (const NodeResult& node : results.Nodes) {
            EXPECT_GE(node.Pressure, 0);
            EXPECT_EQ(node.Pressure > 0, node.Settlement > 0);
        }
    }
}

// A block that is loaded beyond its edge finds no equilibrium without tension.
TEST(Winkler, OverturningIsNamed) {
    Plate plate;
    plate.Load = 0;
    Model model = Grid(plate);
    OnWinkler(model, 10000);
    model.Soil.TensionCutOff = true;
    model.NodalLoads[3 * (NodeAt(model, 0.5, 0.5) - 1)] = 50;
    model.NodalLoads[3 * (NodeAt(model, 0.5, 0.5) - 1) + 1] = 50 * 0.7;
    EXPECT_THROW(Analysed(model), AnalysisFailure);
}

} // namespace
} // namespace slab

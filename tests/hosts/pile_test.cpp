// Pile groups and piled rafts against printed values, laws and their own symmetry.

#include "hosts/slab/analysis.h"
#include "hosts/slab/piles/dense_inverse.h"
#include "tests/hosts/quoted.h"
#include "tests/hosts/slab_models.h"

#include <gtest/gtest.h>

#include <numbers>
#include <random>

namespace slab {
namespace {

using torlib::SymmetricCase;

constexpr double es = 20000; // kN/m2
const double pi = std::numbers::pi;

void AddPile(Model& model, double x, double y, const Pile& kind) {
    Pile pile = kind;
    pile.Node = NodeAt(model, x, y);
    model.Piling.Piles.push_back(pile);
    model.Piling.Segment = pile.Length / 10;
}

void AddLoad(Model& model, double x, double y, double force) {
    model.NodalLoads[3 * static_cast<std::size_t>(NodeAt(model, x, y) - 1)] += force;
}

/// Stiff cap without weight or contact, lower left quarter of a system in the half-space.
Model Cap(double Lx, double Ly, int Nx, int Ny, double nu) {
    Plate plate;
    plate.Lx = Lx, plate.Ly = Ly, plate.Nx = Nx, plate.Ny = Ny;
    plate.Load = 0;
    plate.Thickness = 1;
    Model model = Grid(plate);
    OnHalfSpace(model, es, nu);
    model.Symmetry = SymmetricCase::XY_Symmetric;
    model.Piling.Contact = false;
    model.Stop.Accuracy = 1e-8;
    return model;
}

/// A pile of diameter 1 and length 25 that cannot be compressed, on both symmetry lines.
Model SinglePile(double nu) {
    Model model = Cap(2, 2, 1, 1, nu);
    AddPile(model, 2, 2, {0, 25, 1, 0, 0});
    AddLoad(model, 2, 2, 250);
    return model;
}

/// Two of them, `spacing` apart; the surface at their head is 2 m wider.
Model PilePair(double nu, double spacing) {
    Model model = Cap(2 + spacing / 2, 2, 2, 1, nu);
    model.Nodes[2].x = model.Nodes[3].x = 2;
    AddPile(model, 2, 2, {0, 25, 1, 0, 0});
    AddLoad(model, 2, 2, 500);
    return model;
}

// Poulos and Davis (1968), Geotechnique 18: influence factor I0 = w E d / P of the rigid pile,
// share of the base, and interaction factor of a pair.
TEST(PileGroup, RigidPilesInTheHalfSpace) {
    const PileResult one = Analysed(SinglePile(0.5)).Piles.front();
    EXPECT_NEAR(one.Head, 1000, 1e-3);
    EXPECT_LT(Quote("rigid pile L/d 25, nu 0.5: I0", one.Settlement * es / 1000, 0.0747), 1e-3);
    EXPECT_LT(Quote("share of its base", one.Base / one.Head, 0.062), 5e-3);
    const PileResult pair = Analysed(PilePair(0.5, 5)).Piles.front();
    EXPECT_NEAR(pair.Head, 1000, 1e-3);
    EXPECT_LT(Quote("interaction factor at s/d 5", pair.Settlement / one.Settlement - 1, 0.436),
              2e-3);
}

// Far away a pile is a point load on the surface: Boussinesq (1885).
TEST(PileGroup, FarAwayAPileIsAPointLoad) {
    const double spacing = 600;
    const double alone = Analysed(SinglePile(0.3)).Piles.front().Settlement;
    const Model model = PilePair(0.3, spacing);
    const Results results = Analysed(model);
    const double point = 1000 * (1 - 0.09) / (pi * es);
    EXPECT_NEAR(results.Piles.front().Settlement - alone, point / spacing, 0.01 * point / spacing);
    const double between = At(model, results, 2 + spacing / 2, 2).SoilSettlement;
    EXPECT_NEAR(between, 2 * point / (spacing / 2), 0.01 * between);
}

// A pile on both symmetry lines, two on one line each, and one on none.
Model PiledRaft(bool quarter, bool contact, double capacity) {
    Plate plate;
    plate.Lx = quarter ? 4 : 8, plate.Ly = quarter ? 3 : 6;
    plate.Nx = quarter ? 4 : 8, plate.Ny = quarter ? 3 : 6;
    plate.Load = 40;
    plate.Thickness = 0.6;
    Model model = Grid(plate);
    model.Soil.Kind = SoilKind::Layered;
    model.Soil.Layers = {{16, es, 0.3}};
    model.Stop.Accuracy = 1e-7;
    model.Piling.Contact = contact;
    model.Symmetry = quarter ? SymmetricCase::XY_Symmetric : SymmetricCase::Unsymmetric;
    for (const double x : {1.0, 4.0, 7.0}) {
        for (const double y : {1.0, 3.0, 5.0}) {
            if (x <= plate.Lx && y <= plate.Ly) {
                AddPile(model, x, y, {0, x == 4 ? 8.0 : 6.0, 0.5, 3e7, capacity});
            }
        }
    }
    model.Piling.Segment = 1;
    return model;
}

TEST(PiledRaft, QuarterHasTheSettlementsOfTheWhole) {
    for (const auto& [contact, capacity] :
         {std::pair(true, 0.0), std::pair(true, 170.0), std::pair(false, 0.0)}) {
        const Model whole = PiledRaft(false, contact, capacity);
        const Model part = PiledRaft(true, contact, capacity);
        const Results all = Analysed(whole);
        const Results quarter = Analysed(part);
        ASSERT_TRUE(all.Converged && quarter.Converged);
        EXPECT_NEAR(4 * quarter.Balance.Piles, all.Balance.Piles, 1e-4 * all.Balance.Piles);
        for (const Point& p : part.Nodes) {
            const NodeResult a = At(whole, all, p.x, p.y);
            const NodeResult b = At(part, quarter, p.x, p.y);
            EXPECT_NEAR(a.Settlement, b.Settlement, 1e-4 * a.Settlement);
            EXPECT_NEAR(a.SoilSettlement, b.SoilSettlement, 1e-4 * a.SoilSettlement);
            EXPECT_NEAR(a.Pressure, b.Pressure, 1e-3 * std::fabs(a.Pressure) + 1e-3);
        }
        for (const PileResult& pile : quarter.Piles) {
            const Point& p = part.Nodes[static_cast<std::size_t>(pile.Node - 1)];
            const int node = NodeAt(whole, p.x, p.y);
            for (const PileResult& same : all.Piles) {
                EXPECT_TRUE(same.Node != node ||
                            (std::fabs(pile.Head - same.Head) < 1e-3 * same.Head &&
                             std::fabs(pile.Base - same.Base) < 1e-3 * same.Base))
                    << p.x << ' ' << p.y;
            }
        }
    }
}

TEST(PiledRaft, ForcesBalanceAndCompressThePiles) {
    for (const bool contact : {true, false}) {
        const Model model = PiledRaft(false, contact, 0);
        const Results results = Analysed(model);
        EXPECT_LT(results.Balance.RelativeError, 1e-9);
        EXPECT_EQ(results.Balance.Soil == 0, !contact);
        double heads = 0;
        for (std::size_t i = 0; i < results.Piles.size(); ++i) {
            const PileResult& pile = results.Piles[i];
            const Pile& kind = model.Piling.Piles[i];
            heads += pile.Head;
            EXPECT_NEAR(pile.Settlement,
                        results.Nodes[static_cast<std::size_t>(pile.Node - 1)].Settlement, 1e-6);
            // The axial force falls at the middle of every piece by what the piece hands over.
            double force = pile.Head;
            double shortening = force * 0.5;
            for (std::size_t k = 0; k < pile.Segments.size(); ++k) {
                force -= pile.Segments[k];
                shortening += force * (k + 1 < pile.Segments.size() ? 1 : 0.5);
            }
            EXPECT_NEAR(force, pile.Base, 1e-6 * pile.Head);
            shortening /= 3e7 * pi * kind.Diameter * kind.Diameter / 4;
            EXPECT_NEAR(pile.Settlement - pile.BaseSettlement, shortening, 1e-4 * shortening);
        }
        EXPECT_NEAR(heads, results.Balance.Piles, 1e-3);
    }
}

TEST(PiledRaft, ExhaustedPilesSlipAndTheSoilCarriesTheRest) {
    const Results elastic = Analysed(PiledRaft(false, true, 0));
    const Results roomy = Analysed(PiledRaft(false, true, 1000));
    EXPECT_EQ(elastic.Balance.Piles, roomy.Balance.Piles);
    const Results limited = Analysed(PiledRaft(false, true, 100));
    EXPECT_TRUE(limited.Converged);
    EXPECT_NEAR(limited.Balance.Piles, 900, 1e-6);
    for (const PileResult& pile : limited.Piles) {
        EXPECT_TRUE(pile.Exhausted);
        EXPECT_GT(limited.Nodes[static_cast<std::size_t>(pile.Node - 1)].Settlement,
                  pile.Settlement);
    }
    EXPECT_GT(limited.Nodes[0].Settlement, elastic.Nodes[0].Settlement);
    EXPECT_THROW(Analysed(PiledRaft(false, false, 100)), AnalysisFailure);
}

TEST(PiledRaft, PilesPullWhereTheRaftLiftsOff) {
    Model model = PiledRaft(false, true, 0);
    model.Pressure.assign(model.Pressure.size(), 0);
    model.Soil.TensionCutOff = true;
    model.Stop.MaxCycles = 200;
    AddLoad(model, 0, 3, 1500);
    const Results results = Analysed(model);
    EXPECT_TRUE(results.Converged);
    double least = 0;
    for (const PileResult& pile : results.Piles) {
        least = std::fmin(least, pile.Head);
    }
    EXPECT_LT(least, -10);
    for (const NodeResult& node : results.Nodes) {
        EXPECT_GT(node.Pressure, -0.1);
    }
}

// Rows whose pivots vanish without an exchange, or would ruin every digit.
TEST(DenseInverse, TimesTheMatrixIsOne) {
    std::mt19937 random(3);
    std::uniform_real_distribution<double> number(-1, 1);
    for (const std::size_t n : {1U, 2U, 3U, 8U, 30U}) {
        for (const double onDiagonal : {0.0, 1e-18, 1e-9}) {
            Vector matrix(n * n);
            for (std::size_t i = 0; i < n; ++i) {
                for (std::size_t j = 0; j < n; ++j) {
                    // Large in turned-round order, so that every column needs an exchange.
                    matrix[i * n + j] = i + j == n - 1 ? 2 + number(random) : 0.1 * number(random);
                }
                matrix[i * n + i] = n > 1 && 2 * i != n - 1 ? onDiagonal : 3;
            }
            Vector inverse = matrix;
            int rows = 0;
            Invert(inverse, n, [&rows](int row) { EXPECT_EQ(row, ++rows); });
            EXPECT_EQ(rows, static_cast<int>(n));
            for (std::size_t i = 0; i < n; ++i) {
                for (std::size_t j = 0; j < n; ++j) {
                    double sum = 0;
                    for (std::size_t k = 0; k < n; ++k) {
                        sum += inverse[i * n + k] * matrix[k * n + j];
                    }
                    EXPECT_NEAR(sum, i == j, 1e-12) << n << ": " << i << ", " << j;
                }
            }
        }
    }
    Vector singular{1, 2, 2, 4};
    EXPECT_THROW(Invert(singular, 2, [](int) {}), AnalysisFailure);
}

// With antisymmetric loads the line of symmetry stays where it is, and opposite piles pull.
TEST(PiledRaft, AntisymmetricHalf) {
    Model whole = PiledRaft(false, true, 0);
    whole.Pressure.assign(whole.Pressure.size(), 0);
    for (std::size_t i = 6; i-- > 3;) { // the piles at x = 4 go
        whole.Piling.Piles.erase(whole.Piling.Piles.begin() + static_cast<std::ptrdiff_t>(i));
    }
    Model half = whole;
    AddLoad(whole, 1, 1, 300);
    AddLoad(whole, 7, 1, -300);
    const auto isRight = [](const Point& p) { return p.x > 4.5; };
    std::erase_if(half.Nodes, isRight);
    half.Elements.resize(24);
    half.Pressure.resize(24);
    half.NodalLoads.resize(3 * half.Nodes.size());
    half.Piling.Piles.resize(3);
    half.Symmetry = SymmetricCase::Y_AntiSymmetric;
    AddLoad(half, 1, 1, 300);
    const Results all = Analysed(whole);
    const Results part = Analysed(half);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(part.Piles[i].Head, all.Piles[i].Head, 0.05);
        EXPECT_NEAR(all.Piles[i].Head, -all.Piles[i + 3].Head, 0.05);
    }
    EXPECT_GT(part.Piles[0].Head, 50);
}

} // namespace
} // namespace slab

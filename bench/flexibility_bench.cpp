// Flexibility matrices from the library's factors beside the loop that a reader would write: the
// same formulas in plain double, the system's functions, nothing checked. One thread; pairs of
// nodes per second.

#include "hosts/slab/influence.h"
#include "hosts/slab/soil_flexibility.h"
#include "tests/hosts/slab_models.h"
#include "torlib/piles/mindlin_class.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace {

using std::numbers::pi;
constexpr double nu = 0.3;

// ---- 5 x 5 piles of radius 0.5 and length 20 at a spacing of 3: ten pieces of shaft and a base.

constexpr int side = 5;
constexpr int pieces = 10;
constexpr int pileNodes = side * side * (pieces + 1);
constexpr double ro = 0.5;
constexpr double length = 20;

/// Fills the matrix row by row from the factors of a shaft's piece and of a base.
template <class Shaft, class Base>
void FillPileGroup(std::vector<float>& matrix, Shaft shaft, Base base) {
    auto place = matrix.begin();
    for (int row = 0; row < pileNodes; ++row) {
        const int pile = row / (pieces + 1);
        const int node = row % (pieces + 1);
        const double Z = node == pieces ? length : (node + 0.5) * length / pieces;
        for (int column = 0; column < pileNodes; ++column) {
            const int other = column / (pieces + 1);
            const int loaded = column % (pieces + 1);
            const double R = pile == other ? 1.01 * ro
                                           : 3 * std::hypot(pile / side - other / side,
                                                            pile % side - other % side);
            const double top = loaded * length / pieces;
            *place++ = loaded == pieces ? base(R, Z) : shaft(R, top, top + length / pieces, Z);
        }
    }
}

void LibraryPileGroup(std::vector<float>& matrix) {
    const torlib::Mindlin_class mindlin;
    FillPileGroup(
        matrix,
        [&](double R, double L1, double L2, double Z) {
            return mindlin.Isr_HS(R, ro, L1, L2, Z, nu).Value();
        },
        [&](double R, double Z) { return mindlin.Icr_HS(R, ro, length, Z, nu).Value(); });
}

constexpr double near = 3 - 4 * nu;
constexpr double image = 8 * (1 - nu) * (1 - nu) - near;
constexpr double scale = 8 * pi * (1 - nu) / (1 + nu);

double PlainLine(double r, double L1, double L2, double z) {
    const double a1 = L1 - z, a2 = L2 - z, b1 = L1 + z, b2 = L2 + z;
    const double P1 = std::sqrt(r * r + a1 * a1), P2 = std::sqrt(r * r + a2 * a2);
    const double Q1 = std::sqrt(r * r + b1 * b1), Q2 = std::sqrt(r * r + b2 * b2);
    const double load = std::log((a2 + P2) / (a1 + P1));
    const double mirror = std::log((b2 + Q2) / (b1 + Q1));
    const double c1 = b1 / Q1, c2 = b2 / Q2;
    return ((1 + near) * load + (near + image) * mirror - a2 / P2 + a1 / P1 - near * (c2 - c1) -
            2 * z * ((1 / Q1 - 1 / Q2) - z / (r * r) * (c2 - c1)) +
            6 * z *
                (r * r / 3 * (1 / (Q2 * Q2 * Q2) - 1 / (Q1 * Q1 * Q1)) - 1 / Q2 + 1 / Q1 -
                 z / (3 * r * r) * (c2 * c2 * c2 - c1 * c1 * c1))) /
           (scale * (L2 - L1));
}

/// Integral of K t along a ray, term by term as in CircleRayIntegral.
double PlainRay(double R, double C, double Z, double theta) {
    const double p = R * std::cos(theta), end = p + ro;
    const double q2 = R * R - p * p;
    const double h2 = (Z - C) * (Z - C), s2 = (Z + C) * (Z + C);
    const double d2 = end * end + q2;
    const double c1 = std::sqrt(R * R + h2), e1 = std::sqrt(d2 + h2);
    const double c2 = std::sqrt(R * R + s2), e2 = std::sqrt(d2 + s2);
    const double rim = end / e2, centre = p / c2;
    double sum = near * ((e1 - c1) - p * std::log((end + e1) / (p + c1))) +
                 image * ((e2 - c2) - p * std::log((end + e2) / (p + c2))) +
                 (near * s2 - 2 * C * Z) * ((1 / c2 - 1 / e2) - p / (s2 + q2) * (rim - centre));
    if (h2 > 0) {
        sum += h2 * ((1 / c1 - 1 / e1) - p / (h2 + q2) * (end / e1 - p / c1));
    }
    const double M = (rim - centre) - (rim * rim * rim - centre * centre * centre) / 3;
    return sum +
           6 * C * Z * s2 *
               ((1 / (c2 * c2 * c2) - 1 / (e2 * e2 * e2)) / 3 - p * M / ((s2 + q2) * (s2 + q2)));
}

/// Trapezoidal rule over half a turn, 50 steps, as a mean.
template <class Function>
double HalfTurn(Function at, double last) {
    double sum = (at(0.0) + at(last)) / 2;
    for (int k = 1; k < 50; ++k) {
        sum += at(k * pi / 50);
    }
    return sum / 50;
}

void PlainPileGroup(std::vector<float>& matrix) {
    FillPileGroup(
        matrix,
        [](double R, double L1, double L2, double Z) {
            const auto at = [=](double theta) {
                return PlainLine(std::sqrt(R * R + ro * ro + 2 * R * ro * std::cos(theta)), L1, L2,
                                 Z);
            };
            return static_cast<float>(HalfTurn(at, pi));
        },
        [](double R, double Z) {
            const auto at = [=](double theta) { return PlainRay(R, length, Z, theta); };
            return static_cast<float>(HalfTurn(at, 0.999 * pi) * 2 / (scale * ro * ro));
        });
}

// ---- 50 x 40 nodes on a half-space, each with the rectangle that belongs to it.

slab::Model Raft(bool regular) {
    slab::Plate plate;
    plate.Nx = 49, plate.Ny = 39, plate.Lx = 49, plate.Ly = 39;
    slab::Model model = slab::Grid(plate);
    slab::OnHalfSpace(model, 20000, nu);
    for (slab::Point& node : model.Nodes) { // no two spacings alike: no pair repeats another
        node.x += regular ? 0 : 0.1 * std::sin(node.x * node.x);
        node.y += regular ? 0 : 0.1 * std::sin(node.y * node.y);
    }
    return model;
}

/// Sum of the settlements by the four triangles between the point and a rectangle's sides.
double PlainTriangles(const slab::Quadrilateral& piece, double x, double y) {
    double sum = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        const double jx = piece.Corner[i].x - x, jy = piece.Corner[i].y - y;
        const double kx = piece.Corner[(i + 1) % 4].x - x, ky = piece.Corner[(i + 1) % 4].y - y;
        const double L = std::hypot(kx - jx, ky - jy);
        const double h = (jx * ky - kx * jy) / L;
        if (std::fabs(h) < 1e-9) {
            continue;
        }
        const double d1 = -(jx * (kx - jx) + jy * (ky - jy)) / L, d2 = L - d1;
        const double r1 = std::hypot(h, d1), r2 = std::hypot(h, d2);
        sum += h * (std::log((r1 + d1) / (r1 - d1)) + std::log((r2 + d2) / (r2 - d2)));
    }
    return sum / (2 * pi);
}

double PlainPoints(const slab::Quadrilateral& piece, double x, double y, int order) {
    static const double places[3][3] = {
        {0}, {-std::sqrt(1.0 / 3), std::sqrt(1.0 / 3)}, {-std::sqrt(0.6), 0, std::sqrt(0.6)}};
    static const double weights[3][3] = {{2}, {1, 1}, {5.0 / 9, 8.0 / 9, 5.0 / 9}};
    const slab::Point& from = piece.Corner[0];
    const slab::Point& to = piece.Corner[2];
    double sum = 0;
    for (int i = 0; i < order * order; ++i) {
        const int a = i % order, b = i / order;
        const double dx = x - (from.x + to.x) / 2 - places[order - 1][a] * (to.x - from.x) / 2;
        const double dy = y - (from.y + to.y) / 2 - places[order - 1][b] * (to.y - from.y) / 2;
        sum += weights[order - 1][a] * weights[order - 1][b] / std::sqrt(dx * dx + dy * dy);
    }
    return sum * piece.Area() / (4 * pi);
}

/// The rules of slab::Influence for its rectangles.
double PlainSettlement(const slab::ContactArea& area, double x, double y) {
    const double distance = std::hypot(x, y);
    double sum = 0;
    for (const slab::Quadrilateral& piece : area.Pieces) {
        const int order = distance < 6 * area.Radius ? 3 : distance < 30 * area.Widest ? 2 : 1;
        sum += distance < 2 * area.Radius ? PlainTriangles(piece, x, y)
                                          : PlainPoints(piece, x, y, order);
    }
    return (1 - nu * nu) * sum / area.Area;
}

template <class Settlement>
void FillRaft(std::vector<float>& matrix, const slab::Model& model, Settlement settlement) {
    const std::vector<slab::ContactArea> areas = ContactAreas(model);
    auto place = matrix.begin();
    for (const slab::Point& point : model.Nodes) {
        for (std::size_t n = 0; n < areas.size(); ++n) {
            *place++ = static_cast<float>(
                settlement(areas[n], point.x - model.Nodes[n].x, point.y - model.Nodes[n].y));
        }
    }
}

using Fill = void (*)(std::vector<float>&, const slab::Model&);

void WithInfluence(std::vector<float>& matrix, const slab::Model& model) {
    const slab::Influence influence(model.Soil);
    FillRaft(matrix, model, [&](const slab::ContactArea& area, double x, double y) {
        return influence.Settlement(area, {x, y});
    });
}

void WithPlainLoop(std::vector<float>& matrix, const slab::Model& model) {
    FillRaft(matrix, model, [&](const slab::ContactArea& area, double x, double y) {
        return PlainSettlement(area, x, y) / model.Soil.Modulus;
    });
}

void WithSoilFlexibility(std::vector<float>& matrix, const slab::Model& model) {
    slab::RunWindow window(slab::RunWindow::Style::Quiet);
    const slab::SoilFlexibility soil(model, ContactAreas(model), window);
    matrix[0] = static_cast<float>(soil.Coefficient(1, 1));
}

/// The largest relative difference of two matrices.
double Difference(const std::vector<float>& a, const std::vector<float>& b) {
    double largest = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        largest = std::max(largest, std::fabs(double{a[i]} / b[i] - 1));
    }
    return largest;
}

template <class Work>
void Measure(benchmark::State& state, std::vector<float>& matrix, Work work) {
    for ([[maybe_unused]] auto repeat : state) {
        work(matrix);
        benchmark::DoNotOptimize(matrix.data());
        benchmark::ClobberMemory();
    }
    state.counters["pairs/s"] = benchmark::Counter(static_cast<double>(matrix.size()),
                                                   benchmark::Counter::kIsIterationInvariantRate);
}

void PileGroup(benchmark::State& state, void (*fill)(std::vector<float>&)) {
    std::vector<float> matrix(std::size_t{pileNodes} * pileNodes);
    Measure(state, matrix, fill);
    std::vector<float> library(matrix.size());
    LibraryPileGroup(library);
    state.counters["difference"] = Difference(matrix, library);
}

void HalfSpace(benchmark::State& state, Fill fill, bool regular) {
    const slab::Model model = Raft(regular);
    std::vector<float> matrix(model.Nodes.size() * model.Nodes.size());
    Measure(state, matrix, [&](std::vector<float>& filled) { fill(filled, model); });
    if (fill == WithPlainLoop) {
        std::vector<float> library(matrix.size());
        WithInfluence(library, model);
        state.counters["difference"] = Difference(matrix, library);
    }
}

BENCHMARK_CAPTURE(PileGroup, library, LibraryPileGroup)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PileGroup, plain_loop, PlainPileGroup)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(HalfSpace, library, WithInfluence, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(HalfSpace, plain_loop, WithPlainLoop, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(HalfSpace, SoilFlexibility, WithSoilFlexibility, false)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(HalfSpace, SoilFlexibility_regular, WithSoilFlexibility, true)
    ->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();

// SolveMatrix beside its entry-by-entry routine, LAPACK's banded solvers and two sparse solvers, on
// the same simply supported square plate under uniform load. One thread throughout.
//
// Source of the exact deflection: Timoshenko and Woinowsky-Krieger (1959), Theory of Plates and
// Shells, table 8: w = 0.00406 p a^4 / D at the centre.

#include "torlib/fem/band_reference.h"
#include "torlib/fem/fem_class.h"

#include <Eigen/SparseCholesky>
#include <benchmark/benchmark.h>
#include <cholmod.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

extern "C" {
void openblas_set_num_threads(int threads);
void spbsv_(const char* uplo, const int* n, const int* kd, const int* nrhs, float* ab,
            const int* ldab, float* b, const int* ldb, int* info);
void dpbsv_(const char* uplo, const int* n, const int* kd, const int* nrhs, double* ab,
            const int* ldab, double* b, const int* ldb, int* info);
}

namespace torlib {
namespace {

/// A square plate of unit side and unit rigidity, supports imposed, ready to be solved.
struct Plate {
    explicit Plate(int elements);

    int Node(int i, int j) const { return j * (cells + 1) + i + 1; }
    int CentreEquation() const { return 3 * (Node(cells / 2, cells / 2) - 1) + 1; }

    int cells;
    Integer N3;
    Integer Nw;
    Array<Single> A;
    Array<Single> Q;
};

Plate::Plate(int elements)
    : cells(elements),
      N3(3 * (cells + 1) * (cells + 1)),
      Nw(3 * (cells + 3)),
      A(Bounds{1, N3 + Nw - 1}, Bounds{1, Nw}),
      Q(Bounds{1, N3 + Nw - 1}) {
    const FEM_Class fem;
    const double h = 1.0 / cells;
    const auto X = ArrayFromOne<Single>({0, h, h, 0});
    const auto Y = ArrayFromOne<Single>({0, 0, h, h});
    Array<Single> SK;
    Array<Single> BE;
    fem.SetElementStiffnessMatrix(SK, 12 * (1 - 0.09), 1, 0.3, 4, X, Y);
    fem.SetElementLoadVector(BE, 1, 4, X, Y);
    std::vector<int> restrained;
    for (int j = 0; j < cells; ++j) {
        for (int i = 0; i < cells; ++i) {
            const auto corners = ArrayFromOne<Integer>(
                {Node(i, j), Node(i + 1, j), Node(i + 1, j + 1), Node(i, j + 1)});
            fem.GlobalStiffnessMatrix(A, SK, 3, 4, corners);
            for (int k = 1; k <= 12; ++k) {
                const int equation = 3 * (corners((k + 2) / 3) - 1) + (k - 1) % 3 + 1;
                Q(equation) = Q(equation) + BE(k);
            }
        }
    }
    for (int j = 0; j <= cells; ++j) {
        for (int i = 0; i <= cells; ++i) {
            const bool onX = i == 0 || i == cells;
            const bool onY = j == 0 || j == cells;
            const int first = 3 * (Node(i, j) - 1) + 1;
            if (onX || onY) {
                restrained.push_back(first);
            }
            if (onY) {
                restrained.push_back(first + 1);
            }
            if (onX) {
                restrained.push_back(first + 2);
            }
        }
    }
    const int NF = static_cast<int>(restrained.size());
    Array<Integer> NS(Bounds{1, NF});
    const Array<Single> AufL(Bounds{1, NF});
    for (int k = 1; k <= NF; ++k) {
        NS(k) = restrained[static_cast<std::size_t>(k - 1)];
    }
    fem.SetBoundaryToMatrix(Nw, NF, A, Q, AufL, NS);
}

/// Seconds of the solution proper and the centre deflection; NaN where a solver gives up.
struct Solution {
    double Seconds;
    double Deflection;
};

template <class F>
double SecondsOf(F work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

Solution WithSolveMatrix(const Plate& plate) {
    Array<Single> A = plate.A;
    Array<Single> Q = plate.Q;
    FEM_Class fem;
    const double seconds = SecondsOf([&] { fem.SolveMatrix(plate.Nw, plate.N3, A, Q); });
    return {seconds, Real(Q(plate.CentreEquation())).Value()};
}

Solution WithReference(const Plate& plate) {
    Array<Single> A = plate.A;
    Array<Single> Q = plate.Q;
    const double seconds = SecondsOf([&] { band::SolveReference(plate.Nw, plate.N3, A, Q); });
    return {seconds, Real(Q(plate.CentreEquation())).Value()};
}

template <class T, void (*Solver)(const char*, const int*, const int*, const int*, T*, const int*,
                                  T*, const int*, int*)>
Solution WithLapack(const Plate& plate) {
    const int n = plate.N3;
    const int rows = plate.Nw;
    const int bandwidth = rows - 1;
    const int one = 1;
    int info = 0;
    std::vector<T> ab(static_cast<std::size_t>(n) * static_cast<std::size_t>(rows));
    std::vector<T> b(static_cast<std::size_t>(n));
    for (int j = 0; j < n; ++j) {
        b[static_cast<std::size_t>(j)] = plate.Q(j + 1).Value();
        for (int l = 0; l < rows; ++l) {
            ab[static_cast<std::size_t>(j) * rows + l] = plate.A(j + 1, l + 1).Value();
        }
    }
    const double seconds = SecondsOf(
        [&] { Solver("L", &n, &bandwidth, &one, ab.data(), &rows, b.data(), &n, &info); });
    return {seconds, info == 0 ? static_cast<double>(b[plate.CentreEquation() - 1]) : NAN};
}

/// Lower triangle without the zeros of the band.
Eigen::SparseMatrix<double> SparseOf(const Plate& plate) {
    std::vector<Eigen::Triplet<double>> entries;
    for (int n = 1; n <= plate.N3; ++n) {
        for (int l = 1; l <= plate.Nw && n + l - 1 <= plate.N3; ++l) {
            if (plate.A(n, l) != 0) {
                entries.emplace_back(n + l - 2, n - 1, Real(plate.A(n, l)).Value());
            }
        }
    }
    Eigen::SparseMatrix<double> sparse(plate.N3, plate.N3);
    sparse.setFromTriplets(entries.begin(), entries.end());
    return sparse;
}

Eigen::VectorXd LoadOf(const Plate& plate) {
    Eigen::VectorXd load(static_cast<int>(plate.N3));
    for (int n = 1; n <= plate.N3; ++n) {
        load[n - 1] = Real(plate.Q(n)).Value();
    }
    return load;
}

Solution WithEigen(const Plate& plate) {
    const Eigen::SparseMatrix<double> sparse = SparseOf(plate);
    const Eigen::VectorXd load = LoadOf(plate);
    Eigen::VectorXd x;
    bool done = false;
    const double seconds = SecondsOf([&] {
        const Eigen::SimplicialLLT<Eigen::SparseMatrix<double>, Eigen::Lower,
                                   Eigen::AMDOrdering<int>>
            solver(sparse);
        x = solver.solve(load);
        done = solver.info() == Eigen::Success;
    });
    return {seconds, done ? x[plate.CentreEquation() - 1] : NAN};
}

Solution WithCholmod(const Plate& plate) {
    Eigen::SparseMatrix<double> sparse = SparseOf(plate);
    Eigen::VectorXd load = LoadOf(plate);
    const auto n = static_cast<std::size_t>(static_cast<int>(plate.N3));
    cholmod_common common;
    cholmod_start(&common);
    cholmod_sparse matrix = {};
    matrix.nrow = matrix.ncol = n;
    matrix.nzmax = static_cast<std::size_t>(sparse.nonZeros());
    matrix.p = sparse.outerIndexPtr();
    matrix.i = sparse.innerIndexPtr();
    matrix.x = sparse.valuePtr();
    matrix.stype = -1;
    matrix.itype = CHOLMOD_INT;
    matrix.xtype = CHOLMOD_REAL;
    matrix.dtype = CHOLMOD_DOUBLE;
    matrix.sorted = matrix.packed = 1;
    cholmod_dense right = {};
    right.nrow = right.nzmax = right.d = n;
    right.ncol = 1;
    right.x = load.data();
    right.xtype = CHOLMOD_REAL;
    right.dtype = CHOLMOD_DOUBLE;
    cholmod_factor* factor = nullptr;
    cholmod_dense* x = nullptr;
    const double seconds = SecondsOf([&] {
        factor = cholmod_analyze(&matrix, &common);
        cholmod_factorize(&matrix, factor, &common);
        x = cholmod_solve(CHOLMOD_A, factor, &right, &common);
    });
    const bool done = common.status == CHOLMOD_OK;
    const double deflection =
        done ? static_cast<const double*>(x->x)[plate.CentreEquation() - 1] : NAN;
    cholmod_free_dense(&x, &common);
    cholmod_free_factor(&factor, &common);
    cholmod_finish(&common);
    return {seconds, deflection};
}

struct Solver {
    const char* Name;
    Solution (*Solve)(const Plate&);
};

constexpr Solver Solvers[] = {
    {"SolveMatrix", WithSolveMatrix},
    {"entry by entry", WithReference},
    {"OpenBLAS spbsv", WithLapack<float, spbsv_>},
    {"OpenBLAS dpbsv", WithLapack<double, dpbsv_>},
    {"Eigen SimplicialLLT", WithEigen},
    {"CHOLMOD", WithCholmod},
};
constexpr int Sides[] = {30, 60, 100};

using Results = std::map<std::pair<int, std::string>, Solution>;

void PrintTable(const Results& results) {
    std::printf("\nelements  solver                   seconds   SolveMatrix / it   "
                "error of the centre deflection\n");
    for (const int side : Sides) {
        const Solution& own = results.at({side, Solvers[0].Name});
        const double exact = results.at({side, "OpenBLAS dpbsv"}).Deflection;
        for (const Solver& solver : Solvers) {
            const Solution& it = results.at({side, solver.Name});
            std::printf("%3d x %-3d  %-20s  %10.4f  %17.2f  %12.1e\n", side, side, solver.Name,
                        it.Seconds, own.Seconds / it.Seconds, it.Deflection / exact - 1);
        }
        std::printf("%3d x %-3d  dpbsv against 0.00406 p a^4 / D: %.1e\n", side, side,
                    exact / 0.00406235 - 1);
    }
}

} // namespace
} // namespace torlib

int main(int argc, char** argv) {
    using namespace torlib;
    openblas_set_num_threads(1);
    Results results;
    for (const int side : Sides) {
        const auto plate = std::make_shared<const Plate>(side);
        for (const Solver& solver : Solvers) {
            const std::string name = solver.Name;
            benchmark::RegisterBenchmark((name + "/" + std::to_string(side)).c_str(),
                                         [=, &results](benchmark::State& state) {
                                             Solution best = {INFINITY, NAN};
                                             for ([[maybe_unused]] auto repeat : state) {
                                                 const Solution solution = solver.Solve(*plate);
                                                 state.SetIterationTime(solution.Seconds);
                                                 best.Deflection = solution.Deflection;
                                                 best.Seconds =
                                                     std::min(best.Seconds, solution.Seconds);
                                             }
                                             results[{side, name}] = best;
                                         })
                ->UseManualTime()
                ->Unit(benchmark::kMillisecond)
                ->Iterations(side < 100 ? 5 : 3);
        }
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    if (results.size() == std::size(Sides) * std::size(Solvers)) {
        PrintTable(results);
    }
    return 0;
}

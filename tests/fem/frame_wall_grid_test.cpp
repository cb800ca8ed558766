// Plane frames, walls in plane stress and grid beams against closed forms; the lines that are
// printed are the table of docs/validation.md.

#include "fem_test_tools.h"
#include "tests/temporary_folder.h"

#include "torlib/frame/error_routine.h"
#include "torlib/frame/run_state.h"
#include "torlib/platform/windows/events.h"

#include <cstdio>
#include <functional>
#include <new>
#include <stdexcept>

namespace torlib::test {
namespace {

using Points = std::vector<std::pair<double, double>>;

void ExpectResult(const char* name, double value, double reference, double tolerance) {
    const double difference = value / reference - 1;
    std::printf("| %s | %.7g | %.7g | %+.4f %% |\n", name, value, reference, 100 * difference);
    EXPECT_LT(std::fabs(difference), tolerance) << name;
}

struct Member {
    int start, end, hinges = 0;
    double Px = 0, Py = 0;
    Array<Single> ST = {}, QK = {};
};

/// A frame that is clamped at its first and last node, with a force on its third one.
struct Frame : BandSystem<3> {
    Frame(const Points& at, const std::vector<Member>& list, double force = 0) : members(list) {
        const int Nk = static_cast<int>(at.size());
        Size(Nk, 3 * Nk);
        for (Member& m : members) {
            const double XL = at[m.end - 1].first - at[m.start - 1].first;
            const double YL = at[m.end - 1].second - at[m.start - 1].second;
            const double L = std::hypot(XL, YL);
            const auto ends = ArrayFromOne<Integer>({m.start, m.end});
            fem.BeamPlaneStiffness(m.ST, m.hinges, 29e6 / 12, 29e6, L, XL / L, YL / L);
            fem.BeamPlaneLoadVector(m.QK, m.Px, m.Py, XL, YL, m.hinges);
            fem.GlobalStiffnessMatrix(A, m.ST, 3, 2, ends);
            fem.GlobalLoadVector(Q, m.QK, 3, 2, ends);
        }
        Q(Equation(3, 2)) += force;
        Clamp(1);
        Clamp(Nk);
        Solve();
    }
    /// What the nodes exert on the member's ends: (x, y, clockwise moment) at start and end.
    double End(int member, int i) const {
        const Member& m = members[member - 1];
        Real force = -m.QK(i);
        for (int k = 1; k <= 6; ++k) {
            force += m.ST(i, k) * Value(k > 3 ? m.end : m.start, k > 3 ? k - 3 : k);
        }
        return force.Value();
    }
    std::vector<Member> members;
};

TEST(PlaneFrame, PortalWithFixedBases) {
    const std::vector<Member> members = {{1, 2}, {2, 3}, {3, 4}, {4, 5}};
    const Frame mid({{0, 0}, {0, 100}, {50, 100}, {100, 100}, {100, 0}}, members, -1000);
    ExpectResult("load at mid-span: base moment", mid.End(1, 3), 4166.667, 1e-4);
    ExpectResult("corner moment", mid.End(1, 6), 8333.333, 1e-4);
    ExpectResult("thrust", mid.End(1, 1), 125, 1e-4);
    const Frame quarter({{0, 0}, {0, 100}, {25, 100}, {100, 100}, {100, 0}}, members, -1000);
    ExpectResult("load at the quarter point: sway", quarter.Value(2, 1), 1.385, 2e-3);
    ExpectResult("left base moment", quarter.End(1, 3), 2455.357, 1e-3);
    ExpectResult("left corner moment", quarter.End(1, 6), 6919.643, 1e-3);
    ExpectResult("right corner moment", -quarter.End(4, 3), 5580.357, 1e-3);
    ExpectResult("right base moment", -quarter.End(4, 6), 3794.643, 1e-3);
}

// One EI throughout, so that the stiffness of the beam over that of the columns is k = h / L.
TEST(PlaneFrame, HingesAndLineLoads) {
    const double h = 100, L = 200, q = 3, k = h / L;
    const Points at = {{0, 0}, {0, h}, {L, h}, {L, 0}};
    const double thrust = q * L * L / (4 * h * (2 * k + 3));
    const Frame roof(at, {{1, 2, 1}, {2, 3, 0, 0, q}, {3, 4, 2}});
    ExpectResult("hinged bases, load on the beam: thrust", roof.End(1, 1), thrust, 5e-4);
    ExpectResult("corner moment", roof.End(1, 6), thrust * h, 5e-4);
    const double far = q * h / 8 * (5 * k + 6) / (2 * k + 3);
    const Frame wind(at, {{1, 2, 1, q}, {2, 3}, {4, 3, 1}});
    ExpectResult("hinged bases, wind on the left: far thrust", -wind.End(3, 1), far, 5e-4);
    ExpectResult("near thrust", -wind.End(1, 1), q * h - far, 5e-4);
    ExpectResult("lift", -wind.End(1, 2), q * h * h / (2 * L), 5e-4);
    const Frame suction(at, {{1, 2, 1}, {2, 3}, {3, 4, 2, q}});
    ExpectResult("suction on the right: far thrust", -suction.End(1, 1), far, 5e-4);
    const Frame link(at, {{1, 2, 0, q}, {2, 3, 3, 0, q}, {3, 4}});
    ExpectResult("beam hinged at both ends: tie force", -link.End(2, 4), 3 * q * h / 16, 1e-3);
    ExpectResult("far base moment", -link.End(3, 6), 3 * q * h / 16 * h, 1e-3);
    ExpectResult("near base moment", -link.End(1, 3), 5 * q * h / 16 * h, 1e-3);
    ExpectResult("beam reaction", link.End(2, 2), q * L / 2, 1e-6);
}

// An inclined member is the horizontal one, turned; the load stands across it.
TEST(PlaneFrame, MembersTurn) {
    const FEM_Class fem;
    for (const auto& [XL, YL] : {std::pair{3, 4}, {-3, 4}, {-3, -4}, {3, -4}}) {
        for (const int hinges : {0, 1, 2, 3, 7}) {
            Array<Single> TR, ST, QK, ownST, ownQK;
            fem.PlaneTransformationMatrix(TR, XL / 5., YL / 5.);
            fem.BeamPlaneStiffness(ST, hinges, 50, 30, 5, XL / 5., YL / 5.);
            fem.BeamPlaneStiffness(ownST, hinges, 50, 30, 5, 1, 0);
            fem.BeamPlaneLoadVector(QK, YL > 0 ? 2 : -2, XL > 0 ? 2 : -2, XL, YL, hinges);
            fem.BeamPlaneLoadVector(ownQK, 0, 2, 5, 0, hinges);
            for (int i = 1; i <= 6; ++i) {
                Real load = -QK(i);
                for (int m = 1; m <= 6; ++m) {
                    load += TR(m, i) * ownQK(m);
                    Real difference = ST(i, m);
                    for (int k = 0; k < 36; ++k) {
                        difference -=
                            TR(k / 6 + 1, i) * ownST(k / 6 + 1, k % 6 + 1) * TR(k % 6 + 1, m);
                    }
                    EXPECT_NEAR(difference.Value(), 0, 1e-5) << hinges;
                }
                EXPECT_NEAR(load.Value(), 0, 3e-6) << hinges << " " << XL << " " << YL;
            }
        }
    }
}

TEST(TwoNodeElements, LeaveArraysFromZeroToSix) {
    const FEM_Class fem;
    const auto filled = [] { return Array<Single>(Bounds{3, 9}, Bounds{-1, 8}); };
    Array<Single> TR = filled(), plane = filled(), grid = filled(), ST = filled();
    Array<Single> QK(Bounds{1, 9}), UG(QK);
    Single F1, F2, ALE, SI, CO, S2, C2, CS;
    fem.PlaneTransformationMatrix(plane, 0.6, 0.8);
    fem.TransformationMatrix(grid, 3, 4, 5, 6, F1, F2, ALE, SI, CO, S2, C2, CS);
    fem.BeamStiffness(ST, F1, F2, ALE, SI, CO, S2, C2, CS);
    fem.BeamPlaneStiffness(TR, 0, 50, 30, 5, 1, 0);
    fem.BeamPlaneLoadVector(QK, 1, 2, 3, 4, 0);
    fem.BeamLoadVector(UG, grid, 2, ALE);
    for (const auto* matrix : {&TR, &plane, &grid, &ST}) {
        EXPECT_EQ(matrix->Dimensions(), 2);
        for (const int dimension : {1, 2}) {
            EXPECT_EQ(matrix->LBound(dimension), 0);
            EXPECT_EQ(matrix->UBound(dimension), 6);
        }
        for (int i = 0; i <= 6; ++i) {
            EXPECT_EQ((*matrix)(i, 0) == 0 && (*matrix)(0, i) == 0, true) << "filled from 1";
        }
    }
    for (const auto* vector : {&QK, &UG}) {
        EXPECT_EQ(vector->Dimensions(), 1);
        EXPECT_EQ(std::pair(vector->LBound(), vector->UBound()), std::pair(0, 6));
        EXPECT_EQ((*vector)(0) == 0, true);
    }
}

struct Wall : BandSystem<2> {
    Wall(Points points, int width, Single e, Single T) : at(std::move(points)), E(e), t(T) {
        Size(static_cast<int>(at.size()), width);
    }
    void Add(int n1, int n2, int n3) {
        const auto corners = ArrayFromOne<Integer>({n1, n2, n3});
        Array<Single> x(Bounds{1, 3}), y(x), SK;
        for (const int k : {1, 2, 3}) {
            std::tie(x(k), y(k)) = at[corners(k) - 1];
        }
        const Real area2 = (x(2) - x(1)) * (y(3) - y(1)) - (x(3) - x(1)) * (y(2) - y(1));
        fem.SetStressElementStiffness(SK, x, y, E, t, 0.3, Abs(area2) / 2);
        fem.GlobalStiffnessMatrix(A, SK, 2, 3, corners);
    }
    Points at;
    Single E, t;
};

TEST(WallTriangle, PlateOfTwoTriangles) {
    Wall w({{0, 0}, {0, 10}, {20, 10}, {20, 0}}, 8, 30e6, 1);
    w.Add(1, 3, 2);
    w.Add(1, 4, 3);
    w.Clamp(1);
    w.Clamp(2);
    w.Q(5) = w.Q(7) = 5000;
    w.Solve();
    ExpectResult("plate of two triangles: upper u, 1e-6 in", w.Value(3, 1) * 1e6, 609.581, 1e-5);
    ExpectResult("upper v", w.Value(3, 2) * 1e6, 4.163, 2e-4);
    ExpectResult("lower u", w.Value(4, 1) * 1e6, 663.704, 1e-5);
    ExpectResult("lower v", w.Value(4, 2) * 1e6, 104.083, 1e-5);
}

TEST(WallTriangle, PatchTest) {
    Wall w({{0, 0}, {4, 0}, {4, 3}, {0, 3}, {1.1, 1.7}}, 10, 30e6, 1);
    const auto field = [&](int n, int freedom) {
        const auto [x, y] = w.at[n - 1];
        return 1e-3 * (freedom == 1 ? 1 + 2 * x - 3 * y : 2 - x + 4 * y);
    };
    for (int n = 1; n <= 4; ++n) {
        n % 2 ? w.Add(n, n % 4 + 1, 5) : w.Add(n % 4 + 1, n, 5); // either sense of rotation
        w.Restrain(n, 1, field(n, 1));
        w.Restrain(n, 2, field(n, 2));
    }
    w.Solve();
    EXPECT_NEAR(w.Value(5, 1), field(5, 1), 1e-9);
    EXPECT_NEAR(w.Value(5, 2), field(5, 2), 1e-9);
}

TEST(WallTriangle, CantileverConverges) {
    const double L = 4, E = 30e6, P = 1000, T = 2, EI = E * T / 12;
    const double reference = P * L * L * L / (3 * EI) + 1.2 * P * L / (E * T / 2.6);
    double last = 3;
    for (const int n : {2, 4, 8, 16}) { // cells over the depth
        const int column = n + 1, tip = 4 * n * column;
        Points points;
        for (int k = 0; k < tip + column; ++k) {
            const int bay = k / column;
            points.emplace_back(1. * bay / n, 1. * (k % column) / n);
        }
        Wall w(points, 2 * (column + 2), E, T);
        for (int k = 1; k < tip; k += k % column == n ? 2 : 1) {
            w.Add(k, k + column, k + column + 1);
            w.Add(k, k + column + 1, k + 1);
        }
        for (int k = 1; k <= column; ++k) {
            w.Clamp(k);
            w.Q(2 * (tip + k)) = P / n / (k == 1 || k == column ? 2 : 1);
        }
        w.Solve();
        const double error = 1 - w.Value(tip + n / 2 + 1, 2) / reference;
        ExpectResult("cantilever, 2, 4, 8, 16 cells", reference * (1 - error), reference,
                     last / (n < 16 ? 2.4 : 1.5));
        last = error;
    }
}

struct Beam {
    int start, end;
    double QL = 0;
};

/// Grid beams of EI = GJ = 400.
struct Grid : BandSystem<3> {
    Grid(const Points& at, const std::vector<Beam>& beams, int type = 2, bool progress = false) {
        const int Nk = static_cast<int>(at.size());
        const int count = static_cast<int>(beams.size());
        Size(Nk, 3 * Nk);
        Array<Single> X(Bounds{0, Nk}), Y(X), QL(Bounds{0, count});
        Array<Integer> starts(Bounds{0, count}), ends(starts), types(starts);
        for (int n = 1; n <= Nk; ++n) {
            std::tie(X(n), Y(n)) = at[n - 1];
        }
        for (int e = 1; e <= count; ++e) {
            const Beam& beam = beams[e - 1];
            starts(e) = beam.start;
            ends(e) = beam.end;
            QL(e) = beam.QL;
            types(e) = e == 2 ? type : 2;
        }
        stopped = fem.SetBeamStiffnessMatrix(
            starts, ends, types, ArrayFromOne<Single>({0, 40}), ArrayFromOne<Single>({0, 10}),
            ArrayFromOne<Single>({0, 80}), ArrayFromOne<Single>({0, 5}), X, Y, count, QL, Q, A, {},
            progress);
    }
    bool stopped;
};

TEST(GridBeam, CantileversInAllDirections) {
    const double q = 2, L = 5, EI = 400, torque = 7;
    for (const auto& [x, y] : {std::pair{5, 0}, {0, 5}, {3, 4}, {-3, 4}, {-4, -3}, {4, -3}}) {
        for (const bool fromTip : {false, true}) {
            Grid g({{1, 1}, {1. + x, 1. + y}}, {fromTip ? Beam{2, 1, q} : Beam{1, 2, q}});
            g.Q(5) -= torque * y / L;
            g.Q(6) += torque * x / L;
            g.Clamp(1);
            g.Solve();
            const double slope = q * L * L * L / (6 * EI), twist = torque * L / EI;
            EXPECT_NEAR(g.Value(2, 1), q * L * L * L * L / (8 * EI), 1e-6);
            EXPECT_NEAR(g.Value(2, 2), slope * x / L - twist * y / L, 1e-6) << x << " " << y;
            EXPECT_NEAR(g.Value(2, 3), slope * y / L + twist * x / L, 1e-6) << x << " " << y;
        }
    }
}

TEST(GridBeam, CrossedAndBentBeams) {
    Grid cross({{-3, 0}, {3, 0}, {0, -4}, {0, 4}, {0, 0}}, {{1, 5}, {5, 2}, {3, 5}, {5, 4}});
    cross.Q(13) = 1000;
    for (const int end : {1, 2, 3, 4}) {
        cross.Restrain(end, 1);
    }
    cross.Solve();
    const auto carried = [&](double span) { // in % of the load, from the common deflection
        return 48 * 400 / (span * span * span) * cross.Value(5) / 10;
    };
    ExpectResult("crossed beams: short span, %", carried(6), 70.3297, 1e-5);
    ExpectResult("long span, %", carried(8), 29.6703, 1e-5);
    Grid bent({{0, 0}, {0.6, 0.8}, {-0.2, 1.4}}, {{1, 2}, {3, 2}});
    bent.Q(7) = 1;
    bent.Clamp(1);
    bent.Solve();
    ExpectResult("bent cantilever: tip", bent.Value(3), 0.00416667, 2e-6);
}

TEST(GridBeam, CancelledAndFailingRuns) {
    const auto values = ArrayFromOne<Single>({2, 3});
    Single EI, GJ, XD, YD;
    Integer i, j;
    FEM_Class().BeamData(2, 1, 2, values, values, values, values, values, values, EI, GJ, XD, YD, i,
                         j);
    EXPECT_EQ(i * 10 + j, 21);
    const Points at = {{0, 0}, {1, 0}, {1, 0}};
    EXPECT_FALSE(Grid(at, {}).stopped);
    ExitControlState() = ExitCancelRequested;
    EXPECT_TRUE(Grid(at, {}).stopped);
    EXPECT_EQ(Grid(at, {{1, 2}}).A(1, 1), 0);
    ExitControlState() = ExitRunning;
    const struct {
        int type;
        bool progress;
        const char* report;
    } cases[] = {{2, false, "error 11)"}, {3, false, "error 9)"}, {2, true, "error 91)"}};
    for (const auto& c : cases) {
        testing::internal::CaptureStderr();
        const Grid g(at, {{1, 2}, {2, 3}}, c.type, c.progress);
        EXPECT_NE(testing::internal::GetCapturedStderr().find(c.report), std::string::npos);
        EXPECT_TRUE(g.stopped);
        EXPECT_EQ(g.A(1, 1), c.progress ? 0 : 4800) << "the first beam stays";
    }
}

// What a handler of the host throws while the beams are added ends in a report, whatever it is.
TEST(GridBeam, ReportsWhateverAHandlerThrows) {
    const TemporaryFolder folder;
    const std::pair<std::function<void()>, const char*> handlers[] = {
        {[] { throw std::bad_alloc(); }, "error 7)"},
        {[] { throw std::runtime_error("the host's own"); }, "the host's own (error 5)"},
        {[] { throw 7; }, "error 5)"}, // NOLINT(hicpp-exception-baseclass)
        {[] { RaiseError(ErrorNumber::NoSuchMember, "no such"); }, "error 438)"}};
    for (const auto& [handler, report] : handlers) {
        OpenFileNumberOne(folder.File("one.txt"), "w");
        PostEvent(handler);
        testing::internal::CaptureStderr();
        const Grid g({{0, 0}, {1, 0}}, {{1, 2}});
        EXPECT_NE(testing::internal::GetCapturedStderr().find(report), std::string::npos) << report;
        EXPECT_TRUE(g.stopped);
        EXPECT_EQ(g.A(1, 1), 0);
        EXPECT_EQ(FileNumberOne(), nullptr);
    }
}

} // namespace
} // namespace torlib::test

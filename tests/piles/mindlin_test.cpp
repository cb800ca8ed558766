// Mindlin's factors against printed values, adaptive quadrature of the point kernel, laws of layers
// and piles known from boundary elements. Where 32 bits or the rule over half a turn cost digits,
// the loss itself is held: at most what is stated, and no less than half of it.

#include "tests/error_of.h"
#include "tests/piles/adaptive_quadrature.h"
#include "torlib/piles/mindlin_class.h"
#include "torlib/piles/mindlin_factors.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace torlib {
namespace {

using std::numbers::pi;
using test::ErrorOf;

const Mindlin_class m;
const Single Nu = 0.3;
const double ro = 0.5;

/// A number as the library sees it.
double Stored(Single value) {
    return Real(value).Value();
}
const double nu = Stored(Nu);

/// The largest deviation of a factor from its references.
class Deviation {
  public:
    void Add(Single value, double reference) {
        greatest_ = std::max(greatest_, std::fabs(Stored(value) / reference - 1));
    }
    /// Below 2E-6 `stated` is only a bound.
    void Hold(const std::string& where, double stated) const {
        std::printf("%s: %.1e, stated %.1e\n", where.c_str(), greatest_, stated);
        EXPECT_LE(greatest_, stated) << where;
        EXPECT_GE(greatest_, stated < 2E-6 ? 0 : stated / 2) << where;
    }

  private:
    double greatest_ = 0;
};

std::string Named(const char* name, std::initializer_list<double> values) {
    std::string text = name;
    for (const double value : values) {
        text += ' ' + std::to_string(value);
    }
    return text;
}

TEST(Mindlin, PointLoadTimesShearModulus) {
    // Mindlin (1936), Physics 7, 195-202; a factor is E w / P, so G w / P is factor / (2 (1 + nu)).
    const double printed[][4] = {{1, 1, 0, 0.106913},   {1, 0, 1, 0.106913},
                                 {1, 1, 1, 0.103522},   {0.5, 1, 2, 0.110023},
                                 {0.5, 2, 1, 0.110023}, {7, 0, 0, (1 - nu) / (2 * pi * 7)}};
    for (const auto& [r, c, z, expected] : printed) {
        EXPECT_NEAR(Stored(m.Ipi_HS(r, c, z, Nu)) / (2 * (1 + nu)), expected, 6E-7) << r << c << z;
    }
    Deviation points;
    for (const Single poisson : {0.0, 0.25, 0.5}) {
        points.Add(m.Ipi_HS(3, 2, 7, poisson), test::Kernel(3, 2, 7, Stored(poisson)));
        points.Add(m.Ipi_HS(0, 8, 3, poisson), test::Kernel(0, 8, 3, Stored(poisson)));
    }
    points.Add(m.Ipi_HS(3, 2, 7), test::Kernel(3, 2, 7, 0));
    points.Hold("point", 1E-7);
}

/// A line or shaft: its ends, distance of the point, and the deviation stated for points above it,
/// beside it and below it (0: none there) down to a depth of 30.
struct Zones {
    double top, bottom, R, stated[3];
};

void HoldZones(const char* name, const Zones& row,
               const std::function<Single(Single R, Single Z)>& factor,
               const std::function<double(double R, double z)>& reference) {
    Deviation zones[3];
    for (double z = 0; z <= 30; z += 0.5) {
        const int zone = z < row.top ? 0 : z <= row.bottom ? 1 : 2;
        zones[zone].Add(factor(row.R, z), reference(Stored(row.R), z));
    }
    for (int zone = 0; zone < 3; ++zone) {
        if (row.stated[zone] > 0) {
            zones[zone].Hold(Named(name, {row.top, row.R, double(zone)}), row.stated[zone]);
        }
    }
}

TEST(Mindlin, LineIsTheIntegralOfItsPoints) {
    const Zones rows[] = {
        {0, 10, 0.002, {0, 0.92, 0.63}},       {0, 10, 0.01, {0, 0.016, 1.2}},
        {0, 10, 0.02, {0, 3.1E-3, 0.46}},      {0, 10, 0.05, {0, 6.7E-4, 0.075}},
        {0, 10, 0.1, {0, 1.7E-4, 0.015}},      {0, 10, 0.5, {0, 1.6E-5, 5.4E-4}},
        {0, 10, 1, {0, 3.3E-6, 1.2E-4}},       {0, 10, 3, {0, 1E-6, 1.9E-5}},
        {0, 10, 50, {0, 1E-6, 1E-6}},          {10, 20, 0.02, {5.8E-3, 7.7E-3, 0.15}},
        {10, 20, 0.1, {1.9E-4, 6E-4, 5.5E-3}}, {10, 20, 0.5, {6.1E-6, 2.8E-5, 2.6E-4}},
        {10, 20, 3, {1E-6, 2.4E-6, 1.2E-5}}};
    for (const Zones& row : rows) {
        HoldZones(
            "line", row,
            [&](Single R, Single Z) { return m.Ili_HS(R, row.top, row.bottom, Z, Nu); },
            [&](double R, double z) { return test::LineReference(R, row.top, row.bottom, z, nu); });
    }
    // Far below: depth of the point over its distance.
    const std::pair<double, double> depths[] = {
        {10, 8E-5}, {30, 6E-4}, {100, 7.3E-3}, {300, 0.024}};
    for (const auto& [slope, stated] : depths) {
        Deviation deep;
        for (const double R : {0.3, 1.0, 3.0}) {
            for (const double share : {0.1, 0.3, 0.5, 0.7}) {
                const double z = slope * R;
                deep.Add(m.Ili_HS(R, 0, share * z, z, Nu),
                         test::LineReference(Stored(R), 0, Stored(share * z), Stored(z), nu));
            }
        }
        deep.Hold(Named("deep", {slope}), stated);
    }
}

TEST(Mindlin, ShaftIsTheMeanOverItsRing) {
    const Zones rows[] = {
        {0, 10, 0, {0, 1.5E-5, 5.4E-4}},          {0, 10, 0.45, {0, 2.5E-5, 2.3E-3}},
        {0, 10, 0.49, {0, 5.4E-4, 0.012}},        {0, 10, 0.505, {0, 2.6E-3, 3.7E-3}},
        {0, 10, 0.55, {0, 1.7E-5, 1.1E-3}},       {0, 10, 1, {0, 1E-6, 2.1E-5}},
        {10, 20, 0, {6.2E-6, 2.8E-5, 2.6E-4}},    {10, 20, 0.49, {2.2E-4, 7.3E-4, 4.8E-3}},
        {10, 20, 0.55, {2.4E-5, 4.3E-5, 9.5E-4}}, {10, 20, 1, {1E-6, 2E-6, 1.3E-5}},
        {10, 20, 40, {1E-6, 1E-6, 1E-6}}};
    for (const Zones& row : rows) {
        HoldZones(
            "shaft", row,
            [&](Single R, Single Z) { return m.Isr_HS(R, ro, row.top, row.bottom, Z, Nu); },
            [&](double R, double z) {
                return test::RingReference(R, ro, row.top, row.bottom, z, nu);
            });
    }
    // The own shaft lacks the nearest line: length, stated deviation in the middle and at an end.
    const double lengths[][3] = {{0.5, 0.095, 0.066}, {1, 0.066, 0.047},  {2, 0.047, 0.036},
                                 {5, 0.032, 0.026},   {10, 0.027, 0.023}, {20, 0.023, 0.021}};
    for (const auto& [L, middle, end] : lengths) {
        for (const auto& [share, stated] : {std::pair{0.5, middle}, {1.0, end}}) {
            Deviation own;
            for (const double top : {0.0, 2.0, 10.0}) {
                const double z = top + share * L;
                own.Add(m.Isr_HS(ro, ro, top, top + L, z, Nu),
                        test::RingReference(ro, ro, top, top + L, z, nu));
            }
            own.Hold(Named("own shaft", {L, share}), stated);
        }
    }
}

TEST(Mindlin, CircleIsTheIntegralOverItsArea) {
    const double distances[] = {0.02, 0.5, 0.98, 1, 1.02, 2, 6, 20, 40, 100}; // in radii
    const struct {
        double between; // depths of load and point, in radii
        double stated[10];
    } rows[] = {
        {0, {4.8E-4, 0.013, 0.034, 0.019, 1.1E-3, 1.1E-4, 4.2E-3, 0.043, 0.21, 1.2}},
        {0.01, {2.3E-6, 3.8E-3, 0.022, 0.013, 1.1E-3, 1.1E-4, 1.5E-3, 0.033, 0.43, 1.2}},
        {0.1, {2.2E-6, 6.2E-6, 1.3E-5, 1.7E-5, 1.6E-5, 1.8E-5, 3.6E-4, 0.017, 0.068, 2.1}},
        {0.5, {4.2E-6, 6.6E-6, 7.8E-6, 4.1E-6, 9.4E-6, 2.2E-5, 1.8E-5, 1.5E-4, 9.9E-3, 0.28}},
        {2, {1.2E-5, 1.1E-5, 7.1E-6, 1.3E-5, 9.3E-6, 1.8E-5, 9.4E-6, 2.7E-4, 4.4E-4, 6.7E-3}},
        {10, {2E-5, 4.2E-5, 5.6E-5, 2.4E-5, 2.1E-5, 4.7E-5, 5.3E-5, 9.3E-5, 3E-4, 2.3E-3}}};
    for (const auto& [between, stated] : rows) {
        for (int i = 0; i < 10; ++i) {
            Deviation circles;
            const double R = Stored(ro * distances[i]);
            for (const double c : {0.0, 1.0, 10.0}) {
                for (const double z : {Stored(c + ro * between), Stored(c - ro * between)}) {
                    if (z >= 0) {
                        circles.Add(m.Icr_HS(R, ro, c, z, Nu),
                                    test::CircleReference(R, ro, c, z, nu));
                    }
                }
            }
            circles.Hold(Named("circle", {between, distances[i]}), stated[i]);
        }
    }
}

TEST(Mindlin, CentreOfTheCircle) {
    Deviation centres;
    for (const double z : {0.0, 3.0, 4.99, 5.0, 5.5, 25.0, 100.0}) {
        centres.Add(m.Icc_HS(ro, 5, z, Nu), test::CircleReference(0, ro, 5, Stored(z), nu));
    }
    centres.Add(m.Icc_HS(ro, 0, 0, Nu), 2 * (1 - nu * nu) / (pi * ro));
    centres.Hold("centre", 1E-7);
}

TEST(Mindlin, RayIsTheIntegralOfTheKernelAlongIt) {
    const mindlin::Soil soil(Nu);
    // Angle, and the deviation stated for distances of 0.5, 3, 6 and 20 radii.
    const double rows[][5] = {
        {0, 5E-5, 4.6E-5, 8.5E-5, 1.1E-4},        {0.7, 6.4E-5, 5E-5, 7.7E-5, 5.7E-5},
        {pi / 2, 1.5E-5, 5.1E-5, 6.1E-5, 9.2E-5}, {2.5, 8.2E-5, 7.8E-5, 4.5E-5, 2E-4},
        {3, 7.9E-5, 4.2E-5, 4.6E-4, 3.1E-3},      {pi, 5.3E-6, 7.2E-3, 0.38, 4.1}};
    const double distances[] = {0.5, 3, 6, 20};
    for (const auto& row : rows) {
        const double angle = Stored(row[0] == pi ? 0.999 * Stored(pi) : row[0]);
        for (int i = 0; i < 4; ++i) {
            Deviation rays;
            const double R = ro * distances[i];
            for (const double c : {0.0, 1.0, 10.0}) {
                for (const double z : {c, Stored(c + 0.05), c + 0.5, c + 5}) {
                    const auto along = [&](double t) {
                        const double x = t + R * std::cos(angle);
                        const double y = R * std::sin(angle);
                        return t * test::Kernel(std::sqrt(x * x + y * y), c, z, nu);
                    };
                    const double nearest = std::clamp(-R * std::cos(angle), 0.0, ro);
                    const double integral = test::Integrate(along, 0, nearest, test::Inner) +
                                            test::Integrate(along, nearest, ro, test::Inner);
                    rays.Add(mindlin::CircleRayIntegral(R, ro, c, z, row[0], soil),
                             integral * soil.Scale.Value());
                }
            }
            rays.Hold(Named("ray", {row[0], distances[i]}), row[i + 1]);
        }
    }
}

TEST(Mindlin, RectangleAndItsCorner) {
    const auto surface = [](double A, double B) {
        return (1 - nu * nu) / pi * (A * std::asinh(B / A) + B * std::asinh(A / B));
    };
    for (const auto& [A, stated] :
         {std::pair{1.0, 1E-7}, {2.0, 1E-7}, {10.0, 1E-6}, {100.0, 5E-5}, {1000.0, 1.4E-3}}) {
        Deviation slender;
        slender.Add(m.Iii_HS(A, 1, Nu), surface(A, 1));
        slender.Hold(Named("rectangle", {A}), stated);
    }
    Deviation layers;
    for (const double ZG : {2.0, 20.0}) {
        for (const double Ho : {6.0, 100.0}) {
            layers.Add(m.Iii_EH(3, 1.5, ZG, Ho, Nu),
                       test::CornerReference(3, 1.5, 0, ZG, nu) -
                           test::CornerReference(3, 1.5, 0, ZG + Ho, nu));
        }
    }
    layers.Add(m.Iii_EH(3, 1.5, -2, 5, Nu),
               surface(3, 1.5) - test::CornerReference(3, 1.5, 0, 3, nu));
    layers.Hold("layer under a rectangle", 1E-6);
    EXPECT_EQ(m.Iii_EH(3, 1.5, -2, 1, Nu).Value(), 0);

    const double r = std::hypot(3, 1.5) / 2;
    const double own = (3 - 4 * nu) * (1 + nu) / (8 * pi * (1 - nu));
    const double mean = (std::asinh(0.5) / 1.5 + std::asinh(2) / 3) - 1 / r; // over 1/distance
    Deviation concentrated;
    concentrated.Add(m.Cii_HS(3, 1.5, 2, 5, Nu), 4.5 * test::Kernel(r, 2, 5, nu));
    concentrated.Add(m.Cii_HS(3, 1.5, 2, 2, Nu), 4.5 * (test::Kernel(r, 2, 2, nu) + own * mean));
    concentrated.Hold("rectangle at half its diagonal", 1E-7);
}

TEST(Mindlin, LayersAddUpToTheHalfSpace) {
    const struct {
        std::function<Single(Single Z, Single Ho)> layer;
        Single whole;
        double middle; // depth of the load
    } factors[] = {
        {[](Single Z, Single Ho) { return m.Ipi_EH(1.5, 4, Z, Ho, Nu); }, m.Ipi_HS(1.5, 4, 3, Nu),
         4},
        {[](Single Z, Single Ho) { return m.Ili_EH(2, 1, 9, Z, Ho, Nu); }, m.Ili_HS(2, 1, 9, 3, Nu),
         5},
        {[](Single Z, Single Ho) { return m.Isr_EH(2, 1, 1, 9, Z, Ho, Nu); },
         m.Isr_HS(2, 1, 1, 9, 3, Nu), 5},
        {[](Single Z, Single Ho) { return m.Icr_EH(2, 1, 4, Z, Ho, Nu); }, m.Icr_HS(2, 1, 4, 3, Nu),
         4},
        {[](Single Z, Single Ho) { return m.Icc_EH(2, 4, Z, Ho, Nu); }, m.Icc_HS(2, 4, 3, Nu), 4}};
    for (const auto& [layer, whole, middle] : factors) {
        EXPECT_NEAR(Stored(layer(3, 6)) + Stored(layer(9, 91)), Stored(layer(3, 97)), 1E-7);
        EXPECT_NEAR(Stored(layer(3, 97)), Stored(whole) - test::Kernel(2, middle, 100, nu), 2E-5);
        EXPECT_EQ(layer(3, 0).Value(), 0);
    }
}

TEST(Mindlin, Failures) {
    const std::pair<std::function<void()>, int> calls[] = {
        {[] { m.Ipi_HS(0, 2, 2, Nu); }, 11},
        {[] { m.Ipi_EH(0, 2, 1, 1, Nu); }, 11},
        {[] { m.Ili_HS(0, 1, 9, 4, Nu); }, 11},
        {[] { m.Ili_HS(0, 1, 9, 0, Nu); }, 6},
        {[] { m.Ili_HS(1, 3, 3, 4, Nu); }, 6},
        {[] { m.Icr_HS(1, 0, 2, 2, Nu); }, 6},
        {[] { m.Icr_HS(0, 1, 2, 2, Nu); }, 11},
        {[] { m.Icc_HS(0, 2, 2, Nu); }, 6},
        {[] { m.Iii_HS(0, 2, Nu); }, 11},
        {[] { m.Iii_HS(0, 0, Nu); }, 6},
        {[] { m.Iii_HS(4200, 1, Nu); }, 11},
        {[] { m.Iii_EH(2, 0, 1, 1, Nu); }, 11},
        {[] { m.Cii_HS(2, 0, 1, 1, Nu); }, 11},
        {[] { m.Ipi_HS(1, 2, 2, 1); }, 11},
        {[] { m.Ipi_HS(1, 2, 2, -1); }, 11},
        {[] { m.Isr_HS(0, 0, 1, 9, 4, Nu); }, 11},
        {[] { m.Isr_HS(0.5, 0.5, 1, 9, 4, Nu); }, 0}};
    int row = 0;
    for (const auto& [call, number] : calls) {
        EXPECT_EQ(ErrorOf(call), number) << "row " << row++;
    }
}

struct PileResult {
    double settlement; // times E over the load
    double baseShare;
};

/// One of two incompressible piles of unit diameter `distance` apart (0: a single one) in the
/// boundary elements of Poulos and Davis (1980): `n` pieces of shaft that settle alike in their
/// middle, at the distance `skin` from the axis, and a rigid base.
PileResult Pile(double L, int n, double distance, double skin) {
    const auto both = [&](auto factor, Single own) {
        return Stored(own) + (distance > 0 ? Stored(factor(distance)) : 0);
    };
    std::vector<std::vector<double>> a; // flexibility, and a unit settlement behind it
    for (int i = 0; i <= n; ++i) {
        const Single R = i < n ? skin : 0;
        const Single Z = i < n ? (i + 0.5) * L / n : L;
        std::vector<double>& row = a.emplace_back();
        for (int j = 0; j < n; ++j) {
            const auto shaft = [&](Single from) {
                return m.Isr_HS(from, ro, j * L / n, (j + 1) * L / n, Z, 0.5);
            };
            row.push_back(both(shaft, shaft(R)));
        }
        const auto base = [&](Single from) { return m.Icr_HS(from, ro, L, Z, 0.5); };
        // A rigid circle settles by Pi/4 of the centre of a flexible one.
        row.push_back(both(base, i < n ? Real(base(R)) : pi / 4 * m.Icc_HS(ro, L, L, 0.5)));
        row.push_back(1);
    }
    for (int k = 0; k <= n; ++k) { // Gauss-Jordan
        for (int i = 0; i <= n; ++i) {
            const double share = i == k ? 0 : a[i][k] / a[k][k];
            for (int j = k; share != 0 && j <= n + 1; ++j) {
                a[i][j] -= share * a[k][j];
            }
        }
    }
    double total = 0;
    for (int k = 0; k <= n; ++k) {
        total += a[k][n + 1] / a[k][k];
    }
    return {1 / total, a[n][n + 1] / a[n][n] / total};
}

TEST(Mindlin, IncompressiblePiles) {
    // L/d = 25, nu = 0.5: pieces, where the own shaft settles; I0, base share, interaction factor.
    const struct {
        int n;
        double skin, I0, share, alpha;
    } rows[] = {{5, 0.505, 0.07467, 0.0655, 0.4371},  {10, 0.505, 0.07462, 0.0616, 0.4366},
                {20, 0.505, 0.07456, 0.0598, 0.4367}, {40, 0.505, 0.07449, 0.0573, 0.4368},
                {5, 0.5, 0.07333, 0.0607, 0.4454},    {10, 0.5, 0.07324, 0.0553, 0.4450},
                {20, 0.5, 0.07317, 0.0513, 0.4451},   {40, 0.5, 0.07307, 0.0470, 0.4453}};
    for (const auto& [n, skin, I0, share, alpha] : rows) {
        const PileResult one = Pile(25, n, 0, skin);
        const double interaction = Pile(25, n, 5, skin).settlement / one.settlement - 1;
        std::printf("pile of %d, %g: I0 %.5f, base %.4f, pair %.4f\n", n, skin, one.settlement,
                    one.baseShare, interaction);
        EXPECT_NEAR(one.settlement, I0, 6E-6) << n << ' ' << skin;
        EXPECT_NEAR(one.baseShare, share, 6E-5) << n << ' ' << skin;
        EXPECT_NEAR(interaction, alpha, 6E-5) << n << ' ' << skin;
        if (n == 10 && skin > ro) { // Poulos and Davis (1980), ten elements
            EXPECT_NEAR(one.settlement, 0.0747, 2E-4);
            EXPECT_NEAR(one.baseShare, 0.062, 6E-4);
            EXPECT_NEAR(interaction, 0.436, 1E-3);
        }
    }
}

} // namespace
} // namespace torlib

// Gauss-Legendre rules, bilinear shape functions, and double integration over a quadrilateral.

#include "tests/error_of.h"
#include "torlib/numeric/math_class.h"

#include <gtest/gtest.h>

#include <cmath>

namespace torlib {
namespace {

using test::ErrorOf;

const Math_Class math;
constexpr int orders[] = {1, 2, 3, 4, 5, 6, 7, 9, 11, 13, 15};

Array<Single> RuleOf(int Ngp) {
    Array<Single> Samp(Bounds{3, 4});
    math.GauseLegendreQuadrature(Samp, Ngp);
    return Samp;
}

TEST(Quadrature, IsExactToItsDegreeOrAZeroTable) {
    for (const int n : orders) {
        const Array<Single> Samp = RuleOf(n);
        for (int k : Range(1, n)) { // the root of the Legendre polynomial is nearest to this float
            const double x = Samp(k, 1).Value();
            const double ulp = std::nextafter(Samp(k, 1).Value(), 2.0F) - x;
            EXPECT_LT(std::legendre(static_cast<unsigned>(n), x - ulp / 2) *
                          std::legendre(static_cast<unsigned>(n), x + ulp / 2),
                      0)
                << n << ": " << k;
            EXPECT_EQ(x, -Samp(n + 1 - k, 1).Value());
            EXPECT_TRUE(k == 1 || Samp(k, 1) < Samp(k - 1, 1));
        }
        for (int power = 0; power < 2 * n; ++power) { // power 0: the weights sum to 2
            double sum = 0;
            for (int k : Range(1, n)) {
                sum += Samp(k, 2).Value() * std::pow(Samp(k, 1).Value(), power);
            }
            EXPECT_NEAR(sum, power % 2 == 1 ? 0 : 2.0 / (power + 1), 1.5E-7) << n << ": " << power;
        }
    }
    for (const int n : {0, 8, 10, 12, 14, 16, 32767}) {
        const Array<Single> Samp = RuleOf(n);
        EXPECT_EQ(Samp.LBound() + Samp.LBound(2) + Samp.UBound() + Samp.UBound(2), n + 2);
        for (std::size_t k = 0; k < Samp.Size(); ++k) {
            EXPECT_EQ(Samp.Data()[k].Value(), 0);
        }
    }
    EXPECT_EQ(ErrorOf([] { RuleOf(-1); }), 9);
}

TEST(ShapeFunctions, AreOneAtTheirCorner) {
    Array<Single> Samp(Bounds{1, 2}, Bounds{1, 1});
    Samp(1, 1) = -1;
    Samp(2, 1) = 1;
    const int cornerAt[2][2] = {{1, 4}, {2, 3}}; // by xi and eta
    Array<Single> Der, Fun;
    for (int k : Range(1, 4)) {
        for (int i : Range(1, 2)) {
            for (int j : Range(1, 2)) {
                math.Bilinear(Der, Fun, Samp, i, j);
                EXPECT_EQ(Fun(k).Value(), k == cornerAt[i - 1][j - 1]);
            }
        }
    }
    EXPECT_EQ(Fun.UBound() * 100 + Der.UBound() * 10 + Der.UBound(2), 424);
    EXPECT_EQ(ErrorOf([&] { math.Bilinear(Der, Fun, Samp, 1, 3); }), 9);
}

/// Integral of (x + s y)^m over the triangle of the corners 1, i and i + 1, positive clockwise:
/// twice the area times m! / (m + 2)! times all products of degree m of the values at the corners.
double OverTriangle(const Array<Single>& Coord, int i, double s, int m) {
    const auto at = [&](int k, int column) { return double{Coord(k, column).Value()}; };
    const double twice = (at(i + 1, 1) - at(1, 1)) * (at(i, 2) - at(1, 2)) -
                         (at(i, 1) - at(1, 1)) * (at(i + 1, 2) - at(1, 2));
    std::vector<double> products(static_cast<std::size_t>(m) + 1);
    products[0] = twice / (m + 1) / (m + 2);
    for (const int corner : {1, i, i + 1}) {
        for (std::size_t degree = 1; degree < products.size(); ++degree) {
            products[degree] += (at(corner, 1) + s * at(corner, 2)) * products[degree - 1];
        }
    }
    return products.back();
}

/// Difference of an Ngp x Ngp rule from the closed form, by the sum of the terms' magnitudes.
double ErrorOver(const Array<Single>& Coord, int Ngp, double s, int m) {
    const Array<Single> Samp = RuleOf(Ngp);
    Array<Single> Der, Fun, J(Bounds{1, 2}, Bounds{1, 2});
    double sum = 0, magnitudes = 0;
    for (int i : Range(1, Ngp)) {
        for (int j : Range(1, Ngp)) {
            math.Bilinear(Der, Fun, Samp, i, j);
            math.ProductTwoUnequalMatrices(2, 4, 2, Der, Coord, J);
            Real value = 0;
            for (int k : Range(1, 4)) {
                value += Fun(k) * (Coord(k, 1) + s * Coord(k, 2));
            }
            const Real area = Samp(i, 2) * Samp(j, 2) * (J(1, 1) * J(2, 2) - J(1, 2) * J(2, 1));
            sum += area.Value() * std::pow(value.Value(), m);
            magnitudes += area.Value() * std::pow(std::abs(value.Value()), m);
        }
    }
    const double exact = OverTriangle(Coord, 2, s, m) + OverTriangle(Coord, 3, s, m);
    return std::abs(sum - exact) / magnitudes;
}

TEST(DoubleIntegration, OfPolynomialsIsExactOverAQuadrilateral) {
    const auto x = ArrayFromOne<Single>({-0.9, -0.6, 0.8, 1.1});
    const auto Y = ArrayFromOne<Single>({-0.7, 0.7, 1, -0.6});
    Array<Single> regions[2];
    math.NodalCoordinatesOverQuadRegion(x, Y, regions[0]);
    math.NodalCoordinatesDoubleIntegration(-0.5, 1.5, -0.25, 0.75, regions[1]);
    double largest = 0;
    for (const int n : orders) { // with the Jacobian the degree is m + 1 in each direction
        for (const double s : {0.0, -2.0, -0.75, -0.25, 0.25, 0.5, 1.0, 4.0}) {
            for (const Array<Single>& region : regions) {
                largest = std::max(largest, ErrorOver(region, n, s, 2 * n - 2));
            }
        }
    }
    EXPECT_LT(largest, 1E-6);
    EXPECT_GT(ErrorOver(regions[0], 2, 0.5, 4), 0.01); // one point too few

    Array<Single>& own = regions[1]; // a table of its own corners
    math.NodalCoordinatesDoubleIntegration(own(1, 1), own(3, 1), own(1, 2), own(2, 2), own);
    EXPECT_EQ(own(1, 1).Value() + own(3, 1).Value() + own(1, 2).Value() + own(3, 2).Value(), 1.5);
    EXPECT_EQ(ErrorOf([&] { math.NodalCoordinatesOverQuadRegion(x, Array<Single>(), own); }), 9);
    EXPECT_EQ(own(3, 2).Value(), 0);
}

} // namespace
} // namespace torlib

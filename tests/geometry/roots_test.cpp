#include "kl_family.h"
#include "support/csv.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

std::vector<double> roots_of(const std::vector<double> &c)
{
    double roots[4];
    const long n = KL_Poly_real_roots(static_cast<long>(c.size()) - 1, c.data(), roots);
    return n < 0 ? std::vector<double>{kNan} : std::vector<double>(roots, roots + n);
}

void expect_roots(const std::vector<double> &c, const std::vector<double> &expected, double tolerance)
{
    const std::vector<double> found = roots_of(c);
    ASSERT_EQ(found.size(), expected.size()) << ::testing::PrintToString(c);
    for (std::size_t i = 0; i < found.size(); ++i)
        EXPECT_NEAR(found[i], expected[i], tolerance) << ::testing::PrintToString(c);
}

} // namespace

// Roots of rounded coefficients, in units of what rounding these once more would do.
TEST(Roots, LieWhereFiftyDigitsPutThem)
{
    constexpr double kUnits = 4.0;
    for (const auto &row : read_table("roots.csv", 15)) {
        const long order = static_cast<long>(row[0]);
        const long n = static_cast<long>(row[6]);
        double roots[4];
        ASSERT_EQ(KL_Poly_real_roots(order, &row[1], roots), n) << ::testing::PrintToString(row);
        for (long i = 0; i < n; ++i) {
            const std::size_t at = static_cast<std::size_t>(7 + 2 * i);
            EXPECT_NEAR(roots[i], row[at], kUnits * row[at + 1]) << ::testing::PrintToString(row);
        }
    }
}

TEST(Roots, AMultipleRootIsGivenOnce)
{
    expect_roots({1, 0, -2, 0, 1}, {-1, 1}, 0.0);
    expect_roots({1, -4, 6, -4, 1}, {1}, 0.0);
    expect_roots({0, 0, 0, 0, 1}, {0}, 0.0);
    expect_roots({0, 0, 0, -2}, {0}, 0.0);
    expect_roots({1, -2, 1}, {1}, 0.0);
    expect_roots({4, -12, 13, -6, 1}, {1, 2}, 1.4e-15);
    expect_roots({-8, 12, -6, 1}, {2}, 1e-15);
    expect_roots({0, 0, 13.12676337474103, -158.14015394074872, 638.5463011540858}, {0}, 0.0);
    expect_roots({0, 0, 3, -4, 1}, {0, 1, 3}, 1e-15);
    expect_roots({1, 0, 2, 0, 1}, {}, 0.0);
    expect_roots({-1, 0, 0, 0, 1}, {-1, 1}, 0.0);
    expect_roots({24, -50, 35, -10, 1}, {1, 2, 3, 4}, 3e-15);
    for (const double scale : {1e300, 1e-300, 1e150, -1e-150}) {
        expect_roots({scale, -2 * scale, scale}, {1}, 0.0);
        expect_roots({scale, 0, -2 * scale, 0, scale}, {-1, 1}, 4e-16);
    }
}

// Triple and quadruple roots at numbers that are not round: the coefficients are, and move the roots by up to 1e-5.
TEST(Roots, RoundedCoefficientsDoNotTearAMultipleRootApart)
{
    for (int i = 1; i < 2000; ++i) {
        const double r = 0.0137 * i;
        expect_roots({-r * r * r, 3 * r * r, -3 * r, 1}, {r}, 2e-5 * r);
        expect_roots({r * r * r * r, -4 * r * r * r, 6 * r * r, -4 * r, 1}, {r}, 5e-4 * r);
    }
}

TEST(Roots, ADoubleRootMovedByOneUnitOfTheLastPlaceIsTwoOrNone)
{
    const double up = std::nextafter(1.0, 2.0);
    const double down = std::nextafter(1.0, 0.0);
    expect_roots({up, -2, 1}, {}, 0.0);
    expect_roots({down, -2, 1}, {1 - 1.0536712127723509e-8, 1 + 1.0536712127723509e-8}, 1e-15);
}

TEST(Roots, LeadingZerosLowerTheOrder)
{
    expect_roots({2, 1, 0, 0, 0}, {-2}, 0.0);
    expect_roots({-1, 0, 1, 0, 0}, {-1, 1}, 0.0);
    expect_roots({0, 1}, {0}, 0.0);
    expect_roots({1, -1e200, 1}, {1e-200, 1e200}, 1e185);
    EXPECT_NEAR(roots_of({1, -1e200, 1})[0], 1e-200, 1e-215);
}

// (x - 1/s)(x - 1)(x - s), times x + s/2 too: what lies as far apart as this is not moved by the other roots.
TEST(Roots, OfVeryDifferentSizes)
{
    for (const double s : {1e30, 1e60, 1e90, 1e120, 1e150}) {
        SCOPED_TRACE(s);
        const std::vector<double> three = roots_of({-1, s, -s, 1});
        const std::vector<double> four = roots_of({-0.5 * s, 0.5 * s * s, -0.5 * s * s, -0.5 * s, 1});
        ASSERT_EQ(three.size(), 3U);
        ASSERT_EQ(four.size(), 4U);
        EXPECT_NEAR(four[0] / s, -0.5, 2e-16);
        const double expected[3] = {1 / s, 1, s};
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_NEAR(three[i] / expected[i], 1.0, 4e-16);
            EXPECT_NEAR(four[i + 1] / expected[i], 1.0, 4e-16);
        }
    }
}

TEST(Roots, RefusesWhatIsNoPolynomial)
{
    const double c[5] = {1, 2, 3, 4, 5};
    double roots[4] = {7, 7, 7, 7};
    for (const long order : {-1L, 0L, 5L, std::numeric_limits<long>::max(), std::numeric_limits<long>::min()})
        EXPECT_EQ(KL_Poly_real_roots(order, c, roots), -1) << order;
    for (const double bad : {kNan, kInf, -kInf})
        for (std::size_t i = 0; i < 5; ++i) {
            double with[5] = {1, 2, 3, 4, 5};
            with[i] = bad;
            EXPECT_EQ(KL_Poly_real_roots(4, with, roots), -1) << bad << i;
        }
    const double constant[5] = {3, 0, 0, 0, 0};
    EXPECT_EQ(KL_Poly_real_roots(4, constant, roots), -1);
    EXPECT_EQ(KL_Poly_real_roots(2, nullptr, roots), -1);
    EXPECT_EQ(KL_Poly_real_roots(2, c, nullptr), -1);
    EXPECT_EQ(roots[0], 7);
}

// No more is written than the order promises.
TEST(Roots, RoomForTheOrderIsEnough)
{
    double roots[4] = {7, 7, 7, 7};
    const double c[3] = {-1, 0, 1};
    EXPECT_EQ(KL_Poly_real_roots(2, c, roots), 2);
    EXPECT_EQ(roots[2], 7);
}

// Angles, elementary rotations, complex numbers. Values by 40-digit arithmetic (mpmath).
#include "kl_family.h"
#include "support/captured_stream.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kTwoPi = 2.0 * kPi;
constexpr double kRelative = 1e-15;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(AngleReduction, HasHalfOpenIntervals)
{
    struct Case {
        double angle, to_2pi, to_pi;
    };
    const Case cases[] = {
        {0.0, 0.0, 0.0},
        {kTwoPi, 0.0, 0.0},
        {-kTwoPi, 0.0, 0.0},
        {kPi, kPi, -kPi},
        {-kPi, kPi, -kPi},
        {1.0, 1.0, 1.0},
        {-1.0, kTwoPi - 1.0, -1.0},
        {4.0, 4.0, 4.0 - kTwoPi},
        {7.0, 7.0 - kTwoPi, 7.0 - kTwoPi},
        {-1e-20, 0.0, 0.0},
    };
    for (const Case &c : cases) {
        EXPECT_NEAR(KL_to_2pi(c.angle), c.to_2pi, 2.0 * kRelative) << c.angle;
        EXPECT_NEAR(KL_to_pi(c.angle), c.to_pi, 2.0 * kRelative) << c.angle;
    }
    EXPECT_EQ(KL_to_2pi(kTwoPi), 0.0);
    EXPECT_EQ(KL_to_2pi(-kTwoPi), 0.0);
    EXPECT_EQ(KL_to_pi(kPi), -kPi);
    for (double degrees = -1080.0; degrees <= 1080.0; degrees += 7.3) {
        double turns = std::fmod(degrees, 360.0);
        turns += turns < 0.0 ? 360.0 : 0.0;
        EXPECT_NEAR(KL_to_360(degrees), turns, 1e-12);
        EXPECT_NEAR(KL_to_180(degrees), turns >= 180.0 ? turns - 360.0 : turns, 1e-12);
    }
    for (const double wild : {kInfinity, -kInfinity, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_TRUE(std::isnan(KL_to_2pi(wild)));
    EXPECT_TRUE(std::isfinite(KL_to_2pi(1e300)));
}

TEST(DegreeTrigonometry, ClampsWithALineAndKeepsItsOddTangent)
{
    EXPECT_NEAR(KL_degsin(30.0), 0.5, kRelative);
    EXPECT_NEAR(KL_degcos(120.0), -0.5, kRelative);
    EXPECT_NEAR(KL_degatan2(-1.0, -1.0), -135.0, 1e-13);
    EXPECT_NEAR(KL_to_deg(KL_to_rad(123.0)), 123.0, 1e-13);
    struct Case {
        double (*function)(double);
        double x, degrees;
        const char *line;
    };
    const Case cases[] = {
        {KL_degasin, 1.0000001, 90.0, "ERROR in KL_degasin: arc-sine out of limits \n"},
        {KL_degasin, -2.0, -90.0, "ERROR in KL_degasin: arc-sine out of limits \n"},
        {KL_degacos, 1.0000001, 0.0, "ERROR in KL_degacos: arc-cosine out of limits \n"},
        {KL_degacos, -2.0, 180.0, "ERROR in KL_degacos: arc-cosine out of limits \n"},
        {KL_degasin, -0.5, -30.0, ""},
        {KL_degacos, -1.0, 180.0, ""},
    };
    for (const Case &c : cases)
        EXPECT_EQ(captured_stderr([&] { EXPECT_NEAR(c.function(c.x), c.degrees, 1e-13); }), c.line);
    // On purpose: the tangent of a quotient of two angles.
    EXPECT_NEAR(KL_degtan2(90.0, 120.0), 0.931596459944072461, 1e-14); // tan(0.75)
}

TEST(SmallFormulas, BesselianYearAndSeasonalTerm)
{
    struct Case {
        double t, year, ut2_ut1;
    };
    const Case cases[] = {
        {0.0, 1999.99991786272233, -0.00500516296869731},
        {-18262.0, 1950.00021903274047, -0.00498625290764759},
        {9821.25, 2026.88960914155046, -0.0161152058509985},
    };
    for (const Case &c : cases) {
        EXPECT_NEAR(KL_Get_Bessel(c.t), c.year, 5e-13);
        EXPECT_NEAR(KL_Get_ut2_ut1(c.t), c.ut2_ut1, 1e-12); // s; 2 pi times 2000 years in a double
    }
}

// Frame rotations: a vector along the next axis comes out along the one after it with a minus, by a quarter turn; and
// derivatives agree with differences.
TEST(RotationMatrices, TurnTheAxesAndDifferentiate)
{
    struct Axis {
        void (*r)(double, double **);
        void (*d)(double, double, double **);
        void (*dd)(double, double, double, double **);
        int fixed, next, after;
    };
    const Axis axes[] = {{KL_Rotx, KL_Drotx, KL_2Drotx, 1, 2, 3},
                         {KL_Roty, KL_Droty, KL_2Droty, 2, 3, 1},
                         {KL_Rotz, KL_Drotz, KL_2Drotz, 3, 1, 2}};
    double **m = KL_double_matrix(3, 3);
    double **before = KL_double_matrix(3, 3);
    double **after = KL_double_matrix(3, 3);
    const double rate = 0.7;
    const double rate_of_rate = -0.3;
    const double h = 1e-4;
    const auto angle = [&](double t) { return 0.4 + rate * t + 0.5 * rate_of_rate * t * t; };
    for (const Axis &axis : axes) {
        axis.r(kPi / 2.0, m);
        EXPECT_EQ(m[axis.fixed][axis.fixed], 1.0);
        EXPECT_NEAR(m[axis.next][axis.after], 1.0, kRelative);
        EXPECT_NEAR(m[axis.after][axis.next], -1.0, kRelative);
        for (int i = 1; i <= 3; ++i)
            for (int j = 1; j <= 3; ++j) {
                axis.r(angle(-h), before);
                axis.r(angle(h), after);
                axis.d(angle(0.0), rate, m);
                EXPECT_NEAR(m[i][j], (after[i][j] - before[i][j]) / (2.0 * h), 1e-8);
                axis.d(angle(-h), rate - h * rate_of_rate, before);
                axis.d(angle(h), rate + h * rate_of_rate, after);
                axis.dd(angle(0.0), rate, rate_of_rate, m);
                EXPECT_NEAR(m[i][j], (after[i][j] - before[i][j]) / (2.0 * h), 1e-8);
            }
    }
    KL_free_double_matrix(m);
    KL_free_double_matrix(before);
    KL_free_double_matrix(after);
}

TEST(ComplexNumbers, ScaleBeforeTheyOverflow)
{
    struct Root {
        kl_complex z, root;
        double modulus;
    };
    const Root roots[] = {
        {{3.0, -4.0}, {2.0, -1.0}, 5.0},
        {{1e300, 1e300}, {1.09868411346780997e150, 4.55089860562227341e149}, 1.41421356237309505e300},
        {{-2.0, 1e-9}, {3.53553390593273762e-10, 1.41421356237309505}, 2.0},
        {{-5.0, 0.0}, {0.0, 2.2360679774997897}, 5.0},
        {{0.0, -2.0}, {1.0, -1.0}, 2.0},
        {{1e-300, 2e-300}, {1.27201964951406896e-150, 7.86151377757423286e-151}, 2.2360679774997897e-300},
        {{0.0, 0.0}, {0.0, 0.0}, 0.0},
    };
    const auto near = [](double x, double expected) {
        return std::fabs(x - expected) <= 2.0 * kRelative * std::fabs(expected);
    };
    for (const Root &c : roots) {
        const kl_complex root = KL_Csqrt(c.z);
        EXPECT_TRUE(near(root.re, c.root.re) && near(root.im, c.root.im)) << c.z.re << " " << c.z.im;
        EXPECT_TRUE(near(KL_Cabs(c.z), c.modulus)) << c.z.re << " " << c.z.im;
    }
    struct Quotient {
        kl_complex a, b, q;
    };
    for (const Quotient &c : {Quotient{{1e300, 2e300}, {3e300, -1e300}, {0.1, 0.7}},
                              Quotient{{1.5, -2.0}, {0.25, 3.0}, {-0.620689655172413793, -0.551724137931034483}}}) {
        const kl_complex q = KL_Cdiv(c.a, c.b);
        EXPECT_TRUE(near(q.re, c.q.re) && near(q.im, c.q.im));
    }
    const kl_complex a = KL_Complex(1.0, 2.0);
    const kl_complex b = KL_Complex(-3.0, 0.5);
    const kl_complex product = KL_Cmul(a, b); // -3 + 0.5i - 6i + i^2
    EXPECT_EQ(product.re, -4.0);
    EXPECT_EQ(product.im, -5.5);
    EXPECT_EQ(KL_Cadd(a, b).im, 2.5);
    EXPECT_EQ(KL_Csub(a, b).re, 4.0);
    EXPECT_EQ(KL_Conjg(a).im, -2.0);
    EXPECT_EQ(KL_RCmul(-2.0, a).im, -4.0);
}

} // namespace

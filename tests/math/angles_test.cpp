// Angles, elementary rotations, complex numbers.
#include "kl_family.h"
#include "support/captured_stream.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kTwoPi = 2.0 * kPi;
constexpr double kRounded = 2e-15;

TEST(Angles, HaveTheirValues)
{
#define X(call, value, tolerance) EXPECT_NEAR(call, value, tolerance) << #call;
#include "math/angle_values.inc"
#undef X
}

TEST(AngleReduction, InDegreesIsTheRemainderAndWildAnglesStayWild)
{
    for (double degrees = -1080.0; degrees <= 1080.0; degrees += 7.3) {
        const double nearest = std::remainder(degrees, 360.0); // -180 to 180, none of them hit
        EXPECT_NEAR(KL_to_180(degrees), nearest, 1e-12);
        EXPECT_NEAR(KL_to_360(degrees), nearest < 0.0 ? nearest + 360.0 : nearest, 1e-12);
    }
    for (const double wild : {HUGE_VAL, -HUGE_VAL, std::nan("")})
        EXPECT_TRUE(std::isnan(KL_to_2pi(wild)));
    EXPECT_TRUE(std::isfinite(KL_to_2pi(1e300)));
}

TEST(DegreeTrigonometry, ArcsOutOfLimitsAreClampedWithALine)
{
    for (double x : {1.0000001, -2.0}) {
        const double sign = std::copysign(1.0, x);
        EXPECT_EQ(captured_stderr([&] { EXPECT_NEAR(KL_degasin(x), 90.0 * sign, 1e-13); }),
                  "ERROR in KL_degasin: arc-sine out of limits \n");
        EXPECT_EQ(captured_stderr([&] { EXPECT_NEAR(KL_degacos(x), 90.0 - 90.0 * sign, 1e-13); }),
                  "ERROR in KL_degacos: arc-cosine out of limits \n");
    }
}

TEST(DegreeTrigonometry, Degtan2IsTheTangentOfAQuotientOnPurpose)
{
    EXPECT_NEAR(KL_degtan2(90.0, 120.0), 0.931596459944072461, 1e-14); // tan(0.75)
}

// Frame rotations: a vector along the next axis comes out along the one after it with a minus, by a quarter turn; and
// derivatives agree with differences.
TEST(RotationMatrices, TurnTheAxesAndDifferentiate)
{
    const struct {
        void (*r)(double, double **);
        void (*d)(double, double, double **);
        void (*dd)(double, double, double, double **);
        int fixed, next, after;
    } axes[] = {{KL_Rotx, KL_Drotx, KL_2Drotx, 1, 2, 3},
                {KL_Roty, KL_Droty, KL_2Droty, 2, 3, 1},
                {KL_Rotz, KL_Drotz, KL_2Drotz, 3, 1, 2}};
    constexpr double kRate = 0.7, kRateOfRate = -0.3, h = 1e-4;
    double **m[5]; // the rotation before and after; its derivative before, now and after
    for (double **&matrix : m)
        matrix = KL_double_matrix(3, 3);
    double **second = KL_double_matrix(3, 3);
    for (const auto &axis : axes) {
        axis.r(kPi / 2.0, second);
        EXPECT_EQ(second[axis.fixed][axis.fixed], 1.0);
        EXPECT_NEAR(second[axis.next][axis.after], 1.0, kRounded);
        EXPECT_NEAR(second[axis.after][axis.next], -1.0, kRounded);
        for (int k : {-1, 0, 1}) {
            const double t = k * h, angle = 0.4 + kRate * t + 0.5 * kRateOfRate * t * t;
            axis.d(angle, kRate + kRateOfRate * t, m[k + 3]);
            if (k != 0)
                axis.r(angle, m[k > 0]);
        }
        axis.dd(0.4, kRate, kRateOfRate, second);
        for (int i = 1; i <= 3; ++i)
            for (int j = 1; j <= 3; ++j) {
                EXPECT_NEAR(m[3][i][j], (m[1][i][j] - m[0][i][j]) / (2.0 * h), 1e-8);
                EXPECT_NEAR(second[i][j], (m[4][i][j] - m[2][i][j]) / (2.0 * h), 1e-8);
            }
    }
    for (double **matrix : m)
        KL_free_double_matrix(matrix);
    KL_free_double_matrix(second);
}

TEST(ComplexNumbers, HaveTheirValues)
{
    const auto expect = [](const char *what, const kl_complex &z, double re, double im) {
        EXPECT_NEAR(z.re, re, kRounded * std::fabs(re)) << what;
        EXPECT_NEAR(z.im, im, kRounded * std::fabs(im)) << what;
    };
#define X(call, re, im) expect(#call, call, re, im);
#include "math/complex_values.inc"
#undef X
}

} // namespace

// Angles and complex numbers.
#include "kl_family.h"
#include "support/captured_stream.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kTwoPi = 2.0 * kPi;
constexpr double kRounded = 2e-15;

TEST(Angles, HaveTheirValues)
{
#define X(call, value, tolerance) EXPECT_NEAR(call, value, tolerance) << #call;
#include "numbers/angle_values.inc"
#undef X
}

// Of angles within a turn: three units of the last place, and one for the turn into degrees.
TEST(DegreeTrigonometry, IsGoodToUnitsOfTheLastPlace)
{
    const auto expect = [](const char *call, double found, double value) {
        const double unit = std::fmax(std::fabs(value) * 0x1p-52, std::numeric_limits<double>::denorm_min());
        EXPECT_NEAR(found, value, 4.0 * unit) << call;
        EXPECT_EQ(std::signbit(found), std::signbit(value)) << call;
    };
#define X(call, value) expect(#call, call, value);
#include "numbers/elementary_values.inc"
#undef X
    for (double nothing : {KL_degatan2(std::nan(""), 1.0), KL_degatan2(1.0, std::nan("")), KL_degsin(HUGE_VAL),
                           KL_to_2pi(-HUGE_VAL), KL_to_2pi(HUGE_VAL)})
        EXPECT_TRUE(std::isnan(nothing));
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

TEST(ComplexNumbers, HaveTheirValues)
{
    const auto expect = [](const char *what, const kl_complex &z, double re, double im) {
        EXPECT_NEAR(z.re, re, kRounded * std::fabs(re)) << what;
        EXPECT_NEAR(z.im, im, kRounded * std::fabs(im)) << what;
    };
#define X(call, re, im) expect(#call, call, re, im);
#include "numbers/complex_values.inc"
#undef X
}

} // namespace

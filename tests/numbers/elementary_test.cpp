// Elementary functions: errors against extended precision, and the same bits for one number and for packs of any width.
#include "elementary_lanes.h"

#include "numbers/elementary.h"
#include "numbers/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

// angles.cpp is not linked: huge angles in degrees are not tested here
namespace {

constexpr double kAwkward[] = {0.0,
                               -0.0,
                               1.0,
                               -1.0,
                               0.5,
                               -0.5,
                               1e-310,
                               -5e-324,
                               1e-200,
                               -1e200,
                               1.5e308,
                               HUGE_VAL,
                               -HUGE_VAL,
                               NAN,
                               0x1p52,
                               0x1p51 + 0.5,
                               -0x1p53,
                               360.0,
                               -360.0,
                               KL_TWO_PI,
                               -KL_TWO_PI,
                               1e8,
                               99999999.0,
                               0x1p-1022,
                               0.1716,
                               0.17,
                               710.475860,
                               -745.2,
                               0x1p28,
                               0x1.fffffffffffffp-1,
                               0x1.fffffffffffffp+1023};

double one_number(int function, double x, [[maybe_unused]] double y)
{
    switch (function) {
#define X(name, ours, ...)                                                                                             \
    case k_##name:                                                                                                     \
        return ours;
        ELEMENTARY_OF_ONE(X)
        ELEMENTARY_OF_TWO(X)
        EXACT_OF_TWO(X)
#undef X
    }
    return NAN;
}

// Half of the numbers evenly within the limits, half over all magnitudes.
std::vector<double> arguments(double least, double largest, int n, unsigned seed)
{
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> even(least, largest);
    std::uniform_real_distribution<double> exponent(-1074.0, 1024.0);
    std::uniform_real_distribution<double> near(-30.0, 12.0);
    std::vector<double> out;
    while (static_cast<int>(out.size()) < n) {
        const std::size_t i = out.size();
        double x = i % 2 == 0 ? even(random) : std::exp2(i % 4 == 1 ? near(random) : exponent(random));
        if (i % 8 >= 4)
            x = -x;
        if (least <= x && x <= largest)
            out.push_back(x);
        else
            out.push_back(even(random));
    }
    return out;
}

double units_off(double got, long double wanted)
{
    const double nearest = static_cast<double>(wanted);
    if (std::isnan(nearest) || std::isinf(nearest) || nearest == 0.0)
        return (std::isnan(nearest) && std::isnan(got)) || got == nearest ? 0.0 : 1e9;
    const double size = std::max(std::fabs(nearest), std::numeric_limits<double>::min());
    return static_cast<double>(std::fabs(got - wanted))
           / (std::nextafter(size, HUGE_VAL) - size == 0.0 ? 1.0 : std::ldexp(1.0, std::ilogb(size) - 52));
}

bool same_bits(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) || (a == b && std::signbit(a) == std::signbit(b));
}

TEST(Elementary, OfOneNumberAgainstExtendedPrecision){
#define X(name, ours, theirs, least, largest, bound)                                                                   \
    {                                                                                                                  \
        double worst = 0.0;                                                                                            \
        double at = 0.0;                                                                                               \
        for (const double argument : arguments(least, largest, 200000, k_##name)) {                                    \
            const long double x = argument;                                                                            \
            const double off = units_off(one_number(k_##name, argument, 0.0), theirs);                                 \
            if (off > worst) {                                                                                         \
                worst = off;                                                                                           \
                at = argument;                                                                                         \
            }                                                                                                          \
        }                                                                                                              \
        RecordProperty(#name, std::to_string(worst));                                                                  \
        EXPECT_LE(worst, bound) << #name " of " << std::hexfloat << at;                                                \
    }
    ELEMENTARY_OF_ONE(X)
#undef X
}

TEST(Elementary, OfTwoNumbersAgainstExtendedPrecision){
#define X(name, ours, theirs, bound)                                                                                   \
    {                                                                                                                  \
        double worst = 0.0;                                                                                            \
        const std::vector<double> xs = arguments(-10.0, 10.0, 200000, 100 + k_##name);                                 \
        const std::vector<double> ys = arguments(-1e300, 1e300, 200000, 200 + k_##name);                               \
        for (std::size_t i = 0; i < xs.size(); ++i) {                                                                  \
            const long double x = xs[i];                                                                               \
            const long double y = i % 2 == 0 ? xs[(i + 100) % xs.size()] : ys[i];                                      \
            worst = std::max(worst, units_off(one_number(k_##name, xs[i], static_cast<double>(y)), theirs));           \
        }                                                                                                              \
        RecordProperty(#name, std::to_string(worst));                                                                  \
        EXPECT_LE(worst, bound) << #name;                                                                              \
    }
    ELEMENTARY_OF_TWO(X)
#undef X
}

// Limits and what is no number, as C has them. On purpose: the sine of minus zero is plus zero.
TEST(Elementary, AtTheEnds)
{
#define X(name, ours, theirs, ...)                                                                                     \
    for (const double argument : kAwkward) {                                                                           \
        const long double x = argument;                                                                                \
        const double got = one_number(k_##name, argument, 0.0);                                                        \
        EXPECT_LE(units_off(got, theirs), 2.5) << #name " of " << argument << ": " << got;                             \
        if (argument == 0.0 && k_##name != k_sine) {                                                                   \
            EXPECT_EQ(std::signbit(got), std::signbit(theirs)) << #name;                                               \
        }                                                                                                              \
    }
    ELEMENTARY_OF_ONE(X)
#undef X
#define X(name, ours, theirs, ...)                                                                                     \
    for (const double x : kAwkward)                                                                                    \
        for (const double y : kAwkward) {                                                                              \
            const double got = one_number(k_##name, x, y);                                                             \
            EXPECT_LE(units_off(got, theirs), 2.5) << #name " of " << x << ", " << y << ": " << got;                   \
            EXPECT_EQ(std::signbit(got), std::signbit(theirs) && !std::isnan(got)) << #name << x << ", " << y;         \
        }
    ELEMENTARY_OF_TWO(X)
#undef X
}

struct Set {
    const char *name;
    bool here;
    decltype(&kernels_baseline::elementary_lanes) kernel;
};

TEST(Elementary, PacksOfAnyWidthGiveTheBitsOfOneNumber)
{
    const Set sets[] = {
        {"baseline", true, kernels_baseline::elementary_lanes},
#if defined(__x86_64__)
        {"avx2", __builtin_cpu_supports("avx2") != 0, kernels_avx2::elementary_lanes},
        {"avx512", __builtin_cpu_supports("avx512f") != 0, kernels_avx512::elementary_lanes},
#endif
    };
    std::vector<double> xs = arguments(-10.0, 10.0, 4000, 7);
    std::vector<double> ys = arguments(-1e300, 1e300, 4000, 8);
    for (const double a : kAwkward)
        for (const double b : kAwkward) {
            xs.push_back(a);
            ys.push_back(b);
        }
    while (xs.size() % 8 != 0) {
        xs.push_back(1.0);
        ys.push_back(2.0);
    }
    std::vector<double> out(xs.size());
    for (const Set &set : sets)
        for (int function = 0; set.here && function < kElementary; ++function) {
            set.kernel(function, xs.data(), ys.data(), out.data(), static_cast<long>(xs.size()));
            for (std::size_t i = 0; i < xs.size(); ++i)
                ASSERT_TRUE(same_bits(out[i], one_number(function, xs[i], ys[i])))
                    << set.name << ", function " << function << " of " << xs[i] << ", " << ys[i] << ": " << out[i];
        }
}

} // namespace

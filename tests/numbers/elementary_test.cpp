// Elementary functions: errors against extended precision, and the same bits for one number and for packs of any width.
#include "elementary_lanes.h"

#include "numbers/elementary.h"
#include "numbers/numbers.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

// angles.cpp is not linked: huge angles in degrees are not tested here
namespace {

constexpr double kMagnitudes[] = {0.0,       0.5,      1.0,           360.0,   KL_TWO_PI,    1e-310, 5e-324,
                                  1e-200,    0x1p28,   1e200,         1.5e308, 0.17,         1e8,    99999999.0,
                                  0.1716,    HUGE_VAL, 0x1p-1022,     0x1p52,  0x1p51 + 0.5, 0x1p53, 745.2,
                                  710.47586, NAN,      1.0 - 0x1p-53, DBL_MAX};

std::vector<double> awkward() // with either sign
{
    std::vector<double> both;
    for (const double x : kMagnitudes)
        both.insert(both.end(), {x, -x});
    return both;
}

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

// Below the normal numbers a result is rounded twice: a quarter of a unit more.
double units_off(double got, long double wanted)
{
    const double nearest = static_cast<double>(wanted), least = std::numeric_limits<double>::min();
    if (std::isnan(nearest) || std::isinf(nearest) || nearest == 0.0)
        return (std::isnan(nearest) && std::isnan(got)) || got == nearest ? 0.0 : 1e9;
    const long double unit = std::ldexp(1.0L, std::ilogb(std::max(std::fabs(nearest), least)) - 52);
    return static_cast<double>(std::fabs(got - wanted) / unit) - (std::fabs(nearest) < least ? 0.25 : 0.0);
}

bool same_bits(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) || (a == b && std::signbit(a) == std::signbit(b));
}

struct Function {
    const char *name;
    Elementary number;
    long double (*theirs)(long double x, long double y);
    double least, largest, bound;
};
constexpr Function kFunctions[] = {
#define X(name, ours, theirs, least, largest, bound)                                                                   \
    {#name, k_##name, [](long double x, [[maybe_unused]] long double y) -> long double { return theirs; },                            \
     least, largest,  bound},
    ELEMENTARY_OF_ONE(X) ELEMENTARY_OF_TWO(X)
#undef X
};

TEST(Elementary, AgainstExtendedPrecision)
{
    for (const auto &[name, number, theirs, least, largest, bound] : kFunctions) {
        double worst = 0.0, at[2] = {};
        const std::vector<double> xs = arguments(least, largest, 200000, number);
        const std::vector<double> ys = arguments(-1e300, 1e300, 200000, 200 + number);
        for (std::size_t i = 0; i < xs.size(); ++i) {
            const double y = i % 2 == 0 ? xs[(i + 100) % xs.size()] : ys[i];
            const double off = units_off(one_number(number, xs[i], y), theirs(xs[i], y));
            if (off > worst) {
                worst = off;
                at[0] = xs[i];
                at[1] = y;
            }
        }
        RecordProperty(name, std::to_string(worst));
        EXPECT_LE(worst, bound) << name << " of " << std::hexfloat << at[0] << ", " << at[1];
    }
}

// Limits and what is no number, as C has them. On purpose: the sine of minus zero is plus zero.
TEST(Elementary, AtTheEnds)
{
    for (const auto &[name, number, theirs, least, largest, bound] : kFunctions)
        for (const double x : awkward())
            for (const double y : awkward()) {
                const double got = one_number(number, x, y);
                const long double wanted = theirs(x, y);
                EXPECT_LE(units_off(got, wanted), 2.5) << name << " of " << x << ", " << y << ": " << got;
                if (!std::isnan(got) && !(number == k_sine && x == 0.0)) {
                    EXPECT_EQ(std::signbit(got), std::signbit(wanted)) << name << " of " << x << ", " << y;
                }
            }
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
    for (const double a : awkward())
        for (const double b : awkward()) {
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
